// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "shell/About.h"
#include "shell/Find.h"
#include "shell/FrmHelp.h"
#include "shell/FrmSplash.h"
#include "shell/FrmWord.h"
#include "shell/ScreenFonts.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFontDatabase>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>

using namespace brindlemark;

namespace {

const QString SaveQuestion =
    QStringLiteral("MsgBox|Brindlemark|Untitled - File has changed. Do you wish to save changes ?|"
                   "Information|YesNoCancel");

/// A complete section `Font`.
const QByteArray FontSection =
    "[Font]\r\nname=Liberation Mono\r\nsize=14\r\nbold=False\r\nitalic=False\r\nBG=65535\r\n";

/// `FontSection` with one line changed; an empty `with` takes it out.
QByteArray fontSection(const QByteArray& line, const QByteArray& with)
{
    QByteArray changed = FontSection;
    return changed.replace(line + "\r\n", with.isEmpty() ? with : with + "\r\n");
}

/// One line for each entry of a menu and of the menus in it, indented by depth: its name, its caption, and
/// what it is besides an ordinary entry.
void describe(const QList<QAction*>& entries, const QString& indent, QStringList& lines)
{
    for (const QAction* entry : entries) {
        const QMenu* menu = entry->menu();
        QString line = indent + (menu ? menu->objectName() : entry->objectName());
        line += entry->isSeparator() ? QStringLiteral(" ----") : u'|' + entry->text();
        if (entry->isCheckable() && entry->isChecked())
            line += QStringLiteral(" (checked)");
        if (!entry->isEnabled())
            line += QStringLiteral(" (disabled)");
        lines << line;
        if (menu)
            describe(menu->actions(), indent + QStringLiteral("  "), lines);
    }
}

/// The number of the error that loading the main window raises.
std::optional<ErrorNumber> loadError()
{
    try {
        form<FrmWeb>();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return std::nullopt;
}

/// The rectangle of a widget in its window.
QRect placeOf(const QWidget* widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

QString describe(const QWidget* widget)
{
    const QRect place = placeOf(widget);
    return QStringLiteral("%1 at %2,%3 size %4x%5")
        .arg(widget->objectName())
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height());
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    // What stands in the window
    void toolbarPositions_data();
    void toolbarPositions();
    void toolbarHasNoOtherPositions();
    void separatorsDoNothing();
    void toolbarFileButtons();
    void toolbarFindTakesTheMenuEntry();
    void toolbarHighlight();
    void toolbarHighlightColorTakesTheMenuEntry();
    void toolbarAsksForTools_data();
    void toolbarAsksForTools();
    void createBeginsANewDocument();
    void createWithCancelOpensNothing();
    void createWithAStaleCancelOpensNothing();
    void menuTree();
    void menuEntriesHaveNoShortcuts();
    void hintOfTheEmptyEditor();
    void menuEntriesOfFile();
    void tabPages();
    void controlsStandOnTheirPages_data();
    void controlsStandOnTheirPages();
    void textsOfControls();
    void designTimeColor();
    void darkDesktop();
    void symbolsOfLargeLetters();

    // Start
    void startState();
    void disabledButtonsArePale();
    void fontNamesOfTheScreen();
    void addressListAndHome();
    void startWithoutAddressList();
    void startWithAddressListThatIsAFolder();
    void editorLookComesFromSettings_data();
    void editorLookComesFromSettings();
    void badNumbersStopTheLoad_data();
    void badNumbersStopTheLoad();
    void missingSettingsStopTheLoad_data();
    void missingSettingsStopTheLoad();
    void oddSettingsLoad_data();
    void oddSettingsLoad();
    void loadLeavesTheSettingsAlone();
    void splashLeadsToTheMainWindow();
    void splashWithBadSettingsEndsTheProgram();
    void damagedSettingsGiveWayToThoseThatShip_data();
    void damagedSettingsGiveWayToThoseThatShip();
    void anyDamageIsGotOver();

    // Layout
    void nothingOverlaps_data();
    void nothingOverlaps();
    void tabsFillTheWindow_data();
    void tabsFillTheWindow();
    void largerFontMakesRoom();
    void controlsAreSeenInTheLeastWindow();
    void tinyWindowIsNoError();

    // Other windows
    void aboutWindow();
    void helpWindow();

    // End
    void closeCleanDocument_data();
    void closeCleanDocument();
    void closeAsksAboutChanges_data();
    void closeAsksAboutChanges();
    void closeSavesOnYes();
    void windowCannotBeClosedWhileCancelHolds();
    void closeEndsWithToolsOpen();
    void untrappedErrorKeepsTheText();
    void untrappedErrorOfAnEmptyDocumentKeepsNothing();
    void failedStampKeepsTheText();
};

void TestMainWindow::cleanup()
{
    const ScriptedDoors doors; // the unload of the main window must not end the test
    unloadAll();
}

// ---- What stands in the window

void TestMainWindow::toolbarPositions_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("toolTip");
    const char* const toolTips[] = {"New",
                                    "Open",
                                    "Save",
                                    "Save As",
                                    nullptr,
                                    "Cut",
                                    "Copy",
                                    "Paste",
                                    "Find",
                                    nullptr,
                                    "Hightlight",
                                    "Unhightlight",
                                    "Highlight Color",
                                    nullptr,
                                    "Brindlemark Create",
                                    nullptr,
                                    "Body Attributes",
                                    "Font Properties",
                                    "Picture Properties",
                                    "Tables Properties",
                                    "Lists Properties",
                                    "Horizontal Rule Properties"};
    int index = 0;
    for (const char* toolTip : toolTips) {
        ++index;
        QTest::addRow("%d", index) << index << QString::fromLatin1(toolTip);
    }
}

void TestMainWindow::toolbarPositions()
{
    QFETCH(int, index);
    QFETCH(QString, toolTip);
    MainWindow window;
    const QAction* action = window.web->Toolbar1->actions().value(index - 1);
    QVERIFY(action);
    QCOMPARE(action->isSeparator(), toolTip.isEmpty());
    if (toolTip.isEmpty())
        return;
    const QWidget* button =
        window.web->Toolbar1->widgetForAction(window.web->Toolbar1->actions().at(index - 1));
    QVERIFY(button->isVisible());
    QCOMPARE(button->toolTip(), toolTip);
    QVERIFY(!action->icon().isNull());
}

void TestMainWindow::toolbarHasNoOtherPositions()
{
    MainWindow window;
    QCOMPARE(window.web->Toolbar1->actions().size(), 22);
}

void TestMainWindow::separatorsDoNothing()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    const QSignalSpy wanted(window.web, &FrmWeb::toolWanted);
    for (int index : {5, 10, 14, 16}) {
        QAction* separator = window.web->Toolbar1->actions().at(index - 1);
        QTest::mouseClick(window.web->Toolbar1->widgetForAction(separator), Qt::LeftButton);
        separator->trigger();
    }
    QCOMPARE(wanted.count(), 0);
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.source(), QByteArray("word"));
}

