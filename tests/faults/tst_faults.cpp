// SPDX-License-Identifier: GPL-3.0-or-later

#include "FaultyFiles.h"
#include "MainWindow.h"
#include "WebTestMain.h"
#include "colour/Presets.h"
#include "forms/ListBox.h"
#include "platform/AppPath.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "services/Profile.h"
#include "shell/Journal.h"
#include "wizard/FrmTerms.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <cerrno>
#include <sys/mount.h>
#include <unistd.h>

using namespace brindlemark;

// Every way on which the program writes, with each of its file operations made to fail in turn, and on a full
// disk: a file is the old one or the new one at the end, nothing half-made stays, and the user hears what
// there is to hear.

namespace {

struct FaultRow
{
    const char* name;
    FaultyFiles::Fault fault;
    int error;
};

constexpr FaultRow Faults[] = {
    {"input/output error", FaultyFiles::Fault::Once, EIO},
    {"access denied", FaultyFiles::Fault::Once, EACCES},
    {"no space once", FaultyFiles::Fault::Once, ENOSPC},
    {"no space from here on", FaultyFiles::Fault::FullDisk, ENOSPC},
    {"short write, then no space", FaultyFiles::Fault::ShortWrite, ENOSPC},
};

/// Answers everything, and counts what it was told.
class Patient : public ScriptedDoors
{
public:
    QString path;

