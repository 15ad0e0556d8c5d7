// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebTestMain.h"
#include "Widgets.h"
#include "Windows.h"
#include "forms/ComboBox.h"
#include "shell/FindBar.h"
#include "shell/FrmHelp.h"
#include "web/DocumentSurface.h"

#include <QAbstractItemView>
#include <QHash>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QWindow>

using namespace brindlemark;

// Escape in all windows: what is open over a window goes first, and then Escape is Cancel. Keys are given to
// the window that has the keyboard, as the desktop does it.

namespace {

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QVERIFY(QTest::qWaitFor([] { return QGuiApplication::focusWindow() != nullptr; }, Patience));
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
}

/// Whether a popup is open and Escape, pressed now, would come to it.
bool isOpen(const QWidget* popup)
{
    return popup && popup->isVisible() && popup->window()->windowHandle()->isExposed() &&
           QGuiApplication::focusWindow();
}

// A popup closes when the program loses the keyboard, and a busy desktop may still pass that on between the
// window before and the one just opened. So what closed by itself is opened again, and what was seen open is
// given its keys at once.

/// Whether the list of a combo box is open; opens it.
bool isListOpen(ComboBox* combo)
{
    if (!combo->view()->isVisible() && QGuiApplication::focusWindow()) {
        combo->setFocus();
        press(Qt::Key_Down, Qt::AltModifier);
    }
    return isOpen(combo->view());
}

/// Whether the context menu of a field is open; opens it. An emptied `menu` is one that closed.
bool isMenuOpen(QLineEdit* field, QPointer<QWidget>& menu)
{
    if (!menu) {
        field->setFocus();
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, field->rect().center(),
                                 field->mapToGlobal(field->rect().center()));
        QApplication::sendEvent(field, &wanted);
        menu = QApplication::activePopupWidget();
    }
    return isOpen(menu);
}

/// Two windows that come and go by themselves and never have the keyboard.
const QByteArrayList Passing = {"splash", "wait"};
/// The main window's views, which Escape leaves open.
const QByteArrayList Main = {"editor", "editor-title", "design", "preview", "find-bar", "notice", "internet"};

} // namespace

class TestEscape : public QObject
{
    Q_OBJECT

private slots:
    void listsCloseFirst_data();
    void listsCloseFirst();
    void menusCloseFirst_data();
    void menusCloseFirst();
    void findBarClosesFirst();
    void escapeIsCancel_data();
    void escapeIsCancel();
};

/// Opens the view of the test's row and waits until it has the keyboard.
static QWidget* openFetchedView(MainWindow& main)
{
    const QPointer<QWidget> window = openView(fetchedView(), main);
    window->activateWindow();
    if (!QTest::qWaitFor([&] { return window && QApplication::activeWindow() == window; }, Patience))
        QTest::qFail("the window does not come to the front", __FILE__, __LINE__);
    return window;
}

void TestEscape::listsCloseFirst_data()
{
    addViews(Passing);
}

void TestEscape::listsCloseFirst()
{
    const QStringList font{"Combo1", "Combo2"};
    const QHash<QByteArray, QStringList> lists = {
        {"design", font},
        {"preview", font},
        {"find-bar", font},
        {"internet", {"Combo3"}},
        {"live-view", {"Widths"}},
        {"check-listing", {"Profile"}},
        {"wizard-pays", {"TxST2"}},
        {"wizard-page-2", {"Combo3", "Combo4"}},
        {"terms", font},
        {"find", {"Text1", "Text2"}},
        {"fader", font},
        {"fader-table", font},
        {"table", {"Combo7", "Combo6", "Combo1"}},
        {"fonts", font},
        {"special-list", {"TxtTitle", "Combo2"}},
        {"characters", {"Combo1"}},
    };
    QStringList seen;
    MainWindow main;
    const QPointer<QWidget> window = openFetchedView(main);
    for (auto* combo : window->findChildren<ComboBox*>()) {
        if (!combo->isVisible())
            continue;
        combo->setEnabled(true); // as another control would do it
        if (combo->ListCount() == 0)
            combo->AddItem(QStringLiteral("entry"));
        const QString text = combo->Text();
        QTRY_VERIFY2(isListOpen(combo), qPrintable(combo->objectName()));
        press(Qt::Key_Down);
        press(Qt::Key_Escape);
        QVERIFY(window);
        QTRY_VERIFY2(!combo->view()->isVisible(), qPrintable(combo->objectName()));
        QVERIFY(window->isVisible());
        QCOMPARE(combo->Text(), text); // nothing is chosen
        QCOMPARE(main.doors.asked, QStringList());
        QTRY_COMPARE(QApplication::focusWidget(), combo);
        seen << combo->objectName();
    }
    QCOMPARE(seen, lists.value(QTest::currentDataTag()));
}

