// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FaderFragment.h"

#include "colour/Fade.h"

#include <array>

namespace brindlemark {

namespace {

/// What the fragments for the uses differ in.
struct UserTraits
{
    bool lowerCaseTags;  ///< "<b>", "<i>" and "<u>" in lower case
    bool alwaysBordered; ///< the border colour is written even where `borderColored` is off
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
    {&FaderSettings::bold, "B", "b"},
    {&FaderSettings::italic, "I", "i"},
    {&FaderSettings::underline, "U", "u"},
    {&FaderSettings::strikeout, "S", "S"},
}};

/// The style tags; `opening` is "<" or "</". The closing tags stand in the same order as the opening ones,
/// not nested.
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

// Table and cell differ in letter case. That is meant: pages are searched by literal text.
constexpr std::array<const char*, 4> TableAlign = {"", " Align=left", " Align=center", " Align=right"};
constexpr std::array<const char*, 4> CellAlign = {"", " align=Left", " align=center", " align=right"};

QString tableHead(const FaderSettings& s, const UserTraits& traits)
{
    if (!s.inTable)
        return QString();
    QString head = QStringLiteral("<TABLE");
    if (s.borderColored || traits.alwaysBordered)
        head += QStringLiteral(" borderColor=") + s.borderColor;
    head += QStringLiteral(" height=") + s.height;
    head += QStringLiteral(" cellSpacing=") + s.cellSpacing;
    head += QStringLiteral(" cellPadding=") + s.cellPadding;
    head += QStringLiteral(" width=") + s.width;
    head += QLatin1String(TableAlign.at(size_t(s.table)));
    head += QStringLiteral(" bgcolor=") + s.tableColor;
    head += QStringLiteral(" border=") + s.border;
    head += QStringLiteral("><TBODY><TR><TD");
    head += QLatin1String(CellAlign.at(size_t(s.cell)));
    return head + QStringLiteral(" bgColor=") + s.cellColor + u'>';
}

QString tableTail(const FaderSettings& settings)
{
    return settings.inTable ? QStringLiteral("</TD></TR></TBODY></TABLE>") : QString();
}

QString highlightHead(const FaderSettings& settings)
{
    return settings.highlighted ? QStringLiteral("<FONT style=\"background-color: ") +
                                      settings.highlightColor + QStringLiteral("\">")
                                : QString();
}

QString highlightTail(const FaderSettings& settings)
{
    return settings.highlighted ? QStringLiteral("</FONT>") : QString();
}

/// The attributes of all font tags but their colour.
QString fontAttributes(const FaderSettings& settings)
{
    return QStringLiteral(" face=") + settings.fontFace + QStringLiteral(" size=") + settings.size;
}

/// Characters in turn in the two colours. No font tag is closed here, so each stands in the one before;
/// `closers` gets what closes them all. An odd last character is still followed by the other colour's tag.
QString alternatingRun(const FaderSettings& settings, QString& closers)
{
    const QString first = QStringLiteral("<Font") + fontAttributes(settings) + QStringLiteral(" color=\"") +
                          settings.firstColor + QStringLiteral("\">");
    const QString second = QStringLiteral("<Font") + fontAttributes(settings) + QStringLiteral(" color=\"") +
                           settings.secondColor + QStringLiteral("\">");
    const QStringList characters = fadeCharacters(settings.text);
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
        return font + QStringLiteral(" color=") + settings.textColor + u'>' + settings.text +
               highlightTail(settings) + QStringLiteral("</FONT>") + tail;
    case FaderMode::FiveFade:
        return font + u'>' + settings.fadedText + highlightTail(settings) + QStringLiteral("</FONT>") + tail;
    case FaderMode::TwoColors:
        break;
    }
    // The last </FONT> closes the highlight. It is written without a highlight too, which browsers pass over.
    QString closers;
    const QString run = alternatingRun(settings, closers);
    return run + tail + closers + QStringLiteral("</FONT>");
}

} // namespace

QString faderBody(const FaderSettings& settings, FaderUser user)
{
    const UserTraits& traits = Traits.at(size_t(user));
    return tableHead(settings, traits) + settings.linkOpen + styleTags(settings, traits, "<") +
           highlightHead(settings) + styledText(settings, traits) + settings.linkClose + tableTail(settings);
}

QString faderText(const QString& body, bool paragraph)
{
    const QString text = paragraph ? QStringLiteral("<P>") + body + QStringLiteral("</P>") : body;
    return text + QStringLiteral("\r\n");
}

} // namespace brindlemark
