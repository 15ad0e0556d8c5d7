// SPDX-License-Identifier: GPL-3.0-or-later

// The keys of the main window, each pressed in each view.

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "shell/Find.h"
#include "shell/FindBar.h"
#include "shell/FrmKeys.h"
#include "shell/Keys.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QTreeWidgetItemIterator>
#include <QWheelEvent>
#include <array>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    Desk()
    {
        web->RichTextBox1->setText("<P>lamp, brass Lamp, lamp</P>");
        QVERIFY(QTest::qWaitForWindowActive(web));
    }
    /// The widget that has the keyboard when a tab has just come up by its key.
    QWidget* view(FrmWeb::Tab tab) const
    {
        press(QKeySequence(Qt::CTRL | Qt::Key(int(Qt::Key_1) + int(tab))));
        if (!QTest::qWaitFor([&] { return web->SSTab1->Tab() == tab && focus() != nullptr; }))
            QTest::qFail("no view has the keyboard", __FILE__, __LINE__);
        return focus();
    }
    static QWidget* focus() { return QApplication::focusWidget(); }
    /// As a hand does, on what has the keyboard.
    void press(const QKeySequence& keys) const
    {
        QWidget* target = focus() ? focus() : web;
        QTest::keyClick(target->windowHandle() ? target : target->window(), keys[0].key(),
                        keys[0].keyboardModifiers());
    }
};

/// Turns the wheel over the middle of a widget, in eighths of a degree.
void turn(QWidget* over, int angle, Qt::KeyboardModifiers modifiers)
{
    const QPointF middle = QRectF(over->rect()).center();
    QWheelEvent event(middle, over->mapToGlobal(middle), QPoint(), QPoint(0, angle), Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &event);
}

/// How often an entry, or the button of a tool, was chosen; nothing happens then.
class Chosen
{
public:
    Chosen(FrmWeb* web, QAction* entry) : m_spy(entry, &QAction::triggered)
    {
        QObject::disconnect(entry, &QAction::triggered, web, nullptr);
    }
    int count() const { return int(m_spy.count()); }

private:
    QSignalSpy m_spy;
};

} // namespace

class TestKeys : public QObject
{
    Q_OBJECT

private slots:
    void entries_data();
    void entries();
    void tools_data();
    void tools();
    void tabs();
    void controlTabStaysInTheListing();
    void escapeLeadsToTheText_data();
    void escapeLeadsToTheText();
    void menuBar();
    void altLeadsToTheMenuBar();
    void menusAreWalkedByKeys();
    void findsAgainInTheEditor();
    void findsAgainOnTheSurface_data();
    void findsAgainOnTheSurface();
    void nothingToFindAgain();
    void replaces();
    void zoomsTheEditor();
    void zoomsTheSurface();
    void wheelWithoutControl();
    void noneTwice();
    void listed();
};

using Entry = QAction* Ui_FrmWeb::*;

void TestKeys::entries_data()
{
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<QKeySequence>("keys");
    QTest::addColumn<bool>("onTheInternet");
    const auto row = [](const char* keys, Entry entry, bool onTheInternet) {
        QTest::newRow(keys) << entry << QKeySequence(QString::fromLatin1(keys)) << onTheInternet;
    };
    row("Ctrl+N", &Ui_FrmWeb::MnNew, true);
    row("Ctrl+O", &Ui_FrmWeb::MnOpen, true);
    row("Ctrl+S", &Ui_FrmWeb::mnsave, true);
    row("Ctrl+Shift+S", &Ui_FrmWeb::mnsaveas, true);
    row("Ctrl+P", &Ui_FrmWeb::munprint, false);
    row("F7", &Ui_FrmWeb::munnextmisspelt, false);
}

void TestKeys::entries()
{
    QFETCH(Entry, entry);
    QFETCH(QKeySequence, keys);
    QFETCH(bool, onTheInternet);
    const Desk desk;
    const Chosen chosen(desk.web, desk.web->*entry);
    desk.view(FrmWeb::EditorTab);
    desk.press(keys);
    QCOMPARE(chosen.count(), 1);
    desk.view(FrmWeb::PreviewTab);
    desk.press(keys);
    QTRY_COMPARE(chosen.count(), 2);
    desk.view(FrmWeb::InternetTab);
    desk.press(keys);
    QCOMPARE(chosen.count(), onTheInternet ? 3 : 2);
}

