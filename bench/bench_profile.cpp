#include "platform/Files.h"
#include "services/Profile.h"
#include "services/Text.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

// Settings are read from the file at each use, so one read must cost next to nothing, also of a file in which
// a user has saved many table styles. The peers are the toolkit's own ways of doing the same.

namespace {

const QString section = QStringLiteral("Color");
const QString key = QStringLiteral("back");
const QString value = QStringLiteral("16777215");

/// About 200 KB of saved styles, and the section that is asked for behind them.
QByteArray profile()
{
    QByteArray bytes;
    for (int set = 0; bytes.size() < 200'000; ++set) {
        bytes += "[Set" + QByteArray::number(set) + "]\r\n";
        for (int entry = 1; entry <= 22; ++entry)
            bytes += "key" + QByteArray::number(entry) + "=some value " + QByteArray::number(set) + "\r\n";
    }
    return bytes + "\r\n[" + section.toUtf8() + "]\r\none=255\r\n" + key.toUtf8() + '=' + value.toUtf8() +
           "\r\n";
}

class ProfileFile : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State& /*state*/) override { writeFile(path(), profile()); }
    QString path() const { return m_folder.filePath(QStringLiteral("web.ini")); }

    static void check(benchmark::State& state, const QString& read)
    {
        if (read != value)
            state.SkipWithError("the value was not found");
    }

    /// Makes the file look changed.
    void touch()
    {
        QFile file(path());
        m_time = m_time.addSecs(1);
        if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(m_time, QFileDevice::FileModificationTime))
            qFatal("the file can't be touched");
    }

private:
    QTemporaryDir m_folder;
    QDateTime m_time = QDateTime::currentDateTime();
};

BENCHMARK_DEFINE_F(ProfileFile, ReadProfile)(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state)
        check(state, ReadProfile(section, key, path()));
}

QString settingsValue(const QString& path)
{
    return QSettings(path, QSettings::IniFormat).value(section + u'/' + key).toString();
}

/// The peer keeps what it has parsed: this is a look at a file that nobody has changed.
BENCHMARK_DEFINE_F(ProfileFile, PeerSettingsKept)(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state)
        check(state, settingsValue(path()));
}

/// The like of ReadProfile: the file is read, because it has changed.
BENCHMARK_DEFINE_F(ProfileFile, PeerSettingsRead)(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        touch();
        state.ResumeTiming();
        check(state, settingsValue(path()));
    }
}

BENCHMARK_DEFINE_F(ProfileFile, WriteProfile)(benchmark::State& state)
{
    int number = 0;
    for ([[maybe_unused]] auto _ : state)
        WriteProfile(section, key, QString::number(++number), path());
}

QByteArray textWithHits(benchmark::State& state)
{
    return QByteArray("A line of text\r").repeated(state.range(0));
}

void ReplaceAllHits(benchmark::State& state)
{
    const QByteArray text = textWithHits(state);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(ReplaceAll(text, "\r", "+chr13+"));
    state.SetComplexityN(state.range(0));
}

void PeerReplace(benchmark::State& state)
{
    const QByteArray text = textWithHits(state);
    for ([[maybe_unused]] auto _ : state) {
        QByteArray changed = text;
        benchmark::DoNotOptimize(changed.replace("\r", "+chr13+"));
    }
    state.SetComplexityN(state.range(0));
}

} // namespace

BENCHMARK_REGISTER_F(ProfileFile, ReadProfile)->Unit(benchmark::kMicrosecond);
BENCHMARK_REGISTER_F(ProfileFile, PeerSettingsKept)->Unit(benchmark::kMicrosecond);
BENCHMARK_REGISTER_F(ProfileFile, PeerSettingsRead)->Unit(benchmark::kMicrosecond);
BENCHMARK_REGISTER_F(ProfileFile, WriteProfile)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReplaceAllHits)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);
BENCHMARK(PeerReplace)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
