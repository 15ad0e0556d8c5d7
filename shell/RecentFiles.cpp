// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/RecentFiles.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace brindlemark {

QList<RecentFile> RecentFiles::files() const
{
    QList<RecentFile> files;
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return files;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& line : lines) { // "120 /home/seller/lamp.htm"
        const qsizetype blank = line.indexOf(u' ');
        bool isNumber = false;
        const int caret = QStringView(line).first(std::max<qsizetype>(blank, 0)).toInt(&isNumber);
        if (isNumber && files.size() < Most)
            files.push_back({line.sliced(blank + 1), std::max(caret, 0)});
    }
    return files;
}

void RecentFiles::note(const RecentFile& file) const
{
    if (file.path.contains(u'\n'))
        return;
    const FileTurn turn(m_file);
    QList<RecentFile> all = files();
    all.removeIf([&](const RecentFile& one) { return one.path == file.path; });
    all.push_front(file);
    write(all.first(std::min<qsizetype>(all.size(), Most)));
}

void RecentFiles::clear() const
{
    const FileTurn turn(m_file);
    write({});
}

void RecentFiles::write(const QList<RecentFile>& files) const
{
    QByteArray text;
    for (const RecentFile& file : files)
        text += QByteArray::number(file.caret) + ' ' + file.path.toUtf8() + '\n';
    try {
        writeFile(m_file, text);
    } catch (const RuntimeError&) {
        // The list stays as it was.
    }
}

QStringList shownNames(const QList<RecentFile>& files)
{
    QStringList names;
    for (const RecentFile& file : files)
        names << QFileInfo(file.path).fileName();
    QStringList shown = names;
    for (qsizetype i = 0; i < files.size(); ++i) {
        if (names.count(names.at(i)) > 1) {
            shown[i] +=
                QStringLiteral(" (%1)").arg(QDir::toNativeSeparators(QFileInfo(files.at(i).path).path()));
        }
    }
    return shown;
}

} // namespace brindlemark
