// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

// Texts into numbers and back, the same on every desktop: the decimal sign is a full stop and there are no
// thousands separators. Surrounding blanks are allowed. Each `to...` raises RuntimeError(TypeMismatch) for
// a text that is empty or no number, and RuntimeError(Overflow) for a number out of range.

/// A whole number, -2147483648 to 2147483647; decimals round to the nearest, halves to the even one.
int toInteger32(const QString& text);
/// A whole number, -32768 to 32767, rounded alike.
int toInteger16(const QString& text);
/// Double precision; sign, decimals and an exponent are allowed.
double toDouble(const QString& text);
/// Single precision, the kind that font sizes have.
float toSingle(const QString& text);
/// "True" or "False" in any case, or a number, of which all but zero are true.
bool toBoolean(const QString& text);

/// "True" or "False".
QString fromBoolean(bool value);
/// The decimal text of a number: up to 7 significant digits of a float, 15 of a double.
QString fromNumber(int value);
QString fromNumber(float value);
QString fromNumber(double value);

} // namespace brindlemark
