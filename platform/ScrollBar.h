#pragma once

#include <QScrollBar>

/// A scroll bar that tells a drag from a step, so a handler can follow the hand or wait for its decision.
class ScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    /// A bar from 0 to 99 at 0, upright until told otherwise; reached with Tab or a click.
    explicit ScrollBar(QWidget* parent = nullptr);

    /// Where the bar stands, `minimum()` to `maximum()`; set with `setValue`.
    int Value() const { return value(); }

signals:
    /// The value has changed: by an arrow, a page click, a key, the wheel or code; or by a drag, once, on
    /// release.
    void Change();
    /// The value has changed by one step of a drag that still goes on.
    void Scroll();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void noticeValue();
    void noticeRelease();

    int m_valueAtPress = 0;
};
