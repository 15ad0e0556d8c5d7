// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace brindlemark {

/// Shows the hourglass pointer while it lives.
class WaitCursor
{
public:
    WaitCursor();
    ~WaitCursor();
    Q_DISABLE_COPY_MOVE(WaitCursor)
};

} // namespace brindlemark
