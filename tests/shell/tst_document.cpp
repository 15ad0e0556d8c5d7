// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "platform/RuntimeError.h"
#include "shell/Generator.h"

#include <QDir>
#include <QFile>
#include <QThread>
#include <QToolTip>
#include <unistd.h>

using namespace brindlemark;

namespace {

/// What the open and save dialogs of documents offer.
const QString DocumentFilter =
    QStringLiteral("HTML Files (*.htm)|*.htm|Text files (*.txt)|*.txt|Document files (*.doc)|*.doc|"
                   "All files (*.*)|*.*");

const QString Untitled = QStringLiteral("Untitled");
const QString UntitledCaption = QStringLiteral("Untitled - Brindlemark 1.0");
const QString SaveFailed =
    QStringLiteral("MsgBox|Error|There has been a (25)error, Cannot save file.|Stop|Ok");

/// What the source box holds after a look at an empty surface.
const QByteArray BlankDocument =
    "<HEAD>\r\n<META content=\"Brindlemark 1.0\" name=GENERATOR></HEAD>\r\n<BODY></BODY>";

/// The source of a page with this body, as it comes from the design surface.
QByteArray page(const QByteArray& body)
{
    return "<HEAD>\r\n<META content=\"Brindlemark 1.0\" name=GENERATOR></HEAD>\r\n<BODY>" + body + "</BODY>";
}

/// The record of the save question about a file.
QString saveQuestion(const QString& name)
{
    return QStringLiteral("MsgBox|Brindlemark|%1 - File has changed. Do you wish to save changes ?|"
                          "Information|YesNoCancel")
        .arg(name);
}

QString openDialog()
{
    return QStringLiteral("Open|Open As Files|*.htm|") + DocumentFilter;
}

/// The record of the Save As dialog that proposes a name.
QString saveDialog(const QString& proposal)
{
    return QStringLiteral("Save|Save As Files|") + proposal + u'|' + DocumentFilter;
}

/// The record of the question before a file is replaced.
QString replaceQuestion(const QString& name)
{
    return QStringLiteral("MsgBox|Information|[ %1 ] - already exists.\r\nDo you want to replace it ?|"
                          "Information|YesNo")
        .arg(name);
}

QString clipboardText(ScriptedDoors& doors)
{
    return doors.clipboard()->text();
}

/// Whether the hourglass stood, each time the window waited for the disk.
QList<bool> hourglassAtSync;

} // namespace

/// Stands in front of the system library's: a save ends with it.
extern "C" int fsync(int file)
{
    if (QThread::currentThread() == qApp->thread()) {
        const QCursor* pointer = QGuiApplication::overrideCursor();
        hourglassAtSync << (pointer && pointer->shape() == Qt::WaitCursor);
    }
    return fdatasync(file);
}

class TestDocument : public QObject
{
    Q_OBJECT

private slots:
    // What counts as unsaved
    void typingMakesDirty();
    void deletingAllTextMakesClean();
    void textSetByProgramMakesDirty_data();
    void textSetByProgramMakesDirty();
    void clickMakesDirtyUnlessEmpty();
    void selectionMakesDirty();
    void keyReleaseOnlyCleansAnEmptyBox();
    void tabZeroWithBlankDocumentIsClean();
    void tabOneWithEmptySourceIsClean();
    void lookAtTheSurfaceMakesDirty();
    void surfaceEditsCountOnlyWhenTheyComeBack();
    void successfulOpenIsDirty();

    // The save question
    void saveQuestionAnswers_data();
    void saveQuestionAnswers();
    void saveQuestionNamesTheFile();
    void saveQuestionOfAVanishedFile();
    void nextQuestionClearsTheLastAnswer();

    // New
    void newEmptiesTheDocument();
    void newAsksFirst_data();
    void newAsksFirst();
    void newOnAnUntouchedSurfaceAsksNothing();
    void newOnAnEditedSurfaceAsks();
    void newStopsAtAStaleCancel();
    void newWritesTheDesignSurfaceOnly();

    // Open
    void openShowsTheFile();
    void openAsksFirst_data();
    void openAsksFirst();
    void noAtOpenThenCancelEmptiesAllTheSame();
    void staleNoEmptiesAtTheNextOpen();
    void cancelInOpenKeepsAll();
    void emptyNameInOpenKeepsAll();
    void openOnTabOneShowsOnTheSurface();
    void openWithDesignOffShowsOnBoth();
    void openMissingFileResetsSilently_data();
    void openMissingFileResetsSilently();
    void openMakesTheHighlightAnew();
    void openTreatsEveryFileAsText_data();
    void openTreatsEveryFileAsText();
    void dropOpensTheFile();
    void dropAsksFirst_data();
    void dropAsksFirst();
    void dropHeedsAStaleAnswer();
    void dropOfAFileThatGoesResetsSilently();
    void dropMakesTheHighlightAnew();
    void dropOfPictures_data();
    void dropOfPictures();
    void droppedPictureStaysAPicture();
    void dropOfTextAmongPictures();
    void dropOfNoTextIsRefused_data();
    void dropOfNoTextIsRefused();
    void openAFileNameOfAnyLetters_data();
    void openAFileNameOfAnyLetters();

    // Save
    void saveUntitledAsksForAName();
    void saveTwiceWithoutAnEdit();
    void saveKeepsTheCaption();
    void roundTripAddsOneLineEnd_data();
    void roundTripAddsOneLineEnd();
    void eachRoundTripAddsAnotherLineEnd();
    void saveOnTheInternetTabWritesAnEmptyLine();
    void saveOnTabOneTakesTheSurface();
    void saveWithDesignOffTakesTheOlderText();
    void saveFailureKeepsAll_data();
    void saveFailureKeepsAll();
    void saveMakesAVanishedFileAnew();

    // Save As
    void saveAsProposesTheBareName();
    void saveAsNamesTheDocument();
    void saveAsCancelKeepsAll();
    void saveAsEmptyNameKeepsAll();
    void saveAsAsksBeforeReplacing();
    void saveAsNoLeavesEverything();
    void saveAsFailureKeepsAll_data();
    void saveAsFailureKeepsAll();
    void yesAtUnnamedThenCancelLosesTheDocument_data();
    void yesAtUnnamedThenCancelLosesTheDocument();

    // The Edit menu's clipboard entries
    void cutOnTabZero_data();
    void cutOnTabZero();
    void copyOnTabZero_data();
    void copyOnTabZero();
    void copyOfNothingClearsTheClipboard();
    void cutOfNothingClearsTheClipboard();
    void pasteOnTabZero_data();
    void pasteOnTabZero();
    void pasteOfNothingDeletesTheSelection();
    void selectAllOnTabZero();
    void copyAllOnTabZero();
    void copyAllOfNothingClearsTheClipboard();
    void clipboardOnTabOne();
    void copyAllOnTabOne();
    void clipboardEntriesDoNothingOnTabTwo_data();
    void clipboardEntriesDoNothingOnTabTwo();

    // Public operations
    void getFileName();
    void saveFileAs();
    void savesShowTheHourglass();
    void saveFileAsShowsItsFailure();
    void etxtGivesItsArgumentBack();

    // The generator tag
    void generatorIsStamped_data();
    void generatorIsStamped();
    void stampKeepsTheCaret();
    void stampWithoutSecondHalfEndsTheProgram();
    void tornTagBehindWholeOnes();
    void stampMakesDirty();
};

// ---- What counts as unsaved

