// SPDX-License-Identifier: GPL-3.0-or-later

// Undo and redo, which tell what they would do: in the menu Tools and in the menus of the source and of the
// design surface.

#include "MainWindow.h"
#include "Random.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "shell/SurfaceCommands.h"
#include "source/EditNames.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    /// "-" at the end: greyed.
    static QString shown(const QAction* entry)
    {
        return entry->text() + QLatin1String(entry->isEnabled() ? "" : "-");
    }
    QStringList tools() const
    {
        waitForSurface(); // it has what was typed
        emit web->muntools->aboutToShow();
        waitForSurface(); // it answers behind what the menu asks
        return {shown(web->munundo), shown(web->munredo)};
    }
    void clip(const QString& text)
    {
        auto given = std::make_unique<QMimeData>();
        given->setText(text);
        doors.setClipboard(std::move(given));
    }
    void command(const char* id) const { runCommand(*web->WebBrowser1, QString::fromLatin1(id)); }
    void showSurface(const QByteArray& html) const
    {
        web->RichTextBox1->setText(html);
        showTab(FrmWeb::PreviewTab);
    }

private:
    void waitForSurface() const
    {
        if (web->SSTab1->Tab() == FrmWeb::PreviewTab)
            web->WebBrowser1->steps();
    }
};

/// Whether the page knows what a step is.
bool isKnown(const QString& step)
{
    return !step.isEmpty() && step != QLatin1String("edit");
}

} // namespace

class TestUndoNames : public QObject
{
    Q_OBJECT

private slots:
    void names();
    void nothingAtFirst();
    void stepsOfTheSource();
    void toolsOfTheSource();
    void takesBackAndBringsAgain();
    void anotherDocument();
    void menuOfTheSource();
    void chanceInTheSource();
    void stepsOfTheSurface();
    void pasteIsAStepByItself();
    void deletedWords();
    void stepThatNobodyKnows();
    void openMenuIsTold();
    void pageThatComesBack();
    void pageThatIsShownAnew();
    void typedInSeveralPlaces();
    void chanceOnTheSurface_data();
    void chanceOnTheSurface();
    void whereNothingIsEdited();
};

void TestUndoNames::names()
{
    EditNames names;
    QCOMPARE(names.undoName(), QString());
    QCOMPARE(names.redoName(), QString());
    names.undone();
    names.redone();
    QCOMPARE(names.undoName(), QString());
    names.edited("one");
    names.edited("two");
    QCOMPARE(names.undoName(), "two");
    names.undone();
    QCOMPARE(names.undoName(), "one");
    QCOMPARE(names.redoName(), "two");
    names.edited("three"); // there is no way back to two
    QCOMPARE(names.redoName(), QString());
    names.undone();
    QCOMPARE(names.undoName(), "one");
    QCOMPARE(names.redoName(), "three");
    names.redone();
    QCOMPARE(names.undoName(), "three");
    names.forget();
    QCOMPARE(names.undoName(), QString());
    QCOMPARE(names.redoName(), QString());
}

void TestUndoNames::nothingAtFirst()
{
    const Desk desk;
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo\tCtrl+Y-"}));
}

void TestUndoNames::stepsOfTheSource()
{
    Desk desk;
    RichTextBox* box = desk.web->RichTextBox1;
    const auto undo = [&] { return desk.tools().at(0); };
    desk.type("brass");
    QCOMPARE(undo(), "Undo: Typing\tCtrl+Z");
    desk.clip("lamp");
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(undo(), "Undo: Paste\tCtrl+Z");
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(undo(), "Undo: Cut\tCtrl+Z");
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(undo(), "Undo: Paste\tCtrl+Z");
    QCOMPARE(desk.tools().at(1), "Redo: Cut\tCtrl+Y");
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    desk.press(Tool::Cut);
    QCOMPARE(desk.source(), QByteArray());
    QCOMPARE(undo(), "Undo: Cut\tCtrl+Z");
    desk.press(Tool::Paste);
    QCOMPARE(undo(), "Undo: Paste\tCtrl+Z");
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    desk.web->munuppercase->trigger();
    QCOMPARE(desk.source(), QByteArray("BRASSLAMP"));
    QCOMPARE(undo(), "Undo: Letters\tCtrl+Z");
    desk.web->munbr2->trigger();
    QCOMPARE(undo(), "Undo: Quick Tag\tCtrl+Z");
}

