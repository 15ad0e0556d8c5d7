// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/TableHtml.h"
#include "builders/TableReadBack.h"

#include <QTest>

using namespace brindlemark;

namespace {

/// The designer's controls as they open.
CellStyle cell()
{
    CellStyle style;
    style.fontFace = QStringLiteral("Arial");
    style.size = QStringLiteral("3");
    style.fontColor = QStringLiteral("#000000");
    style.width = style.height = QStringLiteral("0");
    return style;
}

TableStyle frame()
{
    TableStyle style;
    style.borderColor = style.background = QStringLiteral("#000000");
    style.border = style.cellSpacing = style.cellPadding = QStringLiteral("0");
    style.width = style.height = QStringLiteral("0%");
    return style;
}

const QString White = QStringLiteral("#FFFFFF");
const QString Font = QStringLiteral("<Font face=Arial size=3 color=#000000>");
const QString Spanning = QStringLiteral("<TD bgcolor=#FFFFFF colSpan=2 width=0 height=0 align=Left>") + Font;
const QString Plain = QStringLiteral("<TD bgcolor=#FFFFFF width=0 height=0 align=Left>") + Font;

/// The lines of a text, each of which ends with CR LF.
QString lines(const QStringList& lines)
{
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

} // namespace

class TestTableHtml : public QObject
{
    Q_OBJECT

private slots:
    void spanningCell();
    void plainCell();
    void cellAttributes();
    void alignments_data();
    void alignments();
    void styles_data();
    void styles();
    void rowOfOneWord();
    void rowOfTwoWords();
    void twoColorsTakeTurns();
    void emptyTable();
    void oneRow();
    void twoRows();
    void withoutBorderColor();
    void tableAttributes();
    void skeletons_data();
    void skeletons();
    void readsItsOwnCells_data();
    void readsItsOwnCells();
    void twelveComesBackAsNormal();
    void readsAlignments_data();
    void readsAlignments();
    void wordsDoNoHarm_data();
    void wordsDoNoHarm();
    void closedStyles();
    void whatCannotBeCut_data();
    void whatCannotBeCut();
};

void TestTableHtml::spanningCell()
{
    QCOMPARE(cellOpen(cell(), White, true) + QStringLiteral("Shipping"),
             Spanning + QStringLiteral("Shipping"));
}

void TestTableHtml::plainCell()
{
    QCOMPARE(cellOpen(cell(), White, false), Plain);
}

void TestTableHtml::cellAttributes()
{
    CellStyle style = cell();
    style.fontFace = QStringLiteral("Comic Sans MS");
    style.size = QString();
    style.fontColor = QStringLiteral("#0A0B0C");
    style.width = QStringLiteral("50%");
    style.height = QStringLiteral("tall");
    QCOMPARE(cellOpen(style, QStringLiteral("#102030"), false),
             QStringLiteral("<TD bgcolor=#102030 width=50% height=tall align=Left>"
                            "<Font face=Comic Sans MS size= color=#0A0B0C>"));
}

void TestTableHtml::alignments_data()
{
    QTest::addColumn<TableAlign>("align");
    QTest::addColumn<QString>("word");
    QTest::newRow("left") << TableAlign::Left << " align=Left";
    QTest::newRow("center") << TableAlign::Center << " align=Center";
    QTest::newRow("right") << TableAlign::Right << " align=Right";
}

void TestTableHtml::alignments()
{
    QFETCH(TableAlign, align);
    QFETCH(QString, word);
    CellStyle style = cell();
    style.align = align;
    QCOMPARE(cellOpen(style, White, false),
             QStringLiteral("<TD bgcolor=#FFFFFF width=0 height=0") + word + u'>' + Font);
    TableStyle table = frame();
    table.align = align;
    QVERIFY(tableText({}, table).startsWith(QStringLiteral("<BODY>\r\n<TABLE width=0% height=0%") + word +
                                            QStringLiteral(" borderColor=")));
}

void TestTableHtml::styles_data()
{
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("italic");
    QTest::addColumn<bool>("underline");
    QTest::addColumn<QString>("open");
    QTest::addColumn<QString>("close");
    QTest::newRow("none") << false << false << false << ""
                          << "";
    QTest::newRow("b") << true << false << false << "<b>"
                       << "</b>";
    QTest::newRow("i") << false << true << false << "<i>"
                       << "</i>";
    QTest::newRow("u") << false << false << true << "<u>"
                       << "</u>";
    QTest::newRow("bi") << true << true << false << "<b><i>"
                        << "</b></i>";
    QTest::newRow("biu") << true << true << true << "<b><i><u>"
                         << "</b></i></u>";
    QTest::newRow("iu") << false << true << true << "<i><u>"
                        << "</i></u>";
    QTest::newRow("bu") << true << false << true << "<b><u>"
                        << "</b></u>";
}

void TestTableHtml::styles()
{
    QFETCH(bool, bold);
    QFETCH(bool, italic);
    QFETCH(bool, underline);
    QFETCH(QString, open);
    QFETCH(QString, close);
    CellStyle style = cell();
    style.bold = bold;
    style.italic = italic;
    style.underline = underline;
    const QString html = QStringLiteral("<TD bgcolor=#FFFFFF width=0 height=0 align=Left>") + open + Font;
    QCOMPARE(cellOpen(style, White, false), html);
    QCOMPARE(styleTags(style, "</"), close);
    const TableReadBack look = readBack(html + QStringLiteral("word"));
    QVERIFY(look.styles.has_value());
    QVERIFY(*look.styles == (TableReadBack::Styles{bold, italic, underline}));
}

void TestTableHtml::rowOfOneWord()
{
    const RowCells row = rowCells(cell(), White, QStringLiteral("a"), QString());
    QCOMPARE(row.left, Spanning + u'a');
    QCOMPARE(row.right, QString());
}

void TestTableHtml::rowOfTwoWords()
{
    const RowCells row = rowCells(cell(), White, QStringLiteral("a"), QStringLiteral("b"));
    QCOMPARE(row.left, Plain + u'a');
    QCOMPARE(row.right, Plain + u'b');
}

void TestTableHtml::twoColorsTakeTurns()
{
    const TableCells cells = tableCells({{QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("e")},
                                         {QStringLiteral("b"), QString(), QStringLiteral("f")}},
                                        cell(), {QStringLiteral("#111111"), QStringLiteral("#222222")});
    const auto open = [](const char* color, bool spanning) {
        return QStringLiteral("<TD bgcolor=") + QLatin1String(color) +
               QLatin1String(spanning ? " colSpan=2" : "") + QStringLiteral(" width=0 height=0 align=Left>") +
               Font;
    };
    QCOMPARE(cells.left, (QStringList{open("#111111", false) + u'a', open("#222222", true) + u'c',
                                      open("#111111", false) + u'e'}));
    QCOMPARE(cells.right,
             (QStringList{open("#111111", false) + u'b', QString(), open("#111111", false) + u'f'}));
}

void TestTableHtml::emptyTable()
{
    QCOMPARE(tableText({}, frame()),
             lines({QStringLiteral("<BODY>"),
                    QStringLiteral("<TABLE width=0% height=0% align=Left borderColor=#000000 cellspacing=0 "
                                   "cellpadding=0 border=0 bgcolor=#000000>"),
                    QStringLiteral("<TBODY>"), QStringLiteral("</TBODY>"), QStringLiteral("</TABLE>")}));
}

void TestTableHtml::oneRow()
{
    QCOMPARE(tableText({{Spanning + QStringLiteral("Shipping")}, {QString()}}, frame()),
             lines({QStringLiteral("<BODY>"),
                    QStringLiteral("<TABLE width=0% height=0% align=Left borderColor=#000000 cellspacing=0 "
                                   "cellpadding=0 border=0 bgcolor=#000000>"),
                    QStringLiteral("<TBODY>"), QStringLiteral("<TR>"),
                    Spanning + QStringLiteral("Shipping</FONT>"), QStringLiteral("</TD></TR>"),
                    QStringLiteral("</TBODY>"), QStringLiteral("</TABLE>")}));
}

void TestTableHtml::twoRows()
{
    const QString text = tableText({{Plain + u'a', Spanning + u'c'}, {Plain + u'b', QString()}}, frame());
    QVERIFY(text.endsWith(
        lines({QStringLiteral("<TBODY>"), QStringLiteral("<TR>"), Plain + QStringLiteral("a</FONT>"),
               QStringLiteral("</TD>"), Plain + QStringLiteral("b</FONT>"), QStringLiteral("</TD></TR>"),
               QStringLiteral("<TR>"), Spanning + QStringLiteral("c</FONT>"), QStringLiteral("</TD></TR>"),
               QStringLiteral("</TBODY>"), QStringLiteral("</TABLE>")})));
}

void TestTableHtml::withoutBorderColor()
{
    TableStyle style = frame();
    style.borderColored = false;
    style.borderColor = QStringLiteral("#123456");
    QVERIFY(tableText({}, style).contains(
        QStringLiteral("<TABLE width=0% height=0% align=Left cellspacing=0 cellpadding=0 border=0 "
                       "bgcolor=#000000>\r\n")));
}

void TestTableHtml::tableAttributes()
{
    TableStyle style;
    style.align = TableAlign::Right;
    style.borderColor = QStringLiteral("#111111");
    style.background = QStringLiteral("#222222");
    style.border = QStringLiteral("1");
    style.cellSpacing = QStringLiteral("2 px");
    style.cellPadding = QStringLiteral("-3");
    style.width = QStringLiteral("80%");
    style.height = QString();
    QVERIFY(tableText({}, style).contains(
        QStringLiteral("<TABLE width=80% height= align=Right borderColor=#111111 cellspacing=2 px "
                       "cellpadding=-3 border=1 bgcolor=#222222>\r\n")));
}

void TestTableHtml::skeletons_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("body");
    const QString row = QStringLiteral(" <TR>\r\n");
    const QString end = QStringLiteral(" </TR>\r\n");
    const QString one = QStringLiteral("  <TD> </TD>\r\n");
    QTest::newRow("none") << 0 << 0 << "";
    QTest::newRow("no row") << 0 << 5 << "";
    QTest::newRow("no column") << 2 << 0 << row + one + end + row + one + end;
    QTest::newRow("one cell") << 1 << 1 << row + one + end;
    QTest::newRow("one row") << 1 << 3 << row + one + one + one + end;
    QTest::newRow("two by two") << 2 << 2 << row + one + one + end + row + one + one + end;
}

