#pragma once

class RichTextBox;

/// Names the product in each generator tag that the engine has written in its own name. The caret stays.
/// Throws RuntimeError(InvalidPropertyValue) for a "<META content=" behind which no generator tag ends.
void stampGenerator(RichTextBox& box);
