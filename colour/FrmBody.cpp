// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FrmBody.h"

#include "colour/ColorRow.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "shell/ListingEditor.h"

#include <QMouseEvent>
#include <algorithm>

/// An attribute of the page: its box, the sample of its colour, and its tag.
struct FrmBody::Attribute
{
    CheckBox* FrmBody::*box;
    ColorSample* FrmBody::*sample;
    QString FrmBody::*text;
    const char* tag;
    bool link; ///< shown on `Lab`
};

const std::array<FrmBody::Attribute, 4> FrmBody::Attributes = {{
    {&FrmBody::Check1, &FrmBody::Picture1, &FrmBody::Text1, "<body bgcolor=", false},
    {&FrmBody::Check2, &FrmBody::Picture2, &FrmBody::Text2, "<body text=", false},
    {&FrmBody::Check4, &FrmBody::Picture5, &FrmBody::Text4, "<body link=", true},
    {&FrmBody::Check5, &FrmBody::Picture6, &FrmBody::Text5, "<body alink=", true},
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
    row->keepText(&Text8);
    row->RowHexRefresh();

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

/// A ticked box takes the row's colour of this moment; the row may move on.
void FrmBody::Check_Click(const Attribute& attribute)
{
    const bool ticked = (this->*attribute.box)->Value() == 1;
    (this->*attribute.sample)->setBackColor(ticked ? FColor1->BackColor() : ButtonFace);
    this->*attribute.text = ticked ? QLatin1String(attribute.tag) + Text8 + u'>' : QString();
    if (attribute.link)
        Command3_Click();
}

void FrmBody::colorLab(const QColor& color)
{
    showAsOnPage(Lab, color);
}

void FrmBody::Command3_Click()
{
    colorLab(Picture5->shownColor());
}

bool FrmBody::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        if (watched == Lab) {
            if (event->type() == QEvent::MouseButtonPress) {
                guarded([this] { Lab_MouseDown(); });
                return true; // taken, so that the release comes here too
            }
            if (event->type() == QEvent::MouseButtonRelease)
                guarded([this] { Lab_MouseUp(); });
        }
        return ToolForm::eventFilter(watched, event);
    });
}

/// Acts out a link that is being clicked.
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
        MsgBox(QStringLiteral("There none check in box, cannot add to editor."), QStringLiteral("Error"),
               MsgIcon::Information);
        return;
    }
    if (ListingEditor* editor = loadedEditor())
        editor->insertAtStart(Text1 + Text2 + Text4 + Text5 + QStringLiteral("\r\n"));
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
             {QStringLiteral("text1"), &Text1},
             {QStringLiteral("text2"), &Text2},
             {QStringLiteral("text3"), &Text4},
             {QStringLiteral("text4"), &Text5}}};
}

void FrmBody::Command4_Click()
{
    savePreset(preset());
}

/// All boxes are ticked, whatever the file holds: one without a tag adds nothing.
void FrmBody::Command5_Click()
{
    static_cast<void>(loadPreset(preset(), [this] { // the window shows what came, and nothing follows
        for (const Attribute& attribute : Attributes)
            (this->*attribute.box)->setValue(1);
    }));
}