void TestKeys::tools_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<bool>("onThePreview");
    QTest::newRow("Ctrl+Shift+N") << Tool::Create << true;
    QTest::newRow("Ctrl+Shift+B") << Tool::Body << false;
    QTest::newRow("Ctrl+Shift+F") << Tool::Font << false;
    QTest::newRow("Ctrl+Shift+P") << Tool::Picture << false;
    QTest::newRow("Ctrl+Shift+T") << Tool::Table << false;
    QTest::newRow("Ctrl+Shift+L") << Tool::List << false;
    QTest::newRow("Ctrl+Shift+R") << Tool::Rule << false;
}

/// Those that put something into the source act where that is up.
void TestKeys::tools()
{
    QFETCH(Tool, tool);
    QFETCH(bool, onThePreview);
    const QKeySequence keys(QString::fromLatin1(QTest::currentDataTag()));
    const Desk desk;
    const Chosen chosen(desk.web, desk.web->toolbarButton(tool));
    desk.view(FrmWeb::EditorTab);
    desk.press(keys);
    QCOMPARE(chosen.count(), 1);
    desk.view(FrmWeb::PreviewTab);
    desk.press(keys);
    QTest::qWait(50);
    QCOMPARE(chosen.count(), onThePreview ? 2 : 1);
    desk.view(FrmWeb::InternetTab);
    desk.press(keys);
    QTest::qWait(50);
    QCOMPARE(chosen.count(), onThePreview ? 2 : 1);
    QCOMPARE(desk.source(), QByteArray("<P>lamp, brass Lamp, lamp</P>"));
}

void TestKeys::tabs()
{
    const Desk desk;
    const std::array<QWidget*, 3> views = {desk.web->RichTextBox1, desk.web->WebBrowser1,
                                           desk.web->WebBrowser2};
    for (const FrmWeb::Tab tab :
         {FrmWeb::PreviewTab, FrmWeb::InternetTab, FrmWeb::EditorTab, FrmWeb::InternetTab}) {
        for (const bool isUp : {false, true}) { // from the tab's caption, too
            if (isUp)
                desk.web->SSTab1->tabBar()->setFocus();
            QWidget* view = desk.view(tab);
            QVERIFY(view == views.at(tab) || views.at(tab)->isAncestorOf(view));
        }
    }
}

void TestKeys::controlTabStaysInTheListing()
{
    const Desk desk;
    desk.web->CmdTitle->setFocus();
    const auto press = [&](Qt::KeyboardModifiers shift) {
        QTest::keyClick(desk.web->SSTab1, shift ? Qt::Key_Backtab : Qt::Key_Tab, Qt::ControlModifier | shift);
        return desk.web->SSTab1->Tab();
    };
    QCOMPARE(press({}), int(FrmWeb::PreviewTab));
    QCOMPARE(press({}), int(FrmWeb::EditorTab));
    QCOMPARE(press(Qt::ShiftModifier), int(FrmWeb::PreviewTab));
    QCOMPARE(press(Qt::ShiftModifier), int(FrmWeb::EditorTab));
    desk.view(FrmWeb::InternetTab);
    QCOMPARE(press({}), int(FrmWeb::EditorTab));
}

void TestKeys::escapeLeadsToTheText_data()
{
    QTest::addColumn<FrmWeb::Tab>("tab");
    QTest::newRow("editor") << FrmWeb::EditorTab;
    QTest::newRow("preview") << FrmWeb::PreviewTab;
    QTest::newRow("Internet") << FrmWeb::InternetTab;
}

void TestKeys::escapeLeadsToTheText()
{
    QFETCH(FrmWeb::Tab, tab);
    const Desk desk;
    const QWidget* view = desk.view(tab);
    const std::array<QWidget*, 3> fields = {
        desk.web->Toolbar1->widgetForAction(desk.web->toolbarButton(Tool::New)), desk.web->Combo1,
        desk.web->Combo3};
    fields.at(tab)->setFocus();
    QVERIFY(Desk::focus() != view);
    desk.press(Qt::Key_Escape);
    QTRY_COMPARE(Desk::focus(), view);
}

