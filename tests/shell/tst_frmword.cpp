// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "platform/RuntimeError.h"
#include "shell/FrmWord.h"

#include <QDir>
#include <QTimer>

using namespace brindlemark;

namespace {

const QString NothingSelected = QStringLiteral("MsgBox|Error: No items selected.|No items selected.|Stop|Ok");
const QString DeleteQuestion =
    QStringLiteral("MsgBox|Information|Are you sure you wish delete it ?|Information|YesNo");
const QString DeleteAllQuestion =
    QStringLiteral("MsgBox|Information|Are you sure you wish delete all ?|Information|YesNo");

/// Doors whose clock jumps at each look, so that each step of a walk serves events.
class HastyDoors : public ScriptedDoors
{
public:
    qint64 clock() override { return hasty ? m_now += 100 : ScriptedDoors::clock(); }

    bool hasty = true;

private:
    qint64 m_now = 0;
};

/// A main window, and the quick words on top.
class Words
{
public:
    Words() : web(form<FrmWeb>()) { web->Show(); }
    ~Words() { unloadAll(); }
    Q_DISABLE_COPY_MOVE(Words)

    ProgramFolder folder;
    HastyDoors doors;
    FrmWeb* web = nullptr;
    FrmWord* words = nullptr;

    void show()
    {
        words = form<FrmWord>();
        words->Show();
        if (!QTest::qWaitForWindowActive(words))
            QTest::qFail("the quick words do not show", __FILE__, __LINE__);
    }
    void show(const QByteArray& quickIni)
    {
        folder.write(QStringLiteral("Quick.ini"), quickIni);
        show();
    }
    static void click(QAbstractButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    void tick() const
    {
        QTest::mouseClick(words->Check1, Qt::LeftButton, {}, QPoint(8, words->Check1->height() / 2));
    }
    QPoint place(int index) const { return words->List1->visualItemRect(words->List1->item(index)).center(); }
    /// Selects entries as the hand does, with Ctrl.
    void select(const QList<int>& indices) const
    {
        for (const int index : indices)
            QTest::mouseClick(words->List1->viewport(), Qt::LeftButton, Qt::ControlModifier, place(index));
    }
    QStringList entries() const
    {
        QStringList list;
        for (int i = 0; i < words->List1->ListCount(); ++i)
            list << words->List1->List(i);
        return list;
    }
    QByteArray file() const { return folder.read(QStringLiteral("Quick.ini")); }
    bool hasFile() const { return folder.has(QStringLiteral("Quick.ini")); }
    QByteArray source() const { return web->RichTextBox1->Text(); }
};

QString plain(QString caption)
{
    return caption.remove(u'&');
}

} // namespace

class TestFrmWord : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void texts();
    void loadReadsTheList();
    void missingFileIsAnEmptyList();
    void folderIsAnEmptyList();
    void missingKeyStopsTheLoad_data();
    void missingKeyStopsTheLoad();
    void boxIsKeptAtOnce();
    void addSaves();
    void addTakesNoEmptyText();
    void enterAddsWithoutSaving();
    void commaMakesTwoPhrases();
    void quotesAndOtherLetters();
    void deleteWithoutSelection();
    void deleteAsksFirst();
    void deleteOfSeveral();
    void deleteSavesThoughTheWindowGoes();
    void deleteAll();
    void addEditorAtTheCaret();
    void addEditorOfSeveral();
    void addEditorClosesByItsBox();
    void addEditorOnOtherTabs_data();
    void addEditorOnOtherTabs();
    void copyLeavesTheLast();
    void copyClosesByItsBox();
    void doubleClickCopies();
    void nothingSelectedNothingHappens();
    void windowGoesInTheMiddleOfAWalk_data();
    void windowGoesInTheMiddleOfAWalk();
    void listChangesInTheMiddleOfAWalk();
    void tenThousandPhrases();
    void cancelAndEscapeClose();
    void everyControlIsReachedByTab();
};

void TestFrmWord::cleanup()
{
    unloadAll();
}

