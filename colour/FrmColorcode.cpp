// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FrmColorcode.h"

#include "colour/ColorRow.h"
#include "platform/Conversion.h"
#include "platform/Events.h"
#include "services/Codes.h"

namespace brindlemark {

FrmColorcode::FrmColorcode()
{
    setupUi(this);
    setDefaultButton(Command4);
    setCancelButton(Command1);
    m_row = new ColorRow(RedB, GreenB, BlueB, Hcolor2);
    m_row->offerNumbers(NumRed, NumGreen, NumBlue);
    on(m_row, &ColorRow::Change, this, &FrmColorcode::showCode);
    on(m_row, &ColorRow::Scroll, this, &FrmColorcode::showCode);
    on(Command1, &QPushButton::clicked, this, &FrmColorcode::Unload);
    on(Command4, &QPushButton::clicked, this, &FrmColorcode::Command4_Click);
    showCode();
}

/// Shows the code of the mixed colour.
void FrmColorcode::showCode()
{
    const QString code = m_row->colorText();
    Text3->setText(code);
    decimalCode = u'#' + fromNumber(parseColor(code));
}

void FrmColorcode::Command4_Click()
{
    addToEditor(Text3->text(), QStringLiteral("Color Code"));
    Hide();
}

} // namespace brindlemark
