// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Listing.h"

#include <QColor>
#include <array>

// The nine colours of a listing page, their named sets, and how the drawing of the page shows them.

/// A colour of the page.
struct ColorField
{
    QString PageLook::*field;
    const char* entry; ///< what the user picks it by; one entry may stand for more than one field
};

/// All colours, in the order in which sets keep them.
inline constexpr std::array<ColorField, 9> ColorFields = {{
    {&PageLook::Txt1, "Border:"},
    {&PageLook::Txt2, "Background:"},
    {&PageLook::Txt3, "Cell:"},
    {&PageLook::Txt4, "Background:"},
    {&PageLook::Txt5, "Line:"},
    {&PageLook::Txt6, "Cell Name:"},
    {&PageLook::Txt7, "Description:"},
    {&PageLook::Txt8, "Title:"},
    {&PageLook::Txt9, "Lists:"},
}};

/// What the user picks colours by, in the order of the list.
inline constexpr std::array<const char*, 8> ColorEntries = {
    "Title:", "Line:", "Description:", "Cell:", "Cell Name:", "Border:", "Background:", "Lists:"};

/// The parts of the drawings that take colours of the page.
enum class DrawingPart {
    Page,              ///< background of the whole page
    Title,             ///< `Label6`
    TitleGround,       ///< ... and what lies under it, as under all ordinary cells
    Rule,              ///< `Line1`
    Description,       ///< `Label7`
    DescriptionGround, ///< ... and what lies under it
    DescriptionLines,  ///< `Line9`, `Line10`
    PictureLines,      ///< `LineDe(1)` to `LineDe(11)`, in the drawings of the picture styles
    Cells,             ///< `Label8`, `Label9`, `Label10`
    CellGround,        ///< ... and what lies under them
    Lists,             ///< `Line2` to `Line7`
    Borders,           ///< `Shape1` to `Shape5`, `Line8`
};

/// The colours in which the drawings stand. They are not always those of the fields: a pick colours what its
/// entry names, a change of style colours all anew.
class DrawingColors
{
public:
    QColor operator[](DrawingPart part) const { return m_colors.at(size_t(part)); }
    QColor& operator[](DrawingPart part) { return m_colors.at(size_t(part)); }

private:
    std::array<QColor, 12> m_colors;
};

/// Gives a picked colour (a colour number) to the fields of an entry, and to the parts of the drawing that
/// the entry colours in the page's style.
void pickColor(PageLook& look, DrawingColors& drawing, const QString& entry, int color);

/// Colours the drawing by the fields, as the page's style has it. An empty field counts as black.
void paintDrawing(const PageLook& look, DrawingColors& drawing);

/// Writes the colours as the set of a name.
void saveColorSet(const PageLook& look, const QString& name);

/// Takes the colours from the set of a name; a colour that the set doesn't hold becomes empty.
void loadColorSet(PageLook& look, const QString& name);