void TestFrmWord::texts()
{
    Words window;
    window.show();
    const FrmWord& words = *window.words;
    QCOMPARE(words.windowTitle(), QStringLiteral("Quick-Word"));
    const QList<QPair<QAbstractButton*, QString>> captions = {
        {words.Command1, QStringLiteral("Add")},
        {words.Command2, QStringLiteral("Delete")},
        {words.Command3, QStringLiteral("Delete All")},
        {words.Command4, QStringLiteral("Add Editor")},
        {words.Command6, QStringLiteral("Copy")},
        {words.Command5, QStringLiteral("Cancel")},
        {words.Check1, QStringLiteral("Close when select copy or add editor.")},
    };
    for (const auto& [control, caption] : captions)
        QCOMPARE(plain(control->text()), caption);
    QVERIFY(!words.isModal());
    QVERIFY(words.Text1->hasFocus());
}

void TestFrmWord::loadReadsTheList()
{
    Words window;
    window.show("first\r\n  second\r\nsecond\r\n\r\n\"with, comma\"\r\n");
    QCOMPARE(window.entries(), QStringList({"first", "second", "second", "with, comma"}));
    QCOMPARE(window.words->Check1->Value(), 0);
    QCOMPARE(window.words->List1->selectedItems().size(), 0);
}

void TestFrmWord::missingFileIsAnEmptyList()
{
    Words window;
    window.show();
    QCOMPARE(window.entries(), QStringList());
    QVERIFY(!window.hasFile());
}

void TestFrmWord::folderIsAnEmptyList()
{
    Words window;
    QVERIFY(QDir().mkdir(window.folder.path(QStringLiteral("Quick.ini"))));
    window.show();
    QCOMPARE(window.entries(), QStringList());
    QTest::keyClicks(window.words->Text1, QStringLiteral("phrase"));
    Words::click(window.words->Command1); // can't be saved; nobody is told
    QCOMPARE(window.entries(), QStringList("phrase"));
}

void TestFrmWord::missingKeyStopsTheLoad_data()
{
    QTest::addColumn<QByteArray>("section");
    QTest::newRow("no section") << QByteArray();
    QTest::newRow("no key") << QByteArray("[Quickword]\r\n");
    QTest::newRow("empty") << QByteArray("[Quickword]\r\nchk=\r\n");
}

void TestFrmWord::missingKeyStopsTheLoad()
{
    QFETCH(QByteArray, section);
    const ProgramFolder folder;
    folder.write(QStringLiteral("web.ini"), section);
    std::optional<ErrorNumber> number;
    try {
        form<FrmWord>();
    } catch (const RuntimeError& error) {
        number = error.number();
    }
    QVERIFY(number == ErrorNumber::TypeMismatch);
    QVERIFY(!isLoaded<FrmWord>());
}

void TestFrmWord::boxIsKeptAtOnce()
{
    Words window;
    window.show();
    const auto kept = [&] {
        const QByteArray file = window.folder.read(QStringLiteral("web.ini")).replace("\r\n", "\n");
        return file.contains("[Quickword]\nchk=1\n") ? 1 : 0;
    };
    QCOMPARE(kept(), 0);
    window.tick();
    QCOMPARE(kept(), 1);
    window.words->Unload();
    window.show();
    QCOMPARE(window.words->Check1->Value(), 1);
    window.tick();
    QCOMPARE(kept(), 0);
}

void TestFrmWord::addSaves()
{
    Words window;
    window.show("old\r\n");
    QTest::keyClicks(window.words->Text1, QStringLiteral("new one"));
    Words::click(window.words->Command1);
    QCOMPARE(window.entries(), QStringList({"old", "new one"}));
    QCOMPARE(window.words->Text1->text(), QString());
    QCOMPARE(window.file(), QByteArray("old\r\nnew one\r\n"));
}

void TestFrmWord::addTakesNoEmptyText()
{
    Words window;
    window.show();
    Words::click(window.words->Command1);
    QCOMPARE(window.entries(), QStringList());
    QVERIFY(!window.hasFile());
}

