// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextEncoding.h"
#include "source/TextRange.h"

#include <QByteArrayView>
#include <QString>
#include <vector>

namespace brindlemark {

/// What a reader sees of HTML, or of a stretch of it, as characters whose places in the source are known.
/// Tags within a line part no words: a word in letters of many colours is one. All other tags stand as a line
/// end, which has no place. Scripts, styles and comments are left out; the page's title is text.
class TextOfHtml
{
public:
    /// Of the source as a whole, or of what stands in `stretch` of it, in bytes; a stretch is cut where it
    /// says, in the middle of a word too, but not of a character: it has those that begin in it. The tokens
    /// in front of it are read, as they tell what it is.
    TextOfHtml(QByteArrayView html, TextEncoding encoding);
    TextOfHtml(QByteArrayView html, TextEncoding encoding, const TextRange& stretch);

    const QString& text() const { return m_text; }
    /// The text without the title, which stands in the window's frame.
    QString textOnPage() const;
    /// Whether the first word, or the last one, may be a part of one that the stretch cuts.
    bool isCutInFront() const { return m_isCutInFront; }
    bool isCutBehind() const { return m_isCutBehind; }

    /// A part of the text that stands in one piece in the source, some hundred bytes at most.
    struct Piece
    {
        qsizetype start = 0; ///< in the text, in UTF-16 units
        qsizetype length = 0;
        TextRange source;
        bool isReference = false; ///< a character reference, which counts as a whole
        bool isTitle = false;
    };
    const std::vector<Piece>& pieces() const { return m_pieces; }

    /// Where a part of the text stands: a range for each piece, without the tags between them; in their
    /// order.
    std::vector<TextRange> places(qsizetype start, qsizetype length) const;
    /// The first unit of the text that stands at a byte of the source or behind it.
    qsizetype unitAt(qsizetype byte) const;

private:
    void take(QByteArrayView html, const TextRange& run, bool isTitle);
    void addLetters(QByteArrayView html, const TextRange& source, bool isTitle);
    void add(const TextRange& source, const QString& text, bool isReference, bool isTitle);
    void breakLine();
    TextRange within(const Piece& piece, qsizetype start, qsizetype end) const;

    TextEncoding m_encoding;
    QString m_text;
    std::vector<Piece> m_pieces;
    bool m_isCutInFront = false;
    bool m_isCutBehind = false;
};

} // namespace brindlemark
