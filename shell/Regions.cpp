#include "shell/Regions.h"

#include "shell/FrmPop.h"
#include "shell/FrmWeb.h"

#include <optional>

namespace {

/// How much of the text is marked while the program walks over it, in bytes.
constexpr int WorkingSelection = 90000;

/// What the pages of a design style, 0 to 3, have.
struct StyleParts
{
    bool line;            ///< a rule under the title
    bool descriptionCell; ///< a cell "Description:"
};

constexpr std::array<StyleParts, StyleMarkers.size()> Parts = {{
    {true, false},
    {true, false},
    {false, false},
    {false, true},
}};

/// The document's design style, or none.
std::optional<size_t> documentStyle(RichTextBox& source)
{
    for (size_t style = 0; style < StyleMarkers.size(); ++style) {
        if (source.Find(StyleMarkers[style].toByteArray()) >= 1)
            return style;
    }
    return std::nullopt;
}

/// The length of a UTF-8 text, in bytes, without the half of a character at its end.
int lengthInWholeCharacters(const QByteArray& text)
{
    const auto goesOn = [](char byte) { return (byte & 0xC0) == 0x80; };
    qsizetype last = text.size() - 1; // the first byte of the last character
    while (last > 0 && goesOn(text[last]))
        --last;
    if (last < 0)
        return 0;
    const auto lead = static_cast<unsigned char>(text[last]);
    const int wanted = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return int(last + wanted <= text.size() ? text.size() : last);
}

/// Selects the beginning of the text; whole characters only, as what is put in its place must not leave half
/// of one.
void selectBeginning(RichTextBox& source)
{
    source.setSelStart(0);
    source.setSelLength(WorkingSelection);
    if (source.textEncoding() == TextEncoding::Utf8)
        source.setSelLength(lengthInWholeCharacters(source.SelText()));
}

} // namespace

void selectRegion(RichTextBox& source, Region region)
{
    const QByteArray opening = markers(region).opening.toByteArray();
    const QByteArray closing = markers(region).closing.toByteArray();
    source.SetFocus();
    selectBeginning(source);
    for (int start = source.Find(opening, 0); start >= 0; start = source.Find(opening, start + 1)) {
        const int end = source.Find(closing, start);
        const int inside = start + int(opening.size());
        source.setSelStart(inside);
        source.setSelLength(end - inside); // negative where the closing marker is gone
    }
}

bool updateStyleButtons(FrmWeb& main)
{
    RichTextBox& source = *main.RichTextBox1;
    const int caret = source.SelStart();
    const std::optional<size_t> style = documentStyle(source);
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
