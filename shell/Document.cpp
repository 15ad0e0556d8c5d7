// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Document.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "source/EditedText.h"

#include <QFileInfo>
#include <utility>

namespace brindlemark {

const QString Document::Untitled = QStringLiteral("Untitled");

Document::Document(EditedText& text, QStringList journalFolders)
    : m_text(text), m_journal(std::move(journalFolders))
{
}

Document::~Document()
{
    if (m_toBeSaved)
        m_journal.leave();
}

bool Document::isNamed() const
{
    return m_name != Untitled && m_placeKnown;
}

QString Document::bareName(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() ? file.fileName() : QString();
}

void Document::textChanged()
{
    ++m_revision;
    textTouched();
}

void Document::textTouched()
{
    m_dirty = !m_text.isEmpty();
}

void Document::blank()
{
    m_text.load(QByteArray());
    m_name = Untitled;
    m_dirty = false;
    m_placeKnown = true;
    m_journal.setFile({});
    settle();
}

void Document::open(const QString& path)
{
    m_name = path;
    try {
        if (QFileInfo(path).size() > EditedText::MostBytes)
            throw RuntimeError(ErrorNumber::PathFileAccess, QStringLiteral("File too large"));
        withinMemory([&] {
            const QByteArray bytes = readFile(path);
            m_text.load(bytes);
            m_journal.setFile(bytes);
        });
        m_placeKnown = true;
    } catch (const RuntimeError&) {
        blank();
        throw;
    }
    settle();
}

void Document::save(const QString& path, const QByteArray& bytes, bool isText)
{
    writeFile(path, bytes, RecordEnd); // in two parts: a copy of 100 MB takes as long as the disk does
    m_journal.setFile(bytes.size() <= Journal::LongestFile ? record(bytes) : QByteArray());
    m_name = path;
    m_placeKnown = true;
    m_dirty = false;
    if (!isText)
        return;
    m_toBeSaved = false;
    settle();
}

void Document::writeRecord(const QString& path, const QByteArray& bytes)
{
    writeFile(path, bytes, RecordEnd);
}

void Document::keepIfToBeSaved()
{
    if (m_toBeSaved && m_keptRevision != m_revision)
        keep();
}

void Document::keepChanges(bool sourceIsUp)
{
    if (sourceIsUp && !m_dirty && m_journal.holds())
        m_journal.clear(); // all of it was deleted again
    if (m_dirty && m_keptRevision != m_revision && (sourceIsUp || !m_surfaceKept))
        keep();
}

void Document::keep()
{
    m_keptRevision = m_revision;
    m_journal.keep(m_name, m_text.textLater());
}

void Document::keepEdit(const QString& html)
{
    m_keptRevision = m_revision;
    m_surfaceKept = true;
    m_journal.keep(m_name, [html, encoding = m_text.textEncoding()] { return encode(html, encoding); });
}

void Document::bringBack(const Journal::Leftover& left)
{
    m_text.load(left.text);
    if (!left.whole)
        return;
    m_name = left.document;
    m_placeKnown = Journal::holdsStill(m_name, left.fileSum);
    m_journal.setFileSum(left.fileSum);
}

/// Removes what the journal keeps, but for a text that the user wanted saved and that could not be: the next
/// start offers that one.
void Document::settle()
{
    m_keptRevision = m_revision;
    m_surfaceKept = false;
    if (std::exchange(m_toBeSaved, false)) {
        m_journal.leave();
    } else {
        m_journal.clear();
    }
    emit settled();
}

} // namespace brindlemark
