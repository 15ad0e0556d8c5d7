#include "colour/Fade.h"
#include "platform/RuntimeError.h"
#include "services/Codes.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <array>
#include <cmath>

namespace {

constexpr std::array<int, 5> Colors = {0x000000, 0x0000FF, 0x00FF00, 0xFF0000, 0x123456};

QString five(const QString& text, bool wavy = false)
{
    return FadeFive(Colors[0], Colors[1], Colors[2], Colors[3], Colors[4], text, wavy);
}

/// The colours of a page's font tags, in order.
QStringList colorsOf(const QString& html)
{
    QStringList colors;
    static const QRegularExpression tag(QStringLiteral("<Font Color=\"?#([0-9A-F]{6})\"?>"));
    for (auto it = tag.globalMatch(html); it.hasNext();)
        colors << it.next().captured(1);
    return colors;
}

/// A channel by the formula, each of its three steps kept in double precision, halves to the even number.
int fadeStep(int from, int to, int i, int n)
{
    const volatile double difference = double(to - from) / n;
    const volatile double way = i * difference;
    const volatile double value = way + from;
    const int below = int(std::floor(value));
    const double rest = value - below;
    if (rest == 0.5)
        return below + below % 2;
    return rest > 0.5 ? below + 1 : below;
}

/// A fade spelled out, for texts of plain letters.
QString spelled(const std::array<int, 5>& colors, const QString& text, bool wavy)
{
    const std::array<QString, 4> waves = {QStringLiteral("<sup>"), QStringLiteral("</sup>"),
                                          QStringLiteral("<sub>"), QStringLiteral("</sub>")};
    std::array<int, 4> lengths = {};
    for (int left = int(text.size()), part = 0; left > 0; --left, ++part)
        ++lengths.at(size_t(part % 4));
    QString html;
    int place = 0;
    for (size_t part = 0; part < 4; ++part) {
        const Channels a = splitColor(colors.at(part));
        const Channels b = splitColor(colors.at(part + 1));
        for (int i = 1; i <= lengths.at(part); ++i) {
            const auto hex = [&](int from, int to) {
                return QString::number(fadeStep(from, to, i, lengths.at(part)), 16)
                    .toUpper()
                    .rightJustified(2, u'0');
            };
            html += QStringLiteral("<Font Color=\"#") + hex(a.red, b.red) + hex(a.green, b.green) +
                    hex(a.blue, b.blue) + QStringLiteral("\">") +
                    (wavy ? waves.at(size_t(place % 4)) : QString()) + text.at(place) +
                    QStringLiteral("</Font>");
            ++place;
        }
    }
    return html;
}

} // namespace

class TestFade : public QObject
{
    Q_OBJECT

private slots:
    void oneCharacterHasTheSecondColor();
    void threeCharacters();
    void fourCharactersReachTheLastColor();
    void partsEndOnTheirColors_data();
    void partsEndOnTheirColors();
    void halvesGoToTheEvenNumber();
    void waves();
    void waveRunsOnOverTheParts();
    void nothingIsEscaped();
    void emptyText();
    void lengths_data();
    void lengths();
    void charactersAreNeverCut_data();
    void charactersAreNeverCut();
    void randomTexts();
    void channelsAndNumbersAreTheSame();
    void twoColors();
    void twoColorsOverOneCharacter();
    void twoColorsWavy();
    void twoColorsThroughTheSplit();
    void hexDigits();
    void hexNumbers_data();
    void hexNumbers();
};

void TestFade::oneCharacterHasTheSecondColor()
{
    QCOMPARE(five(QStringLiteral("x")), QStringLiteral("<Font Color=\"#FF0000\">x</Font>"));
}

void TestFade::threeCharacters()
{
    QCOMPARE(five(QStringLiteral("xyz")),
             QStringLiteral("<Font Color=\"#FF0000\">x</Font><Font Color=\"#00FF00\">y</Font>"
                            "<Font Color=\"#0000FF\">z</Font>"));
}

void TestFade::fourCharactersReachTheLastColor()
{
    QCOMPARE(colorsOf(five(QStringLiteral("wxyz"))),
             (QStringList{QStringLiteral("FF0000"), QStringLiteral("00FF00"), QStringLiteral("0000FF"),
                          QStringLiteral("563412")}));
}

