// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Codes.h"

#include <QStringBuilder>
#include <algorithm>

namespace brindlemark {

namespace {

QString hex(int value, int digits)
{
    return QString::number(static_cast<uint>(value), 16).toUpper().rightJustified(digits, u'0');
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

/// The value of the hexadecimal digits with which a text begins; at most seven of them.
int hexValue(const QString& text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isHexDigit);
    return text.left(end - text.begin()).toInt(nullptr, 16);
}

} // namespace

Channels splitColor(int color)
{
    const QString digits = hexNumber(color);
    return {.red = hexValue(digits.right(2)),
            .green = hexValue(digits.mid(2, 2)),
            .blue = hexValue(digits.left(2))};
}

QString colorText(int color)
{
    const int red = color % 256;
    const int green = color / 256 % 256;
    const int blue = color / 65536 % 256;
    return u'#' + hex(red, 2) + hex(green, 2) + hex(blue, 2);
}

int parseColor(QStringView text)
{
    const QStringView digits = text.startsWith(u'#') ? text.right(6) : text;
    return hexValue(QString(digits.right(2) % digits.mid(2, 2) % digits.left(2)));
}

QString hexNumber(int number)
{
    return hex(number, 6);
}

} // namespace brindlemark
