// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QList>
#include <QString>
#include <QTimer>
#include <functional>

class QHBoxLayout;
class QLabel;

namespace brindlemark {

/// A quiet bar over the upper edge of what the user looks at: one sentence about what has just happened, and
/// at most two buttons that do something about it. It takes neither the keyboard nor room, and goes by itself
/// after `Stays`, unless the mouse or the keyboard is on it.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    static constexpr int Stays = 15000; // ms

    /// What a button says, and does after the bar has gone.
    struct Action
    {
        QString text;
        std::function<void()> act;
    };

    explicit NoticeBar(QWidget* parent);

    /// Shows a sentence in place of the one before; screen readers are told.
    void tell(const QString& sentence, const QList<Action>& actions = {});
    /// Leaves the sentence that is shown until the bar is hidden.
    void stay() { m_time.stop(); }
    /// Lies over the upper edge of `view`, another child of the parent or within one.
    void lieOver(const QWidget* view);

private:
    void place();
    void timeIsUp();

    QLabel* m_sentence;
    QHBoxLayout* m_buttons;
    const QWidget* m_view = nullptr;
    QTimer m_time{this};
};

} // namespace brindlemark
