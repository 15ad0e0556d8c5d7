// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/DescriptionHtml.h"

#include "services/CharacterReferences.h"
#include "services/Elements.h"
#include "services/HtmlTokenizer.h"

namespace brindlemark {

namespace {

/// Whether a "&" begins a reference.
bool isReference(QByteArrayView text)
{
    return withoutReferences(text, ReferencePlace::Text) != text.toByteArray();
}

class Description
{
public:
    explicit Description(const QByteArray& text) : m_text(text) {}

    QByteArray asTyped()
    {
        HtmlTokenizer tokenizer(m_text);
        for (HtmlToken token; tokenizer.next(token);) {
            const QByteArrayView source =
                QByteArrayView(m_text).sliced(token.whole.start, token.whole.length);
            if (isMarkup(token)) {
                m_result += source;
            } else {
                addText(source);
            }
        }
        return m_result;
    }

private:
    /// Tags of HTML and comments; "<3" is text already, and so is meant what looks like a tag of no known
    /// name.
    bool isMarkup(const HtmlToken& token)
    {
        if (token.kind == HtmlTokenKind::Comment)
            return !token.torn && m_text.sliced(token.whole.start).startsWith("<!--");
        if (token.kind != HtmlTokenKind::StartTag && token.kind != HtmlTokenKind::EndTag)
            return false;
        const ElementKind* kind =
            elementKind(htmlName(QByteArrayView(m_text).sliced(token.inside.start, token.inside.length)));
        if (kind)
            m_endsLine = !kind->isInline;
        return kind;
    }

    void addText(QByteArrayView text)
    {
        for (qsizetype i = 0; i < text.size(); ++i) {
            const char c = text[i];
            if (c == '\n' || (c == '\r' && !text.sliced(i).startsWith("\r\n"))) {
                addLineEnd();
            } else if (c != '\r' && !isHtmlBlank(c)) {
                m_endsLine = false;
            }
            switch (c) {
            case '<':
                m_result += "&lt;";
                break;
            case '>':
                m_result += "&gt;";
                break;
            case '&':
                m_result +=
                    isReference(text.sliced(i, std::min<qsizetype>(40, text.size() - i))) ? "&" : "&amp;";
                break;
            default:
                m_result += c;
            }
        }
    }

    /// In front of the line's end, of which a CR is there already.
    void addLineEnd()
    {
        if (!m_endsLine)
            m_result.insert(m_result.endsWith('\r') ? m_result.size() - 1 : m_result.size(), "<BR>");
        m_endsLine = false; // another one is an empty line
    }

    const QByteArray& m_text;
    QByteArray m_result;
    bool m_endsLine = false; // a block or a BR stands in front of what comes
};

} // namespace

QString descriptionAsTyped(const QString& text)
{
    return QString::fromUtf8(Description(text.toUtf8()).asTyped());
}

} // namespace brindlemark
