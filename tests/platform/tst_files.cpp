// SPDX-License-Identifier: GPL-3.0-or-later

#include "LittleMemory.h"
#include "OrdinaryUser.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <functional>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <tuple>

using namespace brindlemark;

namespace {

std::optional<RuntimeError> errorOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

int numberOf(const std::optional<RuntimeError>& error)
{
    return error ? static_cast<int>(error->number()) : 0;
}

/// No file grows beyond `bytes` while this lives: writes come back short, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_limit);
        rlimit full = m_limit;
        full.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::ignore = std::signal(SIGXFSZ, m_signal);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_limit{};
    void (*m_signal)(int) = nullptr;
};

} // namespace

class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void bytesComeBack_data();
    void bytesComeBack();
    void missingFileIsNotFound();
    void whatIsNoFileCannotBeRead_data();
    void whatIsNoFileCannotBeRead();
    void protectedFileCannotBeRead();
    void fileLargerThanTheMemory();
    void hugeFileIsRefused();

    void newContentReplacesTheOld();
    void permissionsStay_data();
    void permissionsStay();
    void ownerStays();
    void linkStaysAndItsTargetIsWritten();
    void linkBehindALinkedFolder();
    void danglingLinkMakesItsTarget();
    void circleOfLinksIsRefused();
    void folderIsRefused();
    void goneFolderIsRefused();
    void deviceIsRefused();
    void emptyPathIsRefused();
    void writeProtectedFileIsRefused();
    void readOnlyFolderIsRefused();
    void fullDiskKeepsTheOldFile_data();
    void fullDiskKeepsTheOldFile();
    void fullDiskMakesNoNewFile();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    /// Everything in the folder, so that no half-made file stays behind unseen.
    QStringList names() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    void make(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    QByteArray content(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void TestFiles::cleanup()
{
    m_folder.reset();
}

void TestFiles::bytesComeBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("every byte") << all;
    QTest::newRow("line ends") << QByteArray("a\r\nb\nc\rd");
    QTest::newRow("5 MB") << all.repeated(20480);
}

void TestFiles::bytesComeBack()
{
    QFETCH(QByteArray, bytes);
    writeFile(path("a.htm"), bytes);
    QCOMPARE(content("a.htm"), bytes);
    QCOMPARE(readFile(path("a.htm")), bytes);
    QCOMPARE(names(), QStringList{"a.htm"});
}

void TestFiles::missingFileIsNotFound()
{
    const auto error = errorOf([&] { readFile(path("none.htm")); });
    QCOMPARE(numberOf(error), 53);
    QCOMPARE(error->description(), QStringLiteral("File not found"));
    QVERIFY(QFile::link(path("none.htm"), path("dangling")));
    QCOMPARE(numberOf(errorOf([&] { readFile(path("dangling")); })), 53);
}

void TestFiles::whatIsNoFileCannotBeRead_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder") << QStringLiteral("/tmp");
    QTest::newRow("endless device") << QStringLiteral("/dev/zero");
    QTest::newRow("reading fails") << QStringLiteral("/proc/self/mem");
}

void TestFiles::whatIsNoFileCannotBeRead()
{
    QFETCH(QString, path);
    const auto error = errorOf([&] { readFile(path); });
    QCOMPARE(numberOf(error), 75);
    QVERIFY(!error->description().isEmpty());
}

void TestFiles::protectedFileCannotBeRead()
{
    make("a.htm", "secret");
    QVERIFY(QFile::setPermissions(path("a.htm"), QFile::Permissions()));
    const OrdinaryUser user(m_folder->path());
    if (!user.ordinary())
        QSKIP("permission bits don't bind this user");
    const auto error = errorOf([&] { readFile(path("a.htm")); });
    QCOMPARE(numberOf(error), 75);
    QCOMPARE(error->description(), QStringLiteral("Permission denied"));
}

void TestFiles::fileLargerThanTheMemory()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer ends a program that has no memory");
#endif
    constexpr qint64 Gigabyte = 1 << 30;
    QFile file(path("large.htm"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(2 * Gigabyte)); // takes no place on the disk
    const LittleMemory little(Gigabyte);
    const auto error = errorOf([&] { readFile(file.fileName()); });
    QCOMPARE(numberOf(error), 6);
    QCOMPARE(error->description(), QStringLiteral("Out of memory"));
}

