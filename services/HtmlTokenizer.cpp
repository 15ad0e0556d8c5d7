// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/HtmlTokenizer.h"

#include "services/CharacterReferences.h"

#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

constexpr char CdataStart[] = "[CDATA[";
constexpr char CdataEnd[] = "]]>";
constexpr char ReplacementUtf8[] = "\xEF\xBF\xBD";

constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

/// What ends the name of a tag.
constexpr bool endsName(char c)
{
    return isHtmlBlank(c) || c == '/' || c == '>';
}

bool startsWithName(QByteArrayView text, QByteArrayView name)
{
    return text.size() >= name.size() &&
           std::equal(name.begin(), name.end(), text.begin(), [](char n, char t) { return n == lower(t); });
}

TextRange between(qsizetype start, qsizetype end)
{
    return {start, end - start};
}

QByteArrayView in(QByteArrayView html, const TextRange& range)
{
    return html.sliced(range.start, range.length);
}

QByteArray withoutNuls(QByteArray text)
{
    return text.contains('\0') ? text.replace('\0', ReplacementUtf8) : text;
}

QByteArray withPlainLineEnds(QByteArrayView text)
{
    QByteArray result = text.toByteArray();
    return result.contains('\r') ? result.replace("\r\n", "\n").replace('\r', '\n') : result;
}

struct ElementContent
{
    QByteArrayView element;
    HtmlContent content;
};

/// The elements whose text is no markup.
constexpr std::array<ElementContent, 9> ElementContents = {{{"title", HtmlContent::Rcdata},
                                                            {"textarea", HtmlContent::Rcdata},
                                                            {"style", HtmlContent::Rawtext},
                                                            {"xmp", HtmlContent::Rawtext},
                                                            {"iframe", HtmlContent::Rawtext},
                                                            {"noembed", HtmlContent::Rawtext},
                                                            {"noframes", HtmlContent::Rawtext},
                                                            {"script", HtmlContent::ScriptData},
                                                            {"plaintext", HtmlContent::Plaintext}}};

} // namespace

HtmlTokenizer::HtmlTokenizer(QByteArrayView html, HtmlContent content, QByteArrayView element)
    : m_html(html), m_content(content), m_element(element.toByteArray())
{
}

bool HtmlTokenizer::next(HtmlToken& token)
{
    if (!holds(m_place))
        return false;
    token.attributes.clear();
    token.content = m_content;
    token.selfClosing = false;
    token.torn = false;
    const qsizetype start = m_place;
    if (m_content == HtmlContent::Data && startsMarkup(start)) {
        readMarkup(token);
    } else if (endTagAt(start)) {
        m_content = HtmlContent::Data;
        readTag(token);
    } else {
        readText(token);
    }
    token.whole = between(start, m_place);
    return true;
}

void HtmlTokenizer::readText(HtmlToken& token)
{
    token.kind = HtmlTokenKind::Text;
    const qsizetype end = endOfText();
    token.inside = between(m_place, end);
    m_place = end;
    if (m_content != HtmlContent::CdataSection)
        return;
    m_content = HtmlContent::Data;
    token.torn = !holds(end);
    if (!token.torn)
        m_place += qsizetype(std::size(CdataEnd)) - 1;
}

qsizetype HtmlTokenizer::endOfText() const
{
    switch (m_content) {
    case HtmlContent::Plaintext:
        return m_html.size();
    case HtmlContent::CdataSection: {
        const qsizetype end = m_html.indexOf(QByteArrayView(CdataEnd), m_place);
        return end < 0 ? m_html.size() : end;
    }
    case HtmlContent::ScriptData:
        return endOfScript();
    case HtmlContent::Data:
    case HtmlContent::Rcdata:
    case HtmlContent::Rawtext:
        break;
    }
    const bool data = m_content == HtmlContent::Data;
    qsizetype end = find('<', m_place);
    while (holds(end) && !(data ? startsMarkup(end) : endTagAt(end)))
        end = find('<', end + 1);
    return end;
}

