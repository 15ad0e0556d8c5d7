// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ui_Pics.h"
#include "services/PictureHtml.h"
#include "shell/ToolForm.h"

#include <QPointer>

namespace brindlemark {

class FrmPicture;

/// The tool that makes the tag of a picture.
class Pics : public ToolForm, public Ui::Pics
{
    Q_OBJECT

public:
    Pics();

private:
    void Check1_Click();
    void ChkP_Click();
    void CmdBrowse_Click();
    void Command1_Click();
    void Command2_Click();
    void Command4_Click();

    bool hasAddress() const;
    bool requireAddress();
    void showSample(bool sized);
    void enableAlignments();
    PictureSettings settings() const;

    QPointer<FrmPicture> m_pictures;
};

} // namespace brindlemark
