// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/LongWork.h"

#include "forms/Wait.h"
#include "platform/Events.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QWindow>
#include <utility>

namespace brindlemark {

namespace {

constexpr int HourglassAfter = 100; // ms
constexpr int WindowAfter = 1000;
constexpr qint64 ServeEvery = 50;
constexpr int AnnounceLimit = 200;

int worksUnderWay = 0;

} // namespace

LongWork::LongWork()
{
    m_served.start();
    if (worksUnderWay++ > 0)
        return;
    for (QTimer* timer : {&m_cursorTimer, &m_windowTimer})
        timer->setSingleShot(true);
    onInner(&m_cursorTimer, &QTimer::timeout, &m_cursorTimer, [this] { showHourglass(); });
    onInner(&m_windowTimer, &QTimer::timeout, &m_windowTimer, [this] { showWindow(); });
    m_cursorTimer.start(HourglassAfter);
    m_windowTimer.start(WindowAfter);
}

LongWork::~LongWork()
{
    --worksUnderWay;
    Wait* const wait = m_windowShown ? loaded<Wait>() : nullptr;
    if (!wait)
        return;
    wait->hideProgress();
    if (!m_windowOwned)
        return;
    const bool tookKeyboard = wait->isActiveWindow(); // some desktops activate it against its wish
    wait->Hide();
    if (tookKeyboard && m_front)
        m_front->activateWindow();
}

void LongWork::showHourglass()
{
    if (!m_hourglass)
        m_hourglass.emplace();
}

void LongWork::showWindow()
{
    if (std::exchange(m_windowShown, true))
        return;
    form<Wait>()->showProgress(m_done);
    if (form<Wait>()->isVisible())
        return;
    m_windowOwned = true;
    m_front = QApplication::activeWindow();
    form<Wait>()->Show();
}

void LongWork::announce()
{
    showHourglass();
    showWindow();
    // A window is painted when the desktop has put it up.
    const QDeadlineTimer deadline(AnnounceLimit);
    do {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    } while (!form<Wait>()->windowHandle()->isExposed() && !deadline.hasExpired());
    form<Wait>()->repaint();
}

void LongWork::progress(double done)
{
    if (m_served.elapsed() < ServeEvery)
        return;
    m_done = done;
    if (Wait* wait = m_windowShown ? loaded<Wait>() : nullptr)
        wait->showProgress(done);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_served.start();
}

} // namespace brindlemark
