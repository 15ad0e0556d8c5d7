// SPDX-License-Identifier: GPL-3.0-or-later

// What comes through a paste or a drop on a design surface, what does not, and by which ways it comes.

#include "ScriptedDoors.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "platform/Events.h"
#include "web/DocumentSurface.h"
#include "web/SurfaceScript.h"

#include <QDir>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QMimeData>
#include <QRegularExpression>
#include <QTest>
#include <memory>

using namespace brindlemark;

namespace {

std::unique_ptr<QMimeData> data(const QString& html, const QString& text = QString())
{
    auto given = std::make_unique<QMimeData>();
    given->setHtml(html);
    if (!text.isEmpty())
        given->setText(text);
    return given;
}

/// What stands in the body. Line ends between tags come and go where the engine takes a page apart.
QString body(DocumentSurface& surface)
{
    QString text = surface.innerHtml();
    text = text.mid(text.indexOf(QStringLiteral("<BODY")));
    text = text.mid(text.indexOf(u'>') + 1).chopped(int(qstrlen("</BODY>")));
    return text.remove(QStringLiteral("\r\n"));
}

QString fileText(const QString& name)
{
    QFile file(QStringLiteral(TEST_DATA "/pages/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
}

/// The sample pages that the wizard has made.
QStringList listings()
{
    return QDir(QStringLiteral(TEST_DATA "/pages")).entryList({QStringLiteral("listing-style*.htm")});
}

void addListings()
{
    QTest::addColumn<QString>("file");
    QCOMPARE(listings().size(), 16);
    for (const QString& name : listings())
        QTest::newRow(qPrintable(name)) << name;
}

/// A design surface to be looked at.
class Surface : public DocumentSurface
{
public:
    explicit Surface(const QString& html = QString())
    {
        setDesignMode(DesignMode::On);
        resize(400, 300);
        show();
        write(html);
        if (!QTest::qWaitFor([this] { return inputWidget() != nullptr; }, Patience))
            QTest::qFail("the surface does not come up", __FILE__, __LINE__);
    }

    /// Runs a script over the document that puts the caret somewhere; `s` is the selection.
    void select(const char* script)
    {
        probe(this).evaluate(
            QStringLiteral("(() => { const s = getSelection(), $ = name => document.querySelector(name); "
                           "%1 })()")
                .arg(QLatin1String(script)));
    }

    /// Pastes into the empty page; what it holds then.
    QString pasted()
    {
        write(QString());
        execCommand(QStringLiteral("Paste"));
        return body(*this);
    }
};

/// The middle of the gap in front of a character of the first text of a P, as a place in the view.
QPoint placeOf(Surface& surface, int character, qreal zoom = 1)
{
    const QVariantList point =
        probe(surface)
            .evaluate(QStringLiteral("(() => { document.adoptedStyleSheets = [];"
                                     "const range = document.createRange();"
                                     "range.setStart(document.querySelector('p').firstChild, %1);"
                                     "const box = range.getBoundingClientRect();"
                                     "return [box.x, box.y + box.height / 2] })()")
                          .arg(character))
            .value_or(QVariant())
            .toList();
    return (QPointF(point.value(0).toReal(), point.value(1).toReal()) * zoom).toPoint();
}

/// Lets all through that is pasted on a surface, read and printed once, as a cleaner does.
bool leaveUncleaned(Surface& surface)
{
    return probe(surface).evaluate(
               surfaceCall(QStringLiteral("cleanWith(html => new DOMParser().parseFromString('<body>' + "
                                          "html, 'text/html').body)"))) == true;
}

/// Drags something to a place of a surface and drops it there, whatever the surface says of it. True: it was
/// taken.
bool dropAt(const Surface& surface, QPoint place, const QMimeData& dragged)
{
    QDragEnterEvent enter(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(surface.inputWidget(), &enter);
    for (QEvent* event : std::initializer_list<QEvent*>{&move, &drop})
        QApplication::sendEvent(surface.inputWidget()->parentWidget(), event);
    return drop.isAccepted();
}

} // namespace

class TestPastes : public QObject
{
    Q_OBJECT

private slots:
    void wholeListings_data() { addListings(); }
    void wholeListings();
    void listingsOfOtherPrograms_data() { addListings(); }
    void listingsOfOtherPrograms();
    void partsOfListings_data() { addListings(); }
    void partsOfListings();
    void kept_data();
    void kept();
    void refused_data();
    void refused();
    void longOnes_data();
    void longOnes();
    void tenThousandParagraphs();
    void longOnesThatAreEdited();
    void pagesThatHideNames();
    void keys_data();
    void keys();
    void middleButton();
    void middleButtonElsewhere();
    void dropsLandWhereTheyAreDropped_data();
    void dropsLandWhereTheyAreDropped();
    void dropsWhileAHandlerRuns();
    void oneStepOfUndo();
    void cleanerComesLate();
    void nothingComesUncleaned();
};

/// A listing that is copied and pasted whole loses nothing. The comment in front of all text is not in a
/// selection of all.
void TestPastes::wholeListings()
{
    QFETCH(QString, file);
    ScriptedDoors desktop;
    Surface listing(fileText(file));
    const QString whole = body(listing);
    const QString style = whole.left(int(qstrlen("<!-- body-buildwizard0 -->")));
    QVERIFY(style.startsWith(QStringLiteral("<!-- body-buildwizard")));
    QVERIFY(listing.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(listing.execCommand(QStringLiteral("Copy")));
    QCOMPARE(listing.pasted(), whole.mid(style.size()));
}

/// A page's text as other programs put it on the clipboard, with all that is in it.
void TestPastes::listingsOfOtherPrograms()
{
    QFETCH(QString, file);
    ScriptedDoors desktop;
    Surface listing(fileText(file));
    const QString whole = body(listing);
    desktop.setClipboard(
        data(QStringLiteral("<html><head><meta charset=utf-8><title>t</title></head>") + fileText(file)));
    QCOMPARE(listing.pasted(), whole);
}

/// Each part between two markers, with them, comes through as if nobody cleaned.
void TestPastes::partsOfListings()
{
    QFETCH(QString, file);
    static const QRegularExpression Marker(QStringLiteral("<!-- Body\\d?-\\w*[a-z] -->"));
    ScriptedDoors desktop;
    const QString text = fileText(file);
    Surface listing(text);
    Surface cleaned;
    Surface open(QStringLiteral("x"));
    QVERIFY(leaveUncleaned(open));
    int parts = 0;
    for (auto found = Marker.globalMatch(text); found.hasNext(); ++parts) {
        const QString opening = found.next().captured();
        const QString closing = QString(opening).replace(QStringLiteral(" -->"), QStringLiteral("2 -->"));
        probe(listing).evaluate(
            QStringLiteral(
                "(() => { const all = document.createTreeWalker(document, NodeFilter.SHOW_COMMENT);"
                "const range = document.createRange();"
                "while (all.nextNode()) {"
                "const text = `<!--${all.currentNode.data}-->`;"
                "if (text === '%1') range.setStartBefore(all.currentNode);"
                "if (text === '%2') range.setEndAfter(all.currentNode);"
                "} getSelection().removeAllRanges(); getSelection().addRange(range); })()")
                .arg(opening, closing));
        QVERIFY(listing.execCommand(QStringLiteral("Copy")));
        const QString part = cleaned.pasted();
        QVERIFY2(part.contains(opening) && part.contains(closing), qPrintable(opening + part));
        QCOMPARE(part, open.pasted());
    }
    QVERIFY(parts >= 12);
}

void TestPastes::kept_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* html, const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(html) << QString::fromUtf8(expected);
    };
    row("font", "<Font face=\"Comic Sans MS\" size=+1 color=#FF0000>x</Font>",
        "<FONT face=\"Comic Sans MS\" size=\"+1\" color=#FF0000>x</FONT>");
    row("highlight", "<FONT style=\"background-color: #FFFF00\">x</FONT>",
        "<FONT style=\"background-color: #FFFF00\">x</FONT>");
    row("table",
        "<TABLE borderColor=#110000 height=0% cellSpacing=2 cellPadding=4 width=100% align=left "
        "bgColor=#F4F4F4 "
        "border=3 borderColorLight=#fff borderColorDark=#000 rules=all frame=box background=\"a "
        "b.gif\"><TBODY><TR "
        "vAlign=top><TD noWrap colSpan=2 rowSpan=3>x</TD></TR></TBODY></TABLE>",
        "<TABLE bordercolor=#110000 height=\"0%\" cellspacing=2 cellpadding=4 width=\"100%\" align=left "
        "bgcolor=#F4F4F4 border=3 bordercolorlight=#fff bordercolordark=#000 rules=all frame=box "
        "background=\"a b.gif\"><TBODY><TR valign=top><TD nowrap colspan=2 "
        "rowspan=3>x</TD></TR></TBODY></TABLE>");
    row("marquee",
        "<MARQUEE behavior=scroll direction=left loop=infinite scrollAmount=3 scrollDelay=9>x</MARQUEE>",
        "<MARQUEE behavior=scroll direction=left loop=infinite scrollamount=3 scrolldelay=9>x</MARQUEE>");
    row("old elements",
        "<center>a</center><blink>b</blink><nobr>c</nobr><tt>d</tt><strike>e</strike><big>f</big>",
        "<CENTER>a</CENTER><BLINK>b</BLINK><NOBR>c</NOBR><TT>d</TT><STRIKE>e</STRIKE><BIG>f</BIG>");
    row("picture block", "<ALIGN=MIDDLE><IMG src=http://x.example/1.jpg border=0>",
        "<ALIGN=MIDDLE><IMG src=\"http://x.example/1.jpg\" border=0></ALIGN=MIDDLE>");
    row("pictures",
        "<IMG src=\"file:///home/a/b.gif\"><IMG src=\"C:\\My Pictures\\b.gif\" hspace=3 vspace=4>",
        "<IMG src=\"file:///home/a/b.gif\"><IMG src=\"C:\\My Pictures\\b.gif\" hspace=3 vspace=4>");
    row("picture in itself", "<IMG src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\">",
        "<IMG src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\">");
    row("links",
        "<A href=\"http://x.example/?a=1&amp;b=2\" target=_blank>x</A><A href=\"Mailto:a@b.example\">y</A>",
        "<A href=\"http://x.example/?a=1&amp;b=2\" target=_blank>x</A><A href=\"Mailto:a@b.example\">y</A>");
    row("link of another program", "<A href=\"aim:goim?screenname=anna\">x</A>",
        "<A href=\"aim:goim?screenname=anna\">x</A>");
    row("place", "<A name=images>x</A>", "<A name=images>x</A>");
    row("rule", "<HR width=75% size=3 color=#550055 noshade>",
        "<HR width=\"75%\" size=3 color=#550055 noshade>");
    row("list", "<UL type=square><LI>x</LI></UL><OL start=3><LI value=5>y</LI></OL>",
        "<UL type=square><LI>x</LI></UL><OL start=3><LI value=5>y</LI></OL>");
    row("order and blanks", "<P title=\" a \" id=b class=c lang=de style=\"color: red; \">x</P>",
        "<P title=\" a \" id=b class=c lang=de style=\"color: red; \">x</P>");
    row("form",
        "<FORM action=\"http://x.example/find\"><INPUT name=title value=\"Next &gt;&gt; -->\"></FORM>",
        "<FORM action=\"http://x.example/find\"><INPUT name=title value=\"Next >> -->\"></FORM>");
    row("comments", "<DIV>a<!-- Body-title -->b<!--x--><!-- a > b -- c & \"d\" ----- -->c<!----></DIV>",
        "<DIV>a<!-- Body-title -->b<!--x--><!-- a > b -- c & \"d\" ----- -->c<!----></DIV>");
    row("comment in front", "<!-- Body-title --><B>a</B><!-- Body-title2 -->",
        "<!-- Body-title --><B>a</B><!-- Body-title2 -->");
    row("nothing but text", "a &lt; b &amp; c", "a &lt; b &amp; c");
}

/// What pages hold that do no harm.
void TestPastes::kept()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    ScriptedDoors desktop;
    Surface surface;
    desktop.setClipboard(data(html));
    QCOMPARE(surface.pasted(), expected);
}

void TestPastes::refused_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* html, const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(html) << QString::fromUtf8(expected);
    };
    for (const char* name : {"script", "iframe", "style", "title", "template", "noscript", "svg", "math"}) {
        QTest::newRow(name) << QStringLiteral("a<%1>x</%1>b").arg(QLatin1String(name))
                            << QStringLiteral("ab");
    }
    for (const char* name : {"frame", "embed", "meta", "link", "base"}) {
        QTest::newRow(name) << QStringLiteral("a<%1 src=x>b").arg(QLatin1String(name))
                            << QStringLiteral("ab");
    }
    row("object", "a<object data=x></object>b", "ab");
    row("handlers", "<b onclick=x() ONMOUSEOVER=x()>a</b>", "<B>a</B>");
    row("script address", "<a href='javascript:x()'>a</a>", "<A>a</A>");
    row("script address in disguise",
        "<a href=' java&#10;script&#9;:x()'>a</a><a href='JaVaScRiPt:x()'>b</a>", "<A>a</A><A>b</A>");
    row("script in a form",
        "<form action='javascript:x()'><button formaction='javascript:x()'>a</button></form>",
        "<FORM><BUTTON>a</BUTTON></FORM>");
    row("script in a picture", "<img src='javascript:x()' lowsrc='vbscript:x()' alt=a>", "<IMG alt=a>");
    row("page in an address", "<a href='data:text/html,<script>x()</script>'>a</a>", "<A>a</A>");
    row("marks of the clipboard", "<!--StartFragment--><b>a</b><!--EndFragment-->", "<B>a</B>");
    row("comments with tags",
        "<b>a</b><!--[if IE]><script>x()</script><![endif]--><!-- </b> --><!--<img>--><!-- <!-- --><!-- <?x "
        "-->",
        "<B>a</B>");
    row("attributes with end tags", "<p title='</noscript>x' class='a/>b'>a</p>", "<P>a</P>");
    row("names of elements", "<b is=x-y>a</b><x-y>b</x-y>", "b");
}

