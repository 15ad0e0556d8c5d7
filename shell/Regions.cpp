#include "shell/Regions.h"

#include "services/Markers.h"
#include "shell/FrmWeb.h"

#include <optional>

namespace {

/// Whether the pages of a design style, 0 to 3, have a rule under the title.
constexpr std::array<bool, StyleMarkers.size()> HasLine = {true, true, false, false};

/// The document's design style, or none.
std::optional<size_t> documentStyle(RichTextBox& source)
{
    for (size_t style = 0; style < StyleMarkers.size(); ++style) {
        if (source.Find(StyleMarkers[style].toByteArray()) >= 1)
            return style;
    }
    return std::nullopt;
}

} // namespace

bool updateStyleButtons(FrmWeb& main)
{
    RichTextBox& source = *main.RichTextBox1;
    const int caret = source.SelStart();
    const std::optional<size_t> style = documentStyle(source);
    for (QPushButton* button : {main.CmdTitle, main.CmdDes, main.CmdCell})
        button->setEnabled(style.has_value());
    main.CmdLine->setEnabled(style && HasLine[*style]);
    source.setSelLength(0);
    source.setSelStart(caret);
    return style.has_value();
}
