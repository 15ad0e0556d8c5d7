// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/CharacterReferences.h"
#include "services/HtmlTokenizer.h"

#include <QElapsedTimer>
#include <QSet>
#include <QTest>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

using namespace brindlemark;

namespace {

/// A literal with the NULs in it.
template <std::size_t Size>
QByteArray bytes(const char (&literal)[Size])
{
    return QByteArray(literal, qsizetype(Size) - 1);
}

QByteArray visible(QByteArray text)
{
    return text.replace(QByteArray(1, '\0'), "\\0");
}

QByteArray printedTag(QByteArrayView html, const HtmlToken& tag)
{
    QByteArray out = '<' + htmlName(html.sliced(tag.inside.start, tag.inside.length));
    QByteArrayList seen;
    for (const HtmlAttribute& attribute : tag.attributes) {
        const QByteArray name = htmlName(html.sliced(attribute.name.start, attribute.name.length));
        if (!seen.contains(name))
            out += ' ' + name + "=\"" + htmlValue(html, attribute) + '"';
        seen += name;
    }
    return out + (tag.selfClosing ? "/>" : ">");
}

QByteArray printedDoctype(const HtmlDoctype& doctype)
{
    QByteArray out = "<!DOCTYPE";
    if (doctype.name)
        out += ' ' + *doctype.name;
    if (doctype.publicId)
        out += " PUBLIC \"" + *doctype.publicId + '"';
    if (doctype.systemId)
        out += " SYSTEM \"" + *doctype.systemId + '"';
    return out + (doctype.forcesQuirks ? " quirks>" : ">");
}

/// The tokens as the standard would emit them. A "<" in a text is printed as "{", so that it isn't taken for
/// a tag's.
QByteArray printed(QByteArrayView html, HtmlContent content = HtmlContent::Data, QByteArrayView element = {})
{
    QByteArray out;
    HtmlTokenizer tokenizer(html, content, element);
    HtmlToken token;
    while (tokenizer.next(token)) {
        if (token.whole.length <= 0)
            return out + "(an empty token)"; // it might go on for ever
        switch (token.kind) {
        case HtmlTokenKind::Text:
            out += htmlText(html, token).replace('<', '{');
            break;
        case HtmlTokenKind::StartTag:
            out += printedTag(html, token);
            break;
        case HtmlTokenKind::EndTag: // the standard drops what else stands in it
            out += "</" + htmlName(html.sliced(token.inside.start, token.inside.length)) + '>';
            break;
        case HtmlTokenKind::Comment:
            out += "<!--" + htmlComment(html, token) + "-->";
            break;
        case HtmlTokenKind::Doctype:
            out += printedDoctype(htmlDoctype(html, token));
            break;
        case HtmlTokenKind::Dropped:
            break;
        }
    }
    return visible(out);
}

// ---- A text or more for each state of the standard

struct Sample
{
    QByteArray name;
    QByteArray html;
    QByteArray expected;
    HtmlContent content = HtmlContent::Data;
    QByteArray element = {};
};

class Samples
{
public:
    const std::vector<Sample>& all() const { return m_all; }

    /// What the names of the next ones begin with.
    void state(const char* name) { m_state = name; }

    template <std::size_t Size>
    void data(const char* name, const char (&html)[Size], const QByteArray& expected)
    {
        add(name, bytes(html), expected, HtmlContent::Data, {});
    }

    template <std::size_t Size>
    void rcdata(const char* name, const char (&html)[Size], const QByteArray& expected)
    {
        add(name, bytes(html), expected, HtmlContent::Rcdata, "title");
    }

    template <std::size_t Size>
    void rawtext(const char* name, const char (&html)[Size], const QByteArray& expected)
    {
        add(name, bytes(html), expected, HtmlContent::Rawtext, "style");
    }

    template <std::size_t Size>
    void script(const char* name, const char (&html)[Size], const QByteArray& expected)
    {
        add(name, bytes(html), expected, HtmlContent::ScriptData, "script");
    }

    template <std::size_t Size>
    void plaintext(const char* name, const char (&html)[Size], const QByteArray& expected)
    {
        add(name, bytes(html), expected, HtmlContent::Plaintext, "plaintext");
    }

    template <std::size_t Size>
    void cdata(const char* name, const char (&html)[Size], const QByteArray& expected)
    {
        add(name, bytes(html), expected, HtmlContent::CdataSection, {});
    }

private:
    void add(const char* name, const QByteArray& html, const QByteArray& expected, HtmlContent content,
             const QByteArray& element)
    {
        m_all.push_back({m_state + " state: " + name, html, expected, content, element});
    }

