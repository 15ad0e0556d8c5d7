#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

// The program itself, in a folder of its own and on a real display, used with keys and mouse as on a first
// day: start, open, type, save, save as, close. Windows are found by their titles, results are read from
// files.

namespace {

constexpr int Patience = 20000; // milliseconds; wide, for a busy machine

const QString MainWindow = QStringLiteral("Untitled - Brindlemark 1.0");
const QString Box = QStringLiteral("Brindlemark");

/// What an xdotool command prints; empty when it fails.
QString xdotool(const QStringList& arguments)
{
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(Patience) || tool.exitCode() != 0)
        return QString();
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

/// A copy of the program with the files that ship beside it, running as long as the object lives.
class Program
{
public:
    Program()
    {
        copy(QStringLiteral(PROGRAM), QStringLiteral("brindlemark"));
        copy(QStringLiteral(SOURCE_DIR "/data/web.ini"), QStringLiteral("web.ini"));
        copy(QStringLiteral(SOURCE_DIR "/data/Help0.htm"), QStringLiteral("Help0.htm"));
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    }
    ~Program()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.kill();
        m_process.waitForFinished();
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    QString path(const QString& name) const { return m_folder.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    /// A file's bytes; a null array when there is none.
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void launch()
    {
        m_process.start(path(QStringLiteral("brindlemark")), QStringList());
        QVERIFY(m_process.waitForStarted());
    }
    /// Starts the program and waits for its main window.
    void start()
    {
        launch();
        QVERIFY2(activate(MainWindow), "no main window");
    }
    bool isRunning() { return !m_process.waitForFinished(0) && m_process.state() == QProcess::Running; }
    /// Waits for the program's end; -1 when it stays or crashes.
    int exitCode()
    {
        if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(Patience))
            return -1;
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    /// The number of the visible window with this title; empty when there is none.
    QString window(const QString& title) const
    {
        const QString pattern = u'^' + QRegularExpression::escape(title) + u'$';
        const QString found =
            xdotool({QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--onlyvisible"),
                     QStringLiteral("--pid"), QString::number(m_process.processId()),
                     QStringLiteral("--name"), pattern});
        return found.section(u'\n', 0, 0);
    }
    bool waitFor(const QString& title) const
    {
        return QTest::qWaitFor([&] { return !window(title).isEmpty(); }, Patience);
    }
    bool waitGone(const QString& title) const
    {
        return QTest::qWaitFor([&] { return window(title).isEmpty(); }, Patience);
    }
    /// Waits for a window and until it has the keyboard.
    bool activate(const QString& title) const
    {
        return QTest::qWaitFor(
            [&] {
                const QString id = window(title);
                if (id.isEmpty())
                    return false;
                if (xdotool({QStringLiteral("getactivewindow")}) == id &&
                    xdotool({QStringLiteral("getwindowfocus")}) == id)
                    return true;
                xdotool({QStringLiteral("windowactivate"), id});
                return false;
            },
            Patience);
    }

    static void key(const QString& name) { xdotool({QStringLiteral("key"), name}); }
    static void type(const QString& text)
    {
        xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("15"),
                 QStringLiteral("--"), text});
    }
    void click(const QString& title, int x, int y) const
    {
        xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), window(title), QString::number(x),
                 QString::number(y), QStringLiteral("click"), QStringLiteral("1")});
    }

    /// Chooses an entry of the menu File by its access key.
    void file(const QString& title, const QString& accessKey) const
    {
        QVERIFY(activate(title));
        click(title, 15, 10); // the first title of the menu bar
        key(accessKey);
    }
    /// Types at the end of the source.
    void append(const QString& title, const QString& text) const
    {
        QVERIFY(activate(title));
        click(title, 350, 350); // within the source box
        key(QStringLiteral("ctrl+End"));
        type(text);
    }
    /// Types a path into a file dialog and takes it.
    void answerFile(const QString& dialog, const QString& name) const
    {
        QVERIFY2(activate(dialog), qPrintable(dialog));
        key(QStringLiteral("ctrl+a"));
        type(path(name));
        key(QStringLiteral("Return"));
        QVERIFY2(waitGone(dialog), qPrintable(dialog));
    }
    void press(const QString& dialog, const QString& keyName) const
    {
        QVERIFY2(activate(dialog), qPrintable(dialog));
        key(keyName);
        QVERIFY2(waitGone(dialog), qPrintable(dialog));
    }

private:
    void copy(const QString& from, const QString& name) const
    {
        QVERIFY2(QFile::copy(from, path(name)), qPrintable(from));
    }

    QTemporaryDir m_folder;
    QProcess m_process;
};

} // namespace

class TestFirstDay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void splashThenMainWindow();
    void openTypeSave();
    void openAsksAtClosing();
    void saveAs();
    void closingCancelledThenDeclined();
    void closingSaves();
    void closingSavesUnnamedButTheDialogIsCancelled();
    void startWithoutSettings();
};

void TestFirstDay::initTestCase()
{
    const auto windowManagerAnswers = [] { return !xdotool({QStringLiteral("get_num_desktops")}).isEmpty(); };
    QVERIFY2(QTest::qWaitFor(windowManagerAnswers, Patience),
             "needs a display, a window manager and xdotool");
}

