// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/TagOffers.h"

#include "services/ElementAttributes.h"
#include "services/HtmlTokenizer.h"
#include "services/OpenElements.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlemark {

namespace {

constexpr qsizetype MostUsedColors = 8;
constexpr qsizetype ColorDigits = 6;

constexpr std::array<QByteArrayView, 16> HtmlColors = {
    "aqua", "black", "blue",   "fuchsia", "gray",   "green", "lime",  "maroon",
    "navy", "olive", "purple", "red",     "silver", "teal",  "white", "yellow",
};

constexpr bool isAsciiLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool isHexCode(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// What the names of tags, attributes and colours are made of.
constexpr bool isOfName(char c)
{
    return isAsciiLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '#';
}

/// The name that a text ends with; it may be empty.
QByteArrayView nameAtEnd(QByteArrayView text)
{
    qsizetype start = text.size();
    while (start > 0 && isOfName(text[start - 1]))
        --start;
    return text.sliced(start);
}

/// Whether something begins so, in whatever case, and goes on.
bool continues(QByteArrayView entry, const QByteArray& begunInLowerCase)
{
    return entry.size() > begunInLowerCase.size() &&
           isHtmlName(entry.first(begunInLowerCase.size()), begunInLowerCase);
}

/// Where the last tag of a text may begin; -1: there is none.
qsizetype lastTagIn(QByteArrayView text)
{
    for (qsizetype i = text.size() - 2; i >= 0; --i) {
        if (text[i] == '<' && isAsciiLetter(text[i + 1]))
            return i;
    }
    return -1;
}

/// The end tags of what is open, without their beginning "</".
QList<QByteArray> endTagOffers(const QList<QByteArray>& open, QByteArrayView begun, bool hasAngle)
{
    const QByteArray wanted = htmlName(begun);
    QList<QByteArray> tags;
    for (const QByteArray& name : open) {
        const QByteArray tag = hasAngle ? name : name + '>';
        if (continues(tag, wanted))
            tags << tag;
    }
    return tags;
}

/// In capitals where the first letter is one.
QList<QByteArray> attributeOffers(QByteArrayView html, const HtmlToken& tag, QByteArrayView begun)
{
    const QByteArray wanted = htmlName(begun);
    const bool isCapital = begun.front() != wanted.front();
    QList<QByteArray> names;
    for (const std::string_view attribute :
         attributesOf(htmlName(html.sliced(tag.inside.start, tag.inside.length)))) {
        const QByteArray name(attribute.data(), qsizetype(attribute.size()));
        if (continues(name, wanted) && !findAttribute(html, tag, name))
            names << (isCapital ? name.toUpper() : name);
    }
    return names;
}

/// Whether a "#" begins a colour, and no address or character.
bool isColorCode(QByteArrayView text, qsizetype place)
{
    const qsizetype end = place + 1 + ColorDigits;
    if (end > text.size() || (place > 0 && text[place - 1] == '&'))
        return false;
    const QByteArrayView digits = text.sliced(place + 1, ColorDigits);
    return std::ranges::all_of(digits, isHexCode) && (end == text.size() || !isOfName(text[end]));
}

QList<QByteArray> usedColors(QByteArrayView text, QByteArrayView begun)
{
    struct Used
    {
        QByteArrayView written; // where it is first
        int times = 0;
    };
    const QByteArray wanted = htmlName(begun);
    QHash<QByteArray, Used> colors;
    for (qsizetype i = text.indexOf('#'); i >= 0; i = text.indexOf('#', i + 1)) {
        if (!isColorCode(text, i))
            continue;
        const QByteArrayView code = text.sliced(i, 1 + ColorDigits);
        if (!continues(code, wanted))
            continue;
        Used& color = colors[htmlName(code)];
        if (++color.times == 1)
            color.written = code;
    }
    std::vector<Used> ordered(colors.cbegin(), colors.cend());
    std::ranges::sort(ordered, [](const Used& one, const Used& other) {
        return one.times != other.times ? one.times > other.times : one.written.data() < other.written.data();
    });
    QList<QByteArray> codes;
    for (const Used& color : ordered) {
        if (codes.size() < MostUsedColors)
            codes << color.written.toByteArray();
    }
    return codes;
}

QList<QByteArray> colorOffers(QByteArrayView text, QByteArrayView begun)
{
    if (begun.startsWith('#'))
        return usedColors(text, begun);
    const QByteArray wanted = htmlName(begun);
    QList<QByteArray> names;
    for (const QByteArrayView name : HtmlColors) {
        if (continues(name, wanted))
            names << name.toByteArray();
    }
    return names;
}

/// Whether what comes next in a style is a colour.
bool endsBeforeColor(QByteArrayView style)
{
    const QByteArrayView declaration = style.sliced(style.lastIndexOf(';') + 1).trimmed();
    if (!declaration.endsWith(':'))
        return false;
    const QByteArrayView property = declaration.chopped(1).trimmed();
    return isHtmlName(property, "color") || isHtmlName(property, "background-color");
}

/// A tag without its end, and what it would be if it ended there.
struct EndedTag
{
    QByteArray html;
    HtmlToken token;
};

EndedTag endedTag(QByteArrayView torn)
{
    EndedTag tag;
    for (const char* end : {">", "\">", "'>"}) { // a value may be in quotes of either kind
        tag.html = torn.toByteArray() + end;
        HtmlTokenizer tokens(tag.html);
        tokens.next(tag.token);
        if (!tag.token.torn)
            break;
    }
    return tag;
}

/// What there is to offer at the end of a start tag that has no end yet.
QList<QByteArray> offersInTag(QByteArrayView torn, QByteArrayView text)
{
    const EndedTag tag = endedTag(torn);
    if (tag.token.attributes.empty())
        return {};
    const QByteArrayView html = tag.html;
    const HtmlAttribute& last = tag.token.attributes.back();
    const QByteArrayView begun = nameAtEnd(torn);
    const qsizetype start = torn.size() - begun.size();
    if (last.name == TextRange{start, begun.size()})
        return isHtmlBlank(html[start - 1]) ? attributeOffers(html, tag.token, begun) : QList<QByteArray>();
    if (!last.has || last.value.end() != torn.size())
        return {};
    const QByteArray name = htmlName(html.sliced(last.name.start, last.name.length));
    const QByteArrayView inFront = html.sliced(last.value.start, start - last.value.start);
    const bool isColor =
        name == "style" ? endsBeforeColor(inFront) : isColorAttribute(name) && inFront.isEmpty();
    return isColor ? colorOffers(text, begun) : QList<QByteArray>();
}

/// Whether the last token before the caret is an end tag that begins at a place and has no end yet.
bool isEndTagBegun(const HtmlToken& last, qsizetype place)
{
    if (last.kind == HtmlTokenKind::Dropped)
        return last.torn && last.whole.start == place;
    // Without a letter, or in a title, it is still a text.
    return last.kind == HtmlTokenKind::Text &&
           (last.content == HtmlContent::Data || last.content == HtmlContent::Rcdata);
}

} // namespace

bool mayOffer(QByteArrayView before)
{
    const QByteArrayView near = before.last(std::min(before.size(), OffersNear));
    const QByteArrayView begun = nameAtEnd(near);
    if (near.chopped(begun.size()).endsWith("</"))
        return true;
    const qsizetype start = begun.isEmpty() ? -1 : lastTagIn(near);
    if (start < 0)
        return false;
    HtmlTokenizer tokens(near.sliced(start));
    HtmlToken tag;
    return tokens.next(tag) && tag.torn;
}

std::optional<Offers> offersAt(QByteArrayView text, qsizetype caret)
{
    const QByteArrayView before = text.first(caret);
    if (!mayOffer(before))
        return std::nullopt;
    const QByteArrayView begun = nameAtEnd(before);
    const TextRange typed{caret - begun.size(), begun.size()};
    const bool isEnd = before.first(typed.start).endsWith("</");
    OpenElements open;
    HtmlToken last;
    for (HtmlTokenizer tokens(before); tokens.next(last);) {
        if (isEnd)
            open.see(before, last);
    }
    QList<QByteArray> entries;
    if (isEnd) {
        const QList<QByteArray> names = open.names();
        if (isEndTagBegun(last, typed.start - 2)) {
            // In a title no other end tag counts.
            entries = endTagOffers(last.content == HtmlContent::Rcdata ? names.mid(0, 1) : names, begun,
                                   caret < text.size() && text[caret] == '>');
        }
    } else if (last.torn && last.kind == HtmlTokenKind::Dropped &&
               isAsciiLetter(before[last.whole.start + 1]) && caret - last.whole.start <= OffersNear &&
               (caret == text.size() || !isOfName(text[caret]))) {
        entries = offersInTag(before.sliced(last.whole.start), text);
    }
    return entries.isEmpty() ? std::nullopt : std::optional(Offers{typed, entries});
}

} // namespace brindlemark