    QByteArray m_state;
    std::vector<Sample> m_all;
};

void addTextStates(Samples& s)
{
    s.state("1 data");
    s.data("a reference", "a&amp;b", "a&b");
    s.data("a tag", "a<b>c", "a<b>c");
    s.data("NUL", "a\0b", "a\\0b");
    s.data("only NUL", "\0", "\\0");
    s.data("end", "a", "a");
    s.data("nothing", "", "");
    s.data("line ends", "a\r\nb\rc\r\r\nd\n\re", "a\nb\nc\n\nd\n\ne");
    s.data("no other sign means anything", "a>b\"c'd-->e]]>f/g=h", "a>b\"c'd-->e]]>f/g=h");

    s.state("2 RCDATA");
    s.rcdata("a reference", "a&amp;b</title>c&amp;d", "a&b</title>c&d");
    s.rcdata("less-than sign", "a<b>c</title>d<e>", "a{b>c</title>d<e>");
    s.rcdata("NUL", "a\0b</title>\0", "a�b</title>\\0");
    s.rcdata("end", "a", "a");
    s.rcdata("nothing", "", "");
    s.rcdata("line ends", "a\r\nb\rc</title>", "a\nb\nc</title>");
    s.rcdata("no comment", "<!--</title>-->", "{!--</title>-->");
    s.rcdata("no comment with scripts", "<!--<script></title></script>-->",
             "{!--{script></title></script>-->");

    s.state("3 RAWTEXT");
    s.rawtext("no reference", "a&amp;b</style>c&amp;d", "a&amp;b</style>c&d");
    s.rawtext("less-than sign", "a<b>c</style>d<e>", "a{b>c</style>d<e>");
    s.rawtext("NUL", "a\0b</style>", "a�b</style>");
    s.rawtext("end", "a", "a");
    s.rawtext("line ends", "a\r\nb\rc</style>", "a\nb\nc</style>");
    s.rawtext("no comment", "<!--</style>-->", "{!--</style>-->");

    s.state("4 script data");
    s.script("no reference", "a&amp;b</script>c&amp;d", "a&amp;b</script>c&d");
    s.script("less-than sign", "a<b>c</script>d<e>", "a{b>c</script>d<e>");
    s.script("NUL", "a\0b</script>", "a�b</script>");
    s.script("end", "a", "a");
    s.script("line ends", "a\r\nb\rc</script>", "a\nb\nc</script>");
    s.script("a start tag without a comment", "<script></script></script>", "{script></script></script>");

    s.state("5 PLAINTEXT");
    s.plaintext("nothing has a meaning", "a&amp;<b></plaintext><!--x-->", "a&amp;{b>{/plaintext>{!--x-->");
    s.plaintext("NUL", "a\0b", "a�b");
    s.plaintext("end", "", "");
    s.plaintext("line ends", "a\r\nb\rc", "a\nb\nc");
}

void addTagNameStates(Samples& s)
{
    s.state("6 tag open");
    s.data("exclamation mark", "<!x>", "<!--x-->");
    s.data("solidus", "</a>", "</a>");
    s.data("small letters", "<a><z>", "<a><z>");
    s.data("capital letters", "<A><Z>", "<a><z>");
    s.data("beside the letters", "<@><[><`><~>", "{@>{[>{`>{~>");
    s.data("question mark", "<?x>", "<!--?x-->");
    s.data("end", "a<", "a{");
    s.data("digit", "a<1>", "a{1>");
    s.data("less-than sign", "<<b>", "{<b>");
    s.data("greater-than sign", "<>", "{>");
    s.data("blank", "< b>", "{ b>");
    s.data("NUL", "<\0>", "{\\0>");
    s.data("beyond ASCII", "<é>", "{é>");
    s.data("ampersand", "<&amp;", "{&");

    s.state("7 end tag open");
    s.data("small letters", "</a></z>", "</a></z>");
    s.data("capital letters", "</A></Z>", "</a></z>");
    s.data("greater-than sign", "a</>b", "ab");
    s.data("greater-than sign in a reference", "&</>amp;", "&amp;");
    s.data("greater-than sign in a line end", "a\r</>\nb", "a\n\nb");
    s.data("end", "a</", "a{/");
    s.data("digit", "</1>", "<!--1-->");
    s.data("blank", "</ a>", "<!-- a-->");
    s.data("NUL", "</\0>", "<!--�-->");
    s.data("exclamation mark", "</!-- x -->y", "<!--!-- x ---->y");
    s.data("less-than sign", "</</a>b", "<!--</a-->b");
    s.data("question mark", "</?a>", "<!--?a-->");

    s.state("8 tag name");
    s.data("tab", "<a\tb>", "<a b=\"\">");
    s.data("line feed", "<a\nb>", "<a b=\"\">");
    s.data("form feed", "<a\fb>", "<a b=\"\">");
    s.data("space", "<a b>", "<a b=\"\">");
    s.data("carriage return", "<a\rb>", "<a b=\"\">");
    s.data("vertical tab is no blank", "<a\vb>", "<a\vb>");
    s.data("solidus", "<ab/>", "<ab/>");
    s.data("greater-than sign", "<ab>c", "<ab>c");
    s.data("capital letters", "<aBCZ>", "<abcz>");
    s.data("NUL", "<a\0b>", "<a�b>");
    s.data("end", "x<ab", "x");
    s.data("less-than sign", "<a<b>", "<a<b>");
    s.data("quotes and equals sign", "<a\"b'c=d>", "<a\"b'c=d>");
    s.data("digit", "<h1>", "<h1>");
    s.data("beyond ASCII", "<aÉ>", "<aÉ>");
    s.data("an end tag", "</aB c=d/>e", "</ab>e");
    s.data("end of an end tag", "x</ab", "x");
}

void addRcdataStates(Samples& s)
{
    s.state("9 RCDATA less-than sign");
    s.rcdata("solidus", "a</title>", "a</title>");
    s.rcdata("anything else", "a<b</title>", "a{b</title>");
    s.rcdata("end", "a<", "a{");
    s.rcdata("less-than sign", "a<</title>", "a{</title>");
    s.rcdata("ampersand", "<&amp;</title>", "{&</title>");
    s.rcdata("NUL", "<\0/title></title>", "{�/title></title>");

    s.state("10 RCDATA end tag open");
    s.rcdata("letter", "</title>", "</title>");
    s.rcdata("digit", "</1</title>", "{/1</title>");
    s.rcdata("greater-than sign", "</></title>", "{/></title>");
    s.rcdata("solidus", "<//title></title>", "{//title></title>");
    s.rcdata("blank", "</ title></title>", "{/ title></title>");
    s.rcdata("less-than sign", "</</title>", "{/</title>");
    s.rcdata("ampersand", "</&amp;</title>", "{/&</title>");
    s.rcdata("NUL", "</\0</title>", "{/�</title>");
    s.rcdata("end", "a</", "a{/");

    s.state("11 RCDATA end tag name");
    s.rcdata("tab", "</title\t>a<b>", "</title>a<b>");
    s.rcdata("line feed", "</title\n>a<b>", "</title>a<b>");
    s.rcdata("form feed", "</title\f>a<b>", "</title>a<b>");
    s.rcdata("space", "</title >a<b>", "</title>a<b>");
    s.rcdata("carriage return", "</title\r>a<b>", "</title>a<b>");
    s.rcdata("vertical tab is no blank", "</title\v></title>", "{/title\v></title>");
    s.rcdata("blank, another tag", "</b ></title>", "{/b ></title>");
    s.rcdata("solidus", "</title/>a<b>", "</title>a<b>");
    s.rcdata("solidus, another tag", "</b/></title>", "{/b/></title>");
    s.rcdata("greater-than sign", "</title>a<b>", "</title>a<b>");
    s.rcdata("greater-than sign, another tag", "</b></title>", "{/b></title>");
    s.rcdata("capital letters", "</TiTLe>a<b>", "</title>a<b>");
    s.rcdata("a longer name", "</titlex></title>", "{/titlex></title>");
    s.rcdata("a shorter name", "</titl></title>", "{/titl></title>");
    s.rcdata("end", "</title", "{/title");
    s.rcdata("end behind a blank", "a</title ", "a");
    s.rcdata("end behind a solidus", "a</title/", "a");
    s.rcdata("end in an attribute", "a</title b=\">c</title>", "a");
    s.rcdata("attributes", "</title b=\">\">c<d>", "</title>c<d>");
    s.rcdata("NUL", "</title\0></title>", "{/title�></title>");
    s.rcdata("a reference", "</title&amp;></title>", "{/title&></title>");
    s.rcdata("less-than sign", "</title</title>", "{/title</title>");

    s.state("12 RAWTEXT less-than sign");
    s.rawtext("solidus", "a</style>", "a</style>");
    s.rawtext("anything else", "a<b</style>", "a{b</style>");
    s.rawtext("end", "a<", "a{");
    s.rawtext("less-than sign", "a<</style>", "a{</style>");
    s.rawtext("NUL", "<\0/style></style>", "{�/style></style>");

    s.state("13 RAWTEXT end tag open");
    s.rawtext("letter", "</style>", "</style>");
    s.rawtext("digit", "</1</style>", "{/1</style>");
    s.rawtext("greater-than sign", "</></style>", "{/></style>");
    s.rawtext("less-than sign", "</</style>", "{/</style>");
    s.rawtext("NUL", "</\0</style>", "{/�</style>");
    s.rawtext("end", "a</", "a{/");

    s.state("14 RAWTEXT end tag name");
    s.rawtext("tab", "</style\t>a<b>", "</style>a<b>");
    s.rawtext("line feed", "</style\n>a<b>", "</style>a<b>");
    s.rawtext("form feed", "</style\f>a<b>", "</style>a<b>");
    s.rawtext("space", "</style >a<b>", "</style>a<b>");
    s.rawtext("blank, another tag", "</b ></style>", "{/b ></style>");
    s.rawtext("solidus", "</style/>a<b>", "</style>a<b>");
    s.rawtext("solidus, another tag", "</b/></style>", "{/b/></style>");
    s.rawtext("greater-than sign", "</style>a<b>", "</style>a<b>");
    s.rawtext("greater-than sign, another tag", "</b></style>", "{/b></style>");
    s.rawtext("capital letters", "</StYLe>a<b>", "</style>a<b>");
    s.rawtext("a longer name", "</stylex></style>", "{/stylex></style>");
    s.rawtext("a shorter name", "</styl></style>", "{/styl></style>");
    s.rawtext("end", "</style", "{/style");
    s.rawtext("end behind a blank", "a</style ", "a");
    s.rawtext("NUL", "</style\0></style>", "{/style�></style>");
    s.rawtext("no reference", "</style&amp;></style>", "{/style&amp;></style>");
}

// Whether a script's text is in a comment, shows by what ends it: in a comment "<script>" makes the next
// "</script>" part of the text.
void addScriptStates(Samples& s)
{
    s.state("15 script data less-than sign");
    s.script("solidus", "a</script>", "a</script>");
    s.script("exclamation mark", "<!--<script></script></script>", "{!--{script>{/script></script>");
    s.script("anything else", "a<b</script>", "a{b</script>");
    s.script("end", "a<", "a{");
    s.script("less-than sign", "a<</script>", "a{</script>");
    s.script("less-than sign and a comment", "<<!--<script></script></script>",
             "{{!--{script>{/script></script>");

    s.state("16 script data end tag open");
    s.script("letter", "</script>", "</script>");
    s.script("digit", "</1</script>", "{/1</script>");
    s.script("greater-than sign", "</></script>", "{/></script>");
    s.script("less-than sign", "</</script>", "{/</script>");
    s.script("a comment", "</<!--<script></script></script>", "{/{!--{script>{/script></script>");
    s.script("end", "a</", "a{/");

    s.state("17 script data end tag name");
    s.script("tab", "</script\t>a<b>", "</script>a<b>");
    s.script("line feed", "</script\n>a<b>", "</script>a<b>");
    s.script("form feed", "</script\f>a<b>", "</script>a<b>");
    s.script("space", "</script >a<b>", "</script>a<b>");
    s.script("blank, another tag", "</b ></script>", "{/b ></script>");
    s.script("solidus", "</script/>a<b>", "</script>a<b>");
    s.script("solidus, another tag", "</b/></script>", "{/b/></script>");
    s.script("greater-than sign", "</script>a<b>", "</script>a<b>");
    s.script("greater-than sign, another tag", "</b></script>", "{/b></script>");
    s.script("capital letters", "</ScRIPt>a<b>", "</script>a<b>");
    s.script("a longer name", "</scripts></script>", "{/scripts></script>");
    s.script("a shorter name", "</scrip></script>", "{/scrip></script>");
    s.script("end", "</script", "{/script");
    s.script("end behind a blank", "a</script ", "a");
    s.script("NUL", "</script\0></script>", "{/script�></script>");
    s.script("a comment", "</script<!--<script></script></script>", "{/script{!--{script>{/script></script>");

    s.state("18 script data escape start");
    s.script("dash", "<!--<script></script></script>", "{!--{script>{/script></script>");
    s.script("anything else", "<!x--<script></script>", "{!x--{script></script>");
    s.script("less-than sign", "<!</script>", "{!</script>");
    s.script("another start", "<!<!--<script></script></script>", "{!{!--{script>{/script></script>");
    s.script("end", "<!", "{!");

    s.state("19 script data escape start dash");
    s.script("dash", "<!--<script></script>x</script>", "{!--{script>{/script>x</script>");
    s.script("less-than sign", "<!-<script></script>", "{!-{script></script>");
    s.script("anything else", "<!-x-<script></script>", "{!-x-{script></script>");
    s.script("greater-than sign", "<!-><script></script>", "{!->{script></script>");
    s.script("NUL", "<!-\0-<script></script>", "{!-�-{script></script>");
    s.script("end", "<!-", "{!-");

    s.state("20 script data escaped");
    s.script("dash", "<!--x-y--><script></script>", "{!--x-y-->{script></script>");
    s.script("less-than sign", "<!--x</script>", "{!--x</script>");
    s.script("NUL", "<!--x\0</script>", "{!--x�</script>");
    s.script("greater-than sign", "<!--x><script></script></script>", "{!--x>{script>{/script></script>");
    s.script("end", "<!--x", "{!--x");

    s.state("21 script data escaped dash");
    s.script("dash", "<!--x--><script></script>", "{!--x-->{script></script>");
    s.script("less-than sign, end tag", "<!--x-</script>", "{!--x-</script>");
    s.script("less-than sign, start tag", "<!--x-<script></script></script>",
             "{!--x-{script>{/script></script>");
    s.script("NUL", "<!--x-\0-><script></script></script>", "{!--x-�->{script>{/script></script>");
    s.script("anything else", "<!--x-y-><script></script></script>", "{!--x-y->{script>{/script></script>");
    s.script("greater-than sign", "<!--x-><script></script></script>", "{!--x->{script>{/script></script>");
    s.script("end", "<!--x-", "{!--x-");

    s.state("22 script data escaped dash dash");
    s.script("dash", "<!--x----><script></script>", "{!--x---->{script></script>");
    s.script("less-than sign, end tag", "<!--x--</script>", "{!--x--</script>");
    s.script("less-than sign, start tag", "<!--x--<script></script></script>",
             "{!--x--{script>{/script></script>");
    s.script("greater-than sign at once", "<!--><script></script>", "{!-->{script></script>");
    s.script("dash and greater-than sign", "<!---><script></script>", "{!--->{script></script>");
    s.script("NUL", "<!--\0><script></script></script>", "{!--�>{script>{/script></script>");
    s.script("anything else", "<!--x--y><script></script></script>", "{!--x--y>{script>{/script></script>");
    s.script("exclamation mark", "<!--x--!><script></script></script>",
             "{!--x--!>{script>{/script></script>");
    s.script("another comment behind it", "<!----><!--<script></script></script>",
             "{!---->{!--{script>{/script></script>");
    s.script("end", "<!--", "{!--");

    s.state("23 script data escaped less-than sign");
    s.script("solidus", "<!--</script>", "{!--</script>");
    s.script("small letter", "<!--<script></script></script>", "{!--{script>{/script></script>");
    s.script("capital letter", "<!--<SCRIPT></script></script>", "{!--{SCRIPT>{/script></script>");
    s.script("anything else", "<!--<1</script>", "{!--{1</script>");
    s.script("dash", "<!--<--><script></script>", "{!--{-->{script></script>");
    s.script("less-than sign", "<!--<<script></script></script>", "{!--{{script>{/script></script>");
    s.script("exclamation mark", "<!--<!--<script></script></script>", "{!--{!--{script>{/script></script>");
    s.script("NUL", "<!--<\0script></script>", "{!--{�script></script>");
    s.script("end", "<!--<", "{!--{");

    s.state("24 script data escaped end tag open");
    s.script("letter", "<!--</script>", "{!--</script>");
    s.script("digit", "<!--</1</script>", "{!--{/1</script>");
    s.script("dash", "<!--</--><script></script>", "{!--{/-->{script></script>");
    s.script("less-than sign", "<!--</</script>", "{!--{/</script>");
    s.script("greater-than sign", "<!--</><script></script></script>", "{!--{/>{script>{/script></script>");
    s.script("end", "<!--</", "{!--{/");

    s.state("25 script data escaped end tag name");
    s.script("tab", "<!--</script\t>-->", "{!--</script>-->");
    s.script("line feed", "<!--</script\n>-->", "{!--</script>-->");
    s.script("form feed", "<!--</script\f>-->", "{!--</script>-->");
    s.script("space", "<!--</script >-->", "{!--</script>-->");
    s.script("blank, another tag", "<!--</b ></script>", "{!--{/b ></script>");
    s.script("solidus", "<!--</script/>-->", "{!--</script>-->");
    s.script("solidus, another tag", "<!--</b/></script>", "{!--{/b/></script>");
    s.script("greater-than sign", "<!--</script><!--x-->", "{!--</script><!--x-->");
    s.script("greater-than sign, another tag", "<!--</b></script>", "{!--{/b></script>");
    s.script("capital letters", "<!--</ScRIPt>", "{!--</script>");
    s.script("a longer name", "<!--</scripts></script>", "{!--{/scripts></script>");
    s.script("a shorter name", "<!--</scrip></script>", "{!--{/scrip></script>");
    s.script("dashes", "<!--</script--><script></script>", "{!--{/script-->{script></script>");
    s.script("NUL", "<!--</script\0></script>", "{!--{/script�></script>");
    s.script("less-than sign", "<!--</script</script>", "{!--{/script</script>");
    s.script("end", "<!--</script", "{!--{/script");
    s.script("end behind a blank", "<!--</script ", "{!--");

    s.state("26 script data double escape start");
    s.script("tab", "<!--<script\t</script></script>", "{!--{script\t{/script></script>");
    s.script("line feed", "<!--<script\n</script></script>", "{!--{script\n{/script></script>");
    s.script("form feed", "<!--<script\f</script></script>", "{!--{script\f{/script></script>");
    s.script("space", "<!--<script </script></script>", "{!--{script {/script></script>");
    s.script("carriage return", "<!--<script\r</script></script>", "{!--{script\n{/script></script>");
    s.script("solidus", "<!--<script/</script></script>", "{!--{script/{/script></script>");
    s.script("greater-than sign", "<!--<script></script></script>", "{!--{script>{/script></script>");
    s.script("capital letters", "<!--<sCRIPT></script></script>", "{!--{sCRIPT>{/script></script>");
    s.script("a longer name", "<!--<scripts></script>", "{!--{scripts></script>");
    s.script("a shorter name", "<!--<scrip></script>", "{!--{scrip></script>");
    s.script("another name", "<!--<b></script>", "{!--{b></script>");
    s.script("digit", "<!--<script1></script>", "{!--{script1></script>");
    s.script("vertical tab is no blank", "<!--<script\v></script>", "{!--{script\v></script>");
    s.script("dashes", "<!--<script--><script></script>", "{!--{script-->{script></script>");
    s.script("less-than sign", "<!--<script</script>", "{!--{script</script>");
    s.script("NUL", "<!--<script\0></script>", "{!--{script�></script>");
    s.script("end", "<!--<script", "{!--{script");

    s.state("27 script data double escaped");
    s.script("dash", "<!--<script>x-y</script></script>", "{!--{script>x-y{/script></script>");
    s.script("less-than sign", "<!--<script><b></script></script>", "{!--{script>{b>{/script></script>");
    s.script("NUL", "<!--<script>x\0</script></script>", "{!--{script>x�{/script></script>");
    s.script("a start tag in it", "<!--<script><script></script></script>",
             "{!--{script>{script>{/script></script>");
    s.script("end", "<!--<script>x</script", "{!--{script>x{/script");
    s.script("end behind text", "<!--<script>x", "{!--{script>x");

    s.state("28 script data double escaped dash");
    s.script("dash", "<!--<script>x--></script>", "{!--{script>x--></script>");
    s.script("less-than sign", "<!--<script>-</script></script>", "{!--{script>-{/script></script>");
    s.script("NUL", "<!--<script>-\0-></script></script>", "{!--{script>-�->{/script></script>");
    s.script("anything else", "<!--<script>-x-></script></script>", "{!--{script>-x->{/script></script>");
    s.script("greater-than sign", "<!--<script>-></script></script>", "{!--{script>->{/script></script>");
    s.script("end", "<!--<script>-", "{!--{script>-");

    s.state("29 script data double escaped dash dash");
    s.script("dash", "<!--<script>----></script>", "{!--{script>----></script>");
    s.script("less-than sign", "<!--<script>--</script></script>", "{!--{script>--{/script></script>");
    s.script("greater-than sign", "<!--<script>--><script></script>", "{!--{script>-->{script></script>");
    s.script("NUL", "<!--<script>--\0></script></script>", "{!--{script>--�>{/script></script>");
    s.script("anything else", "<!--<script>--x></script></script>", "{!--{script>--x>{/script></script>");
    s.script("exclamation mark", "<!--<script>--!></script></script>", "{!--{script>--!>{/script></script>");
    s.script("end", "<!--<script>--", "{!--{script>--");

    s.state("30 script data double escaped less-than sign");
    s.script("solidus", "<!--<script></script></script>", "{!--{script>{/script></script>");
    s.script("dash", "<!--<script><--></script>", "{!--{script>{--></script>");
    s.script("less-than sign", "<!--<script><</script></script>", "{!--{script>{{/script></script>");
    s.script("NUL", "<!--<script><\0/script></script></script>", "{!--{script>{�/script>{/script></script>");
    s.script("end", "<!--<script><", "{!--{script>{");

    s.state("31 script data double escape end");
    s.script("tab", "<!--<script></script\t</script>", "{!--{script>{/script\t</script>");
    s.script("line feed", "<!--<script></script\n</script>", "{!--{script>{/script\n</script>");
    s.script("form feed", "<!--<script></script\f</script>", "{!--{script>{/script\f</script>");
    s.script("space", "<!--<script></script </script>", "{!--{script>{/script </script>");
    s.script("carriage return", "<!--<script></script\r</script>", "{!--{script>{/script\n</script>");
    s.script("solidus", "<!--<script></script/</script>", "{!--{script>{/script/</script>");
    s.script("greater-than sign", "<!--<script></script></script>", "{!--{script>{/script></script>");
    s.script("capital letters", "<!--<script></SCRIPT></script>", "{!--{script>{/SCRIPT></script>");
    s.script("a longer name", "<!--<script></scripts></script></script>",
             "{!--{script>{/scripts>{/script></script>");
    s.script("another name", "<!--<script></b></script></script>", "{!--{script>{/b>{/script></script>");
    s.script("no name", "<!--<script></></script></script>", "{!--{script>{/>{/script></script>");
    s.script("digit", "<!--<script></script1></script></script>", "{!--{script>{/script1>{/script></script>");
    s.script("dashes", "<!--<script></script--></script>", "{!--{script>{/script--></script>");
    s.script("less-than sign", "<!--<script></script</script></script>",
             "{!--{script>{/script{/script></script>");
    s.script("NUL", "<!--<script></script\0></script></script>", "{!--{script>{/script�>{/script></script>");
    s.script("once more", "<!--<script></script><script></script></script>",
             "{!--{script>{/script>{script>{/script></script>");
    s.script("end of the comment behind it", "<!--<script></script>--><script></script>",
             "{!--{script>{/script>-->{script></script>");
    s.script("end", "<!--<script></script", "{!--{script>{/script");
}

void addAttributeStates(Samples& s)
{
    s.state("32 before attribute name");
    s.data("blanks", "<a \t\n\f\r b>", "<a b=\"\">");
    s.data("solidus", "<a />", "<a/>");
    s.data("greater-than sign", "<a >b", "<a>b");
    s.data("end", "x<a ", "x");
    s.data("equals sign", "<a =b>", "<a =b=\"\">");
    s.data("two equals signs", "<a ==b>", "<a ==\"b\">");
    s.data("quotes", "<a \"b\">", "<a \"b\"=\"\">");
    s.data("NUL", "<a \0>", "<a �=\"\">");
    s.data("vertical tab is no blank", "<a \vb>", "<a \vb=\"\">");

    s.state("33 attribute name");
    s.data("tab", "<a b\tc>", "<a b=\"\" c=\"\">");
    s.data("line feed", "<a b\nc>", "<a b=\"\" c=\"\">");
    s.data("form feed", "<a b\fc>", "<a b=\"\" c=\"\">");
    s.data("space", "<a b c>", "<a b=\"\" c=\"\">");
    s.data("carriage return", "<a b\rc>", "<a b=\"\" c=\"\">");
    s.data("solidus", "<a b/>", "<a b=\"\"/>");
    s.data("greater-than sign", "<a b>c", "<a b=\"\">c");
    s.data("end", "x<a b", "x");
    s.data("equals sign", "<a b=c>", "<a b=\"c\">");
    s.data("capital letters", "<a BcZ>", "<a bcz=\"\">");
    s.data("NUL", "<a b\0c>", "<a b�c=\"\">");
    s.data("quotes and less-than sign", "<a b\"c'd<e>", "<a b\"c'd<e=\"\">");
    s.data("beyond ASCII", "<a bÉ=É>", "<a bÉ=\"É\">");
    s.data("no reference", "<a &amp;=b>", "<a &amp;=\"b\">");
    s.data("the same name again", "<a b=1 B=2 c b>", "<a b=\"1\" c=\"\">");
    s.data("the same name but for NUL", "<a b\0=1 b�=2>", "<a b�=\"1\">");

    s.state("34 after attribute name");
    s.data("blanks", "<a b \t\n\f\r c>", "<a b=\"\" c=\"\">");
    s.data("solidus", "<a b />", "<a b=\"\"/>");
    s.data("solidus and a name", "<a b /c>", "<a b=\"\" c=\"\">");
    s.data("solidus and equals sign", "<a b /=c>", "<a b=\"\" =c=\"\">");
    s.data("equals sign", "<a b \t= c>", "<a b=\"c\">");
    s.data("greater-than sign", "<a b >c", "<a b=\"\">c");
    s.data("end", "x<a b ", "x");
    s.data("anything else", "<a b \"c>", "<a b=\"\" \"c=\"\">");

    s.state("35 before attribute value");
    s.data("blanks", "<a b= \t\n\f\r c>", "<a b=\"c\">");
    s.data("blanks and quotation mark", "<a b= \n\"c\">", "<a b=\"c\">");
    s.data("quotation mark", "<a b=\"c\">", "<a b=\"c\">");
    s.data("apostrophe", "<a b='c'>", "<a b=\"c\">");
    s.data("greater-than sign", "<a b=>c", "<a b=\"\">c");
    s.data("blank and greater-than sign", "<a b= >c", "<a b=\"\">c");
    s.data("end", "x<a b=", "x");
    s.data("end behind a blank", "x<a b= ", "x");
    s.data("solidus", "<a b=/>", "<a b=\"/\">");
    s.data("equals sign", "<a b==>", "<a b=\"=\">");
    s.data("NUL", "<a b=\0>", "<a b=\"�\">");

    s.state("36 attribute value (double-quoted)");
    s.data("quotation mark", "<a b=\"\" c=\"d\">", "<a b=\"\" c=\"d\">");
    s.data("a reference", "<a b=\"c&amp;d\">", "<a b=\"c&d\">");
    s.data("NUL", "<a b=\"c\0d\">", "<a b=\"c�d\">");
    s.data("end", "x<a b=\"c>", "x");
    s.data("anything else", "<a b=\"c '<>/=`d\">", "<a b=\"c '<>/=`d\">");
    s.data("line ends", "<a b=\"\r\nc\rd\r\r\n\">", "<a b=\"\nc\nd\n\n\">");

    s.state("37 attribute value (single-quoted)");
    s.data("apostrophe", "<a b='' c='d'>", "<a b=\"\" c=\"d\">");
    s.data("a reference", "<a b='c&amp;d'>", "<a b=\"c&d\">");
    s.data("NUL", "<a b='c\0d'>", "<a b=\"c�d\">");
    s.data("end", "x<a b='c>", "x");
    s.data("anything else", "<a b='c \"<>/=`d'>", "<a b=\"c \"<>/=`d\">");
    s.data("line ends", "<a b='\r\nc\rd\r\r\n'>", "<a b=\"\nc\nd\n\n\">");

    s.state("38 attribute value (unquoted)");
    s.data("tab", "<a b=c\td>", "<a b=\"c\" d=\"\">");
    s.data("line feed", "<a b=c\nd>", "<a b=\"c\" d=\"\">");
    s.data("form feed", "<a b=c\fd>", "<a b=\"c\" d=\"\">");
    s.data("space", "<a b=c d>", "<a b=\"c\" d=\"\">");
    s.data("carriage return", "<a b=c\rd>", "<a b=\"c\" d=\"\">");
    s.data("a reference", "<a b=c&amp;d>", "<a b=\"c&d\">");
    s.data("a reference in front of the end", "<a b=&amp>", "<a b=\"&\">");
    s.data("greater-than sign", "<a b=c>d", "<a b=\"c\">d");
    s.data("NUL", "<a b=c\0d>", "<a b=\"c�d\">");
    s.data("signs", "<a b=c\"d'e<f=g`h>", "<a b=\"c\"d'e<f=g`h\">");
    s.data("solidus", "<a b=c/>", "<a b=\"c/\">");
    s.data("solidus behind a blank", "<a b=c />", "<a b=\"c\"/>");
    s.data("end", "x<a b=c", "x");

    s.state("39 after attribute value (quoted)");
    s.data("tab", "<a b=\"c\"\td>", "<a b=\"c\" d=\"\">");
    s.data("line feed", "<a b=\"c\"\nd>", "<a b=\"c\" d=\"\">");
    s.data("form feed", "<a b=\"c\"\fd>", "<a b=\"c\" d=\"\">");
    s.data("space", "<a b='c' d>", "<a b=\"c\" d=\"\">");
    s.data("solidus", "<a b=\"c\"/>", "<a b=\"c\"/>");
    s.data("greater-than sign", "<a b=\"c\">d", "<a b=\"c\">d");
    s.data("end", "x<a b=\"c\"", "x");
    s.data("anything else", "<a b=\"c\"d=e>", "<a b=\"c\" d=\"e\">");
    s.data("equals sign", "<a b=\"c\"=d>", "<a b=\"c\" =d=\"\">");
    s.data("quotation mark", "<a b=\"\"\">", "<a b=\"\" \"=\"\">");
    s.data("apostrophe", "<a b='c''d'>", "<a b=\"c\" 'd'=\"\">");

    s.state("40 self-closing start tag");
    s.data("greater-than sign", "<a/>b", "<a/>b");
    s.data("end", "x<a/", "x");
    s.data("a name", "<a/b>", "<a b=\"\">");
    s.data("a name and a solidus", "<a/b/>", "<a b=\"\"/>");
    s.data("solidus", "<a//>", "<a/>");
    s.data("blank", "<a/ >", "<a>");
    s.data("equals sign", "<a/=>", "<a ==\"\">");
    s.data("an end tag", "</a/>b", "</a>b");
}

void addCommentStates(Samples& s)
{
    s.state("41 bogus comment");
    s.data("greater-than sign", "<!x>y", "<!--x-->y");
    s.data("end", "<!x", "<!--x-->");
    s.data("end of a question mark's", "<?", "<!--?-->");
    s.data("end of an end tag's", "</1", "<!--1-->");
    s.data("NUL", "<!a\0b>", "<!--a�b-->");
    s.data("quotes don't count", "<?a \"b>c\" ?>", "<!--?a \"b-->c\" ?>");
    s.data("dashes don't count", "<?a --b-->c", "<!--?a --b---->c");
    s.data("no reference", "<!a&amp;>", "<!--a&amp;-->");
    s.data("line ends", "<!a\r\nb\rc>", "<!--a\nb\nc-->");

    s.state("42 markup declaration open");
    s.data("two dashes", "<!--x-->", "<!--x-->");
    s.data("one dash", "<!-x>y",
           "<!--"
           "-x"
           "-->y");
    s.data("one dash and greater-than sign", "<!->y",
           "<!--"
           "-"
           "-->y");
    s.data("one dash and the end", "<!-",
           "<!--"
           "-"
           "-->");
    s.data("doctype in capitals", "<!DOCTYPE html>", "<!DOCTYPE html>");
    s.data("doctype in small letters", "<!doctype html>", "<!DOCTYPE html>");
    s.data("doctype in both", "<!dOcTyPe html>", "<!DOCTYPE html>");
    s.data("no whole doctype", "<!doctyp>", "<!--doctyp-->");
    s.data("blank and doctype", "<! doctype html>", "<!-- doctype html-->");
    s.data("CDATA section in HTML", "<![CDATA[x]]>y", "<!--[CDATA[x]]-->y");
    s.data("CDATA section in SVG", "<svg><![CDATA[x]]>y", "<svg>xy");
    s.data("CDATA section in small letters", "<svg><![cdata[x]]>y", "<svg><!--[cdata[x]]-->y");
    s.data("no whole CDATA section", "<svg><![CDATA x]]>y", "<svg><!--[CDATA x]]-->y");
    s.data("torn CDATA", "<svg><![CDATA", "<svg><!--[CDATA-->");
    s.data("greater-than sign", "<!>y", "<!---->y");
    s.data("end", "<!", "<!---->");
    s.data("NUL", "<!\0>", "<!--�-->");

    s.state("43 comment start");
    s.data("dash", "<!---->y", "<!---->y");
    s.data("greater-than sign", "<!-->y", "<!---->y");
    s.data("anything else", "<!--x-->y", "<!--x-->y");
    s.data("exclamation mark", "<!--!>y-->", "<!--!>y-->");
    s.data("less-than sign", "<!--<-->y", "<!--<-->y");
    s.data("NUL", "<!--\0-->", "<!--�-->");
    s.data("end", "<!--", "<!---->");

    s.state("44 comment start dash");
    s.data("dash", "<!---->y", "<!---->y");
    s.data("three dashes", "<!----->y",
           "<!--"
           "-"
           "-->y");
    s.data("end at once", "<!--->y", "<!---->y");
    s.data("end", "<!---", "<!---->");
    s.data("anything else", "<!---x-->y",
           "<!--"
           "-x"
           "-->y");
    s.data("less-than sign", "<!---<!-->y",
           "<!--"
           "-<!"
           "-->y");
    s.data("exclamation mark", "<!---!>-->y",
           "<!--"
           "-!>"
           "-->y");
    s.data("NUL", "<!---\0-->",
           "<!--"
           "-�"
           "-->");

    s.state("45 comment");
    s.data("less-than sign", "<!--a<b-->c", "<!--a<b-->c");
    s.data("dash", "<!--a-b-->c", "<!--a-b-->c");
    s.data("NUL", "<!--a\0b-->", "<!--a�b-->");
    s.data("end", "<!--a", "<!--a-->");
    s.data("anything else", "<!--a>b\"c'd-->e", "<!--a>b\"c'd-->e");
    s.data("no reference", "<!--a&amp;b-->", "<!--a&amp;b-->");
    s.data("line ends", "<!--a\r\nb\rc-->", "<!--a\nb\nc-->");

    s.state("46 comment less-than sign");
    s.data("exclamation mark", "<!--a<!b-->c", "<!--a<!b-->c");
    s.data("less-than sign", "<!--a<<!-->b", "<!--a<<!-->b");
    s.data("anything else", "<!--a<b-->c", "<!--a<b-->c");
    s.data("dashes", "<!--a<-->b", "<!--a<-->b");
    s.data("dash and exclamation mark", "<!--a<--!>b", "<!--a<-->b");
    s.data("NUL", "<!--a<\0-->", "<!--a<�-->");
    s.data("end", "<!--a<", "<!--a<-->");

    s.state("47 comment less-than sign bang");
    s.data("dash", "<!--a<!-b-->c", "<!--a<!-b-->c");
    s.data("anything else", "<!--a<!b-->c", "<!--a<!b-->c");
    s.data("greater-than sign", "<!--a<!>b-->c", "<!--a<!>b-->c");
    s.data("less-than sign", "<!--a<!<!-->b", "<!--a<!<!-->b");
    s.data("NUL", "<!--a<!\0-->", "<!--a<!�-->");
    s.data("end", "<!--a<!", "<!--a<!-->");

    s.state("48 comment less-than sign bang dash");
    s.data("dash", "<!--a<!--b-->c", "<!--a<!--b-->c");
    s.data("anything else", "<!--a<!-b-->c", "<!--a<!-b-->c");
    s.data("greater-than sign", "<!--a<!->b-->c", "<!--a<!->b-->c");
    s.data("less-than sign", "<!--a<!-<!-->b", "<!--a<!-<!-->b");
    s.data("NUL", "<!--a<!-\0-->", "<!--a<!-�-->");
    s.data("end", "<!--a<!-", "<!--a<!-->");

    s.state("49 comment less-than sign bang dash dash");
    s.data("greater-than sign", "<!--a<!-->b", "<!--a<!-->b");
    s.data("end", "<!--a<!--", "<!--a<!-->");
    s.data("anything else", "<!--a<!--b-->c-->", "<!--a<!--b-->c-->");
    s.data("dash", "<!--a<!--->b", "<!--a<!--->b");
    s.data("exclamation mark", "<!--a<!--!>b", "<!--a<!-->b");
    s.data("another one", "<!--a<!--<!-->b", "<!--a<!--<!-->b");
    s.data("NUL", "<!--a<!--\0-->", "<!--a<!--�-->");

    s.state("50 comment end dash");
    s.data("dash", "<!--a-->b", "<!--a-->b");
    s.data("end", "<!--a-", "<!--a-->");
    s.data("anything else", "<!--a-b-->c", "<!--a-b-->c");
    s.data("greater-than sign", "<!--a->b-->c", "<!--a->b-->c");
    s.data("less-than sign", "<!--a-<!-->b", "<!--a-<!-->b");
    s.data("NUL", "<!--a-\0-->", "<!--a-�-->");

    s.state("51 comment end");
    s.data("greater-than sign", "<!--a-->b", "<!--a-->b");
    s.data("exclamation mark", "<!--a--!b-->c", "<!--a--!b-->c");
    s.data("dash", "<!--a--->b", "<!--a--->b");
    s.data("two dashes", "<!--a---->b", "<!--a---->b");
    s.data("end", "<!--a--", "<!--a-->");
    s.data("end behind a third dash", "<!--a---", "<!--a--->");
    s.data("anything else", "<!--a--b-->c", "<!--a--b-->c");
    s.data("blank", "<!--a-- >b-->c", "<!--a-- >b-->c");
    s.data("less-than sign", "<!--a--<!-->b", "<!--a--<!-->b");
    s.data("NUL", "<!--a--\0-->", "<!--a--�-->");

    s.state("52 comment end bang");
    s.data("dash", "<!--a--!-->b", "<!--a--!-->b");
    s.data("one dash", "<!--a--!->b-->c", "<!--a--!->b-->c");
    s.data("one dash and the end", "<!--a--!-", "<!--a--!-->");
    s.data("greater-than sign", "<!--a--!>b", "<!--a-->b");
    s.data("greater-than sign at once", "<!----!>b", "<!---->b");
    s.data("greater-than sign behind three dashes", "<!--a---!>b", "<!--a--->b");
    s.data("end", "<!--a--!", "<!--a-->");
    s.data("anything else", "<!--a--!b-->c", "<!--a--!b-->c");
    s.data("exclamation mark", "<!--a--!!>b-->c", "<!--a--!!>b-->c");
    s.data("less-than sign", "<!--a--!<!-->b", "<!--a--!<!-->b");
    s.data("NUL", "<!--a--!\0-->", "<!--a--!�-->");
}

void addDoctypeStates(Samples& s)
{
    s.state("53 DOCTYPE");
    s.data("tab", "<!DOCTYPE\thtml>x", "<!DOCTYPE html>x");
    s.data("line feed", "<!DOCTYPE\nhtml>x", "<!DOCTYPE html>x");
    s.data("form feed", "<!DOCTYPE\fhtml>x", "<!DOCTYPE html>x");
    s.data("space", "<!DOCTYPE html>x", "<!DOCTYPE html>x");
    s.data("carriage return", "<!DOCTYPE\rhtml>x", "<!DOCTYPE html>x");
    s.data("greater-than sign", "<!DOCTYPE>x", "<!DOCTYPE quirks>x");
    s.data("end", "<!DOCTYPE", "<!DOCTYPE quirks>");
    s.data("anything else", "<!DOCTYPEhtml>x", "<!DOCTYPE html>x");
    s.data("NUL", "<!DOCTYPE\0>x", "<!DOCTYPE �>x");

    s.state("54 before DOCTYPE name");
    s.data("blanks", "<!DOCTYPE \t\n\f\r html>x", "<!DOCTYPE html>x");
    s.data("capital letter", "<!DOCTYPE Html>x", "<!DOCTYPE html>x");
    s.data("NUL", "<!DOCTYPE \0>x", "<!DOCTYPE �>x");
    s.data("greater-than sign", "<!DOCTYPE >x", "<!DOCTYPE quirks>x");
    s.data("end", "<!DOCTYPE ", "<!DOCTYPE quirks>");
    s.data("anything else", "<!DOCTYPE \"a\">x", "<!DOCTYPE \"a\">x");
    s.data("beyond ASCII", "<!DOCTYPE É>x", "<!DOCTYPE É>x");
    s.data("public is a name here", "<!DOCTYPE public>x", "<!DOCTYPE public>x");

    s.state("55 DOCTYPE name");
    s.data("tab", "<!DOCTYPE html\t>x", "<!DOCTYPE html>x");
    s.data("line feed", "<!DOCTYPE html\n>x", "<!DOCTYPE html>x");
    s.data("form feed", "<!DOCTYPE html\f>x", "<!DOCTYPE html>x");
    s.data("space", "<!DOCTYPE html >x", "<!DOCTYPE html>x");
    s.data("greater-than sign", "<!DOCTYPE html>x", "<!DOCTYPE html>x");
    s.data("capital letters", "<!DOCTYPE hTML>x", "<!DOCTYPE html>x");
    s.data("NUL", "<!DOCTYPE h\0l>x", "<!DOCTYPE h�l>x");
    s.data("end", "<!DOCTYPE html", "<!DOCTYPE html quirks>");
    s.data("anything else", "<!DOCTYPE a\"b<c/d>x", "<!DOCTYPE a\"b<c/d>x");
    s.data("no reference", "<!DOCTYPE a&amp;>x", "<!DOCTYPE a&amp;>x");

    s.state("56 after DOCTYPE name");
    s.data("blanks", "<!DOCTYPE html \t\n\f\r >x", "<!DOCTYPE html>x");
    s.data("greater-than sign", "<!DOCTYPE html >x", "<!DOCTYPE html>x");
    s.data("end", "<!DOCTYPE html ", "<!DOCTYPE html quirks>");
    s.data("public", "<!DOCTYPE html pUbLiC \"a\">x", "<!DOCTYPE html PUBLIC \"a\">x");
    s.data("system", "<!DOCTYPE html sYsTeM \"a\">x", "<!DOCTYPE html SYSTEM \"a\">x");
    s.data("blanks and public", "<!DOCTYPE html \t\n\f\r PUBLIC \"a\">x", "<!DOCTYPE html PUBLIC \"a\">x");
    s.data("anything else", "<!DOCTYPE html a>x", "<!DOCTYPE html quirks>x");
    s.data("a quotation mark", "<!DOCTYPE html \"a\">x", "<!DOCTYPE html quirks>x");
    s.data("no whole public", "<!DOCTYPE html PUBLI \"a\">x", "<!DOCTYPE html quirks>x");
    s.data("no whole system", "<!DOCTYPE html SYSTE>x", "<!DOCTYPE html quirks>x");
    s.data("torn public", "<!DOCTYPE html PUBLI", "<!DOCTYPE html quirks>");
    s.data("NUL", "<!DOCTYPE html \0>x", "<!DOCTYPE html quirks>x");

    s.state("57 after DOCTYPE public keyword");
    s.data("blanks", "<!DOCTYPE a PUBLIC\t\"b\">x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("quotation mark", "<!DOCTYPE a PUBLIC\"b\">x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("apostrophe", "<!DOCTYPE a PUBLIC'b'>x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("greater-than sign", "<!DOCTYPE a PUBLIC>x", "<!DOCTYPE a quirks>x");
    s.data("end", "<!DOCTYPE a PUBLIC", "<!DOCTYPE a quirks>");
    s.data("anything else", "<!DOCTYPE a PUBLICb \"c\">x", "<!DOCTYPE a quirks>x");

    s.state("58 before DOCTYPE public identifier");
    s.data("blanks", "<!DOCTYPE a PUBLIC \t\n\f\r \"b\">x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("quotation mark", "<!DOCTYPE a PUBLIC \"b\">x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("apostrophe", "<!DOCTYPE a PUBLIC 'b'>x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("greater-than sign", "<!DOCTYPE a PUBLIC >x", "<!DOCTYPE a quirks>x");
    s.data("end", "<!DOCTYPE a PUBLIC ", "<!DOCTYPE a quirks>");
    s.data("anything else", "<!DOCTYPE a PUBLIC b \"c\">x", "<!DOCTYPE a quirks>x");

    s.state("59 DOCTYPE public identifier (double-quoted)");
    s.data("quotation mark", "<!DOCTYPE a PUBLIC \"b\">x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("quotation mark at once", "<!DOCTYPE a PUBLIC \"\">x", "<!DOCTYPE a PUBLIC \"\">x");
    s.data("NUL", "<!DOCTYPE a PUBLIC \"b\0c\">x", "<!DOCTYPE a PUBLIC \"b�c\">x");
    s.data("greater-than sign", "<!DOCTYPE a PUBLIC \"b>x", "<!DOCTYPE a PUBLIC \"b\" quirks>x");
    s.data("end", "<!DOCTYPE a PUBLIC \"b", "<!DOCTYPE a PUBLIC \"b\" quirks>");
    s.data("end at once", "<!DOCTYPE a PUBLIC \"", "<!DOCTYPE a PUBLIC \"\" quirks>");
    s.data("anything else", "<!DOCTYPE a PUBLIC \"B'<&amp; É\">x", "<!DOCTYPE a PUBLIC \"B'<&amp; É\">x");
    s.data("line ends", "<!DOCTYPE a PUBLIC \"b\r\nc\rd\">x", "<!DOCTYPE a PUBLIC \"b\nc\nd\">x");

    s.state("60 DOCTYPE public identifier (single-quoted)");
    s.data("apostrophe", "<!DOCTYPE a PUBLIC 'b'>x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("apostrophe at once", "<!DOCTYPE a PUBLIC ''>x", "<!DOCTYPE a PUBLIC \"\">x");
    s.data("NUL", "<!DOCTYPE a PUBLIC 'b\0c'>x", "<!DOCTYPE a PUBLIC \"b�c\">x");
    s.data("greater-than sign", "<!DOCTYPE a PUBLIC 'b>x", "<!DOCTYPE a PUBLIC \"b\" quirks>x");
    s.data("end", "<!DOCTYPE a PUBLIC 'b", "<!DOCTYPE a PUBLIC \"b\" quirks>");
    s.data("anything else", "<!DOCTYPE a PUBLIC 'b\"<c'>x", "<!DOCTYPE a PUBLIC \"b\"<c\">x");

    s.state("61 after DOCTYPE public identifier");
    s.data("blank", "<!DOCTYPE a PUBLIC \"b\" >x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("greater-than sign", "<!DOCTYPE a PUBLIC \"b\">x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("quotation mark", "<!DOCTYPE a PUBLIC \"b\"\"c\">x", "<!DOCTYPE a PUBLIC \"b\" SYSTEM \"c\">x");
    s.data("apostrophe", "<!DOCTYPE a PUBLIC \"b\"'c'>x", "<!DOCTYPE a PUBLIC \"b\" SYSTEM \"c\">x");
    s.data("end", "<!DOCTYPE a PUBLIC \"b\"", "<!DOCTYPE a PUBLIC \"b\" quirks>");
    s.data("anything else", "<!DOCTYPE a PUBLIC \"b\"c \"d\">x", "<!DOCTYPE a PUBLIC \"b\" quirks>x");

    s.state("62 between DOCTYPE public and system identifiers");
    s.data("blanks", "<!DOCTYPE a PUBLIC \"b\" \t\n\f\r >x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("greater-than sign", "<!DOCTYPE a PUBLIC \"b\" >x", "<!DOCTYPE a PUBLIC \"b\">x");
    s.data("quotation mark", "<!DOCTYPE a PUBLIC 'b' \"c\">x", "<!DOCTYPE a PUBLIC \"b\" SYSTEM \"c\">x");
    s.data("apostrophe", "<!DOCTYPE a PUBLIC 'b' 'c'>x", "<!DOCTYPE a PUBLIC \"b\" SYSTEM \"c\">x");
    s.data("end", "<!DOCTYPE a PUBLIC \"b\" ", "<!DOCTYPE a PUBLIC \"b\" quirks>");
    s.data("anything else", "<!DOCTYPE a PUBLIC \"b\" c \"d\">x", "<!DOCTYPE a PUBLIC \"b\" quirks>x");
    s.data("system has no meaning", "<!DOCTYPE a PUBLIC \"b\" SYSTEM \"d\">x",
           "<!DOCTYPE a PUBLIC \"b\" quirks>x");

    s.state("63 after DOCTYPE system keyword");
    s.data("blank", "<!DOCTYPE a SYSTEM\t\"b\">x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("quotation mark", "<!DOCTYPE a SYSTEM\"b\">x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("apostrophe", "<!DOCTYPE a SYSTEM'b'>x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("greater-than sign", "<!DOCTYPE a SYSTEM>x", "<!DOCTYPE a quirks>x");
    s.data("end", "<!DOCTYPE a SYSTEM", "<!DOCTYPE a quirks>");
    s.data("anything else", "<!DOCTYPE a SYSTEMb \"c\">x", "<!DOCTYPE a quirks>x");

    s.state("64 before DOCTYPE system identifier");
    s.data("blanks", "<!DOCTYPE a SYSTEM \t\n\f\r \"b\">x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("quotation mark", "<!DOCTYPE a SYSTEM \"b\">x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("apostrophe", "<!DOCTYPE a SYSTEM 'b'>x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("greater-than sign", "<!DOCTYPE a SYSTEM >x", "<!DOCTYPE a quirks>x");
    s.data("end", "<!DOCTYPE a SYSTEM ", "<!DOCTYPE a quirks>");
    s.data("anything else", "<!DOCTYPE a SYSTEM b \"c\">x", "<!DOCTYPE a quirks>x");

    s.state("65 DOCTYPE system identifier (double-quoted)");
    s.data("quotation mark", "<!DOCTYPE a SYSTEM \"b\">x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("quotation mark at once", "<!DOCTYPE a SYSTEM \"\">x", "<!DOCTYPE a SYSTEM \"\">x");
    s.data("NUL", "<!DOCTYPE a SYSTEM \"b\0c\">x", "<!DOCTYPE a SYSTEM \"b�c\">x");
    s.data("greater-than sign", "<!DOCTYPE a SYSTEM \"b>x", "<!DOCTYPE a SYSTEM \"b\" quirks>x");
    s.data("end", "<!DOCTYPE a SYSTEM \"b", "<!DOCTYPE a SYSTEM \"b\" quirks>");
    s.data("anything else", "<!DOCTYPE a SYSTEM \"B'<&amp; É\">x", "<!DOCTYPE a SYSTEM \"B'<&amp; É\">x");
    s.data("behind a public one", "<!DOCTYPE a PUBLIC \"b\" \"c>x",
           "<!DOCTYPE a PUBLIC \"b\" SYSTEM \"c\" quirks>x");
    s.data("line ends", "<!DOCTYPE a SYSTEM \"b\r\nc\rd\">x", "<!DOCTYPE a SYSTEM \"b\nc\nd\">x");

    s.state("66 DOCTYPE system identifier (single-quoted)");
    s.data("apostrophe", "<!DOCTYPE a SYSTEM 'b'>x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("apostrophe at once", "<!DOCTYPE a SYSTEM ''>x", "<!DOCTYPE a SYSTEM \"\">x");
    s.data("NUL", "<!DOCTYPE a SYSTEM 'b\0c'>x", "<!DOCTYPE a SYSTEM \"b�c\">x");
    s.data("greater-than sign", "<!DOCTYPE a SYSTEM 'b>x", "<!DOCTYPE a SYSTEM \"b\" quirks>x");
    s.data("end", "<!DOCTYPE a SYSTEM 'b", "<!DOCTYPE a SYSTEM \"b\" quirks>");
    s.data("anything else", "<!DOCTYPE a SYSTEM 'b\"<c'>x", "<!DOCTYPE a SYSTEM \"b\"<c\">x");

    s.state("67 after DOCTYPE system identifier");
    s.data("blanks", "<!DOCTYPE a SYSTEM \"b\" \t\n\f\r >x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("greater-than sign", "<!DOCTYPE a SYSTEM \"b\">x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("end", "<!DOCTYPE a SYSTEM \"b\"", "<!DOCTYPE a SYSTEM \"b\" quirks>");
    s.data("end behind a blank", "<!DOCTYPE a SYSTEM \"b\" ", "<!DOCTYPE a SYSTEM \"b\" quirks>");
    s.data("anything else", "<!DOCTYPE a SYSTEM \"b\"c>x", "<!DOCTYPE a SYSTEM \"b\">x");
    s.data("a third quoted text", "<!DOCTYPE a PUBLIC \"b\" \"c\" \"d\">x",
           "<!DOCTYPE a PUBLIC \"b\" SYSTEM \"c\">x");

    s.state("68 bogus DOCTYPE");
    s.data("greater-than sign", "<!DOCTYPE a b>x", "<!DOCTYPE a quirks>x");
    s.data("greater-than sign in quotes", "<!DOCTYPE a b \"c>x\">", "<!DOCTYPE a quirks>x\">");
    s.data("NUL", "<!DOCTYPE a b\0c>x", "<!DOCTYPE a quirks>x");
    s.data("end", "<!DOCTYPE a b", "<!DOCTYPE a quirks>");
    s.data("end, without quirks", "<!DOCTYPE a SYSTEM \"b\" c", "<!DOCTYPE a SYSTEM \"b\">");
    s.data("anything else", "<!DOCTYPE a [<b \"c\">]>x", "<!DOCTYPE a quirks>]>x");
}

void addCdataStates(Samples& s)
{
    s.state("69 CDATA section");
    s.cdata("brackets", "a]]>b&amp;", "ab&");
    s.cdata("nothing has a meaning", "a&amp;<b><!--c--></d>]]><e>", "a&amp;{b>{!--c-->{/d><e>");
    s.cdata("NUL", "a\0b]]>", "a\\0b");
    s.cdata("end", "a", "a");
    s.cdata("nothing", "", "");
    s.cdata("line ends", "a\r\nb\rc]]>", "a\nb\nc");
    s.data("within SVG", "<svg><![CDATA[a&amp;<b>]]>c&amp;d</svg>", "<svg>a&amp;{b>c&d</svg>");
    s.data("empty", "<svg>a<![CDATA[]]>b", "<svg>ab");
    s.data("end behind the start", "<svg>a<![CDATA[", "<svg>a");
    s.data("end within SVG", "<svg><![CDATA[a", "<svg>a");

    s.state("70 CDATA section bracket");
    s.cdata("bracket", "]]>a<b>", "a<b>");
    s.cdata("anything else", "a]b]]>", "a]b");
    s.cdata("greater-than sign", "a]>b]]>", "a]>b");
    s.cdata("NUL", "a]\0]]>", "a]\\0");
    s.cdata("end", "a]", "a]");
    s.data("end within SVG", "<svg><![CDATA[a]", "<svg>a]");

    s.state("71 CDATA section end");
    s.cdata("bracket", "a]]]>b", "a]b");
    s.cdata("more brackets", "a]]]]]>b", "a]]]b");
    s.cdata("greater-than sign", "a]]>]]>b", "a]]>b");
    s.cdata("anything else", "a]]b]]>c", "a]]bc");
    s.cdata("blank", "a]] >b]]>c", "a]] >bc");
    s.cdata("end", "a]]", "a]]");
    s.cdata("end behind a third bracket", "a]]]", "a]]]");
    s.data("end within SVG", "<svg><![CDATA[a]]", "<svg>a]]");
}

void addReferenceStates(Samples& s)
{
    s.state("72 character reference");
    s.data("letter", "a&lt;b", "a{b");
    s.data("number sign", "a&#65;b", "aAb");
    s.data("blank", "a& amp;b", "a& amp;b");
    s.data("ampersand", "a&&amp;b", "a&&b");
    s.data("tag", "&<b>", "&<b>");
    s.data("semicolon", "a&;b", "a&;b");
    s.data("NUL", "&\0amp;", "&\\0amp;");
    s.data("beyond ASCII", "&é;", "&é;");
    s.data("end", "a&", "a&");
    s.data("end of a value", "<a b=\"&\" c='&' d=&>", "<a b=\"&\" c=\"&\" d=\"&\">");
    s.data("blank behind a value", "<a b=& amp;>", "<a b=\"&\" amp;=\"\">");
    s.rcdata("in RCDATA", "a&lt;/title>&</title>", "a{/title>&</title>");

    s.state("73 named character reference");
    s.data("with semicolon", "a&copy;b", "a©b");
    s.data("without", "a&copyb", "a©b");
    s.data("the longest counts", "&notin;&notit;&notin", "∉¬it;¬in");
    s.data("none", "&nosuch;", "&nosuch;");
    s.data("case counts", "&Eacute;&eacute;&EACUTE;", "Éé&EACUTE;");
    s.data("in front of the end", "&amp", "&");
    s.data("in front of a tag", "&amp<b>", "&<b>");
    s.data("letter behind it in a value", "<a b=\"&copyb\">", "<a b=\"&copyb\">");
    s.data("digit behind it in a value", "<a b=\"&copy1\">", "<a b=\"&copy1\">");
    s.data("equals sign behind it in a value", "<a b='&copy='>", "<a b=\"&copy=\">");
    s.data("another sign behind it in a value", "<a b=\"&copy,\" c=&copy>", "<a b=\"©,\" c=\"©\">");
    s.data("semicolon in a value", "<a b=&copy;=c>", "<a b=\"©=c\">");
    s.data("no tag comes of it", "&lt;b>", "{b>");
    s.data("no quote comes of it", "<a b=\"&quot;c\">", "<a b=\"\"c\">");

    s.state("74 ambiguous ampersand");
    s.data("alphanumeric", "&abc9x", "&abc9x");
    s.data("alphanumeric in a value", "<a b=&abc9x>", "<a b=\"&abc9x\">");
    s.data("semicolon", "&abc9x;b", "&abc9x;b");
    s.data("semicolon in a value", "<a b=\"&abc9x;\">", "<a b=\"&abc9x;\">");
    s.data("anything else", "&abc9x<b>", "&abc9x<b>");
    s.data("another reference", "&abc&amp;", "&abc&");
    s.data("NUL", "&abc\0", "&abc\\0");

    s.state("75 numeric character reference");
    s.data("small x", "&#x41;", "A");
    s.data("capital X", "&#X41;", "A");
    s.data("digit", "&#65;", "A");
    s.data("anything else", "&#a;", "&#a;");
    s.data("end", "&#", "&#");

    s.state("76 hexadecimal character reference start");
    s.data("digit", "&#x9;", "\t");
    s.data("small digit", "&#xa;", "\n");
    s.data("capital digit", "&#xA;", "\n");
    s.data("anything else", "&#xg;", "&#xg;");
    s.data("capital X kept", "&#Xg;", "&#Xg;");
    s.data("semicolon", "&#x;", "&#x;");
    s.data("in a value", "<a b=\"&#x\" c=&#x;>", "<a b=\"&#x\" c=\"&#x;\">");
    s.data("another reference", "&#x&amp;", "&#x&");
    s.data("end", "&#x", "&#x");

    s.state("77 decimal character reference start");
    s.data("digit", "&#9;", "\t");
    s.data("anything else", "&#g;", "&#g;");
    s.data("semicolon", "&#;", "&#;");
    s.data("in a value", "<a b=\"&#\" c=&#;>", "<a b=\"&#\" c=\"&#;\">");
    s.data("sign", "&#-65;&#+65;&# 65;", "&#-65;&#+65;&# 65;");
    s.data("tag", "&#<b>", "&#<b>");

    s.state("78 hexadecimal character reference");
    s.data("digits", "&#x20AC;", "€");
    s.data("small digits", "&#x20ac;", "€");
    s.data("semicolon", "&#x41;B", "AB");
    s.data("anything else", "&#x41G", "AG");
    s.data("another reference", "&#x41&#x42", "AB");
    s.data("anything else in a value", "<a b=\"&#x41=\" c=&#x41g>", "<a b=\"A=\" c=\"Ag\">");
    s.data("end", "&#x41", "A");

    s.state("79 decimal character reference");
    s.data("digits", "&#8364;", "€");
    s.data("semicolon", "&#65;6", "A6");
    s.data("anything else", "&#65a", "Aa");
    s.data("tag", "&#65<b>", "A<b>");
    s.data("anything else in a value", "<a b=\"&#65=\" c=&#65a>", "<a b=\"A=\" c=\"Aa\">");
    s.data("end", "&#65", "A");

    s.state("80 numeric character reference end");
    s.data("zero", "&#0;&#x00;", "��");
    s.data("beyond the last character", "&#x110000;&#1114112;", "��");
    s.data("surrogates", "&#xD800;&#xDFFF;", "��");
    s.data("no character, but kept", "&#xFFFF;", "\xEF\xBF\xBF");
    s.data("carriage return is kept", "a&#13;\r\nb", "a\r\nb");
    s.data("carriage return in a value", "<a b=\"&#xD;\">", "<a b=\"\r\">");
    s.data("control is kept", "&#1;", "\x01");
    s.data("old pages' numbers", "&#128;&#x9F;", "€Ÿ");
    s.data("any other", "&#x1F600;", "\xF0\x9F\x98\x80");
    s.data("no tag comes of it", "&#60;b>", "{b>");
    s.rcdata("no end tag comes of it", "&#60;/title></title>", "{/title></title>");
}

const std::vector<Sample>& samples()
{
    static const Samples all = [] {
        Samples made;
        addTextStates(made);
        addTagNameStates(made);
        addRcdataStates(made);
        addScriptStates(made);
        addAttributeStates(made);
        addCommentStates(made);
        addDoctypeStates(made);
        addCdataStates(made);
        addReferenceStates(made);
        return made;
    }();
    return all.all();
}

// ---- Places

bool liesIn(const TextRange& inner, const TextRange& outer)
{
    return inner.length >= 0 && inner.start >= outer.start && inner.end() <= outer.end();
}

/// What is wrong with an attribute's places, or nothing.
QByteArray faultOf(QByteArrayView html, const HtmlToken& tag, const HtmlAttribute& attribute)
{
    if (!liesIn(attribute.whole, tag.whole))
        return "an attribute beyond its tag";
    if (!liesIn(attribute.name, attribute.whole) || attribute.name.length == 0)
        return "no name in the attribute";
    if (!liesIn(attribute.value, attribute.whole) || attribute.value.start < attribute.name.end())
        return "a value that isn't in the attribute, behind the name";
    if (!attribute.has && (attribute.value != TextRange{attribute.whole.end(), 0} || attribute.quote))
        return "a value where there is none";
    if (attribute.has && !attribute.quote && attribute.value.end() != attribute.whole.end())
        return "an attribute that goes on behind its value";
    if (attribute.quote && tag.kind != HtmlTokenKind::Dropped &&
        (html[attribute.value.start - 1] != attribute.quote ||
         html[attribute.value.end()] != attribute.quote ||
         attribute.value.end() + 1 != attribute.whole.end()))
        return "a quoted value that isn't in its quotes";
    return {};
}

/// What is wrong with the places of a text's tokens, or nothing.
QByteArray faultOf(QByteArrayView html, HtmlContent content, QByteArrayView element)
{
    HtmlTokenizer tokenizer(html, content, element);
    HtmlToken token;
    qsizetype place = 0;
    while (tokenizer.next(token)) {
        const QByteArray behind = " behind " + QByteArray::number(place);
        if (token.whole.start != place || token.whole.length <= 0 || token.whole.end() > html.size())
            return "gap or overlap" + behind;
        if (!liesIn(token.inside, token.whole))
            return "inside lies outside" + behind;
        const bool tag = token.kind == HtmlTokenKind::StartTag || token.kind == HtmlTokenKind::EndTag;
        const bool cdata = token.content == HtmlContent::CdataSection;
        if ((token.kind == HtmlTokenKind::Text && !cdata) || token.kind == HtmlTokenKind::Dropped) {
            if (token.inside != token.whole)
                return "inside isn't the whole" + behind;
        }
        if (tag && (html[place] != '<' || html[token.whole.end() - 1] != '>' || token.inside.length == 0))
            return "no tag" + behind;
        if (token.torn && token.whole.end() != html.size())
            return "torn before the end" + behind;
        qsizetype attributesEnd = token.inside.end();
        for (const HtmlAttribute& attribute : token.attributes) {
            if (tag && attribute.whole.start < attributesEnd)
                return "attributes overlap" + behind;
            if (const QByteArray fault = faultOf(html, token, attribute); !fault.isEmpty())
                return fault + behind;
            attributesEnd = attribute.whole.end();
        }
        place = token.whole.end();
    }
    if (place != html.size())
        return "the end is missing, behind " + QByteArray::number(place);
    return tokenizer.next(token) ? "a token behind the end" : "";
}

const char* kindName(HtmlTokenKind kind)
{
    switch (kind) {
    case HtmlTokenKind::Text:
        return "text";
    case HtmlTokenKind::StartTag:
        return "start";
    case HtmlTokenKind::EndTag:
        return "end";
    case HtmlTokenKind::Comment:
        return "comment";
    case HtmlTokenKind::Doctype:
        return "doctype";
    case HtmlTokenKind::Dropped:
        return "dropped";
    }
    return "";
}

/// The pieces of the source that a text's tokens tell of, a line a token: kind, whole, inside, and of each
/// attribute whole, name and value, with the quote that `quote` tells; without ":=" where it has no value.
QByteArrayList pieces(QByteArrayView html)
{
    const auto cut = [html](const TextRange& range) {
        return html.sliced(range.start, range.length).toByteArray();
    };
    QByteArrayList lines;
    HtmlTokenizer tokenizer(html);
    HtmlToken token;
    while (tokenizer.next(token)) {
        QByteArray line = kindName(token.kind);
        if (token.selfClosing)
            line += " closing";
        if (token.torn)
            line += " torn";
        line += " | " + cut(token.whole) + " | " + cut(token.inside);
        if (token.kind == HtmlTokenKind::Dropped)
            token.attributes.clear(); // nothing is promised about them
        for (const HtmlAttribute& attribute : token.attributes) {
            line += " | " + cut(attribute.whole) + " | " + cut(attribute.name);
            const QByteArray quote = attribute.quote ? QByteArray(1, attribute.quote) : QByteArray();
            if (attribute.has)
                line += ":=" + quote + cut(attribute.value) + quote;
        }
        lines += line;
    }
    return lines;
}

} // namespace

/// Expectations are those of the HTML standard, 13.2.5.
class TestHtmlTokenizer : public QObject
{
    Q_OBJECT

private slots:
    void everyStateIsTried();
    void states_data();
    void states();
    void everyByteHasItsToken();
    void offsets_data();
    void offsets();
    void tokenIsReused();
    void namesAndAttributes();
    void elementsWithOtherContent_data();
    void elementsWithOtherContent();
    void contentOfTexts();
    void references_data();
    void references();
    void longTextsTakeLinearTime();
};

void TestHtmlTokenizer::everyStateIsTried()
{
    QSet<int> tried;
    for (const Sample& sample : samples())
        tried += sample.name.left(sample.name.indexOf(' ')).toInt();
    for (int state = 1; state <= 80; ++state)
        QVERIFY2(tried.contains(state), QByteArray::number(state).constData());
    QCOMPARE(int(tried.size()), 80);
}

void TestHtmlTokenizer::states_data()
{
    QTest::addColumn<Sample>("sample");
    for (const Sample& sample : samples())
        QTest::newRow(sample.name.constData()) << sample;
}

void TestHtmlTokenizer::states()
{
    QFETCH(Sample, sample);
    QCOMPARE(printed(sample.html, sample.content, sample.element), sample.expected);
}

void TestHtmlTokenizer::everyByteHasItsToken()
{
    for (const Sample& sample : samples()) {
        for (qsizetype length = 0; length <= sample.html.size(); ++length) {
            const QByteArray html = sample.html.left(length);
            const QByteArray fault = faultOf(html, sample.content, sample.element);
            QVERIFY2(fault.isEmpty(), (sample.name + ", " + visible(html) + ": " + fault).constData());
            printed(html, sample.content, sample.element); // whatever is torn, it can be told
        }
    }
}

// ---- Places

void TestHtmlTokenizer::offsets_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArrayList>("expected");
    const auto row = [](const char* name, const QByteArray& html, const QByteArrayList& expected) {
        QTest::newRow(name) << html << expected;
    };
    row("text and tags", "é€<B>ü</b >\n",
        {"text | é€ | é€", "start | <B> | B", "text | ü | ü", "end | </b > | b", "text | \n | \n"});
    row("beyond ASCII in a tag", "<aé ü=\"€\" Ö='ß' 日=本>x",
        {"start | <aé ü=\"€\" Ö='ß' 日=本> | aé | ü=\"€\" | ü:=\"€\" | Ö='ß' | Ö:='ß' | 日=本 | 日:=本",
         "text | x | x"});
    row("invalid bytes", "\xC3<a\xFF b\xE9=\"\xE2\x82\" \x80='\xF0'>\xBF</a\xFF>\xED\xA0\x80<!--\xFE-->",
        {"text | \xC3 | \xC3",
         "start | <a\xFF b\xE9=\"\xE2\x82\" \x80='\xF0'> | a\xFF | b\xE9=\"\xE2\x82\" | "
         "b\xE9:=\"\xE2\x82\" | \x80='\xF0' | \x80:='\xF0'",
         "text | \xBF | \xBF", "end | </a\xFF> | a\xFF", "text | \xED\xA0\x80 | \xED\xA0\x80",
         "comment | <!--\xFE--> | \xFE"});
    row("a byte of a character isn't a sign", "<a b=\xC4\xBC c=\xC4\xBE\xE2>", // U+013C and U+013E
        {"start | <a b=\xC4\xBC c=\xC4\xBE\xE2> | a | b=\xC4\xBC | b:=\xC4\xBC | c=\xC4\xBE\xE2 | "
         "c:=\xC4\xBE\xE2"});
    row("blanks around the equals sign", "<a  b\t= \r\n\"ç\"\fd = e f=  'g'>",
        {"start | <a  b\t= \r\n\"ç\"\fd = e f=  'g'> | a | b\t= \r\n\"ç\" | b:=\"ç\" | d = e | d:=e | "
         "f=  'g' | f:='g'"});
    row("without a value", "<a b ç>", {"start | <a b ç> | a | b | b | ç | ç"});
    row("empty values", "<a b=\"\" c=''>", {"start | <a b=\"\" c=''> | a | b=\"\" | b:=\"\" | c='' | c:=''"});
    row("the other quote in it", "<a b=\"c'd>\" e='f\">g'>",
        {"start | <a b=\"c'd>\" e='f\">g'> | a | b=\"c'd>\" | b:=\"c'd>\" | e='f\">g' | e:='f\">g'"});
    row("value without quotes", "<a b=/é/c/>x",
        {"start | <a b=/é/c/> | a | b=/é/c/ | b:=/é/c/", "text | x | x"});
    row("value with a quote in it", "<a b=c\"d' e==f>",
        {"start | <a b=c\"d' e==f> | a | b=c\"d' | b:=c\"d' | e==f | e:==f"});
    row("name that begins with an equals sign", "<a =b/=c=d>",
        {"start | <a =b/=c=d> | a | =b | =b | =c=d | =c:=d"});
    row("equals sign behind a blank", "<a =b =c=d>", {"start | <a =b =c=d> | a | =b =c=d | =b:=c=d"});
    row("self-closing", "<a/><b c />d<e f=\"g\"/>",
        {"start closing | <a/> | a", "start closing | <b c /> | b | c | c", "text | d | d",
         "start closing | <e f=\"g\"/> | e | f=\"g\" | f:=\"g\""});
    row("solidus between attributes", "<a/b//c=d /e>",
        {"start | <a/b//c=d /e> | a | b | b | c=d | c:=d | e | e"});
    row("quoted values side by side", "<a b=\"c\"d='e'f>",
        {"start | <a b=\"c\"d='e'f> | a | b=\"c\" | b:=\"c\" | d='e' | d:='e' | f | f"});
    row("the same name again", "<a b=1 B=\"2\" b>",
        {"start | <a b=1 B=\"2\" b> | a | b=1 | b:=1 | B=\"2\" | B:=\"2\" | b | b"});
    row("attributes of an end tag", "</a b=\"c\" ç>",
        {"end | </a b=\"c\" ç> | a | b=\"c\" | b:=\"c\" | ç | ç"});
    row("a reference is left as it stands", "&eacute;<a b=\"&amp;c\">",
        {"text | &eacute; | &eacute;", "start | <a b=\"&amp;c\"> | a | b=\"&amp;c\" | b:=\"&amp;c\""});
    row("comments", "<!--é--><!----><!--a--!><!--a---><!-->b<!--->",
        {"comment | <!--é--> | é", "comment | <!----> | ", "comment | <!--a--!> | a",
         "comment | <!--a---> | a-", "comment | <!--> | ", "text | b | b", "comment | <!---> | "});
    row("what is taken for comments", "<!é><?ü?></1 2><!><![CDATA[a]]>",
        {"comment | <!é> | é", "comment | <?ü?> | ?ü?", "comment | </1 2> | 1 2", "comment | <!> | ",
         "comment | <![CDATA[a]]> | [CDATA[a]]"});
    row("doctype", "<!docType é>\n", {"doctype | <!docType é> |  é", "text | \n | \n"});
    row("doctype without a blank", "<!DOCTYPEhtml><!DOCTYPE>",
        {"doctype | <!DOCTYPEhtml> | html", "doctype | <!DOCTYPE> | "});
    row("torn comment", "é<!--ü", {"text | é | é", "comment torn | <!--ü | ü"});
    row("torn comment of dashes", "<!--a--", {"comment torn | <!--a-- | a"});
    row("torn comment behind an exclamation mark", "<!--a--!", {"comment torn | <!--a--! | a"});
    row("torn empty comment", "<!---", {"comment torn | <!--- | "});
    row("torn text taken for a comment", "<?ü", {"comment torn | <?ü | ?ü"});
    row("torn doctype", "<!DOCTYPE é", {"doctype torn | <!DOCTYPE é |  é"});
    row("dropped empty end tag", "é</>ü", {"text | é | é", "dropped | </> | </>", "text | ü | ü"});
    row("dropped torn tags", "é<a ü='ß>", {"text | é | é", "dropped torn | <a ü='ß> | <a ü='ß>"});
    row("dropped torn end tag", "<title>é</title ç",
        {"start | <title> | title", "text | é | é", "dropped torn | </title ç | </title ç"});
    row("a torn end tag that is text", "<title>é</title",
        {"start | <title> | title", "text | é</title | é</title"});
    row("less-than sign in a text", "é < ü <3 <", {"text | é < ü <3 < | é < ü <3 <"});
    row("end of the text behind a solidus", "é</", {"text | é</ | é</"});
    row("CDATA section", "<svg>a<![CDATA[<é>]]>b</svg>",
        {"start | <svg> | svg", "text | a | a", "text | <![CDATA[<é>]]> | <é>", "text | b | b",
         "end | </svg> | svg"});
    row("torn CDATA section", "<svg><![CDATA[é]]", {"start | <svg> | svg", "text torn | <![CDATA[é]] | é]]"});
    row("RCDATA and RAWTEXT", "<title>é<b></TITLE ><style><!--</style>",
        {"start | <title> | title", "text | é<b> | é<b>", "end | </TITLE > | TITLE",
         "start | <style> | style", "text | <!-- | <!--", "end | </style> | style"});
    row("script", "<script>é<!--<script></script>ü</script>",
        {"start | <script> | script", "text | é<!--<script></script>ü | é<!--<script></script>ü",
         "end | </script> | script"});
}

void TestHtmlTokenizer::offsets()
{
    QFETCH(QByteArray, html);
    QFETCH(QByteArrayList, expected);
    QCOMPARE(pieces(html), expected);
    QCOMPARE(faultOf(html, HtmlContent::Data, {}), QByteArray());
}

// What a token tells must not be left in the next one.
void TestHtmlTokenizer::tokenIsReused()
{
    const QByteArray html = "<a é=1/><b ü=\"2\"/>é<!--x--><c ö='3";
    HtmlTokenizer tokenizer(html);
    HtmlToken token;
    std::vector<HtmlToken> kept;
    while (tokenizer.next(token))
        kept.push_back(token);
    QCOMPARE(kept.size(), std::size_t(5));

    HtmlTokenizer again(html);
    for (const HtmlToken& expected : kept) {
        HtmlToken fresh;
        QVERIFY(again.next(fresh));
        QVERIFY(fresh == expected);
    }
    QCOMPARE(kept[0].attributes.size(), std::size_t(1));
    QVERIFY(!kept[0].selfClosing);
    QVERIFY(kept[1].selfClosing);
    QVERIFY(kept[2].kind == HtmlTokenKind::Text);
    QVERIFY(!kept[2].selfClosing);
    QVERIFY(kept[2].attributes.empty());
    QVERIFY(kept[4].kind == HtmlTokenKind::Dropped);
    QVERIFY(kept[4].whole == (TextRange{html.indexOf("<c"), html.size() - html.indexOf("<c")}));
    QVERIFY(kept[4].inside == kept[4].whole);
}

void TestHtmlTokenizer::namesAndAttributes()
{
    QCOMPARE(htmlName("aZé É1-"), QByteArray("azé É1-"));
    QCOMPARE(htmlName(bytes("a\0B")), QByteArray("a�b"));
    QCOMPARE(htmlName(""), QByteArray());
    QVERIFY(isHtmlName("HrEf", "href"));
    QVERIFY(isHtmlName("href", "href"));
    QVERIFY(!isHtmlName("hre", "href"));
    QVERIFY(!isHtmlName("hrefs", "href"));
    QVERIFY(!isHtmlName("hr\xE5\x66", "href"));
    QVERIFY(!isHtmlName("@", "`")); // as far apart as capital and small letters
    QVERIFY(!isHtmlName("[", "{"));
    QVERIFY(isHtmlName("É", "É"));
    QVERIFY(!isHtmlName("É", "é"));
    QVERIFY(isHtmlName("", ""));

    const QByteArray html = "<a HREF='x&amp;\r\n' href=y b c= d=\"\">";
    HtmlTokenizer tokenizer(html);
    HtmlToken tag;
    QVERIFY(tokenizer.next(tag));
    QCOMPARE(tag.attributes.size(), std::size_t(4)); // "c=" takes what follows for its value
    QCOMPARE(findAttribute(html, tag, "href"), tag.attributes.data());
    QCOMPARE(findAttribute(html, tag, "hre"), nullptr);
    QCOMPARE(findAttribute(html, tag, "d"), nullptr);
    QCOMPARE(attributeValue(html, tag, "href"), std::optional<QByteArray>("x&\n"));
    QCOMPARE(attributeValue(html, tag, "b"), std::optional<QByteArray>(""));
    QCOMPARE(attributeValue(html, tag, "c"), std::optional<QByteArray>("d=\"\""));
    QCOMPARE(attributeValue(html, tag, "e"), std::optional<QByteArray>());

    for (int c = 0; c < 256; ++c) // tab, line feed, form feed, carriage return, space
        QCOMPARE(isHtmlBlank(static_cast<char>(c)), c == 9 || c == 10 || c == 12 || c == 13 || c == 32);
}

// ---- What follows the start tags

void TestHtmlTokenizer::elementsWithOtherContent_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* html, const char* expected) {
        QTest::newRow(html) << QByteArray(html) << QByteArray(expected);
    };
    row("<title>a<b>&amp;<!--c--></x></title>d<e>", "<title>a{b>&{!--c-->{/x></title>d<e>");
    row("<TITLE>a<b>&amp;</tItLe>d<e>", "<title>a{b>&</title>d<e>");
    row("<tiTLe x=y>a<b></title>", "<title x=\"y\">a{b></title>");
    row("<title/>a<b></title>", "<title/>a{b></title>");
    row("<title></title><b>", "<title></title><b>");
    row("<title><title></title><b>", "<title>{title></title><b>");
    row("<title>a<b>", "<title>a{b>");
    row("<title>", "<title>");
    row("</title><b>", "</title><b>");
    row("<titlea><b>", "<titlea><b>");
    row("<textarea>\na<b>&amp;</textarea>d<e>", "<textarea>\na{b>&</textarea>d<e>");
    row("<TextArea>a</title></TEXTAREA><b>", "<textarea>a{/title></textarea><b>");
    row("<style>a<b>&amp;<!--c</style>d<e>", "<style>a{b>&amp;{!--c</style>d<e>");
    row("<STYLE>a<b></stylE><e>", "<style>a{b></style><e>");
    row("<xmp>a<b>&amp;</xmp>d<e>", "<xmp>a{b>&amp;</xmp>d<e>");
    row("<XMP>a<b></Xmp><e>", "<xmp>a{b></xmp><e>");
    row("<iframe>a<b>&amp;</iframe>d<e>", "<iframe>a{b>&amp;</iframe>d<e>");
    row("<iFrame>a<b></IFRAME><e>", "<iframe>a{b></iframe><e>");
    row("<noembed>a<b>&amp;</noembed>d<e>", "<noembed>a{b>&amp;</noembed>d<e>");
    row("<NOEMBED>a<b></NoEmbed><e>", "<noembed>a{b></noembed><e>");
    row("<noframes>a<b>&amp;</noframes>d<e>", "<noframes>a{b>&amp;</noframes>d<e>");
    row("<NoFrames>a<b></NOFRAMES><e>", "<noframes>a{b></noframes><e>");
    row("<script>a<b>&amp;</script>d<e>", "<script>a{b>&amp;</script>d<e>");
    row("<SCRIPT><!--<script></script></Script><e>", "<script>{!--{script>{/script></script><e>");
    row("<style><!--<script></style></script>-->", "<style>{!--{script></style></script>-->");
    row("<plaintext>a<b>&amp;</plaintext><!--c-->", "<plaintext>a{b>&amp;{/plaintext>{!--c-->");
    row("<PlainText>a</plaintext>", "<plaintext>a{/plaintext>");
    row("<noscript>a<b>&amp;</noscript>d<e>", "<noscript>a<b>&</noscript>d<e>");
    row("<NOSCRIPT><!--a--><style><b></style></NOSCRIPT>", "<noscript><!--a--><style>{b></style></noscript>");
    row("<option>a<b></option>", "<option>a<b></option>");

    for (const QByteArray element : {"title", "textarea", "style", "xmp", "iframe", "noembed", "noframes",
                                     "script", "plaintext", "noscript"}) {
        for (const QByteArray foreign : {"svg", "math"}) {
            const QByteArray html =
                '<' + foreign + "><" + element + ">&amp;<b></" + element + "></" + foreign + '>';
            QTest::newRow(html.constData()) << html << QByteArray(html).replace("&amp;", "&");
        }
    }
    row("<SVG><title>a<b></title></svG><title><b></title>",
        "<svg><title>a<b></title></svg><title>{b></title>");
    row("<math><style><b></style></math><style><b></style>",
        "<math><style><b></style></math><style>{b></style>");
    row("<svg><svg></svg><![CDATA[a]]></svg><![CDATA[b]]>", "<svg><svg></svg>a</svg><!--[CDATA[b]]-->");
    row("<svg/><![CDATA[a]]><style><b></style>", "<svg/><!--[CDATA[a]]--><style>{b></style>");
    row("<svg><svg/><![CDATA[a]]></svg><![CDATA[b]]>", "<svg><svg/>a</svg><!--[CDATA[b]]-->");
    row("<svg><script/><b></svg>", "<svg><script/><b></svg>");
    row("<math></svg><![CDATA[a]]></math><![CDATA[b]]>", "<math></svg>a</math><!--[CDATA[b]]-->");
    row("<svg><math></math><![CDATA[a]]></svg><![CDATA[b]]>", "<svg><math></math>a</svg><!--[CDATA[b]]-->");
    row("<svg><math></svg><![CDATA[a]]>", "<svg><math></svg><!--[CDATA[a]]-->");
    row("<svg><script><!--<b>--></script></svg>", "<svg><script><!--<b>--></script></svg>");
    row("<svg x=\"/\"><![CDATA[a]]></svg>", "<svg x=\"/\">a</svg>");
    row("<math><![CDATA[a<b>&amp;]]></math>", "<math>a{b>&amp;</math>");
    row("<svga><![CDATA[a]]>", "<svga><!--[CDATA[a]]-->");
    row("</svg><![CDATA[a]]>", "</svg><!--[CDATA[a]]-->");
    row("</svg><svg><![CDATA[a]]>", "</svg><svg>a");
    row("<style><svg></style><![CDATA[a]]>", "<style>{svg></style><!--[CDATA[a]]-->");
    row("<!--<svg>--><![CDATA[a]]>", "<!--<svg>--><!--[CDATA[a]]-->");
    row("<svg><![CDATA[</svg>]]><![CDATA[a]]>", "<svg>{/svg>a");
}

void TestHtmlTokenizer::elementsWithOtherContent()
{
    QFETCH(QByteArray, html);
    QFETCH(QByteArray, expected);
    QCOMPARE(printed(html), expected);
    for (qsizetype length = 0; length <= html.size(); ++length)
        QCOMPARE(faultOf(QByteArrayView(html).first(length), HtmlContent::Data, {}), QByteArray());
}

void TestHtmlTokenizer::contentOfTexts()
{
    const auto contentBehind = [](const QByteArray& tags, const QByteArray& text) {
        const QByteArray html = tags + text;
        HtmlTokenizer tokenizer(html);
        HtmlToken token;
        while (tokenizer.next(token) && token.kind != HtmlTokenKind::Text) {
        }
        return token.content;
    };
    QCOMPARE(contentBehind("<p>", "a"), HtmlContent::Data);
    QCOMPARE(contentBehind("<noscript>", "a"), HtmlContent::Data);
    QCOMPARE(contentBehind("<TITLE>", "a"), HtmlContent::Rcdata);
    QCOMPARE(contentBehind("<textarea>", "a"), HtmlContent::Rcdata);
    for (const QByteArray element : {"style", "XMP", "iframe", "noembed", "noframes"})
        QCOMPARE(contentBehind('<' + element + '>', "a"), HtmlContent::Rawtext);
    QCOMPARE(contentBehind("<Script>", "a"), HtmlContent::ScriptData);
    QCOMPARE(contentBehind("<plaintext>", "a"), HtmlContent::Plaintext);
    QCOMPARE(contentBehind("<svg><style>", "a"), HtmlContent::Data);
    QCOMPARE(contentBehind("<svg>", "<![CDATA[a]]>"), HtmlContent::CdataSection);
    QCOMPARE(contentBehind("<title></title>", "a"), HtmlContent::Data);

    // Without a start tag no end tag is the right one.
    for (const HtmlContent content : {HtmlContent::Rcdata, HtmlContent::Rawtext, HtmlContent::ScriptData})
        QCOMPARE(printed("a</title></></script >", content), QByteArray("a{/title>{/>{/script >"));
}

// ---- Character references

void TestHtmlTokenizer::references_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("inText");
    QTest::addColumn<QByteArray>("inValue");
    const auto row = [](const QByteArray& text, const QByteArray& inText, const QByteArray& inValue) {
        QTest::newRow(text.left(40).constData()) << text << inText << inValue;
    };
    const auto same = [&](const QByteArray& text, const QByteArray& result) { row(text, result, result); };
    const auto none = [&](const QByteArray& text) { row(text, text, text); };

