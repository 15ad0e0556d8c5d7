// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/ScrollBar.h"

#include "platform/Accessible.h"
#include "platform/DesktopLook.h"
#include "platform/Events.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QWheelEvent>

namespace brindlemark {

namespace {

QPalette tinted(const QPalette& plain, QRgb tint)
{
    return sharedPalette(plain, QStringLiteral("bar %1").arg(tint, 0, 16), [tint](QPalette& palette) {
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            palette.setColor(group, QPalette::Button, QColor::fromRgb(tint));
            palette.setColor(group, QPalette::ButtonText, Qt::black);
        }
    });
}

} // namespace

ScrollBar::ScrollBar(QWidget* parent) : QScrollBar(parent)
{
    describeClass(staticMetaObject, accessibleSlider);
    setFocusPolicy(Qt::StrongFocus); // the toolkit's bars are out of the keyboard's reach
    onInner(this, &QScrollBar::sliderPressed, this, [this] { m_valueAtPress = value(); });
    onInner(this, &QScrollBar::valueChanged, this, &ScrollBar::noticeValue);
    onInner(this, &QScrollBar::sliderReleased, this, &ScrollBar::noticeRelease);
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

void ScrollBar::writeInto(QLineEdit* box, const QString& unit)
{
    on(this, &ScrollBar::Change, box, [this, box, unit] { box->setText(QString::number(value()) + unit); });
}

void ScrollBar::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) {
            QScrollBar::keyPressEvent(event);
            return;
        }
        // The toolkit moves a level bar against these two keys.
        const bool towardsEnd = (event->key() == Qt::Key_Right) != isRightToLeft();
        triggerAction(towardsEnd ? SliderSingleStepAdd : SliderSingleStepSub);
        event->accept();
    });
}

void ScrollBar::wheelEvent(QWheelEvent* event)
{
    guardedCall([&] {
        if (hasFocus()) {
            QScrollBar::wheelEvent(event);
        } else {
            event->ignore();
        }
    });
}

void ScrollBar::showValue(const QString& label)
{
    m_label = label;
    updateGeometry();
    update();
}

void ScrollBar::setTint(QRgb tint)
{
    m_tint = tint;
    update();
}

void ScrollBar::initStyleOption(QStyleOptionSlider* look) const
{
    guardedCall([&] {
        QScrollBar::initStyleOption(look);
        if (m_tint)
            look->palette = tinted(look->palette, *m_tint);
    });
}

QFont ScrollBar::valueFont() const
{
    constexpr double Smaller = 0.85; // bars are lower than a line of text
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * Smaller);
    return small;
}

QString ScrollBar::valueText(int value) const
{
    return QStringLiteral("%1 %2").arg(m_label).arg(value);
}

QSize ScrollBar::minimumSizeHint() const
{
    return guardedCall([&]() -> QSize {
        const QSize size = QScrollBar::minimumSizeHint();
        if (m_label.isEmpty())
            return size;
        const QFontMetrics metrics(valueFont());
        const int arrows = 2 * style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
        return {arrows + metrics.horizontalAdvance(valueText(maximum())) + 2 * metrics.averageCharWidth(),
                qMax(size.height(), metrics.height())};
    });
}

void ScrollBar::paintEvent(QPaintEvent* event)
{
    guardedCall([&] {
        QScrollBar::paintEvent(event);
        if (!m_label.isEmpty()) {
            QPainter painter(this);
            painter.setFont(valueFont());
            QStyleOptionSlider look;
            initStyleOption(&look);
            painter.setPen(look.palette.color(QPalette::ButtonText));
            painter.drawText(rect(), Qt::AlignCenter, valueText(value()));
        }
        if (!hasFocus())
            return;
        // Most styles don't show which bar the keys move.
        QStyleOptionFocusRect frame;
        frame.initFrom(this);
        QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, frame);
    });
}

} // namespace brindlemark
