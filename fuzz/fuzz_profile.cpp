// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "services/Profile.h"

#include <QList>
#include <algorithm>

using namespace brindlemark;

namespace {

/// A key that a reader can reach, with the bytes of its value.
struct Entry
{
    QString section;
    QString key;
    QByteArray value;

    bool operator==(const Entry&) const = default;
};

bool same(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString firstLine(QString text)
{
    text.replace(u'\r', u'\n');
    return text.left(text.indexOf(u'\n'));
}

/// Where the key of an entry stands among others, or their end.
auto placeOf(QList<Entry>& entries, const QString& section, const QString& key)
{
    return std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
        return same(entry.section, section) && same(entry.key, key);
    });
}

/// All keys of a profile file that a reader can reach: line by line, as a person would find them.
QList<Entry> entriesOf(QByteArray bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes = bytes.mid(3);
    bytes.replace("\r\n", "\n");
    bytes.replace('\r', '\n');
    QList<Entry> entries;
    QStringList sections;
    bool reachable = false;
    for (const QByteArray& line : bytes.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        const qsizetype bracket = trimmed.lastIndexOf(']');
        const qsizetype sign = line.indexOf('=');
        if (trimmed.startsWith('[') && bracket > 0) {
            const QString section = textOf(trimmed.mid(1, bracket - 1)).trimmed();
            reachable = !sections.contains(section, Qt::CaseInsensitive);
            sections << section;
        } else if (reachable && sign >= 0) {
            const QString key = textOf(line.left(sign)).trimmed();
            if (placeOf(entries, sections.constLast(), key) == entries.end())
                entries << Entry{sections.constLast(), key, line.mid(sign + 1)};
        }
    }
    return entries;
}

QString readingOf(const QByteArray& bytes)
{
    QByteArray value = bytes.trimmed();
    const bool quoted = value.size() > 1 && (value.front() == '"' || value.front() == '\'');
    if (quoted && value.front() == value.back())
        value = value.mid(1, value.size() - 2);
    const QString text = textOf(value);
    const QString cut = text.left(254);
    return text.size() > 254 && cut.back().isHighSurrogate() ? text.left(253) : cut;
}

/// The names that a file can hold: others look like another kind of line.
bool isKeyName(const QString& key)
{
    const QString name = key.trimmed();
    return !name.startsWith(u'[') && !name.startsWith(u';') && firstLine(key) == key && !key.contains(u'=');
}

/// Whether one file is the other but for some bytes within one line, or for new ones.
bool differInOneLine(const QByteArray& before, const QByteArray& after)
{
    const auto ends = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto tails = std::mismatch(before.rbegin(), std::make_reverse_iterator(ends.first), after.rbegin(),
                                     std::make_reverse_iterator(ends.second));
    return std::none_of(ends.first, tails.first.base(), [](char c) { return c == '\r' || c == '\n'; });
}

} // namespace

/// Section, key, value, file: what is read is what stands there, what is written is read again, and the rest
/// of the file stays.
void targets::profile(const QByteArray& bytes)
{
    Fields fields(bytes);
    const QString section = fields.nextText();
    const QString key = fields.nextText();
    const QString value = fields.nextText();
    const QByteArray before = fields.rest();
    const QString file = scratchFile("profile.ini");
    fill(file, before);

    const QString read = ReadProfile(section, key, file);
    WriteProfile(section, key, value, file);
    const QByteArray after = contentOf(file);
    const QString readAgain = ReadProfile(section, key, file);
    hold(differInOneLine(before, after), "a write touches one value");
    if (!isKeyName(key))
        return;

    QList<Entry> entries = entriesOf(before);
    const QString sectionName = firstLine(section).trimmed();
    const QString keyName = key.trimmed();
    const QByteArray valueBytes = firstLine(value).toUtf8();
    auto place = placeOf(entries, sectionName, keyName);
    hold(read == (place == entries.end() ? QString() : readingOf(place->value)), "a read finds its key");
    hold(readAgain == readingOf(valueBytes), "a written value is read");

    QList<Entry> changed = entriesOf(after);
    if (place == entries.end()) {
        place = placeOf(changed, sectionName, keyName);
        hold(place != changed.end(), "a new key is reachable");
        entries.insert(place - changed.begin(), *place);
        place = entries.begin() + (place - changed.begin());
    }
    place->value = valueBytes;
    hold(changed == entries, "all other keys keep their bytes");
}
