// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ui_FrmChar.h"
#include "shell/ToolForm.h"

namespace brindlemark {

/// Lets the user pick a character of a font. The view shows the character under the pointer; once one is
/// marked, it shows that one. OK only hides the window: the next time mark and font are still there.
class FrmChar : public ToolForm, public Ui::FrmChar
{
    Q_OBJECT

public:
    FrmChar();

signals:
    /// The user has taken a character. `caption` is the window's and tells for whom.
    void taken(const QString& caption, const QString& family, const QString& character);

private:
    void CharC_MouseMove(int index);
    void Combo1_Click();
    void Command1_Click();
    void showFont();
};

} // namespace brindlemark
