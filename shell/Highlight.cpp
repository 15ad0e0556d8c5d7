// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Highlight.h"

#include "forms/LongWork.h"
#include "shell/WorkingSelection.h"
#include "source/RichTextBox.h"

namespace brindlemark {

void highlight(RichTextBox& box, const HighlightColors& colors)
{
    box.SetFocus();
    const int caret = box.SelStart();
    box.setSelStart(0);
    box.setSelLength(WorkingSelection); // its notification makes the document count as changed
    LongWork work;
    highlightRuns(box.Text(), colors, [&](const ColorRun& run, double done) {
        work.progress(done);
        box.setColor(int(run.range.start), int(run.range.length), run.color);
    });
    box.setSelStart(caret);
}

} // namespace brindlemark
