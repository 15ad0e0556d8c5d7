// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"

#include <QMenu>

namespace brindlemark {

/// Carries menus for other windows; never shown itself. Each entry selects a part of the listing in the
/// source box (see `selectRegion`). The button `CmdCell` opens `mucell`; nothing opens the other two yet.
class FrmPop : public Form
{
    Q_OBJECT

public:
    FrmPop();

    QMenu mucell{QStringLiteral("CellPopUp")};      ///< titles of the cells
    QMenu mulistpopup{QStringLiteral("ListPopUp")}; ///< lists
    QMenu mubody{QStringLiteral("BodyPopUp")};      ///< terms

    /// Cell title of the description, which only pages of style 3 have.
    QAction* muDesc = nullptr;
};

} // namespace brindlemark
