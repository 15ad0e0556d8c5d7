// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/FrmListChoose.h"

#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "platform/Events.h"

#include <QShortcut>

namespace brindlemark {

FrmListChoose::FrmListChoose()
{
    setupUi(this);
    setDefaultButton(Command1);
    on(Command1, &QPushButton::clicked, this, &FrmListChoose::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmListChoose::Command2_Click);
    on(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &FrmListChoose::Unload);
}

void FrmListChoose::Command1_Click()
{
    form<FrmList>()->Show();
    Unload();
}

void FrmListChoose::Command2_Click()
{
    form<FrmList2>()->Show();
    Unload();
}

} // namespace brindlemark
