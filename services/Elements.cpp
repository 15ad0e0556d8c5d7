// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Elements.h"

#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

constexpr auto Required = EndTagNeed::Required;
constexpr auto Optional = EndTagNeed::Optional;
constexpr auto Never = EndTagNeed::Never;
constexpr bool Inline = true;
constexpr bool Block = false;

// In the order of their names.
constexpr ElementKind Elements[] = {
    {"a", Required, Inline},
    {"abbr", Required, Inline},
    {"acronym", Required, Inline},
    {"address", Required, Block},
    {"applet", Required, Inline},
    {"area", Never, Inline},
    {"article", Required, Block},
    {"aside", Required, Block},
    {"audio", Required, Inline},
    {"b", Required, Inline},
    {"base", Never, Block},
    {"basefont", Never, Inline},
    {"bdo", Required, Inline},
    {"bgsound", Never, Block},
    {"big", Required, Inline},
    {"blink", Required, Inline},
    {"blockquote", Required, Block},
    {"body", Optional, Block},
    {"br", Never, Block},
    {"button", Required, Inline},
    {"caption", Optional, Block},
    {"center", Required, Block},
    {"cite", Required, Inline},
    {"code", Required, Inline},
    {"col", Never, Block},
    {"colgroup", Optional, Block},
    {"dd", Optional, Block},
    {"del", Required, Inline},
    {"details", Required, Block},
    {"dfn", Required, Inline},
    {"dir", Required, Block},
    {"div", Required, Block},
    {"dl", Required, Block},
    {"dt", Optional, Block},
    {"em", Required, Inline},
    {"embed", Never, Inline},
    {"fieldset", Required, Block},
    {"figcaption", Required, Block},
    {"figure", Required, Block},
    {"font", Required, Inline},
    {"footer", Required, Block},
    {"form", Required, Block},
    {"frame", Never, Block},
    {"frameset", Required, Block},
    {"h1", Required, Block},
    {"h2", Required, Block},
    {"h3", Required, Block},
    {"h4", Required, Block},
    {"h5", Required, Block},
    {"h6", Required, Block},
    {"head", Optional, Block},
    {"header", Required, Block},
    {"hr", Never, Block},
    {"html", Optional, Block},
    {"i", Required, Inline},
    {"iframe", Required, Inline},
    {"img", Never, Inline},
    {"input", Never, Inline},
    {"ins", Required, Inline},
    {"kbd", Required, Inline},
    {"label", Required, Inline},
    {"legend", Required, Block},
    {"li", Optional, Block},
    {"link", Never, Block},
    {"map", Required, Inline},
    {"mark", Required, Inline},
    {"marquee", Required, Block},
    {"menu", Required, Block},
    {"meta", Never, Block},
    {"nobr", Required, Inline},
    {"noembed", Required, Block},
    {"noframes", Required, Block},
    {"noscript", Required, Block},
    {"object", Required, Inline},
    {"ol", Required, Block},
    {"optgroup", Optional, Block},
    {"option", Optional, Block},
    {"p", Optional, Block},
    {"param", Never, Block},
    {"pre", Required, Block},
    {"q", Required, Inline},
    {"s", Required, Inline},
    {"samp", Required, Inline},
    {"script", Required, Block},
    {"section", Required, Block},
    {"select", Required, Inline},
    {"small", Required, Inline},
    {"source", Never, Block},
    {"span", Required, Inline},
    {"strike", Required, Inline},
    {"strong", Required, Inline},
    {"style", Required, Block},
    {"sub", Required, Inline},
    {"summary", Required, Block},
    {"sup", Required, Inline},
    {"svg", Required, Inline},
    {"table", Required, Block},
    {"tbody", Optional, Block},
    {"td", Optional, Block},
    {"textarea", Required, Inline},
    {"tfoot", Optional, Block},
    {"th", Optional, Block},
    {"thead", Optional, Block},
    {"title", Required, Block},
    {"tr", Optional, Block},
    {"track", Never, Block},
    {"tt", Required, Inline},
    {"u", Required, Inline},
    {"ul", Required, Block},
    {"var", Required, Inline},
    {"video", Required, Inline},
    {"wbr", Never, Inline},
    {"xmp", Required, Block},
};

static_assert(std::ranges::is_sorted(Elements, {}, &ElementKind::name));

template <size_t Count>
bool isOneOf(QByteArrayView name, const std::array<std::string_view, Count>& names)
{
    return std::ranges::find(names, std::string_view(name.data(), size_t(name.size()))) != names.end();
}

} // namespace

const ElementKind* elementKind(QByteArrayView name)
{
    const std::string_view wanted(name.data(), size_t(name.size()));
    const auto* found = std::ranges::lower_bound(Elements, wanted, {}, &ElementKind::name);
    return found != std::end(Elements) && found->name == wanted ? found : nullptr;
}

std::vector<std::string_view> partedNames(std::string_view list)
{
    std::vector<std::string_view> names;
    while (!list.empty()) {
        const size_t end = std::min(list.find(' '), list.size());
        names.push_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return names;
}

bool isFewTag(QByteArrayView name)
{
    static constexpr std::array<std::string_view, 12> Few = {"b",   "i", "u",  "em", "strong", "sub",
                                                             "sup", "p", "br", "ul", "ol",     "li"};
    return isOneOf(name, Few);
}

bool isTableSection(QByteArrayView name)
{
    static constexpr std::array<std::string_view, 3> Sections = {"tbody", "thead", "tfoot"};
    return isOneOf(name, Sections);
}

bool isTableCell(QByteArrayView name)
{
    static constexpr std::array<std::string_view, 2> Cells = {"td", "th"};
    return isOneOf(name, Cells);
}

bool isTablePart(QByteArrayView name)
{
    static constexpr std::array<std::string_view, 4> Others = {"tr", "caption", "colgroup", "col"};
    return isTableCell(name) || isTableSection(name) || isOneOf(name, Others);
}

bool isFence(QByteArrayView name)
{
    return isTableCell(name) || name == QByteArrayView("caption") || name == QByteArrayView("table");
}

} // namespace brindlemark
