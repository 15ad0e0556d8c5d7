// SPDX-License-Identifier: GPL-3.0-or-later

#include "LittleMemory.h"
#include "OpenTool.h"
#include "WebTestMain.h"
#include "builders/FrmAddTable.h"
#include "colour/ColorSample.h"

#include <QRegularExpression>

using namespace brindlemark;

namespace {

const QByteArray Head = "<TABLE Align=\"left\" Border=\"0\" bordercolor=\"#000000\" cellspacing=\"0\" "
                        "cellpadding=\"0\" bgcolor=\"#000000\">\r\n";
const QByteArray End = "</TABLE>\r\n";
const QString WholeNumber = QStringLiteral("MsgBox|Information|Please enter a whole number.|Information|Ok");

class Adder : public OpenTool<FrmAddTable>
{
public:
    QAbstractButton* cell(int number) const
    {
        return tool->Grid->findChild<QAbstractButton*>(QStringLiteral("Picture%1").arg(number));
    }
    QList<int> marked() const
    {
        QList<int> cells;
        for (int i = 1; i <= 25; ++i) {
            if (tool->Grid->isMarked(i))
                cells << i;
        }
        return cells;
    }
    /// What the screen shows in the middle of a cell.
    QColor seen(int number) const
    {
        const QAbstractButton* button = cell(number);
        const QPoint middle = button->mapTo(tool, button->rect().center());
        return tool->screen()->grabWindow(tool->winId()).toImage().pixelColor(middle);
    }
    QString size() const { return tool->txtRows->text() + u'x' + tool->txtColls->text(); }
};

QByteArray rows(int rows, int columns)
{
    QByteArray text;
    for (int row = 0; row < rows; ++row) {
        text += " <TR>\r\n";
        for (int column = 0; column < columns; ++column)
            text += "  <TD> </TD>\r\n";
        text += " </TR>\r\n";
    }
    return text;
}

} // namespace

class TestFrmAddTable : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void atOnce();
    void grid_data();
    void grid();
    void everyCellByHand();
    void smallerCellShrinks();
    void gridByKeyboard();
    void cellsAreWhatIsPainted();
    void typedSizes_data();
    void typedSizes();
    void sizesThatAreNone_data();
    void sizesThatAreNone();
    void tooLarge_data();
    void tooLarge();
    void asLargeAsCanBe_data();
    void asLargeAsCanBe();
    void largerThanTheMemory();
    void bars();
    void attributes();
    void replacesTheSelection();
    void cancel_data();
    void cancel();
    void keyboard();
};

void TestFrmAddTable::texts()
{
    const Adder window;
    const FrmAddTable& a = *window.tool;
    QCOMPARE(a.windowTitle(), QStringLiteral("Add Table"));
    const QList<std::pair<const QLabel*, const char*>> labels = {{a.Label1, "Rows:"},
                                                                 {a.Label2, "Column:"},
                                                                 {a.Label3, "Border:"},
                                                                 {a.Label4, "Cellspacing:"},
                                                                 {a.Label5, "Cellpadding:"}};
    for (const auto& [label, text] : labels)
        QCOMPARE(label->text().remove(u'&'), QLatin1String(text));
    for (const QLineEdit* box : {a.txtRows, a.txtColls, a.Combo2, a.Combo3, a.Combo4})
        QCOMPARE(box->text(), QStringLiteral("0"));
    for (const ScrollBar* bar : {a.HScroll1, a.HScroll2, a.HScroll3}) {
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 300);
    }
    QCOMPARE(a.Frame2->title(), QStringLiteral("Borde Color"));
    QCOMPARE(a.Frame5->title(), QStringLiteral("BG Color"));
    compareCaptions({{a.Option1, "Left"},
                     {a.Option2, "Center"},
                     {a.Option3, "Right"},
                     {a.Command1, "Create"},
                     {a.Command2, "Cancel"}});
    QVERIFY(a.Option1->Value());
    QCOMPARE(a.borderColor, QStringLiteral("#000000"));
    QCOMPARE(a.tableColor, QStringLiteral("#000000"));
    QCOMPARE(window.marked(), QList<int>());
}

