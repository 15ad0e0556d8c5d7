// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FaderFragment.h"

#include <QTest>
#include <functional>

using namespace brindlemark;

namespace {

using Change = std::function<void(FaderSettings&)>;

constexpr FaderUser Users[] = {FaderUser::Sample, FaderUser::Copy, FaderUser::Add, FaderUser::Description};

/// One colour, "ab", no switch on; every value that could show has a mark of its own.
FaderSettings plainSettings()
{
    FaderSettings s;
    s.text = QStringLiteral("ab");
    s.fadedText = QStringLiteral("[faded]");
    s.textColor = QStringLiteral("#080808");
    s.firstColor = QStringLiteral("#111111");
    s.secondColor = QStringLiteral("#222222");
    s.fontFace = QStringLiteral("Arial");
    s.size = QStringLiteral("3");
    s.highlightColor = QStringLiteral("#050505");
    s.table = FaderAlign::Left;
    s.borderColor = QStringLiteral("#202020");
    s.tableColor = QStringLiteral("#131313");
    s.cellColor = QStringLiteral("#171717");
    s.border = QStringLiteral("6");
    s.cellPadding = QStringLiteral("3");
    s.cellSpacing = QStringLiteral("5");
    s.width = QStringLiteral("9%");
    s.height = QStringLiteral("8%");
    return s;
}

void everythingOn(FaderSettings& s)
{
    s.bold = s.italic = s.underline = s.strikeout = true;
    s.highlighted = s.inTable = s.borderColored = true;
    s.cell = FaderAlign::Center;
    s.linkOpen = QStringLiteral("<a href=x>");
    s.linkClose = QStringLiteral("</a>");
}

constexpr char Plain[] = "<Font face=Arial size=3 color=#080808>ab</FONT>";

constexpr char TableEnd[] = "</TD></TR></TBODY></TABLE>";

} // namespace

class TestFaderFragment : public QObject
{
    Q_OBJECT

private slots:
    void sameForAllUsers_data();
    void sameForAllUsers();
    void styles_data();
    void styles();
    void tables_data();
    void tables();
    void everything_data();
    void everything();
    void longRunOfTwoColors();
    void textThatGoesOut();
};

void TestFaderFragment::sameForAllUsers_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("body");
    const auto row = [](const char* name, const Change& change, const QString& body) {
        QTest::newRow(name) << change << body;
    };
    const auto twoColors = [](const QString& text) {
        return [text](FaderSettings& s) {
            s.mode = FaderMode::TwoColors;
            s.text = text;
        };
    };
    const QString first = QStringLiteral("<Font face=Arial size=3 color=\"#111111\">");
    const QString second = QStringLiteral("<Font face=Arial size=3 color=\"#222222\">");
    const QString closers = QStringLiteral("</FONT></FONT>");

    row(
        "one colour", [](FaderSettings&) {}, Plain);
    row(
        "no text", [](FaderSettings& s) { s.text.clear(); }, "<Font face=Arial size=3 color=#080808></FONT>");
    row(
        "text as it stands", [](FaderSettings& s) { s.text = QStringLiteral(" <B>&\r\n\" "); },
        "<Font face=Arial size=3 color=#080808> <B>&\r\n\" </FONT>");
    row(
        "font name with blanks", [](FaderSettings& s) { s.fontFace = QStringLiteral("Times New Roman"); },
        "<Font face=Times New Roman size=3 color=#080808>ab</FONT>");
    row(
        "no font name", [](FaderSettings& s) { s.fontFace.clear(); },
        "<Font face= size=3 color=#080808>ab</FONT>");
    row(
        "no size", [](FaderSettings& s) { s.size.clear(); },
        "<Font face=Arial size= color=#080808>ab</FONT>");
    row(
        "highlight", [](FaderSettings& s) { s.highlighted = true; },
        "<FONT style=\"background-color: #050505\"><Font face=Arial size=3 color=#080808>ab</FONT></FONT>");
    row(
        "link",
        [](FaderSettings& s) {
            s.linkOpen = QStringLiteral("<a href=http://x>");
            s.linkClose = QStringLiteral("</a>");
        },
        "<a href=http://x><Font face=Arial size=3 color=#080808>ab</FONT></a>");

    row(
        "five colours", [](FaderSettings& s) { s.mode = FaderMode::FiveFade; },
        "<Font face=Arial size=3>[faded]</FONT>");
    row(
        "five colours, highlight",
        [](FaderSettings& s) {
            s.mode = FaderMode::FiveFade;
            s.highlighted = true;
        },
        "<FONT style=\"background-color: #050505\"><Font face=Arial size=3>[faded]</FONT></FONT>");

    row("two colours", twoColors(QStringLiteral("ab")),
        first + u'a' + second + u'b' + closers + QStringLiteral("</FONT>"));
    row("two colours, one character", twoColors(QStringLiteral("a")),
        first + u'a' + second + closers + QStringLiteral("</FONT>"));
    row("two colours, three characters", twoColors(QStringLiteral("abc")),
        first + u'a' + second + u'b' + first + u'c' + second + closers + closers + QStringLiteral("</FONT>"));
    row("two colours, no text", twoColors(QString()), "</FONT>");
    row("two colours, line end", twoColors(QStringLiteral("a\r\nb")),
        first + u'a' + second + u'\r' + first + u'\n' + second + u'b' + closers + closers +
            QStringLiteral("</FONT>"));
    const QString family = QString::fromUtf8("👨‍👩‍👧");
    const QString accented = QStringLiteral("e\u0301");
    row("two colours, whole characters", twoColors(family + accented + u'<'),
        first + family + second + accented + first + u'<' + second + closers + closers +
            QStringLiteral("</FONT>"));
    row(
        "two colours, highlight",
        [](FaderSettings& s) {
            s.mode = FaderMode::TwoColors;
            s.highlighted = true;
        },
        QStringLiteral("<FONT style=\"background-color: #050505\">") + first + u'a' + second + u'b' +
            closers + QStringLiteral("</FONT>"));
}

