// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;

namespace brindlemark {

class ComboBox;

/// Adds the names of the screen's fonts to a list, in order, but for the first `first` of them.
void addScreenFonts(ComboBox& list, int first);

/// Lets a label say that a sample is an approximation, because the font is not on this computer; hides it
/// otherwise. The HTML keeps the font's name: buyers who have the font see it.
void tellMissingFont(QLabel* notice, const QString& family);

} // namespace brindlemark
