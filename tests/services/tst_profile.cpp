// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Profile.h"

#include "Random.h"
#include "forms/ListObject.h"
#include "platform/AppPath.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <array>
#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

using namespace brindlemark;

namespace {

/// A literal's bytes, NULs included.
template <std::size_t N>
QByteArray raw(const char (&literal)[N])
{
    return QByteArray(literal, N - 1);
}

/// A list box's texts without the box.
class Texts : public ListObject
{
public:
    QStringList entries;

    int ListCount() const override { return static_cast<int>(entries.size()); }
    QString List(int index) const override { return entries.value(index); }
    void AddItem(const QString& text) override { entries << text; }
};

/// One line of a generated profile file, with its line end, and what it is: a header names a section, a key
/// line names a key; all else has no name.
struct Piece
{
    QByteArray bytes;
    QString section{};
    QString key{};
};

QByteArray joined(const QList<Piece>& pieces)
{
    QByteArray bytes;
    for (const Piece& piece : pieces)
        bytes += piece.bytes;
    return bytes;
}

bool isBlankPiece(const Piece& piece)
{
    return piece.bytes.trimmed().isEmpty();
}

/// Does to the pieces what a write must do to the file, without looking at a single byte of their names. A
/// new section's header has the caller's `spelling`.
void write(QList<Piece>& pieces, const QString& section, const QString& spelling, const QString& key,
           const QByteArray& value)
{
    qsizetype header = 0;
    while (header < pieces.size() && pieces[header].section != section)
        ++header;
    if (header == pieces.size()) {
        if (!pieces.isEmpty() && !isBlankPiece(pieces.constLast()))
            pieces << Piece{"\r\n"};
        pieces << Piece{'[' + spelling.toUtf8() + "]\r\n", section}
               << Piece{key.toUtf8() + '=' + value + "\r\n", {}, key};
        return;
    }
    qsizetype end = header + 1;
    for (; end < pieces.size() && pieces[end].section.isNull(); ++end) {
        Piece& piece = pieces[end];
        if (piece.key != key)
            continue;
        QByteArray lineEnd = piece.bytes.right(2);
        if (lineEnd != "\r\n")
            lineEnd = piece.bytes.right(1);
        piece.bytes = piece.bytes.left(piece.bytes.indexOf('=') + 1) + value + lineEnd;
        return;
    }
    while (isBlankPiece(pieces[end - 1]))
        --end;
    pieces.insert(end, Piece{key.toUtf8() + '=' + value + "\r\n", {}, key});
}

} // namespace

