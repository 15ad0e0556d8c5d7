// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ListingCheck.h"

#include "ProgramFolder.h"
#include "Random.h"
#include "check/ColorOfPages.h"

#include <QRegularExpression>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <ctime>
#include <map>
#include <utility>
#include <vector>

using namespace brindlemark;

namespace {

using R = CheckRule;
using Rules = QList<CheckRule>;

/// What else a row has.
struct Extra
{
    Rules also{}; ///< other findings that the same page must have
    Rules may{};  ///< findings that follow from the fault: they may be there
    CheckProfile profile = CheckProfile::Page;
    CheckLimits limits{};
};

/// A page, in which "[[" and "]]" stand around each place that the rule must find. "[[?]]" is a finding whose
/// place nobody can tell, for something is missing there.
struct Row
{
    CheckRule rule;
    QByteArray what; ///< of each place, with "|" between them; "?" where the sentence does not have it
    QByteArray html;
    Extra extra;
};

const QByteArray PageBegin = "<!DOCTYPE html>\r\n<html>\r\n<head>\r\n<title>Brass lamp</title>\r\n"
                             "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\r\n";
const QByteArray Words =
    "<p>A heavy lamp of brass from the thirties with a new cord and a new plug, which has "
    "been cleaned with care and works well.</p>\r\n";
const QByteArray PageEnd = "\r\n</body>\r\n</html>\r\n";
const QByteArray Picture = "<img src=\"https://p.example/a.jpg\" alt=\"The lamp\" style=\"max-width:100%\">";

/// A page whose end is missing.
QByteArray openPage(const QByteArray& body, const QByteArray& head = {}, const QByteArray& bodyTag = "<body>")
{
    return PageBegin + head + "</head>\r\n" + bodyTag + "\r\n" + Words + body;
}

/// A page in which nothing is to be found but in these parts.
QByteArray page(const QByteArray& body, const QByteArray& head = {}, const QByteArray& bodyTag = "<body>")
{
    return openPage(body, head, bodyTag) + PageEnd;
}

/// A picture with these attributes, and one that is right in all else.
QByteArray picture(const QByteArray& attributes)
{
    return page("<p><img " + attributes + " alt=\"The lamp\" style=\"max-width:100%\"></p>");
}

/// A link that is right but for its address.
QByteArray link(const QByteArray& attributes)
{
    return page("<p><a " + attributes + " target=\"_blank\">shop</a></p>");
}

CheckLimits withLimit(int CheckLimits::*limit, int number)
{
    CheckLimits limits;
    limits.*limit = number;
    return limits;
}

CheckLimits withContrast(double contrast)
{
    CheckLimits limits;
    limits.contrast = contrast;
    return limits;
}

QByteArray words(int count)
{
    return QByteArray("word ").repeated(count);
}

QByteArray blackOn(const QByteArray& color, const QByteArray& body)
{
    return page(body, {}, "<body bgcolor=\"" + color + "\" text=\"#000000\">");
}

std::vector<Row> structureRows()
{
    std::vector<Row> rows;
    const auto found = [&](R rule, const QByteArray& what, const QByteArray& html, const Extra& extra = {}) {
        rows.push_back({rule, what, html, extra});
    };
    const auto fine = [&](R rule, const QByteArray& html, const Extra& extra = {}) {
        rows.push_back({rule, {}, html, extra});
    };

    found(R::UnclosedTag, "b", page("<p>Now [[<b>]]new</p>"));
    found(R::UnclosedTag, "DIV", page("[[<DIV>]]text"));
    found(R::UnclosedTag, "FONT", page("<table><tr><td>[[<FONT size=4>]]x</td></tr></table>"));
    found(R::UnclosedTag, "a", page("[[<a href=\"https://x.example/\" target=\"_blank\">]]shop"));
    found(R::UnclosedTag, "table", page("[[<table>]]<tr><td>x"));
    found(R::UnclosedTag, "UL|CENTER",
          page("<table><tr><td>[[<UL>]]<LI>x</td><td>[[<CENTER>]]y</td></tr></table>"));
    found(R::UnclosedTag, "h2", page("[[<h2>]]Terms<p>x</p>"));
    found(R::UnclosedTag, "i", page("<p>[[<i/>]]slanted</p>")); // the slash means nothing
    found(R::UnclosedTag, "b", page("[[<b>]]bold<b>twice</b>"));
    fine(R::UnclosedTag, page("<ul><li>one<li>two</ul><dl><dt>a<dd>b</dl>"));
    fine(R::UnclosedTag, page("<p>one<p>two<div>three</div>"));
    fine(R::UnclosedTag, page("<table><tr><td>a<td>b<tr><td>c</table>"));
    fine(R::UnclosedTag, page("<table><thead><tr><th>a<tbody><tr><td>b<tfoot><tr><td>c</table>"));
    fine(R::UnclosedTag, page("<B>x</b><SPAN>y</span>one<br>two<hr><wbr>three"));
    fine(R::UnclosedTag, page("<!-- <b> --><p title=\"<b>\">x</p>"));
    fine(R::UnclosedTag, page("<table><colgroup><col><col><tr><td>a</table>"));
    fine(R::UnclosedTag, page("<svg width=\"9\" height=\"9\"><circle r=\"4\"/></svg>"));
    fine(R::UnclosedTag, PageBegin + "<body>" + Words);
    fine(R::UnclosedTag, page("<style>b { content: \"<b>\" }</style>"));
    fine(R::UnclosedTag, page("<ruby>a<rp>(<rt>b<rp>)</ruby>"));

    found(R::UnopenedTag, "font", page("<p>text[[</font>]]</p>"));
    found(R::UnopenedTag, "CENTER", page("text[[</CENTER>]]"));
    found(R::UnopenedTag, "B", page("<p><b>x</b>[[</B>]]</p>"));
    found(R::UnopenedTag, "table", page("<table><tr><td>x</td></tr></table>[[</table>]]"));
    found(R::UnopenedTag, "div", page("<table><tr><td>x[[</div>]]</td></tr></table>"));
    found(R::UnopenedTag, "ul", page("<ul><li>x</ul>[[</ul>]]"));
    // An end tag in a cell can't end what began outside of the table.
    found(R::UnopenedTag, "div", page("<div><table><tr><td>x[[</div>]]</td></tr></table></div>"));
    fine(R::UnopenedTag, page("<ul><LI>a</li></ul>"));
    fine(R::UnopenedTag, page("<table><tr><td>a</td></tr></tbody></table>"));
    fine(R::UnopenedTag, PageBegin + Words + "</body></html>");
    fine(R::UnopenedTag, page("<!-- </b> --><p title=\"</b>\">x</p>"));
    fine(R::UnopenedTag, page("<h1>x</h1><p><font color=red>y</FONT ></p>"));

    found(R::CrossedTags, "b", page("<b><i>x[[</b>]]</i>"));
    found(R::CrossedTags, "FONT", page("<FONT size=4><B>x[[</FONT>]]</B>"));
    found(R::CrossedTags, "u", page("<div><u>x</div>[[</u>]]"));
    fine(R::CrossedTags, page("<b><i>x</i></b><i><b>y</b></i>"));
    found(R::CrossedTags, "a", page("<p><a href=\"#x\"><b>x[[</a>]]</b></p>"));
    fine(R::CrossedTags, page("<ul><li><b>x</b><li><i>y</i></ul>"));
    fine(R::CrossedTags, page("<p><b>x</b><p><i>y</i>"));
    fine(R::CrossedTags, page("<b><!-- <i> -->x</b><i>y<!-- </b> --></i>"));
    fine(R::CrossedTags, page("<div><p>one<p>two</div><table><tr><td><b>a</b><td>c</table>"));

    found(R::OutsideTable, "td", page("<div>[[<td>]]x</div>"));
    found(R::OutsideTable, "TR", page("[[<TR>]]x"));
    found(R::OutsideTable, "tbody", page("<p>x</p>[[<tbody>]]"));
    found(R::OutsideTable, "TH", page("<table><tr><td>x</td></tr></table>[[<TH>]]y"));
    fine(R::OutsideTable, page("<table><tr><td>x<tr><th>y</table>"));
    fine(R::OutsideTable, page("<table><td>x</table>"));
    fine(R::OutsideTable, page("<table><tr><td><table><tr><td>x</td></tr></table></td></tr></table>"));
    fine(R::OutsideTable, page("<!-- <td> -->"));

    found(R::OutsideCell, "?", page("<table>[[text]]<tr><td>x</td></tr></table>"));
    found(R::OutsideCell, "?", page("<table><tr>[[" + Picture + "]]<td>x</td></tr></table>"));
    found(R::OutsideCell, "?", page("<table><tr><td>x</td></tr>[[<br>]]</table>"));
    found(R::OutsideCell, "?", page("<table><tr><td>x</td>[[words]]</tr></table>"));
    found(R::OutsideCell, "?", page("<table>[[&nbsp;]]<tr><td>x</td></tr></table>"));
    found(R::OutsideCell, "?", page("<table><tbody>[[words]]<tr><td>x</td></tr></tbody></table>"));
    found(R::OutsideCell, "?", page("<table>[[<hr>]]<tr><td>x</td></tr></table>"));
    found(R::OutsideCell, "?", page("<table><tr><td>x</td></tr>[[<div>]]y</div></table>"));
    fine(R::OutsideCell, page("<table>\r\n<!-- rows -->\r\n<tr>\r\n\t<td>x</td>\r\n</tr>\r\n</table>"));
    fine(R::OutsideCell, page("<table><caption>Sizes <b>here</b></caption><colgroup><col></colgroup>"
                              "<tr><td>x</td></tr></table>"));
    fine(R::OutsideCell, page("<table><style>td { padding: 2px }</style><tr><td>x</td></tr></table>"));
    fine(R::OutsideCell, page("<table><tr><td>a<table><tr><td>b</table>c<td>d</table>e"));

    found(R::DuplicateAttribute, "align", page("<p align=\"left\" [[align=\"center\"]]>x</p>"));
    found(R::DuplicateAttribute, "color", page("<font COLOR=#000000 [[color=#111111]]>x</font>"));
    found(R::DuplicateAttribute, "border|Border",
          page("<table border=1 [[border=2]] [[Border=3]]><tr><td>x</td></tr></table>"));
    found(R::DuplicateAttribute, "nowrap", page("<table><tr><td nowrap [[nowrap]]>x</td></tr></table>"));
    fine(R::DuplicateAttribute, page("<p align=left title=\"align=left align=left\">x</p>"));
    fine(R::DuplicateAttribute, page("<p title=a><span title=a>x</span></p>"));

    found(R::TornTag, "?", openPage("<p>x</p>[[<img src=\"https://p.example/a.jpg\" alt=\"lamp\"]]"));
    found(R::TornTag, "?", openPage("<p>x</p>[[</bod]]"));
    found(R::TornTag, "?", openPage("<p>x</p>[[<p align=]]"));
    found(R::TornTag, "?", openPage("<!-- x -->[[<a hre]]"));
    fine(R::TornTag, openPage("<p>width < height"));
    fine(R::TornTag, openPage("<p>less <"));
    fine(R::TornTag, openPage("<p>one <3"));

    const Rules quoteBrings = {R::NoAlt,       R::NoPhoneWidth,    R::BlankInAddress,
                               R::LinkTarget,  R::RelativeAddress, R::UnclosedTag,
                               R::UnopenedTag, R::TornTag,         R::DuplicateAttribute};
    found(R::TornQuote, "src",
          page("<img [[src=\"https://p.example/a.jpg alt=\"]]lamp\" style=\"max-width:100%\">"),
          {.may = quoteBrings});
    found(R::TornQuote, "color", page("<font [[color=\"#880000>Text</font><p class=\"]]x\">y</p>"),
          {.may = quoteBrings});
    found(R::TornQuote, "href",
          page("<a target=\"_blank\" [[href=\"https://x.example/>shop</a> and <b title=\"]]x\">y</b>"),
          {.may = quoteBrings});
    fine(R::TornQuote, page("<p title=\"5 > 3\">x</p>"));
    fine(R::TornQuote, page("<p title='say \"hi\"' id=\"it's\">x</p>"));
    fine(R::TornQuote, page("<p title=\"a=b\" lang=\"en\">say \"hi\" <b>=\"</b></p>"));
    fine(R::TornQuote, page("<p title=\"two\r\nlines\">x</p>"));

    found(R::TornComment, "?", openPage("<p>x</p>[[<!--]] begin\r\n<p>y</p>"));
    found(R::TornComment, "?", openPage("<p>x</p>[[<!--]] end -- >"));
    fine(R::TornComment, page("<!-- a --!><!--><!---><!-- a -- b --><!---->"));
    fine(R::TornComment, page("<p title=\"<!-- \">x</p>"));
    fine(R::TornComment, page("&lt;!-- <!- - x>"));

    found(R::CommentInComment, "?", page("[[<!-- one <!-- two -->]] three"));
    found(R::CommentInComment, "?", page("[[<!-- one <p>gone</p> <!-- two -->]]"));
    fine(R::CommentInComment, page("<!-- one --><!-- two -->"));
    fine(R::CommentInComment, page("<!--[if mso]><b>x</b><![endif]-->"));
    fine(R::CommentInComment, page("<!-- a < b <! -- c -->"));

    const Rules generatorBrings = {R::UnclosedTag, R::UnopenedTag, R::TornTag, R::TornQuote};
    found(R::TornGeneratorTag, "?", page("<p>x</p>", "[[<META content=]]\r\n"), {.may = generatorBrings});
    found(R::TornGeneratorTag, "?", page("[[<META content=]]\r\n<p>x</p>"), {.may = generatorBrings});
    fine(R::TornGeneratorTag, page("<p>x</p>", "<META content=\"Maker 1.0\" name=GENERATOR>\r\n"));
    fine(R::TornGeneratorTag,
         page("<p>x</p>", "<META content=\"text/html; charset=utf-8\" http-equiv=Content-Type>\r\n"));
    fine(R::TornGeneratorTag, page("<p>x</p>", "<meta content=\"Lamps\" name=\"description\">\r\n"));

    found(R::UnpairedMarker, "<!-- Body-title -->", page("[[<!-- Body-title -->]]<p>Brass lamp</p>"));
    found(R::UnpairedMarker, "<!-- Body3-list2 -->", page("<p>x</p>[[<!-- Body3-list2 -->]]"));
    found(R::UnpairedMarker, "<!-- Body-line -->",
          page("<!-- Body-line --><hr><!-- Body-line2 -->[[<!-- Body-line -->]]<hr>"));
    fine(R::UnpairedMarker, page("<!-- body-buildwizard0 --><!-- Body-title -->Lamp<!-- Body-title2 -->"));
    found(R::UnpairedMarker, "<!-- Body-list2 -->|<!-- Body-list -->",
          page("[[<!-- Body-list2 -->]]x[[<!-- Body-list -->]]"));
    fine(R::UnpairedMarker, page("<!-- Body --><!-- Body text --><!-- Body-picture of the lamp -->"));

    const QByteArray utf8 = "<meta charset=\"utf-8\">\r\n";
    found(R::InvalidBytes, "?", page("<p>Caf[[\xE9]]</p>", utf8));
    found(R::InvalidBytes, "?", page("<p>Caf\xC3\xA9 und Caf[[\xE9]] und \xC3\xBC \xE2\x82\xAC</p>"));
    found(R::InvalidBytes, "?", page("<p>na[[\x81]]ve caf\xE9</p>"));
    found(R::InvalidBytes, "?", page("<p>\xE9t\xE9 [[\x9D]]</p>"));
    fine(R::InvalidBytes, page("<p>Caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80</p>", utf8));
    fine(R::InvalidBytes, page("<p>Caf\xE9, \x80 20, \x93quoted\x94, \xDF</p>"));
    fine(R::InvalidBytes, "\xEF\xBB\xBF" + page("<p>Caf\xC3\xA9</p>"));
    return rows;
}

std::vector<Row> dangerRows()
{
    std::vector<Row> rows;
    const auto found = [&](R rule, const QByteArray& what, const QByteArray& html, const Extra& extra = {}) {
        rows.push_back({rule, what, html, extra});
    };
    const auto fine = [&](R rule, const QByteArray& html, const Extra& extra = {}) {
        rows.push_back({rule, {}, html, extra});
    };

    found(R::Script, "?", page("<p>x</p>[[<script>]]if (a < b) alert('</b>')</script><p>y</p>"));
    found(R::Script, "?", page("[[<SCRIPT src=\"https://x.example/a.js\" type=text/javascript>]]</SCRIPT>"));
    found(R::Script, "?", page("<p>x</p>", "[[<script>]]\r\n<!--\r\nx = 1\r\n// -->\r\n</script>\r\n"));
    fine(R::Script, page("<p>a script of a play: &lt;script&gt;</p>"));
    fine(R::Script, page("<!-- <script>x</script> --><p title=\"<script>\">x</p>"));

    found(R::Handler, "onclick", page("<p [[onclick=\"x()\"]]>x</p>"));
    found(R::Handler, "ONLOAD", page("<p>x</p>", {}, "<body [[ONLOAD=start()]]>"));
    found(R::Handler, "onMouseOver|onMouseOut",
          page("<p [[onMouseOver=\"a('x > y')\"]] [[onMouseOut='b()']] id=x>x</p>"));
    found(R::Handler, "onerror", page("<svg [[onerror=x]] width=9></svg>"));
    fine(R::Handler, page("<p title=\"onclick=x\" align=onclick data-onclick=\"x\">onclick=\"x()\"</p>"));
    fine(R::Handler, page("<!-- <p onclick=x> --><p id=onload>x</p>"));

    found(R::ScriptAddress, "href", link("[[href=\"javascript:x()\"]]"));
    found(R::ScriptAddress, "HREF", link("[[HREF=' JaVaScRiPt:x()']]"), {.may = {R::BlankInAddress}});
    found(R::ScriptAddress, "href", link("[[href=\"java\tscript:x()\"]]"), {.may = {R::BlankInAddress}});
    found(R::ScriptAddress, "href", link("[[href=\"&#106;avascript&colon;x()\"]]"));
    found(R::ScriptAddress, "href", link("[[href=\"&#x6A;&#97;vascript:x()\"]]"));
    found(R::ScriptAddress, "src", picture("[[src=\"javascript:x()\"]]"));
    found(R::ScriptAddress, "href", link("[[href=\"\x01javascript:x()\"]]"), {.may = {R::BlankInAddress}});
    fine(R::ScriptAddress, link("href=\"https://x.example/javascript:x()\""));
    fine(R::ScriptAddress, page("<p title=\"javascript:x()\">javascript:x()</p>"));
    fine(R::ScriptAddress, link("href=\"https://javascript.example/\""));
    found(R::ScriptAddress, "href", link("[[href=\"javascript&#58;x()\"]]"));
    found(R::ScriptAddress, "background", page("x", {}, "<body [[background=\"javascript:x()\"]]>"));

    found(R::FormPart, "form", page("[[<form action=\"https://x.example/\">]]<p>x</p></form>"));
    found(R::FormPart, "INPUT", page("<p>[[<INPUT type=text>]]</p>"));
    found(R::FormPart, "select", page("<p>[[<select>]]<option>a<option>b</select></p>"),
          {.may = {R::FormPart}});
    found(R::FormPart, "textarea", page("<p>[[<textarea>]]<b>x</textarea></p>"));
    found(R::FormPart, "button", page("<p>[[<button>]]Buy</button></p>"));
    fine(R::FormPart, page("<p title=\"<form>\">The form of the lamp; its input. &lt;form&gt;</p>"));
    fine(R::FormPart, page("<!-- <form> --><p>x</p>"));

    found(R::Frame, "iframe", page("[[<iframe src=\"https://x.example/\">]]</iframe>"));
    found(R::Frame, "IFRAME",
          page("<p>[[<IFRAME src=\"https://x.example/\" width=\"100%\">]]<b></IFRAME></p>"));
    fine(R::Frame, page("<p>The frame of a picture. &lt;iframe&gt;</p><!-- <iframe> -->"));
    fine(R::Frame, page("<table frame=box><tr><td>x</td></tr></table>"));

    found(R::Object, "object", page("[[<object data=\"https://x.example/a.swf\">]]</object>"));
    found(R::Object, "EMBED", page("<p>[[<EMBED src=\"https://x.example/a.mid\">]]</p>"));
    found(R::Object, "applet", page("[[<applet code=\"A.class\">]]</applet>"), {.may = {R::RelativeAddress}});
    fine(R::Object, page("<p>An object of brass. &lt;object&gt;</p><!-- <embed> -->"));
    fine(R::Object, page("<p id=object title=\"<embed>\">x</p>"));

    found(R::MetaRefresh, "?",
          page("<p>x</p>", "[[<meta http-equiv=\"refresh\" content=\"5; url=https://x.example/\">]]\r\n"));
    found(R::MetaRefresh, "?", page("[[<META HTTP-EQUIV=Refresh CONTENT=3>]]<p>x</p>"));
    fine(R::MetaRefresh, page("<p>x</p>", "<meta http-equiv=\"Content-Type\" content=\"text/html\">\r\n"));
    fine(R::MetaRefresh, page("<p>x</p>", "<meta name=\"refresh\" content=\"a refresh\">\r\n"));

    found(R::OutsideStyle, "?",
          page("<p>x</p>", "[[<link rel=\"stylesheet\" href=\"https://x.example/a.css\">]]\r\n"));
    found(R::OutsideStyle, "?",
          page("<p>x</p>", "[[<LINK type=text/css href=\"https://x.example/a.css\" REL='alternate "
                           "StyleSheet'>]]\r\n"));
    found(
        R::OutsideStyle, "?",
        page("<p>x</p>", "<style>[[@import url(\"https://x.example/a.css\");\r\np { margin: 0 }]]</style>"));
    found(R::OutsideStyle, "?", page("<STYLE>[[@IMPORT 'https://x.example/a.css';]]</STYLE>"));
    fine(R::OutsideStyle, page("<p>x</p>", "<link rel=\"canonical\" href=\"https://x.example/\">\r\n"));
    fine(R::OutsideStyle, page("<p>x</p>", "<style>p { margin: 0 } /* @import url(x) */</style>\r\n"));
    fine(R::OutsideStyle, page("<p>@import of brass</p>"));

    found(R::Leftover, "http://", link("[[href=\"http://\"]]"));
    found(R::Leftover, "https://", picture("[[src=\"https://\"]]"));
    found(R::Leftover, "$.00", page("<p>Shipping and Handling costs - [[$.00]]</p>"));
    found(R::Leftover, "$.", page("<p>Shipping Insurance item costs - [[$.]]</p>"));
    found(R::Leftover, "http://", page("<p>More at [[http://]] soon</p>"));
    fine(R::Leftover, page("<p>$12.50, $0.00, $.50, US$3, $5.</p>"));
    fine(R::Leftover, page("<p>See http://x.example/ for more</p>"));
    fine(R::Leftover, page("<!-- $.00 http:// --><p>.00</p>"));

    found(R::EmptyAddress, "href", link("[[href=\"\"]]"));
    found(R::EmptyAddress, "SRC", picture("[[SRC='']]"));
    found(R::EmptyAddress, "href", link("[[href=\"  \"]]"), {.may = {R::BlankInAddress}});
    found(R::EmptyAddress, "src", picture("[[src]]"));
    fine(R::EmptyAddress, page("<p><a name=\"top\"></a><a href=\"#top\">up</a></p>"));
    fine(R::EmptyAddress, page("<p><a id=\"\" href=\"https://x.example/\" target=\"_blank\">x</a></p>"));

    found(R::DoubledScheme, "http://https://x.example/", link("[[href=\"http://https://x.example/\"]]"));
    found(R::DoubledScheme, "https://https://p.example/a.jpg",
          picture("[[src=\"https://https://p.example/a.jpg\"]]"));
    found(R::DoubledScheme, "HTTP://http://x.example/", link("[[href=HTTP://http://x.example/]]"));
    fine(R::DoubledScheme, link("href=\"https://w.example/?u=https://x.example/\""));
    fine(R::DoubledScheme, link("href=\"https://w.example/http://x.example/\""));
    fine(R::DoubledScheme, link("href=\"https://https.example/\""));

    found(R::BlankInAddress, "https://x.example/a b", link("[[href=\"https://x.example/a b\"]]"));
    found(R::BlankInAddress, "?", picture("[[src=\" https://p.example/a.jpg\"]]"));
    found(R::BlankInAddress, "?", picture("[[src=\"https://p.example/my lamp 1.jpg \"]]"));
    fine(R::BlankInAddress, link("href=\"https://x.example/a%20b\""));
    fine(R::BlankInAddress, link("href = \"https://x.example/a+b\" title=\"a b\""));
    fine(R::BlankInAddress, link("href=https://x.example/a"));

    const Extra byHttp = {.may = {R::HttpAddress}};
    found(R::LocalAddress, "file:///C:/pictures/a.jpg", picture("[[src=\"file:///C:/pictures/a.jpg\"]]"));
    found(R::LocalAddress, "C:\\pictures\\a.jpg", picture("[[src=\"C:\\pictures\\a.jpg\"]]"));
    found(R::LocalAddress, "d:/a.jpg", picture("[[src=\"d:/a.jpg\"]]"));
    found(R::LocalAddress, "http://localhost/a.jpg", picture("[[src=\"http://localhost/a.jpg\"]]"), byHttp);
    found(R::LocalAddress, "http://LOCALHOST:8080/", link("[[href=\"http://LOCALHOST:8080/\"]]"));
    found(R::LocalAddress, "https://127.0.0.1/a.jpg", picture("[[src=\"https://127.0.0.1/a.jpg\"]]"));
    found(R::LocalAddress, "http://192.168.0.1/", link("[[href=\"http://192.168.0.1/\"]]"));
    found(R::LocalAddress, "https://10.1.2.3/a.jpg", picture("[[src=\"https://10.1.2.3/a.jpg\"]]"));
    found(R::LocalAddress, "https://172.16.0.9", link("[[href=\"https://172.16.0.9\"]]"));
    found(R::LocalAddress, "https://172.31.255.1/", link("[[href=\"https://172.31.255.1/\"]]"));
    found(R::LocalAddress, "FILE://a.jpg", picture("[[src=\"FILE://a.jpg\"]]"));
    fine(R::LocalAddress, link("href=\"https://10.example/\""));
    found(R::LocalAddress, "\\\\server\\a.jpg", picture("[[src=\"\\\\server\\a.jpg\"]]"));
    found(R::LocalAddress, "http://[::1]/", link("[[href=\"http://[::1]/\"]]"));
    found(R::LocalAddress, "https://127.1.2.3/a.jpg", picture("[[src=\"https://127.1.2.3/a.jpg\"]]"));
    fine(R::LocalAddress, link("href=\"https://172.32.0.1/\""));
    fine(R::LocalAddress, link("href=\"https://172.15.0.1/\""));
    fine(R::LocalAddress, link("href=\"https://192.169.0.1/\""));
    fine(R::LocalAddress, link("href=\"https://localhost.example/\""));
    fine(R::LocalAddress, link("href=\"https://x.example/localhost/file:/127.0.0.1\""));
    fine(R::LocalAddress, link("href=\"https://10.1.2.3.example/\""));
    fine(R::LocalAddress, page("<p>C:\\pictures and http://localhost/ in words</p>"));

    found(R::RelativeAddress, "lamp.jpg", picture("[[src=\"lamp.jpg\"]]"));
    found(R::RelativeAddress, "/images/a.jpg", picture("[[src=/images/a.jpg]]"));
    found(R::RelativeAddress, "../index.htm", link("[[href=\"../index.htm\"]]"));
    found(R::RelativeAddress, "www.x.example/shop", link("[[href=\"www.x.example/shop\"]]"));
    fine(R::RelativeAddress, picture("src=\"//p.example/a.jpg\""));
    found(R::RelativeAddress, "?page=2", link("[[href=\"?page=2\"]]"));
    fine(R::RelativeAddress, picture("src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\""));
    fine(R::RelativeAddress, page("<p><a href=\"#terms\">terms</a> <a href=\"tel:+15550100\">call</a></p>"));

    found(R::HttpAddress, "http://p.example/a.jpg", picture("[[src=\"http://p.example/a.jpg\"]]"));
    found(R::HttpAddress, "HTTP://p.example/a.jpg", picture("[[SRC=HTTP://p.example/a.jpg]]"));
    found(R::HttpAddress, "http://p.example/b.gif",
          page("<p>x</p>", {}, "<body [[background=\"http://p.example/b.gif\"]]>"));
    found(R::HttpAddress, "http://p.example/b.gif",
          page("<table><tr><td [[background=\"http://p.example/b.gif\"]]>x</td></tr></table>"));
    fine(R::HttpAddress, link("href=\"http://x.example/\""));
    fine(R::HttpAddress, picture("data-src=\"http://p.example/a.jpg\" src=\"https://p.example/a.jpg\""));
    fine(R::HttpAddress, picture("src=\"https://p.example/http://a.jpg\""));
    fine(R::HttpAddress, page("<!-- <img src=http://p.example/a.jpg> --><p>http://p.example/a.jpg</p>"));

    found(R::LinkTarget, "?", page("<p>[[<a href=\"https://x.example/\">]]shop</a></p>"));
    found(R::LinkTarget, "?", page("<p>[[<A HREF=HTTP://x.example/>]]shop</A></p>"));
    found(R::LinkTarget, "?", page("<p>[[<a href=\"https://x.example/\" target=\"_top\">]]shop</a></p>"));
    fine(R::LinkTarget, page("<p><a href=\"https://x.example/\" TARGET=_BLANK>shop</a></p>"));
    fine(R::LinkTarget, page("<p><a href=\"#top\">up</a> <a name=top>x</a></p>"));
    fine(R::LinkTarget,
         page("<p><a href=\"https://x.example/\">shop</a></p>", "<base target=\"_blank\">\r\n"));

    found(R::MailAddress, "me@x.example", page("<p>Write to [[me@x.example]] today.</p>"));
    found(R::MailAddress, "me@x.example", page("<p><a [[href=\"mailto:me@x.example\"]]>write</a></p>"));
    found(R::MailAddress, "first.last-2@mail.x.example", page("<p>([[first.last-2@mail.x.example]]).</p>"));
    found(R::MailAddress, "me@x.example",
          page("<p><A [[HREF=\"MAILTO:me@x.example?subject=Lamp\"]]>write</A></p>"));
    fine(R::MailAddress, page("<p>5 @ $3, @home, me @ x . example, a@b, look @x.example</p>"));
    fine(R::MailAddress, page("<!-- me@x.example --><style>@media print { p { margin: 0 } }</style>"));
    fine(R::MailAddress, link("href=\"https://x.example/@seller\""));
    return rows;
}

std::vector<Row> lookRows()
{
    std::vector<Row> rows;
    const auto found = [&](R rule, const QByteArray& what, const QByteArray& html, const Extra& extra = {}) {
        rows.push_back({rule, what, html, extra});
    };
    const auto fine = [&](R rule, const QByteArray& html, const Extra& extra = {}) {
        rows.push_back({rule, {}, html, extra});
    };
    const auto image = [](const QByteArray& attributes) {
        return "<p>[[<img src=\"https://p.example/a.jpg\" " + attributes + ">]]</p>";
    };
    const auto fineImage = [](const QByteArray& attributes) {
        return "<p><img src=\"https://p.example/a.jpg\" " + attributes + "></p>";
    };

    found(R::NoAlt, "?", page(image("style=\"max-width:100%\"")));
    found(R::NoAlt, "?", page("[[<IMG WIDTH=90 SRC=https://p.example/a.jpg>]]"));
    found(R::NoAlt, "?", page("[[<img title=\"lamp\" width=90 src=\"https://p.example/a.jpg\"/>]]"));
    fine(R::NoAlt, page(fineImage("alt=\"\" width=90")));
    fine(R::NoAlt, page(fineImage("ALT=lamp width=90")));
    fine(R::NoAlt, page(fineImage("alt width=90")));
    fine(R::NoAlt, page("<!-- <img src=\"https://p.example/a.jpg\"> -->"));

    const auto alt = [](const QByteArray& value) {
        return page("<p><img src=\"https://p.example/a.jpg\" " + value + " width=90></p>");
    };
    found(R::FileNameAlt, "lamp1.jpg", alt("[[alt=\"lamp1.jpg\"]]"));
    found(R::FileNameAlt, "IMG_0042.JPG", alt("[[ALT=IMG_0042.JPG]]"));
    found(R::FileNameAlt, "my lamp.png", alt("[[alt=\"my lamp.png\"]]"));
    fine(R::FileNameAlt, alt("alt=\"Lamp no. 3\""));
    fine(R::FileNameAlt, alt("alt=\"Lamp, 1930s.\""));
    fine(R::FileNameAlt, alt("alt=\"3.5 in. wide\""));
    fine(R::FileNameAlt, alt("alt=\"lamp\" title=\"lamp.jpg\""));

    found(R::WidePicture, "800", page(image("alt=\"\" width=\"800\"")), {.may = {R::NoPhoneWidth}});
    found(R::WidePicture, "701", page(image("alt=\"\" WIDTH=701")), {.may = {R::NoPhoneWidth}});
    found(R::WidePicture, "900", page(image("alt=\"\" style=\"border:0; Width: 900px\"")),
          {.may = {R::NoPhoneWidth}});
    found(R::WidePicture, "501", page(image("alt=\"\" width=501")),
          {.may = {R::NoPhoneWidth}, .limits = withLimit(&CheckLimits::pictureWidth, 500)});
    fine(R::WidePicture, page(fineImage("alt=\"\" width=\"100%\"")));
    fine(R::WidePicture, page(fineImage("alt=\"\" style=\"border-width:800px;max-width:100%\"")));
    fine(R::WidePicture, page(fineImage("alt=\"\" data-width=800 width=90")));
    fine(R::WidePicture, page(fineImage("alt=\"\" width=800 style=\"max-width:100%\"")));
    fine(R::WidePicture, page(fineImage("alt=\"\" width=700")), {.also = {R::NoPhoneWidth}});
    fine(R::WidePicture, page(fineImage("alt=\"\" height=900 style=\"width:100%\"")));

    found(R::NoPhoneWidth, "?", page(image("alt=\"\"")));
    found(R::NoPhoneWidth, "?", page(image("alt=\"\" width=376")));
    found(R::NoPhoneWidth, "?", page(image("alt=\"\" style=\"width:500px\"")));
    found(R::NoPhoneWidth, "?", page(image("alt=\"\" width=300")),
          {.limits = withLimit(&CheckLimits::phoneWidth, 299)});
    fine(R::NoPhoneWidth, page(fineImage("alt=\"\" width=375")));
    fine(R::NoPhoneWidth, page(fineImage("alt=\"\" width=\"50%\"")));
    fine(R::NoPhoneWidth, page(fineImage("alt=\"\" style=\"width:300px\"")));
    fine(R::NoPhoneWidth, page(fineImage("alt=\"\" style=\"MAX-WIDTH:100%\"")));
    fine(R::NoPhoneWidth, page(fineImage("alt=\"\""), "<style>img { max-width: 100% }</style>\r\n"));

    const auto fewWords = [](int count, const QByteArray& rest) {
        return PageBegin + "</head><body><p>" + words(count) + "</p>" + rest + PageEnd;
    };
    found(R::OnlyPictures, "19", fewWords(19, Picture + "[[?]]"));
    found(R::OnlyPictures, "0", fewWords(0, Picture + Picture + "[[?]]"));
    found(R::OnlyPictures, "3",
          fewWords(3, Picture + "<!-- " + words(30) + " --><style>/* " + words(30) + " */</style>[[?]]"));
    found(R::OnlyPictures, "20", fewWords(20, Picture + "[[?]]"),
          {.limits = withLimit(&CheckLimits::fewWords, 21)});
    fine(R::OnlyPictures, fewWords(20, Picture));
    fine(R::OnlyPictures, fewWords(5, "<hr>"));
    fine(R::OnlyPictures, fewWords(5, Picture), {.limits = withLimit(&CheckLimits::fewWords, 5)});

    const QByteArray noLine = "<html><head><title>Brass lamp</title>";
    const QByteArray restOfPage = "</head><body>" + Words + "</body></html>";
    found(R::NoViewport, "?", noLine + restOfPage + "[[?]]");
    found(R::NoViewport, "?",
          noLine + "<!-- <meta name=viewport content=\"width=device-width\"> -->" + restOfPage + "[[?]]");
    found(R::NoViewport, "?",
          noLine + "<meta name=\"description\" content=\"viewport\">" + restOfPage + "[[?]]");
    found(R::NoViewport, "?", "<h1>Lamp</h1>[[?]]" + Words);
    fine(R::NoViewport, noLine + "<META NAME=Viewport CONTENT=\"width=device-width\">" + restOfPage);
    fine(R::NoViewport, "<p>Lamp <b>x</b>", {.profile = CheckProfile::FewTags});

    found(R::WideTable, "600", page("<table [[width=\"600\"]]><tr><td>x</td></tr></table>"));
    found(R::WideTable, "376", page("<table><tr><TD [[WIDTH=376]]>x</td></tr></table>"));
    found(R::WideTable, "500", page("<table [[style=\"width:500px\"]]><tr><td>x</td></tr></table>"));
    found(R::WideTable, "800|400",
          page("<table [[width=800px]]><tr><th [[width=400]]>x</th><td width=100>y</td></tr></table>"));
    found(R::WideTable, "300", page("<table [[width=300]]><tr><td>x</td></tr></table>"),
          {.limits = withLimit(&CheckLimits::phoneWidth, 299)});
    fine(R::WideTable, page("<table width=375><tr><td width=375>x</td></tr></table>"));
    fine(R::WideTable,
         page("<table style=\"max-width:500px\"><tr><td style=\"border-width:500px\">x</table>"));
    fine(R::WideTable, page("<table width=\"100%\" height=600><tr><td width=\"50%\">x</td></tr></table>"));
    fine(R::WideTable, page("<table style=\"width:100%;max-width:700px\"><tr><td>x</td></tr></table>"));
    fine(R::WideTable, page("<hr width=\"75%\"><p>x</p><!-- <table width=600> -->"));

    found(R::Contrast, "1.1", blackOn("#FFFFFF", "<p>[[<font color=\"#FFFF00\">]]sun</font></p>"));
    found(R::Contrast, "3.0", blackOn("#EEEE22", "<p>[[<font color=#009900>]]leaf</font></p>"));
    found(R::Contrast, "?", blackOn("white", "<p>[[<FONT COLOR=#777777>]]grey</FONT></p>")); // 4.48
    found(R::Contrast, "?",
          page("<table><tr><td bgcolor=#000000>[[<font color=#333333>]]x</font></td></tr></table>"));
    found(R::Contrast, "4.0", page("[[<p style=\"color:red;background-color:#FFF\">]]x</p>"));
    found(R::Contrast, "1.0", page("<p>x</p>", {}, "[[<body bgcolor=#808080 text=gray>]]"));
    found(R::Contrast, "1.1",
          blackOn("#FFFFFF", "<p>[[<font color=\"#FFFF00\">]]a</font> <font color=yellow>b</font> "
                             "<FONT COLOR=#FF0>c</FONT></p>")); // each pair once
    found(R::Contrast, "?", blackOn("#FFFFFF", "<p>[[<font color=#767676>]]x</font></p>"),
          {.limits = withContrast(4.6)});
    fine(R::Contrast, blackOn("#FFFFFF", "<p><font color=#767676>grey</font></p>")); // 4.54
    fine(R::Contrast, page("<p><font color=yellow>on a ground that nobody has given</font></p>"));
    found(R::Contrast, "?",
          page("<table><tr><td style=\"background:#000000\">[[<font "
               "color=#333333>]]x</font></td></tr></table>"));
    fine(R::Contrast, blackOn("#FFFFFF", "<table><tr><td background=\"https://p.example/night.jpg\">"
                                         "<font color=yellow>on a picture</font></td></tr></table>"));
    fine(R::Contrast, blackOn("#FFFFFF", "<table><tr><td bgcolor=#000000><font color=#FFFFFF>x</font></td>"
                                         "</tr></table>"));
    fine(R::Contrast, blackOn("#FFFFFF", "<p><font color=yellow> <font color=blue>x</font> </font></p>"));
    fine(R::Contrast, blackOn("#FFFFFF", "<p><font color=white><!-- words --></font></p>"));
    fine(R::Contrast, blackOn("#FFFFFF", "<p><font color=white></font>black again</p>"));

    const QByteArray long201 = QByteArray(201, 'x');
    const QByteArray long200 = QByteArray(200, 'x');
    found(R::SmallText, "1", page("<p>[[<font size=1>]]" + long201 + "</font></p>"));
    found(R::SmallText, "2", page("<p>[[<FONT SIZE=\"2\">]]" + words(60) + "</FONT></p>"));
    found(R::SmallText, "2", page("<p>[[<font size=-1>]]" + words(60) + "</font></p>"));
    found(R::SmallText, "1", page("<p>[[<font size=\"-2\">]]" + words(60) + "</font></p>"));
    found(R::SmallText, "1", page("<p>[[<font size=1>]]" + QByteArray(11, 'x') + "</font></p>"),
          {.limits = withLimit(&CheckLimits::longText, 10)});
    fine(R::SmallText, page("<p><font size=1>" + long200 + "</font></p>"));
    found(R::SmallText, "2",
          page("[[<font size=2>]]<p>" + words(30) + "</p><p>" + words(30) + "</p></font>"));
    fine(R::SmallText,
         page("<p><font size=3>" + long201 + "</font><font size=+1>" + long201 + "</font></p>"));
    fine(R::SmallText, page("<p><font size=1><font size=3>" + long201 + "</font></font></p>"));
    fine(R::SmallText, page("<p><font color=#000000>" + long201 + "</font></p>"));
    fine(R::SmallText, page("<p><font size=1><!-- " + long201 + " --></font></p>"));

    const QByteArray viewport = "<meta name=\"viewport\" content=\"width=device-width\">";
    const auto untitled = [&](const QByteArray& head, const QByteArray& body) {
        return "<html><head>" + viewport + head + "</head><body>" + Words + body + "</body></html>";
    };
    found(R::NoTitle, "?", untitled("[[?]]", ""));
    found(R::NoTitle, "?", untitled("<title> \r\n</title>[[?]]", ""));
    found(R::NoTitle, "?",
          untitled("[[?]]", "<!-- Body-title -->\r\n<FONT size=3>\r\n\r\n</FONT>\r\n<!-- Body-title2 -->"));
    found(R::NoTitle, "?", untitled("[[?]]", "<h1></h1>"));
    found(R::NoTitle, "?", untitled("[[?]]", "<!-- Body-title --><b>&nbsp;</b><!-- Body-title2 -->"));
    fine(R::NoTitle, untitled("<title>Lamp</title>", ""));
    fine(R::NoTitle, untitled("", "<H1>Lamp</H1>"));
    fine(R::NoTitle, untitled("", "<h1><b>Lamp</b></h1>"));
    fine(R::NoTitle, untitled("", "<!-- Body-title --><FONT size=3>Lamp</FONT><!-- Body-title2 -->"));

    found(
        R::NoDescription, "?",
        page("<!-- Body-description -->\r\n<FONT size=3>\r\n\r\n</FONT>\r\n<!-- Body-description2 -->[[?]]"));
    found(R::NoDescription, "?", page("<!-- Body-description --><!-- Body-description2 -->[[?]]"));
    found(R::NoDescription, "?",
          page("<!-- Body-description --><P align=center><!-- none --> </P><!-- Body-description2 -->[[?]]"));
    fine(R::NoDescription, page("<!-- Body-description --><B>x</B><!-- Body-description2 -->"));
    fine(R::NoDescription, page("<!-- Body-picture --><!-- Body-picture2 -->"));

    const QByteArray umlauts = QByteArray("\xC3\xA4").repeated(100); // 100 characters, 200 bytes
    const int length = int(page("").size());
    const auto most = [](int CheckLimits::*limit, int number, Rules also = {}) {
        return Extra{.also = std::move(also), .limits = withLimit(limit, number)};
    };
    constexpr int CheckLimits::*Characters = &CheckLimits::mostCharacters;
    constexpr int CheckLimits::*Bytes = &CheckLimits::mostBytes;
    found(R::TooManyCharacters, QByteArray::number(length), page("[[?]]"), most(Characters, length - 1));
    found(R::TooManyCharacters, QByteArray::number(length + 100), page(umlauts + "[[?]]"),
          most(Characters, length + 99));
    fine(R::TooManyCharacters, page(""), most(Characters, length));
    fine(R::TooManyCharacters, page(umlauts), most(Characters, length + 100));
    fine(R::TooManyCharacters, page(umlauts), most(Characters, 0));
    fine(R::TooManyCharacters, page(QByteArray(100, '\xE4')), most(Characters, length + 100));
    found(R::TooManyBytes, QByteArray::number(length), page("[[?]]"), most(Bytes, length - 1));
    found(R::TooManyBytes, QByteArray::number(length + 200), page(umlauts + "[[?]]"),
          most(Bytes, length + 199));
    fine(R::TooManyBytes, page(""), most(Bytes, length));
    fine(R::TooManyBytes, page(umlauts), most(Bytes, length + 200));
    fine(R::TooManyBytes, page(umlauts), most(Bytes, 0));

    const Extra few = {.profile = CheckProfile::FewTags};
    const Extra plain = {.profile = CheckProfile::Plain};
    found(R::TagNotTaken, "h1", "[[<h1>]]Lamp</h1>x<h1>y</h1>", few);
    found(R::TagNotTaken, "DIV|font", "<p>x</p>[[<DIV>]]a</DIV><div>b</div>[[<font size=4>]]c</font>", few);
    found(R::TagNotTaken, "b|br", "a [[<b>]]lamp</b>[[<br>]]x <B>y</B><BR>", plain);
    found(R::TagNotTaken, "img", "<p>[[<img src=lamp.jpg>]]</p>", few);
    fine(R::TagNotTaken,
         "<B>a</B><i>b</i><u>c</u><em>d</em><strong>e</strong><sub>f</sub><sup>g</sup><P>h</P><br>"
         "<ul><li>i</ul><ol><li>j</ol>",
         few);
    fine(R::TagNotTaken, "A lamp of brass, 3 < 4 &amp; more", plain);
    fine(R::TagNotTaken, page("<h1>x</h1>" + Picture));
    return rows;
}

const std::vector<Row>& allRows()
{
    static const std::vector<Row> rows = [] {
        std::vector<Row> all;
        for (const auto& part : {structureRows(), dangerRows(), lookRows()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    return rows;
}

/// A row's page without its marks, and the places that they stood around.
struct Marked
{
    QByteArray html;
    std::vector<TextRange> places;
    int missing = 0; ///< findings without a place
};

Marked withoutMarks(const QByteArray& text)
{
    Marked marked;
    for (qsizetype from = 0;;) {
        const qsizetype open = text.indexOf("[[", from);
        if (open < 0) {
            marked.html += text.sliced(from);
            return marked;
        }
        const qsizetype close = text.indexOf("]]", open);
        marked.html += text.sliced(from, open - from);
        const QByteArray place = text.sliced(open + 2, close - open - 2);
        if (place == "?") {
            ++marked.missing;
        } else {
            marked.places.push_back({marked.html.size(), place.size()});
            marked.html += place;
        }
        from = close + 2;
    }
}

QByteArray idOf(CheckRule rule)
{
    return ruleText(rule).id;
}

QByteArrayList idsOf(const std::vector<Finding>& findings)
{
    QByteArrayList ids;
    for (const Finding& finding : findings)
        ids << idOf(finding.rule);
    std::sort(ids.begin(), ids.end());
    return ids;
}

QByteArray described(const std::vector<Finding>& findings, const QByteArray& html)
{
    QByteArray text;
    for (const Finding& finding : findings) {
        text += "\n    " + idOf(finding.rule) + " what=" + finding.what +
                " place=" + html.sliced(finding.place.start, finding.place.length);
    }
    return text;
}

/// How many findings of a rule there are.
qsizetype count(const std::vector<Finding>& findings, CheckRule rule)
{
    return std::count_if(findings.begin(), findings.end(),
                         [&](const Finding& finding) { return finding.rule == rule; });
}

/// What a mended text may have that the text before had not.
Rules bringsBy(CheckRule rule)
{
    switch (rule) {
    case R::DoubledScheme:
        return {R::HttpAddress, R::LocalAddress}; // of the second beginning
    case R::ScriptAddress:
        return {R::EmptyAddress}; // a picture without its address
    case R::BlankInAddress:
        return {R::RelativeAddress, R::LocalAddress, R::HttpAddress}; // what the address is is seen now
    default:
        return {};
    }
}

/// What a mended text has that it must not have; empty when all is well.
QByteArray newFindings(const std::vector<Finding>& before, const std::vector<Finding>& after,
                       CheckRule mended)
{
    const Rules brought = bringsBy(mended);
    for (const CheckRuleText& text : [] {
             std::vector<CheckRuleText> all;
             for (size_t i = 0; i < CheckRuleCount; ++i)
                 all.push_back(ruleText(CheckRule(i)));
             return all;
         }()) {
        if (text.rule != mended && !brought.contains(text.rule) &&
            count(after, text.rule) > count(before, text.rule))
            return text.id;
    }
    return {};
}

/// Whether edits lie in a text, one behind the other.
bool inOrder(const std::vector<TextEdit>& edits, qsizetype length)
{
    qsizetype from = 0;
    for (const TextEdit& edit : edits) {
        if (edit.range.start < from || edit.range.length < 0 || edit.range.end() > length)
            return false;
        from = edit.range.end();
    }
    return true;
}

} // namespace

class TestListingCheck : public QObject
{
    Q_OBJECT

private slots:
    void cleanPageHasNoFindings();
    void rules_data();
    void rules();
    void everyRuleHasRows();
    void namesAsInThePage_data();
    void namesAsInThePage();
    void rulesSwitchedOff_data() { rowsOfFindings(); }
    void rulesSwitchedOff();
    void profiles_data() { rowsOfFindings(); }
    void profiles();
    void mends_data() { rowsOfFindings(); }
    void mends();
    void onceIsEnough_data();
    void onceIsEnough();
    void mendedLetterByLetter_data();
    void mendedLetterByLetter();
    void mendedTexts_data();
    void mendedTexts();
    void lengths_data();
    void lengths();
    void titles_data();
    void titles();
    void phones_data();
    void phones();
    void phoneAltIsTheTitle();
    void anyBytes_data();
    void anyBytes();
    void attributeColors_data();
    void attributeColors();
    void styleColors_data();
    void styleColors();
    void contrastBelowTheLimitIsToldBelowIt();
    void contrasts_data();
    void contrasts();
    void settings_data();
    void settings();
    void settingsSwitchRulesOff();
    void longTexts_data();
    void longTexts();

private:
    static void rowsOfFindings();
};

void TestListingCheck::cleanPageHasNoFindings()
{
    const QByteArray html = page(Picture);
    const CheckReport report = checkListing(html, CheckLimits());
    QVERIFY2(report.findings.empty(), described(report.findings, html).constData());
    QCOMPARE(report.words, 25);
    QCOMPARE(report.bytes, html.size());
    QCOMPARE(report.characters, html.size());
    QVERIFY(phoneEdits(html, CheckLimits()).empty());
}

void TestListingCheck::rules_data()
{
    QTest::addColumn<int>("row");
    std::map<CheckRule, int> numbers;
    for (size_t i = 0; i < allRows().size(); ++i) {
        const Row& row = allRows().at(i);
        QTest::addRow("%s %d %s", ruleText(row.rule).id, ++numbers[row.rule],
                      row.html.contains("[[") ? "found" : "fine")
            << int(i);
    }
}

void TestListingCheck::rowsOfFindings()
{
    QTest::addColumn<int>("row");
    std::map<CheckRule, int> numbers;
    for (size_t i = 0; i < allRows().size(); ++i) {
        const Row& row = allRows().at(i);
        ++numbers[row.rule];
        if (row.html.contains("[["))
            QTest::addRow("%s %d", ruleText(row.rule).id, numbers[row.rule]) << int(i);
    }
}

void TestListingCheck::rules()
{
    QFETCH(int, row);
    const Row& wanted = allRows().at(size_t(row));
    const CheckRule rule = wanted.rule;
    const QByteArray what = wanted.what;
    const Extra& extra = wanted.extra;
    const Marked marked = withoutMarks(wanted.html);
    const QByteArray html = marked.html;
    const std::vector<TextRange>& places = marked.places;
    const int missing = marked.missing;
    const auto findings = checkListing(html, extra.limits, extra.profile).findings;
    const QByteArray all = described(findings, html);

    QByteArrayList expected;
    for (size_t i = 0; i < places.size() + size_t(missing); ++i)
        expected << idOf(rule);
    for (const CheckRule other : extra.also)
        expected << idOf(other);
    std::sort(expected.begin(), expected.end());
    QByteArrayList actual;
    std::map<CheckRule, qsizetype> taken;
    for (const Finding& finding : findings) {
        const bool isNeeded = ++taken[finding.rule] <= qsizetype(expected.count(idOf(finding.rule)));
        if (isNeeded || !extra.may.contains(finding.rule))
            actual << idOf(finding.rule);
    }
    std::sort(actual.begin(), actual.end());
    QVERIFY2(actual == expected, ("expected: " + expected.join(' ') + "\n  found:" + all).constData());

    const QByteArrayList whats = what.split('|');
    for (size_t i = 0; i < places.size(); ++i) {
        const auto isThere = [&](const Finding& finding) {
            const QByteArray& word = whats.at(qMin(qsizetype(i), whats.size() - 1));
            return finding.rule == rule && finding.place == places[i] &&
                   (word == "?" || finding.what.compare(word, Qt::CaseInsensitive) == 0);
        };
        QVERIFY2(std::any_of(findings.begin(), findings.end(), isThere),
                 ("not at: " + html.sliced(places[i].start, places[i].length) + all).constData());
    }
    if (missing > 0 && what != "?") {
        const auto isThere = [&](const Finding& finding) {
            return finding.rule == rule && finding.what == what;
        };
        QVERIFY2(std::any_of(findings.begin(), findings.end(), isThere), all.constData());
    }
}

void TestListingCheck::everyRuleHasRows()
{
    std::map<CheckRule, int> found;
    std::map<CheckRule, int> fine;
    for (const Row& row : allRows())
        ++(row.html.contains("[[") ? found : fine)[row.rule];
    for (size_t i = 0; i < CheckRuleCount; ++i) {
        const auto rule = CheckRule(i);
        if (rule == R::SticksOut) // only a page that is shown tells
            continue;
        QVERIFY2(found[rule] >= 2, ruleText(rule).id);
        QVERIFY2(fine[rule] >= 1, ruleText(rule).id);
    }
}

/// What a finding is about is told in the page's own bytes.
void TestListingCheck::namesAsInThePage_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("what");
    const auto row = [](R rule, const QByteArray& html, const char* what) {
        QTest::addRow("%s", ruleText(rule).id) << int(rule) << page(html) << QByteArray(what);
    };
    row(R::UnclosedTag, "<Div>x", "Div");
    row(R::UnopenedTag, "x</Div>", "Div");
    row(R::CrossedTags, "<Em><Big>x</Em></Big>", "Em");
    row(R::OutsideTable, "<Th>x", "Th");
    row(R::DuplicateAttribute, "<p id=x Id=y>x", "Id");
    row(R::Handler, "<p onClick=x>x", "onClick");
    row(R::ScriptAddress, "<p><a Href=\"javascript:x()\">x</a>", "Href");
    row(R::FormPart, "<p><Input>", "Input");
    row(R::Frame, "<Iframe src=\"https://x.example/\"></Iframe>", "Iframe");
    row(R::Object, "<Embed src=\"https://x.example/a.mid\">", "Embed");
    row(R::EmptyAddress, "<p><a Href=\"\">x</a>", "Href");
    row(R::HttpAddress, "<table Background=HTTP://P.example/A.jpg><tr><td>x</table>",
        "HTTP://P.example/A.jpg");
    row(R::BlankInAddress, "<p><a target=_blank href=\"https://x.example/a b?c=1&amp;d=2\">x</a>",
        "https://x.example/a b?c=1&amp;d=2");
    row(R::MailAddress, "<p>Me@X.example", "Me@X.example");
}

void TestListingCheck::namesAsInThePage()
{
    QFETCH(int, rule);
    QFETCH(QByteArray, html);
    QFETCH(QByteArray, what);
    const auto findings = checkListing(html, CheckLimits()).findings;
    QCOMPARE(count(findings, CheckRule(rule)), 1);
    const auto same = [&](const Finding& finding) { return finding.rule == CheckRule(rule); };
    QCOMPARE(std::find_if(findings.begin(), findings.end(), same)->what, what);
}

void TestListingCheck::rulesSwitchedOff()
{
    QFETCH(int, row);
    const auto& [rule, what, text, extra] = allRows().at(size_t(row));
    const QByteArray html = withoutMarks(text).html;
    CheckLimits limits = extra.limits;
    limits.off.at(size_t(rule)) = true;
    QCOMPARE(count(checkListing(html, limits, extra.profile).findings, rule), 0);
    limits.off.fill(true);
    QVERIFY(checkListing(html, limits, extra.profile).findings.empty());
}

void TestListingCheck::profiles()
{
    QFETCH(int, row);
    const auto& [rule, what, text, extra] = allRows().at(size_t(row));
    const QByteArray html = withoutMarks(text).html;
    for (const CheckProfile profile : {CheckProfile::Page, CheckProfile::FewTags, CheckProfile::Plain}) {
        for (const Finding& finding : checkListing(html, extra.limits, profile).findings) {
            QVERIFY2(ruleText(finding.rule).last >= profile, ruleText(finding.rule).id);
            QVERIFY(finding.rule != R::SticksOut);
            QVERIFY(profile != CheckProfile::Page || finding.rule != R::TagNotTaken);
        }
    }
    // A rule that goes to the last profile finds its fault there, too, but in an address that is cut away.
    if (ruleText(rule).last == CheckProfile::Plain && !html.toLower().contains("href=") &&
        !html.contains("src="))
        QVERIFY(count(checkListing(html, extra.limits, CheckProfile::Plain).findings, rule) > 0);
}

void TestListingCheck::mends()
{
    QFETCH(int, row);
    const Extra& extra = allRows().at(size_t(row)).extra;
    const QByteArray html = withoutMarks(allRows().at(size_t(row)).html).html;
    const auto again = [&](const QByteArray& mended) {
        return checkListing(mended, extra.limits, extra.profile).findings;
    };
    const auto findings = again(html);
    for (const Finding& finding : findings) {
        if (finding.mend.empty())
            continue;
        QVERIFY2(*ruleText(finding.rule).mend != 0, ruleText(finding.rule).id);
        QVERIFY(inOrder(finding.mend, html.size()));
        const QByteArray mended = edited(html, finding.mend);
        const auto after = again(mended);
        QVERIFY2(count(after, finding.rule) < count(findings, finding.rule),
                 (idOf(finding.rule) + ": " + mended + described(after, mended)).constData());
        const QByteArray brought = newFindings(findings, after, finding.rule);
        QVERIFY2(brought.isEmpty(),
                 (idOf(finding.rule) + " brings " + brought + ": " + mended + described(after, mended))
                     .constData());
    }
    for (size_t i = 0; i < CheckRuleCount; ++i) {
        const auto each = CheckRule(i);
        const auto edits = mendAll(findings, each);
        QVERIFY(inOrder(edits, html.size()));
        const QByteArray mended = edited(html, edits);
        const auto after = again(mended);
        for (const Finding& finding : after)
            QVERIFY2(finding.rule != each || finding.mend.empty(), (idOf(each) + ": " + mended).constData());
        QVERIFY(mendAll(after, each).empty());
        QVERIFY2(newFindings(findings, after, each).isEmpty(), (idOf(each) + ": " + mended).constData());
    }
}

/// What the mending writes where nothing is left to choose.
void TestListingCheck::onceIsEnough_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("times");
    const auto row = [](const char* name, CheckRule rule, const QByteArray& body, int times) {
        QTest::newRow(name) << int(rule) << body << times;
    };
    row("texts in one table", CheckRule::OutsideCell, "<table>one<b>two</b>three<tr><td>x</table>", 1);
    row("texts in a table and in its row", CheckRule::OutsideCell, "<table>one<tr>two<td>x</table>", 2);
    row("long texts in one small font", CheckRule::SmallText,
        "<font size=1>" + QByteArray(300, 'x') + "<br>" + QByteArray(300, 'y') + "</font>", 1);
    row("the same colours again", CheckRule::Contrast,
        QByteArray("<p style=\"color:#eee;background-color:#fff\">x</p>").repeated(3), 1);
    row("a colour from around a table", CheckRule::Contrast,
        "<font color=\"#eeeeee\"><table><tr><td bgcolor=\"#ffffff\">x</table></font>", 0);
    row("a link has a colour of its own", CheckRule::Contrast,
        "<div style=\"color:#eee;background-color:#fff\"><a href=\"#x\">x</a></div>", 0);
    row("a maker's tag that takes in the next one", CheckRule::TornGeneratorTag,
        "<META content=\"x\" <META name=keywords content=y>", 1);
}

void TestListingCheck::onceIsEnough()
{
    QFETCH(int, rule);
    QFETCH(QByteArray, body);
    QFETCH(int, times);
    const QByteArray html = PageBegin + "</head><body>" + body + "</body></html>";
    const auto findings = checkListing(html, CheckLimits()).findings;
    QVERIFY2(count(findings, CheckRule(rule)) == times, described(findings, html).constData());
}

void TestListingCheck::mendedLetterByLetter_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("mended");
    const auto row = [](CheckRule rule, const char* html, const char* mended) {
        QTest::newRow(html) << int(rule) << QByteArray(html) << QByteArray(mended);
    };
    row(CheckRule::HttpAddress, "<img src=\"http://p.example/1.jpg\">",
        "<img src=\"https://p.example/1.jpg\">");
    row(CheckRule::NoPhoneWidth, "<img src=a style=\"border:0\">",
        "<img src=a style=\"border:0;max-width:100%;height:auto\">");
    row(CheckRule::NoPhoneWidth, "<img src=a style='border:0; '>",
        "<img src=a style='border:0;max-width:100%;height:auto'>");
    row(CheckRule::NoPhoneWidth, "<img src=a style=border:0>",
        "<img src=a style=\"border:0;max-width:100%;height:auto\">");
    row(CheckRule::WidePicture, "<img width=900 src=a>",
        "<img style=\"max-width:100%;height:auto\" width=900 src=a>");
    row(CheckRule::WideTable, "<table width=900>", "<table width=\"100%\">");
    row(CheckRule::WideTable, "<td style=\"color:red; width: 900px; height:1px\">",
        "<td style=\"color:red; width:100%; height:1px\">");
    row(CheckRule::DoubledScheme, "<a href=\"http://https://x.example/\">",
        "<a href=\"https://x.example/\">");
    row(CheckRule::BlankInAddress, "<a href=\" http://x.example/a b \">",
        "<a href=\"http://x.example/a%20b\">");
    row(CheckRule::LinkTarget, "<a href=\"http://x.example/\">",
        "<a target=\"_blank\" href=\"http://x.example/\">");
    row(CheckRule::LinkTarget, "<a target=top href=\"http://x.example/\">",
        "<a target=\"_blank\" href=\"http://x.example/\">");
    row(CheckRule::Handler, "<p onclick=\"a()\" id=x>", "<p id=x>");
    row(CheckRule::DuplicateAttribute, "<p id=x id=y>", "<p id=x>");
    row(CheckRule::Script, "a<script>b</script>c", "ac");
    row(CheckRule::UnclosedTag, "<table><tr><td><b>x</td></tr></table>",
        "<table><tr><td><b>x</b></td></tr></table>");
    row(CheckRule::UnopenedTag, "x</b>y", "xy");
}