void TestDocument::typingMakesDirty()
{
    MainWindow window;
    QVERIFY(!window.web->Dirty());
    window.type(QStringLiteral("a"));
    QCOMPARE(window.source(), QByteArray("a"));
    QVERIFY(window.web->Dirty());
}

void TestDocument::deletingAllTextMakesClean()
{
    MainWindow window;
    window.type(QStringLiteral("ab"));
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Backspace);
    QVERIFY(window.web->Dirty());
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Backspace);
    QCOMPARE(window.source(), QByteArray());
    QVERIFY(!window.web->Dirty());
}

void TestDocument::textSetByProgramMakesDirty_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("insert");
    QTest::addColumn<bool>("dirty");
    QTest::newRow("whole text") << QByteArray("page") << false << true;
    QTest::newRow("the same text") << QByteArray("old") << false << true;
    QTest::newRow("insertion") << QByteArray("page") << true << true;
    QTest::newRow("emptied") << QByteArray() << false << false;
}

void TestDocument::textSetByProgramMakesDirty()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, insert);
    QFETCH(bool, dirty);
    MainWindow window;
    window.web->RichTextBox1->setText("old");
    window.web->document().setDirty(!dirty);
    if (insert) {
        window.web->RichTextBox1->setSelText(text);
    } else {
        window.web->RichTextBox1->setText(text);
    }
    QCOMPARE(window.web->Dirty(), dirty);
}

void TestDocument::clickMakesDirtyUnlessEmpty()
{
    MainWindow window;
    window.web->document().setDirty(true);
    QTest::mouseClick(window.web->RichTextBox1->viewport(), Qt::LeftButton);
    QVERIFY(!window.web->Dirty());

    window.web->RichTextBox1->setText("page");
    window.web->document().setDirty(false);
    QTest::mouseClick(window.web->RichTextBox1->viewport(), Qt::LeftButton);
    QVERIFY(window.web->Dirty());
}

void TestDocument::selectionMakesDirty()
{
    MainWindow window;
    window.web->RichTextBox1->setText("page");
    window.web->document().setDirty(false);
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(window.web->RichTextBox1->SelLength(), 1);
    QVERIFY(window.web->Dirty());

    window.web->document().setDirty(false);
    window.web->RichTextBox1->setSelStart(3);
    QVERIFY(window.web->Dirty());
}

void TestDocument::keyReleaseOnlyCleansAnEmptyBox()
{
    MainWindow window;
    window.web->RichTextBox1->setText("page");
    for (bool dirty : {false, true}) {
        window.web->document().setDirty(dirty);
        QTest::keyRelease(window.web->RichTextBox1, Qt::Key_Control);
        QCOMPARE(window.web->Dirty(), dirty);
    }
    window.web->RichTextBox1->setText({});
    window.web->document().setDirty(true);
    QTest::keyRelease(window.web->RichTextBox1, Qt::Key_Control);
    QVERIFY(!window.web->Dirty());
}

void TestDocument::tabZeroWithBlankDocumentIsClean()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(window.source(), BlankDocument);
    QVERIFY(!window.web->Dirty());
}

void TestDocument::tabOneWithEmptySourceIsClean()
{
    MainWindow window;
    window.web->document().setDirty(true);
    window.showTab(FrmWeb::PreviewTab);
    QVERIFY(!window.web->Dirty());
}

void TestDocument::lookAtTheSurfaceMakesDirty()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(!window.web->Dirty());
    window.showTab(FrmWeb::PreviewTab);
    QVERIFY(!window.web->Dirty());
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(window.source(), page("word"));
    QVERIFY(window.web->Dirty());
}

void TestDocument::surfaceEditsCountOnlyWhenTheyComeBack()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("typed"));
    QVERIFY(!window.web->Dirty());
    window.showTab(FrmWeb::EditorTab);
    QVERIFY(window.source().contains("typed"));
    QVERIFY(window.web->Dirty());
}

void TestDocument::successfulOpenIsDirty()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<P>page");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(window.web->Dirty());
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    QVERIFY(!window.web->close());
    QCOMPARE(window.doors.takeAsked(), (QStringList{openDialog(), saveQuestion(QStringLiteral("page.htm"))}));
}

// ---- The save question

void TestDocument::saveQuestionAnswers_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::addColumn<bool>("cancelled");
    QTest::addColumn<bool>("declined");
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("Yes") << MsgAnswer::Yes << false << false << QByteArray("new\r\n");
    QTest::newRow("No") << MsgAnswer::No << false << true << QByteArray("old");
    QTest::newRow("Cancel") << MsgAnswer::Cancel << true << false << QByteArray("old");
}

void TestDocument::saveQuestionAnswers()
{
    QFETCH(MsgAnswer, answer);
    QFETCH(bool, cancelled);
    QFETCH(bool, declined);
    QFETCH(QByteArray, file);
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    window.web->RichTextBox1->setText("new");
    window.doors.takeAsked();

    window.doors.answerMsgBox(answer);
    QCOMPARE(window.web->Checksafe(), !cancelled);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveQuestion(QStringLiteral("page.htm"))});
    QCOMPARE(window.doors.beeps, 1);
    QCOMPARE(window.web->SaveCancelled(), cancelled);
    QCOMPARE(window.web->SaveDeclined(), declined);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), file);
    QCOMPARE(window.source(), QByteArray("new"));
}

void TestDocument::saveQuestionNamesTheFile()
{
    MainWindow window;
    window.type(QStringLiteral("a"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    QVERIFY(!window.web->Checksafe());
    QCOMPARE(window.doors.takeAsked(), QStringList{saveQuestion(Untitled)});
}

void TestDocument::saveQuestionOfAVanishedFile()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(QFile::remove(window.folder.path(QStringLiteral("page.htm"))));
    window.doors.takeAsked();
    window.doors.answerMsgBox(MsgAnswer::No);
    QVERIFY(window.web->Checksafe());
    QCOMPARE(window.doors.takeAsked(), QStringList{saveQuestion(Untitled)});
}

void TestDocument::nextQuestionClearsTheLastAnswer()
{
    MainWindow window;
    window.type(QStringLiteral("a"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    QVERIFY(!window.web->Checksafe());
    window.doors.answerMsgBox(MsgAnswer::No);
    QVERIFY(window.web->Checksafe());
    QVERIFY(!window.web->SaveCancelled());
    QVERIFY(window.web->SaveDeclined());
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    QVERIFY(!window.web->Checksafe());
    QVERIFY(window.web->SaveCancelled());
    QVERIFY(!window.web->SaveDeclined());
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.doors.cancelSave();
    QVERIFY(window.web->Checksafe());
    QVERIFY(!window.web->SaveCancelled());
    QVERIFY(!window.web->SaveDeclined());
}

// ---- New

void TestDocument::newEmptiesTheDocument()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();
    window.choose(window.web->Mnfile, window.web->MnNew);
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(window.web->documentName(), Untitled);
    QVERIFY(!window.web->Dirty());
    QCOMPARE(window.caption(), UntitledCaption);
    QCOMPARE(window.doors.asked, QStringList());
}

void TestDocument::newAsksFirst_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("Yes") << MsgAnswer::Yes << QByteArray() << QByteArray("oldx\r\n");
    QTest::newRow("No") << MsgAnswer::No << QByteArray() << QByteArray("old");
    QTest::newRow("Cancel") << MsgAnswer::Cancel << QByteArray("oldx") << QByteArray("old");
}

void TestDocument::newAsksFirst()
{
    QFETCH(MsgAnswer, answer);
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, file);
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_End);
    window.type(QStringLiteral("x"));
    window.doors.takeAsked();

    window.doors.answerMsgBox(answer);
    window.press(Tool::New);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveQuestion(QStringLiteral("page.htm"))});
    QCOMPARE(window.source(), source);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), file);
    const bool stopped = answer == MsgAnswer::Cancel;
    QCOMPARE(window.web->documentName(), stopped ? window.folder.path(QStringLiteral("page.htm")) : Untitled);
    QCOMPARE(window.caption(), stopped ? QStringLiteral("page.htm - Brindlemark 1.0") : UntitledCaption);
    QCOMPARE(window.web->Dirty(), stopped);
}

