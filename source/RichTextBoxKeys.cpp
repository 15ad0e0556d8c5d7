// SPDX-License-Identifier: GPL-3.0-or-later

// Keys and the input method of the source box.

#include "platform/Events.h"
#include "source/RichTextBoxStep.h"

#include <QKeyEvent>
#include <QLabel>
#include <algorithm>
#include <array>
#include <utility>

namespace brindlemark {

namespace {

/// Keys that type, edit or move the caret go to the box and not to a menu entry with the same shortcut.
bool isEditingKey(const QKeyEvent& key)
{
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    constexpr std::array editingKeys = {
        Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Tab,
        Qt::Key_Backtab, Qt::Key_Home,      Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
        Qt::Key_Left,    Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,
    };
    return std::find(editingKeys.begin(), editingKeys.end(), key.key()) != editingKeys.end() ||
           (!key.text().isEmpty() && key.text().front().isPrint());
}

/// Keys with which typing goes on: those of characters, and those that only shift them.
bool isTypingKey(const QKeyEvent& key)
{
    constexpr std::array shifts = {Qt::Key_Shift, Qt::Key_CapsLock, Qt::Key_AltGr, Qt::Key_Control,
                                   Qt::Key_Alt};
    if (std::find(shifts.begin(), shifts.end(), key.key()) != shifts.end())
        return true;
    const Qt::KeyboardModifiers command =
        key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return (!command || command == (Qt::ControlModifier | Qt::AltModifier)) && !key.text().isEmpty() &&
           key.text().front().isPrint();
}

} // namespace

bool RichTextBox::event(QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::ShortcutOverride && isEditingKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        return QsciScintillaBase::event(event);
    });
}

/// Tab types; Shift+Tab leaves the box, as Ctrl+Tab does (see keyPressEvent).
bool RichTextBox::focusNextPrevChild(bool next)
{
    return guardedCall([&] { return (!next || isReadOnly()) && leave(next); });
}

bool RichTextBox::leave(bool next)
{
    // The component keeps the focus whatever the key.
    return QAbstractScrollArea::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

/// Typing over a selection, with what is typed on from there, is one step of undo: else the first undo would
/// leave the first letter in place of what was selected.
void RichTextBox::beginOvertyping()
{
    if (m_overtyping || SelLength() == 0)
        return;
    m_overtyping = true;
    send(SCI_BEGINUNDOACTION);
}

void RichTextBox::endOvertyping()
{
    if (std::exchange(m_overtyping, false))
        send(SCI_ENDUNDOACTION);
}

void RichTextBox::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        const bool typing = isTypingKey(*event);
        const bool types = typing && !event->text().isEmpty();
        {
            Step step(this, typing);
            if (types)
                beginOvertyping();
            pressKey(event, typing);
        }
        if (types && !m_readOnly)
            emit Typed();
    });
}

void RichTextBox::pressKey(QKeyEvent* event, bool typing)
{
    const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (tab && event->modifiers() & Qt::ControlModifier) {
        leave(!(event->modifiers() & Qt::ShiftModifier));
    } else if (tab && event->modifiers() == Qt::NoModifier) {
        setSelText("\t"); // the component would indent selected lines
    } else if (typing && !isHeld(event->text())) {
        setSelText(encode(event->text()));
    } else if (!runStandardKey(event)) {
        runComponentKey(event);
    }
}

/// Ctrl, Alt or Meta with a letter types nothing, even where the platform gives the letter as the key's text.
void RichTextBox::runComponentKey(QKeyEvent* event)
{
    const Qt::KeyboardModifiers command =
        event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!command || command == (Qt::ControlModifier | Qt::AltModifier)) { // AltGr on some platforms
        QsciScintillaBase::keyPressEvent(event);
        return;
    }
    QKeyEvent textless(event->type(), event->key(), event->modifiers());
    QsciScintillaBase::keyPressEvent(&textless);
    event->setAccepted(textless.isAccepted());
}

/// Whether the document can hold a text as it stands.
bool RichTextBox::isHeld(const QString& text) const
{
    return decode(encode(text)) == text;
}

bool RichTextBox::runStandardKey(QKeyEvent* event)
{
    struct Command
    {
        QKeySequence::StandardKey key;
        void (RichTextBox::*run)();
    };
    static constexpr std::array commands = {
        Command{QKeySequence::Undo, &RichTextBox::undo},
        Command{QKeySequence::Redo, &RichTextBox::redo},
        Command{QKeySequence::Cut, &RichTextBox::cut},
        Command{QKeySequence::Copy, &RichTextBox::copy},
        Command{QKeySequence::Paste, &RichTextBox::paste},
        Command{QKeySequence::SelectAll, &RichTextBox::selectAll},
    };
    const auto* command = std::find_if(commands.begin(), commands.end(),
                                       [event](const Command& each) { return event->matches(each.key); });
    if (command == commands.end())
        return false;
    (this->*command->run)();
    scrollToCaret();
    return true;
}

void RichTextBox::keyReleaseEvent(QKeyEvent* event)
{
    guardedCall([&] {
        QsciScintillaBase::keyReleaseEvent(event);
        if (!event->isAutoRepeat())
            emit KeyUp(event->key());
    });
}

/// The component would write a text that is still being composed into the document.
void RichTextBox::inputMethodEvent(QInputMethodEvent* event)
{
    guardedCall([&] {
        {
            Step step(this, true);
            if (!event->commitString().isEmpty())
                beginOvertyping();
            if (event->replacementLength() > 0) {
                const qsizetype start =
                    send(SCI_POSITIONRELATIVECODEUNITS, innerSelection().start, event->replacementStart());
                const qsizetype end = send(SCI_POSITIONRELATIVECODEUNITS, start, event->replacementLength());
                selectInner({start, end - start});
            }
            if (!event->commitString().isEmpty() || event->replacementLength() > 0)
                setSelText(encode(event->commitString()));
            showPreedit(event->preeditString());
            event->accept();
        }
        if (!event->commitString().isEmpty() && event->preeditString().isEmpty() && !m_readOnly)
            emit Typed();
    });
}

/// Shows a text that is being composed at the caret, over the document.
void RichTextBox::showPreedit(const QString& text)
{
    if (!m_preedit) {
        m_preedit = new QLabel(viewport());
        m_preedit->setTextFormat(Qt::PlainText);
        m_preedit->setAutoFillBackground(true);
        m_preedit->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    QFont font = m_textFont;
    font.setUnderline(true);
    m_preedit->setFont(font);
    m_preedit->setText(text);
    m_preedit->adjustSize();
    m_preedit->move(caretPoint());
    m_preedit->setVisible(!text.isEmpty());
}

void RichTextBox::showCaret()
{
    m_scrollTimer.stop();
    scrollToCaret();
}

QRect RichTextBox::seenAt(int position) const
{
    const qsizetype place = toInner(qsizetype{position});
    const long line = send(SCI_LINEFROMPOSITION, place);
    return {int(send(SCI_POINTXFROMPOSITION, 0, place)), int(send(SCI_POINTYFROMPOSITION, 0, place)), 1,
            int(send(SCI_TEXTHEIGHT, line))};
}

/// The caret's upper end, in the viewport.
QPoint RichTextBox::caretPoint() const
{
    const qsizetype caret = send(SCI_GETCURRENTPOS);
    return {int(send(SCI_POINTXFROMPOSITION, 0, caret)), int(send(SCI_POINTYFROMPOSITION, 0, caret))};
}

} // namespace brindlemark
