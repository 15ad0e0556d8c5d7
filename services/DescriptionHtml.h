// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

/// A description that was typed as plain text, so that a page shows it as it was typed: line ends get a BR,
/// and what looks like HTML but is no tag or reference becomes references. Tags of HTML stay; behind a block
/// or a BR no other BR is needed. Done twice is done once. Line ends stay those of the text.
QString descriptionAsTyped(const QString& text);

} // namespace brindlemark
