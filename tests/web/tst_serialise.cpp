// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebProbe.h"
#include "WebTestMain.h"
#include "web/DocumentSurface.h"
#include "web/SurfaceScript.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace brindlemark;

namespace {

const QString Head =
    QStringLiteral("<HEAD>\r\n<META content=\"Brindlemark surface\" name=GENERATOR></HEAD>\r\n");

QString body(const QString& inner)
{
    return Head + QStringLiteral("<BODY>") + inner + QStringLiteral("</BODY>");
}

QString fileText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

} // namespace

class TestSerialise : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void prints_data();
    void prints();
    void scriptedTrees_data();
    void scriptedTrees();
    void linksThatWouldConnect();
    void scriptsOnKeepNoscript();
    void anglesInValues_data();
    void anglesInValues();
    void pages_data();
    void pages();
    void generated_data();
    void generated();

private:
    QString check(const QString& call);

    std::unique_ptr<DocumentSurface> m_surface;
};

void TestSerialise::initTestCase()
{
    m_surface = std::make_unique<DocumentSurface>();
    m_surface->setDesignMode(DesignMode::On);
    probe(*m_surface).setPatience(60000);             // the checks run for seconds
    QVERIFY(m_surface->write(QStringLiteral("<p>"))); // there is a page to run them in
}

