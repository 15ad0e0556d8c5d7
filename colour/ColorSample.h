// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

class QLabel;

namespace brindlemark {

/// The colour number that means the desktop's colour of button faces.
inline constexpr int ButtonFace = int(0x8000000F);

/// Gives a label a white background and a text colour, as its words would look on a page.
void showAsOnPage(QLabel* words, const QColor& color);

/// A field that shows a colour. After `offerClick` it is a button too, for the mouse and the space bar.
class ColorSample : public QAbstractButton
{
    Q_OBJECT

public:
    /// A black field that can't be pressed.
    explicit ColorSample(QWidget* parent = nullptr);

    /// The colour number; a negative one is shown as `ButtonFace`.
    int BackColor() const { return m_color; }
    /// The colour that the field is painted in.
    QColor shownColor() const;
    void setBackColor(int color);

    /// Lets the field be pressed.
    void offerClick();
    bool offersClick() const { return m_offersClick; }

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int m_color = 0;
    bool m_offersClick = false;
};

} // namespace brindlemark
