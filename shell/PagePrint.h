// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <functional>

class QPagedPaintDevice;

namespace brindlemark {

/// Prints all sheets of a PDF, which was made for the device's paper and has its margins: as pictures in the
/// device's resolution, each at its place on the paper. Tells how much is done, 0 to 1, at each sheet.
/// Throws RuntimeError(PathFileAccess) when the device takes no page.
void printPages(QPagedPaintDevice& device, const QByteArray& pdf,
                const std::function<void(double done)>& progress);

} // namespace brindlemark
