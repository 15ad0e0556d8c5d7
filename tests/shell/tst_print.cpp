// SPDX-License-Identifier: GPL-3.0-or-later

// What is up on paper: the source with its colours and the page as it is laid out, to a file, to a printer
// and to be looked at before.

#include "MainWindow.h"
#include "Paper.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "platform/RuntimeError.h"
#include "shell/PagePrint.h"
#include "shell/SourcePrint.h"

#include <QFile>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrinter>
#include <QTest>
#include <csignal>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    Desk() { web->document().setDirty(false); }
    ~Desk() { web->document().setDirty(false); }
    Q_DISABLE_COPY_MOVE(Desk)

    void write(const QByteArray& source) const
    {
        web->RichTextBox1->setText(source);
        web->document().setDirty(false);
    }
    void show(const QByteArray& page, bool design = true) const
    {
        write(page);
        showTab(FrmWeb::PreviewTab);
        if (!design)
            tick(web->Option2);
    }
    DocumentSurface* surface() const { return web->Option1->Value() ? web->WebBrowser1 : web->WebBrowser3; }
    /// Saves what is up as a PDF, and tells where.
    QString pdf()
    {
        QString path = folder.path("paper.pdf");
        QFile::remove(path);
        doors.answerSave(path);
        choose(web->muntools, web->munpdf);
        return path;
    }
};

bool isDark(const QColor& color)
{
    return color.lightness() < 100;
}

bool isRed(const QColor& color)
{
    return color.red() > color.green() + 90 && color.red() > color.blue() + 90;
}

bool isBlue(const QColor& color)
{
    return color.blue() > color.green() + 60 && color.blue() > color.red() + 60;
}

bool isGreen(const QColor& color)
{
    return color.green() > color.red() + 90 && color.green() > color.blue() + 90;
}

QByteArray numberedLines(int count)
{
    QByteArray lines;
    for (int i = 1; i <= count; ++i)
        lines += "<P>row " + QByteArray::number(i) + "\r\n";
    return lines;
}

const QString Ended = QStringLiteral(
    "MsgBox|Brindlemark|The process that showed the page has ended. What was edited on the page in the last "
    "seconds may be lost; your text in the editor is as it was, and nothing was saved.|Exclamation|Ok");

} // namespace

class TestPrint : public QObject
{
    Q_OBJECT

private slots:
    void linesAndNumbers();
    void lineEnds();
    void pagesOfASource();
    void longLine();
    void veryLongLine();
    void colours();
    void coloursOfAWesternText();
    void whiteLetters();
    void westernText();
    void utf8Text();
    void emptySource();
    void nameAtTheHead();
    void hugeLettersOfTheEditor();
    void onAPrinter();
    void pagesThatAreWanted();
    void previewOfTheSource();
    void documentStaysAsItIs();
    void cancelled();
    void caretStaysOffThePaper();
    void fileThatIsThere();
    void fileThatCannotBeWritten();
    void printerThatCannotBegin();
    void byKey();
    void onTheInternet();
    void page();
    void pageWithDesignOff();
    void longPage();
    void pageInAFileOfThePrinter();
    void whatWasTypedOnThePage();
    void nothingOfTheEditing();
    void rightAfterTheWriting();
    void sheetsOnAPrinter();
    void printerThatTakesNoSheet();
    void previewOfAPage();
    void rendererThatDied();
    void rendererThatStopped();
    void previewOfAPageThatDied();
};

void TestPrint::linesAndNumbers()
{
    Desk desk;
    desk.write("<P>one</P>\r\n\r\n  <P>three</P>\r\n");
    QCOMPARE(linesOnPaper(desk.pdf()),
             QStringList({"Untitled Page 1", "1 <P>one</P>", "2", "3 <P>three</P>"}));
    QCOMPARE(desk.doors.takeAsked(), QStringList({"Save|Save as PDF|Untitled.pdf|PDF files (*.pdf)|*.pdf"}));
}

