// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

class QLabel;

/// The colour number that stands for the colour of button faces, whatever that is on this desktop.
inline constexpr int ButtonFace = int(0x8000000F);

/// Shows a label's words in a colour and on white, as a browser shows them on a page.
void showAsOnPage(QLabel* words, const QColor& color);

/// A field that shows a colour; where it offers more than that, it can be clicked, or pressed with the space
/// bar.
class ColorSample : public QAbstractButton
{
    Q_OBJECT

public:
    /// A black field that can't be pressed.
    explicit ColorSample(QWidget* parent = nullptr);

    /// The colour number; a negative one is shown as `ButtonFace`.
    int BackColor() const { return m_color; }
    /// The colour as it is seen.
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
