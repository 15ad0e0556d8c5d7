// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArray>

namespace brindlemark {

/// A stretch of text, and what shall stand in its place.
struct TextEdit
{
    TextRange range;
    QByteArray text;

    bool operator==(const TextEdit&) const = default;
};

/// The text after edits that follow one another in the order of the text and do not overlap.
template <typename Edits>
QByteArray edited(const QByteArray& text, const Edits& edits)
{
    QByteArray result;
    qsizetype from = 0;
    for (const TextEdit& edit : edits) {
        result += text.sliced(from, edit.range.start - from);
        result += edit.text;
        from = edit.range.end();
    }
    return result + text.sliced(from);
}

} // namespace brindlemark
