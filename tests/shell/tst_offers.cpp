// SPDX-License-Identifier: GPL-3.0-or-later

// What the source box offers while one types, by real keys and clicks.

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QListWidget>
#include <QMimeData>
#include <QTest>
#include <QToolBar>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    /// With the caret behind a text.
    explicit Desk(const QByteArray& text)
    {
        if (!QTest::qWaitForWindowActive(web))
            QTest::qFail("the window doesn't get the keyboard", __FILE__, __LINE__);
        web->RichTextBox1->load(text);
        web->RichTextBox1->setSelStart(int(text.size()));
        web->RichTextBox1->setFocus();
    }
    QListWidget* list() const { return web->findChild<QListWidget*>(QStringLiteral("Offers")); }
    bool isOpen() const { return list() && list()->isVisible(); }
    QStringList offered() const
    {
        QStringList entries;
        for (int row = 0; isOpen() && row < list()->count(); ++row)
            entries << list()->item(row)->text();
        return entries;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(web->RichTextBox1, key, modifiers);
    }
    void type(const char* text) const { MainWindow::type(QString::fromLatin1(text)); }
    /// In the window.
    QRect lineOfCaret() const
    {
        const RichTextBox* box = web->RichTextBox1;
        const QRect seen = box->seenAt(box->SelStart());
        return {box->viewport()->mapTo(web, seen.topLeft()), seen.size()};
    }
};

const QByteArray Cell = "<TABLE><TR><TD>lamp";
const QStringList OfCell = {"TD>", "TR>", "TABLE>"};

} // namespace

class TestOffers : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void tabTakesTheFirst();
    void enterIsALine();
    void arrowsThenEnter();
    void arrowsThenTab();
    void escapeClosesTheListAlone();
    void clickTakes();
    void takenInOneStep();
    void typingNarrows();
    void otherKeysClose_data();
    void otherKeysClose();
    void attributes();
    void colors();
    void plainTextOpensNothing();
    void pastesOpenNothing();
    void inputMethod();
    void readOnly();
    void losesTheKeyboard();
    void anotherTab();
    void caretMoves();
    void scrolls();
    void liesInTheWindow();
    void followsTheZoom();
    void westernText();
    void overASelection();
    void switchedOff();
    void settings_data();
    void settings();
};

void TestOffers::cleanup()
{
    const ScriptedDoors doors; // the unload of a window that is left must not end the test
    unloadAll();
}

void TestOffers::tabTakesTheFirst()
{
    const Desk desk(Cell);
    desk.type("<");
    QVERIFY(!desk.isOpen());
    desk.type("/");
    QCOMPARE(desk.offered(), OfCell);
    QCOMPARE(desk.list()->accessibleName(), QStringLiteral("Offers"));
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), Cell + "</TD>");
    QCOMPARE(desk.web->RichTextBox1->SelStart(), int(desk.source().size()));
    QCOMPARE(desk.web->RichTextBox1->SelLength(), 0);
    QVERIFY(!desk.isOpen());
    desk.press(Qt::Key_Tab); // types again
    QCOMPARE(desk.source(), Cell + "</TD>\t");
}

void TestOffers::enterIsALine()
{
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        const Desk desk(Cell);
        desk.type("</");
        QVERIFY(desk.isOpen());
        desk.press(enter, enter == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        QCOMPARE(desk.source(), Cell + "</\r\n");
        QVERIFY(!desk.isOpen());
    }
}

void TestOffers::arrowsThenEnter()
{
    const Desk desk(Cell);
    desk.type("</");
    desk.press(Qt::Key_Down);
    desk.press(Qt::Key_Down);
    desk.press(Qt::Key_Return);
    QCOMPARE(desk.source(), Cell + "</TR>");
    desk.type("</");
    desk.press(Qt::Key_Up); // the last one
    desk.press(Qt::Key_Return);
    QCOMPARE(desk.source(), Cell + "</TR></TABLE>");
    QVERIFY(!desk.isOpen());

    const Desk other(Cell);
    other.type("</");
    other.press(Qt::Key_Up);
    other.press(Qt::Key_Return);
    QCOMPARE(other.source(), Cell + "</TABLE>");
}

void TestOffers::arrowsThenTab()
{
    const Desk desk(Cell);
    desk.type("</");
    for (int i = 0; i < 5; ++i) // no further than to the last one
        desk.press(Qt::Key_Down);
    desk.press(Qt::Key_Up);
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), Cell + "</TR>");
}

