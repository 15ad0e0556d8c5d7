// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RuntimeError.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace brindlemark {

class ListObject;

// All settings are plain files: profile files, with `[section]` headers and `key=value` lines, and list
// files, with one entry a line. Their text is UTF-8. Nothing is cached, except in a `Profile`:
// each call opens the file, reads or writes it, and closes it.
//
// In a profile file, section and key names compare without regard to letter case and to blanks around them.
// Where a name occurs twice, the first section counts, and in it the first key. A section's name runs to the
// last "]" of its line, so a name that holds one is found again; a key's name runs to the first "=". A ";" in
// front of a key is part of its name. CR LF, LF and CR end lines. A byte order mark is passed over.

/// The program's main settings file, \web.ini.
QString webIni();

/// A profile file as it was at one moment, for a step that reads several keys.
class Profile
{
public:
    /// Reads the file; one that is missing or can't be read has no keys.
    explicit Profile(const QString& file);

    /// The value of a key; empty when the section or the key is missing. Blanks around the value and one pair
    /// of equal quotes (" or ') around it are not part of it. A value is cut to 254 characters (UTF-16
    /// units), or to 253 where the last would be half of one.
    QString value(const QString& section, const QString& key) const;
    /// The state of a check box: 1 where the key's value is "1"; 0 for any other value and where the key is
    /// missing.
    int checkBox(const QString& section, const QString& key) const;
    /// What `take` makes of a key's value. A RuntimeError of it then tells where the value stands.
    template <typename Take>
    auto taken(const QString& section, const QString& key, Take&& take) const
    {
        try {
            return take(value(section, key));
        } catch (const RuntimeError& error) {
            throw error.ofSetting({m_file, section, key});
        }
    }

private:
    QString m_file;
    QByteArray m_bytes;
};

/// The value of one key, as `Profile` gives it.
QString ReadProfile(const QString& section, const QString& key, const QString& file);

/// Sets the value of a key. An existing key keeps its place, its spelling and its line end; a new key goes to
/// the end of its section, before blank lines; a new section goes to the end of the file; a missing file is
/// made. All else in the file stays byte for byte. The value is written as it is, up to its first line break:
/// blanks or quotes around it are lost when it is read. What other programs set stays too. A failure isn't
/// told and leaves the old file.
void WriteProfile(const QString& section, const QString& key, const QString& value, const QString& file);

/// A key of a section, and what it is set to.
struct ProfileValue
{
    QString section;
    QString key;
    QString value;
};

/// Sets one value after the other as above, but writes the file once, so that a failure leaves all the old
/// values.
void WriteProfile(const QList<ProfileValue>& values, const QString& file);

/// Whether there is an ordinary file of that name; a folder, pipe or device is none.
bool FileLenExists(const QString& file);

/// The same as `FileLenExists`.
bool FileExists(const QString& file);

/// Writes a list's entries, one a line, without the empty ones. A failure isn't told and leaves the old file.
void SaveList(const QString& file, const ListObject& list);

/// Appends a list file's fields to a list; a file that doesn't exist adds nothing. A comma ends a field as a
/// line end does, so an entry "a,b" comes back as two. Blanks before a field are skipped, those behind it
/// stay. A field that begins with a double quote runs to the next one, over commas and line ends, or to the
/// end of the file. Empty fields are not added. Throws RuntimeError(PathFileAccess) when the file can't be
/// read.
void LoadList(const QString& file, ListObject& list);

} // namespace brindlemark
