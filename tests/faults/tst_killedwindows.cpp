// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProgramFolder.h"
#include "WebProbe.h"
#include "Widgets.h"
#include "platform/AppPath.h"
#include "shell/FrmWeb.h"
#include "shell/Journal.h"
#include "web/WebEngine.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmTerms.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <cstdio>

using namespace brindlemark;

// A program in which somebody types into the source or the page, into the wizard and into terms, killed at
// any moment: of all three comes back what was there a moment before. Texts are kept without a pause here;
// how often it is otherwise, the windows' own tests tell. BRINDLEMARK_KILLS=500 makes it 500 times instead
// of 2.

namespace {

constexpr qint64 Moment = 3000; // ms: the longest that a text takes to the disk, on a busy machine

struct Kept
{
    const char* name; ///< of the journal's file
    const char* what;
};
constexpr std::array<Kept, 3> AllKept = {{{"Brindlemark-unsaved", "document"},
                                          {"Brindlemark-listing", "listing"},
                                          {"Brindlemark-terms", "terms"}}};

/// What is typed at a moment: "n1n", "n2n" ...
QString typed(int number)
{
    return QStringLiteral("n%1n ").arg(number);
}

/// The last number that a text holds; 0 for none.
int lastIn(const QByteArray& text)
{
    int last = 0;
    static const QRegularExpression numbers(QStringLiteral("n(\\d+)n"));
    for (const QRegularExpressionMatch& match : numbers.globalMatch(QString::fromUtf8(text)))
        last = qMax(last, match.captured(1).toInt());
    return last;
}

/// What the killed program does, to its end. Tells each number on standard output when all windows have it.
void typeForEver(const QString& folder, bool onPage)
{
    setAppPath(folder);
    auto* main = form<FrmWeb>();
    main->Show();
    form<FrmBuild1>()->Show();
    openTerms(0);
    if (onPage) {
        main->RichTextBox1->setText("<P>a</P>");
        main->SSTab1->setTab(FrmWeb::PreviewTab);
    }
    int number = 0;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, &hand, [&] {
        const QString text = typed(++number);
        const QString onSurface = QStringLiteral("document.body.append('%1'); 1").arg(text);
        form<FrmBuild1>()->Text2->insertPlainText(text);
        static_cast<void>(probe(form<FrmTerms>()->WebBrowser1).evaluate(onSurface));
        if (onPage) {
            static_cast<void>(probe(main->WebBrowser1).evaluate(onSurface));
        } else {
            main->RichTextBox1->setSelText(text.toUtf8());
        }
        for (const auto& [window, timer] : {std::pair<QWidget*, const char*>(main, "JournalTimer"),
                                            {form<FrmBuild1>(), "UnfinishedTimer"},
                                            {form<FrmTerms>(), "KeepTimer"}})
            window->findChild<QTimer*>(QLatin1String(timer))->start(0);
        static_cast<void>(std::printf("%d\n", number));
        static_cast<void>(std::fflush(stdout));
    });
    hand.start(20);
    QApplication::exec();
}

} // namespace

class TestKilledWindows : public QObject
{
    Q_OBJECT

private slots:
    void whatWasTypedComesBack();
};

void TestKilledWindows::whatWasTypedComesBack()
{
    const int kills = qMax(1, qEnvironmentVariable("BRINDLEMARK_KILLS", QStringLiteral("2")).toInt());
    qint64 oldest = 0;
    for (int i = 0; i < kills; ++i) {
        const ProgramFolder folder;
        const QString path = QFileInfo(folder.path(QStringLiteral("web.ini"))).path();
        QProcess program;
        program.start(
            QCoreApplication::applicationFilePath(),
            {QStringLiteral("--type"), path, i % 2 ? QStringLiteral("page") : QStringLiteral("source")});
        QVERIFY(program.waitForStarted());
        QElapsedTimer clock;
        clock.start();
        QList<std::pair<int, qint64>> told; // each number, and when it came
        QByteArray output;
        const auto hear = [&] {
            output += program.readAllStandardOutput();
            for (qsizetype end = output.indexOf('\n'); end >= 0; end = output.indexOf('\n')) {
                told.emplaceBack(output.first(end).toInt(), clock.elapsed());
                output.remove(0, end + 1);
            }
        };
        QVERIFY(QTest::qWaitFor(
            [&] {
                hear();
                return !told.isEmpty();
            },
            60000));
        const qint64 end = clock.elapsed() + Moment + QRandomGenerator::global()->bounded(1500);
        QVERIFY(QTest::qWaitFor(
            [&] {
                hear();
                return clock.elapsed() >= end;
            },
            60000));
        program.kill();
        QVERIFY(program.waitForFinished());
        const qint64 killed = clock.elapsed();
        hear();

        int whole = 0; // the number that must have come to the disk
        for (const auto& [number, moment] : std::as_const(told)) {
            if (moment < killed - Moment)
                whole = number;
        }
        QVERIFY(whole > 0);
        for (const Kept& kept : AllKept) {
            Journal next({path}, QString::fromLatin1(kept.name));
            const auto left = next.takeLeftover();
            QVERIFY2(left && left->whole, kept.what);
            const int number = lastIn(left->text);
            QVERIFY2(number >= whole, qPrintable(QStringLiteral("%1: %2 of %3 on the disk, %4 typed")
                                                     .arg(QLatin1String(kept.what))
                                                     .arg(number)
                                                     .arg(whole)
                                                     .arg(told.last().first)));
            for (const auto& [typedNumber, moment] : std::as_const(told)) {
                if (typedNumber > number) {
                    oldest = qMax(oldest, killed - moment);
                    break;
                }
            }
            next.clear();
        }
    }
    qInfo("%d kills: nothing that was typed more than %lld ms before was lost", kills, qlonglong(oldest));
}

int main(int argc, char** argv)
{
    prepareWebEngine();
    QApplication application(argc, argv);
    if (argc == 4 && qstrcmp(argv[1], "--type") == 0) {
        typeForEver(QString::fromLocal8Bit(argv[2]), qstrcmp(argv[3], "page") == 0);
        return 0;
    }
    TestKilledWindows test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_killedwindows.moc"
