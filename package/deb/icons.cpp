// SPDX-License-Identifier: GPL-3.0-or-later

// icons <svg> <folder> <pixels>...: draws a symbol in these sizes, each as <folder>/<pixels>.png.

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
    if (arguments.size() < 4)
        qFatal("usage: icons <svg> <folder> <pixels>...");
    QSvgRenderer symbol(arguments[1]);
    if (!symbol.isValid())
        qFatal("%s is no picture", qPrintable(arguments[1]));
    for (const QString& pixels : arguments.sliced(3)) {
        const int size = pixels.toInt();
        QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        symbol.render(&painter);
        painter.end();
        if (!picture.save(QDir(arguments[2]).filePath(pixels + QStringLiteral(".png"))))
            qFatal("can't write into %s", qPrintable(arguments[2]));
    }
    return 0;
}
