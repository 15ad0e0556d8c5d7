// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/ListHtml.h"
#include "services/PictureHtml.h"

#include <QTest>

using namespace brindlemark;

class TestListHtml : public QObject
{
    Q_OBJECT

private slots:
    void items();
    void openings_data();
    void openings();
    void lists();
    void symbolLines();
    void titleLines();
    void pictures_data();
    void pictures();
};

void TestListHtml::items()
{
    QCOMPARE(listItem(QStringLiteral("Visa"), {}),
             QStringLiteral("<li><Font face=Arial size=3 color=#000000>Visa</Font>"));
    QCOMPARE(listItem(QStringLiteral("<&\"\U0001F600"),
                      {QStringLiteral("Comic Sans MS"), QString(), QStringLiteral("#FF0000"),
                       QStringLiteral("<B><U>"), QStringLiteral("</B></U>")}),
             QStringLiteral(
                 "<li><B><U><Font face=Comic Sans MS size= color=#FF0000><&\"\U0001F600</Font></B></U>"));
}

void TestListHtml::openings_data()
{
    QTest::addColumn<ListKind>("kind");
    QTest::addColumn<QString>("opening");
    QTest::newRow("bullets") << ListKind::Bullets << "<Font color=#000000><ul>";
    QTest::newRow("numbers") << ListKind::Numbers << "<Font color=#000000><ol>";
    QTest::newRow("squares") << ListKind::Squares << "<Font color=#000000><ul type=square>";
}

void TestListHtml::openings()
{
    QFETCH(ListKind, kind);
    QFETCH(QString, opening);
    QCOMPARE(listOpening(kind, QStringLiteral("#000000")), opening);
}

void TestListHtml::lists()
{
    QCOMPARE(listText(QStringLiteral("<Font color=#112233><ol>"),
                      {QStringLiteral("<li>a"), QStringLiteral("<li>b")}),
             QStringLiteral("<Font color=#112233><ol>\r\n<li>a\r\n<li>b\r\n</ul>\r\n</Font>\r\n"));
    QCOMPARE(listText(QStringLiteral("x"), {}), QStringLiteral("x\r\n</ul>\r\n</Font>\r\n"));
}

void TestListHtml::symbolLines()
{
    ListSymbol symbol{.character = QStringLiteral("4"),
                      .font = QStringLiteral("Webdings"),
                      .size = QStringLiteral("3"),
                      .color = QStringLiteral("#000000")};
    QCOMPARE(brindlemark::symbolLines({QStringLiteral("Visa"), QStringLiteral("Cash")}, symbol, {}),
             QStringLiteral("&nbsp;<FONT face=Webdings size=3 color=#000000>4</FONT>"
                            "<FONT face=Arial size=3 color=#000000>&nbsp;Visa&nbsp;</FONT><BR>\r\n"
                            "&nbsp;<FONT face=Webdings size=3 color=#000000>4</FONT>"
                            "<FONT face=Arial size=3 color=#000000>&nbsp;Cash&nbsp;</FONT><BR>\r\n"));
    QCOMPARE(brindlemark::symbolLines({}, symbol, {}), QString());
    symbol.bold = true;
    QCOMPARE(
        brindlemark::symbolLines({QString()}, symbol,
                                 {QStringLiteral("Comic Sans MS"), QStringLiteral("7"),
                                  QStringLiteral("#FF0000"), QStringLiteral("<I>"), QStringLiteral("</I>")}),
        QStringLiteral("&nbsp;<B><FONT face=Webdings size=3 color=#000000>4</FONT></B>"
                       "<I><FONT face=Comic Sans MS size=7 color=#FF0000>&nbsp;&nbsp;</FONT></I><BR>\r\n"));
}

void TestListHtml::titleLines()
{
    QCOMPARE(titleLine(QStringLiteral("I accept"), {}),
             QStringLiteral("<FONT face=Arial size=3 color=#000000>&nbsp;I accept&nbsp;</FONT><BR>\r\n"));
    QCOMPARE(titleLine(QString(), {QStringLiteral("X"), QStringLiteral("1"), QStringLiteral("#010203"),
                                   QStringLiteral("<B>"), QStringLiteral("</B>")}),
             QStringLiteral("<B><FONT face=X size=1 color=#010203>&nbsp;&nbsp;</FONT></B><BR>\r\n"));
}

void TestListHtml::pictures_data()
{
    QTest::addColumn<bool>("sized");
    QTest::addColumn<bool>("paragraph");
    QTest::addColumn<QString>("align");
    QTest::addColumn<QString>("tag");
    QTest::newRow("plain") << false << false << "center"
                           << "<IMG src=\"http://a/b c.jpg\" border=0>\r\n";
    QTest::newRow("sized") << true << false << "center"
                           << "<IMG height=200 src=\"http://a/b c.jpg\" width=wide border=0>\r\n";
    for (const char* word : {"left", "center", "right"}) {
        QTest::addRow("paragraph %s", word)
            << false << true << word
            << QStringLiteral("<P Align=%1><IMG src=\"http://a/b c.jpg\" border=0></P>\r\n")
                   .arg(QLatin1String(word));
    }
    QTest::newRow("both")
        << true << true << "center"
        << "<P Align=center><IMG height=200 src=\"http://a/b c.jpg\" width=wide border=0></P>\r\n";
}

void TestListHtml::pictures()
{
    QFETCH(bool, sized);
    QFETCH(bool, paragraph);
    QFETCH(QString, align);
    QFETCH(QString, tag);
    QCOMPARE(pictureTag({.address = QStringLiteral("http://a/b c.jpg"),
                         .sized = sized,
                         .width = QStringLiteral("wide"),
                         .height = QStringLiteral("200"),
                         .border = QStringLiteral("0"),
                         .inParagraph = paragraph,
                         .align = align}),
             tag);
}

QTEST_GUILESS_MAIN(TestListHtml)
#include "tst_listhtml.moc"
