// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Files.h"

#include "platform/RuntimeError.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brindlemark {

namespace {

/// More than any document, with what the journal writes around it. A system that promises more memory than it
/// has would let the program read on until it is ended.
constexpr qint64 MostBytes = 3LL << 30;

[[noreturn]] void refuse(const QString& reason)
{
    throw RuntimeError(ErrorNumber::PathFileAccess, reason);
}

std::filesystem::path nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

/// What lies at a path. Throws RuntimeError(PathFileAccess) when that can't be told: a file that is taken for
/// missing would be lost with the next write.
std::filesystem::file_type known(const std::filesystem::file_status& status, const std::error_code& failure)
{
    if (status.type() == std::filesystem::file_type::none)
        refuse(QString::fromLocal8Bit(failure.message().c_str()));
    return status.type();
}

/// What lies at a path, at the end of all links.
std::filesystem::file_type typeOf(const QString& path)
{
    std::error_code failure;
    return known(std::filesystem::status(nativePath(path), failure), failure);
}

/// Where a path leads at the end of its symbolic links. Links are followed one by one and joined as they
/// stand, because "cleaning" a path with ".." behind a linked folder names another file.
QString followLinks(const QString& path)
{
    constexpr int mostLinks = 40; // as many as the kernel follows
    std::filesystem::path place = nativePath(path);
    std::error_code failure;
    for (int links = 0; known(std::filesystem::symlink_status(place, failure), failure) ==
                        std::filesystem::file_type::symlink;
         ++links) {
        if (links == mostLinks)
            refuse(QStringLiteral("Too many levels of symbolic links"));
        const std::filesystem::path target = std::filesystem::read_symlink(place, failure);
        if (failure)
            refuse(QString::fromLocal8Bit(failure.message().c_str()));
        place = place.parent_path() / target;
    }
    return QFile::decodeName(QByteArray::fromStdString(place.string()));
}

/// The permission bits are asked as well as the system: the superuser's files can be protected too.
bool isProtected(const QFileInfo& file)
{
    return !file.isWritable() ||
           !(file.permissions() & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
}

/// Whether the disk has what was written. A disk that fails or is full may say so only here; a file system
/// that can't tell has nothing to say.
[[nodiscard]] bool reachesDisk(const QSaveFile& file)
{
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
}

/// Gives a new file the owner and group of the old one, as far as the system lets: the superuser's writing
/// must not take a file from its owner. Who may not give files away owns what he has written, as ever.
void keepOwner(const QSaveFile& file, const QString& old)
{
    struct stat status = {};
    if (stat(QFile::encodeName(old).constData(), &status) != 0)
        return;
    if (fchown(file.handle(), status.st_uid, status.st_gid) != 0)
        static_cast<void>(fchown(file.handle(), uid_t(-1), status.st_gid) == 0); // of his own groups he may
}

/// Writes and checks everything that can be checked before the old file is replaced. On a full disk one large
/// write comes back short and all later steps report success: only the count shows it.
[[nodiscard]] bool writeWhole(QSaveFile& file, QByteArrayView bytes, QByteArrayView end)
{
    return file.write(bytes.data(), bytes.size()) == bytes.size() &&
           file.write(end.data(), end.size()) == end.size() && file.flush() &&
           file.size() == bytes.size() + end.size() && reachesDisk(file);
}

/// Runs while a turn of this thread has just ended.
QDeadlineTimer& lastTurn()
{
    thread_local QDeadlineTimer timer;
    return timer;
}

} // namespace

QByteArray readFile(const QString& path)
{
    const std::filesystem::file_type type = typeOf(path);
    if (type == std::filesystem::file_type::not_found)
        throw RuntimeError(ErrorNumber::FileNotFound);
    if (type != std::filesystem::file_type::regular) // a pipe or a device might never end
        refuse(QStringLiteral("Not a regular file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(file.errorString());
    if (file.size() > MostBytes)
        refuse(QStringLiteral("File too large"));
    QByteArray bytes = withinMemory([&] { return file.readAll(); });
    if (file.error() != QFileDevice::NoError)
        refuse(file.errorString());
    return bytes;
}

bool isPictureFile(const QString& path)
{
    static const QStringList suffixes = {
        QStringLiteral("png"),  QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("gif"),
        QStringLiteral("webp"), QStringLiteral("bmp"), QStringLiteral("svg")};
    return suffixes.contains(QFileInfo(path).suffix(), Qt::CaseInsensitive);
}

bool isBinaryFile(const QString& path)
{
    constexpr qint64 Beginning = 4096; // bytes
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && file.read(Beginning).contains('\0');
}

void writeFile(const QString& path, QByteArrayView bytes, QByteArrayView end)
{
    const QFileInfo old(followLinks(path));
    const std::filesystem::file_type type = typeOf(old.filePath());
    const bool replaces = type != std::filesystem::file_type::not_found;
    // To put a file in the place of a device would harm the whole system.
    if (replaces && type != std::filesystem::file_type::regular)
        refuse(QStringLiteral("Not a regular file"));
    if (replaces && isProtected(old))
        refuse(QStringLiteral("The file is write-protected"));

    QSaveFile file(old.filePath());
    if (!file.open(QIODevice::WriteOnly))
        refuse(file.errorString());
    if (replaces)
        keepOwner(file, old.filePath()); // in front of the permissions, some of which it takes away
    if ((replaces && !file.setPermissions(old.permissions())) || !writeWhole(file, bytes, end)) {
        const QString reason = file.error() == QFileDevice::NoError
                                   ? QStringLiteral("Not everything could be written")
                                   : file.errorString();
        file.cancelWriting();
        refuse(reason);
    }
    if (!file.commit())
        refuse(file.errorString());
}

FileTurn::FileTurn(const QString& path)
{
    constexpr int Patience = 3000;      // milliseconds: as long as a slow disk takes for a few dozen writes
    constexpr unsigned long Look = 200; // microseconds between two looks whether it is our turn
    const QFileInfo file(path);
    const QFileInfo target(file.exists() ? file.canonicalFilePath() : file.absoluteFilePath());
    m_folder = open(QFile::encodeName(target.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (!lastTurn().hasExpired()) // a program that writes and writes lets those who wait look first
        QThread::usleep(2 * Look);
    const QDeadlineTimer end(Patience);
    while (flock(m_folder, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR) &&
           !end.hasExpired())
        QThread::usleep(Look);
}

FileTurn::~FileTurn()
{
    if (m_folder < 0)
        return;
    close(m_folder);
    lastTurn().setRemainingTime(1);
}

} // namespace brindlemark
