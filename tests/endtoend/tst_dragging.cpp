// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"
#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"

#include <QDropEvent>
#include <QRegularExpression>
#include <QTimer>
#include <QToolTip>

using namespace brindlemark;

// Dragging with a real mouse: out of another program's window onto the main window, and within the source
// box.

namespace {

void moveMouse(QPoint place)
{
    xdotool({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

void pressMouse()
{
    xdotool({QStringLiteral("mousedown"), QStringLiteral("1")});
}

void releaseMouse()
{
    xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
}

/// Notes whether a drag is over the program's windows.
class DragWatch : public QObject
{
public:
    DragWatch() { qApp->installEventFilter(this); }

    /// Whether a drag has come to a place of the screen, give or take a pixel.
    bool hasReached(QPoint place) const { return (m_last - place).manhattanLength() <= 2; }

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (widget && (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove))
            m_last = widget->mapToGlobal(static_cast<QDropEvent*>(event)->position().toPoint());
        return false;
    }

    QPoint m_last{-100, -100};
};

/// Another program from which something is dragged (see drag_source.cpp).
class DragSource
{
public:
    DragSource(const QString& kind, const QStringList& what)
    {
        m_process.start(QStringLiteral(DRAG_SOURCE), QStringList(kind) + what);
        if (!QTest::qWaitFor([this] { return !window().isEmpty(); }, Patience))
            QTest::qFail("the other program does not come up", __FILE__, __LINE__);
    }

    ~DragSource()
    {
        releaseMouse();
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(DragSource)

    /// Drags to a place in a widget and, once the other program knows whether it would be taken, drops there.
    /// Returns what became of it: "copy", "move", "none".
    QString drop(const QWidget* target, QPoint place, bool taken)
    {
        const QPoint end = target->mapToGlobal(place);
        const DragWatch watch;
        beginDrag();
        int moves = 0;
        const auto arrived = [&] {
            moveMouse(end + QPoint(++moves % 2, 0));
            return watch.hasReached(end) && (!taken || told().contains(QStringLiteral("over ")));
        };
        if (!QTest::qWaitFor(arrived, Patience))
            QTest::qFail("the drag does not arrive, or is not answered", __FILE__, __LINE__);
        releaseMouse();
        static const QString Dropped = QStringLiteral("dropped ");
        if (!QTest::qWaitFor([&] { return told().contains(Dropped); }, Patience))
            return QStringLiteral("the drag does not end");
        return told().section(Dropped, 1).trimmed();
    }

    QString drop(const QWidget* target, bool taken) { return drop(target, target->rect().center(), taken); }

    /// What the pointer said while the drag was under way, one line each, and what came of it.
    QString told() { return m_told += QString::fromUtf8(m_process.readAllStandardOutput()); }

private:
    QString window() const
    {
        return xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--pid"),
                        QString::number(m_process.processId()), QStringLiteral("--name"),
                        QStringLiteral("Drag source")})
            .section(u'\n', 0, 0);
    }

    /// Puts the window beside the main window and takes hold of what is in it.
    void beginDrag()
    {
        const QString id = window();
        // On a busy machine the window can come late under the mouse: takes hold until it has it.
        const auto isHeld = [&] {
            releaseMouse();
            xdotool({QStringLiteral("windowactivate"), id});
            xdotool({QStringLiteral("windowmove"), id, QStringLiteral("1150"), QStringLiteral("500")});
            xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), id, QStringLiteral("60"),
                     QStringLiteral("40")});
            pressMouse();
            return QTest::qWaitFor([&] { return told().contains(QStringLiteral("held")); }, 1000);
        };
        if (!QTest::qWaitFor(isHeld, Patience))
            QTest::qFail("the other program's window is not under the mouse", __FILE__, __LINE__);
        // A hand is never so fast that it drops before the keyboard is there.
        if (!QTest::qWaitFor([] { return !QGuiApplication::focusWindow(); }, Patience))
            QTest::qFail("the other program's window does not come in front", __FILE__, __LINE__);
        xdotool({QStringLiteral("mousemove_relative"), QStringLiteral("--"), QStringLiteral("-30"),
                 QStringLiteral("-20")});
    }

    QProcess m_process;
    QString m_told;
};

/// The main window beside the place of the other program's.
class Stage : public MainWindow
{
public:
    Stage()
    {
        web->move(0, 0);
        if (!QTest::qWaitForWindowActive(web) || !QTest::qWaitFor([this] { return web->x() < 20; }))
            QTest::qFail("the main window does not come up", __FILE__, __LINE__);
    }

    QWidget* sourceBox() const { return web->RichTextBox1->viewport(); }

