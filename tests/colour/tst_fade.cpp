// SPDX-License-Identifier: GPL-3.0-or-later

#include "Random.h"
#include "colour/Fade.h"
#include "colour/FixedInterfaces.h"
#include "platform/RuntimeError.h"
#include "services/Codes.h"

#include <QRandomGenerator>
#include <QTest>
#include <array>
#include <cmath>
#include <functional>

using namespace brindlemark;

namespace {

using Rgb = std::array<int, 3>;

// Each is one character to the eye.
const QString Family = QString::fromUtf8("👨‍👩‍👧");
const QString Accented = QStringLiteral("e\u0301");
const QString Flag = QString::fromUtf8("🇩🇪");

/// Words of a script, cut by hand into what its reader sees as one character.
struct Script
{
    const char* name;
    QStringList characters;
};

QStringList cut(const char* characters)
{
    return QString::fromUtf8(characters).split(u'|');
}

const QList<Script> Scripts = {
    {"Thai", cut("ส|วั|ส|ดี|กำ|น้ำ")},
    {"Devanagari", cut("न|म|स्ते|हि|न्दी|क्ष")},
    {"Bengali", cut("বাং|লা|ক|ক্ষ")},
    {"Tamil", cut("த|மி|ழ்|கொ|ஸ்")},
    {"Khmer", cut("ខ្មែ|រ|សូ|ម|ស្វា|គ|ម|ន៍|ស្ត្រី")},
    {"Myanmar", cut("မြ|န်|မ|ာ|မ|င်္ဂ|လ|ာ|ပ|ါ|က္က")},
    {"Tibetan", cut("བོ|ད|་|ཡི|ག|རྒྱ")},
    {"Sinhala", cut("සිං|හ|ල|ශ්‍රී|ක්‍ෂ")},
    {"Hebrew", cut("שָׁ|ל|וֹ|ם")},
    {"Arabic", cut("سَ|ل|ا|مٌ")},
    {"Korean", cut("한|국|\u1112\u1161\u11AB")},
    {"Greek", cut("Κ|α|λ|ή|α\u0342")},
    {"Cyrillic", cut("П|р|и|и\u0306")},
    {"Chinese", cut("日|本|𠮷")},
};

/// Each of these is one character too.
const QList<Script> Pictures = {
    {"emoji", cut("😀")},
    {"family", cut("👨‍👩‍👧")},
    {"flag", cut("🇩🇪")},
    {"skin tone", cut("👍🏽")},
    {"keycap", cut("1️⃣")},
    {"heart", cut("❤️")},
    {"astronaut", cut("👩🏽‍🚀")},
    {"regional flag", cut("🏴󠁧󠁢󠁥󠁮󠁧󠁿")},
    {"gothic", cut("𐍈")},
};

int numberOf(const Rgb& color)
{
    return color[0] | color[1] << 8 | color[2] << 16;
}

QString closedPiece(const QString& code, const QString& character, const QString& wave = QString())
{
    return QStringLiteral("<Font Color=\"#%1\">").arg(code) + wave + character + QStringLiteral("</Font>");
}

QString openPiece(const QString& code, const QString& character, const QString& wave = QString())
{
    return QStringLiteral("<Font Color=#%1>").arg(code) + wave + character;
}

QString overFive(const std::array<Rgb, 5>& c, const QString& text, bool wavy = false)
{
    return FadeFiveRgb(c[0][0], c[0][1], c[0][2], c[1][0], c[1][1], c[1][2], c[2][0], c[2][1], c[2][2],
                       c[3][0], c[3][1], c[3][2], c[4][0], c[4][1], c[4][2], text, wavy);
}

QString overTwo(const Rgb& a, const Rgb& b, const QString& text, bool wavy = false)
{
    return FadeTwoRgb(a[0], a[1], a[2], b[0], b[1], b[2], text, wavy);
}

/// The colour codes of all pieces, in order.
QStringList codes(const QString& html)
{
    QStringList found;
    for (qsizetype at = html.indexOf(u'#'); at >= 0; at = html.indexOf(u'#', at + 1))
        found << html.mid(at + 1, 6);
    return found;
}

// ---- The engine once more, as slow as its formulas

int nearestHalvesToEven(double value)
{
    const double below = std::floor(value);
    const double part = value - below;
    if (part == 0.5)
        return std::fmod(below, 2) == 0 ? int(below) : int(below) + 1;
    return int(part < 0.5 ? below : below + 1);
}

QString naiveRun(const Rgb& from, const Rgb& to, const QStringList& characters, bool wavy, bool closed,
                 int& w)
{
    const QStringList waves = {"<sup>", "</sup>", "<sub>", "</sub>"};
    QString html;
    for (int i = 1; i <= characters.size(); ++i) {
        QString code;
        for (size_t channel = 0; channel < 3; ++channel) {
            const double d = double(to.at(channel) - from.at(channel)) / double(characters.size());
            code += QString::asprintf("%02X", nearestHalvesToEven(i * d + from.at(channel)));
        }
        QString wave;
        if (wavy) {
            w = w + 1;
            if (w > 4)
                w = 1;
            wave = waves.at(w - 1);
        }
        html += closed ? closedPiece(code, characters.at(i - 1), wave)
                       : openPiece(code, characters.at(i - 1), wave);
    }
    return html;
}

QString naiveFive(const std::array<Rgb, 5>& colors, const QStringList& characters, bool wavy)
{
    std::array<int, 4> n = {0, 0, 0, 0};
    int rem = int(characters.size());
    size_t turn = 0;
    do { // one for each part in turn
        ++n.at(turn++ % 4);
    } while (--rem >= 1);
    QString html;
    int w = 0;
    qsizetype start = 0;
    for (size_t part = 0; part < 4; ++part) {
        html +=
            naiveRun(colors.at(part), colors.at(part + 1), characters.mid(start, n.at(part)), wavy, true, w);
        start += n.at(part);
    }
    return html;
}

} // namespace

