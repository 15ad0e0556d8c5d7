#include "shell/SurfaceCommands.h"

#include "platform/Doors.h"
#include "platform/RuntimeError.h"
#include "platform/WebBrowser.h"
#include "services/Codes.h"

const char* htmlFontSize(const QString& text)
{
    struct Size
    {
        const char* points;
        const char* html;
    };
    static constexpr Size Sizes[] = {{"Normal", "3"}, {"8", "1"},  {"10", "2"}, {"12", "3"},
                                     {"14", "4"},     {"18", "5"}, {"24", "6"}, {"36", "7"}};
    for (const Size& size : Sizes) {
        if (text == QLatin1String(size.points))
            return size.html;
    }
    return nullptr;
}

std::optional<QString> askForColor()
{
    CommonDialog dialog;
    dialog.CancelError = true;
    try {
        dialog.ShowColor();
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
    return GetHexColor(dialog.Color);
}

void askForLink(WebBrowser& surface)
{
    const std::optional<QString> address =
        doors().inputBox(QStringLiteral("Address of the link (empty for none):"), QStringLiteral("Hyperlink"),
                         surface.currentLink());
    if (address)
        surface.setLink(*address);
}
