// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProgramFolder.h"
#include "ScriptedDoors.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "forms/Wait.h"
#include "shell/FindBar.h"
#include "shell/FrmWeb.h"
#include "source/RichTextBox.h"
#include "web/DocumentSurface.h"

#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTabBar>
#include <QWebEnginePage>
#include <csignal>

using namespace brindlemark;

namespace {

const QByteArray BlankDocument = "<HEAD>\r\n<META content=\"Brindlemark 1.0\" name=GENERATOR></HEAD>\r\n"
                                 "<BODY></BODY>";

/// A page as it comes back from the surface and was stamped.
QByteArray page(const QByteArray& body)
{
    return "<HEAD>\r\n<META content=\"Brindlemark 1.0\" name=GENERATOR></HEAD>\r\n<BODY>" + body + "</BODY>";
}

constexpr int Editor = FrmWeb::EditorTab;
constexpr int Preview = FrmWeb::PreviewTab;
constexpr int Internet = FrmWeb::InternetTab;

/// Counts how often a widget came on the screen.
class ShowCounter : public QObject
{
public:
    explicit ShowCounter(QWidget* widget) { widget->installEventFilter(this); }
    int shows = 0;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            ++shows;
        return false;
    }
};

/// The main window in a program folder of its own, shown.
class Desk
{
public:
    Desk()
    {
        web = std::make_unique<FrmWeb>();
        web->resize(900, 600);
        web->show();
        box = web->RichTextBox1;
        surface = web->WebBrowser1;
        preview = web->WebBrowser3;
    }
    ~Desk()
    {
        web.reset();
        if (isLoaded<Wait>())
            form<Wait>()->Unload();
    }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    void goTo(int tab) const
    {
        QTabBar* bar = web->SSTab1->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(tab).center());
        QCOMPARE(web->SSTab1->Tab(), tab);
    }
    void waitForKeyboard() const { QVERIFY(QTest::qWaitForWindowActive(web.get())); }
    /// Presses keys, wherever the keyboard is.
    void type(const char* letters) const
    {
        for (; *letters; ++letters)
            QTest::keyClick(web->windowHandle(), *letters);
    }
    bool hasKeyboard(const DocumentSurface* view) const
    {
        return view->inputWidget() && web->focusWidget() == view->inputWidget();
    }
    void press(QAbstractButton* button) const { QTest::mouseClick(button, Qt::LeftButton); }
    void press(Tool wanted) const { web->toolbarButton(wanted)->trigger(); }
    void designOn() const { choose(web->Option1); }
    void designOff() const { choose(web->Option2); }
    /// Has the preview in place of the design surface, with the editor up.
    void beginWithDesignOff() const
    {
        goTo(Preview);
        designOff();
        goTo(Editor);
    }

    /// The body of what a surface shows, as it prints it.
    static QString body(DocumentSurface* browser)
    {
        const QString html = browser->innerHtml();
        const qsizetype start = html.indexOf(QStringLiteral("<BODY"));
        const qsizetype inside = html.indexOf(u'>', start) + 1;
        return html.mid(inside, html.lastIndexOf(QStringLiteral("</BODY>")) - inside);
    }
    QString body() const { return body(surface); }

    /// Replaces what the design surface shows, as editing does: behind the program's back.
    void edit(const QString& html) const
    {
        surface->innerHtml(); // the empty document is made when something first asks for it
        QVERIFY(probe(surface).evaluate(QStringLiteral("document.body.innerHTML = '%1'; 1").arg(html)));
    }
    /// A document on the design surface, all of it selected.
    void design(const QByteArray& html) const
    {
        box->setText(html);
        goTo(Preview);
        QVERIFY(surface->execCommand(QStringLiteral("SelectAll")));
    }

    /// How the design surface shows the first text in it.
    QString lookOfTheWord(const char* property) const
    {
        return probe(surface)
            .evaluate(QStringLiteral("getComputedStyle(document.createTreeWalker(document.body, "
                                     "NodeFilter.SHOW_TEXT, text => text.data.trim() ? 1 : 3).nextNode()"
                                     ".parentElement).%1")
                          .arg(QLatin1String(property)))
            .value_or(QVariant())
            .toString();
    }

    /// Ends the renderer of a surface as a crash does.
    static void crash(DocumentSurface* browser)
    {
        const qint64 pid = probe(browser).rendererPid();
        QVERIFY(pid > 0);
        QCOMPARE(::kill(static_cast<pid_t>(pid), SIGKILL), 0);
    }

    ProgramFolder folder;
    ScriptedDoors script;
    std::unique_ptr<FrmWeb> web;
    RichTextBox* box = nullptr;
    DocumentSurface* surface = nullptr;
    DocumentSurface* preview = nullptr;

private:
    static void choose(OptionButton* option)
    {
        QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, QPoint(8, option->height() / 2));
        QVERIFY(option->Value());
    }
};

/// A button of the main window's form.
using Button = QToolButton* Ui_FrmWeb::*;

/// The record of a message box that the program shows under its own name, whatever it says.
bool isNotice(const QString& asked)
{
    return asked.startsWith(QStringLiteral("MsgBox|Brindlemark|")) && asked.endsWith(QStringLiteral("|Ok"));
}

} // namespace

class TestViews : public QObject
{
    Q_OBJECT

private slots:
    void startState();
    void toolsOfEachTab_data();
    void toolsOfEachTab();
    void copyButtonsFollowTheSelection();
    void copyButtonsAfterAReturnToTheEditor();

    void firstVisitIsQuick();
    void editorTakesTheSurface();
    void coverStandsWhileTheSourceIsRewritten();
    void editsComeBack();
    void typingOnTheSurface();
    void typingRightAfterAChangeToThePreview_data();
    void typingRightAfterAChangeToThePreview();
    void boldRightAfterAChangeToThePreview();
    void arrowKeysWalkOverTheTabs();
    void typingGoesOn_data();
    void typingGoesOn();
    void previewKeepsTheKeyboard_data();
    void previewKeepsTheKeyboard();
    void visitWithoutAnEditRaisesDirty();
    void anotherVisitChangesNothing();
    void blankSurfaceGivesTheBlankDocument();
    void emptySourceLeavesTheSurface();
    void returnFromTheInternetTabTakesTheSurface();
    void designEditsWithDesignOffStayBehind();
    void designOffShowsThePreviewAlone();
    void fragmentAddedOnThePreviewTabIsOverwritten();
    void longDocumentIsMovedWhole();
    void markersSurvive();
    void eightBitTextSurvives();
    void highlightIsMadeAnewOnReturn();
    void oneUndoBringsTheTypedTextBack();

    void stamp_data();
    void stamp();
    void stampKeepsTheCaret();
    void stampBeyondTheWorkingSelection();
    void metaWithoutASecondHalfEndsTheProgram_data();
    void metaWithoutASecondHalfEndsTheProgram();
    void metaOnTheSurfaceIsHarmless_data();
    void metaOnTheSurfaceIsHarmless();
    void otherMetaOfThePageSurvives();

    void saveOnThePreviewTab();
    void saveWithDesignOffWritesTheOlderSurface();
    void saveOnTheInternetTabWritesAnEmptyLine();
    void saveAsOnThePreviewTab();
    void saveAsCancelledLeavesTheSource();
    void newWithNothingTyped();
    void newAfterEdits_data();
    void newAfterEdits();
    void newLeavesThePreview();
    void openOnThePreviewTab();
    void openWithDesignOff();
    void openDeclinedThenCancelledEmptiesBothSurfaces();
    void surfaceEditsAloneAskNothing();

    void cutCopyPasteOnTheSurface();
    void selectAllOnTheSurface();
    void copyTheHtmlOfTheSurface();
    void clipboardEntriesOnTheInternetTab();

    void designOptionHandsOver();
    void designOptionHandsOverEdits();
    void designToolsFollowTheOption();

    void commandButtons_data();
    void commandButtons();
    void undoAndRedo();
    void colorButtons_data();
    void colorButtons();
    void colorCancelled();
    void fontNames();
    void fontSizes_data();
    void fontSizes();
    void otherFontSizesDoNothing_data();
    void otherFontSizesDoNothing();
    void fontSizeByKey();
    void enterInTheFontListNavigates_data();
    void enterInTheFontListNavigates();

