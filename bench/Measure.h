// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace brindlemark {

// What all benchmark programs share: each figure is measured beside its rivals in the same run, taking turns,
// and printed in lines that `report` makes a page of.

/// One repetition of something: what it took, in the figure's unit.
using Repetition = std::function<double()>;

/// A repetition in milliseconds. What `prepare` does isn't counted; where `holds` says no afterwards, the
/// program ends with exit code 1, for a wrong result has no speed.
Repetition timed(const std::function<void()>& run, const std::function<void()>& prepare = {},
                 const std::function<bool()>& holds = {});

/// The same of what is too short for a clock: run as often as fills some milliseconds, the time of one is
/// told.
Repetition batched(const std::function<void()>& run);

/// Milliseconds of one run, for a repetition that must not count all it does.
double milliseconds(const std::function<void()>& run);

/// The outcome of an operation is kept from the optimiser.
template <typename Value>
void keep(const Value& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

/// A file written the shortest way, and on the disk afterwards: the limit of all that saves.
void writeAndSync(const QString& path, const QByteArray& bytes);

/// Ends the program with exit code 1 and a reason unless `true`.
void require(bool condition, const char* reason);

/// `Limit` is what no program can beat, such as the copy of the bytes.
enum class Role { Ours, Peer, Limit };

struct Rival
{
    Role role;
    std::string name;
    Repetition repetition;
};

/// What ours shall not exceed; 0 where nothing is asked.
struct Target
{
    double most = 0;       ///< in the figure's unit
    double timesPeer = 0;  ///< of the first peer
    double timesLimit = 0; ///< of the first limit
};

struct Figure
{
    std::string group;
    /// A name of its own; in a growth curve, the size.
    std::string name;
    Target target;
    std::vector<Rival> rivals; ///< ours first
    std::string unit = "ms";
    bool once = false; ///< the rivals only tell what is known: they aren't repeated
};

/// Repeats each rival ten times in turns and prints medians and extremes. Rivals that take long are repeated
/// less often; the count is printed too.
void measure(const Figure& figure);

/// A growth curve: one figure for each size, smallest first. A rival that was slow with one size is left out
/// with the next. `targets` are those of single sizes, by their names.
struct Size
{
    std::string name;
    qsizetype value;
};
void measureGrowth(const std::string& group, const Target& target, const std::vector<Size>& sizes,
                   const std::function<std::vector<Rival>(qsizetype size)>& rivals,
                   const std::map<std::string, Target>& targets = {});

} // namespace brindlemark