void TestMainWindow::toolbarFileButtons()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "page");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.source(), QByteArray("page"));
    window.press(Tool::Save);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("page\r\n"));
    window.saveAs(window.folder.path(QStringLiteral("other.htm")));
    QCOMPARE(window.folder.read(QStringLiteral("other.htm")), QByteArray("page\r\n"));
    window.press(Tool::New);
    QCOMPARE(window.source(), QByteArray());
}

void TestMainWindow::toolbarFindTakesTheMenuEntry()
{
    MainWindow window;
    const QSignalSpy find(window.web->munfind, &QAction::triggered);
    window.press(Tool::Find);
    QCOMPARE(find.count(), 1);
}

void TestMainWindow::toolbarHighlight()
{
    MainWindow window;
    window.type(QStringLiteral("<B>word"));
    window.press(Tool::Highlight);
    QVERIFY(window.web->highlighted);
    QVERIFY(window.web->RichTextBox1->colorAt(1) != 0);
    window.press(Tool::Unhighlight);
    QVERIFY(!window.web->highlighted);
    QCOMPARE(window.web->RichTextBox1->colorAt(1), 0);
}

void TestMainWindow::toolbarHighlightColorTakesTheMenuEntry()
{
    MainWindow window;
    const QSignalSpy color(window.web->munhighlightcolor, &QAction::triggered);
    window.press(Tool::HighlightColor);
    QCOMPARE(color.count(), 1);
}

void TestMainWindow::toolbarAsksForTools_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Tool>("tool");
    QTest::newRow("create") << 15 << Tool::Create;
    QTest::newRow("body") << 17 << Tool::Body;
    QTest::newRow("font") << 18 << Tool::Font;
    QTest::newRow("picture") << 19 << Tool::Picture;
    QTest::newRow("table") << 20 << Tool::Table;
    QTest::newRow("list") << 21 << Tool::List;
    QTest::newRow("rule") << 22 << Tool::Rule;
}

void TestMainWindow::toolbarAsksForTools()
{
    QFETCH(int, index);
    QFETCH(Tool, tool);
    MainWindow window;
    QSignalSpy wanted(window.web, &FrmWeb::toolWanted);
    QToolBar* bar = window.web->Toolbar1;
    QTest::mouseClick(bar->widgetForAction(bar->actions().at(index - 1)), Qt::LeftButton);
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(wanted.takeFirst().constFirst().value<Tool>(), tool);
    QCOMPARE(window.doors.asked, QStringList());
}

void TestMainWindow::createBeginsANewDocument()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    const QSignalSpy wanted(window.web, &FrmWeb::toolWanted);
    window.doors.answerMsgBox(MsgAnswer::No);
    window.press(Tool::Create);
    QCOMPARE(window.doors.takeAsked(), QStringList{SaveQuestion});
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(wanted.count(), 1);
}

void TestMainWindow::createWithCancelOpensNothing()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    const QSignalSpy wanted(window.web, &FrmWeb::toolWanted);
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.press(Tool::Create);
    QCOMPARE(wanted.count(), 0);
    QCOMPARE(window.source(), QByteArray("word"));
}

void TestMainWindow::createWithAStaleCancelOpensNothing()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.press(Tool::New);
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();
    const QSignalSpy wanted(window.web, &FrmWeb::toolWanted);
    window.press(Tool::Create);
    QCOMPARE(wanted.count(), 0);
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.source(), QByteArray("word"));
}

void TestMainWindow::menuTree()
{
    static const char* const Tree[] = {
        "Mnfile|File",
        "  MnNew|&New",
        "  MnOpen|&Open",
        "  mnsave|&Save",
        "  mnsaveas|Save &As",
        "  MnA ----",
        "  MnExit|&Exit",
        "MnEdit|Edit",
        "  mnuhtml|&HTML Select all and Copy",
        "  munr ----",
        "  munfind|&Find",
        "  MnCut|Cu&t",
        "  MnCopy|&Copy",
        "  MnPaste|&Paste",
        "  MnSelect|Select &All",
        "  munq ----",
        "  munsetfont|Editor &Font",
        "  munEBC|Editor Background Color",
        "  line2 ----",
        "  munhighlight|&Highlight",
        "  munUNHighlight|Un&highlight",
        "  munhighlightcolor|&Highlight Color",
        "muQW|Quick Word",
        "munview|View (disabled)",
        "  munback|Back",
        "  munforward|Forward",
        "  munstop|Stop",
        "  munrefresh|Refresh",
        "munoptions|Quick Tags",
        "  munmsg|Message Popup  (on mouse right button)",
        "  munmarque|Marquee",
        "    munMarleft|Left",
        "    munMarright|Right",
        "    munMarLR|Left and Right",
        "  mubackim|Background Image",
        "  munaddlink|Add Link to",
        "    munAIL|Address Internet Link",
        "    munemailink|E-Mail Link",
        "  munaddtable|Add Table",
        "  mnbr|Inserts a line break. <BR>",
        "    munbr1|1",
        "    munbr2|2",
        "    munbr3|3",
        "    munbr4|4",
        "    munbr5|5",
        "  mup|Insert Paragraph Tag. <P>",
        "  muhr|Insert Horizontal Rule. <HR>",
        "  munPAlign|<P Align=",
        "    muleft|Left",
        "    mucenter|Center",
        "    muright|Right",
        "    munnonp|</P>",
        "  muncenters|<Center></Center>",
        "  munbsp|nbsp;",
        "    munnb1|1",
        "    munnb2|2",
        "    munnb3|3",
        "    munnb4|4",
        "    munnb5|5",
        "  mun3 ----",
        "  muncolorcode|Color HTML Code",
        "muinternet|Internet",
        "  mutextsize|Text Size",
        "    musmallest|Smallest",
        "    musmaller|Smaller",
        "    mumedium|Medium (checked)",
        "    mularger|Larger",
        "    mulargest|Largest",
        "  muoptions|Options",
        "  muinternetline ----",
        "  muaddressclear|Address Lists Clear",
        "muntools|Tools",
        "  munundo|Undo\tCtrl+Z",
        "  munredo|Redo\tCtrl+Y",
        "   ----",
        "  munearlier|Earlier Texts...",
        "  munrecent|Recent Files",
        "  munliveview|Live View...",
        "  munchecklisting|Check Listing...",
        "  muncopypage|Copy Page",
        "   ----",
        "  munprint|Print...\tCtrl+P",
        "  munprintpreview|Print Preview...",
        "  munpdf|Save as PDF...",
        "   ----",
        "  munspelling|Spelling",
        "    munnextmisspelt|Next Misspelt Word\tF7",
        "  munletters|Letters of the Selection",
        "    munuppercase|ALL CAPITALS",
        "    munlowercase|all small",
        "    muntitlecase|Each Word With a Capital",
        "  muncountwords|Count Words",
        "   ----",
        "  munpastetext|Paste as Text\tCtrl+Shift+V",
        "  munpastelooks|Paste With Its Looks (disabled)",
        "  munpastehtml|Paste as HTML",
        "   ----",
        "  munshow|Show in the Editor",
        "    munlinenumbers|Line Numbers",
        "    munwhitespace|Blanks and Line Ends",
        "    munmatchingtag|Tag That Belongs to the One at the Caret",
        "  munoffers|Offer Tags and Colors While Typing (checked)",
        "  munkeys|Keys...",
        "munhelp|Help",
        "munabout|About",
    };
    MainWindow window;
    QStringList actual;
    describe(window.web->MenuBar1->actions(), QString(), actual);
    // The entries of a menu that is off are off with it.
    const QStringList off{QStringLiteral("munback"), QStringLiteral("munforward"), QStringLiteral("munstop"),
                          QStringLiteral("munrefresh")};
    for (QString& line : actual) {
        if (off.contains(line.trimmed().section(u'|', 0, 0)))
            line.remove(QStringLiteral(" (disabled)"));
    }
    QStringList expected;
    for (const char* line : Tree)
        expected << QString::fromLatin1(line);
    for (int i = 0; i < qMin(actual.size(), expected.size()); ++i)
        QCOMPARE(actual.at(i), expected.at(i));
    QCOMPARE(actual.size(), expected.size());
}

