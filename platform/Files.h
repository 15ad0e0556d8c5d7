// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace brindlemark {

/// The whole content of a file.
/// Throws RuntimeError: FileNotFound when there is none, PathFileAccess (with the system's reason) when it
/// is no regular file, is larger than 3 GB, can't be read to its end, or nobody can tell whether it is there;
/// `outOfMemory` when it is larger than what there is.
QByteArray readFile(const QString& path);

/// Whether a file has the name of a picture that a page can show.
bool isPictureFile(const QString& path);

/// Whether a file holds something else than text: a NUL among its first 4 KB. False where it can't be read.
bool isBinaryFile(const QString& path);

/// Makes `bytes`, and `end` behind them, the whole content of a file; every file that the program writes is
/// written here. Either the new content is there at the end, or the old file is there untouched and
/// RuntimeError(PathFileAccess) tells the reason. A symbolic link stays and what it points to is written,
/// also when that doesn't exist yet. An existing file keeps its permissions, and its owner and group where
/// the system lets the program set them; one that nobody may write to is refused.
void writeFile(const QString& path, QByteArrayView bytes, QByteArrayView end = {});

/// The turn to read a file, change it and write it, which programs take one after the other. It is the lock
/// of the file's folder, because the file itself is replaced by each write; the system drops it with a
/// program that ends. Waits up to three seconds; then, and where a folder can't be locked, the change is made
/// without it.
class FileTurn
{
public:
    explicit FileTurn(const QString& path);
    ~FileTurn();
    Q_DISABLE_COPY_MOVE(FileTurn)

private:
    int m_folder = -1; // a descriptor
};

} // namespace brindlemark
