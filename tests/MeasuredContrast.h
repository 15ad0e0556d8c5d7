// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <cmath>

namespace brindlemark {

/// How many times lighter one colour is than another, 1 to 21, by the relative luminance that the Web Content
/// Accessibility Guidelines define. Measured without the program's own routine.
inline double measuredContrast(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double channel) {
            return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const double lighter = qMax(luminance(a), luminance(b));
    return (lighter + 0.05) / (qMin(luminance(a), luminance(b)) + 0.05);
}

} // namespace brindlemark
