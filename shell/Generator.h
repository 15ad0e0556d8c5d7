// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

class RichTextBox;

/// Puts the product's name and number into each generator tag, in place of what stands there. The caret
/// stays. Throws RuntimeError(InvalidPropertyValue) for a "<META content=" behind which no generator tag
/// ends: it is selected then, and the tags in front of it are stamped.
void stampGenerator(RichTextBox& box);

} // namespace brindlemark
