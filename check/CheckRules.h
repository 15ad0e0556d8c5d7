// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace brindlemark {

/// What a listing is looked through for.
enum class CheckRule : uint8_t {
    // How it is built.
    UnclosedTag,
    UnopenedTag,
    CrossedTags,
    OutsideTable,
    OutsideCell,
    DuplicateAttribute,
    TornTag,
    TornQuote,
    TornComment,
    CommentInComment,
    TornGeneratorTag,
    UnpairedMarker,
    InvalidBytes,
    // What sites take for a danger.
    Script,
    Handler,
    ScriptAddress,
    FormPart,
    Frame,
    Object,
    MetaRefresh,
    OutsideStyle,
    // Addresses.
    Leftover,
    EmptyAddress,
    DoubledScheme,
    BlankInAddress,
    LocalAddress,
    RelativeAddress,
    HttpAddress,
    LinkTarget,
    MailAddress,
    // Pictures.
    NoAlt,
    FileNameAlt,
    WidePicture,
    NoPhoneWidth,
    OnlyPictures,
    // Phones.
    NoViewport,
    WideTable,
    SticksOut,
    // What is read.
    Contrast,
    SmallText,
    NoTitle,
    NoDescription,
    // All of it.
    TooManyCharacters,
    TooManyBytes,
    TagNotTaken,
};
inline constexpr size_t CheckRuleCount = size_t(CheckRule::TagNotTaken) + 1;

enum class Severity {
    Problem, ///< the page is broken, or a site is likely to refuse it
    Warning, ///< buyers will not see what the seller sees
    Hint,    ///< it could be better
};

/// What a site takes of a listing.
enum class CheckProfile {
    Page,    ///< pages with pictures and tables
    FewTags, ///< a few tags without attributes (see `isFewTag`)
    Plain,   ///< text without tags
};

/// A rule of the check, in the order of `CheckRule`.
struct CheckRuleText
{
    CheckRule rule;
    Severity severity;
    CheckProfile last;    ///< up to which profile the rule counts: what is cut away can't be wrong
    const char* id;       ///< its key in the settings; "0" there switches it off
    const char* sentence; ///< "%1" is what it is about
    const char* mend;     ///< what the mending does; empty where a person must decide
};

const CheckRuleText& ruleText(CheckRule rule);

/// The numbers of the rules, and which rules count. The settings have them in the section "Check"; a key that
/// is missing there, or is no number, leaves the one given here.
struct CheckLimits
{
    int mostCharacters = 500'000; ///< of the whole text; 0: no limit
    int mostBytes = 500'000;      ///< of the whole text; 0: no limit
    int pictureWidth = 700;       ///< the widest picture, in pixels of the page
    int phoneWidth = 375;         ///< of a phone's screen, in pixels of the page
    double contrast = 4.5;        ///< the least between text and ground, as the W3C counts it
    int longText = 200;           ///< from how many characters on a text is too long for a small font
    int fewWords = 20;            ///< with fewer words beside its pictures a page is only pictures
    std::array<bool, CheckRuleCount> off{};

    bool counts(CheckRule rule) const { return !off.at(size_t(rule)); }
};

/// The limits that the settings have.
CheckLimits checkLimits();

} // namespace brindlemark
