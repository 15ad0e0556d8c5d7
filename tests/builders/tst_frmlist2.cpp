// SPDX-License-Identifier: GPL-3.0-or-later

#include "ListTool.h"
#include "WebTestMain.h"
#include "builders/FrmChar.h"
#include "builders/FrmList2.h"
#include "colour/ColorSample.h"
#include "shell/ScreenFonts.h"

#include <QAccessible>
#include <QFontDatabase>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

using namespace brindlemark;

namespace {

const QString Symbol = QStringLiteral("&nbsp;<FONT face=Webdings size=3 color=#000000>4</FONT>");
const QString Font = QStringLiteral("<FONT face=Arial size=3 color=#000000>");

QString line(const char* word)
{
    return Symbol + Font + QStringLiteral("&nbsp;") + QLatin1String(word) +
           QStringLiteral("&nbsp;</FONT><BR>\r\n");
}

class List : public ListTool<FrmList2>
{
public:
    List()
        : ListTool({
              .add = &FrmList2::Command3,
              .clear = &FrmList2::Command2,
              .toEditor = &FrmList2::Command12,
              .copy = &FrmList2::Command18,
              .cancel = &FrmList2::Command13,
              .font = &FrmList2::Command15,
              .clearQuestion =
                  QStringLiteral("MsgBox|Clear list|Do you sure you wish clear list ?|Question|NoYes"),
              .cancelQuestion =
                  QStringLiteral("MsgBox|Information|Are you sure you wish cancel it ?|Information|YesNo"),
          })
    {
    }
    /// Opens the character window with its button.
    FrmChar* openCharacters() const
    {
        click(tool->Command1);
        if (!QTest::qWaitForWindowActive(form<FrmChar>()))
            QTest::qFail("the characters do not come up", __FILE__, __LINE__);
        return form<FrmChar>();
    }
    static void clickCell(FrmChar* window, int cell)
    {
        QTest::mouseClick(window->CharC, Qt::LeftButton, {}, window->CharC->cellRect(cell).center());
    }
    static void hover(FrmChar* window, int cell)
    {
        const QPoint place = window->CharC->cellRect(cell).center();
        // Without a display the pointer belongs to no window unless a button is pressed.
        QMouseEvent move(QEvent::MouseMove, place, window->CharC->mapToGlobal(place), Qt::NoButton, {}, {});
        QCoreApplication::sendEvent(window->CharC, &move);
    }
    static QImage cellImage(FrmChar* window, int cell)
    {
        return window->CharC->grab(window->CharC->cellRect(cell)).toImage();
    }
    static QColor cellColor(FrmChar* window, int cell) { return cellImage(window, cell).pixelColor(3, 3); }
};

} // namespace

class TestFrmList2 : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void adds();
    void emptyWord();
    void wordsAsTyped_data();
    void wordsAsTyped();
    void lookIsForAllLines();
    void sizes_data();
    void sizes();
    void symbolColor();
    void titleLine();
    void fonts();
    void fontsOfAnotherWindow_data();
    void fontsOfAnotherWindow();
    void fontsAfterTheListHasGone();
    void addToEditor();
    void titlesAreRemembered();
    void titleOfTheListIsChosen();
    void titleIsPicked();
    void emptyTitle();
    void copy();
    void emptyListDoesNothing();
    void clears();
    void clearLeavesTheTitle();
    void cancels();
    void closingBox();
    void lastWordIsInView();
    void missingFontIsTold();
    void missingWebdingsIsTold();
    void titlesFileIsAFolder();

    void characterTexts();
    void characterCodes();
    void picks();
    void viewFollowsThePointer();
    void markStays();
    void firstCell();
    void leftButtonMarks();
    void codesAsToolTips();
    void charactersByKeyboard();
    void keysEndAtTheEdges();
    void otherFont();
    void cellsHaveTheFont();
    void charactersCancelled();
    void otherCaption();
    void charactersAfterTheListHasGone();
    void windowsLeftOpen();
    void quickClicksOnNeighbours();
};

