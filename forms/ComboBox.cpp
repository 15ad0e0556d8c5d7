// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/ComboBox.h"

#include "platform/Accessible.h"
#include "platform/DesktopLook.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QWheelEvent>
#include <limits>
#include <utility>

namespace brindlemark {

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent)
{
    describeClass(staticMetaObject, accessibleComboBox);
    setInsertPolicy(NoInsert);
    setFocusPolicy(Qt::StrongFocus); // the toolkit's boxes take the keyboard when the wheel turns over them
    setPlaceholderText(QStringLiteral(" ")); // with one, the first entry isn't chosen by itself
    connect(this, &QComboBox::activated, this, &ComboBox::Click);
}

void ComboBox::setEditable(bool editable)
{
    if (editable == isEditable())
        return;
    QComboBox::setEditable(editable);
    if (!editable)
        return;
    setCompleter(nullptr);
    lineEdit()->setMaxLength(std::numeric_limits<int>::max()); // half a text is another text
    // When the field is left, the toolkit would choose the entry that reads as what was typed.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(lineEdit(), &QLineEdit::textEdited, this, &ComboBox::Change);
}

void ComboBox::showPlaceholderClearly()
{
    m_clearPlaceholder = true;
    update();
}

void ComboBox::initStyleOption(QStyleOptionComboBox* look) const
{
    guardedCall([&] {
        QComboBox::initStyleOption(look);
        if (m_clearPlaceholder) {
            look->palette =
                sharedPalette(look->palette, QStringLiteral("clear placeholder"), [](QPalette& palette) {
                    palette.setColor(QPalette::PlaceholderText,
                                     palette.color(QPalette::Active, QPalette::ButtonText));
                });
        }
    });
}

void ComboBox::Clear()
{
    clear();
    clearEditText(); // the toolkit leaves a text that was typed
}

void ComboBox::setListIndex(int index)
{
    if (index < -1 || index >= count())
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    const int before = currentIndex();
    setCurrentIndex(index); // also when it stays: what was typed gives way to the entry's text
    if (index != before)
        emit Click();
}

void ComboBox::setText(const QString& text)
{
    if (isEditable()) {
        const bool differs = text != Text();
        setEditText(text);
        if (differs)
            emit Change();
        return;
    }
    const int entry = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (entry < 0)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    setCurrentIndex(entry);
}

void ComboBox::showPopup()
{
    guardedCall([&] {
        view()->installEventFilter(this);
        QComboBox::showPopup();
    });
}

/// The toolkit chooses and closes as soon as a key is announced, and the key itself, which follows at once,
/// comes to whatever has the keyboard then, be it after the dialog that the choice has opened. So the list
/// hears of a key with the key itself.
bool ComboBox::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        const bool isTold = std::exchange(m_tellsList, false);
        if (event->type() == QEvent::ShortcutOverride && !isTold) {
            event->accept();
            return true;
        }
        if (event->type() != QEvent::KeyPress)
            return QComboBox::eventFilter(watched, event);
        return view()->isVisible() ? closesList(static_cast<const QKeyEvent&>(*event)) : passOn(*event);
    });
}

/// A quick hand's next key may still come to the list's window, which has just closed.
bool ComboBox::passOn(QEvent& key)
{
    if (QWidget* focus = QApplication::focusWidget())
        QCoreApplication::sendEvent(focus, &key);
    return true;
}

bool ComboBox::closesList(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_F4) { // closes and chooses nothing; a newer toolkit would choose
        hidePopup();
        return true;
    }
    const QPointer<ComboBox> here(this); // the choice may close the window
    QKeyEvent told(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.text(), key.isAutoRepeat());
    m_tellsList = true;
    QCoreApplication::sendEvent(view(), &told);
    return here.isNull() || !view()->isVisible();
}

void ComboBox::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter || !isEditable()) {
            if (!m_choiceActs || !choosesWhileClosed(*event)) {
                QComboBox::keyPressEvent(event);
                return;
            }
            event->accept();
            showPopup();
            if (!event->text().isEmpty() && view()->isVisible()) // a letter goes to its entry, as in any list
                QCoreApplication::sendEvent(view(), event);
            return;
        }
        event->accept();
        emit EnterPressed();
    });
}

bool ComboBox::choosesWhileClosed(const QKeyEvent& event) const
{
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        return !isEditable();
    default: {
        const bool letter = !event.text().isEmpty() && event.text().front().isPrint();
        return letter && !isEditable() && event.key() != Qt::Key_Space;
    }
    }
}

void ComboBox::wheelEvent(QWheelEvent* event)
{
    guardedCall([&] {
        if (hasFocus() && !m_choiceActs) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    });
}

} // namespace brindlemark
