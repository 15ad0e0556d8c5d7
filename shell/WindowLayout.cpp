// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/WindowLayout.h"

namespace brindlemark {

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
    TwipsRect& tab = layout.tabs;
    tab.Top = layout.toolbar.Height + layout.toolbar.Top + 50;
    setSize(tab.Height, height - tab.Top - 680);
    setSize(tab.Width, width - 90);

    const auto setFrame = [&tab](TwipsRect& frame, int top) {
        setSize(frame.Height, tab.Height - top - 200);
        setSize(frame.Width, tab.Width - 250);
    };
    setFrame(layout.editorFrame, layout.editorFrame.Top);
    setFrame(layout.designFrame, layout.designFrame.Top);
    setFrame(layout.internetFrame, layout.designFrame.Top); // ends level with the design surface's frame

    const auto setView = [&tab](TwipsRect& view, int below) {
        setSize(view.Height, tab.Height - view.Top - below);
        setSize(view.Width, tab.Width - 500);
    };
    setView(layout.source, 700);
    setView(layout.cover, 700);
    setView(layout.designSurface, 700);
    setView(layout.preview, 700);
    setView(layout.browser, 950); // leaves a line for the status text

    layout.status.Top = layout.browser.Height + 500;
    setSize(layout.status.Width, layout.browser.Width - 1700);

    layout.progress.Left = layout.status.Width + 150;
    layout.progress.Top = layout.browser.Height + 500;
    return layout;
}

} // namespace brindlemark
