// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "shell/Zoom.h"

namespace brindlemark {

class DocumentSurface;

/// The help page in a window of its own.
class FrmHelp : public Form
{
    Q_OBJECT

public:
    FrmHelp();

    /// Shows the window in front, at the section of the page with this id; at the top without one.
    void showSection(const QString& id);

    DocumentSurface* WebBrowser1;

protected:
    void changeEvent(QEvent* event) override;

private:
    void WebBrowser1_ZoomWanted(int steps);
    void showSize();

    Zoom m_zoom;
};

} // namespace brindlemark
