// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/CharacterReferences.h"

#include <QStringEncoder>
#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace brindlemark {

namespace {

struct NamedReference
{
    std::string_view name; // without "&"
    std::string_view characters;
};

constexpr NamedReference NamedReferences[] = {
#include "services/CharacterReferenceNames.inc"
};

constexpr size_t LongestName = 32;

/// What the numbers 0x80 to 0x9F mean: pages that name them mean Windows-1252. 0 stays as it is.
constexpr std::array<char16_t, 32> WindowsCharacters = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr bool isAlphanumeric(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

QByteArray utf8(char32_t character)
{
    if (character == 0 || character > 0x10FFFF || QChar::isSurrogate(character))
        character = QChar::ReplacementCharacter;
    if (character >= 0x80 && character < 0x80 + WindowsCharacters.size()) {
        if (const char16_t meant = WindowsCharacters.at(character - 0x80))
            character = meant;
    }
    return QString::fromUcs4(&character, 1).toUtf8();
}

/// A reference at the beginning of a text, and how many bytes it takes.
struct Resolved
{
    QByteArray characters;
    qsizetype length = 0;
};

/// "&#..." at the beginning of `text`.
std::optional<Resolved> numericReference(QByteArrayView text)
{
    const bool hex = text.size() > 2 && (text[2] == 'x' || text[2] == 'X');
    const char32_t base = hex ? 16 : 10;
    const qsizetype first = hex ? 3 : 2;
    qsizetype i = first;
    char32_t number = 0;
    for (; i < text.size(); ++i) {
        const int digit = hex ? hexDigit(text[i]) : isDigit(text[i]) ? text[i] - '0' : -1;
        if (digit < 0)
            break;
        number = std::min<char32_t>(number * base + char32_t(digit), 0x110000); // beyond all characters
    }
    if (i == first)
        return std::nullopt;
    const bool ended = i < text.size() && text[i] == ';';
    return Resolved{utf8(number), ended ? i + 1 : i};
}

/// "&name" at the beginning of `text`: the longest name of the list counts.
std::optional<Resolved> namedReference(QByteArrayView text, ReferencePlace place)
{
    size_t length = 0;
    while (length < LongestName && qsizetype(length) + 1 < text.size() &&
           isAlphanumeric(text[qsizetype(length) + 1]))
        ++length;
    std::string_view name(text.data() + 1, length);
    if (qsizetype(length) + 1 < text.size() && text[qsizetype(length) + 1] == ';')
        name = {name.data(), length + 1};
    for (; !name.empty(); name.remove_suffix(1)) {
        const auto* found =
            std::lower_bound(std::begin(NamedReferences), std::end(NamedReferences), name,
                             [](const NamedReference& r, std::string_view n) { return r.name < n; });
        if (found == std::end(NamedReferences) || found->name != name)
            continue;
        const qsizetype end = qsizetype(name.size()) + 1;
        const char next = end < text.size() ? text[end] : '\0';
        if (place == ReferencePlace::AttributeValue && name.back() != ';' &&
            (next == '=' || isAlphanumeric(next)))
            return std::nullopt; // part of an address: "?a=1&copy=2"
        return Resolved{QByteArray(found->characters.data(), qsizetype(found->characters.size())), end};
    }
    return std::nullopt;
}

} // namespace

QByteArray withoutReferences(QByteArrayView text, ReferencePlace place)
{
    QByteArray result;
    qsizetype from = 0;
    for (qsizetype i = text.indexOf('&'); i >= 0; i = text.indexOf('&', std::max(from, i + 1))) {
        const QByteArrayView rest = text.sliced(i);
        const std::optional<Resolved> resolved =
            rest.size() > 1 && rest[1] == '#' ? numericReference(rest) : namedReference(rest, place);
        if (!resolved)
            continue;
        result += text.sliced(from, i - from);
        result += resolved->characters;
        from = i + resolved->length;
    }
    return result + text.sliced(from).toByteArray();
}

} // namespace brindlemark
