// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "shell/ui_Find.h"
#include "source/TextSearch.h"

#include <QPointer>

namespace brindlemark {

class ListObject;
class RichTextBox;

/// Finds and replaces text in a source box, from a window that stays on top.
class Find : public Form, public Ui::Find
{
    Q_OBJECT

public:
    Find();

    /// Selects the next place of the text that was looked for last, or the one before, from the caret on and
    /// round. False: none was looked for.
    bool findAgain(RichTextBox& source, bool backwards) const;

    /// Whoever shows the window says first which box it searches; once that has gone, the buttons do nothing.
    void searchIn(RichTextBox* source);

    /// `MatchCase` or none.
    FindOptions CaseFlag;
    /// `WholeWord` or none.
    FindOptions WordFlag;
    /// Where a search begins, in bytes from the start of the source. Only a new window begins at 0 again.
    int NextStart = 0;

    /// Whether an entry of `list` is `text`, letter for letter.
    bool IsContained(const ListObject& list, const QString& text) const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Check1_Click();
    void Check2_Click();
    void Command3_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    int findText() const;
    int searchSource() const;
    void placeAside();

    QPointer<RichTextBox> m_source;
    bool m_aside = false;
};

} // namespace brindlemark
