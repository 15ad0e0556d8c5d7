// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"

#include <QDir>
#include <QTest>

using namespace brindlemark;

namespace {

struct Target
{
    const char* name;
    void (*run)(const QByteArray& bytes);
};

constexpr Target Targets[] = {
    {"fade", targets::fade},           {"faderfragment", targets::faderfragment},
    {"generator", targets::generator}, {"highlight", targets::highlight},
    {"list", targets::list},           {"preset", targets::preset},
    {"profile", targets::profile},     {"readback", targets::readback},
    {"regions", targets::regions},     {"replaceall", targets::replaceall},
    {"tokens", targets::tokens},
};

} // namespace

/// Each seed of the fuzzers, once through its target.
class TestCorpus : public QObject
{
    Q_OBJECT

private slots:
    void seeds_data();
    void seeds();
    void everySeedHasATarget();
};

void TestCorpus::seeds_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("file");
    for (int i = 0; i < int(std::size(Targets)); ++i) {
        const QDir folder(QStringLiteral(CORPUS "/") + QLatin1String(Targets[i].name));
        const QStringList files = folder.entryList(QDir::Files);
        QVERIFY2(!files.isEmpty(), Targets[i].name);
        for (const QString& file : files)
            QTest::addRow("%s/%s", Targets[i].name, qPrintable(file)) << i << folder.filePath(file);
    }
}

void TestCorpus::seeds()
{
    QFETCH(int, target);
    QFETCH(QString, file);
    try {
        Targets[target].run(contentOf(file));
    } catch (const std::exception& broken) {
        QFAIL(broken.what());
    }
}

void TestCorpus::everySeedHasATarget()
{
    QCOMPARE(QDir(QStringLiteral(CORPUS)).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
             qsizetype(std::size(Targets)));
}

QTEST_MAIN(TestCorpus)
#include "tst_corpus.moc"
