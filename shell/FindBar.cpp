// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FindBar.h"

#include "platform/Events.h"
#include "shell/Icons.h"
#include "web/DocumentSurface.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <limits>

namespace brindlemark {

namespace {

QToolButton* button(const char* icon, const QString& toolTip)
{
    auto* made = new QToolButton;
    made->setIcon(namedIcon(icon, made));
    made->setToolTip(toolTip);
    made->setAccessibleName(toolTip);
    made->setAutoRaise(true);
    return made;
}

} // namespace

FindBar::FindBar(DocumentSurface* surface)
    : QFrame(surface->parentWidget()), m_surface(surface), m_text(new QLineEdit), m_count(new QLabel)
{
    setObjectName(surface->objectName() + QStringLiteral("FindBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    m_text->setPlaceholderText(QStringLiteral("Find on the page"));
    m_text->setAccessibleName(QStringLiteral("Find on the page"));
    m_text->setMaxLength(std::numeric_limits<int>::max());
    m_text->setMinimumWidth(m_text->fontMetrics().averageCharWidth() * 24);
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(QStringLiteral("000 of 000")));
    auto* previous = button("go-up", QStringLiteral("Previous match (Shift+Enter)"));
    auto* next = button("go-down", QStringLiteral("Next match (Enter)"));
    auto* closer = button("dialog-close", QStringLiteral("Close (Escape)"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    for (QWidget* part : std::initializer_list<QWidget*>{m_text, m_count, previous, next, closer})
        layout->addWidget(part);

    on(m_text, &QLineEdit::textEdited, this, &FindBar::findNext);
    on(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
    on(next, &QToolButton::clicked, this, &FindBar::findNext);
    on(closer, &QToolButton::clicked, this, &FindBar::dismiss);
    on(m_text, &QLineEdit::returnPressed, this, &FindBar::enterPressed);
    on(surface, &DocumentSurface::findRequested, this, &FindBar::open);
    surface->installEventFilter(this);
    hide();
}

void FindBar::open()
{
    place();
    show();
    raise();
    m_text->setFocus();
    m_text->selectAll();
}

void FindBar::findAgain(bool backwards)
{
    if (m_text->text().isEmpty()) {
        open();
        return;
    }
    const bool isResumed = !isVisible();
    const int last = m_current;
    place();
    show();
    raise();
    find(backwards);
    if (isResumed && m_current == last) // the page begins at the place that it has found last
        find(backwards);
}

void FindBar::dismiss()
{
    static_cast<void>(m_surface->find(QString())); // finds nothing, and drops the marks
    hide();
    m_surface->setFocus();
}

void FindBar::find(bool backwards)
{
    const FindResult found = m_surface->find(m_text->text(), backwards);
    m_current = found.current;
    if (m_text->text().isEmpty()) {
        m_count->clear();
    } else if (found.matches == 0) {
        m_count->setText(QStringLiteral("Not found"));
    } else {
        m_count->setText(QStringLiteral("%1 of %2").arg(found.current).arg(found.matches));
    }
}

void FindBar::enterPressed()
{
    find(QGuiApplication::keyboardModifiers() & Qt::ShiftModifier);
}

void FindBar::findNext()
{
    find(false);
}

void FindBar::findPrevious()
{
    find(true);
}

/// Takes Escape for the bar before the window does, which may close on it.
bool FindBar::event(QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::ShortcutOverride &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            event->accept();
            return true;
        }
        return QFrame::event(event);
    });
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        if (event->key() == Qt::Key_Escape) {
            guarded([this] { dismiss(); });
        } else {
            QFrame::keyPressEvent(event);
        }
    });
}

/// Keeps the bar at the surface's upper right corner, and hides it with the surface.
bool FindBar::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
            place();
            break;
        case QEvent::Hide:
            hide();
            break;
        default:
            break;
        }
        return QFrame::eventFilter(watched, event);
    });
}

/// On a narrow page the field, the widest, gives way.
void FindBar::place()
{
    constexpr int FromRight = 20; // pixels, the page's bar
    constexpr int FromTop = 4;
    const QRect page = m_surface->geometry();
    resize(qMin(sizeHint().width(), page.width()), sizeHint().height());
    move(qMax(page.left(), page.right() - width() - FromRight), page.top() + FromTop);
}

} // namespace brindlemark