void TestFade::partsEndOnTheirColors_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QList<int>>("parts");
    QTest::newRow("5") << 5 << QList<int>{2, 1, 1, 1};
    QTest::newRow("8") << 8 << QList<int>{2, 2, 2, 2};
    QTest::newRow("10") << 10 << QList<int>{3, 3, 2, 2};
    QTest::newRow("11") << 11 << QList<int>{3, 3, 3, 2};
}

void TestFade::partsEndOnTheirColors()
{
    QFETCH(int, length);
    QFETCH(QList<int>, parts);
    const QStringList colors = colorsOf(five(QString(length, u'x')));
    QCOMPARE(colors.size(), length);
    const QStringList ends = {QStringLiteral("FF0000"), QStringLiteral("00FF00"), QStringLiteral("0000FF"),
                              QStringLiteral("563412")};
    int end = -1;
    for (int part = 0; part < 4; ++part) {
        end += parts.at(part);
        QCOMPARE(colors.at(end), ends.at(part));
    }
    QCOMPARE(colors.count(QStringLiteral("000000")), 0); // the first colour is never seen
}

void TestFade::halvesGoToTheEvenNumber()
{
    QCOMPARE(colorsOf(FadeTwoRgb(0, 0, 0, 5, 0, 0, QStringLiteral("ab"), false)),
             (QStringList{QStringLiteral("020000"), QStringLiteral("050000")}));
    QCOMPARE(colorsOf(FadeTwoRgb(0, 0, 0, 255, 3, 1, QStringLiteral("ab"), false)).first(),
             QStringLiteral("800200")); // 127.5, 1.5, 0.5
}

void TestFade::waves()
{
    QString html = five(QStringLiteral("abcde"), true);
    static const QRegularExpression fonts(QStringLiteral("</?Font[^>]*>"));
    QCOMPARE(html.remove(fonts), QStringLiteral("<sup>a</sup>b<sub>c</sub>d<sup>e"));
    html = five(QStringLiteral("a"), true);
    QCOMPARE(html, QStringLiteral("<Font Color=\"#FF0000\"><sup>a</Font>"));
}

void TestFade::waveRunsOnOverTheParts()
{
    QString html = five(QStringLiteral("0123456789"), true);
    static const QRegularExpression fonts(QStringLiteral("</?Font[^>]*>"));
    QCOMPARE(html.remove(fonts),
             QStringLiteral("<sup>0</sup>1<sub>2</sub>3<sup>4</sup>5<sub>6</sub>7<sup>8</sup>9"));
}

void TestFade::nothingIsEscaped()
{
    QCOMPARE(FadeTwoRgb(1, 1, 1, 1, 1, 1, QStringLiteral("<&\" \r\n"), false),
             QStringLiteral("<Font Color=#010101><<Font Color=#010101>&<Font Color=#010101>\""
                            "<Font Color=#010101> <Font Color=#010101>\r<Font Color=#010101>\n"));
    QCOMPARE(five(QStringLiteral("<")), QStringLiteral("<Font Color=\"#FF0000\"><</Font>"));
}

void TestFade::emptyText()
{
    QCOMPARE(five(QString()), QString());
    QCOMPARE(five(QString(), true), QString());
    QCOMPARE(FadeTwoRgb(1, 2, 3, 4, 5, 6, QString(), true), QString());
}

void TestFade::lengths_data()
{
    QTest::addColumn<QString>("letter");
    QTest::newRow("letter") << "x";
    QTest::newRow("emoji") << QStringLiteral("\U0001F600");
}

/// The length of a text is a 16-bit number, counted in characters.
void TestFade::lengths()
{
    QFETCH(QString, letter);
    const QStringList colors = colorsOf(five(letter.repeated(32767)));
    QCOMPARE(colors.size(), 32767);
    QCOMPARE(colors.last(), QStringLiteral("563412"));
    for (const bool two : {false, true}) {
        try {
            const QString text = letter.repeated(32768);
            two ? FadeTwoRgb(0, 0, 0, 1, 1, 1, text, false) : five(text);
            QFAIL("nothing was thrown");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), ErrorNumber::Overflow);
        }
    }
}

