// SPDX-License-Identifier: GPL-3.0-or-later

#include "Random.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "shell/EarlierTexts.h"
#include "shell/LineDifference.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

using namespace brindlemark;

// What was replaced or dropped, without a window: the files that keep it, and how two texts differ.

namespace {

const QString Folder = QStringLiteral("Brindlemark-earlier");

std::function<QByteArray()> later(const QByteArray& text)
{
    return [text] { return text; };
}

/// The texts that are kept, the newest first.
QList<QByteArray> textsOf(EarlierTexts& kept)
{
    QList<QByteArray> texts;
    for (const EarlierText& text : kept.list())
        texts += EarlierTexts::text(text);
    return texts;
}

QStringList files(const QString& parent)
{
    return QDir(parent + u'/' + Folder).entryList(QDir::Files | QDir::Hidden);
}

QList<QByteArray> linesOf(const QByteArray& text)
{
    QList<QByteArray> lines;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = text.indexOf('\n', at);
        const qsizetype next = end < 0 ? text.size() : end + 1;
        lines += text.sliced(at, next - at);
        at = next;
    }
    return lines;
}

QList<QByteArray> without(QList<QByteArray> lines, const std::vector<qsizetype>& numbers)
{
    for (auto number = numbers.rbegin(); number != numbers.rend(); ++number)
        lines.removeAt(*number);
    return lines;
}

/// How many lines two texts can have in common, in order, by the plain table of all pairs.
qsizetype mostInCommon(const QList<QByteArray>& a, const QList<QByteArray>& b)
{
    std::vector<std::vector<qsizetype>> best(size_t(a.size()) + 1,
                                             std::vector<qsizetype>(size_t(b.size()) + 1, 0));
    for (size_t i = 1; i < best.size(); ++i) {
        for (size_t j = 1; j < best[i].size(); ++j) {
            best[i][j] = a.at(qsizetype(i) - 1) == b.at(qsizetype(j) - 1)
                             ? best[i - 1][j - 1] + 1
                             : std::max(best[i - 1][j], best[i][j - 1]);
        }
    }
    return best.back().back();
}

} // namespace

class TestEarlierTexts : public QObject
{
    Q_OBJECT

private slots:
    void comesBackAsItWas_data();
    void comesBackAsItWas();
    void newestComesFirst();
    void equalTextsAreKeptOnce();
    void oldestGoFirst();
    void oldestGoWhereBytesAreTooMany();
    void longTextsAreNotKept();
    void onlyTheUserReadsThem();
    void anotherFolderWhereOneRefuses();
    void foreignFilesAreLeftAlone();
    void filesBeforeASave();
    void otherProgramsTextsAreListed();
    void goneMeanwhile();
    void differingLines_data();
    void differingLines();
    void differenceIsSmallest_data() { addSeeds(); }
    void differenceIsSmallest();
    void veryDifferentTexts();
};

void TestEarlierTexts::comesBackAsItWas_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("document");
    QTest::newRow("page") << QByteArray("<P>One</P>\r\n") << "/home/a/lamp.htm";
    QTest::newRow("no document") << QByteArray("x") << "Untitled";
    QTest::newRow("odd name") << QByteArray("x") << QString::fromUtf8("/h/1, 2 -->\n\xC3\xA4%41.htm");
    QTest::newRow("any bytes") << QByteArray("\0\xFF\xFE\r\n\n -->\n", 11) << "/a";
    QTest::newRow("a text like the last line")
        << QByteArray("a\n<!-- Brindlemark, earlier text of /b, declined -->\n") << "/a";
    QTest::newRow("half of the last line") << QByteArray("a\n<!-- Brindlemark, earlier text of ") << "/a";
}

void TestEarlierTexts::comesBackAsItWas()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, document);
    const QTemporaryDir parent;
    const QDateTime before = QDateTime::currentDateTime();
    EarlierTexts({parent.path()}).keep(document, Dropped::GivenUp, later(text)); // its end waits for the file
    EarlierTexts next({parent.path()});
    const QList<EarlierText> kept = next.list();
    QCOMPARE(kept.size(), 1);
    QCOMPARE(EarlierTexts::text(kept.first()), text);
    QCOMPARE(kept.first().document, document);
    QCOMPARE(kept.first().size, text.size());
    QCOMPARE(kept.first().why, Dropped::GivenUp);
    QVERIFY(kept.first().moment >= before && kept.first().moment <= QDateTime::currentDateTime());
}

