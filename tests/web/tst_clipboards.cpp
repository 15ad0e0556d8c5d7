// SPDX-License-Identifier: GPL-3.0-or-later

// What comes of the clipboards of other programs: tests/data/clipboards/ has for each the HTML and the text
// that it gives. All were filled with the same words, as far as the program can hold them.

#include "ScriptedDoors.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "web/DocumentSurface.h"
#include "web/SurfaceScript.h"

#include <QFile>
#include <QMimeData>
#include <QTest>
#include <QTextDocumentFragment>
#include <algorithm>

using namespace brindlemark;

namespace {

const QString Height =
    "<p>Height <b>12 inches</b>, <i>hand made</i> in <u>Ohio</u> &amp; &lt;signed&gt;.</p>";
const QString Lists =
    "<ul><li>Shade of glass</li><li>New cord<ul><li>UL listed</li></ul></li><li>Box</li></ul>"
    "<ol><li>Pay</li><li>Ship</li></ol>";
const QString Size = "<p>Größe: 30 cm – “fein” · 20 €</p>";

QString link(const QString& attributes = {}, const QString& blank = " ")
{
    return "<p>See the maker's page:" + blank + "<a href=\"https://lamps.example/maker?id=7&amp;p=2\"" +
           attributes + ">maker</a></p>";
}

/// The table of two rows; its left column by this element.
QString table(const QString& left)
{
    const bool isHead = left == "th";
    const QString open = isHead ? QStringLiteral("<th>") : QStringLiteral("<td><b>");
    const QString close = isHead ? QStringLiteral("</th>") : QStringLiteral("</b></td>");
    return "<table><tbody><tr>" + open + "Width" + close + "<td>6 in</td></tr><tr>" + open + "Weight" +
           close + "<td>3 lb</td></tr></tbody></table>";
}

const QString NewWindow = " target=\"_blank\"";

QString clip(const QString& name)
{
    QFile file(QStringLiteral(TEST_DATA "/clipboards/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

class Surface : public DocumentSurface
{
public:
    explicit Surface(const QString& html = {})
    {
        resize(600, 400);
        setDesignMode(DesignMode::On);
        show();
        write(html);
    }

    QString body()
    {
        const QString text = innerHtml();
        const qsizetype start = text.indexOf('>', text.indexOf("<BODY")) + 1;
        return text.sliced(start).chopped(int(qstrlen("</BODY>"))).remove("\r\n");
    }

    bool pasteClip(const QString& name, PasteWay way)
    {
        auto given = std::make_unique<QMimeData>();
        if (const QString html = clip(name + ".html"); !html.isEmpty())
            given->setHtml(html);
        given->setText(clip(name + ".txt"));
        doors().setClipboard(std::move(given));
        return paste(way);
    }
};

} // namespace

class TestClipboards : public QObject
{
    Q_OBJECT

private slots:
    void structure_data();
    void structure();
    void isShort_data() { names(); }
    void isShort();
    void onceAndTwice_data() { names(); }
    void onceAndTwice();
    void withoutHtml_data();
    void withoutHtml();
    void onTheSurface_data() { names(); }
    void onTheSurface();
    void withLooks();
    void asText();
    void details_data();
    void details();
    void longMails();
    void longClipsHaveTheirTime();
    void othersKeepTheirLooks_data();
    void othersKeepTheirLooks();
    void toldByNames_data();
    void toldByNames();
    void fieldsWithTheNamesOfFunctions();
    void ownCopiesKeepTheirLooks();

private:
    static void names();
};

/// Those that give HTML, but for the program itself, whose looks are the listing's.
void TestClipboards::names()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"word", "writer", "docs", "calc", "mail1", "mail2", "mail3", "chromium", "firefox", "shop", "chat"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestClipboards::structure_data()
{
    QTest::addColumn<QString>("html");
    const QString boldTitle = "<p><b>Brass lamp, 1920s</b></p>";
    QTest::newRow("word") << boldTitle + Height + link() + Lists + table("b") + Size;
    QTest::newRow("writer") << "<h1>Brass lamp, 1920s</h1>" + Height + link() + Lists + table("b") + Size;
    QTest::newRow("docs") << "<h1>Brass lamp, 1920s</h1>" + Height + link() + Lists + table("b") + Size;
    const auto row = [](const QString& left, const QString& right = {}) {
        return "<tr><td>" + left + "</td><td>" + right + "</td></tr>";
    };
    QTest::newRow("calc") << "<table><tbody>" + row("<b>Brass lamp, 1920s</b>") +
                                 row("Height 12 inches, hand made in Ohio &amp; &lt;signed&gt;.") +
                                 row("<a href=\"https://lamps.example/maker?id=7&amp;p=2\">See the maker's "
                                     "page: maker</a>") +
                                 row("Shade of glass") + row("New cord") + row("<b>Width</b>", "6 in") +
                                 row("<b>Weight</b>", "3 lb") + row("Größe: 30 cm – “fein” · 20 €") +
                                 "</tbody></table>";
    QTest::newRow("mail1") << boldTitle + Height + link(NewWindow) + Lists + table("b") + Size;
    QTest::newRow("mail2") << boldTitle + Height + link(NewWindow) + Lists + table("b") + Size;
    QTest::newRow("mail3") << boldTitle + Height + link(NewWindow, "&nbsp;") + Lists + table("b") + Size;
    QTest::newRow("chromium") << "<h2>Brass lamp, 1920s</h2>" + Height + link(NewWindow) + Lists +
                                     table("th") + Size;
    QTest::newRow("shop") << "<h1>Brass lamp, 1920s</h1><p>4.5 of 5 stars</p><p>$49.00</p>" + Height +
                                 link(NewWindow) + Lists + table("th") + Size + "<p>Share</p>";
    QTest::newRow("chat") << boldTitle + Height + link(NewWindow) + Lists + table("b") + Size +
                                 "<p><b>Listings</b>&nbsp;💡&nbsp;ok</p>";
}

void TestClipboards::structure()
{
    QFETCH(QString, html);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(Surface().cleaned(clip(name + ".txt"), clip(name + ".html")), html);
}

void TestClipboards::isShort()
{
    QFETCH(QString, name);
    const QString html = clip(name + ".html");
    const QString cleaned = Surface().cleaned(clip(name + ".txt"), html);
    const qsizetype visible = QTextDocumentFragment::fromHtml(cleaned).toPlainText().size();
    QVERIFY(visible > 60);
    QVERIFY2(cleaned.size() <= 3 * visible,
             qPrintable(QStringLiteral("%1 for %2").arg(cleaned.size()).arg(visible)));
}

void TestClipboards::onceAndTwice()
{
    QFETCH(QString, name);
    Surface surface;
    const QString once = surface.cleaned(clip(name + ".txt"), clip(name + ".html"));
    QVERIFY(!once.isEmpty());
    QCOMPARE(surface.cleaned(clip(name + ".txt"), once), once);
}

void TestClipboards::withoutHtml_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing but text") << "pdf";
    QTest::newRow("text that says it is HTML") << "pdf2";
}

/// Its lines come as they are, with what looks like a tag.
void TestClipboards::withoutHtml()
{
    QFETCH(QString, name);
    const ScriptedDoors desktop;
    Surface surface("<p>x</p>");
    QVERIFY(surface.pasteClip(name, PasteWay::Clean));
    const QString body = surface.body();
    QVERIFY2(body.contains("Ohio &amp; &lt;signed&gt;."), qPrintable(body));
    QVERIFY2(body.count("<P>") + body.count("<BR>") > 5, qPrintable(body));
}

/// The engine adds nothing when it inserts, and all of it is one step of undo.
void TestClipboards::onTheSurface()
{
    QFETCH(QString, name);
    const ScriptedDoors desktop;
    Surface surface("<P>abc</P>");
    QVERIFY(surface.pasteClip(name, PasteWay::Clean));
    const QString body = surface.body();
    for (const char* litter : {"style=", "<SPAN", "mso-", "class=", "<FONT", "<!--"})
        QVERIFY2(!body.contains(QString::fromLatin1(litter)), qPrintable(body));
    if (name != "calc") {
        for (const char* part : {"<B>12 inches</B>|<STRONG>12 inches</STRONG>",
                                 "<I>hand made</I>|<EM>hand made</EM>", "<LI>UL listed", "<LI>Ship",
                                 "<A href=\"https://lamps.example/maker?id=7&amp;p=2\"", "6 in</TD>"}) {
            const QStringList ways = QString::fromLatin1(part).split('|');
            QVERIFY2(std::ranges::any_of(ways, [&](const QString& way) { return body.contains(way); }),
                     qPrintable(QString::fromLatin1(part) + body));
        }
    }
    QVERIFY(surface.execCommand("Undo"));
    QCOMPARE(surface.body(), "<P>abc</P>");
}

void TestClipboards::withLooks()
{
    const ScriptedDoors desktop;
    Surface surface("<P>abc</P>");
    QVERIFY(surface.pasteClip("docs", PasteWay::WithLooks));
    QVERIFY2(surface.body().contains("font-weight"), qPrintable(surface.body()));
    QVERIFY(surface.execCommand("Undo"));
    QCOMPARE(surface.body(), "<P>abc</P>");
}

void TestClipboards::asText()
{
    const ScriptedDoors desktop;
    Surface surface("<P>abc</P>");
    QVERIFY(surface.pasteClip("word", PasteWay::AsText));
    const QString body = surface.body();
    QVERIFY2(body.contains("Height 12 inches, hand made in Ohio &amp; &lt;signed&gt;."), qPrintable(body));
    for (const char* tag : {"<B>", "<I>", "<U>", "<A ", "<LI>", "<TD"})
        QVERIFY2(!body.contains(QString::fromLatin1(tag)), qPrintable(body));
}

void TestClipboards::details_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("cleaned");
    const auto row = [](const char* name, const char* html, const char* cleaned) {
        QTest::newRow(name) << "<p class=MsoNormal>" + QString::fromUtf8(html) + "</p>"
                            << QString::fromUtf8(cleaned);
    };
    row("words", "one two", "<p>one two</p>");
    row("blanks", "  one \n two  <b> three</b> ", "<p>one two <b>three</b></p>");
    row("formats meet", "<b>one</b><span style='font-weight:700'> two</span>", "<p><b>one two</b></p>");
    row("formats within", "<b>one <i>two</i></b>", "<p><b>one </b><b><i>two</i></b></p>");
    row("bold ends within", "<b>one <span style='font-weight:normal'>two</span></b>",
        "<p><b>one </b>two</p>");
    row("weights", "<span style='font-weight:600'>a</span><span style='font-weight:500'>b</span>",
        "<p><b>a</b>b</p>");
    row("struck, raised, lowered", "<del>a</del><sup>b</sup><span style='vertical-align:sub'>c</span>",
        "<p><s>a</s><sup>b</sup><sub>c</sub></p>");
    row("hidden", "one<span style='display:none'>no</span><span style='mso-hide:all'>no</span>",
        "<p>one</p>");
    row("breaks", "one<br>two<br><br>", "<p>one<br>two</p>");
    row("page break", "one<br clear=all style='page-break-before:always'>", "<p>one</p>");
    row("paragraphs that begin a page",
        "one</p><p class=MsoNormal style='page-break-before:always'>Chapter</p>"
        "<h1 style='page-break-before:always'>two</h1><p>",
        "<p>one</p><p>Chapter</p><h1>two</h1>");
    row("lines of their own", "</p><pre>\none\n  two\n\n<b>three\nfour</b>\n</pre>five\nsix<p>",
        "<p>one<br>two<br><br><b>three</b><br><b>four</b></p><p>five six</p>");
    row("anchor", "<a name=_Toc1>one</a>", "<p>one</p>");
    row("picture", "<img src=https://p.example/1.jpg alt=Lamp width=300 height=200 style='x:y' class=z>",
        "<p><img src=\"https://p.example/1.jpg\" alt=\"Lamp\" width=\"300\" height=\"200\"></p>");
    row("picture that measures", "one<img src=https://p.example/1.gif width=1 height=1>", "<p>one</p>");
    row("picture within the clipboard", "one<img src='data:image/png;base64,AAAA'>", "<p>one</p>");
    row("blanks beside pictures", "one <img src=https://p.example/1.jpg> two",
        "<p>one <img src=\"https://p.example/1.jpg\"> two</p>");
    row("blanks in front of pictures", "<b>one </b><img src=https://p.example/1.jpg>",
        "<p><b>one </b><img src=\"https://p.example/1.jpg\"></p>");
    row("nothing", "&nbsp;", "");
    row("numbers by letters",
        "x</p><p style='mso-list:l0 level1 lfo1'><span style='mso-list:Ignore'>a)<span>&nbsp; "
        "</span></span>one</p>"
        "<p style='mso-list:l0 level2 lfo1'><span style='mso-list:Ignore'>ii.</span>two</p>"
        "<p style='mso-list:l0 level1 lfo1'><span style='mso-list:Ignore'>b)</span>three",
        "<p>x</p><ol><li>one<ol><li>two</li></ol></li><li>three</li></ol>");
    row("two lists with words between",
        "</p><p style='mso-list:l0 level1 lfo1'>one</p><p>x</p><p style='mso-list:l0 level1 lfo1'>two",
        "<ul><li>one</li></ul><p>x</p><ul><li>two</li></ul>");
    row("empty entry around another",
        "</p><p style='mso-list:l0 level1 lfo1'>&nbsp;</p><p style='mso-list:l0 level2 lfo1'>one</p>"
        "<p style='mso-list:l0 level2 lfo1'>two",
        "<ul><li>one</li><li>two</li></ul>");
    row("empty entry behind another",
        "</p><p style='mso-list:l0 level1 lfo1'>one</p><p style='mso-list:l0 level1 lfo1'>&nbsp;</p>"
        "<p style='mso-list:l0 level2 lfo1'>two",
        "<ul><li>one<ul><li>two</li></ul></li></ul>");
    row("empty entry by itself", "one</p><p style='mso-list:l0 level1 lfo1'>&nbsp;</p><p>two",
        "<p>one</p><p>two</p>");
    row("entries in a cell and behind its table",
        "</p><table><tr><td><p style='mso-list:l0 level1 lfo1'>one</p></table>"
        "<p style='mso-list:l0 level1 lfo1'>two",
        "<table><tbody><tr><td><ul><li>one</li></ul></td></tr></tbody></table><ul><li>two</li></ul>");
    row("rule between entries",
        "</p><p style='mso-list:l0 level1 lfo1'>one</p><hr><p style='mso-list:l0 level1 lfo1'>two",
        "<ul><li>one</li></ul><hr><ul><li>two</li></ul>");
    row("loose words between entries",
        "</p><p style='mso-list:l0 level1 lfo1'>one</p>x<p style='mso-list:l0 level1 lfo1'>two",
        "<ul><li>one</li></ul><p>x</p><ul><li>two</li></ul>");
    row("table within an entry",
        "</p><p style='mso-list:l0 level1 lfo1'>one<table><tr><td>x</table></p>"
        "<p style='mso-list:l0 level1 lfo1'>two",
        "<ul><li>one</li></ul><table><tbody><tr><td>x</td></tr></tbody></table><ul><li>two</li></ul>");
    row("list that begins at three", "</p><ol start=3><li>x</li></ol><p>", "<ol start=\"3\"><li>x</li></ol>");
    row("spans of cells",
        "</p><table border=1 style='x:y'><tr><td colspan=2 bgcolor=red>a<tr><td>b<td>c</table><p>",
        "<table><tbody><tr><td colspan=\"2\">a</td></tr><tr><td>b</td><td>c</td></tr></tbody></table>");
    row("two paragraphs in a cell", "</p><table><tr><td><p>a</p><p>b</p></table><p>",
        "<table><tbody><tr><td><p>a</p><p>b</p></td></tr></tbody></table>");
    row("fields with the names of functions",
        "</p><form><input name=style><input name=localName><input name=childNodes><input name=getAttribute>"
        "<input name=hasAttribute><input name=querySelectorAll>one</form><p>",
        "<p>one</p>");
    row("pictures with the names of functions",
        "<img name=createElement src=https://p.example/1.jpg><img name=createTextNode alt=x>one",
        "<p><img src=\"https://p.example/1.jpg\">one</p>");
    row("script", "one<script>alert(1)</script><a href='javascript:alert(1)'>two</a>", "<p>onetwo</p>");
}

void TestClipboards::details()
{
    QFETCH(QString, html);
    QFETCH(QString, cleaned);
    Surface surface;
    QCOMPARE(surface.cleaned(QString(), html), cleaned);
}

/// Each line costs the same, however many stand in front of it.
void TestClipboards::longMails()
{
    QStringList lines;
    for (int i = 0; i < 20000; ++i)
        lines << QStringLiteral("<b>Line</b> %1 of a long mail").arg(i);
    Surface surface;
    connect(&surface, &DocumentSurface::waitsLong, &surface, [] {}); // as a window does: no limit then
    const QString mail = surface.cleaned(QString(), "<p class=MsoNormal>" + lines.join("<br>") + "</p>");
    QCOMPARE(mail.size(), lines.join("<br>").size() + qsizetype(qstrlen("<p></p>")));
    QCOMPARE(surface.cleaned(QString(), "<p class=MsoNormal>" + lines.join("<span> </span>") + "</p>").size(),
             lines.join(" ").size() + qsizetype(qstrlen("<p></p>")));
    const QString cell = "<table><tbody><tr><td>" + QString("x<br>").repeated(70'000) + "x";
    QCOMPARE(surface.cleaned(QString(), cell + "<p class=MsoNormal>").size(),
             cell.size() + qsizetype(qstrlen("</td></tr></tbody></table>")));
}

/// As many seconds more as for a page of their length.
void TestClipboards::longClipsHaveTheirTime()
{
    Surface surface("<p>x</p>");
    QVERIFY(probe(surface).evaluate(surfaceCall(QStringLiteral(
                "cleanWith(() => { const end = Date.now() + 2000; while (Date.now() < end); "
                "return new DOMParser().parseFromString('<b>y</b>', 'text/html').body; })"))) == true);
    probe(surface).setPatience(1000);
    QCOMPARE(surface.cleaned(QString(), QString(5'000'000, 'x')), "<b>y</b>");
}

void TestClipboards::othersKeepTheirLooks_data()
{
    QTest::addColumn<QString>("html");
    QTest::newRow("the program's own") << clip("program.html");
    for (const char* html :
         {"<font face=\"Arial\" color=\"#cc0000\" size=\"3\">x</font>",
          "<p style=\"color: red\" class=\"a\">x</p>", "<b>Word</b> <span id=\"mso\">x</span>",
          "<!-- Body-title -->x<!-- Body-title2 -->",
          "<font color=\"red\"><span class=\"box_left\">x</span></font>",
          "<font color=\"red\"><span class=\"a flex_row max_width\">x</span></font>",
          "<font color=\"red\"><span class=\"apple-red pineapple-ring\">x</span></font>",
          "<font color=\"red\">For widows: x</font>"})
        QTest::newRow(html) << QString::fromLatin1(html);
}

void TestClipboards::othersKeepTheirLooks()
{
    QFETCH(QString, html);
    QVERIFY(!html.isEmpty());
    QCOMPARE(Surface().cleaned(QString(), html), html);
}

void TestClipboards::toldByNames_data()
{
    QTest::addColumn<QString>("attribute");
    for (const char* attribute :
         {"class=\"Apple-style-span\"", "class=\"a gmail_quote\"", "class=\"x_a\"", "class=\"a\nx_b\"",
          "class=\"elementToProof\"", "class=MsoNormal", "CLASS=\"MsoNormal\"", "id=\"x_a\"",
          "style=\"mso-x: y\"", "style=\"color: red; orphans: 2\""})
        QTest::newRow(attribute) << QString::fromLatin1(attribute);
}

/// What writes such names writes litter.
void TestClipboards::toldByNames()
{
    QFETCH(QString, attribute);
    QCOMPARE(Surface().cleaned(QString(), "<font color=red><span " + attribute + ">x</span></font>"), "x");
}

/// They hide the functions of their form, from what takes the names off a browser's page too.
void TestClipboards::fieldsWithTheNamesOfFunctions()
{
    QCOMPARE(Surface().cleaned(QString(), "<meta http-equiv=\"content-type\" content=\"text/html\">"
                                          "<form class=\"a\"><input name=\"getAttributeNames\">"
                                          "<input name=\"localName\"><b class=\"c\">x</b></form>"),
             "<form><input name=\"getAttributeNames\"><input name=\"localName\"><b>x</b></form>");
}

/// A listing that another program has written has looks of that, and what is moved within it keeps them.
void TestClipboards::ownCopiesKeepTheirLooks()
{
    const ScriptedDoors desktop;
    const QString html =
        "<P class=MsoNormal style=\"mso-x: y; color: red\">a <FONT color=#0000FF>b</FONT></P><P>c</P>";
    Surface surface(html);
    for (const char* command : {"Copy", "Cut"}) {
        QVERIFY(surface.execCommand("SelectAll"));
        QVERIFY(surface.execCommand(QString::fromLatin1(command)));
        Surface other;
        QVERIFY(other.paste(PasteWay::Clean));
        QCOMPARE(other.body(), html);
        other.write(QString());
        QVERIFY(other.paste(PasteWay::AsText));
        QVERIFY2(!other.body().contains("FONT"), qPrintable(other.body()));
    }
    auto fromElsewhere = std::make_unique<QMimeData>();
    fromElsewhere->setHtml(html);
    doors().setClipboard(std::move(fromElsewhere));
    Surface other;
    QVERIFY(other.paste(PasteWay::Clean));
    QCOMPARE(other.body(), "<P>a b</P><P>c</P>");
}

RENDERER_TEST_MAIN(TestClipboards)
#include "tst_clipboards.moc"