void TestListingCheck::mendedLetterByLetter()
{
    QFETCH(int, rule);
    QFETCH(QByteArray, html);
    QFETCH(QByteArray, mended);
    QCOMPARE(edited(html, mendAll(checkListing(html, CheckLimits()).findings, CheckRule(rule))), mended);
}

void TestListingCheck::mendedTexts_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArrayList>("after"); // one of these
    const auto row = [](R rule, const char* before, const QByteArrayList& after) {
        QTest::addRow("%s %s", ruleText(rule).id, before) << int(rule) << QByteArray(before) << after;
    };
    row(R::UnclosedTag, "<table><tr><td><FONT size=4>x</td></tr></table>",
        {"<table><tr><td><FONT size=4>x</FONT></td></tr></table>"});
    row(R::UnclosedTag, "<table><tr><td><div>x</td></tr></table>",
        {"<table><tr><td><div>x</div></td></tr></table>"});
    row(R::UnclosedTag, "<table><tr><td><UL><LI>x</td></tr></table>",
        {"<table><tr><td><UL><LI>x</UL></td></tr></table>"});
    row(R::UnclosedTag, "<table><tr><td><B>x<td>y</table>", {"<table><tr><td><B>x</B><td>y</table>"});
    row(R::UnclosedTag, "<div><center>x</div>", {"<div><center>x</center></div>"});
    // Browsers go on in bold behind the paragraph.
    row(R::UnclosedTag, "<p><b>x</p><p>y</p>",
        {"<p><b>x</p><p>y</p>", "<p><b>x</p><p>y</p></b>", "<p><b>x</p><p>y</b></p>",
         "<p><b>x</b></p><p><b>y</b></p>"});
    row(R::UnopenedTag, "<p>x</font></p>", {"<p>x</p>"});
    row(R::DuplicateAttribute, "<p align=\"left\" align=\"center\">x</p>", {"<p align=\"left\">x</p>"});
    row(R::Script, "<p>x</p><script>y < z</script><p>z</p>", {"<p>x</p><p>z</p>"});
    row(R::Handler, "<p onclick=\"y()\">x</p>", {"<p>x</p>"});
    row(R::Handler, "<p id=a onclick='y()' title=b>x</p>", {"<p id=a title=b>x</p>"});
    row(R::ScriptAddress, "<p><a href=\"javascript:y()\" id=z>x</a></p>", {"<p><a id=z>x</a></p>"});
    row(R::MetaRefresh, "<p>x</p><meta http-equiv=refresh content=3><p>y</p>", {"<p>x</p><p>y</p>"});
    row(R::DoubledScheme, "<a href=\"http://https://x.example/\" target=\"_blank\">x</a>",
        {"<a href=\"https://x.example/\" target=\"_blank\">x</a>"});
    row(R::BlankInAddress, "<a href=\" https://x.example/a b \" target=\"_blank\">x</a>",
        {"<a href=\"https://x.example/a%20b\" target=\"_blank\">x</a>"});
    row(R::HttpAddress, "<table background=http://p.example/a.jpg><tr><td>x</table>",
        {"<table background=https://p.example/a.jpg><tr><td>x</table>"});
    row(R::LinkTarget, "<a href=\"https://x.example/\">x</a>",
        {"<a href=\"https://x.example/\" target=\"_blank\">x</a>",
         "<a target=\"_blank\" href=\"https://x.example/\">x</a>"});
    row(R::LinkTarget, "<a href=https://x.example/ target=_top>x</a>",
        {"<a href=https://x.example/ target=_blank>x</a>",
         "<a href=https://x.example/ target=\"_blank\">x</a>"});
    row(R::NoAlt, "<img width=90 src=\"https://p.example/a.jpg\">",
        {"<img width=90 src=\"https://p.example/a.jpg\" alt=\"Brass lamp\">",
         "<img alt=\"Brass lamp\" width=90 src=\"https://p.example/a.jpg\">"});
    row(R::FileNameAlt, "<img width=90 alt=lamp.jpg src=\"https://p.example/a.jpg\">",
        {"<img width=90 alt=\"Brass lamp\" src=\"https://p.example/a.jpg\">"});
}

