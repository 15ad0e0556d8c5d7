// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace brindlemark {

/// A menu entry with what it is about: "&Undo: Table". Without a name the entry alone.
QString withName(const QString& entry, const QString& name);

/// What a user calls the edits that undo would take back and redo bring again. It counts the same single
/// edits as the history of the text does, of which each step has one or many.
class EditNames
{
public:
    /// An edit by the user, or by what the user has called.
    void edited(const QString& name);
    /// The last edit was taken back, or the one behind it was made again.
    void undone();
    void redone();
    /// The text has no history any more.
    void forget();

    /// Empty: there is nothing.
    QString undoName() const;
    QString redoName() const;

private:
    std::vector<quint8> m_edits; // places in `m_names`
    size_t m_done = 0;           // how many of them are not taken back
    QStringList m_names;
};

} // namespace brindlemark
