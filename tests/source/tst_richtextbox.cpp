// SPDX-License-Identifier: GPL-3.0-or-later

#include "ScriptedDoors.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "source/RichTextBox.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QVBoxLayout>
#include <cmath>
#include <functional>

using namespace brindlemark;

namespace {

/// Whether a drop was taken, and for what.
struct DropAnswer
{
    bool taken = false;
    Qt::DropAction action = Qt::IgnoreAction;
};

/// A file of another program that gives its name a number of times and then lets go of it.
class LosableFile : public QMimeData
{
public:
    LosableFile(const QUrl& url, int answers) : m_url(url), m_answers(answers) {}
    QStringList formats() const override { return {QStringLiteral("text/uri-list")}; }

protected:
    QVariant retrieveData(const QString&, QMetaType type) const override
    {
        if (m_answers-- <= 0)
            return {};
        // As the toolkit's own clip of another program answers; newer ones make no list of bytes by
        // themselves.
        return type.id() == QMetaType::QVariantList ? QVariant(QVariantList{m_url})
                                                    : QVariant(m_url.toEncoded() + "\r\n");
    }

private:
    QUrl m_url;
    mutable int m_answers;
};

/// A shown box with the keyboard, and the record of what it tells.
class Fixture : public QWidget
{
public:
    Fixture()
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&before);
        layout->addWidget(&box);
        layout->addWidget(&after);
        resize(600, 400);
        show();
        if (!QTest::qWaitForWindowExposed(this))
            QTest::qFail("no window", __FILE__, __LINE__);
        activateWindow();
        box.setFocus();
        connect(&box, &RichTextBox::Change, this, [this] { m_told << QStringLiteral("Change"); });
        connect(&box, &RichTextBox::SelChange, this,
                [this] { m_told << QStringLiteral("Sel %1+%2").arg(box.SelStart()).arg(box.SelLength()); });
        connect(&box, &RichTextBox::Click, this, [this] { m_told << QStringLiteral("Click"); });
        connect(&box, &RichTextBox::KeyUp, this,
                [this](int key) { m_told << QStringLiteral("KeyUp %1").arg(key, 0, 16); });
    }

    /// What was told since the last call.
    QString told() { return std::exchange(m_told, QStringList()).join(QLatin1String(", ")); }

    /// Starts with this text and an empty record.
    void start(const QByteArray& text)
    {
        box.load(text);
        told();
    }

    void select(int start, int length)
    {
        box.setSelStart(start);
        box.setSelLength(length);
        told();
    }

    /// Types one character that no key of the test's keyboard has.
    void type(const QString& character)
    {
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, character, Qt::NoModifier);
    }

    void compose(const QString& preedit, const QString& commit)
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(&box, &event);
    }

    /// Just right of a byte's left edge; only for UTF-8 documents.
    QPoint at(int position)
    {
        const auto x = box.SendScintilla(RichTextBox::SCI_POINTXFROMPOSITION, 0UL, long{position});
        const auto y = box.SendScintilla(RichTextBox::SCI_POINTYFROMPOSITION, 0UL, long{position});
        return {static_cast<int>(x) + 1, static_cast<int>(y) + 4};
    }

    void drag(int from, int to, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QTest::mousePress(box.viewport(), Qt::LeftButton, keys, at(from));
        QMouseEvent move(QEvent::MouseMove, at(to), box.viewport()->mapToGlobal(at(to)), Qt::NoButton,
                         Qt::LeftButton, keys);
        QApplication::sendEvent(box.viewport(), &move);
        QTest::mouseRelease(box.viewport(), Qt::LeftButton, keys, at(to));
    }

    /// Drags something from another program over the box and drops it there if the box says that it takes it.
    /// The first of what is offered is what the other program proposes.
    DropAnswer drop(const QMimeData& dropped, int position,
                    const QList<Qt::DropAction>& offered = {Qt::CopyAction})
    {
        Qt::DropActions actions;
        for (const Qt::DropAction action : offered)
            actions |= action;
        QDragEnterEvent enter(at(0), actions, &dropped, Qt::LeftButton, Qt::NoModifier);
        QDragMoveEvent move(at(position), actions, &dropped, Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop(at(position), actions, &dropped, Qt::LeftButton, Qt::NoModifier);
        for (QDropEvent* event : std::initializer_list<QDropEvent*>{&enter, &move, &drop}) {
            event->setDropAction(offered.first());
            QApplication::sendEvent(box.viewport(), event);
            if (!event->isAccepted()) {
                QDragLeaveEvent leave;
                QApplication::sendEvent(box.viewport(), &leave);
                return {};
            }
        }
        return {true, drop.dropAction()};
    }

    QLineEdit before, after;
    RichTextBox box;

private:
    QStringList m_told;
};

QByteArray allBytes()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

} // namespace

class TestRichTextBox : public QObject
{
    Q_OBJECT

private slots:
    void textComesBackExactly_data();
    void textComesBackExactly();
    void setTextTellsAlways();
    void setTextIsOneStepOfUndo();
    void undoBringsTheEncodingBack();
    void loadForgetsTheHistory();
    void undoGroupIsOneStep();
    void overtypingIsOneStepOfUndo_data();
    void overtypingIsOneStepOfUndo();
    void overwritingUndoesLetterByLetter();
    void overtypingEnds_data();
    void overtypingEnds();

    void selectionSetters_data();
    void selectionSetters();
    void setSelTextReplaces_data();
    void setSelTextReplaces();
    void negativeLengthIsRefused();
    void settersTellOnlyWhatChanges();
    void nothingComesLate();
    void handlerMaySetProperties();

    void westernPositionsAreBytes();
    void positionsInsideCharacters();

    void find_data();
    void find();
    void findInWesternText();
    void findBeginsAtTheSelection();
    void findWithoutSelecting();
    void failedFindKeepsTheSelection();

    void colours();
    void coloursOfAnyRange();
    void coloursOfManyBytes();
    void insertedTextHasTheColourAroundIt();
    void undoneDeletionHasTheColourAroundIt();
    void moreColoursThanStyles();
    void coloursStayBehindAnEdit();
    void longLinesAreCut();
    void coloursWrapNothing();
    void coloursAreNoPartOfTheText();
    void look();
    void selectionFollowsTheDesktop();
    void selectionCanBeRead_data();
    void selectionCanBeRead();
    void selectionGrowsAtItsEnd();
    void caretShowsOnEveryBackground();
    void accessibleName();

    void typing();
    void editingKeys();
    void typingIntoWesternText();
    void commandsTypeNothing();
    void composing();
    void tellsWhatIsTyped();
    void stretchesOfUtf8();
    void placesThatAreSeen();
    void tabTypesAndCtrlTabLeaves();
    void controlKeysTypeNothing();
    void keysAgainstMenuShortcuts();

    void click();
    void dragSelects();
    void doubleClickSelectsTheWord();
    void noRectangles();
    void contextMenu();
    void contextMenuOffersWhatIsPossible();

    void clipboardKeepsBytes();
    void pasteOfForeignText();
    void pasteBetweenEncodings();
    void emptySelectionLeavesTheClipboard();
    void dropOfText();
    void dropOfOwnTextKeepsBytes();
    void dropIsAStepOfItsOwn();
    void colorsMoveAlongWithADrop();
    void dropOfAFile_data();
    void dropOfAFile();
    void fileThatIsLetGo();
    void dropOfNoText();
    void noDropWhileAHandlerRuns();
    void droppedFileWaitsForHandlers();

    void keyThatFailsEndsTheProgram();
    void menuThatFailsEndsTheProgram();
    void hourglassOverLongTexts_data();
    void hourglassOverLongTexts();

    void agreesWithModel_data();
    void agreesWithModel();

private:
    QTemporaryDir m_files; // to be dropped
};

// The text ------------------------------------------------------------------------------------------------

void TestRichTextBox::textComesBackExactly_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<TextEncoding>("encoding");
    QTest::newRow("empty") << QByteArray() << TextEncoding::Utf8;
    QTest::newRow("line ends") << QByteArray("a\nb\rc\r\nd\n\r\r\n\n") << TextEncoding::Utf8;
    QTest::newRow("nul") << QByteArray("a\0b\0", 4) << TextEncoding::Utf8;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<P>") << TextEncoding::Utf8;
    QTest::newRow("utf-8") << QByteArray("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80") << TextEncoding::Utf8;
    QTest::newRow("western") << QByteArray("caf\xE9 \x93x\x94") << TextEncoding::Western;
    QTest::newRow("every byte") << allBytes() << TextEncoding::Western;
    QTest::newRow("utf-8 with one bad byte")
        << QByteArray("\xC3\xA9\xC3\xA9\xC3\xA9\xFF") << TextEncoding::Western;
    QTest::newRow("mark, then a bad byte") << QByteArray("\xEF\xBB\xBF\xFF") << TextEncoding::Western;
}

void TestRichTextBox::textComesBackExactly()
{
    QFETCH(QByteArray, text);
    RichTextBox box;
    box.setText(text);
    QCOMPARE(box.Text(), text);
    QTEST(box.textEncoding(), "encoding");
    QCOMPARE(box.isEmpty(), text.isEmpty());

    box.setSelLength(90000);
    QCOMPARE(box.SelLength(), text.size());
    QCOMPARE(box.SelText(), text);
    box.setSelText("x");
    QCOMPARE(box.Text(), QByteArray("x"));
    box.load(text);
    QCOMPARE(box.Text(), text);
}

void TestRichTextBox::setTextTellsAlways()
{
    Fixture f;
    f.box.setText("abc");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
    f.box.setText("abc");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
    f.select(1, 2);
    f.box.setText("\xE9");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
    f.box.load("abc");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
    f.box.setText("");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
    f.box.setText("");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
}

void TestRichTextBox::setTextIsOneStepOfUndo()
{
    Fixture f;
    f.start("one");
    f.box.setText("two");
    f.select(0, 3);
    f.box.setSelText("three");
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("two"));
    f.told();
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("one"));
    QVERIFY(f.told().startsWith(QLatin1String("Change")));
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("one"));
    QCOMPARE(f.told(), QString());
    f.box.redo();
    QCOMPARE(f.box.Text(), QByteArray("two"));
    f.box.redo();
    QCOMPARE(f.box.Text(), QByteArray("three"));
}

