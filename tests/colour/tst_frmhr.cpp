// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "colour/ColorSample.h"
#include "colour/FrmHR.h"

#include <QStyleOptionFrame>

using namespace brindlemark;

namespace {

using Option = OptionButton* FrmHR::*;
using Button = QPushButton* FrmHR::*;

const QByteArray DefaultTag = "<HR width=100% size=0 color=#000000 align=Left>";

/// The rule's window beside a main window.
class Rule : public MainWindow
{
public:
    Rule() { show(); }

    FrmHR* rule = nullptr;

    void show()
    {
        rule = form<FrmHR>();
        rule->Show();
        if (!QTest::qWaitForWindowActive(rule))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
    }
    /// The tag as a press on Copy gives it.
    QString copied() const
    {
        click(rule->Command1);
        return Clipboard::GetText();
    }
    /// An attribute of the rule in the sample.
    QString shown(const char* attribute) const
    {
        return probe(rule->WebBrowser1)
            .evaluate(QStringLiteral("document.querySelector('hr')?.getAttribute('%1')")
                          .arg(QLatin1String(attribute)))
            .value_or(QVariant())
            .toString();
    }
};

} // namespace

class TestFrmHR : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void defaultTag();
    void sampleFollows();
    void alignments_data();
    void alignments();
    void barsWriteTheFields();
    void barsWaitForTheHand_data();
    void barsWaitForTheHand();
    void barWhoseFieldHoldsItsNumber_data();
    void barWhoseFieldHoldsItsNumber();
    void fieldsGoOutAsTyped_data();
    void fieldsGoOutAsTyped();
    void colorRow();
    void colorByNumbers();
    void numbersHaveRoom();
    void handStaysOffTheSample();
    void addAtTheCaret();
    void closesByItsBox_data();
    void closesByItsBox();
    void boxIsKept();
    void presetSaves();
    void presetLoads();
    void presetThatIsNone_data();
    void presetThatIsNone();
    void cancelCloses_data();
    void cancelCloses();
};

void TestFrmHR::texts()
{
    const Rule window;
    const FrmHR& rule = *window.rule;
    QCOMPARE(rule.windowTitle(), QStringLiteral("Horizontal Rule Properties"));
    QCOMPARE(rule.Text1->text(), QStringLiteral("100%"));
    QCOMPARE(rule.Text3->text(), QStringLiteral("0"));
    QCOMPARE(rule.HScroll1->minimum(), 0);
    QCOMPARE(rule.HScroll1->maximum(), 500);
    QCOMPARE(rule.HScroll1->Value(), 100);
    QCOMPARE(rule.HScroll2->minimum(), 0);
    QCOMPARE(rule.HScroll2->maximum(), 500);
    QCOMPARE(rule.HScroll2->Value(), 0);
    QCOMPARE(rule.Frame3->title(), QStringLiteral("Line Color"));
    QCOMPARE(rule.Frame7->title(), QStringLiteral("View Sample"));
    QCOMPARE(rule.Option5->toolTip(), QStringLiteral("Left"));
    QCOMPARE(rule.Option4->toolTip(), QStringLiteral("Center"));
    QCOMPARE(rule.Option3->toolTip(), QStringLiteral("Right"));
    QVERIFY(rule.Option5->Value());
    QCOMPARE(rule.Check3->text(), QStringLiteral("Close when select copy or add editor."));
    QCOMPARE(rule.Command1->text().remove(u'&'), QStringLiteral("Copy"));
    QCOMPARE(rule.Command6->text().remove(u'&'), QStringLiteral("Add to Editor"));
    QCOMPARE(rule.Command7->text().remove(u'&'), QStringLiteral("Cancel"));
    QCOMPARE(rule.Command9->text().remove(u'&'), QStringLiteral("Save Colors"));
    QCOMPARE(rule.Command10->text().remove(u'&'), QStringLiteral("Load Colors"));
    QCOMPARE(rule.ruleColor, QStringLiteral("#000000"));
    QCOMPARE(rule.FColor1->BackColor(), 0);
    for (const ScrollBar* bar : {rule.RedG, rule.GreenG, rule.BlueG}) {
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 255);
        QCOMPARE(bar->Value(), 0);
    }
}

