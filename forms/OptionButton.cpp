// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/OptionButton.h"

#include "forms/GraphicalButton.h"
#include "platform/Events.h"

#include <QButtonGroup>

namespace brindlemark {

OptionButton::OptionButton(QWidget* parent) : QRadioButton(parent)
{
    onInner(this, &QRadioButton::toggled, this, [this](bool set) {
        if (set)
            emit Click();
    });
    connect(this, &QRadioButton::clicked, this, &OptionButton::MouseUp);
}

void OptionButton::setValue(bool value)
{
    if (value) {
        setChecked(true);
    } else {
        clear();
    }
}

void OptionButton::clear()
{
    // The toolkit clears an option only for another one of its group: leave the group meanwhile.
    QButtonGroup* const buttons = group();
    const int id = buttons ? buttons->id(this) : -1;
    const bool exclusive = autoExclusive();
    if (buttons)
        buttons->removeButton(this);
    setAutoExclusive(false);
    setChecked(false);
    setAutoExclusive(exclusive);
    if (buttons)
        buttons->addButton(this, id);
}

void OptionButton::setGraphical(bool graphical)
{
    m_graphical = graphical;
    updateGeometry();
    update();
}

QSize OptionButton::sizeHint() const
{
    return guardedCall(
        [&]() -> QSize { return m_graphical ? graphicalButtonSize(*this) : QRadioButton::sizeHint(); });
}

bool OptionButton::hitButton(const QPoint& position) const
{
    return guardedCall(
        [&] { return m_graphical ? rect().contains(position) : QRadioButton::hitButton(position); });
}

void OptionButton::paintEvent(QPaintEvent* event)
{
    guardedCall([&] {
        if (m_graphical) {
            paintGraphicalButton(*this);
        } else {
            QRadioButton::paintEvent(event);
        }
    });
}

} // namespace brindlemark
