// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

class FrmWeb;

/// Connects toolbar buttons and menu entries of the main window to the windows that they open.
void connectOpenings(FrmWeb* main);

} // namespace brindlemark
