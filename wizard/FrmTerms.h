// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "wizard/Unfinished.h"
#include "wizard/ui_FrmTerms.h"

#include <QTimer>

namespace brindlemark {

struct TermsFile;

/// The small editor of the seller's terms.
class FrmTerms : public Form, public Ui::FrmTerms
{
    Q_OBJECT

public:
    FrmTerms();

    /// Shows the window with the text of a file, to which OK will save. `terms` must outlive the form.
    void open(const TermsFile& terms);
    /// Replaces what is being edited; tells the user when that fails.
    void edit(const QString& html);
    /// Shows a text that an ended program has kept, and keeps it from now on.
    void takeUnfinished(const QString& html);

private:
    void KeepTimer_Timer();
    void Combo1_Click();
    void Combo2_Click();
    void Command5_Click();
    void Command11_Click();
    void Command14_Click();
    void Command16_Click();
    void WebBrowser1_LinkRequested();
    void WebBrowser1_MenuWanted(const SurfaceMenu& wanted);
    void WebBrowser1_RendererDied();
    void pickColorFor(const QString& command);
    void save();
    void bringBack();

    const TermsFile* m_terms = nullptr;
    /// Runs out when the edited text is to be kept in `m_lastShown`.
    QTimer KeepTimer{this};
    /// The text last written to the surface or read from it, to be shown again when the page is lost.
    QString m_lastShown;
    Unfinished m_unfinished{Unfinished::Kind::Terms, this, [] {}}; // `KeepTimer` brings the edits
};

/// Opens the editor on a file of `TermsFiles`: 0 payment, 1 location, 2 who pays. An open editor turns to
/// that file. Throws RuntimeError(SubscriptOutOfRange) for any other number.
void openTerms(int index);

} // namespace brindlemark
