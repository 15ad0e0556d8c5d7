// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "Monkey.h"
#include "RandomDoors.h"
#include "Rules.h"
#include "Shrink.h"
#include "app/Openings.h"
#include "platform/AppPath.h"
#include "platform/DesktopLook.h"
#include "platform/Events.h"
#include "web/WebEngine.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QNetworkProxy>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <atomic>
#include <iostream>
#include <malloc.h>
#include <thread>
#include <unistd.h>

using namespace brindlemark;

// A user who acts by chance on the whole program, for as long as wanted. The user is a child process: the
// parent sees how it ends, and shrinks the list of its actions until no more can go.

namespace {

/// How a child ends.
enum Exit { Fine = 0, Found = 3 };

constexpr const char* Screen =
    R"({"screens": [{"name": "Screen", "x": 0, "y": 0, "width": 1366, "height": 768,
    "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";

/// The engine of Qt 6.4 ends so now and then when a view goes.
constexpr const char* EngineCrash = "pure virtual method called";

struct Options
{
    quint32 seed = 0;
    int seconds = 60;
    int patience = 5; ///< seconds that an action may take
    QString replay;   ///< the file of actions, or empty
    QString log;      ///< where the child puts its actions
    QString found;    ///< where the child puts what it finds
};

// ---- The child -------------------------------------------------------------------------------------------

double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / (1 << 20);
}

double resident()
{
    QFile pages(QStringLiteral("/proc/self/statm"));
    const QList<QByteArray> numbers =
        pages.open(QIODevice::ReadOnly) ? pages.readAll().split(' ') : QList<QByteArray>();
    return numbers.size() < 2 ? 0 : numbers[1].toDouble() * double(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

/// Milliseconds that this process's first thread would have run and other programs ran instead.
qint64 kept()
{
    QFile times(QStringLiteral("/proc/self/schedstat"));
    const QList<QByteArray> numbers =
        times.open(QIODevice::ReadOnly) ? times.readAll().split(' ') : QList<QByteArray>();
    return numbers.size() < 2 ? 0 : numbers[1].toLongLong() / 1'000'000;
}

/// A program folder with what ships, and the documents of a seller in a folder below it.
class SellersFolder
{
public:
    SellersFolder()
    {
        QDir folder(path());
        for (const char* name : {"documents", "presets", "home"})
            folder.mkdir(QString::fromLatin1(name));
        for (const char* name : {"web.ini", "Help0.htm", "weblst.ini", "weblst2.ini", "weblst3.ini",
                                 "webstyle.ini", "webstyle2.ini"})
            take(QStringLiteral(SOURCE_DIR "/data/") + QString::fromLatin1(name), path());
        QFile::link(QStringLiteral(SOURCE_DIR "/data/help"), path() + QStringLiteral("/help"));
        const QDir pages(QStringLiteral(TEST_DATA "/pages"));
        for (const QString& name : pages.entryList(QDir::Files))
            take(pages.filePath(name), documents());
        take(QStringLiteral(SOURCE_DIR "/data/demo/lamp.svg"), documents());
        write(QStringLiteral("latin.htm"), "<P>caf\xE9 \x80 5\r\n<P>\xA9");
        write(QStringLiteral("empty.htm"), "");
        write(QStringLiteral("long.htm"), QByteArray("<P>a word and <B>another</B></P>\r\n").repeated(3000));
        setAppPath(path());
        qputenv("HOME", QFile::encodeName(path() + QStringLiteral("/home")));
    }

    QString path() const { return m_folder.path(); }
    QString documents() const { return path() + QStringLiteral("/documents"); }
    QString presets() const { return path() + QStringLiteral("/presets"); }

private:
    static void take(const QString& file, const QString& to)
    {
        const QString name = to + u'/' + file.section(u'/', -1);
        if (!QFile::copy(file, name) || !QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner))
            qFatal("%s can't be copied", qPrintable(file));
    }
    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(documents() + u'/' + name);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s can't be written", qPrintable(name));
    }

    QTemporaryDir m_folder;
};

/// Takes addresses that the desktop would open.
class NoDesktop : public QObject
{
    Q_OBJECT

public:
    NoDesktop()
    {
        for (const char* scheme : Schemes)
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "take");
    }
    ~NoDesktop() override
    {
        for (const char* scheme : Schemes)
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
    Q_DISABLE_COPY_MOVE(NoDesktop)

public slots:
    void take(const QUrl&) {}

private:
    static constexpr std::array Schemes = {"http", "https", "mailto", "file", "ftp"};
};