class TestProfile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void reads_data();
    void reads();
    void readsFromAnyKindOfFile();
    void longValuesAreCut_data();
    void longValuesAreCut();
    void namesKnowNoCase();
    void writes_data();
    void writes();
    void writesSeveral();
    void writesSpecialValues_data();
    void writesSpecialValues();
    void titlesOfUsersAreFoundAgain_data();
    void titlesOfUsersAreFoundAgain();
    void writtenValuesReadBackAndAllElseStays_data() { addSeeds(); }
    void writtenValuesReadBackAndAllElseStays();
    void whatIsWrittenIsRead_data() { addSeeds(); }
    void whatIsWrittenIsRead();
    void sameValueWritesNothing();
    void writeThatFailsHarmsNothing();
    void programsKeepEachOthersValues();
    void heldTurnIsNotWaitedForLong();
    void largeFile();

    void existence();
    void savesLists_data();
    void savesLists();
    void failedSaveKeepsTheOldList();
    void loadsFields_data();
    void loadsFields();
    void loadAppends();
    void loadOfNoFileAddsNothing();
    void entryWithACommaComesBackAsTwo();
    void longList();
    void savedEntriesAreLoaded_data() { addSeeds(); }
    void savedEntriesAreLoaded();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QString ini() const { return path("web.ini"); }
    void make(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    QByteArray content(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    QStringList loaded(const QByteArray& bytes) const
    {
        make("list.ini", bytes);
        Texts list;
        LoadList(path("list.ini"), list);
        return list.entries;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestProfile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    setAppPath(m_folder->path());
}

void TestProfile::cleanup()
{
    m_folder.reset();
}

void TestProfile::reads_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("value"); // of section Color, key back
    const auto row = [](const char* name, const QByteArray& file, const char* value) {
        QTest::newRow(name) << file << QString::fromUtf8(value);
    };
    row("usual", "[Color]\r\nback=255\r\n", "255");
    row("no line end at the end", "[Color]\r\nback=255", "255");
    row("lone line feeds", "[Color]\nback=255\nfour=1\n", "255");
    row("lone carriage returns", "[Color]\rback=255\rfour=1\r", "255");
    row("other case", "[COLOR]\r\nBack=255\r\n", "255");
    row("blanks around the names", "  [ Color ]  \r\n\t back =255\r\n", "255");
    row("blanks around the value", "[Color]\r\nback= \t255 \r\n", "255");
    row("blanks within", "[Color]\r\nback=a  b\r\n", "a  b");
    row("double quotes", "[Color]\r\nback=\" 255 \"\r\n", " 255 ");
    row("single quotes", "[Color]\r\nback=' 255 '\r\n", " 255 ");
    row("one pair alone", "[Color]\r\nback=\"\"255\"\"\r\n", "\"255\"");
    row("unequal quotes", "[Color]\r\nback=\"255'\r\n", "\"255'");
    row("a lone quote", "[Color]\r\nback=\"\r\n", "\"");
    row("empty quotes", "[Color]\r\nback=\"\"\r\n", "");
    row("empty", "[Color]\r\nback=\r\n", "");
    row("value with =", "[Color]\r\nback=a=b\r\n", "a=b");
    row("value with ;", "[Color]\r\nback=a;b\r\n", "a;b");
    row("value with ]", "[Color]\r\nback=[a]\r\n", "[a]");
    row("beyond ASCII", "[Color]\r\nback=\xC3\xA9\r\n", "\xC3\xA9");
    row("comment", "[Color]\r\n;back=1\r\n ; back=2\r\nback=255\r\n", "255");
    row("commented header", ";[Color]\r\nback=1\r\n", "");
    row("other section", "[Font]\r\nback=1\r\n[Color]\r\nback=255\r\n", "255");
    row("key of the next section", "[Color]\r\n[Font]\r\nback=1\r\n", "");
    row("key before any section", "back=1\r\n[Color]\r\n", "");
    row("no such section", "[Font]\r\nback=1\r\n", "");
    row("longer names", "[Colors]\r\nback=1\r\n[Color]\r\nbackground=2\r\n", "");
    row("the first key counts", "[Color]\r\nback=1\r\nback=2\r\n", "1");
    row("the first section counts", "[Color]\r\none=1\r\n[Color]\r\nback=2\r\n", "");
    row("line without =", "[Color]\r\nback\r\nback=255\r\n", "255");
    row("header without ]", "[Font]\r\n[Color\r\nback=1\r\n", "");
    row("text behind the header", "[Color] ; of the source box\r\nback=255\r\n", "255");
    row("byte order mark", "\xEF\xBB\xBF[Color]\r\nback=255\r\n", "255");
    row("byte order mark alone", "\xEF\xBB\xBF", "");
    row("empty file", "", "");
    row("blank lines", "\r\n\r\n[Color]\r\n\r\nback=255\r\n", "255");
    row("header at the very end", "[Color]", "");
    row("NULs around", raw("\0\0\r\n[Color]\r\n\0=\0\r\nback=255\r\n"), "255");
    row("only NULs", QByteArray(1000, '\0'), "");
    row("invalid bytes before", "\xFF\xFE\x80\r\n[\xFF]\r\n[Color]\r\n\x80=\xFF\r\nback=255\r\n", "255");
    row("wide encoding", raw("\xFF\xFE[\0C\0o\0l\0o\0r\0]\0"), "");
}

void TestProfile::reads()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, value);
    make("web.ini", file);
    QCOMPARE(ReadProfile("Color", "back", ini()), value);
    QCOMPARE(content("web.ini"), file);
}

void TestProfile::readsFromAnyKindOfFile()
{
    QCOMPARE(ReadProfile("Color", "back", appFile(u"\\web.ini")), QString());
    QVERIFY(QDir(m_folder->path()).isEmpty()); // asking for a file doesn't make it
    QCOMPARE(ReadProfile("Color", "back", m_folder->path()), QString());
    QCOMPARE(ReadProfile("Color", "back", path("gone/web.ini")), QString());
    QCOMPARE(ReadProfile("Color", "back", QString()), QString());
    QCOMPARE(ReadProfile("Color", "back", "/proc/self/mem"), QString()); // fails in the middle of reading

    make("web.ini", "[Color]\r\nback=255\r\n");
    QVERIFY(QFile::setPermissions(ini(), QFile::ReadOwner | QFile::ReadUser));
    QCOMPARE(ReadProfile("Color", "back", appFile(u"\\web.ini")), QStringLiteral("255"));
}

