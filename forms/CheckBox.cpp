// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/CheckBox.h"

#include "forms/GraphicalButton.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"

namespace brindlemark {

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent)
{
    connect(this, &QCheckBox::toggled, this, &CheckBox::Click);
    connect(this, &QCheckBox::clicked, this, &CheckBox::MouseUp);
}

void CheckBox::setValue(int value)
{
    if (value != 0 && value != 1)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    setChecked(value == 1);
}

void CheckBox::setGraphical(bool graphical)
{
    m_graphical = graphical;
    updateGeometry();
    update();
}

QSize CheckBox::sizeHint() const
{
    return guardedCall(
        [&]() -> QSize { return m_graphical ? graphicalButtonSize(*this) : QCheckBox::sizeHint(); });
}

bool CheckBox::hitButton(const QPoint& position) const
{
    return guardedCall(
        [&] { return m_graphical ? rect().contains(position) : QCheckBox::hitButton(position); });
}

void CheckBox::paintEvent(QPaintEvent* event)
{
    guardedCall([&] {
        if (m_graphical) {
            paintGraphicalButton(*this);
        } else {
            QCheckBox::paintEvent(event);
        }
    });
}

} // namespace brindlemark
