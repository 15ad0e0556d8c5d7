// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Listing.h"
#include "wizard/PageText.h"

namespace brindlemark {

/// Appends the part of a listing page that shows the item, its pictures and its description, in the
/// arrangement `PageLook::pictureStyle`:
///
/// 0 "Left Neated"   one picture left, description right
/// 1 "Classic R"     all pictures, description under them
/// 2 "Right Neated"  description left, one picture right
/// 3 "Classic"       description, all pictures under it
///
/// The arrangements of one picture show the first address. Nothing is escaped. Any other number
/// appends nothing.
void addPictureBlock(PageText& page, const Listing& listing, const PageLook& look);

} // namespace brindlemark
