// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/RuntimeError.h"
#include "services/PictureFile.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

namespace {

/// What a camera writes behind the beginning of a JPEG: held upright (orientation 6), and where it was.
QByteArray cameraNotes()
{
    const QByteArray tiff = QByteArray::fromHex("4d4d002a00000008" // big-endian, the first list is at 8
                                                "0001"             // one entry:
                                                "0112000300000001" // orientation, a short
                                                "00060000"         // 6: turned by a quarter
                                                "00000000")        // no other list
                            + "GPSLatitude 47.11";
    const QByteArray content = QByteArray("Exif\0\0", 6) + tiff;
    const auto length = quint16(content.size() + 2);
    return QByteArray::fromHex("ffe1") + char(length >> 8) + char(length & 0xFF) + content;
}

/// A photo as wide and high as the camera's chip, red above green, with or without its notes.
QByteArray photo(QSize size, bool notes = true)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, size.width(), size.height() / 2, Qt::red);
    painter.fillRect(0, size.height() / 2, size.width(), size.height() - size.height() / 2, Qt::green);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG", 95);
    return notes ? bytes.insert(2, cameraNotes()) : bytes;
}

struct Folder
{
    QTemporaryDir folder;

    QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            QTest::qFail("the file can't be written", __FILE__, __LINE__);
        return file.fileName();
    }
    QByteArray read(const QString& path) const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

bool isAbout(QRgb color, QRgb wanted)
{
    return qAbs(qRed(color) - qRed(wanted)) < 12 && qAbs(qGreen(color) - qGreen(wanted)) < 12 &&
           qAbs(qBlue(color) - qBlue(wanted)) < 12;
}

} // namespace

class TestPictureFile : public QObject
{
    Q_OBJECT

private slots:
    void facts();
    void noPicture();
    void thumbnailIsSmall();
    void copyIsFitForTheWeb();
    void smallPictureKeepsItsSize();
    void transparentBecomesWhite();
    void namesAreFree();
    void copyThatCantBeWritten();
    void addresses();
};

void TestPictureFile::facts()
{
    const Folder folder;
    const QByteArray bytes = photo({400, 300});
    const QString path = folder.write("a photo.jpg", bytes);
    const auto picture = pictureFile(path);
    QVERIFY(picture);
    QCOMPARE(picture->path, path);
    QCOMPARE(picture->size, QSize(300, 400)); // it was held upright
    QCOMPARE(picture->bytes, bytes.size());
}

void TestPictureFile::noPicture()
{
    const Folder folder;
    QVERIFY(!pictureFile(folder.write("text.jpg", "no picture at all")));
    QVERIFY(!pictureFile(folder.write("torn.jpg", photo({400, 300}).left(20))));
    QVERIFY(!pictureFile(folder.folder.filePath("nothing.jpg")));
    QVERIFY(!pictureFile(folder.folder.path()));
    QVERIFY(thumbnail(folder.folder.filePath("text.jpg"), {10, 10}).isNull());
}

void TestPictureFile::thumbnailIsSmall()
{
    const Folder folder;
    const QImage small = thumbnail(folder.write("photo.jpg", photo({400, 300})), {150, 120});
    QCOMPARE(small.size(), QSize(90, 120));
    QVERIFY(isAbout(small.pixel(80, 60), qRgb(255, 0, 0))); // what was above is at the right
    QVERIFY(isAbout(small.pixel(10, 60), qRgb(0, 255, 0)));
}

void TestPictureFile::copyIsFitForTheWeb()
{
    const Folder folder;
    const QByteArray taken = photo({4000, 3000});
    const QString path = folder.write("IMG_0001.JPG", taken);
    const QString copy = copyForTheWeb(path);
    QCOMPARE(copy, folder.folder.filePath("IMG_0001-web.jpg"));
    QCOMPARE(folder.read(path), taken);
    QImageReader reader(copy);
    QCOMPARE(reader.format(), "jpeg");
    QCOMPARE(reader.size(), QSize(1200, 1600));
    QCOMPARE(reader.transformation(), QImageIOHandler::TransformationNone); // it is upright as it stands
    const QImage image = reader.read();
    QVERIFY(isAbout(image.pixel(1100, 800), qRgb(255, 0, 0)));
    QVERIFY(isAbout(image.pixel(100, 800), qRgb(0, 255, 0)));
    const QByteArray bytes = folder.read(copy);
    QVERIFY(taken.contains("GPSLatitude"));
    for (const char* note : {"Exif", "GPS"})
        QVERIFY(!bytes.contains(note));
    // The quality: the first entry of the table for brightness is 16 at 50, and 5 at 85.
    const qsizetype table = bytes.indexOf(QByteArray::fromHex("ffdb"));
    QCOMPARE(int(bytes.at(table + 5)), 5);
}

void TestPictureFile::smallPictureKeepsItsSize()
{
    const Folder folder;
    const QString copy = copyForTheWeb(folder.write("small.jpg", photo({200, 100}, false)));
    QCOMPARE(QImageReader(copy).size(), QSize(200, 100));
}

void TestPictureFile::transparentBecomesWhite()
{
    const Folder folder;
    QImage image(20, 20, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setText("Comment", "taken at home");
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    QVERIFY(bytes.contains("taken at home"));
    const QString copy = copyForTheWeb(folder.write("logo.png", bytes));
    QVERIFY(isAbout(QImage(copy).pixel(10, 10), qRgb(255, 255, 255)));
    QVERIFY(!folder.read(copy).contains("taken at home"));
}

void TestPictureFile::namesAreFree()
{
    const Folder folder;
    const QString path = folder.write("my.lamp.jpg", photo({20, 10}));
    QCOMPARE(copyForTheWeb(path), folder.folder.filePath("my.lamp-web.jpg"));
    QCOMPARE(copyForTheWeb(path), folder.folder.filePath("my.lamp-web-2.jpg"));
    QCOMPARE(copyForTheWeb(path), folder.folder.filePath("my.lamp-web-3.jpg"));
}

void TestPictureFile::copyThatCantBeWritten()
{
    const Folder folder;
    QVERIFY_THROWS_EXCEPTION(RuntimeError, copyForTheWeb(folder.write("text.jpg", "no picture")));
    const QString path = folder.write("photo.jpg", photo({20, 10}));
    QVERIFY(
        QDir(folder.folder.path()).mkdir("photo-web.jpg")); // a folder is in the way: another name is free
    QCOMPARE(copyForTheWeb(path), folder.folder.filePath("photo-web-2.jpg"));
}

void TestPictureFile::addresses()
{
    QCOMPARE(fileAddress("/home/anna/my photos/lamp #1 100%.jpg"),
             "file:///home/anna/my%20photos/lamp%20%231%20100%25.jpg");
}

QTEST_GUILESS_MAIN(TestPictureFile)
#include "tst_picturefile.moc"
