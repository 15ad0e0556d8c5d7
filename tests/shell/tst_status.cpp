// SPDX-License-Identifier: GPL-3.0-or-later

// The status line, and what the source box shows beside its text.

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "shell/StatusLine.h"
#include "shell/TagPair.h"

#include <QLabel>
#include <QRegularExpression>
#include <QTest>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    StatusLine* line() const { return web->findChild<StatusLine*>(); }
    /// What it shows, part by part.
    QStringList shown() const
    {
        QStringList texts;
        for (const QLabel* label : line()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (label->isVisible())
                texts << label->text();
        }
        return texts;
    }
    QString part(const QString& name) const
    {
        for (const QLabel* label : line()->findChildren<QLabel*>()) {
            if (label->accessibleName() == name)
                return label->isVisible() ? label->text() : QString();
        }
        return QStringLiteral("no such part");
    }
    QString place() const { return part("Line and column of the caret"); }
    QString state() const { return part("Whether the page is saved and kept"); }
    /// The text that is marked as a pair, its parts with a blank between them.
    QByteArray paired() const
    {
        const RichTextBox* box = web->RichTextBox1;
        QByteArray marked;
        bool was = false;
        for (int i = 0; i < source().size(); ++i) {
            const bool is = box->SendScintilla(QsciScintillaBase::SCI_INDICATORVALUEAT, 9UL, long(i)) != 0;
            if (is && !was && !marked.isEmpty())
                marked += ' ';
            if (is)
                marked += source().at(i);
            was = is;
        }
        return marked;
    }
};

} // namespace

class TestStatus : public QObject
{
    Q_OBJECT

private slots:
    void atFirst();
    void caret();
    void selection();
    void encoding();
    void stateOfTheDocument();
    void keptMeanwhile();
    void otherTabs();
    void zoom();
    void fitsBelowTheView_data();
    void fitsBelowTheView();
    void lineNumbers();
    void lineNumbersOfLongTexts();
    void whiteSpace();
    void isKept();
    void pairs_data();
    void pairs();
    void marksThePair();
};

void TestStatus::atFirst()
{
    const Desk desk;
    QTRY_COMPARE(desk.shown(),
                 QStringList({"Line 1, column 1", "UTF-8", "Not changed", "Spelling off", "100 %"}));
}

void TestStatus::caret()
{
    Desk desk;
    desk.web->RichTextBox1->setText("<P>caf\xc3\xa9</P>\r\nlamp");
    desk.web->RichTextBox1->setSelStart(int(qstrlen("<P>caf\xc3\xa9")));
    QTRY_COMPARE(desk.place(), "Line 1, column 8");
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    QTRY_COMPARE(desk.place(), "Line 2, column 5");
    desk.web->RichTextBox1->setText(QByteArray("x\r\n").repeated(1234));
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    QTRY_COMPARE(desk.place(), "Line 1,235, column 1");
}

/// A line end counts as one character.
void TestStatus::selection()
{
    Desk desk;
    const auto selected = [&] { return desk.part("Selected characters"); };
    desk.web->RichTextBox1->setText("caf\xc3\xa9\r\nlamp");
    QTRY_COMPARE(desk.place(), "Line 1, column 1");
    QCOMPARE(selected(), QString());
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_A, Qt::ControlModifier);
    QTRY_COMPARE(selected(), "9 selected");
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_Left);
    QTRY_COMPARE(selected(), QString());
}

void TestStatus::encoding()
{
    Desk desk;
    desk.web->RichTextBox1->setText("caf\xe9");
    QTRY_COMPARE(desk.part("Encoding of the page"), "Windows-1252");
    desk.web->RichTextBox1->setText("caf\xc3\xa9");
    QTRY_COMPARE(desk.part("Encoding of the page"), "UTF-8");
}

void TestStatus::stateOfTheDocument()
{
    Desk desk;
    desk.type("lamp");
    QTRY_COMPARE(desk.state(), "Not saved");
    desk.saveAs(desk.folder.path("lamp.htm"));
    QTRY_COMPARE(desk.state(), "Saved");
    desk.type("x");
    QTRY_COMPARE(desk.state(), "Not saved");
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.web->MnNew->trigger();
    QTRY_VERIFY(desk.state() != "Saved");
}

/// When the text was kept for the case of a crash.
void TestStatus::keptMeanwhile()
{
    Desk desk;
    desk.type("lamp");
    QTRY_COMPARE(desk.state(), "Not saved");
    const QString before = QTime::currentTime().toString("HH:mm:ss");
    desk.journalTimer().start(0);
    static const QRegularExpression kept("^Not saved, kept at (\\d\\d:\\d\\d:\\d\\d)$");
    QTRY_VERIFY2(kept.match(desk.state()).hasMatch(), qPrintable(desk.state()));
    const QString told = kept.match(desk.state()).captured(1);
    QVERIFY(told >= before || before.startsWith("23:59"));
    QVERIFY(told <= QTime::currentTime().toString("HH:mm:ss") || told.startsWith("23:59"));
    desk.saveAs(desk.folder.path("lamp.htm"));
    QTRY_COMPARE(desk.state(), "Saved");
    desk.type("x");
    QTRY_COMPARE(desk.state(), "Not saved"); // what was kept has gone
}

