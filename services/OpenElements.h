// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <vector>

namespace brindlemark {

struct HtmlToken;

/// Follows which elements are open from tag to tag, for somebody who writes a page: what needs an end tag is
/// open until it has one, and what needs none also ends with the next of its kind and with what is around it,
/// as in browsers. Looks no further than 256 elements deep; the outer ones are forgotten.
class OpenElements
{
public:
    /// The next token of `html`, which must outlive this and is the same for all; those that are no tags
    /// change nothing.
    void see(QByteArrayView html, const HtmlToken& token);

    /// The names of those that are open, as their start tags write them, the innermost first. A name that
    /// comes again further out, in whatever case, is left out there.
    QList<QByteArray> names() const;

private:
    struct Open
    {
        QByteArray name;        ///< in lower case
        QByteArrayView written; ///< in the start tag
        bool needsEnd;
        bool isInline;
    };

    void seeStart(QByteArrayView written, bool selfClosing);
    void seeEnd(const QByteArray& name);
    void endTableParts(const QByteArray& next);
    void endSiblings(const QByteArray& next);

    std::vector<Open> m_open;
};

} // namespace brindlemark
