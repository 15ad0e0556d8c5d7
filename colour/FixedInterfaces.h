// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace brindlemark {

// The shared procedures of colours and fades by their fixed names and signatures, some of which consume their
// argument. The program itself calls what they wrap, in Codes.h and Fade.h.

/// `colorText` of a colour number. Consumes its argument: what is left in it is the part above red and green.
QString GetHexColor(int& color);

/// `hexNumber`.
QString HexPad6(int color);

/// `parseColor`. A text that begins with "#" is cut to its last six characters, in the caller's variable too.
double HexToColor(QString& code);

/// The value of a hexadecimal digit, "0" to "9" and "A" to "F"; of anything else 0.
int HexDigitValue(QChar digit);

/// The number of a hexadecimal text in either case, of which the last eight characters count. What is no
/// digit counts as 0.
float HexToNumber(const QString& text);

/// `fadeFive` over colour numbers.
QString FadeFive(int c1, int c2, int c3, int c4, int c5, const QString& text, bool wavy);

/// `fadeFive` over channels, 0 to 255 each.
QString FadeFiveRgb(int r1, int g1, int b1, int r2, int g2, int b2, int r3, int g3, int b3, int r4, int g4,
                    int b4, int r5, int g5, int b5, const QString& text, bool wavy);

/// `fadeTwo` over channels, 0 to 255 each.
QString FadeTwoRgb(int r1, int g1, int b1, int r2, int g2, int b2, const QString& text, bool wavy);

/// A fade over two colours: red, green, blue of the first, then of the second, the text, and whether the
/// text goes in waves.
using TwoColorFade = std::function<QString(int, int, int, int, int, int, const QString&, bool)>;

/// Splits two colour numbers into channels and gives them to `fade`, such as `FadeTwoRgb`; returns its text.
QString SplitPairFade(int first, int second, const QString& text, bool mode, const TwoColorFade& fade);

} // namespace brindlemark