    MsgAnswer msgBox(const QString& prompt, const QString& title, MsgIcon, MsgButtons) override
    {
        asked << title + u'|' + prompt;
        return MsgAnswer::Yes;
    }
    bool saveDialog(CommonDialog& dialog) override
    {
        dialog.FileName = path;
        dialog.FileTitle = QFileInfo(path).fileName();
        return true;
    }
    /// Whether a message box with this title came since `asked` was cleared.
    bool told(const QString& title) const { return asked.join(u'\n').contains(title + u'|'); }
};

/// A folder whose files fail when a test wants it.
class Disk
{
public:
    QString path(const QString& name = QString()) const
    {
        return name.isEmpty() ? m_folder.path() : m_folder.filePath(name);
    }
    /// All files, also hidden ones.
    QStringList names() const
    {
        return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    /// A null array when there is no such file.
    QByteArray content(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s can't be made", qPrintable(name));
    }
    void clear() const
    {
        for (const QString& name : names())
            QFile::remove(path(name));
    }

private:
    QTemporaryDir m_folder;
};

/// Runs an action once with each of its calls failing in each of the ways. `prepare` runs before each try
/// with nothing failing, and `wrong` after it: what it returns is what is wrong.
void failEveryCall(const Disk& disk, FaultyFiles::Calls calls, const std::function<void()>& prepare,
                   const std::function<void()>& act, const std::function<QString()>& wrong)
{
    int tries = 0;
    int struck = 0;
    QSet<QByteArray> names;
    for (const FaultRow& row : Faults) {
        int total = 1;
        for (int number = 0; number <= total; ++number) { // the first try only counts
            prepare();
            FaultyFiles::arm(disk.path(), calls, number, row.fault, row.error);
            act();
            total = qMax(total, FaultyFiles::disarm());
            if (const QString problem = wrong(); !problem.isEmpty()) {
                QTest::qFail(qPrintable(QStringLiteral("%1 at call %2 (%3): %4; %5")
                                            .arg(QLatin1String(row.name))
                                            .arg(number)
                                            .arg(QString::fromLatin1(FaultyFiles::struck()), problem,
                                                 disk.names().join(u' '))),
                             __FILE__, __LINE__);
                return;
            }
            ++tries;
            struck += !FaultyFiles::struck().isEmpty();
            names << FaultyFiles::struck();
        }
    }
    qInfo("%d tries, %d calls failed:%s", tries, struck, names.values().join(' ').constData());
    QVERIFY(struck > 0);
}

const QByteArray Old = "the old content\r\n";
const QByteArray New = QByteArray("what is new ").repeated(20000) + "\r\n";

QString isNeither(const QByteArray& bytes)
{
    return QStringLiteral("neither old nor new: %1 bytes").arg(bytes.size());
}

/// What is wrong with a write that was, or wasn't, reported to have failed.
QString wrongEnd(const QByteArray& bytes, const QByteArray& old, const QByteArray& fresh, bool failed)
{
    if (bytes != old && bytes != fresh)
        return isNeither(bytes);
    if (failed == (bytes == fresh))
        return failed ? QStringLiteral("reported as failed, but new") : QStringLiteral("not reported");
    return QString();
}

} // namespace

class TestFaults : public QObject
{
    Q_OBJECT

private slots:
    void file_data();
    void file();
    void profile_data();
    void profile();
    void list();
    void preset();
    void journal();
    void journalIsTaken();
    void save();
    void saveAs_data();
    void saveAs();
    void terms();
    void recovered();
    void fullDisk();
};

void TestFaults::file_data()
{
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("linked");
    QTest::addColumn<bool>("all");
    QTest::newRow("replaced") << true << false << false;
    QTest::newRow("replaced, reads fail too") << true << false << true;
    QTest::newRow("replaced behind a link") << true << true << false;
    QTest::newRow("made") << false << false << false;
    QTest::newRow("made, reads fail too") << false << false << true;
}

void TestFaults::file()
{
    QFETCH(bool, exists);
    QFETCH(bool, linked);
    QFETCH(bool, all);
    const Disk disk;
    const QString name = linked ? QStringLiteral("link") : QStringLiteral("a.htm");
    bool failed = false;
    bool flushFailed = false;
    failEveryCall(
        disk, all ? FaultyFiles::Calls::All : FaultyFiles::Calls::Writing,
        [&] {
            disk.clear();
            if (exists)
                disk.put(QStringLiteral("a.htm"), Old);
            if (linked)
                QFile::link(disk.path(QStringLiteral("a.htm")), disk.path(name));
        },
        [&] {
            failed = false;
            try {
                writeFile(disk.path(name), New);
            } catch (const RuntimeError& error) {
                failed = error.number() == ErrorNumber::PathFileAccess && !error.description().isEmpty();
            }
        },
        [&] {
            QStringList expected;
            if (exists || !failed)
                expected << QStringLiteral("a.htm");
            if (linked)
                expected << name;
            if (disk.names() != expected)
                return QStringLiteral("files are left");
            if (FaultyFiles::struck() == "fsync") {
                flushFailed = true;
                if (!failed)
                    return QStringLiteral("the disk's own word is not heard");
            }
            return wrongEnd(disk.content(QStringLiteral("a.htm")), exists ? Old : QByteArray(), New, failed);
        });
    QVERIFY(flushFailed);
}

void TestFaults::profile_data()
{
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("all");
    QTest::newRow("changed") << true << false;
    QTest::newRow("changed, reads fail too") << true << true;
    QTest::newRow("made") << false << false;
}

void TestFaults::profile()
{
    QFETCH(bool, exists);
    QFETCH(bool, all);
    const Disk disk;
    const QString name = QStringLiteral("web.ini");
    const QByteArray before = "[Font]\r\nname=Arial\r\nBG=0\r\n[Color]\r\none=1\r\n";
    const QByteArray after = exists ? QByteArray("[Font]\r\nname=Arial\r\nBG=255\r\n[Color]\r\none=1\r\n")
                                    : "[Font]\r\nBG=255\r\n";
    failEveryCall(
        disk, all ? FaultyFiles::Calls::All : FaultyFiles::Calls::Writing,
        [&] {
            disk.clear();
            if (exists)
                disk.put(name, before);
        },
        [&] {
            WriteProfile(QStringLiteral("Font"), QStringLiteral("BG"), QStringLiteral("255"),
                         disk.path(name));
        },
        [&] {
            const QByteArray bytes = disk.content(name);
            if (!disk.names().isEmpty() && disk.names() != QStringList(name))
                return QStringLiteral("files are left");
            return bytes == after || bytes == (exists ? before : QByteArray()) ? QString() : isNeither(bytes);
        });
}

void TestFaults::list()
{
    const Disk disk;
    const QString name = QStringLiteral("Quick.ini");
    ListBox words;
    words.AddItem(QStringLiteral("lamp"));
    words.AddItem(QStringLiteral("shade"));
    failEveryCall(
        disk, FaultyFiles::Calls::All,
        [&] {
            disk.clear();
            disk.put(name, "old\r\n");
        },
        [&] { SaveList(disk.path(name), words); },
        [&] {
            const QByteArray bytes = disk.content(name);
            if (disk.names() != QStringList(name))
                return QStringLiteral("files are left");
            return bytes == "old\r\n" || bytes == "lamp\r\nshade\r\n" ? QString() : isNeither(bytes);
        });
}

void TestFaults::preset()
{
    // Its values are all new or all old.
    const Disk disk;
    Patient doors;
    doors.path = disk.path(QStringLiteral("my.fpc"));
    QString one = QStringLiteral("new one");
    QString two = QStringLiteral("new two");
    const Preset preset = {.fileName = QString(),
                           .section = QStringLiteral("Colors"),
                           .entries = {{QStringLiteral("1"), &one}, {QStringLiteral("2"), &two}}};
    failEveryCall(
        disk, FaultyFiles::Calls::All,
        [&] {
            disk.clear();
            disk.put(QStringLiteral("my.fpc"), "; mine\r\n[Colors]\r\n1=old one\r\n2=old two\r\n");
        },
        [&] { savePreset(preset); },
        [&] {
            if (disk.names() != QStringList(QStringLiteral("my.fpc")))
                return QStringLiteral("files are left");
            const QByteArray bytes = disk.content(QStringLiteral("my.fpc"));
            const bool whole = bytes == "; mine\r\n[Colors]\r\n1=old one\r\n2=old two\r\n" ||
                               bytes == "; mine\r\n[Colors]\r\n1=new one\r\n2=new two\r\n";
            return whole ? QString() : isNeither(bytes);
        });
}

void TestFaults::journal()
{
    // What stands in the folder at any end is a whole text, and when the disk works again a clean end leaves
    // nothing.
    const Disk disk;
    std::unique_ptr<Journal> program;
    failEveryCall(
        disk, FaultyFiles::Calls::Writing,
        [&] {
            program = std::make_unique<Journal>(QStringList(disk.path()));
            program->keep(QStringLiteral("/a.htm"), [] { return Old; });
            program->finish();
        },
        [&] {
            program->keep(QStringLiteral("/a.htm"), [] { return New; });
            program->finish();
        },
        [&] {
            for (const QString& name : disk.names()) {
                if (name.endsWith(QStringLiteral(".lock")))
                    continue;
                const QTemporaryDir copy;
                QFile::copy(disk.path(name), copy.filePath(QStringLiteral("Brindlemark-unsaved-1.htm")));
                const auto left = Journal({copy.path()}).takeLeftover();
                if (!left || !left->whole || (left->text != Old && left->text != New))
                    return QStringLiteral("no whole text in ") + name;
            }
            if (disk.names().size() != 2)
                return QStringLiteral("not one text and its lock");
            program.reset();
            return disk.names().isEmpty() ? QString() : QStringLiteral("files are left");
        });
}

void TestFaults::journalIsTaken()
{
    // A start at which the disk fails gives the text or none, and never loses it.
    const Disk disk;
    const QString name = QStringLiteral("Brindlemark-unsaved-1.htm");
    QByteArray file;
    {
        Journal program({disk.path()});
        program.keep(QStringLiteral("/a.htm"), [] { return Old; });
        program.finish();
        file = disk.content(name);
    }
    std::optional<Journal::Leftover> left;
    failEveryCall(
        disk, FaultyFiles::Calls::All,
        [&] {
            disk.clear();
            disk.put(name, file);
        },
        [&] { left = Journal({disk.path()}).takeLeftover(); },
        [&] {
            if (disk.content(name) != file)
                return QStringLiteral("the text is gone");
            if (left && (!left->whole || left->text != Old))
                return QStringLiteral("given back otherwise");
            return QString();
        });
}

void TestFaults::save()
{
    MainWindow window;
    window.journalTimer().stop();
    Patient doors;
    const Disk disk;
    const QString name = QStringLiteral("page.htm");
    const QByteArray text = New.chopped(2); // saving adds the line end
    failEveryCall(
        disk, FaultyFiles::Calls::Writing,
        [&] {
            disk.clear();
            disk.put(name, Old);
            window.web->document().setName(disk.path(name));
            window.web->RichTextBox1->setText(text);
            doors.asked.clear();
        },
        [&] { window.press(Tool::Save); },
        [&] {
            const bool failed = doors.told(QStringLiteral("Error"));
            if (disk.names() != QStringList(name))
                return QStringLiteral("files are left");
            if (window.web->Dirty() != failed || window.source() != text)
                return QStringLiteral("the window has it otherwise");
            return wrongEnd(disk.content(name), Old, New, failed);
        });
    setDoors(&window.doors);
}

void TestFaults::saveAs_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("new file") << false;
    QTest::newRow("replaced file") << true;
}