    void linkByButton();
    void linkByKey();
    void linkEdited();
    void linkRemoved();
    void linkCancelled();

    void findBar();
    void findByButton();
    void findBarFindsNothing();

    void rendererDiesBeforeATabChange();
    void rendererDiesWhileTheUserLooks();
    void rendererDiesWhileHidden();
    void rendererDiesBeforeASave();
    void rendererDiesAtTheSaveQuestion_data();
    void rendererDiesAtTheSaveQuestion();
    void rendererDiesBeforeTheWholePageIsCopied();
    void rendererDiesBeforeDesignOff();
    void previewDies();
    void endlessScriptOnThePreview();
    void designOnAfterAnEndlessScript();
    void endlessScriptBeginsLater();
};

// ---- Toolbar and menus

static QList<int> enabledButtons(const FrmWeb& web)
{
    QList<int> enabled;
    for (int i = 1; i <= 22; ++i) {
        if (i != 5 && i != 10 && i != 14 && i != 16 && web.Toolbar1->actions().at(i - 1)->isEnabled())
            enabled << i;
    }
    return enabled;
}

static QStringList enabledMenus(const FrmWeb& web)
{
    QStringList enabled;
    for (QMenu* menu : {web.Mnfile, web.MnEdit, web.munview, web.munoptions, web.muinternet}) {
        if (menu->menuAction()->isEnabled())
            enabled << menu->objectName();
    }
    for (QAction* entry : {web.muQW, web.munhelp, web.munabout, web.muncolorcode}) {
        if (entry->isEnabled())
            enabled << entry->objectName();
    }
    return enabled;
}

void TestViews::startState()
{
    Desk desk;
    QCOMPARE(desk.web->SSTab1->Tab(), Editor);
    QVERIFY(desk.web->Option1->Value());
    QVERIFY(!desk.web->Option2->Value());
    QVERIFY(!desk.preview->isVisible());
    QCOMPARE(desk.surface->designMode(), DesignMode::On);
    QCOMPARE(desk.preview->designMode(), DesignMode::Off);
    QCOMPARE(desk.web->Combo1->Text(), QStringLiteral("Arial"));
    QCOMPARE(desk.web->Combo2->Text(), QStringLiteral("Normal"));
    QVERIFY(!desk.web->munview->menuAction()->isEnabled());
    QVERIFY(desk.box->isEmpty());
    QVERIFY(!desk.web->Dirty());
}

void TestViews::toolsOfEachTab_data()
{
    QTest::addColumn<QList<int>>("visits");
    for (const QList<int>& visits : {QList<int>{1},
                                     {2},
                                     {1, 0},
                                     {2, 0},
                                     {1, 2},
                                     {2, 1},
                                     {1, 2, 0},
                                     {2, 1, 0},
                                     {1, 0, 1},
                                     {1, 0, 2},
                                     {2, 0, 1},
                                     {2, 0, 2},
                                     {1, 2, 1},
                                     {2, 1, 2}}) {
        QByteArray name = "0";
        for (int tab : visits)
            name += '-' + QByteArray::number(tab);
        QTest::newRow(name.constData()) << visits;
    }
}

void TestViews::toolsOfEachTab()
{
    struct Tools
    {
        QList<int> buttons;
        QStringList menus;
    };
    const Tools expected[] = {
        {{1, 2, 3, 4, 6, 7, 8, 9, 11, 12, 13, 15, 17, 18, 19, 20, 21, 22},
         {"Mnfile", "MnEdit", "munoptions", "muinternet", "muQW", "munhelp", "munabout", "muncolorcode"}},
        {{1, 2, 3, 4, 6, 7, 8, 9, 15}, {"Mnfile", "muinternet", "muQW", "munhelp", "munabout"}},
        {{1, 2, 3, 4}, {"Mnfile", "munview", "muinternet", "muQW", "munhelp", "munabout"}},
    };
    QFETCH(QList<int>, visits);
    Desk desk;
    for (int tab : visits) {
        desk.goTo(tab);
        QCOMPARE(enabledButtons(*desk.web), expected[tab].buttons);
        QCOMPARE(enabledMenus(*desk.web), expected[tab].menus);
    }
}

void TestViews::copyButtonsFollowTheSelection()
{
    Desk desk;
    const auto enabled = [&] { // Cut, Copy, Paste
        return QList<bool>{desk.web->toolbarButton(Tool::Cut)->isEnabled(),
                           desk.web->toolbarButton(Tool::Copy)->isEnabled(),
                           desk.web->toolbarButton(Tool::Paste)->isEnabled()};
    };
    const QList<bool> both{true, true, true};
    const QList<bool> none{false, false, true};
    desk.box->setText("word");
    desk.box->setSelStart(1);
    QCOMPARE(enabled(), none);
    desk.box->setSelLength(1);
    QCOMPARE(enabled(), both);
    desk.box->setSelLength(0);
    QCOMPARE(enabled(), none);
    QTest::keyClick(desk.box, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(enabled(), both);
    QTest::keyClick(desk.box, Qt::Key_Right);
    QCOMPARE(enabled(), none);
}

void TestViews::copyButtonsAfterAReturnToTheEditor()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.goTo(Editor);
    // The return switches them on although nothing is selected; the next change of the selection decides.
    QVERIFY(desk.web->toolbarButton(Tool::Cut)->isEnabled());
    QVERIFY(desk.web->toolbarButton(Tool::Copy)->isEnabled());
    desk.box->setSelStart(2);
    QVERIFY(!desk.web->toolbarButton(Tool::Cut)->isEnabled());
    QVERIFY(!desk.web->toolbarButton(Tool::Copy)->isEnabled());
}

// ---- Tab changes

void TestViews::firstVisitIsQuick()
{
    Desk desk;
    desk.box->setText("<p>word");
    QElapsedTimer timer;
    timer.start();
    desk.goTo(Preview);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
}

void TestViews::editorTakesTheSurface()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.box->setSelStart(4);
    desk.goTo(Preview);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>word</P>"));
    QCOMPARE(desk.box->SelLength(), 0);
    QVERIFY(!desk.web->Picture1->isVisible());
    QVERIFY(desk.box->isVisible());
    QCOMPARE(desk.web->focusWidget(), static_cast<QWidget*>(desk.box));
}

void TestViews::coverStandsWhileTheSourceIsRewritten()
{
    Desk desk;
    const ShowCounter cover(desk.web->Picture1);
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    QCOMPARE(cover.shows, 0);
    desk.goTo(Editor);
    QCOMPARE(cover.shows, 1);
    QVERIFY(!desk.web->Picture1->isVisible());
    desk.beginWithDesignOff();
    QCOMPARE(cover.shows, 2);
    QVERIFY(!desk.web->Picture1->isVisible());
}

void TestViews::editsComeBack()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.web->document().setDirty(false);
    desk.edit(QStringLiteral("<p>other</p>"));
    QVERIFY2(!desk.web->Dirty(), "the surface alone does not make the document dirty");
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>other</P>"));
    QVERIFY(desk.web->Dirty());
}

void TestViews::typingOnTheSurface()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    QVERIFY(QTest::qWaitForWindowActive(desk.web.get()));
    desk.surface->setFocus();
    QTRY_VERIFY(desk.surface->inputWidget() &&
                desk.surface->inputWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(desk.surface->inputWidget(), QStringLiteral("ab "));
    QTRY_VERIFY(desk.body().startsWith(QStringLiteral("\r\n<P>ab word")));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>ab word</P>"));
}

void TestViews::typingRightAfterAChangeToThePreview_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("body");
    QTest::newRow("text") << QByteArray("<p>word") << QStringLiteral("\r\n<P>a b.word</P>");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("a b.");
}

/// No click is needed, and nothing is lost of what is typed while the page is being shown.
void TestViews::typingRightAfterAChangeToThePreview()
{
    QFETCH(QByteArray, source);
    QFETCH(QString, body);
    Desk desk;
    desk.waitForKeyboard();
    for (int visit = 0; visit < 3; ++visit) { // the first one starts the engine
        desk.box->setText(source);
        if (source.isEmpty())
            desk.surface->write(QString());
        desk.goTo(Preview);
        desk.type("a b.");
        QTRY_COMPARE(desk.body(), body);
        desk.goTo(Editor);
        desk.type("c");
        QVERIFY2(desk.box->Text().contains('c'), "the source box has the keyboard");
    }
    QVERIFY(desk.web->Option1->Value());
}