void TestDocument::newOnAnUntouchedSurfaceAsksNothing()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    window.press(Tool::New);
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.source(), QByteArray());
    QVERIFY(!window.web->Dirty());
    QCOMPARE(window.caption(), UntitledCaption);
}

void TestDocument::newOnAnEditedSurfaceAsks()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("typed"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.press(Tool::New);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveQuestion(Untitled)});
    QVERIFY(window.source().contains("typed"));
    QVERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("typed")));
}

void TestDocument::newStopsAtAStaleCancel()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.press(Tool::New);
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(!window.web->Dirty());
    window.doors.takeAsked();
    window.press(Tool::New);
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("page.htm")));
}

void TestDocument::newWritesTheDesignSurfaceOnly()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.doors.answerMsgBox(MsgAnswer::No);
    window.press(Tool::New);
    QVERIFY(!window.web->WebBrowser1->innerHtml().contains(QStringLiteral("word")));
    QVERIFY(window.web->WebBrowser3->innerHtml().contains(QStringLiteral("word")));
}

// ---- Open

void TestDocument::openShowsTheFile()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<P>page</P>\r\n");
    window.doors.answerOpen(window.folder.path(QStringLiteral("page.htm")));
    window.choose(window.web->Mnfile, window.web->MnOpen);
    QCOMPARE(window.doors.takeAsked(), QStringList{openDialog()});
    QCOMPARE(window.source(), QByteArray("<P>page</P>\r\n"));
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
}

void TestDocument::openAsksFirst_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("Yes") << MsgAnswer::Yes << QByteArray("second") << QByteArray("old\r\n");
    QTest::newRow("No") << MsgAnswer::No << QByteArray("second") << QByteArray("old");
    QTest::newRow("Cancel") << MsgAnswer::Cancel << QByteArray("old") << QByteArray("old");
}

void TestDocument::openAsksFirst()
{
    QFETCH(MsgAnswer, answer);
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, file);
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.folder.write(QStringLiteral("second.htm"), "second");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();

    QStringList expected{saveQuestion(QStringLiteral("page.htm"))};
    window.doors.answerMsgBox(answer);
    if (answer != MsgAnswer::Cancel) {
        window.doors.answerOpen(window.folder.path(QStringLiteral("second.htm")));
        expected << openDialog();
    }
    window.press(Tool::Open);
    QCOMPARE(window.doors.takeAsked(), expected);
    QCOMPARE(window.source(), source);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), file);
}

void TestDocument::noAtOpenThenCancelEmptiesAllTheSame()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.showTab(FrmWeb::EditorTab);
    window.doors.answerMsgBox(MsgAnswer::No);
    window.doors.cancelOpen();
    window.press(Tool::Open);
    QCOMPARE(window.doors.takeAsked(), (QStringList{saveQuestion(Untitled), openDialog()}));
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(window.web->documentName(), Untitled);
    QCOMPARE(window.caption(), UntitledCaption);
    QVERIFY(!window.web->Dirty());
    QVERIFY(!window.web->WebBrowser1->innerHtml().contains(QStringLiteral("word")));
    QVERIFY(!window.web->WebBrowser3->innerHtml().contains(QStringLiteral("word")));
}

void TestDocument::staleNoEmptiesAtTheNextOpen()
{
    MainWindow window;
    window.type(QStringLiteral("first"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.press(Tool::New);
    window.type(QStringLiteral("second"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();

    window.doors.cancelOpen();
    window.press(Tool::Open);
    QCOMPARE(window.doors.takeAsked(), QStringList{openDialog()});
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(window.web->documentName(), Untitled);
    QCOMPARE(window.caption(), UntitledCaption);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("second\r\n"));
}

void TestDocument::cancelInOpenKeepsAll()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();
    window.doors.cancelOpen();
    window.press(Tool::Open);
    QCOMPARE(window.doors.takeAsked(), QStringList{openDialog()});
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QVERIFY(!window.web->Dirty());
}

void TestDocument::emptyNameInOpenKeepsAll()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.open(QString());
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("page.htm")));
}

void TestDocument::openOnTabOneShowsOnTheSurface()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<B>page</B>");
    window.showTab(FrmWeb::PreviewTab);
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.source(), QByteArray("<B>page</B>"));
    QVERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("<B>page</B>")));
    QVERIFY(!window.web->WebBrowser3->innerHtml().contains(QStringLiteral("page")));
}

void TestDocument::openWithDesignOffShowsOnBoth()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<B>page</B>");
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("<B>page</B>")));
    QVERIFY(window.web->WebBrowser3->innerHtml().contains(QStringLiteral("<B>page</B>")));
}

void TestDocument::openMissingFileResetsSilently_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no file") << QStringLiteral("missing.htm");
    QTest::newRow("no folder") << QStringLiteral("missing/page.htm");
    QTest::newRow("a folder") << QStringLiteral("folder.htm");
    QTest::newRow("2 GB") << QStringLiteral("large.htm");
}

void TestDocument::openMissingFileResetsSilently()
{
    QFETCH(QString, name);
    MainWindow window;
    QVERIFY(QDir(window.folder.path(QString())).mkdir(QStringLiteral("folder.htm")));
    QFile large(window.folder.path(QStringLiteral("large.htm"))); // takes no room on the disk
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(qint64(1) << 31));
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();
    window.open(window.folder.path(name));
    QCOMPARE(window.doors.takeAsked(), QStringList{openDialog()});
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(window.web->documentName(), Untitled);
    QVERIFY(!window.web->Dirty());
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QVERIFY(!window.doors.ended);
}

void TestDocument::openMakesTheHighlightAnew()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<B>page</B>");
    window.type(QStringLiteral("word"));
    window.press(Tool::Highlight);
    QVERIFY(window.web->highlighted);
    window.saveAs(window.folder.path(QStringLiteral("other.htm")));
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(window.web->RichTextBox1->colorAt(1) != 0);
    QVERIFY(window.web->RichTextBox1->colorAt(4) != window.web->RichTextBox1->colorAt(1));
}

void TestDocument::openTreatsEveryFileAsText_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"page.txt", "page.doc", "page.bin", "page"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestDocument::openTreatsEveryFileAsText()
{
    QFETCH(QString, name);
    MainWindow window;
    window.folder.write(name, "{\\rtf1 plain}");
    window.open(window.folder.path(name));
    QCOMPARE(window.source(), QByteArray("{\\rtf1 plain}"));
    QCOMPARE(window.caption(), name + QStringLiteral(" - Brindlemark 1.0"));
}