class TestFade : public QObject
{
    Q_OBJECT

private slots:
    void lengths_data();
    void lengths();
    void ties_data();
    void ties();
    void pieceForm();
    void colorNumbers_data();
    void colorNumbers();
    void pairOfColorNumbers();
    void wave();
    void wholeCharacters_data();
    void wholeCharacters();
    void nothingIsEscaped_data();
    void nothingIsEscaped();
    void charactersOfAText_data();
    void charactersOfAText();
    void picturesBesideAScript_data();
    void picturesBesideAScript();
    void randomTexts_data();
    void randomTexts();
    void longest_data();
    void longest();
    void sameAsTheFormulas();
    void hexDigitValue_data();
    void hexDigitValue();
    void hexToNumber_data();
    void hexToNumber();
};

void TestFade::lengths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("reds"); // from 0 over 60, 120 and 180 to 240
    QTest::newRow("0") << "" << QList<int>();
    QTest::newRow("1") << "a" << QList<int>{60};
    QTest::newRow("2") << "ab" << QList<int>{60, 120};
    QTest::newRow("3") << "abc" << QList<int>{60, 120, 180};
    QTest::newRow("4") << "abcd" << QList<int>{60, 120, 180, 240};
    QTest::newRow("5") << "abcde" << QList<int>{30, 60, 120, 180, 240};
    QTest::newRow("6") << "abcdef" << QList<int>{30, 60, 90, 120, 180, 240};
    QTest::newRow("10") << "abcdefghij" << QList<int>{20, 40, 60, 80, 100, 120, 150, 180, 210, 240};
    QTest::newRow("11") << "abcdefghijk" << QList<int>{20, 40, 60, 80, 100, 120, 140, 160, 180, 210, 240};
}

