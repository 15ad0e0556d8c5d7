// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace brindlemark {

// What is left of a page for a site that takes no more. Lines of the page become spaces, as in a browser.

/// With a few tags, which have no attributes (see `isFewTag`). A block that goes leaves a BR between its text
/// and the next; scripts, styles, titles and comments go with all that is in them.
QByteArray withFewTags(const QByteArray& html);

/// Without tags: a line for each block and BR, "- " before what stands in a list. In the page's own encoding,
/// with its character references as they stand there.
QByteArray withoutTags(const QByteArray& html);

} // namespace brindlemark
