// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/CaretPlace.h"

#include <algorithm>

namespace brindlemark {

namespace {

/// As `isBlank` in surface.js.
bool isSeen(QChar unit)
{
    return unit.unicode() > 0x20 && unit.unicode() != 0xA0;
}

/// Where one unit of the text stands in the source.
TextRange placeOf(const TextOfHtml& source, qsizetype unit)
{
    return source.places(unit, 1).front();
}

} // namespace

LetterPlace letterPlaceOf(QByteArrayView html, TextEncoding encoding, qsizetype byte)
{
    constexpr qsizetype LongestReference = 64; // bytes: a character reference at the caret is read whole
    const TextOfHtml source(html, encoding, {0, std::min(byte + LongestReference, html.size())});
    const QString& text = source.text();
    const qsizetype caret = source.unitAt(byte);
    LetterPlace place;
    for (const TextOfHtml::Piece& piece : source.pieces()) {
        if (piece.isTitle || piece.start >= caret)
            continue;
        const QStringView ahead =
            QStringView(text).sliced(piece.start, std::min(piece.length, caret - piece.start));
        place.letters += std::ranges::count_if(ahead, isSeen);
        place.isBehind =
            isSeen(ahead.back()) && placeOf(source, piece.start + ahead.size() - 1).end() == byte;
    }
    return place;
}

std::optional<qsizetype> byteOf(const TextOfHtml& source, const LetterPlace& place)
{
    qsizetype ahead = 0;
    std::optional<qsizetype> behind;
    for (const TextOfHtml::Piece& piece : source.pieces()) {
        if (piece.isTitle)
            continue;
        for (qsizetype unit = piece.start; unit < piece.start + piece.length; ++unit) {
            if (!isSeen(source.text().at(unit)))
                continue;
            if (ahead == place.letters)
                return placeOf(source, unit).start;
            if (++ahead == place.letters) {
                behind = placeOf(source, unit).end();
                if (place.isBehind)
                    return behind;
            }
        }
    }
    return behind; // there is no next one
}

} // namespace brindlemark
