// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ReducedListing.h"

#include "services/Elements.h"
#include "services/HtmlTokenizer.h"

namespace brindlemark {

namespace {

/// Puts words, line ends and tags together, with one space at most between two words.
class Reducer
{
public:
    Reducer(const QByteArray& html, bool keepsFewTags) : m_html(html), m_keepsFewTags(keepsFewTags) {}

    QByteArray run()
    {
        HtmlTokenizer tokenizer(m_html);
        for (HtmlToken token; tokenizer.next(token);) {
            if (token.kind == HtmlTokenKind::Text && token.content == HtmlContent::Data) {
                addText(m_html.sliced(token.inside.start, token.inside.length));
            } else if (token.kind == HtmlTokenKind::StartTag || token.kind == HtmlTokenKind::EndTag) {
                seeTag(token);
            }
        }
        return m_result;
    }

private:
    void seeTag(const HtmlToken& tag)
    {
        const QByteArray name = htmlName(m_html.sliced(tag.inside.start, tag.inside.length));
        const bool starts = tag.kind == HtmlTokenKind::StartTag;
        if (m_keepsFewTags && isFewTag(name)) {
            addTag((starts ? "<" : "</") + name + '>', name);
        } else if (const ElementKind* kind = elementKind(name); kind && !kind->isInline) {
            m_lineEnd = true;
            m_item = m_item || (starts && name == "li");
        }
    }

    void addTag(const QByteArray& tag, const QByteArray& name)
    {
        const ElementKind* kind = elementKind(name);
        if (kind && kind->isInline) {
            beginLine();
            addBlank();
        } else {
            m_lineEnd = false; // the tag ends the line
            m_blank = false;
            m_atStart = true;
        }
        m_result += tag;
    }

    void addText(const QByteArray& text)
    {
        for (const char c : text) {
            if (isHtmlBlank(c)) {
                m_blank = true;
                continue;
            }
            beginLine();
            addBlank();
            m_result += c;
            m_atStart = false;
        }
    }

    void addBlank()
    {
        if (m_blank && !m_atStart)
            m_result += ' ';
        m_blank = false;
    }

    /// Ends the line before, if one was begun.
    void beginLine()
    {
        if (m_lineEnd && !m_atStart)
            m_result += m_keepsFewTags ? "<br>" : "\r\n";
        if (m_lineEnd) {
            m_blank = false;
            m_atStart = true;
        }
        m_lineEnd = false;
        if (m_item && !m_keepsFewTags)
            m_result += "- ";
        m_item = false;
    }

    const QByteArray& m_html;
    const bool m_keepsFewTags;
    QByteArray m_result;
    bool m_atStart = true; // of a line
    bool m_blank = false;  // is to come before the next word
    bool m_lineEnd = false;
    bool m_item = false;
};

} // namespace

QByteArray withFewTags(const QByteArray& html)
{
    return Reducer(html, true).run();
}

QByteArray withoutTags(const QByteArray& html)
{
    return Reducer(html, false).run();
}

} // namespace brindlemark
