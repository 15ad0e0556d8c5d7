// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "Windows.h"
#include "app/Openings.h"
#include "builders/CharMap.h"
#include "builders/FrmAddTable.h"
#include "builders/FrmChar.h"
#include "builders/SizeGrid.h"
#include "colour/ColorSample.h"
#include "colour/Fader5.h"
#include "colour/FrmHR.h"
#include "forms/OptionButton.h"
#include "forms/ScrollBar.h"
#include "shell/Find.h"
#include "web/WrittenPage.h"
#include "wizard/PageDrawing.h"

#include <QAccessible>
#include <QAction>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QWindow>
#include <memory>

using namespace brindlemark;

// All windows without a mouse and without an eye: what a screen reader is told of each control, and how the
// keyboard reaches it.

class TestAccessible : public QObject
{
    Q_OBJECT

private slots:
    void controlsAreTold_data();
    void controlsAreTold();
    void keyboardReachesAll_data();
    void keyboardReachesAll();
    void pagesAreTold_data();
    void pagesAreTold();
    void valuesAreTold();
    void charactersAreTold();
    void enterPressesTheButtonInHand();
    void menuBarOpensByKey();
    void toolsOpenByKey();
    void designSurfaceIsLeftByKey();
    void cleanupTestCase();

private:
    int m_windows = 0;
    int m_controls = 0;
    int m_reached = 0;
};

namespace {

/// What a fault is told by.
QString called(const QWidget* widget)
{
    return QStringLiteral("%1 %2").arg(QLatin1String(className(widget)), widget->objectName());
}

template <typename T>
T* ancestor(QObject* object)
{
    while (object && !qobject_cast<T*>(object))
        object = object->parent();
    return qobject_cast<T*>(object);
}

// ---- What is told ----------------------------------------------------------------------------------------

/// All that a screen reader finds in a window, as far as it is the program's own: a page speaks for itself.
void collect(QAccessibleInterface* face, QList<QAccessibleInterface*>& found)
{
    if (!face || face->state().invisible)
        return;
    found.append(face);
    if (qobject_cast<WebControl*>(face->object()))
        return;
    for (int i = 0; i < face->childCount(); ++i)
        collect(face->child(i), found);
}

QString nameOf(QAccessibleInterface* face)
{
    return face->text(QAccessible::Name).trimmed();
}

bool isWithin(QAccessibleInterface* face, const QAccessibleInterface* box)
{
    for (QAccessibleInterface* around = face->parent(); around; around = around->parent()) {
        if (around == box)
            return true;
    }
    return false;
}

/// What a screen reader calls a field: the name of the label that leads to it, if there is one, goes before
/// its own. The box around it, which the toolkit tells as a label too, has been called out before.
QString calledOut(QAccessibleInterface* face)
{
    for (const auto& [label, kind] : face->relations(QAccessible::Label)) {
        if (!isWithin(face, label))
            return nameOf(label);
    }
    return nameOf(face);
}

/// A control of the toolkit without a name of its own is given that of the frame around it.
bool hasFrameName(QAccessibleInterface* face)
{
    const auto* widget = qobject_cast<QWidget*>(face->object());
    const auto* frame = widget ? qobject_cast<QGroupBox*>(widget->parent()) : nullptr;
    return frame && widget->accessibleName().isEmpty() && nameOf(face) == frame->title().trimmed() &&
           !qobject_cast<const QAbstractButton*>(widget);
}

/// Entries of lists may be equal: they are the seller's words.
bool isEntry(QAccessibleInterface* face)
{
    return face->role() == QAccessible::ListItem || face->role() == QAccessible::TreeItem ||
           face->role() == QAccessible::Cell;
}

QAccessible::Role expectedRole(QWidget* widget)
{
    if (auto* sample = qobject_cast<ColorSample*>(widget))
        return sample->offersClick() ? QAccessible::Button : QAccessible::Graphic;
    static const QHash<QByteArray, QAccessible::Role> roles = {
        {"CharMap", QAccessible::List},
        {"CheckBox", QAccessible::CheckBox},
        {"ComboBox", QAccessible::ComboBox},
        {"ListBox", QAccessible::List},
        {"OptionButton", QAccessible::RadioButton},
        {"PageDrawing", QAccessible::Graphic},
        {"PictureStyleDrawing", QAccessible::Graphic},
        {"QLineEdit", QAccessible::EditableText},
        {"QPlainTextEdit", QAccessible::EditableText},
        {"QPushButton", QAccessible::Button},
        {"QToolButton", QAccessible::Button},
        {"RichTextBox", QAccessible::EditableText},
        {"ScrollBar", QAccessible::Slider},
        {"QFrame", QAccessible::Grouping}, // what a screen reader calls a frame is a window
        {"QStackedWidget", QAccessible::Grouping},
        {"DocumentSurface", QAccessible::Grouping},
        {"InternetBrowser", QAccessible::Grouping},
        {"Sample", QAccessible::Grouping},
    };
    return roles.value(className(widget), QAccessible::NoRole);
}

// ---- The keyboard ----------------------------------------------------------------------------------------

/// The control that has the focus, whatever part of it takes the keys.
QWidget* controlInHand()
{
    QWidget* widget = QApplication::focusWidget();
    auto* page = ancestor<WebControl>(widget);
    return page ? page : widget;
}

bool takesTab(QWidget* window, QWidget* widget)
{
    if (auto* page = qobject_cast<WebControl*>(widget))
        return page->isVisibleTo(window);
    return widget->isVisibleTo(window) && widget->isEnabled() && widget->focusPolicy() & Qt::TabFocus &&
           !widget->focusProxy() && !ancestor<WebControl>(widget);
}

QSet<QWidget*> tabControls(QWidget* window)
{
    QSet<QWidget*> found;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->window() == window && takesTab(window, widget))
            found.insert(widget);
    }
    return found;
}