void TestDocument::dropOpensTheFile()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<B>a</B>\r\n\xE9\n");
    window.drop(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.source(), QByteArray("<B>a</B>\r\n\xE9\n"));
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QVERIFY(window.web->Dirty()); // as after any open
    QCOMPARE(window.doors.takeAsked(), QStringList());
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Z,
                    Qt::ControlModifier); // not back into the old document
    QCOMPARE(window.source(), QByteArray("<B>a</B>\r\n\xE9\n"));
}

void TestDocument::dropAsksFirst_data()
{
    openAsksFirst_data();
}

void TestDocument::dropAsksFirst()
{
    QFETCH(MsgAnswer, answer);
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, file);
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.folder.write(QStringLiteral("second.htm"), "second");
    window.drop(window.folder.path(QStringLiteral("page.htm")));

    window.doors.answerMsgBox(answer);
    window.drop(window.folder.path(QStringLiteral("second.htm")));
    QCOMPARE(window.doors.takeAsked(), QStringList{saveQuestion(QStringLiteral("page.htm"))});
    QCOMPARE(window.source(), source);
    QCOMPARE(window.web->SaveCancelled(), answer == MsgAnswer::Cancel);
    QCOMPARE(window.web->SaveDeclined(), answer == MsgAnswer::No);
    QCOMPARE(window.caption(), answer == MsgAnswer::Cancel ? QStringLiteral("page.htm - Brindlemark 1.0")
                                                           : QStringLiteral("second.htm - Brindlemark 1.0"));
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), file);
    QCOMPARE(window.folder.read(QStringLiteral("second.htm")), QByteArray("second")); // copied, not moved
}

/// As Open does: a Cancel stops everything until the next question.
void TestDocument::dropHeedsAStaleAnswer()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "page");
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.press(Tool::New);
    window.saveAs(window.folder.path(QStringLiteral("word.htm")));
    QVERIFY(!window.web->Dirty());
    window.doors.takeAsked();
    window.drop(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.doors.takeAsked(), QStringList());
}

void TestDocument::dropOfAFileThatGoesResetsSilently()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "page");
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("word.htm")));
    window.web->document().setDirty(true);
    window.doors.takeAsked();
    window.doors.during([&] { QVERIFY(QFile::remove(window.folder.path(QStringLiteral("page.htm")))); });
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.drop(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.doors.takeAsked(), QStringList{saveQuestion(QStringLiteral("word.htm"))});
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(window.web->documentName(), Untitled);
    QVERIFY(!window.web->Dirty());
    QCOMPARE(window.caption(), QStringLiteral("word.htm - Brindlemark 1.0"));
}

void TestDocument::dropMakesTheHighlightAnew()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<P>page");
    window.web->highlighted = true;
    window.drop(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(window.web->RichTextBox1->colorAt(0) != 0);
}

void TestDocument::dropOfPictures_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("inAddress"); // the names as addresses hold them
    for (const char* suffix : {"png", "jpg", "jpeg", "gif", "webp", "bmp", "svg", "JPG", "Png"}) {
        const QStringList name{QStringLiteral("lamp.") + QString::fromLatin1(suffix)};
        QTest::newRow(suffix) << name << name;
    }
    const QStringList three{"c.png", "a.jpg", "b.gif"};
    QTest::newRow("several") << three << three;
    QTest::newRow("texts are left out")
        << QStringList{"c.png", "page.htm", "b.gif", "list.txt"} << QStringList{"c.png", "b.gif"};
    QTest::newRow("odd letters") << QStringList{QString::fromUtf8("Grüße \"1\" 50%#?.jpg")}
                                 << QStringList{"Gr%C3%BC%C3%9Fe%20%221%22%2050%25%23%3F.jpg"};
    QTest::newRow("two suffixes") << QStringList{"lamp.tar.jpg"} << QStringList{"lamp.tar.jpg"};
}

/// In front of the third character of a page that is no UTF-8, as one step, and without a question.
void TestDocument::dropOfPictures()
{
    QFETCH(QStringList, names);
    QFETCH(QStringList, inAddress);
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "\xE9\xE9 lamp");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    window.web->RichTextBox1->selectAll(); // what is selected stays
    window.doors.takeAsked();
    QStringList paths;
    for (const QString& name : names) {
        window.folder.write(name, QByteArray("\x89PNG\0\0", 6));
        paths << window.folder.path(name);
    }
    window.drop(paths, 2);
    QByteArray tags;
    const QByteArray folder = QFileInfo(paths.first()).path().toUtf8();
    for (const QString& name : inAddress)
        tags += "<IMG src=\"file://" + folder + '/' + name.toUtf8() + "\" border=0>\r\n";
    QCOMPARE(window.source(), "\xE9\xE9" + tags + " lamp");
    QCOMPARE(window.web->RichTextBox1->SelStart(), int(2 + tags.size()));
    QVERIFY(window.web->Dirty());
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QCOMPARE(window.doors.takeAsked(), QStringList());
    QCOMPARE(window.web->Label1->text(), names.contains(QStringLiteral("page.htm"))
                                             ? QStringLiteral("Not inserted: page.htm, list.txt")
                                             : QStringLiteral("Done"));
    QVERIFY(window.web->RichTextBox1->hasFocus());
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.source(), QByteArray("\xE9\xE9 lamp"));
}

/// What is saved afterwards is the page, in the page's file.
void TestDocument::droppedPictureStaysAPicture()
{
    const QByteArray photo("\xFF\xD8\xFF\xE0\0photo", 10);
    MainWindow window;
    window.folder.write(QStringLiteral("photo.jpg"), photo);
    window.type(QStringLiteral("<P>"));
    window.drop({window.folder.path(QStringLiteral("photo.jpg"))});
    QCOMPARE(window.web->documentName(), Untitled);
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.folder.read(QStringLiteral("photo.jpg")), photo);
    QVERIFY(window.folder.read(QStringLiteral("page.htm")).contains("photo.jpg\" border=0>"));
}

/// The first file decides.
void TestDocument::dropOfTextAmongPictures()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<P>page");
    window.folder.write(QStringLiteral("lamp.png"), QByteArray("\0", 1));
    window.drop(
        {window.folder.path(QStringLiteral("page.htm")), window.folder.path(QStringLiteral("lamp.png"))}, 0);
    QCOMPARE(window.source(), QByteArray("<P>page"));
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
}

void TestDocument::dropOfNoTextIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("refused");
    const QByteArray words(4095, 'a');
    QTest::newRow("NUL first") << QByteArray("\0abc", 4) << true;
    QTest::newRow("NUL within 4 KB") << words + '\0' << true;
    QTest::newRow("NUL later") << words + "a" + '\0' << false;
    QTest::newRow("none") << QByteArray("PK\x03\x04\xFF\xFE") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

/// Neither asks nor touches anything; File, Open still opens whatever it is given.
void TestDocument::dropOfNoTextIsRefused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, refused);
    MainWindow window;
    window.folder.write(QStringLiteral("lamps.zip"), bytes);
    const QString path = window.folder.path(QStringLiteral("lamps.zip"));
    window.folder.write(QStringLiteral("page.htm"), "<P>page");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();
    if (!refused)
        window.doors.answerMsgBox(MsgAnswer::No);
    window.drop({path});
    QCOMPARE(window.source(), refused ? QByteArray("<P>page") : bytes);
    QCOMPARE(window.caption(), refused ? QStringLiteral("page.htm - Brindlemark 1.0")
                                       : QStringLiteral("lamps.zip - Brindlemark 1.0"));
    const QString why = QStringLiteral("Not opened: lamps.zip is no text");
    QCOMPARE(window.web->Label1->text(), refused ? why : QStringLiteral("Done"));
    QCOMPARE(QToolTip::isVisible() && QToolTip::text().endsWith(why), refused);
    QToolTip::hideText();
    if (refused) {
        QCOMPARE(window.doors.takeAsked(), QStringList());
        window.doors.answerMsgBox(MsgAnswer::No);
        window.open(path);
        QCOMPARE(window.source(), bytes);
    }
}

