// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "shell/HighlightRuns.h"

#include <algorithm>
#include <vector>

using namespace brindlemark;

namespace {

constexpr HighlightColors Colors = {.tags = 1, .values = 2, .comments = 3, .scripts = 4, .text = 5};

/// The colour of each byte.
using Painting = std::vector<int>;

/// One pass, as plainly as it can be told.
void paintPass(Painting& painting, const QByteArray& lower, const QByteArray& opening,
               const QByteArray& closing, qsizetype startOffset, qsizetype extraLength, int color)
{
    for (qsizetype open = lower.indexOf(opening); open >= 0; open = lower.indexOf(opening, open + 1)) {
        const qsizetype start = open + startOffset;
        const qsizetype end = start + lower.indexOf(closing, open + 2) - open + extraLength;
        for (qsizetype i = start; i < std::min(end, lower.size()); ++i)
            painting[size_t(i)] = color;
    }
}

} // namespace

/// A document: its parts get their colours, and the walk tells how far it is.
void targets::highlight(const QByteArray& bytes)
{
    const QByteArray lower = bytes.toLower();
    Painting expected(size_t(bytes.size()), 5);
    paintPass(expected, lower, "<", ">", 0, 1, 1);
    paintPass(expected, lower, "=\"", "\"", 1, 0, 2);
    paintPass(expected, lower, "<!--", "-->", 0, 3, 3);
    paintPass(expected, lower, "<script", "</script>", 0, 9, 4);

    Painting painting(size_t(bytes.size()), 0);
    double before = 0;
    highlightRuns(bytes, Colors, [&](const ColorRun& run, double done) {
        hold(run.range.start >= 0 && run.range.length >= 0 && run.range.end() <= bytes.size(),
             "what is painted lies within the text");
        hold(done >= before && done <= 1, "the walk goes forward");
        before = done;
        std::fill_n(painting.begin() + run.range.start, run.range.length, run.color);
    });
    hold(painting == expected, "each byte has its colour");
}
