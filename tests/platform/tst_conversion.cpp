// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Conversion.h"
#include "platform/RuntimeError.h"

#include <QTest>
#include <clocale>
#include <functional>
#include <tuple>

using namespace brindlemark;

namespace {

/// The number of the error that `body` raises; 0 when it raises none.
int errorOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
    return 0;
}

} // namespace

class TestConversion : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void integers_data();
    void integers();
    void integersOutOfRange_data();
    void integersOutOfRange();
    void noNumbers_data();
    void noNumbers();
    void doubles_data();
    void doubles();
    void singles();
    void booleans_data();
    void booleans();
    void textsOfNumbers();
    void textsReadBack();
};

void TestConversion::initTestCase()
{
    // A desktop whose decimal sign is a comma must not matter.
    QLocale::setDefault(QLocale(QLocale::German));
    std::ignore = std::setlocale(LC_ALL, "de_DE.UTF-8");
}

void TestConversion::integers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    const std::pair<const char*, int> rows[] = {
        {"0", 0},         {"7", 7},           {"-7", -7},         {"+7", 7},
        {"007", 7},       {" 7 ", 7},         {"\t7", 7},         {"0.5", 0},
        {"1.5", 2},       {"2.5", 2},         {"3.5", 4},         {"-0.5", 0},
        {"-1.5", -2},     {"-2.5", -2},       {"2.4999", 2},      {"2.5001", 3},
        {"1e3", 1000},    {"1.5E+2", 150},    {".6", 1},          {"5.", 5},
        {"32767", 32767}, {"-32768", -32768}, {"32767.4", 32767}, {"-32768.5", -32768},
    };
    for (const auto& [text, number] : rows)
        QTest::newRow(text) << QString::fromUtf8(text) << number;
}

void TestConversion::integers()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QCOMPARE(toInteger32(text), number);
    QCOMPARE(toInteger16(text), number);
}

void TestConversion::integersOutOfRange_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("fits32");
    const std::pair<const char*, bool> rows[] = {
        {"32768", true},        {"-32769", true},       {"32767.5", true},       {"2147483647", true},
        {"-2147483648", true},  {"2147483647.4", true}, {"2147483647.5", false}, {"2147483648", false},
        {"-2147483649", false}, {"1e300", false},       {"1e999", false},        {"-1e999", false},
    };
    for (const auto& [text, fits32] : rows)
        QTest::newRow(text) << QString::fromUtf8(text) << fits32;
}

void TestConversion::integersOutOfRange()
{
    QFETCH(QString, text);
    QFETCH(bool, fits32);
    QCOMPARE(errorOf([&] { toInteger16(text); }), 6);
    QCOMPARE(errorOf([&] { toInteger32(text); }), fits32 ? 0 : 6);
    QCOMPARE(errorOf([&] { toDouble(text); }), text.endsWith(QStringLiteral("999")) ? 6 : 0);
}

void TestConversion::noNumbers_data()
{
    QTest::addColumn<QString>("text");
    const char* rows[] = {"",        " ",    "abc",     "12a",  "a12",  "1 2",  "1,5",
                          "1.000,5", "--1",  "1e",      "e5",   ".",    "+",    "inf",
                          "nan",     "0x10", "#FF0000", "1\n2", "1..2", "Left", "\xD9\xA3"};
    for (const char* text : rows)
        QTest::newRow(text) << QString::fromUtf8(text);
    QTest::newRow("NUL behind the number") << QString(QStringLiteral("1") + QChar(0));
}

void TestConversion::noNumbers()
{
    QFETCH(QString, text);
    QCOMPARE(errorOf([&] { toInteger32(text); }), 13);
    QCOMPARE(errorOf([&] { toInteger16(text); }), 13);
    QCOMPARE(errorOf([&] { toDouble(text); }), 13);
    QCOMPARE(errorOf([&] { toSingle(text); }), 13);
    QCOMPARE(errorOf([&] { toBoolean(text); }), 13);
}

void TestConversion::doubles_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("decimal") << "8.25" << 8.25;
    QTest::newRow("blanks") << "  -0.1 " << -0.1;
    QTest::newRow("nothing before the point") << ".5" << 0.5;
    QTest::newRow("nothing behind the point") << "-2." << -2.0;
    QTest::newRow("exponent") << "2.5e-3" << 0.0025;
    QTest::newRow("large") << "1e300" << 1e300;
    QTest::newRow("too small to tell from zero") << "1e-999" << 0.0;
}

void TestConversion::doubles()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QVERIFY(toDouble(text) == number); // to the last bit
}

void TestConversion::singles()
{
    QVERIFY(toSingle(QStringLiteral("8.25")) == 8.25F);
    QVERIFY(toSingle(QStringLiteral("0.1")) == 0.1F);
    QCOMPARE(errorOf([] { toSingle(QStringLiteral("3.5e38")); }), 6);
    QCOMPARE(errorOf([] { toSingle(QStringLiteral("-1e999")); }), 6);
    QCOMPARE(errorOf([] { toDouble(QStringLiteral("1e999")); }), 6);
}

void TestConversion::booleans_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("value");
    const std::pair<const char*, bool> rows[] = {
        {"True", true}, {"False", false}, {"true", true}, {"FALSE", false}, {" True ", true},
        {"1", true},    {"0", false},     {"-1", true},   {"0.1", true},    {"0.0", false}};
    for (const auto& [text, value] : rows)
        QTest::newRow(text) << QString::fromUtf8(text) << value;
}

void TestConversion::booleans()
{
    QFETCH(QString, text);
    QFETCH(bool, value);
    QCOMPARE(toBoolean(text), value);
}

void TestConversion::textsOfNumbers()
{
    QCOMPARE(fromBoolean(true), QStringLiteral("True"));
    QCOMPARE(fromBoolean(false), QStringLiteral("False"));
    QCOMPARE(fromNumber(16711680), QStringLiteral("16711680"));
    QCOMPARE(fromNumber(-5), QStringLiteral("-5"));
    QCOMPARE(fromNumber(16711680.0), QStringLiteral("16711680"));
    QCOMPARE(fromNumber(0.1), QStringLiteral("0.1"));
    QCOMPARE(fromNumber(0.1F), QStringLiteral("0.1"));
    QCOMPARE(fromNumber(8.25F), QStringLiteral("8.25"));
}

void TestConversion::textsReadBack()
{
    for (int quarters = 1; quarters < 400; ++quarters) {
        const float size = static_cast<float>(quarters) / 4;
        QVERIFY(toSingle(fromNumber(size)) == size);
    }
    for (const int number : {-2147483647 - 1, -1, 0, 255, 2147483647})
        QCOMPARE(toInteger32(fromNumber(number)), number);
    QCOMPARE(toBoolean(fromBoolean(true)), true);
    QCOMPARE(toBoolean(fromBoolean(false)), false);
}

QTEST_GUILESS_MAIN(TestConversion)
#include "tst_conversion.moc"
