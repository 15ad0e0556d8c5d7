// SPDX-License-Identifier: GPL-3.0-or-later

#include "ScriptedDoors.h"
#include "WebProbe.h"
#include "WebServer.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "forms/Wait.h"
#include "platform/Events.h"
#include "web/DocumentSurface.h"
#include "web/InputGate.h"
#include "web/InternetBrowser.h"
#include "web/Sample.h"
#include "web/SurfaceScript.h"
#include "web/WebEngine.h"

#include <QAction>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QImage>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEnginePage>
#include <chrono>
#include <csignal>
#include <thread>

using namespace brindlemark;

namespace {

/// What the surface reads when its body holds `body`.
QString page(const QString& body)
{
    return QStringLiteral(
               "<HEAD>\r\n<META content=\"Brindlemark surface\" name=GENERATOR></HEAD>\r\n<BODY>") +
           body + QStringLiteral("</BODY>");
}

void endRenderer(WebControl& browser)
{
    QVERIFY(probe(browser).rendererPid() > 0);
    ::kill(static_cast<pid_t>(probe(browser).rendererPid()), SIGKILL);
}

/// Ends the renderer as soon as events are handled, which is while the next operation waits.
void endRendererSoon(WebControl& browser)
{
    QTimer::singleShot(0, &browser, [&browser] { endRenderer(browser); });
}

QString value(WebControl& browser, const char* script)
{
    return probe(browser).evaluate(QString::fromLatin1(script)).value_or(QVariant()).toString();
}

/// What `innerHtml` would print of a sample.
QString printed(Sample& sample)
{
    return value(sample, qPrintable(surfaceCall(QStringLiteral("innerHtml(false)"))));
}

/// Whether the status line told that the document can't be left.
bool isRefused(const QSignalSpy& status)
{
    return std::any_of(status.begin(), status.end(), [](const QVariantList& arguments) {
        return arguments.first().toString().startsWith(QStringLiteral("Links are not followed here"));
    });
}

/// Whether a control says that it takes what is dragged over its middle. What is accepted is dragged away
/// again.
bool isTaken(const WebControl& browser, const QMimeData& dragged)
{
    QWidget* input = browser.inputWidget();
    QDragEnterEvent enter(input->rect().center(), Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(input, &enter);
    if (!enter.isAccepted())
        return false;
    QDragLeaveEvent leave;
    QApplication::sendEvent(input->parentWidget(), &leave);
    return true;
}

/// Drags something over a control's middle and drops it, whatever the control says of it. True: it was taken.
bool drop(const WebControl& browser, const QMimeData& dragged)
{
    QWidget* input = browser.inputWidget();
    const QPoint place = input->rect().center();
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(input, &enter);
    for (QEvent* event : std::initializer_list<QEvent*>{&move, &drop})
        QApplication::sendEvent(input->parentWidget(), event);
    return drop.isAccepted();
}

bool signWindowStands()
{
    return isLoaded<Wait>() && form<Wait>()->isVisible();
}

/// A design surface, not shown.
class Surface : public DocumentSurface
{
public:
    Surface() { setDesignMode(DesignMode::On); }
    explicit Surface(const QString& html) : Surface() { write(html); }
};

/// A window with a page in it that has the keyboard and no use for letters. The window notes what comes back.
class KeyWindow : public QWidget
{
public:
    KeyWindow()
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(page);
        resize(300, 200);
        show();
        if (!page->write(QStringLiteral("<p>still")) || !QTest::qWaitForWindowActive(this))
            QTest::qFail("the page does not come up", __FILE__, __LINE__);
        page->setFocus();
    }

    void type(const char* keys)
    {
        for (; *keys; ++keys)
            QTest::keyClick(windowHandle(), *keys);
    }

    DocumentSurface* page = new DocumentSurface;
    QString letters;
    QStringList texts; // of the page, as read when a letter came

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        letters += event->text();
        texts << value(*page, "document.body.innerText");
    }
};

} // namespace

class TestWebBrowser : public QObject
{
    Q_OBJECT

private slots:
    void faceOfPages();
    void blankSurface();
    void writeAndReadInOneBreath();
    void readsNothingWrongBeforeTheFirstWrite();
    void designModeKeepsTheDocument();
    void mouseThatFailsEndsTheProgram();
    void functionsRunOnce_data();
    void functionsRunOnce();
    void scriptsRunInThePreviewOnly();
    void editsAreHeardOfOnce();
    void editsOfOtherSurfacesAreNotHeardOf();
    void pageForADyingRendererIsShown();
    void hostileDocuments_data();
    void hostileDocuments();
    void commands_data();
    void commands();
    void indentAndOutdent();
    void undoDoesNotReachTheLastDocument();
    void clipboard();
    void pasteIsHarmless();
    void links();
    void find();
    void typing();
    void keysOfTheProgram();
    void keysOfTheWindow();
    void accessKeysOfTheWindow();
    void sentKeys();
    void firstLettersAreHeld();
    void returnedKeysComeFromTheQueue();
    void returnedKeysWaitForTheHandler();
    void rendererEndsBetween();
    void rendererEndsOnShow();
    void rendererEndsDuringRead();
    void rendererEndsDuringAnothersRead();
    void rendererEndsDuringWrite();
    void endlessScript();
    void endlessTask();
    void endlessTaskBeforeACommand();
    void designSurfaceWaits();
    void designSurfaceIsStopped();
    void nobodyToStopIt_data();
    void nobodyToStopIt();
    void editsAreReadAhead();
    void scriptMessages();
    void messagesWithoutEnd();
    void messageOfAnotherPage();
    void messageWhileTheProgramWaits();
    void hiddenMethods();
    void picturesAreLoaded();
    void filesAreRefused();
    void picturesOfFilesStaySecret();
    void drops_data();
    void drops();
    void dropOfTextOnADesignSurface();
    void documentsStay_data();
    void documentsStay();
    void linksDontLeave();
    void windowsAndDownloads();
    void navigation();
    void pageAskedForWhileTheEmptyOneArrives();
    void navigationAndWrite();
    void addressesThatFailLeaveTheDocument_data();
    void addressesThatFailLeaveTheDocument();
    void pageOfAnAddressTakesTheDocumentsPlace();
    void addresses();
    void zoom();
    void signsOfALateAnswer_data();
    void signsOfALateAnswer();
    void signsGoWithTheControl();
    void severalAtOnce();
    void samplesShowTheLastPage();
    void samplesGivenMeanwhileAreShown();
    void samplesRunNoScripts();
    void samplesSurviveTheirRenderer();
    void samplesComeBack();
    void samplesChangeWhileTheEngineStarts();
    void samplesInDesignMode();
    void deletedSample();
    void formUnloadedWhileWaiting();
};

/// A page that names no face has the one that every Debian has, as the pages of browsers do.
void TestWebBrowser::faceOfPages()
{
    Surface surface(QStringLiteral("x"));
    QCOMPARE(value(surface, "getComputedStyle(document.body).fontFamily"),
             QStringLiteral("\"Liberation Serif\""));
}

void TestWebBrowser::blankSurface()
{
    Surface surface;
    QCOMPARE(surface.innerHtml(), page(QString()));
    QVERIFY(surface.write(QStringLiteral("x")));
    QVERIFY(surface.write(QString()));
    QCOMPARE(surface.innerHtml(), page(QString()));
}

void TestWebBrowser::writeAndReadInOneBreath()
{
    Surface design;
    DocumentSurface preview;
    for (int i = 0; i < 30; ++i) {
        const QString text = QStringLiteral("number %1").arg(i);
        QVERIFY(design.write(text));
        QCOMPARE(design.innerHtml(), page(text));
        QVERIFY(preview.write(text));
        QCOMPARE(preview.innerHtml(), page(text));
    }
}

void TestWebBrowser::readsNothingWrongBeforeTheFirstWrite()
{
    DocumentSurface browser;
    QVERIFY(browser.write(QString()));
    QVERIFY(!browser.inputWidget()); // an empty document costs no renderer
    QCOMPARE(browser.innerHtml(), page(QString()));

    InternetBrowser internet;
    internet.Navigate(QStringLiteral("about:blank"));
    QVERIFY(!internet.inputWidget());
    QVERIFY(!internet.GoBack());
    QVERIFY(!internet.GoForward());
    internet.Stop();
    internet.Refresh();
    QVERIFY(!internet.inputWidget());
}

