// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"
#include "OrdinaryUser.h"

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

using namespace brindlemark;

// The program from its installation on: what lies in the folder, what stays when a newer one is installed,
// and the menu's entry for the place.

namespace {

const QString Quick = QStringLiteral("Quick-Word");

bool overwrite(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

/// What a command ended with, and what it said on both channels.
struct Outcome
{
    int exitCode = -1;
    QString words;
};

Outcome outcome(const QString& command, const QStringList& arguments, const QString& dataHome = QString())
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!dataHome.isEmpty())
        environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(command, arguments);
    if (!process.waitForFinished(Patience) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}

} // namespace

class TestInstall : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_temporary.reset(); }

    void allIsThere();
    void helpNamesTheVersion();
    void aNewerProgramKeepsTheSettings();
    void runsAndKeepsItsSettingsThere();
    void settingsOfAnotherUser();
    void runsWhereItWasMovedTo();
    void entryNamesThePlace_data();
    void entryNamesThePlace();
    void menuFollowsTheFolder();
    void unusableFolders_data();
    void unusableFolders();
    void usableFolders();
    void setupAsksForNoCompiler();

private:
    static void useOnce(Program& program, const QString& settings);
    QString inFolder(const QString& name) const { return m_folder + u'/' + name; }

    std::unique_ptr<QTemporaryDir> m_temporary;
    QString m_folder; // where the program is installed
};

void TestInstall::initTestCase()
{
    QVERIFY2(displayAnswers(), "needs a display, a window manager and xdotool");
}

void TestInstall::init()
{
    m_temporary = std::make_unique<QTemporaryDir>();
    m_folder = m_temporary->filePath(QStringLiteral("My Programs/Brindlemark"));
    QVERIFY(installProgram(m_folder));
}

void TestInstall::allIsThere()
{
    const QStringList names =
        QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const char* name : {"COPYING", "Help0.htm", "README.txt", "add-to-menu", "brindlemark",
                             "brindlemark.desktop", "brindlemark.svg", "help", "setup", "web.ini",
                             "weblst.ini", "weblst2.ini", "weblst3.ini", "webstyle.ini", "webstyle2.ini"})
        QVERIFY2(names.contains(QString::fromLatin1(name)), name);
    for (const char* name : {"add-to-menu", "brindlemark", "setup"})
        QVERIFY2(QFile::permissions(inFolder(QString::fromLatin1(name))) & QFile::ExeUser, name);
    for (const QString& name : names) {
        const QFile::Permissions permissions = QFile::permissions(inFolder(name));
        QVERIFY2(permissions & QFile::WriteUser, qPrintable(name));
        QVERIFY2(permissions & QFile::ReadOther, qPrintable(name));
    }
}

void TestInstall::helpNamesTheVersion()
{
    const QByteArray help = fileBytes(inFolder(QStringLiteral("Help0.htm")));
    QVERIFY(help.contains("<title>Brindlemark " PROGRAM_VERSION " - Help</title>"));
    QVERIFY(help.contains("<h1>Brindlemark " PROGRAM_VERSION "</h1>"));
}

void TestInstall::aNewerProgramKeepsTheSettings()
{
    const QByteArray program = fileBytes(inFolder(QStringLiteral("brindlemark")));
    const QByteArray help = fileBytes(inFolder(QStringLiteral("Help0.htm")));
    QVERIFY(overwrite(inFolder(QStringLiteral("brindlemark")), "an older program"));
    QVERIFY(overwrite(inFolder(QStringLiteral("Help0.htm")), "an older page"));
    QVERIFY(overwrite(inFolder(QStringLiteral("web.ini")), "[Font]\r\nsize=30\r\n"));
    QVERIFY(overwrite(inFolder(QStringLiteral("weblst2.ini")), "Shipping on Mondays."));
    QVERIFY(overwrite(inFolder(QStringLiteral("Quick.ini")), "Thank you\r\n"));
    QVERIFY(QFile::remove(inFolder(QStringLiteral("weblst3.ini"))));

    QVERIFY(installProgram(m_folder));
    QVERIFY(fileBytes(inFolder(QStringLiteral("brindlemark"))) == program);
    QVERIFY(fileBytes(inFolder(QStringLiteral("Help0.htm"))) == help);
    QCOMPARE(fileBytes(inFolder(QStringLiteral("web.ini"))), QByteArray("[Font]\r\nsize=30\r\n"));
    QCOMPARE(fileBytes(inFolder(QStringLiteral("weblst2.ini"))), QByteArray("Shipping on Mondays."));
    QCOMPARE(fileBytes(inFolder(QStringLiteral("Quick.ini"))), QByteArray("Thank you\r\n"));
    QCOMPARE(fileBytes(inFolder(QStringLiteral("weblst3.ini"))),
             fileBytes(QStringLiteral(SOURCE_DIR "/data/weblst3.ini"))); // what is missing comes back
}

