// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/SurfaceCommands.h"

#include "platform/Doors.h"
#include "services/Codes.h"
#include "web/DocumentSurface.h"

#include <algorithm>

namespace brindlemark {

namespace {

struct Size
{
    const char* text;
    const char* html;
};

constexpr Size Sizes[] = {{"Normal", "3"}, {"8", "1"},  {"10", "2"}, {"12", "3"},
                          {"14", "4"},     {"18", "5"}, {"24", "6"}, {"36", "7"}};

/// The `to` of the first size whose `from` is `text`; null when there is none.
const char* translate(const QString& text, const char* Size::*from, const char* Size::*to)
{
    for (const Size& size : Sizes) {
        if (text == QLatin1String(size.*from))
            return size.*to;
    }
    return nullptr;
}

} // namespace

const char* htmlFontSize(const QString& text)
{
    return translate(text, &Size::text, &Size::html);
}

const char* fontSizeText(const QString& htmlSize)
{
    return translate(htmlSize, &Size::html, &Size::text);
}

QString stepName(const QString& step)
{
    struct Name
    {
        const char* step;
        const char* name;
    };
    static constexpr Name Names[] = {
        {"typing", "Typing"},
        {"paste", "Paste"},
        {"insertfrompaste", "Paste"},
        {"deletebycut", "Cut"},
        {"delete", "Delete"},
        {"insertreplacementtext", "Spelling"},
        {"letters", "Letters"},
        {"link", "Link"},
        {"bold", "Bold"},
        {"italic", "Italic"},
        {"underline", "Underline"},
        {"inserthorizontalrule", "Rule"},
        {"fontname", "Font"},
        {"fontsize", "Size"},
        {"forecolor", "Font Color"},
        {"backcolor", "Highlight"},
        {"indent", "Indent"},
        {"outdent", "Outdent"},
        {"justifyleft", "Left"},
        {"justifycenter", "Center"},
        {"justifyright", "Right"},
    };
    if (step.isEmpty())
        return QString();
    const auto* found =
        std::ranges::find_if(Names, [&](const Name& each) { return step == QLatin1String(each.step); });
    return QString::fromLatin1(found == std::ranges::end(Names) ? "Edit" : found->name);
}

std::optional<QString> askForColor()
{
    CommonDialog dialog;
    if (!dialog.ShowColor())
        return std::nullopt;
    return colorText(dialog.Color);
}

void askForLink(DocumentSurface& surface)
{
    const std::optional<QString> address =
        doors().inputBox(QStringLiteral("Address of the link (empty for none):"), QStringLiteral("Hyperlink"),
                         surface.currentLink());
    if (address)
        static_cast<void>(surface.setLink(*address)); // the user sees the page, as in `runCommand`
}

void runCommand(DocumentSurface& surface, const QString& id, const QString& value)
{
    static_cast<void>(surface.execCommand(id, value)); // the user sees the page
}

} // namespace brindlemark
