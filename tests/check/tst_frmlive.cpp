// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "check/FrmLive.h"
#include "check/PlacedSource.h"

#include <QAbstractItemView>
#include <QTest>
#include <QWindow>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    Desk() { connectOpenings(web); }

    FrmLive* live(const QByteArray& text)
    {
        web->RichTextBox1->setText(text);
        choose(web->muntools, web->munliveview);
        if (!QTest::qWaitFor([] { return isLoaded<FrmLive>() && form<FrmLive>()->isVisible(); }, Patience))
            QTest::qFail("the window does not open", __FILE__, __LINE__);
        return form<FrmLive>();
    }
    /// Goes to the main window, as a click there does.
    void toMain() const
    {
        web->activateWindow();
        QCursor::setPos(web->mapToGlobal(QPoint(1, 1)));
        if (!QTest::qWaitForWindowActive(web, Patience))
            QTest::qFail("the main window does not come to the front", __FILE__, __LINE__);
    }
};

QVariant ask(const FrmLive* window, const QString& script)
{
    return probe(window->Page1).evaluate(script).value_or(QVariant());
}

/// A page of many screens, each paragraph of which has a number.
QByteArray longPage()
{
    QByteArray page = "<BODY>\r\n";
    for (int i = 0; i < 200; ++i)
        page += "<P id=p" + QByteArray::number(i) + ">paragraph " + QByteArray::number(i) + "</P>\r\n";
    return page + "</BODY>";
}

/// Whether an element is in view.
bool isSeen(const FrmLive* window, const QString& id)
{
    return ask(window, QStringLiteral("(box => box.top > -1 && box.bottom <= innerHeight)"
                                      "(document.getElementById('%1').getBoundingClientRect())")
                           .arg(id))
        .toBool();
}

/// The id of the element whose tag stands last in front of a place of the source.
QByteArray lineAt(const Desk& desk, qsizetype place)
{
    const QByteArray source = desk.source();
    return source.mid(place, source.indexOf('>', place) + 1 - place);
}

} // namespace

class TestFrmLive : public QObject
{
    Q_OBJECT

private slots:
    void placesStandInEachStartTag_data();
    void placesStandInEachStartTag();
    void zoom();
    void followsTheHand();
    void brokenSource();
    void noScriptRuns();
    void longText();
    void keepsItsPlace();
    void caretIsInSight();
    void clickLeadsToTheSource();
    void sourceScrollsThePage();
    void pageScrollsTheSource();
    void widths();
    void followsPreview();
    void closingChangesNothing();
    void asWideAsItsPhone();
    void remembersItsPlace();
    void staysOverMain();
    void escapeCloses();
};

void TestFrmLive::placesStandInEachStartTag_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("placed");
    QTest::newRow("none") << QByteArray("a < b") << QByteArray("a < b");
    QTest::newRow("tags") << QByteArray("<P>a<BR>b</P>")
                          << QByteArray("<P data-place=0>a<BR data-place=4>b</P>");
    QTest::newRow("attributes") << QByteArray("x<A href='<b>'>")
                                << QByteArray("x<A data-place=1 href='<b>'>");
    QTest::newRow("closed") << QByteArray("<br/>") << QByteArray("<br data-place=0 />");
    QTest::newRow("scripts") << QByteArray("<SCRIPT>'<b>'</SCRIPT><!-- <b> -->")
                             << QByteArray("<SCRIPT data-place=0>'<b>'</SCRIPT><!-- <b> -->");
    QTest::newRow("torn") << QByteArray("<P><A href=") << QByteArray("<P data-place=0><A href=");
}

void TestFrmLive::placesStandInEachStartTag()
{
    QFETCH(QByteArray, html);
    QFETCH(QByteArray, placed);
    QCOMPARE(withPlaces(html), placed);
}

void TestFrmLive::followsTheHand()
{
    Desk desk;
    const FrmLive* window = desk.live("<P>one</P>");
    QTRY_COMPARE(pageText(window->Page1), "one");
    desk.web->RichTextBox1->setSelStart(6);
    QTest::keyClicks(desk.web->RichTextBox1, " two <B>three");
    QTRY_COMPARE(pageText(window->Page1), "one two three");
    desk.web->RichTextBox1->undo();
    QTRY_COMPARE(pageText(window->Page1), "one");
}

/// What doesn't parse well shows what a browser makes of it.
void TestFrmLive::brokenSource()
{
    Desk desk;
    const FrmLive* window = desk.live("<TABLE>lost<TR><TD>cell</TABLE><B>bold<P>still</B> <A href=\"");
    QTRY_COMPARE(pageText(window->Page1), "lostcellboldstill");
}

void TestFrmLive::noScriptRuns()
{
    Desk desk;
    const FrmLive* window = desk.live(
        "<P>one</P><IMG src=x onerror=\"document.title='ran'\"><SCRIPT>document.title='ran'</SCRIPT>");
    QTRY_COMPARE(ask(window, "document.body.innerText").toString().trimmed(), "one");
    QCOMPARE(ask(window, "document.title").toString(), QString());
}

