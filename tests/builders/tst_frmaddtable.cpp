#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "builders/FrmAddTable.h"
#include "colour/ColorSample.h"

#include <QRegularExpression>

namespace {

const QByteArray Head = "<TABLE Align=\"left\" Border=\"0\" bordercolor=\"#000000\" cellspacing=\"0\" "
                        "cellpadding=\"0\" bgcolor=\"#000000\">\r\n";
const QByteArray End = "</TABLE>\r\n";
const QString WholeNumber = QStringLiteral("MsgBox|Information|Please enter a whole number.|Information|Ok");

/// The window of the new table beside a main window.
class Adder : public MainWindow
{
public:
    Adder() : adder(form<FrmAddTable>())
    {
        adder->Show();
        if (!QTest::qWaitForWindowActive(adder))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
    }

    FrmAddTable* adder;

    QAbstractButton* cell(int number) const
    {
        return adder->Grid->findChild<QAbstractButton*>(QStringLiteral("Picture%1").arg(number));
    }
    QList<int> marked() const
    {
        QList<int> cells;
        for (int i = 1; i <= 25; ++i) {
            if (adder->Grid->isMarked(i))
                cells << i;
        }
        return cells;
    }
    QString size() const { return adder->txtRows->text() + u'x' + adder->txtColls->text(); }
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
    void tooLarge();
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
    const FrmAddTable& a = *window.adder;
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
    QCOMPARE(a.Option1->text().remove(u'&'), QStringLiteral("Left"));
    QCOMPARE(a.Option2->text().remove(u'&'), QStringLiteral("Center"));
    QCOMPARE(a.Option3->text().remove(u'&'), QStringLiteral("Right"));
    QVERIFY(a.Option1->Value());
    QCOMPARE(a.Command1->text().remove(u'&'), QStringLiteral("Create"));
    QCOMPARE(a.Command2->text(), QStringLiteral("Cancel"));
    QCOMPARE(a.Text4, QStringLiteral("#000000"));
    QCOMPARE(a.Text13, QStringLiteral("#000000"));
    QCOMPARE(window.marked(), QList<int>());
}

void TestFrmAddTable::atOnce()
{
    const Adder window;
    click(window.adder->Command1);
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
    click(window.adder->Command1);
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
    window.adder->CleanUp();
    QCOMPARE(window.marked(), QList<int>());
    QCOMPARE(window.size(), QStringLiteral("2x2")); // only the marks go
}

void TestFrmAddTable::gridByKeyboard()
{
    const Adder window;
    window.cell(1)->setFocus();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down})
        QTest::keyClick(window.adder->focusWidget(), key);
    QCOMPARE(window.adder->focusWidget(), window.cell(8));
    QCOMPARE(window.size(), QStringLiteral("0x0")); // nothing is picked yet
    QTest::keyClick(window.adder->focusWidget(), Qt::Key_Space);
    QCOMPARE(window.size(), QStringLiteral("2x3"));
    QTest::keyClick(window.adder->focusWidget(), Qt::Key_Tab);
    QCOMPARE(window.adder->focusWidget(), window.adder->txtRows);
}

/// A marked cell looks marked.
void TestFrmAddTable::cellsAreWhatIsPainted()
{
    const Adder window;
    click(window.cell(7));
    const auto color = [&](int cell) {
        const QAbstractButton* button = window.cell(cell);
        return const_cast<QAbstractButton*>(button)->grab().toImage().pixelColor(button->width() / 2,
                                                                                 button->height() / 2);
    };
    const QPalette palette = window.adder->palette();
    for (const int cell : {1, 2, 6, 7})
        QCOMPARE(color(cell), palette.color(QPalette::Highlight));
    for (const int cell : {3, 8, 11, 25})
        QCOMPARE(color(cell), palette.color(QPalette::Base));
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
    overtype(window.adder->txtRows, typedRows);
    overtype(window.adder->txtColls, typedColumns);
    click(window.adder->Command1);
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
    for (QLineEdit* box : {window.adder->txtRows, window.adder->txtColls}) {
        overtype(box, typed);
        window.doors.answerMsgBox(MsgAnswer::Ok);
        click(window.adder->Command1);
        QCOMPARE(window.doors.takeAsked(), QStringList{WholeNumber});
        QCOMPARE(window.adder->focusWidget(), box);
        QCOMPARE(window.source(), QByteArray());
        QVERIFY(isLoaded<FrmAddTable>());
        overtype(box, QStringLiteral("1"));
    }
    click(window.adder->Command1);
    QCOMPARE(window.source(), Head + rows(1, 1) + End);
}

void TestFrmAddTable::tooLarge()
{
    Adder window;
    overtype(window.adder->txtRows, QStringLiteral("32767"));
    overtype(window.adder->txtColls, QStringLiteral("32767"));
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(window.adder->Command1);
    QCOMPARE(
        window.doors.takeAsked(),
        QStringList{QStringLiteral(
            "MsgBox|Information|The table is too large. It can have up to 1000000 cells.|Information|Ok")});
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmAddTable::bars()
{
    const Adder window;
    FrmAddTable& a = *window.adder;
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
    FrmAddTable& a = *window.adder;
    step(a.RedA);
    dragToEnd(a.BlueH);
    QCOMPARE(a.Text13, QStringLiteral("#0000FF"));
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
    click(right.adder->Option3);
    click(right.adder->Command1);
    QVERIFY(right.source().contains("<TABLE Align=\"right\" "));
}

void TestFrmAddTable::replacesTheSelection()
{
    const Adder window;
    window.web->RichTextBox1->setText("one two three");
    window.web->RichTextBox1->setSelStart(4);
    window.web->RichTextBox1->setSelLength(3);
    click(window.adder->Command1);
    QCOMPARE(window.source(), "one " + Head + End + " three");
    window.web->RichTextBox1->undo();
    QCOMPARE(window.source(), QByteArray("one two three"));
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
        QTest::keyClick(window.adder->txtRows, Qt::Key_Escape);
    } else {
        click(window.adder->Command2);
    }
    QVERIFY(!isLoaded<FrmAddTable>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmAddTable::keyboard()
{
    const Adder window;
    QTest::keyClick(window.adder, Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(window.adder->focusWidget(), window.adder->txtRows);
    overtype(window.adder->txtRows, QStringLiteral("1"));
    QTest::keyClick(window.adder->txtRows, Qt::Key_Return);
    QCOMPARE(window.source(), Head + rows(1, 1) + End);
}

WEB_TEST_MAIN(TestFrmAddTable)
#include "tst_frmaddtable.moc"