void TestFrmList2::texts()
{
    const List window;
    const FrmList2& t = *window.tool;
    QCOMPARE(t.windowTitle(), QStringLiteral("List Special Character Properties"));
    QCOMPARE(t.Frame4->title(), QStringLiteral("List Styles"));
    QCOMPARE(t.Frame1->title(), QStringLiteral("View"));
    QCOMPARE(t.Frame7->title(), QStringLiteral("View Sample"));
    QCOMPARE(t.LabV->text(), QStringLiteral("4"));
    QCOMPARE(t.LabV->font().family(), QStringLiteral("Webdings"));
    QCOMPARE(t.LabV->font().pointSize(), 12);
    compareCaptions({{t.Command1, "Pick Char", "Pick Special Character"},
                     {t.chkBold, "", "Bold"},
                     {t.Check1, "Check here for the Title"},
                     {t.Command3, "Add it", "Add it list"},
                     {t.Command2, "Clear list", "Clear lists"},
                     {t.Check3, "Close when select copy or add editor."},
                     {t.Command18, "Copy"},
                     {t.Command12, "Add to Editor"},
                     {t.Command13, "Cancel"}});
    QCOMPARE(t.Combo2->Text(), QStringLiteral("Normal"));
    QCOMPARE(entries(*t.Combo2).join(u' '), QStringLiteral("8 10 12 14 18 24 36 Normal"));
    QCOMPARE(t.Check1->Value(), 0);
    QVERIFY(!t.TxtTitle->isEnabled() && !t.Command17->isEnabled());
    QCOMPARE(t.WebBrowser1->designMode(), DesignMode::On);
    QCOMPARE(t.html, QString());
}

void TestFrmList2::adds()
{
    const List window;
    window.add("Visa");
    QCOMPARE(window.tool->html, line("Visa"));
    window.tool->Text1->setFocus();
    QTest::keyClicks(window.tool->Text1, QStringLiteral("b<"));
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.tool->html, line("Visa") + line("b<"));
    QCOMPARE(window.tool->Text1->text(), QString());
    QTRY_COMPARE(window.ask("document.querySelectorAll('br').length"), QStringLiteral("2"));
}

void TestFrmList2::emptyWord()
{
    const List window;
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.tool->List1->ListCount(), 0);
    click(window.tool->Command3);
    QCOMPARE(window.tool->List1->ListCount(), 1);
    QCOMPARE(window.tool->html, line(""));
}

void TestFrmList2::wordsAsTyped_data()
{
    List::words();
}

/// The title's too.
void TestFrmList2::wordsAsTyped()
{
    QFETCH(QString, word);
    const List window;
    window.tool->TxtTitle->setText(word);
    tick(window.tool->Check1);
    window.tool->Text1->setText(word);
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(entries(*window.tool->List1), QStringList{word});
    const QString text = QStringLiteral("&nbsp;") + word + QStringLiteral("&nbsp;</FONT><BR>\r\n");
    QCOMPARE(window.tool->html, Font + text + Symbol + Font + text);
}

void TestFrmList2::lookIsForAllLines()
{
    const List window;
    window.add("a");
    window.add("b");
    click(window.tool->chkBold);
    QCOMPARE(window.tool->html.count(
                 QStringLiteral("&nbsp;<B><FONT face=Webdings size=3 color=#000000>4</FONT></B>")),
             2);
    click(window.tool->chkBold);
    QCOMPARE(window.tool->html, line("a") + line("b"));
}

void TestFrmList2::sizes_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("points");
    const struct
    {
        const char* code;
        int points;
    } sizes[] = {{"1", 8}, {"2", 10}, {"3", 12}, {"4", 14}, {"5", 18}, {"6", 24}, {"7", 36}, {"3", 12}};
    for (int i = 0; i < 8; ++i)
        QTest::addRow("%d", i) << i << sizes[i].code << sizes[i].points;
}

void TestFrmList2::sizes()
{
    QFETCH(int, entry);
    QFETCH(QString, code);
    QFETCH(int, points);
    const List window;
    window.add("a");
    choose(window.tool->Combo2, entry);
    QVERIFY(window.tool->html.contains(QStringLiteral("face=Webdings size=%1 color").arg(code)));
    QCOMPARE(window.tool->LabV->font().pointSize(), points);
    QCOMPARE(window.tool->ReplaceSize(*window.tool->Combo2), code);
}

