// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/KeyQueue.h"

#include "platform/Events.h"
#include "web/WebEngine.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcut>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace brindlemark {

KeyQueue::KeyQueue() = default;
KeyQueue::~KeyQueue() = default;

void KeyQueue::hold(const QKeyEvent& key)
{
    m_keys.emplace_back(key.clone());
}

void KeyQueue::sendTo(QWidget* widget)
{
    const QPointer<QWidget> alive(widget); // a key may close its window
    for (const auto& key : std::exchange(m_keys, {})) {
        if (alive)
            QCoreApplication::sendEvent(alive, key.get());
    }
}

ReturnedKeys::ReturnedKeys(const QWidget& page) : m_page(page)
{
    m_timer.setSingleShot(true);
    onInner(&m_timer, &QTimer::timeout, &m_timer, [this] { send(); });
}

void ReturnedKeys::passOn(const QKeyEvent& key)
{
    m_keys.hold(key);
    m_timer.start(0);
}

void ReturnedKeys::send()
{
    if (canAct()) {
        m_keys.sendTo(m_page.parentWidget());
    } else {
        m_timer.start(BusyPause);
    }
}

bool isForWindow(const QKeyEvent& key, const QWidget& window)
{
    if (key.key() == Qt::Key_Alt)
        return true; // let go by itself, it leads to the menu bar
    if (key.modifiers() == Qt::AltModifier && !key.text().isEmpty())
        return true; // comes back to the page where no access key is meant
    // "+" stands with Shift on many keyboards, as other signs do.
    const bool isSign = key.key() < 0x100 && !QChar(key.key()).isLetterOrNumber();
    const QKeySequence sequence(
        isSign ? QKeyCombination(key.modifiers() & ~Qt::ShiftModifier, Qt::Key(key.key()))
               : key.keyCombination());
    const QList<QShortcut*> shortcuts = window.findChildren<QShortcut*>();
    const QList<QAction*> actions = window.findChildren<QAction*>();
    return std::any_of(shortcuts.begin(), shortcuts.end(),
                       [&](const QShortcut* shortcut) {
                           return shortcut->isEnabled() && shortcut->keys().contains(sequence);
                       }) ||
           std::any_of(actions.begin(), actions.end(), [&](const QAction* action) {
               return action->isEnabled() && action->shortcuts().contains(sequence);
           });
}

} // namespace brindlemark
