// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "platform/RuntimeError.h"
#include "shell/GeneratorTag.h"

using namespace brindlemark;

namespace {

/// The text with all its tags stamped up to the first torn one, and where that one is.
struct Stamped
{
    QByteArray text;
    qsizetype torn = -1;
};

Stamped naivelyStamped(QByteArray text)
{
    for (qsizetype tag = 0; (tag = text.toLower().indexOf("<meta content=", tag)) >= 0; ++tag) {
        const qsizetype name = text.toLower().indexOf(" name=generator>", tag);
        if (name < 0)
            return {text, tag};
        text.replace(tag, name + 1 - tag, "<META content=\"Brindlemark 1.0\" ");
    }
    return {text};
}

} // namespace

/// A document: its generator tags are stamped, and all else stays.
void targets::generator(const QByteArray& bytes)
{
    const Stamped expected = naivelyStamped(bytes);
    const GeneratorTags tags = findGeneratorTags(bytes);
    QByteArray text = bytes;
    qsizetype moved = 0; // how far the stamps have moved what stands behind them
    for (const TextRange& start : tags.starts) {
        text.replace(start.start + moved, start.length, GeneratorStart);
        moved = text.size() - bytes.size();
    }
    hold(text == expected.text, "the tags are stamped");
    hold(tags.torn.has_value() == (expected.torn >= 0), "a torn tag is found");
    if (tags.torn)
        hold(*tags.torn == TextRange{expected.torn - moved, 14}, "the first torn tag is told");
    try {
        hold(stamped(bytes) == expected.text, "the whole text is stamped");
        hold(expected.torn < 0, "a torn tag is refused");
    } catch (const RuntimeError& error) {
        hold(expected.torn >= 0 && error.number() == ErrorNumber::InvalidPropertyValue,
             "only torn tags are refused");
    }
}
