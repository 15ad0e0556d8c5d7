// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "shell/ListingParts.h"

#include <algorithm>

using namespace brindlemark;

namespace {

/// The part between the last opening marker and the next closing one, or from the first that has none: its
/// length is negative then. No value: no opening marker.
std::optional<TextRange> partOf(const QByteArray& text, const MarkerPair& pair)
{
    const QByteArray lower = text.toLower();
    const QByteArray opening = pair.opening.toByteArray().toLower();
    const QByteArray closing = pair.closing.toByteArray().toLower();
    std::optional<TextRange> part;
    for (qsizetype at = lower.indexOf(opening); at >= 0; at = lower.indexOf(opening, at + 1)) {
        const qsizetype inside = at + opening.size();
        part = {inside, lower.indexOf(closing, at) - inside};
        if (part->length < 0)
            break;
    }
    return part;
}

/// The design style whose marker comes first behind `from`, and not at the very start.
std::optional<size_t> styleOf(const QByteArray& text, qsizetype from)
{
    for (size_t style = 0; style < StyleCount; ++style) {
        if (text.toLower().indexOf(StyleMarkers.at(style).toByteArray(), from) >= 1)
            return style;
    }
    return std::nullopt;
}

} // namespace

/// A document: each part is what stands between its markers, the style is what its marker says, and the
/// beginning has whole characters.
void targets::regions(const QByteArray& bytes)
{
    for (const MarkerPair& pair : Markers)
        hold(findRegion(bytes, pair.region) == partOf(bytes, pair), "a part lies between its markers");
    for (const qsizetype from : {qsizetype{0}, bytes.size() / 2})
        hold(listingStyle(bytes, from) == styleOf(bytes, from), "the style is that of the first marker");

    const QByteArray longText = QByteArray(90'000 - bytes.size() / 2, 'x') + bytes;
    const qsizetype most = std::min<qsizetype>(longText.size(), 90'000);
    hold(lengthOfBeginning(longText, TextEncoding::Western) == most, "a Western character is a byte");
    const QByteArray beginning = longText.first(lengthOfBeginning(longText, TextEncoding::Utf8));
    hold(beginning.size() <= most && beginning.size() > most - 4, "the beginning is as long as it may be");
    hold(beginning.isValidUtf8() || !longText.isValidUtf8(), "no half of a character");
}