void TestViews::boldRightAfterAChangeToThePreview()
{
    Desk desk;
    desk.waitForKeyboard();
    for (int visit = 0; visit < 5; ++visit) {
        desk.box->setText("<p>word");
        desk.goTo(Preview);
        desk.press(desk.web->Command1);
        desk.type("ab");
        QTRY_COMPARE(desk.body(), QStringLiteral("\r\n<P><B>ab</B>word</P>"));
        desk.goTo(Editor);
    }
}

void TestViews::arrowKeysWalkOverTheTabs()
{
    Desk desk;
    desk.waitForKeyboard();
    desk.web->SSTab1->tabBar()->setFocus(Qt::TabFocusReason);
    for (const int tab : {Preview, Internet}) {
        QTest::keyClick(desk.web->windowHandle(), Qt::Key_Right);
        QCOMPARE(desk.web->SSTab1->Tab(), tab);
    }
}

/// What is done to the document while the tab Preview is up.
using Operation = void (*)(Desk& desk);

static void addOperations()
{
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char* name, Operation operation) { QTest::newRow(name) << operation; };
    row("Save", [](Desk& desk) { desk.press(Tool::Save); });
    row("Save As", [](Desk& desk) {
        desk.script.answerSave(desk.folder.path(QStringLiteral("new.htm")));
        desk.press(Tool::SaveAs);
    });
    row("HTML Select all and Copy", [](Desk& desk) { desk.web->mnuhtml->trigger(); });
    row("New", [](Desk& desk) {
        desk.script.answerMsgBox(MsgAnswer::Yes);
        desk.press(Tool::New);
    });
    row("New, cancelled", [](Desk& desk) {
        desk.script.answerMsgBox(MsgAnswer::Cancel);
        desk.press(Tool::New);
    });
    row("Open", [](Desk& desk) {
        desk.folder.write(QStringLiteral("other.htm"), "<p>other");
        desk.script.answerMsgBox(MsgAnswer::Yes);
        desk.script.answerOpen(desk.folder.path(QStringLiteral("other.htm")));
        desk.press(Tool::Open);
    });
}

void TestViews::typingGoesOn_data()
{
    addOperations();
}

/// Letters that are typed behind an operation land on the surface, and a save has them.
void TestViews::typingGoesOn()
{
    QFETCH(Operation, operation);
    Desk desk;
    desk.waitForKeyboard();
    desk.box->setText("<p>word");
    desk.web->document().setName(desk.folder.path(QStringLiteral("page.htm")));
    desk.goTo(Preview);
    desk.type("one ");
    QTRY_COMPARE(desk.body(), QStringLiteral("\r\n<P>one word</P>"));
    operation(desk);
    const QByteArray source = desk.box->Text();
    desk.type("two ");
    QVERIFY(desk.hasKeyboard(desk.surface));
    QTRY_VERIFY2(desk.body().contains(QStringLiteral("two")), qPrintable(desk.body()));
    QCOMPARE(desk.box->Text(), source);
    desk.web->document().setName(desk.folder.path(QStringLiteral("page.htm")));
    desk.press(Tool::Save);
    QVERIFY(desk.folder.read(QStringLiteral("page.htm")).contains("two"));
}

void TestViews::previewKeepsTheKeyboard_data()
{
    addOperations();
}

void TestViews::previewKeepsTheKeyboard()
{
    QFETCH(Operation, operation);
    Desk desk;
    desk.waitForKeyboard();
    desk.box->setText("<p>word");
    desk.web->document().setName(desk.folder.path(QStringLiteral("page.htm")));
    desk.beginWithDesignOff();
    desk.goTo(Preview);
    QTRY_VERIFY(desk.hasKeyboard(desk.preview));
    operation(desk);
    const QByteArray source = desk.box->Text();
    desk.type("two ");
    QVERIFY(desk.hasKeyboard(desk.preview));
    QCOMPARE(desk.box->Text(), source);
}

void TestViews::visitWithoutAnEditRaisesDirty()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.web->document().setDirty(false);
    desk.goTo(Preview);
    QVERIFY(!desk.web->Dirty());
    desk.goTo(Editor);
    QVERIFY(desk.web->Dirty());
}

void TestViews::anotherVisitChangesNothing()
{
    Desk desk;
    desk.box->setText("<table><tr><td>a<td bgcolor=red>b</table><p>c<br>d<hr>&amp;&nbsp;<!-- e -->");
    desk.goTo(Preview);
    desk.goTo(Editor);
    const QByteArray once = desk.box->Text();
    desk.goTo(Preview);
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), once);
}

void TestViews::blankSurfaceGivesTheBlankDocument()
{
    Desk desk;
    desk.web->document().setDirty(true);
    desk.goTo(Preview);
    QVERIFY2(!desk.web->Dirty(), "an empty source is nothing to save");
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), BlankDocument);
    QVERIFY(!desk.web->Dirty());
    desk.goTo(Preview);
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), BlankDocument);
    QVERIFY(!desk.web->Dirty());
}

void TestViews::emptySourceLeavesTheSurface()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.goTo(Editor);
    desk.box->setText("");
    QVERIFY2(!desk.web->Dirty(), "emptied by a change");
    desk.web->document().setDirty(true);
    desk.goTo(Preview);
    QVERIFY(!desk.web->Dirty());
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>word</P>"));
    QVERIFY(desk.web->Dirty());
}

void TestViews::returnFromTheInternetTabTakesTheSurface()
{
    // The tab that was up before plays no part: the surface, blank here, replaces the source.
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Internet);
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), BlankDocument);
    QVERIFY(!desk.web->Dirty());
    QTest::keyClick(desk.box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
}

void TestViews::designEditsWithDesignOffStayBehind()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    desk.designOff();
    QCOMPARE(Desk::body(desk.preview), QStringLiteral("\r\n<P>other</P>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
}

void TestViews::designOffShowsThePreviewAlone()
{
    Desk desk;
    desk.box->setText("<p>one");
    desk.beginWithDesignOff();
    desk.box->setText("<p>two");
    desk.goTo(Preview);
    QVERIFY(desk.preview->isVisible());
    QVERIFY(!desk.surface->isVisible());
    QCOMPARE(Desk::body(desk.preview), QStringLiteral("\r\n<P>two</P>"));
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>one</P>"));
}

void TestViews::fragmentAddedOnThePreviewTabIsOverwritten()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.box->setSelText("<hr>");
    QCOMPARE(desk.box->Text(), QByteArray("<hr><p>word"));
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>word</P>"));
}

void TestViews::longDocumentIsMovedWhole()
{
    Desk desk;
    QByteArray source;
    QByteArray printed;
    for (int i = 0; i < 6000; ++i) {
        const QByteArray line = "line " + QByteArray::number(i) + " of the text";
        source += "<P>" + line + "</P>";
        printed += "\r\n<P>" + line + "</P>";
    }
    QVERIFY(source.size() > 2 * 90000 - 20000);
    desk.box->setText(source);
    desk.goTo(Preview);
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page(printed));
}

void TestViews::markersSurvive()
{
    Desk desk;
    desk.box->setText("<!-- body-buildwizard0 --><table><tr><td><!-- Body-title -->Lamp<!-- Body-title2 -->"
                      "</td></tr></table>");
    desk.goTo(Preview);
    desk.goTo(Editor);
    const QByteArray text = desk.box->Text();
    QVERIFY(text.contains("<!-- body-buildwizard0 -->"));
    QVERIFY(text.contains("<!-- Body-title -->Lamp<!-- Body-title2 -->"));
}

void TestViews::eightBitTextSurvives()
{
    Desk desk;
    desk.box->setText("<p>caf\xE9 \x80");
    desk.goTo(Preview);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>caf\u00E9 \u20AC</P>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>caf\xE9 \x80</P>"));
}