void TestRichTextBox::undoBringsTheEncodingBack()
{
    RichTextBox box;
    box.load("\xE6\x97\xA5");
    box.setText("\xE9\x80");
    box.setText("plain");
    QCOMPARE(box.textEncoding(), TextEncoding::Utf8);
    box.undo();
    QCOMPARE(box.textEncoding(), TextEncoding::Western);
    QCOMPARE(box.Text(), QByteArray("\xE9\x80"));
    box.undo();
    QCOMPARE(box.textEncoding(), TextEncoding::Utf8);
    QCOMPARE(box.Text(), QByteArray("\xE6\x97\xA5"));
    box.redo();
    QCOMPARE(box.textEncoding(), TextEncoding::Western);
    QCOMPARE(box.Text(), QByteArray("\xE9\x80"));
}

void TestRichTextBox::loadForgetsTheHistory()
{
    RichTextBox box;
    box.setText("one");
    box.load("\xE9");
    box.undo();
    QCOMPARE(box.Text(), QByteArray("\xE9"));
    box.setSelText("x");
    box.undo();
    QCOMPARE(box.Text(), QByteArray("\xE9"));
}

void TestRichTextBox::overtypingIsOneStepOfUndo_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("letters") << QByteArray("one two three") << "New word" << QByteArray("one New word three");
    QTest::newRow("beyond ASCII") << QByteArray("one two three")
                                  << QString::fromUtf8("\xE2\x82\xAC"
                                                       "5")
                                  << QByteArray("one \xE2\x82\xAC"
                                                "5 three");
    QTest::newRow("Western") << QByteArray("\xC9ne two \xFF")
                             << QString::fromUtf8("a\xE2\x82\xAC\xC5\x91"
                                                  "b")
                             << QByteArray("\xC9ne a\x80&#337;b \xFF");
}

void TestRichTextBox::overtypingIsOneStepOfUndo()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, typed);
    QFETCH(QByteArray, after);
    for (const bool composed : {false, true}) {
        Fixture f;
        f.start(document);
        f.select(4, 3);
        for (const QChar letter : typed) {
            QTest::keyPress(&f.box, Qt::Key_Shift); // changes nothing
            if (composed) {
                f.compose(QStringLiteral("x"), QString());
                f.compose(QString(), letter);
            } else {
                f.type(letter);
            }
            QTest::keyRelease(&f.box, Qt::Key_Shift);
        }
        QCOMPARE(f.box.Text(), after);
        QTest::keyClick(&f.box, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(f.box.Text(), document);
        QTest::keyClick(&f.box, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(f.box.Text(), after);
    }
}

void TestRichTextBox::overtypingEnds_data()
{
    using Next = std::function<void(Fixture&)>;
    QTest::addColumn<Next>("next"); // what is done between two keys
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const Next& next, const char* after) {
        QTest::newRow(name) << next << QByteArray(after);
    };
    row(
        "key", [](Fixture& f) { QTest::keyClick(&f.box, Qt::Key_Home); }, "bone a three");
    row(
        "click", [](Fixture& f) { QTest::mouseClick(f.box.viewport(), Qt::LeftButton, {}, f.at(1)); },
        "obne a three");
    row(
        "selection", [](Fixture& f) { f.box.setSelStart(2); }, "onbe a three");
    row(
        "insertion", [](Fixture& f) { f.box.setSelText("<BR>"); }, "one a<BR>b three");
    row(
        "group",
        [](Fixture& f) {
            const RichTextBox::UndoGroup group(&f.box);
            f.box.setSelText("<BR>");
        },
        "one a<BR>b three");
    row(
        "other overtyping", [](Fixture& f) { f.select(0, 3); }, "b a three");
}

/// What is done next is a step of its own, and so is what is typed then.
/// The Insert key has letters replace what stands behind the caret; each is a step of its own.
void TestRichTextBox::overwritingUndoesLetterByLetter()
{
    Fixture f;
    f.start("abcd");
    QTest::keyClick(&f.box, Qt::Key_Insert);
    f.type(QStringLiteral("x"));
    f.type(QStringLiteral("y"));
    QCOMPARE(f.box.Text(), QByteArray("xycd"));
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("xbcd"));
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("abcd"));
}

void TestRichTextBox::overtypingEnds()
{
    QFETCH(std::function<void(Fixture&)>, next);
    QFETCH(QByteArray, after);
    Fixture f;
    f.start("one two three");
    f.select(4, 3);
    f.type(QStringLiteral("a"));
    next(f);
    const QByteArray between = f.box.Text();
    f.type(QStringLiteral("b"));
    QCOMPARE(f.box.Text(), after);
    f.box.undo();
    QCOMPARE(f.box.Text(), between);
    if (between != "one a three") {
        f.box.undo();
        QCOMPARE(f.box.Text(), QByteArray("one a three"));
    }
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("one two three"));
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("one two three"));
}

void TestRichTextBox::undoGroupIsOneStep()
{
    RichTextBox box;
    box.load("abc");
    {
        const RichTextBox::UndoGroup group(&box);
        box.setSelText("1");
        box.setSelStart(3);
        box.setSelText("2");
        box.setText("\xE9");
    }
    QCOMPARE(box.Text(), QByteArray("\xE9"));
    box.undo();
    QCOMPARE(box.Text(), QByteArray("abc"));
    box.redo();
    QCOMPARE(box.Text(), QByteArray("\xE9"));
}

// The selection -------------------------------------------------------------------------------------------

void TestRichTextBox::selectionSetters_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("expectedStart");
    QTest::addColumn<int>("expectedLength");
    // in "a" CR LF "bcd"
    QTest::newRow("caret") << 4 << 0 << 4 << 0;
    QTest::newRow("some") << 1 << 3 << 1 << 3;
    QTest::newRow("between CR and LF") << 2 << 1 << 2 << 1;
    QTest::newRow("more than there is") << 2 << 90000 << 2 << 4;
    QTest::newRow("all") << 0 << 6 << 0 << 6;
    QTest::newRow("behind the end") << 90000 << 5 << 6 << 0;
    QTest::newRow("before the beginning") << -5 << 2 << 0 << 2;
    QTest::newRow("no overflow") << 3 << std::numeric_limits<int>::max() << 3 << 3;
}

void TestRichTextBox::selectionSetters()
{
    QFETCH(int, start);
    QFETCH(int, length);
    RichTextBox box;
    box.setText("a\r\nbcd");
    box.setSelLength(5);
    box.setSelStart(start);
    QCOMPARE(box.SelLength(), 0);
    QTEST(box.SelStart(), "expectedStart");
    box.setSelLength(length);
    QTEST(box.SelStart(), "expectedStart");
    QTEST(box.SelLength(), "expectedLength");
}

void TestRichTextBox::setSelTextReplaces_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("inserted");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("caret");
    // in "0123456789"
    QTest::newRow("at the caret") << 3 << 0 << QByteArray("<BR>") << QByteArray("012<BR>3456789") << 7;
    QTest::newRow("at the end") << 10 << 0 << QByteArray("x") << QByteArray("0123456789x") << 11;
    QTest::newRow("in place of the selection") << 2 << 6 << QByteArray("xy") << QByteArray("01xy89") << 4;
    QTest::newRow("removal") << 0 << 9 << QByteArray() << QByteArray("9") << 0;
    QTest::newRow("nothing for nothing") << 5 << 0 << QByteArray() << QByteArray("0123456789") << 5;
    QTest::newRow("nul") << 1 << 8 << QByteArray("\0\r", 2) << QByteArray("0\0\r9", 4) << 3;
    QTest::newRow("broken utf-8") << 1 << 8 << QByteArray("\xE9")
                                  << QByteArray("0\xE9"
                                                "9")
                                  << 2;
}

void TestRichTextBox::setSelTextReplaces()
{
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(QByteArray, inserted);
    RichTextBox box;
    box.setText("0123456789");
    box.setSelStart(start);
    box.setSelLength(length);
    box.setSelText(inserted);
    QTEST(box.Text(), "text");
    QTEST(box.SelStart(), "caret");
    QCOMPARE(box.SelLength(), 0);
}

void TestRichTextBox::negativeLengthIsRefused()
{
    Fixture f;
    f.start("abc");
    f.select(1, 1);
    try {
        f.box.setSelLength(-1);
        QFAIL("no error");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.number(), ErrorNumber::InvalidPropertyValue);
    }
    QCOMPARE(f.box.SelStart(), 1);
    QCOMPARE(f.box.SelLength(), 1);
    QCOMPARE(f.told(), QString());
}

void TestRichTextBox::settersTellOnlyWhatChanges()
{
    Fixture f;
    f.start("hello\r\nworld");
    f.box.setSelStart(0);
    QCOMPARE(f.told(), QString());
    f.box.setSelStart(2);
    QCOMPARE(f.told(), QStringLiteral("Sel 2+0"));
    f.box.setSelLength(3);
    QCOMPARE(f.told(), QStringLiteral("Sel 2+3"));
    f.box.setSelLength(3);
    QCOMPARE(f.told(), QString());
    f.box.setSelText("llo");
    QCOMPARE(f.told(), QStringLiteral("Sel 5+0"));
    f.box.setSelText("");
    QCOMPARE(f.told(), QString());
    f.box.setSelText("!");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 6+0"));
    f.select(0, 2);
    f.box.setSelText("");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
    QCOMPARE(f.box.Find("world"), 6);
    QCOMPARE(f.told(), QStringLiteral("Sel 6+5"));
    QCOMPARE(f.box.Find("world"), 6);
    QCOMPARE(f.told(), QString());
    f.box.setSelColor(0xFF);
    f.box.setBackColor(0xFF);
    f.box.setTextFont(QFont(QStringLiteral("Arial"), 12));
    QCOMPARE(f.told(), QString());
}

