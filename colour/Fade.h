// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// The fade engine: plain text in, HTML out in which every character carries its own colour. Colours run in
// steps: of a run of n characters from colour A to colour B, character i (from 1) stands i of n steps from A,
// so A itself is never seen and the last character has exactly B. Each channel is computed in double
// precision and rounded to the nearest whole number, halves to the even one.
//
// A character is what the reader sees as one: an emoji or an accented letter is never cut in two. Blanks,
// line ends and what has a meaning in HTML are characters like all others; CR LF are two. Nothing is escaped.

/// The text's characters, in order.
QStringList fadeCharacters(const QString& text);

/// Fades over five colour numbers, in four runs that are as long as each other or one character longer than
/// those behind. `wavy` raises and lowers the characters in turn. An empty text gives an empty one. Throws
/// RuntimeError(Overflow) for more than 32767 characters.
QString FadeFive(int c1, int c2, int c3, int c4, int c5, const QString& text, bool wavy);

/// The same over channels, 0 to 255 each.
QString FadeFiveRgb(int r1, int g1, int b1, int r2, int g2, int b2, int r3, int g3, int b3, int r4, int g4,
                    int b4, int r5, int g5, int b5, const QString& text, bool wavy);

/// Fades over two colours, in one run. Unlike those of `FadeFive` its tags are never closed and their values
/// have no quotes, so the colour text stands between "=" and ">". Throws as `FadeFive`.
QString FadeTwoRgb(int r1, int g1, int b1, int r2, int g2, int b2, const QString& text, bool wavy);

/// The value of a hexadecimal digit, "0" to "9" and "A" to "F"; of anything else 0.
int HexDigitValue(QChar digit);

/// The number of a hexadecimal text in either case, of which the last eight characters count. What is no
/// digit counts as 0.
float HexToNumber(const QString& text);
