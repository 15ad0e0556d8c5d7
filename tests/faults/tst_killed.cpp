// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/ListBox.h"
#include "platform/Files.h"
#include "services/Profile.h"
#include "shell/Journal.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

using namespace brindlemark;

// A program that saves without a pause, killed at any moment: each of its files is whole.
// BRINDLEMARK_KILLS=500 makes it 500 times instead of 40.

namespace {

/// A text that tells of itself whether it is whole: `count` lines that all say so.
QByteArray wholeText(int count)
{
    const QByteArray line = "line of a text of " + QByteArray::number(count) + " lines\r\n";
    return line.repeated(count);
}

bool isWhole(const QByteArray& bytes)
{
    const qsizetype end = bytes.indexOf(" lines\r\n");
    const QByteArray first = end < 0 ? QByteArray() : bytes.first(end);
    return bytes == wholeText(first.sliced(first.lastIndexOf(' ') + 1).toInt());
}

/// What the killed program does, to its end.
void saveForEver(const QString& folder)
{
    const QDir dir(folder);
    Journal journal({folder});
    ListBox words;
    for (int i = 1;; ++i) {
        const int lines = i % 2 ? 100000 + i : 1 + i;
        journal.keep(QStringLiteral("/a.htm"), [lines] { return wholeText(lines); });
        writeFile(dir.filePath(QStringLiteral("page.htm")), wholeText(lines));
        WriteProfile(QStringLiteral("Font"), QStringLiteral("BG"), QString::number(i),
                     dir.filePath(QStringLiteral("web.ini")));
        words.Clear();
        for (int word = 0; word < 1000; ++word)
            words.AddItem(QString::number(i));
        SaveList(dir.filePath(QStringLiteral("Quick.ini")), words);
        journal.finish();
    }
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestKilled : public QObject
{
    Q_OBJECT

private slots:
    void everyFileIsWhole();
};

void TestKilled::everyFileIsWhole()
{
    const int kills = qMax(1, qEnvironmentVariable("BRINDLEMARK_KILLS", QStringLiteral("40")).toInt());
    const QTemporaryDir folder;
    const QByteArray settings = "[Color]\r\none=1\r\n[Font]\r\nname=Arial\r\nBG=";
    writeFile(folder.filePath(QStringLiteral("page.htm")), wholeText(3));
    writeFile(folder.filePath(QStringLiteral("web.ini")), settings + "0\r\n");
    writeFile(folder.filePath(QStringLiteral("Quick.ini")), "0\r\n");
    QSet<QByteArray> texts;
    int offered = 0;
    for (int i = 0; i < kills; ++i) {
        const QByteArray before = content(folder.filePath(QStringLiteral("web.ini")));
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--save"), folder.path()});
        QVERIFY(program.waitForStarted());
        // Its first settings are written behind its first text.
        QVERIFY(QTest::qWaitFor([&] { return content(folder.filePath(QStringLiteral("web.ini"))) != before; },
                                30000));
        QThread::usleep(QRandomGenerator::global()->bounded(200000U));
        program.kill();
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::CrashExit);

        const QByteArray text = content(folder.filePath(QStringLiteral("page.htm")));
        QVERIFY2(isWhole(text), qPrintable(QString::number(text.size())));
        texts << text;
        const QByteArray ini = content(folder.filePath(QStringLiteral("web.ini")));
        QVERIFY2(ini.startsWith(settings) && ini.endsWith("\r\n") &&
                     ini.sliced(settings.size()).chopped(2).toInt() > 0,
                 ini.constData());
        const QByteArray words = content(folder.filePath(QStringLiteral("Quick.ini")));
        const QByteArray word = words.first(words.indexOf('\n') + 1);
        QVERIFY(words == word || words == word.repeated(1000));

        Journal next({folder.path()});
        if (const auto left = next.takeLeftover()) {
            ++offered;
            QVERIFY(left->whole);
            QVERIFY(isWhole(left->text));
            QCOMPARE(left->document, QStringLiteral("/a.htm"));
            next.clear();
        }
    }
    qInfo("%d kills, %lld different texts found whole, unsaved text offered %d times", kills,
          qlonglong(texts.size()), offered);
    QVERIFY(offered > 0);
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--save") == 0) {
        saveForEver(QString::fromLocal8Bit(argv[2]));
        return 0;
    }
    TestKilled test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_killed.moc"
