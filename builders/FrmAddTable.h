// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ui_FrmAddTable.h"
#include "shell/ToolForm.h"

/// Inserts an empty table of a chosen size at the caret of the source box.
class FrmAddTable : public ToolForm, public Ui::FrmAddTable
{
    Q_OBJECT

public:
    FrmAddTable();

    QString Text4;  ///< border colour, `#RRGGBB`
    QString Text13; ///< background of the table, `#RRGGBB`

    /// Marks nothing in the grid.
    void CleanUp();

private:
    void Frame1_picked(int rows, int columns);
    void Command1_Click();

    QString align() const;
};
