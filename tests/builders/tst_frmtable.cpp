// SPDX-License-Identifier: GPL-3.0-or-later

#include "OpenTool.h"
#include "WebTestMain.h"
#include "builders/FrmTable.h"
#include "colour/ColorSample.h"
#include "colour/FrmAutoColor.h"
#include "shell/ScreenFonts.h"

#include <QFontDatabase>

using namespace brindlemark;

namespace {

const QString NoWord = QStringLiteral("MsgBox|Error|Cannot add to editor because no word.|Information|Ok");
const QString CancelQuestion =
    QStringLiteral("MsgBox|Information|Are you sure you wish cancel it ?|Information|YesNo");
const QString ClearQuestion =
    QStringLiteral("MsgBox|List Clear?|Are you sure you wish list clear ?|Information|NoYes");
const QString TitleQuestion = QStringLiteral("InputBox|Save Title|Enter the title.|");

const QString Font = QStringLiteral("<Font face=Arial size=3 color=#000000>");
const QString Spanning = QStringLiteral("<TD bgcolor=#FFFFFF colSpan=2 width=0 height=0 align=Left>") + Font;
const QString Plain = QStringLiteral("<TD bgcolor=#FFFFFF width=0 height=0 align=Left>") + Font;
const QString Head = QStringLiteral("<BODY>\r\n<TABLE width=0% height=0% align=Left borderColor=#000000 "
                                    "cellspacing=0 cellpadding=0 border=0 bgcolor=#000000>\r\n<TBODY>\r\n");
const QString End = QStringLiteral("</TBODY>\r\n</TABLE>\r\n");

using Bar = ScrollBar* FrmTable::*;

class Designer : public OpenTool<FrmTable>
{
public:
    /// Types a row and adds it.
    void add(const char* left, const char* right = "") const
    {
        overtype(tool->Text1, QString::fromLatin1(left));
        overtype(tool->Text2, QString::fromLatin1(right));
        click(tool->Command4);
    }
    /// What the eye sees of row `i` of a list.
    static QPoint placeOf(ListBox* list, int i) { return list->visualItemRect(list->item(i)).center(); }
    static void clickRow(ListBox* list, int i)
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, placeOf(list, i));
    }
    /// Puts a mark where a restyle would make the cells anew.
    void mark() const { tool->leftCells[0] = QStringLiteral("mark"); }
    bool isMarked() const { return tool->leftCells.value(0) == QStringLiteral("mark"); }

    void openWithSets(const QByteArray& sets, const QByteArray& titles)
    {
        folder.write(QStringLiteral("Table.ini"), sets);
        folder.write(QStringLiteral("Table2.ini"), titles);
        reopen();
    }
    void saveSet(const char* title)
    {
        doors.answerInputBox(QString::fromLatin1(title));
        click(tool->Command7);
        doors.takeAsked();
    }
};

/// A saved set in which each value is another.
const QByteArray Set =
    "Borde=1\r\nBGC=2\r\nBorder=3\r\nCell_S=4\r\nCell_P=5\r\nTheight=6%\r\nTwidth=7%\r\n"
    "TLCR=Right\r\nCell=8\r\nFont=9\r\nFheight=10\r\nFwidth=11\r\nFontFace=Courier\r\n"
    "Fontsize=14\r\nBold=1\r\nItalic=0\r\nUnderline=1\r\nFLCR=Center\r\nTxtAuto=#112233\r\n"
    "TxtAuto2=#445566\r\nCheck1=0\r\nCheckborder=0\r\n";

} // namespace

class TestFrmTable : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void state();
    void fonts();
    void closingBoxWithoutKey_data();
    void closingBoxWithoutKey();
    void closingBoxIsKept();

    void addsARow();
    void addsARowOfTwoWords();
    void addRefuses_data();
    void addRefuses();
    void enterAdds();
    void enterOnARefusedRow_data();
    void enterOnARefusedRow();
    void wordsGoOutAsTyped_data();
    void wordsGoOutAsTyped();
    void rowsKeepTheirLook();
    void clearList();
    void cancel();
    void closeButtonAsks();
    void addToEditor();
    void copy();
    void nothingToAdd();

    void cellOptions();
    void styleBoxes();
    void tableOptions();
    void fontAndSize();
    void typedFontWaits();
    void sizeBars_data();
    void sizeBars();
    void typedSizesWait();
    void colorBars_data();
    void colorBars();
    void colorBarsByKeyboard();
    void borderBox();

    void clickReadsTheLook();
    void clickOnTheRight();
    void clickBesideOneWord();
    void releaseDropsTheSelection_data() { mouseButtons(); }
    void releaseDropsTheSelection();
    void pressDropsTheOther_data() { mouseButtons(); }
    void pressDropsTheOther();
    void arrowKeysRead();
    void rightWordBeforeTheLeft();
    void listsScrollTogether();
    void clickIntoAFieldDeselects();
    void readingStartsNoRebuild();
    void oneRowOnly();

    void twoColors();
    void twoColorsTakenBack();
    void twoColorsUnticked();
    void twoColorsOfAnEarlierTable();
    void twoColorsLeftOpen();
    void twoColorsAfterTheTableHasGone();

    void saves();
    void savesWhatItLoads_data();
    void savesWhatItLoads();
    void savesByTitle();
    void saveRefused();
    void titlesAreKept();
    void loads();
    void loadsTwoColors();
    void loadsWithoutRows();
    void loadsWhatIsMissing();
    void loadsWhatIsDamaged_data();
    void loadsWhatIsDamaged();
    void loadsNumbersThatAreNone();
    void loadOfTheSameTitle();
    void barsStayAfterALoad();

    void sampleShowsTheTable();
    void manyRows();

private:
    static void mouseButtons();
};

void TestFrmTable::texts()
{
    const Designer window;
    const FrmTable& t = *window.tool;
    QCOMPARE(t.windowTitle(), QStringLiteral("Two Table Properties"));
    const QList<std::pair<const QGroupBox*, const char*>> frames = {
        {t.Frame4, "Table"},      {t.Frame1, "   Borde Color"}, {t.Frame5, "BG Color"},
        {t.Frame6, "Cell Color"}, {t.Frame7, "Font Color"},     {t.Frame2, "View Sample"}};
    for (const auto& [frame, title] : frames)
        QCOMPARE(frame->title(), QLatin1String(title));
    const QList<std::pair<const QLabel*, const char*>> labels = {
        {t.Label1, "Border"}, {t.Label2, "Cellspacing"}, {t.Label3, "Cellpadding"}, {t.Label4, "Width"},
        {t.Label5, "Height"}, {t.Label6, "Width"},       {t.Label7, "Height"}};
    for (const auto& [label, text] : labels)
        QCOMPARE(label->text(), QLatin1String(text));
    compareCaptions({{t.Option4, "", "Table Left"},
                     {t.Option5, "", "Table Center"},
                     {t.Option6, "", "Table Right"},
                     {t.Option1, "", "Left"},
                     {t.Option2, "", "Center"},
                     {t.Option3, "", "Right"},
                     {t.chkBold, "", "Bold"},
                     {t.chkItalic, "", "Italic"},
                     {t.chkUnderline, "", "Underline"},
                     {t.Check1, "Two Cell Colors"},
                     {t.Command7, "Save", "Save All Colors"},
                     {t.Command4, "Add it"},
                     {t.Command5, "Clear list"},
                     {t.Check3, "Close when select copy or add editor."},
                     {t.Command8, "Copy"},
                     {t.Command2, "Add to Editor"},
                     {t.Command3, "Cancel"}});
    QCOMPARE(t.Combo1->toolTip(), QStringLiteral("Load All Colors"));
    QCOMPARE(t.Combo1->placeholderText(), QStringLiteral("Load here"));
    QCOMPARE(t.Combo1->ListIndex(), -1);
}