void TestKeys::menuBar()
{
    for (const FrmWeb::Tab tab : {FrmWeb::EditorTab, FrmWeb::PreviewTab, FrmWeb::InternetTab}) {
        const Desk desk;
        desk.view(tab);
        desk.press(Qt::Key_F10);
        QTRY_COMPARE(QApplication::activePopupWidget(), static_cast<QWidget*>(desk.web->Mnfile));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!QApplication::activePopupWidget());
    }
}

/// Pressed and let go, and again.
void TestKeys::altLeadsToTheMenuBar()
{
    for (const FrmWeb::Tab tab : {FrmWeb::EditorTab, FrmWeb::PreviewTab, FrmWeb::InternetTab}) {
        const Desk desk;
        QWidget* view = desk.view(tab);
        QTest::keyClick(view, Qt::Key_Alt);
        QTRY_COMPARE(Desk::focus(), static_cast<QWidget*>(desk.web->MenuBar1));
        QCOMPARE(desk.web->MenuBar1->activeAction(), desk.web->Mnfile->menuAction());
        QTest::keyClick(desk.web->MenuBar1, Qt::Key_Alt);
        QTRY_COMPARE(Desk::focus(), view);
        QVERIFY(!desk.web->MenuBar1->activeAction());
    }
}

/// All round the bar, over the menus that are grey in a view, and back to what had the keyboard.
void TestKeys::menusAreWalkedByKeys()
{
    for (const FrmWeb::Tab tab : {FrmWeb::EditorTab, FrmWeb::PreviewTab, FrmWeb::InternetTab}) {
        const Desk desk;
        QWidget* view = desk.view(tab);
        const QByteArray before = desk.source();
        QStringList enabled;
        for (const QAction* menu : desk.web->MenuBar1->actions()) {
            if (menu->isEnabled())
                enabled << menu->text();
        }
        QVERIFY(enabled.size() > 4);
        const auto press = [](Qt::Key key) {
            QWidget* popup = QApplication::activePopupWidget();
            QTest::keyClick(popup ? popup : Desk::focus(), key);
        };
        desk.press(Qt::Key_F10);
        for (qsizetype i = 0; i <= enabled.size(); ++i) {
            const QAction* menu = desk.web->MenuBar1->activeAction();
            QVERIFY(menu);
            QCOMPARE(menu->text(), enabled.at(i % enabled.size()));
            press(Qt::Key_Right);
            if (desk.web->MenuBar1->activeAction() == menu) // its first entry has a menu, which has opened
                press(Qt::Key_Right);
        }
        press(Qt::Key_Left);
        press(Qt::Key_Left);
        QCOMPARE(desk.web->MenuBar1->activeAction()->text(), enabled.constLast());
        for (int i = 0; i < 2 && desk.web->MenuBar1->activeAction(); ++i)
            press(Qt::Key_Escape);
        QVERIFY(!desk.web->MenuBar1->activeAction());
        QVERIFY(!QApplication::activePopupWidget());
        QTRY_COMPARE(Desk::focus(), view);
        QCOMPARE(desk.source(), before);
    }
}

/// Places of the first word, from the caret on and round; in either case unless the box says so.
void TestKeys::findsAgainInTheEditor()
{
    Desk desk;
    desk.view(FrmWeb::EditorTab);
    desk.press(Qt::CTRL | Qt::Key_F);
    QVERIFY(isLoaded<Find>());
    form<Find>()->Text1->setText(QStringLiteral("lamp"));
    form<Find>()->Unload();
    desk.press(Qt::Key_F3); // it has gone with its text
    QVERIFY(isLoaded<Find>());
    form<Find>()->Text1->setText(QStringLiteral("lamp"));
    desk.web->RichTextBox1->setSelStart(0);
    QVERIFY(QTest::qWaitFor([] { return form<Find>()->isActiveWindow(); }));
    desk.web->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(desk.web));
    desk.web->RichTextBox1->setFocus();
    const auto press = [&](Qt::KeyboardModifiers shift) {
        desk.press(QKeySequence(Qt::Key_F3 | shift));
        return desk.web->RichTextBox1->SelText() + QByteArray::number(desk.web->RichTextBox1->SelStart());
    };
    QCOMPARE(press({}), QByteArray("lamp3"));
    QCOMPARE(press({}), QByteArray("Lamp15"));
    QCOMPARE(press({}), QByteArray("lamp21"));
    QCOMPARE(press({}), QByteArray("lamp3"));
    QCOMPARE(press(Qt::ShiftModifier), QByteArray("lamp21"));
    QCOMPARE(press(Qt::ShiftModifier), QByteArray("Lamp15"));
    tick(form<Find>()->Check1); // case
    desk.web->RichTextBox1->setFocus();
    QCOMPARE(press(Qt::ShiftModifier), QByteArray("lamp3"));
    QCOMPARE(press({}), QByteArray("lamp21"));
    form<Find>()->Text1->setText(QStringLiteral("globe"));
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    QCOMPARE(press({}), QByteArray("lamp21"));
    QCOMPARE(desk.doors.takeAsked(),
             QStringList({"MsgBox|Not found|'globe' cannot be found.|Exclamation|Ok"}));
}

