// SPDX-License-Identifier: GPL-3.0-or-later

// The source box as a screen reader meets it: text, caret and selection, counted in UTF-16 units, and what it
// is told of changes.

#include "Random.h"
#include "Widgets.h"
#include "source/RichTextBox.h"

#include <QAccessible>
#include <QApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace brindlemark;

namespace {

/// What a reader knows that has heard every change since the box was empty.
struct Reader
{
    QString text;
    int caret = 0;
    int start = 0; ///< of the selection
    int end = 0;
    QStringList heard;
};

Reader* s_reader = nullptr;

void hear(QAccessibleEvent* event)
{
    switch (event->type()) {
    case QAccessible::TextInserted: {
        const auto& inserted = static_cast<QAccessibleTextInsertEvent&>(*event);
        s_reader->text.insert(inserted.changePosition(), inserted.textInserted());
        s_reader->heard
            << QStringLiteral("%1+%2").arg(inserted.changePosition()).arg(inserted.textInserted());
        break;
    }
    case QAccessible::TextRemoved: {
        const auto& removed = static_cast<QAccessibleTextRemoveEvent&>(*event);
        const QString gone = removed.textRemoved();
        QCOMPARE(s_reader->text.mid(removed.changePosition(), gone.size()), gone);
        s_reader->text.remove(removed.changePosition(), gone.size());
        s_reader->heard << QStringLiteral("%1-%2").arg(removed.changePosition()).arg(gone);
        break;
    }
    case QAccessible::TextSelectionChanged: {
        const auto& selected = static_cast<QAccessibleTextSelectionEvent&>(*event);
        s_reader->caret = selected.cursorPosition();
        s_reader->start = selected.selectionStart();
        s_reader->end = selected.selectionEnd();
        s_reader->heard << QStringLiteral("@%1").arg(s_reader->caret);
        break;
    }
    default:
        break;
    }
}

/// A box with a reader that listens.
class Fixture
{
public:
    Fixture()
    {
        s_reader = &reader;
        m_before = QAccessible::installUpdateHandler(hear);
        box.resize(600, 300);
        box.show();
        ready = QTest::qWaitForWindowExposed(&box);
    }
    ~Fixture()
    {
        QAccessible::installUpdateHandler(m_before);
        s_reader = nullptr;
    }
    Q_DISABLE_COPY_MOVE(Fixture)

    QAccessibleInterface& interface() { return *QAccessible::queryAccessibleInterface(&box); }
    QAccessibleTextInterface& text() { return *interface().textInterface(); }
    QAccessibleEditableTextInterface& editor() { return *interface().editableTextInterface(); }
    QString heard() { return std::exchange(reader.heard, {}).join(u' '); }

    /// "start-end text" of one of the three questions.
    QString piece(const char* which, int offset, QAccessible::TextBoundaryType boundary)
    {
        int start = -9;
        int end = -9;
        const QString found =
            qstrcmp(which, "before") == 0  ? text().textBeforeOffset(offset, boundary, &start, &end)
            : qstrcmp(which, "after") == 0 ? text().textAfterOffset(offset, boundary, &start, &end)
                                           : text().textAtOffset(offset, boundary, &start, &end);
        return QStringLiteral("%1-%2 %3").arg(start).arg(end).arg(found);
    }

    RichTextBox box;
    Reader reader;
    bool ready = false;

private:
    QAccessible::UpdateHandler m_before = nullptr;
};

// "a" 0, the clef 1 and 2, "€" 3, CR LF 4 and 5, "word" 6 to 9, a blank, "two." 11 to 14, CR LF, "end" 17 to
// 19
const QByteArray ThreeLines = "a\xF0\x9D\x84\x9E\xE2\x82\xAC\r\nword two.\r\nend";

} // namespace

class TestAccessibleSource : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void isATextOfManyLines();
    void textIsCountedInUnits();
    void westernText();
    void caretAndSelection();
    void readerSelects();
    void wordsAndLines_data();
    void wordsAndLines();
    void wholeText();
    void linesOfALongText();
    void placesOnTheScreen();
    void readerEdits();
    void readerDoesNotEditWhatIsOnlyRead();
    void editsAreTold();
    void readerKnowsTheText_data();
    void readerKnowsTheText();
};

void TestAccessibleSource::initTestCase()
{
    QTRY_VERIFY_WITH_TIMEOUT(QAccessible::isActive(), Patience);
}