/// What would act by itself, or after a click.
void TestPastes::refused()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    ScriptedDoors desktop;
    Surface surface;
    desktop.setClipboard(data(html));
    QCOMPARE(surface.pasted(), expected);
}

void TestPastes::longOnes_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("at");
    struct Place
    {
        const char* name;
        const char* html;
    };
    for (const auto& [name, html] : {
             Place{"paragraph", "<p>a<p id=x>bc<p>d"},
             Place{"list", "<ul><li>a<li id=x>bc<li>d</ul>"},
             Place{"cell", "<table><tr><td id=x>bc<td>d</table>"},
             Place{"block", "<div>a</div><div id=x align=right>bc</div>"},
             Place{"title", "<h1 id=x>bc</h1>"},
             Place{"font", "<p align=center><font size=3 id=x>bc</font></p><p>d"},
             Place{"no block", "<b id=x>bc</b>"},
             Place{"centred", "<center><p>a<p id=x>bc<p>d</center>"},
             Place{"quotation", "<blockquote><p id=x>bc</blockquote>"},
         }) {
        for (const int at : {0, 1, 2})
            QTest::addRow("%s, %d", name, at) << QString::fromLatin1(html) << at;
    }
}

/// A long fragment comes out as the engine's own command inserts it, and goes in one step.
void TestPastes::longOnes()
{
    QFETCH(QString, html);
    QFETCH(int, at);
    ScriptedDoors desktop;
    QString fragment;
    for (int i = 0; i < 40; ++i) {
        fragment += QStringLiteral("<p>w%1</p>\n<p align=\"right\"><b>x</b></p><!-- Body-title -->"
                                   "<ul><li>y</li></ul>\n<table><tbody><tr><td>z</td></tr></tbody></table>")
                        .arg(i);
    }
    fragment += QStringLiteral("<p>end</p>");
    const QString toCaret = QStringLiteral("s.collapse(document.getElementById('x').firstChild, %1)").arg(at);

    Surface plain(html);
    plain.select(qPrintable(toCaret));
    QVERIFY(probe(plain).evaluate(
        QStringLiteral("document.execCommand('insertHTML', false, `%1`)").arg(fragment)));
    QVERIFY(plain.execCommand(QStringLiteral("InsertText"), QStringLiteral("!")));

    desktop.setClipboard(data(fragment));
    Surface surface(html);
    const QString before = body(surface);
    surface.select(qPrintable(toCaret));
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    QCOMPARE(probe(surface).evaluate("document.querySelectorAll('[brindlemark-paste]').length")->toInt(), 1);
    QVERIFY(surface.execCommand(QStringLiteral("InsertText"), QStringLiteral("!")));
    QCOMPARE(body(surface), body(plain));
    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(surface.execCommand(QStringLiteral("Copy")));
    QVERIFY(!desktop.clipboard()->html().contains(QStringLiteral("brindlemark")));
    QVERIFY(surface.execCommand(QStringLiteral("Undo")));
    QVERIFY(surface.execCommand(QStringLiteral("Undo")));
    QCOMPARE(body(surface), before);
}

