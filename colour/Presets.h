// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <variant>
#include <vector>

class ColorSample;

// Colour presets: files of the user's choosing, with the extension ".fpc", in which a tool keeps its colours.
// They are profile files (see Profile.h). Each tool has a section of its own, so one file can serve several
// tools.

/// What a preset keeps of a tool.
struct Preset
{
    struct Entry
    {
        QString key;
        /// A colour, kept as the decimal text of its number; or a text, kept as it is.
        std::variant<ColorSample*, QString*> holder;
    };

    QString fileName; ///< proposed for a new file
    QString section;
    std::vector<Entry> entries; ///< in the order of writing and reading
};

/// Asks for a file and writes the entries to it. A failure to write goes unnoticed.
void savePreset(const Preset& preset);

/// Asks for a file, runs `before`, and reads the entries. A colour that is missing or no number ends the
/// reading; what was read so far stays. True: all was read.
[[nodiscard]] bool loadPreset(const Preset& preset, const std::function<void()>& before = nullptr);