void TestWebBrowser::designModeKeepsTheDocument()
{
    DocumentSurface browser;
    QCOMPARE(browser.designMode(), DesignMode::Off);
    QVERIFY(browser.write(QStringLiteral("<b>x</b>")));
    browser.setDesignMode(DesignMode::On);
    QCOMPARE(browser.innerHtml(), page(QStringLiteral("<B>x</B>")));
    QVERIFY(browser.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(browser.execCommand(QStringLiteral("Delete")));
    QVERIFY(!browser.innerHtml().contains(u'x'));
}

void TestWebBrowser::scriptsRunInThePreviewOnly()
{
    const QString html = QStringLiteral("<script>let once = 1; document.title = 'ran'</script>x");
    DocumentSurface browser;
    for (int i = 0; i < 3; ++i) { // each time in a realm of its own
        QVERIFY(browser.write(html));
        QCOMPARE(value(browser, "document.title"), QStringLiteral("ran"));
    }
    browser.setDesignMode(DesignMode::On);
    QVERIFY(browser.write(html));
    QCOMPARE(value(browser, "document.title"), QString());
    browser.setDesignMode(DesignMode::Off);
    QVERIFY(browser.write(html));
    QCOMPARE(value(browser, "document.title"), QStringLiteral("ran"));
}

void TestWebBrowser::editsAreHeardOfOnce()
{
    Surface surface;
    QStringList heard;
    const auto ask = [&] {
        surface.readEdits([&](const QString& html) { heard << html; });
        surface.innerHtml(); // is answered later
        return std::exchange(heard, QStringList());
    };
    QCOMPARE(ask(), QStringList()); // no document yet
    QVERIFY(surface.write(QStringLiteral("<p>one")));
    QCOMPARE(ask(), QStringList());
    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QCOMPARE(ask(), QStringList());
    QVERIFY(surface.execCommand(QStringLiteral("InsertText"), QStringLiteral("two")));
    QCOMPARE(ask(), QStringList(page(QStringLiteral("\r\n<P>two</P>"))));
    QCOMPARE(ask(), QStringList());
    for (const char* script : {"document.querySelector('p').align = 'left'; 1",        // attributes
                               "document.querySelector('p').firstChild.data = 'x'; 1", // letters
                               "document.querySelector('p').remove(); 1"}) {
        QVERIFY(probe(surface).evaluate(QString::fromLatin1(script)));
        QCOMPARE(ask().size(), 1);
    }
    QVERIFY(probe(surface).evaluate(QStringLiteral("document.body.append('y'); 1")));
    surface.forgetEdits();
    QCOMPARE(ask(), QStringList());
    QVERIFY(probe(surface).evaluate(QStringLiteral("document.body.append('z'); 1")));
    QVERIFY(surface.write(QStringLiteral("<p>other")));
    QCOMPARE(ask(), QStringList());

    QVERIFY(probe(surface).evaluate(QStringLiteral("document.body.append('z'); 1")));
    endRenderer(surface);
    QTRY_VERIFY(!surface.hasDocument());
    surface.readEdits([&](const QString& html) { heard << html; });
    surface.forgetEdits();
    QVERIFY(surface.write(QStringLiteral("<p>new")));
    QCOMPARE(ask(), QStringList());
    QVERIFY(probe(surface).evaluate(QStringLiteral("document.body.append('z'); 1")));
    QCOMPARE(ask().size(), 1);
}

void TestWebBrowser::editsOfOtherSurfacesAreNotHeardOf()
{
    DocumentSurface preview;
    bool heard = false;
    QVERIFY(preview.write(QStringLiteral("<p>one<script>document.body.append('two')</script>")));
    QVERIFY(probe(preview).evaluate(QStringLiteral("document.body.append('three'); 1")));
    preview.readEdits([&](const QString&) { heard = true; });
    QVERIFY(preview.innerHtml().contains(QStringLiteral("three")));
    QVERIFY(!heard);
}

void TestWebBrowser::pageForADyingRendererIsShown()
{
    // Whatever comes first, the page's answer or the news of the renderer's end.
    Sample sample;
    for (int i = 0; i < 20; ++i) {
        const QString text = QStringLiteral("<p>page %1").arg(i);
        sample.writeSoon(QStringLiteral("<p>before"));
        QTRY_VERIFY(value(sample, "document.body.innerHTML").contains(QStringLiteral("before")));
        endRenderer(sample);
        if (i % 2)
            std::this_thread::sleep_for(std::chrono::milliseconds(i)); // no event comes through meanwhile
        sample.writeSoon(text);
        QTRY_COMPARE(value(sample, "document.body.innerHTML"), text + QStringLiteral("</p>"));
    }
}

void TestWebBrowser::hostileDocuments_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("contains");
    const QString word = QStringLiteral("word");
    QTest::newRow("10,000 nested tags") << QStringLiteral("<div>").repeated(10000) + word << word;
    QTest::newRow("10,000 nested fonts") << QStringLiteral("<font>").repeated(10000) + word << word;
    QTest::newRow("5 MB without a tag")
        << QStringLiteral("word ").repeated(1000000) << QStringLiteral("word word");
    QTest::newRow("a line of 3 MB") << QStringLiteral("word word word <b>word</b> ").repeated(120000)
                                    << QStringLiteral("word <B>word</B> word");
    QTest::newRow("a value of 3 MB") << QStringLiteral("<a title='") +
                                            QStringLiteral("long ").repeated(600000) +
                                            QStringLiteral("'>word")
                                     << QStringLiteral(">word</A>");
    QTest::newRow("NUL") << QStringLiteral("wo") + QChar(u'\0') + QStringLiteral("rd<b title='x") +
                                QChar(u'\0') + QStringLiteral("'>")
                         << QStringLiteral("word<B title=\"x\ufffd\">");
    QTest::newRow("half a character")
        << QStringLiteral("wo") + QChar(0xD800) + QStringLiteral("rd") << QStringLiteral("rd");
    QTest::newRow("separators of lines")
        << QStringLiteral("a\u2028b\u2029c\"\\n") << QStringLiteral("a\u2028b\u2029c\"\\n");
    QTest::newRow("BODY in a cell") << QStringLiteral("<table><tr><td><body><p>word</table>")
                                    << QStringLiteral("<TD>\r\n<P>word</P></TD>");
    QTest::newRow("unclosed comment")
        << QStringLiteral("word<!-- <p> ") << QStringLiteral("word<!-- <p> -->");
    QTest::newRow("unclosed tag") << QStringLiteral("word<a href='") << word;
    QTest::newRow("frames") << QStringLiteral("<frameset rows=1,2><frame src=a><frame src=b></frameset>")
                            << QStringLiteral("<FRAME src=a>");
}

void TestWebBrowser::hostileDocuments()
{
    QFETCH(QString, html);
    QFETCH(QString, contains);
    Surface surface;
    probe(surface).setPatience(30000); // a busy machine lays out deep pages for seconds
    QVERIFY(surface.write(html));
    const QString text = surface.innerHtml();
    QVERIFY2(text.contains(contains), qPrintable(text.left(300)));
    QVERIFY(surface.write(text));
    QVERIFY(surface.innerHtml() == text); // some are too long to be shown
}

void TestWebBrowser::commands_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("body");
    const auto row = [](const char* id, const char* value, const char* body) {
        QTest::newRow(id) << QString::fromLatin1(id) << QString::fromLatin1(value)
                          << QString::fromLatin1(body);
    };
    row("Bold", "", "\r\n<P><B>word</B></P>");
    row("Italic", "", "\r\n<P><I>word</I></P>");
    row("Underline", "", "\r\n<P><U>word</U></P>");
    row("ForeColor", "#FF0000", "\r\n<P><FONT color=#ff0000>word</FONT></P>");
    row("FontName", "Arial", "\r\n<P><FONT face=Arial>word</FONT></P>");
    row("FontSize", "5", "\r\n<P><FONT size=5>word</FONT></P>");
    row("JustifyCenter", "", "\r\n<P style=\"text-align: center;\">word</P>");
    row("JustifyRight", "", "\r\n<P style=\"text-align: right;\">word</P>");
    row("BackColor", "#FFFF00", "\r\n<P><SPAN style=\"background-color: rgb(255, 255, 0);\">word</SPAN></P>");
    row("InsertHorizontalRule", "", "\r\n<HR>");
}

void TestWebBrowser::commands()
{
    QFETCH(QString, id);
    QFETCH(QString, value);
    QFETCH(QString, body);
    Surface surface(QStringLiteral("<p>word"));
    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(surface.execCommand(id, value));
    QCOMPARE(surface.innerHtml(), page(body));
    QVERIFY(surface.execCommand(QStringLiteral("Undo")));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>word</P>")));
    QVERIFY(surface.execCommand(QStringLiteral("Redo")));
    QCOMPARE(surface.innerHtml(), page(body));
}

void TestWebBrowser::indentAndOutdent()
{
    Surface surface(QStringLiteral("<p>word"));
    QVERIFY(surface.execCommand(QStringLiteral("Indent")));
    QVERIFY(surface.innerHtml().contains(QStringLiteral("<BLOCKQUOTE")));
    QVERIFY(surface.execCommand(QStringLiteral("Outdent")));
    QVERIFY(!surface.innerHtml().contains(QStringLiteral("<BLOCKQUOTE")));
    QVERIFY(surface.innerHtml().contains(QStringLiteral("word")));
    QVERIFY(!surface.execCommand(QStringLiteral("NoSuchCommand")));
}

void TestWebBrowser::undoDoesNotReachTheLastDocument()
{
    Surface surface(QStringLiteral("<p>word"));
    surface.execCommand(QStringLiteral("SelectAll"));
    QVERIFY(surface.execCommand(QStringLiteral("Bold")));
    surface.write(QStringLiteral("<p>next"));
    surface.execCommand(QStringLiteral("Undo"));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>next</P>")));
}

void TestWebBrowser::clipboard()
{
    ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>a <b>fine</b>&nbsp;lamp"));
    QVERIFY(!surface.execCommand(QStringLiteral("Copy")));  // nothing is selected
    QVERIFY(!surface.execCommand(QStringLiteral("Paste"))); // nothing is on the clipboard

    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(surface.execCommand(QStringLiteral("Copy")));
    QCOMPARE(desktop.clipboard()->text(), QStringLiteral("a fine lamp"));
    QCOMPARE(desktop.clipboard()->html(), QStringLiteral("a <b>fine</b>&nbsp;lamp"));
    QVERIFY(surface.execCommand(QStringLiteral("cut")));
    QVERIFY(!surface.innerHtml().contains(QStringLiteral("lamp")));

    Clipboard::SetText(QStringLiteral("<new>"));
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    QVERIFY(surface.innerHtml().contains(QStringLiteral("&lt;new&gt;")));
}

