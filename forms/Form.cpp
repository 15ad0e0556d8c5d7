// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/Form.h"

#include "platform/Accessible.h"
#include "platform/Events.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QWindow>
#include <utility>

namespace brindlemark {

namespace {

/// The window that the user is in, or any of the program's when that one has just been hidden.
const QWidget* frontWindow(const QWidget* except)
{
    const QWidget* active = QApplication::activeWindow();
    if (active && active != except)
        return active;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window != except && window->isVisible() && qobject_cast<const Form*>(window))
            return window;
    }
    return nullptr;
}

/// After what time a window that has no keyboard asks for it again, in milliseconds.
constexpr int Moment = 200;

/// Under Wayland no program raises a window or knows where it is: a window that must not get lost behind
/// another is that one's child.
bool desktopStacksWindows()
{
    static const bool stacks = QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    return stacks;
}

QPointer<Form>& lowestForm()
{
    static QPointer<Form> form;
    return form;
}

QPointer<Form>& lastActivated()
{
    static QPointer<Form> form;
    return form;
}

/// The window that goes as soon as the one shown last has the keyboard.
QPointer<Form>& leavingForm()
{
    static QPointer<Form> form;
    return form;
}

std::function<void(const Form&)>& helpShower()
{
    static std::function<void(const Form&)> show;
    return show;
}

bool isEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Leaves Escape to what is open over a window. The toolkit would ask the window's actions as well: a
/// drop-down list closes when it is asked whether it wants the key, without saying that it does.
class PopupEscape : public QObject
{
public:
    explicit PopupEscape(QCoreApplication* application) : QObject(application)
    {
        application->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return guardedCall([&] {
            if (event->type() != QEvent::ShortcutOverride || !watched->isWindowType() ||
                !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel) ||
                !QApplication::activePopupWidget())
                return false;
            event->accept(); // the key itself comes next, and to the popup
            return true;
        });
    }
};

} // namespace

Form::Form(QWidget* parent) : QWidget(parent, Qt::Window)
{
    describeContainers();
    m_activation.setSingleShot(true);
    m_activation.setInterval(Moment);
    onInner(&m_activation, &QTimer::timeout, this, &Form::activateAgain);
    auto* help = new QShortcut(QKeySequence::HelpContents, this);
    help->setAutoRepeat(false);
    on(help, &QShortcut::activated, this, [this] {
        if (helpShower())
            helpShower()(*this);
    });
}

void showHelpBy(std::function<void(const Form&)> show)
{
    helpShower() = std::move(show);
}

void Form::Show()
{
    if (leavingForm() == this)
        leavingForm() = nullptr;
    if (!std::exchange(m_placed, true))
        placeOverFrontWindow();
    standOverMain();
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    if (testAttribute(Qt::WA_ShowWithoutActivating))
        return;
    activateWindow();
    if (desktopStacksWindows()) {
        lastActivated() = this;
        m_askedAgain = false;
        m_activation.start();
    }
}

void Form::standBelow()
{
    lowestForm() = this;
}

void Form::standOverMain()
{
    if (!(desktopStacksWindows() || m_staysOverMain) || !lowestForm() || lowestForm() == this ||
        !lowestForm()->windowHandle())
        return;
    if (!windowHandle())
        create();
    windowHandle()->setTransientParent(lowestForm()->windowHandle());
}

/// The window that has just gone may still have its turn, so that another one gets the keyboard a moment
/// after this one has asked for it. Some desktops heed no asking at all, but put up a new window in front.
void Form::activateAgain()
{
    letLeavingFormGo();
    const QWidget* active = QApplication::activeWindow();
    const bool another = active && active != this; // of this program: the user has not gone elsewhere
    if (lastActivated() != this || !isVisible() || !another || QApplication::activeModalWidget() ||
        QApplication::activePopupWidget())
        return;
    if (!std::exchange(m_askedAgain, true)) {
        activateWindow();
        m_activation.start();
    } else {
        hide();
        show();
    }
}

