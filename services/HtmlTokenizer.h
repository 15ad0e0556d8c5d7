// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArray>
#include <QByteArrayView>
#include <optional>
#include <vector>

// The tokeniser of the HTML standard (html.spec.whatwg.org, 13.2.5), over the bytes of a text in UTF-8 or in
// any other encoding that keeps ASCII. It repairs nothing and builds no tree: each byte belongs to one token,
// the tokens follow one another, and all that they tell are places in the text. What a place means, with
// lower-case names and without character references, is told by the functions below the class.

namespace brindlemark {

/// What a text is, which decides what has a meaning in it.
enum class HtmlContent {
    Data,         ///< tags, comments and character references
    Rcdata,       ///< character references, and the end tag of its element (TITLE, TEXTAREA)
    Rawtext,      ///< the end tag of its element (STYLE, XMP, IFRAME, NOEMBED, NOFRAMES)
    ScriptData,   ///< the end tag of its element (SCRIPT), but for one in a comment behind another start tag
    Plaintext,    ///< nothing (PLAINTEXT)
    CdataSection, ///< its end; only within SVG and MATH
};

enum class HtmlTokenKind {
    Text,
    StartTag,
    EndTag,
    Comment, ///< also what browsers take for one: "<!x>", "<?x>", "</1>"
    Doctype,
    Dropped, ///< of which a browser makes nothing: "</>", and a tag that the end of the text has torn
};

struct HtmlAttribute
{
    TextRange whole; ///< with the value and its quotes
    TextRange name;
    TextRange value;  ///< without quotes; empty, at the end of `whole`, where there is none
    char quote = 0;   ///< '"', '\'', or 0 for a value without quotes and for none
    bool has = false; ///< whether there is a "=" with a value behind it, if only an empty one in quotes

    bool operator==(const HtmlAttribute&) const = default;
};

struct HtmlToken
{
    HtmlTokenKind kind = HtmlTokenKind::Text;
    HtmlContent content = HtmlContent::Data; ///< of what kind the text was in which the token stands
    TextRange whole;
    /// A tag's name, the text of a comment or of a CDATA section, what follows "<!DOCTYPE"; else as `whole`.
    TextRange inside;
    bool selfClosing = false;              ///< a tag that ends with "/>"
    bool torn = false;                     ///< the text has ended before the token had
    std::vector<HtmlAttribute> attributes; ///< all, also those of end tags and those that are there twice

    bool operator==(const HtmlToken&) const = default;
};

/// Reads one token after the other. The text must outlive the tokeniser. The time grows with the length of
/// the text.
class HtmlTokenizer
{
public:
    /// A text is `Data` unless it comes from within an element: then that one's name, in lower case, tells
    /// which end tag ends it.
    explicit HtmlTokenizer(QByteArrayView html, HtmlContent content = HtmlContent::Data,
                           QByteArrayView element = {});

    /// Reads the next token into `token`; false at the end of the text. What stands behind a start tag is
    /// taken for what a browser without scripts takes it for, by the element's name; NOSCRIPT has markup in
    /// it. Within SVG and MATH, up to their end tag, elements have no such texts, and there are CDATA
    /// sections.
    bool next(HtmlToken& token);

private:
    void readText(HtmlToken& token);
    void readMarkup(HtmlToken& token);
    void readTag(HtmlToken& token);
    bool readAttributes(HtmlToken& token);
    HtmlAttribute readAttribute();
    void readValue(HtmlAttribute& attribute);
    void readDeclaration(HtmlToken& token);
    void readComment(HtmlToken& token);
    void readToAngle(HtmlToken& token, HtmlTokenKind kind, qsizetype inside);
    void followElement(const HtmlToken& tag);
    qsizetype endOfText() const;
    qsizetype endOfScript() const;
    bool endTagAt(qsizetype place) const;
    bool startsMarkup(qsizetype place) const;

    char at(qsizetype place) const { return place < m_html.size() ? m_html[place] : '\0'; }
    bool holds(qsizetype place) const { return place < m_html.size(); }
    /// Where it stands next, or the text's end.
    qsizetype find(char c, qsizetype from) const;

    QByteArrayView m_html;
    qsizetype m_place = 0;
    HtmlContent m_content;
    QByteArray m_element; // whose end tag ends a text that is no data
    QByteArray m_foreign; // "svg" or "math" within one
    int m_depth = 0;      // how many of them are open
};

/// What parts the words of a tag.
constexpr bool isHtmlBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

/// The name of an element or attribute as browsers keep it: ASCII letters small, a NUL as U+FFFD.
QByteArray htmlName(QByteArrayView name);

/// True if that name is `name`, which is in lower case.
bool isHtmlName(QByteArrayView text, QByteArrayView name);

/// A token's text as browsers keep it: line ends as LF, character references resolved where they count, and
/// NUL as U+FFFD where the standard says so.
QByteArray htmlText(QByteArrayView html, const HtmlToken& text);

/// An attribute's value in the same way.
QByteArray htmlValue(QByteArrayView html, const HtmlAttribute& attribute);

/// The text of a comment in the same way.
QByteArray htmlComment(QByteArrayView html, const HtmlToken& comment);

/// The first attribute of that name, which is in lower case: the one that counts. Null where there is none.
const HtmlAttribute* findAttribute(QByteArrayView html, const HtmlToken& tag, QByteArrayView name);

/// The value of the first attribute of that name, as `htmlValue`; nothing where there is no such attribute.
std::optional<QByteArray> attributeValue(QByteArrayView html, const HtmlToken& tag, QByteArrayView name);

/// What a doctype says.
struct HtmlDoctype
{
    std::optional<QByteArray> name;
    std::optional<QByteArray> publicId;
    std::optional<QByteArray> systemId;
    bool forcesQuirks = false;

    bool operator==(const HtmlDoctype&) const = default;
};

HtmlDoctype htmlDoctype(QByteArrayView html, const HtmlToken& doctype);

} // namespace brindlemark