void TestViews::highlightIsMadeAnewOnReturn()
{
    Desk desk;
    desk.folder.write(QStringLiteral("web.ini"), "[Font]\r\nname=Liberation Mono\r\nsize=10\r\nbold=False\r\n"
                                                 "italic=False\r\nBG=16777215\r\n[Color]\r\none=255\r\n"
                                                 "two=2\r\nthree=3\r\nfour=4\r\nback=16777215\r\n");
    desk.box->setText("x<i>");
    desk.web->munhighlight->trigger();
    QVERIFY(desk.web->highlighted);
    desk.goTo(Preview);
    QVERIFY(desk.web->highlighted);
    desk.goTo(Editor);
    QVERIFY(desk.web->highlighted);
    QCOMPARE(desk.box->Text().left(6), QByteArray("<HEAD>"));
    QCOMPARE(desk.box->colorAt(0), 255);
    QCOMPARE(desk.box->colorAt(6), 4);
    QVERIFY(!desk.web->Picture1->isVisible());
    // The walk over the text comes behind the switching of the buttons, and leaves nothing selected.
    QVERIFY(!desk.web->toolbarButton(Tool::Cut)->isEnabled());
    QVERIFY(!desk.web->toolbarButton(Tool::Copy)->isEnabled());
    QVERIFY(desk.web->toolbarButton(Tool::Paste)->isEnabled());
}

void TestViews::oneUndoBringsTheTypedTextBack()
{
    Desk desk;
    QTest::keyClicks(desk.box, QStringLiteral("one<b>two"));
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>other</P>"));
    QTest::keyClick(desk.box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.box->Text(), QByteArray("one<b>two"));
    QTest::keyClick(desk.box, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(desk.box->Text(), page("\r\n<P>other</P>"));
}

// ---- The stamp of the generator

void TestViews::stamp_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(expected);
    };
    row("another product", "a<META content=\"Other 5\" name=GENERATOR>b",
        "a<META content=\"Brindlemark 1.0\" name=GENERATOR>b");
    row("its own", "<META content=\"Brindlemark 1.0\" name=GENERATOR>",
        "<META content=\"Brindlemark 1.0\" name=GENERATOR>");
    row("small letters", "<meta content=x name=generator>",
        "<META content=\"Brindlemark 1.0\" name=generator>");
    row("two", "<META content=\"a\" name=GENERATOR><META content=\"b\" name=GENERATOR>",
        "<META content=\"Brindlemark 1.0\" name=GENERATOR><META content=\"Brindlemark 1.0\" name=GENERATOR>");
    row("from the first content to the next generator",
        "a<META content=\"t\" http-equiv=x>b<META content=\"y\" name=GENERATOR>c",
        "a<META content=\"Brindlemark 1.0\" name=GENERATOR>c");
    row("name first", "<META name=GENERATOR content=\"x\">", "<META name=GENERATOR content=\"x\">");
    row("none", "<p>word", "<p>word");
}

void TestViews::stamp()
{
    // With the Design option off the source comes back as it was, stamped.
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    Desk desk;
    desk.beginWithDesignOff();
    desk.box->setText(text);
    desk.goTo(Preview);
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), expected);
}

void TestViews::stampKeepsTheCaret()
{
    Desk desk;
    desk.beginWithDesignOff();
    desk.box->setText("abc<META content=\"Other 5\" name=GENERATOR>d");
    desk.box->setSelStart(2);
    desk.box->setSelLength(5);
    desk.goTo(Preview);
    desk.goTo(Editor);
    QCOMPARE(desk.box->SelStart(), 2);
    QCOMPARE(desk.box->SelLength(), 0);
}

void TestViews::stampBeyondTheWorkingSelection()
{
    Desk desk;
    desk.beginWithDesignOff();
    const QByteArray text(90010, 'a');
    desk.box->setText(text + "<META content=\"b\" name=GENERATOR>c");
    desk.goTo(Preview);
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), text + "<META content=\"Brindlemark 1.0\" name=GENERATOR>c");
}

void TestViews::metaWithoutASecondHalfEndsTheProgram_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("typed half") << QByteArray("my text <META content=");
    QTest::newRow("at the start") << QByteArray("<META content=");
    QTest::newRow("another kind") << QByteArray("my text <META content=\"a\" http-equiv=b>");
    QTest::newRow("quoted name") << QByteArray("my text <META content=\"a\" name=\"GENERATOR\">");
    QTest::newRow("second half in front") << QByteArray("my text name=GENERATOR> <META content=\"a\">");
}

void TestViews::metaWithoutASecondHalfEndsTheProgram()
{
    QFETCH(QByteArray, text);
    Desk desk;
    desk.beginWithDesignOff();
    desk.box->setText(text);
    desk.goTo(Preview);
    QVERIFY(!desk.script.ended);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.goTo(Editor);
    QCOMPARE(desk.script.ended, 1);
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY2(
        desk.script.asked.constFirst().startsWith(QStringLiteral("MsgBox|Brindlemark|Run-time error '380'")),
        qPrintable(desk.script.asked.constFirst()));
    QVERIFY2(desk.script.asked.constFirst().contains(QStringLiteral("Recovered.htm")),
             qPrintable(desk.script.asked.constFirst()));
    QVERIFY(desk.folder.has(QStringLiteral("Recovered.htm")));
    QVERIFY(desk.folder.read(QStringLiteral("Recovered.htm")).contains(text));
}

void TestViews::metaOnTheSurfaceIsHarmless_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::newRow("in a comment") << QByteArray("<p>word<!-- <META content= -->");
    QTest::newRow("in a style") << QByteArray("<style>/*<META content=*/</style><p>word");
    QTest::newRow("in an attribute") << QByteArray("<p title='<META content='>word");
    QTest::newRow("in the text") << QByteArray("<p>word&lt;META content=x");
    QTest::newRow("a tag of its own") << QByteArray("<META content=x><p>word");
    QTest::newRow("half a tag") << QByteArray("<p>word<META content=");
}

/// What the surface prints holds no "<META content=" but the generator's, so nothing typed there can end the
/// program.
void TestViews::metaOnTheSurfaceIsHarmless()
{
    QFETCH(QByteArray, source);
    Desk desk;
    desk.box->setText(source);
    desk.goTo(Preview);
    desk.goTo(Editor);
    QVERIFY(!desk.script.ended);
    QCOMPARE(desk.box->Text().count("<META content="), 1);
    QVERIFY(desk.box->Text().contains("<META content=\"Brindlemark 1.0\" name=GENERATOR></HEAD>"));
    QVERIFY(desk.box->Text().contains("word"));
}

void TestViews::otherMetaOfThePageSurvives()
{
    Desk desk;
    desk.box->setText("<HEAD><META content=\"text/html\" http-equiv=Content-Type></HEAD><p>word");
    desk.goTo(Preview);
    desk.goTo(Editor);
    QVERIFY(!desk.script.ended);
    QVERIFY(desk.box->Text().contains("http-equiv=Content-Type"));
    QVERIFY(desk.box->Text().contains("text/html"));
    QVERIFY(desk.box->Text().contains("<META content=\"Brindlemark 1.0\" name=GENERATOR>"));
    QVERIFY(desk.box->Text().contains("word"));
}

// ---- The document while the surface is up

void TestViews::saveOnThePreviewTab()
{
    Desk desk;
    const QString path = desk.folder.path(QStringLiteral("page.htm"));
    desk.box->setText("<p>word");
    desk.web->document().setName(path);
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    desk.press(Tool::Save);
    QCOMPARE(desk.folder.read(QStringLiteral("page.htm")), page("\r\n<P>other</P>") + "\r\n");
    QCOMPARE(desk.box->Text(), page("\r\n<P>other</P>"));
    QVERIFY(!desk.web->Dirty());
    QCOMPARE(desk.web->SSTab1->Tab(), Preview);
    desk.press(Tool::Save);
    QCOMPARE(desk.folder.read(QStringLiteral("page.htm")), page("\r\n<P>other</P>") + "\r\n");
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>other</P>"));
}

