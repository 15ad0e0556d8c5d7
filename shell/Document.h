// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/Journal.h"

#include <QObject>
#include <optional>

namespace brindlemark {

class EditedText;

/// How an attempt to save ended.
enum class SaveResult {
    Saved,
    Cancelled, ///< the user chose no name for it
    Failed,    ///< the file could not be written; the user has been told
    Unread, ///< the design surface gave no answer, so that there was nothing to save; the user has been told
};

/// The document: its name, whether it has unsaved changes, and the copy of them that the journal keeps. Its
/// bytes and their encoding are those of the text that is edited; from a file and to one they pass through
/// here. It asks nobody and shows nothing.
class Document : public QObject
{
    Q_OBJECT

public:
    /// `text` holds the bytes and outlives the document. Its owner tells of changes by `textChanged`. The
    /// journal lies in the first of `journalFolders` that takes it.
    Document(EditedText& text, QStringList journalFolders);
    /// An end in good order: what was kept is removed, but for a text that should have been saved and is not.
    ~Document() override;

    /// The full path of its file, or "Untitled".
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    /// Whether it has a file to be saved to without asking. A text that came back has none while another
    /// program, or a hand that forged it, may have changed what lies there.
    bool isNamed() const;
    /// The name of its file without the folder; empty when no file lies there.
    QString bareName() const { return bareName(m_name); }
    /// The same of the file at `path`.
    static QString bareName(const QString& path);

    /// It has changes that no file has.
    bool isDirty() const { return m_dirty; }
    void setDirty(bool dirty) { m_dirty = dirty; }
    /// How often its text has changed.
    qint64 revision() const { return m_revision; }

    /// To be called when the text has changed. An empty text has nothing to save.
    void textChanged();
    /// To be called when the user has clicked or moved in the text. That is meant to count as a change too,
    /// unless the text is empty: one save question too many loses nothing.
    void textTouched();

    /// Makes it an empty document without a name.
    void blank();
    /// Makes it what the file at `path` holds. As loading is a change of the text, it counts as unsaved.
    /// Throws RuntimeError as `readFile` does, and for a file of more than `EditedText::MostBytes`; it is
    /// blank then.
    void open(const QString& path);
    /// Writes `bytes` and a line end to `path`; from then on the document has that name and no unsaved
    /// changes. `isText` is false when the bytes are not its text, which then stays in the journal. Throws
    /// RuntimeError(PathFileAccess), and changes nothing then.
    void save(const QString& path, const QByteArray& bytes, bool isText);
    /// Writes `bytes` as one record: a line end closes it. Throws RuntimeError(PathFileAccess).
    static void writeRecord(const QString& path, const QByteArray& bytes);
    /// What such a file holds.
    static QByteArray record(const QByteArray& bytes) { return bytes + RecordEnd; }

    /// Whether the user wants it saved. If so, what the journal keeps of it outlives the program until a file
    /// has it.
    void setToBeSaved(bool wanted) { m_toBeSaved = wanted; }
    /// Keeps the text in the journal when the user wanted it saved and it is not.
    void keepIfToBeSaved();

    /// Keeps the text in the journal when it has changed since it was last kept, saved or loaded.
    /// `sourceIsUp`: the source is what the user edits; else an edit of the surface that is kept stays.
    void keepChanges(bool sourceIsUp);
    /// Keeps the text in the journal.
    void keep();
    /// Keeps what the design surface holds, and the text lacks, in the journal.
    void keepEdit(const QString& html);
    /// The design surface was given another page: an edit of it that was kept is no more.
    void surfaceWritten() { m_surfaceKept = false; }
    /// What is kept is an edit on the design surface, which the text lacks.
    bool isSurfaceKept() const { return m_surfaceKept; }
    /// When the journal last wrote what it keeps, in milliseconds since 1970; 0: it keeps nothing.
    qint64 keptAt() const { return m_journal.writtenAt(); }
    /// Whether something is being written to the journal's file.
    bool isKeeping() const { return m_journal.isBusy(); }
    /// Waits until all of it is written.
    void finishKeeping() { m_journal.finish(); }

    /// A text that an ended program left; no value when there is none.
    [[nodiscard]] std::optional<Journal::Leftover> takeLeftover() { return m_journal.takeLeftover(); }
    /// Makes what `takeLeftover` gave the document, unsaved. What is not whole has no name: a save must not
    /// put it in the place of a whole file.
    void bringBack(const Journal::Leftover& left);
    /// Removes what `takeLeftover` gave.
    void dropLeftover() { m_journal.clear(); }
    /// Leaves what `takeLeftover` gave to the next start.
    void postponeLeftover() { m_journal.leave(); }

    static const QString Untitled;

signals:
    /// A file has the text now, or another document has taken its place: edits up to here need not be kept
    /// any more.
    void settled();

private:
    static constexpr const char* RecordEnd = "\r\n";

    void settle();

    EditedText& m_text;
    Journal m_journal;
    QString m_name = Untitled;
    bool m_dirty = false;
    qint64 m_revision = 0;
    qint64 m_keptRevision = 0;  // the one that was last kept, saved or loaded
    bool m_surfaceKept = false; // what is kept is an edit on the design surface, which the text lacks
    bool m_toBeSaved = false;
    bool m_placeKnown = true;
};

} // namespace brindlemark
