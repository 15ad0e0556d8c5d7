// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "services/HtmlTokenizer.h"

#include <utility>

using namespace brindlemark;

namespace {

bool liesIn(const TextRange& inner, const TextRange& outer)
{
    return inner.length >= 0 && inner.start >= outer.start && inner.end() <= outer.end();
}

void holdToken(const QByteArray& html, const HtmlToken& token)
{
    hold(token.whole.length > 0, "a token has a length");
    hold(liesIn(token.inside, token.whole), "what a token says stands in it");
    qsizetype from = token.inside.start;
    for (const HtmlAttribute& attribute : token.attributes) {
        hold(attribute.whole.start >= from && liesIn(attribute.whole, token.whole),
             "attributes follow one another");
        hold(attribute.name.length > 0 && liesIn(attribute.name, attribute.whole) &&
                 liesIn(attribute.value, attribute.whole),
             "name and value stand in their attribute");
        hold(attribute.has || attribute.value.length == 0, "only what is there has a length");
        static_cast<void>(htmlValue(html, attribute));
        from = attribute.whole.end();
    }
    switch (token.kind) {
    case HtmlTokenKind::Text:
        static_cast<void>(htmlText(html, token));
        break;
    case HtmlTokenKind::Comment:
        static_cast<void>(htmlComment(html, token));
        break;
    case HtmlTokenKind::Doctype:
        hold(!token.torn || htmlDoctype(html, token).forcesQuirks || htmlDoctype(html, token).name,
             "a torn doctype is no good one");
        break;
    case HtmlTokenKind::StartTag:
    case HtmlTokenKind::EndTag:
    case HtmlTokenKind::Dropped:
        break;
    }
}

/// A tag, comment or doctype says the same wherever it stands.
void holdAlone(const QByteArray& html, HtmlToken token)
{
    const qsizetype start = token.whole.start;
    HtmlToken alone;
    HtmlTokenizer(QByteArrayView(html).sliced(start)).next(alone);
    const auto shift = [start](TextRange& range) { range.start -= start; };
    shift(token.whole);
    shift(token.inside);
    for (HtmlAttribute& attribute : token.attributes) {
        shift(attribute.whole);
        shift(attribute.name);
        shift(attribute.value);
    }
    token.content = alone.content; // an end tag may have ended another one
    hold(alone == token, "a tag is the same wherever it stands");
}

} // namespace

/// A page: each byte has its token, and each token is what it would be alone.
void targets::tokens(const QByteArray& bytes)
{
    HtmlTokenizer tokenizer(bytes);
    qsizetype end = 0;
    for (HtmlToken token; tokenizer.next(token);) {
        hold(token.whole.start == end, "tokens follow one another");
        holdToken(bytes, token);
        if (token.kind != HtmlTokenKind::Text)
            holdAlone(bytes, token);
        end = token.whole.end();
    }
    hold(end == bytes.size(), "tokens are all of the text");
}