void TestFrmList2::symbolColor()
{
    List window;
    window.add("a");
    window.add("b");
    step(window.tool->RedA);
    QCOMPARE(window.tool->html.count(QStringLiteral("face=Webdings size=3 color=#010000>")), 2);
    dragToEnd(window.tool->BlueA);
    QVERIFY(window.tool->html.contains(QStringLiteral("face=Webdings size=3 color=#0100FF>")));
    QCOMPARE(window.tool->LabV->palette().color(QPalette::WindowText), QColor(1, 0, 255));
    release(window.tool->BlueA);
    window.doors.answerColor(0x112233);
    click(window.tool->Lcolor1);
    QVERIFY(window.tool->html.contains(QStringLiteral("face=Webdings size=3 color=#332211>")));
    QCOMPARE(window.tool->GetHexColor(0x112233), QStringLiteral("#332211"));
    QVERIFY(window.tool->html.contains(Font)); // the words keep theirs
}

void TestFrmList2::titleLine()
{
    const List window;
    window.add("a");
    tick(window.tool->Check1);
    QVERIFY(window.tool->TxtTitle->isEnabled() && window.tool->Command17->isEnabled());
    QCOMPARE(window.tool->html, Font + QStringLiteral("&nbsp;&nbsp;</FONT><BR>\r\n") + line("a"));
    QTest::keyClicks(window.tool->TxtTitle->lineEdit(), QStringLiteral("Pay"));
    QCOMPARE(window.tool->html, Font + QStringLiteral("&nbsp;Pay&nbsp;</FONT><BR>\r\n") + line("a"));
    tick(window.tool->Check1);
    QCOMPARE(window.tool->html, line("a"));
    QVERIFY(!window.tool->TxtTitle->isEnabled() && !window.tool->Command17->isEnabled());
}

void TestFrmList2::fonts()
{
    const List window;
    window.add("a");
    tick(window.tool->Check1);
    click(window.tool->Command15);
    QCOMPARE(form<FrmFonts>()->windowTitle(), QStringLiteral("List Special Character Font"));
    form<FrmFonts>()->Combo1->setText(QStringLiteral("X"));
    click(form<FrmFonts>()->chkItalic);
    click(form<FrmFonts>()->Command1);
    const QString words =
        QStringLiteral("<I><FONT face=X size=3 color=#000000>&nbsp;a&nbsp;</FONT></I><BR>\r\n");
    QCOMPARE(window.tool->html, Font + QStringLiteral("&nbsp;&nbsp;</FONT><BR>\r\n") + Symbol + words);
    click(window.tool->Command17);
    QCOMPARE(form<FrmFonts>()->windowTitle(), QStringLiteral("List Special Character Title Font"));
    form<FrmFonts>()->Combo2->setText(QStringLiteral("24"));
    click(form<FrmFonts>()->Command1);
    QCOMPARE(window.tool->html,
             QStringLiteral("<FONT face=Arial size=6 color=#000000>&nbsp;&nbsp;</FONT><BR>\r\n") + Symbol +
                 words);
    click(window.tool->Command15);
    form<FrmFonts>()->Combo1->setText(QStringLiteral("Y"));
    window.tool->html = QStringLiteral("not made anew");
    click(form<FrmFonts>()->Command2);
    QCOMPARE(window.tool->html, QStringLiteral("not made anew"));
}

void TestFrmList2::fontsOfAnotherWindow_data()
{
    QTest::addColumn<QString>("caption");
    QTest::newRow("nobody's") << "Font";
    QTest::newRow("the other list builder's") << "List Properties Font";
    QTest::newRow("this list's own") << "List Special Character Properties";
    QTest::newRow("in small letters") << "list special character font";
}

/// The caption tells whose fonts are chosen, to the letter.
void TestFrmList2::fontsOfAnotherWindow()
{
    QFETCH(QString, caption);
    const List window;
    window.add("a");
    tick(window.tool->Check1);
    const QString before = Font + QStringLiteral("&nbsp;&nbsp;</FONT><BR>\r\n") + line("a");
    click(window.tool->Command15);
    form<FrmFonts>()->setWindowTitle(caption);
    form<FrmFonts>()->Combo1->setText(QStringLiteral("X"));
    click(form<FrmFonts>()->Command1);
    QVERIFY(!isLoaded<FrmFonts>());
    QCOMPARE(window.tool->html, before);
    window.add("b"); // makes the list anew
    QCOMPARE(window.tool->html, before + line("b"));
}

void TestFrmList2::fontsAfterTheListHasGone()
{
    List window;
    window.goesBeforeItsFonts();
}

void TestFrmList2::addToEditor()
{
    List window;
    window.add("a");
    window.addsInPlaceOfTheSelection(line("a"));
    QVERIFY(isLoaded<FrmList2>());
}

