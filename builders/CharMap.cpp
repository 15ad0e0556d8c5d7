// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/CharMap.h"

#include "platform/Accessible.h"
#include "platform/Events.h"
#include "source/TextEncoding.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>
#include <QWindow>
#include <array>

namespace brindlemark {

namespace {

constexpr int Rows = (CharMap::Count + CharMap::Columns - 1) / CharMap::Columns;

/// A cell, for screen readers: an entry of a list, with its character and code.
class AccessibleCell : public QAccessibleInterface
{
public:
    AccessibleCell(CharMap* map, int cell) : m_map(map), m_cell(cell) {}

    int cell() const { return m_cell; }

    bool isValid() const override { return m_map; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_map->window()->windowHandle(); }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override
    {
        return guardedCall([&]() -> QString {
            if (kind != QAccessible::Name)
                return QString();
            return QStringLiteral("%1, code %2").arg(CharMap::text(m_cell)).arg(m_cell);
        });
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override
    {
        return guardedCall([&]() -> QRect {
            const QRect place = m_map->cellRect(m_cell);
            return {m_map->mapToGlobal(place.topLeft()), place.size()};
        });
    }
    QAccessible::State state() const override
    {
        return guardedCall([&]() -> QAccessible::State {
            QAccessible::State state;
            state.focusable = true;
            state.selectable = true;
            state.focused = m_map->hasFocus() && m_map->current() == m_cell;
            state.selected = m_map->marked() == m_cell;
            state.invisible = !m_map->isVisible();
            return state;
        });
    }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_map); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

private:
    QPointer<CharMap> m_map;
    int m_cell;
};

class AccessibleMap : public QAccessibleWidget
{
public:
    explicit AccessibleMap(QWidget* widget) : QAccessibleWidget(widget, QAccessible::List) {}
    ~AccessibleMap() override
    {
        for (const QAccessible::Id cell : m_cells) {
            if (cell != 0)
                QAccessible::deleteAccessibleInterface(cell);
        }
    }
    Q_DISABLE_COPY_MOVE(AccessibleMap)

    QString text(QAccessible::Text kind) const override
    {
        return guardedCall([&]() -> QString {
            return kind == QAccessible::Value ? child(map().current())->text(QAccessible::Name)
                                              : QAccessibleWidget::text(kind);
        });
    }
    int childCount() const override { return CharMap::Count; }
    QAccessibleInterface* child(int index) const override
    {
        return guardedCall([&]() -> QAccessibleInterface* {
            if (index < 0 || index >= CharMap::Count)
                return nullptr;
            QAccessible::Id& cell = m_cells.at(size_t(index));
            if (cell == 0)
                cell = QAccessible::registerAccessibleInterface(new AccessibleCell(&map(), index));
            return QAccessible::accessibleInterface(cell);
        });
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        return guardedCall([&]() -> QAccessibleInterface* {
            return child(map().cellAt(map().mapFromGlobal(QPoint(x, y))));
        });
    }
    QAccessibleInterface* focusChild() const override
    {
        return guardedCall(
            [&]() -> QAccessibleInterface* { return map().hasFocus() ? child(map().current()) : nullptr; });
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return guardedCall([&]() -> int {
            const auto* cell = dynamic_cast<const AccessibleCell*>(child);
            return cell ? cell->cell() : -1;
        });
    }

private:
    CharMap& map() const { return *static_cast<CharMap*>(object()); }

