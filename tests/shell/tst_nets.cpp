// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "platform/AppPath.h"
#include "platform/Files.h"
#include "shell/FrmEarlier.h"

#include <QAccessible>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QTest>
#include <csignal>

using namespace brindlemark;

// Where the program does what is hard on people, nothing is lost, and a notice tells of the way back.

namespace {

const QByteArray Written = "<P>Hours of work</P>";

struct Desk : MainWindow
{
    Desk() { connectOpenings(web); }

    NoticeBar* bar() const { return web->findChild<NoticeBar*>(); }
    /// What the notice says; empty when there is none.
    QString notice() const { return bar()->isVisible() ? bar()->findChild<QLabel*>()->text() : QString(); }
    /// The buttons of the notice.
    QStringList offers() const
    {
        QStringList texts;
        for (const auto* button : bar()->findChildren<QPushButton*>()) {
            if (button->isVisible())
                texts += button->text();
        }
        return texts;
    }
    void take(const QString& offer) const
    {
        for (auto* button : bar()->findChildren<QPushButton*>()) {
            if (button->isVisible() && button->text() == offer) {
                click(button);
                return;
            }
        }
        QTest::qFail("the notice does not offer that", __FILE__, __LINE__);
    }
    /// The texts that are kept, the newest first, each with the reason.
    QList<std::pair<QByteArray, Dropped>> kept() const
    {
        QList<std::pair<QByteArray, Dropped>> texts;
        for (const EarlierText& text : web->earlierTexts().list())
            texts.emplaceBack(EarlierTexts::text(text), text.why);
        return texts;
    }
    bool hasKept(const QByteArray& text, Dropped why) const { return kept().contains(std::pair(text, why)); }
    void write() const { web->RichTextBox1->setText(Written); }
};

using Kept = QList<std::pair<QByteArray, Dropped>>;

} // namespace

class TestNets : public QObject
{
    Q_OBJECT

private slots:
    // What is kept
    void savedOverAnotherText();
    void savedOverWhatItHolds();
    void surfaceReplacesTheSource();
    void surfaceChangesNothing();
    void newGivesUp();
    void openGivesUp();
    void closingGivesUp();
    void givenUpOnTheSurface();
    void savedIsNotGivenUp();
    void longTextIsTold();

    // Traps
    void saveFailsAndNewGoesOn();
    void internetTabSavesNothing();
    void editorTakesThePage();
    void editorTakesTheSamePage();
    void staleCancelIsTold_data();
    void staleCancelIsTold();
    void linkWithDesignOff();
    void longWorkIsWaitedFor();
    void longWorkIsStopped();

    // The notice
    void noticeTakesNoFocus();
    void noticeGoes();
    void noticeLiesOverTheView();
    void noticeIsTold();

    // The window
    void menuStandsBeforeHelp();
    void windowShowsBoth();
    void bringsBackInOneStep();
    void bringsBackOnPreview();
    void savesElsewhere();
    void listFollows();
    void emptyWindow();
};

void TestNets::savedOverAnotherText()
{
    Desk desk;
    const QString path = desk.folder.path("lamp.htm");
    writeFile(path, "by somebody else\r\n");
    desk.write();
    desk.doors.answerSave(path);
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.press(Tool::SaveAs);
    QCOMPARE(readFile(path), Written + "\r\n");
    QCOMPARE(desk.kept(), (Kept{{"by somebody else\r\n", Dropped::Overwritten}}));
    QCOMPARE(desk.web->earlierTexts().list().first().document, path);

    desk.web->RichTextBox1->setText("second");
    desk.press(Tool::Save);
    QVERIFY(desk.hasKept(Written + "\r\n", Dropped::Overwritten));
}

void TestNets::savedOverWhatItHolds()
{
    Desk desk;
    desk.write();
    desk.saveAs(desk.folder.path("lamp.htm"));
    desk.press(Tool::Save);
    QCOMPARE(desk.kept(), Kept());
}

void TestNets::surfaceReplacesTheSource()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::PreviewTab);
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(desk.source() != Written);
    QCOMPARE(desk.kept(), (Kept{{Written, Dropped::Replaced}}));
    QCOMPARE(desk.notice(), QString()); // as it always goes
}

