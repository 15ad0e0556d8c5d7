// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/PagePrint.h"

#include "platform/RuntimeError.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfDocument>

namespace brindlemark {

namespace {

RuntimeError noSheets()
{
    return {ErrorNumber::PathFileAccess, QStringLiteral("The page could not be printed")};
}

} // namespace

// The engine's own way onto a printer (Qt 6.4) makes the page larger than what the margins leave of the
// paper, so that its right side is cut off.
void printPages(QPagedPaintDevice& device, const QByteArray& pdf,
                const std::function<void(double done)>& progress)
{
    QBuffer bytes;
    bytes.setData(pdf);
    bytes.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&bytes);
    QPainter painter;
    if (document.pageCount() == 0 || !painter.begin(&device))
        throw noSheets();
    // Letters without the specks of photos; and smooth where a preview makes them small.
    painter.setRenderHints(QPainter::LosslessImageRendering | QPainter::SmoothPixmapTransform);
    const QPageLayout layout = device.pageLayout();
    const QSize paper = layout.fullRectPixels(device.logicalDpiX()).size();
    const QPoint corner = -layout.paintRectPixels(device.logicalDpiX()).topLeft(); // from where margins end
    for (int sheet = 0; sheet < document.pageCount(); ++sheet) {
        if (sheet > 0 && !device.newPage())
            throw noSheets();
        painter.drawImage(QRect(corner, paper), document.render(sheet, paper));
        progress(double(sheet + 1) / document.pageCount());
    }
}

} // namespace brindlemark
