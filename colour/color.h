// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_color.h"
#include "forms/Form.h"

namespace brindlemark {

/// The window for the colours of the source box's highlight. It only stores them, for the next highlight.
class color : public Form, public Ui::color
{
    Q_OBJECT

public:
    /// Shows the stored colours. From the first that is missing or no number on, all are black.
    color();

private:
    void loadColors();
    void Command1_Click();
};

} // namespace brindlemark
