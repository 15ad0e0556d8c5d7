// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FrmHR.h"

#include "colour/ColorRow.h"
#include "platform/Events.h"
#include "shell/Icons.h"

#include <array>

namespace brindlemark {

namespace {

/// An option that aligns the rule, and the end of the tag when it is chosen.
struct AlignOption
{
    OptionButton* Ui::FrmHR::*option;
    const char* icon;
    const char* end;
};

constexpr std::array<AlignOption, 3> AlignOptions = {{
    {&Ui::FrmHR::Option5, "format-justify-left", " align=Left>"},
    {&Ui::FrmHR::Option4, "format-justify-center", " align=Center>"},
    {&Ui::FrmHR::Option3, "format-justify-right", " align=Right>"},
}};

} // namespace

FrmHR::FrmHR()
{
    setupUi(this);
    setDefaultButton(Command6);
    setCancelButton(Command7);
    setClosingBox(Check3, QStringLiteral("HRpro"), QStringLiteral("chk3"));
    m_row = new ColorRow(RedG, GreenG, BlueG, FColor1);
    m_row->keepText(&ruleColor);
    m_row->RowHexRefresh();
    m_row->offerNumbers(NumRed, NumGreen, NumBlue);
    m_row->narrowNumbers();

    on(m_row, &ColorRow::Change, this, &FrmHR::refresh);
    on(m_row, &ColorRow::Scroll, this, &FrmHR::refresh);
    for (const AlignOption& entry : AlignOptions) {
        (this->*entry.option)->setIcon(namedIcon(entry.icon, this));
        on(this->*entry.option, &OptionButton::Click, this, &FrmHR::refresh);
    }
    on(Text1, &QLineEdit::textChanged, this, &FrmHR::refresh);
    on(Text3, &QLineEdit::textChanged, this, &FrmHR::refresh);
    on(HScroll1, &ScrollBar::Change, this, &FrmHR::HScroll1_Change);
    on(HScroll2, &ScrollBar::Change, this, &FrmHR::HScroll2_Change);
    on(Command1, &QPushButton::clicked, this, &FrmHR::Command1_Click);
    on(Command6, &QPushButton::clicked, this, &FrmHR::Command6_Click);
    on(Command7, &QPushButton::clicked, this, &FrmHR::Unload);
    on(Command9, &QPushButton::clicked, this, &FrmHR::Command9_Click);
    on(Command10, &QPushButton::clicked, this, &FrmHR::Command10_Click);
    refresh();
}

void FrmHR::HScroll1_Change()
{
    Text1->setText(QString::number(HScroll1->Value()) + u'%');
    refresh();
}

void FrmHR::HScroll2_Change()
{
    Text3->setText(QString::number(HScroll2->Value()));
    refresh();
}

QString FrmHR::tag() const
{
    QString tag = QStringLiteral("<HR width=") + Text1->text() + QStringLiteral(" size=") + Text3->text() +
                  QStringLiteral(" color=") + ruleColor;
    for (const AlignOption& entry : AlignOptions) {
        if ((this->*entry.option)->Value())
            tag += QLatin1String(entry.end);
    }
    return tag;
}

/// Shows the rule in the sample.
void FrmHR::refresh()
{
    WebBrowser1->writeSoon(tag());
}

void FrmHR::Command1_Click()
{
    copyFragment(tag());
}

void FrmHR::Command6_Click()
{
    addToEditor(tag(), QStringLiteral("Rule"));
}

Preset FrmHR::preset()
{
    return {QStringLiteral("1HRcolor"), QStringLiteral("HR"), {{QStringLiteral("Fcolor1"), FColor1}}};
}

void FrmHR::Command9_Click()
{
    savePreset(preset());
}

/// The sample shows the colour at its next refresh, and the bars stay where they are. Both are meant.
void FrmHR::Command10_Click()
{
    if (loadPreset(preset()))
        m_row->RowHexRefresh();
}

} // namespace brindlemark
