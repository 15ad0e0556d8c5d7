#include "builders/CharMap.h"

#include "platform/TextEncoding.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int Rows = (CharMap::Count + CharMap::Columns - 1) / CharMap::Columns;

} // namespace

CharMap::CharMap(QWidget* parent) : QWidget(parent)
{
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
    return {Columns * pitch(), Rows * pitch()};
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

void CharMap::moveTo(int cell)
{
    m_current = cell;
    setAccessibleDescription(QStringLiteral("Code %1").arg(cell));
    update();
    emit moved(cell);
}

bool CharMap::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int cell = cellAt(help->pos());
        QToolTip::showText(help->globalPos(), cell > 0 ? QString::number(cell) : QString(), this);
        return true;
    }
    return QWidget::event(event);
}

void CharMap::paintEvent(QPaintEvent* event)
{
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
}

void CharMap::mouseMoveEvent(QMouseEvent* event)
{
    const int cell = cellAt(event->position().toPoint());
    if (cell >= 0)
        emit moved(cell);
}

void CharMap::mousePressEvent(QMouseEvent* event)
{
    const int cell = cellAt(event->position().toPoint());
    if (cell < 0 || event->button() != Qt::LeftButton)
        return;
    m_current = cell;
    mark(cell);
}

void CharMap::mouseDoubleClickEvent(QMouseEvent* event)
{
    // Two clicks on neighbours are no double click on either.
    if (event->button() != Qt::LeftButton || cellAt(event->position().toPoint()) != m_current) {
        mousePressEvent(event);
        return;
    }
    m_marked = -1;
    update();
    emit DblClick();
}

void CharMap::keyPressEvent(QKeyEvent* event)
{
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
        mark(m_current);
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (to >= 0 && to < Count)
        moveTo(to);
}

void CharMap::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void CharMap::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}
