// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/TableReadBack.h"

#include "shell/SurfaceCommands.h"

#include <array>

namespace brindlemark {

namespace {

using Cut = std::optional<QString>;

/// The text behind the first occurrence of a name and `more` characters more, without blanks around it. No
/// value when the name is missing.
Cut behind(const Cut& text, const char* name, qsizetype more = 0)
{
    if (!text)
        return std::nullopt;
    const qsizetype place = text->indexOf(QLatin1String(name));
    if (place < 0)
        return std::nullopt;
    return text->mid(place + qsizetype(qstrlen(name)) + more).trimmed();
}

/// The text up to `less` characters in front of the first occurrence of a name, without blanks around it. No
/// value when the name is missing or there are fewer characters in front of it.
Cut before(const Cut& text, const char* name, qsizetype less = 0)
{
    if (!text)
        return std::nullopt;
    const qsizetype end = text->indexOf(QLatin1String(name)) - less;
    if (end < 0)
        return std::nullopt;
    return text->left(end).trimmed();
}

/// The background colour of a cell; that of a spanning cell comes without its "#". The test looks at the
/// cell's tag alone, since its word may hold "colSpan=2" too.
Cut cellColor(const QString& cell)
{
    if (cell.left(cell.indexOf(u'>')).contains(QStringLiteral("colSpan=2")))
        return before(behind(cell, "bgcolor=", 1), "colSpan=", 1);
    return before(behind(cell, "bgcolor="), "width=", 1);
}

std::optional<TableAlign> alignOf(const Cut& word)
{
    struct Word
    {
        const char* lower;
        const char* capital;
        TableAlign align;
    };
    static constexpr std::array<Word, 3> Words = {{{"left", "Left", TableAlign::Left},
                                                   {"center", "Center", TableAlign::Center},
                                                   {"right", "Right", TableAlign::Right}}};
    for (const Word& entry : Words) {
        if (word && (*word == QLatin1String(entry.lower) || *word == QLatin1String(entry.capital)))
            return entry.align;
    }
    return std::nullopt;
}

/// The styles whose opening tags are exactly `tags`.
std::optional<TableReadBack::Styles> stylesOf(const Cut& tags)
{
    for (const bool bold : {false, true}) {
        for (const bool italic : {false, true}) {
            for (const bool underline : {false, true}) {
                CellStyle style;
                style.bold = bold;
                style.italic = italic;
                style.underline = underline;
                if (tags == styleTags(style, "<"))
                    return TableReadBack::Styles{bold, italic, underline};
            }
        }
    }
    return std::nullopt;
}

Cut sizeText(const Cut& htmlSize)
{
    const char* text = htmlSize ? fontSizeText(*htmlSize) : nullptr;
    return text ? Cut(QLatin1String(text)) : std::nullopt;
}

} // namespace

TableReadBack readBack(const QString& cell)
{
    return {
        .cellColor = cellColor(cell),
        .width = before(behind(cell, "width="), "height="),
        .height = before(behind(cell, "height="), "align=", 1),
        .align = alignOf(before(behind(cell, "align="), ">")),
        .styles = stylesOf(behind(before(cell, "<Font"), ">")),
        .fontFace = before(behind(cell, "face="), "size=", 1),
        .sizeText = sizeText(before(behind(cell, "size="), "color=", 1)),
        .fontColor = before(behind(behind(cell, "<Font"), "color=", 1), ">"),
    };
}

} // namespace brindlemark
