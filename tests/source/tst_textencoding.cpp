// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/TextEncoding.h"

#include <QTest>

using namespace brindlemark;

class TestTextEncoding : public QObject
{
    Q_OBJECT

private slots:
    void encodingOfBytes_data();
    void encodingOfBytes();
    void westernCharacters_data();
    void westernCharacters();
    void everyByteComesBackFromWestern();
    void whatWesternCannotHoldBecomesAReference_data();
    void whatWesternCannotHoldBecomesAReference();
    void utf8_data();
    void utf8();
    void brokenUtf8IsDecodedWithMarks();
    void byteOrderMarkIsNoCharacter();
};

void TestTextEncoding::encodingOfBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<TextEncoding>("encoding");
    QTest::newRow("empty") << QByteArray() << TextEncoding::Utf8;
    QTest::newRow("ascii") << QByteArray("<P>abc</P>\r\n") << TextEncoding::Utf8;
    QTest::newRow("nul") << QByteArray("a\0b", 3) << TextEncoding::Utf8;
    QTest::newRow("two bytes") << QByteArray("\xC3\xA9") << TextEncoding::Utf8;
    QTest::newRow("four bytes") << QByteArray("\xF0\x9F\x98\x80") << TextEncoding::Utf8;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<P>") << TextEncoding::Utf8;
    QTest::newRow("lone high byte") << QByteArray("caf\xE9") << TextEncoding::Western;
    QTest::newRow("one bad byte among many good ones")
        << QByteArray("\xC3\xA9\xC3\xA9\xC3\xA9\xFF") << TextEncoding::Western;
    QTest::newRow("cut short") << QByteArray("\xE2\x82") << TextEncoding::Western;
    QTest::newRow("overlong") << QByteArray("\xC0\xAF") << TextEncoding::Western;
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << TextEncoding::Western;
    QTest::newRow("beyond the last character") << QByteArray("\xF4\x90\x80\x80") << TextEncoding::Western;
}

void TestTextEncoding::encodingOfBytes()
{
    QFETCH(QByteArray, bytes);
    QTEST(encodingOf(bytes), "encoding");
}

void TestTextEncoding::westernCharacters_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters") << QByteArray("\xC9t\xE9") << QStringLiteral("Été");
    QTest::newRow("80 to 87") << QByteArray("\x80\x82\x83\x84\x85\x86\x87") << QStringLiteral("€‚ƒ„…†‡");
    QTest::newRow("88 to 8E") << QByteArray("\x88\x89\x8A\x8B\x8C\x8E") << QStringLiteral("ˆ‰Š‹ŒŽ");
    QTest::newRow("91 to 97") << QByteArray("\x91\x92\x93\x94\x95\x96\x97") << QStringLiteral("‘’“”•–—");
    QTest::newRow("98 to 9F") << QByteArray("\x98\x99\x9A\x9B\x9C\x9E\x9F") << QStringLiteral("˜™š›œžŸ");
    QTest::newRow("A0") << QByteArray("\xA0") << QString(QChar(0xA0));
    QTest::newRow("FF") << QByteArray("\xFF") << QStringLiteral("ÿ");
}

void TestTextEncoding::westernCharacters()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(decode(bytes, TextEncoding::Western), text);
    QCOMPARE(encode(text, TextEncoding::Western), bytes);
    QCOMPARE(toUtf8("a" + bytes + "b" + bytes, TextEncoding::Western), (u'a' + text + u'b' + text).toUtf8());
}

void TestTextEncoding::everyByteComesBackFromWestern()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    const QString text = decode(bytes, TextEncoding::Western);
    QCOMPARE(text.size(), 256);
    QCOMPARE(encode(text, TextEncoding::Western), bytes);
}

void TestTextEncoding::whatWesternCannotHoldBecomesAReference_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("kanji") << QStringLiteral("a日b") << QByteArray("a&#26085;b");
    QTest::newRow("beyond 16 bits") << QStringLiteral("😀") << QByteArray("&#128512;");
    QTest::newRow("latin, but of another page") << QStringLiteral("ő") << QByteArray("&#337;");
    QTest::newRow("control whose byte is taken") << QString(QChar(0x80)) << QByteArray("&#128;");
    QTest::newRow("half a pair") << QString(QChar(0xD83D)) << QByteArray("&#65533;");
    QTest::newRow("plain and others in turns")
        << QStringLiteral("a\u00E9日b\r\n€😀") << QByteArray("a\xE9&#26085;b\r\n\x80&#128512;");
}

void TestTextEncoding::whatWesternCannotHoldBecomesAReference()
{
    QFETCH(QString, text);
    QTEST(encode(text, TextEncoding::Western), "bytes");
}

void TestTextEncoding::utf8_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QString() << QByteArray();
    QTest::newRow("euro") << QStringLiteral("€") << QByteArray("\xE2\x82\xAC");
    QTest::newRow("beyond 16 bits") << QStringLiteral("😀") << QByteArray("\xF0\x9F\x98\x80");
    QTest::newRow("nul") << QString(QChar(u'\0')) << QByteArray(1, '\0');
}

void TestTextEncoding::utf8()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(encode(text, TextEncoding::Utf8), bytes);
    QCOMPARE(decode(bytes, TextEncoding::Utf8), text);
}

void TestTextEncoding::brokenUtf8IsDecodedWithMarks()
{
    QCOMPARE(decode("a\xFF"
                    "b",
                    TextEncoding::Utf8),
             QStringLiteral("a\uFFFDb"));
}

void TestTextEncoding::byteOrderMarkIsNoCharacter()
{
    QCOMPARE(decode("\xEF\xBB\xBF<P>", TextEncoding::Utf8), QStringLiteral("<P>"));
}

QTEST_GUILESS_MAIN(TestTextEncoding)
#include "tst_textencoding.moc"
