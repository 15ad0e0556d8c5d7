// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Zoom.h"

#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

constexpr std::array ZoomSteps = {50, 60, 70, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300}; // percent
constexpr int NoZoom = 5;

} // namespace

void Zoom::turn(int steps)
{
    m_step = steps == 0 ? 0 : std::clamp(m_step + steps, -NoZoom, int(ZoomSteps.size()) - 1 - NoZoom);
}

int Zoom::percent() const
{
    const int place = m_step + NoZoom;
    return ZoomSteps.at(size_t(place));
}

} // namespace brindlemark
