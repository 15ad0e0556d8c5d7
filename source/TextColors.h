// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArray>
#include <QByteArrayView>
#include <optional>
#include <vector>

class QsciScintillaBase;

namespace brindlemark {

/// The colours of the characters in the component, by its own positions. They are no part of the text: they
/// raise no notification and are never undone. What is inserted within a colour has it too.
///
/// The component keeps a style for each byte; a style stands for a colour here. Black has a few, which look
/// the same: the component measures what it draws stretch by stretch, and remembers short ones.
class TextColors
{
public:
    explicit TextColors(QsciScintillaBase& component);

    /// Gives the styles their colours again, after the component has taken them away.
    void applyLook() const;

    /// Gives a stretch a colour number; 0, black, takes its colour away.
    void paint(TextRange range, int color);
    /// Colours a stretch at once. A byte of `marks` stands for the text's byte at its place from `start` on:
    /// 0 leaves that as it is, n gives it the nth of `colors`, of which there are at most 255.
    void paint(qsizetype start, QByteArrayView marks, const std::vector<int>& colors);
    /// The colours of a stretch, run by run.
    std::vector<ColorRun> in(TextRange range) const;
    /// The colour number at a position.
    int at(qsizetype position) const;

    /// To be called before the component inserts a stretch, and before it deletes one.
    void beforeInsertion(TextRange inserted);
    void beforeDeletion(TextRange deleted);
    /// Colours what was inserted last.
    void settle() const;

    /// To be called before the component draws text up to `end`, as it asks for. Cuts long lines into short
    /// stretches, so that each letter in them doesn't have the whole line measured.
    void cutLongLines(qsizetype end) const;

private:
    struct Inserted
    {
        TextRange range;
        int style;
    };

    long send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;
    int styleAt(qsizetype position) const;
    int styleFor(int color);
    void freeStyles();
    QByteArray cellsIn(TextRange range) const;
    QByteArray stylesIn(TextRange range) const;
    QByteArray knownStylesIn(TextRange range) const;
    void cut(TextRange line) const;

    QsciScintillaBase& m_component;
    std::vector<std::optional<int>> m_colors; // of the styles, by their order; the first are black
    mutable std::optional<Inserted> m_inserted;
    qsizetype m_plainFrom = 0; // from here on the text surely has no colour
};

} // namespace brindlemark