void TestMainWindow::menuEntriesHaveNoShortcuts()
{
    MainWindow window;
    for (const QAction* entry : window.web->findChildren<QAction*>())
        QVERIFY2(entry->shortcuts().isEmpty(), qPrintable(entry->objectName()));
}

/// It says what to press, and is no part of the text; on a dark background it can be read too.
void TestMainWindow::hintOfTheEmptyEditor()
{
    const MainWindow window;
    RichTextBox* box = window.web->RichTextBox1;
    const QLabel* hint = box->findChild<QLabel*>();
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->text(), QStringLiteral("Press the wand for a new listing, or open a page."));
    QCOMPARE(window.source(), QByteArray());
    const auto contrastNow = [&] { // as it is painted
        const QImage picture = box->viewport()->grab(hint->geometry()).toImage();
        const auto light = [](QRgb pixel) {
            const auto part = [](int value) {
                const double c = value / 255.0;
                return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
            };
            return 0.2126 * part(qRed(pixel)) + 0.7152 * part(qGreen(pixel)) + 0.0722 * part(qBlue(pixel));
        };
        double least = 1;
        double most = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const double here = light(picture.pixel(x, y));
                least = std::min(least, here);
                most = std::max(most, here);
            }
        }
        return (most + 0.05) / (least + 0.05);
    };
    QVERIFY2(contrastNow() >= 4.5, qPrintable(QString::number(contrastNow())));
    box->setBackColor(0x400000); // a dark blue
    QVERIFY2(contrastNow() >= 4.5, qPrintable(QString::number(contrastNow())));
    window.type(QStringLiteral("x"));
    QVERIFY(!hint->isVisible());
    QTest::keyClick(box, Qt::Key_Backspace);
    QVERIFY(hint->isVisible());
    QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, hint->geometry().center()); // goes to the box
    window.type(QStringLiteral("lamp"));
    QCOMPARE(window.source(), QByteArray("lamp"));
    window.web->document().setDirty(false);
}

void TestMainWindow::menuEntriesOfFile()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "page");
    window.doors.answerOpen(window.folder.path(QStringLiteral("page.htm")));
    window.choose(window.web->Mnfile, window.web->MnOpen);
    QCOMPARE(window.source(), QByteArray("page"));
    window.choose(window.web->Mnfile, window.web->mnsave);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("page\r\n"));
    window.doors.answerSave(window.folder.path(QStringLiteral("other.htm")));
    window.choose(window.web->Mnfile, window.web->mnsaveas);
    QCOMPARE(window.folder.read(QStringLiteral("other.htm")), QByteArray("page\r\n"));
    window.choose(window.web->Mnfile, window.web->MnNew);
    QCOMPARE(window.source(), QByteArray());
    window.choose(window.web->Mnfile, window.web->MnExit);
    QCOMPARE(window.doors.ended, 0);
}

void TestMainWindow::tabPages()
{
    MainWindow window;
    const SSTab* tabs = window.web->SSTab1;
    QCOMPARE(tabs->count(), 3);
    QCOMPARE(tabs->tabText(0), QStringLiteral(" Editor"));
    QCOMPARE(tabs->tabText(1), QStringLiteral(" Preview"));
    QCOMPARE(tabs->tabText(2), QStringLiteral(" Internet"));
    for (int tab : {2, 1, 0}) {
        window.showTab(static_cast<FrmWeb::Tab>(tab));
        QCOMPARE(tabs->Tab(), tab);
    }
}

void TestMainWindow::controlsStandOnTheirPages_data()
{
    QTest::addColumn<QString>("frame");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("control");
    const auto row = [](const char* frame, int tab, std::initializer_list<const char*> controls) {
        for (const char* control : controls)
            QTest::newRow(control) << QString::fromLatin1(frame) << tab << QString::fromLatin1(control);
    };
    row("Frame1", 0,
        {"CmdTitle", "CmdLine", "CmdDes", "CmdCell", "CmdPic", "CmdOffLeg", "RichTextBox1", "Picture1"});
    row("Frame2", 1,
        {"Label2",    "Option1",   "Option2",   "Combo1",    "Combo2",    "Command1",    "Command2",
         "Command3",  "Command4",  "Command5",  "Command6",  "Command7",  "Command8",    "Command9",
         "Command10", "Command11", "Command12", "Command13", "Command16", "WebBrowser1", "WebBrowser3"});
    row("Frame3", 2,
        {"Label3", "Combo3", "Command14", "Command15", "Command17", "Command18", "Command19", "Command20",
         "WebBrowser2", "Label1", "ProgressBar1"});
}

void TestMainWindow::controlsStandOnTheirPages()
{
    QFETCH(QString, frame);
    QFETCH(int, tab);
    QFETCH(QString, control);
    MainWindow window;
    const auto* widget = window.web->findChild<QWidget*>(control);
    QVERIFY(widget);
    const auto* holder = window.web->findChild<QWidget*>(frame);
    QVERIFY(holder);
    QVERIFY(holder->isAncestorOf(widget));
    window.showTab(static_cast<FrmWeb::Tab>(tab));
    QVERIFY(holder->isVisible());
    // The cover and the preview wait for their turn.
    const bool hidden = control == QLatin1String("Picture1") || control == QLatin1String("WebBrowser3");
    QCOMPARE(widget->isVisible(), !hidden);
}

