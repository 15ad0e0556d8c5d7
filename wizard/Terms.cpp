// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/Terms.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "source/TextEncoding.h"
#include "source/TextSearch.h"

namespace brindlemark {

QString GetTermsList(QStringView name)
{
    try {
        const QByteArray bytes = readFile(appFile(name));
        return decode(bytes, encodingOf(bytes));
    } catch (const RuntimeError&) {
        return {}; // the user sees empty terms, as before any were written
    }
}

QByteArray cutHeads(QByteArray& text)
{
    const TextSearch opening("<HEAD>");
    const TextSearch closing("</HEAD>");
    QByteArray cut;
    qsizetype from = 0;
    while (const auto head = opening.find(text, from, text.size())) {
        const auto end = closing.find(text, head->position, text.size());
        if (!end)
            break;
        const qsizetype length = end->position + end->length - head->position;
        cut = text.mid(head->position, length);
        text.remove(head->position, length);
        from = qMin(head->position + 1, text.size());
    }
    return cut;
}

} // namespace brindlemark
