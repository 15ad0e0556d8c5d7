#include "colour/FaderFragment.h"

#include <QTest>

namespace {

/// The fader as it opens, with a text.
FaderSettings settings(const QString& text = QStringLiteral("ab"))
{
    FaderSettings s;
    s.Text1 = text;
    s.Text2 = QStringLiteral("(faded)");
    s.Text8 = s.TxtC1 = s.TxtC2 = s.Text5 = s.Text13 = s.Text17 = s.Text20 = QStringLiteral("#000000");
    s.Combo1 = QStringLiteral("Arial");
    s.size = QStringLiteral("3");
    s.table = FaderAlign::Left;
    s.Combo6 = s.Combo3 = s.Combo5 = QStringLiteral("0");
    s.Combo9 = s.Combo8 = QStringLiteral("0%");
    return s;
}

FaderSettings styled()
{
    FaderSettings s = settings();
    s.chkBold = s.chkItalic = s.chkUnderline = s.chkStrikeout = true;
    return s;
}

FaderSettings inTable()
{
    FaderSettings s = settings();
    s.Check7 = true;
    s.Combo8 = QStringLiteral("10%");
    s.Combo5 = QStringLiteral("1");
    s.Combo3 = QStringLiteral("2");
    s.Combo9 = QStringLiteral("80%");
    s.Combo6 = QStringLiteral("3");
    s.Text13 = QStringLiteral("#111111");
    s.Text17 = QStringLiteral("#222222");
    s.Text20 = QStringLiteral("#333333");
    return s;
}

const QString Text = QStringLiteral("<Font face=Arial size=3 color=#000000>ab</FONT>");

} // namespace

Q_DECLARE_METATYPE(FaderSettings)

class TestFaderFragment : public QObject
{
    Q_OBJECT

private slots:
    void bodies_data();
    void bodies();
    void usersDiffer_data();
    void usersDiffer();
    void paragraph();
};

void TestFaderFragment::bodies_data()
{
    QTest::addColumn<FaderSettings>("settings");
    QTest::addColumn<QString>("body");
    const auto row = [](const char* name, const FaderSettings& s, const QString& body) {
        QTest::newRow(name) << s << body;
    };

    row("default", settings(), Text);
    FaderSettings s = settings();
    s.Combo1 = QStringLiteral("Comic Sans MS");
    s.size = QString();
    row("blanks in the font, no size", s,
        QStringLiteral("<Font face=Comic Sans MS size= color=#000000>ab</FONT>"));
    row("markup in the text", settings(QStringLiteral("<&\r\n\">")),
        QStringLiteral("<Font face=Arial size=3 color=#000000><&\r\n\"></FONT>"));

    s = settings();
    s.Check1 = true;
    row("highlight", s,
        QStringLiteral("<FONT style=\"background-color: #000000\"><Font face=Arial size=3 color=#000000>ab"
                       "</FONT></FONT>"));
    s.mode = FaderMode::FiveFade;
    row("highlight, five colors", s,
        QStringLiteral(
            "<FONT style=\"background-color: #000000\"><Font face=Arial size=3>(faded)</FONT></FONT>"));

    s = settings();
    s.chkBold = s.chkItalic = true;
    row("bold and italic", s, QStringLiteral("<B><I>") + Text + QStringLiteral("</B></I>"));
    row("all styles", styled(), QStringLiteral("<B><I><U><S>") + Text + QStringLiteral("</B></I></U></S>"));

    s = settings();
    s.mode = FaderMode::FiveFade;
    row("five colors", s, QStringLiteral("<Font face=Arial size=3>(faded)</FONT>"));

    s = settings(QStringLiteral("abc"));
    s.mode = FaderMode::TwoColors;
    s.TxtC1 = QStringLiteral("#111111");
    s.TxtC2 = QStringLiteral("#222222");
    const auto one = [](const char* letter) {
        return QStringLiteral("<Font face=Arial size=3 color=\"#111111\">") + QLatin1String(letter);
    };
    const auto two = [](const char* letter) {
        return QStringLiteral("<Font face=Arial size=3 color=\"#222222\">") + QLatin1String(letter);
    };
    const QString run = one("a") + two("b") + one("c") + two("");
    row("two colors, three characters", s, run + QStringLiteral("</FONT></FONT></FONT></FONT></FONT>"));
    s.chkBold = s.chkUnderline = true;
    s.Check1 = true;
    row("two colors, styled and highlighted", s,
        QStringLiteral("<B><U><FONT style=\"background-color: #000000\">") + run +
            QStringLiteral("</B></U></FONT></FONT></FONT></FONT></FONT>"));
    s = settings(QString());
    s.mode = FaderMode::TwoColors;
    row("two colors, no text", s, QStringLiteral("</FONT>"));
    s.Text1 = QStringLiteral("\U0001F600\u00E9");
    row("two colors, emoji", s,
        QStringLiteral("<Font face=Arial size=3 color=\"#000000\">\U0001F600"
                       "<Font face=Arial size=3 color=\"#000000\">\u00E9</FONT></FONT></FONT>"));

    const QString table = QStringLiteral(
        "<TABLE height=10% cellSpacing=1 cellPadding=2 width=80% Align=left bgcolor=#111111 border=3>"
        "<TBODY><TR><TD bgColor=#222222>");
    const QString tableEnd = QStringLiteral("</TD></TR></TBODY></TABLE>");
    row("table", inTable(), table + Text + tableEnd);
    s = settings();
    s.Check7 = true;
    row("table as it opens", s,
        QStringLiteral("<TABLE height=0% cellSpacing=0 cellPadding=0 width=0% Align=left bgcolor=#000000 "
                       "border=0><TBODY><TR><TD bgColor=#000000>") +
            Text + tableEnd);
    s = inTable();
    s.ChkNoB = true;
    row("table with a border color", s,
        QString(table).replace(QStringLiteral("<TABLE"), QStringLiteral("<TABLE borderColor=#333333")) +
            Text + tableEnd);
    const struct
    {
        FaderAlign align;
        const char* table;
        const char* cell;
    } aligns[] = {{FaderAlign::None, "", ""},
                  {FaderAlign::Left, " Align=left", " align=Left"},
                  {FaderAlign::Center, " Align=center", " align=center"},
                  {FaderAlign::Right, " Align=right", " align=right"}};
    for (const auto& a : aligns) {
        s = inTable();
        s.table = s.cell = a.align;
        QTest::addRow("aligned %d", int(a.align))
            << s
            << QStringLiteral("<TABLE height=10% cellSpacing=1 cellPadding=2 width=80%") +
                   QLatin1String(a.table) + QStringLiteral(" bgcolor=#111111 border=3><TBODY><TR><TD") +
                   QLatin1String(a.cell) + QStringLiteral(" bgColor=#222222>") + Text + tableEnd;
    }

    s = styled();
    s.Check7 = true;
    s.Check1 = true;
    s.Combo8 = s.Combo9 = QStringLiteral("\"x\"");
    s.Hlink = QStringLiteral("<a href=http://x>");
    s.Hlink2 = QStringLiteral("</a>");
    row("link inside the cell, outside the styles", s,
        QStringLiteral(
            "<TABLE height=\"x\" cellSpacing=0 cellPadding=0 width=\"x\" Align=left bgcolor=#000000 "
            "border=0><TBODY><TR><TD bgColor=#000000><a href=http://x><B><I><U><S>"
            "<FONT style=\"background-color: #000000\"><Font face=Arial size=3 color=#000000>ab"
            "</FONT></FONT></B></I></U></S></a></TD></TR></TBODY></TABLE>"));
}

