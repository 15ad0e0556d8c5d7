// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <vector>

namespace brindlemark {

/// Which lines, counted from 0, of two texts have no equal partner in the other.
struct LineDifference
{
    std::vector<qsizetype> first;
    std::vector<qsizetype> second;
};

/// Compares two texts line by line; a line's end counts as a part of it. What is left of both without the
/// lines of the result is the same, and as much as can be, found by the algorithm of Myers ("An O(ND)
/// Difference Algorithm", 1986). Texts that differ in more than a thousand lines are compared only from both
/// ends: all between differs then.
LineDifference compareLines(QByteArrayView first, QByteArrayView second);

} // namespace brindlemark
