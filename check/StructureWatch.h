// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check/CheckedPage.h"
#include "services/Elements.h"

#include <QHash>

namespace brindlemark {

/// Follows which elements are open, and finds tags that are never closed or opened, that cross, and that
/// stand where no table takes them.
class StructureWatch
{
public:
    explicit StructureWatch(CheckedPage& page) : m_page(page) {}

    void seeTag(const Tag& tag);
    /// Text that is seen.
    void seeText(const HtmlToken& text);
    void end();

private:
    struct Open
    {
        QByteArray name;
        const ElementKind* kind; ///< null for an unknown element
        TextRange tag;
        bool told = false; ///< that something stands in it, but in no cell

        bool needsEnd() const { return kind && kind->end == EndTagNeed::Required; }
        bool isInline() const { return kind && kind->isInline; }
    };

    /// An element that was not closed when one around it was.
    struct Left
    {
        Open open;
        qsizetype endedAt;
        bool isEndSure; ///< whether browsers end it there too
    };

    void seeStart(const Tag& tag);
    void seeEnd(const Tag& tag);
    bool openTablePart(const Tag& tag);
    void seeContent(TextRange place);
    void push(Open open);
    Open take(size_t depth);
    void close(size_t depth, qsizetype place, QByteArrayView closer);
    void tellUnclosed(const Left& left);
    std::optional<size_t> openDepth(QByteArrayView name) const;
    std::optional<size_t> matching(const Tag& tag) const;
    bool wasLeft(const Tag& tag);
    bool wasImplied(const QByteArray& name) const;

    CheckedPage& m_page;
    std::vector<Open> m_open;
    std::vector<Left> m_left;
    // How many of a name are in the lists above, so that nobody walks over them in vain.
    QHash<QByteArray, int> m_openNames;
    QHash<QByteArray, int> m_leftNames;
};

} // namespace brindlemark
