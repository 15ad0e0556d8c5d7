// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/StructureWatch.h"

#include <algorithm>

namespace brindlemark {

namespace {

/// What stands directly in a table without being moved in front of it.
bool mayStandInTable(QByteArrayView name)
{
    static constexpr QByteArrayView Names[] = {"script", "style", "template", "form", "input"};
    return isTablePart(name) || std::ranges::find(Names, name) != std::end(Names);
}

/// Where a table has parts, but no text.
bool takesOnlyParts(QByteArrayView name)
{
    return name == QByteArrayView("table") || name == QByteArrayView("tr") || isTableSection(name);
}

} // namespace

void StructureWatch::seeTag(const Tag& tag)
{
    if (tag.starts()) {
        seeStart(tag);
    } else {
        seeEnd(tag);
    }
}

void StructureWatch::seeText(const HtmlToken& text)
{
    const QByteArrayView source = m_page.source(text.inside);
    const auto* first = std::ranges::find_if_not(source, isHtmlBlank);
    if (first == source.end())
        return;
    const qsizetype blanks = first - source.begin();
    seeContent({text.inside.start + blanks, text.inside.length - blanks});
}

void StructureWatch::seeContent(TextRange place)
{
    if (m_open.empty() || !takesOnlyParts(m_open.back().name) || m_open.back().told)
        return;
    m_open.back().told = true; // once is enough
    m_page.find(CheckRule::OutsideCell, place);
}

void StructureWatch::seeStart(const Tag& tag)
{
    const ElementKind* kind = elementKind(tag.name);
    if (!mayStandInTable(tag.name))
        seeContent(tag.token.whole);
    if (isTablePart(tag.name) && !openTablePart(tag))
        return; // browsers pass it over
    if (!kind || kind->end != EndTagNeed::Never)
        push({tag.name, kind, tag.token.whole});
}

void StructureWatch::push(Open open)
{
    ++m_openNames[open.name];
    m_open.push_back(std::move(open));
}

StructureWatch::Open StructureWatch::take(size_t depth)
{
    const auto place = m_open.begin() + std::ptrdiff_t(depth);
    Open open = std::move(*place);
    m_open.erase(place);
    --m_openNames[open.name];
    return open;
}

/// A cell ends the cell before it, a row the row, a section the section. False: there is no table.
bool StructureWatch::openTablePart(const Tag& tag)
{
    const std::optional<size_t> table = openDepth("table");
    if (!table) {
        m_page.find(CheckRule::OutsideTable, tag.token.whole, m_page.source(tag.token.inside).toByteArray());
        return false;
    }
    const bool isCell = isTableCell(tag.name);
    const bool isRow = tag.name == "tr";
    size_t depth = *table;
    for (size_t i = *table + 1; i < m_open.size(); ++i) {
        const QByteArray& name = m_open[i].name;
        if ((isTableSection(name) && (isCell || isRow)) || (name == "tr" && isCell))
            depth = i;
    }
    close(depth + 1, tag.token.whole.start, tag.name);
    return true;
}

void StructureWatch::seeEnd(const Tag& tag)
{
    const TextRange place = tag.token.whole;
    const std::optional<size_t> depth = matching(tag);
    if (!depth) {
        if (wasLeft(tag) || wasImplied(tag.name))
            return;
        const bool makesElement =
            tag.name == "p" || tag.name == "br"; // to take it away would change the page
        m_page.find(CheckRule::UnopenedTag, place, m_page.source(tag.token.inside).toByteArray(),
                    makesElement ? std::vector<TextEdit>() : std::vector<TextEdit>{{place, {}}});
        return;
    }
    const auto above = m_open.begin() + std::ptrdiff_t(*depth) + 1;
    const bool crosses = std::any_of(above, m_open.end(), [](const Open& open) { return open.needsEnd(); });
    if (crosses && m_open[*depth].isInline()) {
        m_page.find(CheckRule::CrossedTags, place, m_page.source(tag.token.inside).toByteArray());
        take(*depth);
    } else {
        close(*depth + 1, place.start, tag.name);
        take(*depth);
    }
}

/// The open element that an end tag ends.
std::optional<size_t> StructureWatch::matching(const Tag& tag) const
{
    if (m_openNames.value(tag.name) == 0)
        return std::nullopt;
    const bool ofTable =
        isTablePart(tag.name) || tag.name == "table" || tag.name == "body" || tag.name == "html";
    for (size_t i = m_open.size(); i > 0; --i) {
        if (m_open[i - 1].name == tag.name)
            return i - 1;
        if (!ofTable && isFence(m_open[i - 1].name))
            return std::nullopt;
    }
    return std::nullopt;
}

std::optional<size_t> StructureWatch::openDepth(QByteArrayView name) const
{
    for (size_t i = m_openNames.value(name.toByteArray()) == 0 ? 0 : m_open.size(); i > 0; --i) {
        if (m_open[i - 1].name == name)
            return i - 1;
    }
    return std::nullopt;
}

/// Whether an end tag is that of an element that begins without a tag.
bool StructureWatch::wasImplied(const QByteArray& name) const
{
    return name == "body" || name == "html" || name == "head" || (name == "tbody" && openDepth("table"));
}

/// Whether an end tag belongs to an element that has lost its place to one around it.
bool StructureWatch::wasLeft(const Tag& tag)
{
    if (m_leftNames.value(tag.name) == 0)
        return false;
    const auto left =
        std::find_if(m_left.rbegin(), m_left.rend(), [&](const Left& l) { return l.open.name == tag.name; });
    if (left->open.needsEnd())
        m_page.find(CheckRule::CrossedTags, tag.token.whole, m_page.source(tag.token.inside).toByteArray());
    m_left.erase(std::next(left).base());
    --m_leftNames[tag.name];
    return true;
}

/// Ends what is open from a depth on, because another tag does, or the text (then `closer` is empty).
void StructureWatch::close(size_t depth, qsizetype place, QByteArrayView closer)
{
    const bool isFenced = closer.isEmpty() || isFence(closer) || isTablePart(closer) ||
                          closer == QByteArrayView("body") || closer == QByteArrayView("html");
    while (m_open.size() > depth) {
        Open open = take(m_open.size() - 1);
        ++m_leftNames[open.name];
        const bool isEndSure = isFenced || !open.isInline(); // bold goes on behind a block that ends, for one
        m_left.push_back({std::move(open), place, isEndSure});
    }
}

void StructureWatch::end()
{
    close(0, m_page.html.size(), {});
    for (const Left& left : m_left) {
        if (left.open.needsEnd())
            tellUnclosed(left);
    }
}

void StructureWatch::tellUnclosed(const Left& left)
{
    const QByteArray name = m_page.source(left.open.tag).sliced(1, left.open.name.size()).toByteArray();
    std::vector<TextEdit> mend;
    if (left.isEndSure)
        mend = {{{left.endedAt, 0}, "</" + name + '>'}};
    m_page.find(CheckRule::UnclosedTag, left.open.tag, name, std::move(mend));
}

} // namespace brindlemark