void TestFrmList2::titlesAreRemembered()
{
    List window;
    window.folder.write(QStringLiteral("list2.ini"), "I accept\r\n");
    window.reopen();
    QCOMPARE(window.tool->TxtTitle->Text(), QString());
    window.add("a");
    window.tool->TxtTitle->setText(QStringLiteral("i accept")); // another one; the box needn't be ticked
    click(window.tool->Command12);
    QCOMPARE(window.folder.read(QStringLiteral("list2.ini")), QByteArray("I accept\r\ni accept\r\n"));
    QCOMPARE(window.tool->TxtTitle->ListIndex(), 1);
    window.tool->TxtTitle->setText(QStringLiteral("I accept"));
    click(window.tool->Command12);
    QCOMPARE(window.folder.read(QStringLiteral("list2.ini")), QByteArray("I accept\r\ni accept\r\n"));
    QCOMPARE(window.tool->TxtTitle->ListIndex(), 0);
}

/// The one that reads exactly so; the list stays as it is, and its file.
void TestFrmList2::titleOfTheListIsChosen()
{
    List window;
    window.folder.write(QStringLiteral("list2.ini"), "We ship\r\nwe\r\nWe\r\n");
    window.reopen();
    window.add("a");
    tick(window.tool->Check1);
    overtype(window.tool->TxtTitle->lineEdit(), QStringLiteral("We"));
    QCOMPARE(window.tool->TxtTitle->ListIndex(), -1); // typing picks none
    window.folder.write(QStringLiteral("list2.ini"), "untouched");
    click(window.tool->Command12);
    QCOMPARE(window.tool->TxtTitle->ListIndex(), 2);
    QCOMPARE(window.folder.read(QStringLiteral("list2.ini")), QByteArray("untouched"));
}

void TestFrmList2::titleIsPicked()
{
    List window;
    window.folder.write(QStringLiteral("list2.ini"), "We ship\r\nWe\r\n");
    window.reopen();
    window.add("a");
    tick(window.tool->Check1);
    choose(window.tool->TxtTitle, 1);
    QCOMPARE(window.tool->html, Font + QStringLiteral("&nbsp;We&nbsp;</FONT><BR>\r\n") + line("a"));
}

void TestFrmList2::emptyTitle()
{
    const List window;
    window.add("a");
    tick(window.tool->Check1);
    click(window.tool->Command12);
    QCOMPARE(window.source(), (Font + QStringLiteral("&nbsp;&nbsp;</FONT><BR>\r\n") + line("a")).toUtf8());
    QVERIFY(window.folder.has(QStringLiteral("list2.ini"))); // without an entry
    QCOMPARE(window.folder.read(QStringLiteral("list2.ini")), QByteArray());
}

