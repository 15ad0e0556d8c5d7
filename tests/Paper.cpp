// SPDX-License-Identifier: GPL-3.0-or-later

#include "Paper.h"

#include "Patience.h"

#include <QColor>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace brindlemark {

namespace {

/// What one of the tools of the package poppler-utils prints.
QByteArray poppler(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(Patience) || process.exitCode() != 0) {
        QTest::qFail(qPrintable(tool + QStringLiteral(": ") + process.errorString() + u' ' +
                                QString::fromLocal8Bit(process.readAllStandardError())),
                     __FILE__, __LINE__);
    }
    return process.readAllStandardOutput();
}

} // namespace

QList<QStringList> pagesOnPaper(const QString& pdf)
{
    QStringList texts = QString::fromUtf8(poppler(QStringLiteral("pdftotext"),
                                                  {QStringLiteral("-layout"), pdf, QStringLiteral("-")}))
                            .split(u'\f');
    texts.removeLast(); // each page ends with it
    QList<QStringList> pages;
    for (const QString& page : texts) {
        QStringList lines;
        for (const QString& line : page.split(u'\n')) {
            if (const QString words = line.simplified(); !words.isEmpty())
                lines << words;
        }
        pages << lines;
    }
    return pages;
}

QStringList linesOnPaper(const QString& pdf)
{
    const QList<QStringList> pages = pagesOnPaper(pdf);
    if (pages.size() != 1)
        QTest::qFail(qPrintable(QStringLiteral("%1 pages").arg(pages.size())), __FILE__, __LINE__);
    return pages.value(0);
}

QImage pictureOfPaper(const QString& pdf, int page)
{
    const QTemporaryDir folder;
    const QString number = QString::number(page);
    poppler(QStringLiteral("pdftoppm"),
            {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("150"), QStringLiteral("-f"),
             number, QStringLiteral("-l"), number, QStringLiteral("-singlefile"), pdf,
             folder.filePath(QStringLiteral("page"))});
    QImage picture(folder.filePath(QStringLiteral("page.png")));
    if (picture.isNull())
        QTest::qFail("no picture of the page", __FILE__, __LINE__);
    return picture;
}

QRect dotsOf(const QImage& picture, const std::function<bool(QColor)>& fits)
{
    QRect dots;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (fits(picture.pixelColor(x, y)))
                dots |= QRect(x, y, 1, 1);
        }
    }
    return dots;
}

} // namespace brindlemark
