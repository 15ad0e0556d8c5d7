// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "colour/FaderFragment.h"

#include <QRegularExpression>
#include <QStringList>

using namespace brindlemark;

namespace {

QString withoutTags(QString html)
{
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    return html.remove(tag);
}

/// A value without what has a meaning in HTML.
QString plain(QString value)
{
    value.removeIf([](QChar c) { return c == u'<' || c == u'>'; });
    return value;
}

qsizetype count(const QString& html, const char* tag)
{
    return html.count(QLatin1String(tag), Qt::CaseInsensitive);
}

} // namespace

/// Settings of all kinds: the text stands between the tags, and the users' fragments differ in nothing else
/// than they say.
void targets::faderfragment(const QByteArray& bytes)
{
    Fields fields(bytes);
    const uint flags = fields.nextNumber();
    FaderSettings s;
    s.mode = static_cast<FaderMode>(flags % 3);
    s.table = static_cast<FaderAlign>((flags >> 2) % 4);
    s.cell = static_cast<FaderAlign>((flags >> 4) % 4);
    s.bold = flags & 64;
    s.italic = flags & 128;
    s.underline = flags & 256;
    s.strikeout = flags & 512;
    s.highlighted = flags & 1024;
    s.inTable = flags & 2048;
    s.borderColored = flags & 4096;
    if (flags & 8192) {
        s.linkOpen = QStringLiteral("<A href=x>");
        s.linkClose = QStringLiteral("</A>");
    }
    for (QString* value : {&s.textColor, &s.firstColor, &s.secondColor, &s.fontFace, &s.size,
                           &s.highlightColor, &s.borderColor, &s.tableColor, &s.cellColor, &s.border,
                           &s.cellPadding, &s.cellSpacing, &s.width, &s.height})
        *value = plain(fields.nextText());
    s.text = textOf(fields.rest());
    s.fadedText = s.text;

    const QString copy = faderBody(s, FaderUser::Copy);
    hold(faderBody(s, FaderUser::Add) == copy, "what is added is what is copied");
    hold(faderBody(s, FaderUser::Sample).toLower() == copy.toLower(), "the sample differs in case alone");
    FaderSettings bordered = s;
    bordered.borderColored = true;
    hold(faderBody(s, FaderUser::Description) == faderBody(bordered, FaderUser::Copy),
         "a description's table has a border colour");
    hold(faderText(copy, true) == QStringLiteral("<P>") + copy + QStringLiteral("</P>\r\n"),
         "a paragraph stands around it");
    if (s.mode != FaderMode::TwoColors)
        hold(copy.contains(s.text), "the text stands in it as it is");

    s.text = plain(s.text);
    s.fadedText = s.text;
    for (const FaderUser user :
         {FaderUser::Sample, FaderUser::Copy, FaderUser::Add, FaderUser::Description}) {
        const QString body = faderBody(s, user);
        hold(withoutTags(body) == s.text, "the text stands between the tags");
        for (const auto& [opening, closing] :
             {std::pair("<table", "</table>"), std::pair("<b>", "</b>"), std::pair("<i>", "</i>"),
              std::pair("<u>", "</u>"), std::pair("<s>", "</s>"), std::pair("<a ", "</a>")})
            hold(count(body, opening) == count(body, closing), "what is opened is closed");
    }
}
