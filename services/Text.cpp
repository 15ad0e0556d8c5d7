// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Text.h"

#include "services/Desktop.h"

#include <vector>

namespace brindlemark {

namespace {

/// Builds the result in `done`, which never holds `find` but at its end: an occurrence is complete only when
/// its last character is appended. So only the end is looked at, and no text is moved. Copies the caller's
/// texts, since a handler that runs meanwhile may change the variables they came from.
template <typename Text, typename View>
class Replacement
{
public:
    Replacement(const Text& text, const Text& find, const Text& with)
        : m_text(text), m_find(find), m_with(with)
    {
        Q_ASSERT(find.isEmpty() || !with.contains(find));
    }

    Text run() const
    {
        if (m_find.isEmpty())
            return m_text;
        Text done;
        done.reserve(m_text.size());
        std::vector<View> ahead{View(m_text)}; // pieces still to be read; the next one is the last
        EventYield events;
        while (!ahead.empty()) {
            const View piece = ahead.back();
            ahead.pop_back();
            const qsizetype last = piece.indexOf(m_find.back());
            const qsizetype taken = last < 0 ? piece.size() : last + 1;
            done.append(piece.first(taken));
            if (taken < piece.size())
                ahead.push_back(piece.sliced(taken));
            if (last >= 0 && done.endsWith(m_find)) {
                events.serve();
                done.chop(m_find.size());
                ahead.push_back(View(m_with));
            }
        }
        return done;
    }

private:
    Text m_text;
    Text m_find;
    Text m_with;
};

} // namespace

QByteArray ReplaceAll(const QByteArray& text, const QByteArray& find, const QByteArray& with)
{
    return Replacement<QByteArray, QByteArrayView>(text, find, with).run();
}

QString ReplaceAll(const QString& text, const QString& find, const QString& with)
{
    return Replacement<QString, QStringView>(text, find, with).run();
}

} // namespace brindlemark