void TestWebBrowser::pasteIsHarmless()
{
    ScriptedDoors desktop;
    Surface surface(QString{});
    auto clip = std::make_unique<QMimeData>();
    clip->setHtml(
        QStringLiteral("<!--StartFragment--><script>x()</script><b onclick=x()>bold</b>"
                       "<a href=' javascript:x()'>link</a><iframe src=x></iframe>"
                       "<form onsubmit=x()><input name=attributes><input name=removeAttribute></form>"
                       "<!--EndFragment-->"));
    desktop.setClipboard(std::move(clip));
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    const QString text = surface.innerHtml();
    QVERIFY2(text.contains(QStringLiteral("<B>bold</B>")), qPrintable(text));
    for (const char* bad : {"SCRIPT", "onclick", "onsubmit", "javascript", "IFRAME", "Fragment"})
        QVERIFY2(!text.contains(QString::fromLatin1(bad)), bad);
}

void TestWebBrowser::links()
{
    Surface surface(QStringLiteral("<p>see <a href='?a=1&amp;b=2'>here</a>"));
    QCOMPARE(surface.currentLink(), QString());
    QVERIFY(probe(surface).evaluate(
        QStringLiteral("getSelection().collapse(document.querySelector('a').firstChild, 2)")));
    QCOMPARE(surface.currentLink(), QStringLiteral("?a=1&b=2"));
    QVERIFY(surface.setLink(QStringLiteral("http://x.example/")));
    QCOMPARE(surface.innerHtml(),
             page(QStringLiteral("\r\n<P>see <A href=\"http://x.example/\">here</A></P>")));
    QVERIFY(surface.setLink(QString()));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>see here</P>")));

    QVERIFY(surface.execCommand(QStringLiteral("SelectAll"))); // of a selection
    QVERIFY(surface.setLink(QStringLiteral("http://y.example/")));
    QCOMPARE(surface.innerHtml(),
             page(QStringLiteral("\r\n<P><A href=\"http://y.example/\">see here</A></P>")));

    QVERIFY(surface.write(QString())); // of nothing
    QVERIFY(surface.setLink(QStringLiteral("http://z.example/?a&b")));
    QCOMPARE(surface.innerHtml(),
             page(QStringLiteral("<A href=\"http://z.example/?a&amp;b\">http://z.example/?a&amp;b</A>")));

    const QString odd = QStringLiteral("http://z.example/?\"><img id=x>'&amp;");
    QVERIFY(surface.write(QString())); // whatever stands in it
    QVERIFY(surface.setLink(odd));
    QCOMPARE(value(surface, "document.links[0].getAttribute('href')"), odd);
    QCOMPARE(value(surface, "document.body.textContent"), odd);
}

/// Shows a surface and waits until it takes letters.
#define SHOW_FOR_TYPING(window, surface)                                                                     \
    (window).resize(400, 300);                                                                               \
    (window).show();                                                                                         \
    QVERIFY(QTest::qWaitForWindowExposed(&(window)));                                                        \
    (window).activateWindow();                                                                               \
    (surface).setFocus();                                                                                    \
    QTRY_VERIFY((surface).inputWidget() && (surface).inputWidget()->testAttribute(Qt::WA_InputMethodEnabled))

void TestWebBrowser::find()
{
    Surface surface(QStringLiteral("<p>a Lamp, a lamp and a lamp"));
    SHOW_FOR_TYPING(surface, surface);
    FindResult found = surface.find(QStringLiteral("lamp"));
    QCOMPARE(found.matches, 3);
    QCOMPARE(found.current, 1);
    QCOMPARE(surface.find(QStringLiteral("lamp")).current, 2);
    QCOMPARE(surface.find(QStringLiteral("lamp"), true).current, 1);
    QCOMPARE(surface.find(QStringLiteral("lamp"), true).current, 3); // round the end
    QCOMPARE(surface.find(QStringLiteral("Lamp"), false, true).matches, 1);
    QCOMPARE(surface.find(QStringLiteral("shade")).matches, 0);
    QCOMPARE(surface.find(QString()).matches, 0);
}

void TestWebBrowser::typing()
{
    Surface surface;
    SHOW_FOR_TYPING(surface, surface);
    QTest::keyClicks(surface.inputWidget(), QStringLiteral("Hi"));
    QTest::keyClick(surface.inputWidget(), Qt::Key_Return);
    QTest::keyClicks(surface.inputWidget(), QStringLiteral("there"));
    QTRY_COMPARE(surface.innerHtml(), page(QStringLiteral("Hi\r\n<P>there</P>")));

    QVERIFY(surface.write(QStringLiteral("<p>next")));
    QTRY_VERIFY(surface.inputWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(surface.inputWidget(), QStringLiteral("the "));
    QTRY_COMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>the next</P>")));
}

void TestWebBrowser::keysOfTheProgram()
{
    ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>abc def"));
    SHOW_FOR_TYPING(surface, surface);
    QSignalSpy links(&surface, &DocumentSurface::linkRequested);
    QSignalSpy finds(&surface, &DocumentSurface::findRequested);
    QTest::keyClick(surface.inputWidget(), Qt::Key_K, Qt::ControlModifier);
    QTRY_COMPARE(links.count(), 1);
    QTest::keyClick(surface.inputWidget(), Qt::Key_F, Qt::ControlModifier);
    QTRY_COMPARE(finds.count(), 1);
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>abc def</P>")));

    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QTest::keyClick(surface.inputWidget(), Qt::Key_C, Qt::ControlModifier);
    QTRY_COMPARE(desktop.clipboard()->text(), QStringLiteral("abc def"));
    Clipboard::SetText(QStringLiteral("new"));
    QTest::keyClick(surface.inputWidget(), Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(surface.innerHtml().contains(QStringLiteral("new</P>")));
}

void TestWebBrowser::keysOfTheWindow()
{
    QMainWindow window;
    auto* surface = new Surface;
    window.setCentralWidget(surface);
    QAction save(&window);
    save.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    window.addAction(&save);
    QSignalSpy saved(&save, &QAction::triggered);
    SHOW_FOR_TYPING(window, *surface);
    for (int i = 1; i <= 5; ++i) {
        QTest::keyClick(window.windowHandle(), Qt::Key_S, Qt::ControlModifier);
        QTRY_COMPARE(saved.count(), i);
    }
    save.setEnabled(false);
    QTest::keyClick(window.windowHandle(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(surface->innerHtml(), page(QString()));
    QCOMPARE(saved.count(), 5);
}

/// A form's buttons answer to their keys while its surface is typed into, and nothing is typed.
void TestWebBrowser::accessKeysOfTheWindow()
{
    QWidget window;
    QVBoxLayout layout(&window);
    auto* surface = new Surface;
    QPushButton ok(QStringLiteral("&OK"));
    layout.addWidget(surface);
    layout.addWidget(&ok);
    QSignalSpy clicked(&ok, &QPushButton::clicked);
    QShortcut cancel(Qt::Key_Escape, &window);
    QSignalSpy cancelled(&cancel, &QShortcut::activated);
    SHOW_FOR_TYPING(window, *surface);
    for (int i = 1; i <= 5; ++i) {
        QTest::keyClick(window.windowHandle(), Qt::Key_O, Qt::AltModifier);
        QTRY_COMPARE(clicked.count(), i);
        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
        QTRY_COMPARE(cancelled.count(), i);
    }
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    QTRY_COMPARE(surface->innerHtml(), page(QStringLiteral("a")));
}

void TestWebBrowser::sentKeys()
{
    Surface surface;
    QSignalSpy links(&surface, &DocumentSurface::linkRequested);
    QSignalSpy finds(&surface, &DocumentSurface::findRequested);
    surface.sendKeys(QStringLiteral("^k"));
    QCOMPARE(links.count(), 1);
    surface.sendKeys(QStringLiteral("^f"));
    QCOMPARE(finds.count(), 1);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, surface.sendKeys(QStringLiteral("%x")));
}

/// What is typed before the page has its caret, commands among it, comes in its order, once it has.
void TestWebBrowser::firstLettersAreHeld()
{
    ScriptedDoors desktop;
    Surface surface;
    SHOW_FOR_TYPING(surface, surface);
    for (const char* html : {"", "<p>x", "", "<table><tr><td>x</table>"}) {
        QVERIFY(surface.write(QString::fromLatin1(html)));
        const QString before = surface.innerHtml();
        Clipboard::SetText(QStringLiteral("pasted"));
        QTest::keyClicks(surface.inputWidget(), QStringLiteral("Hi"));
        QTest::keyClick(surface.inputWidget(), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClicks(surface.inputWidget(), QStringLiteral("you"));
        QTRY_VERIFY2(surface.innerHtml().contains(QStringLiteral("Hipastedyou")),
                     qPrintable(surface.innerHtml()));
        QCOMPARE(surface.innerHtml().remove(QStringLiteral("Hipastedyou")), before);
    }
}

/// A page gives a key back in a call of the engine; what is done on it finds the engine listening.
void TestWebBrowser::returnedKeysComeFromTheQueue()
{
    KeyWindow window;
    probe(window.page).setPatience(1000);
    const qint64 renderer = probe(window.page).rendererPid();
    window.type("abc");
    QTRY_COMPARE(window.letters, QStringLiteral("abc"));
    QCOMPARE(window.texts, QStringList(3, QStringLiteral("still")));
    QCOMPARE(probe(window.page).rendererPid(), renderer);
}

void TestWebBrowser::returnedKeysWaitForTheHandler()
{
    KeyWindow window;
    QVERIFY(probe(window.page)
                .evaluate(QStringLiteral(
                    "window.keys = 0; document.addEventListener('keyup', () => ++window.keys)")));
    guarded([&] {
        window.type("abc");
        QTRY_COMPARE(value(*window.page, "window.keys"), QStringLiteral("3"));
        QTest::qWait(100); // would come by now
        QCOMPARE(window.letters, QString());
    });
    QTRY_COMPARE(window.letters, QStringLiteral("abc"));
}

/// A selection for which there is no memory.
class FullSelection : public ScriptedDoors
{
public:
    const QMimeData* selection() override { throw std::bad_alloc(); }
};

/// Keys and mouse of a page come by a filter of events, with the toolkit's frames around it.
void TestWebBrowser::mouseThatFailsEndsTheProgram()
{
    FullSelection desktop;
    desktop.answerMsgBox(MsgAnswer::Ok);
    Surface surface(QStringLiteral("<p>a"));
    QTest::mouseClick(surface.inputWidget(), Qt::MiddleButton);
    QCOMPARE(desktop.asked,
             QStringList{QStringLiteral("MsgBox|Brindlemark|Run-time error '6':\n\nOut of memory|Stop|Ok")});
    QVERIFY(desktop.endedAtOnce);
}

/// A function that has no result has run all the same: editing commands must not run twice.
void TestWebBrowser::functionsRunOnce_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("null") << QStringLiteral("return null;");
    QTest::newRow("nothing") << QString();
    QTest::newRow("throws") << QStringLiteral("throw new Error;");
}

void TestWebBrowser::functionsRunOnce()
{
    QFETCH(QString, end);
    Surface surface(QStringLiteral("<p>a"));
    QVERIFY(probe(surface).evaluate(
                QStringLiteral("globalThis.calls = 0; globalThis[Symbol.for('surface')].execCommand = "
                               "() => { ++calls; %1 }; true")
                    .arg(end)) == true);
    QVERIFY(!surface.execCommand(QStringLiteral("Bold")));
    QCOMPARE(value(surface, "calls"), QStringLiteral("1"));
}

// ---- What ends or hangs

void TestWebBrowser::rendererEndsBetween()
{
    Surface surface(QStringLiteral("<p>a"));
    QSignalSpy died(&surface, &DocumentSurface::rendererDied);
    endRenderer(surface);
    QTRY_COMPARE(died.count(), 1);
    QVERIFY_THROWS_EXCEPTION(SurfaceLost, surface.innerHtml());
    QVERIFY(!surface.execCommand(QStringLiteral("Bold")));
    QVERIFY(surface.write(QStringLiteral("<p>b")));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>b</P>")));
    QCOMPARE(died.count(), 1);
}

void TestWebBrowser::rendererEndsOnShow()
{
    Surface surface;
    surface.resize(400, 300);
    surface.show();
    QSignalSpy died(&surface, &DocumentSurface::rendererDied);
    QVERIFY(QTest::qWaitForWindowExposed(&surface));
    QTRY_VERIFY(probe(surface).rendererPid() > 0);
    endRenderer(surface);
    QVERIFY(surface.write(QStringLiteral("x")));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("x")));
}

void TestWebBrowser::rendererEndsDuringRead()
{
    Surface surface(QStringLiteral("<p>word ").repeated(100000));
    QSignalSpy died(&surface, &DocumentSurface::rendererDied);
    endRendererSoon(surface);
    QVERIFY_THROWS_EXCEPTION(SurfaceLost, surface.innerHtml());
    QVERIFY_THROWS_EXCEPTION(SurfaceLost, surface.innerHtml()); // not the empty document either
    QTest::qWait(100);
    QCOMPARE(died.count(), 0); // who asked was told
    QVERIFY(surface.write(QStringLiteral("x")));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("x")));
}