void TestFrmTable::state()
{
    const Designer window;
    const FrmTable& t = *window.tool;
    for (const QLineEdit* box : {t.Combo2, t.Combo4, t.Combo3, t.TxWid, t.TxHei})
        QCOMPARE(box->text(), QStringLiteral("0"));
    for (const QLineEdit* box : {t.Combo9, t.Combo8})
        QCOMPARE(box->text(), QStringLiteral("0%"));
    for (const ScrollBar* bar :
         {t.HScroll1, t.HScroll2, t.HScroll3, t.HScroll4, t.HScroll5, t.HScroll6, t.HScroll7}) {
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 32767);
    }
    QCOMPARE(t.BColor1->BackColor(), 0);
    QCOMPARE(t.TbColor1->BackColor(), 0);
    QCOMPARE(t.TbColor2->BackColor(), 0xFFFFFF);
    QCOMPARE(t.FColor1->BackColor(), 0);
    QCOMPARE(t.borderColor, QStringLiteral("#000000"));
    QCOMPARE(t.tableColor, QStringLiteral("#000000"));
    QCOMPARE(t.cellColor, QStringLiteral("#FFFFFF"));
    QCOMPARE(t.fontColor, QStringLiteral("#000000"));
    QCOMPARE(t.firstColor, QStringLiteral("#000000"));
    QCOMPARE(t.secondColor, QStringLiteral("#000000"));
    for (const ScrollBar* bar : {t.RedI, t.GreenI, t.BlueI})
        QCOMPARE(bar->Value(), 255);
    QCOMPARE(t.ChkNoB->Value(), 1);
    QVERIFY(t.RedA->isEnabled());
    QVERIFY(t.Option4->Value());
    QVERIFY(t.Option1->Value());
    for (const CheckBox* box : {t.chkBold, t.chkItalic, t.chkUnderline, t.Check1})
        QCOMPARE(box->Value(), 0);
    QCOMPARE(t.Check3->Value(), 1);
    QVERIFY(t.allRows);
    QCOMPARE(t.focusWidget(), t.Text1);
    QVERIFY(!isLoaded<FrmAutoColor>());
}

void TestFrmTable::fonts()
{
    const Designer window;
    const FrmTable& t = *window.tool;
    QCOMPARE(t.Combo7->Text(), QStringLiteral("Arial"));
    QCOMPARE(entries(*t.Combo7), fontNames(QFontDatabase::families(), 1));
    QCOMPARE(t.Combo6->Text(), QStringLiteral("Normal"));
    QCOMPARE(entries(*t.Combo6).join(u' '), QStringLiteral("8 10 12 14 18 24 36 Normal"));
}

void TestFrmTable::closingBoxWithoutKey_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::newRow("missing") << QByteArray("[Tablepro]\r\n");
    QTest::newRow("no number") << QByteArray("[Tablepro]\r\nchk3=yes\r\n");
}

void TestFrmTable::closingBoxWithoutKey()
{
    QFETCH(QByteArray, settings);
    const MainWindow window;
    window.folder.write(QStringLiteral("web.ini"), settings);
    QCOMPARE(form<FrmTable>()->Check3->Value(), 0);
}

void TestFrmTable::closingBoxIsKept()
{
    Designer window;
    tick(window.tool->Check3);
    QVERIFY(window.folder.read(QStringLiteral("web.ini")).contains("[Tablepro]\r\nchk3=0\r\n"));
    window.reopen();
    QCOMPARE(window.tool->Check3->Value(), 0);
}

// ---- Words

void TestFrmTable::addsARow()
{
    const Designer window;
    window.add("Shipping");
    const FrmTable& t = *window.tool;
    QCOMPARE(entries(*t.List1), QStringList{QStringLiteral("Shipping")});
    QCOMPARE(entries(*t.List2), QStringList{QString()});
    QCOMPARE(t.leftCells, QStringList{Spanning + QStringLiteral("Shipping")});
    QCOMPARE(t.rightCells, QStringList{QString()});
    QCOMPARE(t.html, Head + QStringLiteral("<TR>\r\n") + Spanning +
                         QStringLiteral("Shipping</FONT>\r\n</TD></TR>\r\n") + End);
    QCOMPARE(t.Text1->text(), QString());
}

void TestFrmTable::addsARowOfTwoWords()
{
    const Designer window;
    window.add("Weight", "2 lb");
    const FrmTable& t = *window.tool;
    QCOMPARE(t.leftCells, QStringList{Plain + QStringLiteral("Weight")});
    QCOMPARE(t.rightCells, QStringList{Plain + QStringLiteral("2 lb")});
    QCOMPARE(t.html, Head + QStringLiteral("<TR>\r\n") + Plain +
                         QStringLiteral("Weight</FONT>\r\n</TD>\r\n") + Plain +
                         QStringLiteral("2 lb</FONT>\r\n</TD></TR>\r\n") + End);
    QCOMPARE(t.Text1->text() + t.Text2->text(), QString());
}

void TestFrmTable::addRefuses_data()
{
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("message");
    QTest::newRow("no word") << ""
                             << "MsgBox|Information|Cannot add without word.|Information|Ok";
    QTest::newRow("right word only") << "x"
                                     << "MsgBox|Information|Have to use in first box.|Information|Ok";
}

void TestFrmTable::addRefuses()
{
    QFETCH(QString, right);
    QFETCH(QString, message);
    Designer window;
    window.tool->Text2->setText(right);
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(window.tool->Command4);
    QCOMPARE(window.doors.takeAsked(), QStringList{message});
    QCOMPARE(window.tool->List1->ListCount() + window.tool->List2->ListCount(), 0);
    QCOMPARE(window.tool->leftCells + window.tool->rightCells, QStringList());
    QCOMPARE(window.tool->Text2->text(), right);
    QCOMPARE(window.tool->focusWidget(), window.tool->Text1); // where a word is missing
}

