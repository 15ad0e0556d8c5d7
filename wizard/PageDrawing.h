// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/PageColors.h"

#include <QWidget>

/// A little picture of the listing page: the rows of its design style, where they stand, in the page's
/// colours.
class PageDrawing : public QWidget
{
    Q_OBJECT

public:
    explicit PageDrawing(QWidget* parent = nullptr);

    /// Shows a design style, 0 to 3, in these colours.
    void setLook(int style, const DrawingColors& colors);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_style = 0;
    DrawingColors m_colors;
};

/// A little picture of one picture style: the picture and three lines of description.
class PictureStyleDrawing : public QWidget
{
    Q_OBJECT

public:
    explicit PictureStyleDrawing(QWidget* parent = nullptr);

    /// Shows a picture style, 0 to 3, in these colours.
    void setLook(int pictureStyle, const DrawingColors& colors);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_pictureStyle = 0;
    DrawingColors m_colors;
};