void TestViews::saveWithDesignOffWritesTheOlderSurface()
{
    Desk desk;
    desk.box->setText("<p>older");
    desk.beginWithDesignOff();
    desk.box->setText("<p>newer");
    desk.web->document().setName(desk.folder.path(QStringLiteral("page.htm")));
    desk.goTo(Preview);
    desk.press(Tool::Save);
    QCOMPARE(desk.folder.read(QStringLiteral("page.htm")), page("\r\n<P>older</P>") + "\r\n");
}

void TestViews::saveOnTheInternetTabWritesAnEmptyLine()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.web->document().setName(desk.folder.path(QStringLiteral("page.htm")));
    desk.goTo(Internet);
    desk.press(Tool::Save);
    QCOMPARE(desk.folder.read(QStringLiteral("page.htm")), QByteArray("\r\n"));
    QVERIFY(!desk.web->Dirty());
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
}

void TestViews::saveAsOnThePreviewTab()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.script.answerSave(desk.folder.path(QStringLiteral("new.htm")));
    desk.press(Tool::SaveAs);
    QCOMPARE(desk.folder.read(QStringLiteral("new.htm")), page("\r\n<P>word</P>") + "\r\n");
    QCOMPARE(desk.web->windowTitle(), QStringLiteral("new.htm - Brindlemark 1.0"));
    QVERIFY(!desk.web->Dirty());
}

void TestViews::saveAsCancelledLeavesTheSource()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.script.cancelSave();
    desk.press(Tool::Save); // "Untitled" leads to Save As
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
    QVERIFY(desk.web->Dirty());
    QCOMPARE(desk.script.asked.size(), 1);
}

void TestViews::newWithNothingTyped()
{
    Desk desk;
    desk.goTo(Preview);
    desk.web->document().setDirty(true);
    desk.press(Tool::New);
    QCOMPARE(desk.script.asked, QStringList());
    QVERIFY(desk.box->isEmpty());
    QVERIFY(!desk.web->Dirty());
    QCOMPARE(desk.web->windowTitle(), QStringLiteral("Untitled - Brindlemark 1.0"));
}

void TestViews::newAfterEdits_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::addColumn<bool>("emptied");
    QTest::newRow("No") << MsgAnswer::No << true;
    QTest::newRow("Cancel") << MsgAnswer::Cancel << false;
}

void TestViews::newAfterEdits()
{
    QFETCH(MsgAnswer, answer);
    QFETCH(bool, emptied);
    Desk desk;
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    desk.script.answerMsgBox(answer);
    desk.press(Tool::New);
    QCOMPARE(desk.script.asked,
             QStringList{"MsgBox|Brindlemark|Untitled - File has changed. Do you wish to save changes "
                         "?|Information|YesNoCancel"});
    QCOMPARE(desk.web->SaveCancelled(), !emptied);
    QCOMPARE(desk.web->SaveDeclined(), emptied);
    QCOMPARE(desk.box->Text(), emptied ? QByteArray() : page("\r\n<P>other</P>"));
    QCOMPARE(desk.body(), emptied ? QString() : QStringLiteral("\r\n<P>other</P>"));
}

void TestViews::newLeavesThePreview()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.designOff();
    desk.script.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    QCOMPARE(desk.body(), QString());
    QCOMPARE(Desk::body(desk.preview), QStringLiteral("\r\n<P>word</P>"));
}

void TestViews::openOnThePreviewTab()
{
    Desk desk;
    desk.folder.write(QStringLiteral("page.htm"), "<p>from a file");
    desk.goTo(Preview);
    desk.script.answerOpen(desk.folder.path(QStringLiteral("page.htm")));
    desk.press(Tool::Open);
    QCOMPARE(desk.box->Text(), QByteArray("<p>from a file"));
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>from a file</P>"));
    QCOMPARE(desk.web->windowTitle(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QVERIFY(desk.web->Dirty());
}

void TestViews::openWithDesignOff()
{
    Desk desk;
    desk.folder.write(QStringLiteral("page.htm"), "<p>from a file");
    desk.goTo(Preview);
    desk.designOff();
    desk.script.answerOpen(desk.folder.path(QStringLiteral("page.htm")));
    desk.press(Tool::Open);
    QCOMPARE(Desk::body(desk.preview), QStringLiteral("\r\n<P>from a file</P>"));
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>from a file</P>"));
}

void TestViews::openDeclinedThenCancelledEmptiesBothSurfaces()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.designOff();
    desk.script.answerMsgBox(MsgAnswer::No);
    desk.script.cancelOpen();
    desk.press(Tool::Open);
    QVERIFY(desk.box->isEmpty());
    QCOMPARE(desk.body(), QString());
    QCOMPARE(Desk::body(desk.preview), QString());
    QVERIFY(!desk.web->Dirty());
}

void TestViews::surfaceEditsAloneAskNothing()
{
    Desk desk;
    desk.folder.write(QStringLiteral("page.htm"), "<p>from a file");
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    desk.script.answerOpen(desk.folder.path(QStringLiteral("page.htm")));
    desk.press(Tool::Open);
    QCOMPARE(desk.script.asked.size(), 1);
}

// ---- Clipboard

void TestViews::cutCopyPasteOnTheSurface()
{
    Desk desk;
    desk.design("<p>word");
    desk.press(Tool::Copy);
    QCOMPARE(Clipboard::GetText().trimmed(), QStringLiteral("word"));
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));

    Clipboard::SetText(QStringLiteral("other"));
    QVERIFY(desk.surface->execCommand(QStringLiteral("SelectAll")));
    desk.press(Tool::Paste);
    QVERIFY(desk.body().contains(QStringLiteral("other")));
    QVERIFY(!desk.body().contains(QStringLiteral("word")));

    QVERIFY(desk.surface->execCommand(QStringLiteral("SelectAll")));
    desk.press(Tool::Cut);
    QCOMPARE(Clipboard::GetText().trimmed(), QStringLiteral("other"));
    QVERIFY(!desk.body().contains(QStringLiteral("other")));
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
}

void TestViews::selectAllOnTheSurface()
{
    Desk desk;
    desk.box->setText("<p>one<p>two");
    desk.goTo(Preview);
    desk.web->MnSelect->trigger();
    desk.press(Tool::Copy);
    QVERIFY(Clipboard::GetText().contains(QStringLiteral("one")));
    QVERIFY(Clipboard::GetText().contains(QStringLiteral("two")));
}

void TestViews::copyTheHtmlOfTheSurface()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    Clipboard::SetText(QStringLiteral("before"));
    desk.web->mnuhtml->trigger();
    QCOMPARE(Clipboard::GetText(), QString::fromLatin1(page("\r\n<P>other</P>")));
    QCOMPARE(desk.box->Text(), page("\r\n<P>other</P>"));
    QCOMPARE(desk.box->SelStart(), 0);
    QCOMPARE(desk.box->SelLength(), static_cast<int>(desk.box->Text().size()));
    QCOMPARE(desk.web->SSTab1->Tab(), Preview);
}

void TestViews::clipboardEntriesOnTheInternetTab()
{
    Desk desk;
    desk.box->setText("word");
    desk.box->setSelStart(0);
    desk.box->setSelLength(2);
    desk.goTo(Internet);
    Clipboard::SetText(QStringLiteral("before"));
    for (QAction* entry :
         {desk.web->MnCut, desk.web->MnCopy, desk.web->MnPaste, desk.web->MnSelect, desk.web->mnuhtml})
        entry->trigger();
    QCOMPARE(Clipboard::GetText(), QStringLiteral("before"));
    QCOMPARE(desk.box->Text(), QByteArray("word"));
    QCOMPARE(desk.box->SelLength(), 2);
}

// ---- The Design option

void TestViews::designOptionHandsOver()
{
    Desk desk;
    desk.box->setText("<p>one");
    desk.goTo(Preview);
    QVERIFY(desk.surface->isVisible());
    QVERIFY(!desk.preview->isVisible());
    desk.designOff();
    QVERIFY(!desk.surface->isVisible());
    QVERIFY(desk.preview->isVisible());
    QCOMPARE(Desk::body(desk.preview), QStringLiteral("\r\n<P>one</P>"));

    desk.goTo(Editor);
    desk.box->setText("<p>two");
    desk.goTo(Preview);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>one</P>"));
    desk.designOn();
    QVERIFY(desk.surface->isVisible());
    QVERIFY(!desk.preview->isVisible());
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>two</P>"));
    QCOMPARE(desk.box->Text(), QByteArray("<p>two"));
}