/// The options among which one is chosen.
QSet<QWidget*> optionsWith(QWidget* widget)
{
    QSet<QWidget*> group;
    if (!qobject_cast<OptionButton*>(widget))
        return group;
    for (auto* option : widget->parentWidget()->findChildren<OptionButton*>(Qt::FindDirectChildrenOnly)) {
        if (option->isVisible() && option->isEnabled())
            group.insert(option);
    }
    return group;
}

/// Editors keep the Tab key for the text.
bool keepsTab(QWidget* widget)
{
    const auto* page = qobject_cast<WrittenPage*>(widget);
    const auto* box = qobject_cast<RichTextBox*>(widget);
    return (box && !box->isReadOnly()) || (page && page->designMode() == DesignMode::On);
}

/// The element of a page that has the focus, as its number; null while none has, as when the page is just
/// giving the focus on.
QVariant placeInPage(QWidget* control)
{
    auto* page = qobject_cast<WebControl*>(control);
    return page ? probe(page)
                      .evaluate(QStringLiteral("document.activeElement === document.body ? null : "
                                               "[...document.all].indexOf(document.activeElement)"))
                      .value_or(QVariant())
                : QVariant();
}

/// Leaves the control in hand for the next one, or the one before. A page that isn't edited gives the focus
/// on when it has been through its links, of which no page here has more than `MostLinks`.
void pressTab(QWidget* window, bool back)
{
    constexpr int MostLinks = 100;
    QWidget* before = controlInHand();
    const bool edited = keepsTab(before); // its place changes by itself, when the caret comes
    const Qt::KeyboardModifiers leaving = edited ? Qt::ControlModifier : Qt::NoModifier;
    for (int link = 0; link < MostLinks && controlInHand() == before; ++link) {
        const QVariant place = placeInPage(before);
        if (back) {
            QTest::keyClick(window->windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier | leaving);
        } else {
            QTest::keyClick(window->windowHandle(), Qt::Key_Tab, leaving);
        }
        const auto moved = [&] {
            if (controlInHand() != before)
                return true;
            const QVariant now = edited ? QVariant() : placeInPage(before);
            return now.isValid() && !now.isNull() && now != place;
        };
        if (!QTest::qWaitFor(moved))
            return;
    }
}