void TestFade::lengths()
{
    QFETCH(QString, text);
    QFETCH(QList<int>, reds);
    for (int channel = 0; channel < 3; ++channel) {
        QString expected;
        for (qsizetype i = 0; i < text.size(); ++i) {
            QString code = QStringLiteral("000000");
            code.replace(qsizetype(channel) * 2, 2, QString::asprintf("%02X", reds.at(i)));
            expected += closedPiece(code, text.mid(i, 1));
        }
        std::array<Rgb, 5> colors{};
        for (size_t i = 0; i < colors.size(); ++i)
            colors.at(i).at(size_t(channel)) = int(i) * 60;
        QCOMPARE(overFive(colors, text), expected);
        QCOMPARE(FadeFive(numberOf(colors[0]), numberOf(colors[1]), numberOf(colors[2]), numberOf(colors[3]),
                          numberOf(colors[4]), text, false),
                 expected);
    }
}

void TestFade::ties_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QStringList>("reds"); // of two characters
    QTest::newRow("2.5") << 0 << 5 << QStringList{"02", "05"};
    QTest::newRow("0.5") << 0 << 1 << QStringList{"00", "01"};
    QTest::newRow("1.5") << 0 << 3 << QStringList{"02", "03"};
    QTest::newRow("127.5") << 0 << 255 << QStringList{"80", "FF"};
    QTest::newRow("2.5 downwards") << 5 << 0 << QStringList{"02", "00"};
    QTest::newRow("1.5 downwards") << 3 << 0 << QStringList{"02", "00"};
    QTest::newRow("127.5 downwards") << 255 << 0 << QStringList{"80", "00"};
    QTest::newRow("252.5 downwards") << 255 << 250 << QStringList{"FC", "FA"};
    QTest::newRow("254.5") << 254 << 255 << QStringList{"FE", "FF"};
    QTest::newRow("no tie") << 10 << 20 << QStringList{"0F", "14"};
    QTest::newRow("the same") << 77 << 77 << QStringList{"4D", "4D"};
}

void TestFade::ties()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QStringList, reds);
    QStringList expected;
    for (const QString& red : reds)
        expected << red + QStringLiteral("0000");
    QCOMPARE(codes(overTwo({from, 0, 0}, {to, 0, 0}, QStringLiteral("ab"))), expected);
    // The first of four runs that are two characters long.
    const Rgb second = {to, 0, 0};
    QCOMPARE(codes(overFive({{{from, 0, 0}, second, second, second, second}}, QStringLiteral("abcdefgh")))
                 .mid(0, 2),
             expected);
}

void TestFade::pieceForm()
{
    const QString text = QStringLiteral("xy");
    QCOMPARE(FadeTwoRgb(0, 0, 0, 5, 0, 0, text, false),
             QStringLiteral("<Font Color=#020000>x<Font Color=#050000>y"));
    QCOMPARE(FadeFiveRgb(1, 1, 1, 0x40, 0x80, 0xFF, 9, 10, 11, 1, 1, 1, 1, 1, 1, text, false),
             QStringLiteral("<Font Color=\"#4080FF\">x</Font><Font Color=\"#090A0B\">y</Font>"));
    QCOMPARE(FadeFiveRgb(1, 1, 1, 0x40, 0x80, 0xFF, 9, 10, 11, 1, 1, 1, 1, 1, 1, text, true),
             QStringLiteral("<Font Color=\"#4080FF\"><sup>x</Font><Font Color=\"#090A0B\"></sup>y</Font>"));
    // One character has the second colour, and no closing tag.
    QCOMPARE(FadeTwoRgb(1, 2, 3, 0x40, 0x80, 0xFF, QStringLiteral("x"), false),
             QStringLiteral("<Font Color=#4080FF>x"));
    for (const bool wavy : {false, true}) {
        QCOMPARE(FadeTwoRgb(1, 2, 3, 4, 5, 6, QString(), wavy), QString());
        QCOMPARE(FadeFive(1, 2, 3, 4, 5, QString(), wavy), QString());
    }
}

