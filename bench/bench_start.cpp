// Process start to a letter typed into the source box, the splash left out.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <benchmark/benchmark.h>

namespace {

void startUp(benchmark::State& state, const QStringList& arguments)
{
    const QString probe = QCoreApplication::applicationDirPath() + QStringLiteral("/start_probe");
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        if (QProcess::execute(probe, arguments) != 0)
            state.SkipWithError("the probe failed");
        state.SetIterationTime(double(clock.nsecsElapsed()) / 1e9);
    }
}

void brindlemark(benchmark::State& state)
{
    startUp(state, {});
}

void bareComponent(benchmark::State& state)
{
    startUp(state, {QStringLiteral("bare")});
}

BENCHMARK(brindlemark)
    ->Name("start/brindlemark")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(bareComponent)
    ->Name("start/bare component")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
