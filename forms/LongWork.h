// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/WaitCursor.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <optional>

namespace brindlemark {

/// The signs of work that may take long, for as long as it lives: after 100 ms the hourglass, after a second
/// the window `Wait` with a bar. They come while events are served, by the work's own waiting or by
/// `progress`.
///
/// Work inside other work shows no signs of its own.
class LongWork
{
public:
    LongWork();
    ~LongWork();
    Q_DISABLE_COPY_MOVE(LongWork)

    /// Tells how much is done, 0 to 1. Serves all events but the user's input, so that windows repaint, and
    /// costs next to nothing if that, or the beginning, was less than 50 ms ago.
    void progress(double done);
    /// Shows both signs at once, for work that will take long and serves no events.
    void announce();

private:
    void showHourglass();
    void showWindow();

    QTimer m_cursorTimer;
    QTimer m_windowTimer;
    std::optional<WaitCursor> m_hourglass;
    QElapsedTimer m_served;
    std::optional<double> m_done;
    bool m_windowShown = false; // the window has been shown, or given its bar
    bool m_windowOwned = false; // this work has shown it, and hides it again
    QPointer<QWidget> m_front;  // what had the keyboard when the window came
};

} // namespace brindlemark