void TestSerialise::prints_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* html, const QString& text) {
        QTest::newRow(name) << QString::fromUtf8(html) << text;
    };
    const auto inBody = [&](const char* name, const char* html, const char* inner) {
        row(name, html, body(QString::fromUtf8(inner)));
    };

    inBody("blank", "", "");
    inBody("names and values", "<font COLOR='#FF0000' face=\"Comic Sans MS\" size=+1>x</font>",
           "<FONT color=#FF0000 face=\"Comic Sans MS\" size=\"+1\">x</FONT>");
    inBody("entities in values", "<a href='?a=1&b=\"2\"' title='a&nbsp;b &lt;c>'>x</a>",
           "<A href=\"?a=1&amp;b=&quot;2&quot;\" title=\"a&nbsp;b <c>\">x</A>");
    inBody("flags", "<td><input checked disabled=disabled value=''>",
           "<INPUT checked disabled=disabled value=\"\">");
    inBody("all flags",
           "<input checked compact declare defer disabled ismap multiple nohref noresize noshade nowrap "
           "readonly "
           "selected hidden>",
           "<INPUT checked compact declare defer disabled ismap multiple nohref noresize noshade nowrap "
           "readonly "
           "selected hidden=\"\">");
    inBody("values in quotes", "<b a=x.y-z_1# b=x:y c=x/y d=x%y e=x,y f=\u00e9>x</b>",
           "<B a=x.y-z_1# b=\"x:y\" c=\"x/y\" d=\"x%y\" e=\"x,y\" f=\"\u00e9\">x</B>");
    inBody("entities in text", "a &lt;b&gt; &amp; c&nbsp;&copy; &#13;",
           "a &lt;b&gt; &amp; c&nbsp;\u00a9 &#13;");
    inBody("own line breaks stay, none comes twice", "one\ntwo<br>\n<p>three\n\n<p>four",
           "one\r\ntwo<BR>\r\n<P>three\r\n\r\n</P>\r\n<P>four</P>");
    inBody("blanks behind a line break", "x\n  <p>y", "x\r\n  <P>y</P>");
    inBody("comments", "a<!-- Body-title -->b<!-- Body-title2 -->",
           "a<!-- Body-title -->b<!-- Body-title2 -->");
    inBody("comments between rows",
           "<table><!-- 1 --><tr><!-- 2 --><td>a</td><!-- 3 --></tr><!-- 4 --></table>",
           "\r\n<TABLE><!-- 1 -->\r\n<TBODY>\r\n<TR><!-- 2 -->\r\n<TD>a</TD><!-- 3 --></TR><!-- 4 "
           "--></TBODY></TABLE>");
    row("comments outside the root",
        "<!-- a --><html><!-- b --><head></head><!-- c --><body>x</body><!-- d "
        "--></html><!-- e -->",
        QStringLiteral("<!-- a -->\r\n<!-- b -->\r\n") + Head +
            QStringLiteral("<!-- c -->\r\n<BODY>x</BODY><!-- d --><!-- e -->"));
    inBody("unclosed comment", "a<!-- never", "a<!-- never-->");
    inBody("text to the letter", "x<script>if (a<b && \"</i>\") x(); // &amp;\n</script>",
           "x<SCRIPT>if (a<b && \"</i>\") x(); // &amp;\r\n</SCRIPT>");
    inBody("script that hides its end", "x<script><!-- <script> x </script> --></script>y",
           "x<SCRIPT><!-- <script> x </script> --></SCRIPT>y");
    inBody("script that was never closed", "x<script><!-- <script> x</body>",
           "x<SCRIPT><!-- <script> x</body>--></SCRIPT>");
    inBody("line feed behind PRE", "<pre>\n\n a\n<b>b</b></pre>", "\r\n<PRE>\r\n\r\n a\r\n<B>b</B></PRE>");
    inBody("TEXTAREA", "<textarea>\n\n&lt;p> &amp;</textarea>",
           "<TEXTAREA>\r\n\r\n&lt;p&gt; &amp;</TEXTAREA>");
    inBody("no line where the style keeps them", "<div style='white-space: pre'>a<p>b</div>",
           "\r\n<DIV style=\"white-space: pre\">a<P>b</P></DIV>");
    inBody("unknown tags", "<ALIGN=MIDDLE>x<MARQUEE>y</MARQUEE>",
           "<ALIGN=MIDDLE>x<MARQUEE>y</MARQUEE></ALIGN=MIDDLE>");
    inBody("attributes that are none", "<p =eq \"odd\" a<b=1>x", "\r\n<P =eq=\"\" \"odd\"=\"\" a<b=1>x</P>");
    row("second BODY in a cell", "<table><tr><td><body text=red>x</table>",
        Head +
            QStringLiteral(
                "<BODY text=red>\r\n<TABLE>\r\n<TBODY>\r\n<TR>\r\n<TD>x</TD></TR></TBODY></TABLE></BODY>"));
    inBody("PLAINTEXT", "<plaintext>a<b>&amp;", "\r\n<PRE>a&lt;b&gt;&amp;amp;</PRE>");
    inBody("FORM in a FORM", "<form><div></form><form id=b>x</form></div>",
           "\r\n<FORM>\r\n<DIV>\r\n</FORM><FORM id=b>x</FORM></DIV>");
    inBody("FORM between table parts", "<table><form name=f><tr><td><input></td></tr></form></table>",
           "\r\n<TABLE>\r\n<FORM name=f>\r\n<TBODY>\r\n<TR>\r\n<TD><INPUT></TD></TR></TBODY></TABLE></FORM>");
    inBody("template that would be a shadow",
           "<div><template a='>' shadowroot=open><b>kept</b></template></div><i shadowroot=x>y</i>",
           "\r\n<DIV><TEMPLATE a=\">\" shadowroot=open><B>kept</B></TEMPLATE></DIV><I shadowroot=x>y</I>");
    inBody("the same in newer engines", "<div><template/shadowRootMode=\"closed\">kept</template></div>",
           "\r\n<DIV><TEMPLATE shadowrootmode=closed>kept</TEMPLATE></DIV>");
    inBody("letters of a template", "x<!-- <template shadowroot=a> -->y<template title=' shadowroot=open'>",
           "x<!-- <template shadowroot=a> -->y<TEMPLATE title=\" shadowroot=open\"></TEMPLATE>");
    inBody("TEXTAREA of a drawing", "<svg><mi><textarea>\n\nx</textarea></mi></svg>",
           "<SVG><MI><TEXTAREA>\r\n\r\nx</TEXTAREA></MI></SVG>");
    inBody("TEXTAREA in a formula", "<math><mi><textarea>\n\nx</textarea></mi></math>",
           "<MATH><MI><TEXTAREA>\r\n\r\nx</TEXTAREA></MI></MATH>");
    inBody("PLAINTEXT of a drawing", "<svg><plaintext>&lt;</plaintext></svg>",
           "<SVG><PLAINTEXT>&lt;</PLAINTEXT></SVG>");
    inBody("name with = behind a flag", "<sub disabled='' =eq=\"a b\">x</sub>",
           "<SUB disabled=\"\" =eq=\"a b\">x</SUB>");
    inBody("name that ends like a META", "<center<meta content=\"a b\" id=c>x",
           "<CENTER<META  content=\"a b\" id=c>x</CENTER<META>");
    inBody("drawing", "<svg viewBox='0 0 1 1'><foreignObject><p>x</foreignObject></svg>",
           "<SVG viewBox=\"0 0 1 1\"><FOREIGNOBJECT>\r\n<P>x</P></FOREIGNOBJECT></SVG>");

    row("generator of another program", "<meta name=Generator lang=en content='Some editor'>",
        QStringLiteral(
            "<HEAD>\r\n<META content=\"Some editor\" lang=en name=GENERATOR></HEAD>\r\n<BODY></BODY>"));
    row("content first in another META", "<meta content='a b' name=keywords>",
        QStringLiteral(
            "<HEAD>\r\n<META name=keywords content=\"a b\">\r\n<META content=\"Brindlemark surface\" "
            "name=GENERATOR></HEAD>\r\n<BODY></BODY>"));
    inBody("letters of a META in a value", "<b title='<meta content=x'>x</b>",
           "<B title=\"&lt;meta content=x\">x</B>");
    inBody("letters of a META in a comment", "x<!-- <META content=1> -->", "x<!-- <META  content=1> -->");
    inBody("letters of a META in a script", "x<script>f('<meta content=1>')</script>",
           "x<SCRIPT>f('<meta  content=1>')</SCRIPT>");
}

