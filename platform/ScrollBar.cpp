#include "platform/ScrollBar.h"

#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

ScrollBar::ScrollBar(QWidget* parent) : QScrollBar(parent)
{
    setFocusPolicy(Qt::StrongFocus); // the toolkit's bars are out of the keyboard's reach
    connect(this, &QScrollBar::sliderPressed, this, [this] { m_valueAtPress = value(); });
    connect(this, &QScrollBar::valueChanged, this, &ScrollBar::noticeValue);
    connect(this, &QScrollBar::sliderReleased, this, &ScrollBar::noticeRelease);
}

void ScrollBar::noticeValue()
{
    if (isSliderDown()) {
        emit Scroll();
    } else {
        emit Change();
    }
}

void ScrollBar::noticeRelease()
{
    if (value() != m_valueAtPress)
        emit Change();
}

void ScrollBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) {
        QScrollBar::keyPressEvent(event);
        return;
    }
    // The toolkit moves a level bar against these two keys.
    const bool towardsEnd = (event->key() == Qt::Key_Right) != isRightToLeft();
    triggerAction(towardsEnd ? SliderSingleStepAdd : SliderSingleStepSub);
    event->accept();
}

void ScrollBar::paintEvent(QPaintEvent* event)
{
    QScrollBar::paintEvent(event);
    if (!hasFocus())
        return;
    // Most styles don't show which bar the keys move.
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, frame);
}
