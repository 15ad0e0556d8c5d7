// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

// Colour numbers are 32-bit, 0x00BBGGRR, red in the low byte.

/// The red, green and blue of a colour, 0 to 255 each.
struct Channels
{
    int red;
    int green;
    int blue;
};

/// The channels of a colour number, read from the digits of `HexPad6`.
Channels splitColor(int color);

/// The colour text `#RRGGBB`. Consumes its argument: what is left in it is the part above red and green, so
/// pass a copy. A negative number (a system colour) gives a meaningless text.
QString GetHexColor(int& color);

/// The number in upper-case hexadecimal, with zeros on the left up to six digits. The digits read blue,
/// green, red.
QString HexPad6(int color);

/// The colour number of the digits RRGGBB. A text that begins with "#" is cut to its last six characters, in
/// the caller's variable too. The digits are read as blue, green, red, up to the first that is none: a text
/// that isn't hexadecimal gives 0.
double HexToColor(QString& code);

/// A fade over two colours: red, green, blue of the first, then of the second, the text, and whether the
/// text goes in waves.
using TwoColorFade = std::function<QString(int, int, int, int, int, int, const QString&, bool)>;

/// Splits two colour numbers into channels and gives them to `fade`, the fade engine's two-colour step;
/// returns its text.
QString SplitPairFade(int first, int second, const QString& text, bool mode, const TwoColorFade& fade);