void TestTableHtml::skeletons()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(QString, body);
    Skeleton skeleton;
    skeleton.align = QStringLiteral("center");
    skeleton.border = QStringLiteral("1");
    skeleton.cellPadding = QStringLiteral("2");
    skeleton.cellSpacing = QStringLiteral("3");
    skeleton.borderColor = QStringLiteral("#444444");
    skeleton.background = QStringLiteral("#555555");
    skeleton.rows = rows;
    skeleton.columns = columns;
    QCOMPARE(skeletonText(skeleton),
             QStringLiteral("<TABLE Align=\"center\" Border=\"1\" bordercolor=\"#444444\" cellspacing=\"3\" "
                            "cellpadding=\"2\" bgcolor=\"#555555\">\r\n") +
                 body + QStringLiteral("</TABLE>\r\n"));
}

void TestTableHtml::readsItsOwnCells_data()
{
    QTest::addColumn<bool>("spanning");
    QTest::addColumn<QString>("cellColor");
    QTest::newRow("spanning") << true << "AABBCC";
    QTest::newRow("plain") << false << "#AABBCC";
}

void TestTableHtml::readsItsOwnCells()
{
    QFETCH(bool, spanning);
    QFETCH(QString, cellColor);
    for (const TableAlign align : {TableAlign::Left, TableAlign::Center, TableAlign::Right}) {
        CellStyle style = cell();
        style.align = align;
        style.bold = style.underline = true;
        style.fontFace = QStringLiteral("Comic Sans MS");
        style.size = QStringLiteral("7");
        style.fontColor = QStringLiteral("#0A0B0C");
        style.width = QStringLiteral("50%");
        style.height = QStringLiteral("12");
        const TableReadBack look =
            readBack(cellOpen(style, QStringLiteral("#AABBCC"), spanning) + QStringLiteral("word"));
        QCOMPARE(look.cellColor, cellColor);
        QCOMPARE(look.width, QStringLiteral("50%"));
        QCOMPARE(look.height, QStringLiteral("12"));
        QCOMPARE(look.align, align);
        QVERIFY(look.styles == std::optional(TableReadBack::Styles{true, false, true}));
        QCOMPARE(look.fontFace, QStringLiteral("Comic Sans MS"));
        QCOMPARE(look.sizeText, QStringLiteral("36"));
        QCOMPARE(look.fontColor, QStringLiteral("0A0B0C"));
    }
}

