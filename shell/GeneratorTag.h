// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArray>
#include <QByteArrayView>
#include <optional>
#include <vector>

namespace brindlemark {

/// How the generator tag of a page begins, up to its name. It belongs to the form of the pages, which are
/// compared by literal text, and stays as it is when the program gets a new number.
inline constexpr char GeneratorStart[] = "<META content=\"Brindlemark 1.0\" ";

/// Where the generator tags of a text are, the case of letters aside.
struct GeneratorTags
{
    /// What the stamp replaces by `GeneratorStart`: from the "<" up to and with the blank before the name.
    std::vector<TextRange> starts;
    /// A "<META content=" behind which no generator tag ends. It stands behind all the others.
    std::optional<TextRange> torn;
};

/// Finds the tags of a text, up to the first torn one.
GeneratorTags findGeneratorTags(QByteArrayView text);

/// The text with the product's name in each generator tag. Throws RuntimeError(InvalidPropertyValue) for a
/// torn one.
QByteArray stamped(QByteArrayView text);

} // namespace brindlemark
