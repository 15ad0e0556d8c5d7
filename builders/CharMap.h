// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace brindlemark {

/// 256 cells that show the characters of a font. One can be marked: by a click, or with the space bar on the
/// cell that the arrow keys stand on. A double click, or the space bar once more, takes the mark away.
class CharMap : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Count = 256;
    static constexpr int Columns = 20;

    explicit CharMap(QWidget* parent = nullptr);

    /// The text of a cell, 0 to 255: the character of its code in the Western code page. Code 0, which is
    /// none, shows an "A".
    static QString text(int cell);

    /// The font of all cells but the first.
    void setFamily(const QString& family);
    /// The marked cell that counts, 1 to 255, or -1.
    int marked() const { return m_marked; }
    /// The cell that the arrow keys stand on.
    int current() const { return m_current; }
    /// Where a cell is painted.
    QRect cellRect(int cell) const;
    /// The cell at a place, or -1.
    int cellAt(QPoint place) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The pointer, or the cell of the keys, has come to a cell.
    void moved(int cell);
    /// A cell has been marked.
    void Click(int cell);
    /// The mark is gone.
    void DblClick();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void mark(int cell);
    void unmark();
    void moveTo(int cell);
    void tellCurrent();
    int pitch() const;

    QString m_family;
    int m_marked = -1;
    bool m_firstMarked = false; // a mark on the first cell counts for nothing and stays
    int m_current = 1;
};

} // namespace brindlemark
