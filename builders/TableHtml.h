// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace brindlemark {

// The HTML of the table designer. Attribute values have no quotes and not all tags are closed. Both are
// meant: the designer reads its own cells back by the order of their attributes (see TableReadBack.h).
// Nothing is escaped or checked.

enum class TableAlign { Left, Center, Right };

/// How a cell looks.
struct CellStyle
{
    TableAlign align = TableAlign::Left; ///< of the text
    bool bold = false;
    bool italic = false;
    bool underline = false;
    QString fontFace;
    QString size;      ///< HTML font size, "1" to "7"; may be empty
    QString fontColor; ///< `#RRGGBB`
    QString width;     ///< as typed, with or without a unit
    QString height;    ///< likewise
};

/// How the table around the cells looks.
struct TableStyle
{
    TableAlign align = TableAlign::Left;
    bool borderColored = true; ///< whether `borderColor` is written
    QString borderColor;       ///< `#RRGGBB`
    QString background;        ///< `#RRGGBB`
    QString border;            ///< pixels
    QString cellSpacing;       ///< pixels
    QString cellPadding;       ///< pixels
    QString width;             ///< with its unit
    QString height;            ///< with its unit
};

/// The words of the table, row by row. A row without a right word spans both columns.
struct TableWords
{
    QStringList left;
    QStringList right; ///< an empty text where a row has one word
};

/// The table's cells, row by row, each as its opening tags and its word.
struct TableCells
{
    QStringList left;
    QStringList right; ///< an empty text where a row has one word
};

/// The bold, italic and underline tags of a cell. `opening` is "<" or "</"; the closing tags stand in the
/// same order as the opening ones, not nested.
QString styleTags(const CellStyle& style, const char* opening);

/// The tags of a cell with a background colour, up to the place of its word. `spanning`: over both columns.
QString cellOpen(const CellStyle& style, const QString& color, bool spanning);

/// The cells of one row.
struct RowCells
{
    QString left;
    QString right; ///< empty for a row of one word
};
RowCells rowCells(const CellStyle& style, const QString& color, const QString& left, const QString& right);

/// All rows in one style. The rows take the background colours in turn; there must be one at least.
TableCells tableCells(const TableWords& words, const CellStyle& style, const QStringList& colors);

/// The whole table. Begins with a BODY tag that is never closed. Lines end with CR LF.
QString tableText(const TableCells& cells, const TableStyle& style);

/// What an empty table is made of: its attributes and its size.
struct Skeleton
{
    QString align;
    QString border;
    QString cellPadding;
    QString cellSpacing;
    QString borderColor;
    QString background;
    int rows = 0;
    int columns = 0; ///< with 0 a row still has one cell
};

/// An empty table. Its attributes stand in quotes, unlike those of `tableText`. Lines end with CR LF.
QString skeletonText(const Skeleton& skeleton);

} // namespace brindlemark