void TestFrmWord::enterAddsWithoutSaving()
{
    Words window;
    window.show();
    QTest::keyClicks(window.words->Text1, QStringLiteral("noted"));
    QTest::keyClick(window.words->Text1, Qt::Key_Return);
    QCOMPARE(window.entries(), QStringList("noted"));
    QCOMPARE(window.words->Text1->text(), QString());
    QTest::keyClick(window.words->Text1, Qt::Key_Enter); // an empty one too
    QCOMPARE(window.entries(), QStringList({"noted", ""}));
    QVERIFY(!window.hasFile());
    QTest::keyClicks(window.words->Text1, QStringLiteral("third"));
    Words::click(window.words->Command1); // saves all, the empty one left out
    QCOMPARE(window.entries(), QStringList({"noted", "", "third"}));
    QCOMPARE(window.file(), QByteArray("noted\r\nthird\r\n"));
}

void TestFrmWord::commaMakesTwoPhrases()
{
    Words window;
    window.show();
    QTest::keyClicks(window.words->Text1, QStringLiteral("a,b"));
    Words::click(window.words->Command1);
    QCOMPARE(window.entries(), QStringList("a,b"));
    QCOMPARE(window.file(), QByteArray("a,b\r\n"));
    window.words->Unload();
    window.show();
    QCOMPARE(window.entries(), QStringList({"a", "b"}));
}

void TestFrmWord::quotesAndOtherLetters()
{
    Words window;
    window.show();
    const QStringList phrases = {QStringLiteral("say \"hello\""),
                                 QString::fromUtf8("caf\xC3\xA9 \xF0\x9F\x98\x80"),
                                 QStringLiteral("<B>bold</B>")};
    for (const QString& phrase : phrases) {
        window.words->Text1->setText(phrase);
        Words::click(window.words->Command1);
    }
    window.words->Unload();
    window.show();
    QCOMPARE(window.entries(), phrases);
}

void TestFrmWord::deleteWithoutSelection()
{
    Words window;
    window.show("one\r\n");
    window.doors.answerMsgBox(MsgAnswer::Ok);
    Words::click(window.words->Command2);
    QCOMPARE(window.doors.asked, QStringList(NothingSelected));
    QCOMPARE(window.entries(), QStringList("one"));
}

void TestFrmWord::deleteAsksFirst()
{
    Words window;
    window.show("a,b\r\n");
    window.select({0});
    window.doors.answerMsgBox(MsgAnswer::No);
    Words::click(window.words->Command2);
    QCOMPARE(window.doors.takeAsked(), QStringList(DeleteQuestion));
    QCOMPARE(window.entries(), QStringList({"a", "b"}));
    QCOMPARE(window.file(), QByteArray("a,b\r\n")); // not saved, or it would have two lines
    window.doors.answerMsgBox(MsgAnswer::Yes);
    Words::click(window.words->Command2);
    QCOMPARE(window.doors.takeAsked(), QStringList(DeleteQuestion));
    QCOMPARE(window.entries(), QStringList("b"));
    QCOMPARE(window.file(), QByteArray("b\r\n"));
}

void TestFrmWord::deleteOfSeveral()
{
    Words window;
    window.show("0\r\n1\r\n2\r\n3\r\n4\r\n");
    window.select({0, 1, 3, 4});
    window.doors.answerMsgBox(MsgAnswer::Yes);
    Words::click(window.words->Command2);
    QCOMPARE(window.entries(), QStringList("2"));
    QCOMPARE(window.file(), QByteArray("2\r\n"));
}

void TestFrmWord::deleteSavesThoughTheWindowGoes()
{
    Words window;
    window.show("0\r\n1\r\n2\r\n3\r\n");
    window.select({0, 1, 3});
    window.doors.during([&] { QTimer::singleShot(0, window.words, [&] { window.words->close(); }); });
    window.doors.answerMsgBox(MsgAnswer::Yes);
    Words::click(window.words->Command2);
    QVERIFY(!isLoaded<FrmWord>());
    QCOMPARE(window.file(), QByteArray("2\r\n"));
}