void TestNets::surfaceChangesNothing()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::PreviewTab);
    desk.showTab(FrmWeb::EditorTab);
    const QByteArray settled = desk.source();
    desk.showTab(FrmWeb::PreviewTab);
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.source(), settled);
    QCOMPARE(desk.kept(), (Kept{{Written, Dropped::Replaced}}));
}

void TestNets::newGivesUp()
{
    Desk desk;
    desk.type("unsaved");
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    QCOMPARE(desk.source(), QByteArray());
    QCOMPARE(desk.kept(), (Kept{{"unsaved", Dropped::GivenUp}}));
}

void TestNets::openGivesUp()
{
    Desk desk;
    const QString path = desk.folder.path("lamp.htm");
    writeFile(path, "lamp");
    desk.type("unsaved");
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.open(path);
    QCOMPARE(desk.source(), QByteArray("lamp"));
    QCOMPARE(desk.kept(), (Kept{{"unsaved", Dropped::GivenUp}}));
}

void TestNets::closingGivesUp()
{
    Desk desk;
    desk.type("unsaved");
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.web->close();
    QCOMPARE(desk.doors.ended, 0);
    unloadAll(); // as at the end of the program
    EarlierTexts next({AppPath()});
    QCOMPARE(next.list().size(), 1);
    QCOMPARE(EarlierTexts::text(next.list().first()), QByteArray("unsaved"));
}

/// What was typed on the page is in no source yet; with No both go.
void TestNets::givenUpOnTheSurface()
{
    Desk desk;
    const QString path = desk.folder.path("lamp.htm");
    writeFile(path, "lamp");
    desk.write();
    desk.showTab(FrmWeb::PreviewTab);
    desk.typeOnSurface("typed ");
    QTRY_VERIFY(desk.web->WebBrowser1->innerHtml().contains("typed"));
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.open(path);
    QVERIFY(desk.hasKept(Written, Dropped::GivenUp));
    const Kept all = desk.kept();
    QVERIFY(std::any_of(all.begin(), all.end(), [](const auto& text) {
        return text.first.contains("typed") && text.first.contains("Hours of work") &&
               text.second == Dropped::GivenUp;
    }));
}

void TestNets::savedIsNotGivenUp()
{
    Desk desk;
    desk.type("saved");
    desk.saveAs(desk.folder.path("lamp.htm"));
    desk.press(Tool::New);
    desk.type("kept by Yes");
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.doors.answerSave(desk.folder.path("second.htm"));
    desk.press(Tool::New);
    QCOMPARE(desk.kept(), Kept());
}

void TestNets::longTextIsTold()
{
    Desk desk;
    desk.web->RichTextBox1->setText(QByteArray(20'000'001, 'x'));
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    QTRY_COMPARE(desk.notice(),
                 "The former text is longer than 20 MB, so it was not kept as an earlier text.");
    QCOMPARE(desk.kept(), Kept());
}

// ---- Traps -----------------------------------------------------------------------------------------------

void TestNets::saveFailsAndNewGoesOn()
{
    Desk desk;
    const QString path = desk.folder.path("gone/lamp.htm");
    desk.type("hours of work");
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.doors.answerSave(path);
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    desk.press(Tool::New);
    QVERIFY(desk.doors.takeAsked().contains(
        "MsgBox|Error|There has been a (25)error, Cannot save file.|Stop|Ok"));
    QCOMPARE(desk.source(), QByteArray()); // it goes on all the same
    QCOMPARE(desk.kept(), (Kept{{"hours of work", Dropped::NotSaved}}));
    QTRY_COMPARE(desk.notice(), "The file could not be written. The text is among the earlier texts.");
    desk.take("&Earlier Texts");
    QCOMPARE(desk.notice(), QString());
    QTRY_VERIFY(isLoaded<FrmEarlier>() && form<FrmEarlier>()->isVisible());
    QCOMPARE(form<FrmEarlier>()->KeptSource->Text(), QByteArray("hours of work"));
}

