// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// What the fader makes of its settings. Nothing is escaped or checked: texts and sizes go out as they are.

/// How the fader colours its text.
enum class FaderMode {
    OneColor,  ///< all of it alike
    TwoColors, ///< characters in turn
    FiveFade,  ///< a fade over five colours
};

enum class FaderAlign { None, Left, Center, Right };

/// The settings of the fader, under the names of its controls. Colours are colour texts (`#RRGGBB`).
struct FaderSettings
{
    FaderMode mode = FaderMode::OneColor;
    QString Text1;  ///< the text to style
    QString Text2;  ///< the same as the fade engine made it, for `FiveFade`
    QString Text8;  ///< the colour for `OneColor`
    QString TxtC1;  ///< the first colour for `TwoColors`
    QString TxtC2;  ///< the second
    QString Combo1; ///< font name
    QString size;   ///< HTML font size, "1" to "7"; may be empty

    bool chkBold = false;
    bool chkItalic = false;
    bool chkUnderline = false;
    bool chkStrikeout = false;

    bool Check1 = false; ///< highlighted
    QString Text5;       ///< in this colour

    bool Check7 = false;                 ///< in a table of one cell
    bool ChkNoB = false;                 ///< whose border has a colour
    FaderAlign table = FaderAlign::None; ///< where the table stands
    FaderAlign cell = FaderAlign::None;  ///< where the text stands in it
    QString Text20;                      ///< border colour
    QString Text13;                      ///< background of the table
    QString Text17;                      ///< background of the cell
    QString Combo6;                      ///< border
    QString Combo3;                      ///< cell padding
    QString Combo5;                      ///< cell spacing
    QString Combo9;                      ///< width, with its unit
    QString Combo8;                      ///< height, with its unit

    QString Hlink;  ///< opening tag of a link, or empty
    QString Hlink2; ///< closing tag of a link, or empty
};

/// Who asks for the fragment. Their fragments differ a little; readers of the pages tell by it who made them.
enum class FaderUser {
    Sample,      ///< `Command8`
    Copy,        ///< `Command16`
    Add,         ///< `Command2`
    Description, ///< `Command15`
};

/// The fragment for one of its users.
QString faderBody(const FaderSettings& settings, FaderUser user);

/// What goes to the clipboard or to the caret: the fragment, in a paragraph if wanted, and a line end.
QString faderText(const QString& body, bool paragraph);
