// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/PageColors.h"

#include "platform/AppPath.h"
#include "platform/ColorNumber.h"
#include "services/Codes.h"
#include "services/PerStyle.h"
#include "services/Profile.h"

#include <algorithm>

namespace brindlemark {

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

/// Later rows of the table replace the colour of earlier ones. Only in style 3 has the description a title
/// cell; in style 2 the line of the rule is the border between two cells.
constexpr std::array<Paint, 15> Paints = {{
    {DrawingPart::Page, &PageLook::tableColor, AllStyles},
    {DrawingPart::Title, &PageLook::titleColor, AllStyles},
    {DrawingPart::TitleGround, &PageLook::cellColor, AllStyles},
    {DrawingPart::Rule, &PageLook::ruleColor, AllStyles},
    {DrawingPart::Rule, &PageLook::borderColor, Style2},
    {DrawingPart::Description, &PageLook::descriptionColor, Styles012},
    {DrawingPart::Description, &PageLook::titleCellTextColor, Style3},
    {DrawingPart::DescriptionGround, &PageLook::cellColor, Styles012},
    {DrawingPart::DescriptionGround, &PageLook::titleCellColor, Style3},
    {DrawingPart::DescriptionLines, &PageLook::descriptionColor, AllStyles},
    {DrawingPart::PictureLines, &PageLook::descriptionColor, Styles012},
    {DrawingPart::Cells, &PageLook::titleCellTextColor, AllStyles},
    {DrawingPart::CellGround, &PageLook::titleCellColor, AllStyles},
    {DrawingPart::Lists, &PageLook::listColor, AllStyles},
    {DrawingPart::Borders, &PageLook::borderColor, AllStyles},
}};

/// Colours the parts whose field is `wanted` by what the field holds.
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
    return appFile(DataFile::PageColors);
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

} // namespace brindlemark