void TestKeys::findsAgainOnTheSurface_data()
{
    QTest::addColumn<bool>("design");
    QTest::newRow("design") << true;
    QTest::newRow("preview") << false;
}

void TestKeys::findsAgainOnTheSurface()
{
    QFETCH(const bool, design);
    const Desk desk;
    desk.view(FrmWeb::PreviewTab);
    if (!design) {
        tick(desk.web->Option2);
        desk.view(FrmWeb::PreviewTab);
    }
    desk.press(Qt::CTRL | Qt::Key_F);
    auto* bar = desk.web->findChild<FindBar*>(design ? QStringLiteral("WebBrowser1FindBar")
                                                     : QStringLiteral("WebBrowser3FindBar"));
    QTRY_VERIFY(bar->isVisible());
    auto* field = bar->findChild<QLineEdit*>();
    const auto count = [&] { return bar->findChild<QLabel*>()->text(); };
    QTest::keyClicks(field, QStringLiteral("lamp"));
    QTRY_COMPARE(count(), QStringLiteral("1 of 3"));
    QTest::keyClick(field, Qt::Key_Escape);
    QTRY_VERIFY(!bar->isVisible());
    for (const char* place : {"2 of 3", "3 of 3", "1 of 3"}) {
        desk.press(Qt::Key_F3);
        QTRY_COMPARE(count(), QString::fromLatin1(place));
    }
    QVERIFY(bar->isVisible());
    desk.press(QKeySequence(Qt::SHIFT | Qt::Key_F3));
    QTRY_COMPARE(count(), QStringLiteral("3 of 3"));
}

void TestKeys::nothingToFindAgain()
{
    const Desk desk;
    desk.view(FrmWeb::PreviewTab);
    desk.press(Qt::Key_F3);
    QTRY_VERIFY(desk.web->findChild<FindBar*>(QStringLiteral("WebBrowser1FindBar"))->isVisible());
    desk.view(FrmWeb::InternetTab);
    desk.press(Qt::Key_F3);
    desk.press(Qt::CTRL | Qt::Key_H);
    QVERIFY(!isLoaded<Find>());
}

void TestKeys::replaces()
{
    const Desk desk;
    desk.view(FrmWeb::EditorTab);
    desk.press(Qt::CTRL | Qt::Key_H);
    QVERIFY(isLoaded<Find>());
    QVERIFY(QTest::qWaitForWindowActive(form<Find>()));
    QTRY_VERIFY(form<Find>()->Text2->hasFocus());
}

void TestKeys::zoomsTheEditor()
{
    const Desk desk;
    QWidget* view = desk.view(FrmWeb::EditorTab);
    const auto height = [&] {
        return int(desk.web->RichTextBox1->SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, 0UL));
    };
    const int atFirst = height();
    desk.press(Qt::CTRL | Qt::Key_Plus);
    desk.press(Qt::CTRL | Qt::Key_Equal); // where plus is with Shift
    const int larger = height();
    QVERIFY(larger > atFirst);
    desk.press(Qt::CTRL | Qt::Key_Minus);
    desk.press(Qt::CTRL | Qt::Key_Minus);
    QCOMPARE(height(), atFirst);
    desk.press(Qt::CTRL | Qt::Key_Minus);
    QVERIFY(height() < atFirst);
    desk.press(Qt::CTRL | Qt::Key_0);
    QCOMPARE(height(), atFirst);
    turn(desk.web->RichTextBox1->viewport(), 240, Qt::ControlModifier);
    QCOMPARE(height(), larger);
    turn(desk.web->RichTextBox1->viewport(), -60, Qt::ControlModifier); // half a step of a fine wheel
    QCOMPARE(height(), larger);
    turn(desk.web->RichTextBox1->viewport(), -60, Qt::ControlModifier);
    QVERIFY(height() < larger);
    for (int i = 0; i < 30; ++i)
        desk.press(Qt::CTRL | Qt::Key_Minus);
    QVERIFY(height() > 4);
    QCOMPARE(desk.source(), QByteArray("<P>lamp, brass Lamp, lamp</P>"));
    QCOMPARE(Desk::focus(), view);
}