void TestProfile::longValuesAreCut_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("read");
    const QString face = QString::fromUtf8("\xF0\x9F\x98\x80"); // one character of two units
    QTest::newRow("253") << QString(253, u'x') << QString(253, u'x');
    QTest::newRow("254") << QString(254, u'x') << QString(254, u'x');
    QTest::newRow("255") << QString(255, u'x') << QString(254, u'x');
    QTest::newRow("10000") << QString(10000, u'x') << QString(254, u'x');
    QTest::newRow("two bytes each") << QString(300, QChar(0xE9)) << QString(254, QChar(0xE9));
    QTest::newRow("whole character at the cut")
        << QString(252, u'x') + face + u'y' << QString(252, u'x') + face;
    QTest::newRow("character in the cut") << QString(253, u'x') + face << QString(253, u'x');
    QTest::newRow("quotes don't count") << u'"' + QString(254, u'x') + u'"' << QString(254, u'x');
}

void TestProfile::longValuesAreCut()
{
    QFETCH(QString, value);
    QFETCH(QString, read);
    WriteProfile("Color", "back", value, ini());
    QCOMPARE(ReadProfile("Color", "back", ini()), read);
    QCOMPARE(content("web.ini"), "[Color]\r\nback=" + value.toUtf8() + "\r\n");
}

void TestProfile::namesKnowNoCase()
{
    WriteProfile("Color", "Back", "16777215", ini());
    QCOMPARE(ReadProfile("Color", "back", ini()), QStringLiteral("16777215"));
    WriteProfile("COLOR", "bACK", "0", ini());
    QCOMPARE(content("web.ini"), QByteArray("[Color]\r\nBack=0\r\n"));
    WriteProfile(QString::fromUtf8("\xC3\x84rmel"), "x", "1", ini());
    QCOMPARE(ReadProfile(QString::fromUtf8("\xC3\xA4RMEL"), "X", ini()), QStringLiteral("1"));
}

void TestProfile::writes_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after"); // section Color, key back, value 255
    const auto row = [](const char* name, const QByteArray& before, const QByteArray& after) {
        QTest::newRow(name) << before << after;
    };
    row("empty file", "", "[Color]\r\nback=255\r\n");
    row("byte order mark alone", "\xEF\xBB\xBF", "\xEF\xBB\xBF[Color]\r\nback=255\r\n");
    row("replaced", "[Color]\r\none=1\r\nback=0\r\ntwo=2\r\n", "[Color]\r\none=1\r\nback=255\r\ntwo=2\r\n");
    row("spelling stays", "[COLOR]\r\n  Back =  0  \r\n", "[COLOR]\r\n  Back =255\r\n");
    row("line feed stays", "[Color]\nback=0\none=1\n", "[Color]\nback=255\none=1\n");
    row("carriage return stays", "[Color]\rback=0\rone=1\r", "[Color]\rback=255\rone=1\r");
    row("open end stays", "[Color]\r\nback=0", "[Color]\r\nback=255");
    row("replaced in quotes", "[Color]\r\nback=\"0\"\r\n", "[Color]\r\nback=255\r\n");
    row("only the first", "[Color]\r\nback=0\r\nback=1\r\n", "[Color]\r\nback=255\r\nback=1\r\n");
    row("new key", "[Color]\r\none=1\r\n", "[Color]\r\none=1\r\nback=255\r\n");
    row("new key before blank lines", "[Color]\r\none=1\r\n\r\n  \r\n[Font]\r\nsize=8\r\n",
        "[Color]\r\none=1\r\nback=255\r\n\r\n  \r\n[Font]\r\nsize=8\r\n");
    row("new key behind blank lines within", "[Color]\r\n\r\none=1\r\n\r\n; note\r\n\r\n",
        "[Color]\r\n\r\none=1\r\n\r\n; note\r\nback=255\r\n\r\n");
    row("new key in an empty section", "[Color]\r\n\r\n[Font]\r\n", "[Color]\r\nback=255\r\n\r\n[Font]\r\n");
    row("new key behind an open line", "[Color]\r\none=1", "[Color]\r\none=1\r\nback=255\r\n");
    row("new key behind an open header", "[Color]", "[Color]\r\nback=255\r\n");
    row("commented key stays", "[Color]\r\n;back=0\r\n", "[Color]\r\n;back=0\r\nback=255\r\n");
    row("line without = stays", "[Color]\r\nback\r\n", "[Color]\r\nback\r\nback=255\r\n");
    row("new section", "[Font]\r\nback=0\r\n", "[Font]\r\nback=0\r\n\r\n[Color]\r\nback=255\r\n");
    row("new section behind a blank line", "[Font]\r\n\r\n", "[Font]\r\n\r\n[Color]\r\nback=255\r\n");
    row("new section behind an open line", "[Font]\nback=0", "[Font]\nback=0\r\n\r\n[Color]\r\nback=255\r\n");
    row("other lines to the byte", raw("\xFF\0\r\n[\x80]\nback=\xFE\n[Color]\rback=0\r;\xC3\r\n\n\r"),
        raw("\xFF\0\r\n[\x80]\nback=\xFE\n[Color]\rback=255\r;\xC3\r\n\n\r"));
}

