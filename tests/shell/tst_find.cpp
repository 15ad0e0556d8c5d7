// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "shell/Find.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QTabBar>
#include <QToolBar>

using namespace brindlemark;

namespace {

const QString Done = QStringLiteral("MsgBox|Search|''%1'' - Done replacing.|None|Ok");
const QString Missing = QStringLiteral("MsgBox|Not found|'%1' cannot be found.|Exclamation|Ok");

/// A main window with a text, and the window Find as the toolbar opens it.
class Search : public MainWindow
{
public:
    explicit Search(const QByteArray& text)
    {
        web->RichTextBox1->load(text);
        press(Tool::Find);
        if (!isLoaded<Find>() || !QTest::qWaitForWindowActive(form<Find>()))
            QTest::qFail("the window Find does not open", __FILE__, __LINE__);
        find = form<Find>();
    }

    Find* find = nullptr;

    static void click(QAbstractButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    static void tick(CheckBox* box)
    {
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    }
    /// Writes over what a field holds, with keys.
    static void write(ComboBox* field, const QString& text)
    {
        field->lineEdit()->selectAll();
        QTest::keyClick(field->lineEdit(), Qt::Key_Delete);
        QTest::keyClicks(field->lineEdit(), text);
    }
    /// The selection as "position+length".
    QString selection() const
    {
        const RichTextBox& box = *web->RichTextBox1;
        return QStringLiteral("%1+%2").arg(box.SelStart()).arg(box.SelLength());
    }
};

QString plain(QString caption)
{
    return caption.remove(u'&');
}

} // namespace

class TestFind : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void texts();
    void topmostAtTheSideWithTheFieldReady();
    void menuEntryShowsItToo();
    void shownAgainIsTheSameWindow();
    void onPreviewTheSurfaceSearches();
    void onPreviewWithDesignOffThePreviewSearches();
    void onInternetNothingHappens();
    void boxesSetTheFlags();
    void findStaysAtTheSamePlace();
    void findNextWalksAndThenFailsForGood();
    void hitAtTheStartIsToldAsNotFound();
    void missingText();
    void emptySearchSaysNothing();
    void findGivesTheSourceTheKeyboard();
    void findOnThePreviewTabLeavesTheSurfaceTheKeyboard();
    void options_data();
    void options();
    void replaceTakesTheSelectionAndGoesOn();
    void searchAfterReplaceBeginsAtNextStart();
    void replaceWithoutSelectionDoesNothing();
    void replaceNeedsBothTexts();
    void replaceAll_data();
    void replaceAll();
    void replaceAllOfNothing();
    void replaceAllIgnoresBothBoxes();
    void replaceAllIsOneUndoStep();
    void replaceAllNeedsBothTexts();
    void replaceAllInWesternText();
    void replaceAllOfManyHits();
    void replaceAllShowsTheHourglass();
    void veryLongTexts();
    void positionsAreBytes();
    void unloadForgetsAll();
    void enterFindsAndEscapeCloses();
    void escapeInTheSourceCloses();
    void isContained();
    void everyControlIsReachedByTab();
};

void TestFind::cleanup()
{
    unloadAll();
}

void TestFind::texts()
{
    const Search search("");
    const Find& find = *search.find;
    QCOMPARE(find.windowTitle(), QStringLiteral("Find and Sreach"));
    QCOMPARE(plain(find.Label1->text()), QStringLiteral("Find what:"));
    QCOMPARE(plain(find.Label2->text()), QStringLiteral("Replace with:"));
    QCOMPARE(find.Label1->buddy(), find.Text1);
    QCOMPARE(find.Label2->buddy(), find.Text2);
    const QList<QPair<QAbstractButton*, QString>> captions = {
        {find.Check1, QStringLiteral("Case sensitive")}, {find.Check2, QStringLiteral("Whole word only")},
        {find.Command8, QStringLiteral("Find")},         {find.Command3, QStringLiteral("Find Next")},
        {find.Command7, QStringLiteral("Replace")},      {find.Command6, QStringLiteral("Replace All")},
        {find.Command5, QStringLiteral("Cancel")},
    };
    for (const auto& [control, caption] : captions)
        QCOMPARE(plain(control->text()), caption);
    QVERIFY(find.Text1->isEditable());
    QVERIFY(find.Text2->isEditable());
    QCOMPARE(find.Text1->Text(), QString());
    QCOMPARE(find.Text2->Text(), QString());
    QCOMPARE(find.CaseFlag, FindOptions());
    QCOMPARE(find.WordFlag, FindOptions());
    QCOMPARE(find.NextStart, 0);
}

