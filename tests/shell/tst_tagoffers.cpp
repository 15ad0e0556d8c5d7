// SPDX-License-Identifier: GPL-3.0-or-later

// What is offered at a place of a text: end tags, attributes, colours. "|" stands for the caret.

#include "services/ElementAttributes.h"
#include "services/Elements.h"
#include "shell/TagOffers.h"

#include <QTest>
#include <algorithm>
#include <functional>

using namespace brindlemark;

namespace {

/// What is offered, parted by blanks, behind what is typed of it and a colon; empty where there is nothing.
QByteArray offered(QByteArray text)
{
    const qsizetype caret = text.indexOf('|');
    text.remove(caret, 1);
    const std::optional<Offers> offers = offersAt(text, caret);
    if (!offers)
        return {};
    if (offers->typed.end() != caret || offers->entries.isEmpty())
        QTest::qFail("the offers are none for the caret", __FILE__, __LINE__);
    return text.sliced(offers->typed.start, offers->typed.length) + ':' + offers->entries.join(' ');
}

} // namespace

class TestTagOffers : public QObject
{
    Q_OBJECT

private slots:
    void endTags_data();
    void endTags();
    void attributes_data();
    void attributes();
    void colors_data();
    void colors();
    void nothing_data();
    void nothing();
    void plainTextIsNotLookedThrough();
    void manyOpenTags();
    void anyPlaceOfAPage();
    void attributesAreInOrder();
};

void TestTagOffers::endTags_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(expected);
    };
    row("one", "<b>lamp</|", ":b>");
    row("innermost first", "<div><b><i>lamp</|", ":i> b> div>");
    row("in front of a text", "<b>lamp</| and more", ":b>");
    row("in front of an angle", "<b>lamp</|>", ":b");
    row("begun", "<table><tr><td>lamp</t|", "t:td> tr> table>");
    row("begun further", "<table><tr><td>lamp</ta|", "ta:table>");
    row("whole", "<table><tr><td>lamp</table|", "table:table>");
    row("in other letters", "<TABLE><tr><Td>lamp</T|", "T:Td> tr> TABLE>");
    row("closed ones", "<b>brass</b> <i>lamp</|", ":i>");
    row("nested tables", "<table><tr><td><table><tr><td>a</td></tr></table>b</|", ":td> tr> table>");
    row("in the inner table", "<div><table><tr><td><TABLE><TR><TD>a</|", ":TD> TR> TABLE> div>");
    row("a rule ends the paragraph", "<p>a<br><img src=a><hr size=1>b<input><wbr></|", "");
    row("void elements",
        "<div><br><img src=a><hr><input><meta><link><col><area><base><basefont><wbr>"
        "<embed><param><source><track></|",
        ":div>");
    row("a slash ends nothing", "<div/><br/>lamp</|", ":div>");
    row("a drawing's own", "<p><svg><path d=\"M0\"/></|", ":svg> p>");
    row("a whole drawing", "<p><svg/>lamp</|", ":p>");
    row("unknown", "<x-lamp>brass</|", ":x-lamp>");
    row("a paragraph after another", "<div><p>a<p>b</|", ":p> div>");
    row("a table ends the paragraph", "<div><p>a<table></|", ":table> div>");
    row("a list ends it too", "<p>a<ul><li>b</|", ":li> ul>");
    row("a line break doesn't", "<p>a<br>b</|", ":p>");
    row("bold goes on in the next paragraph", "<p><b>a<p>c</|", ":p> b>");
    row("items", "<ul><li>a<li>b</|", ":li> ul>");
    row("items within an item", "<ol><li>a<ul><li>b</ul>c</|", ":li> ol>");
    row("terms", "<dl><dt>a<dd>b<dt>c</|", ":dt> dl>");
    row("options", "<select><option>a<option>b</|", ":option> select>");
    row("an option ends the one before", "<select><option>a<option>b</option></|", ":select>");
    row("groups of options", "<select><optgroup><option>a<optgroup></|", ":optgroup> select>");
    row("cells without an end", "<table><tr><td>a<td>b<tr><th>c</|", ":th> tr> table>");
    row("sections", "<table><thead><tr><td>a<tbody><tr><td>b</|", ":td> tr> tbody> table>");
    row("columns", "<table><colgroup><col><col><tr></|", ":tr> table>");
    row("a caption", "<table><caption>a<tr></|", ":tr> table>");
    row("cells without a table", "<body><tr><td>a<td>b</|", ":td> tr> body>");
    row("a cell ends what it holds", "<table><tr><td><i>a<td>b</|", ":td> tr> table>");
    row("a parent ends what it holds", "<ul><li><p>a</ul>b<em></|", ":em>");
    row("an end tag of nothing", "<b>a</i></div></|", ":b>");
    row("no end tag reaches out of a cell", "<b><table><tr><td>a</b></|", ":td> tr> table> b>");
    row("nor out of a table", "<b><table><tr></b></|", ":tr> table> b>");
    row("crossed ones", "<b><i>lamp</b></|", ":i>");
    row("a row's end in an inner table", "<table><tr><td><table></tr></|", ":table> td> tr>");
    row("comments are no tags", "<b><!-- <i> -->lamp</|", ":b>");
    row("scripts are no tags", "<b><script>'<i>'</script>lamp</|", ":b>");
    row("behind a value with an angle", "<a title=\"a>b<i>\">lamp</|", ":a>");
    row("a title", "<html><head><title>lamp</|", ":title>");
    row("a title, begun", "<html><head><title>lamp</ti|", "ti:title>");
    row("letters beyond ASCII", "<b>caf\xC3\xA9</|", ":b>");
    row("an unknown byte", "<b>caf\xE9</|", ":b>");
}