void TestEarlierTexts::newestComesFirst()
{
    const QTemporaryDir parent;
    EarlierTexts kept({parent.path()});
    const std::array all = {Dropped::Overwritten, Dropped::Replaced, Dropped::GivenUp, Dropped::NotSaved,
                            Dropped::Declined};
    for (size_t i = 0; i < all.size(); ++i)
        kept.keep(QStringLiteral("/a"), all.at(i), later(QByteArray::number(qulonglong(i))));
    QCOMPARE(textsOf(kept), (QList<QByteArray>{"4", "3", "2", "1", "0"}));
    const QList<EarlierText> list = kept.list();
    for (size_t i = 0; i < all.size(); ++i)
        QCOMPARE(list.at(qsizetype(i)).why, all.at(all.size() - 1 - i));
}

void TestEarlierTexts::equalTextsAreKeptOnce()
{
    const QTemporaryDir parent;
    EarlierTexts kept({parent.path()});
    for (const char* text : {"one", "two", "one"})
        kept.keep(QStringLiteral("/a"), Dropped::Replaced, later(text));
    QCOMPARE(textsOf(kept), (QList<QByteArray>{"one", "two"}));
    QCOMPARE(files(parent.path()).size(), 2);
}

void TestEarlierTexts::oldestGoFirst()
{
    const QTemporaryDir parent;
    EarlierTexts kept({parent.path()});
    for (int i = 0; i < 203; ++i)
        kept.keep(QStringLiteral("/a"), Dropped::Replaced, later(QByteArray::number(i)));
    const QList<QByteArray> texts = textsOf(kept);
    QCOMPARE(texts.size(), 200);
    QCOMPARE(texts.first(), QByteArray("202"));
    QCOMPARE(texts.last(), QByteArray("3"));
}

void TestEarlierTexts::oldestGoWhereBytesAreTooMany()
{
    const QTemporaryDir parent;
    EarlierTexts kept({parent.path()});
    for (const char letter : {'a', 'b', 'c', 'd', 'e', 'f'})
        kept.keep(QStringLiteral("/a"), Dropped::Replaced,
                  [letter] { return QByteArray(19'000'000, letter); });
    QList<char> letters;
    for (const QByteArray& text : textsOf(kept))
        letters += text.front();
    QCOMPARE(letters, (QList<char>{'f', 'e', 'd', 'c', 'b'})); // 95 million bytes; six would be 114
}

void TestEarlierTexts::longTextsAreNotKept()
{
    const QTemporaryDir parent;
    EarlierTexts kept({parent.path()});
    kept.keep(QStringLiteral("/a"), Dropped::Replaced, [] { return QByteArray(20'000'001, 'x'); });
    kept.keep(QStringLiteral("/a"), Dropped::Replaced, [] { return QByteArray(); });
    QVERIFY(kept.list().isEmpty());
    kept.keep(QStringLiteral("/a"), Dropped::Replaced, [] { return QByteArray(20'000'000, 'x'); });
    QCOMPARE(kept.list().size(), 1);
}

void TestEarlierTexts::onlyTheUserReadsThem()
{
    const QTemporaryDir parent;
    EarlierTexts kept({parent.path()});
    kept.keep(QStringLiteral("/a"), Dropped::Replaced, later("secret"));
    QCOMPARE(kept.list().size(), 1);
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QVERIFY(!(QFile::permissions(parent.filePath(Folder)) & others));
}

void TestEarlierTexts::anotherFolderWhereOneRefuses()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    QFile inTheWay(first.filePath(Folder)); // a file where the folder should be refuses the superuser as well
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    EarlierTexts kept({first.path(), second.path()});
    kept.keep(QStringLiteral("/a"), Dropped::Replaced, later("text"));
    QCOMPARE(textsOf(kept), QList<QByteArray>{"text"});
    QCOMPARE(files(second.path()).size(), 1);
}

void TestEarlierTexts::foreignFilesAreLeftAlone()
{
    const QTemporaryDir parent;
    QVERIFY(QDir(parent.path()).mkdir(Folder));
    for (const char* name : {"notes.txt", "1-2.htm", "00000000000001-0123456789abcdef0123456789abcdef.htm"})
        writeFile(parent.filePath(Folder + u'/' + QLatin1String(name)), "mine");
    EarlierTexts kept({parent.path()});
    kept.keep(QStringLiteral("/a"), Dropped::Replaced, later("text"));
    QCOMPARE(textsOf(kept), QList<QByteArray>{"text"});
    QCOMPARE(files(parent.path()).size(), 4);
}