void TestKeys::zoomsTheSurface()
{
    const Desk desk;
    QWidget* view = desk.view(FrmWeb::PreviewTab);
    const auto width = [&] { // of the page, in its own pixels
        return probe(desk.web->WebBrowser1).evaluate("innerWidth").value_or(QVariant()).toInt();
    };
    const int atFirst = width();
    QVERIFY(atFirst > 300);
    desk.press(Qt::CTRL | Qt::Key_Plus); // 110 %
    QTRY_COMPARE_WITH_TIMEOUT(qRound(width() * 1.1 / 10), qRound(atFirst / 10.0), Patience);
    turn(view, 120, Qt::ControlModifier); // 125 %
    QTRY_COMPARE_WITH_TIMEOUT(qRound(width() * 1.25 / 10), qRound(atFirst / 10.0), Patience);
    desk.press(Qt::CTRL | Qt::Key_0);
    QTRY_COMPARE(width(), atFirst);
    desk.press(Qt::CTRL | Qt::Key_Minus); // 90 %
    QTRY_COMPARE_WITH_TIMEOUT(qRound(width() * 0.9 / 10), qRound(atFirst / 10.0), Patience);
    desk.web->mularger->trigger(); // and the text size on top, 125 %
    QTRY_COMPARE_WITH_TIMEOUT(qRound(width() * 1.125 / 10), qRound(atFirst / 10.0), Patience);
}

void TestKeys::wheelWithoutControl()
{
    const Desk desk;
    desk.web->RichTextBox1->setText(QByteArray("lamp\r\n").repeated(300));
    const qsizetype top = desk.web->RichTextBox1->topOfView();
    turn(desk.web->RichTextBox1->viewport(), -360, {});
    QVERIFY(desk.web->RichTextBox1->topOfView() > top);
}

/// No key stands for two things.
void TestKeys::noneTwice()
{
    QStringList all;
    for (const MainKey& key : mainKeys()) {
        for (const QKeySequence& keys : QKeySequence::listFromString(QString::fromLatin1(key.keys))) {
            QVERIFY2(!keys.isEmpty() && keys[0].key() != Qt::Key_unknown, key.keys);
            QVERIFY2(!all.contains(keys.toString()), key.keys);
            all << keys.toString();
        }
    }
    QVERIFY(all.size() > 30);
}

void TestKeys::listed()
{
    Desk desk;
    connectOpenings(desk.web);
    desk.choose(desk.web->muntools, desk.web->munkeys);
    auto* window = form<FrmKeys>();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(window->focusWidget(), window->Wanted);
    const auto shown = [&] {
        QStringList lines;
        for (QTreeWidgetItemIterator item(window->List, QTreeWidgetItemIterator::NotHidden); *item; ++item)
            lines << (*item)->text(0) + ((*item)->parent() ? u'|' + (*item)->text(1) : QString());
        return lines;
    };
    QVERIFY(shown().contains("Save|Ctrl+S"));
    QVERIFY(shown().contains("Redo|Ctrl+Y or Ctrl+Shift+Z"));
    QTest::keyClicks(window->Wanted, "SAVE");
    QCOMPARE(shown(), QStringList({"The listing", "Save|Ctrl+S", "Save under another name|Ctrl+Shift+S"}));
    overtype(window->Wanted, "f7");
    QCOMPARE(shown(), QStringList({"Editing", "Next misspelt word|F7"}));
    overtype(window->Wanted, "no such key");
    QCOMPARE(shown(), QStringList());
    QTest::keyClick(window->Wanted, Qt::Key_Escape);
    QVERIFY(!isLoaded<FrmKeys>());
}

WEB_TEST_MAIN(TestKeys)
#include "tst_keys.moc"
