// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/GeneratorTag.h"

#include "platform/RuntimeError.h"
#include "source/TextSearch.h"

namespace brindlemark {

GeneratorTags findGeneratorTags(QByteArrayView text)
{
    const QByteArray opening = "<META content=";
    const TextSearch tagStart(opening);
    const TextSearch tagName(" name=GENERATOR>");
    GeneratorTags tags;
    qsizetype from = 0;
    for (qsizetype tag = tagStart.indexIn(text, 0); tag != -1; tag = tagStart.indexIn(text, from)) {
        const qsizetype name = tagName.indexIn(text, tag);
        if (name == -1) {
            tags.torn = TextRange{tag, opening.size()};
            break;
        }
        from = name + 1; // what stands in between is replaced too, the start of another tag as well
        tags.starts.push_back({tag, from - tag});
    }
    return tags;
}

QByteArray stamped(QByteArrayView text)
{
    const GeneratorTags tags = findGeneratorTags(text);
    if (tags.torn)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    QByteArray result;
    qsizetype done = 0;
    for (const TextRange& start : tags.starts) {
        result += text.sliced(done, start.start - done);
        result += GeneratorStart;
        done = start.end();
    }
    result += text.sliced(done);
    return result;
}

} // namespace brindlemark
