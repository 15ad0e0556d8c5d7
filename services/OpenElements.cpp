// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/OpenElements.h"

#include "services/Elements.h"
#include "services/HtmlTokenizer.h"

#include <QHash>
#include <algorithm>
#include <string_view>

namespace brindlemark {

namespace {

constexpr size_t Deepest = 256; // a page made to do harm would cost seconds else

/// What ends by itself when one of its like begins. Names are parted by blanks.
struct SiblingRow
{
    std::string_view beginning;
    std::string_view ended;
    std::string_view around; ///< beyond which nothing is ended; nor beyond a table or its cells
};

constexpr SiblingRow SiblingRows[] = {
    {"li", "li", "ul ol menu dir"},
    {"dt dd", "dt dd", "dl"},
    {"option", "option", "select optgroup"},
    {"optgroup", "option optgroup", "select"},
    {"address article aside blockquote center details dir div dl fieldset figcaption figure footer form h1 "
     "h2 "
     "h3 h4 h5 h6 header hr main menu nav ol p pre section summary table ul xmp",
     "p", "button object marquee"},
};

struct Siblings
{
    std::vector<std::string_view> ended;
    std::vector<std::string_view> around;
};

bool isAmong(const QByteArray& name, const std::vector<std::string_view>& names)
{
    return std::ranges::find(names, std::string_view(name.data(), size_t(name.size()))) != names.end();
}

/// What the beginning of an element ends; null: nothing.
const Siblings* siblingsOf(const QByteArray& beginning)
{
    static const QHash<QByteArray, Siblings> all = [] { // asked for each tag of a page
        QHash<QByteArray, Siblings> made;
        for (const SiblingRow& row : SiblingRows) {
            for (const std::string_view name : partedNames(row.beginning))
                made.insert(QByteArrayView(name).toByteArray(),
                            {partedNames(row.ended), partedNames(row.around)});
        }
        return made;
    }();
    const auto found = all.constFind(beginning);
    return found == all.cend() ? nullptr : &*found;
}

/// How deep a part stands in its table.
int rankOf(const QByteArray& part)
{
    if (isTableCell(part))
        return 2;
    return part == "tr" ? 1 : 0;
}

/// Whether a part of a table ends with the beginning of another one of the same table.
bool endsBefore(const QByteArray& part, const QByteArray& next)
{
    return part == "caption" || part == "colgroup" || rankOf(part) >= rankOf(next);
}

} // namespace

void OpenElements::see(QByteArrayView html, const HtmlToken& token)
{
    const QByteArrayView name = html.sliced(token.inside.start, token.inside.length);
    if (token.kind == HtmlTokenKind::StartTag) {
        seeStart(name, token.selfClosing);
    } else if (token.kind == HtmlTokenKind::EndTag) {
        seeEnd(htmlName(name));
    }
}

void OpenElements::seeStart(QByteArrayView written, bool selfClosing)
{
    const QByteArray name = htmlName(written);
    const ElementKind* kind = elementKind(name);
    if (isTablePart(name) && name != "col")
        endTableParts(name);
    endSiblings(name);
    // The slash ends drawings and what stands in them; browsers pass over that of other elements.
    const bool hasNoEnd = kind ? kind->end == EndTagNeed::Never : selfClosing;
    if (hasNoEnd || (selfClosing && name == "svg"))
        return;
    if (m_open.size() == Deepest)
        m_open.erase(m_open.begin());
    m_open.push_back(
        {name, written, !kind || kind->end == EndTagNeed::Required, kind != nullptr && kind->isInline});
}

/// With a part end the parts before it, and all that stands in them.
void OpenElements::endTableParts(const QByteArray& next)
{
    size_t from = m_open.size();
    for (size_t i = m_open.size(); i > 0; --i) {
        const QByteArray& name = m_open[i - 1].name;
        if (name == "table" || (isTablePart(name) && !endsBefore(name, next)))
            break;
        if (isTablePart(name))
            from = i - 1;
    }
    m_open.erase(m_open.begin() + std::ptrdiff_t(from), m_open.end());
}

/// What needs an end tag and stands in what ends so stays open: bold letters go on in the next paragraph.
void OpenElements::endSiblings(const QByteArray& next)
{
    const Siblings* siblings = siblingsOf(next);
    if (!siblings)
        return;
    size_t from = m_open.size();
    for (size_t i = m_open.size(); i > 0; --i) {
        const QByteArray& name = m_open[i - 1].name;
        if (isFence(name) || isAmong(name, siblings->around))
            break;
        if (isAmong(name, siblings->ended))
            from = i - 1;
    }
    const auto ended = m_open.begin() + std::ptrdiff_t(from);
    m_open.erase(std::remove_if(ended, m_open.end(), [](const Open& open) { return !open.needsEnd; }),
                 m_open.end());
}

void OpenElements::seeEnd(const QByteArray& name)
{
    const bool isPart = isTablePart(name);
    const bool ofTable = isPart || name == "table" || name == "body" || name == "html";
    size_t depth = m_open.size();
    while (depth > 0 && m_open[depth - 1].name != name) {
        const QByteArray& inner = m_open[depth - 1].name;
        if (ofTable ? isPart && inner == "table" : isFence(inner))
            return; // it belongs to nothing that is open here
        --depth;
    }
    if (depth == 0)
        return;
    const auto ended = m_open.begin() + std::ptrdiff_t(depth) - 1;
    const bool crosses = std::any_of(ended + 1, m_open.end(), [](const Open& open) { return open.needsEnd; });
    m_open.erase(ended, crosses && ended->isInline ? ended + 1 : m_open.end());
}

QList<QByteArray> OpenElements::names() const
{
    QList<QByteArray> seen;
    QList<QByteArray> written;
    std::for_each(m_open.rbegin(), m_open.rend(), [&](const Open& open) {
        if (seen.contains(open.name))
            return;
        seen << open.name;
        written << open.written.toByteArray();
    });
    return written;
}

} // namespace brindlemark
