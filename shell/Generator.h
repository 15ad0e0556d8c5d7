#pragma once

class RichTextBox;

/// How the generator tag of a page begins, up to its name. It belongs to the form of the pages, which are
/// compared by literal text, and stays as it is when the program gets a new number.
inline constexpr char GeneratorStart[] = "<META content=\"Brindlemark 1.0\" ";

/// Names the product in each generator tag that the engine has written in its own name. The caret stays.
/// Throws RuntimeError(InvalidPropertyValue) for a "<META content=" behind which no generator tag ends.
void stampGenerator(RichTextBox& box);
