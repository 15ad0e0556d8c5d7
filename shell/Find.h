#pragma once

#include "forms/Form.h"
#include "shell/ui_Find.h"

class ListObject;

/// Finds and replaces text in the source box, from a window that stays on top.
class Find : public Form, public Ui::Find
{
    Q_OBJECT

public:
    Find();

    /// `MatchCase` or 0 (see FindOption).
    int CaseFlag = 0;
    /// `WholeWord` or 0.
    int WordFlag = 0;
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

    bool m_aside = false;
};
