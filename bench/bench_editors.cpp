// SPDX-License-Identifier: GPL-3.0-or-later

// The program beside other editors, each started on the same virtual display: what a start costs in
// processor time, and how much memory it leaves in use. When a window of another program can be used can't be
// told from outside, so that no times on the clock are compared.

#include "Measure.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <csignal>
#include <unistd.h>

using namespace brindlemark;

namespace {

constexpr int RestLasts = 2000; // ms without work that count as the end of the start; the splash lasts less
constexpr int StartLimit = 60'000; // ms

/// A program and all that it has started, which are one session of the system.
class Session
{
public:
    explicit Session(const QString& program)
    {
        QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
        surroundings.insert(QStringLiteral("HOME"), m_home.path());
        for (const char* folder : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
            surroundings.remove(QString::fromLatin1(folder));
        m_process.setProcessEnvironment(surroundings);
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.setChildProcessModifier([] { ::setsid(); });
        m_process.start(program, {});
        require(m_process.waitForStarted(), "an editor can't be started");
    }
    ~Session()
    {
        for (const qint64 process : processes())
            ::kill(static_cast<pid_t>(process), SIGKILL);
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Session)

    /// Waits until the start is over. Milliseconds of processor time that it took.
    double untilRest()
    {
        const QDeadlineTimer limit(StartLimit);
        double used = 0;
        QDeadlineTimer rest(RestLasts);
        while (!rest.hasExpired() && !limit.hasExpired()) {
            QThread::msleep(50);
            const double now = processorTime();
            if (now > used)
                rest.setRemainingTime(RestLasts);
            used = now;
        }
        require(hasWindow(), "an editor shows no window");
        return used;
    }

    /// Memory in use, in MB; what several processes share counts once.
    double memory() const
    {
        double kilobytes = 0;
        for (const qint64 process : processes()) {
            const QList<QByteArray> lines = read(process, "smaps_rollup").split('\n');
            for (const QByteArray& line : lines) {
                if (line.startsWith("Pss:"))
                    kilobytes += line.mid(4).trimmed().split(' ').front().toDouble();
            }
        }
        return kilobytes * 1.024e-3;
    }

private:
    static QByteArray read(qint64 process, const char* what)
    {
        QFile file(QStringLiteral("/proc/%1/%2").arg(process).arg(QLatin1String(what)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// What /proc/<process>/stat tells behind the name, which may hold blanks. The state is the first field.
    static QList<QByteArray> state(qint64 process)
    {
        const QByteArray line = read(process, "stat");
        return line.mid(line.lastIndexOf(')') + 2).split(' ');
    }

    QList<qint64> processes() const
    {
        constexpr int sessionField = 3;
        QList<qint64> found;
        for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
            const qint64 process = name.toLongLong();
            if (process > 0 && state(process).value(sessionField).toLongLong() == m_process.processId())
                found << process;
        }
        return found;
    }

    double processorTime() const
    {
        constexpr int firstTimeField =
            11; // of the process in user and in system mode, and of its ended children
        double ticks = 0;
        for (const qint64 process : processes()) {
            const QList<QByteArray> fields = state(process);
            for (int field = firstTimeField; field < firstTimeField + 4; ++field)
                ticks += fields.value(field).toDouble();
        }
        return ticks * 1000 / double(::sysconf(_SC_CLK_TCK));
    }

    bool hasWindow() const
    {
        const QList<qint64> all = processes();
        return std::any_of(all.begin(), all.end(), [](qint64 process) {
            QProcess search;
            search.start(QStringLiteral("xdotool"),
                         {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--pid"),
                          QString::number(process)});
            return search.waitForFinished() && !search.readAllStandardOutput().isEmpty();
        });
    }

    QTemporaryDir m_home;
    QProcess m_process;
};

/// Ours and those of the others that are installed, each started by `start`.
std::vector<Rival> rivals(const QString& ours, double (*start)(const QString& program))
{
    std::vector<Rival> all = {{Role::Ours, "Brindlemark", [=] { return start(ours); }}};
    for (const char* name : {"bluefish", "geany", "mousepad", "featherpad"}) {
        const QString program = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!program.isEmpty())
            all.push_back({Role::Peer, name, [=] { return start(program); }});
    }
    return all;
}

double processorTime(const QString& program)
{
    return Session(program).untilRest();
}

double memory(const QString& program)
{
    Session session(program);
    session.untilRest();
    return session.memory();
}

} // namespace

/// bench_editors <the program>
int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    require(argc == 2, "usage: bench_editors <the program>");
    const QString ours = QFile::decodeName(argv[1]);
    measure({"Beside other editors", "Processor time of a start", {}, rivals(ours, processorTime)});
    measure({"Beside other editors", "Memory after the start", {.most = 63}, rivals(ours, memory), "MB"});
    return 0;
}
