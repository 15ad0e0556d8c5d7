// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <optional>

namespace brindlemark {

/// What may be meant by what is being typed.
struct Offers
{
    TextRange typed;           ///< ends at the caret; ASCII, empty behind "</"
    QList<QByteArray> entries; ///< what may take its place, ASCII, the likeliest first; never empty

    bool operator==(const Offers&) const = default;
};

/// How much of a text in front of the caret, and behind it, is worth looking at, in bytes: as much as is read
/// in some milliseconds. In a longer text a comment or a script that is longer isn't noticed, and tags that
/// were opened earlier aren't offered.
constexpr qsizetype OffersReach = 262'144;
/// Where the tag that is being typed must have begun, in bytes in front of the caret.
constexpr qsizetype OffersNear = 4096;

/// Whether there may be something to offer behind a text in UTF-8, of which the last `OffersNear` bytes are
/// looked at. Costs next to nothing where no tag is being typed.
bool mayOffer(QByteArrayView before);

/// What there is to offer at a caret, a byte of a text in UTF-8 that may be a stretch of a longer one:
/// - behind "</" and the first letters of a name, the end tags of the elements that are open there;
/// - in a start tag behind a blank and letters, the attributes of its element that begin so and aren't there;
/// - behind the first letters of a colour, as an attribute's value or in a style, the names of HTML's sixteen
///   colours; behind "#" the colours that the text already has, those that it has most often first.
/// Nothing in comments, in scripts and styles, and between tags.
std::optional<Offers> offersAt(QByteArrayView text, qsizetype caret);

} // namespace brindlemark