/// Ten thousand paragraphs into the middle of one.
void TestPastes::tenThousandParagraphs()
{
    ScriptedDoors desktop;
    QString fragment;
    for (int i = 0; i < 10000; ++i)
        fragment += QStringLiteral("<p>word %1</p>\n").arg(i);
    desktop.setClipboard(data(fragment));
    Surface surface(QStringLiteral("<p>ab<p>c"));
    surface.select("s.collapse(document.querySelector('p').firstChild, 1)");
    connect(&surface, &DocumentSurface::waitsLong, this, [] {}); // it has who tells of it, so it waits
    QElapsedTimer timer;
    timer.start();
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    qInfo("%lld ms", timer.elapsed());
    QCOMPARE(body(surface).count(QStringLiteral("<P>")),
             10001); // the first word joins the "a", the last the "b"
}

/// What editing leaves in the part that was pasted is printed as it looks.
void TestPastes::longOnesThatAreEdited()
{
    Surface surface(QStringLiteral("<div>a</div><div>b</div>"));
    const auto inner = [&](const char* html) {
        QVERIFY(probe(surface).evaluate(
            QStringLiteral("document.body.innerHTML = 'x<div brindlemark-paste>%1</div>y'; 1")
                .arg(QLatin1String(html))));
    };
    inner("<p>1</p>\\n<div brindlemark-paste=\"\"><p>2</p></div><!--c-->");
    QCOMPARE(body(surface), QStringLiteral("x<P>1</P><P>2</P><!--c-->y"));
    inner("<p>1</p>loose");
    QCOMPARE(body(surface), QStringLiteral("x<DIV><P>1</P>loose</DIV>y"));
    inner("<p>1</p><span>loose</span>");
    QCOMPARE(body(surface), QStringLiteral("x<DIV><P>1</P><SPAN>loose</SPAN></DIV>y"));
}

