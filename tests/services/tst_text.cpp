// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Text.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>

using namespace brindlemark;

namespace {

/// What the routine must give, the slow way: search from the start after each replacement.
QByteArray fromTheStart(QByteArray text, const QByteArray& find, const QByteArray& with)
{
    for (qsizetype hit = text.indexOf(find); hit >= 0; hit = text.indexOf(find))
        text = text.left(hit) + with + text.mid(hit + find.size());
    return text;
}

} // namespace

class TestText : public QObject
{
    Q_OBJECT

private slots:
    void replaces_data();
    void replaces();
    void sameAsFromTheStart();
    void charactersBeyondAscii();
    void eventsAreServedMeanwhile();
    void textMayBeChangedMeanwhile();
    void manyHitsStayLinear();
};

void TestText::replaces_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("find");
    QTest::addColumn<QByteArray>("with");
    QTest::addColumn<QByteArray>("result");
    const auto row = [](const char* text, const char* find, const char* with, const char* result) {
        QTest::addRow("%s: %s by %s", text, find, with)
            << QByteArray(text) << QByteArray(find) << QByteArray(with) << QByteArray(result);
    };
    row("one two one", "one", "1", "1 two 1");
    row("one two one", "one", "", " two ");
    row("one", "one", "", "");
    row("a\rb\r", "\r", "+chr13+", "a+chr13+b+chr13+");
    row("nothing", "x", "y", "nothing");
    row("", "x", "y", "");
    row("text", "", "y", "text");
    row("", "", "y", "");
    row("Case case", "case", "x", "Case x");
    row("aaab", "ab", "b", "b"); // the new text makes another hit with what stands before
    row("((()))", "()", "", ""); // what stands around makes another hit
    row("xabcz", "abc", "ab", "xabz");
    row("aabcbc", "abc", "", "");
    row("abcc", "abc", "ab", "ab"); // with what stands behind
    row("aaaa", "aa", "a", "a");
    row("aaaaa", "aa", "", "a");
    row("aab", "ab", "ba", "baa");
    row("longer than the text", "longer than the text!", "x", "longer than the text");
}

void TestText::replaces()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, find);
    QFETCH(QByteArray, with);
    QFETCH(QByteArray, result);
    QCOMPARE(ReplaceAll(text, find, with), result);
    QCOMPARE(ReplaceAll(QString::fromLatin1(text), QString::fromLatin1(find), QString::fromLatin1(with)),
             QString::fromLatin1(result));
}

void TestText::sameAsFromTheStart()
{
    QRandomGenerator random(20);
    const auto letters = [&](int most) {
        QByteArray text;
        for (int left = random.bounded(most + 1); left > 0; --left)
            text += static_cast<char>('a' + random.bounded(2));
        return text;
    };
    int hits = 0;
    for (int round = 0; round < 20000; ++round) {
        const QByteArray text = letters(24);
        const QByteArray find = letters(3) + 'b';
        const QByteArray with =
            letters(static_cast<int>(find.size()) - 1); // shorter: it ends, and can't hold `find`
        const QByteArray expected = fromTheStart(text, find, with);
        hits += expected != text;
        QCOMPARE(ReplaceAll(text, find, with), expected);
    }
    QVERIFY(hits > 5000);
}

void TestText::charactersBeyondAscii()
{
    QCOMPARE(ReplaceAll(QString::fromUtf8("Stra\xC3\x9F"
                                          "e \xE2\x82\xAC"),
                        QString::fromUtf8("\xE2\x82\xAC"), QStringLiteral("EUR")),
             QString::fromUtf8("Stra\xC3\x9F"
                               "e EUR"));
    const QByteArray nul("a\0b\0", 4);
    QCOMPARE(ReplaceAll(nul, QByteArray(1, '\0'), "-"), QByteArray("a-b-"));
    QCOMPARE(ReplaceAll(QByteArray("\xFF\xFE\xFF"), "\xFE", ""), QByteArray("\xFF\xFF"));
}

void TestText::eventsAreServedMeanwhile()
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(0);
    QElapsedTimer watch;
    watch.start();
    QByteArray text = QByteArray("<b>").repeated(200'000);
    while (ticks == 0 && watch.elapsed() < 20'000) {
        ReplaceAll(text, "<b>", "<i>");
        text += text; // fast machines get more to do
    }
    QVERIFY(ticks > 0);
}

void TestText::textMayBeChangedMeanwhile()
{
    QByteArray text;
    QByteArray find("<b>");
    QByteArray with("<i>");
    bool changed = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        text.fill('?');
        find = "?";
        with.clear();
        changed = true;
    });
    timer.start(0);
    for (int hits = 400'000; !changed && hits < 100'000'000; hits *= 2) {
        text = QByteArray("<b>").repeated(hits);
        QCOMPARE(ReplaceAll(text, find, with), QByteArray("<i>").repeated(hits));
    }
    QVERIFY(changed);
}

void TestText::manyHitsStayLinear()
{
    // From the start each time, and with the tail moved at each hit, this would be 10 to the 11 steps.
    const QByteArray text = QByteArray("0123456789\r").repeated(100'000);
    QElapsedTimer watch;
    watch.start();
    QCOMPARE(ReplaceAll(text, "\r", "+chr13+").size(), 1'700'000);
    QVERIFY2(watch.elapsed() < 10'000, qPrintable(QString::number(watch.elapsed())));
}

QTEST_GUILESS_MAIN(TestText)
#include "tst_text.moc"