/// The controls in the order of the Tab key, from the one that has the focus until it has it again.
QList<QWidget*> round(QWidget* window, bool back, int most)
{
    QList<QWidget*> reached;
    QWidget* first = controlInHand();
    do {
        reached.append(controlInHand());
        pressTab(window, back);
    } while (controlInHand() && controlInHand() != first && reached.size() <= most);
    return reached;
}

/// Whether the order goes from right to left in a row of controls that stand side by side.
bool runsBackwards(const QWidget* from, const QWidget* to)
{
    if (from->parentWidget() != to->parentWidget())
        return false;
    const QRect a = from->geometry();
    const QRect b = to->geometry();
    const int shared = qMin(a.bottom(), b.bottom()) - qMax(a.top(), b.top());
    return shared > qMin(a.height(), b.height()) / 2 && b.right() < a.left();
}

/// The access keys that work in a window as it is.
QStringList accessKeys(QWidget* window)
{
    QStringList texts;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->window() != window || !widget->isVisibleTo(window))
            continue;
        if (const auto* button = qobject_cast<QAbstractButton*>(widget)) {
            texts.append(button->text());
        } else if (const auto* label = qobject_cast<QLabel*>(widget); label && label->buddy()) {
            texts.append(label->text());
        } else if (const auto* frame = qobject_cast<QGroupBox*>(widget)) {
            texts.append(frame->title());
        } else if (const auto* tabs = qobject_cast<QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i)
                texts.append(tabs->tabText(i));
        } else if (const auto* menus = qobject_cast<QMenuBar*>(widget)) {
            for (const QAction* menu : menus->actions())
                texts.append(menu->text());
        }
    }
    QStringList keys;
    for (const QString& text : texts) {
        if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
            keys.append(key.toString());
    }
    return keys;
}

} // namespace

void TestAccessible::controlsAreTold_data()
{
    addViews();
}

void TestAccessible::controlsAreTold()
{
    MainWindow main;
    QWidget* window = openView(fetchedView(), main);
    QList<QAccessibleInterface*> told;
    collect(QAccessible::queryAccessibleInterface(window), told);

    QStringList faults;
    QSet<QWidget*> widgets;
    QSet<std::pair<QAccessible::Role, QString>> names;
    for (QAccessibleInterface* face : told) {
        auto* widget = qobject_cast<QWidget*>(face->object());
        widgets.insert(widget);
        if (widget) {
            const QAccessible::Role role = expectedRole(widget);
            if (role != QAccessible::NoRole && face->role() != role)
                faults.append(QStringLiteral("%1: role %2").arg(called(widget)).arg(face->role()));
            const bool holdsOthers = role == QAccessible::Grouping && !qobject_cast<WebControl*>(widget);
            if (holdsOthers && (hasFrameName(face) || !face->relations(QAccessible::Label).isEmpty()))
                faults.append(called(widget) + QStringLiteral(": repeats the name of the frame around it"));
            if (widget->focusProxy() && !qobject_cast<WebControl*>(widget))
                continue;
        }
        const bool page = qobject_cast<WebControl*>(widget);
        if ((!face->state().focusable && !page) || isEntry(face))
            continue;
        ++m_controls;
        const QString name = nameOf(face);
        const QString what = widget ? called(widget) : QStringLiteral("part of a control");
        if (name.isEmpty() || hasFrameName(face))
            faults.append(what + QStringLiteral(": no name"));
        for (const QString& heard : QSet<QString>{name, calledOut(face)}) {
            if (names.contains({face->role(), heard}))
                faults.append(QStringLiteral("%1: another one is named \"%2\"").arg(what, heard));
            names.insert({face->role(), heard});
        }
    }
    for (QWidget* widget : tabControls(window)) {
        if (!widgets.contains(widget))
            faults.append(called(widget) + QStringLiteral(": not told at all"));
    }
    QVERIFY2(!nameOf(told.constFirst()).isEmpty(), "the window has no name");
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    ++m_windows;
}

