// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ColorOfPages.h"

#include <QByteArray>
#include <QColor>
#include <QList>
#include <algorithm>
#include <cctype>
#include <cmath>

namespace brindlemark {

namespace {

bool isHex(char c)
{
    return std::isxdigit(uchar(c)) != 0;
}

/// "red", in any case; "transparent" is none.
std::optional<QRgb> namedColor(const QByteArray& name)
{
    if (name.isEmpty() || name == "transparent" ||
        !std::ranges::all_of(name, [](char c) { return c >= 'a' && c <= 'z'; }))
        return std::nullopt;
    const QColor color(QString::fromLatin1(name));
    return color.isValid() ? std::optional(color.rgb()) : std::nullopt;
}

/// "FFF" or "FFFFFF".
std::optional<QRgb> hexColor(const QByteArray& digits)
{
    if ((digits.size() != 3 && digits.size() != 6) || !std::ranges::all_of(digits, isHex))
        return std::nullopt;
    return QColor(QString::fromLatin1('#' + digits)).rgb();
}

/// A color channel of a part of the digits: its first two that count.
int channel(QByteArray digits, qsizetype leadingZeros)
{
    if (digits.size() > 8)
        digits = digits.last(8);
    return digits.mid(leadingZeros)
        .first(std::min<qsizetype>(2, digits.size() - leadingZeros))
        .toInt(nullptr, 16);
}

} // namespace

std::optional<QRgb> attributeColor(QByteArrayView value)
{
    QByteArray digits = value.trimmed().toByteArray();
    if (value.isEmpty() || digits.compare("transparent", Qt::CaseInsensitive) == 0)
        return std::nullopt;
    if (const auto named = namedColor(digits.toLower()))
        return named;
    if (digits.startsWith('#') && digits.size() == 4) {
        if (const auto color = hexColor(digits.mid(1)))
            return color;
    }
    if (digits.size() > 128)
        digits.truncate(128);
    if (digits.startsWith('#'))
        digits.remove(0, 1);
    std::ranges::replace_if(
        digits, [](char c) { return !isHex(c); }, '0');
    while (digits.isEmpty() || digits.size() % 3 != 0)
        digits += '0';
    const qsizetype length = digits.size() / 3;
    QByteArray parts[3] = {digits.first(length), digits.mid(length, length), digits.last(length)};
    qsizetype zeros = 0;
    const qsizetype kept = std::min<qsizetype>(length, 8);
    while (kept - zeros > 2 && std::ranges::all_of(parts, [&](const QByteArray& part) {
               return part.at(length - kept + zeros) == '0';
           }))
        ++zeros;
    return qRgb(channel(parts[0], zeros), channel(parts[1], zeros), channel(parts[2], zeros));
}

std::optional<QRgb> styleColor(QByteArrayView value)
{
    const QByteArray color = value.trimmed().toByteArray().toLower();
    if (color.startsWith('#'))
        return hexColor(color.mid(1));
    if (!color.startsWith("rgb(") || !color.endsWith(')'))
        return namedColor(color);
    const QList<QByteArray> numbers = color.sliced(4, color.size() - 5).split(',');
    if (numbers.size() != 3)
        return std::nullopt;
    int channels[3] = {};
    for (qsizetype i = 0; i < 3; ++i) {
        bool isNumber = false;
        channels[i] = std::clamp(numbers[i].trimmed().toInt(&isNumber), 0, 255);
        if (!isNumber)
            return std::nullopt;
    }
    return qRgb(channels[0], channels[1], channels[2]);
}

double contrastOf(QRgb one, QRgb other)
{
    const auto luminance = [](QRgb color) {
        const auto linear = [](int channel) {
            const double c = channel / 255.0;
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace brindlemark
