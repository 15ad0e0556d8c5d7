#pragma once

#include "platform/Form.h"

/// The small window on top of all others that stands while the source is recoloured.
class Wait : public Form
{
    Q_OBJECT

public:
    Wait();
};
