#include "colour/ColorSample.h"

#include "platform/ColorNumber.h"

#include <QStyleOptionFocusRect>
#include <QStyleOptionFrame>
#include <QStylePainter>

ColorSample::ColorSample(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
}

void ColorSample::setBackColor(int color)
{
    m_color = color;
    update();
}

QColor ColorSample::shownColor() const
{
    return m_color < 0 ? palette().color(QPalette::Button) : colorOf(m_color);
}

void ColorSample::offerClick()
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

QSize ColorSample::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(QStringLiteral("#000000")), fontMetrics().height() + 4};
}

void ColorSample::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = 1;
    frame.frameShape = QFrame::StyledPanel;
    frame.state |= QStyle::State_Sunken;
    QColor color = shownColor();
    if (!isEnabled())
        color.setAlphaF(0.4F);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), color);
    painter.drawControl(QStyle::CE_ShapedFrame, frame);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
