// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/LineDifference.h"

#include <algorithm>
#include <optional>
#include <span>

namespace brindlemark {

namespace {

using Lines = std::span<const QByteArrayView>;

std::vector<QByteArrayView> split(QByteArrayView text)
{
    std::vector<QByteArrayView> lines;
    while (!text.isEmpty()) {
        const qsizetype end = text.indexOf('\n');
        const qsizetype length = end < 0 ? text.size() : end + 1;
        lines.push_back(text.first(length));
        text = text.sliced(length);
    }
    return lines;
}

/// The rows of Myers' search: row d holds, for each diagonal k of -d, -d + 2 ... d, how far d differences
/// reach in the first text. Nothing when it takes more than `most`.
std::optional<std::vector<std::vector<qsizetype>>> search(Lines first, Lines second, qsizetype most)
{
    const auto firstLines = qsizetype(first.size());
    const auto secondLines = qsizetype(second.size());
    std::vector<std::vector<qsizetype>> rows;
    for (qsizetype d = 0; d <= most; ++d) {
        std::vector<qsizetype> row(size_t(d) + 1);
        for (qsizetype i = 0; i <= d; ++i) {
            const qsizetype k = 2 * i - d;
            qsizetype x = 0;
            if (d > 0) {
                const std::vector<qsizetype>& before = rows.back();
                const bool down = i == 0 || (i < d && before[size_t(i) - 1] < before[size_t(i)]);
                x = down ? before[size_t(i)] : before[size_t(i) - 1] + 1;
            }
            while (x < firstLines && x - k < secondLines && x - k >= 0 &&
                   first[size_t(x)] == second[size_t(x - k)])
                ++x;
            row[size_t(i)] = x;
            if (x >= firstLines && x - k >= secondLines) {
                rows.push_back(std::move(row));
                return rows;
            }
        }
        rows.push_back(std::move(row));
    }
    return std::nullopt;
}

} // namespace

LineDifference compareLines(QByteArrayView first, QByteArrayView second)
{
    constexpr qsizetype MostDifferences = 1000;
    const std::vector<QByteArrayView> firstLines = split(first);
    const std::vector<QByteArrayView> secondLines = split(second);
    Lines a(firstLines);
    Lines b(secondLines);
    qsizetype begin = 0;
    while (!a.empty() && !b.empty() && a.front() == b.front()) {
        a = a.subspan(1);
        b = b.subspan(1);
        ++begin;
    }
    while (!a.empty() && !b.empty() && a.back() == b.back()) {
        a = a.first(a.size() - 1);
        b = b.first(b.size() - 1);
    }

    LineDifference result;
    const auto rows = search(a, b, MostDifferences);
    if (!rows) {
        for (size_t i = 0; i < a.size(); ++i)
            result.first.push_back(begin + qsizetype(i));
        for (size_t i = 0; i < b.size(); ++i)
            result.second.push_back(begin + qsizetype(i));
        return result;
    }
    // Back along the way that was found, from both ends of the texts.
    auto x = qsizetype(a.size());
    auto y = qsizetype(b.size());
    for (auto d = qsizetype(rows->size()) - 1; d > 0; --d) {
        const std::vector<qsizetype>& before = (*rows)[size_t(d) - 1];
        const qsizetype i = (x - y + d) / 2;
        const bool down = i == 0 || (i < d && before[size_t(i) - 1] < before[size_t(i)]);
        const qsizetype k = down ? x - y + 1 : x - y - 1;
        x = before[size_t(down ? i : i - 1)];
        y = x - k;
        if (down) {
            result.second.push_back(begin + y);
        } else {
            result.first.push_back(begin + x);
        }
    }
    std::ranges::reverse(result.first);
    std::ranges::reverse(result.second);
    return result;
}

} // namespace brindlemark
