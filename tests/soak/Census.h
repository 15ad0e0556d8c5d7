// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMap>
#include <QStringList>

namespace brindlemark {

/// How much memory is in use, in KiB.
struct Memory
{
    double heap = 0;          ///< of this process, as its allocator counts it
    double program = 0;       ///< resident, of this process
    QMap<int, double> engine; ///< resident, of each process of the web engine; shared pages count in each
};

Memory memoryInUse();

/// What is there at a moment, to be compared with what is there later.
struct Census
{
    QMap<QString, int> objects; ///< the living objects of this thread, counted by class
    int widgets = 0;
    int processes = 0;       ///< below this one, at any depth
    QStringList descriptors; ///< what the open descriptors of this process stand for, sorted
    QStringList files;       ///< all that lies in the folder for temporary files, sorted
};

/// From here on the objects that are made are counted. To be called first thing in `main()`.
void countObjects();

Census takeCensus();

/// What is there now and was not there before, one line a thing; empty when nothing was left over.
QStringList leftOver(const Census& before, const Census& now);

/// The processes below this one, at any depth.
QList<int> processesBelow();

} // namespace brindlemark
