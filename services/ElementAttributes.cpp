// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/ElementAttributes.h"

#include "services/Elements.h"

#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

struct AttributeRow
{
    std::string_view elements;   ///< parted by blanks
    std::string_view attributes; ///< likewise
};

constexpr std::string_view OfAll = "class dir id lang style title";

// An element may stand in several rows.
constexpr AttributeRow Rows[] = {
    {"a", "charset coords href hreflang name rel rev shape target type"},
    {"area", "alt coords href name nohref rel shape target"},
    {"audio video", "autoplay controls loop muted preload src"},
    {"base", "href target"},
    {"body",
     "alink background bgcolor bottommargin leftmargin link marginheight marginwidth rightmargin text "
     "topmargin vlink"},
    {"br", "clear"},
    {"button", "disabled name type value"},
    {"caption div h1 h2 h3 h4 h5 h6 hr iframe img input legend object p applet embed", "align"},
    {"col colgroup", "align char charoff span valign width"},
    {"del ins blockquote q", "cite"},
    {"del ins", "datetime"},
    {"details", "open"},
    {"embed", "height src type width"},
    {"font basefont", "color face size"},
    {"form", "accept-charset action enctype method name target"},
    {"frame iframe", "frameborder longdesc marginheight marginwidth name scrolling src"},
    {"hr", "color noshade size width"},
    {"iframe", "allowfullscreen height loading width"},
    {"img", "alt border decoding height hspace ismap loading longdesc lowsrc name sizes src srcset usemap "
            "vspace width"},
    {"input", "accept alt checked disabled maxlength name placeholder readonly size src type usemap value"},
    {"label", "for"},
    {"li", "type value"},
    {"link", "charset href hreflang media rel rev target type"},
    {"map", "name"},
    {"marquee",
     "behavior bgcolor direction height hspace loop scrollamount scrolldelay truespeed vspace width"},
    {"meta", "charset content http-equiv name scheme"},
    {"object", "archive border classid codebase codetype data declare height hspace name standby type usemap "
               "vspace width"},
    {"ol", "compact reversed start type"},
    {"optgroup option", "disabled label"},
    {"option", "selected value"},
    {"param", "name type value valuetype"},
    {"pre", "width"},
    {"script", "async charset defer language src type"},
    {"select", "disabled multiple name size"},
    {"source", "media sizes src srcset type"},
    {"style", "media type"},
    {"table", "align background bgcolor border bordercolor bordercolordark bordercolorlight cellpadding "
              "cellspacing frame height rules summary width"},
    {"tbody tfoot thead", "align bgcolor char charoff valign"},
    {"td th", "abbr align axis background bgcolor bordercolor char charoff colspan headers height nowrap "
              "rowspan scope valign width"},
    {"textarea", "cols disabled name placeholder readonly rows wrap"},
    {"tr", "align background bgcolor bordercolor char charoff height valign"},
    {"track", "default kind label src srclang"},
    {"ul dir menu dl", "compact"},
    {"ul", "type"},
    {"video", "height poster width"},
};

constexpr std::array<std::string_view, 7> ColorAttributes = {"alink", "bgcolor", "bordercolor", "color",
                                                             "link",  "text",    "vlink"};

} // namespace

std::vector<std::string_view> attributesOf(QByteArrayView element)
{
    const std::string_view wanted(element.data(), size_t(element.size()));
    std::vector<std::string_view> all = partedNames(OfAll);
    for (const AttributeRow& row : Rows) {
        if (std::ranges::count(partedNames(row.elements), wanted) == 0)
            continue;
        for (const std::string_view attribute : partedNames(row.attributes))
            all.push_back(attribute);
    }
    std::ranges::sort(all);
    return all;
}

bool isColorAttribute(QByteArrayView name)
{
    return std::ranges::find(ColorAttributes, std::string_view(name.data(), size_t(name.size()))) !=
           ColorAttributes.end();
}

} // namespace brindlemark
