// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/TextOfHtml.h"

#include "services/CharacterReferences.h"
#include "services/Elements.h"
#include "services/HtmlTokenizer.h"

#include <algorithm>
#include <cctype>

namespace brindlemark {

namespace {

constexpr QByteArrayView Mark("\xEF\xBB\xBF"); // a byte order mark
constexpr qsizetype LongestPiece = 512;        // bytes: to find a place, one piece is encoded again

bool isBlank(char byte)
{
    return QByteArrayView(" \t\r\n\f").contains(byte);
}

/// The end of the character in which a byte stands; the byte itself where one begins there.
qsizetype characterEnd(QByteArrayView html, TextEncoding encoding, qsizetype place)
{
    if (encoding == TextEncoding::Utf8) {
        while (place < html.size() && (uchar(html[place]) & 0xC0) == 0x80)
            ++place;
    }
    return place;
}

/// Where the character reference at "&" ends, or what looks like one.
qsizetype endOfReference(QByteArrayView html, qsizetype start, qsizetype end)
{
    qsizetype i = start + 1;
    if (i < end && html[i] == '#')
        ++i;
    while (i < end && std::isalnum(uchar(html[i])))
        ++i;
    return i < end && html[i] == ';' ? i + 1 : i;
}

bool isText(const HtmlToken& token)
{
    return token.kind == HtmlTokenKind::Text &&
           (token.content == HtmlContent::Data || token.content == HtmlContent::Rcdata);
}

bool partsWords(QByteArrayView html, const HtmlToken& tag)
{
    if (tag.kind != HtmlTokenKind::StartTag && tag.kind != HtmlTokenKind::EndTag)
        return false;
    const ElementKind* kind = elementKind(htmlName(html.sliced(tag.inside.start, tag.inside.length)));
    return !kind || !kind->isInline || kind->name == "br";
}

} // namespace

TextOfHtml::TextOfHtml(QByteArrayView html, TextEncoding encoding)
    : TextOfHtml(html, encoding, {0, html.size()})
{
}

TextOfHtml::TextOfHtml(QByteArrayView html, TextEncoding encoding, const TextRange& stretch)
    : m_encoding(encoding)
{
    const qsizetype from = characterEnd(html, encoding, stretch.start);
    const qsizetype to = characterEnd(html, encoding, stretch.end());
    HtmlTokenizer tokens(html);
    HtmlToken token;
    bool isThere = tokens.next(token);
    for (; isThere && token.whole.start < to; isThere = tokens.next(token)) {
        const qsizetype start = std::max(token.whole.start, from);
        const qsizetype end = std::min(token.whole.end(), to);
        if (isText(token)) {
            if (token.whole.start < from)
                m_isCutInFront = !isBlank(html[std::min(from, token.whole.end()) - 1]);
            if (token.whole.end() > to)
                m_isCutBehind = !isBlank(html[to]);
            if (start < end)
                take(html, {start, end - start}, token.content == HtmlContent::Rcdata);
        } else if (partsWords(html, token)) {
            breakLine();
        }
    }
    for (; isThere && !m_isCutBehind && !partsWords(html, token); isThere = tokens.next(token)) {
        if (isText(token)) {
            m_isCutBehind = !isBlank(html[token.whole.start]);
            break;
        }
    }
}

void TextOfHtml::breakLine()
{
    if (m_text.isEmpty()) {
        m_isCutInFront = false;
    } else if (!m_text.endsWith(u'\n')) {
        m_text += u'\n';
    }
}

QString TextOfHtml::textOnPage() const
{
    QString seen;
    qsizetype done = 0;
    for (const Piece& piece : m_pieces) {
        if (!piece.isTitle)
            continue;
        seen += QStringView(m_text).sliced(done, piece.start - done);
        done = piece.start + piece.length;
    }
    seen += QStringView(m_text).sliced(done);
    return seen;
}

/// Takes a stretch of text with its character references.
void TextOfHtml::take(QByteArrayView html, const TextRange& run, bool isTitle)
{
    qsizetype from = run.start;
    if (from == 0 && html.startsWith(Mark))
        from = std::min(Mark.size(), run.end());
    for (qsizetype i = from; i < run.end();) {
        i = html.first(run.end()).indexOf('&', i);
        if (i < 0)
            break;
        const qsizetype end = endOfReference(html, i, run.end());
        const QByteArrayView reference = html.sliced(i, end - i);
        if (withoutReferences(reference, ReferencePlace::Text) != reference) {
            addLetters(html, {from, i - from}, isTitle);
            add({i, end - i}, QString::fromUtf8(withoutReferences(reference, ReferencePlace::Text)), true,
                isTitle);
            from = end;
        }
        i = end;
    }
    addLetters(html, {from, run.end() - from}, isTitle);
}

void TextOfHtml::addLetters(QByteArrayView html, const TextRange& source, bool isTitle)
{
    for (qsizetype start = source.start; start < source.end();) {
        const qsizetype end = std::min(characterEnd(html, m_encoding, start + LongestPiece), source.end());
        const TextRange piece{start, end - start};
        add(piece, decode(html.sliced(piece.start, piece.length).toByteArray(), m_encoding), false, isTitle);
        start = end;
    }
}

void TextOfHtml::add(const TextRange& source, const QString& text, bool isReference, bool isTitle)
{
    m_pieces.push_back({m_text.size(), text.size(), source, isReference, isTitle});
    m_text += text;
}

/// Where the units from `start` to `end` of the text stand that are in a piece.
TextRange TextOfHtml::within(const Piece& piece, qsizetype start, qsizetype end) const
{
    if (piece.isReference || (start <= piece.start && end >= piece.start + piece.length))
        return piece.source;
    const auto bytes = [this](qsizetype from, qsizetype to) {
        return encode(m_text.sliced(from, to - from), m_encoding).size();
    };
    const qsizetype from = std::max(start, piece.start);
    return {piece.source.start + bytes(piece.start, from),
            bytes(from, std::min(end, piece.start + piece.length))};
}

qsizetype TextOfHtml::unitAt(qsizetype byte) const
{
    const auto piece =
        std::ranges::upper_bound(m_pieces, byte, {}, [](const Piece& one) { return one.source.end(); });
    if (piece == m_pieces.end())
        return m_text.size();
    qsizetype unit = piece->start;
    while (unit < piece->start + piece->length && within(*piece, unit, unit + 1).start < byte)
        ++unit;
    return unit;
}

std::vector<TextRange> TextOfHtml::places(qsizetype start, qsizetype length) const
{
    std::vector<TextRange> places;
    const auto first = std::ranges::upper_bound(
        m_pieces, start, {}, [](const Piece& piece) { return piece.start + piece.length; });
    for (auto piece = first; piece != m_pieces.end() && piece->start < start + length; ++piece) {
        const TextRange place = within(*piece, start, start + length);
        if (!places.empty() && places.back().end() == place.start) {
            places.back().length += place.length;
        } else {
            places.push_back(place);
        }
    }
    return places;
}

} // namespace brindlemark