void TestFind::topmostAtTheSideWithTheFieldReady()
{
    const Search search("");
    QVERIFY(search.find->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(!search.find->isModal());
    QVERIFY(search.find->Text1->lineEdit()->hasFocus());
    const QRect screen = search.find->screen()->availableGeometry();
    QVERIFY2(screen.contains(search.find->geometry()), qPrintable(QStringLiteral("%1,%2 in %3x%4")
                                                                      .arg(search.find->geometry().right())
                                                                      .arg(search.find->geometry().bottom())
                                                                      .arg(screen.width())
                                                                      .arg(screen.height())));
    // The beginnings of the source's lines stay free.
    QVERIFY(search.find->geometry().right() > search.web->geometry().right() - 40);
}

void TestFind::menuEntryShowsItToo()
{
    MainWindow window;
    window.choose(window.web->MnEdit, window.web->munfind);
    QTRY_VERIFY(isLoaded<Find>() && form<Find>()->isVisible());
}

void TestFind::shownAgainIsTheSameWindow()
{
    Search search("a word");
    Search::write(search.find->Text1, QStringLiteral("word"));
    for (ComboBox* last : {search.find->Text2, search.find->Text1}) {
        last->setFocus();
        search.web->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(search.web));
        search.press(Tool::Find);
        QCOMPARE(form<Find>(), search.find);
        QTRY_VERIFY(search.find->Text1->lineEdit()->hasFocus());
        QCOMPARE(search.find->Text1->lineEdit()->selectedText(), QStringLiteral("word"));
        search.find->Text1->lineEdit()->deselect();
    }
}

void TestFind::onPreviewTheSurfaceSearches()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    window.press(Tool::Find);
    QVERIFY(!isLoaded<Find>());
    auto* bar = window.web->findChild<QWidget*>(QStringLiteral("WebBrowser1FindBar"));
    QVERIFY(bar);
    QTRY_VERIFY(bar->isVisible());
}

void TestFind::onPreviewWithDesignOffThePreviewSearches()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton, {}, QPoint(8, window.web->Option2->height() / 2));
    QVERIFY(window.web->Option2->Value());
    window.press(Tool::Find);
    QVERIFY(!isLoaded<Find>());
    auto* bar = window.web->findChild<QWidget*>(QStringLiteral("WebBrowser3FindBar"));
    QVERIFY(bar);
    QTRY_VERIFY(bar->isVisible());
}

void TestFind::onInternetNothingHappens()
{
    MainWindow window;
    window.showTab(FrmWeb::InternetTab);
    window.web->munfind->trigger();
    QVERIFY(!isLoaded<Find>());
    for (const char* bar : {"WebBrowser1FindBar", "WebBrowser3FindBar"})
        QVERIFY(!window.web->findChild<QWidget*>(QLatin1String(bar))->isVisible());
}

void TestFind::boxesSetTheFlags()
{
    Search search("");
    Find& find = *search.find;
    find.Text2->setFocus();
    Search::tick(find.Check1);
    QCOMPARE(find.CaseFlag, FindOptions(MatchCase));
    QCOMPARE(find.WordFlag, FindOptions());
    QVERIFY(find.Text1->lineEdit()->hasFocus());
    find.Text2->setFocus();
    Search::tick(find.Check2);
    QCOMPARE(find.CaseFlag, FindOptions(MatchCase));
    QCOMPARE(find.WordFlag, FindOptions(WholeWord));
    QVERIFY(find.Text1->lineEdit()->hasFocus());
    Search::tick(find.Check1);
    Search::tick(find.Check2);
    QCOMPARE(find.CaseFlag, FindOptions());
    QCOMPARE(find.WordFlag, FindOptions());
}