void TestProfile::writes()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    make("web.ini", before);
    WriteProfile("Color", "back", "255", ini());
    QCOMPARE(content("web.ini"), after);
    QCOMPARE(ReadProfile("Color", "back", ini()), QStringLiteral("255"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{"web.ini"});
}

void TestProfile::writesSeveral()
{
    make("web.ini", "; mine\r\n[Font]\r\nname=Arial\r\n");
    WriteProfile({{"Font", "name", "Courier New"},
                  {"Color", "back", "255"},
                  {"font", "size", "10"},
                  {"Color", "Back", "0"}},
                 ini());
    QCOMPARE(content("web.ini"), QByteArray("; mine\r\n[Font]\r\nname=Courier New\r\nsize=10\r\n"
                                            "\r\n[Color]\r\nback=0\r\n"));
}

void TestProfile::writesSpecialValues_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("read");
    QTest::newRow("empty") << "" << QByteArray("back=") << "";
    QTest::newRow("blanks are lost in reading") << "  a " << QByteArray("back=  a ") << "a";
    QTest::newRow("quotes are lost in reading") << "\"a\"" << QByteArray("back=\"a\"") << "a";
    QTest::newRow("inner quotes") << "a \"b\" c" << QByteArray("back=a \"b\" c") << "a \"b\" c";
    QTest::newRow("cut at CR LF") << "a\r\n[Font]" << QByteArray("back=a") << "a";
    QTest::newRow("cut at LF") << "a\nb=c" << QByteArray("back=a") << "a";
    QTest::newRow("cut at CR") << "\rb" << QByteArray("back=") << "";
    QTest::newRow("=") << "=" << QByteArray("back==") << "=";
    QTest::newRow("header-like") << "[Font]" << QByteArray("back=[Font]") << "[Font]";
    QTest::newRow("byte order mark") << QStringLiteral("\uFEFFa")
                                     << QByteArray("back=\xEF\xBB\xBF"
                                                   "a")
                                     << QStringLiteral("\uFEFFa");
    QTest::newRow("NUL") << QString(QStringLiteral("a") + QChar(0) + u'b') << raw("back=a\0b")
                         << QString(QStringLiteral("a") + QChar(0) + u'b');
}

void TestProfile::writesSpecialValues()
{
    QFETCH(QString, value);
    QFETCH(QByteArray, line);
    QFETCH(QString, read);
    make("web.ini", "[Color]\r\none=1\r\nback=old\r\ntwo=2\r\n");
    WriteProfile("Color", "back", value, ini());
    QCOMPARE(content("web.ini"), "[Color]\r\none=1\r\n" + line + "\r\ntwo=2\r\n");
    QCOMPARE(ReadProfile("Color", "back", ini()), read);
}

void TestProfile::titlesOfUsersAreFoundAgain_data()
{
    QTest::addColumn<QString>("title");
    for (const char* title : {"My table", "a]b", "]", "[a]", "a=b", "a, b", ";a", "\xE2\x82\xAC 5", "a;b]",
                              "100%", " blanks ", "\xC2\xA0hard blanks\xE2\x80\x83", "\"quoted\"", "a\\b"})
        QTest::newRow(title) << QString::fromUtf8(title);
    QTest::newRow("byte order mark") << QStringLiteral("\uFEFFmark");
    QTest::newRow("line break") << QStringLiteral("a\r\nb");
}

void TestProfile::titlesOfUsersAreFoundAgain()
{
    QFETCH(QString, title);
    WriteProfile("Other", "Borde", "0", ini());
    WriteProfile(title, "Borde", "255", ini());
    WriteProfile(title, "BGC", "1", ini());
    WriteProfile(title, "Borde", "256", ini());
    QCOMPARE(ReadProfile(title, "Borde", ini()), QStringLiteral("256"));
    QCOMPARE(ReadProfile(title, "BGC", ini()), QStringLiteral("1"));
    QCOMPARE(ReadProfile("Other", "Borde", ini()), QStringLiteral("0"));
    QCOMPARE(content("web.ini").count("\r\n"), 6); // one section of that name, not three
}