void TestInstall::runsAndKeepsItsSettingsThere()
{
    QVERIFY(fileBytes(inFolder(QStringLiteral("web.ini"))).contains("[Quickword]\r\nchk=0\r\n"));
    Program program(m_folder);
    useOnce(program, inFolder(QStringLiteral("web.ini")));
}

/// Ticks the box of the quick words, which is kept in the settings.
void TestInstall::useOnce(Program& program, const QString& settings)
{
    program.start();
    for (const char* key : {"alt", "Right", "Right", "Return"}) // the third title of the menu bar
        Program::key(QString::fromLatin1(key));
    QVERIFY(program.activate(Quick));
    Program::key(QStringLiteral("alt+o"));
    QTRY_VERIFY_WITH_TIMEOUT(fileBytes(settings).contains("[Quickword]\r\nchk=1\r\n"), Patience);
    program.press(Quick, QStringLiteral("alt+n"));
    program.file(MainWindow, QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
}

/// A user who may not write where the program lies has a folder of their own.
void TestInstall::settingsOfAnotherUser()
{
    const QFile::Permissions all = QFile::permissions(m_folder);
    QVERIFY(QFile::setPermissions(m_folder, all & ~(QFile::WriteOwner | QFile::WriteUser)));
    const auto writable = qScopeGuard([&] { QFile::setPermissions(m_folder, all); });
    const OrdinaryUser user(m_temporary->path());
    if (!user.ordinary())
        QSKIP("needs an ordinary user");
    const QString data = m_temporary->filePath(QStringLiteral("data"));
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(m_temporary->path())); // which this user may write
    const auto back = qScopeGuard([&] { qputenv("TMPDIR", temporary); });
    Program program(m_folder);
    program.setEnvironment("XDG_DATA_HOME", data);
    useOnce(program, data + QStringLiteral("/brindlemark/web.ini"));
    QVERIFY(fileBytes(inFolder(QStringLiteral("web.ini"))).contains("[Quickword]\r\nchk=0\r\n"));
    QVERIFY(QFile::exists(data + QStringLiteral("/brindlemark/Help0.htm")));
}

void TestInstall::runsWhereItWasMovedTo()
{
    const QString moved = m_temporary->filePath(QStringLiteral("elsewhere"));
    QVERIFY(QDir().rename(m_folder, moved));
    Program program(moved);
    program.start();
    program.file(MainWindow, QStringLiteral("e"));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(!QFile::exists(m_folder));
}

void TestInstall::entryNamesThePlace_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("inExec");
    QTest::addColumn<QByteArray>("inIcon");
    QTest::newRow("plain") << "bm" << QByteArray("bm") << QByteArray("bm");
    QTest::newRow("blanks") << "My own  programs" << QByteArray("My own  programs")
                            << QByteArray("My own  programs");
    QTest::newRow("percent") << "50%f" << QByteArray("50%%f") << QByteArray("50%f");
    QTest::newRow("quotes") << R"(a"b'c`d)" << QByteArray(R"(a\\"b'c\\`d)") << QByteArray(R"(a"b'c`d)");
    QTest::newRow("dollar") << "$HOME" << QByteArray(R"(\\$HOME)") << QByteArray("$HOME");
    QTest::newRow("backslash") << R"(a\b)" << QByteArray(R"(a\\\\b)") << QByteArray(R"(a\\b)");
    QTest::newRow("letters") << QStringLiteral("Gr\u00FC\u00DFe")
                             << QByteArray("Gr\xC3\xBC\xC3\x9F"
                                           "e")
                             << QByteArray("Gr\xC3\xBC\xC3\x9F"
                                           "e");
}

void TestInstall::entryNamesThePlace()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, inExec);
    QFETCH(QByteArray, inIcon);
    const QString moved = m_temporary->filePath(name);
    QVERIFY(QDir().rename(m_folder, moved));
    QCOMPARE(outcome(moved + QStringLiteral("/add-to-menu"), {QStringLiteral("--here")}).exitCode, 0);
    const QList<QByteArray> lines = fileBytes(moved + QStringLiteral("/brindlemark.desktop")).split('\n');
    const QByteArray place = m_temporary->path().toUtf8() + '/';
    QCOMPARE(lines.value(0), QByteArray("[Desktop Entry]"));
    QVERIFY(lines.contains("Exec=\"" + place + inExec + "/brindlemark\" %f"));
    QVERIFY(lines.contains("MimeType=text/html;"));
    QVERIFY(lines.contains("Icon=" + place + inIcon + "/brindlemark.svg"));
}