void TestFind::findStaysAtTheSamePlace()
{
    Search search("x one one");
    Search::write(search.find->Text1, QStringLiteral("ONE"));
    for (int i = 0; i < 2; ++i) {
        Search::click(search.find->Command8);
        QCOMPARE(search.selection(), QStringLiteral("2+3"));
        QCOMPARE(search.find->NextStart, 0);
    }
    // Behind a step of "Find Next" as well, which it takes as its beginning.
    Search::click(search.find->Command3);
    QCOMPARE(search.find->NextStart, 3);
    for (int i = 0; i < 2; ++i) {
        Search::click(search.find->Command8);
        QCOMPARE(search.selection(), QStringLiteral("6+3"));
        QCOMPARE(search.find->NextStart, 3);
    }
    QCOMPARE(search.doors.asked, QStringList());
}

void TestFind::findNextWalksAndThenFailsForGood()
{
    Search search("x one one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::click(search.find->Command3);
    QCOMPARE(search.selection(), QStringLiteral("2+3"));
    QCOMPARE(search.find->NextStart, 3);
    Search::click(search.find->Command3);
    QCOMPARE(search.selection(), QStringLiteral("6+3"));
    QCOMPARE(search.find->NextStart, 7);
    for (QPushButton* button : {search.find->Command3, search.find->Command8, search.find->Command3}) {
        search.doors.answerMsgBox(MsgAnswer::Ok);
        Search::click(button);
        QCOMPARE(search.doors.takeAsked(), QStringList(Missing.arg(QStringLiteral("one"))));
        QCOMPARE(search.find->NextStart, 7);
        QCOMPARE(search.selection(), QStringLiteral("6+3"));
    }
}

void TestFind::hitAtTheStartIsToldAsNotFound()
{
    Search search("one two one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    for (QPushButton* button : {search.find->Command8, search.find->Command3}) {
        search.web->RichTextBox1->setSelStart(5);
        search.doors.answerMsgBox(MsgAnswer::Ok);
        Search::click(button);
        QCOMPARE(search.doors.takeAsked(), QStringList(Missing.arg(QStringLiteral("one"))));
        QCOMPARE(search.selection(), QStringLiteral("0+3"));
        QCOMPARE(search.find->NextStart, 0);
    }
}

void TestFind::missingText()
{
    Search search("one two");
    search.web->RichTextBox1->setSelStart(2);
    Search::write(search.find->Text1, QStringLiteral("<B>'three'"));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command8);
    QCOMPARE(search.doors.asked, QStringList(Missing.arg(QStringLiteral("<B>'three'"))));
    QCOMPARE(search.selection(), QStringLiteral("2+0"));
}

void TestFind::emptySearchSaysNothing()
{
    Search search("one two");
    for (QPushButton* button : {search.find->Command8, search.find->Command3}) {
        Search::click(button);
        QCOMPARE(search.doors.asked, QStringList());
        QCOMPARE(search.selection(), QStringLiteral("0+0"));
        QCOMPARE(search.find->NextStart, 0);
        QTRY_VERIFY(search.web->RichTextBox1->hasFocus());
    }
}

void TestFind::findGivesTheSourceTheKeyboard()
{
    Search search("a word");
    for (QPushButton* button : {search.find->Command8, search.find->Command3}) {
        search.web->SSTab1->tabBar()->setFocus(); // not where the keyboard goes back to by itself
        search.press(Tool::Find);
        QTRY_VERIFY(search.find->Text1->lineEdit()->hasFocus());
        Search::write(search.find->Text1, QStringLiteral("word"));
        Search::click(button);
        QTRY_VERIFY(search.web->RichTextBox1->hasFocus());
        QVERIFY(search.find->isVisible());
    }
}

/// While another tab covers the source, its view keeps the keyboard: nobody types where nobody looks.
void TestFind::findOnThePreviewTabLeavesTheSurfaceTheKeyboard()
{
    Search search("<P>a word</P>");
    search.web->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(search.web));
    search.showTab(FrmWeb::PreviewTab);
    const DocumentSurface* surface = search.web->WebBrowser1;
    QTRY_VERIFY(surface->inputWidget() && surface->inputWidget()->hasFocus());
    search.find->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(search.find));
    Search::write(search.find->Text1, QStringLiteral("word"));
    Search::click(search.find->Command8);
    QCOMPARE(search.selection(), QStringLiteral("5+4"));
    QTRY_VERIFY(surface->inputWidget()->hasFocus());
    QVERIFY(search.find->isVisible());
}

