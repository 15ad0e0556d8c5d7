// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/WindowLayout.h"

namespace {

/// Sets a height or a width, unless the window has become too small for it.
void setSize(int& size, int value)
{
    if (value >= 0)
        size = value;
}

} // namespace

WindowLayout resized(WindowLayout layout, int width, int height)
{
    TwipsRect& tab = layout.SSTab1;
    tab.Top = layout.Toolbar1.Height + layout.Toolbar1.Top + 50;
    setSize(tab.Height, height - tab.Top - 680);
    setSize(tab.Width, width - 90);

    const auto setFrame = [&tab](TwipsRect& frame, int top) {
        setSize(frame.Height, tab.Height - top - 200);
        setSize(frame.Width, tab.Width - 250);
    };
    setFrame(layout.Frame1, layout.Frame1.Top);
    setFrame(layout.Frame2, layout.Frame2.Top);
    setFrame(layout.Frame3, layout.Frame2.Top); // ends level with the design surface's frame

    const auto setView = [&tab](TwipsRect& view, int below) {
        setSize(view.Height, tab.Height - view.Top - below);
        setSize(view.Width, tab.Width - 500);
    };
    setView(layout.RichTextBox1, 700);
    setView(layout.Picture1, 700);
    setView(layout.WebBrowser1, 700);
    setView(layout.WebBrowser3, 700);
    setView(layout.WebBrowser2, 950); // leaves a line for the status text

    layout.Label1.Top = layout.WebBrowser2.Height + 500;
    setSize(layout.Label1.Width, layout.WebBrowser2.Width - 1700);

    layout.ProgressBar1.Left = layout.Label1.Width + 150;
    layout.ProgressBar1.Top = layout.WebBrowser2.Height + 500;
    return layout;
}