void TestTableHtml::twelveComesBackAsNormal()
{
    const std::pair<const char*, const char*> sizes[] = {
        {"3", "Normal"}, {"1", "8"}, {"2", "10"}, {"4", "14"}, {"5", "18"}, {"6", "24"}, {"7", "36"}};
    for (const auto& [html, text] : sizes) {
        CellStyle style = cell();
        style.size = QLatin1String(html);
        QCOMPARE(readBack(cellOpen(style, White, false)).sizeText, QLatin1String(text));
    }
}

void TestTableHtml::readsAlignments_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<std::optional<TableAlign>>("align");
    const auto row = [](const char* word, std::optional<TableAlign> align) {
        QTest::newRow(word) << QString::fromLatin1(word) << align;
    };
    row("left", TableAlign::Left);
    row("Left", TableAlign::Left);
    row("center", TableAlign::Center);
    row("Center", TableAlign::Center);
    row("right", TableAlign::Right);
    row("Right", TableAlign::Right);
    row("LEFT", std::nullopt);
    row("justify", std::nullopt);
}

void TestTableHtml::readsAlignments()
{
    QFETCH(QString, word);
    QFETCH(std::optional<TableAlign>, align);
    const QString cell =
        QString(Plain).replace(QStringLiteral("align=Left"), QStringLiteral("align=") + word);
    QVERIFY(readBack(cell).align == align);
}

