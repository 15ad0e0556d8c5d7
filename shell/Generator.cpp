// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Generator.h"

#include "platform/RuntimeError.h"
#include "shell/GeneratorTag.h"
#include "shell/WorkingSelection.h"
#include "source/RichTextBox.h"

namespace brindlemark {

void stampGenerator(RichTextBox& box)
{
    const RichTextBox::EditName name(&box, QStringLiteral("Generator Tag"));
    const QByteArray stamp = GeneratorStart;
    const int caret = box.SelStart();
    box.setSelStart(0);
    box.setSelLength(WorkingSelection); // its notification makes the document count as changed
    const GeneratorTags tags = findGeneratorTags(box.Text());
    qsizetype moved = 0; // how far the stamps have moved what stands behind them
    const auto select = [&](const TextRange& range) {
        box.setSelStart(int(range.start + moved));
        box.setSelLength(int(range.length));
    };
    for (const TextRange& start : tags.starts) {
        select(start);
        box.setSelText(stamp);
        moved += stamp.size() - start.length;
    }
    if (tags.torn) {
        select(*tags.torn);
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    }
    box.setSelStart(caret);
}

} // namespace brindlemark
