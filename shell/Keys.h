// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace brindlemark {

class FrmWeb;

/// A key of the main window.
struct MainKey
{
    const char* group;                   ///< under which it is listed
    const char* keys;                    ///< as QKeySequence reads them; more than one parted by "; "
    const char* what;                    ///< what it does, in a user's words
    void (*act)(FrmWeb& main) = nullptr; ///< null where the view that has the keyboard acts on it by itself
};

/// All of them, as they are listed; each acts on the view that is up.
std::span<const MainKey> mainKeys();

} // namespace brindlemark
