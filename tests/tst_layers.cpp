#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

/// Reads which folder includes which: a folder may include only from those that stand below it.
class TestLayers : public QObject
{
    Q_OBJECT

private slots:
    void noArrowRunsUp();
    void placesAreThere();
};

static const QMap<QString, QStringList> Below = {
    {"platform", {}},
    {"forms", {"platform"}},
    {"source", {"platform", "forms"}},
    {"web", {"platform", "forms"}},
    {"services", {"platform", "forms"}},
    {"shell", {"platform", "forms", "source", "web", "services"}},
    {"colour", {"platform", "forms", "source", "web", "services", "shell"}},
    {"builders", {"platform", "forms", "source", "web", "services", "shell", "colour"}},
    {"wizard", {"platform", "forms", "source", "web", "services", "shell"}},
    {"app", {"platform", "forms", "source", "web", "services", "shell", "colour", "builders", "wizard"}},
};

void TestLayers::noArrowRunsUp()
{
    static const QRegularExpression include(R"(^#include "(\w+)/(\w+)\.h")",
                                            QRegularExpression::MultilineOption);
    QStringList wrong;
    int seen = 0;
    for (auto folder = Below.cbegin(); folder != Below.cend(); ++folder) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder.key(), {"*.h", "*.cpp"}, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(file.readAll());
            for (auto match = include.globalMatch(text); match.hasNext();) {
                const QString from = match.next().captured(1);
                ++seen;
                if (from != folder.key() && !folder.value().contains(from))
                    wrong << QStringLiteral("%1 includes from %2").arg(file.fileName(), from);
            }
        }
    }
    QVERIFY(seen > 50);
    QCOMPARE(wrong, QStringList());
}

/// What the table "Where is ...?" names is where it says.
void TestLayers::placesAreThere()
{
    QFile page(QStringLiteral(SOURCE_DIR "/docs/ARCHITECTURE.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const qsizetype start = text.indexOf(QStringLiteral("## Where is ...?"));
    QVERIFY(start >= 0);
    const QString table = text.mid(start, text.indexOf(QStringLiteral("\n## "), start + 1) - start);
    static const QRegularExpression row(QStringLiteral("^\\| ([^|]+) \\| ([^|]+) \\|$"),
                                        QRegularExpression::MultilineOption);
    static const QRegularExpression path(QStringLiteral("`([A-Za-z0-9_/.]+)`"));
    int rows = 0;
    for (auto rowMatch = row.globalMatch(table); rowMatch.hasNext();) {
        const QRegularExpressionMatch cells = rowMatch.next();
        if (cells.captured(2).startsWith(QStringLiteral("Where")))
            continue;
        ++rows;
        QVERIFY2(path.match(cells.captured(2)).hasMatch(), qPrintable(cells.captured(1)));
        for (auto match = path.globalMatch(cells.captured(2)); match.hasNext();) {
            const QString name = match.next().captured(1);
            QVERIFY2(QFile::exists(QStringLiteral(SOURCE_DIR "/") + name), qPrintable(name));
        }
    }
    QVERIFY2(rows >= 20, qPrintable(QString::number(rows)));
}

QTEST_APPLESS_MAIN(TestLayers)
#include "tst_layers.moc"