void TestFrmTable::enterAdds()
{
    const Designer window;
    FrmTable& t = *window.tool;
    QTest::keyClicks(t.Text1, QStringLiteral("a"));
    QTest::keyClick(t.Text1, Qt::Key_Return);
    QCOMPARE(entries(*t.List1), QStringList{QStringLiteral("a")});
    QCOMPARE(t.focusWidget(), t.Text1);
    QTest::keyClicks(t.Text1, QStringLiteral("b"));
    QTest::keyClick(t.Text1, Qt::Key_Tab);
    QCOMPARE(t.focusWidget(), t.Text2);
    QTest::keyClicks(t.Text2, QStringLiteral("c"));
    QTest::keyClick(t.Text2, Qt::Key_Enter);
    QCOMPARE(entries(*t.List1), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(entries(*t.List2), (QStringList{QString(), QStringLiteral("c")}));
    QCOMPARE(t.focusWidget(), t.Text1);
    QCOMPARE(t.Text1->text() + t.Text2->text(), QString());
}

void TestFrmTable::enterOnARefusedRow_data()
{
    addRefuses_data();
}

/// From the second box the hand goes back to the first all the same.
void TestFrmTable::enterOnARefusedRow()
{
    QFETCH(QString, right);
    QFETCH(QString, message);
    Designer window;
    FrmTable& t = *window.tool;
    overtype(t.Text2, right);
    for (QLineEdit* box : {t.Text2, t.Text1}) {
        box->setFocus();
        window.doors.answerMsgBox(MsgAnswer::Ok);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(window.doors.takeAsked(), QStringList{message});
        QCOMPARE(t.focusWidget(), t.Text1);
        QCOMPARE(t.Text2->text(), right);
        QCOMPARE(entries(*t.List1) + entries(*t.List2) + t.leftCells + t.rightCells, QStringList());
        QCOMPARE(t.html, QString());
    }
}

void TestFrmTable::wordsGoOutAsTyped_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("HTML") << "<B>x</B> & \"y\"";
    QTest::newRow("colSpan") << "colSpan=2";
    QTest::newRow("width") << "width=";
    QTest::newRow("emoji") << QStringLiteral("\U0001F600");
    QTest::newRow("blank") << " ";
    QTest::newRow("long") << QString(40'000, u'x');
}

void TestFrmTable::wordsGoOutAsTyped()
{
    QFETCH(QString, word);
    const Designer window;
    FrmTable& t = *window.tool;
    t.Text1->setText(word);
    t.Text2->setText(word);
    click(t.Command4);
    QCOMPARE(t.leftCells, QStringList{Plain + word});
    QCOMPARE(t.rightCells, QStringList{Plain + word});
    Designer::clickRow(t.List1, 0);
    QCOMPARE(t.TbColor2->BackColor(), 0xFFFFFF);
    QCOMPARE(t.TxWid->text(), QStringLiteral("0"));
}

/// Until the next restyle.
void TestFrmTable::rowsKeepTheirLook()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    t.TxWid->setText(QStringLiteral("9"));
    window.add("b");
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral(" width=0 ")));
    QVERIFY(t.leftCells.at(1).contains(QStringLiteral(" width=9 ")));
    click(t.Option5);
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral(" width=9 ")));
}

void TestFrmTable::clearList()
{
    Designer window;
    FrmTable& t = *window.tool;
    window.add("a", "b");
    t.HScroll1->setValue(3);
    QTRY_COMPARE(window.ask("document.querySelectorAll('td').length"), QStringLiteral("2"));
    window.doors.answerMsgBox(MsgAnswer::No);
    click(t.Command5);
    QCOMPARE(window.doors.takeAsked(), QStringList{ClearQuestion});
    QCOMPARE(t.List1->ListCount(), 1);
    window.doors.answerMsgBox(MsgAnswer::Yes);
    click(t.Command5);
    window.doors.takeAsked();
    QCOMPARE(t.List1->ListCount() + t.List2->ListCount(), 0);
    QCOMPARE(t.leftCells + t.rightCells, QStringList());
    QCOMPARE(t.html, QString());
    QCOMPARE(t.Combo2->text(), QStringLiteral("3"));
    QTRY_COMPARE(window.ask("document.querySelectorAll('*').length"),
                 QStringLiteral("3")); // html, head, body
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(t.Command2);
    QCOMPARE(window.doors.takeAsked(), QStringList{NoWord});
}

void TestFrmTable::cancel()
{
    Designer window;
    click(window.tool->Command3);
    QVERIFY(!isLoaded<FrmTable>()); // nothing to lose
    window.show();
    window.add("a");
    window.doors.answerMsgBox(MsgAnswer::No);
    click(window.tool->Command3);
    QCOMPARE(window.doors.takeAsked(), QStringList{CancelQuestion});
    QVERIFY(isLoaded<FrmTable>());
    window.doors.answerMsgBox(MsgAnswer::Yes);
    QTest::keyClick(window.tool->Text1, Qt::Key_Escape);
    QCOMPARE(window.doors.takeAsked(), QStringList{CancelQuestion});
    QVERIFY(!isLoaded<FrmTable>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmTable::closeButtonAsks()
{
    Designer window;
    window.add("a");
    window.doors.answerMsgBox(MsgAnswer::No);
    window.tool->close();
    QCOMPARE(window.doors.takeAsked(), QStringList{CancelQuestion});
    QVERIFY(isLoaded<FrmTable>());
}

void TestFrmTable::addToEditor()
{
    Designer window;
    window.web->RichTextBox1->setText("one two");
    window.web->RichTextBox1->setSelStart(4);
    window.add("a");
    const QByteArray html = window.tool->html.toUtf8();
    tick(window.tool->Check3);
    click(window.tool->Command2);
    QCOMPARE(window.source(), "one " + html + "two");
    QVERIFY(isLoaded<FrmTable>());
    tick(window.tool->Check3);
    click(window.tool->Command2);
    QCOMPARE(window.source(), "one " + html + html + "two");
    QVERIFY(!isLoaded<FrmTable>()); // without a question
}

void TestFrmTable::copy()
{
    const Designer window;
    window.add("a");
    const QString html = window.tool->html;
    click(window.tool->Command8);
    QCOMPARE(Clipboard::GetText(), html);
    QVERIFY(!isLoaded<FrmTable>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmTable::nothingToAdd()
{
    Designer window;
    Clipboard::SetText(QStringLiteral("mine"));
    for (QPushButton* button : {window.tool->Command2, window.tool->Command8}) {
        window.doors.answerMsgBox(MsgAnswer::Ok);
        click(button);
        QCOMPARE(window.doors.takeAsked(), QStringList{NoWord});
        QCOMPARE(window.tool->focusWidget(), window.tool->Text1);
    }
    QCOMPARE(Clipboard::GetText(), QStringLiteral("mine"));
    QVERIFY(isLoaded<FrmTable>());
}

// ---- What makes the table anew

void TestFrmTable::cellOptions()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a", "b");
    const QList<std::pair<OptionButton*, const char*>> options = {
        {t.Option2, " align=Center>"}, {t.Option3, " align=Right>"}, {t.Option1, " align=Left>"}};
    for (const auto& [option, align] : options) {
        click(option);
        QVERIFY(t.leftCells.at(0).contains(QLatin1String(align)));
        QVERIFY(t.rightCells.at(0).contains(QLatin1String(align)));
        QVERIFY(t.html.contains(t.leftCells.at(0)));
    }
    // A set by code does nothing.
    window.mark();
    t.Option3->setValue(true);
    QVERIFY(window.isMarked());
    // The keyboard's hand counts as the mouse's.
    t.Option1->setValue(true);
    t.Option2->setFocus();
    QTest::keyClick(t.Option2, Qt::Key_Space);
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral(" align=Center>")));
}

void TestFrmTable::styleBoxes()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    click(t.chkBold);
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral("align=Left><b><Font ")));
    click(t.chkItalic);
    click(t.chkUnderline);
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral("align=Left><b><i><u><Font ")));
    click(t.chkBold);
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral("align=Left><i><u><Font ")));
    QVERIFY(t.html.contains(QStringLiteral("a</FONT>\r\n</TD></TR>"))); // nothing closes them
    window.mark();
    t.chkBold->setValue(1);
    QVERIFY(window.isMarked());
    window.add("b");
    QVERIFY(t.leftCells.at(1).contains(QStringLiteral("align=Left><b><i><u><Font ")));
}