void TestProfile::writtenValuesReadBackAndAllElseStays()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const QStringList sections{"Font", "Color", "a]b", "x=y", QString::fromUtf8("\xC3\xA9")};
    const QStringList keys{"back", "one", "two words", "9", QString::fromUtf8("\xC3\xBC")};
    const QList<QByteArray> lineEnds{"\r\n", "\n", "\r"};
    const QList<QByteArray> noise{"; note [x] a=b", ";", "no sign", "\xFF\xFE", "  ", "", "\t", raw("\0")};
    const auto pick = [&](const auto& list) { return list[random.bounded(static_cast<int>(list.size()))]; };
    const auto spelt = [&](const QString& name) {
        const QString text = random.bounded(2) ? name.toUpper() : name;
        return QByteArray(random.bounded(3), ' ') + text.toUtf8();
    };

    for (int round = 0; round < 40; ++round) {
        // One line end a file: a lone CR and a blank line ended by LF would read as one line end.
        const QByteArray lineEnd = pick(lineEnds);
        QList<Piece> pieces;
        for (int left = random.bounded(4); left > 0; --left)
            pieces << Piece{pick(noise) + lineEnd};
        for (const QString& section : sections) {
            if (random.bounded(2))
                continue;
            pieces << Piece{QByteArray(random.bounded(2), '\t') + '[' + section.toUtf8() + ']' + lineEnd,
                            section};
            for (int left = random.bounded(6); left > 0; --left) {
                const QString key = pick(keys);
                const bool isKey = random.bounded(2) == 1;
                pieces << (isKey ? Piece{spelt(key) + " =\t \xC3 old" + lineEnd, {}, key}
                                 : Piece{pick(noise) + lineEnd});
            }
        }
        const QByteArray mark = random.bounded(4) ? QByteArray() : QByteArray("\xEF\xBB\xBF");
        make("web.ini", mark + joined(pieces));

        for (int writes = 0; writes < 6; ++writes) {
            const QString section = pick(sections);
            const QString key = pick(keys);
            QString value = QString::number(random.generate());
            for (int left = random.bounded(40); left > 0; --left)
                value += QChar(0x21 + random.bounded(0x400));
            value += u'.'; // no closing quote
            const QString spelling = random.bounded(2) ? section.toUpper() : section;
            write(pieces, section, spelling, key, value.toUtf8());
            WriteProfile(spelling, key, value, ini());
            QCOMPARE(content("web.ini"), mark + joined(pieces));
            QCOMPARE(ReadProfile(section.toUpper(), key.toUpper(), ini()), value);
        }
    }
}

/// Many values under many names in one file: each is there at the end.
void TestProfile::whatIsWrittenIsRead()
{
    QFETCH(quint32, seed);
    Random random(seed);
    const auto inQuotes = [](const QString& text) {
        return text.size() > 1 && (text.front() == u'"' || text.front() == u'\'') &&
               text.front() == text.back();
    };
    struct Value
    {
        QString section;
        QString key;
        QString value;
    };
    QList<Value> written;
    for (int writes = 0; writes < 60; ++writes) {
        const QString section = random.text(4);
        // Keys are the program's own: none has a sign of the file's.
        const QString key = random.text(4).remove(u'=').remove(u'[').remove(u';');
        QString value;
        do {
            value = random.text(20).trimmed();
        } while (inQuotes(value) || value.size() > 254);

        const auto same = [&](const Value& other) {
            return other.section.trimmed().compare(section.trimmed(), Qt::CaseInsensitive) == 0 &&
                   other.key.trimmed().compare(key.trimmed(), Qt::CaseInsensitive) == 0;
        };
        const auto place = std::find_if(written.begin(), written.end(), same);
        if (place == written.end()) {
            written << Value{section, key, value};
        } else {
            place->value = value;
        }
        WriteProfile(section, key, value, ini());
    }
    for (const Value& each : std::as_const(written))
        QCOMPARE(ReadProfile(each.section, each.key, ini()), each.value);
}

void TestProfile::sameValueWritesNothing()
{
    make("web.ini", "[Color]\r\nback=255\r\n");
    const QDateTime past = QDateTime::currentDateTime().addDays(-1);
    QFile file(ini());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(past, QFileDevice::FileModificationTime));
    file.close();
    const QDateTime before = QFileInfo(ini()).lastModified();
    WriteProfile("Color", "back", "255", ini());
    QCOMPARE(QFileInfo(ini()).lastModified(), before);
    WriteProfile("Color", "back", "256", ini());
    QVERIFY(QFileInfo(ini()).lastModified() > before);
}

