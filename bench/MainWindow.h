// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppPath.h"
#include "shell/FrmWeb.h"
#include "web/WebEngine.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace brindlemark {

/// The `main()` of benchmarks that need the main window: on a copy of the settings that ship, and without a
/// display.
template <typename Body>
int withMainWindow(int argc, char* argv[], Body body)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    prepareWebEngine();
    const QApplication app(argc, argv);
    const QTemporaryDir folder(QDir::current().filePath(QStringLiteral("settings-XXXXXX"))); // no memory disk
    for (const QFileInfo& file : QDir(QStringLiteral(SHIPPED_DATA)).entryInfoList({QStringLiteral("*.ini")}))
        QFile::copy(file.filePath(), folder.filePath(file.fileName()));
    setAppPath(folder.path());
    form<FrmWeb>()->Show();
    QApplication::processEvents();
    body();
    delete form<FrmWeb>();
    return 0;
}

} // namespace brindlemark
