// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/TableHtml.h"
#include "builders/ui_FrmTable.h"
#include "shell/ToolForm.h"

#include <QPointer>
#include <array>

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

    // Row i of `List1` and `List2` has its cells in entry i of these.
    QStringList LS1;
    QStringList LS2;

    /// The HTML of the table.
    QString RichTextBox2;

    // Colours as colour texts.
    QString Text4;  ///< border
    QString Text8;  ///< font
    QString Text13; ///< table
    QString Text17; ///< cells
    // Two colours of cells, which take turns while `Check1` is ticked.
    QString TxtAuto = QStringLiteral("#000000");
    QString TxtAuto2 = QStringLiteral("#000000");

    /// A change of the look is for all rows; else for the selected cells. No control changes it.
    bool Opt1 = true;

    /// Gives the cells the look of the controls and makes the table anew.
    void Command9_Click();
    /// Makes the table anew, with two colours if wanted, and shows it.
    void Command13_Click();
    /// Brings the look of the selected cell into the controls.
    void Command14_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The colour rows: border, table, cells, font.
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
