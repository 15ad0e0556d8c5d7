// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check/ui_FrmLive.h"
#include "forms/Form.h"
#include "shell/ListingEditor.h"
#include "shell/Zoom.h"

#include <QTimer>

namespace brindlemark {

/// The window Live View: the page of the source while it is being written, as wide as a phone, a tablet or a
/// desktop shows it. What is at the caret is in sight, a click leads to its source, and both scroll together.
/// Beside the tab Preview it shows what is there, when the user rests. It holds no document: nothing here is
/// ever read back.
class FrmLive : public Form, public Ui::FrmLive
{
    Q_OBJECT

public:
    FrmLive();

protected:
    bool queryUnload() override;
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Widths_Click();
    void Page1_PlaceClicked(qsizetype place);
    void Page1_Scrolled();
    void Page1_Shown();
    void Page1_ZoomWanted(int steps);

    void followSource();
    void sourceScrolled();
    void showSource();
    void showPreview();
    void showCaret();
    void setPageWidth();
    void makeRoomForPage();
    void placeBesideMain();
    void keepPlace();
    bool handIsHere() const;

    Zoom m_zoom;
    QTimer m_placeTimer;     // until the window rests where it was moved to
    QTimer m_textTimer;      // until what was written is shown
    QTimer m_caretTimer;     // until the place at the caret is
    QTimer m_caretScrolls;   // until the source is scrolled by nothing but the hand
    QTimer m_previewTimer;   // until Preview is looked at again
    QTimer m_scrollTimer;    // until the source follows the page
    bool m_ofSource = false; // or else of Preview, whose places nobody knows
    bool m_caretMoved = false;
    QString m_shownPreview;
};

} // namespace brindlemark
