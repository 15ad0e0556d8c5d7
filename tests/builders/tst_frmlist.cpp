// SPDX-License-Identifier: GPL-3.0-or-later

#include "ListTool.h"
#include "WebTestMain.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmListChoose.h"
#include "colour/ColorSample.h"

using namespace brindlemark;

namespace {

const QString NoWord = QStringLiteral("MsgBox|Error|No word ?|Information|Ok");
const QString NoLists = QStringLiteral("MsgBox|Error|There no lists.|Information|Ok");
const QString Visa = QStringLiteral("<li><Font face=Arial size=3 color=#000000>Visa</Font>\r\n");
const QString End = QStringLiteral("</ul>\r\n</Font>\r\n");

class List : public ListTool<FrmList>
{
public:
    List()
        : ListTool({
              .add = &FrmList::Command1,
              .clear = &FrmList::Command2,
              .toEditor = &FrmList::Command6,
              .copy = &FrmList::Command22,
              .cancel = &FrmList::Command7,
              .font = &FrmList::Command21,
              .clearQuestion =
                  QStringLiteral("MsgBox|Clear list|Do you wish to clear the list ?|Question|NoYes"),
              .cancelQuestion = QStringLiteral("MsgBox|Information|You fill out lists, Are you sure you wish "
                                               "cancel it ?|Information|YesNo"),
          })
    {
    }
};

} // namespace

class TestFrmList : public QObject
{
    Q_OBJECT

private slots:
    void chooses();
    void choosesByKey_data();
    void choosesByKey();
    void texts();
    void adds();
    void enterAdds();
    void wordsAsTyped_data();
    void wordsAsTyped();
    void refusesNoWord();
    void kindsFollowAtOnce();
    void colorFollowsADrag();
    void colorByDialog();
    void fontOfTheNextWord();
    void fontOfAnotherWindow_data();
    void fontOfAnotherWindow();
    void fontAfterTheListHasGone();
    void fontsLeftOpen();
    void addToEditor();
    void copy();
    void nothingToGive();
    void clears();
    void cancels();
    void clicksSelectNothing();
    void closingBox();
    void lastWordIsInView();
    void thousandWords();
};

void TestFrmList::chooses()
{
    const MainWindow window;
    auto* choose = form<FrmListChoose>();
    choose->Show();
    QCOMPARE(plain(choose->Command1), QStringLiteral("List Properties"));
    QCOMPARE(plain(choose->Command2), QStringLiteral("List Special Character Properties"));
    QVERIFY(choose->Command1->isDefault() && !choose->Command2->isDefault());
    click(choose->Command1);
    QVERIFY(!isLoaded<FrmListChoose>());
    QVERIFY(form<FrmList>()->isVisible());
    form<FrmListChoose>()->Show();
    click(form<FrmListChoose>()->Command2);
    QVERIFY(!isLoaded<FrmListChoose>());
    QVERIFY(form<FrmList2>()->isVisible());
}

void TestFrmList::choosesByKey_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("opens");
    QTest::newRow("Enter") << Qt::Key_Return << true;
    QTest::newRow("Escape") << Qt::Key_Escape << false;
}

void TestFrmList::choosesByKey()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, opens);
    const MainWindow window;
    form<FrmListChoose>()->Show();
    QVERIFY(QTest::qWaitForWindowActive(form<FrmListChoose>(), Patience));
    QTest::keyClick(form<FrmListChoose>()->focusWidget() ? form<FrmListChoose>()->focusWidget()
                                                         : form<FrmListChoose>(),
                    key);
    QVERIFY(!isLoaded<FrmListChoose>());
    QCOMPARE(isLoaded<FrmList>(), opens);
    QVERIFY(!isLoaded<FrmList2>());
}

void TestFrmList::texts()
{
    const List window;
    const FrmList& t = *window.tool;
    QCOMPARE(t.windowTitle(), QStringLiteral("List Properties"));
    QCOMPARE(t.Frame4->title(), QStringLiteral("List Color"));
    QCOMPARE(t.Frame7->title(), QStringLiteral("View Sample"));
    compareCaptions({{t.Command1, "Add", "Add it list"},
                     {t.Command2, "Clear list", "Clear lists"},
                     {t.Command21, "", "Font color, size, name, bold, Italic and underline"},
                     {t.Check3, "Close when select copy or add editor."},
                     {t.Command22, "Copy"},
                     {t.Command6, "Add to Editor", "OK"},
                     {t.Command7, "Cancel"}});
    QVERIFY(!t.Command21->icon().isNull());
    QVERIFY(t.Option1->Value());
    QCOMPARE(t.listColor, QStringLiteral("#000000"));
    QCOMPARE(t.wordFont.name + t.wordFont.size + t.wordFont.color + t.wordFont.open + t.wordFont.close,
             QStringLiteral("Arial3#000000"));
    QCOMPARE(t.WebBrowser1->designMode(), DesignMode::Off);
    QCOMPARE(t.focusWidget(), t.Text1);
}

