// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace brindlemark {

/// The toolbar's buttons, from left to right. What each shows and does stands in one table in FrmWeb.cpp;
/// which window opens for those without a menu entry, in app/Openings.cpp.
enum class Tool {
    New,
    Open,
    Save,
    SaveAs,
    Cut,
    Copy,
    Paste,
    Find,
    Highlight,
    Unhighlight,
    HighlightColor,
    Create,
    Body,
    Font,
    Picture,
    Table,
    List,
    Rule,
};

inline constexpr size_t ToolCount = size_t(Tool::Rule) + 1;

} // namespace brindlemark