void TestDocument::openAFileNameOfAnyLetters_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << QStringLiteral("my  first page.htm");
    QTest::newRow("quotes") << QStringLiteral("the \"best\" 'page'.htm");
    QTest::newRow("letters") << QString::fromUtf8("Grüße aus Łódź 漢字.htm");
    QTest::newRow("percent") << QStringLiteral("50%20 %1 off.htm");
    QTest::newRow("pattern") << QStringLiteral("a[1]*?.htm");
    QTest::newRow("ampersand") << QStringLiteral("A & B <i>.htm");
}

void TestDocument::openAFileNameOfAnyLetters()
{
    QFETCH(QString, name);
    MainWindow window;
    window.folder.write(name, "old");
    window.open(window.folder.path(name));
    QCOMPARE(window.source(), QByteArray("old"));
    QCOMPARE(window.caption(), name + QStringLiteral(" - Brindlemark 1.0"));
    window.doors.takeAsked();

    window.press(Tool::Save);
    QCOMPARE(window.folder.read(name), QByteArray("old\r\n"));

    window.doors.answerSave(window.folder.path(name));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.press(Tool::SaveAs);
    QCOMPARE(window.doors.takeAsked(), (QStringList{saveDialog(name), replaceQuestion(name)}));
    QCOMPARE(window.caption(), name + QStringLiteral(" - Brindlemark 1.0"));
}

// ---- Save

void TestDocument::saveUntitledAsksForAName()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.answerSave(window.folder.path(QStringLiteral("page.htm")));
    window.choose(window.web->Mnfile, window.web->mnsave);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveDialog(QString())});
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("word\r\n"));
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QVERIFY(!window.web->Dirty());
}

void TestDocument::saveTwiceWithoutAnEdit()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(QFile::remove(window.folder.path(QStringLiteral("page.htm"))));
    window.doors.takeAsked();
    for (int i = 0; i < 2; ++i) {
        window.press(Tool::Save);
        QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("word\r\n"));
        QVERIFY(!window.web->Dirty());
    }
    QCOMPARE(window.doors.asked, QStringList());
}

void TestDocument::saveKeepsTheCaption()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.web->SaveFileAs(window.folder.path(QStringLiteral("copy.htm")));
    const QString caption = window.caption();
    QVERIFY(caption.startsWith(window.folder.path(QStringLiteral("copy.htm"))));
    QCOMPARE(window.folder.read(QStringLiteral("copy.htm")), QByteArray("word\r\n"));
    window.press(Tool::Save);
    QCOMPARE(window.caption(), caption);
}

void TestDocument::roundTripAddsOneLineEnd_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("line ends") << QByteArray("a\nb\rc\r\nd\n\re\r\r\n");
    QTest::newRow("only CR LF") << QByteArray("\r\n");
    QTest::newRow("no line end") << QByteArray("word");
    QTest::newRow("NUL") << QByteArray("a\0b\0", 4);
    QTest::newRow("every byte") << all;
    QTest::newRow("UTF-8") << QByteArray("Gr\xC3\xBC\xC3\x9F"
                                         "e \xE6\xBC\xA2 \xF0\x9F\x98\x80");
    QTest::newRow("invalid UTF-8") << QByteArray(
        "\xC3\xBC \xC3( \xE2\x82 \xF0\x9F\x98 \xC0\xAF \xED\xA0\x80");
    QTest::newRow("Western") << QByteArray("Gr\xFC\xDF"
                                           "e \x80 \x81 \x8D \x90 \xA0");
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<P>word");
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE<\0P\0>\0", 8);
    QTest::newRow("Ctrl+Z") << QByteArray("a\x1A"
                                          "b");
    QTest::newRow("one line of 2 MB") << QByteArray(2'000'000, 'x');
    QTest::newRow("many lines") << QByteArray("<P>line</P>\r\n").repeated(50'000);
}

void TestDocument::roundTripAddsOneLineEnd()
{
    QFETCH(QByteArray, bytes);
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), bytes);
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.web->Dirty(), !bytes.isEmpty());
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    window.press(Tool::Save);
    QVERIFY(window.folder.read(QStringLiteral("page.htm")) == bytes + "\r\n");
    QVERIFY(!window.web->Dirty());
}

void TestDocument::eachRoundTripAddsAnotherLineEnd()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "word");
    for (const char* after : {"word\r\n", "word\r\n\r\n", "word\r\n\r\n\r\n"}) {
        window.open(window.folder.path(QStringLiteral("page.htm")));
        window.press(Tool::Save);
        QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray(after));
    }
}

void TestDocument::saveOnTheInternetTabWritesAnEmptyLine()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.showTab(FrmWeb::InternetTab);
    window.press(Tool::Save);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("\r\n"));
    QCOMPARE(window.source(), QByteArray("word"));
    QVERIFY(!window.web->Dirty());
}

void TestDocument::saveOnTabOneTakesTheSurface()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.showTab(FrmWeb::PreviewTab);
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), page("word") + "\r\n");
    QCOMPARE(window.source(), page("word"));
    QVERIFY(!window.web->Dirty());

    window.typeOnSurface(QStringLiteral("more"));
    window.press(Tool::Save);
    const QByteArray saved = window.folder.read(QStringLiteral("page.htm"));
    QVERIFY(saved.contains("more"));
    QVERIFY(saved.startsWith("<HEAD>\r\n<META content=\"Brindlemark 1.0\" name=GENERATOR></HEAD>"));
    QCOMPARE(saved, window.source() + "\r\n");
}

void TestDocument::saveWithDesignOffTakesTheOlderText()
{
    MainWindow window;
    window.type(QStringLiteral("older"));
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.showTab(FrmWeb::EditorTab);
    window.web->RichTextBox1->setText("newer");
    window.showTab(FrmWeb::PreviewTab);
    QVERIFY(window.web->WebBrowser3->innerHtml().contains(QStringLiteral("newer")));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), page("older") + "\r\n");
}

void TestDocument::saveFailureKeepsAll_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("folder gone") << QStringLiteral("gone");
    QTest::newRow("path is a folder") << QStringLiteral("folder");
    QTest::newRow("read-only file") << QStringLiteral("read-only");
    if (geteuid() != 0) // who may write everywhere
        QTest::newRow("read-only folder") << QStringLiteral("read-only folder");
}

/// Puts an obstacle in the way of whoever wants to write sub/page.htm.
static void obstruct(const MainWindow& window, const QString& obstacle)
{
    const QString path = window.folder.path(QStringLiteral("sub/page.htm"));
    if (obstacle == QLatin1String("read-only")) {
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadUser));
        return;
    }
    if (obstacle == QLatin1String("read-only folder")) {
        QVERIFY(QFile::setPermissions(window.folder.path(QStringLiteral("sub")),
                                      QFile::ReadOwner | QFile::ExeOwner));
        return;
    }
    QVERIFY(QDir(window.folder.path(QStringLiteral("sub"))).removeRecursively());
    if (obstacle == QLatin1String("folder"))
        QVERIFY(QDir().mkpath(path));
}