void TestListingCheck::mendedTexts()
{
    QFETCH(int, rule);
    QFETCH(QByteArray, before);
    QFETCH(QByteArrayList, after);
    const QByteArray html = page(before);
    const auto findings = checkListing(html, CheckLimits()).findings;
    QCOMPARE(count(findings, CheckRule(rule)), 1);
    const QByteArray mended = edited(html, mendAll(findings, CheckRule(rule)));
    QByteArrayList pages;
    for (const QByteArray& each : std::as_const(after))
        pages << page(each);
    QVERIFY2(pages.contains(mended), mended.constData());
}

void TestListingCheck::lengths_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<int>("words");
    QTest::addColumn<int>("characters");
    const auto row = [](const QByteArray& html, int words, int characters) {
        QTest::addRow("%s", html.constData()) << html << words << characters;
    };
    row("", 0, 0);
    row("a lamp", 2, 6);
    row("<B>w</B>ord", 1, 11);
    row("one<br>two", 2, 10);
    row("<p>one</p><p>two</p>", 2, 20);
    row("<table><tr><td>a<td>b</table>", 2, 29);
    row("<ul><li>a<li>b</ul>", 2, 19);
    row("<title>no no</title>yes", 1, 23);
    row("<script>no no</script>yes", 1, 25);
    row("<style>no no</style>yes", 1, 23);
    row("<!-- no no -->yes", 1, 17);
    row("<img alt=\"no no\" src=\"a.jpg\">", 0, 29);
    row("a&nbsp;b", 2, 8);
    row("caf&eacute;", 1, 11);
    row("caf\xC3\xA9", 1, 4);
    row("caf\xE9", 1, 4);
    row("\xE2\x82\xAC 5", 2, 3);
    row("it's 12.50", 2, 10);
    row("  a \r\n\t b  ", 2, 11);
}

