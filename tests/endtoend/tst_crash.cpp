// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

using namespace brindlemark;

// The program killed with unsaved text, or ended with one that could not be saved, and started again.

namespace {

const QString Kept = QStringLiteral("Brindlemark-unsaved-1.htm");
const QString Page = QStringLiteral("page.htm - Brindlemark 1.0");

/// How old a kept text may be, in milliseconds.
constexpr int OldestKept = 15000;

QStringList journalFiles(const Program& program)
{
    return QDir(program.path(QString())).entryList({QStringLiteral("Brindlemark-unsaved*")}, QDir::Files);
}

/// Opens page.htm, which holds "<P>Old", types "Lamp" behind it and waits until that is kept.
void typeUntilKept(Program& program)
{
    program.write(QStringLiteral("page.htm"), "<P>Old ");
    program.start();
    program.file(MainWindow, QStringLiteral("o"));
    program.answerFile(QStringLiteral("Open As Files"), program.path(QStringLiteral("page.htm")));
    QVERIFY(program.waitFor(Page));
    QElapsedTimer timer;
    timer.start();
    program.append(Page, QStringLiteral("Lamp"));
    QTRY_VERIFY_WITH_TIMEOUT(program.read(Kept).startsWith("<P>Old Lamp\n<!-- "), Patience);
    qInfo("kept %lld ms after the first letter", qlonglong(timer.elapsed()));
    QVERIFY(timer.elapsed() <= OldestKept);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<P>Old "));
}

/// Starts again and waits for the question, which comes when the main window is there.
void startAgain(Program& program)
{
    program.launch();
    QVERIFY(program.activate(Box));
    QVERIFY(!program.window(MainWindow).isEmpty());
    QVERIFY(program.waitGone(QStringLiteral("Brindlemark 1.0"))); // the splash
}

} // namespace

class TestCrash : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void killedThenYes();
    void killedThenNo();
    void killedBeforeTheAnswer();
    void tornFile();
    void otherProgramIsNotRobbed();
    void cleanEndLeavesNothing();
    void refusedSaveIsOffered();
};

void TestCrash::initTestCase()
{
    QVERIFY2(displayAnswers(), "needs a display, a window manager and xdotool");
}

void TestCrash::killedThenYes()
{
    Program program;
    typeUntilKept(program);
    program.kill();
    startAgain(program);
    program.press(Box, QStringLiteral("alt+y"));
    QVERIFY(program.activate(Page));
    program.file(Page, QStringLiteral("s"));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("page.htm")), QByteArray("<P>Old Lamp\r\n"),
                              Patience);
    program.file(Page, QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(journalFiles(program), QStringList());
}

void TestCrash::killedThenNo()
{
    Program program;
    typeUntilKept(program);
    program.kill();
    startAgain(program);
    program.press(Box, QStringLiteral("alt+n"));
    QVERIFY(program.activate(MainWindow));
    QTRY_COMPARE_WITH_TIMEOUT(journalFiles(program), QStringList(), Patience);
    program.file(MainWindow, QStringLiteral("e")); // nothing to save
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<P>Old "));
}

void TestCrash::killedBeforeTheAnswer()
{
    Program program;
    typeUntilKept(program);
    program.kill();
    for (int start = 0; start < 2; ++start) {
        startAgain(program);
        program.kill();
        QVERIFY(program.read(Kept).startsWith("<P>Old Lamp\n<!-- "));
    }
}

void TestCrash::tornFile()
{
    Program program;
    typeUntilKept(program);
    program.kill();
    program.write(Kept, program.read(Kept).first(9));
    startAgain(program);
    program.press(Box, QStringLiteral("alt+y"));
    QVERIFY(program.activate(MainWindow)); // without the name of the file
    program.file(MainWindow, QStringLiteral("s"));
    program.answerFile(QStringLiteral("Save As Files"), program.path(QStringLiteral("rest.htm")));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("rest.htm")), QByteArray("<P>Old La\r\n"),
                              Patience);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<P>Old "));
}

void TestCrash::otherProgramIsNotRobbed()
{
    Program program;
    typeUntilKept(program);
    Program other(program.path(QStringLiteral(".")));
    other.start(); // asks nothing
    QVERIFY(other.window(Box).isEmpty());
    other.file(MainWindow, QStringLiteral("e"));
    QCOMPARE(other.exitCode(), 0);
    QVERIFY(program.read(Kept).startsWith("<P>Old Lamp\n<!-- "));
}

void TestCrash::cleanEndLeavesNothing()
{
    Program program;
    typeUntilKept(program);
    program.file(Page, QStringLiteral("e"));
    program.press(Box, QStringLiteral("alt+n"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(journalFiles(program), QStringList());
    program.start(); // asks nothing
    QVERIFY(program.window(Box).isEmpty());
}

/// The program ends as it was told, but not with the text.
void TestCrash::refusedSaveIsOffered()
{
    Program program;
    program.write(QStringLiteral("page.htm"), "<P>Old ");
    const QString page = program.path(QStringLiteral("page.htm"));
    QVERIFY(QFile::setPermissions(page, QFile::ReadOwner));
    program.start();
    program.file(MainWindow, QStringLiteral("o"));
    program.answerFile(QStringLiteral("Open As Files"), page);
    QVERIFY(program.waitFor(Page));
    program.append(Page, QStringLiteral("Lamp"));
    program.key(QStringLiteral("alt+F4"));
    program.press(Box, QStringLiteral("alt+y"));
    program.press(QStringLiteral("Error"), QStringLiteral("Return"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.read(QStringLiteral("page.htm")), QByteArray("<P>Old "));

    QVERIFY(QFile::setPermissions(page, QFile::ReadOwner | QFile::WriteOwner));
    startAgain(program);
    program.press(Box, QStringLiteral("alt+y"));
    QVERIFY(program.activate(Page));
    program.file(Page, QStringLiteral("s"));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("page.htm")), QByteArray("<P>Old Lamp\r\n"),
                              Patience);
    program.file(Page, QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(journalFiles(program), QStringList());
}

QTEST_GUILESS_MAIN(TestCrash)
#include "tst_crash.moc"
