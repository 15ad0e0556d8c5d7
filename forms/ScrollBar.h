// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QScrollBar>
#include <optional>

namespace brindlemark {

/// A scroll bar with two signals, `Scroll` for each step of a drag and `Change` for a value that stands: a
/// handler can follow the hand or wait for it. The wheel moves a bar that has the keyboard; otherwise it is
/// the window's.
class ScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    /// Makes a bar from 0 to 99 that stands at 0, upright until told otherwise; Tab or a click gives it the
    /// keyboard.
    explicit ScrollBar(QWidget* parent = nullptr);

    /// Where the bar stands, `minimum()` to `maximum()`; set with `setValue`.
    int Value() const { return value(); }

    /// Writes each value that `Change` tells of into `box`, with `unit` behind it.
    void writeInto(QLineEdit* box, const QString& unit = {});

    /// Shows a short label and the value in the bar's middle, and makes room for them.
    void showValue(const QString& label);

    /// Colours the bar, with black words on it, as long as it is enabled.
    void setTint(QRgb tint);

    QSize minimumSizeHint() const override;

signals:
    /// The value has changed: by an arrow, a page click, a key, the wheel or code; or by a drag, once, on
    /// release.
    void Change();
    /// The value has changed by one step of a drag that still goes on.
    void Scroll();

protected:
    void initStyleOption(QStyleOptionSlider* look) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void noticeValue();
    void noticeRelease();

    QFont valueFont() const;
    QString valueText(int value) const;

    QString m_label; // of the shown value; empty shows none
    std::optional<QRgb> m_tint;
    int m_valueAtPress = 0;
};

} // namespace brindlemark