void TestAccessibleSource::isATextOfManyLines()
{
    Fixture f;
    QCOMPARE(f.interface().role(), QAccessible::EditableText);
    QVERIFY(f.interface().state().multiLine);
    QVERIFY(f.interface().state().editable);
    QVERIFY(f.interface().state().focusable);
    QVERIFY(!f.interface().state().readOnly);
    QCOMPARE(f.interface().childCount(), 0);
    f.box.setReadOnly(true);
    QVERIFY(f.interface().state().readOnly);
    QVERIFY(!f.interface().state().editable);
}

void TestAccessibleSource::textIsCountedInUnits()
{
    Fixture f;
    QCOMPARE(f.text().characterCount(), 0);
    QCOMPARE(f.text().text(0, 5), QString());
    f.box.setText(ThreeLines);
    QCOMPARE(f.text().characterCount(), 20);
    QCOMPARE(f.text().text(0, 20), QString::fromUtf8(ThreeLines));
    QCOMPARE(f.text().text(1, 3), QString::fromUtf8("\xF0\x9D\x84\x9E"));
    QCOMPARE(f.text().text(3, 4), QStringLiteral("€"));
    QCOMPARE(f.text().text(6, 10), QStringLiteral("word"));
    QCOMPARE(f.text().text(17, 99), QStringLiteral("end"));
    QCOMPARE(f.text().text(9, 6), QString());
    QCOMPARE(f.text().text(-4, 1), QStringLiteral("a"));
}

void TestAccessibleSource::westernText()
{
    Fixture f;
    f.box.setText("caf\xE9 \x80 1");
    QCOMPARE(f.text().text(0, 99), QStringLiteral("café € 1"));
    f.box.setSelStart(7);
    QCOMPARE(f.text().cursorPosition(), 7);
    f.editor().replaceText(3, 4, QStringLiteral("è"));
    QCOMPARE(f.box.Text(), QByteArray("caf\xE8 \x80 1"));
}

void TestAccessibleSource::caretAndSelection()
{
    Fixture f;
    f.box.setText(ThreeLines);
    QCOMPARE(f.text().cursorPosition(), 0);
    QCOMPARE(f.text().selectionCount(), 0);
    f.box.setSelStart(10); // in front of "word"
    QCOMPARE(f.text().cursorPosition(), 6);
    QCOMPARE(f.reader.caret, 6);
    f.box.setSelLength(4);
    QCOMPARE(f.text().selectionCount(), 1);
    int start = -1;
    int end = -1;
    f.text().selection(0, &start, &end);
    QCOMPARE(start, 6);
    QCOMPARE(end, 10);
    QCOMPARE(f.reader.start, 6);
    QCOMPARE(f.reader.end, 10);
    QCOMPARE(f.reader.caret, 10);
}

void TestAccessibleSource::readerSelects()
{
    Fixture f;
    f.box.setText(ThreeLines);
    QVERIFY(f.ready);
    const QSignalSpy told(&f.box, &RichTextBox::SelChange);
    f.text().setCursorPosition(3);
    QCOMPARE(f.box.SelStart(), 5);
    f.text().addSelection(1, 4);
    QCOMPARE(f.box.SelText(), QByteArray("\xF0\x9D\x84\x9E\xE2\x82\xAC"));
    f.text().setSelection(0, 11, 14);
    QCOMPARE(f.box.SelText(), QByteArray("two"));
    f.text().removeSelection(0);
    QCOMPARE(f.box.SelLength(), 0);
    QCOMPARE(f.text().cursorPosition(), 14);
    QTRY_VERIFY(!told.isEmpty());
    f.text().setCursorPosition(999);
    QCOMPARE(f.box.SelStart(), int(ThreeLines.size()));
    f.text().setCursorPosition(-1);
    QCOMPARE(f.box.SelStart(), 0);
}