/// A loss is told when nobody waits for the engine: who is told may ask it things.
void TestWebBrowser::rendererEndsDuringAnothersRead()
{
    Surface lost(QStringLiteral("x"));
    Surface asked(QStringLiteral("y"));
    QVERIFY(probe(lost).rendererPid() != probe(asked).rendererPid());
    QSignalSpy died(&lost, &DocumentSurface::rendererDied);
    bool meanwhile = false;
    connect(&lost, &DocumentSurface::rendererDied, &lost, [&] { meanwhile = EngineWait::isUnderWay(); });
    endRendererSoon(lost);
    QCOMPARE(value(asked, "for (const from = Date.now(); Date.now() < from + 1000;) {} 'done'"),
             QStringLiteral("done"));
    QCOMPARE(probe(lost).rendererPid(), 0); // the news came while it was asked
    QTRY_COMPARE(died.count(), 1);
    QVERIFY(!meanwhile);
}

void TestWebBrowser::rendererEndsDuringWrite()
{
    Surface surface(QStringLiteral("x"));
    QSignalSpy died(&surface, &DocumentSurface::rendererDied);
    endRendererSoon(surface);
    const QString html = QStringLiteral("<P>word</P>\r\n").repeated(50000);
    QVERIFY(surface.write(html)); // in a new one
    QVERIFY(surface.innerHtml().count(QStringLiteral("word")) == 50000);
    QCOMPARE(died.count(), 0);
}

void TestWebBrowser::endlessScript()
{
    DocumentSurface browser;
    QVERIFY(browser.write(QStringLiteral("x")));
    probe(browser).setPatience(1500);
    QSignalSpy died(&browser, &DocumentSurface::rendererDied);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!browser.write(QStringLiteral("<script>for (;;);</script>")));
    QVERIFY(clock.elapsed() < 20000);
    QCOMPARE(probe(browser).rendererPid(), 0); // nothing goes on for ever out of sight
    QVERIFY_THROWS_EXCEPTION(SurfaceLost, browser.innerHtml());
    QCOMPARE(died.count(), 0);
    probe(browser).setPatience(5000);
    QVERIFY(browser.write(QStringLiteral("<p>ok")));
    QCOMPARE(browser.innerHtml(), page(QStringLiteral("\r\n<P>ok</P>")));
}

namespace {

/// A page that hangs a moment after it was written.
const QString Hangs =
    QStringLiteral("<script>onmessage = () => { for (;;); }; postMessage('', '*')</script>");

} // namespace

void TestWebBrowser::endlessTask()
{
    DocumentSurface browser;
    QVERIFY(browser.write(Hangs));
    probe(browser).setPatience(1500);
    const auto isLost = [&] {
        try {
            browser.innerHtml(); // may come before the page hangs
        } catch (const SurfaceLost&) {
            return true;
        }
        return false;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isLost(), 20000);
    QVERIFY(browser.write(Hangs));
    QVERIFY(browser.write(QStringLiteral("<p>ok")));
    QCOMPARE(browser.innerHtml(), page(QStringLiteral("\r\n<P>ok</P>")));
}

namespace {

/// A design surface whose page does nothing until `goOn`, in a window with what may be clicked while it
/// waits.
struct SlowDesk
{
    SlowDesk()
    {
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* widget : std::initializer_list<QWidget*>{surface, stop, other, field})
            layout->addWidget(widget);
        window.resize(400, 400);
        InputGate::letThrough(*stop);
        surface->setDesignMode(DesignMode::On);
        probe(surface).setPatience(200);
        window.show();
        QVERIFY(surface->write(QStringLiteral("<p>Lamp")));
        QVERIFY(surface->execCommand(QStringLiteral("SelectAll")));
        QObject::connect(stop, &QPushButton::clicked, surface, &DocumentSurface::stopWaiting);
        QObject::connect(stop, &QPushButton::clicked, [this] { ++stops; });
        QObject::connect(other, &QPushButton::clicked, [this] { ++others; });
    }
    ~SlowDesk() { goOn(); }
    Q_DISABLE_COPY_MOVE(SlowDesk)

    void holdUp()
    {
        pid = pid_t(probe(surface).rendererPid());
        QVERIFY(pid > 0);
        ::kill(pid, SIGSTOP);
    }
    void goOn() const
    {
        if (pid > 0)
            ::kill(pid, SIGCONT);
    }
    /// A click as it comes from the window system.
    void click(const QPushButton* button) const
    {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          button->mapTo(&window, button->rect().center()));
    }

    QWidget window;
    DocumentSurface* surface = new DocumentSurface(&window);
    QPushButton* stop = new QPushButton(QStringLiteral("Stop"), &window);
    QPushButton* other = new QPushButton(QStringLiteral("Other"), &window);
    QLineEdit* field = new QLineEdit(&window);
    pid_t pid = 0;
    int stops = 0;
    int others = 0;
};

} // namespace

