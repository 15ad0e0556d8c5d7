#pragma once

#include <optional>

class RichTextBox;

/// How many characters at the start of the text a highlight, a stamp or a region search takes in hand at
/// first.
inline constexpr int WorkingSelection = 90000;

/// The colour number of scripts, an orange: red 255, green 140, blue 10.
inline constexpr int ScriptColor = 10 << 16 | 140 << 8 | 255;

/// The colour numbers of a highlight. A colour that is missing leaves its part of the text as it is.
struct HighlightColors
{
    std::optional<int> tags;
    std::optional<int> values;
    std::optional<int> comments;
    std::optional<int> scripts;
    std::optional<int> text;
};

/// Colours the source: the first `WorkingSelection` characters as plain text, then tags, quoted attribute
/// values, comments and scripts, each pass over the ones before it. The caret stays.
void highlight(RichTextBox& box, const HighlightColors& colors);
