// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "shell/EarlierTexts.h"
#include "shell/ui_FrmEarlier.h"

namespace brindlemark {

/// The window Earlier Texts: what the program has replaced or dropped, beside the document as it is now. What
/// is marked can be brought back, as one step of undo, or saved elsewhere. Nothing here changes the document
/// unasked.
class FrmEarlier : public Form, public Ui::FrmEarlier
{
    Q_OBJECT

public:
    FrmEarlier();

protected:
    /// Lists anew what is there whenever the window comes to the front.
    bool event(QEvent* event) override;

private:
    void Texts_CurrentItemChanged();
    void Views_Click();
    void BringBack_Click();
    void SaveAs_Click();

    void list();
    void compare();
    void showPages();

    QList<EarlierText> m_texts; // in the order of the list
    QByteArray m_kept;          // the marked one
    QByteArray m_now;
    bool m_pagesShown = false; // the pages are those of the texts above
};

} // namespace brindlemark
