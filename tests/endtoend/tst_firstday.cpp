// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <cmath>

using namespace brindlemark;

// The program as on a first day: start, open, type, save, save as, close.

class TestFirstDay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void splashThenMainWindow();
    void openTypeSave();
    void sourceHasItsFace();
    void openAsksAtClosing();
    void saveAs();
    void typingOnThePages();
    void closingCancelledThenDeclined();
    void closingSaves();
    void closingSavesUnnamedButTheDialogIsCancelled();
    void closingEndsWithAllToolsOpen();
    void startWithoutSettings();
    void fileHandedOver();
    void fileHandedOverBehindAText();
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

/// Comic Neue, also where the desktop doesn't know that it stands in for Comic Sans MS.
void TestFirstDay::sourceHasItsFace()
{
    constexpr int From = 200; // pixels
    constexpr int To = 700;
    constexpr double LetterWidth = 0.827 * 16; // of an m, at the 12 points of the shipped settings
    const QString title = QStringLiteral("page.htm - Brindlemark 1.0");
    Program program;
    program.write(QStringLiteral("fonts.conf"),
                  "<fontconfig><dir>/usr/share/fonts</dir>"
                  "<cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>");
    program.setEnvironment("FONTCONFIG_FILE", program.path(QStringLiteral("fonts.conf")));
    program.write(QStringLiteral("page.htm"), (QByteArray(60, 'm') + '\n').repeated(30));
    program.start();
    program.file(MainWindow, QStringLiteral("o"));
    program.answerFile(QStringLiteral("Open As Files"), program.path(QStringLiteral("page.htm")));
    QVERIFY(program.activate(title));
    for (const int x : {To, From}) {
        program.click(title, x, 350);
        Program::type(QStringLiteral("|"));
    }
    program.file(title, QStringLiteral("s"));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("page.htm")).count('|'), 2, Patience);
    const QByteArray page = program.read(QStringLiteral("page.htm"));
    const auto letters = static_cast<double>(page.lastIndexOf('|') - page.indexOf('|') - 1);
    const double expected = (To - From) / LetterWidth;
    QVERIFY2(std::abs(letters - expected) < 2, qPrintable(QString::number(letters)));
    program.file(title, QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
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

/// On the tab Preview the page takes what is typed, before a save as well as behind it; from the tab Internet
/// a key leads back to the source with all of it.
void TestFirstDay::typingOnThePages()
{
    constexpr QPoint previewTab(103, 73);
    constexpr QPoint internetTab(178, 73);
    constexpr QPoint page(500, 400);
    const QString title = QStringLiteral("page.htm - Brindlemark 1.0");
    const auto saved = [](const Program& program) { return program.read(QStringLiteral("page.htm")); };
    Program program;
    program.start();
    program.click(MainWindow, previewTab.x(), previewTab.y());
    Program::type(QStringLiteral("one "));
    program.file(MainWindow, QStringLiteral("s")); // has no name yet
    program.answerFile(QStringLiteral("Save As Files"), program.path(QStringLiteral("page.htm")));
    QVERIFY(program.activate(title));
    Program::type(QStringLiteral("two "));
    program.file(title, QStringLiteral("s"));
    Program::type(QStringLiteral("three "));
    program.file(title, QStringLiteral("s"));
    QTRY_VERIFY2_WITH_TIMEOUT(saved(program).contains("one two three"), saved(program).constData(), Patience);

    program.click(title, internetTab.x(), internetTab.y());
    program.click(title, page.x(), page.y());
    Program::key(QStringLiteral("ctrl+Tab"));
    // Until the source is up, a save writes an empty line.
    program.write(QStringLiteral("page.htm"), "");
    const auto savesSource = [&] {
        program.file(title, QStringLiteral("s"));
        return QTest::qWaitFor([&] { return saved(program).contains("one two three"); }, 500);
    };
    QVERIFY2(QTest::qWaitFor(savesSource, Patience), saved(program).constData());
    Program::type(QStringLiteral("<!-- source -->"));
    program.file(title, QStringLiteral("s"));
    // The caret is where it was on the page.
    QTRY_VERIFY2_WITH_TIMEOUT(saved(program).contains("one two three<!-- source -->"),
                              saved(program).constData(), Patience);
    program.file(title, QStringLiteral("e"));
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

/// Whatever is open goes with the main window, and nobody is asked.
void TestFirstDay::closingEndsWithAllToolsOpen()
{
    constexpr char Main[] = "Untitled - Brindlemark 1.0";
    constexpr char Table[] = "Two Table Properties";
    constexpr char Chooser[] = "Lists Properties";
    constexpr char SymbolList[] = "List Special Character Properties";
    constexpr char Page1[] = "Brindlemark Create 1 of 2";
    struct Opening
    {
        const char* from;
        QPoint click; ///< in that window; null: keys alone
        const char* keys;
        const char* title; ///< of the window that opens
    };
    const Opening openings[] = {
        {Main, {117, 10}, "", "Quick-Word"},
        {Main, {364, 10}, "Down Return", "Earlier Texts"},
        {Main, {408, 10}, "", "Help"},
        {Main, {454, 10}, "", "About Brindlemark 1.0"},
        {Main, {57, 10}, "Up Return", "Editor Color highlight"},
        {Main, {241, 10}, "Up Return", "Color HTML Code"},
        {Main, {241, 10}, "Down Down Down Down Down Return", "Add Table"},
        {Main, {419, 38}, "", "Body Attributes"},
        {Main, {450, 38}, "", " Font Properties"},
        {Main, {481, 38}, "", "Picture Properties"},
        {Main, {574, 38}, "", "Horizontal Rule Properties"},
        {Main, {512, 38}, "", Table},
        {Table, {354, 291}, "", "Two Cell Colors"},
        {Main, {543, 38}, "", Chooser},
        {Chooser, {}, "alt+l", "List Properties"},
        {Main, {543, 38}, "", Chooser},
        {Chooser, {}, "alt+s", SymbolList},
        {SymbolList, {}, "alt+p", "List Properties Character"},
        {SymbolList, {253, 23}, "", "List Special Character Font"},
        {Main, {543, 38}, "", Chooser},
        {Main, {380, 38}, "", Page1},
        {Page1, {}, "alt+m alt+f", "- Payment - Terms of Lists"},
        {Page1, {}, "alt+i alt+w a alt+d a alt+m alt+a alt+y alt+s alt+o", "Brindlemark Create 2 of 2 "},
        {Main, {243, 38}, "", "Find and Sreach"},
    };
    Program program;
    program.start();
    for (const Opening& opening : openings) {
        const QString from = QString::fromLatin1(opening.from);
        QVERIFY2(program.activate(from), opening.title);
        if (!opening.click.isNull())
            program.click(from, opening.click.x(), opening.click.y());
        if (*opening.keys)
            Program::keys(QString::fromLatin1(opening.keys));
        QVERIFY2(program.activate(QString::fromLatin1(opening.title)), opening.title);
    }
    for (const Opening& opening : openings) {
        const QString title = QString::fromLatin1(opening.title);
        const bool hidden = title == QLatin1String(Page1); // page 2 stands in its place
        QVERIFY2(program.window(title).isEmpty() == hidden, opening.title);
    }
    QVERIFY(program.activate(MainWindow));
    Program::key(QStringLiteral("alt+F4"));
    QCOMPARE(program.exitCode(), 0);
    // The engine complains of pages that outlive it.
    QVERIFY2(!program.errors().contains("still not deleted"), program.errors().constData());
}

void TestFirstDay::startWithoutSettings()
{
    Program program;
    QVERIFY(QFile::remove(program.path(QStringLiteral("web.ini"))));
    program.launch();
    QVERIFY(program.activate(Box));
    program.key(QStringLiteral("Return")); // the error
    QVERIFY(program.activate(Box));
    program.key(QStringLiteral("Return")); // those that ship shall take their place
    QCOMPARE(program.exitCode(), 1);
    program.launch();
    QVERIFY(program.activate(MainWindow));
}

/// A file that was clicked on in the desktop is the document from the start, and is saved where it lies.
void TestFirstDay::fileHandedOver()
{
    const QString title = QStringLiteral("my page.htm - Brindlemark 1.0");
    Program program;
    program.write(QStringLiteral("my page.htm"), "<p>one");
    program.launch({program.path(QStringLiteral("my page.htm"))});
    QVERIFY(program.activate(title));
    program.append(title, QStringLiteral(" two"));
    program.file(title, QStringLiteral("s"));
    QTRY_COMPARE_WITH_TIMEOUT(program.read(QStringLiteral("my page.htm")), QByteArray("<p>one two\r\n"),
                              Patience);
    program.file(title, QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
}

/// Two starts are two windows with a text each.
void TestFirstDay::fileHandedOverBehindAText()
{
    const QString title = QStringLiteral("page.htm - Brindlemark 1.0");
    Program first;
    first.start();
    Program::type(QStringLiteral("mine"));
    Program second;
    second.write(QStringLiteral("page.htm"), "other");
    second.launch({second.path(QStringLiteral("page.htm"))});
    QVERIFY(second.activate(title));
    QVERIFY(!first.window(MainWindow).isEmpty());
    second.file(title, QStringLiteral("e"));
    QVERIFY(second.waitFor(Box));
    second.key(QStringLiteral("n"));
    QCOMPARE(second.exitCode(), 0);
    QVERIFY(first.isRunning());
}

QTEST_GUILESS_MAIN(TestFirstDay)
#include "tst_firstday.moc"
