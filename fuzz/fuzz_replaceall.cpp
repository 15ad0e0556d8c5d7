// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "services/Text.h"

#include <optional>

using namespace brindlemark;

namespace {

/// One replacement after the other, each time from the start. No value: it grows and grows.
template <typename Text>
std::optional<Text> replaced(Text text, const Text& find, const Text& with)
{
    for (int rounds = 0; !find.isEmpty() && text.contains(find); ++rounds) {
        if (rounds == 200 || text.size() > 5'000)
            return std::nullopt;
        text.replace(text.indexOf(find), find.size(), with);
    }
    return text;
}

template <typename Text>
void check(const Text& text, const Text& find, const Text& with)
{
    if (!find.isEmpty() && with.contains(find))
        return; // would never end
    if (const std::optional<Text> expected = replaced(text, find, with)) {
        hold(ReplaceAll(text, find, with) == *expected,
             "the first occurrence goes first, until there is none");
    }
}

} // namespace

/// What to find, what to put there, and the text.
void targets::replaceall(const QByteArray& bytes)
{
    Fields fields(bytes);
    const QByteArray find = fields.next();
    const QByteArray with = fields.next();
    check(fields.rest(), find, with);
    check(textOf(fields.rest()), textOf(find), textOf(with));
}
