// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

class QAccessibleInterface;
class QWidget;

namespace brindlemark {

class RichTextBox;

// The source box as screen readers and other assistive tools see it. They count UTF-16 units from 0 (see
// TextUnits.h); positions here are the component's.

/// The interface of a source box.
QAccessibleInterface* accessibleSource(QWidget* box);

/// Says that text has come in. These three cost nothing while nobody listens.
void tellInsertion(RichTextBox& box, TextRange range);
/// Says that text is about to go.
void tellDeletion(RichTextBox& box, TextRange range);
/// Says where caret and selection are now.
void tellCaret(RichTextBox& box);

} // namespace brindlemark
