// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ui_FrmListChoose.h"
#include "forms/Form.h"

namespace brindlemark {

/// Asks which kind of list the user wants to build.
class FrmListChoose : public Form, public Ui::FrmListChoose
{
    Q_OBJECT

public:
    FrmListChoose();

private:
    void Command1_Click();
    void Command2_Click();
};

} // namespace brindlemark