void TestListingCheck::lengths()
{
    QFETCH(QByteArray, html);
    QFETCH(int, words);
    QFETCH(int, characters);
    const CheckReport report = checkListing(html, CheckLimits());
    QCOMPARE(report.words, words);
    QCOMPARE(report.characters, characters);
    QCOMPARE(report.bytes, html.size());
}

void TestListingCheck::titles_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("title");
    const auto row = [](const char* name, const char* html, const char* title) {
        QTest::newRow(name) << QByteArray(html) << QByteArray(title);
    };
    row("empty page", "", "");
    row("none", "<p>x</p>", "");
    row("TITLE", "<html><head><TITLE> Brass lamp </TITLE></head><body>x</body></html>", "Brass lamp");
    row("references stay", "<title>Lamp &amp; cord &#8364;</title>", "Lamp &amp; cord &#8364;");
    row("tags are words there", "<title>a <b> c</title>", "a <b> c");
    row("markers",
        "<!-- Body-title -->\r\n<FONT size=3>\r\nBrass lamp, 1930s\r\n</FONT>\r\n<!-- Body-title2 -->",
        "Brass lamp, 1930s");
    row("markers before TITLE",
        "<title>Other</title><!-- Body-title --><b>Brass</b> lamp<!-- Body-title2 -->", "Brass lamp");
    row("empty markers", "<title>Other</title><!-- Body-title --><b> </b><!-- Body-title2 -->", "Other");
    row("lone marker", "<title>Other</title><!-- Body-title --><b>x</b>", "Other");
    row("in a comment", "<!-- <title>no</title> -->", "");
}