void TestFrmLive::longText()
{
    Desk desk;
    const FrmLive* window = desk.live(QByteArray("<P>x").repeated(2'600'000));
    QTRY_COMPARE(pageText(window->Page1), "A text of more than 10 MB is shown on the tab Preview alone.");
    desk.web->RichTextBox1->setText("<P>short</P>");
    QTRY_COMPARE(pageText(window->Page1), "short");
}

/// While the source is broken for a moment, and when it is whole again, the page stays scrolled to where it
/// was.
void TestFrmLive::keepsItsPlace()
{
    Desk desk;
    const FrmLive* window = desk.live(longPage());
    QTRY_VERIFY(pageText(window->Page1).contains("paragraph 199"));
    desk.toMain();
    QVERIFY(ask(window, "scrollTo(0, 2000); scrollY === 2000").toBool());
    const int start = int(desk.source().indexOf("paragraph 60"));
    desk.web->RichTextBox1->setSelStart(start);
    QTRY_VERIFY(isSeen(window, "p60"));
    const int top = ask(window, "scrollY").toInt();
    QVERIFY(top > 500);
    QTest::keyClicks(desk.web->RichTextBox1, "<b ");
    QTRY_VERIFY(ask(window, "document.querySelector('b') !== null").toBool());
    QCOMPARE(ask(window, "scrollY").toInt(), top);
}

void TestFrmLive::caretIsInSight()
{
    Desk desk;
    const FrmLive* window = desk.live(longPage());
    QTRY_VERIFY(pageText(window->Page1).contains("paragraph 199"));
    desk.toMain();
    QVERIFY(!isSeen(window, "p150"));
    desk.web->RichTextBox1->setSelStart(int(desk.source().indexOf("paragraph 150") + 3));
    QTRY_VERIFY(isSeen(window, "p150"));
    QVERIFY(
        ask(window, "document.getElementById('p150').getAnimations().length > 0").toBool()); // it is marked
    QTRY_VERIFY(ask(window, "document.getElementById('p150').getAnimations().length === 0").toBool());
}

void TestFrmLive::clickLeadsToTheSource()
{
    Desk desk;
    const FrmLive* window =
        desk.live("<BODY><P>one</P>\r\n<P style=\"margin-top:200px\">two <B>three</B></P></BODY>");
    QTRY_COMPARE(pageText(window->Page1).simplified(), "one two three");
    const QVariantList point =
        ask(window,
            "(box => [box.left + 3, box.top + 3])(document.querySelector('b').getBoundingClientRect())")
            .toList();
    QCOMPARE(point.size(), 2);
    QTRY_VERIFY(window->Page1->inputWidget());
    QTest::mouseClick(window->Page1->inputWidget(), Qt::LeftButton, {},
                      QPoint(point[0].toInt(), point[1].toInt()));
    const QByteArray source = desk.source();
    QTRY_COMPARE(desk.web->RichTextBox1->SelStart(), int(source.indexOf("<B>")));
}

void TestFrmLive::sourceScrollsThePage()
{
    Desk desk;
    const FrmLive* window = desk.live(longPage());
    QTRY_VERIFY(pageText(window->Page1).contains("paragraph 199"));
    desk.toMain();
    desk.web->RichTextBox1->bringToTop(desk.source().indexOf("<P id=p80>"));
    QCOMPARE(lineAt(desk, desk.web->RichTextBox1->topOfView()), "<P id=p80>");
    QTRY_VERIFY(isSeen(window, "p80"));
    QVERIFY(!isSeen(window, "p79"));
}

void TestFrmLive::pageScrollsTheSource()
{
    Desk desk;
    FrmLive* window = desk.live(longPage());
    QTRY_VERIFY(pageText(window->Page1).contains("paragraph 199"));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCursor::setPos(window->Page1->mapToGlobal(window->Page1->rect().center()));
    QVERIFY(ask(window, "document.getElementById('p120').scrollIntoView(); true").toBool());
    QTRY_COMPARE(lineAt(desk, desk.web->RichTextBox1->topOfView()), "<P id=p120>");
}

void TestFrmLive::widths()
{
    Desk desk;
    const FrmLive* window = desk.live(longPage());
    QTRY_VERIFY(pageText(window->Page1).contains("paragraph 199"));
    QTRY_COMPARE(ask(window, "innerWidth").toInt(), 375);
    QCOMPARE(ask(window, "document.documentElement.clientWidth").toInt(), 375); // a phone's bars take no room
    choose(window->Widths, 1);
    QTRY_COMPARE(ask(window, "innerWidth").toInt(), 768);
    choose(window->Widths, 2);
    QTRY_COMPARE(ask(window, "innerWidth").toInt(), 1200);
    choose(window->Widths, 3);
    QTRY_COMPARE(ask(window, "innerWidth").toInt(), window->Page1->width());
}

void TestFrmLive::followsPreview()
{
    Desk desk;
    const FrmLive* window = desk.live("<P>one</P>");
    QTRY_COMPARE(pageText(window->Page1), "one");
    desk.toMain();
    desk.showTab(FrmWeb::PreviewTab);
    desk.typeOnSurface("written ");
    QTRY_VERIFY(pageText(window->Page1).contains("written"));
    QVERIFY(desk.web->document().isSurfaceKept());                   // the page tells its edits only once
    QVERIFY(desk.web->WebBrowser1->innerHtml().contains("written")); // it is there as before
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY(desk.source().contains("written"));
}

