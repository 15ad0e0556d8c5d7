// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

/// A picture of a page. All texts go into the tag as they are, only the address in quotes.
struct PictureSettings
{
    QString address;
    bool sized = false; ///< the tag has a size, these two:
    QString width{};
    QString height{};
    QString border = QStringLiteral("0");
    bool inParagraph = false; ///< the tag stands in a paragraph of its own
    QString align{};          ///< of that paragraph: "left", "center", "right"
};

/// The picture's tag, with its line end.
QString pictureTag(const PictureSettings& settings);

} // namespace brindlemark
