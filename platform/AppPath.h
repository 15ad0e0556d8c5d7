// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The program's own folder, in which all settings and data files lie; without a slash at its end.
QString AppPath();

/// Makes another folder the program's: each test lives in one of its own.
void setAppPath(const QString& folder);

/// The path of a data file: `AppPath` plus a name that begins with a backslash, such as "\web.ini",
/// in the form that the file system takes.
QString appFile(const QString& name);
