// SPDX-License-Identifier: GPL-3.0-or-later

#include "Action.h"
#include "Random.h"
#include "Shrink.h"

#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

class TestShrink : public QObject
{
    Q_OBJECT

private slots:
    void leavesWhatFails_data();
    void leavesWhatFails();
    void nothingMayBeNeeded();
    void endsAfterItsTries();
    void actionsAreLines_data();
    void actionsAreLines();
    void noActions_data();
    void noActions();
    void filesOfActions();
};

namespace {

/// 0 to `size` - 1.
QList<int> numbers(int size)
{
    QList<int> list;
    for (int i = 0; i < size; ++i)
        list << i;
    return list;
}

/// Whether all of `needed` stand in a list.
auto holds(const QList<int>& needed)
{
    return [needed](const QList<int>& list) {
        return std::ranges::all_of(needed, [&](int each) { return list.contains(each); });
    };
}

} // namespace

void TestShrink::leavesWhatFails_data()
{
    QTest::addColumn<QList<int>>("needed");
    QTest::newRow("last") << QList<int>{999};
    QTest::newRow("first") << QList<int>{0};
    QTest::newRow("both ends") << QList<int>{0, 999};
    QTest::newRow("neighbours") << QList<int>{499, 500};
    QTest::newRow("some") << QList<int>{3, 250, 251, 700, 998};
}

void TestShrink::leavesWhatFails()
{
    QFETCH(QList<int>, needed);
    int asked = 0;
    const auto fails = [&](const QList<int>& list) {
        ++asked;
        return holds(needed)(list);
    };
    QCOMPARE(shrunk<int>(numbers(1000), fails, 1000), needed);
    QVERIFY2(asked < 200, qPrintable(QString::number(asked)));
}

void TestShrink::nothingMayBeNeeded()
{
    QCOMPARE(shrunk<int>(numbers(10), holds({}), 100), QList<int>());
    QCOMPARE(shrunk<int>({}, holds({}), 100), QList<int>());
}

void TestShrink::endsAfterItsTries()
{
    int asked = 0;
    const QList<int> left = shrunk<int>(
        numbers(1000),
        [&](const QList<int>& list) {
            ++asked;
            return holds({3, 250, 700})(list);
        },
        20);
    QCOMPARE(asked, 20);
    QVERIFY(holds({3, 250, 700})(left));
}

void TestShrink::actionsAreLines_data()
{
    addSeeds();
}

void TestShrink::actionsAreLines()
{
    QFETCH(quint32, seed);
    Random random(seed);
    for (int i = 0; i < 200; ++i) {
        Action action{.verb = QStringLiteral("type"), .answers = random.bits()};
        for (int words = random.number(4); words > 0; --words)
            action.words << random.text(5);
        const QString line = toText(action);
        QVERIFY2(!line.contains(u'\n'), qPrintable(line));
        const std::optional<Action> back = toAction(line);
        QVERIFY2(back == action, qPrintable(line));
    }
    QCOMPARE(toText({.verb = QStringLiteral("key"), .words = {QStringLiteral("Ctrl+A")}, .answers = 7}),
             QStringLiteral("key Ctrl+A @7"));
}

void TestShrink::noActions_data()
{
    QTest::addColumn<QString>("line");
    for (const char* line : {"", "key", "key A", "key A @", "key A @x", " @1", "@1"})
        QTest::newRow(line) << QString::fromLatin1(line);
}

void TestShrink::noActions()
{
    QFETCH(QString, line);
    QVERIFY(!toAction(line));
}

void TestShrink::filesOfActions()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("actions"));
    QVERIFY(!readActions(path));
    const QList<Action> actions = {{QStringLiteral("undoredo"), {}, 1},
                                   {QStringLiteral("type"), {QStringLiteral("a b\n\u00E9")}, 2}};
    QVERIFY(writeActions(path, actions));
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append));
    file.write("\n# a remark\n");
    file.close();
    QCOMPARE(readActions(path), actions);
    QVERIFY(file.open(QIODevice::Append));
    file.write("none\n");
    file.close();
    QVERIFY(!readActions(path));
}

QTEST_APPLESS_MAIN(TestShrink)
#include "tst_shrink.moc"