void TestOffers::escapeClosesTheListAlone()
{
    const Desk desk(Cell);
    desk.type("</");
    desk.press(Qt::Key_Escape);
    QVERIFY(!desk.isOpen());
    QVERIFY(desk.web->RichTextBox1->hasFocus());
    QCOMPARE(desk.source(), Cell + "</");
    desk.type("t"); // it isn't wanted for this tag
    QVERIFY(!desk.isOpen());
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), Cell + "</t\t");
    desk.type("></");
    QCOMPARE(desk.offered(), OfCell);
    desk.press(Qt::Key_Escape);
    desk.press(Qt::Key_Backspace);
    desk.type("/");
    QCOMPARE(desk.offered(), OfCell);
}

void TestOffers::clickTakes()
{
    const Desk desk(Cell);
    desk.type("</");
    const QListWidget* list = desk.list();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    QCOMPARE(desk.source(), Cell + "</TR>");
    QVERIFY(!desk.isOpen());
    QVERIFY(desk.web->RichTextBox1->hasFocus());
    desk.type("x");
    QCOMPARE(desk.source(), Cell + "</TR>x");
}

void TestOffers::takenInOneStep()
{
    const Desk desk(Cell);
    desk.type("</ta");
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), Cell + "</TABLE>");
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), Cell + "</ta");
    desk.web->RichTextBox1->redo();
    QCOMPARE(desk.source(), Cell + "</TABLE>");
    desk.web->RichTextBox1->undo();
    QVERIFY(!desk.isOpen());
}

void TestOffers::typingNarrows()
{
    const Desk desk(Cell);
    desk.type("</t");
    QCOMPARE(desk.offered(), OfCell);
    desk.press(Qt::Key_Down);
    desk.type("a");
    QCOMPARE(desk.offered(), QStringList("TABLE>"));
    QCOMPARE(desk.list()->currentRow(), -1); // what was led to has gone
    desk.type("x");
    QVERIFY(!desk.isOpen());
    QCOMPARE(desk.source(), Cell + "</tax");
}

void TestOffers::otherKeysClose_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers,
                        const QByteArray& text) {
        QTest::newRow(name) << int(key) << int(modifiers.toInt()) << text;
    };
    row("blank", Qt::Key_Space, {}, Cell + "</ ");
    row("angle", Qt::Key_Greater, Qt::ShiftModifier, Cell + "</>");
    row("backspace", Qt::Key_Backspace, {}, Cell + "<");
    row("left", Qt::Key_Left, {}, Cell + "</");
    row("home", Qt::Key_Home, {}, Cell + "</");
    row("end, where nothing moves", Qt::Key_End, {}, Cell + "</");
    row("undo", Qt::Key_Z, Qt::ControlModifier, Cell);
    row("F7", Qt::Key_F7, {}, Cell + "</"); // a key of the window
    row("Enter with Shift", Qt::Key_Return, Qt::ShiftModifier, Cell + "</\r\n");
}

void TestOffers::otherKeysClose()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QByteArray, text);
    const Desk desk(Cell);
    desk.type("</");
    QVERIFY(desk.isOpen());
    desk.press(Qt::Key_Shift); // alone
    QVERIFY(desk.isOpen());
    desk.press(static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    QVERIFY(!desk.isOpen());
    QCOMPARE(desk.source(), text);
}

void TestOffers::attributes()
{
    const Desk desk("<TD");
    desk.type(" ");
    QVERIFY(!desk.isOpen());
    desk.type("w");
    QCOMPARE(desk.offered(), QStringList("width"));
    desk.type("i");
    QCOMPARE(desk.offered(), QStringList("width"));
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), QByteArray("<TD width"));
    desk.type("=40 b");
    QCOMPARE(desk.offered(), QStringList({"background", "bgcolor", "bordercolor"}));
    desk.press(Qt::Key_Escape);
    desk.type("g"); // not asked again for this word
    QVERIFY(!desk.isOpen());
    desk.type(" h");
    QCOMPARE(desk.offered(), QStringList({"headers", "height"}));
    desk.type("eight");
    QVERIFY(!desk.isOpen()); // it is there
    QCOMPARE(desk.source(), QByteArray("<TD width=40 bg height"));
}

