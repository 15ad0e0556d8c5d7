// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <optional>

namespace brindlemark {

/// A picture on this computer.
struct PictureFile
{
    QString path;
    QSize size;       ///< pixels, as it is seen: a photo that was taken upright is upright
    qint64 bytes = 0; ///< of the file
};

/// What a file holds; nothing where it is no picture that this computer can read.
std::optional<PictureFile> pictureFile(const QString& path);

/// The picture, as it is seen, at most so wide and high; null where it can't be read.
QImage thumbnail(const QString& path, QSize most);

/// Makes a copy for the web beside a picture: a JPEG of quality 85 whose longer side has at most 1,600
/// pixels, with nothing in it but the picture, not the place where a photo was taken. The picture stays as it
/// is. Returns the copy's path, a free name that ends with "-web.jpg". Throws RuntimeError(PathFileAccess)
/// when the picture can't be read or the copy not be written.
QString copyForTheWeb(const QString& path);

/// A file's address, as a page names it.
QString fileAddress(const QString& path);

} // namespace brindlemark