/// What tools put in has the name that they give it.
void TestUndoNames::toolsOfTheSource()
{
    Desk desk;
    ListingEditor& editor = *desk.web;
    editor.insert("<TABLE></TABLE>", "Table");
    QCOMPARE(desk.tools().at(0), "Undo: Table\tCtrl+Z");
    editor.insertAtStart("<BODY>", "Body Colors");
    QCOMPARE(desk.tools().at(0), "Undo: Body Colors\tCtrl+Z");
    editor.edit({{{0, 6}, "<body>"}}, "Corrections");
    QCOMPARE(desk.tools().at(0), "Undo: Corrections\tCtrl+Z");
    editor.editListing("<P>lamp");
    QCOMPARE(desk.tools().at(0), "Undo: Listing\tCtrl+Z");
    editor.bringBackText("<P>brass");
    QCOMPARE(desk.tools().at(0), "Undo: Earlier Text\tCtrl+Z");
    desk.web->document().setDirty(false);
}

void TestUndoNames::takesBackAndBringsAgain()
{
    Desk desk;
    desk.type("brass");
    desk.web->insert("<HR>", "Rule");
    QVERIFY(desk.tools().at(0).startsWith("Undo: Rule"));
    desk.choose(desk.web->muntools, desk.web->munundo);
    QCOMPARE(desk.source(), QByteArray("brass"));
    QCOMPARE(desk.tools(), QStringList({"Undo: Typing\tCtrl+Z", "Redo: Rule\tCtrl+Y"}));
    desk.choose(desk.web->muntools, desk.web->munundo);
    QCOMPARE(desk.source(), QByteArray());
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo: Typing\tCtrl+Y"}));
    desk.choose(desk.web->muntools, desk.web->munredo);
    desk.choose(desk.web->muntools, desk.web->munredo);
    QCOMPARE(desk.source(), QByteArray("brass<HR>"));
    QCOMPARE(desk.tools(), QStringList({"Undo: Rule\tCtrl+Z", "Redo\tCtrl+Y-"}));
}

/// Undo doesn't reach behind it.
void TestUndoNames::anotherDocument()
{
    Desk desk;
    desk.type("brass");
    desk.web->document().setDirty(false);
    desk.folder.write("lamp.htm", "lamp");
    desk.open(desk.folder.path("lamp.htm"));
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo\tCtrl+Y-"}));
    desk.type("x");
    QVERIFY(desk.tools().at(0).startsWith("Undo: Typing"));
    desk.web->munundo->trigger();
    QCOMPARE(desk.source(), QByteArray("lamp"));
    desk.web->document().setDirty(false);
}

