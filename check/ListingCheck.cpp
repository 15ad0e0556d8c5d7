// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ListingCheck.h"

#include "check/CheckedPage.h"
#include "check/StructureWatch.h"
#include "check/TagRules.h"
#include "check/TextWatch.h"
#include "services/Elements.h"
#include "services/Markers.h"
#include "shell/GeneratorTag.h"
#include "shell/ListingParts.h"
#include "source/TextEncoding.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <array>
#include <optional>

namespace brindlemark {

namespace {

constexpr QByteArrayView ViewportLine =
    "<META name=viewport content=\"width=device-width, initial-scale=1\">\r\n";
/// How the tag of a page's maker begins, in small letters.
constexpr QByteArrayView GeneratorBeginning = "<meta content=";
/// The attributes that say what a META tag is about.
constexpr std::array<QByteArrayView, 3> MetaNames = {"name", "http-equiv", "property"};
/// More bytes that are no characters are not told one by one.
constexpr int MostInvalidBytes = 100;

/// Whether nothing is seen of a text: blanks that do not break aren't either.
bool isBlankText(QByteArray text)
{
    return std::ranges::all_of(text.replace("\xC2\xA0", " "), isHtmlBlank);
}

/// How many bytes the character of UTF-8 at the beginning of a text has; 0 where there is none.
qsizetype characterLength(QByteArrayView text)
{
    const auto first = uchar(text.front());
    const qsizetype length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
    return length > 0 && length <= text.size() && text.first(length).isValidUtf8() ? length : 0;
}

/// Bytes that Windows-1252 leaves without a character.
bool isUndefined(char byte)
{
    static constexpr std::array<uchar, 5> Undefined = {0x81, 0x8D, 0x8F, 0x90, 0x9D};
    return std::ranges::find(Undefined, uchar(byte)) != Undefined.end();
}

/// Where a part of the listing stands, and whether anything is to be read there.
struct Part
{
    std::optional<TextRange> range;
    bool hasText = false;

    explicit Part(std::optional<TextRange> found) : range(found && found->length >= 0 ? found : std::nullopt)
    {
    }

    void seeText(TextRange text)
    {
        hasText = hasText || (range && text.start >= range->start && text.start < range->end());
    }
};

/// One walk over the tokens of a page.
class PageCheck
{
public:
    PageCheck(const QByteArray& html, const CheckLimits& limits, CheckProfile profile)
        : m_page{html, limits, profile, listingTitle(html)}, m_title(findRegion(html, Region::Title)),
          m_description(findRegion(html, Region::Description)), m_html(html)
    {
    }

    CheckReport run()
    {
        HtmlTokenizer tokenizer(m_page.html);
        for (HtmlToken token; tokenizer.next(token);)
            see(token);
        end();
        std::ranges::stable_sort(m_page.findings, {},
                                 [](const Finding& finding) { return finding.place.start; });
        return {std::move(m_page.findings), m_characters, m_html.size(), m_text.words()};
    }

private:
    void see(const HtmlToken& token)
    {
        switch (token.kind) {
        case HtmlTokenKind::StartTag:
        case HtmlTokenKind::EndTag:
            seeTag({token, htmlName(m_page.source(token.inside))});
            break;
        case HtmlTokenKind::Text:
            seeText(token);
            break;
        case HtmlTokenKind::Comment:
            seeComment(token);
            break;
        case HtmlTokenKind::Doctype:
            m_headPlace = std::max(m_headPlace, token.whole.end());
            break;
        case HtmlTokenKind::Dropped:
            if (token.torn)
                m_page.find(CheckRule::TornTag, token.whole);
            break;
        }
    }

    void seeTag(const Tag& tag)
    {
        m_structure.seeTag(tag);
        m_text.seeTag(tag);
        if (!tag.starts()) {
            if (tag.name == "script")
                endScript(tag.token.whole.end());
            if (tag.name == "h1")
                m_inHeading = false;
            m_inside.clear();
            return;
        }
        m_inside = tag.name;
        if (tag.name == "script")
            m_script = tag.token.whole;
        m_tags = true;
        m_inHeading = m_inHeading || tag.name == "h1";
        if (tag.name == "base") {
            m_page.linksOpenBeside =
                attributeValue(m_page.html, tag.token, "target").value_or(QByteArray()).toLower() == "_blank";
        }
        m_pictures = m_pictures || tag.name == "img";
        if (tag.name == "head" || tag.name == "html")
            m_headPlace = std::max(m_headPlace, tag.token.whole.end());
        if (tag.name == "meta")
            seeMeta(tag);
        seeTaken(tag);
        seeAttributes(m_page, tag);
        seeActiveContent(m_page, tag);
        seeAddresses(m_page, tag);
        seePicture(m_page, tag);
        seeTable(m_page, tag);
    }

    void seeMeta(const Tag& tag)
    {
        const auto value = [&](QByteArrayView name) {
            return attributeValue(m_page.html, tag.token, name).value_or(QByteArray()).toLower();
        };
        m_viewport = m_viewport || value("name").trimmed() == "viewport";
        seeMaker(tag);
        m_saysUtf8 =
            m_saysUtf8 || value("charset").trimmed() == "utf-8" || value("content").contains("charset=utf-8");
    }

