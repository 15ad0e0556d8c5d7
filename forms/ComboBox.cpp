// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/ComboBox.h"

#include "platform/Accessible.h"
#include "platform/DesktopLook.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <limits>

namespace brindlemark {

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent)
{
    describeClass(staticMetaObject, accessibleComboBox);
    setInsertPolicy(NoInsert);
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

void ComboBox::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter || !isEditable()) {
            QComboBox::keyPressEvent(event);
            return;
        }
        event->accept();
        emit EnterPressed();
    });
}

} // namespace brindlemark
