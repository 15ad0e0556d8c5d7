// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Conversion.h"

#include "platform/RuntimeError.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

namespace brindlemark {

namespace {

/// Rounds to the nearest whole number, halves to the even one, within the range of `Integer`.
template <typename Integer>
Integer rounded(double value)
{
    const double whole = std::nearbyint(value);
    if (whole < std::numeric_limits<Integer>::min() || whole > std::numeric_limits<Integer>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Integer>(whole);
}

const QString trueText = QStringLiteral("True");
const QString falseText = QStringLiteral("False");

} // namespace

int toInteger32(const QString& text)
{
    return rounded<qint32>(toDouble(text));
}

int toInteger16(const QString& text)
{
    return rounded<qint16>(toDouble(text));
}

double toDouble(const QString& text)
{
    // The form is checked here because the library's conversion also takes "inf" and "nan".
    static const QRegularExpression number(
        QStringLiteral("\\A[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)(e[+-]?[0-9]+)?\\z"),
        QRegularExpression::CaseInsensitiveOption);
    const QString trimmed = text.trimmed();
    if (!number.match(trimmed).hasMatch())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    const double value = trimmed.toDouble();
    if (std::isinf(value))
        throw RuntimeError(ErrorNumber::Overflow);
    return value;
}

float toSingle(const QString& text)
{
    const double value = toDouble(text);
    if (std::abs(value) > double(std::numeric_limits<float>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return float(value);
}

bool toBoolean(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.compare(trueText, Qt::CaseInsensitive) == 0)
        return true;
    if (trimmed.compare(falseText, Qt::CaseInsensitive) == 0)
        return false;
    return toDouble(trimmed) != 0.0;
}

QString fromBoolean(bool value)
{
    return value ? trueText : falseText;
}

QString fromNumber(int value)
{
    return QString::number(value);
}

QString fromNumber(float value)
{
    return QString::number(double(value), 'g', 7);
}

QString fromNumber(double value)
{
    return QString::number(value, 'g', 15);
}

} // namespace brindlemark