void TestWebBrowser::designSurfaceWaits()
{
    SlowDesk desk;
    desk.field->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&desk.window));
    QShortcut shortcut(Qt::Key_F5, &desk.window);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    QList<bool> told;
    connect(desk.surface, &DocumentSurface::waitsLong, this, [&](bool waits) {
        told.push_back(waits);
        if (!waits)
            return;
        QTimer::singleShot(0, desk.surface, [&] {
            desk.click(desk.other);
            QTest::keyClick(desk.window.windowHandle(), 'x');
            QTest::keyClick(desk.window.windowHandle(), 'y');
            QTest::keyClick(desk.window.windowHandle(), Qt::Key_F5);
            desk.window.windowHandle()->close();
            QCoreApplication::processEvents();
            QCOMPARE(desk.others + activated.count(), 0);
            QCOMPARE(desk.field->text(), QString());
            desk.goOn();
        });
    });
    desk.holdUp();
    QVERIFY(desk.surface->execCommand(QStringLiteral("Bold")));
    QCOMPARE(told, (QList<bool>{true, false}));
    QCOMPARE(desk.surface->innerHtml(), page(QStringLiteral("\r\n<P><B>Lamp</B></P>")));
    QTRY_COMPARE(desk.field->text(), QStringLiteral("xy")); // what was typed comes afterwards
    QVERIFY(desk.window.isVisible());
    desk.click(desk.other);
    QCOMPARE(desk.others, 1);
}

void TestWebBrowser::designSurfaceIsStopped()
{
    SlowDesk desk;
    QVERIFY(QTest::qWaitForWindowActive(&desk.window));
    connect(desk.surface, &DocumentSurface::waitsLong, this, [&](bool waits) {
        if (waits)
            QTimer::singleShot(0, desk.surface, [&] { desk.click(desk.stop); });
    });
    desk.holdUp();
    QVERIFY(!desk.surface->execCommand(QStringLiteral("Bold")));
    QCOMPARE(desk.stops, 1);
    QTRY_VERIFY(!desk.surface->hasDocument());
    QVERIFY(desk.surface->write(QStringLiteral("<p>again")));
    QCOMPARE(desk.surface->innerHtml(), page(QStringLiteral("\r\n<P>again</P>")));
}

void TestWebBrowser::nobodyToStopIt_data()
{
    QTest::addColumn<bool>("design");
    QTest::addColumn<bool>("heard");
    QTest::newRow("a design surface of which nobody hears") << true << false;
    QTest::newRow("a preview, whose scripts may be without end") << false << true;
}

void TestWebBrowser::nobodyToStopIt()
{
    QFETCH(bool, design);
    QFETCH(bool, heard);
    SlowDesk desk;
    if (!design)
        desk.surface->setDesignMode(DesignMode::Off);
    bool told = false;
    if (heard)
        connect(desk.surface, &DocumentSurface::waitsLong, this, [&] { told = true; });
    desk.holdUp();
    QVERIFY_THROWS_EXCEPTION(SurfaceLost, desk.surface->innerHtml());
    QVERIFY(!told);
}

void TestWebBrowser::editsAreReadAhead()
{
    ScriptedDoors desktop;
    Surface surface;
    QString read;
    connect(&surface, &DocumentSurface::editsRead, this, [&](const QString& html) { read = html; });
    connect(&surface, &DocumentSurface::waitsLong, this, [] {}); // as a window does: no limit then
    QString lines;
    for (int i = 0; i < 150; ++i)
        lines += QStringLiteral("<p>%1</p>").arg(i);
    QVERIFY(surface.write(lines));
    QVERIFY(surface.execCommand(QStringLiteral("InsertText"), QStringLiteral("first ")));
    QVERIFY(surface.execCommand(QStringLiteral("Bold"))); // of nothing
    QCOMPARE(read, QString());
    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(surface.execCommand(QStringLiteral("InsertUnorderedList")));
    QVERIFY(read.contains(QStringLiteral("<P>first 0</P>")));
    QVERIFY(!read.contains(QStringLiteral("<LI>")));

    read.clear();
    auto clip = std::make_unique<QMimeData>();
    clip->setText(QString(30000, u'x'));
    desktop.setClipboard(std::move(clip));
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    QVERIFY(read.contains(QStringLiteral("<LI>first 0")));
    QVERIFY(!read.contains(QStringLiteral("xxx")));
}

void TestWebBrowser::endlessTaskBeforeACommand()
{
    DocumentSurface browser;
    QVERIFY(browser.write(Hangs));
    probe(browser).setPatience(1500);
    QSignalSpy died(&browser, &DocumentSurface::rendererDied);
    const auto hasDied = [&] {
        browser.execCommand(QStringLiteral("Bold"));
        return died.count() == 1;
    };
    QTRY_VERIFY_WITH_TIMEOUT(hasDied(), 20000);
    QVERIFY(!browser.execCommand(QStringLiteral("Bold")));
}

void TestWebBrowser::scriptMessages()
{
    ScriptedDoors desktop;
    DocumentSurface browser;
    // While the page is written nobody is asked...
    QVERIFY(browser.write(QStringLiteral("<script>alert(1); confirm(2); prompt(3)</script>ok")));
    QVERIFY(browser.innerHtml().endsWith(QStringLiteral(">ok</BODY>")));
    QCOMPARE(desktop.asked, QStringList());
    // ... later the user is, and leaving is never refused.
    bool replaced = true;
    desktop.during([&] {
        replaced = browser.write(QStringLiteral("too early"));
        QVERIFY_THROWS_EXCEPTION(SurfaceLost, browser.innerHtml());
    });
    desktop.answerMsgBox(MsgAnswer::Ok);
    QVERIFY(browser.write(QStringLiteral(
        "<script>onbeforeunload = () => 'stay'; setTimeout(() => alert('sold'), 50)</script>")));
    QTRY_COMPARE(desktop.asked, QStringList{QStringLiteral("MsgBox|Message of the page|sold|None|Ok")});
    QVERIFY(!replaced);
    QVERIFY(browser.write(QStringLiteral("next")));
    QCOMPARE(browser.innerHtml(), page(QStringLiteral("next")));
}

void TestWebBrowser::messagesWithoutEnd()
{
    ScriptedDoors desktop;
    DocumentSurface browser;
    for (int i = 0; i < 10; ++i)
        desktop.answerMsgBox(MsgAnswer::Ok);
    QVERIFY(browser.write(
        QStringLiteral("<script>let n = 0; setTimeout(() => { while (n < 50) alert(++n) }, 50)</script>")));
    QTRY_COMPARE(desktop.asked.size(), 10);
    QCOMPARE(browser.innerHtml().count(QStringLiteral("alert")), 1); // the page has come to its end
    QCOMPARE(desktop.asked.size(), 10);
    QCOMPARE(desktop.asked.constLast(), QStringLiteral("MsgBox|Message of the page|10|None|Ok"));
}

/// The engine waits for the user's answer, and with it all pages. Nobody loses anything by it.
void TestWebBrowser::messageOfAnotherPage()
{
    ScriptedDoors desktop;
    DocumentSurface asking;
    Surface surface(QStringLiteral("<p>a"));
    Sample sample;
    probe(surface).setPatience(500);
    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(surface.execCommand(QStringLiteral("Bold")));
    bool replaced = true;
    desktop.during([&] {
        replaced = surface.write(QStringLiteral("too early"));
        QVERIFY_THROWS_EXCEPTION(SurfaceLost, surface.innerHtml());
        sample.writeSoon(QStringLiteral("<p>b"));
        QTest::qWait(100); // would show it now
    });
    desktop.answerMsgBox(MsgAnswer::Ok);
    QVERIFY(asking.write(QStringLiteral("<script>setTimeout(() => alert('sold'), 50)</script>")));
    QTRY_COMPARE(desktop.asked.size(), 1);
    QVERIFY(!replaced);
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P><B>a</B></P>")));
    QTRY_COMPARE(value(sample, "document.body.innerText"), QStringLiteral("b"));
}

/// Who waits for one page can't answer another.
void TestWebBrowser::messageWhileTheProgramWaits()
{
    ScriptedDoors desktop;
    DocumentSurface asking;
    Surface surface(QStringLiteral("<p>a"));
    QVERIFY(asking.write(
        QStringLiteral("<script>setTimeout(() => { alert('sold'); document.title = 'on' }, 200)</script>")));
    QElapsedTimer clock;
    clock.start();
    do { // the program only waits from here on
        QVERIFY(probe(surface).evaluate(
            QStringLiteral("for (const end = Date.now() + 100; Date.now() < end;); true")));
    } while (value(asking, "document.title") != QLatin1String("on") && clock.elapsed() < Patience);
    QCOMPARE(value(asking, "document.title"), QStringLiteral("on"));
    QCOMPARE(desktop.asked, QStringList());
}