    /// The tag of a page's maker is found by how it begins; one that is whole and says something else is
    /// none.
    void seeMaker(const Tag& meta)
    {
        const QByteArrayView source = m_page.source(meta.token.whole);
        if (m_tornMeta ||
            !isHtmlName(source.first(std::min(source.size(), GeneratorBeginning.size())), GeneratorBeginning))
            return;
        const bool isNamed = std::ranges::any_of(
            MetaNames, [&](QByteArrayView name) { return findAttribute(m_page.html, meta.token, name); });
        if (!isNamed || source.sliced(1).contains('<'))
            m_tornMeta = TextRange{meta.token.whole.start, GeneratorBeginning.size()};
    }

    /// In a profile that takes few tags or none, those that it doesn't take; each name once.
    void seeTaken(const Tag& tag)
    {
        const bool isTaken = m_page.profile == CheckProfile::Page ||
                             (m_page.profile == CheckProfile::FewTags && isFewTag(tag.name));
        if (isTaken || m_notTaken.contains(tag.name))
            return;
        m_notTaken.insert(tag.name);
        m_page.find(CheckRule::TagNotTaken, tag.token.whole, tag.name);
    }

    void endScript(qsizetype end)
    {
        if (!m_script)
            return;
        const TextRange whole = {m_script->start, end - m_script->start};
        m_page.find(CheckRule::Script, *m_script, {}, {{whole, {}}});
        m_script.reset();
    }

    void seeText(const HtmlToken& text)
    {
        if (m_inside == "title") {
            m_titleText = m_titleText || !isBlankText(htmlText(m_page.html, text));
        } else if (m_inside == "style") {
            seeStyle(text);
        }
        if (text.content != HtmlContent::Data)
            return;
        m_structure.seeText(text);
        m_text.seeText(text);
        if (isBlankText(htmlText(m_page.html, text)))
            return;
        m_headings = m_headings || m_inHeading;
        const QByteArrayView source = m_page.source(text.inside);
        const auto* first = std::ranges::find_if_not(source, isHtmlBlank);
        const TextRange seen = {text.inside.start + (first - source.begin()), 1};
        m_title.seeText(seen);
        m_description.seeText(seen);
    }

    void seeStyle(const HtmlToken& style)
    {
        static const QRegularExpression comment(QStringLiteral(R"(/\*.*?\*/)"),
                                                QRegularExpression::DotMatchesEverythingOption);
        const QString text = QString::fromLatin1(m_page.source(style.inside)).toLower().remove(comment);
        if (text.contains(QLatin1String("@import")))
            m_page.find(CheckRule::OutsideStyle, style.inside);
        static const QRegularExpression pictures(QStringLiteral(R"(\bimg\b[^{}]*\{[^}]*max-width)"));
        m_page.picturesFit = m_page.picturesFit || text.contains(pictures);
    }

    void seeComment(const HtmlToken& comment)
    {
        const bool isReal = m_page.source(comment.whole).startsWith("<!--");
        if (comment.torn)
            m_page.find(CheckRule::TornComment, isReal ? TextRange{comment.whole.start, 4} : comment.whole);
        if (isReal && m_page.source(comment.inside).contains("<!--"))
            m_page.find(CheckRule::CommentInComment, comment.whole);
        const QByteArray text = m_page.source(comment.whole).toByteArray().toLower();
        if (text.size() > LongestMarker)
            return;
        for (size_t i = 0; i < Markers.size(); ++i) {
            if (text == Markers[i].opening.toByteArray().toLower()) {
                tellUnpaired(i);
                m_markers[i] = comment.whole;
            } else if (text == Markers[i].closing.toByteArray().toLower()) {
                if (!m_markers[i]) {
                    m_page.find(CheckRule::UnpairedMarker, comment.whole,
                                m_page.source(comment.whole).toByteArray());
                }
                m_markers[i].reset();
            }
        }
    }

    /// An opening marker that stands alone.
    void tellUnpaired(size_t marker)
    {
        if (const auto& place = m_markers.at(marker))
            m_page.find(CheckRule::UnpairedMarker, *place, m_page.source(*place).toByteArray());
    }

    void end()
    {
        m_structure.end();
        if (m_script)
            m_page.find(CheckRule::Script, *m_script);
        for (size_t i = 0; i < m_markers.size(); ++i)
            tellUnpaired(i);
        if (m_tornMeta && findGeneratorTags(m_page.html).torn)
            m_page.find(CheckRule::TornGeneratorTag, *m_tornMeta);
        seeBytes();
        seeParts();
        if (m_tags && !m_viewport) {
            m_page.find(CheckRule::NoViewport, {m_headPlace, 0}, {},
                        {{{m_headPlace, 0}, ViewportLine.toByteArray()}});
        }
        if (m_pictures && m_text.words() < m_page.limits.fewWords)
            m_page.find(CheckRule::OnlyPictures, {0, 0}, QByteArray::number(m_text.words()));
        seeLength();
    }