void TestMainWindow::textsOfControls()
{
    MainWindow window;
    const FrmWeb* web = window.web;
    QCOMPARE(web->Label2->text(), QStringLiteral("Design:"));
    QCOMPARE(web->Option1->text(), QStringLiteral("On"));
    QCOMPARE(web->Option2->text(), QStringLiteral("Off"));
    QCOMPARE(web->Label3->text().remove(u'&'), QStringLiteral("Address"));
    QCOMPARE(web->Label1->text(), QStringLiteral("Done"));
    // A button with a picture says its name in the tip.
    const auto caption = [](const QAbstractButton* button) {
        return button->text().isEmpty() ? button->toolTip() : button->text();
    };
    QCOMPARE(caption(web->Command15), QStringLiteral("Home Page"));
    QCOMPARE(caption(web->Command17), QStringLiteral("Back"));
    QCOMPARE(caption(web->Command18), QStringLiteral("Forward"));
    QCOMPARE(caption(web->Command19), QStringLiteral("Stop"));
    QCOMPARE(caption(web->Command20), QStringLiteral("Refresh"));
}

void TestMainWindow::designTimeColor()
{
    MainWindow window;
    const QColor grey(0xE0, 0xE0, 0xE0);
    const QImage picture = window.web->grab().toImage();
    // Between toolbar and tabs there is nothing but the window itself.
    QCOMPARE(picture.pixelColor(1, window.web->SSTab1->y() - 1), grey);
    for (const QWidget* combo : {window.web->Combo1, window.web->Combo2, window.web->Combo3})
        QCOMPARE(combo->palette().color(QPalette::Base), grey);
}

/// A dark desktop has no light window; what comes and goes while the program runs too.
void TestMainWindow::darkDesktop()
{
    const QPalette former = QApplication::palette();
    const QColor grey(0xE0, 0xE0, 0xE0);
    QPalette dark(QColor(0x35, 0x35, 0x35), QColor(0x2B, 0x2B, 0x2B));
    dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
    {
        MainWindow window;
        const auto ground = [&] {
            return window.web->grab().toImage().pixelColor(1, window.web->SSTab1->y() - 1);
        };
        const auto field = [&] { return window.web->Combo3->palette().color(QPalette::Base); };
        QCOMPARE(ground(), grey);
        QApplication::setPalette(dark);
        QTRY_COMPARE(ground(), QColor(0x2B, 0x2B, 0x2B));
        QCOMPARE(field(), QColor(0x1E, 0x1E, 0x1E));
        QApplication::setPalette(former);
        QTRY_COMPARE(ground(), grey);
        QCOMPARE(field(), grey);
    }
    QApplication::setPalette(dark);
    {
        const MainWindow window;
        QCOMPARE(window.web->palette().color(QPalette::Window), QColor(0x2B, 0x2B, 0x2B));
    }
    QApplication::setPalette(former);
}

/// They grow with the desktop's letters.
void TestMainWindow::symbolsOfLargeLetters()
{
    const QFont former = QApplication::font();
    QFont large = former;
    large.setPointSizeF(former.pointSizeF() * 2);
    MainWindow window;
    const int tool = window.web->Toolbar1->iconSize().height();
    const int button = window.web->Command1->iconSize().height();
    QCOMPARE(tool, 22);
    QApplication::setFont(large);
    QTRY_VERIFY(window.web->Toolbar1->iconSize().height() > tool * 3 / 2);
    QVERIFY(window.web->Command1->iconSize().height() > button * 3 / 2);
    const QWidget* first = window.web->Toolbar1->widgetForAction(window.web->toolbarButton(Tool::New));
    QVERIFY(first->height() > tool * 3 / 2);
    QApplication::setFont(former);
    QTRY_COMPARE(window.web->Toolbar1->iconSize().height(), tool);
}

// ---- Start

void TestMainWindow::startState()
{
    MainWindow window;
    const FrmWeb* web = window.web;
    QVERIFY(!web->Dirty());
    QVERIFY(!web->SaveCancelled());
    QVERIFY(!web->SaveDeclined());
    QCOMPARE(web->documentName(), QStringLiteral("Untitled"));
    QVERIFY(!web->highlighted);
    QCOMPARE(window.caption(), QStringLiteral("Untitled - Brindlemark 1.0"));
    QCOMPARE(web->SSTab1->Tab(), 0);
    QCOMPARE(window.source(), QByteArray());
    QVERIFY(web->Option1->Value());
    QVERIFY(!web->Option2->Value());
    for (const Tool cutAndCopy : {Tool::Cut, Tool::Copy}) // nothing is selected
        QVERIFY(!web->toolbarButton(cutAndCopy)->isEnabled());

    QStringList sizes;
    for (int i = 0; i < web->Combo2->ListCount(); ++i)
        sizes << web->Combo2->List(i);
    QCOMPARE(sizes, (QStringList{"8", "10", "12", "14", "18", "24", "36"}));
    QCOMPARE(web->Combo2->Text(), QStringLiteral("Normal"));
    QCOMPARE(web->Combo1->Text(), QStringLiteral("Arial"));

    for (const QPushButton* region :
         {web->CmdTitle, web->CmdLine, web->CmdDes, web->CmdCell, web->CmdPic, web->CmdOffLeg})
        QVERIFY2(!region->isEnabled(), qPrintable(region->objectName()));

    QCOMPARE(web->WebBrowser1->designMode(), DesignMode::On);
    QCOMPARE(web->WebBrowser3->designMode(), DesignMode::Off);
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.doors.beeps, 0);
}

/// The darkest there is in a picture, 0 to 255.
static int darkest(const QImage& picture)
{
    int lightness = 255;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            lightness = qMin(lightness, picture.pixelColor(x, y).lightness());
    }
    return lightness;
}

void TestMainWindow::disabledButtonsArePale()
{
    MainWindow window;
    window.web->RichTextBox1->setText("word");
    for (const Tool cutAndCopy : {Tool::Cut, Tool::Copy}) {
        QWidget* button = window.web->Toolbar1->widgetForAction(window.web->toolbarButton(cutAndCopy));
        window.web->RichTextBox1->setSelLength(0);
        QVERIFY(!button->isEnabled());
        const int off = darkest(button->grab().toImage());
        window.web->RichTextBox1->setSelLength(4);
        QVERIFY(button->isEnabled());
        const int on = darkest(button->grab().toImage());
        QVERIFY2(off > on + 50, qPrintable(QStringLiteral("%1 off, %2 on").arg(off).arg(on)));
    }
}

void TestMainWindow::fontNamesOfTheScreen()
{
    MainWindow window;
    const QStringList fonts = fontNames(QFontDatabase::families(), 0);
    QCOMPARE(window.web->Combo1->ListCount(), fonts.size());
    for (int i = 0; i < fonts.size(); ++i)
        QCOMPARE(window.web->Combo1->List(i), fonts.at(i));
}

void TestMainWindow::addressListAndHome()
{
    const ProgramFolder folder;
    folder.write(QStringLiteral("web.ini"), "[internet]\r\nhome=http://home/\r\n" + FontSection);
    folder.write(QStringLiteral("Ils.ini"),
                 "http://one/\r\n\r\n  http://two/\r\nthree,four\r\n\"five,six\"\r\n");
    const FrmWeb* web = form<FrmWeb>();
    QStringList addresses;
    for (int i = 0; i < web->Combo3->ListCount(); ++i)
        addresses << web->Combo3->List(i);
    QCOMPARE(addresses, (QStringList{"http://one/", "http://two/", "three", "four", "five,six"}));
    QCOMPARE(web->Combo3->Text(), QStringLiteral("http://home/"));
}

