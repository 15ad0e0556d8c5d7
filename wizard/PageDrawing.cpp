// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/PageDrawing.h"

#include "platform/Accessible.h"
#include "platform/Events.h"
#include "services/PerStyle.h"

#include <QMouseEvent>
#include <QPainter>
#include <array>
#include <utility>

namespace brindlemark {

namespace {

/// A place on a drawing, in the drawing's units. With no width nothing is drawn there; lines have no height.
struct Place
{
    int left;
    int top;
    int width;
    int height;
};

constexpr Place Nowhere = {0, 0, 0, 0};

/// Turns places into pixels: the drawing fills the widget as far as its proportions allow.
class Canvas
{
public:
    Canvas(QWidget* widget, QSize units) : m_painter(widget)
    {
        m_scale = qMin(double(widget->width()) / units.width(), double(widget->height()) / units.height());
        m_origin = QPoint((widget->width() - pixels(units.width())) / 2,
                          (widget->height() - pixels(units.height())) / 2);
    }

    QPainter& painter() { return m_painter; }
    int stroke() const { return qMax(1, pixels(1)); }

    QRect rect(const Place& place) const
    {
        const QPoint topLeft(pixels(place.left), pixels(place.top));
        const QPoint bottomRight(pixels(place.left + place.width), pixels(place.top + place.height));
        return QRect(topLeft + m_origin, QSize(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y()));
    }

    void fill(const Place& place, const QColor& color) { m_painter.fillRect(rect(place), color); }

    void line(const Place& place, const QColor& color)
    {
        QRect line = rect(place);
        line.setHeight(stroke());
        m_painter.fillRect(line, color);
    }

    /// A text in the middle of its place's height: from the left where it begins with a blank, else centred.
    void text(const Place& place, const QColor& color, const QString& text)
    {
        const Qt::Alignment across = text.startsWith(u' ') ? Qt::AlignLeft : Qt::AlignHCenter;
        m_painter.setPen(color);
        m_painter.drawText(rect(place), int(across | Qt::AlignVCenter), text);
    }

    void outline(const Place& place, const QColor& color)
    {
        const QRect outer = rect(place);
        const QRect inner = outer.adjusted(stroke(), stroke(), -stroke(), -stroke());
        m_painter.save();
        m_painter.setClipRegion(QRegion(outer) - QRegion(inner));
        m_painter.fillRect(outer, color);
        m_painter.restore();
    }

private:
    int pixels(int units) const { return qRound(units * m_scale); }