    void seeParts()
    {
        if (m_title.range ? !m_title.hasText : m_tags && !m_titleText && !m_headings)
            m_page.find(CheckRule::NoTitle, m_title.range.value_or(TextRange()));
        if (m_description.range && !m_description.hasText)
            m_page.find(CheckRule::NoDescription, *m_description.range);
    }

    void seeLength()
    {
        const auto see = [&](CheckRule rule, qsizetype length, int limit) {
            if (limit > 0 && length > limit)
                m_page.find(rule, {0, 0}, QByteArray::number(length));
        };
        see(CheckRule::TooManyCharacters, m_characters, m_page.limits.mostCharacters);
        see(CheckRule::TooManyBytes, m_html.size(), m_page.limits.mostBytes);
    }

    /// Counts the characters. A page that isn't UTF-8 is one of Windows-1252, unless it says it were UTF-8,
    /// or holds characters of it.
    void seeBytes()
    {
        if (encodingOf(m_html) == TextEncoding::Utf8) {
            m_characters = m_html.size() - std::ranges::count_if(m_html, isContinuation);
            return;
        }
        m_characters = m_html.size();
        std::vector<TextRange> invalid;
        bool holdsUtf8 = m_saysUtf8;
        for (qsizetype i = 0; i < m_html.size();) {
            const qsizetype length = characterLength(m_page.html.sliced(i));
            holdsUtf8 = holdsUtf8 || length > 1;
            if (length == 0 && invalid.size() < MostInvalidBytes)
                invalid.push_back({i, 1});
            i += std::max<qsizetype>(length, 1);
        }
        for (const TextRange& place : invalid) {
            if (holdsUtf8 || isUndefined(m_html[place.start]))
                m_page.find(CheckRule::InvalidBytes, place);
        }
    }

    static constexpr qsizetype LongestMarker = 40;

    CheckedPage m_page;
    StructureWatch m_structure{m_page};
    TextWatch m_text{m_page};
    Part m_title;
    Part m_description;
    const QByteArray& m_html;
    QByteArray m_inside; // the element whose start tag was seen last, until any end tag
    std::optional<TextRange> m_script;
    std::optional<TextRange> m_tornMeta;
    std::array<std::optional<TextRange>, Markers.size()> m_markers{}; // that wait for their other half
    QSet<QByteArray> m_notTaken;
    qsizetype m_headPlace = 0; // where a line of the head may stand
    qsizetype m_characters = 0;
    bool m_tags = false;
    bool m_inHeading = false;
    bool m_headings = false;
    bool m_pictures = false;
    bool m_titleText = false;
    bool m_viewport = false;
    bool m_saysUtf8 = false;
};

} // namespace

CheckReport checkListing(const QByteArray& html, const CheckLimits& limits, CheckProfile profile)
{
    return PageCheck(html, limits, profile).run();
}

std::vector<TextEdit> mendAll(const std::vector<Finding>& findings, CheckRule rule)
{
    std::vector<TextEdit> edits;
    std::for_each(findings.rbegin(), findings.rend(),
                  [&](const Finding& finding) { // what began last ends first
                      if (finding.rule == rule)
                          edits.insert(edits.end(), finding.mend.begin(), finding.mend.end());
                  });
    std::ranges::stable_sort(edits, {}, [](const TextEdit& edit) { return edit.range.start; });
    return edits;
}

std::vector<TextEdit> phoneEdits(const QByteArray& html, const CheckLimits& limits)
{
    static constexpr CheckRule Rules[] = {CheckRule::NoViewport, CheckRule::NoAlt, CheckRule::WidePicture,
                                          CheckRule::NoPhoneWidth, CheckRule::WideTable};
    CheckLimits all = limits;
    all.off.fill(false);
    const CheckReport report = checkListing(html, all);
    std::vector<TextEdit> edits;
    for (const CheckRule rule : Rules)
        std::ranges::move(mendAll(report.findings, rule), std::back_inserter(edits));
    std::ranges::stable_sort(edits, {}, [](const TextEdit& edit) { return edit.range.start; });
    return edits;
}

namespace {

/// The text of a kind in a stretch of a page, as it stands there.
QByteArray textIn(QByteArrayView html, HtmlContent content)
{
    QByteArray text;
    HtmlTokenizer tokenizer(html);
    for (HtmlToken token; tokenizer.next(token);) {
        if (token.kind != HtmlTokenKind::Text || token.content != content)
            continue;
        text += html.sliced(token.inside.start, token.inside.length);
        text += ' ';
        if (content == HtmlContent::Rcdata)
            break; // TITLE stands in front of any TEXTAREA
    }
    return text.simplified();
}

} // namespace

QByteArray listingTitle(const QByteArray& html)
{
    const auto region = findRegion(html, Region::Title);
    QByteArray title;
    if (region && region->length > 0)
        title = textIn(QByteArrayView(html).sliced(region->start, region->length), HtmlContent::Data);
    if (title.isEmpty())
        title = textIn(html, HtmlContent::Rcdata);
    return title.replace('"', "&quot;");
}

} // namespace brindlemark
