// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "OrdinaryUser.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "shell/FrmWord.h"
#include "shell/Journal.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>

using namespace brindlemark;

namespace {

const QString First = QStringLiteral("Brindlemark-unsaved-1.htm");

/// All names in a folder that begin as a journal's.
QStringList journalFiles(const QString& folder)
{
    return QDir(folder).entryList({QStringLiteral("Brindlemark-unsaved*")}, QDir::AllEntries | QDir::Hidden);
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

std::function<QByteArray()> text(const QByteArray& bytes)
{
    return [bytes] { return bytes; };
}

/// What a program that was killed has left of a text, whose file held `file` when it was opened.
QByteArray leftOf(const QString& document, const QByteArray& bytes, const QByteArray& file = {})
{
    const QTemporaryDir folder;
    Journal journal({folder.path()});
    journal.setFile(file);
    journal.keep(document, text(bytes));
    journal.finish();
    return content(folder.filePath(First));
}

/// The question of the next start, up to its last sentence.
QString question(const QString& what)
{
    return QStringLiteral("MsgBox|Brindlemark|%1\n\nDo you want it back? No moves it to the earlier texts, "
                          "Later asks again at "
                          "the next start.|Question|YesNoLater")
        .arg(what);
}

QString wholeTextQuestion(const QString& path)
{
    return question(QStringLiteral("Brindlemark ended before %1 was saved. Its text was kept.").arg(path));
}

/// A main window whose text is kept at once, when a test wants it.
class Window : public MainWindow
{
public:
    QStringList files() const { return journalFiles(QFileInfo(folder.path(First)).path()); }
    /// Lets the time run out after which unsaved text is kept.
    void timeRunsOut() const { journalTimer().start(0); }
    /// Does the same once all that was begun before is on the disk.
    void timeRunsOutAnew() const
    {
        const auto hasRun = [this] {
            timeRunsOut();
            QCoreApplication::processEvents();
            return journalTimer().remainingTime() > 5000; // sooner while one is still being written
        };
        QVERIFY(QTest::qWaitFor(hasRun, Patience));
    }
    /// The text that a start after a crash would give back now; null when there is none.
    QByteArray kept() const { return other().text; }
    QString keptDocument() const { return other().document; }
    /// Ends the program in good order and starts it again in the same folder.
    void startAgain()
    {
        unloadAll();
        web = form<FrmWeb>();
        web->Show();
        QVERIFY(QTest::qWaitForWindowExposed(web, Patience));
        web->offerUnsavedText();
    }

private:
    Journal::Leftover other() const
    {
        const QTemporaryDir copy;
        QFile::copy(folder.path(First), copy.filePath(First));
        return Journal({copy.path()}).takeLeftover().value_or(Journal::Leftover());
    }
};

} // namespace

class TestJournal : public QObject
{
    Q_OBJECT

private slots:
    // The file
    void givesBackWhatWasKept_data();
    void givesBackWhatWasKept();
    void nothingWasLeft();
    void theNewestStands();
    void clearAndEndLeaveNothing();
    void anUnansweredTextStays();
    void programsDoNotTakeEachOthers();
    void leftTextsComeOneByOne();
    void tornAtEveryByte();
    void flippedAtEveryByte();
    void emptyFileIsNoText();
    void refusedFolderGivesWayToTheNext();
    void nobodyTakesIt();

    // The window
    void typedTextIsKept();
    void nothingToKeep_data();
    void nothingToKeep();
    void openedFileIsKeptWhenEdited();
    void saveLeavesNothing_data();
    void saveLeavesNothing();
    void newLeavesNothing();
    void noAtTheEndLeavesNothing();
    void deletedTextIsForgotten();
    void keptAgainOnlyWhenChanged();
    void westernTextIsKeptToTheByte();
    void typedOnTheSurfaceIsKept();
    void aLookAtTheSurfaceKeepsTheSource();
    void surfaceEditIsKeptThroughDesignOff();
    void surfaceEditIsKeptBesideAFragment();
    void savedSurfaceLeavesNothing();
    void readingDisturbsNoTyping();
    void deadSurfaceComesBackWithTheKeptText();
    void fatalErrorKeepsTheNewestText();
    void savedFromTheInternetTabStays();
    void largeTextHoldsNobodyUp();

    // The next start
    void nothingIsOfferedFirst();
    void yesBringsTheTextBack_data();
    void yesBringsTheTextBack();
    void broughtBackTextIsStillKept();
    void broughtBackTextAsksForItsPlace_data();
    void broughtBackTextAsksForItsPlace();
    void savedFileIsKnown();
    void laterAsksAgain();
    void noKeepsItAmongTheEarlierTexts();
    void noWhereNothingCanBeRemoved();
    void broughtBackSurfaceTextIsStamped();
    void noDeletesIt();
    void noLeadsToTheNext();
    void tornTextComesBackWithoutAName();
    void tornTextIsKeptAnewAtOnce();

