// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace brindlemark {

/// A file that was the document, and where the caret stood in it last, in bytes.
struct RecentFile
{
    QString path;
    int caret = 0;

    bool operator==(const RecentFile&) const = default;
};

/// The files that were the document last, the newest first, at most ten; a text in UTF-8 holds them, one a
/// line, which running programs share.
class RecentFiles
{
public:
    static constexpr int Most = 10;

    explicit RecentFiles(QString file) : m_file(std::move(file)) {}

    /// What the text holds; nothing where it can't be read.
    QList<RecentFile> files() const;
    /// Makes a file the newest. A failure isn't told: the list is a comfort.
    void note(const RecentFile& file) const;
    void clear() const;

private:
    void write(const QList<RecentFile>& files) const;

    QString m_file;
};

/// How each of them is called in a list: its name, and its folder where another one has the same.
QStringList shownNames(const QList<RecentFile>& files);

} // namespace brindlemark
