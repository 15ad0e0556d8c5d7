// SPDX-License-Identifier: GPL-3.0-or-later

// Words on the design surface: the engine's own checker, with dictionaries that are made for it, and letters
// that are changed in place.

#include "MainWindow.h"
#include "Paper.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "shell/NoticeBar.h"
#include "shell/Spelling.h"
#include "web/LivePage.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

using namespace brindlemark;

namespace {

/// The user's cache is looked for before the engine starts.
const struct Cache
{
    Cache() { qputenv("XDG_CACHE_HOME", folder.path().toLocal8Bit()); }
    QTemporaryDir folder;
} cache;

QMenu* popup()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

struct Desk : MainWindow
{
    Desk()
    {
        web->spelling()->choose({QStringLiteral("en_US")});
        web->RichTextBox1->setText("<DIV style=\"font-size:40px; line-height:60px\">lampp</DIV>"
                                   "<DIV style=\"font-size:40px; line-height:60px\">brasss</DIV>");
        showTab(FrmWeb::PreviewTab);
    }
    ~Desk() { web->spelling()->choose({}); }

    /// Right clicks on the word until the engine has an opinion of it; its dictionaries come later.
    QStringList entriesOverWord(int line, const QString& awaited) const
    {
        QStringList entries;
        const bool came = QTest::qWaitFor(
            [&] {
                QWidget* input = web->WebBrowser1->inputWidget();
                if (!input)
                    return false;
                QTest::mouseClick(input, Qt::RightButton, {}, QPoint(60, 35 + 60 * line));
                if (!QTest::qWaitFor([] { return popup() != nullptr; }, 1000))
                    return false;
                entries.clear();
                for (const QAction* entry : popup()->actions())
                    entries << entry->text().section('\t', 0, 0);
                if (entries.contains(awaited))
                    return true;
                popup()->close();
                return false;
            },
            Patience);
        if (!came)
            QTest::qFail(qPrintable(entries.join('|')), __FILE__, __LINE__);
        return entries;
    }
};

/// A design surface to be looked at.
class Surface : public DocumentSurface
{
public:
    explicit Surface(const QString& html)
    {
        setDesignMode(DesignMode::On);
        resize(600, 400);
        show();
        QVERIFY(write(html));
    }

    QString body()
    {
        const QString text = innerHtml();
        const qsizetype start = text.indexOf('>', text.indexOf("<BODY")) + 1;
        return text.sliced(start).chopped(int(qstrlen("</BODY>"))).remove("\r\n");
    }

    /// Selects from the first of some letters to the last of others behind them.
    bool select(const QString& first, const QString& last)
    {
        const QString text = letters().text;
        const qsizetype start = text.indexOf(first);
        return selectLetters(start, text.indexOf(last, start) + last.size());
    }

    bool capitals()
    {
        return changeSelection([](const QString& letters) { return letters.toUpper(); });
    }
    bool smallLetters()
    {
        return changeSelection([](const QString& letters) { return letters.toLower(); });
    }
};

/// Pictures whose names hide what a document or a window has.
QString picturesNamed(const QStringList& names)
{
    QString pictures;
    for (const QString& name : names)
        pictures += "<img name=" + name + ">";
    return pictures;
}

} // namespace

class TestSurfaceSpelling : public QObject
{
    Q_OBJECT

private slots:
    void suggestions();
    void ownWords();
    void notOnPaper();
    void nextMisspelt();
    void lettersOfASelection_data();
    void lettersOfASelection();
    void lettersAmongOtherSteps();
    void lettersByTheKeyOfUndo();
    void lettersThatCantBeEdited();
    void pagesThatHideNames();
    void livePagesThatHideNames();
};

void TestSurfaceSpelling::suggestions()
{
    Desk desk;
    const QStringList entries = desk.entriesOverWord(0, "Add \"lampp\" to My Words");
    QCOMPARE(entries.constFirst(), "lamp");
    takeEntry(popup(), "lamp");
    QTRY_VERIFY2(desk.web->WebBrowser1->innerHtml().contains(">lamp</DIV>"),
                 qPrintable(desk.web->WebBrowser1->innerHtml()));
    QVERIFY(desk.web->WebBrowser1->execCommand("Undo"));
    QVERIFY(desk.web->WebBrowser1->innerHtml().contains(">lampp</DIV>"));
}

