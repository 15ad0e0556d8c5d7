// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Accessible.h"

#include "platform/Events.h"

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QFrame>
#include <QHash>
#include <QLineEdit>
#include <QStackedWidget>
#include <utility>

namespace brindlemark {

namespace {

QHash<QString, MakeAccessible>& makers()
{
    static QHash<QString, MakeAccessible> byClass;
    return byClass;
}

QAccessibleInterface* makeDescribed(const QString& className, QObject* object)
{
    const MakeAccessible make = makers().value(className);
    auto* widget = qobject_cast<QWidget*>(object);
    return make && widget ? make(widget) : nullptr;
}

class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleSlider(QWidget* widget) : QAccessibleWidget(widget, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return guardedCall([&]() -> void* {
            if (type == QAccessible::ValueInterface)
                return static_cast<QAccessibleValueInterface*>(this);
            return QAccessibleWidget::interface_cast(type);
        });
    }
    QString text(QAccessible::Text kind) const override
    {
        return guardedCall([&]() -> QString {
            return kind == QAccessible::Value ? QString::number(slider().value())
                                              : QAccessibleWidget::text(kind);
        });
    }

    QVariant currentValue() const override { return slider().value(); }
    void setCurrentValue(const QVariant& value) override
    {
        guardedCall([&] { slider().setValue(value.toInt()); });
    }
    QVariant minimumValue() const override { return slider().minimum(); }
    QVariant maximumValue() const override { return slider().maximum(); }
    QVariant minimumStepSize() const override { return slider().singleStep(); }

private:
    QAbstractSlider& slider() const { return *static_cast<QAbstractSlider*>(object()); }
};

/// Its children are the list and, where there is one, the edit field.
class AccessibleComboBox : public QAccessibleWidget
{
public:
    explicit AccessibleComboBox(QWidget* widget) : QAccessibleWidget(widget, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override
    {
        return guardedCall([&]() -> QString {
            return kind == QAccessible::Value ? combo().currentText() : QAccessibleWidget::text(kind);
        });
    }
    QAccessible::State state() const override
    {
        return guardedCall([&]() -> QAccessible::State {
            QAccessible::State state = QAccessibleWidget::state();
            state.expandable = true;
            state.expanded = combo().view()->isVisible();
            state.editable = combo().isEditable();
            return state;
        });
    }
    int childCount() const override { return combo().isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override
    {
        return guardedCall([&]() -> QAccessibleInterface* {
            switch (index) {
            case 0:
                return QAccessible::queryAccessibleInterface(combo().view());
            case 1:
                return QAccessible::queryAccessibleInterface(lineEdit());
            default:
                return nullptr;
            }
        });
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return guardedCall([&]() -> int {
            return child->object() == combo().view() ? 0 : child->object() == lineEdit() ? 1 : -1;
        });
    }
    /// For the pointer the box is one thing.
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QStringList actionNames() const override
    {
        return guardedCall([&]() -> QStringList {
            return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
        });
    }
    void doAction(const QString& name) override
    {
        guardedCall([&] {
            if (name != showMenuAction() && name != pressAction()) {
                QAccessibleWidget::doAction(name);
            } else if (combo().isEnabled() && !combo().view()->isVisible()) {
                combo().showPopup();
            } else {
                combo().hidePopup();
            }
        });
    }

private:
    QComboBox& combo() const { return *static_cast<QComboBox*>(object()); }
    QLineEdit* lineEdit() const { return combo().lineEdit(); }
};

/// Holds other things. The toolkit gives it the name of the box around it, which would be called out once
/// more, and again with each thing in there.
class AccessibleContainer : public QAccessibleWidget
{
public:
    explicit AccessibleContainer(QWidget* widget) : QAccessibleWidget(widget, QAccessible::Grouping) {}

    QString text(QAccessible::Text kind) const override
    {
        return guardedCall([&]() -> QString {
            return kind == QAccessible::Name ? widget()->accessibleName() : QAccessibleWidget::text(kind);
        });
    }
    QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match = QAccessible::AllRelations) const override
    {
        return guardedCall([&] { return QAccessibleWidget::relations(match & ~QAccessible::Label); });
    }
};

QAccessibleInterface* accessibleContainer(QWidget* widget)
{
    return new AccessibleContainer(widget);
}

} // namespace

void describeClass(const QMetaObject& type, MakeAccessible make)
{
    if (makers().isEmpty())
        QAccessible::installFactory(makeDescribed);
    makers().insert(QString::fromLatin1(type.className()), make);
}

void describeContainers()
{
    for (const QMetaObject* type : {&QFrame::staticMetaObject, &QStackedWidget::staticMetaObject})
        describeClass(*type, accessibleContainer);
}

QAccessibleInterface* accessibleGraphic(QWidget* widget)
{
    return new QAccessibleWidget(widget, QAccessible::Graphic);
}

QAccessibleInterface* accessibleGroup(QWidget* widget)
{
    return new QAccessibleWidget(widget, QAccessible::Grouping);
}

QAccessibleInterface* accessibleSlider(QWidget* widget)
{
    return new AccessibleSlider(widget);
}

QAccessibleInterface* accessibleComboBox(QWidget* widget)
{
    return new AccessibleComboBox(widget);
}

} // namespace brindlemark
