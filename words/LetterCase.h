// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextEdit.h"
#include "source/TextEncoding.h"

#include <QByteArrayView>
#include <QString>
#include <vector>

namespace brindlemark {

enum class LetterCase {
    Upper,
    Lower,
    Title, ///< each word begins with a capital; a text all in capitals has small letters behind them, another
           ///< keeps its own
};

/// A text with its letters in another case, by the rules of all scripts and of the system's language (ICU):
/// "ß" is "SS" in capitals, "ǆ" begins a title as "ǅ".
QString inCase(const QString& text, LetterCase letterCase);

/// What does the same in a stretch of HTML: only its text between tags changes, never a tag, a comment, a
/// script or an address in a tag, and a character reference only when its letter does. The edits are in the
/// order of the text.
std::vector<TextEdit> caseEdits(QByteArrayView html, TextEncoding encoding, const TextRange& stretch,
                                LetterCase letterCase);

} // namespace brindlemark