void TestAccessible::keyboardReachesAll_data()
{
    addViews({"splash", "wait"}); // nothing to use
}

void TestAccessible::keyboardReachesAll()
{
    MainWindow main;
    QWidget* window = openView(fetchedView(), main);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window, Patience));
    QTRY_VERIFY2(controlInHand(), "no control has the focus at the start");

    const QSet<QWidget*> expected = tabControls(window);
    const QList<QWidget*> reached = round(window, false, int(expected.size()));
    QStringList faults;
    QList<QSet<QWidget*>> groups;
    for (QWidget* widget : expected) {
        const auto times = reached.count(widget);
        if (const QSet<QWidget*> group = optionsWith(widget); group.size() > 1 && times == 0) {
            if (!groups.contains(group))
                groups.append(group);
        } else if (times != 1) {
            faults.append(QStringLiteral("%1: reached %2 times").arg(called(widget)).arg(times));
        }
    }
    for (qsizetype i = 1; i < reached.size(); ++i) {
        if (runsBackwards(reached.at(i - 1), reached.at(i))) {
            faults.append(
                QStringLiteral("%1 comes behind %2").arg(called(reached.at(i)), called(reached.at(i - 1))));
        }
    }
    for (const auto* button : window->findChildren<QPushButton*>()) {
        const bool gives = QString(button->text()).remove(u'&') == QStringLiteral("Add to Editor");
        if (gives && QKeySequence::mnemonic(button->text()).isEmpty())
            faults.append(called(button) + QStringLiteral(": no access key"));
    }
    const QStringList keys = accessKeys(window);
    for (const QString& key : QSet<QString>(keys.begin(), keys.end())) {
        if (keys.count(key) > 1)
            faults.append(key + QStringLiteral(": more than one control has it"));
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    m_reached += int(reached.size());

    QList<QWidget*> backwards = round(window, true, int(expected.size()));
    std::reverse(backwards.begin() + 1, backwards.end());
    QCOMPARE(backwards, reached);

    // Within a group of options the arrow keys go on.
    for (const QSet<QWidget*>& group : groups) {
        const auto entry = std::find_if(reached.begin(), reached.end(),
                                        [&](QWidget* widget) { return group.contains(widget); });
        QVERIFY2(entry != reached.end(), "a group of options is not reached");
        (*entry)->setFocus();
        QSet<QWidget*> byArrows = {*entry};
        for (qsizetype i = 1; i < group.size(); ++i) {
            for (const Qt::Key arrow : {Qt::Key_Right, Qt::Key_Down}) { // side by side, or in a column
                if (byArrows.size() == i)
                    QTest::keyClick(window->windowHandle(), arrow);
                byArrows.insert(controlInHand());
            }
        }
        QCOMPARE(byArrows, group);
    }
}

/// Opens a view by its name.
static QWidget* open(const char* name, MainWindow& main)
{
    return openView(viewOf(QString::fromLatin1(name)), main);
}

static QAccessibleInterface* told(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

/// All names in there, one a line.
static QString namesIn(QAccessibleInterface* face)
{
    if (!face)
        return {};
    QString names = nameOf(face) + u'\n';
    for (int i = 0; i < face->childCount(); ++i)
        names += namesIn(face->child(i));
    return names;
}

void TestAccessible::pagesAreTold_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("words");
    QTest::newRow("terms") << "terms"
                           << "WebBrowser1"
                           << "payment";
    QTest::newRow("design surface") << "design"
                                    << "WebBrowser1"
                                    << "Art Deco";
    QTest::newRow("help") << "help"
                          << ""
                          << "Brindlemark";
}

