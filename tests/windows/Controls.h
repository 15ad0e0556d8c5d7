// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

class QWidget;

namespace brindlemark {

/// A control's class and name, for what a test says of it.
QString describe(const QWidget* widget);

/// What of its own a control shows as words; empty for all others.
QString wordsOf(const QWidget* widget);

/// The controls of a window that can be seen, without the inner parts of a control.
QList<QWidget*> seenControls(QWidget* window);

/// How much room the words of a control lack, in pixels.
int missingWidth(const QWidget* widget);

} // namespace brindlemark
