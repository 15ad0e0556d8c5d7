// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/FaderFragment.h"
#include "colour/Presets.h"
#include "colour/ui_Fader5.h"
#include "shell/ToolForm.h"

#include <array>
#include <span>

namespace brindlemark {

class ColorRow;

/// The tool that styles a piece of text: colours, font, highlight, a table around it, a link. Shows the
/// result in a sample, copies it, or puts it at the caret of the source box.
class Fader5 : public ToolForm, public Ui::Fader5
{
    Q_OBJECT

public:
    /// Takes over the text that is selected in the source box, which empties or overwrites the clipboard.
    Fader5();

    // Colours, `#RRGGBB`, of the rows G, X, Z, F, H, I and J.
    QString textColor = QStringLiteral("#000000");
    QString firstColor = QStringLiteral("#000000");
    QString secondColor = QStringLiteral("#000000");
    QString highlightColor = QStringLiteral("#000000");
    QString tableColor = QStringLiteral("#000000");
    QString cellColor = QStringLiteral("#000000");
    QString borderColor = QStringLiteral("#000000");
    /// `Text1` in five colours, as the fade engine made it.
    QString fadedText;
    /// The tags around the text that make it a link; both are empty without one.
    QString linkOpen;
    QString linkClose;

    /// While the tab Preview is shown, puts the fragment in place of each description of the document, shows
    /// the document on the surfaces and closes this window; else nothing. No control runs it.
    void Command15_Click();

private:
    /// The colour rows, by the last letter of their bars' names.
    enum Row { G, X, Z, A, B, C, D, E, F, H, I, J, RowCount };

    void connectHandlers();
    void connectRows();
    void takeMarkedText();

    void Text1_Change();
    void Command2_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command9_Click();
    void Command16_Click();
    void Check1_Click();
    void Check7_Click();
    void ChkNoB_Click();
    void Mode_Click();
    void fade();
    void refresh();
    void enableModes();

    QString body(FaderUser user);
    FaderSettings settings() const;
    Preset preset();
    void refreshColorTexts();
    void enableRows(std::span<const Row> rows, bool enabled);
    void enableTable(bool enabled);

    std::array<ColorRow*, RowCount> m_rows{};
};

} // namespace brindlemark