void TestViews::designOptionHandsOverEdits()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    desk.designOff();
    desk.designOn();
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>other</P>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>other</P>"));
}

void TestViews::designToolsFollowTheOption()
{
    Desk desk;
    const FrmWeb& web = *desk.web;
    const QList<QWidget*> tools{web.Combo1,   web.Combo2,    web.Command1,  web.Command2,  web.Command3,
                                web.Command4, web.Command5,  web.Command6,  web.Command7,  web.Command8,
                                web.Command9, web.Command10, web.Command11, web.Command12, web.Command13};
    const auto allAre = [&](bool enabled) {
        return std::all_of(tools.begin(), tools.end(),
                           [enabled](const QWidget* tool) { return tool->isEnabled() == enabled; });
    };
    desk.goTo(Preview);
    QVERIFY(allAre(true));
    QVERIFY(web.Command16->isEnabled());
    desk.designOff();
    QVERIFY(allAre(false));
    QVERIFY(web.Command16->isEnabled());
    desk.goTo(Editor);
    desk.goTo(Preview);
    QVERIFY(allAre(false));
    desk.designOn();
    QVERIFY(allAre(true));
    QVERIFY(web.Command16->isEnabled());
}

// ---- Commands of the design surface

void TestViews::commandButtons_data()
{
    QTest::addColumn<Button>("button");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("expected"); // a pattern of the body
    const auto row = [](const char* name, Button button, const char* source, const char* expected) {
        QTest::newRow(name) << button << QByteArray(source) << QString::fromLatin1(expected);
    };
    row("Bold", &Ui::FrmWeb::Command1, "<p>word", "\r\n<P><B>word</B></P>");
    row("Italic", &Ui::FrmWeb::Command2, "<p>word", "\r\n<P><I>word</I></P>");
    row("Underline", &Ui::FrmWeb::Command3, "<p>word", "\r\n<P><U>word</U></P>");
    row("InsertHorizontalRule", &Ui::FrmWeb::Command4, "<p>word", "\r\n<HR>");
    row("Indent", &Ui::FrmWeb::Command6, "<p>word", "\\s*<BLOCKQUOTE[^>]*>\\s*<P>word</P>\\s*</BLOCKQUOTE>");
    row("Outdent", &Ui::FrmWeb::Command7, "<blockquote><p>word</p></blockquote>", "\\s*<P>word</P>");
    row("JustifyLeft", &Ui::FrmWeb::Command8, "<p align=right>word", "\\s*<P [^>]*left[^>]*>word</P>");
    row("JustifyCenter", &Ui::FrmWeb::Command9, "<p>word", "\\s*<P [^>]*center[^>]*>word</P>");
    row("JustifyRight", &Ui::FrmWeb::Command10, "<p>word", "\\s*<P [^>]*right[^>]*>word</P>");
}

void TestViews::commandButtons()
{
    QFETCH(Button, button);
    QFETCH(QByteArray, source);
    QFETCH(QString, expected);
    Desk desk;
    desk.design(source);
    desk.press((*desk.web).*button);
    const QRegularExpression pattern(QRegularExpression::anchoredPattern(expected));
    QVERIFY2(pattern.match(desk.body()).hasMatch(), qPrintable(desk.body()));
    QCOMPARE(desk.box->Text(), source);
}

void TestViews::undoAndRedo()
{
    Desk desk;
    desk.design("<p>word");
    desk.press(desk.web->Command1);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><B>word</B></P>"));
    desk.press(desk.web->Command12);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    desk.press(desk.web->Command13);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><B>word</B></P>"));
}

void TestViews::colorButtons_data()
{
    QTest::addColumn<Button>("button");
    QTest::addColumn<int>("color"); // red in the low byte
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("ink"); // as the eye sees it
    QTest::addColumn<QString>("ground");
    const QString black = QStringLiteral("rgb(0, 0, 0)");
    const QString none = QStringLiteral("rgba(0, 0, 0, 0)");
    QTest::newRow("red text") << &Ui::FrmWeb::Command5 << 0x0000FF
                              << QStringLiteral("\r\n<P><FONT color=#ff0000>word</FONT></P>")
                              << QStringLiteral("rgb(255, 0, 0)") << none;
    QTest::newRow("text of three parts")
        << &Ui::FrmWeb::Command5 << 0x10C00F << QStringLiteral("\r\n<P><FONT color=#0fc010>word</FONT></P>")
        << QStringLiteral("rgb(15, 192, 16)") << none;
    QTest::newRow("background")
        << &Ui::FrmWeb::Command11 << 0x0A80FF
        << QStringLiteral("\r\n<P><SPAN style=\"background-color: rgb(255, 128, 10);\">word</SPAN></P>")
        << black << QStringLiteral("rgb(255, 128, 10)");
    QTest::newRow("dark background")
        << &Ui::FrmWeb::Command11 << 0x400201
        << QStringLiteral("\r\n<P><SPAN style=\"background-color: rgb(1, 2, 64);\">word</SPAN></P>") << black
        << QStringLiteral("rgb(1, 2, 64)");
}

void TestViews::colorButtons()
{
    QFETCH(Button, button);
    QFETCH(int, color);
    QFETCH(QString, expected);
    QFETCH(QString, ink);
    QFETCH(QString, ground);
    Desk desk;
    desk.design("<p>word");
    desk.script.answerColor(color);
    desk.press((*desk.web).*button);
    QCOMPARE(desk.script.asked.size(), 1);
    QCOMPARE(desk.lookOfTheWord("color"), ink);
    QCOMPARE(desk.lookOfTheWord("backgroundColor"), ground);
    QCOMPARE(desk.body(), expected);
    desk.goTo(Editor);
    QVERIFY(desk.box->Text().contains(expected.toLatin1()));
}

void TestViews::colorCancelled()
{
    Desk desk;
    desk.design("<p>word");
    for (QToolButton* button : {desk.web->Command5, desk.web->Command11}) {
        desk.script.cancelColor();
        desk.press(button);
        QCOMPARE(desk.script.takeAsked().size(), 1);
        QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    }
    QVERIFY(!desk.script.ended);
}

void TestViews::fontNames()
{
    Desk desk;
    desk.design("<p>word");
    const int index = desk.web->Combo1->findText(QStringLiteral("Liberation Mono"));
    QVERIFY(index >= 0);
    desk.web->Combo1->setListIndex(index);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><FONT face=\"Liberation Mono\">word</FONT></P>"));
}

void TestViews::fontSizes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("size");
    const auto row = [](const char* text, const char* size) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(size);
    };
    row("Normal", "3");
    row("8", "1");
    row("10", "2");
    row("12", "3");
    row("14", "4");
    row("18", "5");
    row("24", "6");
    row("36", "7");
}

/// The HTML font size of the selection on a surface.
static QString sizeOfSelection(DocumentSurface* surface)
{
    return probe(surface)
        .evaluate(QStringLiteral("document.queryCommandValue('FontSize')"))
        .value_or(QVariant())
        .toString();
}

void TestViews::fontSizes()
{
    QFETCH(QString, text);
    QFETCH(QString, size);
    Desk desk;
    desk.design(size == QStringLiteral("5") ? "<p><font size=2>word</font>" : "<p><font size=5>word</font>");
    ComboBox* sizes = desk.web->Combo2;
    if (const int index = sizes->findText(text); index >= 0) {
        sizes->setListIndex(index);
    } else { // not in the list: the box's first text
        sizes->setText(text);
        emit sizes->Click();
    }
    QCOMPARE(sizeOfSelection(desk.surface), size);
}

void TestViews::otherFontSizesDoNothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "11", "normal", " 8", "8 ", "08", "7", "Normal ", "36pt"})
        QTest::addRow("'%s'", text) << QString::fromLatin1(text);
}

void TestViews::otherFontSizesDoNothing()
{
    QFETCH(QString, text);
    Desk desk;
    desk.design("<p><font size=5>word</font>");
    desk.web->Combo2->setText(text);
    emit desk.web->Combo2->Click();
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><FONT size=5>word</FONT></P>"));
    QCOMPARE(sizeOfSelection(desk.surface), QStringLiteral("5"));
}

