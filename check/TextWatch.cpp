// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/TextWatch.h"

#include "check/ColorOfPages.h"
#include "services/Elements.h"
#include "source/TextEncoding.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace brindlemark {

namespace {

constexpr QByteArrayView NoBreakSpace = "\xC2\xA0";

/// Blocks, lines and pictures part words; bold does not.
bool partsWords(const QByteArray& name)
{
    const ElementKind* kind = elementKind(name);
    return !kind || !kind->isInline || name == "img";
}

bool isOfMailAddress(char c)
{
    return std::isalnum(uchar(c)) || c == '.' || c == '_' || c == '-' || c == '+';
}

/// A contrast with one digit, and never the limit that it misses.
QByteArray told(double contrast, double limit)
{
    const double rounded = std::round(contrast * 10) / 10;
    return QByteArray::number(rounded < limit ? rounded : std::floor(contrast * 10) / 10, 'f', 1);
}

/// The size that a FONT tag gives: "2", "-1", "+2".
std::optional<int> fontSize(QByteArrayView value)
{
    const QByteArrayView text = value.trimmed();
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber)
        return std::nullopt;
    const bool isRelative = text.startsWith('+') || text.startsWith('-');
    return std::clamp(isRelative ? 3 + number : number, 1, 7);
}

} // namespace

void TextWatch::seeTag(const Tag& tag)
{
    if (partsWords(tag.name))
        m_inWord = false;
    if (!tag.starts()) {
        close(tag.name);
        return;
    }
    const ElementKind* kind = elementKind(tag.name);
    if (!kind || kind->end != EndTagNeed::Never)
        push(lookOf(tag));
}

/// What a tag makes of the look around it.
TextWatch::Look TextWatch::lookOf(const Tag& tag) const
{
    const TextRange place = tag.token.whole;
    const auto value = [&](QByteArrayView name) { return attributeValue(m_page.html, tag.token, name); };
    Look look = m_looks.back();
    look.name = tag.name;
    // A link has colours of its own, and in a table that of the page's text doesn't count on many pages.
    if (tag.name == "a" || tag.name == "table")
        look.text = {};
    if (const auto color = value(tag.name == "body" ? "text" : "color");
        color && (tag.name == "body" || tag.name == "font"))
        look.text = {attributeColor(*color), place};
    if (const auto color = value("bgcolor"))
        look.ground = {attributeColor(*color), place};
    if (value("background"))
        look.ground = {}; // a picture, of any colour
    if (const auto size = value("size"); size && tag.name == "font") {
        look.size = fontSize(*size).value_or(look.size);
        look.sizeTag = place;
    }
    if (const auto style = value("style")) {
        if (const auto color = styleProperty(*style, "color"))
            look.text = {styleColor(*color), place};
        for (const char* property : {"background", "background-color"}) {
            if (const auto color = styleProperty(*style, property))
                look.ground = {styleColor(*color), place};
        }
    }
    return look;
}

void TextWatch::push(Look look)
{
    ++m_openNames[look.name];
    m_looks.push_back(std::move(look));
}

void TextWatch::close(const QByteArray& name)
{
    if (m_openNames.value(name) == 0)
        return;
    const bool isCell = isTableCell(name);
    for (size_t i = m_looks.size(); i > 1; --i) {
        const Look& look = m_looks[i - 1];
        if (look.name == name) {
            while (m_looks.size() >= i) {
                --m_openNames[m_looks.back().name];
                m_looks.pop_back();
            }
            return;
        }
        const ElementKind* kind = elementKind(name);
        if (kind && kind->isInline && isTableCell(look.name) && !isCell)
            return; // it stands in another cell
    }
}

void TextWatch::seeText(const HtmlToken& text)
{
    const QByteArrayView source = m_page.source(text.inside);
    countWords(source.contains('&') ? QByteArrayView(htmlText(m_page.html, text)) : source);
    if (std::ranges::all_of(source, isHtmlBlank))
        return;
    seeColors();
    seeSize(source.trimmed().size());
    seeLeftovers(text);
    seeMailAddresses(text);
}

void TextWatch::countWords(QByteArrayView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isHtmlBlank(c) || text.sliced(i).startsWith(NoBreakSpace)) {
            m_inWord = false;
        } else if (!m_inWord && (std::isalnum(uchar(c)) || (uchar(c) >= 0x80 && !isContinuation(c)))) {
            m_inWord = true;
            ++m_words;
        }
    }
}

void TextWatch::seeColors()
{
    const Look& look = m_looks.back();
    if (!look.text.color || !look.ground.color)
        return;
    const double contrast = contrastOf(*look.text.color, *look.ground.color);
    const std::pair colors(*look.text.color, *look.ground.color);
    if (contrast >= m_page.limits.contrast || m_toldColors.contains(colors))
        return;
    m_toldColors.insert(colors);
    const TextRange inner = look.text.tag.start > look.ground.tag.start ? look.text.tag : look.ground.tag;
    m_page.find(CheckRule::Contrast, inner, told(contrast, m_page.limits.contrast));
}

void TextWatch::seeSize(qsizetype length)
{
    const Look& look = m_looks.back();
    if (look.size > 2)
        return;
    qsizetype& small = m_smallText[look.sizeTag.start];
    const bool wasLong = small > m_page.limits.longText;
    small += length;
    if (!wasLong && small > m_page.limits.longText)
        m_page.find(CheckRule::SmallText, look.sizeTag, QByteArray::number(look.size));
}

/// "http://" without more, and the amount of a price that was never filled in.
void TextWatch::seeLeftovers(const HtmlToken& text)
{
    const QByteArrayView source = m_page.source(text.inside);
    const auto find = [&](qsizetype start, qsizetype end) {
        m_page.find(CheckRule::Leftover, {text.inside.start + start, end - start},
                    source.sliced(start, end - start).toByteArray());
    };
    for (qsizetype i = source.indexOf("://"); i >= 0; i = source.indexOf("://", i + 1)) {
        const qsizetype end = i + 3;
        if (end < source.size() && !isHtmlBlank(source[end]))
            continue;
        for (const QByteArrayView scheme : {QByteArrayView("http"), QByteArrayView("https")}) {
            if (i >= scheme.size() && isHtmlName(source.sliced(i - scheme.size(), scheme.size()), scheme))
                find(i - scheme.size(), end);
        }
    }
    for (qsizetype i = source.indexOf("$."); i >= 0; i = source.indexOf("$.", i + 1)) {
        qsizetype end = i + 2;
        while (end < source.size() && std::isdigit(uchar(source[end])))
            ++end;
        if (source.sliced(i + 2, end - i - 2).count('0') == end - i - 2) // "$.99" is a price
            find(i, end);
    }
}

void TextWatch::seeMailAddresses(const HtmlToken& text)
{
    const QByteArrayView source = m_page.source(text.inside);
    for (qsizetype at = source.indexOf('@'); at >= 0; at = source.indexOf('@', at + 1)) {
        qsizetype start = at;
        while (start > 0 && isOfMailAddress(source[start - 1]))
            --start;
        qsizetype end = at + 1;
        while (end < source.size() && isOfMailAddress(source[end]))
            ++end;
        while (end > at && !std::isalnum(uchar(source[end - 1])))
            --end;
        if (start < at && source.sliced(at, end - at).contains('.')) {
            m_page.find(CheckRule::MailAddress, {text.inside.start + start, end - start},
                        source.sliced(start, end - start).toByteArray());
        }
    }
}

} // namespace brindlemark
