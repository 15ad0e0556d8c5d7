// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace brindlemark {

/// Shows the hourglass pointer while it lives.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace brindlemark