void TestFiles::hugeFileIsRefused()
{
    constexpr qint64 Terabyte = 1LL << 40;
    QFile file(path("huge.htm"));
    if (!file.open(QIODevice::WriteOnly) || !file.resize(Terabyte)) // takes no place on the disk
        QSKIP("The file system has no such files");
    const auto error = errorOf([&] { readFile(file.fileName()); });
    QCOMPARE(numberOf(error), 75);
    QCOMPARE(error->description(), QStringLiteral("File too large"));
}

void TestFiles::ownerStays()
{
    if (geteuid() != 0)
        QSKIP("Only the superuser can give files away");
    make("a.htm", "old");
    const QByteArray name = QFile::encodeName(path("a.htm"));
    QCOMPARE(chown(name.constData(), 1234, 2345), 0);
    QCOMPARE(chmod(name.constData(), 0640), 0);
    writeFile(path("a.htm"), "new");
    struct stat status = {};
    QCOMPARE(stat(name.constData(), &status), 0);
    QCOMPARE(status.st_uid, uid_t(1234));
    QCOMPARE(status.st_gid, gid_t(2345));
    QCOMPARE(status.st_mode & 07777U, 0640U);
    QCOMPARE(content("a.htm"), QByteArray("new"));
}

void TestFiles::newContentReplacesTheOld()
{
    make("a.htm", "a long old content");
    writeFile(path("a.htm"), "new");
    QCOMPARE(content("a.htm"), QByteArray("new"));
    QCOMPARE(names(), QStringList{"a.htm"});
}

void TestFiles::permissionsStay_data()
{
    QTest::addColumn<uint>("mode");
    QTest::newRow("private") << 0600U;
    QTest::newRow("usual") << 0644U;
    QTest::newRow("shared") << 0664U;
    QTest::newRow("everybody") << 0666U;
    QTest::newRow("executable") << 0755U;
}