    // A save that was wanted and came to nothing
    void refusedSaveIsOffered_data();
    void refusedSaveIsOffered();
    void refusedSaveOnTheSurfaceIsOffered();
    void refusedSaveMakesRoom();
    void cancelledSaveIsOffered();
    void saveFromTheInternetTabIsOffered();
    void savedAfterARefusalLeavesNothing();
    void declinedAfterARefusalLeavesNothing();
    void unchangedTextIsNotOffered();
};

// ---- The file

void TestJournal::givesBackWhatWasKept_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QByteArray>("bytes");
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += char(byte);
    QTest::newRow("plain") << QStringLiteral("/home/a/page.htm") << QByteArray("<P>Lamp");
    QTest::newRow("no name") << QStringLiteral("Untitled") << QByteArray("x");
    QTest::newRow("every byte") << QStringLiteral("/a") << all;
    QTest::newRow("line end at the end") << QStringLiteral("/a") << QByteArray("a\r\n\n");
    QTest::newRow("odd name") << QStringLiteral("/a b/100%--> \n, checksum \u00E9\u65E5.htm")
                              << QByteArray("a");
    QTest::newRow("a kept text in the text") << QStringLiteral("/a") << leftOf(QStringLiteral("/b"), "c");
    QTest::newRow("3 MB") << QStringLiteral("/a") << all.repeated(12000);
}

void TestJournal::givesBackWhatWasKept()
{
    QFETCH(QString, document);
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    put(folder.filePath(First), leftOf(document, bytes));
    Journal journal({folder.path()});
    const auto left = journal.takeLeftover();
    QVERIFY(left);
    QVERIFY(left->whole);
    QCOMPARE(left->document, document);
    QCOMPARE(left->text, bytes);
}

void TestJournal::nothingWasLeft()
{
    const QTemporaryDir folder;
    put(folder.filePath(QStringLiteral("Unsaved.htm")), "x");
    QVERIFY(!Journal({folder.path(), folder.filePath(QStringLiteral("none"))}).takeLeftover());
    QCOMPARE(journalFiles(folder.path()), QStringList());
}

void TestJournal::theNewestStands()
{
    const QTemporaryDir folder;
    Journal journal({folder.path()});
    QVERIFY(!journal.holds());
    for (int i = 0; i < 20; ++i)
        journal.keep(QStringLiteral("/a"), text(QByteArray::number(i)));
    QVERIFY(journal.holds());
    journal.finish();
    QVERIFY(!journal.isBusy());
    QVERIFY(content(folder.filePath(First)).startsWith("19\n<!-- Brindlemark, unsaved text of /a, "));
    QCOMPARE(journalFiles(folder.path()), (QStringList{First, First + QStringLiteral(".lock")}));
}

void TestJournal::clearAndEndLeaveNothing()
{
    const QTemporaryDir folder;
    {
        Journal journal({folder.path()});
        journal.keep(QStringLiteral("/a"), text("1"));
        journal.clear();
        QVERIFY(!journal.holds());
        journal.finish();
        QCOMPARE(journalFiles(folder.path()), QStringList());
        journal.keep(QStringLiteral("/a"), text("2"));
        journal.finish();
        QVERIFY(QFile::exists(folder.filePath(First)));
    }
    QCOMPARE(journalFiles(folder.path()), QStringList());
}

void TestJournal::anUnansweredTextStays()
{
    const QTemporaryDir folder;
    put(folder.filePath(First), leftOf(QStringLiteral("/a"), "text"));
    for (int start = 0; start < 2; ++start) {
        QCOMPARE(Journal({folder.path()}).takeLeftover().value_or(Journal::Leftover()).text,
                 QByteArray("text"));
    }
}

void TestJournal::programsDoNotTakeEachOthers()
{
    const QTemporaryDir folder;
    Journal one({folder.path()});
    Journal two({folder.path()});
    one.keep(QStringLiteral("/one"), text("1"));
    one.finish();
    two.keep(QStringLiteral("/two"), text("2"));
    two.finish();
    QVERIFY(!Journal({folder.path()}).takeLeftover());
    QCOMPARE(QDir(folder.path()).entryList({QStringLiteral("*.htm")}, QDir::Files).size(), 2);
    one.clear();
    one.finish();
    QCOMPARE(journalFiles(folder.path()),
             (QStringList{"Brindlemark-unsaved-2.htm", "Brindlemark-unsaved-2.htm.lock"}));
}

void TestJournal::leftTextsComeOneByOne()
{
    const QTemporaryDir folder;
    put(folder.filePath(First), leftOf(QStringLiteral("/one"), "1"));
    put(folder.filePath(QStringLiteral("Brindlemark-unsaved-3.htm")), leftOf(QStringLiteral("/three"), "3"));
    Journal journal({folder.path()});
    Journal other({folder.path()});
    QCOMPARE(journal.takeLeftover().value_or(Journal::Leftover()).text, QByteArray("1"));
    QCOMPARE(other.takeLeftover().value_or(Journal::Leftover()).text, QByteArray("3"));
    QVERIFY(!other.takeLeftover());
    journal.clear();
    QVERIFY(!journal.takeLeftover());
}

void TestJournal::tornAtEveryByte()
{
    const QByteArray bytes = "<P>A lamp, 1930s\r\n";
    const QByteArray whole = leftOf(QStringLiteral("/a.htm"), bytes);
    for (qsizetype length = 1; length < whole.size(); ++length) {
        const QTemporaryDir folder;
        put(folder.filePath(First), whole.first(length));
        const auto left = Journal({folder.path()}).takeLeftover();
        QVERIFY(left);
        QVERIFY(!left->whole);
        QCOMPARE(left->document, QString());
        // What remains of the text is there, whatever else of the last line is.
        QVERIFY(left->text.startsWith(bytes.first(qMin(length, bytes.size()))));
    }
}

