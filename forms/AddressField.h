// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLineEdit;

namespace brindlemark {

/// What a field for an address holds before anything is typed.
inline const QString BlankAddress = QStringLiteral("http://");

/// Makes an address with a scheme of its own that comes into a field behind its `BlankAddress`, or by a paste
/// in front of it, the whole text: typing does so with the "://" of the scheme. Undo takes that back by
/// itself.
void takeWholeAddress(QLineEdit* field);

} // namespace brindlemark
