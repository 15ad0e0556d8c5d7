// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QLabel;

namespace brindlemark {

class ComboBox;

/// What a list of fonts offers of a computer that has `families`, in the form and order in which the system
/// names them: first the fonts that every buyer has, whether this computer has them or not, then the
/// computer's own, but for the first `first` of the families. A name comes once, whatever its letter case,
/// and without the foundry that the toolkit puts behind a family that several have made: "C059" for "C059
/// [urw]". No page knows a foundry.
QStringList fontNames(const QStringList& families, qsizetype first);

/// Adds `fontNames` of this computer to a list, in which each name is drawn in its own face. The fonts of
/// rows that nobody looks at are not loaded.
void addScreenFonts(ComboBox& list, int first);

/// Lets a label say that a sample is an approximation, because the font is not on this computer; hides it
/// otherwise. The HTML keeps the font's name: buyers who have the font see it.
void tellMissingFont(QLabel* notice, const QString& family);

} // namespace brindlemark
