// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/PlacedSource.h"

#include "services/HtmlTokenizer.h"
#include "web/LivePage.h"

namespace brindlemark {

QByteArray withPlaces(const QByteArray& html)
{
    QByteArray placed;
    placed.reserve(html.size() + html.size() / 2);
    qsizetype from = 0;
    HtmlTokenizer tokenizer(html);
    for (HtmlToken token; tokenizer.next(token);) {
        if (token.kind != HtmlTokenKind::StartTag)
            continue;
        placed += html.sliced(from, token.inside.end() - from);
        placed += ' ';
        placed += LivePage::PlaceAttribute;
        placed += '=' + QByteArray::number(token.whole.start);
        from = token.inside.end();
        if (html[from] == '/') // else it would be read as a part of the number
            placed += ' ';
    }
    return placed += html.sliced(from);
}

} // namespace brindlemark
