// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/PageColors.h"

#include <QWidget>

namespace brindlemark {

/// A small drawing of the listing page: the rows of its design style in the page's colours.
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

/// A small drawing of one picture style: a picture or two and three lines of description. After `offerClick`
/// it can be clicked; the keyboard and screen readers have the box below it.
class PictureStyleDrawing : public QWidget
{
    Q_OBJECT

public:
    explicit PictureStyleDrawing(QWidget* parent = nullptr);

    /// Shows a picture style, 0 to 3, in these colours.
    void setLook(int pictureStyle, const DrawingColors& colors);
    /// Lets the drawing be clicked, or no longer. The mouse's pointer tells.
    void offerClick(bool offered);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The left button was pressed and released on the drawing.
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int m_pictureStyle = 0;
    DrawingColors m_colors;
    bool m_pressed = false;
};

} // namespace brindlemark
