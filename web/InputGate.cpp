// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/InputGate.h"

#include "platform/Events.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointerEvent>
#include <QWidget>

namespace brindlemark {

namespace {

constexpr char Mark[] = "throughTheGate";

bool isMarked(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget->property(Mark).toBool())
            return true;
    }
    return false;
}

/// The widget that an event of a window is on its way to.
const QWidget* destination(const QObject* watched, QEvent& event)
{
    if (watched->isWidgetType())
        return static_cast<const QWidget*>(watched);
    if (!event.isPointerEvent())
        return QApplication::focusWidget();
    const auto& points = static_cast<const QPointerEvent&>(event).points();
    return points.isEmpty() ? nullptr
                            : QApplication::widgetAt(points.constFirst().globalPosition().toPoint());
}

} // namespace

InputGate::InputGate()
{
    QCoreApplication::instance()->installEventFilter(this);
}

InputGate::~InputGate()
{
    QCoreApplication::instance()->removeEventFilter(this);
    for (auto& [receiver, key] : m_keys) {
        if (receiver)
            QCoreApplication::postEvent(receiver, key.release());
    }
}

void InputGate::letThrough(QWidget& widget)
{
    widget.setProperty(Mark, true);
}

bool InputGate::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] { return holdsBack(watched, *event); });
}

bool InputGate::lets(const QObject* watched, QEvent& event)
{
    const bool marked = isMarked(destination(watched, event));
    if (event.type() == QEvent::MouseButtonPress)
        m_pressed = marked;
    return marked || (m_pressed && event.isSinglePointEvent());
}

/// Only the user's own input is spontaneous; keys that a page gives back are not.
bool InputGate::holdsBack(QObject* watched, QEvent& event)
{
    if (!event.spontaneous() || !(watched->isWidgetType() || watched->isWindowType()))
        return false;
    switch (event.type()) {
    case QEvent::ShortcutOverride:
        if (lets(watched, event))
            return false;
        event.accept(); // so that no shortcut acts
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (lets(watched, event))
            return false;
        m_keys.emplace_back(watched, static_cast<QKeyEvent&>(event).clone());
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
        return !lets(watched, event);
    case QEvent::Shortcut:
    case QEvent::Close:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        event.ignore();
        return true;
    default:
        return false;
    }
}

} // namespace brindlemark