void TestFrmAddTable::atOnce()
{
    const Adder window;
    click(window.tool->Command1);
    QCOMPARE(window.source(), Head + End);
    QVERIFY(!isLoaded<FrmAddTable>());
}

void TestFrmAddTable::grid_data()
{
    QTest::addColumn<int>("cell");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QList<int>>("marked");
    QTest::newRow("1") << 1 << "1x1" << QList<int>{1};
    QTest::newRow("5") << 5 << "1x5" << QList<int>{1, 2, 3, 4, 5};
    QTest::newRow("12") << 12 << "3x2" << QList<int>{1, 2, 6, 7, 11, 12};
    QTest::newRow("21") << 21 << "5x1" << QList<int>{1, 6, 11, 16, 21};
    QList<int> all;
    for (int i = 1; i <= 25; ++i)
        all << i;
    QTest::newRow("25") << 25 << "5x5" << all;
}

void TestFrmAddTable::grid()
{
    QFETCH(int, cell);
    QFETCH(QString, size);
    QFETCH(QList<int>, marked);
    const Adder window;
    click(window.cell(cell));
    QCOMPARE(window.size(), size);
    QCOMPARE(window.marked(), marked);
    click(window.tool->Command1);
    const int rowCount = size.first(1).toInt();
    QCOMPARE(window.source(), Head + rows(rowCount, size.last(1).toInt()) + End);
}

void TestFrmAddTable::everyCellByHand()
{
    const Adder window;
    for (int i = 1; i <= 25; ++i) {
        click(window.cell(i));
        QCOMPARE(window.size(), QStringLiteral("%1x%2").arg((i - 1) / 5 + 1).arg((i - 1) % 5 + 1));
        QCOMPARE(window.marked().size(), ((i - 1) / 5 + 1) * ((i - 1) % 5 + 1));
    }
}

void TestFrmAddTable::smallerCellShrinks()
{
    const Adder window;
    click(window.cell(25));
    click(window.cell(7));
    QCOMPARE(window.marked(), (QList<int>{1, 2, 6, 7}));
    QCOMPARE(window.size(), QStringLiteral("2x2"));
    window.tool->CleanUp();
    QCOMPARE(window.marked(), QList<int>());
    QCOMPARE(window.size(), QStringLiteral("2x2")); // only the marks go
}

/// The arrows end at the edges.
void TestFrmAddTable::gridByKeyboard()
{
    const Adder window;
    window.cell(1)->setFocus();
    const QList<std::pair<Qt::Key, int>> steps = {
        {Qt::Key_Left, 1},  {Qt::Key_Up, 1},    {Qt::Key_Down, 6},   {Qt::Key_Left, 6},   {Qt::Key_Right, 7},
        {Qt::Key_Right, 8}, {Qt::Key_Right, 9}, {Qt::Key_Right, 10}, {Qt::Key_Right, 10}, {Qt::Key_Down, 15},
        {Qt::Key_Down, 20}, {Qt::Key_Down, 25}, {Qt::Key_Down, 25},  {Qt::Key_Left, 24},  {Qt::Key_Up, 19},
        {Qt::Key_Left, 18}, {Qt::Key_Up, 13},   {Qt::Key_Up, 8}};
    for (const auto& [key, cell] : steps) {
        QTest::keyClick(window.tool->focusWidget(), key);
        QCOMPARE(window.tool->focusWidget(), window.cell(cell));
    }
    QCOMPARE(window.size(), QStringLiteral("0x0")); // nothing is picked yet
    QTest::keyClick(window.tool->focusWidget(), Qt::Key_Space);
    QCOMPARE(window.size(), QStringLiteral("2x3"));
    QTest::keyClick(window.tool->focusWidget(), Qt::Key_Tab);
    QCOMPARE(window.tool->focusWidget(), window.tool->txtRows);
}

