// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"

#include <QFile>
#include <QStringDecoder>
#include <QTemporaryDir>
#include <stdexcept>

namespace brindlemark {

QByteArray Fields::next()
{
    const qsizetype end = m_rest.indexOf('\x1E');
    QByteArray field = m_rest.left(end);
    m_rest = end < 0 ? QByteArray() : m_rest.mid(end + 1);
    return field;
}

QString Fields::nextText()
{
    return textOf(next());
}

uint Fields::nextNumber()
{
    uint number = 0;
    for (const char c : next())
        number = number * 31 + static_cast<uchar>(c);
    return number;
}

QString textOf(const QByteArray& bytes)
{
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom)(bytes);
}

void hold(bool holds, const char* rule)
{
    if (!holds)
        throw std::logic_error(rule);
}

QString scratchFile(const char* name)
{
    static const QTemporaryDir folder;
    return folder.filePath(QLatin1String(name));
}

QByteArray contentOf(const QString& file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

void fill(const QString& file, const QByteArray& bytes)
{
    QFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size())
        throw std::runtime_error("a scratch file can't be written");
}

} // namespace brindlemark