/// Makes sub/page.htm and its folder writable again.
static void clear(const MainWindow& window)
{
    const QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QVERIFY(QFile::setPermissions(window.folder.path(QStringLiteral("sub")), all));
    QVERIFY(QFile::setPermissions(window.folder.path(QStringLiteral("sub/page.htm")), all));
}

void TestDocument::saveFailureKeepsAll()
{
    QFETCH(QString, obstacle);
    MainWindow window;
    const QString path = window.folder.path(QStringLiteral("sub/page.htm"));
    QVERIFY(QDir().mkpath(window.folder.path(QStringLiteral("sub"))));
    window.folder.write(QStringLiteral("sub/page.htm"), "old");
    window.open(path);
    window.web->RichTextBox1->setText("new");
    window.doors.takeAsked();
    obstruct(window, obstacle);

    window.doors.answerMsgBox(MsgAnswer::Ok);
    window.press(Tool::Save);
    QCOMPARE(window.doors.takeAsked(), QStringList{SaveFailed});
    QVERIFY(window.web->Dirty());
    QCOMPARE(window.source(), QByteArray("new"));
    QCOMPARE(window.web->documentName(), path);
    QCOMPARE(window.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QVERIFY(!window.doors.ended);
    if (obstacle.startsWith(QLatin1String("read-only"))) {
        QCOMPARE(window.folder.read(QStringLiteral("sub/page.htm")), QByteArray("old"));
        clear(window);
        window.press(Tool::Save);
        QCOMPARE(window.folder.read(QStringLiteral("sub/page.htm")), QByteArray("new\r\n"));
        QVERIFY(!window.web->Dirty());
    }
}

void TestDocument::saveMakesAVanishedFileAnew()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QVERIFY(QFile::remove(window.folder.path(QStringLiteral("page.htm"))));
    window.doors.takeAsked();
    window.press(Tool::Save);
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("old\r\n"));
    QVERIFY(!window.web->Dirty());
}

// ---- Save As

void TestDocument::saveAsProposesTheBareName()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.doors.cancelSave();
    window.choose(window.web->Mnfile, window.web->mnsaveas);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveDialog(QString())});

    window.open(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();
    window.doors.cancelSave();
    window.press(Tool::SaveAs);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveDialog(QStringLiteral("page.htm"))});

    // A file that is gone is not listed.
    QVERIFY(QFile::remove(window.folder.path(QStringLiteral("page.htm"))));
    window.doors.cancelSave();
    window.press(Tool::SaveAs);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveDialog(QString())});
}

void TestDocument::saveAsNamesTheDocument()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    window.doors.takeAsked();
    window.saveAs(window.folder.path(QStringLiteral("other.txt")));
    QCOMPARE(window.doors.takeAsked(), QStringList{saveDialog(QStringLiteral("page.htm"))});
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("old"));
    QCOMPARE(window.folder.read(QStringLiteral("other.txt")), QByteArray("old\r\n"));
    QCOMPARE(window.web->documentName(), window.folder.path(QStringLiteral("other.txt")));
    QCOMPARE(window.caption(), QStringLiteral("other.txt - Brindlemark 1.0"));
    QVERIFY(!window.web->Dirty());
}

void TestDocument::saveAsCancelKeepsAll()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.cancelSave();
    window.press(Tool::SaveAs);
    QCOMPARE(window.doors.takeAsked(), QStringList{saveDialog(QString())});
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.web->documentName(), Untitled);
    QCOMPARE(window.caption(), UntitledCaption);
    QVERIFY(window.web->Dirty());
}

void TestDocument::saveAsEmptyNameKeepsAll()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.saveAs(QString());
    QCOMPARE(window.doors.takeAsked(), QStringList{saveDialog(QString())});
    QCOMPARE(window.web->documentName(), Untitled);
    QCOMPARE(window.caption(), UntitledCaption);
    QVERIFY(window.web->Dirty());
}

void TestDocument::saveAsAsksBeforeReplacing()
{
    MainWindow window;
    window.folder.write(QStringLiteral("there.htm"), "there");
    window.type(QStringLiteral("word"));
    window.doors.answerSave(window.folder.path(QStringLiteral("there.htm")));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.press(Tool::SaveAs);
    QCOMPARE(window.doors.takeAsked(),
             (QStringList{saveDialog(QString()), replaceQuestion(QStringLiteral("there.htm"))}));
    QCOMPARE(window.folder.read(QStringLiteral("there.htm")), QByteArray("word\r\n"));
    QCOMPARE(window.caption(), QStringLiteral("there.htm - Brindlemark 1.0"));
    QVERIFY(!window.web->Dirty());
}

void TestDocument::saveAsNoLeavesEverything()
{
    MainWindow window;
    window.folder.write(QStringLiteral("there.htm"), "there");
    window.type(QStringLiteral("word"));
    window.doors.answerSave(window.folder.path(QStringLiteral("there.htm")));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.press(Tool::Save);
    QCOMPARE(window.folder.read(QStringLiteral("there.htm")), QByteArray("there"));
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.web->documentName(), Untitled);
    QCOMPARE(window.caption(), UntitledCaption);
    QVERIFY(window.web->Dirty());
}

void TestDocument::saveAsFailureKeepsAll_data()
{
    saveFailureKeepsAll_data();
}

void TestDocument::saveAsFailureKeepsAll()
{
    QFETCH(QString, obstacle);
    MainWindow window;
    QVERIFY(QDir().mkpath(window.folder.path(QStringLiteral("sub"))));
    window.folder.write(QStringLiteral("sub/page.htm"), "old");
    obstruct(window, obstacle);
    window.type(QStringLiteral("word"));

    QStringList expected{saveDialog(QString())};
    window.doors.answerSave(window.folder.path(QStringLiteral("sub/page.htm")));
    if (obstacle.startsWith(QLatin1String("read-only"))) {
        window.doors.answerMsgBox(MsgAnswer::Yes);
        expected << replaceQuestion(QStringLiteral("page.htm"));
    }
    window.doors.answerMsgBox(MsgAnswer::Ok);
    expected << SaveFailed;
    window.press(Tool::SaveAs);
    QCOMPARE(window.doors.takeAsked(), expected);
    QVERIFY(window.web->Dirty());
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.web->documentName(), Untitled);
    QCOMPARE(window.caption(), UntitledCaption);
    if (obstacle.startsWith(QLatin1String("read-only"))) {
        QCOMPARE(window.folder.read(QStringLiteral("sub/page.htm")), QByteArray("old"));
        clear(window);
    }
}

void TestDocument::yesAtUnnamedThenCancelLosesTheDocument_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("New") << QStringLiteral("New");
    QTest::newRow("Open") << QStringLiteral("Open");
    QTest::newRow("Close") << QStringLiteral("Close");
}

void TestDocument::yesAtUnnamedThenCancelLosesTheDocument()
{
    QFETCH(QString, command);
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "page");
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.doors.cancelSave();
    if (command == QLatin1String("New")) {
        window.press(Tool::New);
        QCOMPARE(window.source(), QByteArray());
        QVERIFY(!window.web->SaveCancelled());
    } else if (command == QLatin1String("Open")) {
        window.open(window.folder.path(QStringLiteral("page.htm")));
        QCOMPARE(window.source(), QByteArray("page"));
        QVERIFY(!window.web->SaveCancelled());
    } else {
        window.web->close();
        QCOMPARE(window.doors.ended, 0);
    }
}

