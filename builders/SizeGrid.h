// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <array>

class QAbstractButton;

namespace brindlemark {

/// A grid of five by five cells that picks the size of a table: a click on a cell marks all from the first to
/// it. Arrow keys move over the cells, the space bar clicks.
class SizeGrid : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Side = 5;

    /// A grid without marks. The cells are named "Picture1" to "Picture25", row by row.
    explicit SizeGrid(QWidget* parent = nullptr);

    /// Takes all marks away.
    void CleanUp();
    /// Whether the cell, from 1, is marked.
    bool isMarked(int cell) const;

signals:
    /// The user has picked a size, each 1 to 5.
    void picked(int rows, int columns);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pick(int cell);
    void mark(int rows, int columns);

    std::array<QAbstractButton*, size_t(Side* Side)> m_cells{};
};

} // namespace brindlemark
