// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check/ListingCheck.h"
#include "services/HtmlTokenizer.h"

namespace brindlemark {

/// A start or end tag, with its name as browsers keep it.
struct Tag
{
    const HtmlToken& token;
    QByteArray name;

    bool starts() const { return token.kind == HtmlTokenKind::StartTag; }
};

/// The page that is looked through, and what was found in it.
struct CheckedPage
{
    QByteArrayView html;
    const CheckLimits& limits;
    CheckProfile profile;
    QByteArray title; ///< see `listingTitle`
    std::vector<Finding> findings{};
    bool linksOpenBeside = false; ///< by a BASE tag
    bool picturesFit = false;     ///< by a style sheet

    QByteArrayView source(TextRange range) const { return html.sliced(range.start, range.length); }

    /// Keeps a finding, unless its rule doesn't count.
    void find(CheckRule rule, TextRange place, QByteArray what = {}, std::vector<TextEdit> mend = {})
    {
        if (limits.counts(rule) && profile <= ruleText(rule).last)
            findings.push_back({rule, place, std::move(what), std::move(mend)});
    }
};

/// What takes an attribute away, with the blanks in front of it.
TextEdit withoutAttribute(QByteArrayView html, const HtmlAttribute& attribute);
/// What writes an attribute behind a tag's name.
TextEdit withAttribute(const HtmlToken& tag, const QByteArray& attribute);

/// A width in pixels of the page: a number, or one with "px"; none for all else, such as "100%".
std::optional<int> pixels(QByteArrayView width);
/// Where the value of a property stands in a style attribute's text; nothing where it isn't there.
std::optional<TextRange> styleValue(QByteArrayView style, QByteArrayView property);
/// That value.
std::optional<QByteArray> styleProperty(QByteArrayView style, QByteArrayView property);

} // namespace brindlemark