void TestSerialise::prints()
{
    QFETCH(QString, html);
    QFETCH(QString, text);
    QVERIFY(m_surface->write(html));
    QCOMPARE(m_surface->innerHtml(), text);
    QVERIFY(m_surface->write(text));
    QCOMPARE(m_surface->innerHtml(), text);
}

// Trees that editing makes and no text can express.
void TestSerialise::scriptedTrees_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* script, const char* inner) {
        QTest::newRow(name) << QString::fromLatin1(script) << body(QString::fromLatin1(inner));
    };
    row("list in a P",
        "document.body.innerHTML = '<p>a'; document.querySelector('p').append(document.createElement('ul'))",
        "\r\n<DIV>a\r\n<UL></UL></DIV>");
    row("P in a P",
        "const p = document.createElement('p'); p.append(document.createElement('p')); "
        "document.body.append(p)",
        "\r\n<DIV>\r\n<P></P></DIV>");
    row("text in the root", "document.documentElement.append('stray')", "stray");
}

void TestSerialise::scriptedTrees()
{
    QFETCH(QString, script);
    QFETCH(QString, text);
    QVERIFY(m_surface->write(QString()));
    QVERIFY(probe(*m_surface).evaluate(script));
    QCOMPARE(m_surface->innerHtml(), text);
    QVERIFY(m_surface->write(text));
    QCOMPARE(m_surface->innerHtml(), text);
}

/// The engine is not told of a relation that opens a connection; of all else it is, and the text keeps every
/// one.
void TestSerialise::linksThatWouldConnect()
{
    QVERIFY(m_surface->write(
        QStringLiteral("<link rel=preconnect href=a><link title='>' rel='dns-prefetch Preconnect' href=b>"
                       "<link rel=stylesheet href=c><body>x rel\u2063 preconnect <link rel\u2063=icon href=d>"
                       "<link rel='pre&#99;onnect' href=e><LINK/REL=preconnect href=f>")));
    const auto told = probe(*m_surface)
                          .evaluate(QStringLiteral(
                              "Array.from(document.querySelectorAll('link'), link => link.rel).join()"));
    QCOMPARE(told.value_or(QVariant()).toString(), QStringLiteral(",,stylesheet,,,"));
    const QString text = m_surface->innerHtml();
    for (const QString& part :
         {QStringLiteral("<LINK rel=preconnect href=a>"),
          QStringLiteral("<LINK title=\">\" rel=\"dns-prefetch Preconnect\" href=b>"),
          QStringLiteral("<LINK rel=stylesheet href=c>"),
          QStringLiteral("x rel\u2063 preconnect <LINK rel\u2063=icon href=d><LINK rel=preconnect href=e>"
                         "<LINK rel=preconnect href=f>")})
        QVERIFY2(text.contains(part), qPrintable(text));
}

void TestSerialise::scriptsOnKeepNoscript()
{
    DocumentSurface preview;
    QVERIFY(preview.write(QStringLiteral("x<noscript><b>off</b></noscript><script>x = 1</script>")));
    const QString text = body(QStringLiteral("x<NOSCRIPT><B>off</B></NOSCRIPT><SCRIPT>x = 1</SCRIPT>"));
    QCOMPARE(preview.innerHtml(), text);
    QVERIFY(preview.write(text));
    QCOMPARE(preview.innerHtml(), text);
    QVERIFY(
        preview.write(QStringLiteral("x<noscript>5 < 6 <b>off</noscript>"))); // no markup where scripts run
    QCOMPARE(preview.innerHtml(), body(QStringLiteral("x<NOSCRIPT>5 &lt; 6 <B>off</B></NOSCRIPT>")));
}

void TestSerialise::anglesInValues_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("asEntities");
    const auto rows = [](const char* name, const char* html, const QString& text) {
        for (const bool asEntities : {false, true}) {
            QTest::addRow("%s, %s", name, asEntities ? "entities" : "letters")
                << QString::fromLatin1(html) << text << asEntities;
        }
    };
    rows("links", "<a title='a<b>c' href='?x=1&gt;2'>x</a><p title='&amp;lt; &lt;'>1 &lt; 2",
         body(QStringLiteral("<A title=\"a<b>c\" href=\"?x=1>2\">x</A>\r\n"
                             "<P title=\"&amp;lt; <\">1 &lt; 2</P>")));
    rows("letters of a META", "<b title='<meta content=x'>x</b>",
         body(QStringLiteral("<B title=\"&lt;meta content=x\">x</B>")));
    rows("PLAINTEXT", "<plaintext title='a>b'>&", body(QStringLiteral("\r\n<PRE title=\"a>b\">&amp;</PRE>")));
    rows("generator", "<meta name=generator content='a > b'>",
         QStringLiteral("<HEAD>\r\n<META content=\"a > b\" name=GENERATOR></HEAD>\r\n<BODY></BODY>"));
    rows("style that keeps lines", "<div title='>' style='white-space: pre'>a<p>b</div>",
         body(QStringLiteral("\r\n<DIV title=\">\" style=\"white-space: pre\">a<P>b</P></DIV>")));
}

