// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/PageColors.h"

#include "platform/AppPath.h"
#include "platform/ColorNumber.h"
#include "services/Codes.h"
#include "services/PerStyle.h"
#include "services/Profile.h"

#include <algorithm>

namespace {

/// Design styles, one bit each.
enum Styles : unsigned {
    Style2 = 1U << 2U,
    Style3 = 1U << 3U,
    Styles012 = 0b0111,
    AllStyles = (1U << StyleCount) - 1,
};

/// A part of the drawing, the field that colours it, and in which styles.
struct Paint
{
    DrawingPart part;
    QString PageLook::*field;
    Styles styles;
};

/// Later lines paint over earlier ones. In style 3 alone the description has a title cell; in style 2 the
/// rule's line parts two cells.
constexpr std::array<Paint, 15> Paints = {{
    {DrawingPart::Page, &PageLook::Txt4, AllStyles},
    {DrawingPart::Title, &PageLook::Txt8, AllStyles},
    {DrawingPart::TitleGround, &PageLook::Txt2, AllStyles},
    {DrawingPart::Rule, &PageLook::Txt5, AllStyles},
    {DrawingPart::Rule, &PageLook::Txt1, Style2},
    {DrawingPart::Description, &PageLook::Txt7, Styles012},
    {DrawingPart::Description, &PageLook::Txt6, Style3},
    {DrawingPart::DescriptionGround, &PageLook::Txt2, Styles012},
    {DrawingPart::DescriptionGround, &PageLook::Txt3, Style3},
    {DrawingPart::DescriptionLines, &PageLook::Txt7, AllStyles},
    {DrawingPart::PictureLines, &PageLook::Txt7, Styles012},
    {DrawingPart::Cells, &PageLook::Txt6, AllStyles},
    {DrawingPart::CellGround, &PageLook::Txt3, AllStyles},
    {DrawingPart::Lists, &PageLook::Txt9, AllStyles},
    {DrawingPart::Borders, &PageLook::Txt1, AllStyles},
}};

/// Colours the parts of some fields by what the fields hold.
template <typename Wanted>
void paintParts(const PageLook& look, DrawingColors& drawing, Wanted wanted)
{
    const unsigned style = 1U << unsigned(look.style);
    for (const Paint& paint : Paints) {
        if (!(paint.styles & style) || !wanted(paint.field))
            continue;
        drawing[paint.part] = colorOf(parseColor(look.*paint.field));
    }
}

QString setsFile()
{
    return appFile(QStringLiteral("\\webstyle.ini"));
}

} // namespace

void pickColor(PageLook& look, DrawingColors& drawing, const QString& entry, int color)
{
    const auto isPicked = [&entry](QString PageLook::*field) {
        return std::any_of(ColorFields.begin(), ColorFields.end(), [&](const ColorField& row) {
            return row.field == field && entry == QLatin1String(row.entry);
        });
    };
    const QString code = colorText(color);
    for (const ColorField& row : ColorFields) {
        if (isPicked(row.field))
            look.*row.field = code;
    }
    paintParts(look, drawing, isPicked);
}

void paintDrawing(const PageLook& look, DrawingColors& drawing)
{
    paintParts(look, drawing, [](QString PageLook::*) { return true; });
}

void saveColorSet(const PageLook& look, const QString& name)
{
    QList<ProfileValue> values;
    for (size_t i = 0; i < ColorFields.size(); ++i)
        values << ProfileValue{name, QString::number(i + 1), look.*ColorFields[i].field};
    WriteProfile(values, setsFile());
}

void loadColorSet(PageLook& look, const QString& name)
{
    const Profile sets(setsFile());
    for (size_t i = 0; i < ColorFields.size(); ++i)
        look.*ColorFields[i].field = sets.value(name, QString::number(i + 1));
}