void TestNets::internetTabSavesNothing()
{
    Desk desk;
    const QString path = desk.folder.path("lamp.htm");
    desk.write();
    desk.saveAs(path);
    desk.showTab(FrmWeb::InternetTab);
    desk.press(Tool::Save);
    QCOMPARE(readFile(path), QByteArray("\r\n"));
    QCOMPARE(desk.kept(), (Kept{{Written + "\r\n", Dropped::Overwritten}}));
    QCOMPARE(desk.notice(),
             "The tab Internet holds no page, so the file is empty now. Save on the tab Editor or Preview.");
    QCOMPARE(desk.offers(), QStringList{"&Earlier Texts"});
}

void TestNets::editorTakesThePage()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::InternetTab); // Preview has never seen the text
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(!desk.source().contains("Hours"));
    QCOMPARE(desk.notice(), "The editor took the page from Preview.");
    QCOMPARE(desk.kept(), (Kept{{Written, Dropped::Replaced}}));
    desk.take("&Undo");
    QCOMPARE(desk.source(), Written);
    QCOMPARE(desk.notice(), QString());
}

void TestNets::editorTakesTheSamePage()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::PreviewTab);
    desk.showTab(FrmWeb::EditorTab);
    desk.showTab(FrmWeb::InternetTab);
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.notice(), QString());
}

void TestNets::staleCancelIsTold_data()
{
    QTest::addColumn<int>("tool");
    QTest::newRow("New") << int(Tool::New);
    QTest::newRow("Open") << int(Tool::Open);
}

/// After Cancel the text is saved, and yet New and Open do nothing until another question is asked.
void TestNets::staleCancelIsTold()
{
    QFETCH(int, tool);
    Desk desk;
    const QString path = desk.folder.path("lamp.htm");
    writeFile(desk.folder.path("other.htm"), "other");
    desk.type("text");
    desk.doors.answerMsgBox(MsgAnswer::Cancel);
    desk.press(Tool(tool));
    QCOMPARE(desk.notice(), QString()); // who has just answered knows
    desk.saveAs(path);
    desk.doors.takeAsked();

    desk.press(Tool(tool));
    QCOMPARE(desk.doors.takeAsked(), QStringList());
    QCOMPARE(desk.source(), QByteArray("text"));
    QCOMPARE(desk.notice(), "The last save question was answered with Cancel, so the document stays.");
    desk.doors.answerMsgBox(MsgAnswer::No);
    if (Tool(tool) == Tool::Open)
        desk.doors.answerOpen(desk.folder.path("other.htm"));
    desk.take("&Ask again");
    QCOMPARE(desk.doors.takeAsked().first(), "MsgBox|Brindlemark|lamp.htm - File has changed. Do you wish to "
                                             "save changes ?|Information|YesNoCancel");
    QCOMPARE(desk.source(), Tool(tool) == Tool::Open ? QByteArray("other") : QByteArray());
}

void TestNets::linkWithDesignOff()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::PreviewTab);
    tick(desk.web->Option2);
    click(desk.web->Command16); // no question for an address: the doors' script is empty
    QCOMPARE(desk.notice(), "A link is made on the page itself: turn Design on first.");
    QVERIFY(!desk.web->WebBrowser1->innerHtml().contains("<A", Qt::CaseInsensitive));
}

/// The page's process stands still, as it does while it works on a large page.
static pid_t holdUp(const Desk& desk)
{
    desk.write();
    desk.showTab(FrmWeb::PreviewTab);
    const auto pid = pid_t(probe(desk.web->WebBrowser1).rendererPid());
    probe(desk.web->WebBrowser1).setPatience(300);
    ::kill(pid, SIGSTOP);
    return pid;
}

void TestNets::longWorkIsWaitedFor()
{
    Desk desk;
    const pid_t pid = holdUp(desk);
    QString notice;
    QStringList offers;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (desk.notice().isEmpty())
            return;
        look.stop();
        notice = desk.notice();
        offers = desk.offers();
        ::kill(pid, SIGCONT);
    });
    look.start(20);
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(notice, "The page is still at work. Stop loses what was edited on it in the last seconds.");
    QCOMPARE(offers, QStringList{"&Stop"});
    QVERIFY(desk.source().contains("Hours of work"));
    QCOMPARE(desk.notice(), QString());
    QCOMPARE(desk.doors.asked, QStringList());
}

