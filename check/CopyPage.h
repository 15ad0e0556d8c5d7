// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

/// Puts the whole page that is up on the clipboard, ready to be pasted into a site's form, and tells in a
/// notice how long it is and what the check finds in it. On the tab Internet it is the document's source.
void copyPage();

} // namespace brindlemark