void TestFind::options_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<bool>("wholeWord");
    QTest::addColumn<QString>("selection");
    const auto row = [](const char* text, const char* wanted, bool matchCase, bool wholeWord,
                        const char* selection) {
        QTest::addRow("%s in %s, %d %d", wanted, text, matchCase, wholeWord)
            << QString::fromUtf8(text) << QString::fromUtf8(wanted) << matchCase << wholeWord
            << QString::fromUtf8(selection);
    };
    row(". Words words word", "word", false, false, "2+4");
    row(". Words words word", "word", true, false, "8+4");
    row(". Words words word", "word", false, true, "14+4");
    row(". Word words word", "word", true, true, "13+4");
    row(". \xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89", false, false, "2+5"); // Été and éTÉ
    row(". \xC3\x9F", "\xE1\xBA\x9E", false, false, "2+2");               // ß and its capital, three bytes
    row(". stra\xC3\x9F"
        "e", // ß is one letter
        "strasse", false, false, "");
    row(". I \xC4\xB0 i", "\xC4\xB0", true, false, "4+2"); // İ
    row(". I \xC4\xB0 i", "\xC4\xB0", false, false, "4+2");
    row(". a\xF0\x9F\x98\x80z", "\xF0\x9F\x98\x80", false, false, "3+4"); // an emoji
    row(". a\r\nb", "a\r\nb", false, false, "2+4");
    row(". a\r\nb", "a\nb", false, false, "");
}

void TestFind::options()
{
    QFETCH(QString, text);
    QFETCH(QString, wanted);
    QFETCH(bool, matchCase);
    QFETCH(bool, wholeWord);
    QFETCH(QString, selection);
    Search search(text.toUtf8());
    if (matchCase)
        Search::tick(search.find->Check1);
    if (wholeWord)
        Search::tick(search.find->Check2);
    search.find->Text1->setText(wanted);
    if (selection.isEmpty())
        search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command3);
    QCOMPARE(search.selection(), selection.isEmpty() ? QStringLiteral("0+0") : selection);
}