void TestFrmHR::defaultTag()
{
    const Rule window;
    QCOMPARE(window.copied(), QString::fromLatin1(DefaultTag));
    QTRY_COMPARE(window.shown("width"), QStringLiteral("100%"));
    QCOMPARE(window.shown("size"), QStringLiteral("0"));
    QCOMPARE(window.shown("color"), QStringLiteral("#000000"));
    QCOMPARE(window.shown("align"), QStringLiteral("Left"));
    QCOMPARE(window.rule->WebBrowser1->designMode(), DesignMode::Off);
}

void TestFrmHR::sampleFollows()
{
    const Rule window;
    FrmHR& rule = *window.rule;
    overtype(rule.Text1, QStringLiteral("40"));
    QTRY_COMPARE(window.shown("width"), QStringLiteral("40"));
    overtype(rule.Text3, QStringLiteral("7"));
    QTRY_COMPARE(window.shown("size"), QStringLiteral("7"));
    click(rule.Option4);
    QTRY_COMPARE(window.shown("align"), QStringLiteral("Center"));
    step(rule.HScroll1);
    QTRY_COMPARE(window.shown("width"), QStringLiteral("101%"));
    step(rule.HScroll2);
    QTRY_COMPARE(window.shown("size"), QStringLiteral("1"));
}

void TestFrmHR::alignments_data()
{
    QTest::addColumn<Option>("option");
    QTest::addColumn<QString>("end");
    QTest::newRow("left") << Option(&FrmHR::Option5) << " align=Left>";
    QTest::newRow("center") << Option(&FrmHR::Option4) << " align=Center>";
    QTest::newRow("right") << Option(&FrmHR::Option3) << " align=Right>";
}

void TestFrmHR::alignments()
{
    QFETCH(Option, option);
    QFETCH(QString, end);
    const Rule window;
    click(window.rule->*option);
    QCOMPARE(window.copied(), QStringLiteral("<HR width=100% size=0 color=#000000") + end);
}

void TestFrmHR::barsWriteTheFields()
{
    const Rule window;
    FrmHR& rule = *window.rule;
    rule.HScroll1->setValue(50);
    QCOMPARE(rule.Text1->text(), QStringLiteral("50%"));
    rule.HScroll2->setValue(12);
    QCOMPARE(rule.Text3->text(), QStringLiteral("12"));
    QCOMPARE(window.copied(), QStringLiteral("<HR width=50% size=12 color=#000000 align=Left>"));
    step(rule.HScroll2, false);
    rule.HScroll2->setValue(0);
    QCOMPARE(window.copied(), QStringLiteral("<HR width=50% size=0 color=#000000 align=Left>"));
}

static void addBars()
{
    QTest::addColumn<ScrollBar * FrmHR::*>("bar");
    QTest::addColumn<QLineEdit * FrmHR::*>("field");
    QTest::addColumn<QString>("end");   // of the bar
    QTest::addColumn<QString>("step");  // one from its start
    QTest::addColumn<QString>("width"); // shown with that step
    QTest::addColumn<QString>("size");
    const auto row = [](const char* name, auto bar, auto field, const char* end, const char* step,
                        const char* width, const char* size) {
        QTest::newRow(name) << static_cast<ScrollBar * FrmHR::*>(bar)
                            << static_cast<QLineEdit * FrmHR::*>(field) << end << step << width << size;
    };
    row("width", &FrmHR::HScroll1, &FrmHR::Text1, "500%", "101%", "101%", "0");
    row("size", &FrmHR::HScroll2, &FrmHR::Text3, "500", "1", "100%", "1");
}

void TestFrmHR::barsWaitForTheHand_data()
{
    addBars();
}

