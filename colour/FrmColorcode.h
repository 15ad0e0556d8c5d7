// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_FrmColorcode.h"
#include "shell/ToolForm.h"

namespace brindlemark {

class ColorRow;

/// Mixes a colour and puts its HTML code at the caret of the source box. After that the window only hides, so
/// that its bars stand in the same place the next time.
class FrmColorcode : public ToolForm, public Ui::FrmColorcode
{
    Q_OBJECT

public:
    FrmColorcode();

    /// "#" and the colour number in decimal.
    QString decimalCode;

private:
    void Command4_Click();

    void showCode();

    ColorRow* m_row;
};

} // namespace brindlemark
