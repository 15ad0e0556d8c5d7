// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/ListingParts.h"

#include "shell/WorkingSelection.h"
#include "source/TextSearch.h"

#include <algorithm>
#include <array>
#include <vector>

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

/// Whether a marker stands at a place of a text.
bool standsAt(const TextSearch& marker, qsizetype length, QByteArrayView text, qsizetype position)
{
    return position + length <= text.size() && marker.indexIn(text.sliced(position, length), 0) == 0;
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
    const TextSearch beginning(StyleMarkersBegin.toByteArray());
    std::vector<TextSearch> markers;
    for (const QByteArrayView marker : StyleMarkers)
        markers.emplace_back(marker.toByteArray());
    std::array<bool, StyleCount> met = {};
    std::optional<size_t> first;
    // One walk for all four: a page is walked through whenever it is opened. A style whose marker is met at
    // the text's very start is passed over.
    for (qsizetype at = beginning.indexIn(text, from); at != -1 && first != 0U;
         at = beginning.indexIn(text, at + 1)) {
        for (size_t style = 0; style < first.value_or(StyleCount); ++style) {
            if (met.at(style) || !standsAt(markers[style], StyleMarkers.at(style).size(), text, at))
                continue;
            met.at(style) = true;
            if (at >= 1)
                first = style;
        }
    }
    return first;
}

qsizetype lengthOfBeginning(QByteArrayView text, TextEncoding encoding)
{
    const QByteArrayView beginning = text.first(std::min<qsizetype>(WorkingSelection, text.size()));
    return encoding == TextEncoding::Utf8 ? lengthInWholeCharacters(beginning) : beginning.size();
}

} // namespace brindlemark
