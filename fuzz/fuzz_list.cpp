// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "forms/ListObject.h"
#include "services/Profile.h"

#include <QStringList>
#include <algorithm>

using namespace brindlemark;

namespace {

class Texts : public ListObject
{
public:
    QStringList entries;

    int ListCount() const override { return static_cast<int>(entries.size()); }
    QString List(int index) const override { return entries.value(index); }
    void AddItem(const QString& text) override { entries << text; }
};

QStringList loaded(const QString& file)
{
    Texts list;
    LoadList(file, list);
    return list.entries;
}

/// The fields of a list file, byte by byte.
QStringList fieldsOf(QByteArray bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes = bytes.mid(3);
    enum { Before, Plain, Quoted } state = Before;
    QStringList fields;
    QByteArray field;
    const auto end = [&] {
        if (!field.isEmpty())
            fields << textOf(field);
        field.clear();
        state = Before;
    };
    for (const char c : bytes) {
        if (state == Before && (c == ' ' || c == '\t'))
            continue;
        if (state == Before && c == '"') {
            state = Quoted;
        } else if (state == Quoted ? c == '"' : c == ',' || c == '\r' || c == '\n') {
            end();
        } else {
            state = state == Before ? Plain : state;
            field += c;
        }
    }
    end();
    return fields;
}

/// Whether an entry comes back as itself.
bool isPlain(const QString& entry)
{
    static constexpr QStringView Starts = u" \t\"\uFEFF";
    return !entry.isEmpty() && !Starts.contains(entry.front()) && !entry.contains(u',') &&
           !entry.contains(u'\r') && !entry.contains(u'\n');
}

} // namespace

/// The fields of a list file, and the file that is made of them.
void targets::list(const QByteArray& bytes)
{
    const QString file = scratchFile("list.ini");
    fill(file, bytes);
    Texts list;
    list.entries = loaded(file);
    hold(list.entries == fieldsOf(bytes), "a list is its fields");

    QByteArray lines;
    for (const QString& entry : std::as_const(list.entries))
        lines += entry.toUtf8() + "\r\n";
    SaveList(file, list);
    hold(contentOf(file) == lines, "a saved list has an entry a line");
    const QStringList again = loaded(file);
    hold(again == fieldsOf(lines), "a saved list is its fields");
    if (std::all_of(list.entries.cbegin(), list.entries.cend(), isPlain))
        hold(again == list.entries, "plain entries come back");
}