void TestPrint::lineEnds()
{
    Desk desk;
    desk.write("one\ntwo\rthree\r\n\rfive");
    QCOMPARE(linesOnPaper(desk.pdf()),
             QStringList({"Untitled Page 1", "1 one", "2 two", "3 three", "4", "5 five"}));
}

void TestPrint::pagesOfASource()
{
    Desk desk;
    desk.write(numberedLines(300));
    const QList<QStringList> pages = pagesOnPaper(desk.pdf());
    QVERIFY2(pages.size() > 2, qPrintable(QString::number(pages.size())));
    int line = 0;
    for (qsizetype i = 0; i < pages.size(); ++i) {
        QCOMPARE(pages.at(i).constFirst(), QStringLiteral("Untitled Page %1").arg(i + 1));
        for (const QString& row : pages.at(i).sliced(1)) {
            ++line;
            QCOMPARE(row, QStringLiteral("%1 <P>row %1").arg(line));
        }
    }
    QCOMPARE(line, 300);
}

void TestPrint::longLine()
{
    Desk desk;
    QStringList words;
    for (int i = 100; i < 200; ++i)
        words << QStringLiteral("word%1").arg(i);
    desk.write(words.join(u' ').toUtf8() + "\r\nend");
    const QStringList rows = linesOnPaper(desk.pdf());
    QVERIFY2(rows.size() > 6, qPrintable(rows.join(u'\n')));
    QVERIFY(rows.at(1).startsWith("1 word100 "));
    QVERIFY(rows.at(2).startsWith("word"));
    QCOMPARE(rows.sliced(1, rows.size() - 2).join(u' '), "1 " + words.join(u' '));
    QCOMPARE(rows.constLast(), "2 end");
}

/// All rows but the last are full.
void TestPrint::veryLongLine()
{
    Desk desk;
    desk.write(QByteArray("lamp ").repeated(4000));
    QList<qsizetype> counts;
    qsizetype numbered = 0;
    for (const QStringList& page : pagesOnPaper(desk.pdf())) {
        for (const QString& row : page.sliced(1)) {
            counts << row.count("lamp");
            numbered += row.trimmed().startsWith("1") ? 1 : 0;
        }
    }
    QVERIFY(counts.size() > 100);
    QCOMPARE(numbered, 1);
    qsizetype all = 0;
    for (qsizetype i = 0; i < counts.size(); ++i) {
        all += counts.at(i);
        if (i < counts.size() - 1)
            QCOMPARE(counts.at(i), counts.constFirst());
    }
    QCOMPARE(all, 4000);
}

void TestPrint::colours()
{
    Desk desk;
    desk.write("WWWW MMMM WWWW\r\nMMMM");
    desk.web->RichTextBox1->setColor(5, 4, 0x0000FF);  // red
    desk.web->RichTextBox1->setColor(16, 4, 0xFF0000); // blue, on the next line
    const QImage paper = pictureOfPaper(desk.pdf());
    const QRect red = dotsOf(paper, isRed);
    const QRect blue = dotsOf(paper, isBlue);
    const QRect black = dotsOf(paper.copy(0, red.top(), paper.width(), red.height()), isDark);
    QVERIFY(!red.isEmpty() && !blue.isEmpty());
    QVERIFY(blue.top() > red.bottom());
    QVERIFY(blue.left() < red.left()); // it begins its line
    QVERIFY(black.left() < red.left() && black.right() > red.right());
}

void TestPrint::coloursOfAWesternText()
{
    Desk desk;
    desk.write("\xE9\xE9\xE9\xE9\xE9\xE9 WWWW");
    desk.web->RichTextBox1->setColor(7, 4, 0x0000FF);
    const QImage paper = pictureOfPaper(desk.pdf());
    const QRect red = dotsOf(paper, isRed);
    QVERIFY(!red.isEmpty());
    const QRect black = dotsOf(paper.copy(0, red.top(), paper.width(), red.height()), isDark);
    QVERIFY2(black.right() < red.left() + 5, "black letters are among the red ones");
}

