// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/TextSearch.h"

#include "source/TextEncoding.h"

#include <QChar>
#include <QString>
#include <algorithm>
#include <cstring>

namespace brindlemark {

namespace {

/// The size of the UTF-8 character with which `text` begins; 1 for a byte that begins none.
qsizetype characterSize(QByteArrayView text)
{
    const auto lead = static_cast<uchar>(text.front());
    if (lead < 0xC0)
        return 1;
    const qsizetype size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return size <= text.size() && text.first(size).isValidUtf8() ? size : 1;
}

/// The number of one UTF-8 character; U+FFFD for a byte that is none.
char32_t numberOf(QByteArrayView character)
{
    const auto lead = static_cast<uchar>(character.front());
    if (character.size() == 1)
        return lead < 0x80 ? lead : char32_t{QChar::ReplacementCharacter};
    char32_t number = lead & (0x7F >> character.size());
    for (const char byte : character.sliced(1))
        number = number << 6 | (static_cast<uchar>(byte) & 0x3F);
    return number;
}

QByteArrayView characterAt(QByteArrayView text, qsizetype position)
{
    const QByteArrayView rest = text.sliced(position);
    return rest.first(characterSize(rest));
}

QByteArrayView characterBefore(QByteArrayView text, qsizetype position)
{
    qsizetype start = position - 1;
    while (start > 0 && position - start < 4 && isContinuation(text[start]))
        --start;
    const QByteArrayView character = characterAt(text, start);
    return character.size() == position - start ? character : text.sliced(position - 1, 1);
}

bool isOfWord(QByteArrayView character)
{
    const char32_t number = numberOf(character);
    return number == U'_' || QChar::isLetterOrNumber(number) || QChar::isMark(number);
}

/// Whether one word stands on both sides of a position.
bool isInsideWord(QByteArrayView text, qsizetype position)
{
    return position > 0 && position < text.size() && isOfWord(characterBefore(text, position)) &&
           isOfWord(characterAt(text, position));
}

} // namespace

TextSearch::Letter::Letter(QByteArrayView character, bool matchCase)
{
    add(character);
    if (matchCase)
        return;
    const char32_t number = numberOf(character);
    addCase(QChar::toLower(number), number);
    addCase(QChar::toUpper(number), number);
}

void TextSearch::Letter::add(QByteArrayView spelling)
{
    Spelling& added = m_spellings[m_count++];
    std::copy(spelling.begin(), spelling.end(), added.bytes.begin());
    added.size = spelling.size();
}

/// Some letters have a one-way case: the capital of the dotless "ı" is "I", whose small letter is "i". They
/// are different letters.
void TextSearch::Letter::addCase(char32_t otherCase, char32_t character)
{
    if (otherCase == character || QChar::toCaseFolded(otherCase) != QChar::toCaseFolded(character))
        return;
    if (otherCase < 0x80) {
        add(QByteArrayView(std::array{static_cast<char>(otherCase)}));
    } else {
        add(QString::fromUcs4(&otherCase, 1).toUtf8());
    }
}

void TextSearch::Letter::markFirstBytes(std::array<bool, 256>& marks) const
{
    for (size_t i = 0; i < m_count; ++i)
        marks[static_cast<uchar>(m_spellings[i].bytes[0])] = true;
}

qsizetype TextSearch::Letter::sizeAtStart(QByteArrayView text) const
{
    for (size_t i = 0; i < m_count; ++i) {
        const Spelling& spelling = m_spellings[i];
        if (!text.isEmpty() && text.front() == spelling.bytes[0] &&
            (spelling.size == 1 || text.startsWith(QByteArrayView(spelling.bytes.data(), spelling.size))))
            return spelling.size;
    }
    return 0;
}

TextSearch::TextSearch(const QByteArray& wanted, FindOptions options)
    : m_wholeWord(options.testFlag(WholeWord))
{
    const QByteArrayView text(wanted);
    m_letters.reserve(size_t(text.size()));
    bool oneSpelling = true;
    for (qsizetype position = 0; position < text.size();) {
        const QByteArrayView character = characterAt(text, position);
        m_letters.emplace_back(character, options.testFlag(MatchCase));
        oneSpelling = oneSpelling && m_letters.back().hasOneSpelling();
        if (oneSpelling) {
            m_start += character;
            ++m_startLetters;
        }
        position += character.size();
    }
    if (!m_letters.empty())
        m_letters.front().markFirstBytes(m_firstBytes);
}

std::optional<TextMatch> TextSearch::find(QByteArrayView text, qsizetype from, qsizetype end) const
{
    if (m_letters.empty())
        return std::nullopt;
    const QByteArrayView searched = text.first(end);
    std::optional<TextMatch> match = next(searched, from);
    while (match && m_wholeWord &&
           (isInsideWord(text, match->position) || isInsideWord(text, match->position + match->length)))
        match = next(searched, match->position + 1);
    return match;
}

qsizetype TextSearch::indexIn(QByteArrayView text, qsizetype from) const
{
    const std::optional<TextMatch> match = find(text, std::min(from, text.size()), text.size());
    return match ? match->position : -1;
}

std::optional<TextMatch> TextSearch::next(QByteArrayView text, qsizetype from) const
{
    for (qsizetype position = candidate(text, from); position < text.size();
         position = candidate(text, position + 1)) {
        if (const qsizetype length = matchLength(text.sliced(position)))
            return TextMatch{position, length};
    }
    return std::nullopt;
}

/// The first position at or behind `from` where a match can begin; the text's size when there is none.
qsizetype TextSearch::candidate(QByteArrayView text, qsizetype from) const
{
    const auto* start = text.begin() + from;
    const auto size = size_t(text.end() - start);
    if (start == text.end())
        return text.size();
    if (!m_start.isEmpty()) {
        const void* hit = memmem(start, size, m_start.constData(), size_t(m_start.size()));
        return hit ? static_cast<const char*>(hit) - text.begin() : text.size();
    }
    return std::find_if(start, text.end(),
                        [this](char byte) { return m_firstBytes[static_cast<uchar>(byte)]; }) -
           text.begin();
}

/// The length of the match that begins with a text's candidate, 0 if none does.
qsizetype TextSearch::matchLength(QByteArrayView text) const
{
    qsizetype length = m_start.size(); // these are there, or it were no candidate
    for (size_t i = m_startLetters; i < m_letters.size(); ++i) {
        const qsizetype size = m_letters[i].sizeAtStart(text.sliced(length));
        if (size == 0)
            return 0;
        length += size;
    }
    return length;
}

} // namespace brindlemark
