// SPDX-License-Identifier: GPL-3.0-or-later

// The status line of the main window, and what the source box shows beside its text.

#include "platform/Events.h"
#include "shell/FrmWeb.h"
#include "shell/Spelling.h"
#include "shell/StatusLine.h"
#include "shell/TagPair.h"
#include "shell/ToolForm.h"

#include <QDateTime>
#include <QLocale>

namespace brindlemark {

namespace {

constexpr int ShownSoon = 100;                 // ms: a key waits for none of it
constexpr int ShownWhenKept = 1000;            // ms: until the journal has written
constexpr qsizetype LongestPaired = 2'000'000; // bytes: a longer text can't be walked in a moment

/// What can be shown beside the text; each is off at first.
struct Shown
{
    QAction* Ui::FrmWeb::*entry;
    const char* key;
};

constexpr std::array ShownThings = {
    Shown{&Ui::FrmWeb::munlinenumbers, "linenumbers"},
    Shown{&Ui::FrmWeb::munwhitespace, "whitespace"},
    Shown{&Ui::FrmWeb::munmatchingtag, "matchingtag"},
};

QString number(qsizetype value)
{
    return QLocale(QLocale::English).toString(value);
}

QString nameOf(TextEncoding encoding)
{
    return encoding == TextEncoding::Utf8 ? QStringLiteral("UTF-8") : QStringLiteral("Windows-1252");
}

} // namespace

void FrmWeb::connectStatus()
{
    m_statusTimer.setSingleShot(true);
    onInner(&m_statusTimer, &QTimer::timeout, this, &FrmWeb::tellStatus);
    const auto follow = [this](auto* sender, auto signal) {
        on(sender, signal, this, [this] { tellStatusSoon(); });
    };
    follow(RichTextBox1, &RichTextBox::Change);
    follow(RichTextBox1, &RichTextBox::SelChange);
    follow(RichTextBox1, &RichTextBox::Click);
    on(SSTab1, &SSTab::Click, this, &FrmWeb::tellStatus);
    follow(m_spelling, &Spelling::changed);
    follow(m_document.get(), &Document::settled);
    on(&m_journalTimer, &QTimer::timeout, this, [this] { m_statusTimer.start(ShownWhenKept); });
    for (const Shown& thing : ShownThings) {
        QAction* entry = this->*thing.entry;
        keepInSettings(entry, QStringLiteral("Show"), QString::fromLatin1(thing.key), false);
        on(entry, &QAction::toggled, this, &FrmWeb::showBesideText);
    }
    showBesideText();
    tellStatus();
}

void FrmWeb::showBesideText()
{
    RichTextBox1->setLineNumbers(munlinenumbers->isChecked());
    RichTextBox1->setWhiteSpace(munwhitespace->isChecked());
    RichTextBox1->markPair({});
    tellStatusSoon();
}

/// Not at each key, but while somebody goes on writing too.
void FrmWeb::tellStatusSoon()
{
    if (!m_statusTimer.isActive() || m_statusTimer.remainingTime() > ShownSoon)
        m_statusTimer.start(ShownSoon);
}

void FrmWeb::tellStatus()
{
    const int tab = SSTab1->Tab();
    m_status->setVisible(tab != InternetTab); // which has a line of its own
    std::array<QString, StatusLine::Parts> parts;
    if (tab == EditorTab) {
        const RichTextBox::CaretPlace caret = RichTextBox1->caretPlace();
        parts[StatusLine::Place] =
            QStringLiteral("Line %1, column %2").arg(number(caret.line), number(caret.column));
        if (const qsizetype selected = RichTextBox1->selectedCharacters(); selected > 0)
            parts[StatusLine::Selected] = number(selected) + QStringLiteral(" selected");
        markTagPair();
    }
    parts[StatusLine::Encoding] = nameOf(RichTextBox1->textEncoding());
    parts[StatusLine::State] = stateOfDocument();
    parts[StatusLine::Language] = m_spelling->languages().isEmpty()
                                      ? QStringLiteral("Spelling off")
                                      : QStringLiteral("Spelling: ") + m_spelling->languages().join(u' ');
    parts[StatusLine::Zoom] = QString::number(percentZoomed()) + QStringLiteral(" %");
    m_status->tell(parts);
}

QString FrmWeb::stateOfDocument() const
{
    if (!m_document->isDirty())
        return m_document->isNamed() ? QStringLiteral("Saved") : QStringLiteral("Not changed");
    const qint64 kept = m_document->keptAt();
    if (kept == 0)
        return QStringLiteral("Not saved");
    return QStringLiteral("Not saved, kept at ") +
           QDateTime::fromMSecsSinceEpoch(kept).toString(QStringLiteral("HH:mm:ss"));
}

/// Marks the tag at the caret and the one that belongs to it.
void FrmWeb::markTagPair()
{
    if (!munmatchingtag->isChecked())
        return;
    const bool isLong = RichTextBox1->TextLength() > LongestPaired;
    RichTextBox1->markPair(isLong ? std::vector<TextRange>()
                                  : tagPairAt(RichTextBox1->textForNow(), RichTextBox1->SelStart()));
}

/// Below the view that is up, where the layout leaves some room.
void FrmWeb::placeStatus()
{
    constexpr int Room = 20; // pixels, from the views' lower edge to that of the tabs (see `resized`)
    const QRect tabs = SSTab1->geometry();
    const int left = tabs.left() + Frame1->x() + RichTextBox1->x();
    m_status->fitInto(QRect(left, tabs.bottom() - Room + 2, RichTextBox1->width(), Room - 3));
    m_status->raise();
    tellStatusSoon(); // there may be room for more
}

} // namespace brindlemark
