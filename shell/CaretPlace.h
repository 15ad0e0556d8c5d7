// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/DocumentSurface.h"
#include "words/TextOfHtml.h"

#include <optional>

namespace brindlemark {

// A caret's way between the source and the page that is made of it.

/// The place in the page for a byte of the source; the page's beginning for one in front of its text. Reads
/// the source no further than it must.
LetterPlace letterPlaceOf(QByteArrayView html, TextEncoding encoding, qsizetype byte);

/// The byte of the source for a place in the page; no value where the page has less text.
std::optional<qsizetype> byteOf(const TextOfHtml& source, const LetterPlace& place);

} // namespace brindlemark
