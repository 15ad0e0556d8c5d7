// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FrmAutoColor.h"

#include "colour/ColorRow.h"
#include "platform/Events.h"

#include <utility>

namespace brindlemark {

FrmAutoColor::FrmAutoColor()
{
    setupUi(this);
    setDefaultButton(Command1);
    setCancelButton(Command2);
    m_first = new ColorRow(RedA, GreenA, BlueA, BColor1);
    m_second = new ColorRow(RedH, GreenH, BlueH, TbColor1);
    on(Command1, &QPushButton::clicked, this, &FrmAutoColor::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmAutoColor::Unload);
}

void FrmAutoColor::setColors(int first, int second)
{
    for (const auto& [row, color] : {std::pair(m_first, first), std::pair(m_second, second)}) {
        row->setColor(color);
        row->moveBars();
    }
}

bool FrmAutoColor::queryUnload()
{
    emit unloading();
    return true;
}

void FrmAutoColor::Command1_Click()
{
    emit taken(m_first->colorText(), m_second->colorText());
    Hide();
}

} // namespace brindlemark