/// Scripts that old browsers must not show stand in a comment; in there, "<script>" takes the next
/// "</script>" for itself. A comment ends at two dashes or more and ">", also with the dashes that begin it.
qsizetype HtmlTokenizer::endOfScript() const
{
    enum class Escape { None, Comment, ScriptInComment };
    Escape escape = Escape::None;
    int dashes = 0; // right before `i`
    for (qsizetype i = m_place; holds(i); ++i) {
        const char c = m_html[i];
        if (c == '-') {
            ++dashes;
            continue;
        }
        if (c == '>' && dashes >= 2)
            escape = Escape::None;
        dashes = 0;
        if (c != '<')
            continue;
        const QByteArrayView rest = m_html.sliced(i + 1);
        switch (escape) {
        case Escape::None:
            if (endTagAt(i))
                return i;
            if (rest.startsWith("!--")) {
                escape = Escape::Comment;
                i += 3;
                dashes = 2;
            }
            break;
        case Escape::Comment:
            if (endTagAt(i))
                return i;
            if (startsWithName(rest, "script") && rest.size() > 6 && endsName(rest[6])) {
                escape = Escape::ScriptInComment;
                i += 7;
            }
            break;
        case Escape::ScriptInComment:
            if (startsWithName(rest, "/script") && rest.size() > 7 && endsName(rest[7])) {
                escape = Escape::Comment;
                i += 8;
            }
            break;
        }
    }
    return m_html.size();
}

bool HtmlTokenizer::startsMarkup(qsizetype place) const
{
    if (at(place) != '<')
        return false;
    const char next = at(place + 1);
    return isLetter(next) || next == '!' || next == '?' || (next == '/' && holds(place + 2));
}

/// True for the end tag that ends the text of the present element.
bool HtmlTokenizer::endTagAt(qsizetype place) const
{
    if (m_element.isEmpty() || at(place) != '<' || at(place + 1) != '/')
        return false;
    const QByteArrayView rest = m_html.sliced(place + 2);
    return startsWithName(rest, m_element) && rest.size() > m_element.size() &&
           endsName(rest[m_element.size()]);
}

void HtmlTokenizer::readMarkup(HtmlToken& token)
{
    switch (const char next = at(m_place + 1)) {
    case '!':
        readDeclaration(token);
        break;
    case '?':
        readToAngle(token, HtmlTokenKind::Comment, m_place + 1);
        break;
    default:
        if (next != '/' || isLetter(at(m_place + 2))) {
            readTag(token);
        } else if (at(m_place + 2) == '>') {
            token.kind = HtmlTokenKind::Dropped;
            token.inside = {m_place, 3};
            m_place += 3;
        } else {
            readToAngle(token, HtmlTokenKind::Comment, m_place + 2);
        }
    }
}

void HtmlTokenizer::readDeclaration(HtmlToken& token)
{
    const QByteArrayView rest = m_html.sliced(m_place + 2);
    if (rest.startsWith("--")) {
        readComment(token);
    } else if (startsWithName(rest, "doctype")) {
        readToAngle(token, HtmlTokenKind::Doctype, m_place + 9);
    } else if (!m_foreign.isEmpty() && rest.startsWith(CdataStart)) {
        m_content = HtmlContent::CdataSection;
        token.content = m_content;
        m_place += 2 + qsizetype(std::size(CdataStart)) - 1;
        readText(token);
    } else {
        readToAngle(token, HtmlTokenKind::Comment, m_place + 2);
    }
}

void HtmlTokenizer::readToAngle(HtmlToken& token, HtmlTokenKind kind, qsizetype inside)
{
    token.kind = kind;
    const qsizetype end = find('>', inside);
    token.inside = between(inside, end);
    token.torn = !holds(end);
    m_place = token.torn ? end : end + 1;
}

/// A comment ends at "-->" and at "--!>", and at once when it begins with ">" or "->".
void HtmlTokenizer::readComment(HtmlToken& token)
{
    token.kind = HtmlTokenKind::Comment;
    const qsizetype start = m_place + 4;
    const QByteArrayView rest = m_html.sliced(start);
    for (const QByteArrayView abrupt : {QByteArrayView(">"), QByteArrayView("->")}) {
        if (rest.startsWith(abrupt)) {
            token.inside = {start, 0};
            m_place = start + abrupt.size();
            return;
        }
    }
    for (qsizetype i = find('-', start); holds(i); i = find('-', i + 1)) {
        if (at(i + 1) != '-')
            continue;
        const qsizetype end = at(i + 2) == '!' ? i + 3 : i + 2;
        if (at(end) == '>') {
            token.inside = between(start, i);
            m_place = end + 1;
            return;
        }
    }
    token.torn = true;
    m_place = m_html.size();
    // An end that had begun is no part of the text.
    qsizetype begun = 0;
    if (rest.endsWith("--!")) {
        begun = 3;
    } else if (rest.endsWith("--")) {
        begun = 2;
    } else if (rest.endsWith('-')) {
        begun = 1;
    }
    token.inside = {start, rest.size() - begun};
}