void TestEarlierTexts::filesBeforeASave()
{
    const QTemporaryDir parent;
    const QString path = parent.filePath(QStringLiteral("page.htm"));
    EarlierTexts kept({parent.path()});
    QVERIFY(kept.keepFile(path, "new")); // there is none
    writeFile(path, "old");
    QVERIFY(kept.keepFile(path, "new"));
    writeFile(path, "new"); // at once, as a save does
    QVERIFY(kept.keepFile(path, "new"));
    QCOMPARE(textsOf(kept), QList<QByteArray>{"old"});
    QCOMPARE(kept.list().first().document, path);
    QCOMPARE(kept.list().first().why, Dropped::Overwritten);
    QVERIFY(kept.keepFile(parent.path(), "new")); // a folder
    writeFile(path, QByteArray(20'000'001, 'x'));
    QVERIFY(!kept.keepFile(path, "new"));
    QCOMPARE(kept.list().size(), 1);
}

void TestEarlierTexts::otherProgramsTextsAreListed()
{
    const QTemporaryDir parent;
    EarlierTexts one({parent.path()});
    EarlierTexts other({parent.path()});
    one.keep(QStringLiteral("/a"), Dropped::Replaced, later("one"));
    QCOMPARE(one.list().size(), 1);
    other.keep(QStringLiteral("/a"), Dropped::Replaced, later("other"));
    QCOMPARE(other.list().size(), 2);
    QCOMPARE(one.list().size(), 2);
}

void TestEarlierTexts::goneMeanwhile()
{
    const QTemporaryDir parent;
    EarlierTexts kept({parent.path()});
    kept.keep(QStringLiteral("/a"), Dropped::Replaced, later("text"));
    const QList<EarlierText> list = kept.list();
    QVERIFY(QFile::remove(list.first().path));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, static_cast<void>(EarlierTexts::text(list.first())));
    QVERIFY(kept.list().isEmpty());
}

void TestEarlierTexts::differingLines_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QList<int>>("inFirst");
    QTest::addColumn<QList<int>>("inSecond");
    const auto row = [](const char* first, const char* second, const QList<int>& inFirst,
                        const QList<int>& inSecond) {
        QTest::addRow("'%s' and '%s'", first, second)
            << QByteArray(first) << QByteArray(second) << inFirst << inSecond;
    };
    row("", "", {}, {});
    row("a\nb\n", "a\nb\n", {}, {});
    row("", "a\nb", {}, {0, 1});
    row("a\nb", "", {0, 1}, {});
    row("a\nb\nc\n", "a\nx\nc\n", {1}, {1});
    row("a\nb\nc\n", "a\nc\n", {1}, {});
    row("a\nc\n", "a\nb\nc\n", {}, {1});
    row("a\nb", "a\nb\n", {1}, {1}); // a line's end is a part of it
    row("a\r\n", "a\n", {0}, {0});
}

void TestEarlierTexts::differingLines()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(QList<int>, inFirst);
    QFETCH(QList<int>, inSecond);
    const LineDifference found = compareLines(first, second);
    QCOMPARE(QList<int>(found.first.begin(), found.first.end()), inFirst);
    QCOMPARE(QList<int>(found.second.begin(), found.second.end()), inSecond);
}

void TestEarlierTexts::differenceIsSmallest()
{
    QFETCH(quint32, seed);
    Random random(seed);
    for (int round = 0; round < 300; ++round) {
        std::array<QByteArray, 2> texts;
        for (QByteArray& text : texts) {
            for (int lines = random.number(12); lines > 0; --lines)
                text +=
                    QByteArray(1, char('a' + random.number(4))) + (lines > 1 || random.number(2) ? "\n" : "");
        }
        const QList<QByteArray> first = linesOf(texts[0]);
        const QList<QByteArray> second = linesOf(texts[1]);
        const LineDifference found = compareLines(texts[0], texts[1]);
        const QList<QByteArray> common = without(first, found.first);
        QCOMPARE(without(second, found.second), common);
        QCOMPARE(common.size(), mostInCommon(first, second));
    }
}

void TestEarlierTexts::veryDifferentTexts()
{
    QByteArray first = "same\n";
    QByteArray second = "same\n";
    for (int i = 0; i < 20'000; ++i) {
        first += "a" + QByteArray::number(i) + '\n';
        second += "b" + QByteArray::number(i) + '\n';
    }
    const LineDifference found = compareLines(first + "end", second + "end");
    QCOMPARE(found.first.size(), size_t(20'000));
    QCOMPARE(found.first.front(), 1);
    QCOMPARE(found.second.back(), 20'000);
}

QTEST_GUILESS_MAIN(TestEarlierTexts)
#include "tst_earliertexts.moc"