/// The program from its start to its end, in a folder that may outlive it.
class Run : public QObject
{
public:
    explicit Run(const Options& options) : m_options(options), m_log(options.log)
    {
        if (!m_options.replay.isEmpty())
            m_replay = readActions(m_options.replay).value_or(QList<Action>());
        if (!m_log.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("the actions can't be written down");
        m_random = Random(m_options.seed);
        m_clock.start();
        connect(&m_within, &QTimer::timeout, this, [this] { actWithin(); });
        m_within.start(40);
        // Who hangs can't tell so.
        std::thread([this] {
            for (qint64 last = -1; m_count != last;) {
                last = m_count;
                std::this_thread::sleep_for(std::chrono::seconds(90));
            }
            end(QStringLiteral("wait: it hangs"));
        }).detach();
    }

    void go()
    {
        start();
        std::optional<std::pair<double, double>> quarter; // the engine is up and all windows have been seen
        while (const std::optional<Action> action = next()) {
            act(*action);
            if (!quarter && m_clock.elapsed() > qint64(m_options.seconds) * 250)
                quarter = {heapInUse(), resident()};
        }
        finish();
        std::cout << m_count << " actions, " << m_clock.elapsed() / 1000 << " s, " << m_starts << " starts";
        if (quarter)
            std::cout << ", from the first quarter on heap " << int(quarter->first) << " -> "
                      << int(heapInUse()) << " MiB, resident " << int(quarter->second) << " -> "
                      << int(resident()) << " MiB";
        std::cout << std::endl;
    }

private:
    /// Tells what was found, and ends the process.
    [[noreturn]] void end(const QString& what)
    {
        QFile found(m_options.found);
        if (found.open(QIODevice::WriteOnly))
            found.write(what.toUtf8());
        found.close();
        _exit(Found);
    }

    void verify(const QString& wrong)
    {
        if (!wrong.isEmpty())
            end(wrong);
    }

    std::optional<Action> next()
    {
        if (!m_options.replay.isEmpty())
            return m_replay.isEmpty() ? std::nullopt : std::optional(m_replay.takeFirst());
        if (m_clock.elapsed() > qint64(m_options.seconds) * 1000)
            return std::nullopt;
        return m_monkey->choose(m_random);
    }

    void start()
    {
        for (int tries = 0; !isLoaded<FrmWeb>(); ++tries) {
            if (tries == 3)
                end(QStringLiteral("start: the program does not start in a folder as it ships"));
            if (tries > 0 || !m_folder)
                m_folder = std::make_unique<SellersFolder>();
            m_doors.reset();
            m_doors = std::make_unique<RandomDoors>(m_folder->documents(), m_folder->presets());
            m_monkey = std::make_unique<Monkey>(m_folder->documents());
            m_rules = std::make_unique<Rules>(m_folder->documents());
            ++m_starts;
            guarded([] {
                auto* web = form<FrmWeb>();
                connectOpenings(web);
                web->Show();
                web->offerUnsavedText();
            });
            verifyFatal();
        }
        if (!QTest::qWaitForWindowExposed(form<FrmWeb>(), 20000))
            end(QStringLiteral("start: the main window does not come up"));
    }

    void verifyFatal()
    {
        if (!m_doors->fatal.isEmpty() && !Rules::isKnown(m_doors->fatal))
            end(QStringLiteral("fatal: ") + m_doors->fatal);
    }

    void act(const Action& action)
    {
        ++m_count;
        m_log.write(toText(action).toLatin1() + '\n');
        m_doors->answerBy(action.answers);
        m_rules->before();
        m_since.start();
        m_waits = action.verb == QStringLiteral("type") ? 3000 : 400;
        waitBegins();
        const bool outermost = !std::exchange(m_acts, true);
        const QString wrong = m_monkey->perform(action);
        QCoreApplication::processEvents();
        if (outermost)
            m_acts = false;
        waitEnds();
        verify(wrong);
        verifyFatal();
        if (!outermost)
            return;
        if (m_doors->ended)
            restart();
        else
            verify(m_rules->after(action.verb == QStringLiteral("doubleclick")));
    }

    void waitBegins()
    {
        m_blocked.start();
        m_keptBefore = kept();
    }

    /// The user can act again.
    void waitEnds()
    {
        // What other programs took meanwhile is not this one's.
        const qint64 took = m_blocked.elapsed() - (kept() - m_keptBefore);
        if (took > qint64(m_options.patience) * 1000)
            end(QStringLiteral("wait: an action takes %1 ms").arg(took));
        waitBegins();
    }

    /// Goes on where an action waits in an event loop for the user: an open menu, a drag.
    void actWithin()
    {
        if (!m_acts || EngineWait::isUnderWay() || QGuiApplication::overrideCursor())
            return;
        waitEnds();
        if (m_since.elapsed() < m_waits)
            return;
        if (const std::optional<Action> action = next())
            act(*action);
        else
            Monkey::letGo();
        m_since.start();
    }

    /// The program has ended: the windows that are left go with it, and it starts again.
    void restart()
    {
        Monkey::letGo();
        const bool failed = !m_doors->fatal.isEmpty();
        unloadAll();
        const QString strange = Rules::strangeFiles(m_folder->path());
        if (!strange.isEmpty())
            end(QStringLiteral("file: left in the program's folder: ") + strange);
        if (failed)
            m_folder.reset();
        start();
    }

    /// Closes all windows, the main window last.
    void finish()
    {
        Monkey::letGo();
        m_doors->leave(true);
        for (int tries = 0; tries < 4; ++tries) {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (qobject_cast<Form*>(window) && !qobject_cast<FrmWeb*>(window) && window->isVisible())
                    QPointer<QWidget>(window)->close();
            }
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
        }
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (qobject_cast<const Form*>(window) && !qobject_cast<const FrmWeb*>(window) &&
                window->isVisible())
                end(QStringLiteral("close: %1 stays").arg(windowName(window)));
        }
        for (int tries = 0; tries < 3 && !m_doors->ended; ++tries) {
            form<FrmWeb>()->close();
            QCoreApplication::processEvents();
        }
        // A Cancel is meant to hold until another question, and what was saved since then brings none.
        const FrmWeb* web = loaded<FrmWeb>();
        if (!m_doors->ended && !(web && web->SaveCancelled() && !web->Dirty()))
            end(QStringLiteral("close: the main window stays"));
        verifyFatal();
        unloadAll();
        verify(m_rules->after());
    }

    Options m_options;
    QFile m_log;
    QList<Action> m_replay;
    Random m_random{0};
    QElapsedTimer m_clock;
    std::unique_ptr<SellersFolder> m_folder;
    std::unique_ptr<RandomDoors> m_doors;
    std::unique_ptr<Monkey> m_monkey;
    std::unique_ptr<Rules> m_rules;
    std::atomic<qint64> m_count = 0;
    int m_starts = 0;
    QTimer m_within;         // runs out also where an action waits
    QElapsedTimer m_since;   // the last action began
    int m_waits = 0;         // so many milliseconds later it waits for the user
    QElapsedTimer m_blocked; // since the user could act
    qint64 m_keptBefore = 0;
    bool m_acts = false;
};