    // Names
    none("");
    none("no reference");
    same("&amp;", "&");
    same("&AMP;&AMP", "&&");
    same("&lt;&gt;&LT;&GT;", "<><>");
    same("&quot;&QUOT;&apos;", "\"\"'");
    same("&nbsp;&NonBreakingSpace;", "\xC2\xA0\xC2\xA0");
    same("&euro;&hearts;&there4;", "€♥∴");
    same("&Eacute;&eacute;", "Éé");
    same("&Afr;", "\xF0\x9D\x94\x84");
    same("&CounterClockwiseContourIntegral;", "∳");
    same("&amp;amp;", "&amp;"); // once only
    same("&amp;#65;", "&#65;");
    same("a&amp;b&lt;c", "a&b<c");

    // Without semicolon
    same("&amp", "&");
    same("&amp&amp", "&&");
    same("&lt&gt ", "<> ");
    same("&copy é", "© é");
    same("&copyé", "©é"); // only ASCII's letters count
    same("&copy_", "©_");
    same("&copy-1", "©-1");
    same("&copy,", "©,");
    row("&copy1", "©1", "&copy1");
    row("&copya", "©a", "&copya");
    row("&copyZ", "©Z", "&copyZ");
    row("&copy=1", "©=1", "&copy=1");
    row("?a=b&lt=c&amp=d", "?a=b<=c&=d", "?a=b&lt=c&amp=d");
    same("&copy;=1", "©=1");
    same("&copy;a", "©a");
    row("&copy&copy=", "©©=", "©&copy=");
    none("&euro");
    none("&euro=");
    none("&hearts ");
    none("&apos");

