#include "Hand.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

// The program as on a first day: start, open, type, save, save as, close.

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
    QVERIFY2(displayAnswers(), "needs a display, a window manager and xdotool");
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
    program.answerFile(QStringLiteral("Open As Files"), program.path(QStringLiteral("page.htm")));
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
    program.answerFile(QStringLiteral("Open As Files"), program.path(QStringLiteral("page.htm")));
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
    program.answerFile(QStringLiteral("Save As Files"), program.path(QStringLiteral("new.htm")));
    QVERIFY(program.waitFor(title));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("new.htm")), QByteArray("<P>Lamp\r\n"), Patience);

    program.file(title, QStringLiteral("a"));
    program.answerFile(QStringLiteral("Save As Files"), program.path(QStringLiteral("other.htm")));
    program.press(QStringLiteral("Information"), QStringLiteral("alt+n"));
    QVERIFY(program.activate(title));
    QCOMPARE(program.read(QStringLiteral("other.htm")), QByteArray("other"));

    program.file(title, QStringLiteral("a"));
    program.answerFile(QStringLiteral("Save As Files"), program.path(QStringLiteral("other.htm")));
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
    program.answerFile(QStringLiteral("Open As Files"), program.path(QStringLiteral("page.htm")));
    QVERIFY(program.waitFor(title));
    program.append(title, QStringLiteral("!"));
    program.key(QStringLiteral("alt+F4"));
    program.press(Box, QStringLiteral("alt+y"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<p>Hello!\r\n"));
}

void TestFirstDay::closingSavesUnnamedButTheDialogIsCancelled()
{
    // Yes counts as the answer, whatever comes of it: the window closes. The text waits for the next start.
    Program program;
    program.start();
    program.append(MainWindow, QStringLiteral("<P>Lamp"));
    program.key(QStringLiteral("alt+F4"));
    program.press(Box, QStringLiteral("alt+y"));
    program.press(QStringLiteral("Save As Files"), QStringLiteral("Escape"));
    QCOMPARE(program.exitCode(), 0);
    program.launch();
    program.press(Box, QStringLiteral("alt+y"));
    QVERIFY(program.activate(MainWindow));
    program.file(MainWindow, QStringLiteral("s"));
    program.answerFile(QStringLiteral("Save As Files"), program.path(QStringLiteral("lamp.htm")));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("lamp.htm")), QByteArray("<P>Lamp\r\n"), Patience);
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
