// SPDX-License-Identifier: GPL-3.0-or-later

#include "Monkey.h"

#include "Widgets.h"
#include "forms/SSTab.h"
#include "platform/Doors.h"
#include "shell/FrmWeb.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWheelEvent>
#include <QWindow>
#include <array>
#include <utility>

namespace brindlemark {

namespace {

const QString Popup = QStringLiteral("popup");

/// Places within a widget are told in thousandths of its size.
constexpr int Whole = 1000;

// ---- What there is

QList<Form*> openForms()
{
    QList<Form*> forms;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* form = qobject_cast<Form*>(window); form && form->isVisible())
            forms << form;
    }
    // The toolkit's own order is that of addresses.
    std::ranges::sort(forms, {}, [](const Form* form) { return windowName(form); });
    return forms;
}

Form* formCalled(const QString& name)
{
    for (Form* form : openForms()) {
        if (windowName(form) == name)
            return form;
    }
    return nullptr;
}

bool hasOwnName(const QWidget* widget)
{
    return !widget->objectName().isEmpty() && !widget->objectName().startsWith(QStringLiteral("qt_"));
}

/// The widget that a name stands for, such as "FrmHR/Command1"; null when it can't be seen.
QWidget* widgetCalled(const QString& name)
{
    if (name == Popup)
        return QApplication::activePopupWidget();
    QWidget* window = formCalled(name.section(u'/', 0, 0));
    if (!window || !name.contains(u'/'))
        return window;
    auto* widget = window->findChild<QWidget*>(name.section(u'/', 1));
    return widget && widget->isVisible() && widget->window() == window ? widget : nullptr;
}

/// A window of the window system, and a place in it.
struct Spot
{
    QWindow* window;
    QPoint place;
};

/// What the words "name x y" of an action mean, from word `first` on.
std::optional<Spot> spotOf(const Action& action)
{
    QWidget* widget = action.words.size() < 3 ? nullptr : widgetCalled(action.words.at(0));
    if (!widget)
        return std::nullopt;
    const QPoint inside((widget->width() - 1) * action.words.at(1).toInt() / Whole,
                        (widget->height() - 1) * action.words.at(2).toInt() / Whole);
    QWidget* top = widget->window();
    const QPoint place = widget->mapTo(top, inside);
    if (!top->rect().contains(place) || !top->windowHandle() || !top->windowHandle()->isVisible())
        return std::nullopt;
    return Spot{top->windowHandle(), place};
}

// ---- What is done

void clickAt(const QWidget* top, QPoint place)
{
    if (top->isVisible() && top->windowHandle())
        QTest::mouseClick(top->windowHandle(), Qt::LeftButton, {}, place);
}

void mouse(const Action& action)
{
    const std::optional<Spot> spot = spotOf(action);
    if (!spot)
        return;
    const QString& verb = action.verb;
    if (verb == QStringLiteral("click")) {
        QTest::mouseClick(spot->window, Qt::LeftButton, {}, spot->place);
    } else if (verb == QStringLiteral("rightclick")) {
        QTest::mouseClick(spot->window, Qt::RightButton, {}, spot->place);
    } else if (verb == QStringLiteral("middleclick")) {
        QTest::mouseClick(spot->window, Qt::MiddleButton, {}, spot->place);
    } else if (verb == QStringLiteral("doubleclick")) {
        QTest::mouseDClick(spot->window, Qt::LeftButton, {}, spot->place);
    } else if (verb == QStringLiteral("press")) {
        QTest::mousePress(spot->window, Qt::LeftButton, {}, spot->place);
    } else if (verb == QStringLiteral("move")) {
        QTest::mouseMove(spot->window, spot->place);
    } else {
        QTest::mouseRelease(spot->window, Qt::LeftButton, {}, spot->place);
    }
}

