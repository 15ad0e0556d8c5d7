// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopLook.h"

#include "platform/Events.h"

#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QPalette>
#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>

namespace brindlemark {

namespace {

/// `part` of the way from one colour to another.
QColor between(const QColor& from, const QColor& to, float part)
{
    const auto mix = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

constexpr double Readable = 4.5;

/// The relative luminance of a colour, 0 to 1, as the Web Content Accessibility Guidelines define it.
double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

void mendColors()
{
    // A palette keeps in mind what is the desktop's and what was set: all else still follows the desktop.
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(withReadableSelections(withReadableHints(desktop)));

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

QPalette withReadableSelections(QPalette palette)
{
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor back = palette.color(group, QPalette::Highlight);
        if (contrast(palette.color(group, QPalette::HighlightedText), back) >= Readable)
            continue;
        const bool onDark = contrast(Qt::white, back) >= Readable;
        palette.setColor(group, QPalette::HighlightedText, onDark ? Qt::white : Qt::black);
    }
    return palette;
}

QColor behindBlackWords(const QColor& color)
{
    constexpr float Step = 0.02F;
    QColor back = color;
    for (float part = Step; contrast(back, Qt::black) < Readable; part += Step)
        back = between(color, Qt::white, part);
    return back;
}

QColor onWhitePaper(const QColor& color)
{
    constexpr double Visible = 2;
    return contrast(color, Qt::white) < Visible ? QColor(Qt::black) : color;
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