void TestWebBrowser::hiddenMethods()
{
    DocumentSurface browser;
    const QString html = QStringLiteral(
        "<SCRIPT>document.open = document.write = document.close = null; "
        "Document.prototype.write = Element.prototype.closest = null; getSelection = null</SCRIPT>"
        "<FORM name=write><INPUT name=firstChild></FORM><FORM name=documentElement></FORM>"
        "<IMG name=execCommand><FORM name=querySelectorAll></FORM><IMG name=adoptedStyleSheets>");
    QVERIFY(browser.write(html));
    QVERIFY(browser.innerHtml().contains(QStringLiteral("<IMG name=execCommand>")));
    QVERIFY(browser.write(QStringLiteral("x")));
    QCOMPARE(browser.innerHtml(), page(QStringLiteral("x")));
    browser.setDesignMode(DesignMode::On);
    QVERIFY(browser.write(html));
    QVERIFY(browser.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(browser.write(QStringLiteral("x")));
    QCOMPARE(browser.innerHtml(), page(QStringLiteral("x")));
}

// ---- What a document may do

namespace {

/// A folder with a picture, a page, a script and a style.
class Files
{
public:
    Files()
    {
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(m_folder.filePath(QStringLiteral("p.png")));
        put("page.htm", "<title>page</title>secret");
        put("script.js", "document.title = 'loaded'");
        put("style.css", "body { color: rgb(1, 2, 3) }");
    }

    void put(const char* name, const char* text)
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0)
            qFatal("cannot write %s", name);
    }

    QString url(const char* name) const
    {
        return QUrl::fromLocalFile(m_folder.filePath(QString::fromLatin1(name))).toString();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

void TestWebBrowser::picturesAreLoaded()
{
    const Files files;
    Surface surface(QStringLiteral("<img src='%1'>").arg(files.url("p.png")));
    QTRY_COMPARE(value(surface, "String(document.images[0].naturalWidth)"), QStringLiteral("3"));
}

/// A page may show a picture of this machine and must not read it, also where a file was shown before.
void TestWebBrowser::picturesOfFilesStaySecret()
{
    const Files files;
    DocumentSurface browser;
    browser.Navigate(files.url("page.htm"));
    QTRY_COMPARE(value(browser, "document.title"), QStringLiteral("page"));
    QVERIFY(
        browser.write(QStringLiteral("<script>function read(picture) { try {"
                                     "  const canvas = document.createElement('canvas').getContext('2d');"
                                     "  canvas.drawImage(picture, 0, 0);"
                                     "  document.title = String(canvas.getImageData(0, 0, 1, 1).data);"
                                     "} catch (error) { document.title = error.name } }</script>"
                                     "<img src='%1' onload='read(this)' onerror='document.title = \"none\"'>")
                          .arg(files.url("p.png"))));
    QTRY_VERIFY(!value(browser, "document.title").isEmpty());
    QCOMPARE(value(browser, "document.title"), QStringLiteral("SecurityError"));
}

void TestWebBrowser::filesAreRefused()
{
    Files files;
    files.put("frame.htm", "<script>parent.postMessage('frame', '*')</script>");
    DocumentSurface browser;
    // Each thing that is refused adds a letter to the title, each that is loaded a "!".
    QVERIFY(browser.write(
        QStringLiteral("<script>const say = text => document.title += text; onmessage = () => say('!'); "
                       "onload = () => fetch('%3').then(() => say('!'), () => say('d'))</script>"
                       "<link rel=stylesheet href='%1' onerror='say(\"a\")' onload='say(\"!\")'>"
                       "<script src='%2' onerror='say(\"b\")' onload='say(\"!\")'></script>"
                       "<video src='%3' onerror='say(\"c\")'></video>"
                       "<iframe src='%3'></iframe><object data='%3'></object><embed src='%3'>")
            .arg(files.url("style.css"), files.url("script.js"), files.url("frame.htm"))));
    QTRY_COMPARE(value(browser, "[...document.title].sort().join('')"), QStringLiteral("abcd"));
    QTest::qWait(200); // for a frame that should not come
    QCOMPARE(value(browser, "[...document.title].sort().join('')"), QStringLiteral("abcd"));
    QCOMPARE(value(browser, "getComputedStyle(document.body).color"), QStringLiteral("rgb(0, 0, 0)"));
}

void TestWebBrowser::drops_data()
{
    using Make = std::function<WebControl*(const QString& html, WebServer& server)>;
    const auto surface = [](DesignMode mode) -> Make {
        return [mode](const QString& html, WebServer&) {
            auto* made = new DocumentSurface;
            made->setDesignMode(mode);
            made->write(html);
            return made;
        };
    };
    const auto sample = [](DesignMode mode) -> Make {
        return [mode](const QString& html, WebServer&) {
            auto* made = new Sample;
            made->setDesignMode(mode);
            made->writeSoon(html);
            return made;
        };
    };
    const Make internet = [](const QString& html, WebServer& server) {
        server.page(QStringLiteral("/page.htm"), html.toUtf8());
        auto* made = new InternetBrowser;
        made->Navigate(server.url(QStringLiteral("/page.htm")));
        return made;
    };
    QTest::addColumn<Make>("make");
    QTest::addColumn<bool>("takesText");
    QTest::newRow("design surface") << surface(DesignMode::On) << true;
    QTest::newRow("preview") << surface(DesignMode::Off) << false;
    QTest::newRow("sample") << sample(DesignMode::Off) << false;
    QTest::newRow("sample in design mode") << sample(DesignMode::On) << false;
    QTest::newRow("internet") << internet << false;
}

/// Files and addresses are dropped nowhere, text on design surfaces alone.
void TestWebBrowser::drops()
{
    using Make = std::function<WebControl*(const QString& html, WebServer& server)>;
    QFETCH(Make, make);
    QFETCH(bool, takesText);
    Files files;
    WebServer server;
    // The page would take and read whatever reaches it.
    const std::unique_ptr<WebControl> control(
        make(QStringLiteral(
                 "<BODY style='height: 150px' ondragover='event.preventDefault()' "
                 "ondrop='event.preventDefault(); document.body.textContent = \"dropped\"'><P>page</BODY>"),
             server));
    WebControl& browser = *control;
    browser.resize(300, 200);
    browser.show();
    QTRY_VERIFY(browser.inputWidget());
    QTRY_COMPARE(value(browser, "document.body.textContent"), QStringLiteral("page"));
    const QString before = value(browser, "document.body.innerHTML");
    const QString place = value(browser, "document.URL");

    QMimeData file;
    file.setUrls({QUrl(files.url("page.htm"))});
    QMimeData address;
    address.setUrls({QUrl(QStringLiteral("http://127.0.0.1/page.htm"))});
    address.setText(QStringLiteral("http://127.0.0.1/page.htm"));
    QMimeData text;
    text.setText(QStringLiteral("word"));
    QMimeData html;
    html.setHtml(QStringLiteral("<B>word</B>"));
    html.setText(QStringLiteral("word"));
    QMimeData picture;
    picture.setImageData(QImage(2, 2, QImage::Format_RGB32));
    for (const QMimeData* dragged : {&file, &address, &picture})
        QVERIFY(!isTaken(browser, *dragged));
    for (const QMimeData* dragged : {&text, &html})
        QCOMPARE(isTaken(browser, *dragged), takesText);
    if (!takesText)
        QVERIFY(!drop(browser, text));
    QVERIFY(!drop(browser, file));
    QCOMPARE(value(browser, "document.body.innerHTML"), before);
    QCOMPARE(value(browser, "document.URL"), place);
}

void TestWebBrowser::dropOfTextOnADesignSurface()
{
    Surface surface(QStringLiteral("<P>page</P>"));
    surface.resize(300, 200);
    surface.show();
    QVERIFY(QTest::qWaitForWindowExposed(&surface));
    QTRY_VERIFY(surface.inputWidget());
    QMimeData text;
    text.setText(QStringLiteral("word"));
    // A drop on a page that was just shown can come before its layout.
    QTRY_VERIFY(drop(surface, text) && surface.innerHtml().contains(QStringLiteral("word")));
}

void TestWebBrowser::documentsStay_data()
{
    QTest::addColumn<QString>("html");
    const auto row = [](const char* name, const char* html) {
        QTest::newRow(name) << QString::fromLatin1(html);
    };
    row("refresh", "x<meta http-equiv=refresh content='0; url=http://away.invalid/'>");
    row("script", "x<script>location = 'http://away.invalid/'</script>");
    row("form", "x<form action='http://away.invalid/'></form><script>document.forms[0].submit()</script>");
    row("reload", "x<script>setTimeout(() => location.reload(), 1)</script>");
}

void TestWebBrowser::documentsStay()
{
    QFETCH(QString, html);
    DocumentSurface browser;
    QSignalSpy status(&browser, &DocumentSurface::statusTextChanged);
    QVERIFY(browser.write(html));
    QTRY_VERIFY(isRefused(status));
    QTest::qWait(100); // for the page that should not come
    QVERIFY(browser.innerHtml().contains(QStringLiteral("<BODY>x")));
    QCOMPARE(value(browser, "location.href"), QStringLiteral("surface:blank"));
}

void TestWebBrowser::linksDontLeave()
{
    for (const DesignMode mode : {DesignMode::Off, DesignMode::On}) {
        DocumentSurface browser;
        browser.setDesignMode(mode);
        browser.resize(400, 300);
        browser.show();
        QVERIFY(QTest::qWaitForWindowExposed(&browser));
        QVERIFY(browser.write(QStringLiteral("<body style='margin: 0'><a href='http://away.invalid/' "
                                             "style='display: block; height: 200px'>link</a>")));
        QSignalSpy status(&browser, &DocumentSurface::statusTextChanged);
        const auto click = [&] {
            QTest::mouseClick(browser.inputWidget(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
            QTest::qWait(100);
            return isRefused(status);
        };
        if (mode == DesignMode::Off) {
            QTRY_VERIFY(click());
        } else {
            click(); // in a surface a click only places the caret
        }
        QCOMPARE(value(browser, "location.href"), QStringLiteral("surface:blank"));
    }
}

void TestWebBrowser::windowsAndDownloads()
{
    const qsizetype windows = QApplication::topLevelWidgets().size();
    DocumentSurface browser;
    QVERIFY(browser.write(
        QStringLiteral("<a download=x.txt href='data:text/plain,x'>x</a><script>document.title = "
                       "String(open('about:blank')); document.links[0].click()</script>")));
    QCOMPARE(value(browser, "document.title"), QStringLiteral("null"));
    QTest::qWait(200);
    QCOMPARE(QApplication::topLevelWidgets().size(), windows + 1); // its own
    QCOMPARE(value(browser, "location.href"), QStringLiteral("surface:blank"));
}

// ---- Going places

void TestWebBrowser::navigation()
{
    WebServer server;
    server.page(QStringLiteral("/a.htm"), "first");
    server.page(QStringLiteral("/b.htm"), "second");
    InternetBrowser browser;
    QSignalSpy finished(&browser, &InternetBrowser::navigationFinished);
    QSignalSpy status(&browser, &InternetBrowser::statusTextChanged);
    QSignalSpy progress(&browser, &InternetBrowser::progressChanged);
    const auto text = [&] { return value(browser, "document.body.innerText").trimmed(); };
    const auto done = [&](int count) {
        return finished.count() == count && finished.last().first().toBool();
    };

    browser.show();
    QTRY_COMPARE(value(browser, "document.URL"), QStringLiteral("surface:blank"));
    QCOMPARE(status.count() + finished.count(), 0); // nobody asked for that one
    browser.Navigate(server.url(QStringLiteral("/a.htm")));
    QTRY_VERIFY(done(1));
    QCOMPARE(text(), QStringLiteral("first"));
    QCOMPARE(status.last().first().toString(), QStringLiteral("Done"));
    QVERIFY(std::any_of(progress.begin(), progress.end(),
                        [](const QVariantList& p) { return p.at(1).toInt() == 100; }));
    QCOMPARE(progress.last(), (QVariantList{0, 0}));

    QVERIFY(!browser.GoBack()); // the blank page is no place
    browser.Navigate(server.url(QStringLiteral("/b.htm")));
    QTRY_VERIFY(done(2));
    QVERIFY(browser.GoBack());
    QTRY_VERIFY(done(3));
    QCOMPARE(text(), QStringLiteral("first"));
    QVERIFY(browser.GoForward());
    QTRY_VERIFY(done(4));
    QCOMPARE(text(), QStringLiteral("second"));
    server.page(QStringLiteral("/b.htm"), "changed");
    browser.Refresh();
    QTRY_VERIFY(done(5));
    QCOMPARE(text(), QStringLiteral("changed"));
    QVERIFY(!browser.GoForward());
}

void TestWebBrowser::pageAskedForWhileTheEmptyOneArrives()
{
    WebServer server;
    server.page(QStringLiteral("/a.htm"), "first");
    for (int i = 0; i < 10; ++i) { // Qt 6.8 ends the empty page after the next one began, now and then
        InternetBrowser browser;
        const QSignalSpy finished(&browser, &InternetBrowser::navigationFinished);
        browser.show();
        auto* const page = browser.findChild<QWebEnginePage*>();
        connect(
            page, &QWebEnginePage::urlChanged, &browser,
            [&] { browser.Navigate(server.url(QStringLiteral("/a.htm"))); }, Qt::SingleShotConnection);
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(value(browser, "document.body.innerText").trimmed(), QStringLiteral("first"));
    }
}

void TestWebBrowser::navigationAndWrite()
{
    const Files files;
    Surface surface;
    for (int i = 0; i < 5; ++i) { // what is written last stays
        surface.Navigate(files.url("page.htm"));
        QVERIFY(surface.write(QStringLiteral("mine")));
        QTest::qWait(50);
        QCOMPARE(surface.innerHtml(), page(QStringLiteral("mine")));
    }
    QSignalSpy finished(&surface, &DocumentSurface::navigationFinished);
    surface.Navigate(files.url("page.htm"));
    QTRY_COMPARE(finished.count(), 1);
    QVERIFY(surface.innerHtml().contains(QStringLiteral("secret")));
    surface.Navigate(QStringLiteral("about:blank"));
    QCOMPARE(surface.innerHtml(), page(QString()));
}

void TestWebBrowser::addressesThatFailLeaveTheDocument_data()
{
    QTest::addColumn<bool>("design");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("status"); // its beginning
    const QString failed = QStringLiteral("The page ");
    const QString file = QStringLiteral("Refused: the page offers a file");
    for (const bool design : {true, false}) {
        const auto row = [&](const char* name, const char* path, const QString& status) {
            QTest::addRow("%s, design %s", name, design ? "on" : "off")
                << design << QString::fromLatin1(path) << status;
        };
        row("no server", "http://127.0.0.1:1/", failed);
        row("no file", "/no/such/file.htm", failed);
        row("no page, and nothing said", "/empty", failed);
        row("connection closed", "/shut", failed);
        row("download", "/file", file);
        row("way to nowhere", "/astray", failed);
    }
}

void TestWebBrowser::addressesThatFailLeaveTheDocument()
{
    QFETCH(bool, design);
    QFETCH(QString, path);
    QFETCH(QString, status);
    WebServer server;
    server.answer(QStringLiteral("/empty"), "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
    server.answer(QStringLiteral("/shut"), QByteArray());
    server.answer(QStringLiteral("/file"), "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\n"
                                           "Content-Disposition: attachment; filename=a.bin\r\n\r\nMZ");
    server.redirect(QStringLiteral("/astray"), QStringLiteral("http://127.0.0.1:1/"));
    const bool served = !path.startsWith(QLatin1String("http")) && !path.startsWith(QLatin1String("/no"));
    DocumentSurface surface;
    surface.show();
    if (design)
        surface.setDesignMode(DesignMode::On);
    QVERIFY(surface.write(QStringLiteral("<p>Lamp")));
    if (design)
        QVERIFY(surface.execCommand(QStringLiteral("InsertText"), QStringLiteral("A")));
    const QSignalSpy finished(&surface, &DocumentSurface::navigationFinished);
    const QSignalSpy told(&surface, &DocumentSurface::statusTextChanged);
    surface.Navigate(served ? server.url(path) : path);
    if (design)
        QVERIFY(surface.execCommand(QStringLiteral("InsertText"), QStringLiteral("B")));
    QTRY_COMPARE(finished.count(), 1);
    QVERIFY(!finished.constFirst().constFirst().toBool());
    QTRY_VERIFY2(told.constLast().constFirst().toString().startsWith(status),
                 qPrintable(told.constLast().constFirst().toString()));
    QCOMPARE(surface.innerHtml(),
             page(design ? QStringLiteral("\r\n<P>ABLamp</P>") : QStringLiteral("\r\n<P>Lamp</P>")));
    if (design) { // it was never left
        QVERIFY(surface.execCommand(QStringLiteral("Undo")));
        QVERIFY(!surface.innerHtml().contains(QStringLiteral("AB")));
    }
    QTRY_COMPARE(surface.findChildren<QWebEnginePage*>().size(), 1);
}

void TestWebBrowser::pageOfAnAddressTakesTheDocumentsPlace()
{
    WebServer server;
    server.page(QStringLiteral("/page"), "<p id=a>there<img src=/hangs>");
    server.hang(QStringLiteral("/hangs"));
    server.page(QStringLiteral("/whole"), "whole");
    DocumentSurface surface;
    surface.setDesignMode(DesignMode::On);
    surface.show();
    QVERIFY(surface.write(QStringLiteral("mine")));
    surface.setFocus();
    surface.Navigate(server.url(QStringLiteral("/page")));
    QTRY_COMPARE(value(surface, "document.querySelector('p')?.innerText"), QStringLiteral("there"));
    QCOMPARE(value(surface, "document.designMode"), QStringLiteral("on"));
    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QTRY_VERIFY(surface.inputWidget() && surface.inputWidget()->isVisible());

    const QSignalSpy finished(&surface, &DocumentSurface::navigationFinished);
    surface.Navigate(server.url(QStringLiteral("/whole"))); // the document's picture may still be on its way
    QTRY_COMPARE(finished.count(), 1);
    QVERIFY(finished.constFirst().constFirst().toBool());
    QCOMPARE(value(surface, "document.body.innerText"), QStringLiteral("whole"));
    QVERIFY(surface.write(QStringLiteral("again")));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("again")));
    endRenderer(surface); // the page that came is watched as the first one was
    QTRY_VERIFY(!surface.hasDocument());
}

void TestWebBrowser::addresses()
{
    DocumentSurface browser;
    QVERIFY(browser.write(QStringLiteral("x")));
    QSignalSpy status(&browser, &DocumentSurface::statusTextChanged);
    browser.Navigate(QStringLiteral("javascript:document.title='ran'"));
    QCOMPARE(status.count(), 1);
    QCOMPARE(value(browser, "document.title"), QString());
    QSignalSpy finished(&browser, &DocumentSurface::navigationFinished);
    browser.Navigate(QStringLiteral("/no/such/file.htm"));
    QTRY_COMPARE(finished.count(), 1);
    QVERIFY(!finished.first().first().toBool());
}

void TestWebBrowser::zoom()
{
    DocumentSurface browser;
    browser.resize(400, 300);
    browser.show();
    QVERIFY(browser.write(QStringLiteral("x")));
    QCOMPARE(browser.zoomLevel(), 2);
    browser.setZoomLevel(4);
    QTRY_COMPARE(value(browser, "devicePixelRatio.toFixed(1)"), QStringLiteral("1.6"));
    QVERIFY(browser.write(QStringLiteral("y"))); // stays
    QTRY_COMPARE(value(browser, "devicePixelRatio.toFixed(1)"), QStringLiteral("1.6"));
    endRenderer(browser);
    QTRY_COMPARE(probe(browser).rendererPid(), 0);
    QVERIFY(browser.write(QStringLiteral("z"))); // in a new one too
    QTRY_COMPARE(value(browser, "devicePixelRatio.toFixed(1)"), QStringLiteral("1.6"));
    browser.setZoomLevel(-1);
    QCOMPARE(browser.zoomLevel(), 0);
    QTRY_COMPARE(value(browser, "devicePixelRatio.toFixed(1)"), QStringLiteral("0.6"));

    DocumentSurface later; // of a page that is yet to come
    later.setZoomLevel(4);
    later.resize(400, 300);
    later.show();
    QVERIFY(later.write(QStringLiteral("x")));
    QTRY_COMPARE(value(later, "devicePixelRatio.toFixed(1)"), QStringLiteral("1.6"));
}

void TestWebBrowser::signsOfALateAnswer_data()
{
    QTest::addColumn<int>("late"); // ms; 0 without end
    QTest::addColumn<bool>("answered");
    QTest::newRow("late") << 1500 << true;
    QTest::newRow("never") << 0 << false;
    QTest::newRow("not after the renderer's end") << -1 << false;
}

/// While a page is waited for, the hourglass stands, after a while also the window with the bar; both go with
/// the wait, whatever its end.
void TestWebBrowser::signsOfALateAnswer()
{
    QFETCH(int, late);
    QFETCH(bool, answered);
    Surface surface(QStringLiteral("<P>page"));
    probe(surface).setPatience(late > 0 ? 30000 : 1500);
    bool hourglass = false;
    bool window = false;
    QTimer look;
    connect(&look, &QTimer::timeout, &look, [&] {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        hourglass = hourglass || (cursor && cursor->shape() == Qt::WaitCursor);
        window = window || signWindowStands();
        if (window && late < 0) {
            look.stop();
            endRenderer(surface);
        }
    });
    look.start(10);
    const QString script =
        late > 0 ? QStringLiteral("for (const end = Date.now() + %1; Date.now() < end;); 7").arg(late)
                 : QStringLiteral("for (;;);");
    QCOMPARE(probe(surface).evaluate(script).has_value(), answered);
    QVERIFY(hourglass);
    QVERIFY(window);
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!signWindowStands());
    QVERIFY(surface.write(QStringLiteral("x")));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestWebBrowser::signsGoWithTheControl()
{
    auto* surface = new Surface(QStringLiteral("<P>page"));
    QTimer look;
    connect(&look, &QTimer::timeout, &look, [&] {
        if (!signWindowStands())
            return;
        look.stop();
        delete surface;
    });
    look.start(10);
    QVERIFY_THROWS_EXCEPTION(SurfaceLost, probe(surface).evaluate(QStringLiteral("for (;;);")));
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!signWindowStands());
}

void TestWebBrowser::severalAtOnce()
{
    DocumentSurface first;
    Surface second;
    QVERIFY(first.write(
        QStringLiteral("<script>onmessage = () => { for (;;); }; postMessage('', '*')</script>")));
    QVERIFY(second.write(QStringLiteral("free"))); // a renderer each
    QCOMPARE(second.innerHtml(), page(QStringLiteral("free")));
    QVERIFY(probe(first).rendererPid() != probe(second).rendererPid());
    endRenderer(first);
}

void TestWebBrowser::samplesShowTheLastPage()
{
    Sample sample;
    for (int i = 0; i < 100; ++i)
        sample.writeSoon(QStringLiteral("<P>%1</P>").arg(i));
    QTRY_COMPARE(printed(sample), page(QStringLiteral("\r\n<P>99</P>")));

    // No one asks: the page is there all the same, and many more came than the engine was given.
    probe(sample).evaluate(
        QStringLiteral("globalThis.pages = 0; const open = Document.prototype.open;"
                       "Document.prototype.open = function () { ++pages; return open.call(this) }"));
    for (int i = 0; i < 100; ++i)
        sample.writeSoon(QStringLiteral("<P>now %1</P>").arg(i));
    QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("now 99"));
    const int pages = value(sample, "String(globalThis.pages)").toInt();
    QVERIFY2(pages >= 1 && pages <= 10, qPrintable(QString::number(pages)));
}

/// While the page before is on its way to the engine.
void TestWebBrowser::samplesGivenMeanwhileAreShown()
{
    Sample sample;
    sample.writeSoon(QStringLiteral("<P>at first</P>"));
    QTRY_VERIFY(!WebProbe::isWriting(sample));
    sample.writeSoon(QStringLiteral("<P>first</P>"));
    QTimer behind; // the control's own timer
    behind.callOnTimeout(&sample, [&] {
        behind.stop();
        sample.writeSoon(QStringLiteral("<P>second</P>"));
    });
    behind.start(0);
    QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("second"));
}