void TestFrmList2::copy()
{
    const List window;
    window.add("a");
    window.tool->TxtTitle->setText(QStringLiteral("Pay"));
    click(window.tool->Command18);
    QCOMPARE(Clipboard::GetText(), line("a"));
    QVERIFY(!window.folder.has(QStringLiteral("list2.ini")));
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmList2::emptyListDoesNothing()
{
    const List window;
    Clipboard::SetText(QStringLiteral("mine"));
    for (QPushButton* button : {window.tool->Command12, window.tool->Command18, window.tool->Command2})
        click(button);
    QCOMPARE(Clipboard::GetText(), QStringLiteral("mine"));
    QCOMPARE(window.source(), QByteArray());
    QVERIFY(!window.folder.has(QStringLiteral("list2.ini")));
}

void TestFrmList2::clears()
{
    List window;
    window.asksBeforeItClears();
}

/// Out of sight until the next word.
void TestFrmList2::clearLeavesTheTitle()
{
    List window;
    tick(window.tool->Check1);
    QTest::keyClicks(window.tool->TxtTitle->lineEdit(), QStringLiteral("Pay"));
    window.asksBeforeItClears();
    QCOMPARE(window.tool->Check1->Value(), 1);
    QCOMPARE(window.tool->TxtTitle->Text(), QStringLiteral("Pay"));
    window.add("b");
    QCOMPARE(window.tool->html, Font + QStringLiteral("&nbsp;Pay&nbsp;</FONT><BR>\r\n") + line("b"));
}

void TestFrmList2::cancels()
{
    List window;
    window.asksBeforeItGoes();
}

void TestFrmList2::closingBox()
{
    List window;
    window.closesByItsBox("[Listpro]\r\nchk4=0\r\nchk3=1\r\n");
}

void TestFrmList2::lastWordIsInView()
{
    const List window;
    window.showsTheLastWord();
}

void TestFrmList2::missingFontIsTold()
{
    const List window;
    const auto take = [&](const QString& family) {
        FrmChar* c = window.openCharacters();
        choose(c->Combo1, c->Combo1->findText(family));
        QString told = c->Notice->isVisible() ? c->Notice->text() : QString();
        click(c->Command1);
        return told;
    };
    FrmChar* c = window.openCharacters();
    c->Combo1->AddItem(QStringLiteral("No Such Font"));
    const QString told = QStringLiteral(
        "The font \"No Such Font\" is not on this computer: what you see here is an approximation.");
    QCOMPARE(take(QStringLiteral("No Such Font")), told);
    QVERIFY(window.tool->Notice->isVisible());
    QCOMPARE(window.tool->Notice->text(), told);
    QCOMPARE(take(QStringLiteral("Liberation Mono")), QString());
    QVERIFY(!window.tool->Notice->isVisible());
}

void TestFrmList2::missingWebdingsIsTold()
{
    if (QFontDatabase::hasFamily(QStringLiteral("Webdings")))
        QSKIP("Webdings is on this computer");
    const List window;
    QVERIFY(window.tool->Notice->isVisible());
    QCOMPARE(window.tool->Notice->text(),
             QStringLiteral(
                 "The font \"Webdings\" is not on this computer: what you see here is an approximation."));
}

void TestFrmList2::titlesFileIsAFolder()
{
    const MainWindow window;
    QDir(window.folder.path(QString())).mkpath(QStringLiteral("list2.ini"));
    QCOMPARE(form<FrmList2>()->TxtTitle->ListCount(), 0);
}

// ---- The character window

void TestFrmList2::characterTexts()
{
    const List window;
    const FrmChar* c = window.openCharacters();
    QCOMPARE(c->windowTitle(), QStringLiteral("List Properties Character"));
    QCOMPARE(c->Frame1->title(), QStringLiteral("View"));
    QCOMPARE(c->Combo1->Text(), QStringLiteral("Webdings"));
    QCOMPARE(c->LabV->font().family(), QStringLiteral("Webdings"));
    QCOMPARE(plain(c->Command1), QStringLiteral("OK"));
    QCOMPARE(plain(c->Command2), QStringLiteral("Cancel"));
    QCOMPARE(c->Combo1->ListCount(), int(fontNames(QFontDatabase::families(), 1).size()));
    const MainWindow other;
    QCOMPARE(FrmChar().windowTitle(), QStringLiteral("Special Characters"));
}

void TestFrmList2::characterCodes()
{
    QCOMPARE(CharMap::text(0), QStringLiteral("A"));
    QCOMPARE(CharMap::text(65), QStringLiteral("A"));
    QCOMPARE(CharMap::text(1), QString(QChar(1)));
    QCOMPARE(CharMap::text(128), QStringLiteral("\u20AC"));
    QCOMPARE(CharMap::text(150), QStringLiteral("\u2013"));
    QCOMPARE(CharMap::text(255), QStringLiteral("\u00FF"));
    const List window;
    const FrmChar* c = window.openCharacters();
    for (int i = 0; i < CharMap::Count; ++i) { // 20 in a row, 13 rows
        QCOMPARE(c->CharC->cellRect(i).x() / c->CharC->cellRect(1).x(), i % 20);
        QCOMPARE(c->CharC->cellRect(i).y() / c->CharC->cellRect(20).y(), i / 20);
    }
}

void TestFrmList2::picks()
{
    const List window;
    window.add("a");
    FrmChar* c = window.openCharacters();
    List::clickCell(c, 252);
    QCOMPARE(c->LabV->text(), QStringLiteral("\u00FC"));
    QCOMPARE(c->Code->text(), QStringLiteral("Code 252"));
    click(c->Command1);
    QVERIFY(isLoaded<FrmChar>() && !c->isVisible());
    QCOMPARE(window.tool->LabV->text(), QStringLiteral("\u00FC"));
    QVERIFY(
        window.tool->html.contains(QStringLiteral("<FONT face=Webdings size=3 color=#000000>\u00FC</FONT>")));
    window.openCharacters();
    QCOMPARE(c->CharC->marked(), 252); // as it was left
}

void TestFrmList2::viewFollowsThePointer()
{
    const List window;
    FrmChar* c = window.openCharacters();
    for (const int cell : {66, 67, 240}) {
        List::hover(c, cell);
        QCOMPARE(c->LabV->text(), CharMap::text(cell));
    }
}

void TestFrmList2::markStays()
{
    const List window;
    FrmChar* c = window.openCharacters();
    const QColor face = c->palette().color(QPalette::Button);
    List::clickCell(c, 66);
    QCOMPARE(List::cellColor(c, 66), QColor(Qt::yellow));
    QCOMPARE(List::cellColor(c, 67), face);
    List::hover(c, 67);
    QCOMPARE(c->LabV->text(), QStringLiteral("B"));
    List::clickCell(c, 67);
    QCOMPARE(List::cellColor(c, 66), face);
    QCOMPARE(List::cellColor(c, 67), QColor(Qt::yellow));
    QTest::mouseDClick(c->CharC, Qt::LeftButton, {}, c->CharC->cellRect(67).center());
    QCOMPARE(c->CharC->marked(), -1);
    QCOMPARE(List::cellColor(c, 67), face);
    List::hover(c, 68);
    QCOMPARE(c->LabV->text(), QStringLiteral("D"));
}

/// A mark on it stays, and counts for nothing. It takes the others' mark away.
void TestFrmList2::firstCell()
{
    const List window;
    FrmChar* c = window.openCharacters();
    List::clickCell(c, 66);
    List::clickCell(c, 0);
    QCOMPARE(c->CharC->marked(), -1);
    QVERIFY(!QAccessible::queryAccessibleInterface(c->CharC)->child(0)->state().selected);
    QCOMPARE(List::cellColor(c, 0), QColor(Qt::yellow));
    QCOMPARE(List::cellColor(c, 66), c->palette().color(QPalette::Button));
    List::hover(c, 70);
    QCOMPARE(c->LabV->text(), QStringLiteral("F"));
    List::clickCell(c, 70);
    QCOMPARE(List::cellColor(c, 0), QColor(Qt::yellow));
}

void TestFrmList2::leftButtonMarks()
{
    const List window;
    const FrmChar* c = window.openCharacters();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseClick(c->CharC, button, {}, c->CharC->cellRect(66).center());
    QCOMPARE(c->CharC->marked(), -1);
}

void TestFrmList2::codesAsToolTips()
{
    const List window;
    const FrmChar* c = window.openCharacters();
    const auto toolTip = [&](int cell) {
        const QPoint place = c->CharC->cellRect(cell).center();
        QHelpEvent rest(QEvent::ToolTip, place, c->CharC->mapToGlobal(place));
        QCoreApplication::sendEvent(c->CharC, &rest);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    QCOMPARE(toolTip(1), QStringLiteral("1"));
    QCOMPARE(toolTip(255), QStringLiteral("255"));
    toolTip(0);
    QTRY_VERIFY(!QToolTip::isVisible()); // the first has none
}

void TestFrmList2::charactersByKeyboard()
{
    const List window;
    FrmChar* c = window.openCharacters();
    QCOMPARE(c->focusWidget(), c->CharC);
    QTest::keyClick(c->CharC, Qt::Key_Home);
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Up})
        QTest::keyClick(c->CharC, key);
    QCOMPARE(c->LabV->text(), QStringLiteral("*")); // code 42
    QCOMPARE(c->Code->text(), QStringLiteral("Code 42"));
    QCOMPARE(c->CharC->accessibleDescription(), QStringLiteral("Code 42"));
    QTest::keyClick(c->CharC, Qt::Key_Space);
    QCOMPARE(c->CharC->marked(), 42);
    QTest::keyClick(c->CharC, Qt::Key_Right);
    QCOMPARE(c->LabV->text(), QStringLiteral("*"));
    QTest::keyClick(c->CharC, Qt::Key_Left);
    QTest::keyClick(c->CharC, Qt::Key_Space);
    QCOMPARE(c->CharC->marked(), -1); // once more takes it away
    QTest::keyClick(c->CharC, Qt::Key_Return);
    QVERIFY(!c->isVisible());
    QCOMPARE(window.tool->LabV->text(), QStringLiteral("*"));
}

