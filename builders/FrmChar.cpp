// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/FrmChar.h"

#include "platform/Events.h"
#include "shell/ScreenFonts.h"

namespace brindlemark {

FrmChar::FrmChar()
{
    setupUi(this);
    setDefaultButton(Command1);
    setCancelButton(Command2);
    addScreenFonts(*Combo1, 1); // without the system's first; users know the list so
    Combo1->setText(QStringLiteral("Webdings"));
    showFont();
    on(CharC, &CharMap::moved, this, &FrmChar::CharC_MouseMove);
    on(Combo1, &ComboBox::Click, this, &FrmChar::Combo1_Click);
    on(Command1, &QPushButton::clicked, this, &FrmChar::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmChar::Unload);
    CharC->setFocus();
}

void FrmChar::CharC_MouseMove(int index)
{
    const int shown = CharC->marked() > 0 ? CharC->marked() : index;
    LabV->setText(CharMap::text(shown));
    Code->setText(QStringLiteral("Code %1").arg(shown));
}

void FrmChar::Combo1_Click()
{
    showFont();
}

/// Shows characters and view in the chosen font.
void FrmChar::showFont()
{
    CharC->setFamily(Combo1->Text());
    QFont font = LabV->font();
    font.setFamily(Combo1->Text());
    LabV->setFont(font);
    tellMissingFont(Notice, Combo1->Text());
}

void FrmChar::Command1_Click()
{
    emit taken(windowTitle(), Combo1->Text(), LabV->text());
    Hide();
}

} // namespace brindlemark
