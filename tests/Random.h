// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRandomGenerator>
#include <QString>
#include <iterator>

namespace brindlemark {

// Properties over random input. A test's rows are seeds: a fixed few, so that it can be relied on, and a
// fresh one in each run, so that it goes on looking. The seed stands in the name of the row that failed;
// BRINDLEMARK_SEED=<seed> runs that one alone.

/// Adds the column "seed" (a quint32) and its rows.
void addSeeds();

/// A source of random input.
class Random
{
public:
    explicit Random(quint32 seed) : m_generator(seed) {}

    /// 0 to `end` - 1.
    int number(int end) { return m_generator.bounded(end); }
    bool chance() { return number(2) == 1; }
    /// Any 32 bits.
    quint32 bits() { return m_generator.generate(); }
    /// One of a container's elements.
    template <typename List>
    auto of(const List& list)
    {
        return *std::next(std::begin(list), number(int(std::size(list))));
    }
    /// A text of up to so many pieces of all kinds, those with a meaning in files and pages among them; no
    /// line ends.
    QString text(int mostPieces);

private:
    QRandomGenerator m_generator;
};

} // namespace brindlemark
