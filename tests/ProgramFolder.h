// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace brindlemark {

/// A program folder of the test's own, with the settings and the help page that ship, as long as it lives.
class ProgramFolder
{
public:
    ProgramFolder();
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    /// The path of a file in the folder.
    QString path(const QString& name) const;
    /// A file's bytes; fails the test when it can't be read.
    QByteArray read(const QString& name) const;
    /// Makes or replaces a file.
    void write(const QString& name, const QByteArray& bytes) const;
    bool has(const QString& name) const;

private:
    QTemporaryDir m_folder;
};

} // namespace brindlemark
