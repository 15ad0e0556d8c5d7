// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/AppPath.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace brindlemark {

namespace {

QString& chosenFolder()
{
    static QString folder;
    return folder;
}

/// Copies a file that isn't there, or, if `renewed`, one that is another there.
void copy(const QString& from, const QString& to, bool renewed)
{
    if (!renewed && QFileInfo::exists(to))
        return;
    try {
        const QByteArray bytes = readFile(from);
        if (!QFileInfo::exists(to) || readFile(to) != bytes)
            writeFile(to, bytes);
    } catch (const RuntimeError&) {
        // The user finds empty settings or no help, as where the file was deleted.
    }
}

} // namespace

QString AppPath()
{
    if (!chosenFolder().isEmpty())
        return chosenFolder();
    static const QString folder = settingsFolder(QCoreApplication::applicationDirPath());
    return folder;
}

QString settingsFolder(const QString& programFolder)
{
    if (QFileInfo(programFolder).isWritable())
        return programFolder;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/brindlemark");
}

void fillSettingsFolder(const QString& programFolder, const QString& folder)
{
    if (folder == programFolder)
        return;
    const QDir program(programFolder);
    QStringList makersFiles = {QStringLiteral("Help0.htm")};
    for (const QString& name : QDir(program.filePath(QStringLiteral("help"))).entryList(QDir::Files))
        makersFiles << QStringLiteral("help/") + name;
    QDir(folder).mkpath(QStringLiteral("help"));
    for (const QString& name : program.entryList({QStringLiteral("*.ini")}, QDir::Files))
        copy(program.filePath(name), folder + u'/' + name, false);
    for (const QString& name : makersFiles)
        copy(program.filePath(name), folder + u'/' + name, true);
}

void setAppPath(const QString& folder)
{
    chosenFolder() = folder;
}

QString appFile(QStringView name)
{
    return AppPath() + name.toString().replace(u'\\', u'/');
}

} // namespace brindlemark