/// A drag writes the field, and refreshes the sample, once the hand lets go.
void TestFrmHR::barsWaitForTheHand()
{
    using Bar = ScrollBar* FrmHR::*;
    using Field = QLineEdit* FrmHR::*;
    QFETCH(Bar, bar);
    QFETCH(Field, field);
    QFETCH(QString, end);
    const Rule window;
    FrmHR& rule = *window.rule;
    const QString before = (rule.*field)->text();
    const QString sample = settledSample(rule.WebBrowser1);
    dragToEnd(rule.*bar);
    QCOMPARE((rule.*bar)->Value(), 500);
    QCOMPARE((rule.*field)->text(), before);
    QCOMPARE(settledSample(rule.WebBrowser1), sample);
    release(rule.*bar);
    QCOMPARE((rule.*field)->text(), end);
    QTRY_COMPARE(window.shown(bar == Bar(&FrmHR::HScroll1) ? "width" : "size"), end);
}

void TestFrmHR::barWhoseFieldHoldsItsNumber_data()
{
    addBars();
}

/// It refreshes the sample all the same.
void TestFrmHR::barWhoseFieldHoldsItsNumber()
{
    using Bar = ScrollBar* FrmHR::*;
    using Field = QLineEdit* FrmHR::*;
    QFETCH(Bar, bar);
    QFETCH(Field, field);
    QFETCH(QString, step);
    QFETCH(QString, width);
    QFETCH(QString, size);
    Rule window;
    FrmHR& rule = *window.rule;
    overtype(rule.*field, step);
    window.folder.write(QStringLiteral("mine.fpc"), "[HR]\r\nFcolor1=255\r\n");
    window.doors.answerOpen(window.folder.path(QStringLiteral("mine.fpc")));
    click(rule.Command10);
    const QString shown = QStringLiteral("<hr width=\"%1\" size=\"%2\" color=\"%3\" align=\"Left\">");
    QCOMPARE(settledSample(rule.WebBrowser1), shown.arg(width, size, QStringLiteral("#000000")));
    brindlemark::step(rule.*bar);
    QCOMPARE((rule.*field)->text(), step);
    QTRY_COMPARE(pageBody(rule.WebBrowser1), shown.arg(width, size, QStringLiteral("#FF0000")));
}

void TestFrmHR::fieldsGoOutAsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << "";
    QTest::newRow("words") << "very wide";
    QTest::newRow("quote") << "\"50%\"";
    QTest::newRow("tag") << "5><B";
    QTest::newRow("negative") << "-5";
    QTest::newRow("huge") << "99999999999";
}

void TestFrmHR::fieldsGoOutAsTyped()
{
    QFETCH(QString, typed);
    const Rule window;
    overtype(window.rule->Text1, typed);
    overtype(window.rule->Text3, typed);
    QCOMPARE(window.copied(), QStringLiteral("<HR width=%1 size=%1 color=#000000 align=Left>").arg(typed));
}

void TestFrmHR::colorRow()
{
    const Rule window;
    FrmHR& rule = *window.rule;
    step(rule.RedG);
    QCOMPARE(rule.FColor1->BackColor(), 1);
    QCOMPARE(rule.ruleColor, QStringLiteral("#010000"));
    QTRY_COMPARE(window.shown("color"), QStringLiteral("#010000"));
    dragToEnd(rule.BlueG);
    QCOMPARE(rule.FColor1->BackColor(), 0xFF0001);
    QTRY_COMPARE(window.shown("color"), QStringLiteral("#0100FF")); // the hand still holds it
    release(rule.BlueG);
    rule.GreenG->setValue(128);
    QCOMPARE(window.copied(), QStringLiteral("<HR width=100% size=0 color=#0180FF align=Left>"));
}