void TestJournal::flippedAtEveryByte()
{
    const QByteArray whole = leftOf(QStringLiteral("/a.htm"), "<P>A lamp, 1930s\r\n");
    for (qsizetype at = 0; at < whole.size(); ++at) {
        QByteArray flipped = whole;
        flipped[at] = char(flipped[at] ^ 1);
        const QTemporaryDir folder;
        put(folder.filePath(First), flipped);
        const auto left = Journal({folder.path()}).takeLeftover();
        QVERIFY(left);
        QVERIFY2(!left->whole, qPrintable(QString::number(at)));
    }
}

void TestJournal::emptyFileIsNoText()
{
    const QTemporaryDir folder;
    put(folder.filePath(First), QByteArray());
    QVERIFY(!Journal({folder.path()}).takeLeftover());
    QCOMPARE(journalFiles(folder.path()), QStringList());
}

void TestJournal::refusedFolderGivesWayToTheNext()
{
    const QTemporaryDir folder;
    const QString refused = folder.filePath(QStringLiteral("none"));
    {
        Journal journal({refused, folder.path()});
        journal.keep(QStringLiteral("/a"), text("1"));
        journal.finish();
        QVERIFY(QFile::exists(folder.filePath(First)));
        put(folder.filePath(QStringLiteral("left.htm")), content(folder.filePath(First)));
    }
    QVERIFY(QFile::rename(folder.filePath(QStringLiteral("left.htm")), folder.filePath(First)));
    QCOMPARE(Journal({refused, folder.path()}).takeLeftover().value_or(Journal::Leftover()).text,
             QByteArray("1"));
}

void TestJournal::nobodyTakesIt()
{
    const QTemporaryDir folder;
    Journal journal({folder.filePath(QStringLiteral("none"))});
    journal.keep(QStringLiteral("/a"), text("1"));
    journal.finish();
    journal.clear();
    journal.finish();
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

// ---- The window

void TestJournal::typedTextIsKept()
{
    Window window;
    window.type(QStringLiteral("<P>Lamp"));
    QCOMPARE(window.files(), QStringList());
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamp"));
    QCOMPARE(window.keptDocument(), QStringLiteral("Untitled"));
    // Never older than a quarter of a minute.
    QVERIFY(window.journalTimer().isActive());
    QVERIFY(window.journalTimer().remainingTime() <= 15000);
}

void TestJournal::nothingToKeep_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("start") << 0;
    QTest::newRow("open") << 1;
    QTest::newRow("open and click") << 2;
    QTest::newRow("look at an empty surface") << 3;
    QTest::newRow("new") << 4;
}

void TestJournal::nothingToKeep()
{
    QFETCH(int, what);
    Window window;
    window.folder.write(QStringLiteral("page.htm"), "<P>Lamp");
    if (what == 1 || what == 2)
        window.open(window.folder.path(QStringLiteral("page.htm")));
    if (what == 2)
        QTest::mouseClick(window.web->RichTextBox1->viewport(), Qt::LeftButton);
    if (what == 3) {
        window.showTab(FrmWeb::PreviewTab);
        window.showTab(FrmWeb::EditorTab);
    }
    if (what == 4)
        window.press(Tool::New);
    QCOMPARE(window.web->Dirty(), what == 1 || what == 2);
    window.journalTimer().start(0);
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0); // it has run
    QVERIFY(window.journalTimer().isActive());
    QTest::qWait(50);
    QCOMPARE(window.files(), QStringList());
}

void TestJournal::openedFileIsKeptWhenEdited()
{
    Window window;
    const QString page = window.folder.path(QStringLiteral("page.htm"));
    window.folder.write(QStringLiteral("page.htm"), "<P>Lamp");
    window.open(page);
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    window.type(QStringLiteral("!"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamp!"));
    QCOMPARE(window.keptDocument(), page);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("<P>Lamp"));
}

void TestJournal::saveLeavesNothing_data()
{
    QTest::addColumn<bool>("kept");
    QTest::newRow("kept before") << true;
    QTest::newRow("not yet kept") << false;
}

void TestJournal::saveLeavesNothing()
{
    QFETCH(bool, kept);
    Window window;
    window.type(QStringLiteral("<P>Lamp"));
    if (kept) {
        window.timeRunsOut();
        QTRY_COMPARE(window.kept(), QByteArray("<P>Lamp"));
    }
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QTRY_COMPARE(window.files(), QStringList());
    window.timeRunsOut();
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0);
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Home); // "unsaved" again, with nothing changed
    QVERIFY(window.web->Dirty());
    window.timeRunsOut();
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0);
    QTest::qWait(50);
    QCOMPARE(window.files(), QStringList());

    window.type(QStringLiteral("A"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("A<P>Lamp"));
    window.press(Tool::Save);
    QTRY_COMPARE(window.files(), QStringList());
}

