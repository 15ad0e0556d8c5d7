// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"

#include <QTimer>

namespace brindlemark {

/// The start object: one picture, for about 1.4 seconds, then the main window.
class FrmSplash : public Form
{
    Q_OBJECT

public:
    FrmSplash();

signals:
    /// The main window has been loaded and is about to show.
    void mainWindowLoaded();
    /// The user has been asked about the document that an ended program left, if any: other windows' texts
    /// are next.
    void documentOffered();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Timer2_Timer();

    QTimer Timer2{this}; // its end begins the loading of the main window
};

} // namespace brindlemark