/// Elements of the page and of what is pasted have the names of functions; what cleans calls the functions.
void TestPastes::pagesThatHideNames()
{
    ScriptedDoors desktop;
    QString hiding;
    for (const char* name : {"body", "createElement", "createNodeIterator", "createDocumentFragment",
                             "getElementsByTagName", "implementation", "importNode", "currentScript",
                             "documentElement", "execCommand", "caretRangeFromPoint", "nodeType", "DOMPurify",
                             "module", "exports", "define", "shadowNode", "MozNamedAttrMap", "toStaticHTML"})
        hiding += QStringLiteral("<img name=%1><a id=%1>x</a>").arg(QLatin1String(name));
    desktop.setClipboard(data(hiding + QStringLiteral("<form><input name=body><input name=innerHTML></form>"
                                                      "<b onclick=x()>kept</b>")));
    Surface surface(QStringLiteral("<p>page</p>") + hiding);
    surface.select("s.collapse(Document.prototype.querySelector.call(document, 'p').firstChild, 4)");
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    const QString text = body(surface);
    QVERIFY2(text.contains(QStringLiteral("<B>kept</B>")), qPrintable(text));
}

void TestPastes::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Ctrl+V") << int(Qt::Key_V) << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Shift+Insert") << int(Qt::Key_Insert) << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("the key Paste") << int(Qt::Key_Paste) << Qt::KeyboardModifiers(Qt::NoModifier);
}

