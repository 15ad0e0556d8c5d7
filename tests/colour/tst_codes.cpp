// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FixedInterfaces.h"

#include "Random.h"
#include "services/Codes.h"

#include <QTest>

using namespace brindlemark;

class TestCodes : public QObject
{
    Q_OBJECT

private slots:
    void getHexColor_data();
    void getHexColor();
    void hexPad6_data();
    void hexPad6();
    void hexToColor_data();
    void hexToColor();
    void colourTextsReadBack();
    void textsAndNumbersAreInverse_data() { addSeeds(); }
    void textsAndNumbersAreInverse();
    void splitColor_data();
    void splitColor();
    void splitPairFadeHandsOverTheChannels();
};

void TestCodes::getHexColor_data()
{
    QTest::addColumn<int>("colour");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("rest");
    QTest::newRow("blue-ish") << 0xFF8040 << "#4080FF" << 0xFF;
    QTest::newRow("black") << 0 << "#000000" << 0;
    QTest::newRow("white") << 0xFFFFFF << "#FFFFFF" << 0xFF;
    QTest::newRow("red") << 0xFF << "#FF0000" << 0;
    QTest::newRow("one digit each") << 0x0C0B0A << "#0A0B0C" << 0x0C;
    QTest::newRow("above the colours") << 0x12345678 << "#785634" << 0x1234;
    // -2147483643 = -(0x7FFFFFFB): the remainders are -0xFB, -0xFF and -0xFF.
    QTest::newRow("system colour") << -2147483643 << "#FFFFFF05FFFFFF01FFFFFF01" << -0x7FFF;
}

void TestCodes::getHexColor()
{
    QFETCH(int, colour);
    QFETCH(QString, text);
    QFETCH(int, rest);
    QCOMPARE(GetHexColor(colour), text);
    QCOMPARE(colour, rest);
}

void TestCodes::hexPad6_data()
{
    QTest::addColumn<int>("colour");
    QTest::addColumn<QString>("text");
    QTest::newRow("255") << 255 << "0000FF";
    QTest::newRow("0") << 0 << "000000";
    QTest::newRow("six digits") << 0xFF8040 << "FF8040";
    QTest::newRow("more than six digits") << 0x12345678 << "12345678";
    QTest::newRow("negative") << -1 << "FFFFFFFF";
}

void TestCodes::hexPad6()
{
    QFETCH(int, colour);
    QFETCH(QString, text);
    QCOMPARE(HexPad6(colour), text);
}

void TestCodes::hexToColor_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<double>("colour");
    QTest::addColumn<QString>("cut");
    const auto row = [](const char* code, int colour, const char* cut) {
        QTest::newRow(code) << QString::fromUtf8(code) << static_cast<double>(colour)
                            << QString::fromUtf8(cut);
    };
    row("#4080FF", 0xFF8040, "4080FF");
    row("4080FF", 0xFF8040, "4080FF");
    row("#4080ff", 0xFF8040, "4080ff");
    row("#FFFFFF", 0xFFFFFF, "FFFFFF");
    row("#000000", 0, "000000");
    row("#124080FF", 0xFF8040, "4080FF");
    row("4080AAFF", 0xFF8040, "4080AAFF"); // not cut: characters 1 to 4 and the last two
    row("", 0, "");
    row("#", 0, "#");
    row("zzzzzz", 0, "zzzzzz");
    row("40ZZFF", 0xFF, "40ZZFF"); // blue is read, green stops
    row("ZZ80FF", 0xFF80, "ZZ80FF");
    row("FFF", 0xFFFFF, "FFF"); // "FF", "F", "FF"
    row("Red", 0xEDD, "Red");   // "ed", "d", and "R" stops
    row("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 0,
        "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9");
}

void TestCodes::hexToColor()
{
    QFETCH(QString, code);
    QFETCH(double, colour);
    QFETCH(QString, cut);
    QCOMPARE(HexToColor(code), colour);
    QCOMPARE(code, cut);
}