void TestProfile::writeThatFailsHarmsNothing()
{
    make("web.ini", "[Color]\r\nback=255\r\n");
    QVERIFY(QFile::setPermissions(ini(), QFile::ReadOwner | QFile::ReadUser));
    WriteProfile("Color", "back", "0", ini());
    QCOMPARE(content("web.ini"), QByteArray("[Color]\r\nback=255\r\n"));

    QVERIFY(QDir(m_folder->path()).mkdir("Table.ini"));
    WriteProfile("Color", "back", "0", path("Table.ini"));
    QVERIFY(QFileInfo(path("Table.ini")).isDir());

    WriteProfile("Color", "back", "0", path("gone/web.ini"));
    QVERIFY(!QFileInfo::exists(path("gone")));
    WriteProfile("Color", "back", "0", QString());
}

namespace {

/// Runs `work` in a process of its own; the process.
pid_t inAnotherProcess(const std::function<void()>& work)
{
    const pid_t process = fork();
    if (process == 0) {
        work();
        _exit(0);
    }
    return process;
}

/// Whether a process has come to its end by itself.
bool endedWell(pid_t process)
{
    int status = -1;
    return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

void TestProfile::programsKeepEachOthersValues()
{
    constexpr int Writes = 1000;
    // In memory: a disk would take half a minute.
    const QTemporaryDir memory(QStringLiteral("/dev/shm/profile-XXXXXX"));
    const QTemporaryDir& folder = memory.isValid() ? memory : *m_folder;
    const QString file = folder.filePath(QStringLiteral("web.ini"));
    QList<pid_t> programs;
    for (const char* section : {"one", "two"}) {
        programs << inAnotherProcess([&, section] {
            for (int i = 0; i < Writes; ++i)
                WriteProfile(QString::fromLatin1(section), QString::number(i), QStringLiteral("x"), file);
        });
    }
    for (const pid_t program : programs)
        QVERIFY(endedWell(program));
    int lost = 0;
    const Profile written(file);
    for (const char* section : {"one", "two"}) {
        for (int i = 0; i < Writes; ++i)
            lost += written.value(QString::fromLatin1(section), QString::number(i)).isEmpty() ? 1 : 0;
    }
    QCOMPARE(lost, 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{"web.ini"});
}

/// A program that hangs in its turn costs a moment; one that was ended in it costs nothing.
void TestProfile::heldTurnIsNotWaitedForLong()
{
    std::array<int, 2> held{};
    QCOMPARE(pipe(held.data()), 0);
    const pid_t holder = inAnotherProcess([&] {
        const FileTurn turn(ini());
        if (::write(held[1], "x", 1) == 1)
            pause();
    });
    char token = 0;
    QCOMPARE(::read(held[0], &token, 1), ssize_t(1));
    QElapsedTimer clock;
    clock.start();
    WriteProfile("a", "b", "1", ini());
    const qint64 waited = clock.elapsed();
    kill(holder, SIGKILL);
    QVERIFY(!endedWell(holder));
    QVERIFY2(waited >= 500, qPrintable(QString::number(waited))); // it was another's turn
    QCOMPARE(ReadProfile("a", "b", ini()), QStringLiteral("1"));
    qint64 quickest = 1000;
    for (int i = 0; i < 20; ++i) {
        clock.start();
        WriteProfile("a", "b", QString::number(i), ini());
        quickest = qMin(quickest, clock.elapsed());
    }
    QVERIFY2(quickest < 500, qPrintable(QString::number(quickest)));
    close(held[0]);
    close(held[1]);
}

void TestProfile::largeFile()
{
    QByteArray bytes;
    for (int section = 0; bytes.size() < 5'000'000; ++section) {
        bytes += "[Set " + QByteArray::number(section) + "]\r\n";
        for (int key = 0; key < 20; ++key)
            bytes += "key" + QByteArray::number(key) + "=some value of the usual length\r\n";
    }
    make("web.ini", bytes + "[Color]\r\nback=255\r\n");
    QElapsedTimer watch;
    watch.start();
    QCOMPARE(ReadProfile("Color", "back", ini()), QStringLiteral("255"));
    WriteProfile("Color", "back", "256", ini());
    QVERIFY2(watch.elapsed() < 20'000, qPrintable(QString::number(watch.elapsed())));
    QCOMPARE(content("web.ini"), bytes + "[Color]\r\nback=256\r\n");

    make("web.ini", "[Color]\r\nback=" + QByteArray(5'000'000, 'x'));
    QCOMPARE(ReadProfile("Color", "back", ini()), QString(254, u'x'));
    make("web.ini", QByteArray(5'000'000, '\n'));
    QCOMPARE(ReadProfile("Color", "back", ini()), QString());
}

void TestProfile::existence()
{
    make("a.ini", "");
    QVERIFY(QDir(m_folder->path()).mkdir("folder"));
    QVERIFY(QFile::link(path("a.ini"), path("link")));
    QVERIFY(QFile::link(path("gone"), path("dangling")));
    const std::pair<QString, bool> files[] = {
        {path("a.ini"), true},   {path("link"), true},        {path("none.ini"), false},
        {path("folder"), false}, {path("dangling"), false},   {path("a.ini/b"), false},
        {QString(), false},      {path("gone/a.ini"), false}, {"/dev/null", false}};
    for (const auto& [file, exists] : files) {
        QVERIFY2(FileExists(file) == exists, qPrintable(file));
        QVERIFY2(FileLenExists(file) == exists, qPrintable(file));
    }
}

void TestProfile::savesLists_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("none") << QStringList() << QByteArray();
    QTest::newRow("one") << QStringList{"a"} << QByteArray("a\r\n");
    QTest::newRow("order and duplicates") << QStringList{"b", "a", "b"} << QByteArray("b\r\na\r\nb\r\n");
    QTest::newRow("empty entries") << QStringList{"", "a", "", ""} << QByteArray("a\r\n");
    QTest::newRow("comma") << QStringList{"a,b"} << QByteArray("a,b\r\n");
    QTest::newRow("quotes") << QStringList{"\"a\" b"} << QByteArray("\"a\" b\r\n");
    QTest::newRow("blanks") << QStringList{" a ", " "} << QByteArray(" a \r\n \r\n");
    QTest::newRow("beyond ASCII") << QStringList{QString::fromUtf8("\xE2\x82\xAC")}
                                  << QByteArray("\xE2\x82\xAC\r\n");
}

void TestProfile::savesLists()
{
    QFETCH(QStringList, entries);
    QFETCH(QByteArray, file);
    make("Ils.ini", "what was there before\r\n");
    Texts list;
    list.entries = entries;
    SaveList(path("Ils.ini"), list);
    QCOMPARE(content("Ils.ini"), file);
    SaveList(path("new.ini"), list);
    QCOMPARE(content("new.ini"), file);
}

void TestProfile::failedSaveKeepsTheOldList()
{
    Texts list;
    list.entries = {"new"};
    make("Ils.ini", "old\r\n");
    QVERIFY(QFile::setPermissions(path("Ils.ini"), QFile::ReadOwner | QFile::ReadUser));
    SaveList(path("Ils.ini"), list);
    QCOMPARE(content("Ils.ini"), QByteArray("old\r\n"));

    QVERIFY(QDir(m_folder->path()).mkdir("Quick.ini"));
    SaveList(path("Quick.ini"), list);
    QVERIFY(QFileInfo(path("Quick.ini")).isDir());
    SaveList(path("gone/Quick.ini"), list);
    QVERIFY(!QFileInfo::exists(path("gone")));
}

void TestProfile::loadsFields_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("empty file") << QByteArray() << QStringList();
    QTest::newRow("lines") << QByteArray("a\r\nb\r\n") << QStringList{"a", "b"};
    QTest::newRow("open end") << QByteArray("a\r\nb") << QStringList{"a", "b"};
    QTest::newRow("line feeds") << QByteArray("a\nb\n") << QStringList{"a", "b"};
    QTest::newRow("carriage returns") << QByteArray("a\rb\r") << QStringList{"a", "b"};
    QTest::newRow("commas") << QByteArray("a,b\r\nc") << QStringList{"a", "b", "c"};
    QTest::newRow("empty fields") << QByteArray(",,a,,\r\n\r\n,b,\r\n") << QStringList{"a", "b"};
    QTest::newRow("blank fields") << QByteArray("  ,\t\r\n a") << QStringList{"a"};
    QTest::newRow("leading blanks") << QByteArray("  a, \tb") << QStringList{"a", "b"};
    QTest::newRow("trailing blanks") << QByteArray("a  ,b \r\n") << QStringList{"a  ", "b "};
    QTest::newRow("blanks within") << QByteArray("a b") << QStringList{"a b"};
    QTest::newRow("quoted") << QByteArray("\"a\",\"b\"\r\n\"c\"\r\n") << QStringList{"a", "b", "c"};
    QTest::newRow("quoted comma") << QByteArray("\"a,b\"\r\nc") << QStringList{"a,b", "c"};
    QTest::newRow("quoted blanks") << QByteArray("  \" a \"\r\n") << QStringList{" a "};
    QTest::newRow("quoted line end") << QByteArray("\"a\r\nb\"\r\n") << QStringList{"a\r\nb"};
    QTest::newRow("empty quotes") << QByteArray("\"\",a") << QStringList{"a"};
    QTest::newRow("text behind quotes") << QByteArray("\"a\"b,c") << QStringList{"a", "b", "c"};
    QTest::newRow("quote within") << QByteArray("a\"b,c\"") << QStringList{"a\"b", "c\""};
    QTest::newRow("unclosed quote") << QByteArray("a\r\n\"b,c\r\nd") << QStringList{"a", "b,c\r\nd"};
    QTest::newRow("lone quote") << QByteArray("a\r\n\"") << QStringList{"a"};
    QTest::newRow("single quotes are text") << QByteArray("'a,b'") << QStringList{"'a", "b'"};
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a\r\n")
                                     << QStringList{"a"};
    QTest::newRow("byte order mark alone") << QByteArray("\xEF\xBB\xBF") << QStringList();
    QTest::newRow("byte order mark within") << QByteArray("a,\xEF\xBB\xBF"
                                                          "b")
                                            << QStringList{"a", QStringLiteral("\uFEFFb")};
    QTest::newRow("beyond ASCII") << QByteArray("\xE2\x82\xAC")
                                  << QStringList{QString::fromUtf8("\xE2\x82\xAC")};
    QTest::newRow("NUL") << raw("a\0b,c") << QStringList{QString(QStringLiteral("a") + QChar(0) + u'b'), "c"};
    QTest::newRow("invalid bytes") << QByteArray("\xFF,a") << QStringList{QString(QChar(0xFFFD)), "a"};
    QTest::newRow("half a character") << QByteArray("\xC3,a") << QStringList{QString(QChar(0xFFFD)), "a"};
}

void TestProfile::loadsFields()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, fields);
    QCOMPARE(loaded(file), fields);
}

