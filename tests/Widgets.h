// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Patience.h"

#include <QByteArray>
#include <QPoint>
#include <QString>
#include <QStyle>

class QMenu;
class QAbstractButton;
class QWidget;

namespace brindlemark {

class CheckBox;
class ComboBox;
class ScrollBar;
class Sample;
class WebControl;

/// The name of an object's class, without the program's namespace.
QByteArray className(const QObject* object);

// What a hand does with the program's controls, and what an eye sees in them.

/// Clicks the middle of a button.
void click(QAbstractButton* button);
/// Clicks the indicator of a check box or an option.
void tick(QAbstractButton* box);
/// Chooses an entry of a drop-down list with the keyboard.
void choose(ComboBox* combo, int entry);
/// Takes the entry with this text, without its key, of an open menu, as keys do.
void takeEntry(QMenu* menu, const QString& text);
/// Types a text in place of what a field holds.
void overtype(QWidget* field, const QString& text);

/// The middle of a part of a bar.
QPoint placeOf(const ScrollBar* bar, QStyle::SubControl part);
/// Clicks the arrow that makes a bar's value larger (or smaller).
void step(ScrollBar* bar, bool up = true);
/// Drags the slider of a bar to its end, and leaves the button pressed until `release`.
void dragToEnd(ScrollBar* bar);
void release(ScrollBar* bar);

/// The text of the page in a rendering control, blanks at both ends left out.
QString pageText(WebControl* browser);
/// What stands inside the body of the page in a rendering control, with one line end where there are any.
QString pageBody(WebControl* browser);
/// The same of a sample, once it has settled: no page is on its way to it, and two looks see the same. For
/// what must not refresh a sample; what must is awaited.
QString settledSample(Sample* sample);

} // namespace brindlemark