    // The longest name
    same("&notin;", "∉");
    row("&notin", "¬in", "&notin");
    row("&notit;", "¬it;", "&notit;");
    row("&noti", "¬i", "&noti");
    same("&not;in;", "¬in;");
    same("&not in;", "¬ in;");
    same("&sup1;&sup1&sup;", "¹¹⊃");
    none("&sup");
    row("&sup12", "¹2", "&sup12");
    same("&ltimes;", "⋉");
    row("&ltimes", "<imes", "&ltimes");
    same("&centerdot;", "·");
    row("&centerdo;", "¢erdo;", "&centerdo;");
    same("&frac12;&frac12", "½½");
    row("&frac125;", "½5;", "&frac125;");
    row("&ampamp;", "&amp;", "&ampamp;");

    // Two characters
    same("&NotEqualTilde;", "\xE2\x89\x82\xCC\xB8");
    same("&fjlig;", "fj");
    same("&nGt;", "\xE2\x89\xAB\xE2\x83\x92");
    same("&ThickSpace;", "\xE2\x81\x9F\xE2\x80\x8A");
    none("&NotEqualTilde");

    // No names
    none("&nosuch;");
    none("&nosuch");
    none("&Amp;");
    none("&aMP;");
    none("&eURO;");
    none("&x;");
    none("&");
    none("a&");
    none("&;");
    none("& amp;");
    none("&&");
    none("&1;");
    none("&é;");
    none("&am");
    none("&=");
    same("&&amp;", "&&");
    same("&nosuch&amp;", "&nosuch&");
    same("&;&amp;", "&;&");
    same("\xE9&amp;\xFF", "\xE9&\xFF"); // whatever bytes there are, they stay
    row("&copy\xE9", "©\xE9", "©\xE9");