/// A marked cell looks marked at once, and no longer than it is.
void TestFrmAddTable::cellsAreWhatIsPainted()
{
    const Adder window;
    const QPalette palette = window.tool->palette();
    const QList<std::pair<int, QList<int>>> picks = {{7, {1, 2, 6, 7}}, {11, {1, 6, 11}}, {3, {1, 2, 3}}};
    for (const auto& [picked, marked] : picks) {
        click(window.cell(picked));
        for (const int cell : {1, 2, 3, 6, 7, 8, 11, 25}) {
            QTRY_COMPARE(window.seen(cell),
                         palette.color(marked.contains(cell) ? QPalette::Highlight : QPalette::Base));
        }
    }
}

void TestFrmAddTable::typedSizes_data()
{
    QTest::addColumn<QString>("typedRows");
    QTest::addColumn<QString>("typedColumns");
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<int>("columnCount");
    QTest::newRow("three rows") << "3"
                                << "0" << 3 << 1;
    QTest::newRow("beyond five") << "7"
                                 << "6" << 7 << 6;
    QTest::newRow("blanks") << " 2 "
                            << " 2" << 2 << 2;
    QTest::newRow("a hundred") << "100"
                               << "10" << 100 << 10;
}

void TestFrmAddTable::typedSizes()
{
    QFETCH(QString, typedRows);
    QFETCH(QString, typedColumns);
    QFETCH(int, rowCount);
    QFETCH(int, columnCount);
    const Adder window;
    overtype(window.tool->txtRows, typedRows);
    overtype(window.tool->txtColls, typedColumns);
    click(window.tool->Command1);
    QCOMPARE(window.source(), Head + rows(rowCount, columnCount) + End);
}

void TestFrmAddTable::sizesThatAreNone_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << "";
    QTest::newRow("word") << "two";
    QTest::newRow("decimals") << "2.5";
    QTest::newRow("negative") << "-1";
    QTest::newRow("above the range") << "32768";
    QTest::newRow("huge") << "99999999999";
}

void TestFrmAddTable::sizesThatAreNone()
{
    QFETCH(QString, typed);
    Adder window;
    for (QLineEdit* box : {window.tool->txtRows, window.tool->txtColls}) {
        overtype(box, typed);
        window.doors.answerMsgBox(MsgAnswer::Ok);
        click(window.tool->Command1);
        QCOMPARE(window.doors.takeAsked(), QStringList{WholeNumber});
        QCOMPARE(window.tool->focusWidget(), box);
        QCOMPARE(window.source(), QByteArray());
        QVERIFY(isLoaded<FrmAddTable>());
        QTest::keyClicks(box, QStringLiteral("1")); // in place of what was refused
        QCOMPARE(box->text(), QStringLiteral("1"));
    }
    click(window.tool->Command1);
    QCOMPARE(window.source(), Head + rows(1, 1) + End);
}

void TestFrmAddTable::tooLarge_data()
{
    QTest::addColumn<QString>("rowCount");
    QTest::addColumn<QString>("columnCount");
    QTest::newRow("by far") << "32767"
                            << "32767";
    QTest::newRow("just") << "1000"
                          << "1001";
}