void TestRichTextBox::nothingComesLate()
{
    Fixture f;
    f.box.setText("hello world");
    f.box.setSelStart(3);
    f.box.setSelText("x");
    f.box.hide();
    f.box.setSelStart(1);
    f.told();
    f.box.show();
    QTest::qWait(100); // paints and the component's own timers
    QCOMPARE(f.told(), QString());
}

void TestRichTextBox::handlerMaySetProperties()
{
    Fixture f;
    int changes = 0;
    connect(&f.box, &RichTextBox::Change, &f, [&] {
        if (++changes > 1)
            return;
        f.box.setSelStart(3);
        f.box.setSelText("!");
    });
    f.box.setText("abc");
    QCOMPARE(f.box.Text(), QByteArray("abc!"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 3+0, Change, Sel 4+0"));

    changes = 0;
    QTest::keyClicks(&f.box, QStringLiteral("z"));
    QCOMPARE(f.box.Text(), QByteArray("abc!!z"));
    QCOMPARE(changes, 2);
}

// Western and UTF-8 positions -----------------------------------------------------------------------------

void TestRichTextBox::westernPositionsAreBytes()
{
    Fixture f;
    f.start("\x80\xE9\r\n\x93q\x94z");
    f.box.setSelStart(4);
    QCOMPARE(f.told(), QStringLiteral("Sel 4+0"));
    f.box.setSelLength(3);
    QCOMPARE(f.told(), QStringLiteral("Sel 4+3"));
    QCOMPARE(f.box.SelText(), QByteArray("\x93q\x94"));
    f.box.setSelText("\x80\x80");
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 6+0"));
    QCOMPARE(f.box.Text(), QByteArray("\x80\xE9\r\n\x80\x80z"));
    f.box.setSelStart(1);
    f.box.setSelText("x");
    QCOMPARE(f.box.Text(), QByteArray("\x80x\xE9\r\n\x80\x80z"));
    f.box.setSelStart(8);
    QCOMPARE(f.box.SelStart(), 8);
    f.box.setSelStart(9);
    QCOMPARE(f.box.SelStart(), 8);
    f.box.setSelStart(0);
    f.box.setSelLength(8);
    QCOMPARE(f.box.SelLength(), 8);
    f.box.setSelColor(0x0000FF);
    QCOMPARE(f.box.colorAt(7), 0x0000FF);
}

/// Tools may put the caret anywhere; what the user does there leaves whole characters whole where it can.
void TestRichTextBox::positionsInsideCharacters()
{
    RichTextBox box;
    box.load("a\xC3\xA9z");
    box.setSelStart(2);
    QCOMPARE(box.SelStart(), 2);
    box.setSelText("x");
    QCOMPARE(box.Text(), QByteArray("a\xC3x\xA9z"));
    box.undo();
    QCOMPARE(box.Text(), QByteArray("a\xC3\xA9z"));
    box.load("a\r\nb");
    box.setSelStart(2);
    box.setSelText("x");
    QCOMPARE(box.Text(), QByteArray("a\rx\nb"));
}

// Find ----------------------------------------------------------------------------------------------------

void TestRichTextBox::find_data()
{
    QTest::addColumn<QByteArray>("wanted");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<FindOptions>("options");
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("selected");
    // in "ab <B> Été b_ b", with é of two bytes
    QTest::newRow("ignores case") << QByteArray("<b>") << 0 << -1 << FindOptions() << 3 << QByteArray("<B>");
    QTest::newRow("matches case") << QByteArray("<b>") << 0 << -1 << FindOptions(MatchCase) << -1
                                  << QByteArray();
    QTest::newRow("accents") << QByteArray("\xC3\xA9t\xC3\x89") << 0 << -1 << FindOptions() << 7
                             << QByteArray("\xC3\x89t\xC3\xA9");
    QTest::newRow("whole word") << QByteArray("b") << 5 << -1 << FindOptions(WholeWord) << 16
                                << QByteArray("b");
    QTest::newRow("both options") << QByteArray("B") << 0 << -1 << FindOptions(WholeWord | MatchCase) << 4
                                  << QByteArray("B");
    QTest::newRow("from the hit") << QByteArray("b") << 1 << -1 << FindOptions() << 1 << QByteArray("b");
    QTest::newRow("from behind the hit")
        << QByteArray("b") << 2 << -1 << FindOptions() << 4 << QByteArray("B");
    QTest::newRow("from behind the text")
        << QByteArray("b") << 500 << -1 << FindOptions() << -1 << QByteArray();
    QTest::newRow("to the end of the hit")
        << QByteArray("ab") << 0 << 2 << FindOptions() << 0 << QByteArray("ab");
    QTest::newRow("end inside the hit") << QByteArray("ab") << 0 << 1 << FindOptions() << -1 << QByteArray();
    QTest::newRow("end before the start") << QByteArray("b") << 5 << 3 << FindOptions() << -1 << QByteArray();
    QTest::newRow("end behind the text")
        << QByteArray("ab") << 0 << 90000 << FindOptions() << 0 << QByteArray("ab");
    QTest::newRow("nothing") << QByteArray() << 0 << -1 << FindOptions() << -1 << QByteArray();
}

void TestRichTextBox::find()
{
    QFETCH(QByteArray, wanted);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(FindOptions, options);
    RichTextBox box;
    box.setText("ab <B> \xC3\x89t\xC3\xA9 b_ b");
    QTEST(box.Find(wanted, start, end, options), "position");
    QTEST(box.SelText(), "selected");
}

void TestRichTextBox::findInWesternText()
{
    RichTextBox box;
    box.setText("\x80\xC9t\xE9 \x8A\x9A");
    QCOMPARE(box.Find("\xE9", 0), 1);
    QCOMPARE(box.SelText(), QByteArray("\xC9"));
    QCOMPARE(box.Find("\xE9", 2), 3);
    QCOMPARE(box.Find("\xE9", 0, -1, MatchCase), 3);
    QCOMPARE(box.Find("\x9A", 0), 5);
    QCOMPARE(box.SelLength(), 1);
    QCOMPARE(box.Find("\x80", 0), 0);
    QCOMPARE(box.Find("t\xC9", 0, 3), -1);
    QCOMPARE(box.Find("t\xC9", 0, 4), 2);
    QCOMPARE(box.Find(box.encode(QStringLiteral("é")), 0), 1);
}

void TestRichTextBox::findBeginsAtTheSelection()
{
    RichTextBox box;
    box.setText("b b b");
    box.setSelStart(2);
    QCOMPARE(box.Find("b"), 2);
    QCOMPARE(box.Find("b"), 2);
    box.setSelStart(1);
    box.setSelLength(3);
    QCOMPARE(box.Find("b"), 2);
    box.setSelStart(5);
    QCOMPARE(box.Find("b"), -1);
}

void TestRichTextBox::findWithoutSelecting()
{
    Fixture f;
    f.start("abc ABC");
    f.select(1, 2);
    QCOMPARE(f.box.Find("b", 2, -1, NoSelection), 5);
    QCOMPARE(f.box.Find("b", 2, -1, NoSelection | MatchCase), -1);
    QCOMPARE(f.box.SelStart(), 1);
    QCOMPARE(f.box.SelLength(), 2);
    QCOMPARE(f.told(), QString());
}

void TestRichTextBox::failedFindKeepsTheSelection()
{
    Fixture f;
    f.start("abc");
    f.select(1, 1);
    QCOMPARE(f.box.Find("x", 0), -1);
    QCOMPARE(f.box.Find("", 0), -1);
    QCOMPARE(f.box.SelStart(), 1);
    QCOMPARE(f.box.SelLength(), 1);
    QCOMPARE(f.told(), QString());
}

// The look ------------------------------------------------------------------------------------------------

void TestRichTextBox::colours()
{
    RichTextBox box;
    box.load("hello world");
    QCOMPARE(box.colorAt(0), 0);
    box.setSelLength(5);
    box.setSelColor(0x030201);
    box.setSelStart(2);
    box.setSelLength(6);
    box.setSelColor(0x0000FF);
    QCOMPARE(box.colorAt(1), 0x030201);
    QCOMPARE(box.colorAt(2), 0x0000FF);
    QCOMPARE(box.colorAt(7), 0x0000FF);
    QCOMPARE(box.colorAt(8), 0);
    box.setSelStart(4);
    box.setSelColor(0x00FF00); // colours nothing without a selection
    QCOMPARE(box.colorAt(4), 0x0000FF);
    box.setSelStart(3);
    box.setSelLength(2);
    box.setSelColor(0);
    QCOMPARE(box.colorAt(2), 0x0000FF);
    QCOMPARE(box.colorAt(3), 0);
    QCOMPARE(box.colorAt(5), 0x0000FF);
}

void TestRichTextBox::coloursOfAnyRange()
{
    Fixture f;
    f.start("caf\xC9 \xC9t\xC9"); // one byte a character here, two in the component
    f.select(1, 2);
    f.box.setColor(3, 3, 0x0000FF);
    for (int i = 0; i < 8; ++i)
        QCOMPARE(f.box.colorAt(i), i >= 3 && i < 6 ? 0x0000FF : 0);
    f.box.setColor(4, 90000, 0x030201); // to the end of the text
    f.box.setColor(-5, 6, 0x030201);
    f.box.setColor(5, 1, 0);
    f.box.setColor(2, 0, 0x030201);
    const QList<int> expected = {0x030201, 0, 0, 0x0000FF, 0x030201, 0, 0x030201, 0x030201};
    for (int i = 0; i < 8; ++i)
        QCOMPARE(f.box.colorAt(i), expected[i]);
    QCOMPARE(f.box.SelStart(), 1);
    QCOMPARE(f.box.SelLength(), 2);
    QCOMPARE(f.told(), QString());
}

void TestRichTextBox::coloursOfManyBytes()
{
    for (const char* text : {"abcdef", "a\xC9\xE9"
                                       "def"}) { // as UTF-8, and Western
        Fixture f;
        f.start(text);
        f.select(2, 1);
        f.box.setColor(0, 2, 0x0000FF);
        f.box.setColors(1, QByteArray::fromHex("0102010003"), {0x030201, 0x060504, 0});
        const QList<int> expected = {0x0000FF, 0x030201, 0x060504, 0x030201, 0, 0};
        for (int i = 0; i < 6; ++i)
            QCOMPARE(f.box.colorAt(i), expected[i]);
        QCOMPARE(f.box.Text(), QByteArray(text));
        QCOMPARE(f.box.SelStart(), 2);
        QCOMPARE(f.told(), QString());
    }
}

void TestRichTextBox::insertedTextHasTheColourAroundIt()
{
    struct Place
    {
        int caret;
        int color;
    };
    constexpr int Red = 0x0000FF;
    constexpr int Green = 0x00FF00;
    // "abc" is plain, "def" red, "ghi" green, "jkl" plain, "mno" red.
    for (const auto& [caret, color] :
         {Place{0, 0}, Place{2, 0}, Place{3, 0}, Place{4, Red}, Place{6, Red}, Place{7, Green}, Place{9, 0},
          Place{10, 0}, Place{12, 0}, Place{14, Red}, Place{15, 0}}) {
        Fixture f;
        f.start("abcdefghijklmno");
        f.box.setColors(0, QByteArray::fromHex("000000010101020202000000010101"), {Red, Green});
        f.box.setSelStart(caret);
        f.type(QStringLiteral("x"));
        f.type(QStringLiteral("é"));
        QCOMPARE(f.box.colorAt(caret), color);
        QCOMPARE(f.box.colorAt(caret + 2), f.box.colorAt(caret));
        QCOMPARE(f.box.colorAt(caret + 3),
                 QList({0, 0, 0, Red, Red, Red, Green, Green, Green, 0, 0, 0, Red, Red, Red, 0}).at(caret));
    }
}

void TestRichTextBox::undoneDeletionHasTheColourAroundIt()
{
    Fixture f;
    f.start("abcdef");
    f.box.setColor(1, 4, 0x0000FF);
    f.box.setSelStart(2);
    f.box.setSelLength(2);
    f.box.del();
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("abcdef"));
    for (int i = 0; i < 6; ++i)
        QCOMPARE(f.box.colorAt(i), i >= 1 && i < 5 ? 0x0000FF : 0);
    f.box.setText("abcdef");
    for (int i = 0; i < 6; ++i)
        QCOMPARE(f.box.colorAt(i), 0);
}

/// The component has 248 styles to spare; three are black's.
void TestRichTextBox::moreColoursThanStyles()
{
    Fixture f;
    f.start(QByteArray(300, 'x'));
    for (int color = 1; color <= 1000; ++color) { // those that no text has any longer make room
        f.box.setColor(color % 100, 1, color << 8);
        QCOMPARE(f.box.colorAt(color % 100), color << 8);
    }
    for (int i = 0; i < 245; ++i)
        f.box.setColor(i, 1, i + 1);
    f.box.setColor(245, 55, 0);
    for (int i = 0; i < 245; ++i)
        QCOMPARE(f.box.colorAt(i), i + 1);
    f.box.setColor(299, 1, 0xFF0000 | 50); // there is none like it; the nearest is told
    QCOMPARE(f.box.colorAt(299), 50);
    for (int i = 0; i < 245; ++i)
        QCOMPARE(f.box.colorAt(i), i + 1);
}

/// Stretches of one style in a line are short once it has been drawn, and stay so while one types.
/// A byte whose mark is 0 keeps the colour that it has, wherever an edit has moved it to.
void TestRichTextBox::coloursStayBehindAnEdit()
{
    constexpr int Red = 0x0000FF;
    constexpr int Green = 0x00FF00;
    Fixture f;
    f.box.setText("0123456789");
    f.box.setColor(8, 2, Red);
    f.box.setSelText("more");
    f.box.setColors(12, QByteArray::fromHex("0001"), {Green});
    QCOMPARE(f.box.colorAt(12), Red);
    QCOMPARE(f.box.colorAt(13), Green);

    f.box.setSelStart(0);
    f.box.setSelLength(4);
    f.box.del();
    f.box.setColors(8, QByteArray::fromHex("0000"), {Green});
    QCOMPARE(f.box.colorAt(8), Red);
    QCOMPARE(f.box.colorAt(9), Green);

    f.box.setColors(0, QByteArray::fromHex("01000000"), {Green}); // in front of what has colours
    f.box.setColors(8, QByteArray::fromHex("0000"), {Green});
    QCOMPARE(f.box.colorAt(0), Green);
    QCOMPARE(f.box.colorAt(8), Red);

    f.box.setText("abc");
    f.box.setColors(0, QByteArray::fromHex("000100"), {Green});
    QCOMPARE(f.box.colorAt(0), 0);
    QCOMPARE(f.box.colorAt(1), Green);
    QCOMPARE(f.box.colorAt(2), 0);
}

void TestRichTextBox::longLinesAreCut()
{
    Fixture f;
    QByteArray line;
    for (int i = 0; i < 500; ++i)
        line += "<TD>word " + QByteArray::number(i);
    f.start("plain text of a short line\n" + line + "\nend");
    const int start = 27;
    const auto styleAt = [&](int at) {
        return f.box.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, static_cast<unsigned long>(at));
    };
    const auto longestStretch = [&](int from, int to) {
        int longest = 0;
        for (int at = from, first = from; at < to; ++at) {
            if (styleAt(at) != styleAt(first))
                first = at;
            longest = std::max(longest, at - first + 1);
        }
        return longest;
    };
    f.box.grab();
    QCOMPARE(longestStretch(0, start), start); // a short line is drawn quickly as it is
    QCOMPARE(longestStretch(start, int(f.box.TextLength()) - 4), 8);
    f.box.setColor(start + 400, 20, 0x0000FF);
    f.box.grab();
    QCOMPARE(longestStretch(start, start + 400), 8); // "<TD>word"
    QCOMPARE(longestStretch(start, int(f.box.TextLength()) - 4), 20);

    const auto stylesFrom = [&](int from) {
        QList<long> styles;
        for (int at = from; at < f.box.TextLength(); ++at)
            styles << styleAt(at);
        return styles;
    };
    const QList<long> behind = stylesFrom(start + 300);
    f.box.setSelStart(start + 200);
    for (const QChar letter : QStringLiteral("one two three four"))
        f.type(letter);
    f.box.grab();
    QVERIFY(longestStretch(start, start + 400) < 20);
    QCOMPARE(stylesFrom(start + 318), behind); // what isn't new is as it was
    f.box.undo();
    f.box.grab();
    QVERIFY(longestStretch(start, start + 400) < 20);

    const QByteArray text = f.box.Text();
    f.box.setColor(0, int(text.size()), 0);
    f.box.setColor(start + 100, 50, 0x00FF00);
    f.box.grab();
    for (int at = 0; at < text.size(); ++at)
        QCOMPARE(f.box.colorAt(at), at >= start + 100 && at < start + 150 ? 0x00FF00 : 0);
    QCOMPARE(f.box.Text(), text);
}