void TestNets::longWorkIsStopped()
{
    Desk desk;
    holdUp(desk);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (desk.notice().isEmpty())
            return;
        look.stop();
        auto* stop = desk.bar()->findChild<QPushButton*>();
        const QPoint place =
            stop->mapTo(desk.web, stop->rect().center()); // as it comes from the window system
        QTest::mouseClick(desk.web->windowHandle(), Qt::LeftButton, {}, place);
    });
    look.start(20);
    desk.doors.answerMsgBox(MsgAnswer::Ok); // the page has ended
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(desk.doors.takeAsked().first().contains("The process that showed the page has ended."));
    QCOMPARE(desk.source(), Written);
}

// ---- The notice ------------------------------------------------------------------------------------------

void TestNets::noticeTakesNoFocus()
{
    Desk desk;
    desk.write();
    desk.saveAs(desk.folder.path("lamp.htm"));
    desk.showTab(FrmWeb::InternetTab);
    QWidget* before = QApplication::focusWidget();
    desk.press(Tool::Save);
    QVERIFY(!desk.notice().isEmpty());
    QVERIFY(!desk.bar()->isAncestorOf(QApplication::focusWidget()));
    QCOMPARE(QApplication::focusWidget(), before);
}

void TestNets::noticeGoes()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::InternetTab);
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(!desk.notice().isEmpty());
    desk.type("x");
    QCOMPARE(desk.notice(), QString()); // by a change of the document

    desk.showTab(FrmWeb::PreviewTab);
    tick(desk.web->Option2);
    click(desk.web->Command16);
    QVERIFY(!desk.notice().isEmpty());
    auto* time = desk.bar()->findChild<QTimer*>();
    QCOMPARE(time->interval(), 15000);
    time->start(0);
    QTRY_COMPARE(desk.notice(), QString()); // by itself

    click(desk.web->Command16);
    QVERIFY(!desk.notice().isEmpty());
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.notice(), QString()); // with its page
}

void TestNets::noticeLiesOverTheView()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::InternetTab);
    desk.showTab(FrmWeb::EditorTab);
    const QWidget* box = desk.web->RichTextBox1;
    const auto top = [&] { return box->mapTo(desk.web, QPoint(0, 0)); };
    QCOMPARE(desk.bar()->pos(), top());
    QCOMPARE(desk.bar()->width(), box->width());
    QVERIFY(desk.bar()->height() < box->height() / 3);
    const QSize before = box->size();
    desk.web->resize(desk.web->width() - 200, desk.web->height());
    QTRY_VERIFY(box->size() != before);
    QCOMPARE(desk.bar()->width(), box->width());
    QCOMPARE(desk.bar()->pos(), top());
}

void TestNets::noticeIsTold()
{
    Desk desk;
    desk.write();
    desk.showTab(FrmWeb::InternetTab);
    desk.showTab(FrmWeb::EditorTab);
    const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(desk.bar());
    QCOMPARE(face->text(QAccessible::Name), "The editor took the page from Preview.");
}

// ---- The window ------------------------------------------------------------------------------------------

void TestNets::menuStandsBeforeHelp()
{
    const Desk desk;
    QStringList titles;
    for (const QAction* entry : desk.web->MenuBar1->actions())
        titles += entry->text();
    const qsizetype tools = titles.indexOf("Tools");
    QCOMPARE(titles.value(tools - 1), "Internet");
    QCOMPARE(titles.value(tools + 1), "Help");
    QCOMPARE(desk.web->muntools->actions().at(3)->text(), "Earlier Texts..."); // behind Undo and Redo
}

