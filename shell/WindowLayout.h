// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

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
    TwipsRect toolbar;
    TwipsRect tabs;
    TwipsRect editorFrame;
    TwipsRect designFrame;
    TwipsRect internetFrame;
    TwipsRect source;
    TwipsRect cover;
    TwipsRect designSurface;
    TwipsRect browser;
    TwipsRect preview;
    TwipsRect status;
    TwipsRect progress;
};

/// The layout of a main window that has become `width` by `height` twips. Each line uses what the lines
/// before it have set; a line whose size comes out negative is skipped and leaves its control as it was.
WindowLayout resized(WindowLayout layout, int width, int height);

} // namespace brindlemark
