// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/TableHtml.h"

#include <array>

namespace {

const QString CrLf = QStringLiteral("\r\n");

constexpr std::array<const char*, 3> Aligns = {" align=Left", " align=Center", " align=Right"};

struct StyleTag
{
    bool CellStyle::*box;
    const char* tag;
};

constexpr std::array<StyleTag, 3> StyleTags = {{
    {&CellStyle::chkBold, "b>"},
    {&CellStyle::chkItalic, "i>"},
    {&CellStyle::chkUnderline, "u>"},
}};

QString alignment(TableAlign align)
{
    return QLatin1String(Aligns.at(size_t(align)));
}

QString quoted(const char* attribute, const QString& value)
{
    return QLatin1String(attribute) + QStringLiteral("=\"") + value + u'"';
}

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
           QStringLiteral(" width=") + style.TxWid + QStringLiteral(" height=") + style.TxHei +
           alignment(style.align) + u'>' + styleTags(style, "<") + QStringLiteral("<Font face=") +
           style.Combo7 + QStringLiteral(" size=") + style.size + QStringLiteral(" color=") + style.Text8 +
           u'>';
}

RowCells rowCells(const CellStyle& style, const QString& color, const QString& left, const QString& right)
{
    if (right.isEmpty())
        return {cellOpen(style, color, true) + left, QString()};
    const QString open = cellOpen(style, color, false);
    return {open + left, open + right};
}

TableCells tableCells(const TableWords& words, const CellStyle& style, const QStringList& colors)
{
    TableCells cells;
    for (qsizetype i = 0; i < words.List1.size(); ++i) {
        const QString& color = colors.at(i % colors.size());
        const RowCells row = rowCells(style, color, words.List1.at(i), words.List2.at(i));
        cells.LS1 += row.left;
        cells.LS2 += row.right;
    }
    return cells;
}

QString tableText(const TableCells& cells, const TableStyle& style)
{
    QString text = QStringLiteral("<BODY>\r\n<TABLE width=") + style.Combo9 + QStringLiteral(" height=") +
                   style.Combo8 + alignment(style.align);
    if (style.ChkNoB)
        text += QStringLiteral(" borderColor=") + style.Text4;
    text += QStringLiteral(" cellspacing=") + style.Combo4 + QStringLiteral(" cellpadding=") + style.Combo3 +
            QStringLiteral(" border=") + style.Combo2 + QStringLiteral(" bgcolor=") + style.Text13 +
            QStringLiteral(">\r\n<TBODY>\r\n");
    for (qsizetype i = 0; i < cells.LS1.size(); ++i) {
        text += QStringLiteral("<TR>\r\n") + cells.LS1.at(i) + QStringLiteral("</FONT>\r\n");
        if (!cells.LS2.at(i).isEmpty())
            text += QStringLiteral("</TD>\r\n") + cells.LS2.at(i) + QStringLiteral("</FONT>\r\n");
        text += QStringLiteral("</TD></TR>\r\n");
    }
    return text + QStringLiteral("</TBODY>\r\n</TABLE>\r\n");
}

QString skeletonText(const Skeleton& skeleton)
{
    const QString cell = QStringLiteral("  <TD> </TD>\r\n");
    const QString row =
        QStringLiteral(" <TR>\r\n") + cell.repeated(qMax(1, skeleton.columns)) + QStringLiteral(" </TR>\r\n");
    return QStringLiteral("<TABLE ") + quoted("Align", skeleton.align) + quoted(" Border", skeleton.Combo2) +
           quoted(" bordercolor", skeleton.Text4) + quoted(" cellspacing", skeleton.Combo4) +
           quoted(" cellpadding", skeleton.Combo3) + quoted(" bgcolor", skeleton.Text13) + u'>' + CrLf +
           row.repeated(skeleton.rows) + QStringLiteral("</TABLE>\r\n");
}