void TestTableHtml::wordsDoNoHarm_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("attributes") << "width=9 height=9 align=Right face=x size=7 color=#999999>";
    QTest::newRow("tags") << "<B><Font color=#111111>x</Font></B>";
    QTest::newRow("quotes") << "\"'><";
    QTest::newRow("line ends") << "a\r\nb";
    QTest::newRow("emoji") << QStringLiteral("\U0001F600 \u00E9");
    QTest::newRow("colSpan") << "colSpan=2";
    QTest::newRow("bgcolor") << "bgcolor=#123456";
}

void TestTableHtml::wordsDoNoHarm()
{
    QFETCH(QString, word);
    for (const bool spanning : {false, true}) {
        const TableReadBack look = readBack(cellOpen(cell(), White, spanning) + word);
        QCOMPARE(look.cellColor, spanning ? QStringLiteral("FFFFFF") : White);
        QCOMPARE(look.width, QStringLiteral("0"));
        QCOMPARE(look.height, QStringLiteral("0"));
        QCOMPARE(look.align, TableAlign::Left);
        QVERIFY(look.styles == std::optional(TableReadBack::Styles{}));
        QCOMPARE(look.fontFace, QStringLiteral("Arial"));
        QCOMPARE(look.sizeText, QStringLiteral("Normal"));
        QCOMPARE(look.fontColor, QStringLiteral("000000"));
    }
}

void TestTableHtml::closedStyles()
{
    CellStyle style = cell();
    style.italic = true;
    const TableReadBack look = readBack(cellOpen(style, White, false) + QStringLiteral("word</i>"));
    QVERIFY(look.styles == std::optional(TableReadBack::Styles{false, true, false}));
}

void TestTableHtml::whatCannotBeCut_data()
{
    QTest::addColumn<QString>("cell");
    QTest::newRow("empty") << "";
    QTest::newRow("word") << "word";
    QTest::newRow("tag") << "<TD>";
    QTest::newRow("names without values") << "bgcolor=width=height=";
}

void TestTableHtml::whatCannotBeCut()
{
    QFETCH(QString, cell);
    const TableReadBack look = readBack(cell);
    QVERIFY(!look.cellColor);
    QVERIFY(!look.height);
    QVERIFY(!look.align);
    QVERIFY(!look.styles);
    QVERIFY(!look.fontFace);
    QVERIFY(!look.sizeText);
    QVERIFY(!look.fontColor);
}

QTEST_GUILESS_MAIN(TestTableHtml)
#include "tst_tablehtml.moc"
