// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLineEdit;

namespace brindlemark {

/// What a field for an address holds before anything is typed.
inline const QString BlankAddress = QStringLiteral("http://");

/// Makes what is pasted into a field behind or in front of its `BlankAddress` the whole address, when it is
/// one. Typing is left alone.
void takePastedAddress(QLineEdit* field);

} // namespace brindlemark