/// By keys alone: a number that is typed moves its bar, and a bar that is moved writes its number.
void TestFrmHR::colorByNumbers()
{
    const Rule window;
    FrmHR& rule = *window.rule;
    overtype(rule.NumRed, QStringLiteral("255"));
    overtype(rule.NumGreen, QStringLiteral("128"));
    overtype(rule.NumBlue, QStringLiteral("1"));
    QCOMPARE(rule.RedG->Value(), 255);
    QCOMPARE(rule.GreenG->Value(), 128);
    QCOMPARE(rule.BlueG->Value(), 1);
    QCOMPARE(rule.FColor1->BackColor(), 0x0180FF);
    QTRY_COMPARE(window.shown("color"), QStringLiteral("#FF8001"));
    QCOMPARE(window.copied(), QStringLiteral("<HR width=100% size=0 color=#FF8001 align=Left>"));

    rule.NumBlue->setFocus(); // which the copying took
    QTest::keyClick(rule.NumBlue, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(rule.focusWidget(), rule.BlueG);
    QTest::keyClick(rule.BlueG, Qt::Key_Right);
    QCOMPARE(rule.NumBlue->text(), QStringLiteral("2"));
    QTest::keyClick(rule.BlueG, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(rule.focusWidget(), rule.NumGreen);
    QCOMPARE(rule.NumRed->accessibleName(), QStringLiteral("Color of the line, red"));
    QCOMPARE(rule.NumRed->toolTip(), QStringLiteral("Red, from 0 to 255"));
    overtype(rule.NumGreen, QStringLiteral("256")); // 2, 25, and no more
    QCOMPARE(rule.GreenG->Value(), 25);
    QTest::keyClick(rule.NumGreen, Qt::Key_Tab);
    QCOMPARE(rule.NumGreen->text(), QStringLiteral("25"));
    QTRY_COMPARE(window.shown("color"), QStringLiteral("#FF1902"));
}

/// Each of three digits, behind a bar that a hand can still set.
void TestFrmHR::numbersHaveRoom()
{
    const Rule window;
    const FrmHR& rule = *window.rule;
    for (const auto& [bar, field] : {std::pair(rule.RedG, rule.NumRed), std::pair(rule.GreenG, rule.NumGreen),
                                     std::pair(rule.BlueG, rule.NumBlue)}) {
        QStyleOptionFrame look;
        look.initFrom(field);
        look.lineWidth = field->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &look, field);
        const int inner = field->style()->subElementRect(QStyle::SE_LineEditContents, &look, field).width();
        QVERIFY(inner > field->fontMetrics().horizontalAdvance(QStringLiteral("255")) + 4);
        QVERIFY2(bar->width() >= 100, qPrintable(QString::number(bar->width())));
        QVERIFY(bar->geometry().right() < field->x());
    }
    QVERIFY(rule.NumBlue->geometry().right() < rule.FColor1->x());
}

/// Which offers nothing to press here.
void TestFrmHR::handStaysOffTheSample()
{
    const Rule window;
    const FrmHR& rule = *window.rule;
    rule.Text1->setFocus();
    QTest::mouseClick(rule.FColor1, Qt::LeftButton);
    QCOMPARE(rule.focusWidget(), rule.Text1);
    for (const auto& [control, modifier] :
         {std::pair<QWidget*, Qt::KeyboardModifier>{rule.NumBlue, Qt::NoModifier},
          {rule.RedG, Qt::ShiftModifier}}) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Tab, modifier);
        QVERIFY(rule.focusWidget() != control);
        QVERIFY(rule.focusWidget() != rule.FColor1);
    }
}

void TestFrmHR::addAtTheCaret()
{
    const Rule window;
    window.web->RichTextBox1->setText("one two three");
    window.web->RichTextBox1->setSelStart(4);
    window.web->RichTextBox1->setSelLength(3);
    click(window.rule->Command6);
    QCOMPARE(window.source(), "one " + DefaultTag + " three");
    click(window.rule->Command6);
    QCOMPARE(window.source(), "one " + DefaultTag + DefaultTag + " three");
    window.web->RichTextBox1->undo();
    QCOMPARE(window.source(), "one " + DefaultTag + " three");
}

void TestFrmHR::closesByItsBox_data()
{
    QTest::addColumn<Button>("button");
    QTest::newRow("Copy") << Button(&FrmHR::Command1);
    QTest::newRow("Add to Editor") << Button(&FrmHR::Command6);
}

void TestFrmHR::closesByItsBox()
{
    QFETCH(Button, button);
    const Rule window;
    click(window.rule->*button);
    QVERIFY(isLoaded<FrmHR>());
    tick(window.rule->Check3);
    click(window.rule->*button);
    QVERIFY(!isLoaded<FrmHR>());
    QCOMPARE(Clipboard::GetText() == QString::fromLatin1(DefaultTag), button == Button(&FrmHR::Command1));
}