void TestAccessibleSource::wordsAndLines_data()
{
    using Kind = QAccessible::TextBoundaryType;
    QTest::addColumn<QByteArray>("which");
    QTest::addColumn<int>("offset");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* which, int offset, Kind kind, const char* expected) {
        QTest::addRow("%s %d %d", which, offset, int(kind))
            << QByteArray(which) << offset << kind << QString::fromUtf8(expected);
    };
    row("at", 0, QAccessible::CharBoundary, "0-1 a");
    row("at", 1, QAccessible::CharBoundary, "1-3 \xF0\x9D\x84\x9E");
    row("at", 17, QAccessible::CharBoundary, "17-18 e");
    row("after", 11, QAccessible::CharBoundary, "12-13 w");
    row("before", 12, QAccessible::CharBoundary, "11-12 t");
    row("at", 8, QAccessible::WordBoundary, "6-10 word");
    row("at", 12, QAccessible::WordBoundary, "11-14 two");
    row("at", 18, QAccessible::WordBoundary, "17-20 end");
    row("before", 12, QAccessible::WordBoundary, "10-11  ");
    row("at", 7, QAccessible::LineBoundary, "6-17 word two.\r\n");
    row("at", 18, QAccessible::LineBoundary, "17-20 end");
    row("after", 7, QAccessible::LineBoundary, "17-20 end");
    row("before", 18, QAccessible::LineBoundary, "6-17 word two.\r\n");
    row("at", 99, QAccessible::WordBoundary, "-1--1 ");
}

void TestAccessibleSource::wordsAndLines()
{
    QFETCH(QByteArray, which);
    QFETCH(int, offset);
    QFETCH(QAccessible::TextBoundaryType, kind);
    Fixture f;
    f.box.setText(ThreeLines);
    QTEST(f.piece(which.constData(), offset, kind), "expected");
    QCOMPARE(f.text().characterCount(), 20); // the answer has left nothing behind
}

void TestAccessibleSource::wholeText()
{
    Fixture f;
    f.box.setText(ThreeLines);
    QCOMPARE(f.piece("at", 5, QAccessible::NoBoundary),
             QStringLiteral("0-20 ") + QString::fromUtf8(ThreeLines));
}

void TestAccessibleSource::linesOfALongText()
{
    Fixture f;
    QByteArray text;
    for (int i = 0; i < 3000; ++i)
        text += QByteArray("\xE2\x82\xAC line ") + QByteArray::number(1000 + i) + "\r\n"; // 13 units each
    f.box.setText(text);
    QCOMPARE(f.text().characterCount(), 39000);
    QCOMPARE(f.piece("at", 13 * 2000 + 8, QAccessible::WordBoundary), QStringLiteral("26007-26011 3000"));
    QCOMPARE(f.piece("at", 13 * 2999 + 8, QAccessible::LineBoundary),
             QStringLiteral("38987-39000 € line 3999\r\n"));
    f.box.setSelStart(15 * 2000);
    QCOMPARE(f.text().cursorPosition(), 26000);
    f.text().scrollToSubstring(13 * 1000, 13 * 1000 + 1);
    QVERIFY(f.box.viewport()->rect().contains(
        f.box.viewport()->mapFromGlobal(f.text().characterRect(13 * 1000).center())));
}

void TestAccessibleSource::placesOnTheScreen()
{
    Fixture f;
    f.box.setText(ThreeLines);
    QVERIFY(f.ready);
    for (const int offset : {0, 1, 3, 6, 9, 11, 17, 19}) {
        const QRect place = f.text().characterRect(offset);
        QVERIFY(place.width() > 1);
        QVERIFY(place.height() > 5);
        QCOMPARE(f.text().offsetAtPoint(place.center()), offset);
    }
    QVERIFY(f.text().characterRect(6).top() >= f.text().characterRect(0).bottom());
    QVERIFY(f.text().characterRect(7).left() > f.text().characterRect(6).left());
    QCOMPARE(f.text().offsetAtPoint(f.box.mapToGlobal(QPoint(500, 250))), -1);
}

void TestAccessibleSource::readerEdits()
{
    Fixture f;
    f.box.setText(ThreeLines);
    f.editor().insertText(3, QStringLiteral("é"));
    f.editor().deleteText(1, 3);
    f.editor().replaceText(5, 9, QStringLiteral("verb"));
    QCOMPARE(f.box.Text(), QByteArray("a\xC3\xA9\xE2\x82\xAC\r\nverb two.\r\nend"));
    for (int i = 0; i < 3; ++i)
        f.box.undo();
    QCOMPARE(f.box.Text(), ThreeLines);
}

void TestAccessibleSource::readerDoesNotEditWhatIsOnlyRead()
{
    Fixture f;
    f.box.setText(ThreeLines);
    f.box.setReadOnly(true);
    f.editor().replaceText(0, 9, QStringLiteral("x"));
    QCOMPARE(f.box.Text(), ThreeLines);
}