/// Preview has no lines; the tab Internet has a line of its own.
void TestStatus::otherTabs()
{
    Desk desk;
    desk.type("<P>lamp</P>");
    desk.showTab(FrmWeb::PreviewTab);
    QTRY_COMPARE(desk.shown(), QStringList({"UTF-8", "Not saved", "Spelling off", "100 %"}));
    desk.showTab(FrmWeb::InternetTab);
    QTRY_VERIFY(!desk.line()->isVisible());
    QVERIFY(desk.web->Label1->isVisible());
    desk.showTab(FrmWeb::EditorTab);
    QTRY_VERIFY(desk.line()->isVisible());
}

void TestStatus::zoom()
{
    Desk desk;
    const auto percent = [&] { return desk.part("Size of the text in this view"); };
    desk.type("<P>lamp</P>");
    desk.web->zoomBy(2);
    QTRY_COMPARE(percent(), "125 %");
    desk.showTab(FrmWeb::PreviewTab);
    QTRY_COMPARE(percent(), "100 %");
    desk.web->zoomBy(-1);
    QTRY_COMPARE(percent(), "90 %");
}

void TestStatus::fitsBelowTheView_data()
{
    QTest::addColumn<int>("points");
    QTest::newRow("9 points") << 9;
    QTest::newRow("14 points") << 14;
}

/// Whole letters, below the view and within the tab page, whatever the desktop's font.
void TestStatus::fitsBelowTheView()
{
    QFETCH(const int, points);
    const QFont former = QApplication::font();
    QFont font = former;
    font.setPointSize(points);
    QApplication::setFont(font);
    {
        Desk desk;
        QTRY_VERIFY(desk.line()->isVisible());
        const auto inWindow = [&](const QWidget* widget) {
            return QRect(widget->mapTo(desk.web, QPoint()), widget->size());
        };
        const QRect line = inWindow(desk.line());
        QVERIFY(line.top() > inWindow(desk.web->RichTextBox1).bottom());
        QVERIFY(line.bottom() < inWindow(desk.web->SSTab1).bottom());
        for (const QLabel* label : desk.line()->findChildren<QLabel*>()) {
            QVERIFY2(label->fontMetrics().height() <= line.height(), qPrintable(label->text()));
            QVERIFY2(line.contains(inWindow(label)) || !label->isVisible(), qPrintable(label->text()));
        }
    }
    QApplication::setFont(former);
}

void TestStatus::lineNumbers()
{
    Desk desk;
    const auto margin = [&] {
        return desk.web->RichTextBox1->SendScintilla(QsciScintillaBase::SCI_GETMARGINWIDTHN, 0UL);
    };
    QCOMPARE(margin(), 0L);
    desk.web->munlinenumbers->trigger();
    QVERIFY(margin() > 10);
    const long width = margin();
    desk.web->RichTextBox1->setText(QByteArray("x\r\n").repeated(200));
    QVERIFY2(margin() > width, "three digits take more room than one");
    desk.web->zoomBy(3);
    QVERIFY2(margin() > width * 5 / 2, "and larger ones more");
    desk.web->munlinenumbers->trigger();
    QCOMPARE(margin(), 0L);
    desk.web->RichTextBox1->setText("y");
    QCOMPARE(margin(), 0L);
}

/// They can be read: they differ from their ground.
void TestStatus::lineNumbersOfLongTexts()
{
    Desk desk;
    desk.web->munlinenumbers->trigger();
    desk.web->RichTextBox1->setText(QByteArray("x\r\n").repeated(30));
    const auto inkIn = [&](const QRect& part) {
        const QImage picture = desk.web->RichTextBox1->viewport()->grab(part).toImage();
        int ink = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                ink += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
        }
        return ink;
    };
    const long width = desk.web->RichTextBox1->SendScintilla(QsciScintillaBase::SCI_GETMARGINWIDTHN, 0UL);
    const QRect margin(0, 0, int(width), 100);
    QVERIFY(inkIn(margin) > 20);
    desk.web->munlinenumbers->trigger();
    desk.web->RichTextBox1->setText("");
    desk.web->RichTextBox1->setHint({});
    QCOMPARE(inkIn(margin.adjusted(4, 0, 0, 0)), 0);
}