int child(int argc, char** argv, const Options& options)
{
    prepareWebEngine();
    const QTemporaryDir own;
    const QString screen = own.filePath(QStringLiteral("screen"));
    if (QFile file(screen); file.open(QIODevice::WriteOnly))
        file.write(Screen);
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen")
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen));
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, QFile::encodeName(own.path()));
    watchWarnings();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    followDesktopLook();
    // Nothing leaves this computer.
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), 9));
    const NoDesktop noDesktop;
    takeWarning(); // of the start of toolkit and engine
    Run(options).go();
    return Fine;
}

// ---- The parent ------------------------------------------------------------------------------------------

/// How a child has ended.
struct Outcome
{
    QString found; ///< what is wrong; empty when nothing is
    QByteArray output;
    bool engineCrash = false;
};

class Parent
{
public:
    explicit Parent(const Options& options) : m_options(options) {}

    Outcome run(quint32 seed, int seconds) const
    {
        return outcome({QStringLiteral("--seed"), QString::number(seed), QStringLiteral("--seconds"),
                        QString::number(seconds)},
                       seconds + 180);
    }
    Outcome replay(const QList<Action>& actions) const
    {
        const QString path = m_folder.filePath(QStringLiteral("replay"));
        if (!writeActions(path, actions))
            qFatal("the actions can't be written");
        return outcome({QStringLiteral("--replay"), path}, 120 + int(actions.size()));
    }
    /// The actions of the last child.
    QList<Action> actions() const { return readActions(log()).value_or(QList<Action>()); }

private:
    QString log() const { return m_folder.filePath(QStringLiteral("actions")); }

    Outcome outcome(QStringList arguments, int seconds) const
    {
        const QString found = m_folder.filePath(QStringLiteral("found"));
        QFile::remove(found);
        arguments << QStringLiteral("--child") << QStringLiteral("--log") << log()
                  << QStringLiteral("--found") << found << QStringLiteral("--patience")
                  << QString::number(m_options.patience);
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(), arguments);
        const bool ended = process.waitForFinished(seconds * 1000);
        if (!ended) {
            process.kill();
            process.waitForFinished();
        }
        Outcome outcome;
        outcome.output = process.readAll();
        if (QFile file(found); file.open(QIODevice::ReadOnly))
            outcome.found = QString::fromUtf8(file.readAll());
        else if (!ended)
            outcome.found = QStringLiteral("wait: it does not end");
        else if (process.exitStatus() == QProcess::CrashExit || process.exitCode() != Fine)
            outcome.found = QStringLiteral("crash: it ends with %1").arg(process.exitCode());
        outcome.engineCrash =
            outcome.found.startsWith(QStringLiteral("crash")) && outcome.output.contains(EngineCrash);
        return outcome;
    }

    Options m_options;
    QTemporaryDir m_folder;
};