void TestWebBrowser::samplesRunNoScripts()
{
    Sample sample;
    const QString html = QStringLiteral("<SCRIPT>document.title = 'ran'</SCRIPT><P>x</P>");
    sample.writeSoon(html);
    QTRY_VERIFY(printed(sample).contains(html.left(20)));
    QCOMPARE(value(sample, "document.title"), QString());
    QCOMPARE(value(sample, "document.designMode"), QStringLiteral("off"));
}

void TestWebBrowser::samplesSurviveTheirRenderer()
{
    Sample sample;
    sample.writeSoon(QStringLiteral("before"));
    QTRY_COMPARE(printed(sample), page(QStringLiteral("before")));
    QSignalSpy died(&sample, &Sample::rendererDied);
    endRenderer(sample);
    sample.writeSoon(QStringLiteral("between"));
    sample.writeSoon(QStringLiteral("after"));
    QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("after"));

    // Dead while the engine has a page of which nobody will hear again.
    sample.writeSoon(QStringLiteral("lost"));
    endRendererSoon(sample);
    QTRY_VERIFY(!died.isEmpty());
    sample.writeSoon(QStringLiteral("found"));
    QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("found"));
}

void TestWebBrowser::samplesComeBack()
{
    // Also when nothing is changed any more.
    Sample sample;
    sample.writeSoon(QStringLiteral("kept"));
    for (int round = 0; round < 3; ++round) {
        QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("kept"));
        QSignalSpy died(&sample, &Sample::rendererDied);
        endRenderer(sample);
        QTRY_VERIFY(!died.isEmpty());
    }
    QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("kept"));
}

