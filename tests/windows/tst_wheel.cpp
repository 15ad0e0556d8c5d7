// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebTestMain.h"
#include "Widgets.h"
#include "Windows.h"
#include "forms/ComboBox.h"
#include "forms/ScrollBar.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>

using namespace brindlemark;

// Nothing happens by the way: the wheel that turns over a control in passing changes nothing, and the keys
// that walk through a closed list don't do what each entry stands for.

class TestWheel : public QObject
{
    Q_OBJECT

private slots:
    void wheelChangesNothing_data();
    void wheelChangesNothing();
    void closedListsOpen_data();
    void closedListsOpen();
};

namespace {

/// What a user reads in a control, or set there.
QString stateOf(const QWidget* control)
{
    if (const auto* combo = qobject_cast<const ComboBox*>(control))
        return QStringLiteral("%1 %2").arg(combo->ListIndex()).arg(combo->Text());
    if (const auto* bar = qobject_cast<const ScrollBar*>(control))
        return QString::number(bar->Value());
    if (const auto* tabs = qobject_cast<const QTabBar*>(control))
        return QString::number(tabs->currentIndex());
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
        return button->isChecked() ? QStringLiteral("set") : QString();
    if (const auto* field = qobject_cast<const QLineEdit*>(control))
        return field->text();
    return {};
}

QMap<const QWidget*, QString> statesOf(const QWidget* window)
{
    QMap<const QWidget*, QString> states;
    for (const QWidget* control : window->findChildren<QWidget*>())
        states.insert(control, stateOf(control));
    return states;
}

/// Turns the wheel by a notch over the middle of a control, as the window system tells of it.
void turn(const QWidget* control, int delta)
{
    const QWidget* window = control->window();
    const QPointF middle = control->mapTo(window, control->rect().center());
    QWheelEvent event(middle, window->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(
        &event); // only such a one goes on to the parents, and `sendEvent` sends none
    QCoreApplication::instance()->notify(window->windowHandle(), &event);
}

bool isInPage(const QWidget* control)
{
    for (; control; control = control->parentWidget()) {
        if (control->inherits("brindlemark::WebControl"))
            return true;
    }
    return false;
}

int openWindows()
{
    const QWidgetList all = QApplication::topLevelWidgets();
    return int(std::count_if(all.begin(), all.end(), [](const QWidget* each) { return each->isVisible(); }));
}

} // namespace

void TestWheel::wheelChangesNothing_data()
{
    addViews();
}

void TestWheel::wheelChangesNothing()
{
    MainWindow main;
    QWidget* window = openView(fetchedView(), main);
    const int windows = openWindows();
    QStringList faults;
    for (QWidget* control : window->findChildren<QWidget*>()) {
        if (!control->isVisible() || !control->isEnabled() || control->window() != window ||
            isInPage(control))
            continue;
        if (QWidget* inHand = QApplication::focusWidget())
            inHand->clearFocus();
        const auto before = statesOf(window);
        for (const int delta : {-120, 120, 120}) {
            turn(control, delta);
            const auto after = statesOf(window);
            for (auto [changed, was] : before.asKeyValueRange()) {
                if (after.value(changed) != was)
                    faults << QStringLiteral("%1: %2 from %3 to %4")
                                  .arg(control->objectName(), changed->objectName(), was,
                                       after.value(changed));
            }
        }
        if (stateOf(control) != QString() && control->hasFocus())
            faults << control->objectName() + QStringLiteral(" takes the keyboard");
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    QCOMPARE(openWindows(), windows);
    QCOMPARE(main.doors.takeAsked(), QStringList());
}

void TestWheel::closedListsOpen_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("list");
    QTest::newRow("pick a colour") << "wizard-page-2"
                                   << "Combo3";
    QTest::newRow("load a colour set") << "wizard-page-2"
                                       << "Combo4";
    QTest::newRow("font of the terms") << "terms"
                                       << "Combo1";
    QTest::newRow("size of the terms") << "terms"
                                       << "Combo2";
    QTest::newRow("font of the page") << "design"
                                      << "Combo1";
    QTest::newRow("size of the page") << "design"
                                      << "Combo2";
    QTest::newRow("address") << "internet"
                             << "Combo3";
    QTest::newRow("set of a table") << "table"
                                    << "Combo1";
}

/// Keys choose in the open list alone, and the wheel never does.
void TestWheel::closedListsOpen()
{
    QFETCH(QString, view);
    QFETCH(QString, list);
    MainWindow main;
    QWidget* window = openView(viewOf(view), main);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window, Patience));
    auto* box = window->findChild<ComboBox*>(list);
    QVERIFY(box);
    while (box->ListCount() < 3)
        box->AddItem(QStringLiteral("entry %1").arg(box->ListCount()));
    QStringList chosen;
    const QMetaObject::Connection listening =
        connect(box, &ComboBox::Click, this, [&] { chosen << box->Text(); });
    const QString before = stateOf(box);
    box->setFocus();
    QTRY_VERIFY(box->hasFocus());
    turn(box, -120);
    QList<Qt::Key> keys = {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp};
    if (!box->isEditable())
        keys << Qt::Key_Home << Qt::Key_End << Qt::Key_E;
    for (const Qt::Key key : keys) {
        QTest::keyClick(box, key);
        QTRY_VERIFY2(box->view()->isVisible(), qPrintable(QKeySequence(key).toString()));
        box->hidePopup();
        QTRY_VERIFY(!box->view()->isVisible());
    }
    QCOMPARE(chosen, QStringList());
    QCOMPARE(stateOf(box), before);
    QCOMPARE(main.doors.takeAsked(), QStringList());
    disconnect(listening);
}

WEB_TEST_MAIN(TestWheel)
#include "tst_wheel.moc"