void turnWheel(const Action& action)
{
    const std::optional<Spot> spot = spotOf(action);
    if (!spot || action.words.size() < 4)
        return;
    QWheelEvent event(spot->place, spot->window->mapToGlobal(spot->place), {},
                      QPoint(0, action.words.at(3).toInt()), Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(spot->window, &event);
}

/// The window that has the keyboard.
QWindow* keyWindow()
{
    QWindow* window = QGuiApplication::focusWindow();
    return window && window->isVisible() ? window : nullptr;
}

/// Presses a key and lets it go with its modifiers, each in whatever window has the keyboard then: the one
/// before may have closed the window that it went to.
void strike(Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers)
{
    struct Shift
    {
        Qt::Key key;
        Qt::KeyboardModifier modifier;
    };
    constexpr std::array shifts = {
        Shift{Qt::Key_Shift, Qt::ShiftModifier}, Shift{Qt::Key_Control, Qt::ControlModifier},
        Shift{Qt::Key_Alt, Qt::AltModifier}, Shift{Qt::Key_Meta, Qt::MetaModifier}};
    const auto half = [](bool press, Qt::Key of, const QString& letter, Qt::KeyboardModifiers with) {
        if (QWindow* window = keyWindow())
            QTest::simulateEvent(window, press, of, with, letter, false);
    };
    Qt::KeyboardModifiers held;
    for (const Shift& shift : shifts) {
        if (!modifiers.testFlag(shift.modifier))
            continue;
        half(true, shift.key, QString(), held);
        held |= shift.modifier;
    }
    half(true, key, text, held);
    half(false, key, text, held);
    for (const Shift& shift : shifts) {
        if (!modifiers.testFlag(shift.modifier))
            continue;
        half(false, shift.key, QString(), held);
        held &= ~Qt::KeyboardModifiers(shift.modifier);
    }
}

void pressKey(const Action& action)
{
    const QKeySequence keys(action.words.value(0));
    if (keys.isEmpty() || !keyWindow())
        return;
    const QKeyCombination key = keys[0];
    // The toolkit's function gives a text to letters alone.
    QString text;
    if (key.key() == Qt::Key_Space) {
        text = QStringLiteral(" ");
    } else if (key.key() == Qt::Key_Return) {
        text = QStringLiteral("\r");
    }
    strike(key.key(), text, key.keyboardModifiers());
}

void type(const Action& action)
{
    for (const uint code : action.words.value(0).toUcs4()) {
        const QString letter = QString::fromUcs4(reinterpret_cast<const char32_t*>(&code), 1);
        const int key = code < 128 ? QChar(code).toUpper().unicode() : int(Qt::Key_unknown);
        strike(Qt::Key(key), letter, {});
    }
}

/// Opens a menu of the main window and takes an entry, also of a menu in the menu.
void chooseEntry(const Action& action)
{
    FrmWeb* web = loaded<FrmWeb>();
    if (!web || !web->isVisible() || action.words.isEmpty())
        return;
    QMenuBar* bar = web->MenuBar1;
    const auto openedBy = [&](const QString& name) -> QAction* {
        if (const auto* menu = web->findChild<QMenu*>(name))
            return menu->menuAction();
        return web->findChild<QAction*>(name);
    };
    QAction* first = openedBy(action.words.at(0));
    if (!first || !bar->actions().contains(first))
        return;
    clickAt(web, bar->mapTo(web, bar->actionGeometry(first).center()));
    for (qsizetype i = 1; i < action.words.size(); ++i) {
        QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QAction* entry = openedBy(action.words.at(i));
        if (!menu || !entry || !menu->actions().contains(entry))
            return;
        clickAt(menu, menu->actionGeometry(entry).center());
    }
}

void changeTab(const Action& action)
{
    QWidget* window = formCalled(action.words.value(0));
    auto* tabs = window ? window->findChild<SSTab*>() : nullptr;
    const int tab = action.words.value(1).toInt();
    if (!tabs || tab >= tabs->count())
        return;
    const QTabBar* bar = tabs->tabBar();
    clickAt(window, bar->mapTo(window, bar->tabRect(tab).center()));
}

void pushTool(const Action& action)
{
    FrmWeb* web = loaded<FrmWeb>();
    const int tool = action.words.value(0).toInt();
    if (!web || tool < 0 || tool >= int(ToolCount))
        return;
    const QWidget* button = web->Toolbar1->widgetForAction(web->toolbarButton(Tool(tool)));
    if (button && button->isVisible())
        clickAt(web, button->mapTo(web, button->rect().center()));
}

void copyElsewhere(const Action& action)
{
    auto data = std::make_unique<QMimeData>();
    if (action.words.value(0) == QStringLiteral("html"))
        data->setHtml(action.words.value(1));
    data->setText(action.words.value(1));
    doors().setClipboard(std::move(data));
}

void drop(const QString& path)
{
    FrmWeb* web = loaded<FrmWeb>();
    if (!web || !web->RichTextBox1->isVisible() || QApplication::activePopupWidget())
        return;
    QWidget* box = web->RichTextBox1->viewport();
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(box->rect().center(), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box, &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent drop(box->rect().center(), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box, &drop);
}

/// Undoes so many steps of the source box and does them again: the text must be what it was.
QString undoAndRedo()
{
    constexpr int Most = 200;
    FrmWeb* web = loaded<FrmWeb>();
    if (!web || web->tab() != FrmWeb::EditorTab)
        return {};
    RichTextBox* box = web->RichTextBox1;
    int undone = 0;
    while (box->SendScintilla(RichTextBox::SCI_CANREDO) && undone++ < Most)
        box->redo();
    if (box->SendScintilla(RichTextBox::SCI_CANREDO))
        return {};
    const QByteArray text = box->Text();
    for (undone = 0; undone < Most && box->SendScintilla(RichTextBox::SCI_CANUNDO); ++undone)
        box->undo();
    const QByteArray bottom = box->Text();
    for (int redone = 0; redone < undone; ++redone)
        box->redo();
    if (box->Text() != text)
        return QStringLiteral("undo: %1 steps back and forth make another text").arg(undone);
    for (int again = 0; again < undone; ++again)
        box->undo();
    if (box->Text() != bottom)
        return QStringLiteral("undo: %1 steps back a second time make another text").arg(undone);
    for (int redone = 0; redone < undone; ++redone)
        box->redo();
    return {};
}

// ---- What is chosen

constexpr std::array Keys = {
    "Tab",         "Shift+Tab",   "Return", "Return", "Esc",          "Left",      "Right",     "Up",
    "Down",        "Home",        "End",    "PgUp",   "PgDown",       "Del",       "Backspace", "Space",
    "Ctrl+A",      "Ctrl+C",      "Ctrl+V", "Ctrl+X", "Ctrl+Z",       "Ctrl+Y",    "Ctrl+F",    "Ctrl+Z",
    "Shift+Right", "Shift+Left",  "F1",     "F4",     "Alt+Down",     "Ctrl+Home", "Ctrl+End",  "Shift+Down",
    "Ctrl+B",      "Ctrl+I",      "F3",     "F10",    "Ctrl+Shift+Z", "Ctrl+Left", "Ctrl+Del",  "Insert",
    "Shift+End",   "Ctrl+Return", "Alt+C",  "Alt+E",  "Ctrl+Tab",
};

constexpr std::array Typings = {
    "<B>bold</B>",
    "<P>",
    "<!-- -->",
    "<FONT face=Arial>",
    "</TABLE>",
    "0",
    "-1",
    "7",
    "100",
    "32768",
    "99999999999",
    "1,5",
    "#FF0080",
    "http://pictures.example/lamp.svg",
    "lamp.svg",
    "file:///",
    "about:blank",
    "C:\\\\a",
    "%1",
    "<SCRIPT>alert(1)</SCRIPT>",
    "<meta name=\"generator\" content=\"",
};

/// Whether a click on it is more than one on its window.
bool isControl(const QWidget* widget)
{
    return widget->isVisible() && widget->isEnabled() && !widget->isWindow() && !widget->size().isEmpty() &&
           !qobject_cast<const QLabel*>(widget) && widget->metaObject() != &QWidget::staticMetaObject;
}

QStringList onWidget(QWidget* widget, Random& random)
{
    const QPoint inside(random.number(widget->width()), random.number(widget->height()));
    QWidget* named = widget;
    while (!named->isWindow() && !hasOwnName(named))
        named = named->parentWidget();
    const QPoint place = widget->mapTo(named, inside);
    const QString name =
        named->isWindow() ? windowName(named) : windowName(named->window()) + u'/' + named->objectName();
    return {name, QString::number(qBound(0, place.x() * Whole / qMax(1, named->width() - 1), Whole)),
            QString::number(qBound(0, place.y() * Whole / qMax(1, named->height() - 1), Whole))};
}

/// A place on a control, or somewhere in the window.
QStringList somewhere(Form* form, Random& random)
{
    QList<QWidget*> controls;
    for (QWidget* widget : form->findChildren<QWidget*>()) {
        if (isControl(widget) && widget->window() == form)
            controls << widget;
    }
    if (controls.isEmpty() || random.number(20) == 0)
        return onWidget(form, random);
    return onWidget(random.of(controls), random);
}

/// The way to an entry of the main window's menus.
QStringList someEntry(const FrmWeb& web, Random& random)
{
    QStringList way;
    QList<QAction*> actions = web.MenuBar1->actions();
    while (!actions.isEmpty()) {
        const QAction* action = random.of(actions);
        const QMenu* menu = action->menu();
        way << (menu ? menu->objectName() : action->objectName());
        actions = menu ? menu->actions() : QList<QAction*>();
    }
    return way;
}

} // namespace

QString windowName(const QWidget* window)
{
    return QString::fromLatin1(className(window));
}

QString randomTyping(Random& random)
{
    switch (random.number(12)) {
    case 0:
        return QString(100, u'x');
    case 1:
        return QString(300, u'W');
    case 2:
    case 3:
    case 4:
        return random.text(6);
    default:
        return QString::fromLatin1(random.of(Typings));
    }
}

Monkey::Monkey(QString documents) : m_documents(std::move(documents)) {}

Action Monkey::chooseOnPopup(Random& random) const
{
    QWidget* popup = QApplication::activePopupWidget();
    if (random.number(10) < 6) {
        return {
            .verb = QStringLiteral("click"),
            .words = {Popup, QString::number(random.number(Whole)), QString::number(random.number(Whole))}};
    }
    static constexpr std::array PopupKeys = {"Esc", "Down", "Up", "Return", "Left", "Right", "Home"};
    Q_UNUSED(popup)
    return {.verb = QStringLiteral("key"), .words = {QString::fromLatin1(random.of(PopupKeys))}};
}

Action Monkey::choose(Random& random)
{
    const QList<Form*> forms = openForms();
    Action action;
    const auto is = [&](const char* verb, const QStringList& words = {}) {
        action.verb = QString::fromLatin1(verb);
        action.words = words;
    };
    auto* active = qobject_cast<Form*>(QApplication::activeWindow());
    Form* form = active && active->isVisible() && random.number(10) < 7 ? active
                 : forms.isEmpty()                                      ? nullptr
                                                                        : random.of(forms);
    const FrmWeb* web = loaded<FrmWeb>();
    if (!m_next.isEmpty()) {
        action = m_next.takeFirst();
    } else if (QApplication::activePopupWidget() && random.number(10) < 8) {
        action = chooseOnPopup(random);
    } else if (!form || !web) {
        is("pause", {QStringLiteral("20")});
    } else if (const int dice = random.number(200); dice < 72) {
        is("click", somewhere(form, random));
    } else if (dice < 76) {
        is("rightclick", somewhere(form, random));
    } else if (dice < 78) {
        is("middleclick", somewhere(form, random));
    } else if (dice < 82) {
        is("doubleclick", somewhere(form, random));
    } else if (dice < 90) {
        const QStringList from = somewhere(form, random);
        is("press", from);
        QStringList to = from;
        if (random.chance()) {
            to = somewhere(form, random);
        } else { // within the same control
            to[1] = QString::number(random.number(Whole));
            to[2] = QString::number(random.number(Whole));
        }
        for (const char* verb : {"move", "move", "release"})
            m_next << Action{.verb = QString::fromLatin1(verb), .words = to};
    } else if (dice < 98) {
        QStringList where = somewhere(form, random);
        where << (random.chance() ? QStringLiteral("120") : QStringLiteral("-120"));
        is("wheel", where);
    } else if (dice < 128) {
        is("type", {randomTyping(random)});
    } else if (dice < 156) {
        is("key", {QString::fromLatin1(random.of(Keys))});
    } else if (dice < 170) {
        is("menu", someEntry(*web, random));
    } else if (dice < 178) {
        is("tab", {windowName(form), QString::number(random.number(5))});
    } else if (dice < 184) {
        is("tool", {QString::number(random.number(int(ToolCount)))});
    } else if (dice < 190) {
        if (form != web || random.number(10) == 0) {
            is("close", {windowName(form)});
        } else {
            is("tab", {windowName(form), QString::number(random.number(3))});
        }
    } else if (dice < 193) {
        is("copy", {random.chance() ? QStringLiteral("html") : QStringLiteral("text"), randomTyping(random)});
    } else if (dice < 194) {
        is("size", {QString::number(1 + random.number(1366)), QString::number(1 + random.number(768))});
    } else if (dice < 196) {
        is("undoredo");
    } else if (dice < 197) {
        is("drop", {random.of(QDir(m_documents).entryList(QDir::Files))});
    } else {
        is("pause", {QString::number(20 + random.number(200))});
    }
    action.answers = random.bits();
    return action;
}

QString Monkey::perform(const Action& action)
{
    const QString& verb = action.verb;
    if (verb == QStringLiteral("key")) {
        pressKey(action);
    } else if (verb == QStringLiteral("type")) {
        type(action);
    } else if (verb == QStringLiteral("wheel")) {
        turnWheel(action);
    } else if (verb == QStringLiteral("menu")) {
        chooseEntry(action);
    } else if (verb == QStringLiteral("tab")) {
        changeTab(action);
    } else if (verb == QStringLiteral("tool")) {
        pushTool(action);
    } else if (verb == QStringLiteral("copy")) {
        copyElsewhere(action);
    } else if (verb == QStringLiteral("drop")) {
        drop(m_documents + u'/' + action.words.value(0).section(u'/', -1));
    } else if (verb == QStringLiteral("close")) {
        if (QWidget* window = formCalled(action.words.value(0)))
            window->close();
    } else if (verb == QStringLiteral("size")) {
        if (FrmWeb* web = loaded<FrmWeb>())
            web->resize(action.words.value(0).toInt(), action.words.value(1).toInt());
    } else if (verb == QStringLiteral("undoredo")) {
        return undoAndRedo();
    } else if (verb == QStringLiteral("pause")) {
        QTest::qWait(action.words.value(0).toInt());
    } else {
        mouse(action);
    }
    return {};
}

void Monkey::letGo()
{
    for (int i = 0; i < 5 && QApplication::activePopupWidget(); ++i) {
        QPointer<QWidget> popup = QApplication::activePopupWidget();
        if (popup->windowHandle())
            QTest::sendKeyEvent(QTest::Click, popup->windowHandle(), Qt::Key_Escape, QString(), {});
        if (popup && popup->isVisible())
            popup->close();
    }
    if (QWindow* window = keyWindow(); window && QGuiApplication::mouseButtons())
        QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(1, 1));
}

} // namespace brindlemark
