// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Highlight.h"

#include "forms/LongWork.h"
#include "shell/WorkingSelection.h"
#include "source/RichTextBox.h"

#include <algorithm>
#include <vector>

namespace brindlemark {

namespace {

constexpr double Finding = 0.7;          // the part of the time that it takes to find what is coloured
constexpr qsizetype RunsToTell = 256;    // after how many runs a look at the clock is due
constexpr qsizetype Portion = 1'000'000; // bytes that are coloured at a time

} // namespace

void highlight(RichTextBox& box, const HighlightColors& colors)
{
    box.SetFocus();
    const int caret = box.SelStart();
    box.setSelStart(0);
    box.setSelLength(WorkingSelection); // its notification makes the document count as changed
    LongWork work;
    const QByteArray text = box.Text();
    QByteArray marks(text.size(), 0);
    std::vector<int> painted; // the mark of each is its place here, from 1
    qsizetype runs = 0;
    highlightRuns(text, colors, [&](const ColorRun& run, double done) {
        if (++runs % RunsToTell == 0)
            work.progress(done * Finding);
        if (painted.empty() || painted.back() != run.color)
            painted.push_back(run.color);
        std::fill_n(marks.begin() + run.range.start, run.range.length, char(painted.size()));
    });
    for (qsizetype start = 0; start < marks.size(); start += Portion) {
        work.progress(Finding + (1 - Finding) * double(start) / double(marks.size()));
        box.setColors(int(start),
                      QByteArrayView(marks).sliced(start, std::min(Portion, marks.size() - start)), painted);
    }
    box.setSelStart(caret);
}

} // namespace brindlemark