void TestFade::colorNumbers_data()
{
    QTest::addColumn<int>("color");
    QTest::addColumn<QString>("code");
    QTest::newRow("red is low") << 0x0000FF << "FF0000";
    QTest::newRow("green") << 0x00FF00 << "00FF00";
    QTest::newRow("blue is high") << 0xFF0000 << "0000FF";
    QTest::newRow("mixed") << 0xFF8040 << "4080FF";
    QTest::newRow("small") << 1 << "010000";
    QTest::newRow("black") << 0 << "000000";
    QTest::newRow("white") << 0xFFFFFF << "FFFFFF";
    // Of 8000000F the last two digits, the third and fourth, and the first two.
    QTest::newRow("system colour") << int(0x8000000FU) << "0F0080";
}

void TestFade::colorNumbers()
{
    QFETCH(int, color);
    QFETCH(QString, code);
    const QString blacks = closedPiece(QStringLiteral("000000"), QStringLiteral("x"));
    const QString piece = closedPiece(code, QStringLiteral("x"));
    // Each argument is one part's end; the first colour is never seen.
    QCOMPARE(FadeFive(color, 0, 0, 0, 0, QStringLiteral("xxxx"), false), blacks.repeated(4));
    QCOMPARE(FadeFive(0, color, 0, 0, 0, QStringLiteral("xxxx"), false), piece + blacks.repeated(3));
    QCOMPARE(FadeFive(0, 0, color, 0, 0, QStringLiteral("xxxx"), false), blacks + piece + blacks.repeated(2));
    QCOMPARE(FadeFive(0, 0, 0, color, 0, QStringLiteral("xxxx"), false), blacks.repeated(2) + piece + blacks);
    QCOMPARE(FadeFive(0, 0, 0, 0, color, QStringLiteral("xxxx"), false), blacks.repeated(3) + piece);
}

void TestFade::pairOfColorNumbers()
{
    QCOMPARE(SplitPairFade(0xFF8040, 0xFF8040, QStringLiteral("x"), false, FadeTwoRgb),
             QStringLiteral("<Font Color=#4080FF>x"));
    QCOMPARE(SplitPairFade(0x000000, 0x050A14, QStringLiteral("xy"), true, FadeTwoRgb),
             QStringLiteral("<Font Color=#0A0502><sup>x<Font Color=#140A05></sup>y"));
}

void TestFade::wave()
{
    const QStringList waves = {"<sup>",  "</sup>", "<sub>",  "</sub>", "<sup>",
                               "</sup>", "<sub>",  "</sub>", "<sup>"};
    const QString text = QStringLiteral("abcdefghi"); // 3, 2, 2, 2
    QString five;
    QString two;
    for (qsizetype i = 0; i < text.size(); ++i) {
        five += closedPiece(QStringLiteral("000000"), text.mid(i, 1), waves.at(i));
        two += openPiece(QStringLiteral("000000"), text.mid(i, 1), waves.at(i));
    }
    for (int call = 0; call < 2; ++call) { // each call begins anew
        QCOMPARE(FadeFive(0, 0, 0, 0, 0, text, true), five);
        QCOMPARE(overTwo({}, {}, text, true), two);
    }
    QVERIFY(!FadeFive(0, 0, 0, 0, 0, text, false).contains(u"su"));
}

void TestFade::wholeCharacters_data()
{
    QTest::addColumn<QString>("character");
    QTest::newRow("emoji") << QString::fromUtf8("😀");
    QTest::newRow("family") << Family;
    QTest::newRow("accent") << Accented;
    QTest::newRow("two accents") << QStringLiteral("o\u0308\u0301");
    QTest::newRow("flag") << Flag;
    QTest::newRow("skin") << QString::fromUtf8("👍🏽");
    QTest::newRow("beyond the plane") << QString::fromUtf8("𠮷");
}

void TestFade::wholeCharacters()
{
    QFETCH(QString, character);
    // Five characters, the third and the fifth such: 2, 1, 1, 1.
    const QString text = QStringLiteral("ab") + character + QStringLiteral("c") + character;
    const QString expected = closedPiece(QStringLiteral("1E0000"), QStringLiteral("a")) +
                             closedPiece(QStringLiteral("3C0000"), QStringLiteral("b")) +
                             closedPiece(QStringLiteral("780000"), character) +
                             closedPiece(QStringLiteral("B40000"), QStringLiteral("c")) +
                             closedPiece(QStringLiteral("F00000"), character);
    QCOMPARE(FadeFive(0, 60, 120, 180, 240, text, false), expected);
    QCOMPARE(overTwo({}, {5, 0, 0}, character + QStringLiteral("z"), true),
             openPiece(QStringLiteral("020000"), character, QStringLiteral("<sup>")) +
                 openPiece(QStringLiteral("050000"), QStringLiteral("z"), QStringLiteral("</sup>")));
}

