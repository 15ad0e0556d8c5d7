// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <variant>
#include <vector>

namespace brindlemark {

class ColorSample;

// Colour presets: files in which a tool keeps its colours, with the extension ".fpc" and a name that the user
// chooses. They are profile files (see Profile.h). Each tool has a section of its own, so one file can serve
// several tools.

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

/// Asks for a file and writes the entries to it. Does nothing when the dialog is cancelled. A failure to
/// write isn't told.
void savePreset(const Preset& preset);

/// Asks for a file, runs `before`, and reads the entries. A colour that is missing or no number ends the
/// reading; what was read before it stays. Returns whether all was read; false too when the dialog was
/// cancelled.
[[nodiscard]] bool loadPreset(const Preset& preset, const std::function<void()>& before = nullptr);

} // namespace brindlemark
