// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "shell/ui_FrmKeys.h"

namespace brindlemark {

/// The window Keys: the keys of the main window in groups, of which those stay that hold what is typed.
class FrmKeys : public Form, public Ui::FrmKeys
{
    Q_OBJECT

public:
    FrmKeys();

private:
    void Wanted_TextChanged();
};

} // namespace brindlemark