void TestAccessibleSource::editsAreTold()
{
    Fixture f;
    QVERIFY(f.ready);
    f.box.setText("\xE2\x82\xAC\r\nb");
    QCOMPARE(f.heard(), QStringLiteral("0+€\r\nb @0"));
    f.box.setSelStart(5);
    QCOMPARE(f.heard(), QStringLiteral("@3"));
    QTest::keyClicks(&f.box, QStringLiteral("xy"));
    QCOMPARE(f.heard(), QStringLiteral("3+x @4 4+y @5"));
    QTest::keyClick(&f.box, Qt::Key_Backspace);
    QCOMPARE(f.heard(), QStringLiteral("4-y @4"));
    QTest::keyClick(&f.box, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(f.heard(), QStringLiteral("@3"));
    QCOMPARE(f.reader.end, 4);
    QTest::keyClick(&f.box, Qt::Key_Z);
    QCOMPARE(f.heard(), QStringLiteral("3-x 3+z @4"));
    f.box.undo();
    QCOMPARE(f.heard(), QStringLiteral("3-z 3+x @4"));
}

void TestAccessibleSource::readerKnowsTheText_data()
{
    addSeeds();
}

/// Whatever is done, a reader that only listens has the text, and the caret stands where it was told.
void TestAccessibleSource::readerKnowsTheText()
{
    QFETCH(quint32, seed);
    Random random(seed);
    Fixture f;
    f.box.setText("\xC3\xA9"); // stays of one encoding
    /// The beginning of a random character, in bytes.
    const auto place = [&] {
        const QString text = f.box.decode(f.box.Text());
        const int unit = random.number(int(text.size()) + 1);
        const bool half = unit < text.size() && text.at(unit).isLowSurrogate();
        return int(f.box.encode(text.first(half ? unit - 1 : unit)).size());
    };
    const auto decoded = [&](qsizetype length) { return f.box.decode(f.box.Text().first(length)); };
    for (int i = 0; i < 60; ++i) {
        const int length = int(f.box.TextLength());
        switch (random.number(6)) {
        case 0:
            f.box.setSelText(f.box.encode(random.text(6)) + (random.chance() ? "\r\n" : ""));
            break;
        case 1:
            f.box.setSelStart(place());
            f.box.setSelLength(std::max(place() - f.box.SelStart(), 0));
            break;
        case 2:
            f.box.undo();
            break;
        case 3:
            f.box.redo();
            break;
        case 4:
            QTest::keyClick(&f.box, random.chance() ? Qt::Key_Backspace : Qt::Key_Delete);
            break;
        default:
            f.editor().replaceText(random.number(length + 1), random.number(length + 1), random.text(3));
            break;
        }
        const QString now = decoded(f.box.TextLength());
        QVERIFY2(f.reader.text == now, qPrintable(f.heard()));
        f.reader.heard.clear();
        QCOMPARE(f.text().characterCount(), int(now.size()));
        QCOMPARE(f.text().text(0, int(now.size())), now);
        const int end = f.box.SelStart() + f.box.SelLength();
        QCOMPARE(f.reader.start, int(decoded(f.box.SelStart()).size()));
        QCOMPARE(f.reader.end, int(decoded(end).size()));
        QCOMPARE(f.text().cursorPosition(), f.reader.caret);
    }
}

/// On a session bus of its own, where a screen reader says that it runs: without one the toolkit tells
/// nothing.
int main(int argc, char** argv)
{
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"),
              {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    bus.waitForReadyRead();
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
    QProcess::execute(QStringLiteral("dbus-send"),
                      {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                       QStringLiteral("--dest=org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                       QStringLiteral("org.freedesktop.DBus.Properties.Set"),
                       QStringLiteral("string:org.a11y.Status"), QStringLiteral("string:ScreenReaderEnabled"),
                       QStringLiteral("variant:boolean:true")});
    QTEST_SET_MAIN_SOURCE_PATH
    int result = 1;
    {
        QApplication application(argc, argv);
        TestAccessibleSource test;
        result = QTest::qExec(&test, argc, argv);
    }
    bus.kill();
    bus.waitForFinished();
    return result;
}

#include "tst_accessiblesource.moc"