/// As on a dark ground of the editor, which is no part of the print.
void TestPrint::whiteLetters()
{
    Desk desk;
    desk.write("WWWW\r\nMMMM\r\nNNNN");
    desk.web->RichTextBox1->setBackColor(0);
    desk.web->RichTextBox1->setColor(0, 4, 0xFFFFFF);
    desk.web->RichTextBox1->setColor(6, 4, 0x00FFFF);  // yellow
    desk.web->RichTextBox1->setColor(12, 4, 0x800000); // dark blue can be read
    const QString path = desk.pdf();
    const QImage paper = pictureOfPaper(path);
    QCOMPARE(paper.pixelColor(paper.width() / 2, paper.height() / 2), QColor(Qt::white));
    const QRect blue = dotsOf(paper, isBlue);
    QVERIFY(!blue.isEmpty());
    const int row = blue.height();
    const auto inkAbove = [&](int rows) { // in the text's column
        const QRect band(blue.left(), blue.top() - rows * 2 * row, blue.width(), row * 3 / 2);
        return dotsOf(paper.copy(band), isDark);
    };
    QVERIFY(!inkAbove(1).isEmpty());
    QVERIFY(!inkAbove(2).isEmpty());
    QVERIFY(dotsOf(paper, [](const QColor& color) {
                return color.blue() < 100 && color.red() > 200 && color.green() > 200;
            }).isEmpty());
}

void TestPrint::westernText()
{
    Desk desk;
    desk.folder.write("lamp.htm", "<P>caf\xE9 \x80 5</P>");
    desk.open(desk.folder.path("lamp.htm"));
    QCOMPARE(linesOnPaper(desk.pdf()), QStringList({"lamp.htm Page 1", "1 <P>caf\u00E9 \u20AC 5</P>"}));
}

void TestPrint::utf8Text()
{
    Desk desk;
    desk.write("\xEF\xBB\xBF<P>caf\u00E9 \u20AC 5</P>");
    desk.web->RichTextBox1->setColor(3, 8, 0x0000FF);
    QCOMPARE(linesOnPaper(desk.pdf()), QStringList({"Untitled Page 1", "1 <P>caf\u00E9 \u20AC 5</P>"}));
}

void TestPrint::emptySource()
{
    Desk desk;
    QCOMPARE(linesOnPaper(desk.pdf()), QStringList({"Untitled Page 1"}));
}

void TestPrint::nameAtTheHead()
{
    Desk desk;
    const QString name = QString(80, 'n') + "lamp.htm";
    desk.folder.write(name, "<P>");
    desk.open(desk.folder.path(name));
    const QString head = linesOnPaper(desk.pdf()).constFirst();
    QVERIFY2(head.startsWith("nnn") && head.endsWith("lamp.htm Page 1"), qPrintable(head));
    QVERIFY(desk.doors.takeAsked().constLast().contains("nlamp.pdf|"));
}

/// What is larger than paper can use is printed smaller.
void TestPrint::hugeLettersOfTheEditor()
{
    Desk desk;
    desk.write("<P>one row of words</P>");
    QFont font = desk.web->RichTextBox1->textFont();
    font.setPointSizeF(400);
    desk.web->RichTextBox1->setTextFont(font);
    QCOMPARE(linesOnPaper(desk.pdf()), QStringList({"Untitled Page 1", "1 <P>one row of words</P>"}));
}

void TestPrint::onAPrinter()
{
    Desk desk;
    desk.write("<P>one</P>");
    const QString path = desk.folder.path("printed.pdf");
    desk.doors.answerPrint(path);
    desk.choose(desk.web->muntools, desk.web->munprint);
    QCOMPARE(desk.doors.takeAsked(), QStringList({"Print|Untitled|any"}));
    QCOMPARE(linesOnPaper(path), QStringList({"Untitled Page 1", "1 <P>one</P>"}));

    const QString other = desk.folder.path("other.pdf"); // as it comes to a printer itself
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(other);
        printSource(printer, {.name = "lamp", .utf8 = "<P>two</P>", .colors = {}, .font = QFont("Arial", 10)},
                    [](double) {});
    }
    QCOMPARE(linesOnPaper(other), QStringList({"lamp Page 1", "1 <P>two</P>"}));
}

