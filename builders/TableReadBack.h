// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/TableHtml.h"

#include <optional>

namespace brindlemark {

/// The look of a cell, read out of its HTML. What can't be found there has no value.
struct TableReadBack
{
    struct Styles
    {
        bool bold;
        bool italic;
        bool underline;

        bool operator==(const Styles& other) const = default;
    };

    std::optional<QString> cellColor; ///< six digits, with "#" in front or without
    std::optional<QString> width;
    std::optional<QString> height;
    std::optional<TableAlign> align;
    std::optional<Styles> styles;
    std::optional<QString> fontFace;
    std::optional<QString> sizeText;  ///< the font size as the user picks it: "Normal" for "3"
    std::optional<QString> fontColor; ///< six digits without "#"
};

/// Reads the look of a cell that `cellOpen` has made, with or without its word. The first attribute of each
/// name counts. The cell's own stand in front of its word, so a word that holds one does no harm.
TableReadBack readBack(const QString& cell);

} // namespace brindlemark
