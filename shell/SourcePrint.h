// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArray>
#include <QFont>
#include <QString>
#include <functional>
#include <vector>

class QPagedPaintDevice;

namespace brindlemark {

/// A source as it comes on paper.
struct PrintedSource
{
    QString name; ///< at the head of each page
    QByteArray utf8;
    std::vector<ColorRun> colors; ///< of all its bytes, in their order
    QFont font;                   ///< its size in points, of which 5 to 24 are taken
};

/// Prints a source: the pages that the device wants (`pageRanges`), each with the name and its number at the
/// head, and all lines with their numbers beside them, long ones in several rows. Colours that couldn't be
/// read on white paper become black. Tells how much is done, 0 to 1, at each line.
/// Throws RuntimeError(PathFileAccess) when the device takes no page.
void printSource(QPagedPaintDevice& device, const PrintedSource& source,
                 const std::function<void(double done)>& progress);

} // namespace brindlemark