/// No key leads past what cleans, to the engine's own paste from the desktop's clipboard.
void TestPastes::keys()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    ScriptedDoors desktop;
    Surface surface;
    desktop.setClipboard(data(QStringLiteral("<b onclick=x()>bold</b><!--StartFragment-->")));
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        QApplication::sendEvent(surface.inputWidget(), &event);
    }
    QTRY_COMPARE(body(surface), QStringLiteral("<B>bold</B>")); // keys wait for the caret
}

/// The middle button brings what is selected in another window to where the mouse is.
void TestPastes::middleButton()
{
    ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>abcd</p>"));
    desktop.select(data(QStringLiteral("<b onclick=x()>bold</b><!--StartFragment-->")));
    QTest::mouseClick(surface.inputWidget(), Qt::MiddleButton, {}, placeOf(surface, 2));
    QTRY_COMPARE(body(surface), QStringLiteral("<P>ab<B>bold</B>cd</P>"));
    desktop.select(std::make_unique<QMimeData>());
    QTest::mouseDClick(surface.inputWidget(), Qt::MiddleButton, {}, placeOf(surface, 2));
    QCOMPARE(body(surface), QStringLiteral("<P>ab<B>bold</B>cd</P>"));
}

/// A page that is not edited keeps its middle button.
void TestPastes::middleButtonElsewhere()
{
    ScriptedDoors desktop;
    desktop.select(data(QStringLiteral("<b>bold</b>")));
    DocumentSurface preview;
    preview.resize(400, 300);
    preview.show();
    QVERIFY(preview.write(QStringLiteral("<body onauxclick='document.body.append(event.button)'><p>abcd</p>"
                                         "<p style='height: 200px'></p>")));
    QTRY_VERIFY(preview.inputWidget());
    QTRY_VERIFY([&] {
        QTest::mouseClick(preview.inputWidget(), Qt::MiddleButton, {}, QPoint(30, 30));
        return preview.innerHtml().contains(QStringLiteral("</P>1"));
    }());
    QVERIFY(!preview.innerHtml().contains(QStringLiteral("bold")));
}

