// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "words/MisspeltWords.h"

#include <QObject>
#include <QTimer>
#include <optional>

namespace brindlemark {

class RichTextBox;
class Spelling;

/// Underlines the misspelt words of a source box that are in view, when the user rests, and finds them for
/// menus and keys.
class SourceSpelling : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive it.
    SourceSpelling(RichTextBox& box, Spelling& spelling);

    /// The misspelt word at a byte of the text, or which ends there.
    std::optional<MisspeltWord> wordAt(int position) const;
    /// The first one that begins behind a byte of the text; from the text's beginning on when there is none.
    std::optional<MisspeltWord> nextFrom(int position) const;

private:
    void noteChange();
    void noteCaret();
    void mark();
    bool isChecked() const;
    std::vector<MisspeltWord> wordsIn(const TextRange& stretch) const;
    bool isTypedAt(const MisspeltWord& word) const;

    RichTextBox& m_box;
    Spelling& m_spelling;
    QTimer m_rest;
    bool m_changes = false; // the next move of the caret is that of a change
    bool m_typed = false;   // the caret stands where it came to by typing
};

} // namespace brindlemark
