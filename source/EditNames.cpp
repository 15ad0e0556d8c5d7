// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/EditNames.h"

#include <algorithm>
#include <limits>

namespace brindlemark {

QString withName(const QString& entry, const QString& name)
{
    return name.isEmpty() ? entry : entry + QStringLiteral(": ") + name;
}

void EditNames::edited(const QString& name)
{
    constexpr qsizetype MostNames = std::numeric_limits<quint8>::max();
    qsizetype place = m_names.indexOf(name);
    if (place < 0) {
        if (m_names.size() <= MostNames)
            m_names << name;
        place = m_names.size() - 1;
    }
    m_edits.resize(m_done);
    m_edits.push_back(quint8(place));
    m_done = m_edits.size();
}

void EditNames::undone()
{
    if (m_done > 0)
        --m_done;
}

void EditNames::redone()
{
    m_done = std::min(m_done + 1, m_edits.size());
}

void EditNames::forget()
{
    m_edits.clear();
    m_done = 0;
}

QString EditNames::undoName() const
{
    return m_done > 0 ? m_names.at(m_edits[m_done - 1]) : QString();
}

QString EditNames::redoName() const
{
    return m_done < m_edits.size() ? m_names.at(m_edits[m_done]) : QString();
}

} // namespace brindlemark