void TestPastes::dropsLandWhereTheyAreDropped_data()
{
    QTest::addColumn<int>("zoomLevel");
    QTest::addColumn<qreal>("zoom");
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");
    const QString html = QStringLiteral("<b onclick=x()>bold</b><!--StartFragment-->");
    QTest::newRow("html") << 2 << 1.0 << html << QStringLiteral("<P>ab<B>bold</B>cd</P><P>end</P>");
    QTest::newRow("text") << 2 << 1.0 << QString() << QStringLiteral("<P>abtextcd</P><P>end</P>");
    QTest::newRow("largest text size")
        << 4 << 1.6 << html << QStringLiteral("<P>ab<B>bold</B>cd</P><P>end</P>");
}

void TestPastes::dropsLandWhereTheyAreDropped()
{
    QFETCH(int, zoomLevel);
    QFETCH(qreal, zoom);
    QFETCH(QString, html);
    QFETCH(QString, expected);
    const ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>abcd</p><p>end</p>"));
    surface.setZoomLevel(zoomLevel);
    surface.select("s.collapse($('p + p').firstChild, 1)");
    // The page is laid out anew at another size a little later.
    QTRY_COMPARE(probe(surface).evaluate(QStringLiteral("innerWidth")).value_or(QVariant()).toInt(),
                 int(400 / zoom));
    QMimeData dragged;
    dragged.setText(QStringLiteral("text"));
    if (!html.isEmpty())
        dragged.setHtml(html);
    QVERIFY(dropAt(surface, placeOf(surface, 2, zoom), dragged));
    QTRY_COMPARE(body(surface), expected);
}