    mutable std::array<QAccessible::Id, CharMap::Count> m_cells{}; // made when first asked for
};

} // namespace

CharMap::CharMap(QWidget* parent) : QWidget(parent)
{
    describeClass(staticMetaObject,
                  [](QWidget* widget) -> QAccessibleInterface* { return new AccessibleMap(widget); });
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

QString CharMap::text(int cell)
{
    if (cell == 0)
        return QStringLiteral("A");
    return decode(QByteArray(1, char(cell)), TextEncoding::Western);
}

void CharMap::setFamily(const QString& family)
{
    m_family = family;
    update();
}

/// From one cell to the next, in pixels; a cell fills all but a sixth of it.
int CharMap::pitch() const
{
    return qMax(24, fontMetrics().height() + 8);
}

QRect CharMap::cellRect(int cell) const
{
    const int side = pitch() * 5 / 6;
    return {cell % Columns * pitch(), cell / Columns * pitch(), side, side};
}

QSize CharMap::sizeHint() const
{
    return guardedCall([&]() -> QSize { return {Columns * pitch(), Rows * pitch()}; });
}

int CharMap::cellAt(QPoint place) const
{
    for (int cell = 0; cell < Count; ++cell) {
        if (cellRect(cell).contains(place))
            return cell;
    }
    return -1;
}

void CharMap::mark(int cell)
{
    m_marked = cell > 0 ? cell : -1;
    m_firstMarked = m_firstMarked || cell == 0;
    update();
    emit Click(cell);
    emit moved(cell);
}

void CharMap::unmark()
{
    m_marked = -1;
    update();
    emit DblClick();
}

void CharMap::moveTo(int cell)
{
    m_current = cell;
    setAccessibleDescription(QStringLiteral("Code %1").arg(cell));
    tellCurrent();
    update();
    emit moved(cell);
}

/// Tells screen readers which cell the keys stand on.
void CharMap::tellCurrent()
{
    QAccessibleEvent told(this, QAccessible::Focus);
    told.setChild(m_current);
    QAccessible::updateAccessibility(&told);
}

bool CharMap::event(QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::ToolTip) {
            const auto* help = static_cast<QHelpEvent*>(event);
            const int cell = cellAt(help->pos());
            QToolTip::showText(help->globalPos(), cell > 0 ? QString::number(cell) : QString(), this);
            return true;
        }
        return QWidget::event(event);
    });
}

void CharMap::paintEvent(QPaintEvent* event)
{
    guardedCall([&] {
        QPainter painter(this);
        QFont mapped = font();
        mapped.setFamily(m_family);
        for (int cell = 0; cell < Count; ++cell) {
            const QRect place = cellRect(cell);
            if (!event->region().intersects(place))
                continue;
            const bool yellow = cell == m_marked || (cell == 0 && m_firstMarked);
            painter.fillRect(place, yellow ? QColor(Qt::yellow) : palette().color(QPalette::Button));
            painter.setPen(yellow ? QColor(Qt::black) : palette().color(QPalette::ButtonText));
            painter.setFont(cell == 0 ? font() : mapped);
            painter.drawText(place, Qt::AlignCenter, text(cell));
            if (cell == m_current && hasFocus()) {
                painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
                painter.drawRect(place.adjusted(1, 1, -1, -1));
            }
        }
    });
}

void CharMap::mouseMoveEvent(QMouseEvent* event)
{
    guardedCall([&] {
        const int cell = cellAt(event->position().toPoint());
        if (cell >= 0)
            emit moved(cell);
    });
}

void CharMap::mousePressEvent(QMouseEvent* event)
{
    guardedCall([&] {
        const int cell = cellAt(event->position().toPoint());
        if (cell < 0 || event->button() != Qt::LeftButton)
            return;
        m_current = cell;
        mark(cell);
    });
}

void CharMap::mouseDoubleClickEvent(QMouseEvent* event)
{
    guardedCall([&] {
        // Two clicks on neighbours are no double click on either.
        if (event->button() != Qt::LeftButton || cellAt(event->position().toPoint()) != m_current) {
            mousePressEvent(event);
            return;
        }
        unmark();
    });
}

void CharMap::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        int to = m_current;
        switch (event->key()) {
        case Qt::Key_Left:
            to -= 1;
            break;
        case Qt::Key_Right:
            to += 1;
            break;
        case Qt::Key_Up:
            to -= Columns;
            break;
        case Qt::Key_Down:
            to += Columns;
            break;
        case Qt::Key_Home:
            to = 1;
            break;
        case Qt::Key_End:
            to = Count - 1;
            break;
        case Qt::Key_Space:
            if (m_current == m_marked) {
                unmark();
            } else {
                mark(m_current);
            }
            return;
        default:
            QWidget::keyPressEvent(event);
            return;
        }
        if (to >= 0 && to < Count)
            moveTo(to);
    });
}

void CharMap::focusInEvent(QFocusEvent* event)
{
    guardedCall([&] {
        QWidget::focusInEvent(event);
        tellCurrent();
        update();
    });
}

void CharMap::focusOutEvent(QFocusEvent* event)
{
    guardedCall([&] {
        QWidget::focusOutEvent(event);
        update();
    });
}

} // namespace brindlemark
