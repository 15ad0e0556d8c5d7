// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/ByteMap.h"

#include <algorithm>

namespace brindlemark {

namespace {

bool beginsCharacter(char byte)
{
    return (byte & 0xC0) != 0x80;
}

qsizetype charactersIn(QByteArrayView text)
{
    return std::count_if(text.begin(), text.end(), beginsCharacter);
}

} // namespace

void ByteMap::setEncoding(TextEncoding encoding)
{
    m_encoding = encoding;
    m_mark = {};
}

QByteArray ByteMap::toInner(const QByteArray& bytes) const
{
    return toUtf8(bytes, m_encoding);
}

QByteArray ByteMap::fromInner(QByteArrayView text) const
{
    return isIdentity() ? text.toByteArray() : brindlemark::encode(QString::fromUtf8(text), m_encoding);
}

qsizetype ByteMap::toInner(QByteArrayView text, qsizetype position) const
{
    if (isIdentity())
        return std::clamp<qsizetype>(position, 0, text.size());
    const qsizetype wanted = std::max<qsizetype>(position, 0);
    while (m_mark.outer > wanted)
        m_mark.outer -= beginsCharacter(text[--m_mark.inner]);
    while (m_mark.inner < text.size() && !(m_mark.outer == wanted && beginsCharacter(text[m_mark.inner])))
        m_mark.outer += beginsCharacter(text[m_mark.inner++]);
    return m_mark.inner;
}

qsizetype ByteMap::fromInner(QByteArrayView text, qsizetype position) const
{
    if (isIdentity())
        return position;
    if (position >= m_mark.inner) {
        m_mark.outer += charactersIn(text.sliced(m_mark.inner, position - m_mark.inner));
    } else {
        m_mark.outer -= charactersIn(text.sliced(position, m_mark.inner - position));
    }
    m_mark.inner = position;
    return m_mark.outer;
}

void ByteMap::changed(qsizetype position)
{
    if (position < m_mark.inner)
        m_mark = {};
}

} // namespace brindlemark
