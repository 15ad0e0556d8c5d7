// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAccessibleInterface;
class QWidget;
struct QMetaObject;

namespace brindlemark {

// What screen readers and other assistive tools are told of the program's own kinds of control, where the
// toolkit's answer for the base class is wrong or says too little.

/// Makes the interface by which such tools see a widget. The toolkit owns it. Null leaves the widget to the
/// toolkit.
using MakeAccessible = QAccessibleInterface* (*)(QWidget* widget);

/// Has `make` make the interfaces of all widgets of a class. A widget's constructor calls it; once is enough.
void describeClass(const QMetaObject& type, MakeAccessible make);

/// Has plain frames and stacks of pages told as groups, in all windows that are made from now on. The toolkit
/// calls the one a frame, which is a window to screen readers: they pass over what has the keyboard in there,
/// since it is in no window that is up. The other they call out as a "layered pane".
void describeContainers();

/// A picture.
QAccessibleInterface* accessibleGraphic(QWidget* widget);
/// A frame around other things.
QAccessibleInterface* accessibleGroup(QWidget* widget);
/// A bar that picks a number (a QAbstractSlider), with its name, value and range.
QAccessibleInterface* accessibleSlider(QWidget* widget);
/// A drop-down list (a QComboBox) whose name says what it is for; the text that it shows is its value.
QAccessibleInterface* accessibleComboBox(QWidget* widget);

} // namespace brindlemark