void TestFade::nothingIsEscaped_data()
{
    QTest::addColumn<QString>("character");
    for (const char* character : {"<", ">", "&", "\"", "'", " ", "\t", "\r", "\n", "\xC2\xA0", "#"})
        QTest::newRow(character) << QString::fromUtf8(character);
}

void TestFade::nothingIsEscaped()
{
    QFETCH(QString, character);
    const QString text = character + QStringLiteral("m") + character; // nor is anything trimmed
    QCOMPARE(FadeFive(0, 1, 2, 3, 0, text, false),
             closedPiece(QStringLiteral("010000"), character) +
                 closedPiece(QStringLiteral("020000"), QStringLiteral("m")) +
                 closedPiece(QStringLiteral("030000"), character));
    QCOMPARE(overTwo({}, {3, 0, 0}, text), openPiece(QStringLiteral("010000"), character) +
                                               openPiece(QStringLiteral("020000"), QStringLiteral("m")) +
                                               openPiece(QStringLiteral("030000"), character));
}

void TestFade::charactersOfAText_data()
{
    QTest::addColumn<QStringList>("characters");
    QTest::newRow("none") << QStringList();
    QTest::newRow("line ends") << QStringList{"\r", "\n", "\r", "\n", "a"};
    QTest::newRow("ends in CR") << QStringList{"a", "\r"};
    QTest::newRow("CR before a letter")
        << QStringList{"\r", QString::fromUtf8("é"), "\n", QString::fromUtf8("😀")};
    QTest::newRow("mixed") << QStringList{Family, "a", Accented, "\r", "\n", "b", Family, Family, Accented};
    QTest::newRow("flags") << QStringList{Flag, Flag, "a", Flag, "b"};
    QTest::newRow("flag behind an emoji") << QStringList{"a", QString::fromUtf8("😀"), Flag, "b"};
    QTest::newRow("flag behind a family") << QStringList{"a", Family, Flag, "b"};
    QTest::newRow("keycap") << QStringList{"1", QStringLiteral("1\uFE0F\u20E3"), "1"};
    QTest::newRow("astronaut") << QStringList{"a", QString::fromUtf8("👩🏽‍🚀"),
                                              QString::fromUtf8("👩🏽‍🚀"), "b"};
    QTest::newRow("Korean") << QStringList{QStringLiteral("\u1112\u1161\u11AB"), QString::fromUtf8("글")};
    QTest::newRow("accent at the end") << QStringList{"a", "b", Accented};
}

void TestFade::charactersOfAText()
{
    QFETCH(QStringList, characters);
    QCOMPARE(fadeCharacters(characters.join(QString())), characters);
}

void TestFade::picturesBesideAScript_data()
{
    QTest::addColumn<QStringList>("letters");
    QTest::addColumn<QString>("picture");
    for (const Script& script : Scripts) {
        for (const Script& picture : Pictures) {
            QTest::addRow("%s, %s", script.name, picture.name)
                << script.characters << picture.characters.constFirst();
        }
    }
}

/// With nothing between them, and with blanks, digits and signs.
void TestFade::picturesBesideAScript()
{
    QFETCH(QStringList, letters);
    QFETCH(QString, picture);
    const QStringList characters = letters + QStringList{picture, picture} + letters +
                                   QStringList{" ", picture, "7", "!", picture, "-"} + letters;
    QCOMPARE(fadeCharacters(characters.join(QString())), characters);
    const std::array<Rgb, 5> colors = {{{0, 9, 255}, {255, 8, 0}, {3, 200, 5}, {99, 0, 1}, {255, 255, 255}}};
    QCOMPARE(overFive(colors, characters.join(QString())), naiveFive(colors, characters, false));
}