/// Its checker goes on with all others.
void TestSurfaceSpelling::ownWords()
{
    Desk desk;
    desk.entriesOverWord(0, "Add \"lampp\" to My Words");
    takeEntry(popup(), "Add \"lampp\" to My Words");
    QCOMPARE(desk.folder.read("words.txt"), QByteArray("lampp\n"));
    desk.showTab(FrmWeb::EditorTab); // written again, it is looked at again
    QTRY_VERIFY(QDir(cache.folder.path() + "/brindlemark/dictionaries").entryList({"own-*.bdic"}).size() ==
                1);
    desk.showTab(FrmWeb::PreviewTab);
    desk.entriesOverWord(1, "Add \"brasss\" to My Words");
    popup()->close();
    QVERIFY(!desk.entriesOverWord(0, "Select &All").contains("Add \"lampp\" to My Words"));
    popup()->close();
}

/// The marks are for the eye of who writes.
void TestSurfaceSpelling::notOnPaper()
{
    Desk desk;
    desk.entriesOverWord(0, "Add \"lampp\" to My Words");
    popup()->close();
    const QString path = desk.folder.path("lamp.pdf");
    desk.doors.answerSave(path);
    desk.web->munpdf->trigger();
    QCOMPARE(linesOnPaper(path), QStringList({"lampp", "brasss"}));
    const QRect red = dotsOf(pictureOfPaper(path), [](const QColor& color) {
        return color.red() > color.green() + 90 && color.red() > color.blue() + 90;
    });
    QVERIFY(red.isEmpty());
}

/// By F7, from the caret on and round; what nobody sees is none, and a word of two formats is one.
void TestSurfaceSpelling::nextMisspelt()
{
    Desk desk;
    desk.showTab(FrmWeb::EditorTab);
    desk.web->RichTextBox1->setText(
        "<STYLE>zzyx { color: red }</STYLE><P>A fine lampp of brass.</P><TABLE><TR><TD>right</TD>"
        "<TD><B>bra</B>sss</TD></TR></TABLE><!-- qqqx --><P title=\"wwwx\">One more "
        "tabble<BR>lampp &amp; www.vvvx.com</P>"
        "<DIV style=\"height:3000px\"></DIV><P>eend</P>");
    desk.showTab(FrmWeb::PreviewTab);
    DocumentSurface* const surface = desk.web->WebBrowser1;
    QTRY_VERIFY(surface->inputWidget() && surface->inputWidget()->hasFocus());
    QTRY_VERIFY(desk.web->spelling()->speller().judges());
    const auto scrolled = [&] { return probe(*surface).evaluate("scrollY").value_or(QVariant()).toInt(); };
    const auto press = [&] { QTest::keyClick(surface->inputWidget(), Qt::Key_F7); };
    for (const char* word : {"lampp", "brasss", "tabble", "lampp", "eend", "lampp", "brasss"}) {
        press();
        QCOMPARE(surface->selectedText(), QString::fromLatin1(word));
        QCOMPARE(scrolled() > 2000, qstrcmp(word, "eend") == 0);
    }
    QVERIFY(surface->execCommand("InsertText", "brass")); // what is typed replaces it
    QVERIFY(surface->innerHtml().contains("<TD><B>brass</B></TD>"));
    press();
    QCOMPARE(surface->selectedText(), "tabble");
    QVERIFY(surface->execCommand("SelectAll"));
    QVERIFY(surface->execCommand("InsertText", "all is right"));
    press();
    auto* const notices = desk.web->findChild<NoticeBar*>();
    QVERIFY(notices->isVisible());
    QCOMPARE(notices->findChild<QLabel*>()->text(), "No misspelt word was found.");
}

