// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/TableHtml.h"
#include "builders/ui_FrmTable.h"
#include "shell/ToolForm.h"

#include <QPointer>
#include <array>

namespace brindlemark {

class ColorRow;
class FrmAutoColor;

/// The table designer: words in two columns, row by row, and the look of the table and its cells. Shows the
/// table in a sample, copies it, or puts it at the caret of the source box. The look can be kept under a
/// title.
class FrmTable : public ToolForm, public Ui::FrmTable
{
    Q_OBJECT

public:
    /// Throws RuntimeError(PathFileAccess) when the list of titles can't be read.
    FrmTable();

    // The HTML of the cells; entry i belongs to row i of `List1` and `List2`.
    QStringList leftCells;
    QStringList rightCells;

    /// The HTML of the table.
    QString html;

    // Colours, `#RRGGBB`.
    QString borderColor;
    QString fontColor;
    QString tableColor; ///< background of the table
    QString cellColor;  ///< background of the cells
    // While `Check1` is ticked, the rows have these two backgrounds in turn.
    QString firstColor = QStringLiteral("#000000");
    QString secondColor = QStringLiteral("#000000");

    /// Whether a change of the look is for all rows, or for the selected cells alone. Always true in the
    /// window: no control changes it.
    bool allRows = true;

    /// Gives the cells the look of the controls, and makes and shows the table anew.
    void restyle();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The colour rows, by the last letter of their bars' names: border, table, cells, font.
    enum Row { A, H, I, G, RowCount };
    struct SavedKey;
    static const std::array<SavedKey, 22> SavedKeys;

    void connectHandlers();
    void connectRows();
    FrmAutoColor* autoColor();

    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command7_Click();
    void Command8_Click();
    void Combo1_Click();
    void Check1_Click();
    void ChkNoB_Click();
    void List_Click(const ListBox& list);
    void List_MouseUp(ListBox* list);
    void autoColor_taken(const QString& first, const QString& second);

    void addRow();
    void refresh();
    void showSelectedLook();
    void enableCellColor(bool enabled);
    void deselect(ListBox* list);
    void deselectAll();
    void restyleAll(const QStringList& colors);
    void restyleSelected();
    bool hasWords();
    TableWords words() const;
    CellStyle cellStyle() const;
    TableStyle tableStyle() const;
    void showRowColor(Row row, int color);
    void saveSet(const QString& title);
    void loadSet(const QString& title);
    void bringAutoColorInLine();

    std::array<ColorRow*, RowCount> m_rows{};
    QPointer<FrmAutoColor> m_autoColor;
};

} // namespace brindlemark
