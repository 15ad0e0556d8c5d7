// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopLook.h"

#include "platform/Contrast.h"
#include "platform/Events.h"
#include "platform/ProgramStyle.h"

#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QPalette>
#include <QScopedValueRollback>

namespace brindlemark {

namespace {

/// The contrast that leaves thin letters one of 4.5 to 1 when they are drawn: their edges are mixed colours.
constexpr double BehindThinWords = 6;

void mendColors()
{
    // A palette keeps in mind what is the desktop's and what was set: all else still follows the desktop.
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(withReadableSelections(withReadableHints(desktop)));
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
        const QColor words = palette.color(group, QPalette::HighlightedText);
        const QColor back = palette.color(group, QPalette::Highlight);
        palette.setColor(group, QPalette::Highlight, standingOut(back, words, BehindThinWords));
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
    QApplication::setStyle(new ProgramStyle);
    mendColors();
    qApp->installEventFilter(new ColorWatch(qApp));
}

} // namespace brindlemark
