// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/Pics.h"

#include "forms/AddressField.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Messages.h"
#include "shell/FrmPicture.h"
#include "shell/Icons.h"

#include <array>
#include <utility>

namespace brindlemark {

namespace {

using U = Ui::Pics;

struct AlignOption
{
    OptionButton* U::*option;
    const char* icon;
    const char* word;
};

constexpr std::array<AlignOption, 3> AlignOptions = {{
    {&U::Option1, "format-justify-left", "left"},
    {&U::Option2, "format-justify-center", "center"},
    {&U::Option3, "format-justify-right", "right"},
}};

const QString Section = QStringLiteral("Picpro");

} // namespace

Pics::Pics()
{
    setupUi(this);
    setCancelButton(Command5);
    setClosingBox(Check3, Section, QStringLiteral("chk3"));
    keepInSettings(ChkP, Section, QStringLiteral("chkp"));
    enableAlignments();

    on(Text1, &QLineEdit::returnPressed, this, &Pics::Command2_Click);
    for (const auto& [bar, box] :
         {std::pair(HScroll2, combo1), std::pair(HScroll3, combo2), std::pair(HScroll1, combo3)}) {
        bar->writeInto(box);
        on(bar, &ScrollBar::Change, this, &Pics::Command2_Click);
    }
    for (const AlignOption& entry : AlignOptions) {
        (this->*entry.option)->setIcon(namedIcon(entry.icon, this));
        on(this->*entry.option, &OptionButton::MouseUp, this, &Pics::Command2_Click);
    }
    on(CmdBrowse, &QPushButton::clicked, this, &Pics::CmdBrowse_Click);
    takeWholeAddress(Text1);
    on(Check1, &CheckBox::Click, this, &Pics::Check1_Click);
    on(ChkP, &CheckBox::Click, this, &Pics::ChkP_Click);
    on(Command1, &QPushButton::clicked, this, &Pics::Command1_Click);
    on(Command4, &QPushButton::clicked, this, &Pics::Command4_Click);
    on(Command5, &QPushButton::clicked, this, &Pics::Unload);
    Text1->setFocus();
    Text1->setCursorPosition(int(Text1->text().size()));
}

PictureSettings Pics::settings() const
{
    PictureSettings settings{.address = Text1->text(),
                             .sized = Check1->Value() == 1,
                             .width = combo1->text(),
                             .height = combo2->text(),
                             .border = combo3->text(),
                             .inParagraph = ChkP->Value() == 1};
    for (const AlignOption& entry : AlignOptions) {
        if ((this->*entry.option)->Value())
            settings.align = QLatin1String(entry.word);
    }
    return settings;
}

bool Pics::hasAddress() const
{
    return !Text1->text().isEmpty() && Text1->text() != BlankAddress;
}

bool Pics::requireAddress()
{
    if (hasAddress())
        return true;
    showMessage(Messages::NoPictureAddress);
    Text1->setFocus();
    Text1->setCursorPosition(int(Text1->text().size())); // behind "http://"
    return false;
}

void Pics::showSample(bool sized)
{
    if (!hasAddress())
        return;
    PictureSettings shown = settings();
    shown.sized = sized;
    WebBrowser1->writeSoon(pictureTag(shown));
}

void Pics::Command2_Click()
{
    showSample(Check1->Value() == 1);
}

/// So meant: the sample keeps the former state of the size until it is made anew.
void Pics::Check1_Click()
{
    const bool sized = Check1->Value() == 1;
    showSample(!sized);
    for (QWidget* control : std::initializer_list<QWidget*>{combo1, combo2, HScroll2, HScroll3})
        control->setEnabled(sized);
}

void Pics::ChkP_Click()
{
    enableAlignments();
}

void Pics::CmdBrowse_Click()
{
    heardForm<FrmPicture>(m_pictures, [this](FrmPicture* window) {
        on(window, &FrmPicture::taken, this, [this] { Command2_Click(); });
    });
    FrmPicture::chooseFor(Text1);
}

void Pics::enableAlignments()
{
    for (const AlignOption& entry : AlignOptions)
        (this->*entry.option)->setEnabled(ChkP->Value() == 1);
}

void Pics::Command4_Click()
{
    if (requireAddress())
        addToEditor(pictureTag(settings()), QStringLiteral("Picture"));
}

void Pics::Command1_Click()
{
    if (requireAddress())
        copyFragment(pictureTag(settings()));
}

} // namespace brindlemark