void TestFade::charactersAreNeverCut_data()
{
    QTest::addColumn<QString>("character");
    QTest::newRow("emoji") << QStringLiteral("\U0001F600");
    QTest::newRow("emoji with a skin tone") << QStringLiteral("\U0001F44D\U0001F3FD");
    QTest::newRow("family") << QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
    QTest::newRow("flag") << QStringLiteral("\U0001F1EB\U0001F1F7");
    QTest::newRow("accent of its own") << QStringLiteral("e\u0301");
    QTest::newRow("two accents") << QStringLiteral("o\u0302\u0301");
    QTest::newRow("accented letter") << QStringLiteral("\u00E9");
    QTest::newRow("Hebrew with points") << QStringLiteral("\u05E9\u05C1");
}

void TestFade::charactersAreNeverCut()
{
    QFETCH(QString, character);
    const QString text = u'a' + character + u'b' + character;
    QCOMPARE(fadeCharacters(text),
             (QStringList{QStringLiteral("a"), character, QStringLiteral("b"), character}));
    const QString html = five(text);
    QCOMPARE(colorsOf(html).size(), 4);
    QCOMPARE(html.count(u'>' + character + QStringLiteral("</Font>")), 2);
}

void TestFade::randomTexts()
{
    QRandomGenerator random(7);
    for (int round = 0; round < 500; ++round) {
        QString text;
        const int length = random.bounded(round < 400 ? 40 : 2000);
        for (int i = 0; i < length; ++i)
            text += QChar(random.bounded(0x20, 0x7F));
        std::array<int, 5> colors = {};
        for (int& color : colors)
            color = random.bounded(0x1000000);
        const bool wavy = random.bounded(2) == 1;
        QCOMPARE(FadeFive(colors[0], colors[1], colors[2], colors[3], colors[4], text, wavy),
                 spelled(colors, text, wavy));
    }
}

void TestFade::channelsAndNumbersAreTheSame()
{
    QCOMPARE(FadeFiveRgb(0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255, 0x56, 0x34, 0x12,
                         QStringLiteral("a longer text"), true),
             five(QStringLiteral("a longer text"), true));
}

void TestFade::twoColors()
{
    QCOMPARE(FadeTwoRgb(0, 0, 0, 30, 60, 90, QStringLiteral("abc"), false),
             QStringLiteral("<Font Color=#0A141E>a<Font Color=#14283C>b<Font Color=#1E3C5A>c"));
}

void TestFade::twoColorsOverOneCharacter()
{
    QCOMPARE(FadeTwoRgb(9, 9, 9, 255, 128, 0, QStringLiteral("x"), false),
             QStringLiteral("<Font Color=#FF8000>x"));
}

void TestFade::twoColorsWavy()
{
    QString html = FadeTwoRgb(0, 0, 0, 0, 0, 0, QStringLiteral("abcde"), true);
    QCOMPARE(html.remove(QStringLiteral("<Font Color=#000000>")),
             QStringLiteral("<sup>a</sup>b<sub>c</sub>d<sup>e"));
}

void TestFade::twoColorsThroughTheSplit()
{
    QCOMPARE(SplitPairFade(0, 0x0080FF, QStringLiteral("x"), false, FadeTwoRgb),
             QStringLiteral("<Font Color=#FF8000>x"));
}

void TestFade::hexDigits()
{
    for (int value = 0; value < 16; ++value)
        QCOMPARE(HexDigitValue(QStringLiteral("0123456789ABCDEF").at(value)), value);
    for (const QChar other : QStringLiteral("abcdefgG:/@ \u0661"))
        QCOMPARE(HexDigitValue(other), 0);
}

void TestFade::hexNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("number");
    QTest::newRow("ff") << "ff" << 255.F;
    QTest::newRow("FF") << "FF" << 255.F;
    QTest::newRow("empty") << "" << 0.F;
    QTest::newRow("no digit") << "1g" << 16.F;
    QTest::newRow("eight") << "10000000" << 268435456.F;
    QTest::newRow("last eight count") << "F00000001" << 1.F;
}

void TestFade::hexNumbers()
{
    QFETCH(QString, text);
    QFETCH(float, number);
    QCOMPARE(HexToNumber(text), number);
}

QTEST_GUILESS_MAIN(TestFade)
#include "tst_fade.moc"
