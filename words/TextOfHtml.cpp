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

bool partsWords(QByteArrayView html, const HtmlToken& tag)
{
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
    HtmlTokenizer tokens(html);
    HtmlToken token;
    while (tokens.next(token) && token.whole.start < stretch.end()) {
        if (token.whole.end() <= stretch.start)
            continue;
        if (token.kind == HtmlTokenKind::Text &&
            (token.content == HtmlContent::Data || token.content == HtmlContent::Rcdata)) {
            const qsizetype start = std::max(token.whole.start, stretch.start);
            take(html, {start, std::min(token.whole.end(), stretch.end()) - start});
        } else if ((token.kind == HtmlTokenKind::StartTag || token.kind == HtmlTokenKind::EndTag) &&
                   partsWords(html, token)) {
            breakLine();
        }
    }
}

void TextOfHtml::breakLine()
{
    if (!m_text.isEmpty() && !m_text.endsWith(u'\n'))
        m_text += u'\n';
}

/// Takes a stretch of text with its character references.
void TextOfHtml::take(QByteArrayView html, const TextRange& run)
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
            add(html, {from, i - from}, false);
            add(html, {i, end - i}, true);
            from = end;
        }
        i = end;
    }
    add(html, {from, run.end() - from}, false);
}

void TextOfHtml::add(QByteArrayView html, const TextRange& source, bool isReference)
{
    if (source.length == 0)
        return;
    const QByteArray bytes = html.sliced(source.start, source.length).toByteArray();
    const QString text = isReference ? QString::fromUtf8(withoutReferences(bytes, ReferencePlace::Text))
                                     : decode(bytes, m_encoding);
    m_pieces.push_back({m_text.size(), text.size(), source, isReference});
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