// Engines print "<" and ">" in values as letters, newer ones as entities: the text is the same from either.
void TestSerialise::anglesInValues()
{
    QFETCH(QString, html);
    QFETCH(QString, text);
    QFETCH(bool, asEntities);
    const QString engine = QStringLiteral(R"js((() => {
        const tag = /<[a-z][^<>"]*(?:"[^"]*"[^<>"]*)*>/g;
        const spelt = value => value.replace(/&lt;/g, '<').replace(/&gt;/g, '>')
            .replace(/[<>]/g, angle => !%1 ? angle : angle === '<' ? '&lt;' : '&gt;');
        const originals = ['innerHTML', 'outerHTML'].map(
            name => [name, Object.getOwnPropertyDescriptor(Element.prototype, name)]);
        let asked = 0;
        for (const [name, original] of originals) {
            const get = function () {
                ++asked;
                return original.get.call(this).replace(tag, text => text.replace(/"[^"]*"/g, spelt));
            };
            Object.defineProperty(Element.prototype, name, { get, configurable: true });
        }
        const { serialise } = %2;
        const text = serialise(new DOMParser().parseFromString(%3, 'text/html'), false);
        for (const [name, original] of originals)
            Object.defineProperty(Element.prototype, name, original);
        return asked + '|' + text;
    })())js")
                               .arg(asEntities ? QStringLiteral("true") : QStringLiteral("false"),
                                    fileText(QStringLiteral(":/web/serialise.js")), literal(html));
    const QString answer = probe(*m_surface).evaluate(engine).value_or(QVariant()).toString();
    QVERIFY2(answer.section(u'|', 0, 0).toInt() > 1, qPrintable(answer)); // the printed form was this one's
    QCOMPARE(answer.section(u'|', 1), text);
}

/// Runs one of the checks of documents.js; what it says is wrong, or an empty text.
QString TestSerialise::check(const QString& call)
{
    const QString script = QStringLiteral("(%1)(%2).%3")
                               .arg(fileText(QStringLiteral(TEST_DATA "/documents.js")),
                                    fileText(QStringLiteral(":/web/serialise.js")), call);
    const std::optional<QVariant> answer = probe(*m_surface).evaluate(script);
    return answer && answer->typeId() == QMetaType::QString ? answer->toString()
                                                            : QStringLiteral("the check itself failed");
}

void TestSerialise::pages_data()
{
    QTest::addColumn<QString>("file");
    const QDir folder(QStringLiteral(TEST_DATA "/pages"));
    const QStringList names = folder.entryList({QStringLiteral("*.htm")});
    QVERIFY(names.size() >= 5);
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
}

// Listings as people write them: all that is said in them survives, and the second pass changes nothing.
void TestSerialise::pages()
{
    QFETCH(QString, file);
    const QString html = fileText(file);
    QVERIFY(m_surface->write(html));
    const QString text = m_surface->innerHtml();
    QVERIFY(m_surface->write(text));
    QCOMPARE(m_surface->innerHtml(), text);

    QString quoted = html;
    quoted.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'`', QStringLiteral("\\`"))
        .replace(QStringLiteral("${"), QStringLiteral("\\${"));
    QCOMPARE(check(QStringLiteral("broken(`") + quoted + QStringLiteral("`)")), QString());
}

void TestSerialise::generated_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("seed");
    for (const int seed : {1, 2, 3})
        QTest::addRow("ordinary %d", seed) << QStringLiteral("ordinary") << seed;
    for (const int seed : {4, 5, 6})
        QTest::addRow("wild %d", seed) << QStringLiteral("wild") << seed;
}

// More of them by hand, as 50,000 with DOCUMENTS=50000.
void TestSerialise::generated()
{
    QFETCH(QString, kind);
    QFETCH(int, seed);
    constexpr int AtOnce = 150;
    const int count = qEnvironmentVariableIntValue("DOCUMENTS") / 6; // six rows
    for (int done = 0; done == 0 || done < count; done += AtOnce) {
        const QString failure = check(QStringLiteral("%1(%2, %3)").arg(kind).arg(AtOnce).arg(seed + done));
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
    }
}

WEB_TEST_MAIN(TestSerialise)
#include "tst_serialise.moc"
