// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QWidget;

namespace brindlemark {

/// Keeps the windows answering during a long loop. Each round calls `serve()`, which serves waiting events,
/// but not more often than every 20 ms, so that short rounds stay fast. Any handler may run then: the loop
/// must not rely on what handlers can change.
class EventYield
{
public:
    EventYield();
    void serve();

private:
    qint64 m_served; // when events were last served, ms on the clock of Doors
};

/// Waits for a span of time, in seconds, and serves all events meanwhile.
void Pause(double seconds);

/// Puts a window above all others for good. Its place and size stay, and it stays shown or hidden.
void StayOnTop(QWidget* window);

} // namespace brindlemark
