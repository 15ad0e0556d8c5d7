// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Regions.h"

#include "shell/FrmPop.h"
#include "shell/FrmWeb.h"
#include "shell/ListingParts.h"
#include "source/RichTextBox.h"

#include <array>
#include <optional>

namespace brindlemark {

namespace {

/// What the pages of a design style, 0 to 3, have.
struct StyleParts
{
    bool line;            ///< a rule under the title
    bool descriptionCell; ///< a cell "Description:"
};

constexpr PerStyle<StyleParts> Parts = {
    {true, false},
    {true, false},
    {false, false},
    {false, true},
};

} // namespace

void selectRegion(RichTextBox& source, Region region)
{
    source.SetFocus();
    const QByteArray text = source.Text();
    source.setSelStart(0);
    source.setSelLength(int(lengthOfBeginning(text, source.textEncoding())));
    if (const std::optional<TextRange> inside = findRegion(text, region)) {
        source.setSelStart(int(inside->start));
        source.setSelLength(int(inside->length)); // throws where the closing marker is missing
    }
}

bool updateStyleButtons(FrmWeb& main)
{
    RichTextBox& source = *main.RichTextBox1;
    const int caret = source.SelStart();
    const std::optional<size_t> style = listingStyle(source.utf8(), source.utf8Position(caret));
    if (style) // selecting it makes the document count as changed
        static_cast<void>(source.Find(StyleMarkers.at(*style).toByteArray())); // it is there
    for (QPushButton* button : {main.CmdTitle, main.CmdDes, main.CmdCell})
        button->setEnabled(style.has_value());
    main.CmdLine->setEnabled(style && Parts.at(*style).line);
    if (style)
        form<FrmPop>()->muDesc->setEnabled(Parts.at(*style).descriptionCell);
    source.setSelLength(0);
    source.setSelStart(caret);
    return style.has_value();
}

void UpdateRegionButtons(FrmWeb& main)
{
    const bool isListing = updateStyleButtons(main);
    main.CmdOffLeg->setEnabled(isListing);
    if (isListing) {
        main.CmdPic->setEnabled(main.RichTextBox1->Find(markers(Region::Picture).opening.toByteArray()) !=
                                -1);
    }
}

} // namespace brindlemark