void TestFrmHR::boxIsKept()
{
    Rule window;
    QCOMPARE(window.rule->Check3->Value(), 0);
    tick(window.rule->Check3);
    QVERIFY(window.folder.read(QStringLiteral("web.ini")).contains("[HRpro]\r\nchk3=1\r\n"));
    click(window.rule->Command7);
    window.show();
    QCOMPARE(window.rule->Check3->Value(), 1);
    tick(window.rule->Check3);
    QVERIFY(window.folder.read(QStringLiteral("web.ini")).contains("[HRpro]\r\nchk3=0\r\n"));
}

void TestFrmHR::presetSaves()
{
    Rule window;
    window.rule->RedG->setValue(1);
    window.rule->BlueG->setValue(255);
    const QString path = window.folder.path(QStringLiteral("mine.fpc"));
    window.doors.answerSave(path);
    click(window.rule->Command9);
    QCOMPARE(window.doors.takeAsked(),
             QStringList{QStringLiteral("Save||1HRcolor|FPC Files (*.fpc)|*.fpc|")});
    QCOMPARE(window.folder.read(QStringLiteral("mine.fpc")), QByteArray("[HR]\r\nFcolor1=16711681\r\n"));
    window.doors.cancelSave();
    click(window.rule->Command9);
}

void TestFrmHR::presetLoads()
{
    Rule window;
    window.folder.write(QStringLiteral("mine.fpc"), "[HR]\r\nFcolor1=16711680\r\n");
    QTRY_COMPARE(window.shown("color"), QStringLiteral("#000000"));
    window.doors.answerOpen(window.folder.path(QStringLiteral("mine.fpc")));
    click(window.rule->Command10);
    QCOMPARE(window.doors.takeAsked(), QStringList{QStringLiteral("Open|||FPC Files (*.fpc)|*.fpc|")});
    QCOMPARE(window.rule->FColor1->BackColor(), 16711680);
    QCOMPARE(window.rule->ruleColor, QStringLiteral("#0000FF"));
    QCOMPARE(window.rule->BlueG->Value(), 0);
    QCOMPARE(settledSample(window.rule->WebBrowser1), // until something else refreshes it
             QStringLiteral("<hr width=\"100%\" size=\"0\" color=\"#000000\" align=\"Left\">"));
    click(window.rule->Option3);
    QTRY_COMPARE(window.shown("color"), QStringLiteral("#0000FF"));

    step(window.rule->RedG); // back to the bars' colour
    QCOMPARE(window.rule->ruleColor, QStringLiteral("#010000"));
}

void TestFrmHR::presetThatIsNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("another tool's") << QByteArray("[Fader5]\r\nFcolor1=255\r\n");
    QTest::newRow("no number") << QByteArray("[HR]\r\nFcolor1=abc\r\n");
    QTest::newRow("out of range") << QByteArray("[HR]\r\nFcolor1=99999999999\r\n");
    QTest::newRow("cut off") << QByteArray("[HR]\r\nFcol");
    QTest::newRow("empty") << QByteArray();
}

void TestFrmHR::presetThatIsNone()
{
    QFETCH(QByteArray, bytes);
    Rule window;
    window.rule->RedG->setValue(9);
    window.folder.write(QStringLiteral("bad.fpc"), bytes);
    window.doors.answerOpen(window.folder.path(QStringLiteral("bad.fpc")));
    click(window.rule->Command10);
    QCOMPARE(window.rule->FColor1->BackColor(), 9);
    QCOMPARE(window.rule->ruleColor, QStringLiteral("#090000"));
    window.doors.cancelOpen();
    click(window.rule->Command10);
    QCOMPARE(window.rule->FColor1->BackColor(), 9);
}

void TestFrmHR::cancelCloses_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("Cancel") << false;
    QTest::newRow("Escape") << true;
}

void TestFrmHR::cancelCloses()
{
    QFETCH(bool, escape);
    const Rule window;
    if (escape) {
        QTest::keyClick(window.rule->Text1, Qt::Key_Escape);
    } else {
        click(window.rule->Command7);
    }
    QVERIFY(!isLoaded<FrmHR>());
    QCOMPARE(window.source(), QByteArray());
}

WEB_TEST_MAIN(TestFrmHR)
#include "tst_frmhr.moc"
