// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

class QWidget;

namespace brindlemark {

/// The symbol of a button by its name in the icon set, such as "edit-undo", in the ink of `owner`'s palette:
/// it follows the desktop from dark to light and back.
QIcon namedIcon(const char* name, const QWidget* owner);

} // namespace brindlemark
