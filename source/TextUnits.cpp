// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/TextUnits.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace brindlemark {

int TextUnits::offset(qsizetype position)
{
    countInserted();
    const qsizetype behindLast = position - m_last.position;
    if (m_end && m_end->position - position < std::abs(behindLast)) {
        m_last = {position, m_end->offset - unitsBetween(position, m_end->position)};
    } else if (position < std::abs(behindLast)) {
        m_last = {position, unitsBetween(0, position)};
    } else if (behindLast < 0) {
        m_last = {position, m_last.offset - unitsBetween(position, m_last.position)};
    } else {
        m_last = {position, m_last.offset + unitsBetween(m_last.position, position)};
    }
    return m_last.offset;
}

qsizetype TextUnits::position(int offset)
{
    offset = std::clamp(offset, 0, count());
    if (offset == m_end->offset)
        return m_end->position;
    Place from = m_last;
    for (const Place& end : {Place(), *m_end}) {
        if (std::abs(end.offset - offset) < std::abs(from.offset - offset))
            from = end;
    }
    const long found =
        m_box.SendScintilla(QsciScintillaBase::SCI_POSITIONRELATIVECODEUNITS,
                            static_cast<unsigned long>(from.position), long(offset - from.offset));
    this->offset(found); // may be in front of a pair of surrogates
    return found;
}

int TextUnits::count()
{
    countInserted();
    if (!m_end) {
        const qsizetype length = m_box.SendScintilla(QsciScintillaBase::SCI_GETLENGTH);
        m_end = Place{length, m_last.offset + unitsBetween(m_last.position, length)};
    }
    return m_end->offset;
}

void TextUnits::beforeInsertion(TextRange range)
{
    beforeChange(range.start);
    m_inserted = range;
}

void TextUnits::beforeDeletion(TextRange range)
{
    beforeChange(range.start);
    if (m_end)
        m_end = Place{m_end->position - range.length, m_end->offset - unitsBetween(range.start, range.end())};
}

/// What is in front of a change stays as it is counted.
void TextUnits::beforeChange(qsizetype position)
{
    countInserted();
    if (position < m_last.position)
        offset(position);
}

/// What is about to come in can't be counted before it is there.
void TextUnits::countInserted()
{
    const TextRange inserted = std::exchange(m_inserted, {});
    if (m_end && inserted.length > 0) {
        m_end = Place{m_end->position + inserted.length,
                      m_end->offset + unitsBetween(inserted.start, inserted.end())};
    }
}

int TextUnits::unitsBetween(qsizetype start, qsizetype end) const
{
    return int(m_box.SendScintilla(QsciScintillaBase::SCI_COUNTCODEUNITS, static_cast<unsigned long>(start),
                                   long(end)));
}

} // namespace brindlemark
