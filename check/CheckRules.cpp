// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CheckRules.h"

#include "services/Profile.h"

namespace brindlemark {

namespace {

using R = CheckRule;
using S = Severity;
using P = CheckProfile;

// clang-format off
constexpr std::array<CheckRuleText, CheckRuleCount> Rules = {{
    {R::UnclosedTag, S::Warning, P::FewTags, "UnclosedTag",
     "<%1> is never closed.", "Writes the end tag where browsers end it."},
    {R::UnopenedTag, S::Hint, P::FewTags, "UnopenedTag",
     "</%1> ends what was never opened.", "Removes the end tag."},
    {R::CrossedTags, S::Hint, P::FewTags, "CrossedTags",
     "<%1> ends within, or around, a tag that began elsewhere.", ""},
    {R::OutsideTable, S::Problem, P::Page, "OutsideTable",
     "<%1> stands in no table.", ""},
    {R::OutsideCell, S::Problem, P::Page, "OutsideCell",
     "This stands in a table, but in no cell: browsers show it in front of the table.", ""},
    {R::DuplicateAttribute, S::Warning, P::Page, "DuplicateAttribute",
     "\"%1\" is given twice: only the first counts.", "Removes the second."},
    {R::TornTag, S::Problem, P::Plain, "TornTag",
     "The text ends within a tag.", ""},
    {R::TornQuote, S::Problem, P::Plain, "TornQuote",
     "The quote of \"%1\" is not closed: it takes in what follows.", ""},
    {R::TornComment, S::Problem, P::Plain, "TornComment",
     "A comment begins here that never ends: nothing behind it is shown.", ""},
    {R::CommentInComment, S::Problem, P::Plain, "CommentInComment",
     "A comment begins within a comment: the one before has probably lost its end.", ""},
    {R::TornGeneratorTag, S::Problem, P::Page, "TornGeneratorTag",
     "The tag <META content= of the page's maker has no end.", ""},
    {R::UnpairedMarker, S::Problem, P::Page, "UnpairedMarker",
     "The marker %1 has lost its other half, by which its button finds the part.", ""},
    {R::InvalidBytes, S::Problem, P::Plain, "InvalidBytes",
     "Bytes that are no characters of this page's encoding.", ""},
    {R::Script, S::Problem, P::Page, "Script",
     "Scripts are refused, or cut out.", "Removes the script."},
    {R::Handler, S::Problem, P::Page, "Handler",
     "\"%1\" is a script: it is refused, or cut out.", "Removes the attribute."},
    {R::ScriptAddress, S::Problem, P::Page, "ScriptAddress",
     "The address of \"%1\" is a script.", "Removes the attribute."},
    {R::FormPart, S::Problem, P::Page, "FormPart",
     "Forms are refused: <%1>.", ""},
    {R::Frame, S::Problem, P::Page, "Frame",
     "Pages within the page are refused: <%1>.", ""},
    {R::Object, S::Problem, P::Page, "Object",
     "Objects are refused: <%1>.", ""},
    {R::MetaRefresh, S::Problem, P::Page, "MetaRefresh",
     "A page that goes elsewhere by itself is refused.", "Removes the tag."},
    {R::OutsideStyle, S::Problem, P::Page, "OutsideStyle",
     "Styles from another place are refused, or cut out.", ""},
    {R::Leftover, S::Warning, P::Plain, "Leftover",
     "\"%1\" was left unfinished.", ""},
    {R::EmptyAddress, S::Warning, P::Page, "EmptyAddress",
     "\"%1\" has no address.", ""},
    {R::DoubledScheme, S::Problem, P::Page, "DoubledScheme",
     "The address begins twice: %1", "Takes the first beginning away."},
    {R::BlankInAddress, S::Warning, P::Page, "BlankInAddress",
     "The address has a blank: %1", "Takes blanks at its ends away, and writes %20 for others."},
    {R::LocalAddress, S::Problem, P::Page, "LocalAddress",
     "Only this computer finds %1", ""},
    {R::RelativeAddress, S::Warning, P::Page, "RelativeAddress",
     "%1 is no whole address: buyers' browsers look for it beside the site's own pages.", ""},
    {R::HttpAddress, S::Warning, P::Page, "HttpAddress",
     "Browsers may not show what comes by http: %1",
     "Writes https: instead. Look whether it still comes."},
    {R::LinkTarget, S::Hint, P::Page, "LinkTarget",
     "The link leaves the listing; with target=\"_blank\" it opens beside it.", "Adds target=\"_blank\"."},
    {R::MailAddress, S::Hint, P::Plain, "MailAddress",
     "A mail address in the open, which sites may refuse: %1", ""},
    {R::NoAlt, S::Warning, P::Page, "NoAlt",
     "The picture has no words (alt) for those who can't see it.", "Writes the listing's title."},
    {R::FileNameAlt, S::Hint, P::Page, "FileNameAlt",
     "The picture's words (alt) are a file's name: %1", "Writes the listing's title."},
    {R::WidePicture, S::Warning, P::Page, "WidePicture",
     "The picture is %1 pixels wide.", "Lets it become as narrow as the screen."},
    {R::NoPhoneWidth, S::Hint, P::Page, "NoPhoneWidth",
     "The picture does not become narrower on a phone.", "Lets it become as narrow as the screen."},
    {R::OnlyPictures, S::Warning, P::Page, "OnlyPictures",
     "Words beside the pictures: only %1. Searches find words.", ""},
    {R::NoViewport, S::Warning, P::Page, "NoViewport",
     "Phones show the page as small as on a desktop: the viewport line is missing.", "Adds the line."},
    {R::WideTable, S::Warning, P::Page, "WideTable",
     "%1 pixels are wider than a phone.", "Makes it as wide as there is room."},
    {R::SticksOut, S::Warning, P::Page, "SticksOut",
     "On a phone the page is %1 pixels wide; this sticks out most.", ""},
    {R::Contrast, S::Warning, P::Page, "Contrast",
     "Text and ground differ too little: %1 to 1.", ""},
    {R::SmallText, S::Hint, P::Page, "SmallText",
     "Long text in a small font (size %1).", ""},
    {R::NoTitle, S::Warning, P::Page, "NoTitle",
     "The page has no title.", ""},
    {R::NoDescription, S::Warning, P::Page, "NoDescription",
     "The description is empty.", ""},
    {R::TooManyCharacters, S::Problem, P::Plain, "TooManyCharacters",
     "%1 characters are more than the limit.", ""},
    {R::TooManyBytes, S::Problem, P::Plain, "TooManyBytes",
     "%1 bytes are more than the limit.", ""},
    {R::TagNotTaken, S::Problem, P::Plain, "TagNotTaken",
     "<%1> is not taken there.", ""},
}};
// clang-format on

static_assert(
    [] {
        for (size_t i = 0; i < Rules.size(); ++i) {
            if (Rules[i].rule != static_cast<CheckRule>(i))
                return false;
        }
        return true;
    }(),
    "the table must have the order of the enumeration, for ruleText() looks rules up by position");

template <typename Number>
struct LimitKey
{
    const char* key;
    Number CheckLimits::*limit;
};

constexpr LimitKey<int> WholeNumbers[] = {
    {"MostCharacters", &CheckLimits::mostCharacters},
    {"MostBytes", &CheckLimits::mostBytes},
    {"PictureWidth", &CheckLimits::pictureWidth},
    {"PhoneWidth", &CheckLimits::phoneWidth},
    {"LongText", &CheckLimits::longText},
    {"FewWords", &CheckLimits::fewWords},
};

} // namespace

const CheckRuleText& ruleText(CheckRule rule)
{
    return Rules.at(size_t(rule));
}

CheckLimits checkLimits()
{
    const Profile settings(webIni());
    const auto value = [&](const char* key) {
        return settings.value(QStringLiteral("Check"), QString::fromLatin1(key));
    };
    CheckLimits limits;
    for (const auto& [key, limit] : WholeNumbers) {
        bool isNumber = false;
        const int number = value(key).toInt(&isNumber);
        if (isNumber && number >= 0)
            limits.*limit = number;
    }
    bool isNumber = false;
    if (const double contrast = value("Contrast").toDouble(&isNumber); isNumber && contrast >= 1)
        limits.contrast = contrast;
    for (const CheckRuleText& rule : Rules)
        limits.off.at(size_t(rule.rule)) = value(rule.id) == QStringLiteral("0");
    return limits;
}

} // namespace brindlemark