void TestSurfaceSpelling::lettersOfASelection_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("changed");
    const auto row = [](const char* name, const char* html, const char* first, const char* last,
                        const char* changed) {
        QTest::newRow(name) << QString::fromUtf8(html) << QString::fromUtf8(first) << QString::fromUtf8(last)
                            << QString::fromUtf8(changed);
    };
    row("cells",
        "<TABLE border=1><TBODY><TR><TD>brass</TD><TD align=right>lamp</TD></TR></TBODY></TABLE><P>x</P>",
        "ass", "lam",
        "<TABLE border=1><TBODY><TR><TD>brASS</TD><TD align=right>LAMp</TD></TR></TBODY></TABLE><P>x</P>");
    row("rows",
        "<TABLE><TBODY><TR><TD>a</TD><TH>brass</TH></TR><TR><TD>lamp</TD><TD>b</TD></TR></TBODY></TABLE>",
        "brass", "lamp",
        "<TABLE><TBODY><TR><TD>a</TD><TH>BRASS</TH></TR><TR><TD>LAMP</TD><TD>b</TD></TR></TBODY></TABLE>");
    row("words and a cell", "<P>brass</P><TABLE><TBODY><TR><TD>lamp</TD><TD>x</TD></TR></TBODY></TABLE>",
        "ass", "lamp", "<P>brASS</P><TABLE><TBODY><TR><TD>LAMP</TD><TD>x</TD></TR></TBODY></TABLE>");
    row("entries", "<UL><LI>brass</LI><LI>lamp</LI><LI>new</LI></UL>", "ass", "lamp",
        "<UL><LI>brASS</LI><LI>LAMP</LI><LI>new</LI></UL>");
    row("entries of two levels", "<OL><LI>a<UL><LI>brass</LI></UL></LI><LI>lamp</LI></OL><P>new</P>", "brass",
        "ne", "<OL><LI>a<UL><LI>BRASS</LI></UL></LI><LI>LAMP</LI></OL><P>NEw</P>");
    row("quotation", "<BLOCKQUOTE><P>brass</P></BLOCKQUOTE><P>lamp</P>", "brass", "lamp",
        "<BLOCKQUOTE><P>BRASS</P></BLOCKQUOTE><P>LAMP</P>");
    row("a bold word", "<P>a <B>brass</B> lamp</P>", "brass", "brass", "<P>a <B>BRASS</B> lamp</P>");
    row("a coloured word", "<P>a <FONT color=red size=4>brass</FONT> lamp</P>", "brass", "brass",
        "<P>a <FONT color=red size=4>BRASS</FONT> lamp</P>");
    row("letters of a styled word", "<P><SPAN style=\"color: red\">brass</SPAN> lamp</P>", "ras", "ras",
        "<P><SPAN style=\"color: red\">bRASs</SPAN> lamp</P>");
    row("a word of two formats", "<P>a <FONT color=red>br<B>ass</B></FONT></P>", "brass", "brass",
        "<P>a <FONT color=red>BR<B>ASS</B></FONT></P>");
    row("a letter of a link", "<P>a<A href=x>b</A>c</P>", "b", "b", "<P>a<A href=x>B</A>c</P>");
    row("a letter that becomes two", "<P>Stra<B>ße</B>n</P>", "aße", "e", "<P>StrA<B>SSE</B>n</P>");
    row("a letter of two units", "<P>\U00010428\U00010429 x</P>", "\U00010429", "x",
        "<P>\U00010428\U00010401 X</P>");
    row("what nobody sees", "<P><SPAN style=\"display:none\">a</SPAN>b</P>", "a", "b",
        "<P><SPAN style=\"display:none\">A</SPAN>B</P>");
    row("what is in capitals", "<P>A <B>B</B></P>", "A", "B", "<P>A <B>B</B></P>");
}

/// Only letters change, and they stay selected.
void TestSurfaceSpelling::lettersOfASelection()
{
    QFETCH(QString, html);
    QFETCH(QString, first);
    QFETCH(QString, last);
    QFETCH(QString, changed);
    Surface surface(html);
    QVERIFY(surface.select(first, last));
    const QString selected = surface.selectedText();
    QVERIFY(surface.capitals());
    QCOMPARE(surface.body(), changed);
    QCOMPARE(surface.selectedText(), selected.toUpper());
    if (changed == html)
        return;
    QVERIFY(surface.execCommand("Undo"));
    QCOMPARE(surface.body(), html);
    QCOMPARE(surface.selectedText(), selected);
    QVERIFY(surface.execCommand("Redo"));
    QCOMPARE(surface.body(), changed);
}

