// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FaderFragment.h"

#include "colour/Fade.h"

#include <array>

namespace {

/// In what the fragments of the users differ.
struct UserTraits
{
    bool lowerCaseTags;  ///< "<b>", "<i>" and "<u>" in lower case
    bool alwaysBordered; ///< the table has a border colour, ticked or not
};

constexpr std::array<UserTraits, 4> Traits = {{
    {true, false},  // Sample
    {false, false}, // Copy
    {false, false}, // Add
    {false, true},  // Description
}};

struct StyleTag
{
    bool FaderSettings::*box;
    const char* tag;
    const char* sampleTag;
};

constexpr std::array<StyleTag, 4> StyleTags = {{
    {&FaderSettings::chkBold, "B", "b"},
    {&FaderSettings::chkItalic, "I", "i"},
    {&FaderSettings::chkUnderline, "U", "u"},
    {&FaderSettings::chkStrikeout, "S", "S"},
}};

/// The style tags, opened with "<" or closed with "</". Both run in the same order, not nested.
QString styleTags(const FaderSettings& settings, const UserTraits& traits, const char* opening)
{
    QString tags;
    for (const StyleTag& style : StyleTags) {
        if (settings.*style.box) {
            tags += QLatin1String(opening);
            tags += QLatin1String(traits.lowerCaseTags ? style.sampleTag : style.tag);
            tags += u'>';
        }
    }
    return tags;
}

// The table's words and the cell's differ in case, in the attribute and in the value.
constexpr std::array<const char*, 4> TableAlign = {"", " Align=left", " Align=center", " Align=right"};
constexpr std::array<const char*, 4> CellAlign = {"", " align=Left", " align=center", " align=right"};

QString tableHead(const FaderSettings& s, const UserTraits& traits)
{
    if (!s.Check7)
        return QString();
    QString head = QStringLiteral("<TABLE");
    if (s.ChkNoB || traits.alwaysBordered)
        head += QStringLiteral(" borderColor=") + s.Text20;
    head += QStringLiteral(" height=") + s.Combo8;
    head += QStringLiteral(" cellSpacing=") + s.Combo5;
    head += QStringLiteral(" cellPadding=") + s.Combo3;
    head += QStringLiteral(" width=") + s.Combo9;
    head += QLatin1String(TableAlign.at(size_t(s.table)));
    head += QStringLiteral(" bgcolor=") + s.Text13;
    head += QStringLiteral(" border=") + s.Combo6;
    head += QStringLiteral("><TBODY><TR><TD");
    head += QLatin1String(CellAlign.at(size_t(s.cell)));
    return head + QStringLiteral(" bgColor=") + s.Text17 + u'>';
}

QString tableTail(const FaderSettings& settings)
{
    return settings.Check7 ? QStringLiteral("</TD></TR></TBODY></TABLE>") : QString();
}

QString highlightHead(const FaderSettings& settings)
{
    return settings.Check1
               ? QStringLiteral("<FONT style=\"background-color: ") + settings.Text5 + QStringLiteral("\">")
               : QString();
}

QString highlightTail(const FaderSettings& settings)
{
    return settings.Check1 ? QStringLiteral("</FONT>") : QString();
}

/// The attributes of all font tags but their colour.
QString fontAttributes(const FaderSettings& settings)
{
    return QStringLiteral(" face=") + settings.Combo1 + QStringLiteral(" size=") + settings.size;
}

/// Characters in turn in the two colours: each font tag stands in the one before, and none is closed here. A
/// last character without a partner is followed by the partner's tag all the same.
QString alternatingRun(const FaderSettings& settings, QString& closers)
{
    const QString first = QStringLiteral("<Font") + fontAttributes(settings) + QStringLiteral(" color=\"") +
                          settings.TxtC1 + QStringLiteral("\">");
    const QString second = QStringLiteral("<Font") + fontAttributes(settings) + QStringLiteral(" color=\"") +
                           settings.TxtC2 + QStringLiteral("\">");
    const QStringList characters = fadeCharacters(settings.Text1);
    QString run;
    for (qsizetype i = 0; i < characters.size(); i += 2) {
        run += first + characters.at(i) + second + characters.value(i + 1);
        closers += QStringLiteral("</FONT></FONT>");
    }
    return run;
}

/// The styled text, from its style tags to their end.
QString styledText(const FaderSettings& settings, const UserTraits& traits)
{
    const QString tail = styleTags(settings, traits, "</");
    const QString font = QStringLiteral("<Font") + fontAttributes(settings);
    switch (settings.mode) {
    case FaderMode::OneColor:
        return font + QStringLiteral(" color=") + settings.Text8 + u'>' + settings.Text1 +
               highlightTail(settings) + QStringLiteral("</FONT>") + tail;
    case FaderMode::FiveFade:
        return font + u'>' + settings.Text2 + highlightTail(settings) + QStringLiteral("</FONT>") + tail;
    case FaderMode::TwoColors:
        break;
    }
    // The last </FONT> closes the highlight; without one it is left over.
    QString closers;
    const QString run = alternatingRun(settings, closers);
    return run + tail + closers + QStringLiteral("</FONT>");
}

} // namespace

QString faderBody(const FaderSettings& settings, FaderUser user)
{
    const UserTraits& traits = Traits.at(size_t(user));
    return tableHead(settings, traits) + settings.Hlink + styleTags(settings, traits, "<") +
           highlightHead(settings) + styledText(settings, traits) + settings.Hlink2 + tableTail(settings);
}

QString faderText(const QString& body, bool paragraph)
{
    const QString text = paragraph ? QStringLiteral("<P>") + body + QStringLiteral("</P>") : body;
    return text + QStringLiteral("\r\n");
}
