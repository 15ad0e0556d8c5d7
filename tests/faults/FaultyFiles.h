// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace brindlemark {

/// Makes the file operations of this process fail, as a failing or full disk does: the calls of the system's
/// library that name a path in one folder, or a handle of a file that was opened there. Linked into a test,
/// it stands in front of the library for the whole process.
namespace FaultyFiles {

enum class Fault {
    Once,      ///< the call fails, and all others work
    FullDisk,  ///< from this call on, none that makes or fills a file works
    ShortWrite ///< a write takes the half of its bytes, and then the disk is full
};

/// Which calls count.
enum class Calls {
    Writing, ///< those that change something
    All      ///< those that read, or ask for a file's state, as well
};

/// Counts calls for paths in `folder` from now on, and makes the one with this number (from 1) fail with
/// `error`; 0: none.
void arm(const QString& folder, Calls calls, int number, Fault fault, int error);
/// Ends that. How many calls there were.
int disarm();
/// The name of the call that failed since `arm`; empty when none did.
QByteArray struck();

} // namespace FaultyFiles

} // namespace brindlemark
