// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArrayView>
#include <functional>
#include <optional>

namespace brindlemark {

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

/// Takes a stretch of the text with its colour, and how much of the walk is done, 0 to 1.
using HighlightPainter = std::function<void(const ColorRun& run, double done)>;

/// Walks over a text for its highlight: the first `WorkingSelection` bytes are plain text, then come tags,
/// quoted attribute values, comments and scripts, each painted over the ones before it. The painter is called
/// for each opening text; a stretch is empty where its closing text is missing.
void highlightRuns(QByteArrayView text, const HighlightColors& colors, const HighlightPainter& paint);

} // namespace brindlemark
