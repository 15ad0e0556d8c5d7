// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <functional>

namespace brindlemark {

/// A short part of `list`, in its order, for which `fails` is true, as it must be for the whole: such that no
/// element can be left out, unless `fails` has been asked `tries` times before that is known.
template <typename T>
QList<T> shrunk(QList<T> list, const std::function<bool(const QList<T>&)>& fails, int tries)
{
    const auto stillFails = [&](const QList<T>& part) { return tries-- > 0 && fails(part); };

    // Most of what is found is the work of the last few.
    for (qsizetype last = 1; last < list.size() && tries > 0; last *= 4) {
        if (const QList<T> part = list.last(last); stillFails(part)) {
            list = part;
            break;
        }
    }
    qsizetype size = (list.size() + 1) / 2;
    while (!list.isEmpty() && tries > 0) {
        bool shorter = false;
        for (qsizetype at = 0; at < list.size() && tries > 0;) {
            QList<T> part = list;
            part.remove(at, qMin(size, list.size() - at));
            if (stillFails(part)) {
                list = part;
                shorter = true;
            } else {
                at += size;
            }
        }
        if (size == 1 && !shorter)
            break;
        if (size > 1)
            size = (size + 1) / 2;
    }
    return list;
}

} // namespace brindlemark
