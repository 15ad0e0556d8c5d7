// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"

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
};

} // namespace brindlemark