void TestFiles::permissionsStay()
{
    QFETCH(uint, mode);
    make("a.htm", "old");
    const QByteArray name = QFile::encodeName(path("a.htm"));
    QCOMPARE(chmod(name.constData(), mode), 0);
    writeFile(path("a.htm"), "new");
    struct stat status = {};
    QCOMPARE(stat(name.constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, mode);
    QCOMPARE(content("a.htm"), QByteArray("new"));
}

void TestFiles::linkStaysAndItsTargetIsWritten()
{
    make("target", "old");
    QCOMPARE(symlink("target", QFile::encodeName(path("second")).constData()), 0);
    QVERIFY(QFile::link(path("second"), path("first")));
    writeFile(path("first"), "new");
    QVERIFY(QFileInfo(path("first")).isSymLink());
    QVERIFY(QFileInfo(path("second")).isSymLink());
    QVERIFY(!QFileInfo(path("target")).isSymLink());
    QCOMPARE(content("target"), QByteArray("new"));
    QCOMPARE(names(), (QStringList{"first", "second", "target"}));
}

void TestFiles::linkBehindALinkedFolder()
{
    // "shortcut/link" lies in "deep/folder", so its ".." is "deep", not the folder that holds "shortcut".
    QVERIFY(QDir(m_folder->path()).mkpath("deep/folder"));
    make("deep/target", "old");
    QCOMPARE(symlink("../target", QFile::encodeName(path("deep/folder/link")).constData()), 0);
    QVERIFY(QFile::link(path("deep/folder"), path("shortcut")));
    writeFile(path("shortcut/link"), "new");
    QCOMPARE(content("deep/target"), QByteArray("new"));
    QCOMPARE(names(), (QStringList{"deep", "shortcut"}));
}

void TestFiles::danglingLinkMakesItsTarget()
{
    QVERIFY(QFile::link(path("target"), path("link")));
    writeFile(path("link"), "new");
    QVERIFY(QFileInfo(path("link")).isSymLink());
    QCOMPARE(content("target"), QByteArray("new"));
}

void TestFiles::circleOfLinksIsRefused()
{
    QVERIFY(QFile::link(path("b"), path("a")));
    QVERIFY(QFile::link(path("a"), path("b")));
    QCOMPARE(numberOf(errorOf([&] { writeFile(path("a"), "new"); })), 75);
    QCOMPARE(QFileInfo(path("a")).symLinkTarget(), path("b"));
    QCOMPARE(QFileInfo(path("b")).symLinkTarget(), path("a"));
}

void TestFiles::folderIsRefused()
{
    QVERIFY(QDir(m_folder->path()).mkdir("Ils.ini"));
    QCOMPARE(numberOf(errorOf([&] { writeFile(path("Ils.ini"), "new"); })), 75);
    QVERIFY(QFileInfo(path("Ils.ini")).isDir());
    QCOMPARE(names(), QStringList{"Ils.ini"});
}

void TestFiles::goneFolderIsRefused()
{
    const auto error = errorOf([&] { writeFile(path("gone/a.htm"), "new"); });
    QCOMPARE(numberOf(error), 75);
    QVERIFY(!error->description().isEmpty());
    QCOMPARE(names(), QStringList());
}

void TestFiles::deviceIsRefused()
{
    const QByteArray pipe = QFile::encodeName(path("pipe"));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    QCOMPARE(numberOf(errorOf([&] { writeFile(path("pipe"), "new"); })), 75);
    struct stat status = {};
    QCOMPARE(stat(pipe.constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

void TestFiles::emptyPathIsRefused()
{
    QCOMPARE(numberOf(errorOf([] { writeFile(QString(), "new"); })), 75);
    QCOMPARE(numberOf(errorOf([] { readFile(QString()); })), 53);
}

void TestFiles::writeProtectedFileIsRefused()
{
    make("a.htm", "old");
    QVERIFY(QFile::setPermissions(path("a.htm"), QFile::ReadOwner | QFile::ReadGroup));
    QCOMPARE(numberOf(errorOf([&] { writeFile(path("a.htm"), "new"); })), 75);
    QCOMPARE(content("a.htm"), QByteArray("old"));
    QCOMPARE(names(), QStringList{"a.htm"});
}

void TestFiles::readOnlyFolderIsRefused()
{
    make("a.htm", "old");
    QVERIFY(QFile::setPermissions(path("a.htm"), QFile::Permissions(0x6666)));
    {
        const OrdinaryUser user(m_folder->path());
        if (!user.ordinary())
            QSKIP("permission bits don't bind this user");
        QVERIFY(QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::ExeOwner));
        QCOMPARE(numberOf(errorOf([&] { writeFile(path("a.htm"), "new"); })), 75);
        QCOMPARE(numberOf(errorOf([&] { writeFile(path("b.htm"), "new"); })), 75);
        QVERIFY(
            QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    QCOMPARE(content("a.htm"), QByteArray("old"));
    QCOMPARE(names(), QStringList{"a.htm"});
}

void TestFiles::fullDiskKeepsTheOldFile_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("no room at all") << 1;
    QTest::newRow("within the buffer") << 9000;
    QTest::newRow("one large write") << 5'000'000;
}

void TestFiles::fullDiskKeepsTheOldFile()
{
    QFETCH(int, size);
    make("a.htm", "old");
    {
        const FullDisk disk(size == 1 ? 0 : 4096);
        const auto error = errorOf([&] { writeFile(path("a.htm"), QByteArray(size, 'x')); });
        QCOMPARE(numberOf(error), 75);
        QVERIFY(!error->description().isEmpty());
    }
    QCOMPARE(content("a.htm"), QByteArray("old"));
    QCOMPARE(names(), QStringList{"a.htm"});
}

void TestFiles::fullDiskMakesNoNewFile()
{
    {
        const FullDisk disk(4096);
        QCOMPARE(numberOf(errorOf([&] { writeFile(path("a.htm"), QByteArray(1'000'000, 'x')); })), 75);
    }
    QCOMPARE(names(), QStringList());
}

QTEST_GUILESS_MAIN(TestFiles)
#include "tst_files.moc"