void TestEscape::menusCloseFirst_data()
{
    addViews(Passing);
}

/// The menu of a text field, of which one in each window will do.
void TestEscape::menusCloseFirst()
{
    MainWindow main;
    const QPointer<QWidget> window = openFetchedView(main);
    for (auto* field : window->findChildren<QLineEdit*>()) {
        if (!field->isVisible() || !field->isEnabled())
            continue;
        QPointer<QWidget> menu;
        QTRY_VERIFY(isMenuOpen(field, menu));
        QVERIFY(qobject_cast<QMenu*>(menu));
        press(Qt::Key_Escape);
        QVERIFY(window);
        QTRY_VERIFY(!menu || !menu->isVisible());
        QVERIFY(window->isVisible());
        QCOMPARE(main.doors.asked, QStringList());
        return;
    }
}

/// The bar's button says that Escape closes it.
void TestEscape::findBarClosesFirst()
{
    MainWindow main;
    prepareViews(main);
    main.web->munhelp->trigger();
    const QPointer<FrmHelp> help = form<FrmHelp>();
    QVERIFY(QTest::qWaitForWindowActive(help, Patience));
    help->WebBrowser1->sendKeys(QStringLiteral("^f"));
    const auto* bar = help->findChild<FindBar*>();
    QVERIFY(bar && bar->isVisible());
    press(Qt::Key_Escape);
    QTRY_VERIFY(!help || !bar->isVisible());
    QVERIFY(help && help->isVisible());
    press(Qt::Key_Escape);
    QTRY_VERIFY(!isLoaded<FrmHelp>());
}

void TestEscape::escapeIsCancel_data()
{
    addViews(Passing + Main);
}

void TestEscape::escapeIsCancel()
{
    // What is asked before a list, a table or a page is given up.
    const QHash<QByteArray, QString> questions = {
        {"wizard-page-2", QStringLiteral("MsgBox|Information|Are you sure you wish cancel it ?|None|YesNo")},
        {"table", QStringLiteral("MsgBox|Information|Are you sure you wish cancel it ?|Information|YesNo")},
        {"list", QStringLiteral("MsgBox|Information|You fill out lists, Are you sure you wish cancel it ?|"
                                "Information|YesNo")},
        {"special-list",
         QStringLiteral("MsgBox|Information|Are you sure you wish cancel it ?|Information|YesNo")},
    };
    const QString question = questions.value(QTest::currentDataTag());
    MainWindow main;
    const QPointer<QWidget> window = openFetchedView(main);
    for (auto* combo : window->findChildren<ComboBox*>()) {
        if (!combo->isVisible() || !combo->isEnabled() || combo->ListCount() == 0)
            continue;
        QTRY_VERIFY(isListOpen(combo)); // where a list was open just now
        press(Qt::Key_Escape);
        QTRY_VERIFY(!window || !combo->view()->isVisible());
        break;
    }
    QVERIFY(window);
    QTRY_COMPARE(QApplication::activeWindow(), window);
    if (!question.isEmpty())
        main.doors.answerMsgBox(MsgAnswer::Yes);
    press(Qt::Key_Escape);
    QTRY_VERIFY(!window || !window->isVisible());
    QCOMPARE(main.doors.asked, question.isEmpty() ? QStringList() : QStringList{question});
}

WEB_TEST_MAIN(TestEscape)
#include "tst_escape.moc"
