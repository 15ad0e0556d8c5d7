// SPDX-License-Identifier: GPL-3.0-or-later

#include "OrdinaryUser.h"
#include "platform/AppPath.h"
#include "platform/Files.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

/// Where the settings lie.
class TestAppPath : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void folderOfItsOwnUser();
    void folderOfSomebodyElse();
    void firstStart();
    void newerVersion();
    void ownFolderStays();

private:
    QString program(const QString& name) const
    {
        return m_folder->filePath(QStringLiteral("program/") + name);
    }
    QString user(const QString& name) const { return m_folder->filePath(QStringLiteral("user/") + name); }
    void fill() const
    {
        fillSettingsFolder(m_folder->filePath(QStringLiteral("program")),
                           m_folder->filePath(QStringLiteral("user")));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestAppPath::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                        QFile::ReadGroup | QFile::ExeGroup |
                                                        QFile::ReadOther | QFile::ExeOther));
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("program/help")));
    for (const char* name : {"web.ini", "weblst.ini", "Help0.htm", "help/wizard.png", "brindlemark"})
        writeFile(program(QString::fromLatin1(name)), QByteArray("shipped ") + name);
}

void TestAppPath::folderOfItsOwnUser()
{
    const OrdinaryUser user(m_folder->filePath(QStringLiteral("program")));
    if (!user.ordinary())
        QSKIP("needs an ordinary user");
    QCOMPARE(settingsFolder(m_folder->filePath(QStringLiteral("program"))),
             m_folder->filePath(QStringLiteral("program")));
}

void TestAppPath::folderOfSomebodyElse()
{
    const QString folder = m_folder->filePath(QStringLiteral("program"));
    const OrdinaryUser user(folder);
    if (!user.ordinary())
        QSKIP("needs an ordinary user");
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    qputenv("XDG_DATA_HOME", "/somebody/data");
    QCOMPARE(settingsFolder(folder), QStringLiteral("/somebody/data/brindlemark"));
    qunsetenv("XDG_DATA_HOME");
    QCOMPARE(settingsFolder(folder), QDir::homePath() + QStringLiteral("/.local/share/brindlemark"));
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestAppPath::firstStart()
{
    fill();
    QCOMPARE(readFile(user(QStringLiteral("web.ini"))), QByteArray("shipped web.ini"));
    QCOMPARE(readFile(user(QStringLiteral("weblst.ini"))), QByteArray("shipped weblst.ini"));
    QCOMPARE(readFile(user(QStringLiteral("Help0.htm"))), QByteArray("shipped Help0.htm"));
    QCOMPARE(readFile(user(QStringLiteral("help/wizard.png"))), QByteArray("shipped help/wizard.png"));
    QCOMPARE(QDir(m_folder->filePath(QStringLiteral("user"))).entryList(QDir::Files).size(),
             3); // not the program
}

/// What the user has set stays, what is new comes, and the help is as new as the program.
void TestAppPath::newerVersion()
{
    fill();
    writeFile(user(QStringLiteral("web.ini")), "mine");
    writeFile(user(QStringLiteral("Quick.ini")), "my words");
    writeFile(program(QStringLiteral("web.ini")), "newer");
    writeFile(program(QStringLiteral("more.ini")), "new");
    writeFile(program(QStringLiteral("Help0.htm")), "newer");
    writeFile(program(QStringLiteral("help/wizard.png")), "newer");
    fill();
    QCOMPARE(readFile(user(QStringLiteral("web.ini"))), QByteArray("mine"));
    QCOMPARE(readFile(user(QStringLiteral("Quick.ini"))), QByteArray("my words"));
    QCOMPARE(readFile(user(QStringLiteral("more.ini"))), QByteArray("new"));
    QCOMPARE(readFile(user(QStringLiteral("Help0.htm"))), QByteArray("newer"));
    QCOMPARE(readFile(user(QStringLiteral("help/wizard.png"))), QByteArray("newer"));
}

void TestAppPath::ownFolderStays()
{
    const QString folder = m_folder->filePath(QStringLiteral("program"));
    fillSettingsFolder(folder, folder);
    QCOMPARE(readFile(program(QStringLiteral("web.ini"))), QByteArray("shipped web.ini"));
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 4);
}

QTEST_GUILESS_MAIN(TestAppPath)
#include "tst_apppath.moc"
