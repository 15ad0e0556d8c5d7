// SPDX-License-Identifier: GPL-3.0-or-later

// What is up on paper: printed, looked at before, or as a PDF.

#include "forms/LongWork.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "services/Messages.h"
#include "shell/FrmWeb.h"
#include "shell/PagePrint.h"
#include "shell/SourcePrint.h"

#include <QBuffer>
#include <QFileInfo>
#include <QLocale>
#include <QPageLayout>
#include <QPageRanges>
#include <QPdfWriter>
#include <QPrinter>

namespace brindlemark {

namespace {

/// Dots an inch in which a page is painted on a printer, and for a look at it.
constexpr int PaperResolution = 300;
constexpr int PreviewResolution = 150;

const QMarginsF PaperMargins(15, 15, 15, 15); // mm

/// The paper that is usual where the user lives.
QPageLayout usualPaper()
{
    const bool isLetter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return {QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait, PaperMargins,
            QPageLayout::Millimeter};
}

std::unique_ptr<QPrinter> newPrinter(const QString& name, int resolution)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setResolution(resolution);
    printer->setPageMargins(PaperMargins, QPageLayout::Millimeter);
    printer->setDocName(name);
    printer->setCreator(ProgramName);
    return printer;
}

} // namespace

void FrmWeb::connectPrinting()
{
    on(munprint, &QAction::triggered, this, &FrmWeb::munprint_Click);
    on(munprintpreview, &QAction::triggered, this, &FrmWeb::munprintpreview_Click);
    on(munpdf, &QAction::triggered, this, &FrmWeb::munpdf_Click);
}

/// The engine has no answer for pages that a page doesn't have, so there all of them are printed.
void FrmWeb::munprint_Click()
{
    const auto printer = newPrinter(printedName(), PaperResolution);
    const auto choice = tab() == EditorTab ? Doors::PageChoice::AnyPages : Doors::PageChoice::AllPages;
    if (!doors().printDialog(*printer, choice))
        return;
    keepEditsOfPage();
    static_cast<void>(printing([&] { printOn(*printer); })); // the user knows how it ended
}

void FrmWeb::munprintpreview_Click()
{
    keepEditsOfPage(); // once: over the dialog a page that doesn't answer could not be stopped
    const auto printer = newPrinter(printedName(), PreviewResolution);
    doors().printPreview(*printer, [&] { return printing([&] { printOn(*printer); }); });
}

void FrmWeb::munpdf_Click()
{
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Save as PDF");
    dialog.FileName = printedName() + QStringLiteral(".pdf");
    dialog.Filter = QStringLiteral("PDF files (*.pdf)|*.pdf");
    if (!dialog.ShowSave() || dialog.FileName.isEmpty())
        return;
    if (QFileInfo::exists(dialog.FileName) && !confirmed(Messages::MayReplace, dialog.FileTitle))
        return;
    keepEditsOfPage();
    static_cast<void>(printing([&] { writeFile(dialog.FileName, pdfOfView(usualPaper(), {})); })); // likewise
}

/// The document's name without its suffix.
QString FrmWeb::printedName() const
{
    return QFileInfo(m_document->name()).completeBaseName();
}

/// A renderer that ends over a print takes nothing along.
void FrmWeb::keepEditsOfPage()
{
    if (tab() == PreviewTab && shownSurface() == WebBrowser1)
        keepUnread();
}

/// Runs what prints. False: it failed, and the user has been told.
bool FrmWeb::printing(const std::function<void()>& print)
{
    try {
        print();
        return true;
    } catch (const SurfaceLost&) {
        replaceLost(shownSurface());
    } catch (const RuntimeError& error) {
        showMessage(Messages::CannotWrite, error.description());
    }
    return false;
}

/// A file gets what Save as PDF writes, which can be read and searched.
void FrmWeb::printOn(QPrinter& printer)
{
    if (!printer.outputFileName().isEmpty()) {
        writeFile(printer.outputFileName(), pdfOfView(printer.pageLayout(), printer.pageRanges()));
    } else if (tab() == PreviewTab) {
        const QByteArray pages = shownSurface()->pdf(printer.pageLayout());
        LongWork work;
        printPages(printer, pages, [&work](double done) { work.progress(done); });
    } else {
        printSourceOn(printer);
    }
}

/// `ranges`: which pages of a source; a page comes as a whole.
QByteArray FrmWeb::pdfOfView(const QPageLayout& paper, const QPageRanges& ranges)
{
    if (tab() == PreviewTab)
        return shownSurface()->pdf(paper);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageLayout(paper);
    writer.setPageRanges(ranges);
    writer.setTitle(printedName());
    writer.setCreator(ProgramName);
    printSourceOn(writer);
    return bytes;
}

void FrmWeb::printSourceOn(QPagedPaintDevice& device)
{
    const PrintedSource source = {.name = QFileInfo(m_document->name()).fileName(),
                                  .utf8 = RichTextBox1->utf8().toByteArray(),
                                  .colors = RichTextBox1->utf8Colors(),
                                  .font = RichTextBox1->textFont()};
    LongWork work;
    printSource(device, source, [&work](double done) { work.progress(done); });
}

} // namespace brindlemark
