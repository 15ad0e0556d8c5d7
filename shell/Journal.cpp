// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Journal.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QUrl>
#include <algorithm>
#include <exception>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace brindlemark {

namespace {

/// More than anybody runs at once from one folder.
constexpr int MostPlaces = 99;

// The last line of the file: Opening, the document's path, File with the checksum of what that path held
// where it is known, Middle, the checksum of all before it, Closing.
constexpr char Opening[] = "\n<!-- Brindlemark, unsaved text of ";
constexpr char File[] = ", file ";
constexpr char Middle[] = ", checksum ";
constexpr char Closing[] = " -->\n";

QByteArray checksum(QByteArrayView bytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(bytes);
    return hash.result().toHex();
}

/// What the file holds for a text.
QByteArray sealed(QByteArray text, const QString& document, const QByteArray& fileSum)
{
    text += Opening + QUrl::toPercentEncoding(document, "/");
    if (!fileSum.isEmpty())
        text += File + fileSum;
    const QByteArray sum = checksum(text);
    return text += Middle + sum + Closing;
}

/// What a file of the journal holds. One without a whole last line was cut off: what is there is given back
/// as damaged.
Journal::Leftover unsealed(const QByteArray& bytes)
{
    const qsizetype opening = bytes.lastIndexOf(Opening);
    const qsizetype middle = opening < 0 ? -1 : bytes.indexOf(Middle, opening);
    const QByteArray text = bytes.first(opening < 0 ? bytes.size() : opening);
    if (middle < 0 ||
        bytes.sliced(middle) != Middle + checksum(QByteArrayView(bytes).first(middle)) + Closing)
        return {.document = QString(), .text = text, .whole = false};
    const qsizetype name = opening + qsizetype(sizeof Opening) - 1;
    const QByteArray said = bytes.sliced(name, middle - name);
    const qsizetype file = said.indexOf(File); // a path in percent encoding has no blank
    return {.document = QUrl::fromPercentEncoding(file < 0 ? said : said.first(file)),
            .text = text,
            .fileSum = file < 0 ? QByteArray() : said.sliced(file + qsizetype(sizeof File) - 1)};
}

} // namespace

/// A file name that is this program's alone as long as the object lives. When the object goes, the file with
/// the text stays.
class Journal::Place
{
public:
    /// Null when another program has the name, or the folder refuses.
    static std::unique_ptr<Place> take(const QString& path)
    {
        const QByteArray lock = QFile::encodeName(path) + ".lock";
        const int handle = ::open(lock.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (handle < 0)
            return nullptr;
        std::unique_ptr<Place> place(new Place(path, lock, handle));
        if (flock(handle, LOCK_EX | LOCK_NB) != 0 || !place->isCurrent()) {
            place->m_lock.clear(); // the lock file is the other program's and stays
            return nullptr;
        }
        return place;
    }
    ~Place()
    {
        if (!m_lock.isEmpty())
            ::unlink(m_lock.constData());
        ::close(m_handle);
    }
    Q_DISABLE_COPY_MOVE(Place)

    const QString& path() const { return m_path; }

private:
    Place(QString path, QByteArray lock, int handle)
        : m_path(std::move(path)), m_lock(std::move(lock)), m_handle(handle)
    {
    }

    /// Whether the locked file is still the one of that name: a program that was just ending may have removed
    /// it.
    bool isCurrent() const
    {
        struct stat named = {};
        struct stat held = {};
        return stat(m_lock.constData(), &named) == 0 && fstat(m_handle, &held) == 0 &&
               named.st_ino == held.st_ino && named.st_dev == held.st_dev;
    }

    QString m_path;
    QByteArray m_lock;
    int m_handle;
};

Journal::Journal(QStringList folders, const QString& name)
    : m_folders(std::move(folders)), m_fileName(name + QStringLiteral("-%1.htm"))
{
    m_writer.setMaxThreadCount(1); // one after the other
}

Journal::~Journal()
{
    if (m_holds)
        clear();
    finish();
}

void Journal::setFile(const QByteArray& bytes)
{
    m_writer.start([this, bytes] {
        m_fileSum = bytes.isEmpty() || bytes.size() > LongestFile ? QByteArray() : checksum(bytes);
    });
}

void Journal::setFileSum(const QByteArray& sum)
{
    m_writer.start([this, sum] { m_fileSum = sum; });
}

bool Journal::holdsStill(const QString& path, const QByteArray& sum)
{
    try {
        return !sum.isEmpty() && checksum(readFile(path)) == sum;
    } catch (const RuntimeError&) {
        return false; // the user is asked, and sees the file or that it has gone
    }
}

void Journal::keep(const QString& document, const std::function<QByteArray()>& text)
{
    m_holds = true;
    m_writer.start([this, document, text] {
        try {
            if (write(sealed(text(), document, m_fileSum)))
                m_writtenAt = QDateTime::currentMSecsSinceEpoch();
        } catch (const std::exception&) {
            // Most likely no memory for it now. The text before stays, and the next one comes soon; nothing
            // may leave a thread.
            return;
        }
    });
}

void Journal::clear()
{
    m_holds = false;
    m_writer.start([this] {
        m_writtenAt = 0;
        if (m_place)
            QFile::remove(m_place->path()); // one that can't be removed is offered by the next start
        m_place.reset();
    });
}

void Journal::leave()
{
    m_holds = false;
    m_writer.start([this] {
        m_writtenAt = 0;
        m_place.reset();
    });
}

/// Writes to the file in use, or else to a new one in the first folder that takes it. False: none does.
bool Journal::write(const QByteArray& bytes)
{
    if (m_place) {
        try {
            writeFile(m_place->path(), bytes);
            return true;
        } catch (const RuntimeError&) {
            // The disk may be full; another folder may have room.
        }
    }
    return std::ranges::any_of(m_folders,
                               [&](const QString& folder) { return writeElsewhere(folder, bytes); });
}

bool Journal::writeElsewhere(const QString& folder, const QByteArray& bytes)
{
    for (int number = 1; number <= MostPlaces; ++number) {
        const QString path = folder + u'/' + m_fileName.arg(number);
        if (QFile::exists(path))
            continue;
        std::unique_ptr<Place> place = Place::take(path);
        if (!place || QFile::exists(path))
            continue;
        try {
            writeFile(path, bytes);
        } catch (const RuntimeError&) {
            return false; // the folder would refuse other names too; where all refuse, there is no copy
        }
        if (m_place)
            QFile::remove(m_place->path()); // it holds the older text
        m_place = std::move(place);
        return true;
    }
    return false;
}

std::optional<Journal::Leftover> Journal::takeLeftover()
{
    finish();
    for (const QString& folder : m_folders) {
        const QDir dir(folder);
        for (const QString& name :
             dir.entryList({m_fileName.arg(QLatin1Char('*'))}, QDir::Files, QDir::Name)) {
            if (m_given.contains(dir.filePath(name)))
                continue; // also one that can't be removed
            std::unique_ptr<Place> place = Place::take(dir.filePath(name));
            if (!place)
                continue;
            Leftover leftover;
            try {
                leftover = unsealed(readFile(place->path()));
            } catch (const RuntimeError&) {
                continue; // gone meanwhile, or not ours to read: it stays for a start that can
            }
            leftover.path = place->path();
            m_given << leftover.path;
            m_place = std::move(place);
            if (!leftover.text.isEmpty())
                return leftover;
            clear(); // cut off before the first byte
            finish();
        }
    }
    return std::nullopt;
}

} // namespace brindlemark
