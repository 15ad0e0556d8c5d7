// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/TagPair.h"

#include "services/HtmlTokenizer.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace brindlemark {

namespace {

struct NamedTag
{
    TextRange whole;
    QByteArray name;
    bool opens = false;
};

std::optional<NamedTag> tagOf(QByteArrayView html, const HtmlToken& token)
{
    if (token.kind != HtmlTokenKind::StartTag && token.kind != HtmlTokenKind::EndTag)
        return std::nullopt;
    return NamedTag{token.whole, htmlName(html.sliced(token.inside.start, token.inside.length)),
                    token.kind == HtmlTokenKind::StartTag};
}

/// The last tag's partner among those in front of it.
std::vector<TextRange> pairBehind(const std::vector<NamedTag>& tags)
{
    const NamedTag& last = tags.back();
    int depth = 0;
    const auto partner = std::find_if(tags.rbegin(), tags.rend(), [&](const NamedTag& tag) {
        if (tag.name == last.name)
            depth += tag.opens ? -1 : 1;
        return depth == 0;
    });
    return partner == tags.rend() ? std::vector<TextRange>() : std::vector{partner->whole, last.whole};
}

} // namespace

std::vector<TextRange> tagPairAt(QByteArrayView html, qsizetype caret)
{
    HtmlTokenizer tokenizer(html);
    HtmlToken token;
    std::vector<NamedTag> tags; // up to the one at the caret
    while (tokenizer.next(token)) {
        if (std::optional<NamedTag> tag = tagOf(html, token))
            tags.push_back(std::move(*tag));
        if (caret < token.whole.end())
            break;
    }
    if (tags.empty() || caret > tags.back().whole.end())
        return {};
    if (!tags.back().opens)
        return pairBehind(tags);
    int depth = 1;
    while (tokenizer.next(token)) {
        const std::optional<NamedTag> tag = tagOf(html, token);
        if (!tag || tag->name != tags.back().name)
            continue;
        depth += tag->opens ? 1 : -1;
        if (depth == 0)
            return {tags.back().whole, tag->whole};
    }
    return {};
}

} // namespace brindlemark