void TestJournal::newLeavesNothing()
{
    Window window;
    window.type(QStringLiteral("<P>Lamp"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamp"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.press(Tool::New);
    QCOMPARE(window.kept(), QByteArray("<P>Lamp"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.press(Tool::New);
    QTRY_COMPARE(window.files(), QStringList());
}

void TestJournal::noAtTheEndLeavesNothing()
{
    Window window;
    window.type(QStringLiteral("<P>Lamp"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamp"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.web->close();
    QCOMPARE(window.doors.ended, 0);
    unloadAll();
    QCOMPARE(window.files(), QStringList());
}

void TestJournal::deletedTextIsForgotten()
{
    Window window;
    window.type(QStringLiteral("x"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("x"));
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Backspace);
    window.timeRunsOut();
    QTRY_COMPARE(window.files(), QStringList());
}

void TestJournal::keptAgainOnlyWhenChanged()
{
    Window window;
    window.type(QStringLiteral("x"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("x"));
    QVERIFY(QFile::remove(window.folder.path(First)));
    window.timeRunsOut();
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0);
    QTest::qWait(50);
    QVERIFY(!window.folder.has(First));
    window.type(QStringLiteral("y"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("xy"));
}

void TestJournal::westernTextIsKeptToTheByte()
{
    Window window;
    window.web->RichTextBox1->setText("caf\xE9\r\n\x80\xFF");
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("caf\xE9\r\n\x80\xFF"));
}

void TestJournal::typedOnTheSurfaceIsKept()
{
    Window window;
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("Lamp"));
    QVERIFY(!window.web->Dirty());
    window.timeRunsOut();
    QTRY_VERIFY(window.kept().contains("Lamp"));
    window.typeOnSurface(QStringLiteral("shade"));
    window.timeRunsOut();
    QTRY_VERIFY(window.kept().contains("shade"));
    window.showTab(FrmWeb::InternetTab);
    window.timeRunsOut();
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0);
    QVERIFY(window.kept().contains("shade"));
    window.showTab(FrmWeb::EditorTab);
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), window.source());
    QVERIFY(window.source().contains("shade"));
}

void TestJournal::aLookAtTheSurfaceKeepsTheSource()
{
    Window window;
    window.type(QStringLiteral("<p>Lamp"));
    window.showTab(FrmWeb::PreviewTab);
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<p>Lamp"));
    window.timeRunsOut();
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0);
    QTest::qWait(50);
    QCOMPARE(window.kept(), QByteArray("<p>Lamp"));
}

void TestJournal::surfaceEditIsKeptThroughDesignOff()
{
    Window window;
    window.type(QStringLiteral("<p>old"));
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("Lamp"));
    QTest::mouseClick(window.web->Option2, Qt::LeftButton, {}, QPoint(8, window.web->Option2->height() / 2));
    QVERIFY(window.web->Option2->Value());
    QTest::mouseClick(window.web->Option1, Qt::LeftButton, {}, QPoint(8, window.web->Option1->height() / 2));
    QVERIFY(window.web->Option1->Value());
    window.timeRunsOut();
    QTRY_VERIFY(window.kept().contains("Lamp"));
}

/// A phrase that is added meanwhile goes to the source, which lacks the edit, and takes no place of its own.
void TestJournal::surfaceEditIsKeptBesideAFragment()
{
    Window window;
    window.type(QStringLiteral("<p>old"));
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("Lamp"));
    window.timeRunsOut();
    QTRY_VERIFY(window.kept().contains("Lamp"));
    auto* words = form<FrmWord>();
    words->Show();
    words->List1->AddItem(QStringLiteral("<HR>"));
    words->List1->setSelected(0, true);
    click(words->Command4);
    QTRY_VERIFY(window.source().contains("<HR>"));
    window.timeRunsOutAnew();
    window.timeRunsOutAnew();
    QVERIFY2(window.kept().contains("Lamp"), window.kept().constData());
    window.showTab(FrmWeb::EditorTab);
    QVERIFY(window.source().contains("Lamp"));
    QVERIFY(!window.source().contains("<HR>"));
}

void TestJournal::savedSurfaceLeavesNothing()
{
    Window window;
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("Lamp"));
    window.timeRunsOut();
    QTRY_VERIFY(window.kept().contains("Lamp"));
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    QTRY_COMPARE(window.files(), QStringList());
    QVERIFY(window.folder.read(QStringLiteral("page.htm")).contains("Lamp"));
    window.timeRunsOut();
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0);
    window.web->WebBrowser1->innerHtml(); // answers behind the question of the timer
    QTest::qWait(50);
    QCOMPARE(window.files(), QStringList());
}

void TestJournal::readingDisturbsNoTyping()
{
    // Letters typed while the text is read all the time come out whole, in their order, where the caret is,
    // and Undo takes them back as if nobody had read.
    Window window;
    window.web->RichTextBox1->setText("<P>one two</P>");
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("a"));
    DocumentSurface* surface = window.web->WebBrowser1;
    QTRY_COMPARE(pageText(surface).size(),
                 8); // "one two" and the letter, wherever the click has put the caret
    QTest::keyClick(surface->inputWidget(), Qt::Key_End, Qt::ControlModifier);
    const QString before = surface->innerHtml();
    int heard = 0;
    const QString letters = QStringLiteral("the quick brown fox jumps over the lazy dog");
    const QWidget* focus = QApplication::focusWidget();
    for (const QChar letter : letters) {
        QTest::keyClick(surface->inputWidget(), letter.toLatin1());
        const int earlier = heard;
        const bool read = QTest::qWaitFor([&] {
            surface->readEdits([&](const QString&) { ++heard; });
            return heard > earlier;
        });
        QVERIFY2(read, qPrintable(QString::number(heard) + surface->innerHtml()));
    }
    QTRY_COMPARE(surface->innerHtml(),
                 QString(before).replace(QStringLiteral("</P>"), letters + QStringLiteral("</P>")));
    QCOMPARE(QApplication::focusWidget(), focus);
    for (int i = 0; i < 10 && surface->innerHtml().contains(QStringLiteral("quick")); ++i)
        surface->execCommand(QStringLiteral("Undo"));
    QVERIFY2(surface->innerHtml().contains(QStringLiteral("one two")), qPrintable(surface->innerHtml()));
    surface->execCommand(QStringLiteral("Redo"));
    QVERIFY(surface->innerHtml().contains(QStringLiteral("quick")));
}

