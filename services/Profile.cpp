// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Profile.h"

#include "forms/ListObject.h"
#include "platform/AppPath.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QByteArrayView>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>

namespace brindlemark {

namespace {

constexpr char lineEnd[] = "\r\n";
constexpr qsizetype longestValue = 254;

/// One line of a file: its text runs from `begin` to before `end`, the next line begins at `next`.
struct Line
{
    qsizetype begin;
    qsizetype end;
    qsizetype next;
};

Line lineAt(QByteArrayView bytes, qsizetype begin)
{
    const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
    const qsizetype end = std::find_if(bytes.begin() + begin, bytes.end(), isLineEnd) - bytes.begin();
    if (end == bytes.size())
        return {begin, end, end};
    const bool pair = bytes.sliced(end).startsWith(lineEnd);
    return {begin, end, end + (pair ? 2 : 1)};
}

/// Where the text begins: behind the byte order mark, if there is one.
qsizetype textStart(QByteArrayView bytes)
{
    constexpr char mark[] = "\xEF\xBB\xBF";
    return bytes.startsWith(mark) ? 3 : 0;
}

/// The text of bytes from within a file. A byte order mark in them is an ordinary character: only that at the
/// start of the file isn't.
QString textOf(QByteArrayView bytes)
{
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom)(bytes);
}

QString firstLine(const QString& text)
{
    const auto isLineEnd = [](QChar c) { return c == u'\r' || c == u'\n'; };
    return text.left(std::find_if(text.begin(), text.end(), isLineEnd) - text.begin());
}

/// Whether a name in a file is `name`, which has no blanks around it.
bool isName(QByteArrayView found, const QString& name)
{
    return textOf(found).trimmed().compare(name, Qt::CaseInsensitive) == 0;
}

/// Where a key stands in a profile file, or where it would go.
struct Place
{
    bool section = false;
    bool key = false;
    /// The value's bytes, as they stand between "=" and the line end.
    qsizetype valueBegin = 0;
    qsizetype valueEnd = 0;
    /// Where a new key goes: behind the last line of the section that isn't blank.
    qsizetype newKey = 0;
    /// Whether the last line that was read is blank, or none was read.
    bool blankBefore = true;
};

Place find(QByteArrayView bytes, const QString& section, const QString& key)
{
    const QString sectionName = firstLine(section).trimmed();
    const QString keyName = key.trimmed();
    Place place;
    for (qsizetype at = textStart(bytes); at < bytes.size();) {
        const Line line = lineAt(bytes, at);
        at = line.next;
        const QByteArrayView text = bytes.sliced(line.begin, line.end - line.begin).trimmed();
        place.blankBefore = text.isEmpty();
        if (place.blankBefore)
            continue;
        const qsizetype bracket = text.front() == '[' ? text.lastIndexOf(']') : -1;
        if (bracket > 0) {
            if (place.section)
                return place;
            place.section = isName(text.sliced(1, bracket - 1), sectionName);
        }
        if (!place.section)
            continue;
        place.newKey = line.next;
        // Comments and headers that hold a "=" need no test of their own: no key begins with ";" or "[".
        const qsizetype sign = bytes.sliced(line.begin, line.end - line.begin).indexOf('=');
        if (sign >= 0 && isName(bytes.sliced(line.begin, sign), keyName)) {
            place.key = true;
            place.valueBegin = line.begin + sign + 1;
            place.valueEnd = line.end;
            return place;
        }
    }
    return place;
}

QByteArrayView withoutQuotes(QByteArrayView value)
{
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

QString cutValue(const QString& value)
{
    if (value.size() <= longestValue)
        return value;
    return value.left(value[longestValue - 1].isHighSurrogate() ? longestValue - 1 : longestValue);
}

/// The line end that is missing at the end of a text before another line can follow; empty when none is.
QByteArray openLineEnd(QByteArrayView before)
{
    const bool open = textStart(before) < before.size() && before.back() != '\r' && before.back() != '\n';
    return open ? QByteArray(lineEnd) : QByteArray();
}

QByteArray withValue(const QByteArray& bytes, const ProfileValue& entry)
{
    const Place place = find(bytes, entry.section, entry.key);
    const QByteArray valueBytes = firstLine(entry.value).toUtf8();
    QByteArray changed = bytes;
    if (place.key)
        return changed.replace(place.valueBegin, place.valueEnd - place.valueBegin, valueBytes);

    const QByteArray line = entry.key.toUtf8() + '=' + valueBytes + lineEnd;
    if (place.section)
        return changed.insert(place.newKey, openLineEnd(bytes.first(place.newKey)) + line);

    changed += openLineEnd(bytes);
    if (!place.blankBefore)
        changed += lineEnd;
    return changed + '[' + firstLine(entry.section).toUtf8() + ']' + lineEnd + line;
}

/// A profile file's content; nothing when there is no such file yet.
QByteArray readProfileFile(const QString& file)
{
    try {
        return readFile(file);
    } catch (const RuntimeError& error) {
        if (error.number() == ErrorNumber::FileNotFound)
            return {};
        throw;
    }
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// Takes the next field from the front of `rest`, which must not be empty. CR LF ends a field and leaves an
/// empty one; `LoadList` passes over those.
QByteArrayView takeField(QByteArrayView& rest)
{
    const auto isFieldEnd = [](char c) { return c == ',' || c == '\r' || c == '\n'; };
    rest = rest.sliced(std::find_if_not(rest.begin(), rest.end(), isBlank) - rest.begin());
    const bool quoted = rest.startsWith('"');
    if (quoted)
        rest = rest.sliced(1);
    const auto end = quoted ? std::find(rest.begin(), rest.end(), '"')
                            : std::find_if(rest.begin(), rest.end(), isFieldEnd);
    const QByteArrayView field = rest.first(end - rest.begin());
    rest = rest.sliced(std::min(field.size() + 1, rest.size()));
    return field;
}

} // namespace

QString webIni()
{
    return appFile(DataFile::Settings);
}

Profile::Profile(const QString& file) : m_file(file)
{
    if (!FileLenExists(file))
        return;
    try {
        m_bytes = readFile(file);
    } catch (const RuntimeError&) {
        // What can't be read has no keys, as a file that is missing: the user finds empty values.
    }
}

QString Profile::value(const QString& section, const QString& key) const
{
    const Place place = find(m_bytes, section, key);
    const QByteArrayView value =
        QByteArrayView(m_bytes).sliced(place.valueBegin, place.valueEnd - place.valueBegin);
    return cutValue(textOf(withoutQuotes(value.trimmed())));
}

int Profile::checkBox(const QString& section, const QString& key) const
{
    return value(section, key) == QLatin1String("1") ? 1 : 0;
}

QString ReadProfile(const QString& section, const QString& key, const QString& file)
{
    return Profile(file).value(section, key);
}

void WriteProfile(const QString& section, const QString& key, const QString& value, const QString& file)
{
    WriteProfile({{section, key, value}}, file);
}

void WriteProfile(const QList<ProfileValue>& values, const QString& file)
{
    try {
        const FileTurn turn(file); // what another program sets meanwhile would be lost
        const QByteArray bytes = readProfileFile(file);
        QByteArray changed = bytes;
        for (const ProfileValue& entry : values)
            changed = withValue(changed, entry);
        if (changed != bytes)
            writeFile(file, changed);
    } catch (const RuntimeError&) {
        // The user has the setting until the window or the program ends, and finds the old one next time: the
        // old file is whole.
    }
}

bool FileLenExists(const QString& file)
{
    return QFileInfo(file).isFile();
}

bool FileExists(const QString& file)
{
    return FileLenExists(file);
}

void SaveList(const QString& file, const ListObject& list)
{
    QByteArray lines;
    for (int i = 0; i < list.ListCount(); ++i) {
        const QString entry = list.List(i);
        if (!entry.isEmpty())
            lines += entry.toUtf8() + lineEnd;
    }
    try {
        writeFile(file, lines);
    } catch (const RuntimeError&) {
        // The user has the list until the window closes, and finds the old one next time.
    }
}

void LoadList(const QString& file, ListObject& list)
{
    if (!FileExists(file))
        return;
    const QByteArray bytes = readFile(file);
    QByteArrayView rest = QByteArrayView(bytes).sliced(textStart(bytes));
    while (!rest.isEmpty()) {
        const QByteArrayView field = takeField(rest);
        if (!field.isEmpty())
            list.AddItem(textOf(field));
    }
}

} // namespace brindlemark