void TestRichTextBox::coloursWrapNothing()
{
    QRandomGenerator chance(1);
    Fixture f;
    QByteArray text;
    for (int i = 0; i < 4000; ++i)
        text += "ab c<d=\"e\">\t,.f"[chance.bounded(16)];
    f.start(text);
    const auto lines = [&] { return f.box.SendScintilla(QsciScintillaBase::SCI_WRAPCOUNT, 0UL); };
    const auto starts = [&] {
        QList<long> places;
        for (long line = 0; line < lines(); ++line) {
            const long y = line * f.box.SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, 0UL);
            places << f.box.SendScintilla(QsciScintillaBase::SCI_POSITIONFROMPOINT, 0UL, y);
        }
        return places;
    };
    f.box.grab();
    const QList<long> plain = starts();
    QVERIFY(plain.size() > 10);
    QByteArray marks(text.size(), 0);
    for (char& mark : marks)
        mark = char(chance.bounded(4));
    f.box.setColors(0, marks, {0x0000FF, 0x00FF00, 0xFF0000});
    f.box.grab();
    QCOMPARE(starts(), plain);
}

void TestRichTextBox::coloursAreNoPartOfTheText()
{
    Fixture f;
    f.start("hello world");
    f.select(0, 8);
    f.box.setSelColor(0x0000FF);
    QCOMPARE(f.told(), QString());
    QCOMPARE(f.box.Text(), QByteArray("hello world"));
    f.box.undo();
    QCOMPARE(f.box.colorAt(0), 0x0000FF);
    f.box.setSelStart(1);
    QTest::keyClicks(&f.box, QStringLiteral("x"));
    f.box.undo();
    QCOMPARE(f.box.colorAt(7), 0x0000FF);
    QCOMPARE(f.box.colorAt(8), 0);
    f.box.setText("hello world");
    QCOMPARE(f.box.colorAt(0), 0);
}

void TestRichTextBox::look()
{
    Fixture f;
    QCOMPARE(f.box.BackColor(), 0xFFFFFF);
    f.box.setBackColor(0x2010C0);
    QCOMPARE(f.box.BackColor(), 0x2010C0);
    const QPoint corner(f.box.viewport()->width() - 3, f.box.viewport()->height() - 3);
    QCOMPARE(f.box.viewport()->grab().toImage().pixelColor(corner), QColor(0xC0, 0x10, 0x20));

    f.start("iiiiiiiiii");
    const int narrow = f.at(10).x();
    QFont font(QStringLiteral("Courier New"));
    font.setPointSizeF(10.5);
    font.setBold(true);
    font.setItalic(true);
    f.box.setTextFont(font);
    QCOMPARE(f.box.textFont(), font);
    QVERIFY(f.at(10).x() > narrow);
    const QImage slanted = f.box.viewport()->grab().toImage();
    font.setItalic(false);
    f.box.setTextFont(font);
    QVERIFY(f.box.viewport()->grab().toImage() != slanted);
    font.setPointSizeF(20);
    f.box.setTextFont(font);
    QVERIFY(f.at(10).x() > narrow * 3 / 2);
    QCOMPARE(f.box.BackColor(), 0x2010C0);

    f.start(QByteArray("word ").repeated(100)); // goes on below
    QVERIFY(f.at(499).y() > f.at(0).y());
    QVERIFY(f.at(499).x() < f.box.viewport()->width());
}

