// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <Qsci/qsciscintillabase.h>

#include <optional>

namespace brindlemark {

/// Leads from the positions of an editing component, which count bytes of UTF-8, to offsets in UTF-16 units,
/// and back. Counts from the place that was asked for last, or from an end if that is nearer: who types and
/// who reads stays near it, however long the text is. (The component's own index of lines is wrong for good
/// once text has come between a CR and its LF.)
class TextUnits
{
public:
    explicit TextUnits(const QsciScintillaBase& box) : m_box(box) {}

    /// The offset of a position in the text.
    int offset(qsizetype position);
    /// The position of an offset; one outside of the text is brought into it, one within a pair of surrogates
    /// in front of it.
    qsizetype position(int offset);
    /// How many units the text has.
    int count();

    /// To be told before text comes in there.
    void beforeInsertion(TextRange range);
    /// To be told before text goes.
    void beforeDeletion(TextRange range);

private:
    struct Place
    {
        qsizetype position = 0;
        int offset = 0;
    };

    void beforeChange(qsizetype position);
    void countInserted();
    int unitsBetween(qsizetype start, qsizetype end) const;

    const QsciScintillaBase& m_box;
    Place m_last;               // the place that was asked for last
    std::optional<Place> m_end; // of the text, once it has been asked for
    TextRange m_inserted;       // isn't in `m_end` yet
};

} // namespace brindlemark
