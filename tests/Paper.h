// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <functional>

namespace brindlemark {

// What a reader of a PDF sees. Each fails the test when the file can't be read.

/// The lines of each page that have something on them, blanks at both ends left out and others made one.
QList<QStringList> pagesOnPaper(const QString& pdf);
/// The same of a PDF of one page.
QStringList linesOnPaper(const QString& pdf);
/// A page, counted from 1, in 150 dots an inch.
QImage pictureOfPaper(const QString& pdf, int page = 1);

/// What fits into a picture's dots for which `fits` holds; null where there are none.
QRect dotsOf(const QImage& picture, const std::function<bool(QColor)>& fits);

} // namespace brindlemark