void TestFaderFragment::sameForAllUsers()
{
    QFETCH(Change, change);
    QFETCH(QString, body);
    FaderSettings settings = plainSettings();
    change(settings);
    for (const FaderUser user : Users)
        QCOMPARE(faderBody(settings, user), body);
}

void TestFaderFragment::styles_data()
{
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<QString>("opening");
    QTest::addColumn<QString>("closing");
    QTest::addColumn<QString>("sampleOpening");
    QTest::addColumn<QString>("sampleClosing");
    QTest::newRow("bold") << "B"
                          << "<B>"
                          << "</B>"
                          << "<b>"
                          << "</b>";
    QTest::newRow("italic") << "I"
                            << "<I>"
                            << "</I>"
                            << "<i>"
                            << "</i>";
    QTest::newRow("underline") << "U"
                               << "<U>"
                               << "</U>"
                               << "<u>"
                               << "</u>";
    QTest::newRow("strikeout") << "S"
                               << "<S>"
                               << "</S>"
                               << "<S>"
                               << "</S>";
    QTest::newRow("bold and italic") << "BI"
                                     << "<B><I>"
                                     << "</B></I>"
                                     << "<b><i>"
                                     << "</b></i>";
    QTest::newRow("all") << "BIUS"
                         << "<B><I><U><S>"
                         << "</B></I></U></S>"
                         << "<b><i><u><S>"
                         << "</b></i></u></S>";
}

void TestFaderFragment::styles()
{
    QFETCH(QString, boxes);
    QFETCH(QString, opening);
    QFETCH(QString, closing);
    QFETCH(QString, sampleOpening);
    QFETCH(QString, sampleClosing);
    FaderSettings s = plainSettings();
    s.bold = boxes.contains(u'B');
    s.italic = boxes.contains(u'I');
    s.underline = boxes.contains(u'U');
    s.strikeout = boxes.contains(u'S');
    const QString text = QStringLiteral("<Font face=Arial size=3 color=#080808>ab</FONT>");
    for (const FaderUser user : {FaderUser::Copy, FaderUser::Add, FaderUser::Description})
        QCOMPARE(faderBody(s, user), opening + text + closing);
    QCOMPARE(faderBody(s, FaderUser::Sample), sampleOpening + text + sampleClosing);
}

void TestFaderFragment::tables_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("head");
    const auto row = [](const char* name, const Change& change, const QString& tableAlign,
                        const QString& cellAlign) {
        QTest::newRow(name) << change
                            << QStringLiteral(" height=8% cellSpacing=5 cellPadding=3 width=9%") +
                                   tableAlign + QStringLiteral(" bgcolor=#131313 border=6><TBODY><TR><TD") +
                                   cellAlign + QStringLiteral(" bgColor=#171717>");
    };
    row(
        "table left", [](FaderSettings&) {}, " Align=left", "");
    row(
        "table center", [](FaderSettings& s) { s.table = FaderAlign::Center; }, " Align=center", "");
    row(
        "table right", [](FaderSettings& s) { s.table = FaderAlign::Right; }, " Align=right", "");
    row(
        "table nowhere", [](FaderSettings& s) { s.table = FaderAlign::None; }, "", "");
    row(
        "cell left", [](FaderSettings& s) { s.cell = FaderAlign::Left; }, " Align=left", " align=Left");
    row(
        "cell center", [](FaderSettings& s) { s.cell = FaderAlign::Center; }, " Align=left", " align=center");
    row(
        "cell right", [](FaderSettings& s) { s.cell = FaderAlign::Right; }, " Align=left", " align=right");
    QTest::newRow("values as they stand") << Change([](FaderSettings& s) {
        s.height.clear();
        s.cellSpacing = QStringLiteral("-1");
        s.cellPadding = QStringLiteral("a b");
        s.width = QStringLiteral("<");
        s.border = QStringLiteral("\"");
    })
                                          << " height= cellSpacing=-1 cellPadding=a b width=< Align=left "
                                             "bgcolor=#131313 border=\"><TBODY><TR><TD "
                                             "bgColor=#171717>";
}