void TestFrmTable::tableOptions()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    const QList<std::pair<OptionButton*, const char*>> options = {{t.Option5, " align=Center borderColor"},
                                                                  {t.Option6, " align=Right borderColor"},
                                                                  {t.Option4, " align=Left borderColor"}};
    for (const auto& [option, align] : options) {
        click(option);
        QVERIFY(t.html.contains(QStringLiteral("<TABLE width=0% height=0%") + QLatin1String(align)));
    }
    window.mark();
    t.Option5->setValue(true); // here a set by code counts
    QVERIFY(!window.isMarked());
}

void TestFrmTable::fontAndSize()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    choose(t.Combo6, 6);
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral("<Font face=Arial size=7 color=")));
    choose(t.Combo6, 2); // 12
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral("<Font face=Arial size=3 color=")));
    const int last = t.Combo7->ListCount() - 1;
    choose(t.Combo7, last);
    QVERIFY(
        t.leftCells.at(0).contains(QStringLiteral("<Font face=%1 size=3 color=").arg(t.Combo7->List(last))));
}

void TestFrmTable::typedFontWaits()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    overtype(t.Combo7->lineEdit(), QStringLiteral("Comic Sans MS"));
    overtype(t.Combo6->lineEdit(), QStringLiteral("13"));
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral("face=Arial")));
    click(t.Option5);
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral("<Font face=Comic Sans MS size= color=")));
}

void TestFrmTable::sizeBars_data()
{
    QTest::addColumn<Bar>("bar");
    QTest::addColumn<QString>("text");
    QTest::newRow("border") << Bar(&FrmTable::HScroll1) << " border=%1 bgcolor=";
    QTest::newRow("spacing") << Bar(&FrmTable::HScroll2) << " cellspacing=%1 cellpadding=";
    QTest::newRow("padding") << Bar(&FrmTable::HScroll3) << " cellpadding=%1 border=";
    QTest::newRow("width") << Bar(&FrmTable::HScroll4) << "<TABLE width=%1% height=";
    QTest::newRow("height") << Bar(&FrmTable::HScroll5) << " height=%1% align=";
    QTest::newRow("cell width") << Bar(&FrmTable::HScroll6) << "colSpan=2 width=%1 height=";
    QTest::newRow("cell height") << Bar(&FrmTable::HScroll7) << " height=%1 align=Left><Font";
}

void TestFrmTable::sizeBars()
{
    QFETCH(Bar, bar);
    QFETCH(QString, text);
    const Designer window;
    window.add("a");
    const auto holds = [&](int value) { return window.tool->html.contains(text.arg(value)); };
    QVERIFY(holds(0));
    step(window.tool->*bar);
    QVERIFY(holds(1));
    (window.tool->*bar)->setFocus();
    QTest::keyClick(window.tool->*bar, Qt::Key_Right);
    QVERIFY(holds(2));
    dragToEnd(window.tool->*bar);
    QVERIFY(holds(2)); // a drag counts once the hand lets go
    release(window.tool->*bar);
    QVERIFY(holds(32767));
}

void TestFrmTable::typedSizesWait()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    for (QLineEdit* box : {t.Combo2, t.Combo4, t.Combo3, t.Combo9, t.Combo8, t.TxWid, t.TxHei})
        overtype(box, QStringLiteral("x"));
    QCOMPARE(t.leftCells.at(0), Spanning + u'a');
    click(t.Option5);
    QVERIFY(t.html.contains(QStringLiteral("<TABLE width=x height=x align=Center borderColor=#000000 "
                                           "cellspacing=x cellpadding=x border=x bgcolor=#000000>")));
    QVERIFY(t.leftCells.at(0).contains(QStringLiteral(" width=x height=x align=Left>")));
}

void TestFrmTable::colorBars_data()
{
    QTest::addColumn<Bar>("bar");
    QTest::addColumn<QString>("stepped");
    QTest::addColumn<QString>("dragged");
    const auto row = [](const char* name, Bar bar, const char* attribute, const char* stepped,
                        const char* dragged) {
        QTest::newRow(name) << bar << QLatin1String(attribute) + QLatin1String(stepped)
                            << QLatin1String(attribute) + QLatin1String(dragged);
    };
    row("border red", &FrmTable::RedA, "borderColor=", "#010000", "#FF0000");
    row("border green", &FrmTable::GreenA, "borderColor=", "#000100", "#00FF00");
    row("border blue", &FrmTable::BlueA, "borderColor=", "#000001", "#0000FF");
    row("table red", &FrmTable::RedH, "border=0 bgcolor=", "#010000", "#FF0000");
    row("table green", &FrmTable::GreenH, "border=0 bgcolor=", "#000100", "#00FF00");
    row("table blue", &FrmTable::BlueH, "border=0 bgcolor=", "#000001", "#0000FF");
    row("cell red", &FrmTable::RedI, "<TD bgcolor=", "#010000", "#FF0000");
    row("cell green", &FrmTable::GreenI, "<TD bgcolor=", "#000100", "#00FF00");
    row("cell blue", &FrmTable::BlueI, "<TD bgcolor=", "#000001", "#0000FF");
    row("font red", &FrmTable::RedG, " color=", "#010000", "#FF0000");
    row("font green", &FrmTable::GreenG, " color=", "#000100", "#00FF00");
    row("font blue", &FrmTable::BlueG, " color=", "#000001", "#0000FF");
}

/// An arrow changes the colour alone, a drag all rows.
void TestFrmTable::colorBars()
{
    QFETCH(Bar, bar);
    QFETCH(QString, stepped);
    QFETCH(QString, dragged);
    const Designer window;
    FrmTable& t = *window.tool;
    for (ScrollBar* cellBar : {t.RedI, t.GreenI, t.BlueI})
        cellBar->setValue(0);
    window.add("a");
    window.add("b", "c");
    const QString before = t.html;
    step(t.*bar);
    QCOMPARE(t.html, before);
    const QStringList colors = {t.borderColor, t.tableColor, t.cellColor, t.fontColor};
    QCOMPARE(colors.count(stepped.right(7)), 1);
    click(t.Option4); // set already
    QCOMPARE(t.html, before);
    click(t.Option5);
    QVERIFY(t.html.contains(stepped));
    dragToEnd(t.*bar);
    QVERIFY(t.html.contains(dragged)); // the hand still holds it
    release(t.*bar);
    QVERIFY(t.html.contains(dragged));
    QVERIFY(!t.html.contains(stepped));
}

void TestFrmTable::colorBarsByKeyboard()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    const QString before = t.html;
    t.RedG->setFocus();
    QTest::keyClick(t.RedG, Qt::Key_Right);
    QCOMPARE(t.fontColor, QStringLiteral("#010000"));
    QCOMPARE(t.html, before);
}

