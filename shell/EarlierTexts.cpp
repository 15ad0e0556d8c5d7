// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/EarlierTexts.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QUrl>
#include <algorithm>
#include <array>
#include <exception>
#include <sys/stat.h>
#include <utility>

namespace brindlemark {

namespace {

const QString FolderName = QStringLiteral("Brindlemark-earlier");
/// Moment in milliseconds since 1970, with zeros on the left, and the first digits of the text's checksum.
const QString FileName = QStringLiteral("%1-%2.htm");
constexpr int MomentDigits = 14;
constexpr qsizetype SumDigits = 32;

// The last line of a file: Opening, the document's path, Reason, a word of `Words`, Closing.
constexpr char Opening[] = "\n<!-- Brindlemark, earlier text of ";
constexpr char Reason[] = ", ";
constexpr char Closing[] = " -->\n";

struct Word
{
    Dropped why;
    const char* word;
};
constexpr std::array<Word, 5> Words = {{{Dropped::Overwritten, "overwritten"},
                                        {Dropped::Replaced, "replaced"},
                                        {Dropped::GivenUp, "given-up"},
                                        {Dropped::NotSaved, "not-saved"},
                                        {Dropped::Declined, "declined"}}};

QByteArray sealOf(const QString& document, Dropped why)
{
    const auto* word = std::ranges::find(Words, why, &Word::why);
    return Opening + QUrl::toPercentEncoding(document, "/") + Reason + word->word + Closing;
}

/// Reads the last line of a file whose last bytes are `end`. False: it is none of the program's, or was cut
/// off.
bool unseal(QByteArrayView end, qint64 fileSize, EarlierText& kept)
{
    const qsizetype opening = end.lastIndexOf(Opening);
    const qsizetype name = opening + qsizetype(sizeof Opening) - 1;
    const qsizetype reason = end.lastIndexOf(Reason);
    const qsizetype word = reason + qsizetype(sizeof Reason) - 1;
    if (opening < 0 || reason < name || !end.endsWith(Closing))
        return false;
    const QByteArrayView said = end.sliced(word).chopped(qsizetype(sizeof Closing) - 1);
    const auto* known =
        std::ranges::find(Words, said, [](const Word& entry) { return QByteArrayView(entry.word); });
    if (known == Words.end())
        return false;
    kept.document = QUrl::fromPercentEncoding(end.sliced(name, reason - name).toByteArray());
    kept.why = known->why;
    kept.size = fileSize - (end.size() - opening);
    return true;
}

/// The names of a folder's files, the oldest first.
QStringList namesIn(const QString& folder)
{
    return QDir(folder).entryList({FileName.arg(QStringLiteral("*"), QStringLiteral("*"))}, QDir::Files,
                                  QDir::Name);
}

/// Removes the oldest texts where there are too many.
void makeRoom(const QString& folder)
{
    qint64 bytes = 0;
    qsizetype texts = 0;
    QStringList names = namesIn(folder);
    std::ranges::reverse(names);
    for (const QString& name : std::as_const(names)) {
        const QString path = folder + u'/' + name;
        bytes += QFileInfo(path).size();
        if (++texts > EarlierTexts::MostTexts || bytes > EarlierTexts::MostBytes)
            QFile::remove(path);
    }
}

} // namespace

EarlierTexts::EarlierTexts(QStringList folders) : m_folders(std::move(folders))
{
    for (QString& folder : m_folders)
        folder += u'/' + FolderName;
    m_writer.setMaxThreadCount(1); // one after the other
}

EarlierTexts::~EarlierTexts()
{
    m_writer.waitForDone();
}

void EarlierTexts::keep(const QString& document, Dropped why, const std::function<QByteArray()>& text)
{
    m_writer.start([this, document, why, text] {
        try {
            write(text(), document, why);
        } catch (const std::exception&) {
            // Most likely no memory for it now: this one is not kept. Nothing may leave a thread.
            return;
        }
    });
}

bool EarlierTexts::keepFile(const QString& path, const QByteArray& next)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return true;
    if (file.size() > LongestText)
        return false;
    try {
        QByteArray old = readFile(path);
        if (old != next)
            keep(path, Dropped::Overwritten, [old = std::move(old)] { return old; });
    } catch (const RuntimeError&) {
        // What can't be read can't be kept; the save goes on, and tells if it fails too.
    }
    return true;
}

void EarlierTexts::write(const QByteArray& text, const QString& document, Dropped why)
{
    if (text.isEmpty() || text.size() > LongestText)
        return;
    for (const QString& folder : m_folders) {
        if (writeInto(folder, text, sealOf(document, why)))
            return;
    }
}

/// False: the folder refuses.
bool EarlierTexts::writeInto(const QString& folder, const QByteArray& text, const QByteArray& seal)
{
    if (::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) != 0 && !QFileInfo(folder).isDir())
        return false;
    const QString sum = QString::fromLatin1(
        QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex().first(SumDigits));
    const QStringList equal = namesIn(folder).filter(u'-' + sum);

    m_lastMoment = std::max(m_lastMoment + 1,
                            QDateTime::currentMSecsSinceEpoch()); // in order, also within a millisecond
    const QString path =
        folder + u'/' + FileName.arg(QString::number(m_lastMoment).rightJustified(MomentDigits, u'0'), sum);
    try {
        writeFile(path, text + seal);
    } catch (const RuntimeError&) {
        return false;
    }
    for (const QString& name : equal)
        QFile::remove(folder + u'/' + name);
    makeRoom(folder);
    return true;
}

QList<EarlierText> EarlierTexts::list()
{
    constexpr qint64 LongestSeal =
        20'000; // the longest path there is, each byte written as three, and the rest
    m_writer.waitForDone();
    QList<EarlierText> texts;
    for (const QString& folder : std::as_const(m_folders)) {
        for (const QString& name : namesIn(folder)) {
            EarlierText kept{.path = folder + u'/' + name, .document = {}, .moment = {}};
            QFile file(kept.path);
            if (!file.open(QIODevice::ReadOnly) ||
                !file.seek(std::max<qint64>(0, file.size() - LongestSeal)) ||
                !unseal(file.readAll(), file.size(), kept))
                continue; // removed meanwhile, or none of ours
            kept.moment = QDateTime::fromMSecsSinceEpoch(name.first(name.indexOf(u'-')).toLongLong());
            texts.append(kept);
        }
    }
    std::ranges::stable_sort(texts, std::greater(), &EarlierText::moment);
    return texts;
}

QByteArray EarlierTexts::text(const EarlierText& kept)
{
    return readFile(kept.path).first(kept.size);
}

} // namespace brindlemark