/// What was done before and after goes and comes back in its order.
void TestSurfaceSpelling::lettersAmongOtherSteps()
{
    Surface surface("<P>a <B>bb</B></P>");
    QStringList steps = {"<P>a <B>bb</B></P>"};
    const auto step = [&](bool isDone, const char* body) {
        QVERIFY(isDone);
        QCOMPARE(surface.body(), QString::fromLatin1(body));
        steps << surface.body();
    };
    QVERIFY(surface.select("bb", "bb"));
    step(surface.execCommand("InsertText", "cc"), "<P>a <B>cc</B></P>");
    QVERIFY(surface.select("a", "cc"));
    step(surface.capitals(), "<P>A <B>CC</B></P>");
    step(surface.smallLetters(), "<P>a <B>cc</B></P>");
    QVERIFY(surface.select("a", "a"));
    step(surface.capitals(), "<P>A <B>cc</B></P>");
    step(surface.smallLetters(), "<P>a <B>cc</B></P>");
    step(surface.execCommand("InsertText", "d"), "<P>d <B>cc</B></P>");
    for (int round = 0; round < 2; ++round) {
        for (qsizetype i = steps.size() - 1; i-- > 0;) {
            QVERIFY(surface.execCommand("Undo"));
            QCOMPARE(surface.body(), steps[i]);
        }
        for (const QString& body : steps.sliced(1)) {
            QVERIFY(surface.execCommand("Redo"));
            QCOMPARE(surface.body(), body);
        }
    }
    for (int i = 0; i < 5; ++i)
        QVERIFY(surface.execCommand("Undo"));
    QVERIFY(surface.select("cc", "cc"));
    step(surface.capitals(), "<P>a <B>CC</B></P>"); // in place of what was taken back
    static_cast<void>(surface.execCommand("Redo")); // there is nothing
    QCOMPARE(surface.body(), "<P>a <B>CC</B></P>");
    QVERIFY(surface.execCommand("Undo"));
    QCOMPARE(surface.body(), "<P>a <B>cc</B></P>");
}

/// The page has that key itself.
void TestSurfaceSpelling::lettersByTheKeyOfUndo()
{
    const QString html = "<P>a <B>bb</B></P>";
    Surface surface(html);
    QTRY_VERIFY(surface.inputWidget());
    surface.setFocus();
    QVERIFY(surface.select("a", "bb"));
    QVERIFY(surface.capitals());
    QTest::keyClick(surface.inputWidget(), Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(surface.body(), html);
}

/// A change that the engine refuses changes nothing.
void TestSurfaceSpelling::lettersThatCantBeEdited()
{
    const QString html = "<P contenteditable=false>brass</P>";
    Surface surface(html);
    QVERIFY(surface.select("ras", "s"));
    QVERIFY(!surface.capitals());
    QCOMPARE(surface.body(), html);
    QCOMPARE(surface.selectedText(), "ras");
}

/// What acts on letters calls what a document has, not what a page gives the same name.
void TestSurfaceSpelling::pagesThatHideNames()
{
    const QString pictures =
        picturesNamed({"adoptedStyleSheets", "createTreeWalker", "createRange", "createElement", "body",
                       "execCommand", "addEventListener", "getSelection"});
    Surface surface("<p>a <b>brass</b> lamp</p><form><input name=localName><input name=parentNode>x</form>" +
                    pictures);
    QCOMPARE(surface.letters().text.section(QChar(0x2029), 0, 0), "a brass lamp");
    QVERIFY(surface.select("brass", "lamp"));
    QCOMPARE(surface.selectedText(), "brass lamp");
    QVERIFY(surface.capitals());
    QVERIFY2(surface.body().startsWith("<P>a <B>BRASS</B> LAMP</P>"), qPrintable(surface.body()));
    QVERIFY(surface.execCommand("Undo"));
    QVERIFY2(surface.body().startsWith("<P>a <B>brass</B> lamp</P>"), qPrintable(surface.body()));
}

void TestSurfaceSpelling::livePagesThatHideNames()
{
    LivePage page;
    page.resize(300, 200);
    page.show();
    page.writeSoon("<form data-place=0 style=\"width: 900px\">x" + picturesNamed({"style width=400"}) +
                   "</form>" + picturesNamed({"images", "scrollingElement", "addEventListener"}));
    QTRY_VERIFY(!WebProbe::isWriting(page));
    const auto widths = std::make_shared<LivePage::Widths>(); // the last answer may come later
    const auto isTold = [&] {
        page.askWidths([widths](const LivePage::Widths& told) { *widths = told; });
        return widths->width >= 900;
    };
    QTRY_VERIFY2(isTold(), qPrintable(QString::number(widths->width)));
    QCOMPARE(widths->widest, 0);
}

WEB_TEST_MAIN(TestSurfaceSpelling)
#include "tst_surfacespelling.moc"