void TestProfile::loadAppends()
{
    make("Ils.ini", "b\r\na\r\n");
    Texts list;
    list.entries = {"a"};
    LoadList(path("Ils.ini"), list);
    QCOMPARE(list.entries, (QStringList{"a", "b", "a"}));
}

void TestProfile::loadOfNoFileAddsNothing()
{
    Texts list;
    LoadList(path("Ils.ini"), list);
    QVERIFY(QDir(m_folder->path()).mkdir("Ils.ini"));
    LoadList(path("Ils.ini"), list);
    QCOMPARE(list.entries, QStringList());
    QVERIFY_THROWS_EXCEPTION(RuntimeError, LoadList("/proc/self/mem", list)); // it is there, but fails
}

void TestProfile::entryWithACommaComesBackAsTwo()
{
    Texts saved;
    saved.entries = {"a,b", "", "c"};
    SaveList(path("Ils.ini"), saved);
    Texts read;
    LoadList(path("Ils.ini"), read);
    QCOMPARE(read.entries, (QStringList{"a", "b", "c"}));
}

void TestProfile::longList()
{
    Texts saved;
    for (int i = 0; i < 300'000; ++i)
        saved.entries << QStringLiteral("http://localhost/%1").arg(i);
    QElapsedTimer watch;
    watch.start();
    SaveList(path("Ils.ini"), saved);
    Texts read;
    LoadList(path("Ils.ini"), read);
    QCOMPARE(read.entries, saved.entries);
    QVERIFY2(watch.elapsed() < 20'000, qPrintable(QString::number(watch.elapsed())));
}

void TestProfile::savedEntriesAreLoaded()
{
    QFETCH(quint32, seed);
    Random random(seed);
    static const QRegularExpression quotedField(",[ \t]*\""); // would run on to the next quote
    for (int round = 0; round < 50; ++round) {
        Texts saved;
        QStringList expected;
        for (int entries = random.number(20); entries > 0; --entries) {
            QString entry;
            do {
                entry = u'.' + random.text(10);
            } while (entry.contains(quotedField));
            saved.entries << entry;
            for (QString field : entry.split(u',')) { // a comma parts an entry
                while (field.startsWith(u' ') || field.startsWith(u'\t'))
                    field.remove(0, 1);
                if (!field.isEmpty())
                    expected << field;
            }
        }
        SaveList(path("Ils.ini"), saved);
        Texts read;
        LoadList(path("Ils.ini"), read);
        QCOMPARE(read.entries, expected);
    }
}

QTEST_GUILESS_MAIN(TestProfile)
#include "tst_profile.moc"