void TestOffers::colors()
{
    const QByteArray row = "<TD bgcolor=#804000><TD bgcolor=#FFEECC><TD bgcolor=#804000>";
    const Desk desk(row);
    desk.type("<TD bgcolor=\"#");
    QCOMPARE(desk.offered(), QStringList({"#804000", "#FFEECC"}));
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), row + "<TD bgcolor=\"#804000");
    desk.type("\" style=\"color:bl");
    QCOMPARE(desk.offered(), QStringList({"black", "blue"}));
    desk.press(Qt::Key_Down);
    desk.press(Qt::Key_Down);
    desk.press(Qt::Key_Return);
    QCOMPARE(desk.source(), row + "<TD bgcolor=\"#804000\" style=\"color:blue");
}

/// Whoever writes words meets no list, and there is none.
void TestOffers::plainTextOpensNothing()
{
    const Desk desk(Cell);
    desk.type(" 5/4 wide width color:red #80 <!-- </ w --><b>w");
    QVERIFY(!desk.list());
}

void TestOffers::pastesOpenNothing()
{
    Desk desk(Cell);
    auto clip = std::make_unique<QMimeData>();
    clip->setText(QStringLiteral("</"));
    desk.doors.setClipboard(std::move(clip));
    desk.web->MnPaste->trigger();
    QCOMPARE(desk.source(), Cell + "</");
    QVERIFY(!desk.isOpen());
    desk.web->insert(QStringLiteral("</"), QStringLiteral("Tag"));
    QVERIFY(!desk.isOpen());
}

/// A finished text is typed; while it is being composed, nothing is offered.
void TestOffers::inputMethod()
{
    const Desk desk(Cell);
    const auto send = [&](const char* preedit, const char* commit) {
        QInputMethodEvent event(QString::fromLatin1(preedit), {});
        event.setCommitString(QString::fromLatin1(commit));
        QApplication::sendEvent(desk.web->RichTextBox1, &event);
    };
    send("", "<");
    send("", "/");
    QCOMPARE(desk.offered(), OfCell);
    send("", "ta");
    QCOMPARE(desk.offered(), QStringList("TABLE>"));
    send("b", "");
    QVERIFY(!desk.isOpen());
    send("bl", "");
    QVERIFY(!desk.isOpen());
    QCOMPARE(desk.source(), Cell + "</ta");
    send("", "");
}

void TestOffers::readOnly()
{
    const Desk desk(Cell + "<");
    desk.web->RichTextBox1->setReadOnly(true);
    desk.type("/");
    QVERIFY(!desk.isOpen());
    desk.web->RichTextBox1->setReadOnly(false);
    desk.web->RichTextBox1->setSelText("/");
    desk.web->RichTextBox1->setReadOnly(true);
    desk.type("/");
    QVERIFY(!desk.isOpen());
    QCOMPARE(desk.source(), Cell + "</");
    desk.web->RichTextBox1->setReadOnly(false);
}

void TestOffers::losesTheKeyboard()
{
    const Desk desk(Cell);
    desk.type("</");
    QVERIFY(desk.isOpen());
    desk.web->Toolbar1->widgetForAction(desk.web->toolbarButton(Tool::New))->setFocus();
    QVERIFY(!desk.isOpen());
    QCOMPARE(desk.source(), Cell + "</");
}

void TestOffers::anotherTab()
{
    const Desk desk(Cell);
    desk.type("</");
    QVERIFY(desk.isOpen());
    desk.press(Qt::Key_3, Qt::ControlModifier);
    QTRY_COMPARE(desk.web->SSTab1->Tab(), int(FrmWeb::InternetTab));
    QVERIFY(!desk.isOpen());
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(!desk.isOpen());
}

void TestOffers::caretMoves()
{
    const Desk desk(Cell);
    desk.type("</");
    QVERIFY(desk.isOpen());
    desk.web->RichTextBox1->setSelStart(3);
    QVERIFY(!desk.isOpen());
    desk.web->RichTextBox1->setSelStart(int(desk.source().size()));
    desk.press(Qt::Key_Backspace);
    desk.type("/");
    QVERIFY(desk.isOpen());
    // A click into the text, also where the caret is.
    QTest::mouseClick(desk.web->RichTextBox1->viewport(), Qt::LeftButton, {},
                      desk.web->RichTextBox1->seenAt(desk.web->RichTextBox1->SelStart()).center());
    QVERIFY(!desk.isOpen());
}

void TestOffers::scrolls()
{
    const Desk desk(QByteArray("lamp\r\n").repeated(300) + Cell);
    desk.type("</"); // brings the caret into view
    QVERIFY(desk.isOpen());
    QTest::qWait(0);
    desk.web->RichTextBox1->viewport()->repaint();
    QVERIFY(desk.isOpen());
    desk.web->RichTextBox1->bringToTop(0);
    QTRY_VERIFY(!desk.isOpen());
}

