// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

/// How long to wait for a window or a page, in milliseconds; wide, for a busy machine.
constexpr int Patience = 60000;

} // namespace brindlemark