void TestFade::randomTexts_data()
{
    addSeeds();
}

/// 100,000 of them in all.
void TestFade::randomTexts()
{
    QFETCH(quint32, seed);
    Random random(seed);
    QStringList whole = {"a", "Z", "7", " ", "!", "<", "\r", "\n", Accented};
    for (const QList<Script>& list : {Scripts, Pictures}) {
        for (const Script& script : list)
            whole += script.characters;
    }
    // Whole characters behind each other stay what they are.
    for (int round = 0; round < 10'000; ++round) {
        QStringList characters;
        for (int i = random.number(16); i >= 0; --i)
            characters << random.of(whole);
        QCOMPARE(fadeCharacters(characters.join(QString())), characters);
    }
    // Parts of characters in any order: none is lost, and none that needs a letter stands at a beginning.
    const QStringList marks = {"\u0301",     "\u20E3",     "\uFE0F",     "\u200D", "\u0E49",
                               "\u093F",     "\u094D",     "\u09CD",     "\u0BCD", "\u17D2",
                               "\u17B8",     "\u1039",     "\u103C",     "\u0F90", "\u0F72",
                               "\U0001F3FD", "\U000E0067", "\U000E007F", "\u05B8", "\u11AB"};
    const QStringList letters = {"\u0E01",     "\u0915",     "\u0995",     "\u0B95",     "\u1780",
                                 "\u1000",     "\u0F56",     "\u05E9",     "\u0633",     "\u1112",
                                 "\u0627",     "\U0001F600", "\U0001F469", "\U0001F680", "\U0001F1E9",
                                 "\U0001F3F4", "\U00020BB7", "\U00011103"};
    const QStringList ends = {"\r", "\n", "\t"};
    for (int round = 0; round < 10'000; ++round) {
        QString text;
        for (int i = random.number(20); i >= 0; --i)
            text += random.of(random.chance() ? marks : random.number(6) == 0 ? whole : letters);
        const QStringList characters = fadeCharacters(text);
        QCOMPARE(characters.join(QString()), text);
        for (qsizetype i = 0; i < characters.size(); ++i) {
            const QString& character = characters.at(i);
            QVERIFY(!character.isEmpty());
            QVERIFY(!character.front().isLowSurrogate() && !character.back().isHighSurrogate());
            QVERIFY(!character.contains(QLatin1String("\r\n")));
            if (i == 0 || ends.contains(characters.at(i - 1)))
                continue; // nothing to stand on
            for (const QString& mark : marks) {
                if (mark != QStringLiteral("\u11AB"))
                    QVERIFY2(!character.startsWith(mark), qPrintable(text));
            }
        }
    }
}

void TestFade::longest_data()
{
    QTest::addColumn<QString>("character");
    QTest::newRow("letters") << QStringLiteral("a");
    QTest::newRow("line feeds") << QStringLiteral("\n");
    QTest::newRow("emoji") << QString::fromUtf8("😀");
}

void TestFade::longest()
{
    QFETCH(QString, character);
    const QString most = character.repeated(32767);
    const QStringList characters(32767, character);
    const std::array<Rgb, 5> colors = {{{0, 9, 255}, {255, 8, 0}, {3, 200, 5}, {99, 0, 1}, {255, 255, 255}}};
    QVERIFY(overFive(colors, most, true) == naiveFive(colors, characters, true));
    int w = 0;
    QVERIFY(overTwo(colors[0], colors[1], most, true) ==
            naiveRun(colors[0], colors[1], characters, true, false, w));

    const QString more = most + character;
    for (const auto& fade : std::initializer_list<std::function<void()>>{
             [&] { FadeFive(0, 1, 2, 3, 4, more, false); }, [&] { overFive(colors, more); },
             [&] { overTwo(colors[0], colors[1], more); }}) {
        std::optional<ErrorNumber> number;
        try {
            fade();
        } catch (const RuntimeError& error) {
            number = error.number();
        }
        QVERIFY(number == ErrorNumber::Overflow);
    }
}