void TestListingCheck::titles()
{
    QFETCH(QByteArray, html);
    QFETCH(QByteArray, title);
    QCOMPARE(listingTitle(html), title);
}

void TestListingCheck::phones_data()
{
    QTest::addColumn<QByteArray>("html");
    // A torn page has no sure place for what is added.
    static const Rules torn = {R::TornTag, R::TornQuote, R::TornComment, R::TornGeneratorTag};
    for (size_t i = 0; i < allRows().size(); ++i) {
        const Row& row = allRows().at(i);
        if (!torn.contains(row.rule))
            QTest::addRow("row %zu %s", i, ruleText(row.rule).id) << withoutMarks(row.html).html;
    }
    QTest::newRow("no head") << QByteArray(
        "<img src=\"https://p.example/a.jpg\"><table width=800><tr><td>x</table>");
    QTest::newRow("head without end")
        << QByteArray("<head><title>x</title><body><img src=https://p.example/a.jpg>");
    QTest::newRow("upper case") << QByteArray(
        "<HTML><HEAD><TITLE>x</TITLE></HEAD><BODY><IMG SRC=https://p.example/a.jpg WIDTH=900 "
        "HEIGHT=700></BODY></HTML>");
    QTest::newRow("styles") << QByteArray(
        "<title>x</title><img src=https://p.example/a.jpg style='width:900px'>"
        "<table style=\"width: 800px; border: 0\"><tr><td style=width:500px>x</table>");
    QTest::newRow("slash at the end") << QByteArray(
        "<title>x</title><img src=\"https://p.example/a.jpg\" /><img src=https://p.example/a.jpg/>");
}