void HtmlTokenizer::readTag(HtmlToken& token)
{
    const qsizetype start = m_place;
    const bool ends = at(start + 1) == '/';
    token.kind = ends ? HtmlTokenKind::EndTag : HtmlTokenKind::StartTag;
    const qsizetype name = start + (ends ? 2 : 1);
    m_place = name;
    while (holds(m_place) && !endsName(m_html[m_place]))
        ++m_place;
    token.inside = between(name, m_place);
    if (readAttributes(token)) {
        followElement(token);
    } else {
        token.kind = HtmlTokenKind::Dropped;
        token.inside = between(start, m_place);
        token.torn = true;
        token.attributes.clear();
    }
}

/// Reads up to and with the tag's ">"; false where the text ends before it.
bool HtmlTokenizer::readAttributes(HtmlToken& token)
{
    while (holds(m_place)) {
        const char c = m_html[m_place];
        if (c == '>') {
            ++m_place;
            return true;
        }
        if (c == '/' && at(m_place + 1) == '>') {
            token.selfClosing = true;
            m_place += 2;
            return true;
        }
        if (c == '/' || isHtmlBlank(c)) {
            ++m_place;
        } else {
            token.attributes.push_back(readAttribute());
        }
    }
    return false;
}

HtmlAttribute HtmlTokenizer::readAttribute()
{
    HtmlAttribute attribute;
    const qsizetype start = m_place;
    do { // a "=" at its beginning belongs to the name
        ++m_place;
    } while (holds(m_place) && !endsName(m_html[m_place]) && m_html[m_place] != '=');
    attribute.name = between(start, m_place);
    attribute.value = {m_place, 0};
    qsizetype next = m_place;
    while (isHtmlBlank(at(next)))
        ++next;
    if (at(next) == '=') {
        m_place = next + 1;
        readValue(attribute);
    }
    attribute.whole = between(start, m_place);
    return attribute;
}

void HtmlTokenizer::readValue(HtmlAttribute& attribute)
{
    while (isHtmlBlank(at(m_place)))
        ++m_place;
    const char first = at(m_place);
    attribute.has = first != '>';
    if (first == '"' || first == '\'') {
        attribute.quote = first;
        const qsizetype end = find(first, m_place + 1);
        attribute.value = between(m_place + 1, end);
        m_place = std::min(end + 1, m_html.size());
    } else {
        const qsizetype start = m_place;
        while (holds(m_place) && m_html[m_place] != '>' && !isHtmlBlank(m_html[m_place]))
            ++m_place;
        attribute.value = between(start, m_place);
    }
}

/// What a start tag makes of the text behind it, as a browser's tree would tell.
void HtmlTokenizer::followElement(const HtmlToken& tag)
{
    const QByteArrayView name = in(m_html, tag.inside);
    const bool starts = tag.kind == HtmlTokenKind::StartTag;
    if (!m_foreign.isEmpty()) {
        if (!isHtmlName(name, m_foreign) || tag.selfClosing)
            return;
        m_depth += starts ? 1 : -1;
        if (m_depth == 0)
            m_foreign.clear();
        return;
    }
    if (!starts)
        return;
    for (const ElementContent& content : ElementContents) {
        if (isHtmlName(name, content.element)) {
            m_content = content.content;
            m_element = content.element.toByteArray();
            return;
        }
    }
    for (const QByteArrayView foreign : {QByteArrayView("svg"), QByteArrayView("math")}) {
        if (isHtmlName(name, foreign) && !tag.selfClosing) {
            m_foreign = foreign.toByteArray();
            m_depth = 1;
        }
    }
}

qsizetype HtmlTokenizer::find(char c, qsizetype from) const
{
    const qsizetype found = m_html.indexOf(c, from);
    return found < 0 ? m_html.size() : found;
}

QByteArray htmlName(QByteArrayView name)
{
    QByteArray result = name.toByteArray();
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return withoutNuls(result);
}

