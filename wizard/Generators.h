// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Listing.h"

namespace brindlemark {

/// The listing page in the design style and the colours of `look`, as it is before the engine prints it anew.
///
/// Lines end with CR LF. Nothing is escaped and nothing is tested: title, description, list entries, terms,
/// costs and colours go into the page as they stand, empty ones too. Some tags are never closed. That is
/// meant: users and tools compare and cut these pages by literal text.
///
/// Throws RuntimeError(SubscriptOutOfRange) when there is no such design style.
QString listingPage(const Listing& listing, const PageLook& look, const TermsTexts& terms);

} // namespace brindlemark
