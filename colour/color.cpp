// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/color.h"

#include "colour/ColorRow.h"
#include "platform/Conversion.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "services/Profile.h"

#include <array>

namespace brindlemark {

namespace {

const QString Section = QStringLiteral("Color");

/// A stored colour and its row.
struct StoredColor
{
    const char* key;
    ScrollBar* Ui::color::*red;
    ScrollBar* Ui::color::*green;
    ScrollBar* Ui::color::*blue;
    ColorSample* Ui::color::*sample;
};

using U = Ui::color;

constexpr std::array<StoredColor, 5> StoredColors = {{
    {"one", &U::RedA, &U::GreenA, &U::BlueA, &U::Color1},
    {"two", &U::RedB, &U::GreenB, &U::BlueB, &U::color2},
    {"three", &U::RedC, &U::GreenC, &U::BlueC, &U::color3},
    {"four", &U::RedD, &U::GreenD, &U::BlueD, &U::color4},
    {"Back", &U::RedE, &U::GreenE, &U::BlueE, &U::Color5},
}};

} // namespace

color::color()
{
    setupUi(this);
    setDefaultButton(Command1);
    setCancelButton(Command2);
    for (const StoredColor& entry : StoredColors)
        new ColorRow(this->*entry.red, this->*entry.green, this->*entry.blue, this->*entry.sample);
    loadColors();
    on(Command1, &QPushButton::clicked, this, &color::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &color::Unload);
}

/// The bars stay at zero. So meant: the sample holds the row's colour, and the bars only mix a new one.
void color::loadColors()
try {
    const Profile settings(webIni());
    for (const StoredColor& entry : StoredColors) {
        const QString value = settings.value(Section, QString::fromLatin1(entry.key));
        (this->*entry.sample)->setBackColor(toInteger32(value));
    }
} catch (const RuntimeError&) {
    return; // missing or no number: the user sees this colour and those behind it in black
}

void color::Command1_Click()
{
    QList<ProfileValue> values;
    for (const StoredColor& entry : StoredColors) {
        values << ProfileValue{Section, QString::fromLatin1(entry.key),
                               fromNumber((this->*entry.sample)->BackColor())};
    }
    WriteProfile(values, webIni());
    Unload();
}

} // namespace brindlemark
