// SPDX-License-Identifier: GPL-3.0-or-later

#include "Measure.h"

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <set>
#include <unistd.h>

namespace brindlemark {

namespace {

/// How long one batch lasts at least, in milliseconds.
constexpr double Batch = 5;

/// How much is measured. All times in milliseconds.
struct Effort
{
    int repetitions;
    double budget; ///< of one rival; whoever has used it up is repeated no more
    double slow;   ///< whoever takes longer for one size isn't asked for the next
};

const Effort& effort()
{
    static const Effort chosen =
        qEnvironmentVariableIsEmpty("BENCH_QUICK") ? Effort{10, 5000, 5000} : Effort{2, 1000, 300};
    return chosen;
}

struct Result
{
    std::vector<double> values;
    double spent = 0; // with all that was prepared

    double median() const
    {
        const size_t half = values.size() / 2;
        return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
    }
};

/// Rivals take turns, so that what else the machine does meets them alike.
std::vector<Result> repeat(const Figure& figure)
{
    const std::vector<Rival>& rivals = figure.rivals;
    std::vector<Result> results(rivals.size());
    const int repetitions = figure.once ? 1 : effort().repetitions;
    for (int round = 0; round < repetitions; ++round) {
        for (size_t i = 0; i < rivals.size(); ++i) {
            Result& result = results[i];
            if (result.spent > effort().budget)
                continue;
            double value = 0;
            const auto once = [&] { value = rivals[i].repetition(); };
            const double time = milliseconds(once);
            if (round == 0 && !figure.once &&
                time < effort().budget / effort().repetitions) // the first warms caches up
                once();
            result.spent += time;
            result.values.push_back(value);
        }
    }
    for (Result& result : results)
        std::sort(result.values.begin(), result.values.end());
    return results;
}

std::optional<double> firstOf(Role role, const Figure& figure, const std::vector<Result>& results)
{
    for (size_t i = 0; i < results.size(); ++i) {
        if (figure.rivals[i].role == role)
            return results[i].median();
    }
    return std::nullopt;
}

/// "met", "misses", or "-" where nothing is asked or there is nobody to compare with.
const char* verdict(const Figure& figure, const std::vector<Result>& results)
{
    const double ours = results.front().median();
    bool asked = false;
    bool met = true;
    const auto demand = [&](double factor, std::optional<double> measure) {
        if (factor <= 0 || !measure)
            return;
        asked = true;
        met = met && ours <= factor * *measure;
    };
    demand(figure.target.most, 1);
    demand(figure.target.timesPeer, firstOf(Role::Peer, figure, results));
    demand(figure.target.timesLimit, firstOf(Role::Limit, figure, results));
    return asked ? (met ? "met" : "misses") : "-";
}

/// "100 ms, 1 x peer".
std::string targetText(const Figure& figure)
{
    std::string text;
    const auto add = [&text](double number, const std::string& unit) {
        if (number > 0)
            text += (text.empty() ? "" : ", ") + QByteArray::number(number).toStdString() + ' ' + unit;
    };
    add(figure.target.most, figure.unit);
    add(figure.target.timesPeer, "x peer");
    add(figure.target.timesLimit, "x limit");
    return text.empty() ? "-" : text;
}

constexpr const char* RoleNames[] = {"ours", "peer", "limit"};

/// One line a rival: kind, group, name, role, rival, repetitions, median, least, most, unit, target, verdict.
void print(const Figure& figure, const std::vector<Result>& results, const char* kind)
{
    for (size_t i = 0; i < results.size(); ++i) {
        const Rival& rival = figure.rivals[i];
        const Result& result = results[i];
        std::printf("%s\t%s\t%s\t%s\t%s\t%zu\t%.9g\t%.9g\t%.9g\t%s\t%s\t%s\n", kind, figure.group.c_str(),
                    figure.name.c_str(), RoleNames[int(rival.role)], rival.name.c_str(), result.values.size(),
                    result.median(), result.values.front(), result.values.back(), figure.unit.c_str(),
                    targetText(figure).c_str(), verdict(figure, results));
    }
    std::fflush(stdout);
}

/// Whether a figure of this name is wanted: `BENCH_ONLY` may ask for those whose name has a text in it.
bool isWanted(const std::string& name)
{
    static const std::string only = qgetenv("BENCH_ONLY").toStdString();
    return name.find(only) != std::string::npos;
}

} // namespace

double milliseconds(const std::function<void()>& run)
{
    QElapsedTimer clock;
    clock.start();
    run();
    return double(clock.nsecsElapsed()) / 1e6;
}

void writeAndSync(const QString& path, const QByteArray& bytes)
{
    const int handle = open(qPrintable(path), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    require(handle >= 0 && write(handle, bytes.constData(), size_t(bytes.size())) == bytes.size() &&
                fsync(handle) == 0 && close(handle) == 0,
            "the disk takes no file");
}

void require(bool condition, const char* reason)
{
    if (condition)
        return;
    std::fprintf(stderr, "benchmark: %s\n", reason);
    std::_Exit(1);
}

Repetition timed(const std::function<void()>& run, const std::function<void()>& prepare,
                 const std::function<bool()>& holds)
{
    return [=] {
        if (prepare)
            prepare();
        const double time = milliseconds(run);
        require(!holds || holds(), "a wrong result");
        return time;
    };
}

Repetition batched(const std::function<void()>& run)
{
    return [=] {
        qint64 count = 0;
        QElapsedTimer clock;
        clock.start();
        do {
            run();
            ++count;
        } while (double(clock.nsecsElapsed()) / 1e6 < Batch);
        return double(clock.nsecsElapsed()) / 1e6 / double(count);
    };
}

void measure(const Figure& figure)
{
    if (isWanted(figure.name))
        print(figure, repeat(figure), "figure");
}

void measureGrowth(const std::string& group, const Target& target, const std::vector<Size>& sizes,
                   const std::function<std::vector<Rival>(qsizetype size)>& rivals,
                   const std::map<std::string, Target>& targets)
{
    if (!isWanted(group))
        return;
    std::set<std::string> slow;
    for (const Size& size : sizes) {
        const auto own = targets.find(size.name);
        Figure figure = {group, size.name, own == targets.end() ? target : own->second, rivals(size.value)};
        std::erase_if(figure.rivals, [&](const Rival& rival) { return slow.contains(rival.name); });
        if (figure.rivals.empty() || figure.rivals.front().role != Role::Ours)
            return;
        const std::vector<Result> results = repeat(figure);
        print(figure, results, "growth");
        for (size_t i = 0; i < results.size(); ++i) {
            if (results[i].median() > effort().slow)
                slow.insert(figure.rivals[i].name);
        }
    }
}

} // namespace brindlemark
