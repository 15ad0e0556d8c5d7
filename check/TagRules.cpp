// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/TagRules.h"

#include "services/Elements.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <cctype>
#include <span>

namespace brindlemark {

namespace {

constexpr QByteArrayView Phone = "max-width:100%;height:auto";

bool isOneOf(QByteArrayView name, std::span<const QByteArrayView> names)
{
    return std::ranges::find(names, name) != names.end();
}

struct AddressAttribute
{
    QByteArrayView name;
    bool loads; ///< what it names comes into the page
};

constexpr std::array<AddressAttribute, 8> AddressAttributes = {{{"src", true},
                                                                {"background", true},
                                                                {"lowsrc", true},
                                                                {"data", true},
                                                                {"poster", true},
                                                                {"href", false},
                                                                {"action", false},
                                                                {"formaction", false}}};

/// Whether the quote that ended a value was meant to begin the next one: "<a href="x>text</a><img src=",
/// "<img src="x alt="y".
bool isQuoteTorn(const CheckedPage& page, const HtmlAttribute& attribute)
{
    const QByteArrayView value = page.source(attribute.value);
    if (attribute.quote == 0 || !value.endsWith('=') || attribute.whole.end() == page.html.size())
        return false;
    const char next = page.html[attribute.whole.end()];
    return value.contains('<') || (!isHtmlBlank(next) && next != '/' && next != '>');
}

bool startsWithAny(QByteArrayView text, std::span<const QByteArrayView> beginnings)
{
    return std::ranges::any_of(beginnings,
                               [&](QByteArrayView beginning) { return text.startsWith(beginning); });
}

/// The scheme of an address as browsers read it, which pass over blanks and control characters.
QByteArray withoutBlanks(const QByteArray& address)
{
    QByteArray result;
    std::ranges::copy_if(address, std::back_inserter(result), [](char c) { return uchar(c) > 0x20; });
    return result.toLower();
}

bool isScript(const QByteArray& address)
{
    static constexpr QByteArrayView Schemes[] = {"javascript:", "vbscript:", "data:text/html", "livescript:"};
    return startsWithAny(withoutBlanks(address), Schemes);
}

/// The computer that an address names; empty where it names none.
QByteArray hostOf(const QByteArray& address)
{
    const qsizetype start = address.indexOf("//");
    if (start < 0)
        return {};
    const QByteArray rest = address.mid(start + 2);
    if (rest.startsWith('[')) // a number of the newer kind, with colons in it
        return rest.first(rest.indexOf(']') + 1);
    const auto end =
        std::ranges::find_if(rest, [](char c) { return c == '/' || c == '?' || c == '#' || c == ':'; });
    return rest.first(end - rest.begin());
}

/// Files, and computers that only the seller's own network knows.
bool isLocal(const QByteArray& address)
{
    static constexpr QByteArrayView Beginnings[] = {"file:", "\\\\"};
    static constexpr QByteArrayView Networks[] = {"127.", "10.", "192.168."};
    const QByteArray lower = address.toLower();
    if (startsWithAny(lower, Beginnings))
        return true;
    const bool isDrive = lower.size() > 2 && std::isalpha(uchar(lower[0])) && lower[1] == ':' &&
                         (lower[2] == '\\' || lower[2] == '/');
    const QByteArray host = hostOf(lower);
    const bool isNumber =
        std::ranges::all_of(host, [](char c) { return std::isdigit(uchar(c)) || c == '.'; });
    const int second = host.split('.').value(1).toInt();
    return isDrive || host == "localhost" || host == "[::1]" || host.endsWith(".local") ||
           (isNumber && startsWithAny(host, Networks)) ||
           (isNumber && host.startsWith("172.") && second >= 16 && second <= 31);
}

bool hasScheme(const QByteArray& address)
{
    const auto end = std::ranges::find_if(
        address, [](char c) { return !std::isalnum(uchar(c)) && c != '+' && c != '-' && c != '.'; });
    return end != address.end() && *end == ':' && end != address.begin();
}

/// Where the second "http" of an address begins; 0 where there is one only.
qsizetype secondScheme(const QByteArray& address)
{
    for (const QByteArrayView first : {QByteArrayView("http:"), QByteArrayView("https:")}) {
        if (!address.startsWith(first))
            continue;
        qsizetype next = first.size();
        while (next < address.size() && address[next] == '/')
            ++next;
        const QByteArray rest = address.mid(next);
        if (rest.startsWith("http:") || rest.startsWith("https:"))
            return next;
    }
    return 0;
}

QByteArray withoutBlanksInside(QByteArrayView address)
{
    QByteArray result;
    for (const char c : address.trimmed()) {
        if (c == ' ') {
            result += "%20";
        } else if (!isHtmlBlank(c)) {
            result += c;
        }
    }
    return result;
}

/// An address of an attribute, with what is wrong in how it is written.
void seeAddress(CheckedPage& page, const HtmlAttribute& attribute, bool loads)
{
    const QByteArray name = page.source(attribute.name).toByteArray();
    const QByteArray value = htmlValue(page.html, attribute);
    const QByteArray address = value.trimmed();
    const QByteArray lower = address.toLower();
    const QByteArrayView source = page.source(attribute.value);
    const TextRange place = attribute.whole;
    if (isScript(value)) {
        page.find(CheckRule::ScriptAddress, place, name, {withoutAttribute(page.html, attribute)});
        return;
    }
    if (address.isEmpty()) {
        page.find(CheckRule::EmptyAddress, place, name);
        return;
    }
    if (lower == "http://" || lower == "https://" || lower == "http:" || lower == "https:") {
        page.find(CheckRule::Leftover, place, address);
        return;
    }
    if (const qsizetype second = secondScheme(lower); second > 0) {
        std::vector<TextEdit> mend;
        if (source.startsWith(QByteArrayView(address).first(second)))
            mend = {{{attribute.value.start, second}, {}}};
        page.find(CheckRule::DoubledScheme, place, address, std::move(mend));
        return;
    }
    if (std::ranges::any_of(value, isHtmlBlank)) {
        page.find(CheckRule::BlankInAddress, place, source.toByteArray(),
                  {{attribute.value, withoutBlanksInside(source)}});
    }
    if (isLocal(address)) {
        page.find(CheckRule::LocalAddress, place, address);
    } else if (!hasScheme(address) && !address.startsWith("//") && !address.startsWith('#')) {
        page.find(CheckRule::RelativeAddress, place, address);
    } else if (loads && lower.startsWith("http:")) {
        std::vector<TextEdit> mend;
        if (isHtmlName(source.first(std::min<qsizetype>(5, source.size())), "http:"))
            mend = {{{attribute.value.start + 4, 0}, "s"}};
        page.find(CheckRule::HttpAddress, place, address, std::move(mend));
    } else if (lower.startsWith("mailto:")) {
        page.find(CheckRule::MailAddress, place, address.mid(7).split('?').first());
    }
}

void seeLinkTarget(CheckedPage& page, const Tag& tag)
{
    const QByteArray address =
        attributeValue(page.html, tag.token, "href").value_or(QByteArray()).trimmed().toLower();
    const HtmlAttribute* target = findAttribute(page.html, tag.token, "target");
    if (page.linksOpenBeside || !address.startsWith("http") ||
        (target && htmlValue(page.html, *target).toLower() == "_blank"))
        return;
    const QByteArray wanted = "target=\"_blank\"";
    page.find(CheckRule::LinkTarget, tag.token.whole, {},
              {target ? TextEdit{target->whole, wanted} : withAttribute(tag.token, wanted)});
}

/// What lets a picture become as narrow as the screen.
TextEdit phoneStyle(CheckedPage& page, const HtmlToken& tag)
{
    const HtmlAttribute* style = findAttribute(page.html, tag, "style");
    if (!style)
        return withAttribute(tag, "style=\"" + Phone.toByteArray() + '"');
    QByteArray value = page.source(style->value).trimmed().toByteArray();
    if (!value.isEmpty() && !value.endsWith(';'))
        value += ';';
    const char quote = style->quote == 0 ? '"' : style->quote;
    return {style->whole, "style=" + (quote + value + Phone.toByteArray() + quote)};
}

bool isFileName(const QByteArray& text)
{
    static constexpr QByteArrayView Endings[] = {".jpg",  ".jpeg", ".gif",  ".png",
                                                 ".webp", ".bmp",  ".heic", ".tif"};
    const QByteArray lower = text.trimmed().toLower();
    return std::ranges::any_of(Endings, [&](QByteArrayView ending) { return lower.endsWith(ending); });
}

void seeAlt(CheckedPage& page, const Tag& tag)
{
    const HtmlAttribute* alt = findAttribute(page.html, tag.token, "alt");
    const QByteArray words = "alt=\"" + page.title + '"';
    if (!alt) {
        std::vector<TextEdit> mend;
        if (!page.title.isEmpty())
            mend = {withAttribute(tag.token, words)};
        page.find(CheckRule::NoAlt, tag.token.whole, {}, std::move(mend));
    } else if (const QByteArray value = htmlValue(page.html, *alt); isFileName(value)) {
        std::vector<TextEdit> mend;
        if (!page.title.isEmpty())
            mend = {{alt->whole, words}};
        page.find(CheckRule::FileNameAlt, alt->whole, value, std::move(mend));
    }
}

} // namespace

void seeAttributes(CheckedPage& page, const Tag& tag)
{
    QSet<QByteArray> names;
    for (const HtmlAttribute& attribute : tag.token.attributes) {
        const QByteArray name = htmlName(page.source(attribute.name));
        if (names.contains(name)) {
            page.find(CheckRule::DuplicateAttribute, attribute.whole,
                      page.source(attribute.name).toByteArray(), {withoutAttribute(page.html, attribute)});
        }
        names.insert(name);
        if (isQuoteTorn(page, attribute))
            page.find(CheckRule::TornQuote, attribute.whole, page.source(attribute.name).toByteArray());
    }
}

void seeActiveContent(CheckedPage& page, const Tag& tag)
{
    static constexpr QByteArrayView FormParts[] = {"form", "input", "select", "textarea", "button"};
    static constexpr QByteArrayView Frames[] = {"iframe", "frame", "frameset", "ilayer"};
    static constexpr QByteArrayView Objects[] = {"object", "embed", "applet"};
    const TextRange place = tag.token.whole;
    for (const HtmlAttribute& attribute : tag.token.attributes) {
        const QByteArray name = htmlName(page.source(attribute.name));
        if (name.size() > 2 && name.startsWith("on")) {
            page.find(CheckRule::Handler, attribute.whole, page.source(attribute.name).toByteArray(),
                      {withoutAttribute(page.html, attribute)});
        }
    }
    const auto value = [&](QByteArrayView name) {
        return attributeValue(page.html, tag.token, name).value_or(QByteArray()).toLower();
    };
    if (isOneOf(tag.name, FormParts)) {
        page.find(CheckRule::FormPart, place, page.source(tag.token.inside).toByteArray());
    } else if (isOneOf(tag.name, Frames)) {
        page.find(CheckRule::Frame, place, page.source(tag.token.inside).toByteArray());
    } else if (isOneOf(tag.name, Objects)) {
        page.find(CheckRule::Object, place, page.source(tag.token.inside).toByteArray());
    } else if (tag.name == "meta" && value("http-equiv").trimmed() == "refresh") {
        page.find(CheckRule::MetaRefresh, place, {}, {{place, {}}});
    } else if (tag.name == "link" && value("rel").contains("stylesheet")) {
        page.find(CheckRule::OutsideStyle, place);
    }
}

void seeAddresses(CheckedPage& page, const Tag& tag)
{
    for (const HtmlAttribute& attribute : tag.token.attributes) {
        const QByteArrayView name = page.source(attribute.name);
        const auto known = std::ranges::find_if(
            AddressAttributes, [&](const AddressAttribute& a) { return isHtmlName(name, a.name); });
        if (known != AddressAttributes.end() && !isQuoteTorn(page, attribute))
            seeAddress(page, attribute, known->loads);
    }
    if (tag.name == "a" || tag.name == "area")
        seeLinkTarget(page, tag);
}

void seePicture(CheckedPage& page, const Tag& tag)
{
    if (tag.name != "img" && tag.name != "image")
        return;
    seeAlt(page, tag);
    const QByteArray style = attributeValue(page.html, tag.token, "style").value_or(QByteArray());
    if (page.picturesFit || styleProperty(style, "max-width"))
        return;
    const QByteArray given =
        styleProperty(style, "width")
            .value_or(attributeValue(page.html, tag.token, "width").value_or(QByteArray()));
    const std::optional<int> width = pixels(given);
    if (width && *width > page.limits.pictureWidth) {
        page.find(CheckRule::WidePicture, tag.token.whole, QByteArray::number(*width),
                  {phoneStyle(page, tag.token)});
    } else if (!given.contains('%') && (!width || *width > page.limits.phoneWidth)) {
        page.find(CheckRule::NoPhoneWidth, tag.token.whole, {}, {phoneStyle(page, tag.token)});
    }
}

void seeTable(CheckedPage& page, const Tag& tag)
{
    if (tag.name != "table" && !isTableCell(tag.name))
        return;
    const auto seeWidth = [&](const HtmlAttribute& attribute, QByteArrayView width, TextEdit mend) {
        if (const auto number = pixels(width); number && *number > page.limits.phoneWidth)
            page.find(CheckRule::WideTable, attribute.whole, QByteArray::number(*number), {std::move(mend)});
    };
    if (const HtmlAttribute* width = findAttribute(page.html, tag.token, "width"))
        seeWidth(*width, htmlValue(page.html, *width), {width->whole, "width=\"100%\""});
    if (const HtmlAttribute* style = findAttribute(page.html, tag.token, "style")) {
        if (std::optional<TextRange> value = styleValue(page.source(style->value), "width")) {
            value->start += style->value.start;
            seeWidth(*style, page.source(*value), {*value, "100%"});
        }
    }
}

} // namespace brindlemark
