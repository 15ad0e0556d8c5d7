// SPDX-License-Identifier: GPL-3.0-or-later

#include "Controls.h"

#include "Widgets.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>

namespace brindlemark {

QString describe(const QWidget* widget)
{
    return QStringLiteral("%1 %2").arg(QString::fromLatin1(className(widget)), widget->objectName());
}

QString wordsOf(const QWidget* widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return combo->currentText();
    if (const auto* line = qobject_cast<const QLineEdit*>(widget))
        return line->displayText() + line->placeholderText();
    if (const auto* frame = qobject_cast<const QGroupBox*>(widget))
        return frame->title();
    return {};
}

QList<QWidget*> seenControls(QWidget* window)
{
    QList<QWidget*> seen;
    for (QWidget* child : window->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!child->isVisible() || child->isWindow())
            continue;
        seen << child;
        const bool whole = qobject_cast<QComboBox*>(child) || qobject_cast<QAbstractButton*>(child) ||
                           child->inherits("brindlemark::WebControl") ||
                           child->inherits("QAbstractScrollArea") || child->inherits("QTabBar");
        if (!whole)
            seen << seenControls(child);
    }
    return seen;
}

int missingWidth(const QWidget* widget)
{
    if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        QStyleOptionComboBox look;
        look.initFrom(combo);
        look.editable = combo->isEditable();
        const QRect field =
            combo->style()->subControlRect(QStyle::CC_ComboBox, &look, QStyle::SC_ComboBoxEditField, combo);
        return combo->fontMetrics().horizontalAdvance(combo->currentText()) - field.width();
    }
    if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->wordWrap())
        return label->heightForWidth(label->width()) - label->height();
    if (const auto* frame = qobject_cast<const QGroupBox*>(widget))
        return frame->fontMetrics().horizontalAdvance(frame->title()) - frame->width();
    if (const auto* bar = qobject_cast<const QTabBar*>(widget))
        return bar->sizeHint().width() - bar->width();
    const bool hasWords = !wordsOf(widget).isEmpty();
    if (hasWords && (qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget))) {
        return qMax(widget->sizeHint().width() - widget->width(),
                    widget->sizeHint().height() - widget->height());
    }
    return 0;
}

} // namespace brindlemark