void TestFind::replaceTakesTheSelectionAndGoesOn()
{
    Search search("x one one one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::write(search.find->Text2, QStringLiteral("three"));
    Search::click(search.find->Command3);
    Search::click(search.find->Command7);
    QCOMPARE(search.source(), QByteArray("x three one one"));
    QCOMPARE(search.selection(), QStringLiteral("8+3"));
    QCOMPARE(search.find->NextStart, 3);
    Search::click(search.find->Command7);
    QCOMPARE(search.source(), QByteArray("x three three one"));
    Search::click(search.find->Command7);
    QCOMPARE(search.source(), QByteArray("x three three three"));
    QCOMPARE(search.selection(), QStringLiteral("19+0")); // nothing more, and nothing said
    QCOMPARE(search.doors.asked, QStringList());
    search.web->RichTextBox1->undo();
    QCOMPARE(search.source(), QByteArray("x three three one"));
}

/// The search behind a replacement begins where the last "Find Next" left off, whatever was replaced.
void TestFind::searchAfterReplaceBeginsAtNextStart()
{
    {
        Search search("x one one one");
        Search::write(search.find->Text1, QStringLiteral("one"));
        Search::write(search.find->Text2, QStringLiteral("two one"));
        Search::click(search.find->Command3);
        QCOMPARE(search.find->NextStart, 3);
        Search::click(search.find->Command7);
        QCOMPARE(search.source(), QByteArray("x two one one one"));
        QCOMPARE(search.selection(), QStringLiteral("6+3")); // in the new text: in front of the caret
    }
    Search search("x one one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::write(search.find->Text2, QStringLiteral("1"));
    Search::click(search.find->Command3);
    Search::click(search.find->Command3);
    QCOMPARE(search.find->NextStart, 7);
    Search::click(search.find->Command7);
    QCOMPARE(search.source(), QByteArray("x one 1"));
    QCOMPARE(search.selection(), QStringLiteral("7+0")); // the first one lies before
    QCOMPARE(search.doors.asked, QStringList());
}

void TestFind::replaceWithoutSelectionDoesNothing()
{
    Search search("x one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::write(search.find->Text2, QStringLiteral("two"));
    Search::click(search.find->Command7);
    QCOMPARE(search.source(), QByteArray("x one"));
    QCOMPARE(search.selection(), QStringLiteral("0+0"));
}

void TestFind::replaceNeedsBothTexts()
{
    Search search("x one");
    search.web->RichTextBox1->setSelLength(1);
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::click(search.find->Command7);
    QCOMPARE(search.source(), QByteArray("x one"));
    Search::write(search.find->Text1, QString());
    Search::write(search.find->Text2, QStringLiteral("two"));
    Search::click(search.find->Command7);
    QCOMPARE(search.source(), QByteArray("x one"));
    QCOMPARE(search.selection(), QStringLiteral("0+1"));
}

void TestFind::replaceAll_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("find");
    QTest::addColumn<QString>("with");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* text, const char* find, const char* with, const char* result) {
        QTest::addRow("%s: %s by %s", text, find, with)
            << QString::fromUtf8(text) << QString::fromUtf8(find) << QString::fromUtf8(with)
            << QString::fromUtf8(result);
    };
    row("one two one", "one", "1", "1 two 1"); // from the very start to the very end
    row("A a A", "a", "b", "A b A");
    row("aaab", "ab", "b", "aab"); // one pass: what came of it is left
    row("aaaa", "aa", "aaa", "aaaaaa");
    row("a", "a", "aa", "aa"); // the new text may hold the old one
    row("none", "x", "y", "none");
    row("", "x", "y", "");
    row("a\r\nb\r\n", "\r\n", "<BR>\r\n", "a<BR>\r\nb<BR>\r\n");
    row("stra\xC3\x9F"
        "e \xF0\x9F\x98\x80",
        "\xC3\x9F", "ss", "strasse \xF0\x9F\x98\x80");
    row("\xF0\x9F\x98\x80\xF0\x9F\x98\x81", "\xF0\x9F\x98\x81", "x", "\xF0\x9F\x98\x80x");
}

void TestFind::replaceAll()
{
    QFETCH(QString, text);
    QFETCH(QString, find);
    QFETCH(QString, with);
    QFETCH(QString, result);
    Search search(text.toUtf8());
    search.find->Text1->setText(find);
    search.find->Text2->setText(with);
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command6);
    QCOMPARE(search.source(), result.toUtf8());
    QCOMPARE(search.doors.asked, QStringList(Done.arg(with)));
}

/// The text is set all the same: the caret goes to the start, the document counts as changed, and the message
/// is shown.
void TestFind::replaceAllOfNothing()
{
    for (const char* text : {"none", ""}) {
        Search search(text);
        search.web->RichTextBox1->setSelStart(2);
        search.web->document().setDirty(false);
        Search::write(search.find->Text1, QStringLiteral("x"));
        Search::write(search.find->Text2, QStringLiteral("y"));
        search.doors.answerMsgBox(MsgAnswer::Ok);
        Search::click(search.find->Command6);
        QCOMPARE(search.doors.asked, QStringList(Done.arg(QStringLiteral("y"))));
        QCOMPARE(search.source(), QByteArray(text));
        QCOMPARE(search.selection(), QStringLiteral("0+0"));
        QCOMPARE(search.web->Dirty(), *text != 0);
    }
}

void TestFind::replaceAllIgnoresBothBoxes()
{
    for (const bool ticked : {false, true}) {
        Search search("word Word words");
        if (ticked) {
            Search::tick(search.find->Check1);
            Search::tick(search.find->Check2);
        }
        Search::write(search.find->Text1, QStringLiteral("word"));
        Search::write(search.find->Text2, QStringLiteral("x"));
        search.doors.answerMsgBox(MsgAnswer::Ok);
        Search::click(search.find->Command6);
        QCOMPARE(search.source(), QByteArray("x Word xs"));
    }
}