void TestPrint::pagesThatAreWanted()
{
    Desk desk;
    desk.write(numberedLines(300));
    const QList<QStringList> all = pagesOnPaper(desk.pdf());
    const QString path = desk.folder.path("printed.pdf");
    desk.doors.answerPrint(path, 2, 3);
    desk.choose(desk.web->muntools, desk.web->munprint);
    const QList<QStringList> wanted = pagesOnPaper(path);
    QCOMPARE(wanted.size(), 2);
    QCOMPARE(wanted.at(0).constFirst(), "Untitled Page 2");
    QCOMPARE(wanted.at(1).constFirst(), "Untitled Page 3");
    QVERIFY(wanted.at(0).size() > 20);
}

void TestPrint::previewOfTheSource()
{
    Desk desk;
    desk.write("<P>one</P>");
    desk.doors.closePreview();
    desk.choose(desk.web->muntools, desk.web->munprintpreview);
    QCOMPARE(desk.doors.takeAsked(), QStringList({"Preview|Untitled|1"}));
    desk.write(numberedLines(300));
    desk.doors.closePreview();
    desk.choose(desk.web->muntools, desk.web->munprintpreview);
    const QString pages = desk.doors.takeAsked().constFirst().section('|', 2);
    QVERIFY2(pages.toInt() > 2, qPrintable(pages));
}

void TestPrint::documentStaysAsItIs()
{
    Desk desk;
    desk.write("lamp");
    desk.web->RichTextBox1->setSelStart(4);
    desk.type("s");
    desk.web->RichTextBox1->setSelStart(1);
    desk.web->RichTextBox1->setSelLength(2);
    desk.web->document().setDirty(false);
    desk.pdf();
    desk.doors.closePreview();
    desk.choose(desk.web->muntools, desk.web->munprintpreview);
    QVERIFY(!desk.web->Dirty());
    QCOMPARE(desk.web->RichTextBox1->SelText(), QByteArray("am"));
    QCOMPARE(desk.web->documentName(), "Untitled");
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), QByteArray("lamp"));
}

/// Right behind a key it is seen on the screen.
void TestPrint::caretStaysOffThePaper()
{
    Desk desk;
    desk.show("<P>&nbsp;</P>");
    desk.typeAtCaretOfSurface(" ");
    QCOMPARE(dotsOf(pictureOfPaper(desk.pdf()), isDark), QRect());
}

void TestPrint::cancelled()
{
    Desk desk;
    QVERIFY(QDir::setCurrent(desk.folder.path(QString()))); // where a name without a folder leads
    desk.write("lamp");
    desk.doors.cancelSave();
    desk.choose(desk.web->muntools, desk.web->munpdf);
    desk.doors.cancelPrint();
    desk.choose(desk.web->muntools, desk.web->munprint);
    QCOMPARE(desk.doors.takeAsked().size(), 2);
    QVERIFY(!desk.web->Dirty());
    QVERIFY(!desk.folder.has("Untitled.pdf"));
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
}

void TestPrint::fileThatIsThere()
{
    Desk desk;
    desk.write("lamp");
    const QString path = desk.folder.path("there.pdf");
    for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        desk.folder.write("there.pdf", "former");
        desk.doors.answerSave(path);
        desk.doors.answerMsgBox(answer);
        desk.choose(desk.web->muntools, desk.web->munpdf);
        QCOMPARE(desk.doors.takeAsked().constLast(),
                 "MsgBox|Information|[ there.pdf ] - already exists.\r\nDo you want to replace it "
                 "?|Information|YesNo");
        QCOMPARE(desk.folder.read("there.pdf") == "former", answer == MsgAnswer::No);
    }
    QCOMPARE(linesOnPaper(path), QStringList({"Untitled Page 1", "1 lamp"}));
}

