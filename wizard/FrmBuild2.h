// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "wizard/PageColors.h"
#include "wizard/ui_FrmBuild2.h"

#include <QByteArray>
#include <QJsonObject>
#include <QTimer>
#include <array>

namespace brindlemark {

class DocumentSurface;

/// Page 2 of the listing wizard: design style, picture style and colours, which a drawing of the page shows.
/// From here the finished page goes to the main window.
class FrmBuild2 : public Form, public Ui::FrmBuild2
{
    Q_OBJECT

public:
    /// Throws RuntimeError(PathFileAccess) when the names of the colour sets can't be read.
    FrmBuild2();

    /// Fits this page to the listing before it is shown. The frame of the picture styles is shown when
    /// `withPictures` says so; with more than one of `pictures`, the number of addresses, the styles of one
    /// picture are disabled.
    void prepare(int pictures, bool withPictures);

    /// The present choices: design style, picture style, colours.
    PageLook look() const;
    /// The same as names and values, and back. What is missing or out of range stays as it is.
    QJsonObject choices() const;
    void choose(const QJsonObject& choices);
    /// The colours of the drawings.
    const DrawingColors& drawingColors() const { return m_drawing; }

    /// The boxes of the picture styles; exactly one is checked.
    std::array<CheckBox*, 4> Chk;
    /// The drawings of the picture styles; a click on one is a click on its box.
    std::array<PictureStyleDrawing*, 4> Image;

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
    static void Image_Click(CheckBox& box);

    void stepStyle(int by);
    void repaintDrawing();
    void showDrawing();
    void warmEngine();
    [[nodiscard]] PageResult generate();
    void makePage();
    void finish();

    PageLook m_look; // all but the picture style, which the boxes tell
    DrawingColors m_drawing;
    DocumentSurface* WebBrowser1; // hidden; the page is written to it and read back as the engine prints it
    QByteArray m_page;            // always UTF-8, whatever the document in the editor is
    QTimer m_warmUp;
};

} // namespace brindlemark
