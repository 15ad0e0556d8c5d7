// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_FrmColorcode.h"
#include "shell/ToolForm.h"

class ColorRow;

/// Mixes a colour and puts its HTML code at the caret of the source box. The window only hides then: the next
/// time its bars stand where they stood.
class FrmColorcode : public ToolForm, public Ui::FrmColorcode
{
    Q_OBJECT

public:
    FrmColorcode();

    /// "#" and the colour's number in decimal.
    QString Text1;

private:
    void Command3_Click();
    void Command4_Click();

    ColorRow* m_row;
};