void TestJournal::deadSurfaceComesBackWithTheKeptText()
{
    Window window;
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("Lamp"));
    window.timeRunsOut();
    QTRY_VERIFY(window.kept().contains("Lamp"));
    window.doors.answerMsgBox(MsgAnswer::Ok);
    ::kill(pid_t(probe(window.web->WebBrowser1).rendererPid()), SIGKILL);
    QTRY_COMPARE(window.doors.asked.size(), 1);
    QTRY_VERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("Lamp")));
    window.showTab(FrmWeb::EditorTab);
    QVERIFY(window.source().contains("Lamp"));
}

void TestJournal::fatalErrorKeepsTheNewestText()
{
    Window window;
    window.type(QStringLiteral("<P>Lamp"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamp"));
    window.type(QStringLiteral("s"));
    window.doors.answerMsgBox(MsgAnswer::Ok);
    guarded([] { throw RuntimeError(ErrorNumber::Overflow); });
    QCOMPARE(window.kept(), QByteArray("<P>Lamps"));
    QCOMPARE(window.folder.read(QStringLiteral("Recovered.htm")), QByteArray("<P>Lamps"));
}

void TestJournal::savedFromTheInternetTabStays()
{
    // What goes to the file from there is an empty text: the document itself is still unsaved.
    Window window;
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.type(QStringLiteral("<P>Lamp"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamp"));
    window.showTab(FrmWeb::InternetTab);
    window.press(Tool::Save);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("\r\n"));
    window.timeRunsOut();
    QTRY_VERIFY(window.journalTimer().remainingTime() > 0);
    QCOMPARE(window.kept(), QByteArray("<P>Lamp"));
}

void TestJournal::largeTextHoldsNobodyUp()
{
    // The handler takes a copy and no more: far less than writing takes, and none of the conversion.
    Window window;
    QByteArray bytes = QByteArray("<TD>caf\xE9 and some words of a listing</TD>\r\n").repeated(500000);
    window.web->RichTextBox1->setText(bytes);
    QElapsedTimer timer;
    timer.start();
    window.web->RichTextBox1->Text();
    const qint64 converting = timer.nsecsElapsed();
    timer.start();
    const auto later = window.web->RichTextBox1->textLater();
    const qint64 copying = timer.nsecsElapsed();
    qInfo("%lld bytes: %.1f ms to copy, %.1f ms to convert", qlonglong(bytes.size()), double(copying) / 1e6,
          double(converting) / 1e6);
    QVERIFY(copying < converting);
    window.web->RichTextBox1->setText("other"); // what was copied stays what it was
    QCOMPARE(later(), bytes);
}

// ---- The next start

void TestJournal::nothingIsOfferedFirst()
{
    Window window;
    window.web->offerUnsavedText();
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(window.source(), QByteArray());
}

void TestJournal::yesBringsTheTextBack_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("name");
    QTest::newRow("named") << QStringLiteral("/tmp/none/my page.htm") << QStringLiteral("my page.htm");
    QTest::newRow("no name") << QStringLiteral("Untitled") << QStringLiteral("Untitled");
}

void TestJournal::yesBringsTheTextBack()
{
    QFETCH(QString, document);
    QFETCH(QString, name);
    const QByteArray bytes("<META content=\"Other 5\" name=GENERATOR>caf\xE9\r\n<P>Lamp \xFF");
    Window window;
    window.folder.write(First, leftOf(document, bytes));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.web->offerUnsavedText();
    QCOMPARE(window.doors.takeAsked(), QStringList{wholeTextQuestion(document)});
    QCOMPARE(window.source(), bytes);
    QCOMPARE(window.web->documentName(), document);
    QCOMPARE(window.caption(), name + QStringLiteral(" - Brindlemark 1.0"));
    QVERIFY(window.web->Dirty());
}

void TestJournal::broughtBackTextIsStillKept()
{
    Window window;
    const QString page = window.folder.path(QStringLiteral("page.htm"));
    window.folder.write(QStringLiteral("page.htm"), "old");
    window.folder.write(First, leftOf(page, "<P>Lamp", "old"));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.web->offerUnsavedText();
    QCOMPARE(window.kept(), QByteArray("<P>Lamp"));
    window.press(Tool::Save);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("<P>Lamp\r\n"));
    QTRY_COMPARE(window.files(), QStringList());
}

void TestJournal::broughtBackTextAsksForItsPlace_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("nothing is known of the file") << QByteArray();
    QTest::newRow("the file was changed meanwhile") << QByteArray("older");
}

