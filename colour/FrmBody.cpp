// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FrmBody.h"

#include "colour/ColorRow.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Messages.h"
#include "shell/ListingEditor.h"

#include <QMouseEvent>
#include <algorithm>

namespace brindlemark {

/// An attribute of the page: its box, the sample of its colour, and its tag.
struct FrmBody::Attribute
{
    CheckBox* FrmBody::*box;
    ColorSample* FrmBody::*sample;
    QString FrmBody::*text;
    const char* tag;
    bool link; ///< a colour of links, which `Lab` shows
};

const std::array<FrmBody::Attribute, 4> FrmBody::Attributes = {{
    {&FrmBody::Check1, &FrmBody::Picture1, &FrmBody::backgroundTag, "<body bgcolor=", false},
    {&FrmBody::Check2, &FrmBody::Picture2, &FrmBody::textTag, "<body text=", false},
    {&FrmBody::Check4, &FrmBody::Picture5, &FrmBody::linkTag, "<body link=", true},
    {&FrmBody::Check5, &FrmBody::Picture6, &FrmBody::activeLinkTag, "<body alink=", true},
}};

FrmBody::FrmBody() : Check1(new CheckBox(this)), Picture1(new ColorSample(this))
{
    setupUi(this);
    Check1->hide();
    Picture1->hide();
    setDefaultButton(Command1);
    setCancelButton(Command2);
    colorLab(Qt::blue);
    Lab->installEventFilter(this);
    auto* row = new ColorRow(RedG, GreenG, BlueG, FColor1);
    row->keepText(&rowColor);
    row->RowHexRefresh();
    row->offerNumbers(NumRed, NumGreen, NumBlue);

    for (const Attribute& attribute : Attributes) {
        (this->*attribute.sample)->setBackColor(ButtonFace);
        on(this->*attribute.box, &CheckBox::Click, this, [this, &attribute] { Check_Click(attribute); });
    }
    on(Command1, &QPushButton::clicked, this, &FrmBody::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmBody::Unload);
    on(Command3, &QPushButton::clicked, this, &FrmBody::Command3_Click);
    on(Command4, &QPushButton::clicked, this, &FrmBody::Command4_Click);
    on(Command5, &QPushButton::clicked, this, &FrmBody::Command5_Click);
}

/// Ticking a box takes the present colour of the row, and keeps it when the row changes later.
void FrmBody::Check_Click(const Attribute& attribute)
{
    const bool ticked = (this->*attribute.box)->Value() == 1;
    (this->*attribute.sample)->setBackColor(ticked ? FColor1->BackColor() : ButtonFace);
    this->*attribute.text = ticked ? QLatin1String(attribute.tag) + rowColor + u'>' : QString();
    if (attribute.link)
        showLinkColor();
}

void FrmBody::colorLab(const QColor& color)
{
    showAsOnPage(Lab, color);
}

void FrmBody::Command3_Click()
{
    showLinkColor();
}

void FrmBody::showLinkColor()
{
    colorLab(Picture5->shownColor());
}

bool FrmBody::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        if (watched == Lab) {
            if (event->type() == QEvent::MouseButtonPress) {
                guarded([this] { Lab_MouseDown(); });
                return true; // Qt sends the release only to who took the press
            }
            if (event->type() == QEvent::MouseButtonRelease)
                guarded([this] { Lab_MouseUp(); });
        }
        return ToolForm::eventFilter(watched, event);
    });
}

/// While the button is held, the sample link has the colour of a clicked link.
void FrmBody::Lab_MouseDown()
{
    if (Check5->Value() == 1)
        colorLab(Picture6->shownColor());
}

void FrmBody::Lab_MouseUp()
{
    if (Check5->Value() == 1)
        colorLab(Picture5->shownColor());
}

void FrmBody::Command1_Click()
{
    const bool none = std::none_of(Attributes.begin(), Attributes.end(), [this](const Attribute& attribute) {
        return (this->*attribute.box)->Value() != 0;
    });
    if (none) {
        showMessage(Messages::NoBoxTicked);
        return;
    }
    if (ListingEditor* editor = loadedEditor())
        editor->insertAtStart(backgroundTag + textTag + linkTag + activeLinkTag + QStringLiteral("\r\n"),
                              QStringLiteral("Body Colors"));
    Unload();
}

Preset FrmBody::preset()
{
    return {QStringLiteral("1bodycolor"),
            QStringLiteral("body"),
            {{QStringLiteral("color1"), Picture1},
             {QStringLiteral("color2"), Picture2},
             {QStringLiteral("color3"), Picture5},
             {QStringLiteral("color4"), Picture6},
             {QStringLiteral("text1"), &backgroundTag},
             {QStringLiteral("text2"), &textTag},
             {QStringLiteral("text3"), &linkTag},
             {QStringLiteral("text4"), &activeLinkTag}}};
}

void FrmBody::Command4_Click()
{
    savePreset(preset());
}

/// Ticks all boxes, whatever the file holds. One whose tag is missing there adds nothing to the page.
void FrmBody::Command5_Click()
{
    static_cast<void>(loadPreset(preset(), [this] { // on failure it shows what could be read
        for (const Attribute& attribute : Attributes)
            (this->*attribute.box)->setValue(1);
    }));
}

} // namespace brindlemark
