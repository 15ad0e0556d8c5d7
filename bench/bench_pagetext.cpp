// SPDX-License-Identifier: GPL-3.0-or-later

// What is found in the bytes of a page, without a window: the stretches of its highlight, a part of a
// listing, the style, the generator tag, the tokens, what is offered, what a check finds. Beside the same
// bytes read once.

#include "Measure.h"
#include "check/ListingCheck.h"
#include "check/PlacedSource.h"
#include "services/HtmlTokenizer.h"
#include "shell/GeneratorTag.h"
#include "shell/HighlightRuns.h"
#include "shell/ListingParts.h"
#include "shell/TagOffers.h"

#include <cstring>

using namespace brindlemark;

namespace {

/// A page with nine tags and two quoted values in each line of 120 bytes, and all that is looked for at its
/// end.
QByteArray page(qsizetype size)
{
    const QByteArray line =
        QByteArray("<TR><TD bgcolor=\"#FFFFFF\" align=center><FONT face=\"Arial\" size=2><B>a "
                   "price of 12.50</B></FONT></TD></TR>\r\n");
    const MarkerPair& title = markers(Region::Title);
    return line.repeated(size / line.size()) + StyleMarkers.at(StyleCount - 1).toByteArray() +
           title.opening.toByteArray() + "<B>Old wall clock</B>" + title.closing.toByteArray() +
           "<META content=\"An engine\" name=GENERATOR>";
}

void walkHighlight(const QByteArray& text)
{
    constexpr HighlightColors Colors = {.tags = 1, .values = 2, .comments = 3, .scripts = 4, .text = 5};
    qsizetype tagBytes = 0;
    highlightRuns(text, Colors, [&](const ColorRun& run, double) {
        if (run.color == Colors.tags)
            tagBytes += run.range.length;
    });
    require(tagBytes > text.size() / 2, "the tags aren't coloured");
}

void findPart(const QByteArray& text)
{
    const auto part = findRegion(text, Region::Title);
    require(part && text.sliced(part->start, part->length) == "<B>Old wall clock</B>", "a wrong part");
}

void findStyle(const QByteArray& text)
{
    require(listingStyle(text, 0) == 3, "a wrong style");
}

void stampTag(const QByteArray& text)
{
    require(stamped(text).endsWith("\"Brindlemark 1.0\" name=GENERATOR>"), "the tag isn't stamped");
}

void readTokens(const QByteArray& text)
{
    HtmlTokenizer tokenizer(text);
    qsizetype tags = 0;
    for (HtmlToken token; tokenizer.next(token);)
        tags += token.kind == HtmlTokenKind::StartTag ? 1 : 0;
    require(tags > text.size() / 60, "tags are missing");
}

void checkPage(const QByteArray& text)
{
    const CheckReport report = checkListing(text, CheckLimits());
    require(report.words > text.size() / 60, "words are missing");
}

void placeTags(const QByteArray& text)
{
    require(withPlaces(text).size() > text.size(), "no tag has a place");
}

void offerAttributes(const QByteArray& text)
{
    const QByteArray torn = text + "<TD w";
    require(offersAt(torn, torn.size()).has_value(), "nothing is offered");
}

void offerEndTags(const QByteArray& text)
{
    const QByteArray torn = text + "<B></";
    require(offersAt(torn, torn.size()).has_value(), "nothing is offered");
}

struct Operation
{
    const char* name;
    void (*run)(const QByteArray& text);
    double most; // ms
    qsizetype size = 10'000'000;
};

constexpr Operation Operations[] = {
    {"Highlight, 10 MB", walkHighlight, 1000},
    {"Part of a listing, 10 MB", findPart, 100},
    {"Style of a listing, 10 MB", findStyle, 100},
    {"Generator stamp, 10 MB", stampTag, 100},
    {"Tokens, 1 MB", readTokens, 15, 1'000'000},
    {"Places of tags for the live view, 100 KB", placeTags, 5, 100'000},
    {"Attributes offered in a tag, 100 KB", offerAttributes, 1, 100'000},
    {"End tags offered, 100 KB", offerEndTags, 1, 100'000},
    {"Check of a listing, 1 MB", checkPage, 100, 1'000'000},
};

} // namespace

int main()
{
    for (const Operation& operation : Operations) {
        const QByteArray text = page(operation.size);
        measure({"Text of a page",
                 operation.name,
                 {.most = operation.most},
                 {{Role::Ours, "bytes searched", timed([&] { operation.run(text); })},
                  {Role::Limit, "memory read once",
                   batched([&] { keep(std::memchr(text.constData(), '\0', size_t(text.size()))); })}}});
    }
}