void TestFade::sameAsTheFormulas()
{
    QRandomGenerator random(20240229);
    const QStringList pool = {"a",  "B", "<", "&", ">", "\r",     "\n",   " ",
                              "\"", "#", "1", "/", "x", Accented, Family, QString::fromUtf8("日")};
    for (int round = 0; round < 2000; ++round) {
        const int length = random.bounded(round % 10 == 0 ? 600 : 24);
        QStringList characters;
        for (int i = 0; i < length; ++i)
            characters << pool.at(random.bounded(int(pool.size())));
        std::array<Rgb, 5> colors{};
        for (Rgb& color : colors) {
            for (int& channel : color)
                channel = random.bounded(256);
        }
        const bool wavy = random.bounded(2) == 1;
        const QString text = characters.join(QString());
        const QString five = naiveFive(colors, characters, wavy);
        QCOMPARE(overFive(colors, text, wavy), five);
        QCOMPARE(FadeFive(numberOf(colors[0]), numberOf(colors[1]), numberOf(colors[2]), numberOf(colors[3]),
                          numberOf(colors[4]), text, wavy),
                 five);
        int w = 0;
        const QString two = naiveRun(colors[0], colors[1], characters, wavy, false, w);
        QCOMPARE(overTwo(colors[0], colors[1], text, wavy), two);
        QCOMPARE(SplitPairFade(numberOf(colors[0]), numberOf(colors[1]), text, wavy, FadeTwoRgb), two);
    }
}

void TestFade::hexDigitValue_data()
{
    QTest::addColumn<QChar>("digit");
    QTest::addColumn<int>("value");
    const QString digits = QStringLiteral("0123456789ABCDEF");
    for (int i = 0; i < 16; ++i)
        QTest::addRow("%c", digits.at(i).toLatin1()) << digits.at(i) << i;
    for (const char16_t other : u"afgGZ/:@` -#\u00C9\u0661\uFF21") // the end of the text as well
        QTest::addRow("no digit %x", unsigned(other)) << QChar(other) << 0;
}

void TestFade::hexDigitValue()
{
    QFETCH(QChar, digit);
    QFETCH(int, value);
    QCOMPARE(HexDigitValue(digit), value);
}

void TestFade::hexToNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("number");
    const auto row = [](const QString& text, float number) {
        QTest::newRow(qPrintable(text.isEmpty() ? QStringLiteral("empty") : text)) << text << number;
    };
    row(QString(), 0);
    row(QStringLiteral("ff"), 255);
    row(QStringLiteral("FF"), 255);
    row(QStringLiteral("fF"), 255);
    row(QStringLiteral("0"), 0);
    row(QStringLiteral("00000010"), 16);
    row(QStringLiteral("1g"), 16);
    row(QStringLiteral("g1"), 1);
    row(QStringLiteral("#12"), 18);
    row(QStringLiteral(" 1 "), 16);
    row(QStringLiteral("xyz"), 0);
    row(QStringLiteral("FFFFFF"), 16777215);
    row(QStringLiteral("1000001"), 16777216); // the nearest that single precision has
    row(QStringLiteral("FFFFFFFF"), 4294967296.0F);
    row(QStringLiteral("900000001"), 1); // the last eight
    row(QStringLiteral("F00000000000A"), 10);
    // From the last digit to the first: 129 and then 4026531840, whose sum is rounded once.
    row(QStringLiteral("F0000081"), 4026532096.0F);
    // A letter stays one character, whatever its upper case.
    row(QString::fromUtf8("Fß"), 240);
    row(QString::fromUtf8("ﬀ"), 0);
}

void TestFade::hexToNumber()
{
    QFETCH(QString, text);
    QFETCH(float, number);
    QVERIFY2(HexToNumber(text) == number, qPrintable(QString::number(double(HexToNumber(text)), 'f', 1)));
}

QTEST_GUILESS_MAIN(TestFade)
#include "tst_fade.moc"
