// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <vector>

class QsciScintillaBase;

namespace brindlemark {

/// The colours of the characters in the component, by its own positions. They are no part of the text: they
/// raise no notification and are never undone.
class TextColors
{
public:
    explicit TextColors(QsciScintillaBase& component);

    /// Gives a stretch a colour number; 0, black, takes its colour away.
    void paint(TextRange range, int color);
    /// The colours of a stretch, run by run.
    std::vector<ColorRun> in(TextRange range) const;
    /// The colour number at a position.
    int at(qsizetype position) const;

private:
    long send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;

    QsciScintillaBase& m_component;
};

} // namespace brindlemark