/// What is selected has the desktop's colours, also when they change.
void TestRichTextBox::selectionFollowsTheDesktop()
{
    Fixture f;
    f.start("          x");
    f.select(0, 10);
    const QPoint blank = f.at(5) + QPoint(0, 2);
    for (const QColor& color : {QColor(10, 200, 30), QColor(200, 110, 130)}) {
        QPalette palette = f.box.palette();
        palette.setColor(QPalette::Highlight, color);
        f.box.setPalette(palette);
        QTRY_COMPARE(f.box.viewport()->grab().toImage().pixelColor(blank), color);
    }
}

void TestRichTextBox::selectionCanBeRead_data()
{
    QTest::addColumn<QColor>("highlight");
    QTest::addColumn<bool>("ownsSelection");
    for (const bool owns : {true, false}) {
        const char* owner = owns ? "ours" : "another's";
        QTest::addRow("light, %s", owner) << QColor(0x30, 0x8C, 0xC6) << owns;
        QTest::addRow("dark, %s", owner) << QColor(0x2A, 0x6F, 0xB5) << owns;
        QTest::addRow("deep, %s", owner) << QColor(0x00, 0x00, 0x80) << owns;
    }
}

/// Also while another window owns the desktop's selection.
void TestRichTextBox::selectionCanBeRead()
{
    QFETCH(QColor, highlight);
    QFETCH(bool, ownsSelection);
    Fixture f;
    QPalette palette = f.box.palette();
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    f.box.setPalette(palette);
    QFont large = f.box.textFont();
    large.setPointSizeF(40); // thick strokes have their colour
    f.box.setTextFont(large);
    f.start("HHHH");
    f.select(0, 4);
    if (!ownsSelection)
        emit QGuiApplication::clipboard()->selectionChanged(); // as the desktop tells of another's
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double channel) {
            return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const QImage shown = f.box.viewport()->grab().toImage();
    const double back = luminance(shown.pixelColor(f.at(1) + QPoint(0, 2)));
    double best = 1; // the caret stands behind the last letter
    for (int x = f.at(0).x(); x < f.at(3).x(); ++x) {
        const double ink = luminance(shown.pixelColor(x, f.at(0).y() + f.box.fontMetrics().height()));
        best = qMax(best, (qMax(ink, back) + 0.05) / (qMin(ink, back) + 0.05));
    }
    QVERIFY2(best >= 4.5, qPrintable(QString::number(best)));
}

/// The caret stands at the end of what was selected: there the selection grows.
void TestRichTextBox::selectionGrowsAtItsEnd()
{
    Fixture f;
    f.start("0123456789");
    f.select(2, 3);
    QTest::keyClick(&f.box, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(f.box.SelText(), QByteArray("2345"));
}

void TestRichTextBox::caretShowsOnEveryBackground()
{
    RichTextBox box;
    const auto caretColor = [&box] { return box.SendScintilla(RichTextBox::SCI_GETCARETFORE); };
    QCOMPARE(caretColor(), 0x000000);
    box.setBackColor(0x400000);
    QCOMPARE(caretColor(), 0xFFFFFF);
    box.setBackColor(0xFFFF80);
    QCOMPARE(caretColor(), 0x000000);
}

void TestRichTextBox::accessibleName()
{
    RichTextBox box;
    box.setAccessibleName(QStringLiteral("HTML source"));
    box.setText("caf\xE9");
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&box);
    QVERIFY(interface);
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("HTML source"));
    QVERIFY(interface->textInterface());
    QCOMPARE(interface->textInterface()->text(0, 4), QStringLiteral("café"));
}

// The keyboard --------------------------------------------------------------------------------------------