    /// Just right of a byte's left edge.
    QPoint at(long position) const
    {
        const RichTextBox* box = web->RichTextBox1;
        return {int(box->SendScintilla(RichTextBox::SCI_POINTXFROMPOSITION, 0UL, position)) + 1,
                int(box->SendScintilla(RichTextBox::SCI_POINTYFROMPOSITION, 0UL, position)) + 6};
    }

    void undo() const { QTest::keyClick(web->RichTextBox1, Qt::Key_Z, Qt::ControlModifier); }

    /// Drags the selected text by its byte `from` to in front of byte `to`.
    void dragText(long from, long to) const
    {
        drag(sourceBox()->mapToGlobal(at(from)), sourceBox()->mapToGlobal(at(to)));
    }

    /// The left edge of a character of the first text of a P of the design surface, on the screen.
    QPoint onSurface(int character) const
    {
        const QVariantList point =
            probe(web->WebBrowser1)
                .evaluate(QStringLiteral("(() => { const range = document.createRange();"
                                         "range.setStart(document.querySelector('p').firstChild, %1);"
                                         "const box = range.getBoundingClientRect();"
                                         "return [box.x, box.y + box.height / 2] })()")
                              .arg(character))
                .value_or(QVariant())
                .toList();
        return web->WebBrowser1->inputWidget()->mapToGlobal(
            QPoint(point.value(0).toInt() + 1, point.value(1).toInt()));
    }

    /// Drags what is selected within the program, between two places of the screen.
    static void drag(QPoint start, QPoint end)
    {
        const DragWatch watch;
        bool dropped = false;
        int moves = 0;
        // While the drag is under way, the program is in an event loop of its own.
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, &hand, [&] {
            dropped = dropped || watch.hasReached(end);
            if (dropped) {
                releaseMouse();
                hand.stop();
            } else {
                moveMouse(end + QPoint(++moves % 2, 0));
            }
        });
        moveMouse(start);
        pressMouse();
        hand.start(20);
        if (!QTest::qWaitFor([&] { return dropped; }, Patience))
            QTest::qFail("the drag does not arrive", __FILE__, __LINE__);
    }
};

} // namespace

class TestDragging : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fileOpens();
    void questionComesBehindTheDrop();
    void foldersAndAddressesAreRefused_data();
    void foldersAndAddressesAreRefused();
    void otherPagesTakeNothing_data();
    void otherPagesTakeNothing();
    void designSurfaceTakesTextButNoFiles();
    void designSurfaceCleansWhatIsDropped();
    void designSurfaceMovesItsOwnText();
    void pictureLandsWhereItIsDropped();
    void otherFilesAreRefused();
    void textLandsWhereItIsDropped();
    void textMovesWithItsColors();
};

void TestDragging::initTestCase()
{
    QVERIFY2(displayAnswers(), "needs a display, a window manager and xdotool");
}

/// The other program would delete a file that is moved: it is always copied.
void TestDragging::fileOpens()
{
    Stage stage;
    stage.folder.write(QStringLiteral("page.htm"), "<P>page");
    stage.folder.write(QStringLiteral("other.htm"), "<P>other");
    DragSource source(QStringLiteral("files"), {stage.folder.path(QStringLiteral("page.htm")),
                                                stage.folder.path(QStringLiteral("other.htm"))});
    QCOMPARE(source.drop(stage.sourceBox(), true), QStringLiteral("copy"));
    QVERIFY2(source.told().contains(QStringLiteral("over copy")), qPrintable(source.told()));
    QVERIFY2(!source.told().contains(QStringLiteral("over move")), qPrintable(source.told()));
    QTRY_COMPARE(stage.source(), QByteArray("<P>page"));
    QCOMPARE(stage.caption(), QStringLiteral("page.htm - Brindlemark 1.0"));
    QCOMPARE(stage.doors.takeAsked(), QStringList());
}

void TestDragging::questionComesBehindTheDrop()
{
    Stage stage;
    stage.folder.write(QStringLiteral("page.htm"), "<P>page");
    stage.type(QStringLiteral("word"));
    DragSource source(QStringLiteral("files"), {stage.folder.path(QStringLiteral("page.htm"))});
    bool released = false;
    stage.doors.during([&] {
        released = QTest::qWaitFor([&] { return source.told().contains(QStringLiteral("dropped")); });
    });
    stage.doors.answerMsgBox(MsgAnswer::Cancel);
    QCOMPARE(source.drop(stage.sourceBox(), true), QStringLiteral("copy"));
    QTRY_COMPARE(stage.doors.asked.size(), 1);
    QVERIFY(released); // the other program doesn't wait for the answer
    QCOMPARE(stage.source(), QByteArray("word"));
}

void TestDragging::foldersAndAddressesAreRefused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("what");
    QTest::newRow("folder") << QStringLiteral("files") << QStringLiteral("/tmp");
    QTest::newRow("address") << QStringLiteral("address") << QStringLiteral("http://127.0.0.1/page.htm");
}