void TestStatus::whiteSpace()
{
    Desk desk;
    for (const char* text : {"a b", "a\tb", "a\r\nb"}) {
        desk.web->RichTextBox1->setText(text);
        const QImage before = desk.web->RichTextBox1->viewport()->grab().toImage();
        desk.web->munwhitespace->trigger();
        const QImage with = desk.web->RichTextBox1->viewport()->grab().toImage();
        QVERIFY2(with != before, text);
        desk.web->munwhitespace->trigger();
        QVERIFY2(desk.web->RichTextBox1->viewport()->grab().toImage() == before, text);
        QCOMPARE(desk.source(), QByteArray(text));
    }
}

/// What is switched on is so at the next start; a settings file from before it knew them means off.
void TestStatus::isKept()
{
    Desk desk;
    for (QAction* entry : desk.web->munshow->actions()) {
        QVERIFY(entry->isCheckable());
        QVERIFY(!entry->isChecked());
        entry->trigger();
        QVERIFY(entry->isChecked());
    }
    const QByteArray settings = desk.folder.read("web.ini");
    QVERIFY(settings.contains("[Show]\r\nlinenumbers=1\r\nwhitespace=1\r\nmatchingtag=1\r\n"));
    unloadAll();
    const FrmWeb* again = form<FrmWeb>();
    for (const QAction* entry : again->munshow->actions())
        QVERIFY2(entry->isChecked(), qPrintable(entry->text()));
    unloadAll();
    desk.folder.write("web.ini", settings.first(settings.indexOf("[Show]")));
    for (const QAction* entry : form<FrmWeb>()->munshow->actions())
        QVERIFY2(!entry->isChecked(), qPrintable(entry->text()));
    desk.web = form<FrmWeb>();
}

void TestStatus::pairs_data()
{
    QTest::addColumn<QByteArray>("source"); // the caret is "|"
    QTest::addColumn<QByteArrayList>("pair");
    const auto row = [](const char* name, const char* source, const QByteArrayList& pair) {
        QTest::newRow(name) << QByteArray(source) << pair;
    };
    row("at the start tag", "|<B>lamp</B>", {"<B>", "</B>"});
    row("in it", "<|B>lamp</B>", {"<B>", "</B>"});
    row("behind it", "<B>|lamp</B>", {"<B>", "</B>"});
    row("at the end tag", "<B>lamp|</B>", {"<B>", "</B>"});
    row("behind the end tag", "<B>lamp</B>|", {"<B>", "</B>"});
    row("in text", "<B>la|mp</B>", {});
    row("nested", "<TD 1><TABLE><TD 2>x</TD></TABLE></|TD>", {"<TD 1>", "</TD>"});
    row("nested, inner one", "<DIV 1><DIV 2>x</|DIV></DIV>", {"<DIV 2>", "</DIV>"});
    row("nested, from the start", "<|DIV 1><DIV 2>x</DIV 3></DIV 4>", {"<DIV 1>", "</DIV 4>"});
    row("names in another case", "<|b>x</B>", {"<b>", "</B>"});
    row("alone", "<B>x<|BR>y</B>", {});
    row("end alone", "x</|B>", {});
    row("in a comment", "<B><!-- <|I></I> --></B>", {});
    row("not of a comment", "<|B><!-- </B> --></B 2>", {"<B>", "</B 2>"});
    row("not of a script", "<|B><SCRIPT>'</B>'</SCRIPT></B 2>", {"<B>", "</B 2>"});
    row("quotes", "<|A title=\"</A>\">x</A 2>", {"<A title=\"</A>\">", "</A 2>"});
    row("between two", "<I>x</I>|<B>y</B>", {"<B>", "</B>"});
    row("nothing", "|", {});
}

void TestStatus::pairs()
{
    QFETCH(QByteArray, source);
    QFETCH(const QByteArrayList, pair);
    const qsizetype caret = source.indexOf('|');
    source.remove(caret, 1);
    QByteArrayList found;
    for (const TextRange& tag : tagPairAt(source, caret))
        found << source.sliced(tag.start, tag.length);
    QCOMPARE(found, pair);
}

/// Marks are no part of the text, and go with the caret.
void TestStatus::marksThePair()
{
    Desk desk;
    RichTextBox* box = desk.web->RichTextBox1;
    box->setText("<P>a <B>lamp</B></P>");
    desk.web->document().setDirty(false);
    box->setSelStart(6);
    QTRY_COMPARE(desk.place(), "Line 1, column 7");
    QCOMPARE(desk.paired(), QByteArray());
    desk.web->munmatchingtag->trigger();
    QTRY_COMPARE(desk.paired(), QByteArray("<B> </B>"));
    QTest::keyClick(box, Qt::Key_Home);
    QTRY_COMPARE(desk.paired(), QByteArray("<P> </P>"));
    desk.web->munmatchingtag->trigger();
    QCOMPARE(desk.paired(), QByteArray());
    QCOMPARE(desk.source(), QByteArray("<P>a <B>lamp</B></P>"));
}

WEB_TEST_MAIN(TestStatus)
#include "tst_status.moc"
