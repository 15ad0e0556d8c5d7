// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace brindlemark {

/// A page in which each start tag says where it begins in the source, in bytes (see LivePage).
QByteArray withPlaces(const QByteArray& html);

} // namespace brindlemark
