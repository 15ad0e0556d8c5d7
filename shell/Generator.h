// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class RichTextBox;

/// Names the product in each generator tag that the engine has written in its own name. The caret stays.
/// Throws RuntimeError(InvalidPropertyValue) for a "<META content=" behind which no generator tag ends: it is
/// selected then, and the tags in front of it are stamped.
void stampGenerator(RichTextBox& box);