void Form::placeOverFrontWindow()
{
    const QWidget* front = frontWindow(this);
    if (!front)
        return; // the window manager knows best
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    const QRect area = front->screen()->availableGeometry();
    const QPoint corner = front->geometry().center() - rect().center();
    move(qBound(area.left(), corner.x(), qMax(area.left(), area.right() - width())),
         qBound(area.top(), corner.y(), qMax(area.top(), area.bottom() - height())));
}

void Form::stayOverMain()
{
    setWindowFlags(Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    m_staysOverMain = true;
}

void Form::placeAt(QPoint corner)
{
    move(corner);
    m_placed = true;
}

void Form::Hide()
{
    leave();
}

void Form::leave()
{
    letLeavingFormGo();
    const Form* next = lastActivated();
    if (isVisible() && next && next != this && next->m_activation.isActive() && !next->isActiveWindow()) {
        leavingForm() = this; // the desktop would give any window the keyboard before it puts up the next one
        setDisabled(m_unloaded);
    } else {
        go();
    }
}

void Form::letLeavingFormGo()
{
    if (Form* form = std::exchange(leavingForm(), nullptr))
        form->go();
}

void Form::go()
{
    hide();
    if (!m_unloaded)
        return;
    whenHandlersReturn([form = QPointer<Form>(this)] {
        if (form)
            form->deleteLater();
    });
}

void Form::changeEvent(QEvent* event)
{
    guardedCall([&] {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::ActivationChange && isActiveWindow() && lastActivated() == this)
            letLeavingFormGo();
    });
}

void Form::Unload()
{
    // The question of `queryUnload` runs an event loop, in which the user can press the close button again.
    if (m_unloaded || m_asking)
        return;
    {
        const QScopedValueRollback<bool> asking(m_asking, true);
        if (!queryUnload())
            return;
    }
    m_unloaded = true;
    leave();
}

void Form::setDefaultButton(QPushButton* button)
{
    button->setDefault(true); // looks like the one that Enter presses
    button->installEventFilter(this);
    m_default = button;
}

void Form::setEscape(std::function<void()> act)
{
    auto* escape = new QAction(this); // a page that has the focus leaves the keys of actions to its window
    escape->setShortcut(Qt::Key_Escape);
    addAction(escape);
    on(escape, &QAction::triggered, this, std::move(act));
    [[maybe_unused]] static const auto* popups = new PopupEscape(qApp);
}

void Form::setCancelButton(QPushButton* button, CloseButton closeButton)
{
    if (closeButton == CloseButton::Cancels)
        m_closesBy = button;
    setEscape([button] { button->click(); });
}

void Form::giveWay(QWidget* sample, int least)
{
    constexpr int Frame = 40; // title bar and edges
    const int missing = sizeHint().height() + Frame - screen()->availableGeometry().height();
    if (missing > 0)
        sample->setMinimumHeight(qMax(least, sample->minimumHeight() - missing));
}

bool Form::queryUnload()
{
    return true;
}

void Form::closeEvent(QCloseEvent* event)
{
    guardedCall([&] {
        event->ignore(); // `Unload` decides, as when the program closes the window
        if (m_unloaded)
            return;
        if (m_closesBy) {
            m_closesBy->click();
        } else {
            guarded([this] { Unload(); });
        }
    });
}

/// A default button that has the focus takes Enter by itself.
bool Form::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        if (watched == m_default && event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            return isEnter(*key) && key->isAutoRepeat();
        }
        return QWidget::eventFilter(watched, event);
    });
}

/// What Enter presses: a button that has the focus, such as Cancel, comes before the window's own. Boxes and
/// options are for the space bar.
QAbstractButton* Form::enterButton() const
{
    auto* inHand = qobject_cast<QAbstractButton*>(focusWidget());
    return inHand && !inHand->isCheckable() ? inHand : m_default;
}

void Form::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        if (QAbstractButton* button = enterButton(); isEnter(*event) && button) {
            if (!event->isAutoRepeat()) // a key that is held down is one press
                button->click();
        } else {
            QWidget::keyPressEvent(event);
        }
    });
}

} // namespace brindlemark
