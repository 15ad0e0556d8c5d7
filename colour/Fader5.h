// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/FaderFragment.h"
#include "colour/Presets.h"
#include "colour/ui_Fader5.h"
#include "shell/ToolForm.h"

#include <array>
#include <span>

class ColorRow;

/// The tool that styles a piece of text: colours, font, highlight, a table around it, a link. Shows the
/// result in a sample, copies it, or puts it at the caret of the source box.
class Fader5 : public ToolForm, public Ui::Fader5
{
    Q_OBJECT

public:
    /// Takes the text that is marked in the source box, by way of the clipboard.
    Fader5();

    // Colours as colour texts, of the rows G, X, Z, F, H, I and J.
    QString Text8 = QStringLiteral("#000000");
    QString TxtC1 = QStringLiteral("#000000");
    QString TxtC2 = QStringLiteral("#000000");
    QString Text5 = QStringLiteral("#000000");
    QString Text13 = QStringLiteral("#000000");
    QString Text17 = QStringLiteral("#000000");
    QString Text20 = QStringLiteral("#000000");
    /// `Text1` in five colours, as the fade engine made it.
    QString Text2;
    /// The tags of the link, both empty without one.
    QString Hlink;
    QString Hlink2;

    /// On the tab Preview, puts the fragment in place of each description of the document, shows the document
    /// on the surfaces and closes; elsewhere nothing. No control runs it.
    void Command15_Click();

private:
    /// The colour rows, in the order of their table.
    enum Row { G, X, Z, A, B, C, D, E, F, H, I, J, RowCount };

    void connectHandlers();
    void connectRows();
    void takeMarkedText();

    void Text1_Change();
    void Command1_Click();
    void Command2_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command8_Click();
    void Command9_Click();
    void Command16_Click();
    void Check1_Click();
    void Check7_Click();
    void ChkNoB_Click();
    void Mode_Click();
    void enableModes();

    QString body(FaderUser user);
    FaderSettings settings() const;
    Preset preset();
    void refreshColorTexts();
    void enableRows(std::span<const Row> rows, bool enabled);
    void enableTable(bool enabled);

    std::array<ColorRow*, RowCount> m_rows{};
};