void TestTagOffers::endTags()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(offered(text), expected);
}

void TestTagOffers::attributes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(expected);
    };
    row("one letter", "<td w|", "w:width");
    row("two letters", "<td wi|>lamp</td>", "wi:width");
    row("several", "<table ce|", "ce:cellpadding cellspacing");
    row("of this element", "<img h|", "h:height hspace");
    row("of another", "<font h|", "");
    row("of all elements", "<x-lamp st|", "st:style");
    row("with a hyphen", "<meta http|", "http:http-equiv");
    row("in capitals", "<TD WI|", "WI:WIDTH");
    row("small ones in a tag in capitals", "<TD wi|", "wi:width");
    row("behind a line end", "<td\r\nwi|", "wi:width");
    row("behind others", "<td align=left bgcolor=\"red\" w|", "w:width");
    row("not twice", "<td WIDTH=1 w|", "");
    row("behind a value with an angle", "<td title=\"a>b\" w|", "w:width");
    row("behind a value in single quotes", "<td title='a\">b' w|", "w:width");
    row("behind an open tag", "<td <td w|", "w:width");
    row("after a comment", "<!-- a --><td w|", "w:width");
    row("whole", "<td width|", "");
    row("within a name", "<td w|idth=3>", "");
    row("no such one", "<td x|", "");
    row("no letter yet", "<td |", "");
    row("the tag's name", "<t|", "");
    row("a value", "<td width=w|", "");
    row("right behind a value", "<td title=\"a\"w|", "");
    row("an end tag", "</td w|", "");
    row("a tag in an end tag", "</td <td w|", "");
}

void TestTagOffers::attributes()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(offered(text), expected);
}

void TestTagOffers::colors_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(expected);
    };
    row("in quotes", "<td bgcolor=\"r|", "r:red");
    row("in closed quotes", "<td bgcolor=\"r|\">lamp", "r:red");
    row("in single quotes", "<td bgcolor='G|", "G:gray green");
    row("without quotes", "<font color=bl|", "bl:black blue");
    row("behind a blank", "<font color = te|", "te:teal");
    row("capitals", "<FONT COLOR=\"Na|", "Na:navy");
    row("text", "<body text=\"w|", "w:white");
    row("link", "<body link=\"o|", "o:olive");
    row("vlink", "<body vlink=\"p|", "p:purple");
    row("alink", "<body alink=\"s|", "s:silver");
    row("bordercolor", "<table bordercolor=\"f|", "f:fuchsia");
    row("other attributes", "<a title=\"r|", "");
    row("whole", "<font color=\"red|", "");
    row("in the middle", "<font color=\"r|ed\">", "");
    row("several words", "<font color=\"dark r|", "");
    row("style", "<td style=\"color:r|", "r:red");
    row("style with more", "<td style=\"border: 1px; background-color: y|\">", "y:yellow");
    row("style in single quotes", "<td style='COLOR : ma|", "ma:maroon");
    row("another property", "<td style=\"float:r|", "");
    row("another color", "<td style=\"border-color:r|", "");
    row("a property, not its value", "<td style=\"b|", "");
    row("behind the value", "<td style=\"color:red b|", "");
    row("codes, the usual first",
        "<td bgcolor=\"#804000\"><td bgcolor=#FFEECC><font color=#804000><td bgcolor=\"#|\"><b color=#fFeEcC>"
        "<b color=#ffeecc>",
        "#:#FFEECC #804000");
    row("codes, begun", "<td bgcolor=#FFEECC><td bgcolor=#804000><td bgcolor=#f|", "#f:#FFEECC");
    row("codes as often, in their order", "<b color=#111111><b color=#000000><td bgcolor=#|",
        "#:#111111 #000000");
    row("codes in a style", "<b style='color:#123456'><b style=\"color:#1|", "#1:#123456");
    row("what is no code", "&#123456; #12345 #1234567 #lampen <td bgcolor=#|", "");
    row("eight at most",
        "#000001 #000002 #000003 #000004 #000005 #000006 #000007 #000008 #000009<td bgcolor=#|",
        "#:#000001 #000002 #000003 #000004 #000005 #000006 #000007 #000008");
}

