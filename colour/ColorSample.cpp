#include "colour/ColorSample.h"

#include "platform/ColorNumber.h"

#include <QLabel>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

void showAsOnPage(QLabel* words, const QColor& color)
{
    QPalette page = words->palette();
    page.setColor(QPalette::Window, Qt::white);
    page.setColor(QPalette::WindowText, color);
    words->setPalette(page);
    words->setAutoFillBackground(true);
}

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
    QColor color = shownColor();
    if (!isEnabled())
        color.setAlphaF(0.4F);
    QColor edge =
        palette().color(QPalette::WindowText); // tells black from a dark window, white from a light one
    edge.setAlphaF(0.5F);
    painter.fillRect(rect(), color);
    painter.setPen(edge);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