void TestFaults::saveAs()
{
    QFETCH(bool, exists);
    MainWindow window;
    window.journalTimer().stop();
    Patient doors;
    const Disk disk;
    const QString name = QStringLiteral("page.htm");
    doors.path = disk.path(name);
    failEveryCall(
        disk, FaultyFiles::Calls::Writing,
        [&] {
            disk.clear();
            if (exists)
                disk.put(name, Old);
            window.web->document().setName(QStringLiteral("Untitled"));
            window.web->RichTextBox1->setText(New.chopped(2));
            doors.asked.clear();
        },
        [&] { window.press(Tool::SaveAs); },
        [&] {
            const bool failed = doors.told(QStringLiteral("Error"));
            if (disk.names() != (exists || !failed ? QStringList(name) : QStringList()))
                return QStringLiteral("files are left");
            if (window.web->Dirty() != failed || (window.web->documentName() == disk.path(name)) == failed)
                return QStringLiteral("the window has it otherwise");
            return wrongEnd(disk.content(name), exists ? Old : QByteArray(), New, failed);
        });
    setDoors(&window.doors);
}

void TestFaults::terms()
{
    const Disk disk;
    Patient doors;
    setAppPath(disk.path());
    const auto back = qScopeGuard([] {
        form<FrmTerms>()->Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        setAppPath(QString());
    });
    const QString name = QStringLiteral("weblst.ini");
    failEveryCall(
        disk, FaultyFiles::Calls::Writing,
        [&] {
            disk.clear();
            disk.put(name, Old);
            openTerms(0);
            form<FrmTerms>()->edit(QStringLiteral("<P>new"));
            doors.asked.clear();
        },
        [&] { QTest::mouseClick(form<FrmTerms>()->Command14, Qt::LeftButton); },
        [&] {
            const bool failed = doors.told(QStringLiteral("Error"));
            const QByteArray bytes = disk.content(name);
            if (disk.names() != QStringList(name))
                return QStringLiteral("files are left");
            if (form<FrmTerms>()->isVisible() != failed)
                return QStringLiteral("the window has it otherwise");
            if (bytes != Old && !(bytes.startsWith("\r\n<BODY>") && bytes.contains("<P>new</P></BODY>") &&
                                  bytes.endsWith("\r\n")))
                return isNeither(bytes);
            return failed == (bytes == Old) ? QString() : QStringLiteral("not told as it is");
        });
}

