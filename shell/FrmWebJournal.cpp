// What keeps unsaved text on the disk while it is being written, and offers it after an end from outside.

#include "platform/Doors.h"
#include "platform/RuntimeError.h"
#include "shell/FrmWeb.h"
#include "shell/Generator.h"
#include "shell/Regions.h"

#include <QFileInfo>
#include <chrono>
#include <new>
#include <utility>

using namespace std::chrono_literals;

namespace {

/// How old a kept text gets while the user goes on writing, and the pause while one is still being written.
constexpr auto KeepEvery = 10s;
constexpr auto TryAgain = 1s;

/// The generator that a page names which has come from the design surface and not yet been stamped.
constexpr char SurfaceGenerator[] = "\"Brindlemark surface\" name=GENERATOR>";

QString question(const Journal::Leftover& left)
{
    QString what = QStringLiteral("Brindlemark was not closed properly the last time. Only a part of its "
                                  "unsaved text could be kept.");
    if (left.whole) {
        what = QStringLiteral("Brindlemark ended before %1 was saved. Its text was kept.")
                   .arg(QFileInfo(left.document).fileName());
    }
    return what + QStringLiteral("\n\nDo you want it back? No deletes it.");
}

} // namespace

void FrmWeb::JournalTimer_Timer()
{
    if (m_journal.isBusy()) {
        JournalTimer.start(TryAgain);
        return;
    }
    JournalTimer.start(KeepEvery);
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
    if (editor && !Dirty && m_journal.holds())
        m_journal.clear(); // all of it was deleted again
    if (Dirty && m_keptChange != m_change && (editor || !m_surfaceKept))
        keepSource();
    if (editor)
        return;
    WebBrowser1->readEdits([this](const QString& html) {
        m_keptChange = m_change;
        m_surfaceKept = true;
        m_lastShown = html;
        m_journal.keep(Text2,
                       [html, encoding = RichTextBox1->textEncoding()] { return ::encode(html, encoding); });
    });
}

void FrmWeb::keepSource()
{
    m_keptChange = m_change;
    m_journal.keep(Text2, RichTextBox1->textLater());
}

/// Keeps the text while the tab Internet is up, also what the surface has not been asked for yet.
void FrmWeb::keepUnread()
{
    keepUnsavedText();
    try {
        WebBrowser1->innerHtml(); // answers behind the question that was just asked
    } catch (const SurfaceLost&) {
        // Then there is no more than what was kept before.
    }
}

/// The document is as its file holds it, or is no more: nothing of it is to be kept, but for a text that
/// should have been saved and could not be. That waits for the next start.
void FrmWeb::forgetUnsavedText()
{
    m_keptChange = m_change;
    m_surfaceKept = false;
    WebBrowser1->forgetEdits();
    if (std::exchange(m_toBeSaved, false)) {
        m_journal.leave();
    } else {
        m_journal.clear();
    }
}

void FrmWeb::offerUnsavedText()
{
    while (const std::optional<Journal::Leftover> left = m_journal.takeLeftover()) {
        if (MsgBox(question(*left), ProgramTitle, MsgIcon::Question, MsgButtons::YesNo) == MsgAnswer::Yes) {
            bringBack(*left);
            return; // others wait for their turn
        }
        m_journal.clear();
    }
}

/// Makes what was left the document, unsaved. What is not whole has no name: a save must not put it in the
/// place of a whole file.
void FrmWeb::bringBack(const Journal::Leftover& left)
{
    RichTextBox1->load(left.text);
    if (left.text.contains(SurfaceGenerator)) {
        try {
            stampGenerator(*RichTextBox1);
        } catch (const RuntimeError&) {
            // A torn generator tag stays as it is.
        }
    }
    if (left.whole) {
        Text2 = left.document;
        setCaption(QFileInfo(Text2).fileName());
    }
    UpdateRegionButtons(*this);
    keepSource();
}
