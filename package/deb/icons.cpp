// SPDX-License-Identifier: GPL-3.0-or-later

// icons <svg> <folder>: draws a symbol in the sizes that desktops ask for, as <folder>/<pixels>.png.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3)
        qFatal("usage: icons <svg> <folder>");
    QSvgRenderer symbol(arguments[1]);
    if (!symbol.isValid())
        qFatal("%s is no picture", qPrintable(arguments[1]));
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        symbol.render(&painter);
        painter.end();
        if (!picture.save(QDir(arguments[2]).filePath(QStringLiteral("%1.png").arg(size))))
            qFatal("can't write into %s", qPrintable(arguments[2]));
    }
    return 0;
}
