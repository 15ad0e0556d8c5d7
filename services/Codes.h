// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

// Colour numbers are 32-bit, 0x00BBGGRR, red in the low byte. A colour text is `#RRGGBB`.

/// The red, green and blue of a colour, 0 to 255 each.
struct Channels
{
    int red;
    int green;
    int blue;
};

/// The channels of a colour number, read from the digits of `hexNumber`.
Channels splitColor(int color);

/// The colour text of a colour number. A negative number (a system colour) gives a meaningless text.
QString colorText(int color);

/// The colour number of a text, of which the last six characters count when it begins with "#". Read up to
/// the first character that is no digit, blue first: a text that isn't hexadecimal gives 0.
int parseColor(QStringView text);

/// A number in upper-case hexadecimal, with zeros on the left up to six digits. Those of a colour number read
/// blue, green, red.
QString hexNumber(int number);

} // namespace brindlemark