// ---- The Edit menu's clipboard entries

/// Adds a row for the toolbar and one for the menu.
static void menuAndToolbar()
{
    QTest::addColumn<bool>("toolbar");
    QTest::newRow("menu") << false;
    QTest::newRow("toolbar") << true;
}

void TestDocument::cutOnTabZero_data()
{
    menuAndToolbar();
}

void TestDocument::cutOnTabZero()
{
    QFETCH(bool, toolbar);
    MainWindow window;
    window.web->RichTextBox1->setText("one two");
    window.web->RichTextBox1->setSelStart(3);
    window.web->RichTextBox1->setSelLength(4);
    window.web->document().setDirty(false);
    if (toolbar) {
        window.press(Tool::Cut);
    } else {
        window.choose(window.web->MnEdit, window.web->MnCut);
    }
    QCOMPARE(clipboardText(window.doors), QStringLiteral(" two"));
    QCOMPARE(window.source(), QByteArray("one"));
    QVERIFY(window.web->Dirty());
}

void TestDocument::copyOnTabZero_data()
{
    menuAndToolbar();
}

void TestDocument::copyOnTabZero()
{
    QFETCH(bool, toolbar);
    MainWindow window;
    window.web->RichTextBox1->setText("one Gr\xC3\xBC\xC3\x9F"
                                      "e");
    window.web->RichTextBox1->setSelStart(4);
    window.web->RichTextBox1->setSelLength(7);
    window.web->SSTab1->setFocus();
    if (toolbar) {
        window.press(Tool::Copy);
    } else {
        window.choose(window.web->MnEdit, window.web->MnCopy);
    }
    QCOMPARE(clipboardText(window.doors), QString::fromUtf8("Grüße"));
    QCOMPARE(window.source(), QByteArray("one Gr\xC3\xBC\xC3\x9F"
                                         "e"));
    QTRY_VERIFY(window.web->RichTextBox1->hasFocus());
}

/// The clipboard is cleared first, so that nothing older takes the place of nothing.
void TestDocument::copyOfNothingClearsTheClipboard()
{
    MainWindow window;
    window.web->RichTextBox1->setText("word");
    for (QAction* entry : {window.web->MnCopy, window.web->MnCut}) {
        Clipboard::SetText(QStringLiteral("old"));
        window.choose(window.web->MnEdit, entry);
        QCOMPARE(clipboardText(window.doors), QString());
    }
    QCOMPARE(window.source(), QByteArray("word"));
    window.web->RichTextBox1->setText("");
    Clipboard::SetText(QStringLiteral("old"));
    window.choose(window.web->MnEdit, window.web->mnuhtml);
    QCOMPARE(clipboardText(window.doors), QString());
}

/// The button is off then, but the entry isn't.
void TestDocument::cutOfNothingClearsTheClipboard()
{
    MainWindow window;
    window.web->RichTextBox1->setText("word");
    window.web->RichTextBox1->setSelStart(2);
    Clipboard::SetText(QStringLiteral("old"));
    window.choose(window.web->MnEdit, window.web->MnCut);
    QCOMPARE(clipboardText(window.doors), QString());
    QCOMPARE(window.source(), QByteArray("word"));
    QCOMPARE(window.web->RichTextBox1->SelStart(), 2);
}

void TestDocument::pasteOnTabZero_data()
{
    menuAndToolbar();
}

void TestDocument::pasteOnTabZero()
{
    QFETCH(bool, toolbar);
    MainWindow window;
    window.web->RichTextBox1->setText("one two three");
    window.web->RichTextBox1->setSelStart(4);
    window.web->RichTextBox1->setSelLength(3);
    Clipboard::SetText(QString::fromUtf8("zwölf"));
    if (toolbar) {
        window.press(Tool::Paste);
    } else {
        window.choose(window.web->MnEdit, window.web->MnPaste);
    }
    QCOMPARE(window.source(), QByteArray("one zw\xC3\xB6lf three"));
}

void TestDocument::pasteOfNothingDeletesTheSelection()
{
    MainWindow window;
    window.web->RichTextBox1->setText("one two");
    window.web->RichTextBox1->setSelStart(3);
    window.web->RichTextBox1->setSelLength(4);
    Clipboard::Clear();
    window.press(Tool::Paste);
    QCOMPARE(window.source(), QByteArray("one"));
}

void TestDocument::selectAllOnTabZero()
{
    MainWindow window;
    window.web->RichTextBox1->setText("one\r\ntwo");
    window.web->SSTab1->setFocus();
    window.choose(window.web->MnEdit, window.web->MnSelect);
    QCOMPARE(window.web->RichTextBox1->SelStart(), 0);
    QCOMPARE(window.web->RichTextBox1->SelLength(), 8);
    QTRY_VERIFY(window.web->RichTextBox1->hasFocus());
}

void TestDocument::copyAllOnTabZero()
{
    MainWindow window;
    window.web->RichTextBox1->setText("<P>one\r\n<P>two");
    window.web->SSTab1->setFocus();
    window.choose(window.web->MnEdit, window.web->mnuhtml);
    QCOMPARE(clipboardText(window.doors), QStringLiteral("<P>one\r\n<P>two"));
    QCOMPARE(window.web->RichTextBox1->SelLength(), 14);
    QTRY_VERIFY(window.web->RichTextBox1->hasFocus());
}

void TestDocument::copyAllOfNothingClearsTheClipboard()
{
    MainWindow window;
    Clipboard::SetText(QStringLiteral("old"));
    window.choose(window.web->MnEdit, window.web->mnuhtml);
    QCOMPARE(clipboardText(window.doors), QString());
    QCOMPARE(window.source(), QByteArray());
}

void TestDocument::clipboardOnTabOne()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.showTab(FrmWeb::PreviewTab);
    // The Edit menu is off on this tab; its entries can still be called.
    window.web->MnSelect->trigger();
    window.press(Tool::Copy);
    QCOMPARE(clipboardText(window.doors), QStringLiteral("word"));
    QVERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("word")));

    Clipboard::Clear();
    window.web->MnSelect->trigger();
    window.press(Tool::Cut);
    QCOMPARE(clipboardText(window.doors), QStringLiteral("word"));
    QVERIFY(!window.web->WebBrowser1->innerHtml().contains(QStringLiteral("word")));

    Clipboard::SetText(QStringLiteral("pasted"));
    window.press(Tool::Paste);
    QVERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("pasted")));
    QCOMPARE(window.source(), QByteArray("word"));
}

void TestDocument::copyAllOnTabOne()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.showTab(FrmWeb::PreviewTab);
    window.web->mnuhtml->trigger();
    QCOMPARE(window.source(), page("word"));
    QCOMPARE(clipboardText(window.doors), QString::fromLatin1(page("word")));
}

void TestDocument::clipboardEntriesDoNothingOnTabTwo_data()
{
    QTest::addColumn<QString>("entry");
    for (const char* entry : {"MnCut", "MnCopy", "MnPaste", "MnSelect", "mnuhtml"})
        QTest::newRow(entry) << QString::fromLatin1(entry);
}