void TestUndoNames::menuOfTheSource()
{
    Desk desk;
    desk.type("brass");
    desk.web->insert("<HR>", "Rule");
    desk.web->RichTextBox1->undo();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(desk.web->RichTextBox1->viewport(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(Desk::shown(menu->actions().at(0)), "&Undo: Typing\tCtrl+Z");
    QCOMPARE(Desk::shown(menu->actions().at(1)),
             "&Redo: Rule\t" + QKeySequence(QKeySequence::Redo).toString());
    menu->actions().at(1)->trigger();
    menu->close();
    QCOMPARE(desk.source(), QByteArray("brass<HR>"));
}

/// Whatever was done: the name is that of what has made the text so, at each step back and forth.
void TestUndoNames::chanceInTheSource()
{
    Desk desk;
    RichTextBox* box = desk.web->RichTextBox1;
    const QList<std::pair<QString, std::function<void(int)>>> acts = {
        {"Typing", [&](int) { desk.type(QStringLiteral("t")); }},
        {"Typing", [&](int) { QTest::keyClick(box, Qt::Key_Return); }},
        {"Table", [&](int i) { desk.web->insert(QStringLiteral("<%1>").arg(i), "Table"); }},
        {"Paste",
         [&](int i) {
             desk.clip(QStringLiteral("p%1\u00e9").arg(i));
             box->paste();
         }},
        {"Letters",
         [&](int i) {
             desk.web->edit({{{0, box->TextLength()}, "whole" + QByteArray::number(i)}}, "Letters");
         }},
    };
    Random random(24);
    QHash<QByteArray, QString> madeBy;
    for (int i = 0; i < 200; ++i) {
        if (random.number(4) == 0)
            box->setSelStart(random.number(int(box->TextLength()) + 1));
        const auto& act = acts.at(random.number(int(acts.size())));
        act.second(i);
        madeBy.insert(desk.source(), act.first);
    }
    int undone = 0;
    const QByteArray last = desk.source();
    while (!box->undoName().isEmpty()) {
        if (madeBy.contains(desk.source()))
            QCOMPARE(box->undoName(), madeBy.value(desk.source()));
        box->undo();
        ++undone;
    }
    QCOMPARE(desk.source(), QByteArray());
    QVERIFY(undone > 100);
    while (!box->redoName().isEmpty()) {
        const QString name = box->redoName();
        box->redo();
        QCOMPARE(box->undoName(), name);
        --undone;
    }
    QCOMPARE(undone, 0);
    QCOMPARE(desk.source(), last);
}

void TestUndoNames::stepsOfTheSurface()
{
    Desk desk;
    desk.showSurface("<P>brass lamp</P>");
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo\tCtrl+Y-"}));
    desk.typeAtCaretOfSurface("old ");
    QCOMPARE(desk.tools().at(0), "Undo: Typing\tCtrl+Z");
    desk.command("SelectAll");
    QCOMPARE(desk.tools().at(0), "Undo: Typing\tCtrl+Z");
    click(desk.web->Command1);
    QCOMPARE(desk.tools().at(0), "Undo: Bold\tCtrl+Z");
    desk.web->muntitlecase->trigger();
    QCOMPARE(desk.tools().at(0), "Undo: Letters\tCtrl+Z");
    QVERIFY2(desk.web->WebBrowser1->innerHtml().contains("<B>Old Brass Lamp</B>"),
             qPrintable(desk.web->WebBrowser1->innerHtml()));
    desk.choose(desk.web->muntools, desk.web->munundo);
    QVERIFY(desk.web->WebBrowser1->innerHtml().contains("<B>old brass lamp</B>"));
    QCOMPARE(desk.tools(), QStringList({"Undo: Bold\tCtrl+Z", "Redo: Letters\tCtrl+Y"}));
    click(desk.web->Command12);
    QVERIFY(!desk.web->WebBrowser1->innerHtml().contains("<B>"));
    QCOMPARE(desk.tools(), QStringList({"Undo: Typing\tCtrl+Z", "Redo: Bold\tCtrl+Y"}));
    desk.choose(desk.web->muntools, desk.web->munredo);
    QVERIFY(desk.web->WebBrowser1->innerHtml().contains("<B>old brass lamp</B>"));
    QCOMPARE(desk.tools(), QStringList({"Undo: Bold\tCtrl+Z", "Redo: Letters\tCtrl+Y"}));
}

/// For the engine a pasted text is typed: neither the letters before it nor those behind it go with it.
void TestUndoNames::pasteIsAStepByItself()
{
    Desk desk;
    desk.showSurface("<P>-</P>");
    desk.clip("lamp");
    desk.typeAtCaretOfSurface("one ");
    desk.web->munpastetext->trigger();
    desk.typeAtCaretOfSurface(" two");
    QVERIFY2(desk.web->WebBrowser1->innerHtml().contains("one lamp two"),
             qPrintable(desk.web->WebBrowser1->innerHtml()));
    for (const char* rest : {"one lamp-", "one -", "<P>-"}) {
        desk.web->munundo->trigger();
        const QString page = desk.web->WebBrowser1->innerHtml().replace("&nbsp;", " ");
        QVERIFY2(page.contains(QLatin1String(rest)), qPrintable(page));
    }
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo: Typing\tCtrl+Y"}));
}

void TestUndoNames::deletedWords()
{
    Desk desk;
    desk.showSurface("<P>lamp</P>");
    desk.typeAtCaretOfSurface("old brass");
    QTest::keyClick(desk.web->WebBrowser1->inputWidget(), Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(desk.tools().at(0), "Undo: Delete\tCtrl+Z");
    QVERIFY(!desk.web->WebBrowser1->innerHtml().contains("brass"));
}

/// What can be undone has a name always.
void TestUndoNames::stepThatNobodyKnows()
{
    QCOMPARE(stepName("nosuchstep"), "Edit");
    QCOMPARE(stepName(QString()), QString());
    Desk desk;
    desk.showSurface("<P>lamp</P>");
    desk.typeAtCaretOfSurface("old ");
    QVERIFY(probe(desk.web->WebBrowser1).evaluate("document.execCommand('insertUnorderedList')").has_value());
    QVERIFY(desk.web->WebBrowser1->innerHtml().contains("<UL>"));
    QCOMPARE(desk.tools(), QStringList({"Undo: Edit\tCtrl+Z", "Redo\tCtrl+Y-"}));
    desk.web->munundo->trigger();
    QVERIFY(!desk.web->WebBrowser1->innerHtml().contains("<UL>"));
    QCOMPARE(desk.tools().at(1), "Redo: Edit\tCtrl+Y");
}

/// The page answers when the menu has opened.
void TestUndoNames::openMenuIsTold()
{
    Desk desk;
    desk.showSurface("<P>lamp</P>");
    desk.typeAtCaretOfSurface("old ");
    const QMenuBar* bar = desk.web->MenuBar1;
    QTest::mouseClick(desk.web->MenuBar1, Qt::LeftButton, {},
                      bar->actionGeometry(desk.web->muntools->menuAction()).center());
    QTRY_COMPARE(QApplication::activePopupWidget(), static_cast<QWidget*>(desk.web->muntools));
    QTRY_COMPARE(Desk::shown(desk.web->munundo), "Undo: Typing\tCtrl+Z");
    QCOMPARE(Desk::shown(desk.web->munredo), "Redo\tCtrl+Y-");
    QTest::keyClick(desk.web->muntools, Qt::Key_Escape);
}

/// In the source, all that was edited on the surface is one step.
void TestUndoNames::pageThatComesBack()
{
    Desk desk;
    desk.showSurface("<P>lamp</P>");
    desk.typeAtCaretOfSurface("old ");
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.tools().at(0), "Undo: Edits in Preview\tCtrl+Z");
    desk.web->munundo->trigger();
    QCOMPARE(desk.source(), QByteArray("<P>lamp</P>"));
}

/// Undo doesn't reach behind it.
void TestUndoNames::pageThatIsShownAnew()
{
    Desk desk;
    desk.showSurface("<P>lamp</P>");
    desk.typeAtCaretOfSurface("old ");
    QCOMPARE(desk.tools().at(0), "Undo: Typing\tCtrl+Z");
    desk.showTab(FrmWeb::EditorTab);
    desk.showTab(FrmWeb::PreviewTab);
    emit desk.web->muntools->aboutToShow();
    QCOMPARE(Desk::shown(desk.web->munundo), "Undo\tCtrl+Z-"); // before the page answers
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo\tCtrl+Y-"}));
    desk.typeAtCaretOfSurface("very ");
    QCOMPARE(desk.tools().at(0), "Undo: Typing\tCtrl+Z");
}

/// Each place has a step, also where the page is as long behind two of them as it was before.
void TestUndoNames::typedInSeveralPlaces()
{
    Desk desk;
    desk.showSurface("<P>brass lamp</P>");
    DocumentSurface* surface = desk.web->WebBrowser1;
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(surface->inputWidget(), key);
        surface->steps(); // the page has the key
    };
    desk.typeAtCaretOfSurface("x");
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Backspace);
    press(Qt::Key_Right);
    desk.typeAtCaretOfSurface("y");
    for (const char* rest : {"xbass lamp", "xbrass lamp", "brass lamp"}) {
        QCOMPARE(desk.tools().at(0), "Undo: Typing\tCtrl+Z");
        desk.web->munundo->trigger();
        QVERIFY2(surface->innerHtml().contains(QLatin1String(">") + QLatin1String(rest)),
                 qPrintable(surface->innerHtml()));
    }
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo: Typing\tCtrl+Y"}));
}

