// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace brindlemark {

/// The unsaved text of one document, or of another window in which somebody types, kept in a file in case the
/// program is ended from outside. The file, "Brindlemark-unsaved-1.htm" or another number, holds the text
/// and, as a comment in its last line, whose text it is and a checksum. While a program uses a number it
/// holds a lock on a file beside it, which the system gives up when the program ends in whatever way: so
/// programs that share a folder never take each other's text, and a text without a holder is one that was
/// left.
///
/// Texts are written by a thread of the journal's own. Nothing here raises errors: a text that can't be kept
/// leaves the one before.
class Journal
{
public:
    /// What an earlier program left.
    struct Leftover
    {
        /// The document's full path, or "Untitled".
        QString document;
        QByteArray text;
        QString path{}; ///< of the journal's file
        /// The checksum of what the document's file held when the text was kept; empty when that isn't known.
        QByteArray fileSum{};
        /// False: the file was damaged, `text` is what remains, and whose it was is not known.
        bool whole = true;
    };

    /// The file lies in the first of `folders` that takes it. Each kind of text has a name of its own.
    explicit Journal(QStringList folders, const QString& name = QStringLiteral("Brindlemark-unsaved"));
    /// An end in good order: what this program keeps is removed.
    ~Journal();
    Q_DISABLE_COPY_MOVE(Journal)

    /// The longest file that is remembered, in bytes: with a longer one a text that comes back asks for its
    /// place.
    static constexpr qsizetype LongestFile = 20'000'000;

    /// Tells what the document's file holds now; nothing when there is none.
    void setFile(const QByteArray& bytes);
    /// The same by the checksum of a text that came back.
    void setFileSum(const QByteArray& sum);
    /// Whether the file at `path` holds what has that checksum.
    [[nodiscard]] static bool holdsStill(const QString& path, const QByteArray& sum);

    /// Keeps a text in place of the one before, and returns at once. `text` is called in the other thread.
    void keep(const QString& document, const std::function<QByteArray()>& text);
    /// Removes what is kept, or what `takeLeftover` gave last; returns at once.
    void clear();
    /// Lets go of what is kept: it stays for the next start, and what is kept from now on goes to a file of
    /// its own. Returns at once.
    void leave();
    /// Whether `keep` was called since the last `clear` or `leave`.
    bool holds() const { return m_holds; }
    /// When a text was last written that is still kept, in milliseconds since 1970; 0: none is.
    qint64 writtenAt() const { return m_writtenAt; }
    /// Whether a text is still being written.
    bool isBusy() const { return m_writer.activeThreadCount() > 0; }
    /// Waits until all is written.
    void finish() { m_writer.waitForDone(); }

    /// A text that an ended program left, each once; no value when there is none. The file stays until the
    /// next `keep` replaces it or `clear` removes it.
    [[nodiscard]] std::optional<Leftover> takeLeftover();

private:
    class Place;

    [[nodiscard]] bool write(const QByteArray& bytes);
    [[nodiscard]] bool writeElsewhere(const QString& folder, const QByteArray& bytes);

    QStringList m_folders;
    QString m_fileName; // with %1 for the number
    QThreadPool m_writer;
    std::unique_ptr<Place> m_place; // only the writer uses it while it works
    QByteArray m_fileSum;           // likewise
    std::atomic<qint64> m_writtenAt = 0;
    bool m_holds = false;
    QStringList m_given;
};

} // namespace brindlemark
