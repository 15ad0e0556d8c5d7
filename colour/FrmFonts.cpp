// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FrmFonts.h"

#include "colour/ColorRow.h"
#include "platform/Events.h"
#include "shell/Icons.h"
#include "shell/ScreenFonts.h"
#include "shell/SurfaceCommands.h"

#include <array>

namespace brindlemark {

namespace {

struct StyleBox
{
    CheckBox* Ui::FrmFonts::*box;
    const char* icon;
    const char* tag;
};

constexpr std::array<StyleBox, 3> StyleBoxes = {{
    {&Ui::FrmFonts::chkBold, "format-text-bold", "B>"},
    {&Ui::FrmFonts::chkItalic, "format-text-italic", "I>"},
    {&Ui::FrmFonts::chkUnderline, "format-text-underline", "U>"},
}};

} // namespace

FrmFonts::FrmFonts()
{
    setupUi(this);
    WebBrowser1->setDesignMode(DesignMode::On);
    setDefaultButton(Command1);
    setCancelButton(Command2);
    addScreenFonts(*Combo1, 1); // without the system's first; users know the list so
    Combo1->setText(QStringLiteral("Arial"));
    Combo2->setText(QStringLiteral("Normal"));
    m_row = new ColorRow(RedG, GreenG, BlueG, FColor1);
    m_row->offerPick();

    for (const auto signal : {&ColorRow::Change, &ColorRow::Scroll, &ColorRow::Picked})
        on(m_row, signal, this, &FrmFonts::refresh);
    for (const StyleBox& entry : StyleBoxes) {
        (this->*entry.box)->setIcon(namedIcon(entry.icon, this));
        on(this->*entry.box, &CheckBox::Click, this, &FrmFonts::refresh);
    }
    on(Combo1, &ComboBox::Click, this, &FrmFonts::refresh);
    on(Combo1, &ComboBox::Change, this, &FrmFonts::refresh);
    on(Combo2, &ComboBox::Click, this, &FrmFonts::refresh);
    on(Command1, &QPushButton::clicked, this, &FrmFonts::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmFonts::Unload);
    refresh();
}

FontChoice FrmFonts::choice() const
{
    FontChoice font{.color = m_row->colorText(),
                    .name = Combo1->Text(),
                    .size = QString::fromLatin1(htmlFontSize(Combo2->Text()))};
    for (const StyleBox& entry : StyleBoxes) {
        if ((this->*entry.box)->Value() == 1) {
            font.open += u'<' + QLatin1String(entry.tag);
            font.close += QStringLiteral("</") + QLatin1String(entry.tag);
        }
    }
    return font;
}

/// Shows the chosen font in the sample.
void FrmFonts::refresh()
{
    const FontChoice font = choice();
    WebBrowser1->writeSoon(font.open + QStringLiteral("<FONT face=") + font.name + QStringLiteral(" size=") +
                           font.size + QStringLiteral(" color=") + font.color +
                           QStringLiteral(">AaBbCcDd</FONT>") + font.close);
    tellMissingFont(Notice, font.name);
}

void FrmFonts::Command1_Click()
{
    emit taken(windowTitle(), choice());
    Unload();
}

} // namespace brindlemark
