// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmSplash.h"

#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Desktop.h"
#include "shell/FrmWeb.h"

#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <chrono>

namespace brindlemark {

using namespace std::chrono_literals;

namespace {

QSvgRenderer& picture()
{
    static QSvgRenderer renderer(QStringLiteral(":/splash.svg"));
    return renderer;
}

} // namespace

FrmSplash::FrmSplash()
{
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setWindowTitle(ProgramName);
    setFixedSize(picture().defaultSize());
    move(screen()->availableGeometry().center() - rect().center());

    Timer2.setObjectName(QStringLiteral("Timer2"));
    Timer2.setSingleShot(true);
    on(&Timer2, &QTimer::timeout, this, &FrmSplash::Timer2_Timer);
    Timer2.start(360ms);
}

void FrmSplash::paintEvent(QPaintEvent*)
{
    guardedCall([&] {
        QPainter painter(this);
        picture().render(&painter, rect());
    });
}

void FrmSplash::Timer2_Timer()
{
    Pause(1);
    auto* main = form<FrmWeb>();
    emit mainWindowLoaded();
    main->Show();
    Unload();
    main->offerUnsavedText(); // waits for the user
    emit documentOffered();
}

} // namespace brindlemark
