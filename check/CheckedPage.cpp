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

std::optional<TextRange> styleValue(QByteArrayView style, QByteArrayView property)
{
    std::optional<TextRange> value;
    qsizetype from = 0;
    for (const QByteArray& declaration : style.toByteArray().split(';')) {
        const qsizetype colon = declaration.indexOf(':');
        if (colon >= 0 && isHtmlName(QByteArrayView(declaration).first(colon).trimmed(), property))
            value = {from + colon + 1, declaration.size() - colon - 1}; // the last one counts
        from += declaration.size() + 1;
    }
    return value;
}

std::optional<QByteArray> styleProperty(QByteArrayView style, QByteArrayView property)
{
    const std::optional<TextRange> value = styleValue(style, property);
    return value ? std::optional(style.sliced(value->start, value->length).trimmed().toByteArray())
                 : std::nullopt;
}

} // namespace brindlemark
