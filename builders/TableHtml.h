// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// The HTML of the table designer. Terse and unquoted, with tags that aren't all closed: the designer reads
// its own cells back by the place of each attribute (see TableReadBack.h). Nothing is escaped or checked.

enum class TableAlign { Left, Center, Right };

/// How a cell looks, under the names of the designer's controls.
struct CellStyle
{
    TableAlign align = TableAlign::Left; ///< of the text
    bool chkBold = false;
    bool chkItalic = false;
    bool chkUnderline = false;
    QString Combo7; ///< font face
    QString size;   ///< HTML font size, "1" to "7"; may be empty
    QString Text8;  ///< font colour, `#RRGGBB`
    QString TxWid;  ///< width
    QString TxHei;  ///< height
};

/// The frame of the table, under the names of the designer's controls.
struct TableStyle
{
    TableAlign align = TableAlign::Left;
    bool ChkNoB = true; ///< the border has a colour
    QString Text4;      ///< which is this, `#RRGGBB`
    QString Text13;     ///< background, `#RRGGBB`
    QString Combo2;     ///< border
    QString Combo4;     ///< cell spacing
    QString Combo3;     ///< cell padding
    QString Combo9;     ///< width, with its unit
    QString Combo8;     ///< height, with its unit
};

/// The words of the table, row by row. A row without a right word spans both columns.
struct TableWords
{
    QStringList List1; ///< left words
    QStringList List2; ///< right words; empty where a row has one word
};

/// The table's cells, each as its opening tags and its word.
struct TableCells
{
    QStringList LS1; ///< left cells
    QStringList LS2; ///< right cells; empty where a row has one word
};

/// The style tags of a cell, opened with "<" or closed with "</"; both run in the same order.
QString styleTags(const CellStyle& style, const char* opening);

/// Opens a cell with a background colour, up to the place of its word.
QString cellOpen(const CellStyle& style, const QString& color, bool spanning);

/// The cells of one row.
struct RowCells
{
    QString left;
    QString right; ///< empty for a row of one word
};
RowCells rowCells(const CellStyle& style, const QString& color, const QString& left, const QString& right);

/// All rows in one style. With two colours they take turns, row by row.
TableCells tableCells(const TableWords& words, const CellStyle& style, const QStringList& colors);

/// The whole table. Opens with a BODY tag that is never closed. Lines end with CR LF.
QString tableText(const TableCells& cells, const TableStyle& style);

/// What an empty table is made of: the attributes, under the names of the controls, and its size.
struct Skeleton
{
    QString align;
    QString Combo2; ///< border
    QString Combo3; ///< cell padding
    QString Combo4; ///< cell spacing
    QString Text4;  ///< border colour
    QString Text13; ///< background
    int rows = 0;
    int columns = 0; ///< a row has one cell at least
};

/// An empty table. Unlike the designer's its attributes stand in quotes.
QString skeletonText(const Skeleton& skeleton);
