// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/ListHtml.h"

#include <array>

namespace brindlemark {

namespace {

/// A font tag, up to its end.
QString fontTag(const char* tag, const QString& name, const QString& size, const QString& color)
{
    return QLatin1String(tag) + QStringLiteral(" face=") + name + QStringLiteral(" size=") + size +
           QStringLiteral(" color=") + color + u'>';
}

/// A word or title of a list of special characters, in its font, with a hard blank on either side.
QString spaced(const QString& text, const ListFont& font)
{
    return font.open + fontTag("<FONT", font.name, font.size, font.color) + QStringLiteral("&nbsp;") + text +
           QStringLiteral("&nbsp;</FONT>") + font.close + QStringLiteral("<BR>\r\n");
}

} // namespace

QString listItem(const QString& word, const ListFont& font)
{
    return QStringLiteral("<li>") + font.open + fontTag("<Font", font.name, font.size, font.color) + word +
           QStringLiteral("</Font>") + font.close;
}

QString listOpening(ListKind kind, const QString& color)
{
    constexpr std::array<const char*, 3> Tags = {"<ul>", "<ol>", "<ul type=square>"};
    return QStringLiteral("<Font color=") + color + u'>' + QLatin1String(Tags.at(size_t(kind)));
}

QString listText(const QString& opening, const QStringList& items)
{
    QString text = opening + QStringLiteral("\r\n");
    for (const QString& item : items)
        text += item + QStringLiteral("\r\n");
    return text + QStringLiteral("</ul>\r\n</Font>\r\n");
}

QString titleLine(const QString& title, const ListFont& font)
{
    return spaced(title, font);
}

QString symbolLine(const QString& word, const ListSymbol& symbol, const ListFont& font)
{
    return QStringLiteral("&nbsp;") + QLatin1String(symbol.bold ? "<B>" : "") +
           fontTag("<FONT", symbol.font, symbol.size, symbol.color) + symbol.character +
           QStringLiteral("</FONT>") + QLatin1String(symbol.bold ? "</B>" : "") + spaced(word, font);
}

} // namespace brindlemark
