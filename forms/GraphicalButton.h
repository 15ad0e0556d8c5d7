// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

class QAbstractButton;

namespace brindlemark {

// Check boxes and options that look like push buttons with a picture, pressed in while they are set.

/// How much room such a button needs.
QSize graphicalButtonSize(const QAbstractButton& button);

/// Paints such a button.
void paintGraphicalButton(QAbstractButton& button);

} // namespace brindlemark
