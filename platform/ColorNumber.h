// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace brindlemark {

/// The colour of a colour number: 0x00BBGGRR, red in the low byte.
inline QColor colorOf(int number)
{
    return QColor(number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF);
}

/// The colour number of a colour, 0 to 0xFFFFFF; what the colour says of opacity is dropped.
inline int colorNumber(const QColor& color)
{
    return color.red() | color.green() << 8 | color.blue() << 16;
}

} // namespace brindlemark
