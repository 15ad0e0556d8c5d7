// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// The HTML of lists. Nothing is escaped or checked, and no value stands in quotes.

/// A font as the font window hands it over: what stands around a word. Tags of styles are opened and closed
/// in the same order.
struct ListFont
{
    QString name = QStringLiteral("Arial");
    QString size = QStringLiteral("3"); ///< HTML font size; may be empty
    QString color = QStringLiteral("#000000");
    QString BIU;  ///< opening style tags
    QString BIU2; ///< closing style tags
};

enum class ListKind { Bullets, Numbers, Squares };

/// An entry of a list, with its font.
QString listItem(const QString& word, const ListFont& font);

/// The line that opens a list of a colour (`#RRGGBB`), without its line end.
QString listOpening(ListKind kind, const QString& color);

/// A whole list. Every kind is closed as a bulleted one. Lines end with CR LF.
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

/// The line of a word, with its line end.
QString symbolLine(const QString& word, const ListSymbol& symbol, const ListFont& font);
