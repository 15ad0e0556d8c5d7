#include "shell/Highlight.h"

#include "forms/LongWork.h"
#include "source/RichTextBox.h"

#include <array>

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

/// Tells `progress` how far it is in the text.
template <typename Progress>
void run(RichTextBox& box, const Pass& pass, int color, Progress progress)
{
    const auto find = [&box](const char* text, int from) { return box.Find(text, from, -1, NoSelection); };
    int close = 0;
    for (int open = find(pass.opening, 0); open != -1; open = find(pass.opening, open + 1)) {
        if (close != -1 && close < open + 2) // a closing text further on still is the next one
            close = find(pass.closing, open + 2);
        progress(open);
        // Without a closing text the length is negative, or a few characters at the very start of the text.
        const int length = close - open + pass.extraLength;
        if (length >= 0)
            box.setColor(open + pass.startOffset, length, color);
    }
}

} // namespace

void highlight(RichTextBox& box, const HighlightColors& colors)
{
    box.SetFocus();
    const int caret = box.SelStart();
    box.setSelStart(0);
    box.setSelLength(WorkingSelection); // its notification makes the document count as changed
    if (colors.text)
        box.setSelColor(*colors.text);
    LongWork work;
    const auto length = static_cast<double>(box.Text().size());
    for (size_t i = 0; i < Passes.size(); ++i) {
        const auto done = [&](int position) {
            work.progress((static_cast<double>(i) + position / length) / Passes.size());
        };
        if (const std::optional<int> color = colors.*Passes[i].color)
            run(box, Passes[i], *color, done);
    }
    box.setSelStart(caret);
}