void TestFrmList2::keysEndAtTheEdges()
{
    const List window;
    const FrmChar* c = window.openCharacters();
    const QList<std::pair<Qt::Key, int>> steps = {
        {Qt::Key_End, 255}, {Qt::Key_Right, 255}, {Qt::Key_Down, 255}, {Qt::Key_Up, 235}, {Qt::Key_Down, 255},
        {Qt::Key_Home, 1},  {Qt::Key_Up, 1},      {Qt::Key_Left, 0},   {Qt::Key_Left, 0}};
    for (const auto& [key, cell] : steps) {
        QTest::keyClick(c->CharC, key);
        QCOMPARE(c->CharC->current(), cell);
        QCOMPARE(c->Code->text(), QStringLiteral("Code %1").arg(cell));
    }
}

void TestFrmList2::otherFont()
{
    const List window;
    window.add("a");
    FrmChar* c = window.openCharacters();
    const QString family = QStringLiteral("DejaVu Sans");
    choose(c->Combo1, c->Combo1->findText(family));
    QCOMPARE(c->LabV->font().family(), family);
    QVERIFY(!c->Notice->isVisible());
    List::clickCell(c, 88);
    click(c->Command1);
    QVERIFY(window.tool->html.contains(
        QStringLiteral("<FONT face=%1 size=3 color=#000000>X</FONT>").arg(family)));
    QCOMPARE(window.tool->LabV->font().family(), family);
}

