// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QColor;

namespace brindlemark {

/// The least contrast of words with what is behind them.
inline constexpr double Readable = 4.5;

/// `part` of the way from one colour to another, 0 to 1.
QColor between(const QColor& from, const QColor& to, float part);

/// How many times lighter one colour is than another, 1 to 21, as the Web Content Accessibility Guidelines
/// measure it.
double contrast(const QColor& a, const QColor& b);

/// `color`, nearer to black or white where it has a contrast of less than `least` with `ground`.
QColor standingOut(const QColor& color, const QColor& ground, double least);

} // namespace brindlemark