void TestNets::windowShowsBoth()
{
    Desk desk;
    desk.web->RichTextBox1->setText("<P>one</P>\r\n<P>two</P>\r\n<P>three</P>");
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    desk.web->RichTextBox1->setText("<P>one</P>\r\n<P>2</P>\r\n<P>three</P>");
    desk.choose(desk.web->muntools, desk.web->munearlier);
    QTRY_VERIFY(isLoaded<FrmEarlier>() && form<FrmEarlier>()->isVisible());
    auto* window = form<FrmEarlier>();
    QCOMPARE(window->Texts->topLevelItemCount(), 1);
    QCOMPARE(window->Texts->topLevelItem(0)->text(0), "Untitled");
    QCOMPARE(window->Texts->topLevelItem(0)->text(3), "Given up without saving");
    QCOMPARE(window->KeptSource->Text(), QByteArray("<P>one</P>\r\n<P>two</P>\r\n<P>three</P>"));
    QCOMPARE(window->NowSource->Text(), desk.source());
    for (const RichTextBox* box : {window->KeptSource, window->NowSource}) {
        for (int line = 0; line < 3; ++line) {
            QCOMPARE(box->SendScintilla(QsciScintillaBase::SCI_MARKERGET, line) != 0, line == 1);
        }
    }
    QTest::keyClicks(window->KeptSource, "typed"); // to be read, not to be changed
    QTest::keyClick(window->KeptSource, Qt::Key_Delete);
    QCOMPARE(window->KeptSource->Text(), QByteArray("<P>one</P>\r\n<P>two</P>\r\n<P>three</P>"));

    window->Views->setCurrentWidget(window->PageView);
    QTRY_COMPARE(pageText(window->KeptPage).simplified(), "one two three");
    QTRY_COMPARE(pageText(window->NowPage).simplified(), "one 2 three");
}

void TestNets::bringsBackInOneStep()
{
    Desk desk;
    desk.write();
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    desk.type("today");
    desk.choose(desk.web->muntools, desk.web->munearlier);
    QTRY_VERIFY(isLoaded<FrmEarlier>());
    click(form<FrmEarlier>()->BringBack);
    QCOMPARE(desk.source(), Written);
    QVERIFY(!isLoaded<FrmEarlier>());
    QVERIFY(desk.web->Dirty());
    QVERIFY(desk.hasKept("today", Dropped::GivenUp));
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), QByteArray("today"));
}

void TestNets::bringsBackOnPreview()
{
    Desk desk;
    desk.write();
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    desk.type("today");
    desk.showTab(FrmWeb::PreviewTab);
    desk.choose(desk.web->muntools, desk.web->munearlier);
    QTRY_VERIFY(isLoaded<FrmEarlier>());
    click(form<FrmEarlier>()->BringBack);
    QVERIFY(desk.web->WebBrowser1->innerHtml().contains("Hours of work"));
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(desk.source().contains("Hours of work"));
}

void TestNets::savesElsewhere()
{
    Desk desk;
    desk.web->RichTextBox1->setText(QByteArray("any\nbytes \xFF"));
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    desk.choose(desk.web->muntools, desk.web->munearlier);
    QTRY_VERIFY(isLoaded<FrmEarlier>());
    const QString path = desk.folder.path("back.htm");
    desk.doors.answerSave(path);
    click(form<FrmEarlier>()->SaveAs);
    QCOMPARE(readFile(path), QByteArray("any\nbytes \xFF"));
    QCOMPARE(desk.source(), QByteArray());
    QCOMPARE(desk.web->documentName(), "Untitled");

    desk.doors.answerSave(path); // asks before it replaces
    desk.doors.answerMsgBox(MsgAnswer::No);
    click(form<FrmEarlier>()->SaveAs);
    QVERIFY(desk.doors.takeAsked().last().contains("already exists"));
}

void TestNets::listFollows()
{
    Desk desk;
    desk.write();
    desk.choose(desk.web->muntools, desk.web->munearlier);
    QTRY_VERIFY(isLoaded<FrmEarlier>());
    auto* window = form<FrmEarlier>();
    QCOMPARE(window->Texts->topLevelItemCount(), 0);
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.press(Tool::New);
    QEvent front(QEvent::WindowActivate);
    QApplication::sendEvent(window, &front);
    QCOMPARE(window->Texts->topLevelItemCount(), 1);
    QCOMPARE(window->KeptSource->Text(), Written);
}

void TestNets::emptyWindow()
{
    Desk desk;
    desk.choose(desk.web->muntools, desk.web->munearlier);
    QTRY_VERIFY(isLoaded<FrmEarlier>());
    QVERIFY(!form<FrmEarlier>()->BringBack->isEnabled());
    QVERIFY(!form<FrmEarlier>()->SaveAs->isEnabled());
    QVERIFY(QTest::qWaitForWindowActive(form<FrmEarlier>(), Patience));
    QTest::keyClick(form<FrmEarlier>()->windowHandle(), Qt::Key_Escape);
    QTRY_VERIFY(!isLoaded<FrmEarlier>());
}

WEB_TEST_MAIN(TestNets)
#include "tst_nets.moc"