void TestFirstDay::splashThenMainWindow()
{
    Program program;
    QElapsedTimer timer;
    timer.start();
    program.launch();
    QVERIFY(program.waitFor(QStringLiteral("Brindlemark 1.0")));
    QVERIFY(program.window(MainWindow).isEmpty());
    QVERIFY(program.waitFor(MainWindow));
    QVERIFY2(timer.elapsed() >= 1360, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(program.waitGone(QStringLiteral("Brindlemark 1.0")));

    program.file(MainWindow, QStringLiteral("e")); // nothing to save
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(!QFile::exists(program.path(QStringLiteral("Recovered.htm"))));
}

void TestFirstDay::openTypeSave()
{
    const QString title = QStringLiteral("page.htm - Brindlemark 1.0");
    Program program;
    program.write(QStringLiteral("page.htm"), "<p>caf\xE9\nHello");
    program.start();
    program.file(MainWindow, QStringLiteral("o"));
    program.answerFile(QStringLiteral("Open As Files"), QStringLiteral("page.htm"));
    QVERIFY(program.waitFor(title));

    program.append(title, QStringLiteral(" <B>World</B>"));
    program.file(title, QStringLiteral("s"));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("page.htm")),
                              QByteArray("<p>caf\xE9\nHello <B>World</B>\r\n"), Patience);
    program.file(title, QStringLiteral("s")); // once more, with nothing changed
    program.file(title, QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<p>caf\xE9\nHello <B>World</B>\r\n"));
}

void TestFirstDay::openAsksAtClosing()
{
    const QString title = QStringLiteral("page.htm - Brindlemark 1.0");
    Program program;
    program.write(QStringLiteral("page.htm"), "<p>Hello");
    program.start();
    program.file(MainWindow, QStringLiteral("o"));
    program.answerFile(QStringLiteral("Open As Files"), QStringLiteral("page.htm"));
    QVERIFY(program.activate(title));
    program.key(QStringLiteral("alt+F4"));
    program.press(Box, QStringLiteral("alt+n"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<p>Hello"));
}

void TestFirstDay::saveAs()
{
    const QString title = QStringLiteral("new.htm - Brindlemark 1.0");
    Program program;
    program.write(QStringLiteral("other.htm"), "other");
    program.start();
    program.append(MainWindow, QStringLiteral("<P>Lamp"));
    program.file(MainWindow, QStringLiteral("s")); // has no name yet
    program.answerFile(QStringLiteral("Save As Files"), QStringLiteral("new.htm"));
    QVERIFY(program.waitFor(title));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("new.htm")), QByteArray("<P>Lamp\r\n"), Patience);

    program.file(title, QStringLiteral("a"));
    program.answerFile(QStringLiteral("Save As Files"), QStringLiteral("other.htm"));
    program.press(QStringLiteral("Information"), QStringLiteral("alt+n"));
    QVERIFY(program.activate(title));
    QCOMPARE(program.read(QStringLiteral("other.htm")), QByteArray("other"));

    program.file(title, QStringLiteral("a"));
    program.answerFile(QStringLiteral("Save As Files"), QStringLiteral("other.htm"));
    program.press(QStringLiteral("Information"), QStringLiteral("alt+y"));
    QVERIFY(program.waitFor(QStringLiteral("other.htm - Brindlemark 1.0")));
    QCOMPARE(program.read(QStringLiteral("other.htm")), QByteArray("<P>Lamp\r\n"));
    QCOMPARE(program.read(QStringLiteral("new.htm")), QByteArray("<P>Lamp\r\n"));

    program.file(QStringLiteral("other.htm - Brindlemark 1.0"), QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
}

void TestFirstDay::closingCancelledThenDeclined()
{
    Program program;
    program.start();
    program.append(MainWindow, QStringLiteral("<P>Lamp"));
    program.key(QStringLiteral("alt+F4"));
    program.press(Box, QStringLiteral("Escape"));
    QVERIFY(program.activate(MainWindow));
    QVERIFY(program.isRunning());

    program.file(MainWindow, QStringLiteral("e"));
    program.press(Box, QStringLiteral("alt+n"));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(!QFile::exists(program.path(QStringLiteral("Untitled"))));
}

void TestFirstDay::closingSaves()
{
    const QString title = QStringLiteral("page.htm - Brindlemark 1.0");
    Program program;
    program.write(QStringLiteral("page.htm"), "<p>Hello");
    program.start();
    program.file(MainWindow, QStringLiteral("o"));
    program.answerFile(QStringLiteral("Open As Files"), QStringLiteral("page.htm"));
    QVERIFY(program.waitFor(title));
    program.append(title, QStringLiteral("!"));
    program.key(QStringLiteral("alt+F4"));
    program.press(Box, QStringLiteral("alt+y"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<p>Hello!\r\n"));
}

void TestFirstDay::closingSavesUnnamedButTheDialogIsCancelled()
{
    // Yes counts as the answer, whatever comes of it: the window closes and the text is gone.
    Program program;
    program.start();
    program.append(MainWindow, QStringLiteral("<P>Lamp"));
    program.key(QStringLiteral("alt+F4"));
    program.press(Box, QStringLiteral("alt+y"));
    program.press(QStringLiteral("Save As Files"), QStringLiteral("Escape"));
    QCOMPARE(program.exitCode(), 0);
}

void TestFirstDay::startWithoutSettings()
{
    Program program;
    QVERIFY(QFile::remove(program.path(QStringLiteral("web.ini"))));
    program.launch();
    QVERIFY(program.activate(Box));
    program.key(QStringLiteral("Return"));
    QCOMPARE(program.exitCode(), 1);
}

QTEST_GUILESS_MAIN(TestFirstDay)
#include "tst_firstday.moc"
