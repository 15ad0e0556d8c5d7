// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace brindlemark {

/// A stretch of text, in bytes.
struct TextRange
{
    qsizetype start = 0;
    qsizetype length = 0;

    qsizetype end() const { return start + length; }
    bool operator==(const TextRange&) const = default;
};

/// A stretch of one colour (a colour number, 0x00BBGGRR); 0, black, is the text's own.
struct ColorRun
{
    TextRange range;
    int color = 0;
};

} // namespace brindlemark