void TestPrint::fileThatCannotBeWritten()
{
    Desk desk;
    desk.write("lamp");
    desk.doors.answerSave(desk.folder.path("none/lamp.pdf"));
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    desk.choose(desk.web->muntools, desk.web->munpdf);
    QVERIFY(desk.doors.takeAsked().constLast().startsWith("MsgBox|Brindlemark|"));
    desk.doors.answerPrint(desk.folder.path("none/lamp.pdf"));
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    desk.choose(desk.web->muntools, desk.web->munprint);
    QVERIFY(desk.doors.takeAsked().constLast().startsWith("MsgBox|Brindlemark|"));
    QCOMPARE(desk.source(), QByteArray("lamp"));
    QVERIFY(!desk.web->Dirty());
}

void TestPrint::printerThatCannotBegin()
{
    const ProgramFolder folder;
    QPdfWriter writer(folder.path("none/lamp.pdf"));
    QString reason;
    try {
        printSource(writer, {.name = "lamp", .utf8 = "<P>", .colors = {}, .font = QFont("Arial", 10)},
                    [](double) {});
    } catch (const RuntimeError& error) {
        reason = error.description();
    }
    QCOMPARE(reason, "The printer takes no pages");
}

void TestPrint::byKey()
{
    Desk desk;
    desk.write("lamp");
    QVERIFY(QTest::qWaitForWindowActive(desk.web));
    desk.web->RichTextBox1->setFocus();
    desk.doors.cancelPrint();
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(desk.doors.takeAsked(), QStringList({"Print|Untitled|any"}));
    QCOMPARE(desk.source(), QByteArray("lamp"));
}

void TestPrint::onTheInternet()
{
    const Desk desk;
    desk.write("lamp");
    const QList<QAction*> entries = {desk.web->munprint, desk.web->munprintpreview, desk.web->munpdf};
    desk.showTab(FrmWeb::InternetTab);
    for (QAction* entry : entries) {
        QVERIFY(!entry->isEnabled());
        entry->trigger();
    }
    QCOMPARE(desk.doors.asked, QStringList());
    desk.showTab(FrmWeb::PreviewTab);
    for (const QAction* entry : entries)
        QVERIFY(entry->isEnabled());
}

void TestPrint::page()
{
    Desk desk;
    desk.show("<BODY bgcolor=#00C000><H1>Brass lamp</H1><TABLE><TR><TD>12.50</TABLE></BODY>");
    const QString path = desk.pdf();
    QCOMPARE(linesOnPaper(path), QStringList({"Brass lamp", "12.50"}));
    QVERIFY(!dotsOf(pictureOfPaper(path), isGreen).isEmpty());
    QVERIFY(!desk.web->Dirty());
    QVERIFY(desk.source().startsWith("<BODY bgcolor"));
    desk.doors.takeAsked();
}

void TestPrint::pageWithDesignOff()
{
    Desk desk;
    desk.show("<P id=p>Brass lamp</P><SCRIPT>p.textContent += ', made by a script'</SCRIPT>", false);
    QCOMPARE(linesOnPaper(desk.pdf()), QStringList({"Brass lamp, made by a script"}));
}

void TestPrint::longPage()
{
    Desk desk;
    desk.show(numberedLines(200));
    const QList<QStringList> pages = pagesOnPaper(desk.pdf());
    QVERIFY(pages.size() > 1);
    QStringList lines;
    for (const QStringList& page : pages)
        lines << page;
    QCOMPARE(lines.size(), 200);
    QCOMPARE(lines.constFirst(), "row 1");
    QCOMPARE(lines.constLast(), "row 200");
}

void TestPrint::pageInAFileOfThePrinter()
{
    Desk desk;
    desk.show("<P>Brass lamp</P>");
    const QString path = desk.folder.path("printed.pdf");
    desk.doors.answerPrint(path);
    desk.choose(desk.web->muntools, desk.web->munprint);
    QCOMPARE(desk.doors.takeAsked(), QStringList({"Print|Untitled|all"}));
    QCOMPARE(linesOnPaper(path), QStringList({"Brass lamp"}));
}