void TestMainWindow::startWithoutAddressList()
{
    MainWindow window;
    QVERIFY(!window.folder.has(QStringLiteral("Ils.ini")));
    QCOMPARE(window.web->Combo3->ListCount(), 0);
    QVERIFY(!window.folder.has(QStringLiteral("Ils.ini")));
}

void TestMainWindow::startWithAddressListThatIsAFolder()
{
    const ProgramFolder folder;
    QVERIFY(QDir().mkdir(folder.path(QStringLiteral("Ils.ini"))));
    QCOMPARE(form<FrmWeb>()->Combo3->ListCount(), 0);
}

void TestMainWindow::editorLookComesFromSettings_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("size");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("italic");
    QTest::addColumn<int>("background");
    const QString mono = QStringLiteral("Liberation Mono");
    QTest::newRow("plain") << FontSection << mono << 14.0 << false << false << 0x00FFFF;
    QTest::newRow("size with a fraction")
        << fontSection("size=14", "size=9.75") << mono << 9.75 << false << false << 0x00FFFF;
    QTest::newRow("bold") << fontSection("bold=False", "bold=True") << mono << 14.0 << true << false
                          << 0x00FFFF;
    QTest::newRow("italic") << fontSection("italic=False", "italic=True") << mono << 14.0 << false << true
                            << 0x00FFFF;
    QTest::newRow("red background") << fontSection("BG=65535", "BG=255") << mono << 14.0 << false << false
                                    << 0x0000FF;
    QTest::newRow("black background")
        << fontSection("BG=65535", "BG=0") << mono << 14.0 << false << false << 0;
    QTest::newRow("names in other case")
        << FontSection.toUpper().replace("LIBERATION MONO", "Liberation Mono") << mono << 14.0 << false
        << false << 0x00FFFF;
}

void TestMainWindow::editorLookComesFromSettings()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, name);
    QFETCH(double, size);
    QFETCH(bool, bold);
    QFETCH(bool, italic);
    QFETCH(int, background);
    const ProgramFolder folder;
    folder.write(QStringLiteral("web.ini"), settings);
    FrmWeb* web = form<FrmWeb>();
    const QFont font = web->RichTextBox1->textFont();
    QCOMPARE(font.family(), name);
    QCOMPARE(font.pointSizeF(), size);
    QCOMPARE(font.bold(), bold);
    QCOMPARE(font.italic(), italic);
    QCOMPARE(web->RichTextBox1->BackColor(), background);
    QVERIFY(!web->Dirty());

    // The cover has the colour of what it covers.
    web->Show();
    web->Picture1->show();
    const QRgb color = web->Picture1->grab().toImage().pixel(20, 20);
    QCOMPARE(qRed(color) | qGreen(color) << 8 | qBlue(color) << 16, background);
}

void TestMainWindow::badNumbersStopTheLoad_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("no section") << QByteArray("[internet]\r\nhome=about:blank\r\n");
    QTest::newRow("no background") << fontSection("BG=65535", "");
    QTest::newRow("empty background") << fontSection("BG=65535", "BG=");
    QTest::newRow("background in letters") << fontSection("BG=65535", "BG=abc");
    QTest::newRow("background behind a number") << fontSection("BG=65535", "BG=255 red");
    QTest::newRow("no size") << fontSection("size=14", "");
    QTest::newRow("size in letters") << fontSection("size=14", "size=abc");
    QTest::newRow("no bold") << fontSection("bold=False", "");
    QTest::newRow("bold is no flag") << fontSection("bold=False", "bold=perhaps");
    QTest::newRow("no italic") << fontSection("italic=False", "");
    QTest::newRow("zeros only") << QByteArray(1000, '\0');
    QTest::newRow("5 MB of nothing") << QByteArray(5'000'000, 'x');
}

void TestMainWindow::badNumbersStopTheLoad()
{
    QFETCH(QByteArray, settings);
    const ProgramFolder folder;
    folder.write(QStringLiteral("web.ini"), settings);
    QCOMPARE(loadError(), ErrorNumber::TypeMismatch);
    QVERIFY(!isLoaded<FrmWeb>());
    QCOMPARE(folder.read(QStringLiteral("web.ini")), settings);
}

void TestMainWindow::missingSettingsStopTheLoad_data()
{
    QTest::addColumn<bool>("folderInstead");
    QTest::newRow("no file") << false;
    QTest::newRow("a folder") << true;
}

void TestMainWindow::missingSettingsStopTheLoad()
{
    QFETCH(bool, folderInstead);
    const ProgramFolder folder;
    const QString path = folder.path(QStringLiteral("web.ini"));
    QVERIFY(QFile::remove(path));
    if (folderInstead)
        QVERIFY(QDir().mkdir(path));
    QCOMPARE(loadError(), ErrorNumber::TypeMismatch);
    QVERIFY(!isLoaded<FrmWeb>());
}

