// SPDX-License-Identifier: GPL-3.0-or-later

// The document of the main window: files, clipboard, and what counts as unsaved.

#include "forms/LongWork.h"
#include "platform/Doors.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/WaitCursor.h"
#include "services/Codes.h"
#include "services/Messages.h"
#include "services/PictureHtml.h"
#include "shell/FrmWeb.h"
#include "shell/Generator.h"
#include "shell/GeneratorTag.h"
#include "shell/Regions.h"
#include "shell/Spelling.h"
#include "web/DocumentSurface.h"

#include <QCursor>
#include <QFileInfo>
#include <QToolTip>
#include <QUrl>

namespace brindlemark {

namespace {

const QString FileFilter = QStringLiteral("HTML Files (*.htm)|*.htm|Text files (*.txt)|*.txt|"
                                          "Document files (*.doc)|*.doc|All files (*.*)|*.*");

/// What the source box holds after a visit to the design surface when the user has written nothing yet.
const QByteArray BlankDocument =
    QByteArray("<HEAD>\r\n") + GeneratorStart + "name=GENERATOR></HEAD>\r\n<BODY></BODY>";

/// A file of so many bytes takes about a second to open.
constexpr qint64 LongFile = 50'000'000;

} // namespace

bool FrmWeb::Checksafe()
{
    m_refusal = Refusal::None;
    m_document->setToBeSaved(false);
    QString name = m_document->bareName();
    if (name.isEmpty())
        name = Document::Untitled;
    Beep();
    switch (showMessage(Messages::SaveChanges, name)) {
    case MsgAnswer::Yes: {
        m_document->setToBeSaved(true);
        if (SSTab1->Tab() == InternetTab)
            keepUnread();
        const SaveResult result = save();
        if (result == SaveResult::Failed)
            tellNotSaved();
        if (SSTab1->Tab() != InternetTab)
            m_document->keepIfToBeSaved(); // the document goes all the same; the journal has its text
        return result != SaveResult::Unread;
    }
    case MsgAnswer::No:
        m_refusal = Refusal::Declined;
        keepGivenUp();
        return true;
    default:
        m_refusal = Refusal::Cancelled;
        return false;
    }
}

/// Whether the document may go: asks when it has unsaved changes. A Cancel to an earlier question is meant to
/// hold until another question: what the user refused to lose must not go unasked. `again` is what the user
/// wants: a notice offers it where nothing was asked.
bool FrmWeb::mayGiveUp(const std::function<void()>& again)
{
    if (Dirty())
        return Checksafe() && !SaveCancelled();
    if (SaveCancelled())
        tellRefusal(again);
    return !SaveCancelled();
}

QString FrmWeb::GetFileName(const QString& initial)
{
    CommonDialog dialog;
    dialog.FileName = initial;
    dialog.Filter = FileFilter;
    if (!dialog.ShowSave())
        return QString();
    return dialog.FileName;
}

void FrmWeb::SaveFileAs(const QString& path)
{
    try {
        const WaitCursor hourglass;
        const QByteArray text = RichTextBox1->Text();
        keepOverwritten(path, text);
        Document::writeRecord(path, text);
    } catch (const RuntimeError& error) {
        showMessage(Messages::CannotWrite, error.description());
        return;
    }
    setCaption(path);
}

QString FrmWeb::GetHexColor(int& color) const
{
    QString text = colorText(color);
    color /= 65536;
    return text;
}

QString FrmWeb::etxt(const QString& text) const
{
    return text;
}

void FrmWeb::StampGenerator()
{
    RichTextBox1->SetFocus();
    stampGenerator(*RichTextBox1);
}

bool FrmWeb::isBlankDocument() const
{
    return RichTextBox1->holdsAscii(BlankDocument);
}

/// The document's text from the view that is up; the Internet tab holds none. The caret comes along, where
/// the next list of recent files finds it. Throws SurfaceLost when the design surface gave no answer; the
/// user has been told. Valid until the next edit.
QByteArray FrmWeb::FetchSource()
{
    if (SSTab1->Tab() == InternetTab)
        return QByteArray();
    if (SSTab1->Tab() == PreviewTab) {
        const LetterPlace caret = WebBrowser1->caret();
        takeSurface();
        takeCaret(caret);
    }
    return RichTextBox1->textForNow();
}

void FrmWeb::setCaption(const QString& name)
{
    setWindowTitle(name + QStringLiteral(" - ") + ProgramName);
    if (m_spelling)
        m_spelling->turnTo(m_document->isNamed() ? m_document->name() : QString());
}

void FrmWeb::emptyDocument()
{
    noteRecent();
    m_document->blank();
    setCaption(m_document->name());
}

void FrmWeb::MnNew_Click()
{
    static_cast<void>(newDocument([this] { MnNew_Click(); })); // the user knows whether the document stayed
}

/// False: the document stays.
bool FrmWeb::newDocument(const std::function<void()>& again)
{
    if (SSTab1->Tab() == PreviewTab) {
        try {
            takeSurface();
        } catch (const RuntimeError&) {
            // Without an answer the source's own text is what there is to save, and the user has been told. A
            // torn generator tag stays as it is: the text is about to go.
        }
        if (isBlankDocument())
            m_document->setDirty(false);
    }
    try {
        if (!mayGiveUp(again))
            return false;
    } catch (const RuntimeError&) { // the same torn tag, but the user wants the text saved
        showMessage(Messages::CannotSave);
        return false;
    }
    emptyDocument();
    writeSurface(WebBrowser1, QString());
    UpdateRegionButtons(*this);
    return true;
}

/// Asks whether to save before another file takes the document's place. False: the user stays with it.
bool FrmWeb::giveUpDocument(const std::function<void()>& again)
{
    if (!mayGiveUp(again))
        return false;
    if (SaveDeclined()) { // the old document is given up even if no other comes
        emptyDocument();
        writeSurface(WebBrowser1, QString());
        writeSurface(WebBrowser3, QString());
        UpdateRegionButtons(*this);
    }
    return true;
}

void FrmWeb::MnOpen_Click()
{
    if (!giveUpDocument([this] { MnOpen_Click(); }))
        return;
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Open As Files");
    dialog.FileName = QStringLiteral("*.htm");
    dialog.Filter = FileFilter;
    if (!dialog.ShowOpen())
        return;
    if (!dialog.FileName.isEmpty())
        openFile(dialog.FileName);
}

/// Pictures go into the page where they were dropped; of other files the first takes the document's place. A
/// photo never does: a save would write a text over it.
void FrmWeb::RichTextBox1_FilesDropped(const QStringList& paths, int position)
{
    const QString& first = paths.constFirst();
    if (!isPictureFile(first) && isBinaryFile(first)) {
        tellOfDrop(QStringLiteral("Not opened: %1 is no text").arg(QFileInfo(first).fileName()));
        return;
    }
    activateWindow(); // the window that the files come from is in front
    if (isPictureFile(first)) {
        insertPictures(paths, position);
    } else {
        openHandedOver(first);
    }
}

void FrmWeb::insertPictures(const QStringList& paths, int position)
{
    QString tags;
    QStringList others;
    for (const QString& path : paths) {
        if (isPictureFile(path)) {
            tags += pictureTag({.address = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)});
        } else {
            others << QFileInfo(path).fileName();
        }
    }
    RichTextBox1->setFocus();
    RichTextBox1->setSelStart(position);
    insert(tags, QStringLiteral("Pictures"));
    if (!others.isEmpty())
        tellOfDrop(QStringLiteral("Not inserted: %1").arg(others.join(QStringLiteral(", "))));
}

