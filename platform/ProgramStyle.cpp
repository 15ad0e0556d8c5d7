// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ProgramStyle.h"

#include "platform/Contrast.h"
#include "platform/Events.h"

#include <QApplication>
#include <QFontMetrics>
#include <QIcon>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

struct BoxSymbol
{
    QStyle::StandardPixmap which;
    const char* file;
};
constexpr std::array<BoxSymbol, 4> BoxSymbols = {{
    {QStyle::SP_MessageBoxInformation, ":/boxes/information.svg"},
    {QStyle::SP_MessageBoxQuestion, ":/boxes/question.svg"},
    {QStyle::SP_MessageBoxWarning, ":/boxes/warning.svg"},
    {QStyle::SP_MessageBoxCritical, ":/boxes/critical.svg"},
}};

/// One icon for all message boxes: the toolkit never forgets the names of an icon's pictures. It is not
/// deleted, as the library that draws it may be unloaded first.
const QIcon& boxSymbol(const BoxSymbol& symbol)
{
    static auto* const made = new std::array<QIcon, BoxSymbols.size()>;
    QIcon& icon = made->at(size_t(&symbol - BoxSymbols.data()));
    if (icon.isNull())
        icon = QIcon(QString::fromLatin1(symbol.file));
    return icon;
}

struct TickColors
{
    QColor box;
    QColor edge;
    QColor mark;
};

TickColors tickColors(const QStyleOption& look)
{
    constexpr double Seen = 4; // where 3 is enough: the edge of a circle is blurred
    constexpr float Pressed = 0.2F;
    constexpr float Faint = 0.5F; // what is disabled
    const QPalette& palette = look.palette;
    const QColor window = palette.color(QPalette::Window);
    const QColor words = palette.color(QPalette::Active, QPalette::WindowText);
    TickColors colors;
    colors.box = palette.color(QPalette::Base);
    if (look.state.testFlag(QStyle::State_Sunken))
        colors.box = between(colors.box, words, Pressed);
    const bool hasKeys =
        look.state.testFlag(QStyle::State_HasFocus) && look.state.testFlag(QStyle::State_KeyboardFocusChange);
    colors.edge = standingOut(hasKeys ? palette.color(QPalette::Highlight) : window, window, Seen);
    colors.mark = standingOut(palette.color(QPalette::Active, QPalette::Text), colors.box, Readable);
    if (!look.state.testFlag(QStyle::State_Enabled)) {
        colors.edge = between(window, colors.edge, Faint);
        colors.mark = between(colors.box, colors.mark, Faint);
    }
    return colors;
}

enum class TickShape { Box, Circle };

/// The tick of a box, its line where it is neither ticked nor not, or the dot of a circle.
void drawMark(TickShape shape, const QStyleOption& look, const QRectF& place, const QColor& color,
              QPainter& painter)
{
    constexpr double Thickness = 0.14; // of the width, like all that follows
    constexpr double DotRadius = 0.25;
    const auto at = [&place](double x, double y) {
        return place.topLeft() + QPointF(place.width() * x, place.height() * y);
    };
    if (shape == TickShape::Circle) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(place.center(), place.width() * DotRadius, place.height() * DotRadius);
        return;
    }
    painter.setPen(QPen(color, place.width() * Thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (look.state.testFlag(QStyle::State_NoChange)) {
        painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
    } else {
        painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.73), at(0.78, 0.28)});
    }
}

void drawTickBox(TickShape shape, const QStyleOption& look, QPainter& painter)
{
    constexpr double Corner = 2; // pixels
    const TickColors colors = tickColors(look);
    const QRectF place = QRectF(look.rect).adjusted(0.5, 0.5, -0.5, -0.5); // the pen's middle
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colors.edge);
    painter.setBrush(colors.box);
    if (shape == TickShape::Circle) {
        painter.drawEllipse(place);
    } else {
        painter.drawRoundedRect(place, Corner, Corner);
    }
    if (look.state.testFlag(QStyle::State_On) || look.state.testFlag(QStyle::State_NoChange))
        drawMark(shape, look, place, colors.mark, painter);
    painter.restore();
}

} // namespace

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    guardedCall([&] {
        if (element == PE_IndicatorCheckBox) {
            drawTickBox(TickShape::Box, *option, *painter);
        } else if (element == PE_IndicatorRadioButton) {
            drawTickBox(TickShape::Circle, *option, *painter);
        } else {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    });
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    return guardedCall([&] {
        const int size = QProxyStyle::pixelMetric(metric, option, widget);
        if (metric != PM_MessageBoxIconSize)
            return size;
        constexpr double SizeOfLetters = 3.2; // of a line's height, as at 9 points
        const QFontMetrics letters(widget ? widget->font() : QApplication::font());
        return qMax(size, qRound(letters.height() * SizeOfLetters));
    });
}

QIcon ProgramStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const
{
    return guardedCall([&]() -> QIcon {
        const auto symbol = std::ranges::find(BoxSymbols, which, &BoxSymbol::which);
        return symbol == BoxSymbols.end() ? QProxyStyle::standardIcon(which, option, widget)
                                          : boxSymbol(*symbol);
    });
}

} // namespace brindlemark