void TestFaults::recovered()
{
    // The text that a fatal error keeps is where the message says, whole, and an earlier one is never harmed
    // before the new one is there.
    MainWindow window;
    window.journalTimer().stop();
    Patient doors;
    const Disk disk;
    setAppPath(disk.path());
    const QByteArray home = qgetenv("HOME");
    const QTemporaryDir otherHome;
    qputenv("HOME", QFile::encodeName(otherHome.path()));
    const auto back = qScopeGuard([&] { qputenv("HOME", home); });
    window.web->RichTextBox1->setText(New);
    failEveryCall(
        disk, FaultyFiles::Calls::Writing,
        [&] {
            disk.clear();
            disk.put(QStringLiteral("Recovered.htm"), "earlier");
            QFile::remove(otherHome.filePath(QStringLiteral("Recovered.htm")));
            QFile::remove(otherHome.filePath(QStringLiteral("Recovered.old.htm")));
            doors.asked.clear();
        },
        [&] { guarded([] { throw RuntimeError(ErrorNumber::Overflow); }); },
        [&] {
            const QString message = doors.asked.value(0);
            bool kept = false;
            for (const QString& path : {disk.path(QStringLiteral("Recovered.htm")),
                                        otherHome.filePath(QStringLiteral("Recovered.htm"))}) {
                QFile file(path);
                if (message.contains(QStringLiteral("Your text is kept in %1.").arg(path)))
                    kept = file.open(QIODevice::ReadOnly) && file.readAll() == New;
            }
            if (!kept)
                return QStringLiteral("not where it is said to be: ") + message;
            for (const QString& name : disk.names()) {
                const QByteArray bytes = disk.content(name);
                if (!name.startsWith(QStringLiteral("Recovered.")) || (bytes != New && bytes != "earlier"))
                    return QStringLiteral("a stump: ") + name;
            }
            return QString();
        });
    setDoors(&window.doors);
}