void TestPrint::whatWasTypedOnThePage()
{
    Desk desk;
    desk.show("<P>lamp</P>");
    desk.typeOnSurface("q");
    const bool wasDirty = desk.web->Dirty();
    QVERIFY(linesOnPaper(desk.pdf()).constFirst().contains("q"));
    QCOMPARE(desk.web->Dirty(), wasDirty);
    QVERIFY(pageText(desk.web->WebBrowser1).contains("q"));
    QVERIFY(desk.web->WebBrowser1->execCommand("Undo"));
    QTRY_COMPARE(pageText(desk.web->WebBrowser1), "lamp");
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(!desk.source().contains("q"));
}

/// Neither the selection nor the caret.
void TestPrint::nothingOfTheEditing()
{
    Desk desk;
    desk.show("<P style=\"font-size:40px\">lamp of brass</P>");
    QVERIFY(desk.web->WebBrowser1->execCommand("SelectAll"));
    const QImage paper = pictureOfPaper(desk.pdf());
    QVERIFY(!dotsOf(paper, isDark).isEmpty());
    const QRect tinted = dotsOf(paper, [](const QColor& color) { return color.saturation() > 20; });
    QVERIFY2(tinted.isEmpty(), qPrintable(QStringLiteral("%1 wide").arg(tinted.width())));
    QCOMPARE(desk.web->WebBrowser1->selectedText().trimmed(), "lamp of brass");
}

/// A design surface lays out what it is given a moment later.
void TestPrint::rightAfterTheWriting()
{
    const ProgramFolder folder;
    DocumentSurface surface;
    surface.setDesignMode(DesignMode::On);
    surface.show();
    const QPageLayout paper(QPageSize(QPageSize::A5), QPageLayout::Portrait, QMarginsF(20, 20, 20, 20));
    for (const char* text : {"lamp", "brass"}) {
        QVERIFY(surface.write(QLatin1String("<P>") + QLatin1String(text)));
        folder.write("page.pdf", surface.pdf(paper));
        QCOMPARE(linesOnPaper(folder.path("page.pdf")), QStringList({QString::fromLatin1(text)}));
    }
    const int width = pictureOfPaper(folder.path("page.pdf")).width(); // of 148 mm
    QVERIFY2(qAbs(width - 874) < 4, qPrintable(QString::number(width)));
}

/// What fills a page's width is between the margins, on each sheet, also where it lies on its side.
void TestPrint::sheetsOnAPrinter()
{
    const ProgramFolder folder;
    DocumentSurface surface;
    surface.show();
    QVERIFY(
        surface.write("<BODY style=\"margin:0\"><TABLE width=100% height=250 bgcolor=#ff0000><TR><TD></TABLE>"
                      "<P style=\"page-break-before:always\"><TABLE width=100% height=250 bgcolor=#0000ff>"
                      "<TR><TD></TABLE>"));
    for (const auto orientation : {QPageLayout::Portrait, QPageLayout::Landscape}) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setResolution(150);
        printer.setPageSize(QPageSize(QPageSize::A5)); // 148 by 210 mm
        printer.setPageOrientation(orientation);
        printer.setPageMargins(QMarginsF(10, 20, 30, 40), QPageLayout::Millimeter);
        printer.setOutputFileName(folder.path("sheets.pdf"));
        double done = 0;
        printPages(printer, surface.pdf(printer.pageLayout()), [&](double part) { done = part; });
        QCOMPARE(done, 1.0);
        const int width = orientation == QPageLayout::Portrait ? 148 : 210;
        for (const int sheet : {1, 2}) {
            const QImage paper = pictureOfPaper(folder.path("sheets.pdf"), sheet);
            const QRect table = dotsOf(paper, sheet == 1 ? isRed : isBlue);
            const auto inDots = [](double mm) { return int(mm * 150 / 25.4); };
            QVERIFY2(qAbs(paper.width() - inDots(width)) < 4, qPrintable(QString::number(paper.width())));
            QVERIFY2(qAbs(table.left() - inDots(10)) < 5, qPrintable(QString::number(table.left())));
            QVERIFY2(qAbs(table.right() - inDots(width - 30)) < 5,
                     qPrintable(QString::number(table.right())));
            if (sheet == 1)
                QVERIFY2(qAbs(table.top() - inDots(20)) < 5, qPrintable(QString::number(table.top())));
        }
    }
}