void TestMainWindow::oddSettingsLoad_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::newRow("no font name") << fontSection("name=Liberation Mono", "");
    QTest::newRow("no home") << FontSection;
    QTest::newRow("zeros in another line") << QByteArray("[internet]\r\nhome=\0\0\r\n", 20) + FontSection;
    QTest::newRow("5 MB before it") << "[other]\r\n" + QByteArray("key=value\r\n").repeated(500'000) +
                                           FontSection;
    QTest::newRow("5 MB behind it") << FontSection + QByteArray("key=value\r\n").repeated(500'000);
    QTest::newRow("one line of 5 MB")
        << "[other]\r\nkey=" + QByteArray(5'000'000, 'x') + "\r\n" + FontSection;
    QTest::newRow("line feeds only") << QByteArray(FontSection).replace("\r\n", "\n");
    QTest::newRow("byte order mark") << "\xEF\xBB\xBF" + FontSection;
}

void TestMainWindow::oddSettingsLoad()
{
    QFETCH(QByteArray, settings);
    const ProgramFolder folder;
    folder.write(QStringLiteral("web.ini"), settings);
    QCOMPARE(form<FrmWeb>()->RichTextBox1->BackColor(), 65535);
    QCOMPARE(form<FrmWeb>()->RichTextBox1->textFont().pointSizeF(), 14.0);
    // Where the settings name no face, it is the one that the box begins with.
    QCOMPARE(form<FrmWeb>()->RichTextBox1->textFont().family(), settings.contains("name=")
                                                                    ? QStringLiteral("Liberation Mono")
                                                                    : QStringLiteral("Comic Sans MS"));
}

void TestMainWindow::loadLeavesTheSettingsAlone()
{
    const ProgramFolder folder;
    folder.write(QStringLiteral("web.ini"), FontSection);
    QVERIFY(QFile::setPermissions(folder.path(QStringLiteral("web.ini")), QFile::ReadOwner));
    form<FrmWeb>();
    QVERIFY(isLoaded<FrmWeb>());
    QCOMPARE(folder.read(QStringLiteral("web.ini")), FontSection);
}

void TestMainWindow::splashLeadsToTheMainWindow()
{
    const ProgramFolder folder;
    ScriptedDoors doors;
    QElapsedTimer clock;
    clock.start();
    form<FrmSplash>()->Show();
    QVERIFY(!isLoaded<FrmWeb>());
    QTRY_VERIFY_WITH_TIMEOUT(isLoaded<FrmWeb>() && form<FrmWeb>()->isVisible(), 5000);
    QVERIFY2(clock.elapsed() >= 1200, qPrintable(QString::number(clock.elapsed())));
    QTRY_VERIFY(!isLoaded<FrmSplash>());
    // It comes once.
    form<FrmWeb>()->Unload();
    QTest::qWait(500);
    QVERIFY(!isLoaded<FrmWeb>());
    QCOMPARE(doors.ended, 0);
}

void TestMainWindow::splashWithBadSettingsEndsTheProgram()
{
    const ProgramFolder folder;
    QVERIFY(QFile::remove(folder.path(QStringLiteral("web.ini"))));
    ScriptedDoors doors;
    doors.answerMsgBox(MsgAnswer::Ok);
    doors.answerMsgBox(MsgAnswer::No);
    form<FrmSplash>()->Show();
    QTRY_VERIFY_WITH_TIMEOUT(doors.ended.has_value(), 5000);
    QCOMPARE(doors.ended, 1);
    QCOMPARE(
        doors.asked.constFirst(),
        QStringLiteral("MsgBox|Brindlemark|Run-time error '13':\n\nType mismatch\n\nThe setting \"size\" in "
                       "section [Font] of web.ini is missing or damaged.|Stop|Ok"));
    QVERIFY(!isLoaded<FrmWeb>());
    QVERIFY(!folder.has(QStringLiteral("web.ini"))); // the answer was No
}

void TestMainWindow::damagedSettingsGiveWayToThoseThatShip_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("error");
    QTest::newRow("size") << QByteArray("size") << QByteArray("twelve") << "'13':\n\nType mismatch";
    QTest::newRow("bold") << QByteArray("bold") << QByteArray("") << "'13':\n\nType mismatch";
    QTest::newRow("italic") << QByteArray("italic") << QByteArray("oui") << "'13':\n\nType mismatch";
    QTest::newRow("background") << QByteArray("BG") << QByteArray("99999999999") << "'6':\n\nOverflow";
}

/// Error and question at one start, and the next one works.
void TestMainWindow::damagedSettingsGiveWayToThoseThatShip()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    QFETCH(QString, error);
    const ProgramFolder folder;
    const QString settings = QStringLiteral("web.ini");
    const QByteArray shipped = folder.read(settings);
    QByteArray damaged = shipped;
    const qsizetype begin = damaged.indexOf('\n' + key + '=') + key.size() + 2;
    damaged.replace(begin, damaged.indexOf('\r', begin) - begin, value);
    QVERIFY(damaged != shipped);
    folder.write(settings, damaged);
    folder.write(QStringLiteral("web-damaged-1.ini"), "of another day");
    {
        ScriptedDoors doors;
        doors.answerMsgBox(MsgAnswer::Ok);
        doors.answerMsgBox(MsgAnswer::Yes);
        guarded([] { form<FrmWeb>(); });
        QCOMPARE(doors.ended, 1);
        QCOMPARE(doors.asked.size(), 2);
        QVERIFY2(doors.asked[0].contains(
                     QStringLiteral("Run-time error %1\n\nThe setting \"%2\" in section [Font] of web.ini")
                         .arg(error, QString::fromLatin1(key))),
                 qPrintable(doors.asked[0]));
        QVERIFY2(doors.asked[1].contains(QStringLiteral("web.ini?")) &&
                     doors.asked[1].endsWith(QStringLiteral("|Question|YesNo")),
                 qPrintable(doors.asked[1]));
    }
    QCOMPARE(folder.read(settings), shipped);
    QCOMPARE(folder.read(QStringLiteral("web-damaged-1.ini")), QByteArray("of another day"));
    QCOMPARE(folder.read(QStringLiteral("web-damaged-2.ini")), damaged);
    ScriptedDoors doors;
    guarded([] { form<FrmWeb>()->Show(); });
    QVERIFY(isLoaded<FrmWeb>());
    QCOMPARE(doors.asked, QStringList());
    form<FrmWeb>()->Unload();
}

/// Damages by chance: whatever a start makes of them, the next one works. BRINDLEMARK_DAMAGES=1150 makes it
/// as many instead of 40.
void TestMainWindow::anyDamageIsGotOver()
{
    const int damages = qMax(1, qEnvironmentVariable("BRINDLEMARK_DAMAGES", QStringLiteral("40")).toInt());
    QRandomGenerator chance(20261122);
    int mended = 0;
    for (int i = 0; i < damages; ++i) {
        const ProgramFolder folder;
        const QString path = QFileInfo(folder.path(QStringLiteral("web.ini"))).path();
        const QStringList files = QDir(path).entryList({QStringLiteral("*.ini")}, QDir::Files, QDir::Name);
        const QString file = i % 2 ? QStringLiteral("web.ini") : files.at(chance.bounded(int(files.size())));
        QByteArray bytes = folder.read(file);
        if (bytes.isEmpty())
            continue;
        const int place = chance.bounded(int(bytes.size()));
        const int length = chance.bounded(1, 20);
        switch (chance.bounded(5)) {
        case 0:
            bytes.truncate(place);
            break;
        case 1:
            bytes[place] = char(bytes.at(place) ^ (1 << chance.bounded(8)));
            break;
        case 2:
            bytes.remove(place, length);
            break;
        case 3:
            bytes.insert(place, QByteArray(length, char(chance.bounded(256))));
            break;
        default: { // a value
            const qsizetype equals = bytes.indexOf('=', place);
            if (equals >= 0) {
                bytes.replace(equals + 1, qMax(0, bytes.indexOf('\r', equals) - equals - 1),
                              QByteArray::number(chance.generate64()));
            }
        }
        }
        folder.write(file, bytes);
        const QByteArray what = file.toLatin1() + ": " + bytes.toPercentEncoding();
        {
            ScriptedDoors doors;
            doors.answerMsgBox(MsgAnswer::Ok);
            doors.answerMsgBox(MsgAnswer::Yes);
            guarded([] { form<FrmWeb>()->Show(); });
            if (doors.ended) {
                ++mended;
                QCOMPARE(doors.asked.size(), 2);
                QVERIFY2(doors.asked.constFirst().contains(u'[') && doors.asked.constFirst().contains(file),
                         qPrintable(doors.asked.constFirst()));
            } else {
                QVERIFY2(doors.asked.isEmpty(), what.constData());
                doors.forgetAnswers();
            }
            unloadAll();
        }
        ScriptedDoors doors;
        guarded([] { form<FrmWeb>()->Show(); });
        QVERIFY2(!doors.ended && isLoaded<FrmWeb>() && doors.asked.isEmpty(), what.constData());
        unloadAll();
    }
    qInfo("%d of %d starts told of the damage, and offered the shipped settings", mended, damages);
    QVERIFY(mended > 0 && mended < damages);
}