    // Numbers
    same("&#65;", "A");
    same("&#x41;", "A");
    same("&#X41;", "A");
    same("&#00000000000000000000065;", "A");
    same("&#x00000000000000000000041;", "A");
    same("&#65", "A");
    same("&#x41", "A");
    same("&#65a", "Aa");
    same("&#65=", "A=");
    same("&#x41g", "Ag");
    same("&#x41=", "A=");
    same("&#X41X", "AX");
    same("&#65&#66", "AB");
    same("&#xe9;&#xE9;&#233;", "ééé");
    same("&#x20AC;&#8364;", "€€");
    same("&#x1F600;&#128512;", "\xF0\x9F\x98\x80\xF0\x9F\x98\x80");
    same("&#x7F;", "\x7F");
    same("&#x7FF;&#x800;", "\xDF\xBF\xE0\xA0\x80");
    same("&#9;&#10;&#13;&#32;", "\t\n\r ");
    same("&#1;&#x1F;", "\x01\x1F");
    same("&#38;amp;", "&amp;");
    same("&#38;#65;", "&#65;");

    // No digits
    none("&#");
    none("&#;");
    none("&#x");
    none("&#x;");
    none("&#X;");
    none("&#X");
    none("&#a;");
    none("&#xg;");
    none("&#-65;");
    none("&# 65;");
    none("&#x 41;");
    none("&#é;");
    same("&#&amp;", "&#&");
    same("&#x&#65;", "&#xA");

