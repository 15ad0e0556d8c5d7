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
};

static const QMap<QString, QStringList> Below = {
    {"platform", {}},
    {"services", {"platform"}},
    {"shell", {"platform", "services"}},
    {"colour", {"platform", "services", "shell"}},
    {"builders", {"platform", "services", "shell", "colour"}},
    {"wizard", {"platform", "services", "shell"}},
    {"app", {"platform", "services", "shell", "colour", "builders", "wizard"}},
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

QTEST_APPLESS_MAIN(TestLayers)
#include "tst_layers.moc"
