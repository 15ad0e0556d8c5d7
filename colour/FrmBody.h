// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/Presets.h"
#include "colour/ui_FrmBody.h"
#include "shell/ToolForm.h"

namespace brindlemark {

class ColorRow;

/// The tool that puts page colours in front of the document, each in a body tag of its own. That is meant:
/// browsers join all body tags of a page, so the document's own needn't change.
class FrmBody : public ToolForm, public Ui::FrmBody
{
    Q_OBJECT

public:
    FrmBody();

    /// The box of the background colour and its sample. They are never shown: only loading a preset ticks the
    /// box.
    CheckBox* Check1;
    ColorSample* Picture1;

    /// The colour of the row, `#RRGGBB`.
    QString rowColor;
    // A body tag for each box, empty while it isn't ticked.
    QString backgroundTag;
    QString textTag;
    QString linkTag;
    QString activeLinkTag;

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

    void showLinkColor();
    void colorLab(const QColor& color);
    Preset preset();
};

} // namespace brindlemark