void TestListingCheck::phones()
{
    QFETCH(QByteArray, html);
    const auto before = checkListing(html, CheckLimits()).findings;
    const auto edits = phoneEdits(html, CheckLimits());
    QVERIFY(inOrder(edits, html.size()));
    const QByteArray changed = edited(html, edits);
    const auto after = checkListing(changed, CheckLimits()).findings;
    for (const CheckRule rule : {R::NoViewport, R::NoAlt, R::WidePicture, R::NoPhoneWidth, R::WideTable})
        QVERIFY2(count(after, rule) == 0 || (rule == R::NoAlt && listingTitle(html).isEmpty()),
                 (idOf(rule) + ": " + changed).constData()); // without a title nobody knows the words
    QVERIFY2(phoneEdits(changed, CheckLimits()).empty(), changed.constData());
    QVERIFY2(newFindings(before, after, R::NoViewport).isEmpty(), changed.constData());

    // Nothing but tags has changed.
    static const QRegularExpression viewport(QStringLiteral("<meta name=\"?viewport\"?[^>]*>[ \r\n]*"),
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tag(QStringLiteral("<[^>\"']*(\"[^\"]*\"[^>\"']*|'[^']*'[^>\"']*)*>"));
    const auto outside = [](const QByteArray& text) {
        return QString::fromLatin1(text).remove(viewport).remove(tag);
    };
    QCOMPARE(outside(changed), outside(html));
}

void TestListingCheck::phoneAltIsTheTitle()
{
    const QByteArray html =
        "<html><head><title>A \"fine\" lamp &amp; cord</title></head><body>" + Words +
        "<img src=https://p.example/a.jpg><IMG SRC=\"https://p.example/b.jpg\" WIDTH=900>"
        "<img src=https://p.example/c.jpg alt=\"The cord\"><img src=https://p.example/d.jpg alt=\"\">"
        "</body></html>";
    const QByteArray changed = edited(html, phoneEdits(html, CheckLimits()));
    QCOMPARE(changed.count("alt=\"A &quot;fine&quot; lamp &amp; cord\""), 2);
    QCOMPARE(changed.count("alt=\"The cord\""), 1);
    QCOMPARE(changed.count("alt=\"\""), 1);
    QCOMPARE(changed.toLower().replace('"', "").count("<meta name=viewport"), 1);
}

void TestListingCheck::anyBytes_data()
{
    addSeeds();
}

void TestListingCheck::anyBytes()
{
    QFETCH(quint32, seed);
    static const QByteArrayList pieces = {"<",
                                          ">",
                                          "</",
                                          "/>",
                                          "\"",
                                          "'",
                                          "=",
                                          "<b>",
                                          "</b>",
                                          "<I>",
                                          "</i>",
                                          "<p>",
                                          "</p>",
                                          "<div",
                                          "<table",
                                          "<table>",
                                          "</table>",
                                          "<tr>",
                                          "<td",
                                          "<td>",
                                          "</td>",
                                          "<ul>",
                                          "<li>",
                                          "</ul>",
                                          "<a ",
                                          "</a>",
                                          "<img ",
                                          "<IMG src=x>",
                                          "href=",
                                          "src=",
                                          "alt=",
                                          "width=",
                                          "800",
                                          "50%",
                                          "style=",
                                          "\"width:",
                                          "900px\"",
                                          "max-width:",
                                          "color=",
                                          "bgcolor=",
                                          "#FFFF00",
                                          "red",
                                          "onclick=",
                                          "javascript:",
                                          "http://",
                                          "https://",
                                          "http://https://",
                                          "file:",
                                          "localhost",
                                          "me@x.example",
                                          "@",
                                          "$.00",
                                          "$.",
                                          "&#106;",
                                          "&nbsp;",
                                          "&",
                                          "<!--",
                                          "-->",
                                          "--!>",
                                          "<!",
                                          "<?",
                                          "<script>",
                                          "</script>",
                                          "<style>",
                                          "</style>",
                                          "@import",
                                          "<title>",
                                          "</title>",
                                          "<textarea>",
                                          "</textarea>",
                                          "<meta ",
                                          "name=",
                                          "viewport",
                                          "GENERATOR>",
                                          "<META content=",
                                          "http-equiv=refresh",
                                          "content=",
                                          "<body",
                                          "<head>",
                                          "</head>",
                                          "<html>",
                                          "<font size=1 ",
                                          "<font ",
                                          "</font>",
                                          "<svg>",
                                          "</svg>",
                                          "<h1>",
                                          "<!-- Body-title -->",
                                          "<!-- Body-title2 -->",
                                          "<!-- Body-description -->",
                                          "<!-- Body-description2 -->",
                                          "<form>",
                                          "<iframe>",
                                          "<object>",
                                          "\r\n",
                                          " ",
                                          "\t",
                                          "word",
                                          "\xC3\xA4",
                                          "\xE4",
                                          "\x81",
                                          "\xF0\x9F\x98\x80",
                                          QByteArray(1, '\0'),
                                          "\xEF\xBB\xBF",
                                          "\xFF\xFE",
                                          "target=",
                                          "_blank"};
    Random random(seed);
    CheckLimits limits;
    limits.longText = 5;
    for (int round = 0; round < 400; ++round) {
        QByteArray html;
        for (int i = random.number(40); i > 0; --i)
            html += random.number(20) == 0 ? QByteArray(1, char(random.number(256))) : random.of(pieces);
        for (const CheckProfile profile : {CheckProfile::Page, CheckProfile::FewTags, CheckProfile::Plain}) {
            const CheckReport report = checkListing(html, limits, profile);
            QCOMPARE(report.bytes, html.size());
            QVERIFY(report.characters <= report.bytes);
            qsizetype from = 0;
            for (const Finding& finding : report.findings) {
                const QByteArray told = idOf(finding.rule) + ": " + html;
                QVERIFY2(finding.place.start >= from, told.constData());
                QVERIFY2(finding.place.length >= 0 && finding.place.end() <= html.size(), told.constData());
                QVERIFY2(inOrder(finding.mend, html.size()), told.constData());
                from = finding.place.start;
                if (!finding.mend.empty())
                    checkListing(edited(html, finding.mend), limits, profile);
            }
            for (size_t i = 0; i < CheckRuleCount; ++i) {
                const auto edits = mendAll(report.findings, CheckRule(i));
                QVERIFY2(inOrder(edits, html.size()),
                         (ruleText(CheckRule(i)).id + (": " + html)).constData());
            }
        }
        const auto edits = phoneEdits(html, limits);
        QVERIFY2(inOrder(edits, html.size()), html.constData());
        phoneEdits(edited(html, edits), limits);
        listingTitle(html);
    }
}

void TestListingCheck::longTexts_data()
{
    QTest::addColumn<QByteArray>("piece");
    for (const char* piece : {"<b>",
                              "<b><i></b>",
                              "<table>",
                              "<td>",
                              "<!--",
                              "<font color=#111111>",
                              "a@",
                              "$.",
                              "://",
                              "<a b b b",
                              "</b>",
                              "<p>",
                              "<div><b></div>",
                              "<table>x",
                              "<a href=\"",
                              "&",
                              "\xE4",
                              "<svg>",
                              "<title>",
                              "<!-- Body-title -->",
                              "<table><tr><td>",
                              "<font size=1>x",
                              "<img src=x>",
                              "<style>@import",
                              "a.b@c.d",
                              "<li></ul>"})
        QTest::newRow(piece) << QByteArray(piece);
}

/// The time grows with the length. It is the processor's: others may be busy, too.
void TestListingCheck::longTexts()
{
    QFETCH(QByteArray, piece);
    QByteArray times;
    for (const int pieces : {2'000, 40'000}) { // one that takes too long fails early
        const QByteArray html = piece.repeated(pieces);
        const std::clock_t start = std::clock();
        checkListing(html, CheckLimits());
        phoneEdits(html, CheckLimits());
        listingTitle(html);
        const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
        times += QByteArray::number(pieces) + ": " + QByteArray::number(seconds) + " s; ";
        QVERIFY2(seconds < pieces / 4'000.0, times.constData());
    }
}

void TestListingCheck::attributeColors_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("color"); // empty: none
    const auto row = [](const QByteArray& value, const char* color) {
        QTest::addRow("%.40s", value.constData()) << value << QString::fromLatin1(color);
    };
    row("#FFFFFF", "ffffff");
    row("ffffff", "ffffff");
    row("#abc", "aabbcc");
    row("abc", "0a0b0c"); // three components of one digit
    row("ReD ", "ff0000");
    row("\t#00F\n", "0000ff");
    row("LightGoldenrodYellow", "fafad2");
    row("grey", "808080");
    row("chucknorris", "c00000");
    row("sick", "00c000");
    row("crap", "c0a000");
    row("#0099000", "009000");
    row("#fff0", "fff000");
    row("#f", "0f0000");
    row("#", "000000");
    row("#000000000001", "000001");
    row("#123456789abc", "12569a");
    row("rgb(255,0,0)", "002500");
    row(QByteArray(128, '1') + QByteArray(128, '2'), "111111"); // only 128 characters count
    row("#" + QByteArray(127, '1') + "2", "111111");
    row("#ggg", "000000");
    row("transparentt", "0000e0");
    row("", "");
    row("transparent", "");
    row(" TRANSPARENT ", "");
    row(" ", "000000"); // only a value without any character has none
}

void TestListingCheck::attributeColors()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, color);
    const std::optional<QRgb> rgb = attributeColor(value);
    QCOMPARE(rgb ? QString::number(*rgb & 0xFFFFFF, 16).rightJustified(6, u'0') : QString(), color);
}