/// Anybody may put such a file into the folder: it must not name what the next save writes over.
void TestJournal::broughtBackTextAsksForItsPlace()
{
    QFETCH(QByteArray, file);
    Window window;
    const QString page = window.folder.path(QStringLiteral("page.htm"));
    window.folder.write(QStringLiteral("page.htm"), "precious");
    window.folder.write(First, leftOf(page, "<P>Lamp", file));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.web->offerUnsavedText();
    QCOMPARE(window.doors.takeAsked(), QStringList{wholeTextQuestion(page)}); // with its whole path
    window.doors.cancelSave();
    window.press(Tool::Save);
    QVERIFY(window.doors.takeAsked().first().startsWith(QStringLiteral("Save|Save As Files|page.htm|")));
    QCOMPARE(content(page), QByteArray("precious"));

    const QString other = window.folder.path(QStringLiteral("other.htm"));
    window.doors.answerSave(other);
    window.press(Tool::Save);
    QCOMPARE(content(other), QByteArray("<P>Lamp\r\n"));
    window.type(QStringLiteral("x"));
    window.press(Tool::Save); // asked once
    QVERIFY(content(other).contains('x'));
}

/// What the program itself has opened and saved is known to the next start.
void TestJournal::savedFileIsKnown()
{
    Window window;
    const QString page = window.folder.path(QStringLiteral("page.htm"));
    window.type(QStringLiteral("<P>Lamp"));
    window.saveAs(page);
    window.type(QStringLiteral("s"));
    window.timeRunsOut();
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamps"));
    const QByteArray file = content(window.folder.path(First));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.press(Tool::New);
    QTRY_COMPARE(window.files(), QStringList());
    window.folder.write(First, file);
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.startAgain();
    window.press(Tool::Save);
    QCOMPARE(content(page), QByteArray("<P>Lamps\r\n"));
}

/// Also by Escape and by the window's own close button.
void TestJournal::laterAsksAgain()
{
    Window window;
    const QByteArray file = leftOf(QStringLiteral("/a.htm"), "A");
    window.folder.write(First, file);
    window.folder.write(QStringLiteral("Brindlemark-unsaved-2.htm"), leftOf(QStringLiteral("/b.htm"), "B"));
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.doors.answerMsgBox(MsgAnswer::Cancel);
    window.web->offerUnsavedText();
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(content(window.folder.path(First)), file);
    QVERIFY(window.web->earlierTexts().list().isEmpty());
    window.doors.takeAsked();

    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.startAgain();
    QCOMPARE(window.doors.takeAsked(), QStringList{wholeTextQuestion(QStringLiteral("/a.htm"))});
    QCOMPARE(window.source(), QByteArray("A"));
}

