// SPDX-License-Identifier: GPL-3.0-or-later

// The buttons of the main window that select parts of a listing.

#include "platform/Events.h"
#include "shell/FrmPop.h"
#include "shell/FrmWeb.h"

#include <QCursor>

namespace brindlemark {

namespace {

struct RegionButton
{
    QPushButton* Ui::FrmWeb::*button;
    Region region;
};

constexpr std::array<RegionButton, 4> RegionButtons = {{
    {&Ui::FrmWeb::CmdTitle, Region::Title},
    {&Ui::FrmWeb::CmdLine, Region::Line},
    {&Ui::FrmWeb::CmdDes, Region::Description},
    {&Ui::FrmWeb::CmdPic, Region::Picture},
}};

} // namespace

void FrmWeb::connectRegions()
{
    for (const RegionButton& entry : RegionButtons) {
        on(this->*entry.button, &QPushButton::clicked, this, [this, entry] { selectPart(entry.region); });
    }
    on(CmdCell, &QPushButton::clicked, this, &FrmWeb::CmdCell_Click);
    on(CmdOffLeg, &QPushButton::clicked, this, &FrmWeb::CmdOffLeg_Click);
}

/// The menu opens at the mouse; below the button when a key has pressed it.
void FrmWeb::CmdCell_Click()
{
    const QPoint place =
        CmdCell->underMouse() ? QCursor::pos() : CmdCell->mapToGlobal(CmdCell->rect().bottomLeft());
    form<FrmPop>()->mucell.popup(place);
}

void FrmWeb::CmdOffLeg_Click()
{
    const int caret = RichTextBox1->SelStart();
    RichTextBox1->setSelLength(0);
    RichTextBox1->setSelStart(caret);
}

} // namespace brindlemark