void TestFrmWord::deleteAll()
{
    Words window;
    window.show("a,b\r\n");
    window.doors.answerMsgBox(MsgAnswer::No);
    Words::click(window.words->Command3);
    QCOMPARE(window.doors.takeAsked(), QStringList(DeleteAllQuestion));
    QCOMPARE(window.entries(), QStringList({"a", "b"}));
    QCOMPARE(window.file(), QByteArray("a,b\r\n"));
    window.doors.answerMsgBox(MsgAnswer::Yes);
    Words::click(window.words->Command3);
    QCOMPARE(window.doors.takeAsked(), QStringList(DeleteAllQuestion));
    QCOMPARE(window.entries(), QStringList());
    QCOMPARE(window.file(), QByteArray());
}

void TestFrmWord::addEditorAtTheCaret()
{
    Words window;
    window.web->RichTextBox1->load("onetwo");
    window.web->RichTextBox1->setSelStart(3);
    window.show("phrase\r\nother\r\n");
    window.select({0});
    Words::click(window.words->Command4);
    QCOMPARE(window.source(), QByteArray("onephrasetwo"));
    QCOMPARE(window.words->List1->selectedItems().size(), 0);
    QVERIFY(isLoaded<FrmWord>());
}

void TestFrmWord::addEditorOfSeveral()
{
    Words window;
    window.web->RichTextBox1->load("[xx]");
    window.web->RichTextBox1->setSelStart(1);
    window.web->RichTextBox1->setSelLength(2); // the first takes its place
    window.show("1\r\n2\r\n3\r\n");
    window.select({2, 0});
    Words::click(window.words->Command4);
    QCOMPARE(window.source(), QByteArray("[13]"));
    QCOMPARE(window.words->List1->selectedItems().size(), 0);
}

void TestFrmWord::addEditorClosesByItsBox()
{
    Words window;
    window.show("1\r\n2\r\n3\r\n");
    window.tick();
    window.select({1, 2});
    Words::click(window.words->Command4);
    QCOMPARE(window.source(), QByteArray("2"));
    QVERIFY(!isLoaded<FrmWord>());
}

void TestFrmWord::addEditorOnOtherTabs_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("Preview") << int(FrmWeb::PreviewTab);
    QTest::newRow("Internet") << int(FrmWeb::InternetTab);
}

void TestFrmWord::addEditorOnOtherTabs()
{
    QFETCH(int, tab);
    Words window;
    window.web->RichTextBox1->load("source");
    window.web->SSTab1->setTab(tab);
    window.show("phrase\r\n");
    window.select({0});
    Words::click(window.words->Command4);
    QVERIFY(window.source().contains("phrase"));
    QCOMPARE(window.web->SSTab1->Tab(), tab);
}