    // No characters
    same("&#0;", "�");
    same("&#0", "�");
    same("&#x0;", "�");
    same("&#000;", "�");
    same("&#xD7FF;", "\xED\x9F\xBF");
    same("&#xD800;", "�");
    same("&#xDBFF;", "�");
    same("&#xDC00;", "�");
    same("&#xDFFF;", "�");
    same("&#55296;", "�");
    same("&#xD83D;&#xDE00;", "��"); // no pair comes of two
    same("&#xE000;", "\xEE\x80\x80");
    same("&#xFDD0;", "\xEF\xB7\x90");
    same("&#xFFFE;&#xFFFF;", "\xEF\xBF\xBE\xEF\xBF\xBF");
    same("&#x10FFFF;", "\xF4\x8F\xBF\xBF");
    same("&#1114111;", "\xF4\x8F\xBF\xBF");
    same("&#x110000;", "�");
    same("&#1114112;", "�");

    // Numbers that don't fit into 32 or 64 bits must not become others.
    same("&#x7FFFFFFF;", "�");
    same("&#x80000041;", "�");
    same("&#xFFFFFFFF;", "�");
    same("&#x100000041;", "�");
    same("&#4294967361;", "�");
    same("&#x10000000000000041;", "�");
    same("&#18446744073709551681;", "�");
    same("&#" + QByteArray(5000, '9') + ";", "�");
    same("&#x" + QByteArray(5000, 'F') + "g", "�g");
    same("&#x1" + QByteArray(16, '0') + "41", "�");

