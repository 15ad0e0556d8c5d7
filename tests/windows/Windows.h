// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MainWindow.h"

#include <QByteArrayList>
#include <span>

namespace brindlemark {

/// A window as a seller comes to see it: with something in it, and in front. For what must hold of all
/// windows.
struct WindowView
{
    const char* name; ///< unique, fit for a file name
    QWidget* (*show)(MainWindow& main);
};

/// All of them, in the order in which a day brings them.
std::span<const WindowView> windowViews();

/// The one of that name; fails the test where there is none.
const WindowView& viewOf(const QString& name);

/// Gives a test the column `index` and a row for each view but those named. The test asks `fetchedView`.
void addViews(const QByteArrayList& without = {});
/// The view of the row that runs.
const WindowView& fetchedView();

/// Connects a main window's openings, and puts the files of a seller beside the program. Once for each.
void prepareViews(MainWindow& main);

/// Opens a window by the road that a seller takes to it, over a main window that was just made, and waits
/// until it is in front.
QWidget* openView(const WindowView& view, MainWindow& main);

/// Lets this process's pictures load from "http://pictures.example/", as long as it lives: those of
/// data/demo.
class PictureHost
{
public:
    PictureHost();
    ~PictureHost();
    Q_DISABLE_COPY_MOVE(PictureHost)

private:
    class WebServer* m_server;
};

/// Gives the application the look that the environment asks for: WINDOWS_FONT, the size of the desktop's font
/// in points, and WINDOWS_PALETTE=dark.
void takeDesktopLook();

} // namespace brindlemark