// ---- Layout

void TestMainWindow::nothingOverlaps_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("frame");
    for (const QSize& size : {QSize(1366, 768), QSize(640, 480)}) {
        for (int tab : {0, 1, 2}) {
            QTest::addRow("%dx%d, tab %d", size.width(), size.height(), tab)
                << size << tab << QStringLiteral("Frame%1").arg(tab + 1);
        }
    }
}

/// Fails where a control of the page that is up lies over another or beyond what holds it, or is too low for
/// its text.
static void verifyNothingOverlaps(const MainWindow& window, const QString& frame)
{
    const auto* holder = window.web->findChild<QWidget*>(frame);
    const QRect tabs = placeOf(window.web->SSTab1);
    QVERIFY2(window.web->rect().contains(tabs), qPrintable(describe(window.web->SSTab1)));
    QVERIFY2(tabs.contains(placeOf(holder)), qPrintable(describe(holder)));

    static const QRegularExpression controlName(
        QStringLiteral("^(Cmd|Label|Option|Combo|Command|RichTextBox|WebBrowser|ProgressBar)[A-Za-z0-9]+$"));
    QList<QWidget*> controls;
    for (QWidget* control : holder->findChildren<QWidget*>(controlName)) {
        if (control->isVisible())
            controls << control;
    }
    QVERIFY(controls.size() > 6);
    for (const QWidget* control : controls) {
        QVERIFY2(!control->size().isEmpty(), qPrintable(describe(control)));
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const bool hasText = !button || !button->text().isEmpty();
        QVERIFY2(!hasText || control->height() >= control->fontMetrics().height(),
                 qPrintable(describe(control) + QStringLiteral(" cuts off its text")));
        QVERIFY2(placeOf(holder).contains(placeOf(control)),
                 qPrintable(describe(control) + QStringLiteral(" is not inside ") + describe(holder)));
        const QRect room = control->parentWidget()->rect();
        QVERIFY2(room.contains(control->geometry()), qPrintable(describe(control)));
        for (const QWidget* other : controls) {
            if (other != control) {
                QVERIFY2(!placeOf(control).intersects(placeOf(other)),
                         qPrintable(describe(control) + QStringLiteral(" over ") + describe(other)));
            }
        }
    }
}

void TestMainWindow::nothingOverlaps()
{
    QFETCH(QSize, size);
    QFETCH(int, tab);
    QFETCH(QString, frame);
    MainWindow window;
    window.web->resize(size);
    QTRY_COMPARE(window.web->size(), size);
    window.showTab(static_cast<FrmWeb::Tab>(tab));
    QCoreApplication::processEvents();

    verifyNothingOverlaps(window, frame);
}

void TestMainWindow::tabsFillTheWindow_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1366x768") << QSize(1366, 768);
    QTest::newRow("640x480") << QSize(640, 480);
}

void TestMainWindow::tabsFillTheWindow()
{
    QFETCH(QSize, size);
    MainWindow window;
    window.web->resize(size);
    QTRY_COMPARE(window.web->size(), size);
    const QRect tabs = placeOf(window.web->SSTab1);
    const QRect toolbar = placeOf(window.web->Toolbar1);
    const QRect menu = placeOf(window.web->MenuBar1);
    QVERIFY(toolbar.top() >= menu.bottom());
    QVERIFY(tabs.top() > toolbar.bottom());
    QVERIFY(tabs.top() - toolbar.bottom() < 12);
    QVERIFY(tabs.left() >= 0 && tabs.left() < 12);
    QVERIFY2(size.width() - 1 - tabs.right() < 12, qPrintable(describe(window.web->SSTab1)));
    QVERIFY2(size.height() - 1 - tabs.bottom() < 24, qPrintable(describe(window.web->SSTab1)));

    // The cover lies on the source box, and the preview where the design surface is.
    QCOMPARE(window.web->Picture1->geometry(), window.web->RichTextBox1->geometry());
    QCOMPARE(window.web->WebBrowser3->geometry(), window.web->WebBrowser1->geometry());
}

/// The desktop's font may change while the window is up.
void TestMainWindow::largerFontMakesRoom()
{
    MainWindow window;
    window.web->resize(1366, 768);
    QTRY_COMPARE(window.web->size(), QSize(1366, 768));
    const QFont before = QApplication::font();
    const auto back = qScopeGuard([&before] { QApplication::setFont(before); });
    QFont larger = before;
    larger.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(larger);
    for (int tab : {0, 1, 2}) {
        window.showTab(static_cast<FrmWeb::Tab>(tab));
        QCoreApplication::processEvents();
        verifyNothingOverlaps(window, QStringLiteral("Frame%1").arg(tab + 1));
    }
}

/// However small the window is made, in any font.
void TestMainWindow::controlsAreSeenInTheLeastWindow()
{
    MainWindow window;
    const QFont before = QApplication::font();
    const auto back = qScopeGuard([&before] { QApplication::setFont(before); });
    for (const double times : {1.0, 1.3, 1.0}) {
        QFont font = before;
        font.setPointSizeF(before.pointSizeF() * times);
        QApplication::setFont(font);
        for (const int tab : {0, 1, 2}) {
            window.showTab(static_cast<FrmWeb::Tab>(tab));
            window.web->resize(1, 1);
            QCoreApplication::processEvents();
            verifyNothingOverlaps(window, QStringLiteral("Frame%1").arg(tab + 1));
            for (const QWidget* view : std::initializer_list<QWidget*>{
                     window.web->RichTextBox1, window.web->WebBrowser1, window.web->WebBrowser2})
                QVERIFY2(view->height() >= 99, qPrintable(describe(view)));
        }
    }
    QVERIFY(window.web->width() <= 640 && window.web->height() <= 480);
}

void TestMainWindow::tinyWindowIsNoError()
{
    MainWindow window;
    window.web->resize(640, 480);
    const QSize before = window.web->size();
    window.web->setMinimumSize(1, 1); // what a window manager may do
    window.web->resize(1, 1);
    QCoreApplication::processEvents();
    QVERIFY(!window.doors.ended);
    window.web->resize(before);
    QTRY_COMPARE(window.web->size(), before);
    const QRect tabs = placeOf(window.web->SSTab1);
    QVERIFY(before.width() - 1 - tabs.right() < 12);
}

// ---- Other windows

