// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/TextEncoding.h"

#include <QList>
#include <algorithm>
#include <array>
#include <functional>
#include <optional>

namespace brindlemark {

namespace {

constexpr char32_t FirstSpecial = 0x80;

/// The characters of the bytes 0x80 to 0x9F in Windows-1252; the other bytes stand for the character of their
/// own number. The five bytes that the code page leaves open keep their control character, as browsers have
/// it.
constexpr std::array<char16_t, 32> SpecialCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98
};

bool isSpecial(char32_t number)
{
    return number >= FirstSpecial && number < FirstSpecial + SpecialCharacters.size();
}

QChar westernCharacter(char byte)
{
    const auto number = static_cast<uchar>(byte);
    return isSpecial(number) ? QChar(SpecialCharacters[number - FirstSpecial]) : QChar(number);
}

std::optional<char> westernByte(char32_t character)
{
    if (character < 0x100 && !isSpecial(character))
        return static_cast<char>(character);
    const auto* found = std::find(SpecialCharacters.begin(), SpecialCharacters.end(), character);
    if (found == SpecialCharacters.end())
        return std::nullopt;
    return static_cast<char>(FirstSpecial + static_cast<char32_t>(found - SpecialCharacters.begin()));
}

bool isAscii(QChar character)
{
    return character.unicode() < FirstSpecial;
}

/// The characters at the beginning of a text that are of a kind.
template <typename Kind>
QStringView beginning(QStringView text, Kind isOfKind)
{
    return text.first(std::find_if_not(text.begin(), text.end(), isOfKind) - text.begin());
}

} // namespace

TextEncoding encodingOf(const QByteArray& bytes)
{
    return bytes.isValidUtf8() ? TextEncoding::Utf8 : TextEncoding::Western;
}

QByteArray encode(const QString& text, TextEncoding encoding)
{
    if (encoding == TextEncoding::Utf8)
        return text.toUtf8();
    QByteArray bytes;
    bytes.reserve(text.size());
    for (QStringView rest = text; !rest.isEmpty();) {
        const QStringView plain = beginning(rest, isAscii); // most of a page
        bytes += plain.toLatin1();
        rest = rest.sliced(plain.size());
        const QStringView others = beginning(rest, std::not_fn(isAscii));
        for (const char32_t character : others.toUcs4()) {
            if (const std::optional<char> byte = westernByte(character)) {
                bytes += *byte;
            } else {
                bytes += "&#" + QByteArray::number(static_cast<uint>(character)) + ';';
            }
        }
        rest = rest.sliced(others.size());
    }
    return bytes;
}

QString decode(const QByteArray& bytes, TextEncoding encoding)
{
    if (encoding == TextEncoding::Utf8)
        return QString::fromUtf8(bytes);
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), westernCharacter);
    return text;
}

QByteArray toUtf8(const QByteArray& bytes, TextEncoding encoding)
{
    if (encoding == TextEncoding::Utf8)
        return bytes;
    constexpr qsizetype LongestCharacter = 3; // of those in SpecialCharacters
    const auto isPlain = [](char byte) { return static_cast<uchar>(byte) < FirstSpecial; };
    const qsizetype others = bytes.size() - std::count_if(bytes.begin(), bytes.end(), isPlain);
    QByteArray text(bytes.size() + others * (LongestCharacter - 1), Qt::Uninitialized);
    char* end = text.data();
    for (const char* at = bytes.begin(); at != bytes.end();) {
        const char* stop = std::find_if_not(at, bytes.end(), isPlain);
        end = std::copy(at, stop, end);
        for (at = stop; at != bytes.end() && !isPlain(*at); ++at) {
            const QByteArray character = QString(westernCharacter(*at)).toUtf8();
            end = std::copy(character.begin(), character.end(), end);
        }
    }
    text.truncate(end - text.data());
    return text;
}

} // namespace brindlemark