void TestListingCheck::styleColors_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("color");
    const auto row = [](const char* value, const char* color) {
        QTest::newRow(value) << QByteArray(value) << QString::fromLatin1(color);
    };
    row("#FFFFFF", "ffffff");
    row("#0a0B0c", "0a0b0c");
    row("#FFF", "ffffff");
    row("#1aF", "11aaff");
    row("red", "ff0000");
    row("DarkSlateGrey", "2f4f4f");
    row("rgb(1, 2, 3)", "010203");
    row("RGB(255,0,128)", "ff0080");
    row("", "");
    row("transparent", "");
    row("inherit", "");
    row("fff", "");
    row("ffffff", "");
    row("#ff", "");
    row("#fffff", "");
    row("#ggg", "");
    row("chucknorris", "");
    row("rgb(1, 2)", "");
    row("rgb(1, 2, 3", "");
    row("rgb(a, b, c)", "");
    row("rgba(0, 0, 0, 0.5)", "");
    row("url(a.jpg)", "");
}

void TestListingCheck::styleColors()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, color);
    const std::optional<QRgb> rgb = styleColor(value);
    QCOMPARE(rgb ? QString::number(*rgb & 0xFFFFFF, 16).rightJustified(6, u'0') : QString(), color);
}

/// 4.48 to 1 is too little, so it must not be told as 4.5.
void TestListingCheck::contrastBelowTheLimitIsToldBelowIt()
{
    const auto findings =
        checkListing(blackOn("#FFFFFF", "<font color=#777777>x</font>"), CheckLimits()).findings;
    QCOMPARE(findings.size(), size_t(1));
    QVERIFY2(findings[0].what.toDouble() < 4.5, findings[0].what.constData());
}

