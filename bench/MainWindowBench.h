#pragma once

#include "platform/AppPath.h"
#include "platform/WebEngine.h"
#include "shell/FrmWeb.h"

#include <QApplication>
#include <benchmark/benchmark.h>

/// The `main()` of benchmarks that need the main window, on the settings that ship and without a display.
inline int runWithMainWindow(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    prepareWebEngine();
    const QApplication app(argc, argv);
    setAppPath(QStringLiteral(SHIPPED_DATA));
    form<FrmWeb>()->Show();
    QApplication::processEvents();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    delete form<FrmWeb>();
    return 0;
}