void TestFaderFragment::tables()
{
    QFETCH(Change, change);
    QFETCH(QString, head);
    FaderSettings s = plainSettings();
    change(s);
    QCOMPARE(faderBody(s, FaderUser::Copy), QString::fromLatin1(Plain)); // not in a table yet
    s.inTable = true;
    const QString rest = head + QLatin1String(Plain) + QLatin1String(TableEnd);
    const QString bare = QStringLiteral("<TABLE") + rest;
    const QString bordered = QStringLiteral("<TABLE borderColor=#202020") + rest;
    for (const FaderUser user : Users) {
        s.borderColored = false;
        QCOMPARE(faderBody(s, user), user == FaderUser::Description ? bordered : bare);
        s.borderColored = true;
        QCOMPARE(faderBody(s, user), bordered);
    }
}

void TestFaderFragment::everything_data()
{
    QTest::addColumn<FaderMode>("mode");
    QTest::addColumn<QString>("inner"); // of the style tags and the highlight
    QTest::newRow("one colour") << FaderMode::OneColor
                                << "<Font face=Arial size=3 color=#080808>ab</FONT></FONT></B></I></U></S>";
    QTest::newRow("two colours")
        << FaderMode::TwoColors
        << "<Font face=Arial size=3 color=\"#111111\">a<Font face=Arial size=3 color=\"#222222\">b"
           "</B></I></U></S></FONT></FONT></FONT>";
    QTest::newRow("five colours") << FaderMode::FiveFade
                                  << "<Font face=Arial size=3>[faded]</FONT></FONT></B></I></U></S>";
}

void TestFaderFragment::everything()
{
    QFETCH(FaderMode, mode);
    QFETCH(QString, inner);
    FaderSettings s = plainSettings();
    everythingOn(s);
    s.mode = mode;
    QString body = QStringLiteral("<TABLE borderColor=#202020 height=8% cellSpacing=5 cellPadding=3 width=9% "
                                  "Align=left bgcolor=#131313 border=6><TBODY><TR><TD align=center "
                                  "bgColor=#171717><a href=x><B><I><U><S>"
                                  "<FONT style=\"background-color: #050505\">") +
                   inner + QStringLiteral("</a></TD></TR></TBODY></TABLE>");
    for (const FaderUser user : {FaderUser::Copy, FaderUser::Add, FaderUser::Description})
        QCOMPARE(faderBody(s, user), body);
    body.replace(QLatin1String("<B><I><U>"), QLatin1String("<b><i><u>"));
    body.replace(QLatin1String("</B></I></U>"), QLatin1String("</b></i></u>"));
    QCOMPARE(faderBody(s, FaderUser::Sample), body);
}

void TestFaderFragment::longRunOfTwoColors()
{
    FaderSettings s = plainSettings();
    s.mode = FaderMode::TwoColors;
    s.text = QString(32767, u'x');
    const QString body = faderBody(s, FaderUser::Add);
    QCOMPARE(body.count(QLatin1String("color=\"#111111\">x")), 16384);
    QCOMPARE(body.count(QLatin1String("color=\"#222222\">x")), 16383);
    QVERIFY(body.contains(QLatin1String("color=\"#222222\"></FONT>")));
    QCOMPARE(body.count(QLatin1String("</FONT>")), 32768 + 1);
}

void TestFaderFragment::textThatGoesOut()
{
    QCOMPARE(faderText(QStringLiteral("body"), false), QStringLiteral("body\r\n"));
    QCOMPARE(faderText(QStringLiteral("body"), true), QStringLiteral("<P>body</P>\r\n"));
    QCOMPARE(faderText(QString(), true), QStringLiteral("<P></P>\r\n"));
}

QTEST_GUILESS_MAIN(TestFaderFragment)
#include "tst_faderfragment.moc"
