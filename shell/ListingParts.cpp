// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/ListingParts.h"

#include "shell/WorkingSelection.h"
#include "source/TextSearch.h"

#include <algorithm>

namespace brindlemark {

namespace {

/// The length of a UTF-8 text without the half of a character at its end.
qsizetype lengthInWholeCharacters(QByteArrayView text)
{
    const auto goesOn = [](char byte) { return (byte & 0xC0) == 0x80; };
    qsizetype last = text.size() - 1; // the first byte of the last character
    while (last > 0 && goesOn(text[last]))
        --last;
    if (last < 0)
        return 0;
    const auto lead = static_cast<unsigned char>(text[last]);
    const int wanted = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return last + wanted <= text.size() ? text.size() : last;
}

} // namespace

std::optional<TextRange> findRegion(QByteArrayView text, Region region)
{
    const MarkerPair& pair = markers(region);
    const TextSearch opening(pair.opening.toByteArray());
    const TextSearch closing(pair.closing.toByteArray());
    std::optional<TextRange> inside;
    qsizetype end = 0;
    for (qsizetype start = opening.indexIn(text, 0); start != -1 && end != -1;
         start = opening.indexIn(text, start + 1)) {
        if (end <= start) // else the one that was found last is still the next
            end = closing.indexIn(text, start);
        const qsizetype begin = start + pair.opening.size();
        inside = TextRange{begin, end - begin};
    }
    return inside;
}

std::optional<size_t> listingStyle(QByteArrayView text, qsizetype from)
{
    for (size_t style = 0; style < StyleCount; ++style) {
        if (TextSearch(StyleMarkers.at(style).toByteArray()).indexIn(text, from) >= 1)
            return style;
    }
    return std::nullopt;
}

qsizetype lengthOfBeginning(QByteArrayView text, TextEncoding encoding)
{
    const QByteArrayView beginning = text.first(std::min<qsizetype>(WorkingSelection, text.size()));
    return encoding == TextEncoding::Utf8 ? lengthInWholeCharacters(beginning) : beginning.size();
}

} // namespace brindlemark
