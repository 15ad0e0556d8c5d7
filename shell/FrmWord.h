// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ToolForm.h"
#include "shell/ui_FrmWord.h"

namespace brindlemark {

/// The seller's quick words: phrases kept in the list file \Quick.ini, for the clipboard or the source box.
class FrmWord : public ToolForm, public Ui::FrmWord
{
    Q_OBJECT

public:
    /// Throws RuntimeError(TypeMismatch) when key `chk` of section `Quickword` is missing or empty.
    FrmWord();

private:
    void Text1_EnterPressed();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command6_Click();
    void List1_DblClick();
    void addPhrase();
    void copySelected();
    void saveList() const;
    template <typename Use>
    void useSelected(Use use);
};

} // namespace brindlemark