/// A handler may be about to replace the page.
void TestPastes::dropsWhileAHandlerRuns()
{
    const ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>abcd</p>"));
    QMimeData text;
    text.setText(QStringLiteral("text"));
    const QPoint place = placeOf(surface, 2);
    bool taken = true;
    guarded([&] { taken = dropAt(surface, place, text); });
    QVERIFY(!taken);
    QCOMPARE(body(surface), QStringLiteral("<P>abcd</P>"));
}

void TestPastes::oneStepOfUndo()
{
    ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>abcd</p>"));
    desktop.setClipboard(
        data(QStringLiteral("<b onclick=x()>bold</b> and <table border=1><tr><td>x</table>")));
    surface.select("s.setBaseAndExtent($('p').firstChild, 1, $('p').firstChild, 3)");
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    QVERIFY(body(surface).contains(QStringLiteral("<TD>x</TD>")));
    QVERIFY(surface.execCommand(QStringLiteral("Undo")));
    QCOMPARE(body(surface), QStringLiteral("<P>abcd</P>"));
}

/// A page in which nothing with tags was pasted has no cleaner: it costs memory and time.
void TestPastes::cleanerComesLate()
{
    ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>abcd</p>"));
    const auto hasCleaner = [&] {
        return probe(surface).evaluate(surfaceCall(QStringLiteral("canClean()")));
    };
    Clipboard::SetText(QStringLiteral("<text>"));
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    QCOMPARE(body(surface), QStringLiteral("<P>&lt;text&gt;abcd</P>"));
    QVERIFY(hasCleaner() == false);
    desktop.setClipboard(data(QStringLiteral("<b>x</b>")));
    QVERIFY(surface.execCommand(QStringLiteral("Paste")));
    QVERIFY(hasCleaner() == true);
    surface.write(QStringLiteral("<p>next</p>"));
    QVERIFY(hasCleaner() == true);
}

/// A cleaner that fails lets nothing through.
void TestPastes::nothingComesUncleaned()
{
    ScriptedDoors desktop;
    Surface surface(QStringLiteral("<p>abcd</p>"));
    desktop.setClipboard(data(QStringLiteral("<b>x</b>"), QStringLiteral("x")));
    QVERIFY(probe(surface).evaluate(surfaceCall(QStringLiteral("cleanWith(() => { throw new Error })"))) ==
            true);
    QVERIFY(!surface.execCommand(QStringLiteral("Paste")));
    QCOMPARE(body(surface), QStringLiteral("<P>abcd</P>"));
}

RENDERER_TEST_MAIN(TestPastes)
#include "tst_pastes.moc"