void TestWebBrowser::samplesChangeWhileTheEngineStarts()
{
    // As by a bar whose arrow is held, which goes on while an operation waits.
    Sample sample;
    QTimer bar;
    connect(&bar, &QTimer::timeout, &sample, [&] {
        const auto* page = sample.findChild<QWebEnginePage*>();
        if (!page || !page->isLoading())
            return;
        bar.stop();
        sample.writeSoon(QStringLiteral("new"));
    });
    bar.start(0);
    sample.writeSoon(QStringLiteral("old"));
    QTRY_VERIFY(!bar.isActive());
    QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("new"));
}

void TestWebBrowser::samplesInDesignMode()
{
    Sample sample;
    sample.setDesignMode(DesignMode::On);
    sample.writeSoon(QStringLiteral("one"));
    QTRY_COMPARE(printed(sample), page(QStringLiteral("one")));
    QCOMPARE(value(sample, "document.designMode"), QStringLiteral("on"));
    sample.writeSoon(QStringLiteral("two"));
    QTRY_COMPARE(value(sample, "document.body.textContent"), QStringLiteral("two"));
    sample.setDesignMode(DesignMode::Off);
    QTRY_COMPARE(value(sample, "document.designMode"), QStringLiteral("off"));
    QTRY_COMPARE(printed(sample), page(QStringLiteral("two")));
}

void TestWebBrowser::deletedSample()
{
    QPointer<Sample> sample = new Sample;
    sample->writeSoon(QStringLiteral("x"));
    QTimer::singleShot(0, sample, [&] { delete sample; }); // while the engine is being started
    QTRY_VERIFY(!sample);
    for (const int turns : {0, 1, 2}) {
        auto* another = new Sample;
        another->writeSoon(QStringLiteral("x"));
        QTRY_VERIFY(!printed(*another).isEmpty());
        another->writeSoon(QStringLiteral("y"));
        for (int i = 0; i < turns; ++i)
            QCoreApplication::processEvents();
        delete another;
    }
    QTest::qWait(50); // for what would arrive at a control that is gone
}

void TestWebBrowser::formUnloadedWhileWaiting()
{
    auto* browser = new DocumentSurface;
    const QPointer<DocumentSurface> alive(browser);
    QVERIFY(browser->write(QStringLiteral("x")));
    QTimer::singleShot(20, browser, &QObject::deleteLater);
    QElapsedTimer waited;
    waited.start();
    QVERIFY_THROWS_EXCEPTION(SurfaceLost, probe(browser).evaluate(QStringLiteral(
                                              "const end = Date.now() + 300; while (Date.now() < end); 1")));
    QVERIFY(!alive);
    QVERIFY2(waited.elapsed() < 2000, "it waited for an answer that nobody hears");
}

RENDERER_TEST_MAIN(TestWebBrowser)
#include "tst_webbrowser.moc"
