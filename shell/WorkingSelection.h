// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

/// How much of the text is marked at its start while the program walks over all of it, in bytes. A highlight
/// makes so much plain at first, and so much stays selected where a part of a listing is missing.
inline constexpr int WorkingSelection = 90000;

} // namespace brindlemark
