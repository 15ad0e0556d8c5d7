// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/LetterCase.h"

#include "words/TextOfHtml.h"

#include <algorithm>
#include <unicode/casemap.h>
#include <unicode/edits.h>
#include <unicode/ucasemap.h>

namespace brindlemark {

namespace {

bool isAllCapitals(const QString& text)
{
    return std::ranges::none_of(text, [](QChar c) { return c.isLower(); });
}

/// The text in another case; `edits` tells where its parts have come to stand.
QString mapped(const QString& text, LetterCase letterCase, icu::Edits& edits)
{
    const auto map = [&](char16_t* room, int32_t size, UErrorCode& error) {
        edits.reset();
        const char16_t* source = reinterpret_cast<const char16_t*>(text.utf16());
        const auto length = int32_t(text.size());
        switch (letterCase) {
        case LetterCase::Upper:
            return icu::CaseMap::toUpper(nullptr, 0, source, length, room, size, &edits, error);
        case LetterCase::Lower:
            return icu::CaseMap::toLower(nullptr, 0, source, length, room, size, &edits, error);
        case LetterCase::Title:
            break;
        }
        const uint32_t options = isAllCapitals(text) ? 0 : U_TITLECASE_NO_LOWERCASE;
        return icu::CaseMap::toTitle(nullptr, options, nullptr, source, length, room, size, &edits, error);
    };
    QString result(text.size() + text.size() / 8 + 16, Qt::Uninitialized);
    UErrorCode error = U_ZERO_ERROR;
    int32_t length = map(reinterpret_cast<char16_t*>(result.data()), int32_t(result.size()), error);
    if (error == U_BUFFER_OVERFLOW_ERROR) {
        error = U_ZERO_ERROR;
        result.resize(length);
        length = map(reinterpret_cast<char16_t*>(result.data()), int32_t(result.size()), error);
    }
    if (U_FAILURE(error))
        return text;
    result.truncate(length);
    return result;
}

} // namespace

QString inCase(const QString& text, LetterCase letterCase)
{
    icu::Edits edits;
    return mapped(text, letterCase, edits);
}

std::vector<TextEdit> caseEdits(QByteArrayView html, TextEncoding encoding, const TextRange& stretch,
                                LetterCase letterCase)
{
    const TextOfHtml text(html, encoding, stretch);
    icu::Edits changes;
    const QString result = mapped(text.text(), letterCase, changes);
    icu::Edits::Iterator iterator = changes.getFineIterator();
    const auto placeInResult = [&](qsizetype place) {
        UErrorCode error = U_ZERO_ERROR;
        return qsizetype{iterator.destinationIndexFromSourceIndex(int32_t(place), error)};
    };
    std::vector<TextEdit> edits;
    for (const TextOfHtml::Piece& piece : text.pieces()) {
        const qsizetype start = placeInResult(piece.start);
        const QString changed = result.sliced(start, placeInResult(piece.start + piece.length) - start);
        if (changed != QStringView(text.text()).sliced(piece.start, piece.length))
            edits.push_back({piece.source, encode(changed, encoding)});
    }
    return edits;
}

} // namespace brindlemark
