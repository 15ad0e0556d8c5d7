#include "Fuzz.h"
#include "platform/RuntimeError.h"
#include "shell/Regions.h"
#include "source/RichTextBox.h"

namespace {

/// The part between the last opening marker and the next closing one. No value: an opening marker has none.
struct Part
{
    qsizetype start = 0;
    qsizetype length = 0;
};

std::optional<Part> partOf(const QByteArray& text, const MarkerPair& pair)
{
    const QByteArray lower = text.toLower();
    const QByteArray opening = pair.opening.toByteArray().toLower();
    const QByteArray closing = pair.closing.toByteArray().toLower();
    Part part{0, text.size()};
    for (qsizetype at = lower.indexOf(opening); at >= 0; at = lower.indexOf(opening, at + 1)) {
        const qsizetype end = lower.indexOf(closing, at);
        if (end < 0)
            return std::nullopt;
        part = {at + opening.size(), end - at - opening.size()};
    }
    return part;
}

} // namespace

/// A document in the source box: each part is what stands between its markers, and the text stays.
void targets::regions(const QByteArray& bytes)
{
    static RichTextBox& box = *new RichTextBox; // making one takes long
    box.load(bytes);
    for (const MarkerPair& pair : Markers) {
        const std::optional<Part> part = partOf(bytes, pair);
        try {
            selectRegion(box, pair.region);
            hold(part.has_value(), "a part has a closing marker");
            hold(box.SelStart() == part->start, "a part begins behind its marker");
            hold(box.SelLength() == part->length, "a part ends before its marker");
        } catch (const RuntimeError& error) {
            hold(!part && error.number() == ErrorNumber::InvalidPropertyValue, "only torn parts are refused");
        }
    }
    hold(box.Text() == bytes, "the text stays");
}
