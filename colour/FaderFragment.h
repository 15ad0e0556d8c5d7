// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

// What the fader makes of its settings. Nothing is escaped or checked: texts and sizes go out as they are.

/// How the fader colours its text.
enum class FaderMode {
    OneColor,  ///< all of it alike
    TwoColors, ///< characters in turn
    FiveFade,  ///< a fade over five colours
};

enum class FaderAlign { None, Left, Center, Right };

/// The settings of the fader. Colours are `#RRGGBB`.
struct FaderSettings
{
    FaderMode mode = FaderMode::OneColor;
    QString text;        ///< the text to style
    QString fadedText;   ///< the same as the fade engine made it, for `FiveFade`
    QString textColor;   ///< for `OneColor`
    QString firstColor;  ///< for `TwoColors`
    QString secondColor; ///< likewise
    QString fontFace;
    QString size; ///< HTML font size, "1" to "7"; may be empty

    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeout = false;

    bool highlighted = false;
    QString highlightColor;

    bool inTable = false;                ///< in a table of one cell, whose look follows
    bool borderColored = false;          ///< whether `borderColor` is written
    FaderAlign table = FaderAlign::None; ///< where the table stands
    FaderAlign cell = FaderAlign::None;  ///< where the text stands in it
    QString borderColor;
    QString tableColor; ///< background of the table
    QString cellColor;  ///< background of the cell
    QString border;
    QString cellPadding;
    QString cellSpacing;
    QString width;  ///< with its unit
    QString height; ///< with its unit

    QString linkOpen;  ///< opening tag of a link, or empty
    QString linkClose; ///< closing tag of a link, or empty
};

/// What a fragment is made for. Fragments differ a little by it. So meant: a page tells how it was made.
enum class FaderUser {
    Sample,      ///< the sample of the tool
    Copy,        ///< the clipboard
    Add,         ///< the caret of the source box
    Description, ///< the descriptions of a listing page
};

/// The fragment for one of its uses.
QString faderBody(const FaderSettings& settings, FaderUser user);

/// What goes to the clipboard or to the caret: the fragment, in a paragraph if wanted, and a line end.
QString faderText(const QString& body, bool paragraph);

} // namespace brindlemark
