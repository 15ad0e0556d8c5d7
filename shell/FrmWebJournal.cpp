// SPDX-License-Identifier: GPL-3.0-or-later

// What keeps unsaved text on the disk while it is being written, and offers it after an end from outside.

#include "platform/Doors.h"
#include "platform/RuntimeError.h"
#include "services/Messages.h"
#include "shell/FrmWeb.h"
#include "shell/Generator.h"
#include "shell/Regions.h"

#include <QDir>
#include <QFileInfo>
#include <chrono>
#include <new>
#include <utility>

namespace brindlemark {

using namespace std::chrono_literals;

namespace {

/// How old a kept text gets while the user goes on writing, and the pause while one is still being written.
constexpr auto KeepEvery = 10s;
constexpr auto TryAgain = 1s;

/// The end of the generator tag in a page that has come from the design surface and is not stamped yet.
constexpr char SurfaceGenerator[] = "\"Brindlemark surface\" name=GENERATOR>";

/// What is told of a kept text before it is offered.
QString told(const Journal::Leftover& left)
{
    if (!left.whole)
        return Messages::KeptInPart.toString();
    return Messages::KeptWhole.toString().arg(QDir::toNativeSeparators(left.document));
}

} // namespace

/// Keeps unsaved text now, and again each time `m_journalTimer` runs out.
void FrmWeb::runJournal()
{
    if (m_document->isKeeping()) {
        m_journalTimer.start(TryAgain);
        return;
    }
    m_journalTimer.start(KeepEvery);
    try {
        keepUnsavedText();
    } catch (const std::bad_alloc&) {
        // There is not even room for a copy: no reason to end the program.
    }
}

/// Keeps what a save would write, if it has changed: the surface's text when it was edited there, and else
/// the source. What can't be read right now is for the next time.
void FrmWeb::keepUnsavedText()
{
    const bool editor = SSTab1->Tab() == EditorTab;
    m_document->keepChanges(editor);
    if (editor)
        return;
    WebBrowser1->readEdits([this](const QString& html) { keepEdits(html); });
}

void FrmWeb::keepEdits(const QString& html)
{
    m_lastShown = html;
    m_document->keepEdit(html);
}

/// Keeps the text while the tab Internet is up, also what the surface has not been asked for yet.
void FrmWeb::keepUnread()
{
    keepUnsavedText();
    try {
        WebBrowser1->innerHtml(); // the page answers in turn: its edits have been heard of when this returns
    } catch (const SurfaceLost&) {
        // Then there is no more than what was kept before.
    }
}

void FrmWeb::offerUnsavedText()
{
    while (const std::optional<Journal::Leftover> left = m_document->takeLeftover()) {
        switch (showMessage(Messages::TakeBack, told(*left))) {
        case MsgAnswer::Yes:
            bringBack(*left);
            return; // other texts are offered at the next start
        case MsgAnswer::No:
            declineUnsavedText(*left);
            break;
        default:
            m_document->postponeLeftover();
        }
    }
}

void FrmWeb::declineUnsavedText(const Journal::Leftover& left)
{
    if (left.text.size() > EarlierTexts::LongestText) {
        tellTooLong();
    } else {
        m_earlier->keep(left.whole ? left.document : Document::Untitled, Dropped::Declined,
                        [text = left.text] { return text; });
    }
    m_document->dropLeftover();
    m_document->finishKeeping();
    if (QFile::exists(left.path))
        tellSoon(QStringLiteral("The text could not be removed from %1, so the next start offers it again.")
                     .arg(QDir::toNativeSeparators(left.path)));
}

void FrmWeb::bringBack(const Journal::Leftover& left)
{
    m_document->bringBack(left);
    if (left.text.contains(SurfaceGenerator)) {
        try {
            stampGenerator(*RichTextBox1);
        } catch (const RuntimeError&) {
            // A torn generator tag stays as it is; the user has the text back.
        }
    }
    if (left.whole)
        setCaption(QFileInfo(left.document).fileName());
    UpdateRegionButtons(*this);
    m_document->keep();
}

} // namespace brindlemark
