// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

/// Asks, when `file` is the main settings file, whether the settings that ship shall take its place, and puts
/// them there: the next start finds settings that it can use. The damaged file is kept beside them, as
/// "web-damaged-1.ini" or with the next free number.
void offerShippedSettings(const QString& file);

} // namespace brindlemark