/// What stands in a page, as soon as a screen reader runs.
void TestAccessible::pagesAreTold()
{
    QFETCH(QString, view);
    QFETCH(QString, page);
    QFETCH(QString, words);
    QAccessible::setActive(true); // as a reader's start does
    const auto quiet = qScopeGuard([] { QAccessible::setActive(false); });
    MainWindow main;
    QWidget* window = openView(viewOf(view), main);
    auto* control = window->findChild<WebControl*>(page);
    QVERIFY(control);
    QCOMPARE(told(control)->role(), QAccessible::Grouping);
    QVERIFY(!nameOf(told(control)).isEmpty());
    QTRY_VERIFY2(namesIn(told(control)).contains(words, Qt::CaseInsensitive),
                 qPrintable(namesIn(told(control))));
}

void TestAccessible::valuesAreTold()
{
    {
        MainWindow main;
        auto* fader = qobject_cast<Fader5*>(open("fader", main));
        QAccessibleInterface* red = told(fader->RedA);
        QCOMPARE(red->text(QAccessible::Name), QStringLiteral("First color of the fade, red"));
        QCOMPARE(red->text(QAccessible::Value), QStringLiteral("192"));
        QAccessibleValueInterface* value = red->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue(), QVariant(192));
        QCOMPARE(value->minimumValue(), QVariant(0));
        QCOMPARE(value->maximumValue(), QVariant(255));
        QCOMPARE(told(fader->Color1)->text(QAccessible::Description), QStringLiteral("#C00000"));
        value->setCurrentValue(16);
        QCOMPARE(fader->RedA->Value(), 16);
        QCOMPARE(told(fader->Color1)->text(QAccessible::Description), QStringLiteral("#100000"));
        // The dialog opens with the sample's colour, and nothing changes.
        main.doors.cancelColor();
        told(fader->Color1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(main.doors.takeAsked(), QStringList{QStringLiteral("Color|16")});
        fader->Color1->setFocus();
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            main.doors.cancelColor();
            QTest::keyClick(fader->Color1, key);
            QCOMPARE(main.doors.takeAsked(), QStringList{QStringLiteral("Color|16")});
        }
    }
    {
        MainWindow main;
        auto* find = qobject_cast<Find*>(open("find", main));
        QAccessibleInterface* field = told(find->Text1);
        QCOMPARE(nameOf(field), QStringLiteral("Find what:"));
        QCOMPARE(field->text(QAccessible::Value), QStringLiteral("lamp"));
        QVERIFY(field->state().editable);
    }
    {
        MainWindow main;
        auto* adder = qobject_cast<FrmAddTable*>(open("new-table", main));
        auto* cell = adder->Grid->findChild<QAbstractButton*>(QStringLiteral("Picture1"));
        cell->setFocus();
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down})
            QTest::keyClick(adder->windowHandle(), key);
        QCOMPARE(nameOf(told(adder->focusWidget())), QStringLiteral("Rows: 2, columns: 3"));
        QTest::keyClick(adder->windowHandle(), Qt::Key_Return);
        QCOMPARE(adder->txtRows->text(), QStringLiteral("2"));
        QCOMPARE(adder->txtColls->text(), QStringLiteral("3"));
    }
    MainWindow main;
    main.type(QStringLiteral("<B>lamp</B>"));
    QAccessibleTextInterface* text = told(main.web->RichTextBox1)->textInterface();
    QVERIFY(text);
    QCOMPARE(text->text(0, 7), QStringLiteral("<B>lamp"));
}

