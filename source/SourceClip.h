// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextEncoding.h"

#include <QMimeData>
#include <memory>

namespace brindlemark {

// What goes from a document to the clipboard or into a drag, and what comes from there.

/// Some of a document's bytes, as text for all programs and as they are for this one.
std::unique_ptr<QMimeData> clipOf(const QByteArray& bytes, TextEncoding encoding);

/// The bytes that a document of an encoding takes from a clipboard or a drag. Text of other programs gets
/// CR LF line ends.
QByteArray bytesOf(const QMimeData& clip, TextEncoding encoding);

/// The files among what is dragged. Folders and addresses of the internet are none.
QStringList filesIn(const QMimeData& dragged);

} // namespace brindlemark
