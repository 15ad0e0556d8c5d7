// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAbstractButton;
class QGroupBox;

namespace brindlemark {

/// Puts a check box on the caption of a frame and keeps it there; the box shows the caption's words. Unlike a
/// frame that can be ticked itself, the frame and the box can be enabled apart.
void putOnCaption(QAbstractButton* box, QGroupBox* frame);

} // namespace brindlemark