void TestFrmLive::closingChangesNothing()
{
    Desk desk;
    FrmLive* window = desk.live("<P>one</P>");
    QTRY_COMPARE(pageText(window->Page1), "one");
    desk.web->document().setDirty(false);
    window->close();
    QVERIFY(!isLoaded<FrmLive>());
    QCOMPARE(desk.source(), "<P>one</P>");
    QVERIFY(!desk.web->Dirty());
    QTest::keyClicks(desk.web->RichTextBox1, "x"); // nobody follows any more
    QCOMPARE(desk.source(), "x<P>one</P>");
}

/// At first, so that it stands beside the main window; a wider page widens it.
void TestFrmLive::asWideAsItsPhone()
{
    Desk desk;
    FrmLive* window = desk.live("<P>one</P>");
    QCOMPARE(window->width(), 430);
    choose(window->Widths, 1);
    QVERIFY(window->View->viewport()->width() >= 768);
}

void TestFrmLive::remembersItsPlace()
{
    Desk desk;
    FrmLive* window = desk.live("<P>one</P>");
    choose(window->Widths, 1);
    window->resize(500, 400);
    window->move(40, 60);
    const QRect place = window->geometry();
    // The program may end without closing it.
    QTRY_VERIFY(desk.folder.read("web.ini").contains("place=40 60 500 400\r\n"));
    QTRY_VERIFY(desk.folder.read("web.ini").contains("width=tablet\r\n"));
    window->close();
    window = desk.live("<P>one</P>");
    QCOMPARE(window->geometry(), place);
    QCOMPARE(window->Widths->ListIndex(), 1);
}

void TestFrmLive::staysOverMain()
{
    Desk desk;
    const FrmLive* window = desk.live("<P>one</P>");
    QCOMPARE(window->windowHandle()->transientParent(), desk.web->windowHandle());
    QVERIFY(window->windowFlags().testFlag(Qt::Dialog)); // or else X11 would not heed it
}

void TestFrmLive::escapeCloses()
{
    Desk desk;
    FrmLive* window = desk.live("<P>one</P>");
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    window->Widths->setFocus();
    window->Widths->showPopup();
    QTest::keyClick(window->Widths->view(), Qt::Key_Escape); // closes the list alone
    QVERIFY(isLoaded<FrmLive>());
    QTest::keyClick(window->Widths, Qt::Key_Escape);
    QTRY_VERIFY(!isLoaded<FrmLive>());
}

/// Keys and the wheel with Ctrl make the page larger; it stays as wide as a phone in its own pixels, and a
/// click still leads to its source.
void TestFrmLive::zoom()
{
    Desk desk;
    const FrmLive* window = desk.live(longPage());
    const auto width = [&] { return ask(window, "innerWidth").toInt(); };
    const auto factor = [&] { return qRound(100 * ask(window, "devicePixelRatio").toDouble()); };
    QTRY_COMPARE(width(), 375);
    QTRY_COMPARE(factor(), 100);
    QTest::keyClick(window->windowHandle(), Qt::Key_Plus, Qt::ControlModifier);
    QTRY_COMPARE(factor(), 110);
    QTRY_VERIFY2(qAbs(width() - 375) <= 1, qPrintable(QString::number(width())));
    QTRY_VERIFY(window->Page1->inputWidget());
    QWidget* input = window->Page1->inputWidget();
    QWheelEvent wheel(QPointF(5, 5), input->mapToGlobal(QPointF(5, 5)), {}, {0, 360}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(input, &wheel);
    QTRY_COMPARE(factor(), 175);
    QTRY_VERIFY2(qAbs(width() - 375) <= 1, qPrintable(QString::number(width())));

    const QRectF box = [&] {
        const QVariantList sides = ask(window, "(box => [box.left, box.top, box.width, box.height])"
                                               "(document.getElementById('p3').getBoundingClientRect())")
                                       .toList();
        return QRectF(sides.value(0).toDouble(), sides.value(1).toDouble(), sides.value(2).toDouble(),
                      sides.value(3).toDouble());
    }();
    QVERIFY(box.isValid());
    QTest::mouseClick(input, Qt::LeftButton, {}, (box.topLeft() + QPointF(10, 5)).toPoint() * 7 / 4);
    QTRY_COMPARE(lineAt(desk, desk.web->selection().start), QByteArray("<P id=p3>"));

    form<FrmLive>()->activateWindow(); // the click has led to the source
    QVERIFY(QTest::qWaitForWindowActive(form<FrmLive>(), Patience));
    QTest::keyClick(window->windowHandle(), Qt::Key_0, Qt::ControlModifier);
    QTRY_COMPARE(factor(), 100);
    QTRY_COMPARE(width(), 375);
}

WEB_TEST_MAIN(TestFrmLive)
#include "tst_frmlive.moc"