void TestCodes::colourTextsReadBack()
{
    for (int colour = 0; colour <= 0xFFFFFF; colour += 4099) {
        int consumed = colour;
        QString code = GetHexColor(consumed);
        QCOMPARE(HexToColor(code), static_cast<double>(colour));
    }
}

void TestCodes::textsAndNumbersAreInverse()
{
    QFETCH(quint32, seed);
    Random random(seed);
    for (int round = 0; round < 1000; ++round) {
        // From the channels, which are told apart by their weights alone.
        const int red = random.number(256);
        const int green = random.number(256);
        const int blue = random.number(256);
        const int colour = red + 256 * green + 65536 * blue;
        int rest = colour;
        QString code = GetHexColor(rest);
        QCOMPARE(rest, blue);
        QCOMPARE(code.mid(1, 2).toInt(nullptr, 16), red);
        QCOMPARE(HexToColor(code), double(colour));
        const Channels channels = brindlemark::splitColor(colour);
        QCOMPARE((QList<int>{channels.red, channels.green, channels.blue}), (QList<int>{red, green, blue}));

        // From a text, in either case, with the mark or without.
        QString digits;
        while (digits.size() < 6)
            digits += random.of(QStringLiteral("0123456789abcdefABCDEF"));
        QString marked = u'#' + digits;
        int number = int(HexToColor(marked));
        QCOMPARE(marked, digits); // handed back without it
        QCOMPARE(HexToColor(digits), double(number));
        QCOMPARE(GetHexColor(number), u'#' + digits.toUpper());

        // Any number stands in its six digits or more.
        const quint32 any = random.bits() >> random.number(32);
        QCOMPARE(HexPad6(int(any)).toUInt(nullptr, 16), any);
        QVERIFY(HexPad6(int(any)).size() >= 6);

        // What is no colour text is some colour all the same.
        QString text = random.text(8);
        const QString before = text;
        const double some = HexToColor(text);
        QVERIFY2(some >= 0 && some <= 0xFFFFFF, qPrintable(before));
        QCOMPARE(text, before.startsWith(u'#') ? before.right(6) : before);
    }
}

void TestCodes::splitColor_data()
{
    QTest::addColumn<int>("colour");
    QTest::addColumn<QList<int>>("channels");
    QTest::newRow("all differ") << 0xFF8040 << QList<int>{0x40, 0x80, 0xFF};
    QTest::newRow("red alone") << 255 << QList<int>{255, 0, 0};
    // Eight digits: red is read at the end, blue at the front.
    QTest::newRow("above the colours") << 0x12345678 << QList<int>{0x78, 0x34, 0x12};
    QTest::newRow("system colour") << -2147483643 << QList<int>{0x05, 0x00, 0x80};
}

void TestCodes::splitColor()
{
    QFETCH(int, colour);
    QFETCH(QList<int>, channels);
    const Channels split = brindlemark::splitColor(colour);
    QCOMPARE((QList<int>{split.red, split.green, split.blue}), channels);
}

void TestCodes::splitPairFadeHandsOverTheChannels()
{
    QStringList calls;
    const TwoColorFade fade = [&](int r1, int g1, int b1, int r2, int g2, int b2, const QString& text,
                                  bool wavy) {
        calls << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8")
                     .arg(r1)
                     .arg(g1)
                     .arg(b1)
                     .arg(r2)
                     .arg(g2)
                     .arg(b2)
                     .arg(text)
                     .arg(wavy);
        return QStringLiteral("faded");
    };
    QCOMPARE(SplitPairFade(0x030201, 0xFFFE0A, QStringLiteral("text"), true, fade), QStringLiteral("faded"));
    QCOMPARE(SplitPairFade(255, 0, QString(), false, fade), QStringLiteral("faded"));
    QCOMPARE(calls, (QStringList{"1 2 3 10 254 255 text 1", "255 0 0 0 0 0  0"}));
}

QTEST_GUILESS_MAIN(TestCodes)
#include "tst_codes.moc"