void TestJournal::noKeepsItAmongTheEarlierTexts()
{
    Window window;
    window.folder.write(First, leftOf(QStringLiteral("/a.htm"), "<P>Lamp"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.web->offerUnsavedText();
    const QList<EarlierText> kept = window.web->earlierTexts().list();
    QCOMPARE(kept.size(), 1);
    QCOMPARE(EarlierTexts::text(kept.first()), QByteArray("<P>Lamp"));
    QCOMPARE(kept.first().document, QStringLiteral("/a.htm"));
    QCOMPARE(kept.first().why, Dropped::Declined);
}

void TestJournal::noWhereNothingCanBeRemoved()
{
    Window window;
    window.folder.write(First, leftOf(QStringLiteral("/a.htm"), "<P>Lamp"));
    const QString folder = QFileInfo(window.folder.path(First)).path();
    const OrdinaryUser user(folder);
    QVERIFY(user.ordinary());
    // Its lock is there already: where none can be made the text is another program's, for all that is known.
    put(window.folder.path(First + QStringLiteral(".lock")), QByteArray());
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.web->offerUnsavedText(); // asks once
    QCOMPARE(window.doors.takeAsked(), QStringList{wholeTextQuestion(QStringLiteral("/a.htm"))});
    const auto* notice = window.web->findChild<NoticeBar*>();
    QTRY_VERIFY(notice->isVisible());
    QVERIFY(notice->accessibleName().startsWith(QStringLiteral("The text could not be removed from ")));
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestJournal::broughtBackSurfaceTextIsStamped()
{
    // What a killed program kept of the surface comes back as a change of the tab would have brought it.
    Window first;
    first.showTab(FrmWeb::PreviewTab);
    first.typeOnSurface(QStringLiteral("Lamp"));
    first.timeRunsOut();
    QTRY_VERIFY(first.kept().contains("Lamp"));
    const QByteArray file = content(first.folder.path(First));
    first.showTab(FrmWeb::EditorTab);
    const QByteArray expected = first.source();
    QVERIFY(expected.contains("<META content=\"Brindlemark 1.0\" name=GENERATOR>"));
    first.doors.answerMsgBox(MsgAnswer::No);
    first.press(Tool::New);
    QTRY_COMPARE(first.files(), QStringList());
    first.doors.takeAsked();

    first.folder.write(First, file);
    first.doors.answerMsgBox(MsgAnswer::Yes);
    first.web->offerUnsavedText();
    QCOMPARE(first.source(), expected);
}

void TestJournal::noDeletesIt()
{
    Window window;
    window.folder.write(First, leftOf(QStringLiteral("/a.htm"), "<P>Lamp"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.web->offerUnsavedText();
    QTRY_COMPARE(window.files(), QStringList());
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(window.web->documentName(), QStringLiteral("Untitled"));
    QVERIFY(!window.web->Dirty());
}

void TestJournal::noLeadsToTheNext()
{
    Window window;
    window.folder.write(First, leftOf(QStringLiteral("/a.htm"), "A"));
    window.folder.write(QStringLiteral("Brindlemark-unsaved-2.htm"), leftOf(QStringLiteral("/b.htm"), "B"));
    window.folder.write(QStringLiteral("Brindlemark-unsaved-3.htm"), leftOf(QStringLiteral("/c.htm"), "C"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.web->offerUnsavedText();
    QCOMPARE(window.source(), QByteArray("B"));
    // Asked once a round: the text that was taken is being written anew, with a temporary file beside it.
    const QStringList expected{"Brindlemark-unsaved-2.htm", "Brindlemark-unsaved-2.htm.lock",
                               "Brindlemark-unsaved-3.htm"};
    QVERIFY2(QTest::qWaitFor([&] { return window.files() == expected; }),
             qPrintable(window.files().join(u' ')));
}

void TestJournal::tornTextComesBackWithoutAName()
{
    Window window;
    const QString page = window.folder.path(QStringLiteral("page.htm"));
    window.folder.write(QStringLiteral("page.htm"), "whole");
    window.folder.write(First, leftOf(page, "<P>Lamp and shade").first(11));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.web->offerUnsavedText();
    QCOMPARE(window.doors.takeAsked(),
             QStringList{question(QStringLiteral("Brindlemark was not closed properly the last time. Only a "
                                                 "part of its unsaved text could be kept."))});
    QCOMPARE(window.source(), QByteArray("<P>Lamp and"));
    QCOMPARE(window.web->documentName(), QStringLiteral("Untitled"));
    QCOMPARE(window.caption(), QStringLiteral("Untitled - Brindlemark 1.0"));
    QVERIFY(window.web->Dirty());
    window.doors.cancelSave();
    window.press(Tool::Save);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("whole"));
}

/// Should the program end again before anything is typed, no part of it gets lost and nothing is said to be.
void TestJournal::tornTextIsKeptAnewAtOnce()
{
    Window window;
    window.journalTimer().stop();
    window.folder.write(First, leftOf(QStringLiteral("/a.htm"), "<P>Lamp and shade").first(11));
    QCOMPARE(window.keptDocument(), QString());
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.web->offerUnsavedText();
    QTRY_COMPARE(window.keptDocument(), QStringLiteral("Untitled"));
    QCOMPARE(window.kept(), QByteArray("<P>Lamp and"));
}

// ---- A save that was wanted and came to nothing

namespace {

const QString SaveQuestion =
    QStringLiteral("MsgBox|Brindlemark|%1 - File has changed. Do you wish to save changes ?|Information|"
                   "YesNoCancel");
const QString CannotSave =
    QStringLiteral("MsgBox|Error|There has been a (25)error, Cannot save file.|Stop|Ok");

/// Opens a page that nobody may write to, and types into it.
QString editProtectedPage(Window& window)
{
    window.folder.write(QStringLiteral("page.htm"), "<P>Lamp");
    QString page = window.folder.path(QStringLiteral("page.htm"));
    QFile::setPermissions(page, QFile::ReadOwner);
    window.open(page);
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    window.type(QStringLiteral("s"));
    window.doors.takeAsked();
    return page;
}

/// Yes to the save question, and the box that tells of the refusal.
void wantSaved(Window& window)
{
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.doors.answerMsgBox(MsgAnswer::Ok);
}

} // namespace

void TestJournal::refusedSaveIsOffered_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("folder"); // what refuses: the folder, or the file
    for (const char* way : {"new", "open", "drop", "close"}) {
        QTest::addRow("%s, file", way) << QString::fromLatin1(way) << false;
        QTest::addRow("%s, folder", way) << QString::fromLatin1(way) << true;
    }
}

void TestJournal::refusedSaveIsOffered()
{
    QFETCH(QString, way);
    QFETCH(bool, folder);
    Window window;
    const QString home = window.folder.path(QStringLiteral("pages"));
    QVERIFY(QDir().mkdir(home));
    window.folder.write(QStringLiteral("pages/page.htm"), "<P>Lamp");
    window.folder.write(QStringLiteral("other.htm"), "<P>Vase");
    const QString page = window.folder.path(QStringLiteral("pages/page.htm"));
    window.open(page);
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    window.type(QStringLiteral("s"));
    window.doors.takeAsked();
    constexpr auto read = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    constexpr auto write = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    constexpr auto enter = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(page, folder ? read | write : read));
    QVERIFY(QFile::setPermissions(home, folder ? read | enter : read | write | enter));
    {
        const OrdinaryUser user(QFileInfo(home).path());
        QVERIFY(user.ordinary());
        wantSaved(window);
        if (way == QLatin1String("new")) {
            window.press(Tool::New);
        } else if (way == QLatin1String("open")) {
            window.open(window.folder.path(QStringLiteral("other.htm")));
        } else if (way == QLatin1String("drop")) {
            window.drop(window.folder.path(QStringLiteral("other.htm")));
        } else {
            window.web->close();
            QCOMPARE(window.doors.ended, 0);
        }
        QTRY_COMPARE(window.doors.asked.mid(0, 2),
                     (QStringList{SaveQuestion.arg(QStringLiteral("page.htm")), CannotSave}));
        if (way == QLatin1String("new"))
            QCOMPARE(window.source(), QByteArray());
        if (way == QLatin1String("open") || way == QLatin1String("drop"))
            QTRY_COMPARE(window.source(), QByteArray("<P>Vase"));
    }
    QCOMPARE(content(page), QByteArray("<P>Lamp"));
    window.doors.takeAsked();

    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.startAgain();
    QCOMPARE(window.doors.takeAsked(), QStringList{wholeTextQuestion(page)});
    QCOMPARE(window.source(), QByteArray("<P>Lamps"));
    QCOMPARE(window.web->documentName(), page);
    QVERIFY(window.web->Dirty());

    QFile::setPermissions(home, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile::setPermissions(page, QFile::ReadOwner | QFile::WriteOwner);
    window.press(Tool::Save);
    QCOMPARE(content(page), QByteArray("<P>Lamps\r\n"));
    QTRY_COMPARE(window.files(), QStringList());
}

void TestJournal::refusedSaveOnTheSurfaceIsOffered()
{
    Window window;
    editProtectedPage(window);
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("Shade"));
    window.timeRunsOut();
    QTRY_VERIFY(window.kept().contains("Shade"));
    window.typeOnSurface(QStringLiteral("Brass")); // not yet kept
    wantSaved(window);
    window.web->close();
    QCOMPARE(window.doors.ended, 0);
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.startAgain();
    QVERIFY2(window.source().contains("Shade") && window.source().contains("Brass"),
             window.source().constData());
}

void TestJournal::refusedSaveMakesRoom()
{
    // The next document is kept too, in a place of its own, and leaves nothing when it is saved.
    Window window;
    editProtectedPage(window);
    wantSaved(window);
    window.press(Tool::New);
    window.type(QStringLiteral("<P>Vase"));
    window.timeRunsOut();
    const QString second = QStringLiteral("Brindlemark-unsaved-2.htm");
    QTRY_COMPARE(window.files(), (QStringList{First, second, second + QStringLiteral(".lock")}));
    QCOMPARE(window.kept(), QByteArray("<P>Lamps"));
    window.saveAs(window.folder.path(QStringLiteral("vase.htm")));
    QTRY_COMPARE(window.files(), QStringList{First});
}

void TestJournal::cancelledSaveIsOffered()
{
    // Yes, and then no file: the text goes from the window all the same.
    Window window;
    window.type(QStringLiteral("<P>Lamp"));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.doors.cancelSave();
    window.press(Tool::New);
    QCOMPARE(window.source(), QByteArray());
    window.doors.takeAsked();
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.startAgain();
    QCOMPARE(window.doors.takeAsked(), QStringList{wholeTextQuestion(QStringLiteral("Untitled"))});
    QCOMPARE(window.source(), QByteArray("<P>Lamp"));
}

void TestJournal::saveFromTheInternetTabIsOffered()
{
    // The file takes the empty text of that tab, not the document.
    Window window;
    window.saveAs(window.folder.path(QStringLiteral("page.htm")));
    window.type(QStringLiteral("<P>Lamp"));
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("Shade"));
    window.showTab(FrmWeb::InternetTab);
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.web->close();
    QCOMPARE(window.doors.ended, 0);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("\r\n"));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    window.startAgain();
    QVERIFY2(window.source().contains("Lamp") && window.source().contains("Shade"),
             window.source().constData());
}

void TestJournal::savedAfterARefusalLeavesNothing()
{
    Window window;
    const QString page = editProtectedPage(window);
    wantSaved(window);
    window.doors.cancelOpen();
    window.press(Tool::Open);
    QCOMPARE(window.source(), QByteArray("<P>Lamps")); // it is still there
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamps"));
    QFile::setPermissions(page, QFile::ReadOwner | QFile::WriteOwner);
    window.press(Tool::Save);
    QCOMPARE(window.folder.read(QStringLiteral("page.htm")), QByteArray("<P>Lamps\r\n"));
    QTRY_COMPARE(window.files(), QStringList());
    window.startAgain(); // asks nothing
    QCOMPARE(window.source(), QByteArray());
}

void TestJournal::declinedAfterARefusalLeavesNothing()
{
    Window window;
    editProtectedPage(window);
    wantSaved(window);
    window.doors.cancelOpen();
    window.press(Tool::Open);
    QTRY_COMPARE(window.kept(), QByteArray("<P>Lamps"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.press(Tool::New);
    QTRY_COMPARE(window.files(), QStringList());
    window.startAgain();
    QCOMPARE(window.source(), QByteArray());
}

void TestJournal::unchangedTextIsNotOffered()
{
    // A page that was just opened counts as changed, but its file has all of it.
    Window window;
    window.folder.write(QStringLiteral("page.htm"), "<P>Lamp");
    const QString page = window.folder.path(QStringLiteral("page.htm"));
    QFile::setPermissions(page, QFile::ReadOwner);
    window.open(page);
    wantSaved(window);
    window.web->close();
    QCOMPARE(window.doors.ended, 0);
    window.startAgain();
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(window.files(), QStringList());
}

RENDERER_TEST_MAIN(TestJournal)
#include "tst_journal.moc"
