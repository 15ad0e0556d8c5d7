// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace brindlemark {

/// Leads the user to the control that a message was about: brings up the pages of tabs on which it stands,
/// gives it the keyboard, and selects what a field holds.
void leadTo(QWidget* control);

} // namespace brindlemark