void TestDragging::foldersAndAddressesAreRefused()
{
    QFETCH(QString, kind);
    QFETCH(QString, what);
    Stage stage;
    stage.type(QStringLiteral("word"));
    DragSource source(kind, {what});
    QCOMPARE(source.drop(stage.sourceBox(), false), QStringLiteral("none"));
    QCOMPARE(source.told(),
             QStringLiteral("held\ndropped none\n")); // the pointer never said that it would be taken
    QCOMPARE(stage.source(), QByteArray("word"));
    QCOMPARE(stage.doors.takeAsked(), QStringList());
}

void TestDragging::otherPagesTakeNothing_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("file");
    for (const char* page : {"preview", "internet"}) {
        QTest::addRow("file on %s", page) << QString::fromLatin1(page) << true;
        QTest::addRow("text on %s", page) << QString::fromLatin1(page) << false;
    }
}

void TestDragging::otherPagesTakeNothing()
{
    QFETCH(QString, page);
    QFETCH(bool, file);
    Stage stage;
    stage.folder.write(QStringLiteral("page.htm"), "<P>page");
    stage.type(QStringLiteral("<P>word"));
    const bool internet = page == QLatin1String("internet");
    WebControl* browser = stage.web->WebBrowser3;
    if (internet)
        browser = stage.web->WebBrowser2;
    stage.showTab(internet ? FrmWeb::InternetTab : FrmWeb::PreviewTab);
    if (!internet)
        QTest::mouseClick(stage.web->Option2, Qt::LeftButton);
    QTRY_VERIFY(browser->inputWidget() && browser->isVisible());
    const QString before = pageBody(browser);

    DragSource source(file ? QStringLiteral("files") : QStringLiteral("text"),
                      {file ? stage.folder.path(QStringLiteral("page.htm")) : QStringLiteral("dragged")});
    QCOMPARE(source.drop(browser->inputWidget(), false), QStringLiteral("none"));
    QCOMPARE(source.told(), QStringLiteral("held\ndropped none\n"));
    QCOMPARE(pageBody(browser), before);
    QCOMPARE(stage.caption(), QStringLiteral("Untitled - Brindlemark 1.0"));
}

void TestDragging::designSurfaceTakesTextButNoFiles()
{
    Stage stage;
    stage.folder.write(QStringLiteral("page.htm"), "<P>page");
    stage.type(QStringLiteral("<P>word</P>"));
    stage.showTab(FrmWeb::PreviewTab);
    DocumentSurface* surface = stage.web->WebBrowser1;
    QTRY_VERIFY(surface->inputWidget() && surface->isVisible());
    const QString before = surface->innerHtml();
    {
        DragSource source(QStringLiteral("files"), {stage.folder.path(QStringLiteral("page.htm"))});
        QCOMPARE(source.drop(surface->inputWidget(), false), QStringLiteral("none"));
        QCOMPARE(surface->innerHtml(), before);
    }
    DragSource source(QStringLiteral("text"), {QStringLiteral("dragged")});
    QVERIFY(source.drop(surface->inputWidget(), true) != QLatin1String("none"));
    QTRY_VERIFY(surface->innerHtml().contains(QStringLiteral("dragged")));
    stage.showTab(FrmWeb::EditorTab);
    QVERIFY(stage.source().contains("dragged"));
}

void TestDragging::designSurfaceCleansWhatIsDropped()
{
    Stage stage;
    stage.type(QStringLiteral("<P>0123456789</P>"));
    stage.showTab(FrmWeb::PreviewTab);
    DocumentSurface* surface = stage.web->WebBrowser1;
    QTRY_VERIFY(surface->inputWidget() && surface->isVisible());
    DragSource source(QStringLiteral("html"),
                      {QStringLiteral("<b onclick='x()'>bold</b><script>x()</script>")});
    QCOMPARE(
        source.drop(surface->inputWidget(), surface->inputWidget()->mapFromGlobal(stage.onSurface(5)), true),
        QStringLiteral("copy"));
    QTRY_VERIFY2(surface->innerHtml().contains(QStringLiteral("<P>01234<B>bold</B>56789</P>")),
                 qPrintable(surface->innerHtml()));
    QVERIFY(!surface->innerHtml().contains(QStringLiteral("SCRIPT")));
}