void TestFrmTable::borderBox()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    tick(t.ChkNoB);
    QVERIFY(t.html.contains(QStringLiteral("<TABLE width=0% height=0% align=Left cellspacing=0 ")));
    for (const ScrollBar* bar : {t.RedA, t.GreenA, t.BlueA})
        QVERIFY(!bar->isEnabled());
    tick(t.ChkNoB);
    QCOMPARE(t.html.left(Head.size()), Head);
    QVERIFY(t.RedA->isEnabled());
}

// ---- Selection and reading back

void TestFrmTable::clickReadsTheLook()
{
    const Designer window;
    FrmTable& t = *window.tool;
    click(t.chkBold);
    click(t.chkUnderline);
    t.Combo6->setText(QStringLiteral("36"));
    t.Combo7->setText(QStringLiteral("Comic Sans MS"));
    t.TxWid->setText(QStringLiteral("50%"));
    t.TxHei->setText(QStringLiteral("20"));
    t.RedI->setValue(1);
    t.GreenI->setValue(2);
    t.BlueI->setValue(3);
    t.BlueG->setValue(200);
    t.Option3->setValue(true);
    window.add("a");
    // Another look, which the next row has.
    click(t.chkBold);
    click(t.chkItalic);
    click(t.chkUnderline);
    t.leftCells[0] = QStringLiteral("<TD bgcolor=#010203 colSpan=2 width=50% height=20 align=Right><b><u>"
                                    "<Font face=Comic Sans MS size=7 color=#0000C8>a");
    t.Combo6->setText(QStringLiteral("8"));
    t.Combo7->setText(QStringLiteral("Arial"));
    t.TxWid->setText(QStringLiteral("0"));
    t.TxHei->setText(QStringLiteral("0"));
    for (ScrollBar* bar : {t.RedI, t.GreenI, t.BlueI, t.BlueG})
        bar->setValue(9);
    t.Option1->setValue(true);

    const QString html = t.html;
    Designer::clickRow(t.List1, 0);
    QCOMPARE(t.TbColor2->BackColor(), 0x030201);
    QCOMPARE(t.cellColor, QStringLiteral("#010203"));
    QCOMPARE(t.RedI->Value(), 1);
    QCOMPARE(t.GreenI->Value(), 2);
    QCOMPARE(t.BlueI->Value(), 3);
    QCOMPARE(t.TxWid->text(), QStringLiteral("50%"));
    QCOMPARE(t.TxHei->text(), QStringLiteral("20"));
    QVERIFY(t.Option3->Value());
    QCOMPARE(t.chkBold->Value(), 1);
    QCOMPARE(t.chkItalic->Value(), 0);
    QCOMPARE(t.chkUnderline->Value(), 1);
    QCOMPARE(t.Combo7->Text(), QStringLiteral("Comic Sans MS"));
    QCOMPARE(t.Combo6->Text(), QStringLiteral("36"));
    QCOMPARE(t.FColor1->BackColor(), 0xC80000);
    QCOMPARE(t.BlueG->Value(), 200);
    QCOMPARE(t.RedG->Value(), 0);
    QCOMPARE(t.html, html);
    QCOMPARE(t.HScroll6->Value(), 0); // the bars of the sizes stay
}

void TestFrmTable::clickOnTheRight()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a", "b");
    t.rightCells[0] =
        QStringLiteral("<TD bgcolor=#0A0000 width=7 height=0 align=Center><i><Font face=Arial size=3 "
                       "color=#000000>b");
    Designer::clickRow(t.List2, 0);
    QCOMPARE(t.TbColor2->BackColor(), 10);
    QCOMPARE(t.TxWid->text(), QStringLiteral("7"));
    QCOMPARE(t.chkItalic->Value(), 1);
    QVERIFY(t.Option2->Value());
}

void TestFrmTable::clickBesideOneWord()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    t.TxWid->setText(QStringLiteral("77"));
    Designer::clickRow(t.List2, 0);
    QCOMPARE(t.TxWid->text(), QStringLiteral("77"));
}

void TestFrmTable::mouseButtons()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("right") << Qt::RightButton;
}

void TestFrmTable::releaseDropsTheSelection()
{
    QFETCH(Qt::MouseButton, button);
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a", "b");
    for (ListBox* list : {t.List1, t.List2}) {
        QTest::mousePress(list->viewport(), button, {}, Designer::placeOf(list, 0));
        QCOMPARE(list->ListIndex(), 0);
        QTest::mouseRelease(list->viewport(), button, {}, Designer::placeOf(list, 0));
        QCOMPARE(list->ListIndex(), -1);
    }
}

/// The other list's selection is gone before the row is read.
void TestFrmTable::pressDropsTheOther()
{
    QFETCH(Qt::MouseButton, button);
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a", "b");
    t.leftCells[0].replace(QStringLiteral("width=0"), QStringLiteral("width=1"));
    t.rightCells[0].replace(QStringLiteral("width=0"), QStringLiteral("width=2"));
    for (const auto& [list, other, width] :
         {std::tuple(t.List1, t.List2, "1"), std::tuple(t.List2, t.List1, "2")}) {
        other->setListIndex(0);
        QTest::mousePress(list->viewport(), button, {}, Designer::placeOf(list, 0));
        QCOMPARE(other->ListIndex(), -1);
        QCOMPARE(t.TxWid->text(), QLatin1String(width));
        QTest::mouseRelease(list->viewport(), button, {}, Designer::placeOf(list, 0));
    }
}

void TestFrmTable::arrowKeysRead()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    window.add("b");
    t.leftCells[1].replace(QStringLiteral("width=0"), QStringLiteral("width=5"));
    t.List1->setFocus();
    QTest::keyClick(t.List1, Qt::Key_Down);
    QTest::keyClick(t.List1, Qt::Key_Down);
    QCOMPARE(t.List1->ListIndex(), 1);
    QCOMPARE(t.TxWid->text(), QStringLiteral("5"));
}

/// The keys can select in both lists. Beside a row of one word is nothing to read.
void TestFrmTable::rightWordBeforeTheLeft()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    window.add("b", "c");
    t.leftCells[0].replace(QStringLiteral("width=0"), QStringLiteral("width=1"));
    t.rightCells[1].replace(QStringLiteral("width=0"), QStringLiteral("width=2"));
    const auto goTo = [&](ListBox* list, Qt::Key end) {
        overtype(t.TxWid, QStringLiteral("7"));
        list->setFocus();
        QTest::keyClick(list, end);
        return t.TxWid->text();
    };
    QCOMPARE(goTo(t.List1, Qt::Key_End), QStringLiteral("0"));
    QCOMPARE(goTo(t.List1, Qt::Key_Home), QStringLiteral("1"));
    QCOMPARE(goTo(t.List2, Qt::Key_End), QStringLiteral("2"));
    QCOMPARE(goTo(t.List1, Qt::Key_End), QStringLiteral("2"));
    QCOMPARE(goTo(t.List2, Qt::Key_Home), QStringLiteral("7"));
    QCOMPARE(goTo(t.List1, Qt::Key_Home), QStringLiteral("7"));
}

