// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_color.h"
#include "forms/Form.h"

/// The colours of the source box's highlight. Only stores them: the next highlight takes them.
class color : public Form, public Ui::color
{
    Q_OBJECT

public:
    /// Shows the stored colours, up to the first key that is missing or no number; the rest is black.
    color();

private:
    void loadColors();
    void Command1_Click();
};