void TestAccessible::charactersAreTold()
{
    MainWindow main;
    auto* window = qobject_cast<FrmChar*>(open("characters", main)); // code 36 is marked
    window->CharC->setFocus();
    QTRY_VERIFY(window->CharC->hasFocus());
    QAccessibleInterface* map = told(window->CharC);
    QCOMPARE(map->childCount(), 256);
    QCOMPARE(nameOf(map->focusChild()), QStringLiteral("$, code 36"));
    QVERIFY(map->focusChild()->state().selected);
    QTest::keyClick(window->CharC, Qt::Key_Right);
    QCOMPARE(nameOf(map->focusChild()), QStringLiteral("%, code 37"));
    QCOMPARE(map->text(QAccessible::Value), QStringLiteral("%, code 37"));
    QVERIFY(!map->focusChild()->state().selected);
    QCOMPARE(map->indexOfChild(map->child(200)), 200);
    const QPoint place = map->child(65)->rect().center();
    QCOMPARE(nameOf(map->childAt(place.x(), place.y())), QStringLiteral("A, code 65"));

    QTest::keyClick(window->CharC, Qt::Key_Space);
    QCOMPARE(window->CharC->marked(), 37);
    QTest::keyClick(window->CharC, Qt::Key_Space);
    QCOMPARE(window->CharC->marked(), -1);
}

void TestAccessible::enterPressesTheButtonInHand()
{
    MainWindow main;
    const QPointer<QWidget> window = open("highlight-color", main); // OK would be the default
    main.folder.write(QStringLiteral("web.ini"), "");
    auto* cancel = window->findChild<QAbstractButton*>(QStringLiteral("Command2"));
    cancel->setFocus();
    QTest::keyClick(cancel, Qt::Key_Return);
    QTRY_VERIFY(!window || !window->isVisible());
    QCOMPARE(main.folder.read(QStringLiteral("web.ini")), QByteArray());
}

void TestAccessible::menuBarOpensByKey()
{
    MainWindow main;
    main.web->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.web, Patience));
    QCOMPARE(QApplication::focusWidget(), main.web->RichTextBox1);
    QTest::keyClick(main.web->windowHandle(), Qt::Key_Alt, Qt::AltModifier);
    QTRY_VERIFY(main.web->MenuBar1->activeAction());
    QTest::keyClick(main.web->MenuBar1, Qt::Key_Right);
    QTest::keyClick(main.web->MenuBar1, Qt::Key_Down);
    QTRY_VERIFY(main.web->MnEdit->isVisible());
    QTest::keyClick(main.web->MnEdit, Qt::Key_Escape);
    QTest::keyClick(main.web->MenuBar1, Qt::Key_Escape);
    QTRY_COMPARE(QApplication::focusWidget(), main.web->RichTextBox1);
}

/// From the source box forward to the toolbar, and along it with the arrow keys.
void TestAccessible::toolsOpenByKey()
{
    MainWindow main;
    connectOpenings(main.web);
    main.web->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.web, Patience));
    QTest::keyClick(main.web->windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
    const QWidget* tool = main.web->Toolbar1->widgetForAction(main.web->toolbarButton(Tool::Rule));
    for (int key = 0; key < 22 && QApplication::focusWidget() != tool; ++key)
        QTest::keyClick(main.web->windowHandle(), Qt::Key_Right);
    QCOMPARE(QApplication::focusWidget(), tool);
    QTest::keyClick(main.web->windowHandle(), Qt::Key_Return);
    QTRY_VERIFY(isLoaded<FrmHR>() && form<FrmHR>()->isVisible());
}

/// Tab types into an edited page as into the source box.
void TestAccessible::designSurfaceIsLeftByKey()
{
    MainWindow main;
    main.showTab(FrmWeb::PreviewTab);
    main.typeOnSurface(QStringLiteral("lamp"));
    QCOMPARE(controlInHand(), main.web->WebBrowser1);
    QTest::keyClick(main.web->windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(controlInHand() != main.web->WebBrowser1);
    QTest::keyClick(main.web->windowHandle(), Qt::Key_Tab);
    QCOMPARE(controlInHand(), main.web->WebBrowser1);
    QTest::keyClick(main.web->windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(controlInHand() != main.web->WebBrowser1);
}

void TestAccessible::cleanupTestCase()
{
    qInfo("%d windows, %d controls told, %d reached", m_windows, m_controls, m_reached);
}

WEB_TEST_MAIN(TestAccessible)
#include "tst_accessible.moc"
