// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// A control's place within its parent, in twips (1/15 of a logical pixel).
struct TwipsRect
{
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const TwipsRect&) const = default;
};

/// Where the controls of the main window stand that follow the window's size.
struct WindowLayout
{
    TwipsRect Toolbar1;
    TwipsRect SSTab1;
    TwipsRect Frame1;
    TwipsRect Frame2;
    TwipsRect Frame3;
    TwipsRect RichTextBox1;
    TwipsRect Picture1;
    TwipsRect WebBrowser1;
    TwipsRect WebBrowser2;
    TwipsRect WebBrowser3;
    TwipsRect Label1;
    TwipsRect ProgressBar1;
};

/// The layout of a main window that has become `width` by `height` twips. Each line uses what the lines
/// before it have set; a line whose size comes out negative is skipped and leaves its control as it was.
WindowLayout resized(WindowLayout layout, int width, int height);