/// Below the line where there is room, above it at the lower edge; never over it, never outside.
void TestOffers::liesInTheWindow()
{
    const Desk desk(Cell);
    const auto opened = [&] {
        desk.type("</");
        QVERIFY(desk.isOpen());
        const QRect list = desk.list()->geometry();
        QVERIFY(desk.web->rect().contains(list));
        QVERIFY(!list.intersects(desk.lineOfCaret()));
        QVERIFY(list.height() >= 3 * desk.list()->sizeHintForRow(0));
    };
    opened();
    QCOMPARE(desk.list()->y(), desk.lineOfCaret().bottom() + 1);
    const QByteArray far = QByteArray("lamp\r\n").repeated(300) + "<DIV><CENTER><FONT><B><I>" + Cell;
    desk.web->RichTextBox1->load(far);
    desk.web->RichTextBox1->setSelStart(int(far.size()));
    desk.web->resize(desk.web->minimumSize());
    desk.web->zoomBy(4); // eight rows are more than there is below the line
    desk.web->RichTextBox1->setFocus();
    opened();
    QCOMPARE(desk.list()->geometry().bottom() + 1, desk.lineOfCaret().top());
}

void TestOffers::followsTheZoom()
{
    const Desk desk(Cell);
    desk.type("</");
    const int height = desk.list()->height();
    desk.web->zoomBy(3);
    desk.press(Qt::Key_Backspace);
    desk.type("/");
    QVERIFY(desk.isOpen());
    QVERIFY(desk.list()->height() > height);
}

/// Of which a letter is one byte, where the component holds two.
void TestOffers::westernText()
{
    const QByteArray text = "<B>caf\xE9 <I>\xE9\xE9";
    const Desk desk(text);
    desk.type("</b");
    QCOMPARE(desk.offered(), QStringList("B>"));
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), text + "</B>");
}

void TestOffers::overASelection()
{
    const Desk desk(Cell);
    desk.web->RichTextBox1->setSelStart(int(Cell.size()) - 4);
    desk.web->RichTextBox1->setSelLength(4);
    desk.type("</");
    QCOMPARE(desk.offered(), OfCell);
    desk.press(Qt::Key_Tab);
    QCOMPARE(desk.source(), QByteArray("<TABLE><TR><TD></TD>"));
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), QByteArray("<TABLE><TR><TD></"));
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), Cell);
}

void TestOffers::switchedOff()
{
    const Desk desk(Cell);
    desk.choose(desk.web->muntools, desk.web->munoffers);
    desk.web->RichTextBox1->setFocus();
    desk.type("</");
    QVERIFY(!desk.isOpen());
    QVERIFY(desk.folder.read("web.ini").contains("[Tools]\r\noffers=0\r\n"));
    desk.choose(desk.web->muntools, desk.web->munoffers);
    desk.web->RichTextBox1->setFocus();
    desk.type("b></");
    QVERIFY(desk.isOpen());
    QVERIFY(desk.folder.read("web.ini").contains("[Tools]\r\noffers=1\r\n"));
}

void TestOffers::settings_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<bool>("isOn");
    QTest::newRow("as it ships") << QByteArray("[Tools]\r\noffers=1\r\n") << true;
    QTest::newRow("off") << QByteArray("[Tools]\r\noffers=0\r\n") << false;
    QTest::newRow("of an earlier version") << QByteArray() << true;
}

void TestOffers::settings()
{
    QFETCH(QByteArray, setting);
    QFETCH(bool, isOn);
    const ProgramFolder folder;
    QByteArray all = folder.read("web.ini");
    QVERIFY(all.contains("[Tools]\r\noffers=1\r\n"));
    folder.write("web.ini", all.replace("[Tools]\r\noffers=1\r\n", setting));
    const ScriptedDoors doors;
    auto* web = form<FrmWeb>();
    web->Show();
    QCOMPARE(web->munoffers->isChecked(), isOn);
    web->RichTextBox1->load("<B>");
    web->RichTextBox1->setSelStart(3);
    QTest::keyClicks(web->RichTextBox1, "</");
    const auto* list = web->findChild<QListWidget*>(QStringLiteral("Offers"));
    QCOMPARE(list && list->isVisible(), isOn);
}

WEB_TEST_MAIN(TestOffers)
#include "tst_offers.moc"