void TestRichTextBox::typing()
{
    Fixture f;
    f.start("");
    QTest::keyClicks(&f.box, QStringLiteral("ab"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 1+0, KeyUp 41, Change, Sel 2+0, KeyUp 42"));
    QKeyEvent held(QEvent::KeyRelease, Qt::Key_B, Qt::NoModifier, QStringLiteral("b"), true);
    QApplication::sendEvent(&f.box, &held); // a key that is held down is not let go
    QCOMPARE(f.told(), QString());
    QTest::keyClick(&f.box, Qt::Key_Return);
    QCOMPARE(f.box.Text(), QByteArray("ab\r\n"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 4+0, KeyUp 1000004"));
    f.type(QStringLiteral("é"));
    f.type(QStringLiteral("€"));
    QCOMPARE(f.box.Text(), QByteArray("ab\r\n\xC3\xA9\xE2\x82\xAC"));
    f.select(0, 4);
    QTest::keyClicks(&f.box, QStringLiteral("x"));
    QCOMPARE(f.box.Text(), QByteArray("x\xC3\xA9\xE2\x82\xAC"));
}

void TestRichTextBox::editingKeys()
{
    ScriptedDoors script;
    Fixture f;
    f.start("ab\r\ncd");
    QTest::keyClick(&f.box, Qt::Key_End);
    QCOMPARE(f.told(), QStringLiteral("Sel 2+0, KeyUp 1000011"));
    QTest::keyClick(&f.box, Qt::Key_Right);
    QCOMPARE(f.told(), QStringLiteral("Sel 4+0, KeyUp 1000014"));
    QTest::keyClick(&f.box, Qt::Key_Backspace);
    QCOMPARE(f.box.Text(), QByteArray("abcd"));
    QTest::keyClick(&f.box, Qt::Key_Delete);
    QCOMPARE(f.box.Text(), QByteArray("abd"));
    QTest::keyClick(&f.box, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(f.box.SelText(), QByteArray("b"));
    QTest::keyClick(&f.box, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(f.box.SelText(), QByteArray("abd"));
    QTest::keyClick(&f.box, Qt::Key_X, Qt::ControlModifier);
    QVERIFY(f.box.isEmpty());
    QTest::keyClick(&f.box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&f.box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(f.box.Text(), QByteArray("abdabd"));
    QTest::keyClick(&f.box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(f.box.Text(), QByteArray("abd"));
    QTest::keyClick(&f.box, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(f.box.isEmpty());
    QTest::keyClick(&f.box, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(f.box.Text(), QByteArray("abd"));
    QTest::keyClick(&f.box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(f.box.Text(), QByteArray("abdabd"));
}

void TestRichTextBox::typingIntoWesternText()
{
    Fixture f;
    f.start("\xC9");
    f.box.setSelStart(1);
    f.told();
    f.type(QStringLiteral("é"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 2+0, KeyUp 1ffffff"));
    f.type(QStringLiteral("€"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 3+0, KeyUp 1ffffff"));
    f.type(QStringLiteral("ő"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 9+0, KeyUp 1ffffff"));
    QCOMPARE(f.box.Text(), QByteArray("\xC9\xE9\x80&#337;"));
    QTest::keyClick(&f.box, Qt::Key_Left);
    QTest::keyClick(&f.box, Qt::Key_Home);
    QTest::keyClick(&f.box, Qt::Key_Delete);
    QCOMPARE(f.box.Text(), QByteArray("\xE9\x80&#337;"));
    f.box.undo();
    f.box.undo();
    f.box.redo();
    f.box.redo();
    QCOMPARE(f.box.Text(), QByteArray("\xE9\x80&#337;"));
}

/// A letter that is meant for a button of another window, which has just gone, is none of the text.
void TestRichTextBox::commandsTypeNothing()
{
    Fixture f;
    f.start("ab\xE9"); // Western
    for (const QString& letter : {QStringLiteral("e"), QStringLiteral("ő")}) {
        for (const Qt::KeyboardModifiers command :
             {Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(Qt::MetaModifier),
              Qt::KeyboardModifiers(Qt::ControlModifier), Qt::AltModifier | Qt::ShiftModifier})
            QTest::sendKeyEvent(QTest::Click, &f.box, Qt::Key_E, letter, command);
    }
    QCOMPARE(f.box.Text(), QByteArray("ab\xE9"));
    QTest::sendKeyEvent(QTest::Click, &f.box, Qt::Key_E, QStringLiteral("€"),
                        Qt::ControlModifier | Qt::AltModifier); // AltGr, as some platforms tell it
    QCOMPARE(f.box.Text(), QByteArray("\x80\x61\x62\xE9"));
}

void TestRichTextBox::composing()
{
    Fixture f;
    f.start("ab");
    f.box.setSelStart(1);
    f.told();
    f.compose(QStringLiteral("´"), QString());
    QCOMPARE(f.box.Text(), QByteArray("ab"));
    QCOMPARE(f.told(), QString());
    const auto* preedit = f.box.viewport()->findChild<QLabel*>();
    QVERIFY(preedit && preedit->isVisible());
    QCOMPARE(preedit->text(), QStringLiteral("´"));

    f.compose(QString(), QStringLiteral("é😀"));
    QVERIFY(!preedit->isVisible());
    QCOMPARE(f.box.Text(), QByteArray("a\xC3\xA9\xF0\x9F\x98\x80"
                                      "b"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 7+0"));

    QInputMethodEvent replacing(QString(), {});
    replacing.setCommitString(QStringLiteral("x"), -3, 3);
    QApplication::sendEvent(&f.box, &replacing);
    QCOMPARE(f.box.Text(), QByteArray("axb"));

    f.start("\xE9");
    f.compose(QString(), QStringLiteral("è日"));
    QCOMPARE(f.box.Text(), QByteArray("\xE8&#26085;\xE9"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 9+0"));
}

/// By a key or an input method, when all else has been told; not what comes in any other way.
void TestRichTextBox::tellsWhatIsTyped()
{
    ScriptedDoors script;
    Fixture f;
    QByteArray typed;
    connect(&f.box, &RichTextBox::Typed, this,
            [&] { typed += '|' + f.told().toLatin1() + ' ' + f.box.Text(); });
    const auto taken = [&] { return std::exchange(typed, QByteArray()); };
    f.start("");
    QTest::keyClick(&f.box, Qt::Key_A);
    QCOMPARE(taken(), QByteArray("|Change, Sel 1+0 a"));
    f.start("\xE9"); // takes no such letter
    f.type(QStringLiteral("日"));
    QCOMPARE(taken(), QByteArray("|Change, Sel 8+0 &#26085;\xE9"));
    f.start("");
    f.compose(QString(), QStringLiteral("b"));
    QCOMPARE(taken(), QByteArray("|Change, Sel 1+0 b"));
    f.compose(QStringLiteral("c"), QString());
    f.compose(QStringLiteral("c"), QStringLiteral("d"));
    f.compose(QString(), QString());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Shift})
        QTest::keyClick(&f.box, key);
    QTest::keyClick(&f.box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&f.box, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&f.box, Qt::Key_V, Qt::ControlModifier);
    f.box.setSelText("e");
    f.box.setReadOnly(true);
    QTest::keyClick(&f.box, Qt::Key_A);
    f.compose(QString(), QStringLiteral("b"));
    QCOMPARE(taken(), QByteArray());
}

void TestRichTextBox::stretchesOfUtf8()
{
    Fixture f;
    f.start("caf\xE9s");
    QCOMPARE(f.box.utf8Between(2, 5), QByteArray("f\xC3\xA9"));
    QCOMPARE(f.box.utf8Between(-5, 2), QByteArray("ca"));
    QCOMPARE(f.box.utf8Between(5, 500), QByteArray("s"));
    QCOMPARE(f.box.utf8Between(500, 600), QByteArray());
    QCOMPARE(f.box.utf8Between(3, 1), QByteArray());
    f.start(QByteArray("a\0b", 3));
    QCOMPARE(f.box.utf8Between(0, 3), QByteArray("a\0b", 3));
}

void TestRichTextBox::placesThatAreSeen()
{
    Fixture f;
    f.start("one\r\ntwo");
    const QRect first = f.box.seenAt(0);
    const QRect second = f.box.seenAt(5);
    QCOMPARE(first.left(), second.left());
    QCOMPARE(first.bottom() + 1, second.top()); // one line below the other
    QVERIFY(f.box.seenAt(1).left() > first.left());
    QCOMPARE(f.box.shownFont().pointSizeF(), QFontInfo(f.box.textFont()).pointSizeF());
    f.box.setZoom(200);
    QCOMPARE(f.box.shownFont().pointSizeF(), 2 * QFontInfo(f.box.textFont()).pointSizeF());
    QVERIFY(f.box.seenAt(0).height() > first.height());
    f.start(QByteArray("line\r\n").repeated(100));
    f.box.setSelStart(600);
    QVERIFY(f.box.seenAt(600).top() > f.box.viewport()->height());
    f.box.showCaret();
    QVERIFY(f.box.viewport()->rect().contains(f.box.seenAt(600).topLeft()));
}

void TestRichTextBox::tabTypesAndCtrlTabLeaves()
{
    Fixture f;
    f.start("  a\r\nb");
    QTest::keyClick(&f.box, Qt::Key_Tab);
    QCOMPARE(f.box.Text(), QByteArray("\t  a\r\nb"));
    QVERIFY(f.box.hasFocus());
    f.select(0, 6);
    QTest::keyClick(&f.box, Qt::Key_Tab);
    QCOMPARE(f.box.Text(), QByteArray("\tb"));

    QTest::keyClick(&f.box, Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(f.after.hasFocus());
    f.box.setFocus();
    QTest::keyClick(&f.box, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(f.before.hasFocus());
    f.box.setFocus();
    QTest::keyClick(&f.box, Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(f.before.hasFocus());
    QCOMPARE(f.box.Text(), QByteArray("\tb"));
}

void TestRichTextBox::controlKeysTypeNothing()
{
    Fixture f;
    f.start("Aa\r\nBb");
    f.box.setSelLength(1);
    for (const int key : {Qt::Key_D, Qt::Key_G, Qt::Key_K, Qt::Key_L, Qt::Key_T, Qt::Key_U}) {
        QTest::keyClick(&f.box, static_cast<Qt::Key>(key), Qt::ControlModifier);
        QTest::keyClick(&f.box, static_cast<Qt::Key>(key), Qt::ControlModifier | Qt::ShiftModifier);
    }
    QTest::keyClick(&f.box, Qt::Key_Escape);
    QCOMPARE(f.box.Text(), QByteArray("Aa\r\nBb"));
}

void TestRichTextBox::keysAgainstMenuShortcuts()
{
    ScriptedDoors script;
    QMainWindow window;
    auto* box = new RichTextBox;
    window.setCentralWidget(box);
    QStringList ran;
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Menu"));
    for (const char* keys : {"Del", "Home", "X", "Return", "F5", "Ctrl+S"}) {
        const QString name = QString::fromLatin1(keys);
        menu->addAction(name, QKeySequence(name), &window, [&ran, name] { ran << name; });
    }
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.activateWindow();
    box->setFocus();
    QTRY_VERIFY(box->hasFocus());
    box->load("abc");
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClick(box, Qt::Key_End);
    QTest::keyClick(box, Qt::Key_Home);
    QTest::keyClick(box, Qt::Key_X);
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(box->Text(), QByteArray("x\r\nbc"));
    QTest::keyClick(box, Qt::Key_F5);
    QTest::keyClick(box, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(ran, (QStringList{"F5", "Ctrl+S"}));
}

// The mouse -----------------------------------------------------------------------------------------------

void TestRichTextBox::click()
{
    Fixture f;
    f.start("0123456789");
    QTest::mouseClick(f.box.viewport(), Qt::LeftButton, Qt::NoModifier, f.at(4));
    QCOMPARE(f.told(), QStringLiteral("Sel 4+0, Click"));
    QTest::mouseClick(f.box.viewport(), Qt::RightButton, Qt::NoModifier, f.at(4));
    QCOMPARE(f.told(), QString());
    QTest::mousePress(f.box.viewport(), Qt::LeftButton, Qt::NoModifier, f.at(9));
    QTest::mouseRelease(f.box.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    QVERIFY(!f.told().contains(QLatin1String("Click")));
    QTest::mouseClick(f.box.viewport(), Qt::LeftButton, Qt::ShiftModifier, f.at(7));
    QCOMPARE(f.told().section(QLatin1String(", "), -1), QStringLiteral("Click"));
    QVERIFY(f.box.SelLength() > 0);
}

void TestRichTextBox::dragSelects()
{
    Fixture f;
    f.start("0123456789\r\nabcdefghij");
    f.drag(2, 8);
    QCOMPARE(f.box.SelText(), QByteArray("234567"));
    QCOMPARE(f.told(), QStringLiteral("Sel 2+0, Sel 2+6, Click"));
    f.drag(16, 12);
    QCOMPARE(f.box.SelText(), QByteArray("abcd"));
}

void TestRichTextBox::doubleClickSelectsTheWord()
{
    Fixture f;
    f.start("one <second> third");
    QTest::mouseClick(f.box.viewport(), Qt::LeftButton, Qt::NoModifier, f.at(7));
    QTest::mouseDClick(f.box.viewport(), Qt::LeftButton, Qt::NoModifier, f.at(7));
    QCOMPARE(f.box.SelText(), QByteArray("second"));
    QVERIFY(f.told().endsWith(QLatin1String("Sel 5+6")));
}

void TestRichTextBox::noRectangles()
{
    Fixture f;
    f.start("0123456789\r\nabcdefghij");
    const QByteArray selected = "123456789\r\nabcd";
    f.drag(1, 16, Qt::ControlModifier);
    QCOMPARE(f.box.SelText(), selected);
    f.drag(21, 2); // elsewhere, lest the next press counts as a double click
    f.drag(1, 16, Qt::AltModifier);
    QCOMPARE(f.box.SelText(), selected);
    QVERIFY(!f.box.SendScintilla(RichTextBox::SCI_SELECTIONISRECTANGLE));
    QTest::keyClick(&f.box, Qt::Key_Up, Qt::AltModifier | Qt::ShiftModifier);
    QVERIFY(!f.box.SendScintilla(RichTextBox::SCI_SELECTIONISRECTANGLE));
}

namespace {

QMenu* openContextMenu(RichTextBox& box)
{
    const QPoint point(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, box.viewport()->mapToGlobal(point));
    QApplication::sendEvent(box.viewport(), &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// "Undo Redo - Cut": the entries' names, those that can't be chosen in brackets.
QString describe(const QMenu& menu)
{
    QStringList names;
    for (const QAction* action : menu.actions()) {
        const QString name = action->text().section(u'\t', 0, 0).remove(u'&');
        names << (action->isSeparator() ? QStringLiteral("-")
                  : action->isEnabled() ? name
                                        : u'[' + name + u']');
    }
    return names.join(u' ');
}

void choose(QMenu* menu, const QString& name)
{
    for (QAction* action : menu->actions()) {
        if (action->text().section(u'\t', 0, 0).remove(u'&') == name)
            action->trigger();
    }
    menu->close();
}

} // namespace

void TestRichTextBox::contextMenu()
{
    ScriptedDoors script;
    Fixture f;
    f.start("abc");
    choose(openContextMenu(f.box), QStringLiteral("Select All"));
    QCOMPARE(f.told(), QStringLiteral("Sel 0+3"));
    choose(openContextMenu(f.box), QStringLiteral("Cut"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 0+0"));
    choose(openContextMenu(f.box), QStringLiteral("Undo: Cut"));
    QCOMPARE(f.box.Text(), QByteArray("abc"));
    choose(openContextMenu(f.box), QStringLiteral("Redo: Cut"));
    QCOMPARE(f.box.Text(), QByteArray());
    choose(openContextMenu(f.box), QStringLiteral("Paste"));
    QCOMPARE(f.box.Text(), QByteArray("abc"));
    f.select(1, 1);
    choose(openContextMenu(f.box), QStringLiteral("Copy"));
    choose(openContextMenu(f.box), QStringLiteral("Delete"));
    QCOMPARE(f.box.Text(), QByteArray("ac"));
    QCOMPARE(script.clipboard()->text(), QStringLiteral("b"));
}

void TestRichTextBox::contextMenuOffersWhatIsPossible()
{
    ScriptedDoors script;
    Fixture f;
    f.start("");
    QMenu* menu = openContextMenu(f.box);
    QCOMPARE(describe(*menu), QStringLiteral("[Undo] [Redo] - [Cut] [Copy] [Paste] [Delete] - [Select All]"));
    menu->close();
    Clipboard::SetText(QStringLiteral("x"));
    f.box.setText("abc");
    f.box.setSelLength(1);
    menu = openContextMenu(f.box);
    QCOMPARE(describe(*menu), QStringLiteral("Undo: Typing [Redo] - Cut Copy Paste Delete - Select All"));
    menu->close();
    f.box.setSelLength(0);
    menu = openContextMenu(f.box);
    QCOMPARE(describe(*menu),
             QStringLiteral("Undo: Typing [Redo] - [Cut] [Copy] Paste [Delete] - Select All"));
    menu->close();
}

// The clipboard and drops ---------------------------------------------------------------------------------

void TestRichTextBox::clipboardKeepsBytes()
{
    ScriptedDoors script;
    Fixture f;
    f.start(allBytes());
    f.box.selectAll();
    f.box.copy();
    QCOMPARE(script.clipboard()->text().size(), 256);
    f.box.setSelStart(256);
    f.box.paste();
    QCOMPARE(f.box.Text(), allBytes() + allBytes());
    QCOMPARE(f.box.SelStart(), 512);

    const QByteArray odd("a\0b\n\r\xEF\xBB\xBF", 8);
    f.start(odd);
    f.box.selectAll();
    f.box.cut();
    QVERIFY(f.box.isEmpty());
    f.box.paste();
    QCOMPARE(f.box.Text(), odd);
}

void TestRichTextBox::pasteOfForeignText()
{
    ScriptedDoors script;
    Fixture f;
    Clipboard::SetText(QStringLiteral("ö€\nő\r\nx\ry"));
    f.start("ab");
    f.select(1, 1);
    f.box.paste();
    QCOMPARE(f.box.Text(), QByteArray("a\xC3\xB6\xE2\x82\xAC\r\n\xC5\x91\r\nx\r\ny"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 16+0"));
    f.box.undo();
    QCOMPARE(f.box.Text(), QByteArray("ab"));

    f.start("\xE9");
    f.box.paste();
    QCOMPARE(f.box.Text(), QByteArray("\xF6\x80\r\n&#337;\r\nx\r\ny\xE9"));

    Clipboard::Clear();
    f.start("ab");
    f.select(0, 2);
    f.box.paste();
    QCOMPARE(f.box.Text(), QByteArray("ab"));
    QCOMPARE(f.told(), QString());
}

void TestRichTextBox::pasteBetweenEncodings()
{
    ScriptedDoors script;
    RichTextBox western;
    RichTextBox utf8;
    western.setText("\xE9\x80");
    western.selectAll();
    western.copy();
    utf8.paste();
    QCOMPARE(utf8.Text(), QByteArray("\xC3\xA9\xE2\x82\xAC"));
    utf8.setText("\xC3\xA9\xC5\x91");
    utf8.selectAll();
    utf8.copy();
    western.paste();
    QCOMPARE(western.Text(), QByteArray("\xE9&#337;"));
}

void TestRichTextBox::emptySelectionLeavesTheClipboard()
{
    ScriptedDoors script;
    Clipboard::SetText(QStringLiteral("kept"));
    RichTextBox box;
    box.setText("abc");
    box.copy();
    box.cut();
    QCOMPARE(box.Text(), QByteArray("abc"));
    QCOMPARE(Clipboard::GetText(), QStringLiteral("kept"));
}

void TestRichTextBox::dropOfText()
{
    Fixture f;
    f.start("0123456789");
    f.select(0, 2);
    QMimeData data;
    data.setText(QStringLiteral("a\nő"));
    QVERIFY(f.drop(data, 5).taken);
    QCOMPARE(f.box.Text(), QByteArray("01234a\r\n\xC5\x91"
                                      "56789"));
    QCOMPARE(f.told(), QStringLiteral("Change, Sel 5+5"));
    QTest::keyClick(&f.box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(f.box.Text(), QByteArray("0123456789"));

    f.start("0123456789\xE9");
    QVERIFY(f.drop(data, 5).taken);
    QCOMPARE(f.box.Text(), QByteArray("01234a\r\n&#337;56789\xE9"));
}

void TestRichTextBox::dropOfOwnTextKeepsBytes()
{
    ScriptedDoors script;
    Fixture f;
    f.start(QByteArray("a\0\n\rb", 5));
    f.box.selectAll();
    f.box.copy(); // a drag carries the same
    f.start("0123456789");
    QVERIFY(f.drop(*script.clipboard(), 5).taken);
    QCOMPARE(f.box.Text(), QByteArray("01234a\0\n\rb56789", 15));
}

void TestRichTextBox::dropIsAStepOfItsOwn()
{
    Fixture f;
    f.start(QByteArray());
    QTest::keyClicks(&f.box, QStringLiteral("abc"));
    QMimeData data;
    data.setText(QStringLiteral("xyz"));
    QVERIFY(f.drop(data, 3).taken); // right behind what was typed
    f.box.setSelStart(6);
    QTest::keyClicks(&f.box, QStringLiteral("def"));
    QCOMPARE(f.box.Text(), QByteArray("abcxyzdef"));
    QTest::keyClick(&f.box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(f.box.Text(), QByteArray("abcxyz"));
    QTest::keyClick(&f.box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(f.box.Text(), QByteArray("abc"));
}

void TestRichTextBox::colorsMoveAlongWithADrop()
{
    Fixture f;
    f.start("0123456789");
    f.select(6, 2);
    f.box.setSelColor(0x0000FF);
    QMimeData data;
    data.setText(QStringLiteral("abc"));
    QVERIFY(f.drop(data, 2).taken);
    QCOMPARE(f.box.Text(), QByteArray("01abc23456789"));
    for (int i = 0; i < 13; ++i)
        QCOMPARE(f.box.colorAt(i), i == 9 || i == 10 ? 0x0000FF : 0);
}

void TestRichTextBox::dropOfAFile_data()
{
    QTest::addColumn<QList<QUrl>>("dropped");
    QTest::addColumn<QStringList>("taken");

    QVERIFY(m_files.isValid());
    const auto file = [this](const char* name) {
        return QUrl::fromLocalFile(m_files.filePath(QLatin1String(name)));
    };
    for (const char* name : {"first.htm", "\xC5\x91 #1%20.txt", "photo.JPG"})
        QFile(m_files.filePath(QString::fromUtf8(name))).open(QIODevice::WriteOnly);
    const QUrl folder = QUrl::fromLocalFile(m_files.path());
    const QUrl address(QStringLiteral("http://127.0.0.1/page.htm"));
    const QString first = m_files.filePath(QStringLiteral("first.htm"));
    const QString second = m_files.filePath(QString::fromUtf8("\xC5\x91 #1%20.txt"));

    QTest::newRow("one") << QList{file("first.htm")} << QStringList{first};
    QTest::newRow("any letters") << QList{QUrl::fromLocalFile(second)} << QStringList{second};
    QTest::newRow("several") << QList{file("first.htm"), QUrl::fromLocalFile(second)}
                             << QStringList{first, second};
    QTest::newRow("several, in the other order")
        << QList{QUrl::fromLocalFile(second), file("first.htm")} << QStringList{second, first};
    QTest::newRow("picture") << QList{file("photo.JPG")}
                             << QStringList{m_files.filePath(QStringLiteral("photo.JPG"))};
    QTest::newRow("behind a folder") << QList{folder, file("first.htm")} << QStringList{first};
    QTest::newRow("behind an address") << QList{address, file("first.htm")} << QStringList{first};
    QTest::newRow("behind a file that is gone")
        << QList{file("gone.htm"), file("first.htm")} << QStringList{first};
    QTest::newRow("folder") << QList{folder} << QStringList();
    QTest::newRow("address") << QList{address} << QStringList();
    QTest::newRow("file of another machine")
        << QList{QUrl(QStringLiteral("smb://machine/page.htm"))} << QStringList();
    QTest::newRow("file that is gone") << QList{file("gone.htm")} << QStringList();
    QTest::newRow("device") << QList{QUrl::fromLocalFile(QStringLiteral("/dev/zero"))} << QStringList();
}

/// The box tells which files and where; the text stays as it is, and whatever is proposed, a file is only
/// copied.
void TestRichTextBox::dropOfAFile()
{
    QFETCH(QList<QUrl>, dropped);
    QFETCH(QStringList, taken);
    Fixture f;
    f.start("0123456789");
    QStringList told;
    connect(&f.box, &RichTextBox::FilesDropped, &f,
            [&told](const QStringList& paths, int position) { told << paths << QString::number(position); });
    const QStringList expected = taken.isEmpty() ? taken : taken + QStringList{QStringLiteral("5")};
    QMimeData data;
    data.setUrls(dropped);
    data.setText(dropped.first().toString());
    for (const auto& offered : {QList{Qt::CopyAction}, QList{Qt::MoveAction, Qt::CopyAction, Qt::LinkAction},
                                QList{Qt::LinkAction, Qt::CopyAction}}) {
        const DropAnswer answer = f.drop(data, 5, offered);
        QCOMPARE(answer.taken, !taken.isEmpty());
        if (answer.taken)
            QCOMPARE(answer.action, Qt::CopyAction);
        QCOMPARE(told, QStringList()); // the drop comes to its end first
        QCoreApplication::processEvents();
        QCOMPARE(std::exchange(told, {}), expected);
    }
    QVERIFY(!f.drop(data, 5, {Qt::MoveAction}).taken); // nothing but a move is offered
    QCoreApplication::processEvents();
    QCOMPARE(told, QStringList());
    QCOMPARE(f.box.Text(), QByteArray("0123456789"));
    QCOMPARE(f.told(), QString());
}

/// Another program may end while its file is over the box: that is no drop, or one of what was seen of it.
void TestRichTextBox::fileThatIsLetGo()
{
    constexpr int Most = 20; // more than any toolkit asks for
    for (const char* name : {"README.md", "data/help/wait.png"}) {
        const QString path = QStringLiteral(SOURCE_DIR "/") + QLatin1String(name);
        int taken = 0;
        for (int answers = 0; answers < Most; ++answers) {
            Fixture f;
            f.start("0123456789");
            QStringList told;
            connect(&f.box, &RichTextBox::FilesDropped, &f,
                    [&told](const QStringList& paths, int) { told << paths; });
            const LosableFile file(QUrl::fromLocalFile(path), answers);
            const bool dropped = f.drop(file, 5).taken;
            QCoreApplication::processEvents();
            QCOMPARE(told, dropped ? QStringList(path) : QStringList());
            QCOMPARE(f.box.Text(), QByteArray("0123456789"));
            taken += dropped;
        }
        QVERIFY2(taken > 0 && taken < Most, qPrintable(QString::number(taken)));
    }
}

void TestRichTextBox::dropOfNoText()
{
    Fixture f;
    f.start("0123456789");
    QMimeData data;
    data.setImageData(QImage(2, 2, QImage::Format_RGB32));
    QVERIFY(!f.drop(data, 5).taken);
    QCOMPARE(f.box.Text(), QByteArray("0123456789"));
}

/// A question may stand before the user, or the text be about to be replaced.
void TestRichTextBox::noDropWhileAHandlerRuns()
{
    Fixture f;
    f.start("0123456789");
    QMimeData text;
    text.setText(QStringLiteral("abc"));
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(QStringLiteral(SOURCE_DIR "/README.md"))});
    guarded([&] {
        QVERIFY(!f.drop(text, 5).taken);
        QVERIFY(!f.drop(file, 5).taken);
    });
    QCOMPARE(f.box.Text(), QByteArray("0123456789"));
    QVERIFY(f.drop(text, 5).taken);
}

/// A handler that has begun meanwhile comes to its end first.
void TestRichTextBox::droppedFileWaitsForHandlers()
{
    Fixture f;
    f.start("0123456789");
    QSignalSpy told(&f.box, &RichTextBox::FilesDropped);
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(QStringLiteral(SOURCE_DIR "/README.md"))});
    QVERIFY(f.drop(file, 5).taken);
    guarded([&] {
        QCoreApplication::processEvents();
        QCOMPARE(told.size(), 0);
    });
    QCOMPARE(told.size(), 1);
}

/// A clipboard for which there is no memory.
class FullClipboard : public ScriptedDoors
{
public:
    void setClipboard(std::unique_ptr<QMimeData>) override { throw std::bad_alloc(); }
    const QMimeData* clipboard() override { throw std::bad_alloc(); }
};

/// An event is no handler, and the toolkit's frames are around it all the same.
void TestRichTextBox::keyThatFailsEndsTheProgram()
{
    FullClipboard desktop;
    desktop.answerMsgBox(MsgAnswer::Ok);
    Fixture f;
    f.start("0123456789");
    f.box.selectAll();
    QTest::keyClick(&f.box, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(desktop.asked,
             QStringList{QStringLiteral("MsgBox|Brindlemark|Run-time error '6':\n\nOut of memory|Stop|Ok")});
    QVERIFY(desktop.endedAtOnce);
    QCOMPARE(f.box.Text(), QByteArray("0123456789"));
}

void TestRichTextBox::menuThatFailsEndsTheProgram()
{
    FullClipboard desktop;
    desktop.answerMsgBox(MsgAnswer::Ok);
    Fixture f;
    f.start("0123456789");
    QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(5, 5),
                            f.box.viewport()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(f.box.viewport(), &asked);
    QCOMPARE(desktop.asked,
             QStringList{QStringLiteral("MsgBox|Brindlemark|Run-time error '6':\n\nOut of memory|Stop|Ok")});
    QVERIFY(desktop.endedAtOnce);
}

// Long texts -----------------------------------------------------------------------------------------------

void TestRichTextBox::hourglassOverLongTexts_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("expected");
    QTest::newRow("short") << 1000 << false;
    QTest::newRow("long") << 10'000'000 << true;
}

/// It stands while the text changes, and for no longer.
void TestRichTextBox::hourglassOverLongTexts()
{
    QFETCH(int, length);
    QFETCH(bool, expected);
    ScriptedDoors script;
    RichTextBox box;
    QByteArray line("<P>line\r\n");
    const QByteArray text = line.repeated(length / line.size());
    int changes = 0;
    int hourglasses = 0;
    connect(&box, &RichTextBox::Change, &box, [&] {
        ++changes;
        const QCursor* cursor = QGuiApplication::overrideCursor();
        hourglasses += cursor && cursor->shape() == Qt::WaitCursor;
    });
    const auto after = [&](const char* step, const std::function<void()>& change) {
        change();
        QVERIFY2(changes == 1, step);
        QVERIFY2(hourglasses == (expected ? 1 : 0), step);
        QVERIFY2(!QGuiApplication::overrideCursor(), step);
        changes = hourglasses = 0;
    };
    after("load", [&] { box.load(text); });
    box.selectAll();
    box.copy();
    box.setSelStart(0);
    after("paste", [&] { box.paste(); });
    after("undo", [&] { box.undo(); });
    box.selectAll();
    after("cut", [&] { box.cut(); });
    after("paste", [&] { box.paste(); });
    QCOMPARE(box.Text().size(), text.size());
    QCOMPARE(box.Find("not there"), -1);
    QVERIFY(!QGuiApplication::overrideCursor());
}

// All together --------------------------------------------------------------------------------------------

namespace {

/// What the box must do, on plain bytes.
struct Model
{
    QByteArray text;
    int start = 0;
    int length = 0;

    bool operator==(const Model&) const = default;

    void select(int from, int count)
    {
        start = std::min<int>(from, static_cast<int>(text.size()));
        length = std::min<int>(count, static_cast<int>(text.size()) - start);
    }
    void replace(const QByteArray& inserted)
    {
        text.replace(start, length, inserted);
        select(start + static_cast<int>(inserted.size()), 0);
    }
};

} // namespace

void TestRichTextBox::agreesWithModel_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA9");
    QTest::newRow("Western") << QByteArray("\xE9\x80");
}

/// Random operations on the box and on the model; text, selection and notifications agree after each.
void TestRichTextBox::agreesWithModel()
{
    static const QList<QByteArray> pieces = {
        "\r\n", "\r",   "\n",       "\xC3\xA9",         "\xE9", "abc", "<b>",
        "\x80", "\xAC", "\xE2\x82", "\xF0\x9F\x98\x80", "x",    ""};
    QFETCH(QByteArray, first);
    QRandomGenerator random(20031);
    const auto anyPiece = [&] {
        return random.bounded(20) == 0 ? QByteArray("\0q", 2) : pieces[random.bounded(int(pieces.size()))];
    };

    RichTextBox box;
    int changes = 0;
    int selChanges = 0;
    connect(&box, &RichTextBox::Change, this, [&] { ++changes; });
    connect(&box, &RichTextBox::SelChange, this, [&] { ++selChanges; });

    Model model;
    QList<QByteArray> undo;
    QList<QByteArray> redo;
    const auto begin = [&] {
        model = {first, 0, 0};
        box.load(first);
        undo.clear();
        redo.clear();
    };
    const auto remember = [&](const QByteArray& before) {
        undo << before;
        redo.clear();
    };
    begin();

    for (int step = 0; step < 30000; ++step) {
        if (step % 500 == 499)
            begin();
        const Model before = model;
        bool all = false; // notifications come whether or not anything has changed
        changes = selChanges = 0;
        switch (const int operation = random.bounded(9)) {
        case 0: {
            const int position = random.bounded(int(model.text.size()) + 3);
            box.setSelStart(position);
            model.select(position, 0);
            break;
        }
        case 1: {
            const int length = random.bounded(6);
            box.setSelLength(length);
            model.select(model.start, length);
            break;
        }
        case 2:
        case 3: {
            const QByteArray piece = anyPiece();
            box.setSelText(piece);
            model.replace(piece);
            if (model.text != before.text)
                remember(before.text);
            break;
        }
        case 4: {
            // A Western text never finds half of a character's bytes, as each byte is a character.
            const QByteArray piece = anyPiece();
            const int from = random.bounded(int(model.text.size()) + 1);
            const int expected = piece.isEmpty() ? -1 : int(model.text.indexOf(piece, from));
            QCOMPARE(box.Find(piece, from, -1, MatchCase), expected);
            if (expected >= 0)
                model.select(expected, int(piece.size()));
            break;
        }
        case 5:
            box.setSelColor(random.bounded(0x1000000));
            break;
        case 6:
        case 7: {
            QList<QByteArray>& from = operation == 6 ? undo : redo;
            QList<QByteArray>& to = operation == 6 ? redo : undo;
            operation == 6 ? box.undo() : box.redo();
            if (!from.isEmpty()) {
                to << model.text;
                model.text = from.takeLast();
            }
            model.start = box.SelStart(); // where undo leaves the caret is up to the box
            model.length = box.SelLength();
            break;
        }
        default:
            if (random.bounded(40) == 0) {
                model = {anyPiece() + anyPiece() + anyPiece() + first, 0, 0};
                box.setText(model.text);
                remember(before.text);
                all = true;
            }
            break;
        }
        const std::string where = "step " + std::to_string(step);
        QVERIFY2(box.Text() == model.text, where.c_str());
        QVERIFY2(box.SelStart() == model.start && box.SelLength() == model.length, where.c_str());
        QVERIFY2(box.SelText() == model.text.mid(model.start, model.length), where.c_str());
        QVERIFY2(changes == (all || model.text != before.text), where.c_str());
        const bool moved = model.start != before.start || model.length != before.length;
        QVERIFY2(selChanges == (all || moved), where.c_str());
    }
    changes = selChanges = 0;
    QCoreApplication::processEvents();
    QCOMPARE(changes + selChanges, 0);
}

QTEST_MAIN(TestRichTextBox)
#include "tst_richtextbox.moc"