bool isHtmlName(QByteArrayView text, QByteArrayView name)
{
    return text.size() == name.size() && startsWithName(text, name);
}

QByteArray htmlText(QByteArrayView html, const HtmlToken& text)
{
    QByteArray plain = withPlainLineEnds(in(html, text.inside));
    switch (text.content) {
    case HtmlContent::Data:
        return withoutReferences(plain, ReferencePlace::Text);
    case HtmlContent::CdataSection:
        return plain;
    case HtmlContent::Rcdata:
        return withoutReferences(withoutNuls(plain), ReferencePlace::Text);
    case HtmlContent::Rawtext:
    case HtmlContent::ScriptData:
    case HtmlContent::Plaintext:
        break;
    }
    return withoutNuls(plain);
}

QByteArray htmlValue(QByteArrayView html, const HtmlAttribute& attribute)
{
    return withoutReferences(withoutNuls(withPlainLineEnds(in(html, attribute.value))),
                             ReferencePlace::AttributeValue);
}

QByteArray htmlComment(QByteArrayView html, const HtmlToken& comment)
{
    return withoutNuls(withPlainLineEnds(in(html, comment.inside)));
}

const HtmlAttribute* findAttribute(QByteArrayView html, const HtmlToken& tag, QByteArrayView name)
{
    const auto found =
        std::find_if(tag.attributes.begin(), tag.attributes.end(),
                     [&](const HtmlAttribute& a) { return isHtmlName(in(html, a.name), name); });
    return found == tag.attributes.end() ? nullptr : &*found;
}

std::optional<QByteArray> attributeValue(QByteArrayView html, const HtmlToken& tag, QByteArrayView name)
{
    const HtmlAttribute* attribute = findAttribute(html, tag, name);
    return attribute ? std::optional(htmlValue(html, *attribute)) : std::nullopt;
}

namespace {

/// Reads what follows "<!DOCTYPE", by the states 13.2.5.53 to 68.
class DoctypeReader
{
public:
    DoctypeReader(QByteArrayView text, bool torn) : m_text(text), m_torn(torn) {}

    HtmlDoctype read()
    {
        HtmlDoctype doctype;
        readParts(doctype);
        return doctype;
    }

private:
    void readParts(HtmlDoctype& doctype)
    {
        skipBlanks();
        doctype.forcesQuirks = true; // unless it comes to a good end
        if (m_text.isEmpty())
            return;
        const auto* end = std::find_if(m_text.begin(), m_text.end(), isHtmlBlank);
        doctype.name = htmlName(take(end - m_text.begin()));
        if (endsWell(doctype))
            return;
        const bool isPublic = startsWithName(m_text, "public");
        if (!isPublic && !startsWithName(m_text, "system"))
            return;
        take(6);
        skipBlanks();
        if (!readQuoted(isPublic ? doctype.publicId : doctype.systemId))
            return;
        if (endsWell(doctype))
            return;
        if (isPublic && (!readQuoted(doctype.systemId) || endsWell(doctype)))
            return;
        doctype.forcesQuirks = false; // whatever else stands behind the system's address
    }

    /// True at the end; a good one takes the quirks back.
    bool endsWell(HtmlDoctype& doctype)
    {
        skipBlanks();
        if (!m_text.isEmpty())
            return false;
        doctype.forcesQuirks = m_torn;
        return true;
    }

    bool readQuoted(std::optional<QByteArray>& id)
    {
        if (!m_text.startsWith('"') && !m_text.startsWith('\''))
            return false;
        const char quote = m_text.front();
        take(1);
        const qsizetype end = m_text.indexOf(quote);
        id = withoutNuls(withPlainLineEnds(take(end < 0 ? m_text.size() : end)));
        if (end >= 0)
            take(1);
        return end >= 0;
    }

    QByteArrayView take(qsizetype length)
    {
        const QByteArrayView taken = m_text.first(length);
        m_text = m_text.sliced(length);
        return taken;
    }

    void skipBlanks()
    {
        while (!m_text.isEmpty() && isHtmlBlank(m_text.front()))
            take(1);
    }

    QByteArrayView m_text;
    bool m_torn;
};

} // namespace

HtmlDoctype htmlDoctype(QByteArrayView html, const HtmlToken& doctype)
{
    return DoctypeReader(in(html, doctype.inside), doctype.torn).read();
}

} // namespace brindlemark