    QPainter m_painter;
    double m_scale;
    QPoint m_origin;
};

/// How many pixels a unit should have so that a line of text fits into a row of the drawing.
double unitsScale(const QWidget* widget)
{
    constexpr int rowHeight = 18; // units
    return double(widget->fontMetrics().height() + 2) / rowHeight;
}

/// Where something stands in each design style.
using Places = PerStyle<Place>;

constexpr QSize PageUnits(200, 250);

constexpr Places everywhere(const Place& place)
{
    return {place, place, place, place};
}

constexpr Places Page = everywhere({0, 0, 200, 250});
constexpr Places Inside = everywhere({3, 3, 194, 244});
constexpr Places TitleRow = everywhere({10, 9, 180, 18});
// In style 3 the title cell of the description, else the description itself.
constexpr Places DescriptionRow = {{55, 42, 90, 18}, {55, 42, 90, 18}, {55, 38, 90, 18}, {3, 33, 194, 18}};
// In styles 0 and 1 the three sections have a table of their own, narrower than the page.
constexpr Places PaymentRow = {{22, 84, 156, 18}, {22, 84, 156, 18}, {3, 84, 194, 18}, {3, 84, 194, 18}};
constexpr Places LocationRow = {{22, 136, 156, 18}, {22, 136, 156, 18}, {3, 138, 194, 18}, {3, 138, 194, 18}};
constexpr Places WhoPaysRow = {{22, 188, 156, 18}, {22, 188, 156, 18}, {3, 192, 194, 18}, {3, 192, 194, 18}};
constexpr Places Sections = {Nowhere, {22, 84, 156, 156}, {3, 84, 194, 163}, {3, 84, 194, 163}};

constexpr Places fromStyle1(const Places& places)
{
    return {Nowhere, places.at(1), places.at(2), places.at(3)};
}

enum class Kind { Fill, Outline, Line, Text };

/// Something drawn in a colour of the page.
struct Mark
{
    Kind kind;
    DrawingPart part;
    Places places;
    const char* text = "";
};

using Part = DrawingPart;

// clang-format off
constexpr Mark PageMarks[] = {
    {Kind::Fill, Part::Page, Page},
    {Kind::Fill, Part::TitleGround, Inside},
    {Kind::Text, Part::Title, TitleRow, "Title:"},
    {Kind::Line, Part::Rule, {{28, 34, 144, 0}, {28, 34, 144, 0}, {3, 33, 194, 0}, Nowhere}},
    {Kind::Fill, Part::DescriptionGround, DescriptionRow},
    {Kind::Text, Part::Description, DescriptionRow, " Description:"},
    {Kind::Line, Part::DescriptionLines, {{40, 66, 120, 0}, {40, 66, 120, 0}, {40, 62, 120, 0}, {20, 62, 160, 0}}},
    {Kind::Line, Part::DescriptionLines, {{40, 74, 120, 0}, {40, 74, 120, 0}, {40, 71, 120, 0}, {20, 71, 160, 0}}},

    {Kind::Fill, Part::CellGround, PaymentRow},
    {Kind::Text, Part::Cells, PaymentRow, " Payment:"},
    {Kind::Line, Part::Lists, {{34, 113, 100, 0}, {34, 113, 100, 0}, {16, 114, 130, 0}, {16, 114, 130, 0}}},
    {Kind::Line, Part::Lists, {{34, 124, 100, 0}, {34, 124, 100, 0}, {16, 126, 130, 0}, {16, 126, 130, 0}}},
    {Kind::Fill, Part::CellGround, LocationRow},
    {Kind::Text, Part::Cells, LocationRow, " Location Shipping:"},
    {Kind::Line, Part::Lists, {{34, 165, 100, 0}, {34, 165, 100, 0}, {16, 168, 130, 0}, {16, 168, 130, 0}}},
    {Kind::Line, Part::Lists, {{34, 176, 100, 0}, {34, 176, 100, 0}, {16, 180, 130, 0}, {16, 180, 130, 0}}},
    {Kind::Fill, Part::CellGround, WhoPaysRow},
    {Kind::Text, Part::Cells, WhoPaysRow, " Pays Shipping:"},
    {Kind::Line, Part::Lists, {{34, 217, 100, 0}, {34, 217, 100, 0}, {16, 222, 130, 0}, {16, 222, 130, 0}}},
    {Kind::Line, Part::Lists, {{34, 228, 100, 0}, {34, 228, 100, 0}, {16, 234, 130, 0}, {16, 234, 130, 0}}},

    {Kind::Outline, Part::Borders, Page},
    {Kind::Outline, Part::Borders, Sections},
    {Kind::Outline, Part::Borders, fromStyle1(LocationRow)},
    {Kind::Outline, Part::Borders, fromStyle1(WhoPaysRow)},
    {Kind::Outline, Part::Borders, {Inside.at(0), Inside.at(1), Inside.at(2), DescriptionRow.at(3)}},
    {Kind::Line, Part::Borders, {Nowhere, {22, 102, 156, 0}, {3, 102, 194, 0}, {3, 102, 194, 0}}},
};
// clang-format on

constexpr QSize ThumbnailUnits(96, 64);

/// The arrangement of a picture style. Two pictures mean that all of them are shown.
struct Arrangement
{
    std::array<Place, 2> pictures;
    std::array<Place, 3> lines; // of the description
};

constexpr std::array<Arrangement, 4> Arrangements = {{
    {{{{8, 14, 36, 36}, Nowhere}}, {{{52, 22, 36, 0}, {52, 32, 36, 0}, {52, 42, 28, 0}}}},
    {{{{14, 6, 30, 28}, {52, 6, 30, 28}}}, {{{16, 42, 64, 0}, {16, 49, 64, 0}, {28, 56, 40, 0}}}},
    {{{{52, 14, 36, 36}, Nowhere}}, {{{8, 22, 36, 0}, {8, 32, 36, 0}, {8, 42, 28, 0}}}},
    {{{{14, 30, 30, 28}, {52, 30, 30, 28}}}, {{{16, 8, 64, 0}, {16, 15, 64, 0}, {28, 22, 40, 0}}}},
}};

const QColor ThumbnailPaper(0xDD, 0xDD, 0xDD); // both dark and light lines show on it

/// A landscape, the common sign for a picture.
void drawPicture(Canvas& canvas, const Place& place)
{
    if (place.width == 0)
        return;
    const QRect frame = canvas.rect(place);
    QPainter& painter = canvas.painter();
    painter.save();
    painter.setClipRect(frame);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.fillRect(frame, QColor(0x9C, 0xC7, 0xE8));
    painter.setBrush(QColor(0xFF, 0xE0, 0x7A));
    painter.drawEllipse(frame.topLeft() + QPoint(frame.width() / 4, frame.height() / 4), frame.width() / 9,
                        frame.width() / 9);
    painter.setBrush(QColor(0x5D, 0x8F, 0x57));
    painter.drawEllipse(QPoint(frame.left() + frame.width() / 4, frame.bottom()), frame.width() / 2,
                        frame.height() / 3);
    painter.setBrush(QColor(0x3F, 0x6F, 0x45));
    painter.drawEllipse(QPoint(frame.right() - frame.width() / 5, frame.bottom()), frame.width() / 2,
                        frame.height() / 2);
    painter.restore();
    canvas.outline(place, QColor(0x60, 0x60, 0x60));
}

} // namespace

PageDrawing::PageDrawing(QWidget* parent) : QWidget(parent)
{
    describeClass(staticMetaObject, accessibleGraphic);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PageDrawing::setLook(int style, const DrawingColors& colors)
{
    m_style = style;
    m_colors = colors;
    update();
}

QSize PageDrawing::sizeHint() const
{
    return guardedCall([&]() -> QSize { return PageUnits * unitsScale(this); });
}

void PageDrawing::paintEvent(QPaintEvent*)
{
    guardedCall([&] {
        Canvas canvas(this, PageUnits);
        for (const Mark& mark : PageMarks) {
            const Place& place = mark.places.at(size_t(m_style));
            if (place.width == 0)
                continue;
            const QColor color = m_colors[mark.part];
            switch (mark.kind) {
            case Kind::Fill:
                canvas.fill(place, color);
                break;
            case Kind::Outline:
                canvas.outline(place, color);
                break;
            case Kind::Line:
                canvas.line(place, color);
                break;
            case Kind::Text:
                canvas.text(place, color, QLatin1String(mark.text));
                break;
            }
        }
    });
}

PictureStyleDrawing::PictureStyleDrawing(QWidget* parent) : QWidget(parent)
{
    describeClass(staticMetaObject, accessibleGraphic);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureStyleDrawing::setLook(int pictureStyle, const DrawingColors& colors)
{
    m_pictureStyle = pictureStyle;
    m_colors = colors;
    update();
}

void PictureStyleDrawing::offerClick(bool offered)
{
    if (offered) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
}

void PictureStyleDrawing::mousePressEvent(QMouseEvent* event)
{
    guardedCall([&] {
        m_pressed = event->button() == Qt::LeftButton;
        event->setAccepted(m_pressed);
    });
}

void PictureStyleDrawing::mouseReleaseEvent(QMouseEvent* event)
{
    guardedCall([&] {
        if (event->button() == Qt::LeftButton && std::exchange(m_pressed, false) &&
            rect().contains(event->position().toPoint()))
            emit clicked();
    });
}

QSize PictureStyleDrawing::sizeHint() const
{
    return guardedCall([&]() -> QSize { return ThumbnailUnits * unitsScale(this); });
}

void PictureStyleDrawing::paintEvent(QPaintEvent*)
{
    guardedCall([&] {
        Canvas canvas(this, ThumbnailUnits);
        canvas.fill({0, 0, ThumbnailUnits.width(), ThumbnailUnits.height()}, ThumbnailPaper);
        const Arrangement& arrangement = Arrangements.at(size_t(m_pictureStyle));
        for (const Place& picture : arrangement.pictures)
            drawPicture(canvas, picture);
        for (size_t i = 0; i < arrangement.lines.size(); ++i) {
            // The first line of all stays black. So meant: a picked colour shows beside it.
            const bool first = m_pictureStyle == 0 && i == 0;
            canvas.line(arrangement.lines[i], first ? QColor(Qt::black) : m_colors[Part::PictureLines]);
        }
    });
}

} // namespace brindlemark