void TestFind::replaceAllIsOneUndoStep()
{
    Search search("a b a b a");
    Search::write(search.find->Text1, QStringLiteral("a"));
    Search::write(search.find->Text2, QStringLiteral("long"));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command6);
    QCOMPARE(search.source(), QByteArray("long b long b long"));
    QVERIFY(search.web->Dirty());
    search.web->RichTextBox1->undo();
    QCOMPARE(search.source(), QByteArray("a b a b a"));
    search.web->RichTextBox1->redo();
    QCOMPARE(search.source(), QByteArray("long b long b long"));
}

void TestFind::replaceAllNeedsBothTexts()
{
    Search search("one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::click(search.find->Command6);
    Search::write(search.find->Text1, QString());
    Search::write(search.find->Text2, QStringLiteral("two"));
    Search::click(search.find->Command6);
    QCOMPARE(search.source(), QByteArray("one"));
    QCOMPARE(search.doors.asked, QStringList());
}

/// Each byte is a letter there, and stays one: the text that remains must not be taken for UTF-8.
void TestFind::replaceAllInWesternText()
{
    Search search("\xE9 caf\xE9 \xC3\xA9.\xFF");
    search.find->Text1->setText(QStringLiteral("\u00E9"));
    search.find->Text2->setText(QStringLiteral("\u00E8"));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command6);
    QCOMPARE(search.source(), QByteArray("\xE8 caf\xE8 \xC3\xA9.\xFF"));
    search.find->Text1->setText(QStringLiteral("\u00FF"));
    search.find->Text2->setText(QStringLiteral("y"));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command6);
    search.find->Text1->setText(QStringLiteral("\u00E8"));
    search.find->Text2->setText(QStringLiteral("e"));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command6);
    QCOMPARE(search.source(), QByteArray("e cafe \xC3\xA9.y"));
    QVERIFY(search.web->RichTextBox1->textEncoding() == TextEncoding::Western);
}

void TestFind::replaceAllOfManyHits()
{
    const QByteArray text = QByteArray("<TD>\r\n").repeated(100'000);
    Search search(text);
    Search::write(search.find->Text1, QStringLiteral("TD"));
    Search::write(search.find->Text2, QStringLiteral("TDTD"));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command6);
    QVERIFY(search.source() == QByteArray(text).replace("TD", "TDTD"));
}