void TestFaderFragment::bodies()
{
    QFETCH(FaderSettings, settings);
    QFETCH(QString, body);
    QCOMPARE(faderBody(settings, FaderUser::Copy), body);
    QCOMPARE(faderBody(settings, FaderUser::Add), body);
}

void TestFaderFragment::usersDiffer_data()
{
    QTest::addColumn<FaderUser>("user");
    QTest::addColumn<QString>("opening");
    QTest::addColumn<QString>("closing");
    QTest::addColumn<QString>("table");
    const QString upper = QStringLiteral("<B><I><U><S>");
    const QString upperEnd = QStringLiteral("</B></I></U></S>");
    const QString plain = QStringLiteral("<TABLE height=10%");
    QTest::newRow("sample") << FaderUser::Sample << "<b><i><u><S>"
                            << "</b></i></u></S>" << plain;
    QTest::newRow("Copy") << FaderUser::Copy << upper << upperEnd << plain;
    QTest::newRow("Add") << FaderUser::Add << upper << upperEnd << plain;
    QTest::newRow("description") << FaderUser::Description << upper << upperEnd
                                 << "<TABLE borderColor=#333333 height=10%";
}

void TestFaderFragment::usersDiffer()
{
    QFETCH(FaderUser, user);
    QFETCH(QString, opening);
    QFETCH(QString, closing);
    QFETCH(QString, table);
    QCOMPARE(faderBody(styled(), user), opening + Text + closing);
    QVERIFY(faderBody(inTable(), user).startsWith(table));
    FaderSettings bordered = inTable();
    bordered.ChkNoB = true;
    QVERIFY(faderBody(bordered, user).startsWith(QStringLiteral("<TABLE borderColor=#333333 height=10%")));
}

void TestFaderFragment::paragraph()
{
    QCOMPARE(faderText(QStringLiteral("x"), true), QStringLiteral("<P>x</P>\r\n"));
    QCOMPARE(faderText(QStringLiteral("x"), false), QStringLiteral("x\r\n"));
}

QTEST_GUILESS_MAIN(TestFaderFragment)
#include "tst_faderfragment.moc"
