// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/HighlightRuns.h"

#include "shell/WorkingSelection.h"
#include "source/TextSearch.h"

#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

/// What one pass over the text colours: from `opening` to `closing`, the case of letters aside.
struct Pass
{
    const char* opening;
    const char* closing;
    std::optional<int> HighlightColors::*color;
    int startOffset; // from the opening text's first character
    int extraLength; // beyond the closing text's first character
};

constexpr std::array<Pass, 4> Passes = {{
    {"<", ">", &HighlightColors::tags, 0, 1},
    {"=\"", "\"", &HighlightColors::values, 1, 0},
    {"<!--", "-->", &HighlightColors::comments, 0, 3},
    {"<SCRIPT", "</SCRIPT>", &HighlightColors::scripts, 0, 9},
}};

/// Gives `paint` the stretch of each opening text, and where that text stands.
template <typename Paint>
void run(QByteArrayView text, const Pass& pass, const Paint& paint)
{
    const TextSearch opening(pass.opening);
    const TextSearch closing(pass.closing);
    qsizetype close = 0;
    for (qsizetype open = opening.indexIn(text, 0); open != -1; open = opening.indexIn(text, open + 1)) {
        if (close != -1 && close < open + 2) // else the one that was found last is still the next
            close = closing.indexIn(text, open + 2);
        // Without a closing text `close` is -1 and the length negative, so that nothing is coloured, but for
        // a few characters when the opening text stands at the very start.
        const qsizetype start = open + pass.startOffset;
        const qsizetype length = close - open + pass.extraLength;
        paint(TextRange{start, std::clamp<qsizetype>(length, 0, text.size() - start)}, open);
    }
}

} // namespace

void highlightRuns(QByteArrayView text, const HighlightColors& colors, const HighlightPainter& paint)
{
    if (colors.text)
        paint({{0, std::min<qsizetype>(WorkingSelection, text.size())}, *colors.text}, 0);
    for (size_t i = 0; i < Passes.size(); ++i) {
        const std::optional<int> color = colors.*Passes[i].color;
        if (!color)
            continue;
        run(text, Passes[i], [&](const TextRange& range, qsizetype position) {
            const double done = double(position) / double(text.size());
            paint({range, *color}, (double(i) + done) / Passes.size());
        });
    }
}

} // namespace brindlemark