void TestFrmAddTable::tooLarge()
{
    QFETCH(QString, rowCount);
    QFETCH(QString, columnCount);
    Adder window;
    overtype(window.tool->txtRows, rowCount);
    overtype(window.tool->txtColls, columnCount);
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(window.tool->Command1);
    QCOMPARE(
        window.doors.takeAsked(),
        QStringList{QStringLiteral(
            "MsgBox|Information|The table is too large. It can have up to 1000000 cells.|Information|Ok")});
    QCOMPARE(window.tool->focusWidget(), window.tool->txtRows);
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmAddTable::asLargeAsCanBe_data()
{
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<int>("columnCount");
    QTest::newRow("rows") << 32767 << 1;
    QTest::newRow("cells") << 1000 << 1000;
}

void TestFrmAddTable::asLargeAsCanBe()
{
    QFETCH(int, rowCount);
    QFETCH(int, columnCount);
    const Adder window;
    overtype(window.tool->txtRows, QString::number(rowCount));
    overtype(window.tool->txtColls, QString::number(columnCount));
    click(window.tool->Command1);
    QVERIFY(window.source() == Head + rows(rowCount, columnCount) + End);
}

/// The window stays as it was, and the table is made when there is room again.
void TestFrmAddTable::largerThanTheMemory()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer ends a program that has no memory");
#endif
    constexpr rlim_t LessThanItsText = 16 << 20;
    Adder window;
    overtype(window.tool->txtRows, QStringLiteral("1000"));
    overtype(window.tool->txtColls, QStringLiteral("1000"));
    window.doors.answerMsgBox(MsgAnswer::Ok);
    {
        const LittleMemory little(LessThanItsText);
        click(window.tool->Command1);
    }
    QCOMPARE(window.doors.takeAsked(),
             QStringList{
                 QStringLiteral("MsgBox|Brindlemark|There is not enough memory for this.|Exclamation|Ok")});
    QVERIFY(isLoaded<FrmAddTable>());
    QCOMPARE(window.size(), QStringLiteral("1000x1000"));
    QCOMPARE(window.source(), QByteArray());
    overtype(window.tool->txtRows, QStringLiteral("2"));
    overtype(window.tool->txtColls, QStringLiteral("2"));
    click(window.tool->Command1);
    QCOMPARE(window.source(), Head + rows(2, 2) + End);
}

void TestFrmAddTable::bars()
{
    const Adder window;
    FrmAddTable& a = *window.tool;
    step(a.HScroll1);
    QCOMPARE(a.Combo2->text(), QStringLiteral("1"));
    a.HScroll2->setValue(20);
    QCOMPARE(a.Combo3->text(), QStringLiteral("20"));
    dragToEnd(a.HScroll3);
    QCOMPARE(a.Combo4->text(), QStringLiteral("0"));
    release(a.HScroll3);
    QCOMPARE(a.Combo4->text(), QStringLiteral("300"));
    click(a.Command1);
    QVERIFY(window.source().startsWith("<TABLE Align=\"left\" Border=\"1\" bordercolor=\"#000000\" "
                                       "cellspacing=\"300\" cellpadding=\"20\" bgcolor=\"#000000\">\r\n"));
}

void TestFrmAddTable::attributes()
{
    const Adder window;
    FrmAddTable& a = *window.tool;
    step(a.RedA);
    dragToEnd(a.BlueH);
    QCOMPARE(a.tableColor, QStringLiteral("#0000FF"));
    release(a.BlueH);
    click(a.Option2);
    overtype(a.Combo2, QStringLiteral("a\"b"));
    overtype(a.Combo4, QString());
    click(a.Command1);
    QCOMPARE(window.source(),
             "<TABLE Align=\"center\" Border=\"a\"b\" bordercolor=\"#010000\" cellspacing=\"\" "
             "cellpadding=\"0\" bgcolor=\"#0000FF\">\r\n" +
                 End);
    const Adder right;
    click(right.tool->Option3);
    click(right.tool->Command1);
    QVERIFY(right.source().contains("<TABLE Align=\"right\" "));
}

void TestFrmAddTable::replacesTheSelection()
{
    Adder window;
    window.addsInPlaceOfTheSelection(window.tool->Command1, QString::fromLatin1(Head + End));
}

void TestFrmAddTable::cancel_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("Cancel") << false;
    QTest::newRow("Escape") << true;
}

void TestFrmAddTable::cancel()
{
    QFETCH(bool, escape);
    const Adder window;
    click(window.cell(8));
    if (escape) {
        QTest::keyClick(window.tool->txtRows, Qt::Key_Escape);
    } else {
        click(window.tool->Command2);
    }
    QVERIFY(!isLoaded<FrmAddTable>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmAddTable::keyboard()
{
    const Adder window;
    QTest::keyClick(window.tool, Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(window.tool->focusWidget(), window.tool->txtRows);
    overtype(window.tool->txtRows, QStringLiteral("1"));
    QTest::keyClick(window.tool->txtRows, Qt::Key_Return);
    QCOMPARE(window.source(), Head + rows(1, 1) + End);
}

WEB_TEST_MAIN(TestFrmAddTable)
#include "tst_frmaddtable.moc"
