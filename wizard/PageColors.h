// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Listing.h"

#include <QColor>
#include <array>

namespace brindlemark {

// The nine colours of a listing page, the sets in which they are saved, and the colours of its drawing.

/// A colour of the page.
struct ColorField
{
    QString PageLook::*field;
    const char* entry; ///< the list entry by which the user picks it; two fields may share one
};

/// All colours, in the order in which sets keep them.
inline constexpr std::array<ColorField, 9> ColorFields = {{
    {&PageLook::borderColor, "Border:"},
    {&PageLook::cellColor, "Background:"},
    {&PageLook::titleCellColor, "Cell:"},
    {&PageLook::tableColor, "Background:"},
    {&PageLook::ruleColor, "Line:"},
    {&PageLook::titleCellTextColor, "Cell Name:"},
    {&PageLook::descriptionColor, "Description:"},
    {&PageLook::titleColor, "Title:"},
    {&PageLook::listColor, "Lists:"},
}};

/// The entries of the list by which the user picks a colour, in its order.
inline constexpr std::array<const char*, 8> ColorEntries = {
    "Title:", "Line:", "Description:", "Cell:", "Cell Name:", "Border:", "Background:", "Lists:"};

/// The parts of the drawings that take colours of the page.
enum class DrawingPart {
    Page,              ///< background of the whole page
    Title,             ///< the word "Title:"
    TitleGround,       ///< background of the title and of all ordinary cells
    Rule,              ///< the line under the title
    Description,       ///< the word "Description:"
    DescriptionGround, ///< its background
    DescriptionLines,  ///< the lines for the text of the description
    PictureLines,      ///< the same lines in the drawings of the picture styles
    Cells,             ///< the words in the title cells of the three sections
    CellGround,        ///< their background
    Lists,             ///< the lines for the entries of the lists
    Borders,           ///< all borders
};

/// The colours of the drawings. They can differ from those of the fields until the style changes: a picked
/// colour goes only to the parts of its entry, a change of style colours all parts by the fields.
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

/// Colours the drawing by the fields, as the page's style uses them. An empty field gives black.
void paintDrawing(const PageLook& look, DrawingColors& drawing);

/// Saves the colours as the set of a name. A failure to write isn't told.
void saveColorSet(const PageLook& look, const QString& name);

/// Takes the colours from the set of a name; a colour that the set doesn't hold becomes empty.
void loadColorSet(PageLook& look, const QString& name);

} // namespace brindlemark