/// What makes two finds the same: all but their numbers.
QString kind(const QString& found)
{
    static const QRegularExpression number(QStringLiteral("\\d+|0x[0-9a-f]+"));
    return QString(found).replace(number, QStringLiteral("#"));
}

/// Tells what was found, and the shortest list of actions that finds it again.
void tell(const Parent& parent, quint32 seed, const Outcome& outcome)
{
    constexpr int Tries = 150;
    constexpr qint64 LongestShrinking = 180'000; // ms
    const QList<Action> all = parent.actions();
    std::cout << "seed " << seed << ", action " << all.size() << ": " << qPrintable(outcome.found) << "\n"
              << outcome.output.right(3000).constData() << std::endl;
    const QString path = QStringLiteral("monkey-%1.txt").arg(seed);
    if (writeActions(path, all))
        std::cout << "All of them: " << qPrintable(QDir().absoluteFilePath(path)) << std::endl;
    const QString wanted = kind(outcome.found);
    QElapsedTimer clock;
    clock.start();
    const auto fails = [&](const QList<Action>& part) {
        return clock.elapsed() < LongestShrinking && kind(parent.replay(part).found) == wanted;
    };
    QList<Action> list = all;
    if (fails(all)) {
        list = shrunk<Action>(all, fails, Tries);
        std::cout << "Again after " << list.size() << " of them (--replay <file> runs such a list):\n";
    } else {
        std::cout << "Not again with the same actions, of which these are the last:\n";
        list = all.last(qMin(qsizetype(30), all.size()));
    }
    for (const Action& action : list)
        std::cout << qPrintable(toText(action)) << "\n";
    std::cout << std::flush;
}

int parentMain(const Options& options)
{
    const Parent parent(options);
    if (!options.replay.isEmpty()) {
        const std::optional<QList<Action>> actions = readActions(options.replay);
        if (!actions) {
            std::cout << "no list of actions: " << qPrintable(options.replay) << std::endl;
            return 2;
        }
        const Outcome outcome = parent.replay(*actions);
        std::cout << outcome.output.constData() << "\n"
                  << qPrintable(outcome.found.isEmpty() ? QStringLiteral("nothing found") : outcome.found)
                  << std::endl;
        return outcome.found.isEmpty() ? 0 : 1;
    }
    const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    // A part of the time each, so that the folders of sellers vary.
    constexpr int Part = 120;
    for (quint32 seed = options.seed;; ++seed) {
        const int left = options.seconds - int(clock.elapsed() / 1000);
        if (left <= 0)
            return 0;
        const Outcome outcome = parent.run(seed, qMin(left, Part));
        if (outcome.engineCrash) {
            std::cout << "seed " << seed << ": the engine ends with \"" << EngineCrash
                      << "\", which is known\n";
            continue;
        }
        if (!outcome.found.isEmpty()) {
            tell(parent, seed, outcome);
            return 1;
        }
        std::cout << "seed " << seed << ": "
                  << outcome.output.right(200).trimmed().split('\n').last().constData() << std::endl;
    }
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Acts by chance on all windows of the program."));
    parser.addOptions({
        {QStringLiteral("seed"), QStringLiteral("Begins with this seed."), QStringLiteral("number")},
        {QStringLiteral("seconds"), QStringLiteral("How long."), QStringLiteral("number"),
         QStringLiteral("60")},
        {QStringLiteral("patience"), QStringLiteral("Seconds that an action may take."),
         QStringLiteral("number"), QStringLiteral("5")},
        {QStringLiteral("replay"), QStringLiteral("Does what is listed in a file."), QStringLiteral("file")},
        {QStringLiteral("child"), QStringLiteral("For the program itself, as the next two.")},
        {QStringLiteral("log"), QString(), QStringLiteral("file")},
        {QStringLiteral("found"), QString(), QStringLiteral("file")},
    });
    if (!parser.parse(arguments)) {
        std::cout << qPrintable(parser.errorText()) << "\n" << qPrintable(parser.helpText());
        return 2;
    }
    const Options options{
        .seed = parser.isSet(QStringLiteral("seed")) ? parser.value(QStringLiteral("seed")).toUInt()
                                                     : quint32(QDateTime::currentSecsSinceEpoch()),
        .seconds = parser.value(QStringLiteral("seconds")).toInt(),
        .patience = parser.value(QStringLiteral("patience")).toInt(),
        .replay = parser.value(QStringLiteral("replay")),
        .log = parser.value(QStringLiteral("log")),
        .found = parser.value(QStringLiteral("found")),
    };
    if (parser.isSet(QStringLiteral("child")))
        return child(argc, argv, options);
    const QCoreApplication application(argc, argv);
    return parentMain(options);
}

#include "tst_monkey.moc"
