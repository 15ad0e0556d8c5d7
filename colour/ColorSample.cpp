// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/ColorSample.h"

#include "platform/Accessible.h"
#include "platform/ColorNumber.h"
#include "platform/Events.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace brindlemark {

void showAsOnPage(QLabel* words, const QColor& color)
{
    QPalette page = words->palette();
    page.setColor(QPalette::Window, Qt::white);
    page.setColor(QPalette::WindowText, color);
    words->setPalette(page);
    words->setAutoFillBackground(true);
}

namespace {

/// Tells screen readers that a sample is a button where it can be pressed, else a picture, and its colour.
class AccessibleSample : public QAccessibleWidget
{
public:
    explicit AccessibleSample(QWidget* widget) : QAccessibleWidget(widget) {}

    QAccessible::Role role() const override
    {
        return guardedCall([&]() -> QAccessible::Role {
            return sample().offersClick() ? QAccessible::Button : QAccessible::Graphic;
        });
    }
    QString text(QAccessible::Text kind) const override
    {
        return guardedCall([&]() -> QString {
            if (kind != QAccessible::Value && kind != QAccessible::Description)
                return QAccessibleWidget::text(kind);
            return sample().shownColor().name().toUpper();
        });
    }
    QStringList actionNames() const override
    {
        return guardedCall([&]() -> QStringList {
            const QStringList press = sample().offersClick() ? QStringList{pressAction()} : QStringList();
            return press + QAccessibleWidget::actionNames();
        });
    }
    void doAction(const QString& name) override
    {
        guardedCall([&] {
            if (name == pressAction() && sample().offersClick()) {
                sample().click();
            } else {
                QAccessibleWidget::doAction(name);
            }
        });
    }

private:
    ColorSample& sample() const { return *static_cast<ColorSample*>(object()); }
};

} // namespace

ColorSample::ColorSample(QWidget* parent) : QAbstractButton(parent)
{
    describeClass(staticMetaObject,
                  [](QWidget* widget) -> QAccessibleInterface* { return new AccessibleSample(widget); });
    // What takes the focus when a window is laid out is in its Tab order; showEvent takes it back.
    setFocusPolicy(Qt::StrongFocus);
}

void ColorSample::setBackColor(int color)
{
    m_color = color;
    update();
    QAccessibleEvent told(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&told);
}

QColor ColorSample::shownColor() const
{
    return m_color < 0 ? palette().color(QPalette::Button) : colorOf(m_color);
}

void ColorSample::offerClick()
{
    m_offersClick = true;
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

QSize ColorSample::sizeHint() const
{
    return guardedCall([&]() -> QSize {
        return {fontMetrics().horizontalAdvance(QStringLiteral("#000000")), fontMetrics().height() + 4};
    });
}

void ColorSample::showEvent(QShowEvent* event)
{
    guardedCall([&] {
        if (!m_offersClick)
            setFocusPolicy(Qt::NoFocus);
        QAbstractButton::showEvent(event);
    });
}

void ColorSample::paintEvent(QPaintEvent*)
{
    guardedCall([&] {
        QStylePainter painter(this);
        QColor color = shownColor();
        if (!isEnabled())
            color.setAlphaF(0.4F);
        QColor edge = palette().color(QPalette::WindowText); // so that a black field is seen on a dark window
        edge.setAlphaF(0.5F);
        painter.fillRect(rect(), color);
        painter.setPen(edge);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        if (hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
    });
}

} // namespace brindlemark
