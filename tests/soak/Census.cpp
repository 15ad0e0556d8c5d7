// SPDX-License-Identifier: GPL-3.0-or-later

#include "Census.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QThread>
#include <QWidget>
#include <malloc.h>
#include <mutex>
#include <unistd.h>

// What the library calls for each object that is made and that goes, at these places; it is meant for
// inspecting tools and has no header of its own in the installed library.
extern Q_CORE_EXPORT quintptr qtHookData[]; // NOLINT: the library's name and type

namespace brindlemark {

namespace {

constexpr size_t ObjectAdded = 3;
constexpr size_t ObjectRemoved = 4;

std::mutex objectsLock;

QSet<QObject*>& objects()
{
    static auto* all = new QSet<QObject*>; // outlives the last object
    return *all;
}

void added(QObject* object)
{
    const std::lock_guard guard(objectsLock);
    objects().insert(object);
}

void removed(QObject* object)
{
    const std::lock_guard guard(objectsLock);
    objects().remove(object);
}

QMap<QString, int> objectsByClass()
{
    QMap<QString, int> counts;
    const std::lock_guard guard(objectsLock);
    for (const QObject* object : objects()) {
        if (object->thread() == QThread::currentThread())
            ++counts[QString::fromLatin1(object->metaObject()->className())];
    }
    return counts;
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The resident memory of a process in KiB; 0 when it has gone.
double residentOf(const QString& process)
{
    const QList<QByteArray> pages = content(QStringLiteral("/proc/%1/statm").arg(process)).split(' ');
    return pages.size() < 2 ? 0 : pages[1].toDouble() * double(sysconf(_SC_PAGESIZE)) / 1024;
}

QStringList openDescriptors()
{
    QStringList targets;
    const QDir all(QStringLiteral("/proc/self/fd"));
    for (const QString& number : all.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot)) {
        const QString target = QFile::symLinkTarget(all.filePath(number));
        targets << target.section(u'/', -1).section(u':', 0,
                                                    0); // sockets and pipes have numbers, which change
    }
    targets.sort();
    return targets;
}

/// All but the earlier texts, which are meant to stay: as many as there may be, and no more.
QStringList temporaryFiles()
{
    QStringList files;
    QDirIterator all(QDir::tempPath(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        if (const QString file = all.next(); !file.contains(QLatin1String("/Brindlemark-earlier")))
            files << file;
    }
    files.sort();
    return files;
}

/// What stands more often in `now`.
QStringList surplus(const QStringList& before, QStringList now)
{
    for (const QString& entry : before)
        now.removeOne(entry);
    return now;
}

} // namespace

Memory memoryInUse()
{
    const struct mallinfo2 heap = mallinfo2();
    Memory memory{.heap = double(heap.uordblks + heap.hblkhd) / 1024,
                  .program = residentOf(QStringLiteral("self")),
                  .engine = {}};
    for (const int process : processesBelow())
        memory.engine[process] = residentOf(QString::number(process));
    return memory;
}

QList<int> processesBelow()
{
    QMultiMap<int, int> children;
    for (const QString& name :
         QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs)) {
        // "<number> (<name>) <state> <parent> ...", where the name may hold anything
        const QByteArray line = content(QStringLiteral("/proc/%1/stat").arg(name));
        const QList<QByteArray> rest = line.mid(line.lastIndexOf(')') + 2).split(' ');
        if (rest.size() > 1 && rest[0] != "Z")
            children.insert(rest[1].toInt(), name.toInt());
    }
    QList<int> below = children.values(int(getpid()));
    for (qsizetype i = 0; i < below.size(); ++i)
        below << children.values(below[i]);
    return below;
}

void countObjects()
{
    qtHookData[ObjectAdded] = reinterpret_cast<quintptr>(&added);
    qtHookData[ObjectRemoved] = reinterpret_cast<quintptr>(&removed);
}

Census takeCensus()
{
    return {.objects = objectsByClass(),
            .widgets = int(QApplication::allWidgets().size()),
            .processes = int(processesBelow().size()),
            .descriptors = openDescriptors(),
            .files = temporaryFiles()};
}

QStringList leftOver(const Census& before, const Census& now)
{
    QStringList left;
    for (const auto& [name, count] : now.objects.asKeyValueRange()) {
        if (const int more = count - before.objects.value(name); more > 0)
            left << QStringLiteral("%1 of %2").arg(more).arg(name);
    }
    if (now.widgets > before.widgets)
        left << QStringLiteral("%1 widgets").arg(now.widgets - before.widgets);
    if (now.processes > before.processes)
        left << QStringLiteral("%1 processes").arg(now.processes - before.processes);
    for (const QString& descriptor : surplus(before.descriptors, now.descriptors))
        left << QStringLiteral("descriptor of ") + descriptor;
    for (const QString& file : surplus(before.files, now.files))
        left << QStringLiteral("file ") + file;
    return left;
}

} // namespace brindlemark
