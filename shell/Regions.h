// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/Markers.h"

namespace brindlemark {

class FrmWeb;
class RichTextBox;

// What the source box and the main window make of what `ListingParts.h` finds in the document.

/// Selects the inside of a part of the listing, without its markers, and gives the source box the focus. Of
/// several listings in one document the last one's part is selected; without any, the first 90000 bytes are.
/// Throws RuntimeError(InvalidPropertyValue) for an opening marker whose closing one is missing.
void selectRegion(RichTextBox& source, Region region);

/// Enables the buttons and the cell entry for the parts that the document's design style has, and disables
/// the buttons for a document without a style marker. Style markers are looked for from the selection on, and
/// one at the very start of the text doesn't count (see `listingStyle`). The caret stays. False: no style
/// marker was found.
bool updateStyleButtons(FrmWeb& main);

/// The same, with the two buttons that a new page from the wizard leaves as they are: `CmdOffLeg`, and
/// `CmdPic` for a listing with pictures. The marker of its pictures stays selected.
void UpdateRegionButtons(FrmWeb& main);

} // namespace brindlemark
