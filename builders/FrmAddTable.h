// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ui_FrmAddTable.h"
#include "shell/ToolForm.h"

namespace brindlemark {

/// Inserts an empty table of a chosen size at the caret of the source box.
class FrmAddTable : public ToolForm, public Ui::FrmAddTable
{
    Q_OBJECT

public:
    FrmAddTable();

    QString borderColor; ///< `#RRGGBB`
    QString tableColor;  ///< background, `#RRGGBB`

    /// Takes the marks off the grid of sizes.
    void CleanUp();

private:
    void Frame1_picked(int rows, int columns);
    void Command1_Click();

    QString align() const;
};

} // namespace brindlemark
