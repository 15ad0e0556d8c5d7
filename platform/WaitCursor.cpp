// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/WaitCursor.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QPolygon>

namespace brindlemark {

namespace {

/// Two triangles of sand between two boards, with a white rim that is seen on dark ground too.
QPixmap drawnHourglass()
{
    constexpr int Side = 24; // pixels
    QPixmap picture(Side, Side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(Qt::white);
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygon({{5, 4}, {18, 4}, {12, 12}, {18, 20}, {5, 20}, {11, 12}}));
    painter.drawRect(3, 1, 17, 3);
    painter.drawRect(3, 20, 17, 3);
    return picture;
}

/// The desktop's own pointer may move. The toolkit takes down, while it runs, what draws such a one under
/// Wayland, and now and then the program with it; a still one needs no drawing.
QCursor hourglass()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland")) ? QCursor(drawnHourglass())
                                                                                : QCursor(Qt::WaitCursor);
}

} // namespace

WaitCursor::WaitCursor()
{
    QGuiApplication::setOverrideCursor(hourglass());
}

WaitCursor::~WaitCursor()
{
    QGuiApplication::restoreOverrideCursor();
}

} // namespace brindlemark
