// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Contrast.h"

#include <QColor>
#include <algorithm>
#include <cmath>

namespace brindlemark {

namespace {

/// The relative luminance of a colour, 0 to 1.
double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

QColor between(const QColor& from, const QColor& to, float part)
{
    const auto mix = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor standingOut(const QColor& color, const QColor& ground, double least)
{
    constexpr int Steps = 50;
    const QColor end = contrast(Qt::white, ground) > contrast(Qt::black, ground) ? Qt::white : Qt::black;
    QColor found = color;
    for (int step = 1; step <= Steps && contrast(found, ground) < least; ++step)
        found = between(color, end, float(step) / Steps);
    return found;
}

} // namespace brindlemark
