// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/PictureFile.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QUrl>
#include <utility>

namespace brindlemark {

namespace {

constexpr int LongestSide = 1600; // pixels
constexpr int Quality = 85;
/// A photo of 200 million pixels is read, one that was made to fill the memory is not; in MB.
constexpr int MostMemory = 1024;

/// As it is seen: cameras write how they were held.
QSize seenSize(const QImageReader& reader)
{
    const QSize size = reader.size();
    return reader.transformation() & QImageIOHandler::TransformationRotate90 ? size.transposed() : size;
}

/// Reads a picture in at most such a size, which is quicker than to read all of it.
QImage read(const QString& path, QSize most)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize seen = seenSize(reader);
    if (seen.isValid() && (seen.width() > most.width() || seen.height() > most.height())) {
        const QSize scaled = seen.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
        reader.setScaledSize(seen == reader.size() ? scaled : scaled.transposed());
    }
    return reader.read();
}

QString freeName(const QString& path)
{
    const QFileInfo file(path);
    const QString start = file.path() + u'/' + file.completeBaseName() + QStringLiteral("-web");
    QString name = start + QStringLiteral(".jpg");
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = start + QStringLiteral("-%1.jpg").arg(number);
    return name;
}

} // namespace

std::optional<PictureFile> pictureFile(const QString& path)
{
    const QImageReader reader(path);
    if (!reader.canRead() || !reader.size().isValid())
        return std::nullopt;
    return PictureFile{path, seenSize(reader), QFileInfo(path).size()};
}

QImage thumbnail(const QString& path, QSize most)
{
    return read(path, most);
}

QString copyForTheWeb(const QString& path)
{
    QImageReader::setAllocationLimit(MostMemory);
    QImage picture = read(path, {LongestSide, LongestSide});
    if (picture.isNull())
        throw RuntimeError(ErrorNumber::PathFileAccess);
    if (picture.colorSpace().isValid())
        picture.convertToColorSpace(QColorSpace::SRgb);
    QImage bare(picture.size(), QImage::Format_RGB32); // takes no texts of the file along
    bare.fill(Qt::white);
    QPainter painter(&bare);
    painter.drawImage(0, 0, picture);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!bare.save(&buffer, "JPG", Quality))
        throw RuntimeError(ErrorNumber::PathFileAccess);
    QString name = freeName(path);
    writeFile(name, bytes);
    return name;
}

QString fileAddress(const QString& path)
{
    return QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded());
}

} // namespace brindlemark
