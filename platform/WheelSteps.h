// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWheelEvent>

namespace brindlemark {

/// Counts whole steps of a mouse wheel, of which fine wheels and touchpads tell parts.
class WheelSteps
{
public:
    /// How many steps are full when the wheel was turned on by an angle, in eighths of a degree; less than 0
    /// for those towards the user.
    int turned(int angle)
    {
        m_angle += angle;
        const int steps = m_angle / QWheelEvent::DefaultDeltasPerStep;
        m_angle %= QWheelEvent::DefaultDeltasPerStep;
        return steps;
    }

private:
    int m_angle = 0;
};

} // namespace brindlemark
