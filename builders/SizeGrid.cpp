// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/SizeGrid.h"

#include "platform/Events.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>
#include <algorithm>

namespace brindlemark {

namespace {

/// A cell: a field in the desktop's colour for marked or for unmarked things.
class GridCell : public QToolButton
{
public:
    using QToolButton::QToolButton;

    bool marked = false;

    QSize sizeHint() const override { return {24, 18}; }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        guardedCall([&] {
            const std::array arrows = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
            if (std::find(arrows.begin(), arrows.end(), event->key()) != arrows.end()) {
                event->ignore(); // the grid moves the focus
            } else {
                QToolButton::keyPressEvent(event);
            }
        });
    }
    void paintEvent(QPaintEvent*) override
    {
        guardedCall([&] {
            QPainter painter(this);
            QColor line = palette().color(QPalette::WindowText);
            line.setAlphaF(hasFocus() ? 1 : 0.5F);
            painter.setPen(line);
            painter.setBrush(palette().color(marked ? QPalette::Highlight : QPalette::Base));
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
            if (hasFocus())
                painter.drawRect(rect().adjusted(1, 1, -2, -2));
        });
    }
};

} // namespace

SizeGrid::SizeGrid(QWidget* parent) : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    for (int row = 0; row < Side; ++row) {
        for (int column = 0; column < Side; ++column) {
            const int index = row * Side + column;
            auto* cell = new GridCell(this);
            cell->setObjectName(QStringLiteral("Picture%1").arg(index + 1));
            cell->setAccessibleName(QStringLiteral("Rows: %1, columns: %2").arg(row + 1).arg(column + 1));
            cell->setToolTip(cell->accessibleName());
            // Tab stops at the first cell alone.
            cell->setFocusPolicy(index == 0 ? Qt::StrongFocus : Qt::ClickFocus);
            grid->addWidget(cell, row, column);
            on(cell, &QToolButton::clicked, this, [this, index] { pick(index + 1); });
            m_cells.at(size_t(index)) = cell;
        }
    }
}

void SizeGrid::CleanUp()
{
    mark(0, 0);
}

bool SizeGrid::isMarked(int cell) const
{
    return static_cast<const GridCell*>(m_cells.at(size_t(cell - 1)))->marked;
}

void SizeGrid::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        const auto* here = std::find(m_cells.begin(), m_cells.end(), focusWidget());
        if (here == m_cells.end()) {
            QWidget::keyPressEvent(event);
            return;
        }
        const int index = int(here - m_cells.begin());
        const int across = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
        const int down = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
        const int row = qBound(0, index / Side + down, Side - 1);
        const int column = qBound(0, index % Side + across, Side - 1);
        if (across == 0 && down == 0) {
            QWidget::keyPressEvent(event); // the window takes Enter for its default button
        } else {
            const int next = row * Side + column;
            m_cells.at(size_t(next))->setFocus();
        }
    });
}

void SizeGrid::pick(int cell)
{
    const int row = (cell - 1) / Side + 1;
    const int column = (cell - 1) % Side + 1;
    mark(row, column);
    emit picked(row, column);
}

void SizeGrid::mark(int rows, int columns)
{
    for (size_t i = 0; i < m_cells.size(); ++i) {
        auto* cell = static_cast<GridCell*>(m_cells.at(i));
        cell->marked = int(i) / Side < rows && int(i) % Side < columns;
        cell->update();
    }
}

} // namespace brindlemark