void TestPrint::printerThatTakesNoSheet()
{
    const ProgramFolder folder;
    DocumentSurface surface;
    surface.show();
    QVERIFY(surface.write("<P>lamp"));
    QPrinter printer;
    const QByteArray pdf = surface.pdf(printer.pageLayout());
    printer.setOutputFileName(folder.path("none/sheets.pdf"));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, printPages(printer, pdf, [](double) {}));
    printer.setOutputFileName(folder.path("sheets.pdf"));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, printPages(printer, "no PDF", [](double) {}));
}

void TestPrint::previewOfAPage()
{
    for (const bool design : {true, false}) {
        Desk desk;
        desk.show("<P>Brass lamp</P>", design);
        desk.doors.closePreview();
        desk.choose(desk.web->muntools, desk.web->munprintpreview);
        QCOMPARE(desk.doors.takeAsked(), QStringList({"Preview|Untitled|1"}));
        QCOMPARE(pageText(desk.surface()), "Brass lamp");
    }
}

void TestPrint::rendererThatDied()
{
    Desk desk;
    desk.show("<P>lamp</P>");
    desk.typeOnSurface("q");
    desk.web->WebBrowser1->setFocus();
    ::kill(pid_t(probe(desk.web->WebBrowser1).rendererPid()), SIGKILL);
    desk.doors.answerSave(desk.folder.path("none.pdf"));
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    desk.web->munpdf->trigger();
    QCOMPARE(desk.doors.takeAsked().constLast(), Ended);
    QTest::qWait(100); // would tell it once more
    QVERIFY(desk.doors.takeAsked().isEmpty());
    QVERIFY(!desk.folder.has("none.pdf"));
    QTRY_VERIFY(pageText(desk.web->WebBrowser1).contains("lamp"));
    QVERIFY(linesOnPaper(desk.pdf()).constFirst().contains("lamp"));
    QCOMPARE(desk.source(), QByteArray("<P>lamp</P>"));
}

/// It ends over the print; the next one works all the same.
void TestPrint::rendererThatStopped()
{
    Desk desk;
    desk.show("<P>lamp</P>", false);
    QTRY_COMPARE(pageText(desk.web->WebBrowser3), "lamp");
    probe(desk.web->WebBrowser3).setPatience(100);
    ::kill(pid_t(probe(desk.web->WebBrowser3).rendererPid()), SIGSTOP);
    desk.doors.answerSave(desk.folder.path("none.pdf"));
    desk.doors.during([&] { probe(desk.web->WebBrowser3).setPatience(Patience); });
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    desk.web->munpdf->trigger();
    QCOMPARE(desk.doors.takeAsked().constLast(), Ended);
    QVERIFY(!desk.folder.has("none.pdf"));
    QCOMPARE(linesOnPaper(desk.pdf()), QStringList({"lamp"}));
    QVERIFY(desk.web->WebBrowser3->isVisible());
}

void TestPrint::previewOfAPageThatDied()
{
    Desk desk;
    desk.show("<P>lamp</P>", false);
    QTRY_COMPARE(pageText(desk.web->WebBrowser3), "lamp");
    ::kill(pid_t(probe(desk.web->WebBrowser3).rendererPid()), SIGKILL);
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    desk.doors.closePreview();
    desk.web->munprintpreview->trigger();
    QCOMPARE(desk.doors.takeAsked(), QStringList({Ended, "Preview|Untitled|-1"}));
    desk.doors.closePreview();
    desk.web->munprintpreview->trigger();
    QCOMPARE(desk.doors.takeAsked(), QStringList({"Preview|Untitled|1"}));
}

RENDERER_TEST_MAIN(TestPrint)
#include "tst_print.moc"