void TestUndoNames::chanceOnTheSurface_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 6; ++seed)
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

/// Whatever was done: as many steps lead back as have names, and each has its own.
void TestUndoNames::chanceOnTheSurface()
{
    QFETCH(const int, seed);
    Desk desk;
    desk.showSurface("<P>brass</P><P>lamp</P>");
    desk.typeAtCaretOfSurface("-");
    DocumentSurface* surface = desk.web->WebBrowser1;
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(surface->inputWidget(), key, modifiers);
        surface->steps(); // the page has the key
    };
    const QList<std::pair<QString, std::function<void()>>> acts = {
        {"typing",
         [&] {
             QTest::keyClicks(surface->inputWidget(), "ab");
             surface->steps(); // has what was typed
         }},
        {"typing", [&] { press(Qt::Key_Backspace); }},
        {"typing", [&] { press(Qt::Key_Return); }},
        {"", [&] { press(Qt::Key_Left); }},
        {"", [&] { press(Qt::Key_Home); }},
        {"", [&] { desk.command("SelectAll"); }},
        {"bold", [&] { desk.command("Bold"); }},
        {"inserthorizontalrule", [&] { desk.command("InsertHorizontalRule"); }},
        {"indent", [&] { desk.command("Indent"); }},
        {"paste",
         [&] {
             desk.clip("paste");
             static_cast<void>(surface->paste(PasteWay::AsText));
         }},
        {"letters", [&] { desk.web->munuppercase->trigger(); }},
    };
    Random random{quint32(seed)};
    for (int i = 0; i < 40; ++i) {
        const auto& act = acts.at(random.number(int(acts.size())));
        act.second();
    }
    int steps = 0;
    while (surface->steps().canUndo) {
        const SurfaceSteps now = surface->steps();
        QVERIFY2(isKnown(now.undo), "a step without a name");
        desk.command("Undo");
        QCOMPARE(surface->steps().redo, now.undo);
        QVERIFY(++steps < 100);
    }
    QCOMPARE(surface->steps().undo, QString());
    QVERIFY(steps > 5);
    while (surface->steps().canRedo) {
        QVERIFY(isKnown(surface->steps().redo));
        desk.command("Redo");
        --steps;
    }
    QCOMPARE(steps, 0);
    QCOMPARE(surface->steps().redo, QString());
}

/// On the preview that only shows, and on the tab Internet.
void TestUndoNames::whereNothingIsEdited()
{
    Desk desk;
    desk.type("<P>lamp</P>");
    desk.showTab(FrmWeb::PreviewTab);
    desk.typeAtCaretOfSurface("old ");
    QCOMPARE(desk.tools().at(0), "Undo: Typing\tCtrl+Z");
    tick(desk.web->Option2);
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo\tCtrl+Y-"}));
    desk.web->munundo->trigger();
    desk.showTab(FrmWeb::InternetTab);
    QCOMPARE(desk.tools(), QStringList({"Undo\tCtrl+Z-", "Redo\tCtrl+Y-"}));
    desk.web->munundo->trigger();
    QVERIFY(desk.source().contains("lamp"));
}

WEB_TEST_MAIN(TestUndoNames)
#include "tst_undonames.moc"