void TestMainWindow::aboutWindow()
{
    About* about = form<About>();
    about->Show();
    QVERIFY(about->isVisible());
    QCOMPARE(about->windowTitle(), QStringLiteral("About Brindlemark 1.0"));
    // What a report wants to know is there to be copied.
    const QList<QLabel*> lines = about->findChildren<QLabel*>();
    QVERIFY(std::any_of(lines.begin(), lines.end(), [](const QLabel* line) {
        static const QRegularExpression wanted(QStringLiteral(
            R"(^Qt 6\.\d+\.\d+\nChromium \d+(\.\d+){3}, with the security fixes up to \d+(\.\d+){3}$)"));
        return wanted.match(line->text()).hasMatch() &&
               line->textInteractionFlags() & Qt::TextSelectableByMouse;
    }));
    QStringList texts;
    for (const QLabel* label : about->findChildren<QLabel*>())
        texts << label->text();
    QVERIFY2(texts.join(u'\n').contains(QStringLiteral("Brindlemark 1.0")), qPrintable(texts.join(u'\n')));
}

void TestMainWindow::helpWindow()
{
    const ProgramFolder folder;
    folder.write(QStringLiteral("Help0.htm"), "<html><head><title>Page of this folder</title></head>");
    FrmHelp* help = form<FrmHelp>();
    QCOMPARE(help->windowTitle(), QStringLiteral("Help"));
    help->Show();
    QTRY_COMPARE_WITH_TIMEOUT(
        probe(help->WebBrowser1).evaluate(QStringLiteral("document.title")).value_or(QVariant()).toString(),
        QStringLiteral("Page of this folder"), 10000);
}

// ---- End

/// Closes the window by its frame or by the menu.
static void closeWindow(const MainWindow& window, bool byMenu)
{
    if (byMenu) {
        window.choose(window.web->Mnfile, window.web->MnExit);
    } else {
        window.web->close();
    }
}

static void closingWays()
{
    QTest::addColumn<bool>("byMenu");
    QTest::newRow("frame") << false;
    QTest::newRow("menu") << true;
}

void TestMainWindow::closeCleanDocument_data()
{
    closingWays();
}

void TestMainWindow::closeCleanDocument()
{
    QFETCH(bool, byMenu);
    MainWindow window;
    closeWindow(window, byMenu);
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.doors.ended, 0);
    QVERIFY(!isLoaded<FrmWeb>());
}

void TestMainWindow::closeAsksAboutChanges_data()
{
    QTest::addColumn<bool>("byMenu");
    QTest::addColumn<MsgAnswer>("answer");
    QTest::newRow("frame, No") << false << MsgAnswer::No;
    QTest::newRow("menu, No") << true << MsgAnswer::No;
    QTest::newRow("frame, Cancel") << false << MsgAnswer::Cancel;
    QTest::newRow("menu, Cancel") << true << MsgAnswer::Cancel;
}

void TestMainWindow::closeAsksAboutChanges()
{
    QFETCH(bool, byMenu);
    QFETCH(MsgAnswer, answer);
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(answer);
    closeWindow(window, byMenu);
    QCOMPARE(window.doors.takeAsked(), QStringList{SaveQuestion});
    QCOMPARE(window.doors.beeps, 1);
    if (answer == MsgAnswer::No) {
        QCOMPARE(window.doors.ended, 0);
        return;
    }
    QVERIFY(!window.doors.ended);
    QVERIFY(isLoaded<FrmWeb>());
    QVERIFY(window.web->isVisible());
    QCOMPARE(window.source(), QByteArray("word"));
    QVERIFY(window.web->Dirty());
}

void TestMainWindow::closeSavesOnYes()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.doors.answerSave(window.folder.path(QStringLiteral("page.htm")));
    window.web->close();
    QCOMPARE(window.doors.ended, 0);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("word\r\n"));
}

void TestMainWindow::windowCannotBeClosedWhileCancelHolds()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.web->close();
    QVERIFY(!window.doors.ended);

    // Saved meanwhile: no question, and still no end.
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(!window.web->Dirty());
    window.doors.takeAsked();
    for (bool byMenu : {false, true}) {
        closeWindow(window, byMenu);
        QCOMPARE(window.doors.asked, QStringList());
        QVERIFY(!window.doors.ended);
        QVERIFY(window.web->isVisible());
    }

    // Changed anew and answered otherwise.
    window.type(QStringLiteral("s"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.web->close();
    QCOMPARE(window.doors.takeAsked().size(), 1);
    QCOMPARE(window.doors.ended, 0);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("word\r\n"));
}

void TestMainWindow::closeEndsWithToolsOpen()
{
    MainWindow window;
    const QList<Form*> tools = {form<About>(), form<FrmHelp>(), form<Find>(), form<FrmWord>()};
    for (Form* tool : tools) {
        tool->Show();
        QVERIFY(tool->isVisible());
    }
    window.web->close();
    QCOMPARE(window.doors.ended, 0);
    QCOMPARE(window.doors.asked, QStringList());
}

void TestMainWindow::untrappedErrorKeepsTheText()
{
    MainWindow window;
    window.folder.write(QStringLiteral("Recovered.htm"), "an earlier text");
    window.folder.write(QStringLiteral("Recovered.old.htm"), "the one before that");
    window.web->RichTextBox1->setText("Gr\xC3\xBC\xC3\x9F"
                                      "e\r\n\xFF");
    window.doors.answerMsgBox(MsgAnswer::Ok);
    guarded([] { throw RuntimeError(ErrorNumber::Overflow); });
    QCOMPARE(window.doors.ended, 1);
    QVERIFY(window.folder.has(QStringLiteral("Recovered.htm")));
    QVERIFY(window.folder.read(QStringLiteral("Recovered.htm"))
                .startsWith("Gr\xC3\xBC\xC3\x9F"
                            "e\r\n\xFF"));
    QCOMPARE(window.folder.read(QStringLiteral("Recovered.old.htm")), QByteArray("an earlier text"));
    const QString record = window.doors.takeAsked().value(0);
    QVERIFY2(record.startsWith(QStringLiteral("MsgBox|Brindlemark|Run-time error '6':\n\nOverflow\n\n")),
             qPrintable(record));
    QVERIFY2(record.contains(QStringLiteral("Recovered.htm")), qPrintable(record));
    QVERIFY2(record.endsWith(QStringLiteral("|Stop|Ok")), qPrintable(record));
}

void TestMainWindow::untrappedErrorOfAnEmptyDocumentKeepsNothing()
{
    MainWindow window;
    window.doors.answerMsgBox(MsgAnswer::Ok);
    guarded([] { throw RuntimeError(ErrorNumber::Overflow); });
    QCOMPARE(window.doors.ended, 1);
    QVERIFY(!window.folder.has(QStringLiteral("Recovered.htm")));
    QCOMPARE(window.doors.asked, QStringList{"MsgBox|Brindlemark|Run-time error '6':\n\nOverflow|Stop|Ok"});
}

void TestMainWindow::failedStampKeepsTheText()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.web->RichTextBox1->setText("word<META content=x>");
    window.doors.answerMsgBox(MsgAnswer::Ok);
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(window.doors.ended, 1);
    QVERIFY(window.doors.takeAsked().value(0).contains(QStringLiteral("Recovered.htm")));
    QVERIFY(window.folder.has(QStringLiteral("Recovered.htm")));
    QVERIFY(window.folder.read(QStringLiteral("Recovered.htm")).contains("word<META content=x>"));
}

WEB_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