/// So that the words of a row stay side by side.
void TestFrmTable::listsScrollTogether()
{
    const Designer window;
    FrmTable& t = *window.tool;
    for (int i = 0; i < 30; ++i)
        window.add("a", "b");
    for (ListBox* list : {t.List1, t.List2}) // the last row is in view
        QVERIFY(list->viewport()->rect().contains(Designer::placeOf(list, 29)));
    for (const auto& [list, other] : {std::pair(t.List1, t.List2), std::pair(t.List2, t.List1)}) {
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End}) {
            QTest::keyClick(list, key);
            QCOMPARE(Designer::placeOf(other, 15).y(), Designer::placeOf(list, 15).y());
            QCOMPARE(list->viewport()->rect().contains(Designer::placeOf(list, 0)), key == Qt::Key_Home);
        }
    }
}

void TestFrmTable::clickIntoAFieldDeselects()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a", "b");
    for (QLineEdit* field : {t.Text1, t.Text2}) {
        t.List1->setListIndex(0);
        t.List2->setListIndex(0);
        QTest::mouseClick(field, Qt::RightButton); // asks for the menu alone
        QCOMPARE(t.List1->ListIndex() + t.List2->ListIndex(), 0);
        QTest::mouseClick(field, Qt::LeftButton);
        QCOMPARE(t.List1->ListIndex(), -1);
        QCOMPARE(t.List2->ListIndex(), -1);
    }
}

void TestFrmTable::readingStartsNoRebuild()
{
    const Designer window;
    FrmTable& t = *window.tool;
    click(t.chkBold);
    window.add("a");
    click(t.chkBold); // all rows plain
    window.add("b");
    t.leftCells[0] =
        QStringLiteral("<TD bgcolor=#010101 colSpan=2 width=1 height=1 align=Right><u><Font face=X size=1 "
                       "color=#020202>a");
    const QStringList cells = t.leftCells;
    Designer::clickRow(t.List1, 0);
    QCOMPARE(t.leftCells, cells);
}

/// The look of one row alone: no control leads here.
void TestFrmTable::oneRowOnly()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    window.add("b", "c");
    t.allRows = false;
    Designer::clickRow(t.List1, 0);
    QCOMPARE(t.List1->ListIndex(), 0); // stays selected
    click(t.chkBold);
    click(t.chkItalic);
    QCOMPARE(t.leftCells.at(0),
             QStringLiteral("<TD bgcolor=#FFFFFF colSpan=2 width=0 height=0 align=Left><b><i>") + Font +
                 QStringLiteral("a</b></i>"));
    QVERIFY(t.html.contains(QStringLiteral("a</b></i></FONT>\r\n")));
    QCOMPARE(t.leftCells.at(1), Plain + u'b');
    Designer::clickRow(t.List2, 1);
    QCOMPARE(t.chkBold->Value(), 0);
    click(t.chkUnderline);
    QCOMPARE(t.rightCells.at(1), QStringLiteral("<TD bgcolor=#FFFFFF width=0 height=0 align=Left><u>") +
                                     Font + QStringLiteral("c</u>"));
    Designer::clickRow(t.List1, 0);
    QCOMPARE(t.chkBold->Value() + t.chkItalic->Value(), 2);
    Designer::clickRow(t.List2, 0); // beside one word
    click(t.chkBold);
    QCOMPARE(t.rightCells.at(0), QString());
}

// ---- Two colours

void TestFrmTable::twoColors()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    window.add("b", "c");
    window.add("d");
    window.mark();
    tick(t.Check1);
    QVERIFY(window.isMarked()); // the colours are yet to come
    auto* colors = form<FrmAutoColor>();
    QVERIFY(colors->isVisible());
    QVERIFY(!colors->isModal());
    for (const QWidget* control : QList<QWidget*>{t.Frame6, t.RedI, t.GreenI, t.BlueI})
        QVERIFY(!control->isEnabled());
    colors->RedA->setValue(255);
    colors->BlueH->setValue(255);
    click(colors->Command1);
    QVERIFY(!colors->isVisible());
    QCOMPARE(t.Check1->Value(), 1);
    QCOMPARE(t.firstColor, QStringLiteral("#FF0000"));
    QCOMPARE(t.secondColor, QStringLiteral("#0000FF"));
    QVERIFY(t.leftCells.at(0).startsWith(QStringLiteral("<TD bgcolor=#FF0000 colSpan=2 ")));
    QVERIFY(t.leftCells.at(1).startsWith(QStringLiteral("<TD bgcolor=#0000FF width=")));
    QVERIFY(t.rightCells.at(1).startsWith(QStringLiteral("<TD bgcolor=#0000FF width=")));
    QVERIFY(t.leftCells.at(2).startsWith(QStringLiteral("<TD bgcolor=#FF0000 colSpan=2 ")));
    const QStringList cells = t.leftCells;
    click(t.Option5);
    QCOMPARE(t.leftCells, cells); // begins with the first again
    window.add("e");
    QVERIFY(t.leftCells.at(3).startsWith(QStringLiteral("<TD bgcolor=#0000FF colSpan=2 ")));
}

void TestFrmTable::twoColorsTakenBack()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    for (const bool button : {true, false}) {
        tick(t.Check1);
        if (button) {
            click(form<FrmAutoColor>()->Command2);
        } else {
            form<FrmAutoColor>()->close();
        }
        QCOMPARE(t.Check1->Value(), 0);
        QVERIFY(t.Frame6->isEnabled() && t.RedI->isEnabled());
        QCOMPARE(t.leftCells, QStringList{Spanning + u'a'});
        QVERIFY(!isLoaded<FrmAutoColor>());
    }
}

void TestFrmTable::twoColorsUnticked()
{
    const Designer window;
    FrmTable& t = *window.tool;
    window.add("a");
    tick(t.Check1);
    form<FrmAutoColor>()->RedA->setValue(9);
    click(form<FrmAutoColor>()->Command1);
    QVERIFY(t.leftCells.at(0).startsWith(QStringLiteral("<TD bgcolor=#090000 ")));
    tick(t.Check1);
    QCOMPARE(t.leftCells, QStringList{Spanning + u'a'}); // the one colour is back
    QVERIFY(t.Frame6->isEnabled() && t.GreenI->isEnabled());
    tick(t.Check1);
    QCOMPARE(form<FrmAutoColor>()->RedA->Value(), 9); // the window kept its colours
}

/// The window of the two colours outlives the table; the next one listens to it all the same.
void TestFrmTable::twoColorsOfAnEarlierTable()
{
    Designer window;
    tick(window.tool->Check1);
    click(form<FrmAutoColor>()->Command1);
    window.reopen();
    window.add("a");
    tick(window.tool->Check1);
    form<FrmAutoColor>()->RedA->setValue(7);
    click(form<FrmAutoColor>()->Command1);
    QCOMPARE(window.tool->firstColor, QStringLiteral("#070000"));
    QVERIFY(window.tool->leftCells.at(0).startsWith(QStringLiteral("<TD bgcolor=#070000 ")));
}

void TestFrmTable::twoColorsLeftOpen()
{
    Designer window;
    tick(window.tool->Check1);
    window.reopen();
    window.add("a");
    form<FrmAutoColor>()->RedA->setValue(7);
    click(form<FrmAutoColor>()->Command1);
    QCOMPARE(window.tool->Check1->Value(), 1);
    QVERIFY(window.tool->leftCells.at(0).startsWith(QStringLiteral("<TD bgcolor=#070000 ")));
    QVERIFY(!form<FrmAutoColor>()->isVisible());
}

