// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/Presets.h"
#include "colour/ui_FrmHR.h"
#include "shell/ToolForm.h"

namespace brindlemark {

class ColorRow;

/// The tool that makes a horizontal rule. Shows it in a sample, copies it, or puts it at the caret of the
/// source box. Sizes are written as they are typed.
class FrmHR : public ToolForm, public Ui::FrmHR
{
    Q_OBJECT

public:
    FrmHR();

    /// The colour of the rule, `#RRGGBB`.
    QString ruleColor;

private:
    void HScroll1_Change();
    void HScroll2_Change();
    void Command1_Click();
    void Command6_Click();
    void Command9_Click();
    void Command10_Click();

    void refresh();
    QString tag() const;
    Preset preset();

    ColorRow* m_row;
};

} // namespace brindlemark