/// Tells it in the status line and at the mouse, as the tab Editor doesn't show that line.
void FrmWeb::tellOfDrop(const QString& text)
{
    Label1->setText(text);
    QToolTip::showText(QCursor::pos(), QStringLiteral("<nobr>") + text.toHtmlEscaped(), RichTextBox1);
}

void FrmWeb::openHandedOver(const QString& path)
{
    if (giveUpDocument([this, path] { openHandedOver(path); }))
        openFile(path);
}

void FrmWeb::openFile(const QString& path)
{
    noteRecent(); // where the caret stands in the document that goes
    try {
        const WaitCursor hourglass;
        LongWork work;
        if (QFileInfo(path).size() >= LongFile)
            work.announce();
        m_document->open(path);
    } catch (const RuntimeError&) {
        return; // the user finds an empty editor, under the caption that was there
    }
    if (SSTab1->Tab() == PreviewTab) {
        showSource(WebBrowser1);
        if (Option2->Value())
            showSource(WebBrowser3);
    }
    setCaption(m_document->bareName());
    m_unlisted.clear();
    noteRecent();
    if (highlighted)
        highlightSource();
    UpdateRegionButtons(*this);
}

void FrmWeb::mnsave_Click()
{
    static_cast<void>(save()); // the user knows how it ended
}