/// What is dragged within the surface moves, with all that belongs to it.
void TestDragging::designSurfaceMovesItsOwnText()
{
    Stage stage;
    stage.type(QStringLiteral("<P>01234567 <B>bold</B></P>"));
    stage.showTab(FrmWeb::PreviewTab);
    DocumentSurface* surface = stage.web->WebBrowser1;
    QTRY_VERIFY(surface->inputWidget() && surface->isVisible());
    stage.typeOnSurface(QStringLiteral("x")); // now it is laid out and takes the mouse
    probe(surface).evaluate(QStringLiteral("getSelection().selectAllChildren(document.querySelector('b'))"));
    const QVariant box = probe(surface)
                             .evaluate(QStringLiteral(
                                 "(() => { const box = document.querySelector('b').getBoundingClientRect(); "
                                 "return [box.x + 10, box.y + 8] "
                                 "})()"))
                             .value_or(QVariant());
    const QPoint start = surface->inputWidget()->mapToGlobal(
        QPoint(box.toList().value(0).toInt(), box.toList().value(1).toInt()));
    stage.drag(start, stage.onSurface(0));
    QTRY_VERIFY2(surface->innerHtml().contains(QRegularExpression(QStringLiteral("<P><B>bold"))),
                 qPrintable(surface->innerHtml()));
    QCOMPARE(surface->innerHtml().count(QStringLiteral("bold")), 1);
}

void TestDragging::pictureLandsWhereItIsDropped()
{
    Stage stage;
    const QString lamp = QStringLiteral(SOURCE_DIR "/data/demo/lamp.svg");
    stage.type(QStringLiteral("0123456789"));
    DragSource source(QStringLiteral("files"), {lamp});
    QCOMPARE(source.drop(stage.sourceBox(), stage.at(5), true), QStringLiteral("copy"));
    QVERIFY2(!source.told().contains(QStringLiteral("over move")), qPrintable(source.told()));
    QTRY_COMPARE(stage.source(),
                 "01234<IMG src=\"" + QUrl::fromLocalFile(lamp).toEncoded() + "\" border=0>\r\n56789");
    stage.undo();
    QCOMPARE(stage.source(), QByteArray("0123456789"));
    QCOMPARE(stage.doors.takeAsked(), QStringList());
}

/// The user reads why, beside the pointer.
void TestDragging::otherFilesAreRefused()
{
    Stage stage;
    stage.folder.write(QStringLiteral("lamps.zip"), QByteArray("PK\x03\x04\0", 5));
    stage.type(QStringLiteral("word"));
    DragSource source(QStringLiteral("files"), {stage.folder.path(QStringLiteral("lamps.zip"))});
    source.drop(stage.sourceBox(), true);
    QTRY_VERIFY(QToolTip::isVisible());
    QVERIFY(QToolTip::text().endsWith(QStringLiteral("Not opened: lamps.zip is no text")));
    QCOMPARE(stage.source(), QByteArray("word"));
    QCOMPARE(stage.doors.takeAsked(), QStringList());
}

void TestDragging::textLandsWhereItIsDropped()
{
    Stage stage;
    stage.type(QStringLiteral("0123456789"));
    stage.web->RichTextBox1->setSelStart(0);
    stage.web->document().setDirty(false);
    DragSource source(QStringLiteral("text"), {QStringLiteral("a"), QString::fromUtf8("\xC5\x91")});
    source.drop(stage.sourceBox(), stage.at(5), true);
    QTRY_COMPARE(stage.source(), QByteArray("01234a\r\n\xC5\x91"
                                            "56789"));
    QVERIFY(stage.web->Dirty());
    QCOMPARE(stage.web->RichTextBox1->SelStart(), 5);
    stage.undo();
    QCOMPARE(stage.source(), QByteArray("0123456789"));
}

void TestDragging::textMovesWithItsColors()
{
    Stage stage;
    RichTextBox* box = stage.web->RichTextBox1;
    stage.type(QStringLiteral("0123456789"));
    box->setSelStart(1);
    box->setSelLength(1);
    box->setSelColor(0x0000FF);
    box->setSelStart(1);
    box->setSelLength(3);
    stage.web->document().setDirty(false);
    stage.dragText(2, 7);
    QTRY_COMPARE(stage.source(), QByteArray("0456123789"));
    for (int i = 0; i < 10; ++i)
        QCOMPARE(box->colorAt(i), i == 4 ? 0x0000FF : 0);
    QVERIFY(stage.web->Dirty());
    QCOMPARE(box->SelText(), QByteArray("123"));
    stage.undo();
    QCOMPARE(stage.source(), QByteArray("0123456789"));

    box->setSelStart(2); // into itself: stays, and is no step
    box->setSelLength(5);
    stage.dragText(3, 5);
    QTest::keyClick(box, Qt::Key_Right, Qt::ShiftModifier); // comes behind the drop
    QCOMPARE(box->SelText(), QByteArray("234567"));
    QCOMPARE(stage.source(), QByteArray("0123456789"));
}

RENDERER_TEST_MAIN(TestDragging)
#include "tst_dragging.moc"