void TestViews::fontSizeByKey()
{
    Desk desk;
    desk.design("<p>word");
    QCOMPARE(desk.web->Combo2->count(), 7);
    QTest::keyClick(desk.web->Combo2, Qt::Key_Down); // opens the list, at its first entry
    QTRY_VERIFY(desk.web->Combo2->view()->isVisible());
    QTest::keyClick(desk.web->Combo2->view(), Qt::Key_Return);
    QCOMPARE(desk.web->Combo2->Text(), QStringLiteral("8"));
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><FONT size=1>word</FONT></P>"));
}

void TestViews::enterInTheFontListNavigates_data()
{
    QTest::addColumn<bool>("listed");
    QTest::newRow("a font that the list has") << true;
    QTest::newRow("another name") << false;
}

void TestViews::enterInTheFontListNavigates()
{
    QFETCH(bool, listed);
    Desk desk;
    desk.web->Combo1->Clear();
    if (listed)
        desk.web->Combo1->AddItem(QStringLiteral("Arial"));
    desk.web->Combo1->setText(QStringLiteral("Arial"));
    desk.design("<p>Lamp");
    const QSignalSpy finished(desk.surface, &DocumentSurface::navigationFinished);
    QCOMPARE(desk.web->Combo1->Text(), QStringLiteral("Arial"));
    QTest::keyClick(desk.web->Combo1->lineEdit(), Qt::Key_Return);
    QCOMPARE(desk.surface->findChild<QWebEnginePage*>()->requestedUrl(),
             QUrl(QStringLiteral("http://arial/")));
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, Patience);
    QVERIFY(!finished.constFirst().constFirst().toBool()); // there is no page of that name
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>Lamp</P>"));
    desk.script.answerSave(desk.folder.path(QStringLiteral("new.htm")));
    desk.press(Tool::SaveAs);
    QCOMPARE(desk.folder.read(QStringLiteral("new.htm")), page("\r\n<P>Lamp</P>") + "\r\n");
    QCOMPARE(desk.web->Combo1->Text(), QStringLiteral("Arial"));
    QVERIFY(!desk.script.ended);
}

// ---- Links

void TestViews::linkByButton()
{
    Desk desk;
    desk.waitForKeyboard();
    desk.design("<p>word");
    desk.web->Combo2->setFocus();
    bool surfaceHadKeyboard = false;
    desk.script.during([&] { surfaceHadKeyboard = desk.hasKeyboard(desk.surface); });
    desk.script.answerInputBox(QStringLiteral("http://example.com/a?b=1"));
    desk.press(desk.web->Command16);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QVERIFY(surfaceHadKeyboard);
    QVERIFY2(desk.script.asked.constFirst().endsWith(u'|'), "nothing proposed where there is no link");
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><A href=\"http://example.com/a?b=1\">word</A></P>"));
}

void TestViews::linkByKey()
{
    Desk desk;
    desk.design("<p>word");
    QTRY_VERIFY(desk.surface->inputWidget());
    desk.script.answerInputBox(QStringLiteral("mailto:me@example.com"));
    QTest::keyClick(desk.surface->inputWidget(), Qt::Key_K, Qt::ControlModifier);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QTRY_COMPARE(desk.body(), QStringLiteral("\r\n<P><A href=\"mailto:me@example.com\">word</A></P>"));
}

void TestViews::linkEdited()
{
    Desk desk;
    desk.design("<p><a href=\"http://example.com/\">word</a>");
    desk.script.answerInputBox(QStringLiteral("http://example.org/"));
    desk.press(desk.web->Command16);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QVERIFY2(desk.script.asked.constFirst().endsWith(QStringLiteral("|http://example.com/")),
             qPrintable(desk.script.asked.constFirst()));
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><A href=\"http://example.org/\">word</A></P>"));
}

void TestViews::linkRemoved()
{
    Desk desk;
    desk.design("<p><a href=\"http://example.com/\">word</a>");
    desk.script.answerInputBox(QString());
    desk.press(desk.web->Command16);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
}

void TestViews::linkCancelled()
{
    Desk desk;
    desk.design("<p><a href=\"http://example.com/\">word</a>");
    desk.script.cancelInputBox();
    desk.press(desk.web->Command16);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><A href=\"http://example.com/\">word</A></P>"));
}

// ---- Find on the surface

/// Whether a surface shows a mark of its search, yellow or orange, on a page that is black on white.
static bool showsMarks(DocumentSurface* surface)
{
    const QImage picture = surface->grab().toImage();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.red() > 200 && color.blue() < 100)
                return true;
        }
    }
    return false;
}

void TestViews::findBar()
{
    Desk desk;
    desk.waitForKeyboard();
    desk.box->setText("<p>one two foo");
    desk.goTo(Preview);
    QTRY_VERIFY(desk.surface->inputWidget());
    QTest::keyClick(desk.surface->inputWidget(), Qt::Key_F, Qt::ControlModifier);
    auto* bar = desk.web->findChild<FindBar*>(QStringLiteral("WebBrowser1FindBar"));
    QVERIFY(bar);
    QTRY_VERIFY(bar->isVisible());
    auto* text = bar->findChild<QLineEdit*>();
    auto* count = bar->findChild<QLabel*>();
    QVERIFY(text && count);

    const auto shows = [&](int current) { // one of four
        return QRegularExpression(QStringLiteral("\\b%1\\b.*\\b4\\b").arg(current))
            .match(count->text())
            .hasMatch();
    };
    QTRY_VERIFY(text->hasFocus());
    desk.type("o");
    QTRY_VERIFY2(shows(1), qPrintable(count->text()));
    QTRY_VERIFY(showsMarks(desk.surface));
    QTest::keyClick(text, Qt::Key_Return);
    QTRY_VERIFY2(shows(2), qPrintable(count->text()));
    QTest::keyClick(text, Qt::Key_Return);
    QTRY_VERIFY2(shows(3), qPrintable(count->text()));
    QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
    QTRY_VERIFY2(shows(2), qPrintable(count->text()));
    QTest::keyClick(text, Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
    QTRY_VERIFY(!showsMarks(desk.surface));
    QVERIFY(desk.hasKeyboard(desk.surface)); // the next letter goes to the page
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>one two foo</P>"));

    // Asked for again, it has the last text ready, and the next letter begins another search.
    QTest::keyClick(desk.surface->inputWidget(), Qt::Key_F, Qt::ControlModifier);
    QTRY_VERIFY(text->hasFocus());
    QCOMPARE(text->text(), QStringLiteral("o"));
    desk.type("tw");
    QCOMPARE(text->text(), QStringLiteral("tw"));
    QTRY_COMPARE(count->text(), QStringLiteral("1 of 1"));
}

/// The surface gets the keyboard before the bar takes it: that is where it goes back to.
void TestViews::findByButton()
{
    for (const bool design : {true, false}) {
        Desk desk;
        desk.waitForKeyboard();
        desk.box->setText("<p>word");
        desk.goTo(Preview);
        if (!design)
            desk.designOff();
        const DocumentSurface* shown = design ? desk.surface : desk.preview;
        QTRY_VERIFY(shown->inputWidget());
        (design ? static_cast<QWidget*>(desk.web->Combo2) : desk.web->Option2)->setFocus();
        QList<QWidget*> visited;
        const QObject listening;
        connect(qApp, &QApplication::focusChanged, &listening,
                [&](QWidget*, QWidget* now) { visited << now; });
        desk.press(Tool::Find);
        const auto* bar = desk.web->findChild<FindBar*>(shown->objectName() + QStringLiteral("FindBar"));
        QTRY_VERIFY(bar->isVisible());
        QCOMPARE(visited, (QList<QWidget*>{shown->inputWidget(), bar->findChild<QLineEdit*>()}));
    }
}

void TestViews::findBarFindsNothing()
{
    Desk desk;
    desk.box->setText("<p>one two foo");
    desk.goTo(Preview);
    QTRY_VERIFY(desk.surface->inputWidget());
    QTest::keyClick(desk.surface->inputWidget(), Qt::Key_F, Qt::ControlModifier);
    auto* bar = desk.web->findChild<FindBar*>(QStringLiteral("WebBrowser1FindBar"));
    QVERIFY(bar);
    QTRY_VERIFY(bar->isVisible());
    QTest::keyClicks(bar->findChild<QLineEdit*>(), QStringLiteral("ox"));
    const QString shown = bar->findChild<QLabel*>()->text();
    QVERIFY2(!shown.isEmpty(), "a search that fails says so");
    QVERIFY2(!shown.contains(QRegularExpression(QStringLiteral("[1-9]"))), qPrintable(shown));
}

// ---- Faults of the renderer

void TestViews::rendererDiesBeforeATabChange()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.edit(QStringLiteral("<p>other</p>"));
    Desk::crash(desk.surface);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
    QTest::qWait(200); // a second notice would come by now
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY(isNotice(desk.script.asked.constFirst()));
    QVERIFY(!desk.script.ended);

    desk.goTo(Preview);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P>word</P>"));
    QCOMPARE(desk.script.asked.size(), 1);
}