void TestFrmTable::twoColorsAfterTheTableHasGone()
{
    const Designer window;
    tick(window.tool->Check1);
    window.tool->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    click(form<FrmAutoColor>()->Command1);
    form<FrmAutoColor>()->Unload();
    QVERIFY(!isLoaded<FrmTable>());
}

// ---- Saved sets

void TestFrmTable::saves()
{
    Designer window;
    FrmTable& t = *window.tool;
    window.doors.answerInputBox(QStringLiteral("Blue"));
    click(t.Command7);
    QCOMPARE(window.doors.takeAsked(), QStringList{TitleQuestion});
    QCOMPARE(
        window.folder.read(QStringLiteral("Table.ini")),
        QByteArray("[Blue]\r\nBorde=0\r\nBGC=0\r\nBorder=0\r\nCell_S=0\r\nCell_P=0\r\nTheight=0%\r\n"
                   "Twidth=0%\r\nTLCR=Left\r\nCell=16777215\r\nFont=0\r\nFheight=0\r\nFwidth=0\r\n"
                   "FontFace=Arial\r\nFontsize=Normal\r\nBold=0\r\nItalic=0\r\nUnderline=0\r\nFLCR=Left\r\n"
                   "TxtAuto=#000000\r\nTxtAuto2=#000000\r\nCheck1=0\r\nCheckborder=1\r\n"));
    QCOMPARE(window.folder.read(QStringLiteral("Table2.ini")), QByteArray("Blue\r\n"));
    QCOMPARE(t.Combo1->Text(), QStringLiteral("Blue"));
}

void TestFrmTable::savesWhatItLoads_data()
{
    QTest::addColumn<QByteArray>("set");
    QTest::newRow("one colour") << Set;
    QTest::newRow("two colours") << QByteArray(Set).replace("Check1=0", "Check1=1");
    QTest::newRow("other styles") << QByteArray(Set)
                                         .replace("Italic=0", "Italic=1")
                                         .replace("Underline=1", "Underline=0")
                                         .replace("Checkborder=0", "Checkborder=1");
}

void TestFrmTable::savesWhatItLoads()
{
    QFETCH(QByteArray, set);
    Designer window;
    window.openWithSets("[Blue]\r\n" + set, "Blue\r\n");
    choose(window.tool->Combo1, 0);
    window.saveSet("Copy");
    QVERIFY(window.folder.read(QStringLiteral("Table.ini")).contains("[Copy]\r\n" + set));
}

void TestFrmTable::savesByTitle()
{
    Designer window;
    FrmTable& t = *window.tool;
    window.saveSet("Blue");
    t.TxWid->setText(QStringLiteral("9"));
    window.doors.answerInputBox(QStringLiteral("Blue"));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    click(t.Command7);
    QCOMPARE(window.doors.takeAsked(),
             (QStringList{TitleQuestion,
                          QStringLiteral("MsgBox|Information|[ Blue ] - already exists.\r\nDo you want "
                                         "to replace it ?|Information|YesNo")}));
    QVERIFY(window.folder.read(QStringLiteral("Table.ini")).contains("\r\nFwidth=9\r\n"));
    QCOMPARE(window.folder.read(QStringLiteral("Table2.ini")), QByteArray("Blue\r\n"));

    // Another case: new in the list, the same section in the file.
    t.TxWid->setText(QStringLiteral("10"));
    window.saveSet("BLUE");
    QCOMPARE(window.folder.read(QStringLiteral("Table2.ini")), QByteArray("Blue\r\nBLUE\r\n"));
    QCOMPARE(window.folder.read(QStringLiteral("Table.ini")).count("Fwidth="), 1);
    QVERIFY(window.folder.read(QStringLiteral("Table.ini")).contains("\r\nFwidth=10\r\n"));
}

void TestFrmTable::saveRefused()
{
    Designer window;
    window.doors.cancelInputBox();
    click(window.tool->Command7);
    window.doors.answerInputBox(QString());
    click(window.tool->Command7);
    QVERIFY(!window.folder.has(QStringLiteral("Table.ini")));
    QVERIFY(!window.folder.has(QStringLiteral("Table2.ini")));
    window.saveSet("Blue");
    const QByteArray before = window.folder.read(QStringLiteral("Table.ini"));
    window.tool->TxWid->setText(QStringLiteral("9"));
    window.doors.answerInputBox(QStringLiteral("Blue"));
    window.doors.answerMsgBox(MsgAnswer::No);
    click(window.tool->Command7);
    QCOMPARE(window.folder.read(QStringLiteral("Table.ini")), before);
}

void TestFrmTable::titlesAreKept()
{
    Designer window;
    window.saveSet("a]b=c");
    window.saveSet("red, blue");
    window.reopen();
    QCOMPARE(entries(*window.tool->Combo1),
             (QStringList{QStringLiteral("a]b=c"), QStringLiteral("red"), QStringLiteral("blue")}));
    window.folder.write(QStringLiteral("Table.ini"),
                        window.folder.read(QStringLiteral("Table.ini")).replace("Fwidth=0", "Fwidth=44"));
    choose(window.tool->Combo1, 0);
    QCOMPARE(window.tool->TxWid->text(), QStringLiteral("44"));
}

void TestFrmTable::loads()
{
    Designer window;
    window.openWithSets("[other]\r\nFwidth=1\r\n\r\n[Blue]\r\n" + Set, "other\r\nBlue\r\n");
    FrmTable& t = *window.tool;
    window.add("a");
    choose(t.Combo1, 1);
    QCOMPARE(t.Combo1->Text(), QStringLiteral("Blue"));
    QCOMPARE(t.BColor1->BackColor(), 1);
    QCOMPARE(t.TbColor1->BackColor(), 2);
    QCOMPARE(t.TbColor2->BackColor(), 8);
    QCOMPARE(t.FColor1->BackColor(), 9);
    QCOMPARE(t.RedA->Value(), 1);
    QCOMPARE(t.RedI->Value(), 8);
    QCOMPARE(t.BlueI->Value(), 0);
    QCOMPARE(t.fontColor, QStringLiteral("#090000"));
    const QList<std::pair<const QLineEdit*, const char*>> boxes = {
        {t.Combo2, "3"},  {t.Combo4, "4"}, {t.Combo3, "5"}, {t.Combo8, "6%"},
        {t.Combo9, "7%"}, {t.TxHei, "10"}, {t.TxWid, "11"}};
    for (const auto& [box, text] : boxes)
        QCOMPARE(box->text(), QLatin1String(text));
    QVERIFY(t.Option6->Value());
    QVERIFY(t.Option2->Value());
    QCOMPARE(t.Combo7->Text(), QStringLiteral("Courier"));
    QCOMPARE(t.Combo6->Text(), QStringLiteral("14"));
    QCOMPARE(t.chkBold->Value(), 1);
    QCOMPARE(t.chkItalic->Value(), 0);
    QCOMPARE(t.chkUnderline->Value(), 1);
    QCOMPARE(t.firstColor, QStringLiteral("#112233"));
    QCOMPARE(t.secondColor, QStringLiteral("#445566"));
    QCOMPARE(t.Check1->Value(), 0);
    QCOMPARE(t.ChkNoB->Value(), 0);
    QVERIFY(!t.RedA->isEnabled());
    QVERIFY(isLoaded<FrmAutoColor>());
    QVERIFY(!form<FrmAutoColor>()->isVisible());
    QCOMPARE(form<FrmAutoColor>()->BColor1->BackColor(), 0x332211);
    QCOMPARE(form<FrmAutoColor>()->GreenA->Value(), 0x22);
    QCOMPARE(form<FrmAutoColor>()->TbColor1->BackColor(), 0x665544);
    QCOMPARE(form<FrmAutoColor>()->BlueH->Value(), 0x66);
    QCOMPARE(t.leftCells.at(0),
             QStringLiteral("<TD bgcolor=#080000 colSpan=2 width=11 height=10 align=Center><b><u>"
                            "<Font face=Courier size=4 color=#090000>a"));
    QVERIFY(t.html.startsWith(QStringLiteral("<BODY>\r\n<TABLE width=7% height=6% align=Right cellspacing=4 "
                                             "cellpadding=5 border=3 bgcolor=#020000>\r\n")));
}

