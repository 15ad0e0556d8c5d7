// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <functional>

namespace brindlemark {

/// Why a text was kept.
enum class Dropped {
    Overwritten, ///< it lay in a file over which another was saved
    Replaced,    ///< the source, before the page of a surface or another earlier text took its place
    GivenUp,     ///< unsaved, when the user wanted another document, or the end, without saving
    NotSaved,    ///< the user wanted it saved, and its file refused
    Declined,    ///< unsaved by an earlier run of the program, and not wanted back
};

/// A text that the program has replaced or dropped.
struct EarlierText
{
    QString path;     ///< of the file that holds it
    QString document; ///< the full path of the document, or "Untitled"
    QDateTime moment;
    qint64 size = 0; ///< bytes
    Dropped why = Dropped::Replaced;

    bool operator==(const EarlierText&) const = default;
};

/// The texts that the program has replaced or dropped, each in a file of its own in a folder that is the
/// user's alone. A file holds the text and, as a comment in its last line, whose it was and why it was kept;
/// it is named after moment and content. Equal texts are kept once, at most `MostTexts` and `MostBytes` of
/// them; the oldest go first. Several programs may share the folder.
///
/// Texts are written by a thread of its own. Nothing here raises errors but `text`: what can't be kept is
/// not.
class EarlierTexts
{
public:
    static constexpr qsizetype MostTexts = 200;
    static constexpr qint64 MostBytes = 100'000'000;
    /// Longer texts are not kept.
    static constexpr qint64 LongestText = 20'000'000;

    /// The folder lies in the first of `folders` that takes it.
    explicit EarlierTexts(QStringList folders);
    /// Waits until all is written.
    ~EarlierTexts();
    Q_DISABLE_COPY_MOVE(EarlierTexts)

    /// Keeps a text, and returns at once. `text` is called in the other thread; an empty text is not kept,
    /// nor one of over `LongestText` bytes, of which the caller tells the user.
    void keep(const QString& document, Dropped why, const std::function<QByteArray()>& text);

    /// Keeps what the file at `path` holds, whoever wrote it, before `next` is written over it; nothing when
    /// there is no such file, or it holds the same. False: it holds too much.
    [[nodiscard]] bool keepFile(const QString& path, const QByteArray& next);

    /// All that are kept, the newest first. Waits for those that are being written.
    QList<EarlierText> list();
    /// One of them. Throws RuntimeError as `readFile` does: another program may have removed it.
    [[nodiscard]] static QByteArray text(const EarlierText& kept);

private:
    void write(const QByteArray& text, const QString& document, Dropped why);
    [[nodiscard]] bool writeInto(const QString& folder, const QByteArray& text, const QByteArray& seal);

    QStringList m_folders; // of the program's own, in the order of trying
    QThreadPool m_writer;
    qint64 m_lastMoment = 0;
};

} // namespace brindlemark
