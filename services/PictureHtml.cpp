// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/PictureHtml.h"

namespace brindlemark {

QString pictureTag(const PictureSettings& s)
{
    const QString height = s.sized ? QStringLiteral(" height=") + s.height : QString();
    const QString width = s.sized ? QStringLiteral(" width=") + s.width : QString();
    const QString image = QStringLiteral("<IMG") + height + QStringLiteral(" src=\"") + s.address + u'"' +
                          width + QStringLiteral(" border=") + s.border + u'>';
    const QString text =
        s.inParagraph ? QStringLiteral("<P Align=") + s.align + u'>' + image + QStringLiteral("</P>") : image;
    return text + QStringLiteral("\r\n");
}

} // namespace brindlemark
