// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "wizard/PageColors.h"
#include "wizard/ui_FrmBuild2.h"

#include <QByteArray>
#include <QTimer>
#include <array>

class DocumentSurface;

/// Page 2 of the listing wizard: design style, picture style and colours, and from here the finished page
/// goes to the main window. A drawing stands in for the page until then.
class FrmBuild2 : public Form, public Ui::FrmBuild2
{
    Q_OBJECT

public:
    /// Throws RuntimeError(PathFileAccess) when the names of the colour sets can't be read.
    FrmBuild2();

    /// Fits the page to the listing before it is shown: the picture styles frame only for a listing with
    /// pictures, and with more than one picture only the styles that show them all. `pictures` counts the
    /// addresses; with none of them the frame and all styles are there.
    void prepare(int pictures, bool withPictures);

    /// The choices as they stand: design style, picture style, colours.
    PageLook look() const;
    /// The colours in which the drawings stand.
    const DrawingColors& drawingColors() const { return m_drawing; }

    /// The boxes of the picture styles; exactly one is checked.
    std::array<CheckBox*, 4> Chk;

private:
    /// How an attempt to make the page ended.
    enum class PageResult {
        Made,
        NotMade, ///< the user has been told
    };

    void Command1_Click();
    void Command2_Click();
    void Command4_Click();
    void Command6_Click();
    void Command19_Click();
    void Command23_Click();
    void Command24_Click();
    void Combo3_Click();
    void Combo4_Click();
    void Chk_MouseUp(int index);

    void stepStyle(int by);
    void repaintDrawing();
    void showDrawing();
    void warmEngine();
    [[nodiscard]] PageResult generate();
    void makePage();
    void finish();

    PageLook m_look; // but for the picture style, which stands in the boxes
    DrawingColors m_drawing;
    DocumentSurface* WebBrowser1; // the engine that the page passes through, out of view
    QByteArray RTB1;              // the page; always UTF-8, whatever the document or the page before was
    QTimer m_warmUp;
};