void TestListingCheck::contrasts_data()
{
    QTest::addColumn<QRgb>("color");
    QTest::addColumn<double>("onWhite");
    QTest::newRow("black") << QRgb(0x000000) << 21.0;
    QTest::newRow("white") << QRgb(0xFFFFFF) << 1.0;
    QTest::newRow("#767676") << QRgb(0x767676) << 4.54;
    QTest::newRow("#777777") << QRgb(0x777777) << 4.48;
    QTest::newRow("red") << QRgb(0xFF0000) << 4.0;
    QTest::newRow("green") << QRgb(0x008000) << 5.14;
    QTest::newRow("blue") << QRgb(0x0000FF) << 8.59;
    QTest::newRow("yellow") << QRgb(0xFFFF00) << 1.07;
}

void TestListingCheck::contrasts()
{
    QFETCH(QRgb, color);
    QFETCH(double, onWhite);
    QVERIFY2(std::abs(contrastOf(color, 0xFFFFFF) - onWhite) < 0.005,
             qPrintable(QString::number(contrastOf(color, 0xFFFFFF))));
    QCOMPARE(contrastOf(0xFFFFFFFF, 0xFF000000 | color), contrastOf(color, 0xFFFFFF)); // either is the ground
}

void TestListingCheck::settings_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QByteArray>("numbers"); // all of them, in the order of the structure
    const QByteArray defaults = "500000 500000 700 375 4.5 200 20";
    const auto row = [](const char* name, const QByteArray& lines, const QByteArray& numbers) {
        QTest::newRow(name) << lines << numbers;
    };
    row("no file", "", defaults);
    row("empty section", "[Check]\r\n", defaults);
    row("other section", "[Other]\r\nMostBytes=1\r\n", defaults);
    row("all",
        "[Check]\r\nMostCharacters=1\r\nMostBytes=2\r\nPictureWidth=3\r\nPhoneWidth=4\r\nContrast=5.5\r\n"
        "LongText=6\r\nFewWords=7\r\n",
        "1 2 3 4 5.5 6 7");
    row("some", "[Check]\r\nPhoneWidth=400\r\n", "500000 500000 700 400 4.5 200 20");
    row("no limit", "[Check]\r\nMostCharacters=0\r\nMostBytes=0\r\n", "0 0 700 375 4.5 200 20");
    row("no numbers",
        "[Check]\r\nMostCharacters=many\r\nMostBytes=\r\nPictureWidth=3px\r\nPhoneWidth=1.5\r\nContrast=x\r\n"
        "LongText=-\r\nFewWords=99999999999999\r\n",
        defaults);
    row("below zero", "[Check]\r\nMostBytes=-1\r\nContrast=-2\r\n", defaults);
}

void TestListingCheck::settings()
{
    QFETCH(QByteArray, lines);
    QFETCH(QByteArray, numbers);
    const ProgramFolder folder;
    folder.write(QStringLiteral("web.ini"), lines);
    const CheckLimits limits = checkLimits();
    QByteArrayList all;
    for (const int number : {limits.mostCharacters, limits.mostBytes, limits.pictureWidth, limits.phoneWidth})
        all << QByteArray::number(number);
    all << QByteArray::number(limits.contrast);
    for (const int number : {limits.longText, limits.fewWords})
        all << QByteArray::number(number);
    QCOMPARE(all.join(' '), numbers);
    for (size_t i = 0; i < CheckRuleCount; ++i)
        QVERIFY(limits.counts(CheckRule(i)));
}

void TestListingCheck::settingsSwitchRulesOff()
{
    const ProgramFolder folder;
    for (size_t i = 0; i < CheckRuleCount; ++i) {
        const auto rule = CheckRule(i);
        for (const char* value : {"0", "1", "", "no"}) {
            folder.write(QStringLiteral("web.ini"), "[Check]\r\n" + idOf(rule) + "=" + value + "\r\n");
            const CheckLimits limits = checkLimits();
            for (size_t other = 0; other < CheckRuleCount; ++other)
                QCOMPARE(limits.counts(CheckRule(other)), other != i || qstrcmp(value, "0") != 0);
        }
    }
    folder.write(QStringLiteral("web.ini"), "[Check]\r\nNoViewport=0\r\nLinkTarget=0\r\n");
    const QByteArray html = "<title>x</title><a href=\"https://x.example/\">x</a><b>y";
    QCOMPARE(idsOf(checkListing(html, checkLimits()).findings), QByteArrayList{"UnclosedTag"});
}

QTEST_GUILESS_MAIN(TestListingCheck)
#include "tst_listingcheck.moc"
