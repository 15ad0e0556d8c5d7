// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A picture of a page, under the names of the controls of the window Picture Properties. Only the address
/// stands in quotes; nothing is checked.
struct PictureSettings
{
    QString Text1;                        ///< address
    bool Check1 = false;                  ///< has a size:
    QString combo1{};                     ///< width
    QString combo2{};                     ///< height
    QString combo3 = QStringLiteral("0"); ///< border
    bool ChkP = false;                    ///< in a paragraph of its own
    QString align{};                      ///< which stands there: "left", "center", "right"
};

/// The picture's tag, with its line end.
QString pictureTag(const PictureSettings& settings);
