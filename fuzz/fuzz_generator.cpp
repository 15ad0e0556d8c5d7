#include "Fuzz.h"
#include "platform/RuntimeError.h"
#include "shell/Generator.h"
#include "source/RichTextBox.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// The text with all its tags stamped up to the first torn one, and whether there was none.
struct Stamped
{
    QByteArray text;
    bool whole = true;
};

Stamped stamped(QByteArray text)
{
    for (qsizetype tag = 0; (tag = text.toLower().indexOf("<meta content=", tag)) >= 0; ++tag) {
        const qsizetype name = text.toLower().indexOf(" name=generator>", tag);
        if (name < 0)
            return {text, false};
        text.replace(tag, name + 1 - tag, "<META content=\"Brindlemark 1.0\" ");
    }
    return {text};
}

} // namespace

/// A document in the source box: its generator tags are stamped, all else stays, and so does the caret.
void targets::generator(const QByteArray& bytes)
{
    static RichTextBox& box = *new RichTextBox; // making one takes long
    box.load(bytes);
    box.setSelStart(static_cast<int>(bytes.size() / 2));
    const int caret = box.SelStart();
    const Stamped expected = stamped(bytes);
    try {
        stampGenerator(box);
        hold(expected.whole, "a torn tag is refused");
        hold(box.SelLength() == 0, "nothing is selected");
        // It may come to stand inside a character of the new text.
        hold(std::abs(box.SelStart() - std::min(caret, int(expected.text.size()))) < 4, "the caret stays");
    } catch (const RuntimeError& error) {
        hold(!expected.whole && error.number() == ErrorNumber::InvalidPropertyValue,
             "only torn tags are refused");
    }
    hold(box.Text() == expected.text, "the tags are stamped");
}
