// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/Words.h"

#include <QString>
#include <memory>
#include <unicode/ubrk.h>

namespace brindlemark {

namespace {

struct CloseIterator
{
    void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};
using Iterator = std::unique_ptr<UBreakIterator, CloseIterator>;

/// Walks over a text of at most 2^31 units; null where ICU's data are missing.
Iterator iteratorOver(UBreakIteratorType type, QStringView text)
{
    UErrorCode error = U_ZERO_ERROR;
    Iterator iterator(ubrk_open(type, nullptr, text.utf16(), int32_t(text.size()), &error));
    return U_SUCCESS(error) ? std::move(iterator) : nullptr;
}

} // namespace

std::vector<WordPlace> wordsOf(QStringView text)
{
    std::vector<WordPlace> words;
    const Iterator iterator = iteratorOver(UBRK_WORD, text);
    if (!iterator)
        return words;
    int32_t start = ubrk_first(iterator.get());
    for (int32_t end = ubrk_next(iterator.get()); end != UBRK_DONE; end = ubrk_next(iterator.get())) {
        const int32_t kind = ubrk_getRuleStatus(iterator.get());
        if (kind >= UBRK_WORD_NONE_LIMIT)
            words.push_back({start, end - start, kind >= UBRK_WORD_LETTER && kind < UBRK_WORD_LETTER_LIMIT});
        start = end;
    }
    return words;
}

TextCount countText(QStringView text)
{
    TextCount count;
    count.words = qsizetype(wordsOf(text).size());
    if (const Iterator iterator = iteratorOver(UBRK_CHARACTER, text)) {
        while (ubrk_next(iterator.get()) != UBRK_DONE)
            ++count.characters;
    }
    return count;
}

} // namespace brindlemark