    // The standard's table of what old pages mean
    constexpr std::pair<int, const char*> Table[] = {
        {0x80, "\xE2\x82\xAC"}, // U+20AC
        {0x82, "\xE2\x80\x9A"}, // U+201A
        {0x83, "\xC6\x92"},     // U+0192
        {0x84, "\xE2\x80\x9E"}, // U+201E
        {0x85, "\xE2\x80\xA6"}, // U+2026
        {0x86, "\xE2\x80\xA0"}, // U+2020
        {0x87, "\xE2\x80\xA1"}, // U+2021
        {0x88, "\xCB\x86"},     // U+02C6
        {0x89, "\xE2\x80\xB0"}, // U+2030
        {0x8A, "\xC5\xA0"},     // U+0160
        {0x8B, "\xE2\x80\xB9"}, // U+2039
        {0x8C, "\xC5\x92"},     // U+0152
        {0x8E, "\xC5\xBD"},     // U+017D
        {0x91, "\xE2\x80\x98"}, // U+2018
        {0x92, "\xE2\x80\x99"}, // U+2019
        {0x93, "\xE2\x80\x9C"}, // U+201C
        {0x94, "\xE2\x80\x9D"}, // U+201D
        {0x95, "\xE2\x80\xA2"}, // U+2022
        {0x96, "\xE2\x80\x93"}, // U+2013
        {0x97, "\xE2\x80\x94"}, // U+2014
        {0x98, "\xCB\x9C"},     // U+02DC
        {0x99, "\xE2\x84\xA2"}, // U+2122
        {0x9A, "\xC5\xA1"},     // U+0161
        {0x9B, "\xE2\x80\xBA"}, // U+203A
        {0x9C, "\xC5\x93"},     // U+0153
        {0x9E, "\xC5\xBE"},     // U+017E
        {0x9F, "\xC5\xB8"},     // U+0178
    };
    static_assert(std::size(Table) == 27);
    for (const auto& [number, text] : Table) {
        same("&#" + QByteArray::number(number) + ';', text);
        same("&#x" + QByteArray::number(number, 16) + ';', text);
    }
    same("&#x80", "\xE2\x82\xAC");
    // Those that the table leaves out, and what follows it
    same("&#x81;", "\xC2\x81");
    same("&#x8D;", "\xC2\x8D");
    same("&#x8F;", "\xC2\x8F");
    same("&#x90;", "\xC2\x90");
    same("&#x9D;", "\xC2\x9D");
    same("&#xA0;", "\xC2\xA0");
}

