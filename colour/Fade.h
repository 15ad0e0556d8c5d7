// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/Codes.h"

#include <QString>
#include <QStringList>
#include <array>

namespace brindlemark {

// The fade engine: plain text in, HTML out in which every character carries its own colour. Colours run in
// steps: of a run of n characters from colour A to colour B, character i (from 1) stands i of n steps from A,
// so A itself is never seen and the last character has exactly B. Each channel is computed in double
// precision and rounded to the nearest whole number, halves to the even one.
//
// A character is what the reader sees as one: an emoji or an accented letter is never cut in two. Blanks,
// line ends and what has a meaning in HTML are characters like all others; CR LF are two. Nothing is escaped.

/// The text's characters, in order.
QStringList fadeCharacters(const QString& text);

/// Fades over five colours, in four runs that are as long as each other or one character longer than those
/// behind. `wavy` raises and lowers the characters in turn. An empty text gives an empty one. Throws
/// RuntimeError(Overflow) for more than 32767 characters.
QString fadeFive(const std::array<Channels, 5>& colors, const QString& text, bool wavy);

/// Fades over two colours, in one run. Unlike those of `fadeFive` its tags are never closed and their values
/// have no quotes, so the colour text stands between "=" and ">". Throws as `fadeFive`.
QString fadeTwo(const Channels& from, const Channels& to, const QString& text, bool wavy);

} // namespace brindlemark
