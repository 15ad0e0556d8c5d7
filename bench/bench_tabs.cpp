// Changes to the tab Preview as the user waits for them: the first after the program's start (a process of
// its own for each) and later ones, with a page of 100 KB.

#include "platform/AppPath.h"
#include "platform/WebEngine.h"
#include "shell/FrmWeb.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <benchmark/benchmark.h>
#include <iostream>

namespace {

QByteArray listing(qsizetype length)
{
    QByteArray text = "<HTML><BODY><TABLE border=1>\r\n";
    while (text.size() < length)
        text += "<TR><TD width=\"40%\"><FONT face=Arial color=#804000>Words of a listing</FONT><TD>more<!-- "
                "note -->\r\n";
    return text + "</TABLE></BODY></HTML>\r\n";
}

/// Milliseconds of one change to Preview.
double changeToPreview(FrmWeb* main)
{
    main->SSTab1->setTab(FrmWeb::EditorTab);
    main->RichTextBox1->setText(listing(100000));
    QElapsedTimer clock;
    clock.start();
    main->SSTab1->setTab(FrmWeb::PreviewTab);
    return double(clock.nsecsElapsed()) / 1e6;
}

void laterChange(benchmark::State& state)
{
    auto* main = form<FrmWeb>();
    changeToPreview(main);
    for (auto _ : state) {
        const double milliseconds = changeToPreview(main);
        state.SetIterationTime(milliseconds / 1e3);
        for (int i = 0; i < 50; ++i) // the page is painted, the user reads
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

void firstChange(benchmark::State& state)
{
    for (auto _ : state) {
        QProcess probe;
        probe.start(QCoreApplication::applicationFilePath(), {QStringLiteral("first")});
        probe.waitForFinished();
        state.SetIterationTime(probe.readAllStandardOutput().toDouble() / 1e3);
    }
}

BENCHMARK(firstChange)
    ->Name("tab: first change to Preview")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(laterChange)
    ->Name("tab: later change to Preview, 100 KB")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    prepareWebEngine();
    QApplication app(argc, argv);
    setAppPath(QStringLiteral(SHIPPED_DATA));
    form<FrmWeb>()->Show();
    if (argc > 1 && QByteArray(argv[1]) == "first") {
        QCoreApplication::processEvents();
        std::cout << changeToPreview(form<FrmWeb>());
        delete form<FrmWeb>();
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    delete form<FrmWeb>();
    return 0;
}
