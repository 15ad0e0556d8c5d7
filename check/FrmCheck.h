// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check/ListingCheck.h"
#include "check/ui_FrmCheck.h"
#include "forms/Form.h"
#include "source/TextEncoding.h"
#include "web/LivePage.h"

#include <QThreadPool>
#include <QTimer>

namespace brindlemark {

class ListingEditor;

/// The window Check Listing: what a site or a buyer may mind in the source of the document. It looks again
/// when the user rests. A click on a finding selects its place; nothing changes the document but the buttons
/// that say so, each in one step of undo.
class FrmCheck : public Form, public Ui::FrmCheck
{
    Q_OBJECT

public:
    FrmCheck();
    ~FrmCheck() override;

signals:
    /// The other thread has looked through a text: which one was asked for.
    void checked(quint64 number, const QByteArray& text, const brindlemark::CheckReport& report);

private:
    void Profile_Click();
    void Findings_CurrentItemChanged();
    void Findings_ItemActivated();
    void Mend_Click();
    void MendAll_Click();
    void FitPhones_Click();
    void CopyReduced_Click();

    bool isThereText();
    void checkSoon();
    void check();
    void checkNow();
    void takeIfWanted(quint64 number, const QByteArray& text, const CheckReport& report);
    void take(const QByteArray& text, CheckReport report);
    void list();
    void showMending();
    void showSummary();
    const Finding* current() const;
    const Finding* currentInSource();
    QString currentSentence() const;
    void edit(const std::vector<TextEdit>& edits);
    CheckProfile profile() const;
    void measure();
    void takeWidth(const LivePage::Widths& widths);

    QTimer m_rest;          // until the text is checked
    QThreadPool m_checker;  // a thread of its own: a long text must not hold up the hand
    quint64 m_asked = 0;    // which check's result counts
    bool m_isFresh = false; // the findings are those of the text as it is now
    QByteArray m_text;
    TextEncoding m_encoding = TextEncoding::Utf8;
    CheckReport m_report;
    CheckLimits m_limits;
    LivePage* m_phone;     // as wide as one, and never seen
    QTimer m_measureTimer; // until the page on it is measured, or asked for its pictures again
    int m_tries = 0;       // how often they are still waited for
    /// How far the page there is.
    enum class Phone {
        Waits,   ///< until the user rests
        Writes,  ///< the text as it is now
        Shows,   ///< that text, whose pictures may be still to come
        Measured ///< and its finding is listed, if there is one
    };
    Phone m_phoneState = Phone::Waits;
};

} // namespace brindlemark
