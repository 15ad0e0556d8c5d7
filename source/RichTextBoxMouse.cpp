// SPDX-License-Identifier: GPL-3.0-or-later

// The mouse on the source box: clicks, drags and the context menu.

#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "source/RichTextBoxStep.h"
#include "source/SourceClip.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <array>
#include <utility>

namespace brindlemark {

namespace {

/// Ctrl or Alt with the mouse would select a rectangle.
void dropRectangleKeys(QMouseEvent* event)
{
    event->setModifiers(event->modifiers() & ~(Qt::ControlModifier | Qt::AltModifier));
}

} // namespace

void RichTextBox::mousePressEvent(QMouseEvent* event)
{
    guardedCall([&] {
        Step step(this);
        if (event->button() == Qt::LeftButton)
            m_leftPressed = true;
        if (event->button() == Qt::MiddleButton) {
            if (!QApplication::clipboard()->supportsSelection())
                return;
            const QPoint point = event->position().toPoint();
            selectInner({send(SCI_POSITIONFROMPOINT, point.x(), point.y()), 0});
            pasteFrom(QApplication::clipboard()->mimeData(QClipboard::Selection));
            return;
        }
        dropRectangleKeys(event);
        QsciScintillaBase::mousePressEvent(event);
    });
}

void RichTextBox::wheelEvent(QWheelEvent* event)
{
    guardedCall([&] {
        if (!(event->modifiers() & Qt::ControlModifier)) {
            QsciScintillaBase::wheelEvent(event);
            return;
        }
        event->accept();
        if (const int steps = m_wheel.turned(event->angleDelta().y()); steps != 0)
            emit ZoomWanted(steps);
    });
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event)
{
    guardedCall([&] {
        Step step(this);
        dropRectangleKeys(event);
        QsciScintillaBase::mouseMoveEvent(event);
    });
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event)
{
    guardedCall([&] {
        {
            Step step(this);
            dropRectangleKeys(event);
            QsciScintillaBase::mouseReleaseEvent(event);
        }
        const bool click = event->button() == Qt::LeftButton && std::exchange(m_leftPressed, false);
        if (click && viewport()->rect().contains(event->position().toPoint()))
            emit Click();
    });
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    guardedCall([&] {
        Step step(this);
        dropRectangleKeys(event);
        QsciScintillaBase::mouseDoubleClickEvent(event);
    });
}

void RichTextBox::dragEnterEvent(QDragEnterEvent* event)
{
    guardedCall([&] { RichTextBox::dragMoveEvent(event); });
}

void RichTextBox::dragMoveEvent(QDragMoveEvent* event)
{
    guardedCall([&] {
        const QStringList files = answerDrag(event);
        if (!event->isAccepted() || (!files.isEmpty() && !isPictureFile(files.constFirst())))
            return;
        QsciScintillaBase::dragMoveEvent(event); // shows where the drop would go
        if (!files.isEmpty()) {
            event->setDropAction(Qt::CopyAction);
            event->accept();
        }
    });
}

/// Tells the pointer whether a drop would be taken, and returns the files that are dragged; none for a text.
/// A file is copied whatever is proposed: a program that is told of a move would delete it. Files are asked
/// for once only: the other program may let go of them at any moment.
QStringList RichTextBox::answerDrag(QDropEvent* event)
{
    const QMimeData* dragged = event->mimeData();
    // While a handler runs, a question stands before the user, or the text is about to be replaced.
    if (handlersRun() || !(dragged->hasUrls() || dragged->hasText())) {
        event->ignore();
        return {};
    }
    if (!dragged->hasUrls()) {
        event->acceptProposedAction();
        return {};
    }
    QStringList files = filesIn(*dragged);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(event->possibleActions() & Qt::CopyAction && !files.isEmpty());
    return files;
}

void RichTextBox::dropEvent(QDropEvent* event)
{
    guardedCall([&] {
        const QStringList files = answerDrag(event);
        if (!event->isAccepted())
            return;
        if (files.isEmpty()) {
            dropText(*event);
        } else {
            dropFiles(*event, files);
        }
    });
}

/// The component's position of a drop. Takes away the mark that showed it.
qsizetype RichTextBox::dropPosition(const QDropEvent& event)
{
    QDragLeaveEvent leave;
    QsciScintillaBase::dragLeaveEvent(&leave);
    const QPoint point = event.position().toPoint();
    return send(SCI_POSITIONFROMPOINT, point.x(), point.y());
}

/// The program that the files come from waits for the drop's end, not for what the user is asked then.
void RichTextBox::dropFiles(const QDropEvent& event, const QStringList& files)
{
    const int position = int(fromInner(dropPosition(event)));
    soon(this, [this, files, position] {
        whenHandlersReturn([box = QPointer<RichTextBox>(this), files, position] {
            if (box)
                emit box->FilesDropped(files, position);
        });
    });
}

/// The component's own drop ends a text at a NUL and changes line ends.
void RichTextBox::dropText(const QDropEvent& event)
{
    const EditName name(this, QStringLiteral("Drag"));
    Step step(this);
    const qsizetype position = dropPosition(event);
    if (event.source() == this) {
        dropSelectionAt(position, event.dropAction() == Qt::MoveAction);
    } else {
        dropAt(position, bytesOf(*event.mimeData(), textEncoding()));
    }
}

/// Inserts a text at one of the component's positions and selects it.
void RichTextBox::dropAt(qsizetype position, const QByteArray& text)
{
    UndoGroup group(this);
    const QByteArray inserted = m_map.toInner(text);
    replaceInner({position, 0}, inserted);
    selectInner({position, inserted.size()});
}

/// Moves or copies the selection with its colours. One that is moved into itself stays where it is.
void RichTextBox::dropSelectionAt(qsizetype position, bool move)
{
    const Range selected = innerSelection();
    if (move && position >= selected.start && position <= selected.end())
        return;
    const QByteArray text = SelText();
    const std::vector<ColorRun> colors = m_colors.in(selected);
    UndoGroup group(this);
    if (move)
        replaceInner(selected, {});
    const qsizetype target = move && position > selected.start ? position - selected.length : position;
    dropAt(target, text);
    for (const ColorRun& run : colors)
        m_colors.paint({target + run.range.start - selected.start, run.range.length}, run.color);
}

void RichTextBox::contextMenuEvent(QContextMenuEvent* event)
{
    guardedCall([&] {
        struct Entry
        {
            QString text;
            QKeySequence::StandardKey key;
            void (RichTextBox::*command)();
            bool enabled;
        };
        const bool selected = SelLength() > 0;
        const QMimeData* clipboard = doors().clipboard();
        const bool pasteable = clipboard && clipboard->hasText();
        const std::array entries = {
            Entry{withName(tr("&Undo"), undoName()), QKeySequence::Undo, &RichTextBox::undo,
                  !undoName().isEmpty()},
            Entry{withName(tr("&Redo"), redoName()), QKeySequence::Redo, &RichTextBox::redo,
                  !redoName().isEmpty()},
            Entry{tr("Cu&t"), QKeySequence::Cut, &RichTextBox::cut, selected && !m_readOnly},
            Entry{tr("&Copy"), QKeySequence::Copy, &RichTextBox::copy, selected},
            Entry{tr("&Paste"), QKeySequence::Paste, &RichTextBox::paste, pasteable && !m_readOnly},
            Entry{tr("&Delete"), QKeySequence::Delete, &RichTextBox::del, selected && !m_readOnly},
            Entry{tr("Select &All"), QKeySequence::SelectAll, &RichTextBox::selectAll, !isEmpty()},
        };
        auto* menu = new QMenu(this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (const Entry& entry : entries) {
            const QString key = QKeySequence(entry.key).toString(QKeySequence::NativeText);
            QAction* action = menu->addAction(entry.text + u'\t' + key);
            action->setEnabled(entry.enabled);
            onInner(action, &QAction::triggered, this, entry.command);
            if (entry.command == &RichTextBox::redo || entry.command == &RichTextBox::del)
                menu->addSeparator();
        }
        const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
        const QPoint place = viewport()->mapFromGlobal(event->globalPos());
        const long inner =
            byKey ? send(SCI_GETCURRENTPOS) : send(SCI_POSITIONFROMPOINT, place.x(), place.y());
        emit MenuOpens(menu, int(fromInner(qsizetype{inner})));
        menu->popup(byKey ? viewport()->mapToGlobal(caretPoint()) : event->globalPos());
    });
}

} // namespace brindlemark
