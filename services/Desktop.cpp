// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Desktop.h"

#include "platform/Doors.h"

#include <QCoreApplication>
#include <QTimer>
#include <QWidget>

namespace brindlemark {

EventYield::EventYield() : m_served(doors().clock()) {}

void EventYield::serve()
{
    constexpr qint64 interval = 20; // ms
    if (doors().clock() - m_served < interval)
        return;
    QCoreApplication::processEvents();
    m_served = doors().clock();
}

void Pause(double seconds)
{
    const qint64 start = doors().clock();
    QTimer wake; // wakes processEvents() when no other event does
    wake.setTimerType(Qt::PreciseTimer);
    wake.start(5);
    while (double(doors().clock() - start) < seconds * 1000.0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void StayOnTop(QWidget* window)
{
    if (window->windowFlags().testFlag(Qt::WindowStaysOnTopHint))
        return;
    const bool shown = window->isVisible();
    window->setWindowFlag(Qt::WindowStaysOnTopHint); // hides the window
    if (shown)
        window->show();
}

} // namespace brindlemark
