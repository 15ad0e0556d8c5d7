// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/TableHtml.h"

#include <array>
#include <utility>
#include <vector>

namespace brindlemark {

namespace {

const QString CrLf = QStringLiteral("\r\n");

constexpr std::array<const char*, 3> Aligns = {" align=Left", " align=Center", " align=Right"};

struct StyleTag
{
    bool CellStyle::*box;
    const char* tag;
};

constexpr std::array<StyleTag, 3> StyleTags = {{
    {&CellStyle::bold, "b>"},
    {&CellStyle::italic, "i>"},
    {&CellStyle::underline, "u>"},
}};

QString alignment(TableAlign align)
{
    return QLatin1String(Aligns.at(size_t(align)));
}

QString quoted(const char* attribute, const QString& value)
{
    return QLatin1String(attribute) + QStringLiteral("=\"") + value + u'"';
}

/// The opening tags of the cells of one background colour.
struct CellTags
{
    CellTags(const CellStyle& style, const QString& color)
        : alone(cellOpen(style, color, true)), beside(cellOpen(style, color, false))
    {
    }

    RowCells row(const QString& left, const QString& right) const
    {
        if (right.isEmpty())
            return {alone + left, QString()};
        return {beside + left, beside + right};
    }

    QString alone; ///< of a cell over both columns
    QString beside;
};

} // namespace

QString styleTags(const CellStyle& style, const char* opening)
{
    QString tags;
    for (const StyleTag& entry : StyleTags) {
        if (style.*entry.box)
            tags += QLatin1String(opening) + QLatin1String(entry.tag);
    }
    return tags;
}

QString cellOpen(const CellStyle& style, const QString& color, bool spanning)
{
    return QStringLiteral("<TD bgcolor=") + color + QLatin1String(spanning ? " colSpan=2" : "") +
           QStringLiteral(" width=") + style.width + QStringLiteral(" height=") + style.height +
           alignment(style.align) + u'>' + styleTags(style, "<") + QStringLiteral("<Font face=") +
           style.fontFace + QStringLiteral(" size=") + style.size + QStringLiteral(" color=") +
           style.fontColor + u'>';
}

RowCells rowCells(const CellStyle& style, const QString& color, const QString& left, const QString& right)
{
    return CellTags(style, color).row(left, right);
}

TableCells tableCells(const TableWords& words, const CellStyle& style, const QStringList& colors)
{
    std::vector<CellTags> tags;
    for (const QString& color : colors)
        tags.emplace_back(style, color);
    TableCells cells;
    for (qsizetype i = 0; i < words.left.size(); ++i) {
        RowCells row = tags.at(size_t(i) % tags.size()).row(words.left.at(i), words.right.at(i));
        cells.left += std::move(row.left);
        cells.right += std::move(row.right);
    }
    return cells;
}

QString tableText(const TableCells& cells, const TableStyle& style)
{
    QString text = QStringLiteral("<BODY>\r\n<TABLE width=") + style.width + QStringLiteral(" height=") +
                   style.height + alignment(style.align);
    if (style.borderColored)
        text += QStringLiteral(" borderColor=") + style.borderColor;
    text += QStringLiteral(" cellspacing=") + style.cellSpacing + QStringLiteral(" cellpadding=") +
            style.cellPadding + QStringLiteral(" border=") + style.border + QStringLiteral(" bgcolor=") +
            style.background + QStringLiteral(">\r\n<TBODY>\r\n");
    for (qsizetype i = 0; i < cells.left.size(); ++i) {
        text += QStringLiteral("<TR>\r\n") + cells.left.at(i) + QStringLiteral("</FONT>\r\n");
        if (!cells.right.at(i).isEmpty())
            text += QStringLiteral("</TD>\r\n") + cells.right.at(i) + QStringLiteral("</FONT>\r\n");
        text += QStringLiteral("</TD></TR>\r\n");
    }
    return text + QStringLiteral("</TBODY>\r\n</TABLE>\r\n");
}

QString skeletonText(const Skeleton& skeleton)
{
    const QString cell = QStringLiteral("  <TD> </TD>\r\n");
    const QString row =
        QStringLiteral(" <TR>\r\n") + cell.repeated(qMax(1, skeleton.columns)) + QStringLiteral(" </TR>\r\n");
    return QStringLiteral("<TABLE ") + quoted("Align", skeleton.align) + quoted(" Border", skeleton.border) +
           quoted(" bordercolor", skeleton.borderColor) + quoted(" cellspacing", skeleton.cellSpacing) +
           quoted(" cellpadding", skeleton.cellPadding) + quoted(" bgcolor", skeleton.background) + u'>' +
           CrLf + row.repeated(skeleton.rows) + QStringLiteral("</TABLE>\r\n");
}

} // namespace brindlemark
