// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace brindlemark {

// The HTML of lists. Nothing is escaped or checked, and no value stands in quotes.

/// The font of a word or a title. The style tags are closed in the order in which they were opened, not
/// nested.
struct ListFont
{
    QString name = QStringLiteral("Arial");
    QString size = QStringLiteral("3"); ///< HTML font size; may be empty
    QString color = QStringLiteral("#000000");
    QString open;  ///< opening style tags
    QString close; ///< closing style tags
};

/// How the entries of a list are marked.
enum class ListKind { Bullets, Numbers, Squares };

/// An entry of a list, with its font.
QString listItem(const QString& word, const ListFont& font);

/// The line that opens a list of a colour (`#RRGGBB`), without its line end.
QString listOpening(ListKind kind, const QString& color);

/// A whole list. Every kind is closed with </ul>, a numbered one too; browsers show it all the same. Lines
/// end with CR LF.
QString listText(const QString& opening, const QStringList& items);

/// What stands in front of each word of a list of special characters.
struct ListSymbol
{
    QString character;
    QString font;
    QString size;  ///< HTML font size; may be empty
    QString color; ///< `#RRGGBB`
    bool bold = false;
};

/// The title line above such a list, with its line end.
QString titleLine(const QString& title, const ListFont& font);

/// The lines of words, each with its line end.
QString symbolLines(const QStringList& words, const ListSymbol& symbol, const ListFont& font);

} // namespace brindlemark
