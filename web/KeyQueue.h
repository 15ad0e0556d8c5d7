#pragma once

#include <memory>
#include <vector>

class QKeyEvent;
class QWidget;

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

/// Whether a window has a use for a key: as a shortcut, or perhaps as an access key.
bool isForWindow(const QKeyEvent& key, const QWidget& window);
