// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A picture of a page; its members bear the names of the controls of the window Picture Properties. All but
/// `Check1` and `ChkP` go into the tag as they are, only the address in quotes.
struct PictureSettings
{
    QString Text1;                        ///< address
    bool Check1 = false;                  ///< the tag has a size, these two:
    QString combo1{};                     ///< width
    QString combo2{};                     ///< height
    QString combo3 = QStringLiteral("0"); ///< border
    bool ChkP = false;                    ///< the tag stands in a paragraph of its own
    QString align{};                      ///< of that paragraph: "left", "center", "right"
};

/// The picture's tag, with its line end.
QString pictureTag(const PictureSettings& settings);