void TestFrmList::adds()
{
    const List window;
    window.add("Visa");
    QCOMPARE(window.tool->List1->List(0), QStringLiteral("Visa"));
    QCOMPARE(window.tool->Text1->text(), QString());
    QCOMPARE(window.copied(), QStringLiteral("<Font color=#000000><ul>\r\n") + Visa + End);
    QTRY_COMPARE(window.ask("document.querySelector('ul > li').textContent.trim()"), QStringLiteral("Visa"));
}

void TestFrmList::enterAdds()
{
    const List window;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClicks(window.tool->Text1, QStringLiteral("a"));
        QTest::keyClick(window.tool->Text1, key);
    }
    QCOMPARE(window.tool->List1->ListCount(), 2);
}

void TestFrmList::wordsAsTyped_data()
{
    List::words();
}

void TestFrmList::wordsAsTyped()
{
    QFETCH(QString, word);
    const List window;
    window.tool->Text1->setText(word);
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(entries(*window.tool->List1), QStringList{word});
    QCOMPARE(window.copied(), QStringLiteral("<Font color=#000000><ul>\r\n") +
                                  QString(Visa).replace(QStringLiteral("Visa"), word) + End);
}

void TestFrmList::refusesNoWord()
{
    List window;
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(window.tool->Command1);
    QCOMPARE(window.doors.takeAsked(), QStringList{NoWord});
    QCOMPARE(window.tool->focusWidget(), window.tool->Text1);
    window.doors.answerMsgBox(MsgAnswer::Ok);
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.doors.takeAsked(), QStringList{NoWord});
    QCOMPARE(window.tool->List1->ListCount(), 0);
}

void TestFrmList::kindsFollowAtOnce()
{
    const List window;
    window.add("Visa");
    window.add("Visa");
    click(window.tool->Option2);
    QCOMPARE(window.copied(), QStringLiteral("<Font color=#000000><ol>\r\n") + Visa + Visa + End);
    QTRY_COMPARE(window.ask("document.querySelectorAll('ol li').length"), QStringLiteral("2"));
    click(window.tool->Option6);
    QCOMPARE(window.copied(), QStringLiteral("<Font color=#000000><ul type=square>\r\n") + Visa + Visa + End);
    QTRY_COMPARE(window.ask("document.querySelector('ul').type"), QStringLiteral("square"));
    click(window.tool->Option1);
    QVERIFY(window.copied().startsWith(QStringLiteral("<Font color=#000000><ul>\r\n")));
}

/// An arrow waits for the next refresh; what is added to the page has it at once.
void TestFrmList::colorFollowsADrag()
{
    const List window;
    window.add("Visa");
    step(window.tool->RedA);
    QCOMPARE(window.tool->listColor, QStringLiteral("#010000"));
    QVERIFY(window.copied().startsWith(QStringLiteral("<Font color=#000000><ul>")));
    dragToEnd(window.tool->GreenA);
    QVERIFY(window.copied().startsWith(QStringLiteral("<Font color=#01FF00><ul>")));
    release(window.tool->GreenA);
    step(window.tool->BlueA);
    click(window.tool->Command6);
    QVERIFY(window.source().startsWith("<Font color=#01FF01><ul>\r\n"));
}

void TestFrmList::colorByDialog()
{
    List window;
    window.add("Visa");
    window.doors.answerColor(0x332211);
    click(window.tool->Lcolor1);
    QCOMPARE(window.doors.takeAsked(), QStringList{QStringLiteral("Color|0")});
    QCOMPARE(window.tool->listColor, QStringLiteral("#112233"));
    QCOMPARE(window.tool->GreenA->Value(), 0x22);
    QVERIFY(window.copied().startsWith(QStringLiteral("<Font color=#112233><ul>")));
    window.doors.cancelColor();
    click(window.tool->Lcolor1);
    QCOMPARE(window.tool->listColor, QStringLiteral("#112233"));
}

void TestFrmList::fontOfTheNextWord()
{
    const List window;
    window.add("Visa");
    click(window.tool->Command21);
    auto* fonts = form<FrmFonts>();
    QCOMPARE(fonts->windowTitle(), QStringLiteral("List Properties Font"));
    fonts->Combo1->setText(QStringLiteral("Comic Sans MS"));
    fonts->Combo2->setText(QStringLiteral("36"));
    click(fonts->chkBold);
    click(fonts->chkUnderline);
    fonts->RedG->setValue(255);
    step(window.tool->BlueA);
    click(fonts->Command1);
    QVERIFY(!isLoaded<FrmFonts>());
    // No refresh: the color waits for one.
    QCOMPARE(window.copied(), QStringLiteral("<Font color=#000000><ul>\r\n") + Visa + End);
    window.add("Visa");
    QCOMPARE(window.copied(),
             QStringLiteral("<Font color=#000001><ul>\r\n") + Visa +
                 QStringLiteral(
                     "<li><B><U><Font face=Comic Sans MS size=7 color=#FF0000>Visa</Font></B></U>\r\n") +
                 End);
    QTRY_COMPARE(window.ask("document.querySelectorAll('li b').length"), QStringLiteral("1"));
}