void TestFrmTable::loadsTwoColors()
{
    Designer window;
    window.openWithSets("[Blue]\r\n" + QByteArray(Set).replace("Check1=0", "Check1=1"), "Blue\r\n");
    FrmTable& t = *window.tool;
    window.add("a");
    window.add("b");
    choose(t.Combo1, 0);
    QCOMPARE(t.Check1->Value(), 1);
    QVERIFY(!form<FrmAutoColor>()->isVisible());
    QVERIFY(!t.RedI->isEnabled());
    QVERIFY(t.leftCells.at(0).startsWith(QStringLiteral("<TD bgcolor=#112233 ")));
    QVERIFY(t.leftCells.at(1).startsWith(QStringLiteral("<TD bgcolor=#445566 ")));
}

void TestFrmTable::loadsWithoutRows()
{
    Designer window;
    window.saveSet("Blue");
    window.tool->html.clear();
    choose(window.tool->Combo1, 0);
    QCOMPARE(window.tool->html, Head + End);
}

void TestFrmTable::loadsWhatIsDamaged_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char* value : {"", "x", "-1", "2", "16777216", "2147483647", "2147483648", "1e400", "#"})
        QTest::addRow("[%s]", value) << QByteArray(value);
}

/// A set is only a look: whatever stands in it, the designer goes on.
void TestFrmTable::loadsWhatIsDamaged()
{
    QFETCH(QByteArray, value);
    Designer window;
    const QList<QByteArray> lines = QByteArray(Set).trimmed().split('\n');
    QByteArray sets;
    QByteArray titles;
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines.at(i).trimmed();
        const QByteArray title = "set" + QByteArray::number(i);
        sets +=
            "[" + title + "]\r\n" + QByteArray(Set).replace(line, line.first(line.indexOf('=') + 1) + value);
        titles += title + "\r\n";
    }
    window.openWithSets(sets, titles);
    for (int i = 0; i < lines.size(); ++i) {
        choose(window.tool->Combo1, i);
        QVERIFY2(!window.doors.ended, lines.at(i).constData());
        QVERIFY(window.tool->isVisible());
    }
    QCOMPARE(window.doors.takeAsked(), QStringList());
}

/// A title of which the file knows nothing.
void TestFrmTable::loadsWhatIsMissing()
{
    Designer window;
    window.openWithSets("", "gone\r\n");
    FrmTable& t = *window.tool;
    click(t.Option6);
    click(t.chkBold);
    choose(t.Combo1, 0);
    QCOMPARE(t.TbColor2->BackColor(), 0);
    QCOMPARE(t.TxWid->text(), QString());
    QCOMPARE(t.Combo7->Text(), QString());
    QVERIFY(t.Option6->Value()); // stays
    QCOMPARE(t.chkBold->Value(), 0);
    QCOMPARE(t.ChkNoB->Value(), 0);
    QCOMPARE(t.firstColor, QString());
    QVERIFY(isLoaded<FrmTable>());
}

void TestFrmTable::loadsNumbersThatAreNone()
{
    Designer window;
    window.openWithSets("[x]\r\nBorde=abc\r\nBGC=99999999999\r\nBold=yes\r\n"
                        "Italic=7\r\nCheck1=-1\r\nFwidth=5\r\nTLCR=left\r\nCell=255",
                        "x\r\n");
    FrmTable& t = *window.tool;
    choose(t.Combo1, 0);
    QCOMPARE(t.BColor1->BackColor(), 0);
    QCOMPARE(t.TbColor1->BackColor(), 0);
    QCOMPARE(t.TbColor2->BackColor(), 255);
    QCOMPARE(t.chkBold->Value() + t.chkItalic->Value() + t.Check1->Value(), 0);
    QCOMPARE(t.TxWid->text(), QStringLiteral("5"));
    QVERIFY(t.Option4->Value());
}

void TestFrmTable::loadOfTheSameTitle()
{
    Designer window;
    window.saveSet("Blue");
    window.tool->TxWid->setText(QStringLiteral("8"));
    choose(window.tool->Combo1, 0);
    QCOMPARE(window.tool->TxWid->text(), QStringLiteral("0"));
    window.tool->TxWid->setText(QStringLiteral("9"));
    choose(window.tool->Combo1, 0);
    QCOMPARE(window.tool->TxWid->text(), QStringLiteral("0"));
}

void TestFrmTable::barsStayAfterALoad()
{
    Designer window;
    window.saveSet("Blue");
    window.tool->HScroll6->setValue(5);
    choose(window.tool->Combo1, 0);
    QCOMPARE(window.tool->TxWid->text(), QStringLiteral("0"));
    QCOMPARE(window.tool->HScroll6->Value(), 5);
    step(window.tool->HScroll6);
    QCOMPARE(window.tool->TxWid->text(), QStringLiteral("6"));
}

// ---- The sample

void TestFrmTable::sampleShowsTheTable()
{
    const Designer window;
    window.add("Weight", "2 lb");
    window.add("Shipping");
    QTRY_COMPARE(window.ask("document.querySelectorAll('tr').length"), QStringLiteral("2"));
    QCOMPARE(window.ask("document.querySelectorAll('td')[2].colSpan"), QStringLiteral("2"));
    QCOMPARE(window.ask("document.querySelectorAll('td')[1].textContent.trim()"), QStringLiteral("2 lb"));
    QCOMPARE(window.tool->WebBrowser1->designMode(), DesignMode::Off);
    dragToEnd(window.tool->RedG);
    QTRY_COMPARE(window.ask("document.querySelector('font').color"), QStringLiteral("#FF0000"));
    release(window.tool->RedG);
}

void TestFrmTable::manyRows()
{
    const Designer window;
    FrmTable& t = *window.tool;
    for (int i = 0; i < 10000; ++i) {
        t.List1->AddItem(QString::number(i));
        t.List2->AddItem(i % 2 ? QStringLiteral("x") : QString());
    }
    click(t.Option5);
    QCOMPARE(t.leftCells.size(), 10000);
    QCOMPARE(t.html.count(QStringLiteral("<TR>")), 10000);
    QCOMPARE(t.html.count(QStringLiteral("colSpan=2")), 5000);
}

WEB_TEST_MAIN(TestFrmTable)
#include "tst_frmtable.moc"
