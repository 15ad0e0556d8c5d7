// SPDX-License-Identifier: GPL-3.0-or-later

// What keeps the texts that the main window replaces or drops, and the notices that tell of it.

#include "platform/Events.h"
#include "shell/FrmEarlier.h"
#include "shell/FrmWeb.h"
#include "shell/NoticeBar.h"
#include "shell/Regions.h"

namespace brindlemark {

namespace {

NoticeBar::Action showEarlierTexts()
{
    return {QStringLiteral("&Earlier Texts"), [] { form<FrmEarlier>()->Show(); }};
}

} // namespace

/// The view that is up, over whose upper edge notices lie.
QWidget* FrmWeb::viewThatIsUp() const
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        return RichTextBox1;
    case PreviewTab:
        return shownSurface();
    default:
        return WebBrowser2;
    }
}

void FrmWeb::tell(const QString& sentence, const QList<NoticeBar::Action>& actions)
{
    m_notice->lieOver(viewThatIsUp());
    m_notice->tell(sentence, actions);
}

/// The same when the handler that runs has changed all that it will: a change of the document hides notices.
void FrmWeb::tellSoon(const QString& sentence, const QList<NoticeBar::Action>& actions)
{
    soon(this, [this, sentence, actions] { tell(sentence, actions); });
}

void FrmWeb::tellTooLong()
{
    tellSoon(QStringLiteral("The former text is longer than 20 MB, so it was not kept as an earlier text."));
}

/// What the source holds before it goes; no value when the user has written nothing yet, or too much.
std::optional<QByteArray> FrmWeb::textWorthKeeping()
{
    if (RichTextBox1->isEmpty() || isBlankDocument())
        return std::nullopt;
    if (RichTextBox1->TextLength() > EarlierTexts::LongestText) {
        tellTooLong();
        return std::nullopt;
    }
    return RichTextBox1->Text();
}

/// Keeps what the source held before, when it holds something else now; whether it does.
bool FrmWeb::keepIfReplaced(const std::optional<QByteArray>& former)
{
    if (!former || RichTextBox1->Text() == *former)
        return false;
    m_earlier->keep(m_document->name(), Dropped::Replaced, [former] { return *former; });
    return true;
}

void FrmWeb::keepSource(Dropped why)
{
    if (const std::optional<QByteArray> text = textWorthKeeping())
        m_earlier->keep(m_document->name(), why, [text] { return *text; });
}

/// Keeps what the user gives up: the source, and what was edited on the design surface since it was shown.
void FrmWeb::keepGivenUp()
{
    keepSource(Dropped::GivenUp);
    if (SSTab1->Tab() == EditorTab)
        return;
    keepUnread();
    if (m_document->isSurfaceKept()) {
        m_earlier->keep(
            m_document->name(), Dropped::GivenUp,
            [html = m_lastShown, encoding = RichTextBox1->textEncoding()] { return encode(html, encoding); });
    }
}

/// Keeps the file that a save of `text` is about to replace. A text that is longer than what is kept can't be
/// what the file holds, and is not copied to be compared.
void FrmWeb::keepOverwritten(const QString& path, const QByteArray& text)
{
    const bool comparable = text.size() <= EarlierTexts::LongestText;
    if (!m_earlier->keepFile(path, comparable ? Document::record(text) : QByteArray()))
        tellTooLong();
}

QByteArray FrmWeb::text() const
{
    return RichTextBox1->Text();
}

void FrmWeb::bringBackText(const QByteArray& text)
{
    keepGivenUp();
    const RichTextBox::EditName name(RichTextBox1, QStringLiteral("Earlier Text"));
    RichTextBox1->setText(text);
    if (SSTab1->Tab() != EditorTab) {
        showSource(WebBrowser1);
        if (Option2->Value())
            showSource(WebBrowser3);
    }
    if (highlighted)
        highlightSource();
    UpdateRegionButtons(*this);
}

EarlierTexts& FrmWeb::earlierTexts()
{
    return *m_earlier;
}

void FrmWeb::tellNotSaved()
{
    keepSource(Dropped::NotSaved);
    tellSoon(QStringLiteral("The file could not be written. The text is among the earlier texts."),
             {showEarlierTexts()});
}

void FrmWeb::tellEmptyRecord()
{
    tell(QStringLiteral(
             "The tab Internet holds no page, so the file is empty now. Save on the tab Editor or Preview."),
         {showEarlierTexts()});
}

void FrmWeb::tellPageTaken()
{
    tell(QStringLiteral("The editor took the page from Preview."),
         {{QStringLiteral("&Undo"), [this] { RichTextBox1->undo(); }}});
}

void FrmWeb::tellRefusal(const std::function<void()>& again)
{
    tell(QStringLiteral("The last save question was answered with Cancel, so the document stays."),
         {{QStringLiteral("&Ask again"), [this, again] {
               m_document->setDirty(true); // or nobody would ask
               again();
           }}});
}

void FrmWeb::tellDesignIsOff()
{
    tell(QStringLiteral("A link is made on the page itself: turn Design on first."));
}

/// No script runs on the design surface, so what it does will end. Meanwhile input reaches nothing but the
/// notice.
void FrmWeb::WebBrowser1_WaitsLong(bool waits)
{
    if (!waits) {
        m_notice->hide();
        return;
    }
    tell(QStringLiteral("The page is still at work. Stop loses what was edited on it in the last seconds."),
         {{QStringLiteral("&Stop"), [this] { WebBrowser1->stopWaiting(); }}});
    m_notice->stay();
}

} // namespace brindlemark
