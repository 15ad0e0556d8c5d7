// SPDX-License-Identifier: GPL-3.0-or-later

// The views of the main window: tab changes, the Design option, the commands of the design surface.

#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"
#include "shell/CaretPlace.h"
#include "shell/FrmWeb.h"
#include "shell/Regions.h"
#include "shell/Spelling.h"
#include "shell/SurfaceCommands.h"

#include <QScopeGuard>
#include <utility>

namespace brindlemark {

namespace {

/// In bytes: in a longer text a caret can't be found in a moment.
constexpr qsizetype LongestWithCaret = 5'000'000;

/// What `work` returns, with the hourglass up meanwhile.
template <typename Work>
auto underHourglass(Work work)
{
    const WaitCursor hourglass;
    return work();
}

} // namespace

void FrmWeb::connectViews()
{
    on(SSTab1, &SSTab::Click, this, &FrmWeb::SSTab1_Click);
    on(Option1, &OptionButton::Click, this, &FrmWeb::Option1_Click);
    on(Option2, &OptionButton::Click, this, &FrmWeb::Option2_Click);
    on(Combo1, &ComboBox::Click, this, &FrmWeb::Combo1_Click);
    on(Combo1, &ComboBox::EnterPressed, this, &FrmWeb::Combo1_EnterPressed);
    on(Combo2, &ComboBox::Click, this, &FrmWeb::Combo2_Click);
    on(Command5, &QToolButton::clicked, this, &FrmWeb::Command5_Click);
    on(Command11, &QToolButton::clicked, this, &FrmWeb::Command11_Click);
    on(Command16, &QToolButton::clicked, this, &FrmWeb::Command16_Click);
    on(WebBrowser1, &DocumentSurface::linkRequested, this, &FrmWeb::WebBrowser1_LinkRequested);
    on(WebBrowser1, &DocumentSurface::waitsLong, this, &FrmWeb::WebBrowser1_WaitsLong);
    on(WebBrowser1, &DocumentSurface::editsRead, this, &FrmWeb::keepEdits);
    on(WebBrowser1, &DocumentSurface::rendererDied, this, &FrmWeb::WebBrowser1_RendererDied);
    on(WebBrowser3, &DocumentSurface::rendererDied, this, &FrmWeb::WebBrowser3_RendererDied);
    for (const auto& entry : SurfaceButtons<Ui::FrmWeb>) {
        if (entry.identifier) {
            on(this->*entry.button, &QToolButton::clicked, this,
               [this, entry] { surfaceCommand(QString::fromLatin1(entry.identifier)); });
        }
    }
}

void FrmWeb::SSTab1_Click()
{
    m_notice->hide();
    const int from = std::exchange(m_lastTab, SSTab1->Tab());
    switch (SSTab1->Tab()) {
    case EditorTab:
        if (showEditor() && from == InternetTab)
            tellPageTaken(); // who came from there may have forgotten what Preview holds
        break;
    case PreviewTab:
        showPreview();
        if (!SSTab1->tabBar()->hasFocus()) // whoever walks over the tabs with the arrow keys stays there
            shownSurface()->setFocus();
        break;
    case InternetTab:
        switchTools();
        break;
    }
}

/// Whether the source has got another text, from the design surface.
bool FrmWeb::showEditor()
{
    bool taken = false;
    LetterPlace caret;
    Picture1->show();
    if (Option1->Value()) {
        try {
            caret = WebBrowser1->caret();
            taken = takeSurface();
        } catch (const SurfaceLost&) {
            // The user has been told, and finds the editor's text as it was.
        }
    } else {
        StampGenerator(); // what was typed on the surface before "Off" was clicked is not taken over
    }
    Picture1->hide();
    switchTools();
    if (highlighted)
        highlightSource();
    if (isBlankDocument())
        m_document->setDirty(false);
    UpdateRegionButtons(*this); // looks from where the caret is in a text that has just come
    takeCaret(caret);
    return taken;
}

void FrmWeb::showPreview()
{
    m_spelling->startOnSurfaces();
    switchTools();
    if (RichTextBox1->isEmpty()) { // the surface keeps the last document
        m_document->setDirty(false);
        return;
    }
    showSource(shownSurface());
    giveCaret(shownSurface());
}

/// Brings the caret of the source into view on a surface; one that was never moved has nothing to show there.
void FrmWeb::giveCaret(DocumentSurface* surface)
{
    if (RichTextBox1->SelStart() == 0 || RichTextBox1->TextLength() > LongestWithCaret)
        return;
    const LetterPlace place =
        letterPlaceOf(RichTextBox1->textForNow(), RichTextBox1->textEncoding(), RichTextBox1->SelStart());
    if (place != LetterPlace())
        surface->setCaretSoon(place);
}

/// The way back.
void FrmWeb::takeCaret(const LetterPlace& caret)
{
    if (caret == LetterPlace() || RichTextBox1->TextLength() > LongestWithCaret)
        return;
    const TextOfHtml source(RichTextBox1->textForNow(), RichTextBox1->textEncoding());
    if (const std::optional<qsizetype> place = byteOf(source, caret))
        select({*place, 0});
}

DocumentSurface* FrmWeb::shownSurface() const
{
    return Option1->Value() ? WebBrowser1 : WebBrowser3;
}

void FrmWeb::Option1_Click()
{
    WebBrowser1->show();
    WebBrowser3->hide();
    setDesignTools(true);
    keepUnsavedText(); // what was typed before "Off" goes now: the preview's copy replaces it
    // A preview that could not be shown has nothing to give; the user knows.
    writeSurface(WebBrowser1, WebBrowser3->hasDocument() ? readSurfaceOrLast(WebBrowser3) : m_lastShown);
}

void FrmWeb::Option2_Click()
{
    WebBrowser1->hide();
    WebBrowser3->show();
    setDesignTools(false);
    writeSurface(WebBrowser3, readSurfaceOrLast(WebBrowser1));
}

void FrmWeb::setDesignTools(bool on)
{
    Combo1->setEnabled(on);
    Combo2->setEnabled(on);
    for (const auto& entry : SurfaceButtons<Ui::FrmWeb>) {
        if (this->*entry.button != Command16)
            (this->*entry.button)->setEnabled(on);
    }
    switchWordTools();
}

void FrmWeb::surfaceCommand(const QString& identifier, const QString& value)
{
    runCommand(*WebBrowser1, identifier, value);
}

void FrmWeb::Combo1_Click()
{
    surfaceCommand(QStringLiteral("FontName"), Combo1->Text());
}

/// Meant to take the text for an address and open it on the surface; a user who wants the font picks it from
/// the list.
void FrmWeb::Combo1_EnterPressed()
{
    WebBrowser1->Navigate(Combo1->Text());
}

void FrmWeb::Combo2_Click()
{
    if (const char* size = htmlFontSize(Combo2->Text()))
        surfaceCommand(QStringLiteral("FontSize"), QString::fromLatin1(size));
}

void FrmWeb::pickColorFor(const QString& command)
{
    if (const std::optional<QString> color = askForColor())
        surfaceCommand(command, *color);
}

void FrmWeb::Command5_Click()
{
    pickColorFor(QStringLiteral("ForeColor"));
}

void FrmWeb::Command11_Click()
{
    pickColorFor(QStringLiteral("BackColor"));
}

void FrmWeb::Command16_Click()
{
    if (Option1->Value()) {
        WebBrowser1->sendKeys(QStringLiteral("^k"));
    } else {
        tellDesignIsOff();
    }
}

void FrmWeb::WebBrowser1_LinkRequested()
{
    askForLink(*WebBrowser1);
}

void FrmWeb::showSource(DocumentSurface* surface)
{
    writeSurface(surface, RichTextBox1->decode(RichTextBox1->Text()));
}

/// Shows a document on a surface, or tells the user why that fails.
void FrmWeb::writeSurface(DocumentSurface* surface, const QString& html)
{
    if (surface == WebBrowser1) {
        m_document->surfaceWritten();
        m_surfaceSteps = {};
    }
    m_lastShown = html;
    if (!underHourglass([&] { return surface->write(html); })) {
        showMessage(Messages::PageEnded);
    }
}

/// Replaces the source by the design surface's content, stamped, as one step that a single Undo takes back.
/// The former text is kept. Returns whether the source has got another. Throws SurfaceLost when the surface
/// gave no answer; the user has been told, and the source keeps its text.
bool FrmWeb::takeSurface()
{
    const QString html = readSurface(WebBrowser1);
    const std::optional<QByteArray> former = textWorthKeeping();
    bool replaced = false;
    {
        const auto keepFormer =
            qScopeGuard([&] { replaced = keepIfReplaced(former); }); // also behind a torn tag
        const RichTextBox::EditName name(RichTextBox1, QStringLiteral("Edits in Preview"));
        const RichTextBox::UndoGroup oneStep(RichTextBox1);
        RichTextBox1->setText(RichTextBox1->encode(html), RichTextBox1->textEncoding());
        StampGenerator();
    }
    return replaced;
}

/// A surface's content. Throws SurfaceLost when it gave no answer, which is never taken for an empty
/// document; the user has been told.
QString FrmWeb::readSurface(DocumentSurface* surface)
{
    try {
        return underHourglass([&] { return surface->innerHtml(); });
    } catch (const SurfaceLost&) {
        replaceLost(surface);
        throw;
    }
}

/// A surface's content, or what it was given last; the user has been told of that.
QString FrmWeb::readSurfaceOrLast(DocumentSurface* surface)
{
    try {
        return readSurface(surface);
    } catch (const SurfaceLost&) {
        return m_lastShown;
    }
}

/// Tells the user that a surface's renderer has ended, and makes it anew from what it was given last. A
/// hidden preview waits until it is needed, as its scripts may have been what ended it.
void FrmWeb::replaceLost(DocumentSurface* surface)
{
    showMessage(Messages::SurfaceEnded);
    if (surface == WebBrowser1 || surface->isVisible())
        writeSurface(surface, m_lastShown);
}

void FrmWeb::WebBrowser1_RendererDied()
{
    replaceLost(WebBrowser1);
}

void FrmWeb::WebBrowser3_RendererDied()
{
    replaceLost(WebBrowser3);
}

} // namespace brindlemark
