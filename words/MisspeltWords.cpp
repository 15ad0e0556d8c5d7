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

/// The words of a text that dictionaries can judge.
std::vector<WordPlace> wordsToJudge(const QString& text)
{
    const std::vector<WordPlace> addresses = addressesOf(text);
    std::vector<WordPlace> words = wordsOf(text);
    std::erase_if(words, [&](const WordPlace& word) {
        const auto address = std::ranges::upper_bound(addresses, word.start, {}, &WordPlace::end);
        return !word.isInLetters || (address != addresses.end() && address->start <= word.start);
    });
    return words;
}

MisspeltWord wordOf(const TextOfHtml& text, const WordPlace& word)
{
    return {text.text().sliced(word.start, word.length), text.places(word.start, word.length)};
}

} // namespace

std::vector<WordPlace> misspeltWords(const QString& text, const Judge& isRight)
{
    std::vector<WordPlace> words = wordsToJudge(text);
    std::erase_if(words,
                  [&](const WordPlace& word) { return isRight(text.sliced(word.start, word.length)); });
    return words;
}

std::optional<WordPlace> nextMisspelt(const QString& text, qsizetype from, const Judge& isRight)
{
    std::vector<WordPlace> words = wordsToJudge(text);
    const auto first = std::ranges::lower_bound(words, from, {}, &WordPlace::start);
    std::rotate(words.begin(), first, words.end());
    const auto wrong = std::ranges::find_if(
        words, [&](const WordPlace& word) { return !isRight(text.sliced(word.start, word.length)); });
    return wrong == words.end() ? std::nullopt : std::optional(*wrong);
}

std::vector<MisspeltWord> misspeltWords(QByteArrayView html, TextEncoding encoding, const TextRange& stretch,
                                        const Judge& isRight)
{
    const TextOfHtml text(html, encoding, stretch);
    std::vector<MisspeltWord> words;
    for (const WordPlace& word : misspeltWords(text.text(), isRight)) {
        const bool isCut = (text.isCutInFront() && word.start == 0) ||
                           (text.isCutBehind() && word.end() == text.text().size());
        if (!isCut)
            words.push_back(wordOf(text, word));
    }
    return words;
}

std::optional<MisspeltWord> nextMisspelt(QByteArrayView html, TextEncoding encoding, qsizetype from,
                                         const Judge& isRight)
{
    const TextOfHtml text(html, encoding);
    const std::optional<WordPlace> word = nextMisspelt(text.text(), text.unitAt(from), isRight);
    return word ? std::optional(wordOf(text, *word)) : std::nullopt;
}

} // namespace brindlemark