void TestHtmlTokenizer::references()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, inText);
    QFETCH(QByteArray, inValue);
    QCOMPARE(withoutReferences(text, ReferencePlace::Text), inText);
    QCOMPARE(withoutReferences(text, ReferencePlace::AttributeValue), inValue);
    // The same by way of tokens
    QCOMPARE(printed(text), visible(inText).replace('<', '{'));
    QCOMPARE(printed(text + "</title>", HtmlContent::Rcdata, "title"),
             inText.isEmpty() ? "</title>" : visible(inText).replace('<', '{') + "</title>");
    QCOMPARE(printed(text + "</style>", HtmlContent::Rawtext, "style"), text + "</style>");
    QCOMPARE(printed("<a b=\"" + text + "\">"), "<a b=\"" + inValue + "\">");
    QCOMPARE(printed("<a b='" + text + "'>"), "<a b=\"" + inValue + "\">");
}

// Each of these has no end, so that a search for it from every place would take hours.
void TestHtmlTokenizer::longTextsTakeLinearTime()
{
    QElapsedTimer watch;
    watch.start();
    for (const char* part :
         {"<",  "</",  "</a", "<!",  "<!--",      "<!--<!",         "<!--<script", "<a b=\"",  "<a b='",
          "&",  "&#",  "&#x", "&am", "]]",        "<svg><![CDATA[", "</title",     "</script", "-",
          "<a", "<a ", "<a/", "=",   "<!DOCTYPE", "<title>",        "<script>",    "\r",       "</>"}) {
        const QByteArray html = QByteArray(part).repeated(200'000);
        QCOMPARE(faultOf(html, HtmlContent::Data, {}), QByteArray());
        QCOMPARE(faultOf(html, HtmlContent::Rcdata, "title"), QByteArray());
        QCOMPARE(faultOf(html, HtmlContent::ScriptData, "script"), QByteArray());
        QCOMPARE(faultOf(html, HtmlContent::CdataSection, {}), QByteArray());
        withoutReferences(html, ReferencePlace::Text);
    }
    QVERIFY2(watch.elapsed() < 30'000, QByteArray::number(watch.elapsed()).constData());
}

QTEST_GUILESS_MAIN(TestHtmlTokenizer)
#include "tst_htmltokenizer.moc"
