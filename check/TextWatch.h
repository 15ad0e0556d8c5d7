// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check/CheckedPage.h"

#include <QHash>
#include <QRgb>
#include <QSet>
#include <optional>

namespace brindlemark {

/// Looks at the text that is seen: its colours and size, its words, what was left unfinished in it.
class TextWatch
{
public:
    explicit TextWatch(CheckedPage& page) : m_page(page) {}

    void seeTag(const Tag& tag);
    /// Text that is seen.
    void seeText(const HtmlToken& text);

    qsizetype words() const { return m_words; }

private:
    /// A colour, and the tag that gives it.
    struct GivenColor
    {
        std::optional<QRgb> color;
        TextRange tag;
    };

    /// How text looks within an element.
    struct Look
    {
        QByteArray name;
        GivenColor text;
        GivenColor ground;
        int size = 3; ///< of FONT, 1 to 7
        TextRange sizeTag;
    };

    Look lookOf(const Tag& tag) const;
    void push(Look look);
    void close(const QByteArray& name);
    void seeColors();
    void seeSize(qsizetype length);
    void countWords(QByteArrayView text);
    void seeLeftovers(const HtmlToken& text);
    void seeMailAddresses(const HtmlToken& text);

    CheckedPage& m_page;
    std::vector<Look> m_looks{Look()};
    QHash<QByteArray, int> m_openNames; // how many of a name are among them, so that nobody walks in vain
    QSet<std::pair<QRgb, QRgb>> m_toldColors; // text and ground
    QHash<qsizetype, qsizetype> m_smallText;  // by the place of the tag, in characters
    qsizetype m_words = 0;
    bool m_inWord = false;
};

} // namespace brindlemark
