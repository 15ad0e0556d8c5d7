// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProgramFolder.h"

#include "platform/AppPath.h"

#include <QFile>
#include <QTest>

namespace brindlemark {

ProgramFolder::ProgramFolder()
{
    for (const char* name : {"web.ini", "Help0.htm"}) {
        const QString file = QString::fromLatin1(name);
        if (!QFile::copy(QStringLiteral(SOURCE_DIR "/data/") + file, path(file)))
            QTest::qFail("the shipped files can't be copied", __FILE__, __LINE__);
    }
    setAppPath(m_folder.path());
}

ProgramFolder::~ProgramFolder()
{
    setAppPath(QString());
}

QString ProgramFolder::path(const QString& name) const
{
    return m_folder.filePath(name);
}

QByteArray ProgramFolder::read(const QString& name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(QStringLiteral("can't read ") + name), __FILE__, __LINE__);
    return file.readAll();
}

void ProgramFolder::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        QTest::qFail(qPrintable(QStringLiteral("can't write ") + name), __FILE__, __LINE__);
}

bool ProgramFolder::has(const QString& name) const
{
    return QFile::exists(path(name));
}

} // namespace brindlemark
