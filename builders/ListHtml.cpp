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

/// What stands around a text.
struct Around
{
    QString before;
    QString after;
};

/// Around a word or title of a list of special characters: its font, and a hard blank on either side.
Around spaced(const ListFont& font)
{
    return {font.open + fontTag("<FONT", font.name, font.size, font.color) + QStringLiteral("&nbsp;"),
            QStringLiteral("&nbsp;</FONT>") + font.close + QStringLiteral("<BR>\r\n")};
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
    const Around around = spaced(font);
    return around.before + title + around.after;
}

QString symbolLines(const QStringList& words, const ListSymbol& symbol, const ListFont& font)
{
    const Around around = spaced(font);
    const QString before = QStringLiteral("&nbsp;") + QLatin1String(symbol.bold ? "<B>" : "") +
                           fontTag("<FONT", symbol.font, symbol.size, symbol.color) + symbol.character +
                           QStringLiteral("</FONT>") + QLatin1String(symbol.bold ? "</B>" : "") +
                           around.before;
    QString lines;
    for (const QString& word : words)
        lines += before + word + around.after;
    return lines;
}

} // namespace brindlemark
