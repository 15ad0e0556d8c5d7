// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <vector>

namespace brindlemark {

/// A word of a text, in UTF-16 units.
struct WordPlace
{
    qsizetype start = 0;
    qsizetype length = 0;
    bool isInLetters =
        false; ///< which dictionaries can judge: no number such as "1,000", no sign of Chinese or Japanese

    qsizetype end() const { return start + length; }
    bool operator==(const WordPlace&) const = default;
};

/// The words of a text as Unicode's annex 29 cuts them (by ICU, which knows words of scripts without blanks
/// too): "don't" is one, "hand-made" two, "12in" one.
std::vector<WordPlace> wordsOf(QStringView text);

/// How long a text is for its reader.
struct TextCount
{
    qsizetype words = 0;      ///< numbers among them
    qsizetype characters = 0; ///< what a reader takes for one, blanks among them; a line end is one

    bool operator==(const TextCount&) const = default;
};

TextCount countText(QStringView text);

} // namespace brindlemark
