// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CheckedPage.h"

#include <QList>

namespace brindlemark {

TextEdit withoutAttribute(QByteArrayView html, const HtmlAttribute& attribute)
{
    qsizetype start = attribute.whole.start;
    while (isHtmlBlank(html[start - 1]))
        --start;
    return {{start, attribute.whole.end() - start}, {}};
}

TextEdit withAttribute(const HtmlToken& tag, const QByteArray& attribute)
{
    return {{tag.inside.end(), 0}, ' ' + attribute};
}

std::optional<int> pixels(QByteArrayView width)
{
    QByteArrayView number = width.trimmed();
    if (number.size() > 2 && isHtmlName(number.last(2), "px"))
        number = number.chopped(2).trimmed();
    bool isNumber = false;
    const double pixels = number.toDouble(&isNumber);
    return isNumber && pixels >= 0 && pixels < 1e6 ? std::optional(int(pixels)) : std::nullopt;
}

std::optional<QByteArray> styleProperty(QByteArrayView style, QByteArrayView property)
{
    std::optional<QByteArray> value;
    for (const QByteArray& declaration : style.toByteArray().split(';')) {
        const qsizetype colon = declaration.indexOf(':');
        if (colon >= 0 && isHtmlName(QByteArrayView(declaration).first(colon).trimmed(), property))
            value = declaration.mid(colon + 1).trimmed(); // the last one counts
    }
    return value;
}

std::optional<int> widthInPixels(QByteArrayView html, const HtmlToken& tag)
{
    if (const auto style = attributeValue(html, tag, "style")) {
        if (const auto width = styleProperty(*style, "width"))
            return pixels(*width);
    }
    const auto width = attributeValue(html, tag, "width");
    return width ? pixels(*width) : std::nullopt;
}

} // namespace brindlemark
