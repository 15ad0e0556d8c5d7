// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextEncoding.h"
#include "source/TextRange.h"
#include "words/Words.h"

#include <QByteArrayView>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace brindlemark {

/// Whether a word is right.
using Judge = std::function<bool(const QString& word)>;

/// The words of a text that are not right. What is an address
/// ("www.", "://", "@", "lamp.jpg") is none, nor is a number.
std::vector<WordPlace> misspeltWords(const QString& text, const Judge& isRight);
/// The first of them that begins at a unit of the text or behind it, else the first one. No more words are
/// judged than it takes.
std::optional<WordPlace> nextMisspelt(const QString& text, qsizetype from, const Judge& isRight);

/// A misspelt word of a source: its letters, and where they stand, in more than one place if tags stand
/// between them.
struct MisspeltWord
{
    QString word;
    std::vector<TextRange> places;

    bool operator==(const MisspeltWord&) const = default;
};

/// The misspelt words that a reader sees of a stretch of HTML. A word that the stretch cuts is left out.
std::vector<MisspeltWord> misspeltWords(QByteArrayView html, TextEncoding encoding, const TextRange& stretch,
                                        const Judge& isRight);
/// The first misspelt word of HTML that begins at a byte or behind it, else the first one.
std::optional<MisspeltWord> nextMisspelt(QByteArrayView html, TextEncoding encoding, qsizetype from,
                                         const Judge& isRight);

} // namespace brindlemark
