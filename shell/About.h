// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"

namespace brindlemark {

/// The window that gives the product's name and number.
class About : public Form
{
    Q_OBJECT

public:
    About();
};

} // namespace brindlemark
