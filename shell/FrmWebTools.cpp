// SPDX-License-Identifier: GPL-3.0-or-later

// The main window as tools know it.

#include "platform/Events.h"
#include "shell/FrmWeb.h"
#include "shell/Regions.h"
#include "shell/WorkingSelection.h"

namespace brindlemark {

namespace {

/// What undo calls a page that comes from the wizard.
QString nameOfListing()
{
    return QStringLiteral("Listing");
}

} // namespace

ListingEditor* loadedEditor()
{
    return loaded<FrmWeb>();
}

FrmWeb::Tab FrmWeb::tab() const
{
    return static_cast<Tab>(SSTab1->Tab());
}

std::optional<QString> FrmWeb::selected() const
{
    if (RichTextBox1->SelLength() == 0)
        return std::nullopt;
    return RichTextBox1->decode(RichTextBox1->SelText());
}

void FrmWeb::insert(const QString& fragment, const QString& what)
{
    const RichTextBox::EditName name(RichTextBox1, what);
    RichTextBox1->setSelText(RichTextBox1->encode(fragment));
}

void FrmWeb::insertAtStart(const QString& fragment, const QString& what)
{
    RichTextBox1->setSelStart(0);
    insert(fragment, what);
}

void FrmWeb::replaceDescriptions(const QString& fragment)
{
    const MarkerPair& description = markers(Region::Description);
    const QByteArray opening = description.opening.toByteArray();
    const QByteArray region = opening + RichTextBox1->encode(fragment);
    const RichTextBox::EditName name(RichTextBox1, QStringLiteral("Description"));
    RichTextBox1->SetFocus();
    const int caret = RichTextBox1->SelStart();
    RichTextBox1->setSelStart(0);
    RichTextBox1->setSelLength(WorkingSelection);
    for (int start = RichTextBox1->Find(opening, 0); start >= 0;
         start = RichTextBox1->Find(opening, start + 1)) {
        const int end = RichTextBox1->Find(description.closing.toByteArray(), start);
        RichTextBox1->setSelStart(start);
        RichTextBox1->setSelLength(end - start);
        RichTextBox1->setSelText(region);
    }
    RichTextBox1->setSelStart(caret);
    for (DocumentSurface* surface : {WebBrowser1, WebBrowser3}) {
        // One that is lost says so when it is read; the next change to Preview makes it anew from the source.
        static_cast<void>(surface->write(RichTextBox1->decode(RichTextBox1->Text())));
    }
}

void FrmWeb::selectPart(Region part)
{
    selectRegion(*RichTextBox1, part);
}

void FrmWeb::editListing(const QByteArray& page)
{
    const RichTextBox::EditName name(RichTextBox1, nameOfListing());
    if (tab() == PreviewTab) {
        SSTab1->setTab(EditorTab);
        RichTextBox1->setText(QByteArray());
        RichTextBox1->setText(page);
    }
    // Behind the tab Preview the text is meant to be set once more: each time is a step of undo.
    if (tab() == EditorTab)
        RichTextBox1->setText(page);
    if (highlighted)
        colorListing();
    updateStyleButtons(*this);
}

void FrmWeb::follow(const Follower& follower)
{
    const auto tell = [&](auto* sender, auto signal, const std::function<void()>& act) {
        if (act)
            on(sender, signal, follower.window, act);
    };
    tell(RichTextBox1, &RichTextBox::Change, follower.textChanged);
    tell(RichTextBox1, &RichTextBox::SelChange, follower.caretMoved);
    tell(RichTextBox1, &RichTextBox::Scrolled, follower.scrolled);
    tell(SSTab1, &SSTab::Click, follower.tabChanged);
}

void FrmWeb::turnToSource()
{
    if (tab() != EditorTab)
        SSTab1->setTab(EditorTab);
}

TextRange FrmWeb::selection() const
{
    return {RichTextBox1->SelStart(), RichTextBox1->SelLength()};
}

void FrmWeb::select(const TextRange& range)
{
    RichTextBox1->setSelStart(int(range.start));
    RichTextBox1->setSelLength(int(range.length));
}

void FrmWeb::giveKeyboardToSource()
{
    activateWindow();
    RichTextBox1->SetFocus();
}

void FrmWeb::edit(const std::vector<TextEdit>& edits, const QString& what)
{
    if (edits.empty())
        return;
    const RichTextBox::EditName name(RichTextBox1, what);
    // All at once, as thousands of changes would take seconds.
    const TextRange span = {edits.front().range.start, edits.back().range.end() - edits.front().range.start};
    std::vector<TextEdit> inSpan = edits;
    for (TextEdit& edit : inSpan)
        edit.range.start -= span.start;
    select(span);
    RichTextBox1->setSelText(edited(RichTextBox1->SelText(), inSpan));
    if (highlighted)
        highlightSource();
}

qsizetype FrmWeb::topOfView() const
{
    return RichTextBox1->topOfView();
}

void FrmWeb::bringToTop(qsizetype place)
{
    RichTextBox1->bringToTop(place);
}

/// What was edited there is kept as well, as the page tells it only once.
void FrmWeb::readPage(const std::function<void(const QString& html)>& heard)
{
    if (tab() != PreviewTab)
        return;
    heard(m_lastShown);
    if (shownSurface() == WebBrowser1) {
        WebBrowser1->readEdits([this, heard](const QString& html) {
            keepEdits(html);
            heard(html);
        });
    }
}

std::optional<QString> FrmWeb::pageThatIsUp()
{
    if (tab() != PreviewTab)
        return RichTextBox1->decode(RichTextBox1->Text());
    try {
        return readSurface(shownSurface());
    } catch (const SurfaceLost&) {
        return std::nullopt;
    }
}

/// The change of the tab shows the page; colours and region buttons follow when the user turns to the editor.
void FrmWeb::previewListing(const QByteArray& page)
{
    if (tab() == PreviewTab)
        SSTab1->setTab(EditorTab);
    if (tab() == EditorTab) {
        const RichTextBox::EditName name(RichTextBox1, nameOfListing());
        RichTextBox1->setText(page);
        SSTab1->setTab(PreviewTab);
    }
}

} // namespace brindlemark
