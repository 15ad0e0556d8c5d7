// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/PictureHtml.h"

QString pictureTag(const PictureSettings& s)
{
    const QString height = s.Check1 ? QStringLiteral(" height=") + s.combo2 : QString();
    const QString width = s.Check1 ? QStringLiteral(" width=") + s.combo1 : QString();
    const QString image = QStringLiteral("<IMG") + height + QStringLiteral(" src=\"") + s.Text1 + u'"' +
                          width + QStringLiteral(" border=") + s.combo3 + u'>';
    const QString text =
        s.ChkP ? QStringLiteral("<P Align=") + s.align + u'>' + image + QStringLiteral("</P>") : image;
    return text + QStringLiteral("\r\n");
}
