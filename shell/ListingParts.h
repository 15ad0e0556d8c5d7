// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/Markers.h"
#include "source/TextEncoding.h"
#include "source/TextRange.h"

#include <QByteArrayView>
#include <optional>

namespace brindlemark {

// What the marker comments in a page's text tell of it. Case plays no part in the search.

/// The inside of a part of the listing, without its markers; of several listings in one text, the last one's.
/// Where an opening marker has no closing one behind it, the length is negative, and no later part counts.
[[nodiscard]] std::optional<TextRange> findRegion(QByteArrayView text, Region region);

/// The design style of the listing, the lowest of several. Style markers are looked for from the byte `from`
/// on, and one at the very start of the text is meant not to count: no listing begins with it.
[[nodiscard]] std::optional<size_t> listingStyle(QByteArrayView text, qsizetype from);

/// How much of the beginning is selected where a part is missing: `WorkingSelection` bytes, but whole
/// characters only, as what is put in their place must not leave half of one.
qsizetype lengthOfBeginning(QByteArrayView text, TextEncoding encoding);

} // namespace brindlemark