void TestInstall::menuFollowsTheFolder()
{
    const QString dataHome = m_temporary->filePath(QStringLiteral("data home"));
    const QString entry = dataHome + QStringLiteral("/applications/brindlemark.desktop");
    const auto exec = [](const QString& folder) {
        return "\nExec=\"" + folder.toUtf8() + "/brindlemark\" %f\n";
    };
    QVERIFY(fileBytes(inFolder(QStringLiteral("brindlemark.desktop"))).contains(exec(m_folder)));
    QVERIFY(!QFile::exists(entry)); // nobody has asked for it

    QCOMPARE(outcome(inFolder(QStringLiteral("add-to-menu")), {}, dataHome).exitCode, 0);
    QVERIFY(fileBytes(entry).contains(exec(m_folder)));

    const QString moved = m_temporary->filePath(QStringLiteral("another place"));
    QVERIFY(QDir().rename(m_folder, moved));
    QCOMPARE(outcome(moved + QStringLiteral("/add-to-menu"), {}, dataHome).exitCode, 0);
    QVERIFY(fileBytes(entry).contains(exec(moved)));
    QVERIFY(fileBytes(moved + QStringLiteral("/brindlemark.desktop")).contains(exec(moved)));
}

void TestInstall::unusableFolders_data()
{
    QTest::addColumn<QString>("name"); // within the temporary folder
    QTest::addColumn<QString>("reason");
    QTest::newRow("below a file") << "My Programs/Brindlemark/COPYING/x"
                                  << "the folder can't be made.";
    QTest::newRow("a file") << "My Programs/Brindlemark/COPYING"
                            << "the folder can't be made.";
    QTest::newRow("in use") << "My Programs"
                            << "something else is in that folder.";
}

void TestInstall::unusableFolders()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const QString folder = m_temporary->filePath(name);
    const Outcome refused = outcome(QStringLiteral(SOURCE_DIR "/package/usable-folder"), {folder});
    QCOMPARE(refused.exitCode, 1);
    QCOMPARE(refused.words, QStringLiteral("Brindlemark can't be installed in %1: %2\n"
                                           "Choose another folder with: make install PREFIX=<folder>\n")
                                .arg(folder, reason));
}

void TestInstall::usableFolders()
{
    const QString command = QStringLiteral(SOURCE_DIR "/package/usable-folder");
    const QString fresh = m_temporary->filePath(QStringLiteral("a new/place"));
    QCOMPARE(outcome(command, {fresh}).exitCode, 0);
    QVERIFY(QDir(fresh).exists());
    QCOMPARE(outcome(command, {fresh}).exitCode, 0); // there and empty
    QCOMPARE(outcome(command, {m_folder}).exitCode, 0);
}

void TestInstall::setupAsksForNoCompiler()
{
    // Without dpkg-query on its way it can only say what it wants.
    const QString bin = m_temporary->filePath(QStringLiteral("bin"));
    QVERIFY(QDir().mkpath(bin));
    QVERIFY(QFile::link(QStringLiteral("/usr/bin/dirname"), bin + QStringLiteral("/dirname")));
    const QString path = QStringLiteral("PATH=") + bin;
    const auto wants = [&](const QString& setup) {
        return outcome(QStringLiteral("/usr/bin/env"), {path, QStringLiteral("/bin/bash"), setup}).words;
    };
    const QString installed = wants(inFolder(QStringLiteral("setup")));
    QVERIFY2(installed.contains(QStringLiteral("libqt6webenginewidgets6")), qPrintable(installed));
    QVERIFY2(installed.contains(QStringLiteral("fonts-liberation")), qPrintable(installed));
    static const QRegularExpression development(
        QStringLiteral("-dev(?!-tools)\\b|build-essential|cmake|dompurify"));
    QVERIFY2(!installed.contains(development), qPrintable(installed));

    const QString cloned = wants(QStringLiteral(SOURCE_DIR "/setup"));
    for (const char* package : {"qt6-webengine-dev", "breeze-icon-theme", "node-dompurify"})
        QVERIFY2(cloned.contains(QLatin1String(package)), qPrintable(cloned));
    QVERIFY2(cloned.contains(QStringLiteral("fonts-liberation")), qPrintable(cloned));
}

QTEST_GUILESS_MAIN(TestInstall)
#include "tst_install.moc"
