// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/SourceClip.h"

#include <QFileInfo>
#include <QUrl>

namespace brindlemark {

namespace {

/// Exact bytes for the program's own clipboard and drags, of use to a document of the same encoding.
QString bytesFormat(TextEncoding encoding)
{
    return encoding == TextEncoding::Utf8 ? QStringLiteral("application/x-brindlemark-utf8")
                                          : QStringLiteral("application/x-brindlemark-western");
}

QString withWindowsLineEnds(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n');
    return text.replace(QLatin1String("\n"), QLatin1String("\r\n"));
}

} // namespace

std::unique_ptr<QMimeData> clipOf(const QByteArray& bytes, TextEncoding encoding)
{
    auto clip = std::make_unique<QMimeData>();
    clip->setText(decode(bytes, encoding));
    clip->setData(bytesFormat(encoding), bytes);
    return clip;
}

QByteArray bytesOf(const QMimeData& clip, TextEncoding encoding)
{
    const QString exact = bytesFormat(encoding);
    return clip.hasFormat(exact) ? clip.data(exact) : encode(withWindowsLineEnds(clip.text()), encoding);
}

QStringList filesIn(const QMimeData& dragged)
{
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile())
            files << url.toLocalFile();
    }
    return files;
}

} // namespace brindlemark