void FrmWeb::mnsaveas_Click()
{
    static_cast<void>(saveAs());
}

SaveResult FrmWeb::save()
{
    if (!m_document->isNamed())
        return saveAs();
    return write(m_document->name());
}

/// Saves under a name that the user gives.
SaveResult FrmWeb::saveAs()
{
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Save As Files");
    dialog.FileName = m_document->bareName();
    dialog.Filter = FileFilter;
    if (!dialog.ShowSave() || dialog.FileName.isEmpty())
        return SaveResult::Cancelled;
    if (Document::bareName(dialog.FileName) == dialog.FileTitle &&
        !confirmed(Messages::MayReplace, dialog.FileTitle))
        return SaveResult::Cancelled;

    const SaveResult result = write(dialog.FileName);
    if (result == SaveResult::Saved) {
        m_spelling->follow(m_document->name());
        setCaption(dialog.FileTitle);
    }
    return result;
}

/// Writes what `FetchSource` gives. On the tab Internet, which holds no document, that is meant to be an
/// empty record; the user loses nothing, as the journal goes on keeping the text.
SaveResult FrmWeb::write(const QString& path)
{
    QByteArray text;
    try {
        text = FetchSource();
    } catch (const SurfaceLost&) {
        return SaveResult::Unread;
    }
    try {
        const WaitCursor hourglass;
        keepOverwritten(path, text);
        m_document->save(path, text, SSTab1->Tab() != InternetTab);
        if (SSTab1->Tab() == InternetTab)
            tellEmptyRecord();
        return SaveResult::Saved;
    } catch (const RuntimeError&) {
        showMessage(Messages::CannotSave);
        return SaveResult::Failed;
    }
}

void FrmWeb::MnCut_Click()
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        Clipboard::Clear();
        RichTextBox1->copy();
        insert(QString(), QStringLiteral("Cut"));
        break;
    case PreviewTab:
        surfaceCommand(QStringLiteral("Cut"));
        break;
    }
}

void FrmWeb::MnCopy_Click()
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        Clipboard::Clear();
        RichTextBox1->copy();
        RichTextBox1->SetFocus();
        break;
    case PreviewTab:
        surfaceCommand(QStringLiteral("Copy"));
        break;
    }
}

void FrmWeb::MnPaste_Click()
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        if (Clipboard::GetText().isEmpty()) {
            insert(QString(), QStringLiteral("Paste")); // an empty text replaces the selection too
        } else {
            RichTextBox1->paste();
        }
        break;
    case PreviewTab:
        surfaceCommand(QStringLiteral("Paste"));
        break;
    }
}

void FrmWeb::MnSelect_Click()
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        RichTextBox1->selectAll();
        RichTextBox1->SetFocus();
        break;
    case PreviewTab:
        surfaceCommand(QStringLiteral("SelectAll"));
        break;
    }
}

void FrmWeb::mnuhtml_Click()
{
    if (SSTab1->Tab() == InternetTab)
        return;
    Clipboard::Clear();
    try {
        if (SSTab1->Tab() == PreviewTab)
            takeSurface();
    } catch (const SurfaceLost&) {
        return; // the user has been told, and the clipboard stays empty
    }
    RichTextBox1->selectAll();
    RichTextBox1->copy();
    if (SSTab1->Tab() == EditorTab)
        RichTextBox1->SetFocus();
}

void FrmWeb::RichTextBox1_Change()
{
    m_document->textChanged();
    m_notice->hide();
}

void FrmWeb::RichTextBox1_SelChange()
{
    m_document->textTouched();
    const bool selected = RichTextBox1->SelLength() >= 1;
    for (const Tool tool : {Tool::Cut, Tool::Copy})
        toolbarButton(tool)->setEnabled(selected);
}

void FrmWeb::RichTextBox1_Click()
{
    m_document->textTouched();
}

void FrmWeb::RichTextBox1_KeyUp()
{
    if (RichTextBox1->isEmpty())
        m_document->setDirty(false);
}

} // namespace brindlemark
