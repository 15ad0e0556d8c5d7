// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <memory>
#include <vector>

class QKeyEvent;
class QWidget;

namespace brindlemark {

/// Keys that can't be acted on yet, in the order in which they came.
class KeyQueue
{
public:
    KeyQueue();
    ~KeyQueue();

    void hold(const QKeyEvent& key);
    /// Sends all of them to a widget, as long as it lives.
    void sendTo(QWidget* widget);

private:
    std::vector<std::unique_ptr<QKeyEvent>> m_keys;
};

/// Keys that a page had no use for. They come back inside a call of the engine and are passed on later, from
/// the queue of events: what the program does on a key may wait for the engine.
class ReturnedKeys
{
public:
    /// `page` is the widget whose parent gets them.
    explicit ReturnedKeys(const QWidget& page);

    /// Passes a key on as soon as the program can act on it.
    void passOn(const QKeyEvent& key);

private:
    void send();

    const QWidget& m_page;
    KeyQueue m_keys;
    QTimer m_timer;
};

/// Whether a window has a use for a key: as a shortcut, for its menu bar, or perhaps as an access key.
bool isForWindow(const QKeyEvent& key, const QWidget& window);

} // namespace brindlemark