/// It stands until the new text is in the box, and no longer.
void TestFind::replaceAllShowsTheHourglass()
{
    Search search("a b a");
    Search::write(search.find->Text1, QStringLiteral("a"));
    Search::write(search.find->Text2, QStringLiteral("c"));
    QList<bool> hourglass;
    connect(search.web->RichTextBox1, &RichTextBox::Change, search.find, [&hourglass] {
        const QCursor* pointer = QGuiApplication::overrideCursor();
        hourglass << (pointer && pointer->shape() == Qt::WaitCursor);
    });
    search.doors.answerMsgBox(MsgAnswer::Ok); // fails over an hourglass that still stands
    Search::click(search.find->Command6);
    QCOMPARE(search.source(), QByteArray("c b c"));
    QCOMPARE(hourglass, QList<bool>{true});
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestFind::veryLongTexts()
{
    const QByteArray part = QByteArray("<TR><TD>12.50\r\n").repeated(70'000); // a megabyte
    Search search("a" + part + "b");
    search.find->Text1->setText(QString::fromLatin1(part));
    QCOMPARE(search.find->Text1->Text().size(), part.size()); // the field cuts nothing off
    search.find->Text2->setText(QStringLiteral("short"));
    Search::click(search.find->Command8);
    QCOMPARE(search.selection(), QStringLiteral("1+%1").arg(part.size()));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command6);
    QCOMPARE(search.source(), QByteArray("ashortb"));
    search.doors.answerMsgBox(MsgAnswer::Ok);
    Search::click(search.find->Command8);
    QVERIFY(search.doors.asked.constLast() == Missing.arg(QString::fromLatin1(part)));
}

void TestFind::positionsAreBytes()
{
    Search search("\xC3\xA9\xC3\xA9 one one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::click(search.find->Command3);
    QCOMPARE(search.selection(), QStringLiteral("5+3"));
    QCOMPARE(search.find->NextStart, 6);
}

void TestFind::unloadForgetsAll()
{
    Search search("x one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    Search::tick(search.find->Check1);
    Search::click(search.find->Command3);
    QCOMPARE(search.find->NextStart, 3);
    Search::click(search.find->Command5);
    QVERIFY(!isLoaded<Find>());
    search.press(Tool::Find);
    const Find* again = form<Find>();
    QCOMPARE(again->NextStart, 0);
    QCOMPARE(again->CaseFlag, FindOptions());
    QCOMPARE(again->Text1->Text(), QString());
    QCOMPARE(again->Text1->ListCount(), 0);
}

void TestFind::enterFindsAndEscapeCloses()
{
    Search search("x one");
    Search::write(search.find->Text1, QStringLiteral("one"));
    for (QWidget* control : QList<QWidget*>{search.find->Text1->lineEdit(), search.find->Text2->lineEdit(),
                                            search.find->Check1}) {
        search.web->RichTextBox1->setSelStart(0);
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        QCOMPARE(search.selection(), QStringLiteral("2+3"));
    }
    search.press(Tool::Find);
    QTRY_VERIFY(search.find->Text1->lineEdit()->hasFocus());
    QTest::keyClick(search.find->Text1->lineEdit(), Qt::Key_Escape);
    QVERIFY(!isLoaded<Find>());
}

/// A search gives the source the keyboard; what stands open there goes first.
void TestFind::escapeInTheSourceCloses()
{
    Search search("lamp <B>word");
    Search::write(search.find->Text1, QStringLiteral("word"));
    QTest::keyClick(search.find->Text1->lineEdit(), Qt::Key_Return);
    const RichTextBox* source = search.web->RichTextBox1;
    QTRY_VERIFY(source->hasFocus());
    const auto press = [&](Qt::Key key) { QTest::keyClick(search.web->RichTextBox1, key); };
    press(Qt::Key_Escape);
    QVERIFY(!isLoaded<Find>());
    QCOMPARE(search.selection(), QStringLiteral("8+4"));
    QVERIFY(source->hasFocus());

    search.press(Tool::Find);
    QTRY_VERIFY(form<Find>()->Text1->lineEdit()->hasFocus());
    search.web->activateWindow();
    QTRY_VERIFY(source->hasFocus());
    press(Qt::Key_End);
    search.type(QStringLiteral("</"));
    const auto* offers = search.web->findChild<QListWidget*>(QStringLiteral("Offers"));
    QVERIFY(offers && offers->isVisible());
    press(Qt::Key_Escape);
    QVERIFY(!offers->isVisible());
    QVERIFY(isLoaded<Find>());
    press(Qt::Key_Escape);
    QVERIFY(!isLoaded<Find>());
    QCOMPARE(search.source(), QByteArray("lamp <B>word</"));
}

void TestFind::isContained()
{
    const Search search("");
    ComboBox list;
    QVERIFY(!search.find->IsContained(list, QString()));
    for (const char* entry : {"first", "Second", "last"})
        list.AddItem(QLatin1String(entry));
    for (const char* entry : {"first", "Second", "last"})
        QVERIFY(search.find->IsContained(list, QLatin1String(entry)));
    for (const char* text : {"", "second", "las", "last "})
        QVERIFY(!search.find->IsContained(list, QLatin1String(text)));
}

void TestFind::everyControlIsReachedByTab()
{
    const Search search("");
    const Find& find = *search.find;
    const QList<QWidget*> order = {find.Text1,    find.Text2,    find.Check1,   find.Check2,  find.Command8,
                                   find.Command3, find.Command7, find.Command6, find.Command5};
    for (auto i : order) {
        QWidget* now = QApplication::focusWidget();
        QVERIFY2(now == i || now->parentWidget() == i, qPrintable(i->objectName()));
        QVERIFY(!i->toolTip().isEmpty());
        QTest::keyClick(now, Qt::Key_Tab);
    }
}

WEB_TEST_MAIN(TestFind)
#include "tst_find.moc"
