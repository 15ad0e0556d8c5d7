// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/Presets.h"
#include "colour/ui_FrmBody.h"
#include "shell/ToolForm.h"

class ColorRow;

/// The tool that puts page colours in front of the document, each as a body tag of its own. What the document
/// holds already stays as it is: browsers take all body tags together.
class FrmBody : public ToolForm, public Ui::FrmBody
{
    Q_OBJECT

public:
    FrmBody();

    /// The box of the background colour. No hand reaches it: only a preset ticks it.
    CheckBox* Check1;
    ColorSample* Picture1;

    /// The colour text of the row.
    QString Text8;
    // The tags of the boxes; empty for a box that isn't ticked.
    QString Text1;
    QString Text2;
    QString Text4;
    QString Text5;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Attribute;
    static const std::array<Attribute, 4> Attributes;

    void Check_Click(const Attribute& attribute);
    void Lab_MouseDown();
    void Lab_MouseUp();
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();

    void colorLab(const QColor& color);
    Preset preset();
};