void TestFaults::fullDisk()
{
    const QTemporaryDir folder;
    const QByteArray place = QFile::encodeName(folder.path());
    if (geteuid() != 0 || mount("tmpfs", place.constData(), "tmpfs", 0, "size=256k") != 0)
        QSKIP("only the superuser can make a small disk");
    const auto unmounted = qScopeGuard([&] { umount2(place.constData(), MNT_DETACH); });
    const auto content = [&](const QString& name) {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    };

    // A document larger than what is free.
    MainWindow window;
    window.journalTimer().stop();
    Patient doors;
    writeFile(folder.filePath(QStringLiteral("page.htm")), Old);
    window.web->document().setName(folder.filePath(QStringLiteral("page.htm")));
    window.web->RichTextBox1->setText(QByteArray(1'000'000, 'x'));
    window.press(Tool::Save);
    QCOMPARE(doors.asked, QStringList("Error|There has been a (25)error, Cannot save file."));
    QCOMPARE(content(QStringLiteral("page.htm")), Old);
    QVERIFY(window.web->Dirty());

    // Settings and lists when there is no room at all.
    const QByteArray settings = "[Font]\r\nBG=0\r\n";
    writeFile(folder.filePath(QStringLiteral("web.ini")), settings);
    writeFile(folder.filePath(QStringLiteral("Quick.ini")), "old\r\n");
    QFile filler(folder.filePath(QStringLiteral("filler")));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'f')) == 4096) {
    }
    WriteProfile(QStringLiteral("Font"), QStringLiteral("BG"), QStringLiteral("255"),
                 folder.filePath(QStringLiteral("web.ini")));
    ListBox words;
    words.AddItem(QStringLiteral("lamp"));
    SaveList(folder.filePath(QStringLiteral("Quick.ini")), words);
    QCOMPARE(content(QStringLiteral("web.ini")), settings);
    QCOMPARE(content(QStringLiteral("Quick.ini")), QByteArray("old\r\n"));

    // Unsaved text goes where there is room.
    const QTemporaryDir home;
    {
        Journal journal({folder.path(), home.path()});
        journal.keep(QStringLiteral("/a.htm"), [] { return Old; });
        journal.finish();
        QVERIFY(QFile::exists(home.filePath(QStringLiteral("Brindlemark-unsaved-1.htm"))));
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             (QStringList{"filler", "page.htm", "Quick.ini", "web.ini"}));

    // When there is room again the same save works.
    QVERIFY(filler.remove());
    window.web->RichTextBox1->setText("short");
    window.press(Tool::Save);
    QCOMPARE(content(QStringLiteral("page.htm")), QByteArray("short\r\n"));
    QVERIFY(!window.web->Dirty());
    setDoors(&window.doors);
}

RENDERER_TEST_MAIN(TestFaults)
#include "tst_faults.moc"
