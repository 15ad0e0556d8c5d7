// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Listing.h"

/// The listing page in the design style and with the colours of `look`, before the engine's pass.
///
/// Lines end CR LF. Nothing is escaped and nothing is tested: title, description, list entries, terms, costs
/// and colours go into the page as they stand, empty ones too. Tags that the page leaves open are open for
/// good: users and tools compare and cut these pages by literal text.
///
/// Throws RuntimeError(SubscriptOutOfRange) when there is no such design style.
QString listingPage(const Listing& listing, const PageLook& look, const TermsTexts& terms);