void TestTagOffers::colors()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(offered(text), expected);
}

void TestTagOffers::nothing_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, const char* text) { QTest::newRow(name) << QByteArray(text); };
    row("empty", "|");
    row("at the beginning", "|<b>lamp");
    row("plain text", "<b>lamp w|");
    row("plain text behind a lone angle", "<b>5 < w|");
    row("a slash", "<b>lamp/|");
    row("nothing is open", "lamp</|");
    row("all is closed", "<b>lamp</b></|");
    row("no such tag", "<b>lamp</x|");
    row("with a number sign", "<b>lamp</#|");
    row("in a comment", "<b><!-- </|");
    row("in a comment, in a tag", "<b><!-- <td w|");
    row("in a script", "<b><script>a = '</|");
    row("in a script, in a tag", "<b><script>a = '<td w|");
    row("in a style", "<b><style>td </|");
    row("in a style, a color", "<style>td { color:r|");
    row("in a value", "<b><a title=\"</|");
    row("in an unclosed value", "<b title=\"lamp><td w|");
    row("in a doctype", "<!DOCTYPE w|");
    row("behind the end of all markup", "<b><plaintext></|");
}

void TestTagOffers::nothing()
{
    QFETCH(QByteArray, text);
    QCOMPARE(offered(text), QByteArray());
}

/// The text in front of plain words isn't asked for; a letter in a tag costs as much as it holds.
void TestTagOffers::plainTextIsNotLookedThrough()
{
    const QByteArray words = "<b>" + QByteArray("lamp ").repeated(1000) + "l";
    QVERIFY(!mayOffer(words));
    QVERIFY(!mayOffer("<td width=3>l"));
    QVERIFY(mayOffer("<td w"));
    QVERIFY(mayOffer("lamp</"));
    QVERIFY(mayOffer("lamp</t"));
    QVERIFY(!mayOffer("lamp</td>"));
    QVERIFY(!mayOffer("<td " + QByteArray(OffersNear, ' ') + "w")); // it began too far away
}

/// Deeper than anybody looks, as in a page made to do harm.
void TestTagOffers::manyOpenTags()
{
    const QByteArray items = QByteArray("<li><ul>") + QByteArray("<b>").repeated(40'000) +
                             QByteArray("<li></li></x>").repeated(10'000);
    QCOMPARE(offered(items + "</|"), QByteArray(":b>"));
    QCOMPARE(offered(QByteArray("<font color=\"red\" ").repeated(14'000) + "si|"), QByteArray());
}

/// Wherever the caret stands, what is typed ends there and is ASCII.
void TestTagOffers::anyPlaceOfAPage()
{
    const QByteArray page = "<!DOCTYPE html><HTML><title>a</title><style>b{color:red}</style><BODY "
                            "text=\"#FF0000\"><!-- c --><TABLE border=1><TR><TD width='3' "
                            "style=\"color:#00FF00\">\xC3\xA9 \xE9 < &lt; <br/><a href=x>d</a></TABLE><svg>"
                            "<path/></svg><script>if (a</b/) {}</script></body></html>";
    int found = 0;
    for (qsizetype caret = 0; caret <= page.size(); ++caret) {
        const std::optional<Offers> offers = offersAt(page, caret);
        if (!offers)
            continue;
        ++found;
        QCOMPARE(offers->typed.end(), caret);
        QVERIFY(offers->typed.length < 10);
        QVERIFY(!offers->entries.isEmpty());
        for (const QByteArray& entry : offers->entries) {
            QVERIFY(entry.size() > offers->typed.length);
            QCOMPARE(entry.first(offers->typed.length).toLower(),
                     page.sliced(offers->typed.start, offers->typed.length).toLower());
        }
    }
    QVERIFY(found > 3);
}

/// An element that nobody knows has no attributes of its own, and no name stands twice.
void TestTagOffers::attributesAreInOrder()
{
    const std::vector<std::string_view> ofAll = {"class", "dir", "id", "lang", "style", "title"};
    QCOMPARE(attributesOf("x-lamp"), ofAll);
    for (const char* element : {"a", "body", "div", "embed", "frame", "hr", "iframe", "img", "input",
                                "marquee", "object", "option", "table", "td", "tr", "ul", "video"}) {
        QVERIFY2(elementKind(element), element);
        const std::vector<std::string_view> names = attributesOf(element);
        QVERIFY2(names.size() > ofAll.size(), element);
        QVERIFY2(std::ranges::adjacent_find(names, std::greater_equal()) == names.end(), element);
    }
    for (const char* name : {"alink", "bgcolor", "bordercolor", "color", "link", "text", "vlink"})
        QVERIFY2(isColorAttribute(name), name);
    QVERIFY(!isColorAttribute("background"));
}

QTEST_GUILESS_MAIN(TestTagOffers)
#include "tst_tagoffers.moc"
