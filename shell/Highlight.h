// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/HighlightRuns.h"

namespace brindlemark {

class RichTextBox;

/// Colours the source as `highlightRuns` tells, with the signs of long work. The box gets the focus, the
/// document counts as changed, and the caret stays.
void highlight(RichTextBox& box, const HighlightColors& colors);

} // namespace brindlemark