void TestViews::rendererDiesWhileTheUserLooks()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    Desk::crash(desk.surface);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QVERIFY(isNotice(desk.script.asked.constFirst()));

    QTRY_COMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    QVERIFY(desk.surface->execCommand(QStringLiteral("SelectAll")));
    desk.press(desk.web->Command1);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P><B>word</B></P>"));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), page("\r\n<P><B>word</B></P>"));
    QCOMPARE(desk.script.asked.size(), 1);
}

void TestViews::rendererDiesWhileHidden()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.goTo(Editor);
    const QByteArray source = desk.box->Text();
    desk.script.answerMsgBox(MsgAnswer::Ok);
    Desk::crash(desk.surface);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QVERIFY(isNotice(desk.script.asked.constFirst()));
    QCOMPARE(desk.box->Text(), source);

    // Told once: a look at the internet and back reads a surface that has nothing, and must not say so again.
    desk.goTo(Internet);
    desk.goTo(Editor);
    QVERIFY(desk.box->Text().contains("word"));
    desk.goTo(Preview);
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    QCOMPARE(desk.script.asked.size(), 1);
}

void TestViews::rendererDiesBeforeASave()
{
    Desk desk;
    desk.folder.write(QStringLiteral("page.htm"), "as saved before");
    desk.box->setText("<p>word");
    desk.web->document().setName(desk.folder.path(QStringLiteral("page.htm")));
    desk.goTo(Preview);
    Desk::crash(desk.surface);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.press(Tool::Save);
    QTest::qWait(200);
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY2(desk.folder.read(QStringLiteral("page.htm")) != "\r\n", "no answer is no empty text");
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
    QVERIFY(desk.web->Dirty());
}

void TestViews::rendererDiesAtTheSaveQuestion_data()
{
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char* name, Operation operation) { QTest::newRow(name) << operation; };
    row("New", [](Desk& desk) { desk.press(Tool::New); });
    row("Open", [](Desk& desk) { desk.press(Tool::Open); });
    row("Create", [](Desk& desk) { desk.press(Tool::Create); });
    row("close", [](Desk& desk) { desk.web->close(); });
}

/// The answer is Yes, but the surface no longer gives the text: the document stays, and the user may be asked
/// again, as nobody has cancelled anything.
void TestViews::rendererDiesAtTheSaveQuestion()
{
    QFETCH(Operation, operation);
    Desk desk;
    desk.folder.write(QStringLiteral("page.htm"), "as saved before");
    desk.box->setText("<p>word");
    desk.web->document().setName(desk.folder.path(QStringLiteral("page.htm")));
    const QSignalSpy toolWanted(desk.web.get(), &FrmWeb::toolWanted);
    desk.goTo(Preview);
    desk.script.during([&] { Desk::crash(desk.surface); });
    desk.script.answerMsgBox(MsgAnswer::Yes);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    operation(desk);
    const QString question =
        QStringLiteral("MsgBox|Brindlemark|page.htm - File has changed. Do you wish to save "
                       "changes ?|Information|YesNoCancel");
    QCOMPARE(desk.script.asked.size(), 2);
    QCOMPARE(desk.script.asked.at(0), question);
    QVERIFY(isNotice(desk.script.asked.at(1)));
    QVERIFY(desk.box->Text().contains("word"));
    QCOMPARE(desk.folder.read(QStringLiteral("page.htm")), QByteArray("as saved before"));
    QVERIFY(desk.web->Dirty());
    QCOMPARE(toolWanted.count(), 0);
    QVERIFY(!desk.script.ended);
    QVERIFY(!desk.web->SaveCancelled());

    desk.script.takeAsked();
    desk.script.answerMsgBox(MsgAnswer::No);
    desk.web->close();
    QCOMPARE(desk.script.takeAsked(), QStringList(question));
    QCOMPARE(desk.script.ended, 0);
}

void TestViews::rendererDiesBeforeTheWholePageIsCopied()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    Desk::crash(desk.surface);
    Clipboard::SetText(QStringLiteral("from elsewhere"));
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.web->mnuhtml->trigger();
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY(isNotice(desk.script.asked.constFirst()));
    QVERIFY(!desk.script.ended);
    QCOMPARE(Clipboard::GetText(), QString());
    QCOMPARE(desk.box->Text(), QByteArray("<p>word"));
}

void TestViews::rendererDiesBeforeDesignOff()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    Desk::crash(desk.surface);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.designOff();
    QTest::qWait(200);
    QCOMPARE(desk.script.asked.size(), 1);
    QCOMPARE(Desk::body(desk.preview), QStringLiteral("\r\n<P>word</P>"));
    desk.designOn();
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    QCOMPARE(desk.script.asked.size(), 1);
}

void TestViews::previewDies()
{
    Desk desk;
    desk.box->setText("<p>word");
    desk.goTo(Preview);
    desk.designOff();
    desk.script.answerMsgBox(MsgAnswer::Ok);
    Desk::crash(desk.preview);
    QTRY_COMPARE(desk.script.asked.size(), 1);
    QTRY_COMPARE(Desk::body(desk.preview), QStringLiteral("\r\n<P>word</P>"));
    desk.designOn();
    QCOMPARE(desk.body(), QStringLiteral("\r\n<P>word</P>"));
    QCOMPARE(desk.script.asked.size(), 1);
}

void TestViews::endlessScriptOnThePreview()
{
    Desk desk;
    probe(desk.preview).setPatience(500);
    desk.beginWithDesignOff();
    desk.box->setText("<p>word<script>for(;;);</script>");
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.goTo(Preview);
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY(isNotice(desk.script.asked.constFirst()));
    desk.goTo(Editor);
    QCOMPARE(desk.box->Text(), QByteArray("<p>word<script>for(;;);</script>"));
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY(!desk.script.ended);
}

void TestViews::designOnAfterAnEndlessScript()
{
    Desk desk;
    probe(desk.preview).setPatience(500);
    desk.beginWithDesignOff();
    desk.box->setText("<p>word<script>for(;;);</script>");
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.goTo(Preview);
    desk.designOn(); // no script runs there, and the user has been told already
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY(desk.body().contains(QStringLiteral("word")));
    desk.goTo(Editor);
    QVERIFY(desk.box->Text().contains("word"));
    QVERIFY(desk.box->Text().contains("for(;;);"));
}

void TestViews::endlessScriptBeginsLater()
{
    Desk desk;
    desk.beginWithDesignOff();
    desk.box->setText("<p>word<script>setTimeout(function(){document.title='begun';for(;;);}, 50)</script>");
    desk.goTo(Preview);
    QCOMPARE(desk.script.asked.size(), 0);
    QTRY_COMPARE(desk.preview->findChild<QWebEnginePage*>()->title(), QStringLiteral("begun"));
    probe(desk.preview).setPatience(500);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.designOn();
    QTest::qWait(200);
    QCOMPARE(desk.script.asked.size(), 1);
    QVERIFY(isNotice(desk.script.asked.constFirst()));
    QVERIFY(desk.body().contains(QStringLiteral("word")));
    desk.goTo(Editor);
    QVERIFY(desk.box->Text().contains("word"));
    QCOMPARE(desk.script.asked.size(), 1);
}

RENDERER_TEST_MAIN(TestViews)
#include "tst_views.moc"