/// All but the first.
void TestFrmList2::cellsHaveTheFont()
{
    const List window;
    FrmChar* c = window.openCharacters();
    QList<QImage> first;
    QList<QImage> others;
    for (const char* family : {"Liberation Mono", "Liberation Serif"}) {
        choose(c->Combo1, c->Combo1->findText(QLatin1String(family)));
        first << List::cellImage(c, 0);
        others << List::cellImage(c, 66);
    }
    QCOMPARE(first.at(0), first.at(1));
    QVERIFY(others.at(0) != others.at(1));
}

void TestFrmList2::charactersCancelled()
{
    const List window;
    FrmChar* c = window.openCharacters();
    List::clickCell(c, 88);
    QTest::keyClick(c, Qt::Key_Escape);
    QVERIFY(!isLoaded<FrmChar>());
    QCOMPARE(window.tool->LabV->text(), QStringLiteral("4"));
}

void TestFrmList2::otherCaption()
{
    const List window;
    FrmChar* c = window.openCharacters();
    c->setWindowTitle(QStringLiteral("Special Characters"));
    List::clickCell(c, 88);
    click(c->Command1);
    QVERIFY(!c->isVisible());
    QCOMPARE(window.tool->LabV->text(), QStringLiteral("4"));
}

void TestFrmList2::windowsLeftOpen()
{
    List window;
    FrmChar* c = window.openCharacters();
    click(window.tool->Command15);
    window.tool->Unload();
    window.show();
    window.add("a");
    List::clickCell(c, 88);
    click(c->Command1);
    QCOMPARE(window.tool->LabV->text(), QStringLiteral("X"));
    form<FrmFonts>()->Combo1->setText(QStringLiteral("Y"));
    click(form<FrmFonts>()->Command1);
    QVERIFY(window.tool->html.contains(QStringLiteral("<FONT face=Y size=3 color=#000000>&nbsp;a")));
}

/// Two clicks on neighbours are no double click.
void TestFrmList2::quickClicksOnNeighbours()
{
    const List window;
    FrmChar* c = window.openCharacters();
    List::clickCell(c, 66);
    QTest::mouseDClick(c->CharC, Qt::LeftButton, {}, c->CharC->cellRect(66).center());
    QCOMPARE(c->CharC->marked(), -1);
    List::clickCell(c, 66);
    const QPoint next = c->CharC->cellRect(67).center();
    QMouseEvent second(QEvent::MouseButtonDblClick, next, c->CharC->mapToGlobal(next), Qt::LeftButton,
                       Qt::LeftButton, {});
    QCoreApplication::sendEvent(c->CharC, &second);
    QCOMPARE(c->CharC->marked(), 67);
}

void TestFrmList2::charactersAfterTheListHasGone()
{
    const List window;
    FrmChar* c = window.openCharacters();
    window.tool->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    click(c->Command1);
    QVERIFY(!c->isVisible());
    QVERIFY(!isLoaded<FrmList2>());
}

WEB_TEST_MAIN(TestFrmList2)
#include "tst_frmlist2.moc"
