// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QWidget;

/// Keeps the interface alive in a long loop: `serve()` in each round yields to the event queue, but not more
/// often than every 20 ms, so that short rounds stay fast. Any handler may run meanwhile: the loop must not
/// rely on what handlers can change.
class EventYield
{
public:
    EventYield();
    void serve();

private:
    qint64 m_served; // on the doors' clock
};

/// Waits for a span of time, in seconds, and serves all events meanwhile.
void Pause(double seconds);

/// Keeps a window above all others; it keeps its place and size and stays shown or hidden.
void StayOnTop(QWidget* window);
