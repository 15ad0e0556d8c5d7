// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ui_FrmChar.h"
#include "shell/ToolForm.h"

/// Lets the user pick a character of a font. The view follows the pointer until a character is marked, and
/// stays on that one then. The window only hides when a character is taken: mark and font stay.
class FrmChar : public ToolForm, public Ui::FrmChar
{
    Q_OBJECT

public:
    FrmChar();

signals:
    /// The user has taken a character, in a window of that caption.
    void taken(const QString& caption, const QString& family, const QString& character);

private:
    void CharC_MouseMove(int index);
    void Combo1_Click();
    void Command1_Click();
};
