// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopLook.h"

#include "platform/Events.h"

#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QPalette>
#include <QScopedValueRollback>

namespace brindlemark {

namespace {

/// `part` of the way from one colour to another.
QColor between(const QColor& from, const QColor& to, float part)
{
    const auto mix = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

void mendColors()
{
    // A palette keeps in mind what is the desktop's and what was set: all else still follows the desktop.
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(withReadableHints(desktop));

    QPalette boxes;
    const QColor window = desktop.color(QPalette::Window);
    if (qGray(window.rgb()) < 128)
        boxes.setColor(QPalette::Base, between(window, desktop.color(QPalette::WindowText), 0.35F));
    QApplication::setPalette(boxes, "QCheckBox");
    QApplication::setPalette(boxes, "QRadioButton");
}

class ColorWatch : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return guardedCall([&] {
            if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange && !m_mending) {
                const QScopedValueRollback<bool> mending(m_mending, true); // our own change comes by here too
                mendColors();
            }
            return false;
        });
    }

private:
    bool m_mending = false;
};

} // namespace

QPalette withReadableHints(QPalette palette)
{
    palette.setColor(QPalette::PlaceholderText,
                     between(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.8F));
    return palette;
}

QPalette sharedPalette(const QPalette& plain, const QString& name,
                       const std::function<void(QPalette&)>& change)
{
    struct Shared
    {
        qint64 plain = 0;
        QPalette palette;
    };
    static QHash<QString, Shared> made;
    Shared& entry = made[name];
    if (entry.plain != plain.cacheKey()) {
        entry = {plain.cacheKey(), plain};
        change(entry.palette);
    }
    QPalette palette = entry.palette;
    palette.setCurrentColorGroup(plain.currentColorGroup());
    return palette;
}

void followDesktopLook()
{
    mendColors();
    qApp->installEventFilter(new ColorWatch(qApp));
}

} // namespace brindlemark