/// The caption alone says for whom a font is.
void TestFrmList::fontOfAnotherWindow_data()
{
    QTest::addColumn<QString>("caption");
    QTest::newRow("nobody's") << "Font";
    QTest::newRow("the other list builder's") << "List Special Character Font";
    QTest::newRow("in small letters") << "list properties font";
}

/// The caption tells whose font is chosen, to the letter.
void TestFrmList::fontOfAnotherWindow()
{
    QFETCH(QString, caption);
    const List window;
    click(window.tool->Command21);
    form<FrmFonts>()->setWindowTitle(caption);
    form<FrmFonts>()->Combo1->setText(QStringLiteral("X"));
    click(form<FrmFonts>()->Command1);
    QVERIFY(!isLoaded<FrmFonts>());
    QCOMPARE(window.tool->wordFont.name, QStringLiteral("Arial"));
}

void TestFrmList::fontAfterTheListHasGone()
{
    List window;
    window.goesBeforeItsFonts();
}

void TestFrmList::fontsLeftOpen()
{
    List window;
    click(window.tool->Command21);
    window.tool->Unload();
    window.show();
    form<FrmFonts>()->Combo1->setText(QStringLiteral("X"));
    click(form<FrmFonts>()->Command1);
    QCOMPARE(window.tool->wordFont.name, QStringLiteral("X"));
}

void TestFrmList::addToEditor()
{
    List window;
    window.add("Visa");
    window.addsInPlaceOfTheSelection(QStringLiteral("<Font color=#000000><ul>\r\n") + Visa + End);
    QVERIFY(isLoaded<FrmList>());
}

void TestFrmList::copy()
{
    const List window;
    window.add("Visa");
    Clipboard::SetText(QStringLiteral("mine"));
    QVERIFY(window.copied().endsWith(Visa + End));
    QCOMPARE(window.source(), QByteArray());
    QVERIFY(isLoaded<FrmList>());
}

void TestFrmList::nothingToGive()
{
    List window;
    for (QPushButton* button : {window.tool->Command6, window.tool->Command22}) {
        window.doors.answerMsgBox(MsgAnswer::Ok);
        click(button);
        QCOMPARE(window.doors.takeAsked(), QStringList{NoLists});
    }
    QVERIFY(isLoaded<FrmList>());
}

void TestFrmList::clears()
{
    List window;
    window.asksBeforeItClears();
    QCOMPARE(window.tool->items, QStringList());
    for (QPushButton* button : {window.tool->Command6, window.tool->Command22}) {
        window.doors.answerMsgBox(MsgAnswer::Ok);
        click(button);
        QCOMPARE(window.doors.takeAsked(), QStringList{NoLists});
    }
}

void TestFrmList::cancels()
{
    List window;
    window.asksBeforeItGoes();
}

void TestFrmList::clicksSelectNothing()
{
    const List window;
    window.add("Visa");
    ListBox* list = window.tool->List1;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        QTest::mouseClick(list->viewport(), button, {}, list->visualItemRect(list->item(0)).center());
        QCOMPARE(list->ListIndex(), -1);
        QCOMPARE(window.tool->Text1->text(), QString());
    }
    list->setListIndex(0);
    QTest::mouseClick(window.tool->Text1, Qt::RightButton); // asks for the menu alone
    QCOMPARE(list->ListIndex(), 0);
    QTest::mouseClick(window.tool->Text1, Qt::LeftButton);
    QCOMPARE(list->ListIndex(), -1);
}

void TestFrmList::closingBox()
{
    List window;
    window.closesByItsBox("[Listpro]\r\nchk4=1\r\nchk3=0\r\n");
    window.folder.write(QStringLiteral("web.ini"), "[Listpro]\r\n");
    window.reopen();
    QCOMPARE(window.tool->Check3->Value(), 0);
}

void TestFrmList::lastWordIsInView()
{
    const List window;
    window.showsTheLastWord();
}

void TestFrmList::thousandWords()
{
    const List window;
    for (int i = 0; i < 1000; ++i) {
        window.tool->Text1->setText(QString::number(i));
        click(window.tool->Command1);
    }
    QCOMPARE(window.copied().count(QStringLiteral("<li>")), 1000);
    QTRY_COMPARE(window.ask("document.querySelectorAll('li').length"), QStringLiteral("1000"));
}

WEB_TEST_MAIN(TestFrmList)
#include "tst_frmlist.moc"
