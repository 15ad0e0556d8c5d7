// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/MisspeltWords.h"

#include "words/TextOfHtml.h"

#include <QRegularExpression>
#include <algorithm>

namespace brindlemark {

namespace {

/// The stretches of a text that are addresses.
std::vector<WordPlace> addressesOf(const QString& text)
{
    static const QRegularExpression address(
        QStringLiteral(
            R"([\w+.-]{1,20}://\S*|\bwww\.\S*|[\w.+-]{1,64}@\S+|\b[\w-]{1,64}\.(?:com|net|org|html?|jpe?g|gif|png)\b\S*)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    std::vector<WordPlace> found;
    for (auto match = address.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch next = match.next();
        found.push_back({next.capturedStart(), next.capturedLength()});
    }
    return found;
}

} // namespace

std::vector<WordPlace> misspeltWords(const QString& text, const Judge& isRight)
{
    const std::vector<WordPlace> addresses = addressesOf(text);
    const auto isInAddress = [&](const WordPlace& word) {
        const auto address = std::ranges::upper_bound(addresses, word.start, {}, &WordPlace::end);
        return address != addresses.end() && address->start <= word.start;
    };
    std::vector<WordPlace> wrong;
    for (const WordPlace& word : wordsOf(text)) {
        if (word.isInLetters && !isInAddress(word) && !isRight(text.sliced(word.start, word.length)))
            wrong.push_back(word);
    }
    return wrong;
}

std::vector<MisspeltWord> misspeltWords(QByteArrayView html, TextEncoding encoding, const TextRange& stretch,
                                        const Judge& isRight)
{
    const TextOfHtml text(html, encoding, stretch);
    const auto isLetter = [&](qsizetype place) {
        return place >= 0 && place < html.size() && !QByteArrayView(" \t\r\n<>&").contains(html[place]);
    };
    std::vector<MisspeltWord> words;
    for (const WordPlace& word : misspeltWords(text.text(), isRight)) {
        std::vector<TextRange> places = text.places(word.start, word.length);
        const bool cutInFront = places.front().start == stretch.start && isLetter(stretch.start - 1);
        const bool cutBehind = places.back().end() == stretch.end() && isLetter(stretch.end());
        if (!cutInFront && !cutBehind)
            words.push_back({text.text().sliced(word.start, word.length), std::move(places)});
    }
    return words;
}

} // namespace brindlemark