void TestFrmWord::copyLeavesTheLast()
{
    Words window;
    window.show("1\r\n2\r\n3\r\n");
    auto old = std::make_unique<QMimeData>();
    old->setHtml(QStringLiteral("<B>old</B>"));
    window.doors.setClipboard(std::move(old));
    window.select({0, 1});
    Words::click(window.words->Command6);
    QCOMPARE(window.doors.clipboard()->text(), QStringLiteral("2"));
    QVERIFY(!window.doors.clipboard()->hasHtml());
    QCOMPARE(window.words->List1->selectedItems().size(), 0);
    QVERIFY(isLoaded<FrmWord>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmWord::copyClosesByItsBox()
{
    Words window;
    window.show("1\r\n2\r\n3\r\n");
    window.tick();
    window.select({1, 2});
    Words::click(window.words->Command6);
    QCOMPARE(window.doors.clipboard()->text(), QStringLiteral("2"));
    QVERIFY(!isLoaded<FrmWord>());
}

void TestFrmWord::doubleClickCopies()
{
    Words window;
    window.show("1\r\n2\r\n3\r\n");
    const auto clickTwice = [&](int index, Qt::MouseButton button) {
        QTest::mouseClick(window.words->List1->viewport(), button, {}, window.place(index));
        QTest::mouseDClick(window.words->List1->viewport(), button, {}, window.place(index));
    };
    clickTwice(2, Qt::LeftButton);
    QCOMPARE(window.doors.clipboard()->text(), QStringLiteral("3"));
    clickTwice(0, Qt::RightButton);
    QCOMPARE(window.doors.clipboard()->text(), QStringLiteral("3"));
    QVERIFY(window.words->List1->Selected(0));
}

void TestFrmWord::nothingSelectedNothingHappens()
{
    Words window;
    window.show("1\r\n");
    window.tick();
    Words::click(window.words->Command4);
    Words::click(window.words->Command6);
    QCOMPARE(window.source(), QByteArray());
    QVERIFY(!window.doors.clipboard()->hasText());
    QCOMPARE(window.doors.asked, QStringList());
    QVERIFY(isLoaded<FrmWord>());
}

void TestFrmWord::windowGoesInTheMiddleOfAWalk_data()
{
    QTest::addColumn<bool>("copy");
    QTest::newRow("Add Editor") << false;
    QTest::newRow("Copy") << true;
}

void TestFrmWord::windowGoesInTheMiddleOfAWalk()
{
    QFETCH(bool, copy);
    Words window;
    window.show("1\r\n2\r\n3\r\n");
    window.select({0, 1, 2});
    QTimer::singleShot(0, window.words, [&] { window.words->close(); });
    Words::click(copy ? window.words->Command6 : window.words->Command4);
    QVERIFY(!isLoaded<FrmWord>());
    if (copy) {
        QCOMPARE(window.doors.clipboard()->text(), QStringLiteral("1"));
    } else {
        QCOMPARE(window.source(), QByteArray("1"));
    }
}

void TestFrmWord::listChangesInTheMiddleOfAWalk()
{
    Words window;
    window.show("1\r\n2\r\n3\r\n");
    window.select({0, 1, 2});
    QTimer::singleShot(0, window.words, [&] { window.words->List1->Clear(); });
    Words::click(window.words->Command4);
    QCOMPARE(window.source(), QByteArray("1"));
    QVERIFY(isLoaded<FrmWord>());
}

void TestFrmWord::tenThousandPhrases()
{
    Words window;
    QByteArray file;
    QByteArray every;
    QByteArray odd;
    for (int i = 0; i < 10'000; ++i) {
        const QByteArray phrase = QByteArray::number(i) + ';';
        file += phrase + "\r\n";
        every += phrase;
        if (i % 2 == 1)
            odd += phrase + "\r\n";
    }
    window.show(file);
    QCOMPARE(window.words->List1->ListCount(), 10'000);
    window.doors.hasty = false; // or the list is laid out ten thousand times
    window.words->List1->selectAll();
    Words::click(window.words->Command4);
    QVERIFY(window.source() == every);
    for (int i = 0; i < 10'000; i += 2)
        window.words->List1->setSelected(i, true);
    window.doors.answerMsgBox(MsgAnswer::Yes);
    Words::click(window.words->Command2);
    QVERIFY(window.file() == odd);
}

void TestFrmWord::cancelAndEscapeClose()
{
    Words window;
    window.show();
    Words::click(window.words->Command5);
    QVERIFY(!isLoaded<FrmWord>());
    window.show();
    QTest::keyClick(window.words->Text1, Qt::Key_Escape);
    QVERIFY(!isLoaded<FrmWord>());
    window.show();
    QTest::keyClick(window.words->List1, Qt::Key_Escape);
    QVERIFY(!isLoaded<FrmWord>());
}

void TestFrmWord::everyControlIsReachedByTab()
{
    Words window;
    window.show();
    const FrmWord& words = *window.words;
    for (QWidget* control :
         QList<QWidget*>{words.Text1, words.List1, words.Command1, words.Command2, words.Command3,
                         words.Command4, words.Command6, words.Command5, words.Check1}) {
        QCOMPARE(QApplication::focusWidget(), control);
        QVERIFY(!control->toolTip().isEmpty());
        QTest::keyClick(control, Qt::Key_Tab);
    }
    QVERIFY(!words.Text1->accessibleName().isEmpty());
    QVERIFY(!words.List1->accessibleName().isEmpty());
}

WEB_TEST_MAIN(TestFrmWord)
#include "tst_frmword.moc"
