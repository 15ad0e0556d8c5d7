// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/TableHtml.h"

#include <optional>

/// What a cell says of its look. What can't be cut out of it has no value.
struct TableReadBack
{
    struct Styles
    {
        bool bold;
        bool italic;
        bool underline;

        bool operator==(const Styles& other) const = default;
    };

    std::optional<QString> cellColor; ///< colour digits, with "#" in front or without
    std::optional<QString> TxWid;
    std::optional<QString> TxHei;
    std::optional<TableAlign> align;
    std::optional<Styles> styles;
    std::optional<QString> Combo7;    ///< font face
    std::optional<QString> Combo6;    ///< text of the font size: "Normal" for "3"
    std::optional<QString> fontColor; ///< colour digits without "#"
};

/// Reads a cell that `cellOpen` has opened, with or without its word. Attributes are found by name, the first
/// of each counts: those of the cell stand in front of its word, whatever that says.
TableReadBack readBack(const QString& cell);
