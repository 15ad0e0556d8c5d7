// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/DescriptionHtml.h"

#include <QTest>

using namespace brindlemark;

class TestDescriptionHtml : public QObject
{
    Q_OBJECT

private slots:
    void asTyped_data();
    void asTyped();
};

void TestDescriptionHtml::asTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const char* typed, const char* shown) {
        QTest::newRow(name) << QString::fromUtf8(typed) << QString::fromUtf8(shown);
    };
    row("empty", "", "");
    row("one line", "A lamp", "A lamp");
    row("lines", "A lamp\nof brass", "A lamp<BR>\nof brass");
    row("line ends of files", "A lamp\r\nof brass\rand glass", "A lamp<BR>\r\nof brass<BR>\rand glass");
    row("an empty line", "one\n\ntwo", "one<BR>\n<BR>\ntwo");
    row("a line end at the end", "one\n", "one<BR>\n");
    row("blanks at a line's end", "one  \ntwo", "one  <BR>\ntwo");
    row("signs", "5 < 6 > 4 & more", "5 &lt; 6 &gt; 4 &amp; more");
    row("a heart", "I <3 lamps", "I &lt;3 lamps");
    row("what looks like a tag", "<brass> & <green>", "&lt;brass&gt; &amp; &lt;green&gt;");
    row("tags", "<B>It works</B> & shines", "<B>It works</B> &amp; shines");
    row("a tag over a line end", "<FONT\ncolor=red>x</FONT>", "<FONT\ncolor=red>x</FONT>");
    row("an inline tag at a line's end", "<B>one</B>\ntwo", "<B>one</B><BR>\ntwo");
    row("a BR is there already", "one<br>\ntwo<BR/>  \nthree", "one<br>\ntwo<BR/>  \nthree");
    row("blocks", "<P>one</P>\n<UL>\n<LI>two\n</UL>\nthree", "<P>one</P>\n<UL>\n<LI>two<BR>\n</UL>\nthree");
    row("an empty line behind a block", "<P>one</P>\n\ntwo", "<P>one</P>\n<BR>\ntwo");
    row("references", "&euro; 5 &amp; &#169; &copy &x; AT&T", "&euro; 5 &amp; &#169; &copy &amp;x; AT&amp;T");
    row("comments", "a<!-- b\nc -->d", "a<!-- b\nc -->d");
    row("a comment without an end", "a <!-- b", "a &lt;!-- b");
    row("a torn tag", "a <B href=", "a &lt;B href=");
    row("an arrow", "here -> there <- back </ and <? so <! on",
        "here -&gt; there &lt;- back &lt;/ and &lt;? so &lt;! on");
    row("other scripts", "Lampe aus Messing\nfür 5 €\nランプ", "Lampe aus Messing<BR>\nfür 5 €<BR>\nランプ");
}

void TestDescriptionHtml::asTyped()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QCOMPARE(descriptionAsTyped(typed), shown);
    QCOMPARE(descriptionAsTyped(shown), shown); // twice is once
}

QTEST_APPLESS_MAIN(TestDescriptionHtml)
#include "tst_descriptionhtml.moc"
