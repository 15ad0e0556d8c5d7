// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Icons.h"

#include "platform/Events.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QPointer>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <QWidget>

namespace brindlemark {

namespace {

/// The colour in which the files of the icon set are drawn; the ink takes its place.
constexpr char DrawnInk[] = "#232629";
/// The red of what closes or ends something, and one that can be seen in a dark window.
constexpr char DrawnRed[] = "#da4453";
constexpr char LightRed[] = "#ff9aa4";

class NamedIconEngine : public QIconEngine
{
public:
    NamedIconEngine(const char* name, const QWidget* owner)
        : m_file(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name))), m_owner(owner)
    {
    }

    QIconEngine* clone() const override { return new NamedIconEngine(*this); }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override
    {
        guardedCall([&] {
            const qreal ratio = painter->device()->devicePixelRatioF();
            painter->drawPixmap(place, pixmap(place.size() * ratio, mode, state));
        });
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        return guardedCall([&]() -> QPixmap {
            const QString ink = palette().color(QPalette::Normal, QPalette::ButtonText).name();
            const QString key = QStringLiteral("%1 %2 %3x%4 %5")
                                    .arg(m_file, ink)
                                    .arg(size.width())
                                    .arg(size.height())
                                    .arg(mode);
            QPixmap drawn;
            if (!QPixmapCache::find(key, &drawn)) {
                drawn = draw(size, ink);
                if (mode == QIcon::Disabled) {
                    QStyleOption look;
                    look.palette = palette();
                    drawn = QApplication::style()->generatedIconPixmap(mode, drawn, &look);
                }
                QPixmapCache::insert(key, drawn);
            }
            return drawn;
        });
    }

private:
    QPalette palette() const { return m_owner ? m_owner->palette() : QApplication::palette(); }

    QPixmap draw(const QSize& size, const QString& ink) const
    {
        QFile file(m_file);
        if (!file.open(QIODevice::ReadOnly))
            qWarning("no icon %ls", qUtf16Printable(m_file));
        QByteArray drawing = file.readAll().replace(DrawnInk, ink.toLatin1());
        if (QColor(ink).lightness() > 128)
            drawing.replace(DrawnRed, LightRed);
        QSvgRenderer symbol(drawing);
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        symbol.render(&painter);
        return drawn;
    }

    QString m_file;
    QPointer<const QWidget> m_owner;
};

} // namespace

QIcon namedIcon(const char* name, const QWidget* owner)
{
    return QIcon(new NamedIconEngine(name, owner));
}

} // namespace brindlemark