void TestDocument::clipboardEntriesDoNothingOnTabTwo()
{
    QFETCH(QString, entry);
    MainWindow window;
    window.web->RichTextBox1->setText("one two");
    window.web->RichTextBox1->setSelStart(3);
    window.web->RichTextBox1->setSelLength(4);
    Clipboard::SetText(QStringLiteral("kept"));
    window.showTab(FrmWeb::InternetTab);
    window.web->findChild<QAction*>(entry)->trigger();
    QCOMPARE(clipboardText(window.doors), QStringLiteral("kept"));
    QCOMPARE(window.source(), QByteArray("one two"));
    QCOMPARE(window.web->RichTextBox1->SelLength(), 4);
}

// ---- Public operations

void TestDocument::getFileName()
{
    MainWindow window;
    window.doors.answerSave(window.folder.path(QStringLiteral("chosen.htm")));
    QCOMPARE(window.web->GetFileName(QStringLiteral("first.htm")),
             window.folder.path(QStringLiteral("chosen.htm")));
    QCOMPARE(window.doors.asked.size(), 1);
    QCOMPARE(window.doors.takeAsked().constFirst().section(u'|', 2, 2), QStringLiteral("first.htm"));
    window.doors.cancelSave();
    QCOMPARE(window.web->GetFileName(QStringLiteral("first.htm")), QString());
}

void TestDocument::saveFileAs()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    const QString path = window.folder.path(QStringLiteral("copy.htm"));
    window.web->SaveFileAs(path);
    QCOMPARE(window.folder.read(QStringLiteral("copy.htm")), QByteArray("word\r\n"));
    QCOMPARE(window.caption(), path + QStringLiteral(" - Brindlemark 1.0"));
    QCOMPARE(window.web->documentName(), Untitled);
    QVERIFY(window.web->Dirty());
    QCOMPARE(window.doors.asked, QStringList());
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestDocument::savesShowTheHourglass()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    hourglassAtSync.clear();
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(hourglassAtSync, QList<bool>{true});
    window.press(Tool::Save);
    QCOMPARE(hourglassAtSync, (QList<bool>{true, true}));
    window.web->SaveFileAs(window.folder.path(QStringLiteral("copy.htm")));
    QCOMPARE(hourglassAtSync, (QList<bool>{true, true, true}));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestDocument::saveFileAsShowsItsFailure()
{
    MainWindow window;
    window.type(QStringLiteral("word"));
    window.doors.answerMsgBox(MsgAnswer::Ok);
    window.web->SaveFileAs(window.folder.path(QStringLiteral("missing/copy.htm")));
    const QStringList record = window.doors.takeAsked().constFirst().split(u'|');
    QCOMPARE(record.value(0), QStringLiteral("MsgBox"));
    QCOMPARE(record.value(1), QStringLiteral("Brindlemark"));
    QVERIFY(!record.value(2).isEmpty());
    QCOMPARE(record.value(3), QStringLiteral("Exclamation"));
    QCOMPARE(record.value(4), QStringLiteral("Ok"));
    QCOMPARE(window.caption(), UntitledCaption);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestDocument::etxtGivesItsArgumentBack()
{
    MainWindow window;
    for (const QString& text : {QString(), QStringLiteral("<P>word\r\n"), QString::fromUtf8("Grüße 漢 😀")})
        QCOMPARE(window.web->etxt(text), text);
}

// ---- The generator tag

void TestDocument::generatorIsStamped_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("none") << QByteArray("<P>word") << QByteArray("<P>word");
    QTest::newRow("one") << QByteArray("<META content=\"Some 3.1\" name=GENERATOR>")
                         << QByteArray("<META content=\"Brindlemark 1.0\" name=GENERATOR>");
    QTest::newRow("empty value") << QByteArray("a<META content= name=GENERATOR>b")
                                 << QByteArray("a<META content=\"Brindlemark 1.0\" name=GENERATOR>b");
    QTest::newRow("two") << QByteArray("<META content=x name=GENERATOR><P><META content=y name=GENERATOR>")
                         << QByteArray("<META content=\"Brindlemark 1.0\" name=GENERATOR><P>"
                                       "<META content=\"Brindlemark 1.0\" name=GENERATOR>");
    QTest::newRow("any case") << QByteArray("<meta Content=x Name=generator>")
                              << QByteArray("<META content=\"Brindlemark 1.0\" Name=generator>");
    QTest::newRow("up to the next generator")
        << QByteArray("<META content=words name=keywords><META content=x name=GENERATOR>")
        << QByteArray("<META content=\"Brindlemark 1.0\" name=GENERATOR>");
    QTest::newRow("behind other letters") << QByteArray("Gr\xC3\xBC\xC3\x9F"
                                                        "e<META content=x name=GENERATOR>")
                                          << QByteArray("Gr\xC3\xBC\xC3\x9F"
                                                        "e<META content=\"Brindlemark 1.0\" name=GENERATOR>");
}

void TestDocument::generatorIsStamped()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.showTab(FrmWeb::EditorTab);
    // With the Design option off, the text itself is stamped when it comes up.
    window.web->RichTextBox1->setText(before);
    window.showTab(FrmWeb::PreviewTab);
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(window.source(), after);
}

void TestDocument::stampKeepsTheCaret()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.web->RichTextBox1->setText("word<META content=\"Brindlemark 1.0\" name=GENERATOR>");
    window.web->RichTextBox1->setSelStart(2);
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(window.web->RichTextBox1->SelStart(), 2);
    QCOMPARE(window.web->RichTextBox1->SelLength(), 0);
    QTRY_VERIFY(window.web->RichTextBox1->hasFocus());
}

void TestDocument::stampWithoutSecondHalfEndsTheProgram()
{
    MainWindow window;
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    window.web->RichTextBox1->setText("word<META content=x>");
    window.doors.answerMsgBox(MsgAnswer::Ok);
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(window.doors.ended, 1);
}

/// The whole ones are stamped by then, each in a step of undo, and the torn one is shown.
void TestDocument::tornTagBehindWholeOnes()
{
    const QByteArray first = "w\xC3\xB6rd<META content=a name=GENERATOR>";
    const QByteArray second = "<META content=\"a long name of an engine\" name=GENERATOR>";
    const QByteArray torn = "<META content=c>";
    const QByteArray stamped = "<META content=\"Brindlemark 1.0\" name=GENERATOR>";
    for (const QByteArray& behind : {QByteArray("end"), QByteArray("\xE9nd")}) { // UTF-8, Western
        RichTextBox box;
        box.load(first + second + torn + behind);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, stampGenerator(box));
        QCOMPARE(box.Text(), "w\xC3\xB6rd" + stamped + stamped + torn + behind);
        QCOMPARE(box.SelText(), QByteArray("<META content="));
        QCOMPARE(box.SelStart(), int(5 + 2 * stamped.size()));
        box.undo();
        QCOMPARE(box.Text(), "w\xC3\xB6rd" + stamped + second + torn + behind);
        box.undo();
        QCOMPARE(box.Text(), first + second + torn + behind);
    }
}

/// Also where there is nothing to stamp.
void TestDocument::stampMakesDirty()
{
    const MainWindow window;
    for (const QByteArray& text : {QByteArray("<P>word"), QByteArray("<META content=x name=GENERATOR>")}) {
        window.web->RichTextBox1->setText(text);
        window.web->document().setDirty(false);
        stampGenerator(*window.web->RichTextBox1);
        QVERIFY(window.web->Dirty());
    }
    window.web->RichTextBox1->setText(QByteArray());
    stampGenerator(*window.web->RichTextBox1);
    QVERIFY(!window.web->Dirty());
}

WEB_TEST_MAIN(TestDocument)
#include "tst_document.moc"
