// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/ListBox.h"

#include "platform/Events.h"
#include "platform/RuntimeError.h"

#include <QHash>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyledItemDelegate>

namespace brindlemark {

namespace {

/// Shows the beginning of an entry: the toolkit would measure and paint all of a megabyte, for seconds each
/// time. And as it measures all entries anew for each one that is added, it gets sizes that are known
/// already.
class EntryDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& look, const QModelIndex& index) const override
    {
        return guardedCall([&] {
            constexpr qsizetype Spare = 1000; // sizes of entries that have gone
            const QStyle* style = look.widget ? look.widget->style() : nullptr;
            if (m_font != look.font || m_style != style || m_sizes.size() > index.model()->rowCount() + Spare)
                m_sizes.clear();
            m_font = look.font;
            m_style = style;
            const QString text = index.data().toString();
            const auto known = m_sizes.constFind(text);
            return known != m_sizes.cend()
                       ? *known
                       : *m_sizes.insert(text, QStyledItemDelegate::sizeHint(look, index));
        });
    }

protected:
    void initStyleOption(QStyleOptionViewItem* look, const QModelIndex& index) const override
    {
        guardedCall([&] {
            constexpr int Shown = 1000;
            QStyledItemDelegate::initStyleOption(look, index);
            if (look->text.size() > Shown)
                look->text = look->text.left(Shown) + u'\u2026';
        });
    }

private:
    // What the sizes are known for.
    mutable QFont m_font;
    mutable const QStyle* m_style = nullptr;
    mutable QHash<QString, QSize> m_sizes;
};

} // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent)
{
    setItemDelegate(new EntryDelegate(this));
    onInner(this, &QListWidget::itemSelectionChanged, this, &ListBox::noticeSelection);
    connect(this, &QListWidget::itemDoubleClicked, this, &ListBox::DblClick);
}

QString ListBox::List(int index) const
{
    const QListWidgetItem* entry = item(index);
    return entry ? entry->text() : QString();
}

void ListBox::AddItem(const QString& text)
{
    addItem(text);
}

void ListBox::AddItem(const QString& text, int index)
{
    if (index < 0 || index > count())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const QSignalBlocker noClick(this); // a selected entry that moves down is no new selection
    insertItem(index, text);
}

void ListBox::RemoveItem(int index)
{
    if (index < 0 || index >= count())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const QSignalBlocker noClick(this);
    if (index == currentRow()) { // otherwise the toolkit selects a neighbour
        item(index)->setSelected(false);
        setCurrentRow(-1, QItemSelectionModel::NoUpdate);
    }
    delete takeItem(index);
}

void ListBox::Clear()
{
    const QSignalBlocker noClick(this);
    clear();
}

int ListBox::ListIndex() const
{
    if (!selectsOne())
        return currentRow();
    // The focus gives the list a current entry that nobody selected.
    const QList<QListWidgetItem*> selection = selectedItems();
    return selection.isEmpty() ? -1 : row(selection.constFirst());
}

void ListBox::setListIndex(int index)
{
    requireEntry(index, -1);
    if (index == ListIndex())
        return;
    if (selectsOne()) {
        setCurrentRow(index);
    } else {
        setCurrentRow(index, QItemSelectionModel::NoUpdate);
        emit Click();
    }
}

bool ListBox::Selected(int index) const
{
    requireEntry(index);
    return item(index)->isSelected();
}

void ListBox::setSelected(int index, bool selected)
{
    if (selected == Selected(index))
        return;
    if (selectsOne()) {
        setListIndex(selected ? index : -1);
    } else {
        item(index)->setSelected(selected);
    }
}

/// Tells of every button, as every button selects: otherwise a list whose owner takes the selection back at
/// `MouseUp` would keep it.
void ListBox::mousePressEvent(QMouseEvent* event)
{
    guardedCall([&] {
        emit MouseDown();
        m_clicked = false;
        QListWidget::mousePressEvent(event);
        if (m_clicked)
            return;
        if (itemAt(event->position().toPoint())) {
            emit Click();
        } else if (selectsOne()) {
            clearSelection(); // an older toolkit does so when the button goes up, a newer one doesn't
        }
    });
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    guardedCall([&] {
        if (event->button() == Qt::LeftButton) {
            QListWidget::mouseDoubleClickEvent(event);
            return;
        }
        QMouseEvent press(QEvent::MouseButtonPress, event->position(), event->globalPosition(),
                          event->button(), event->buttons(), event->modifiers());
        mousePressEvent(&press);
    });
}

void ListBox::mouseReleaseEvent(QMouseEvent* event)
{
    guardedCall([&] {
        QListWidget::mouseReleaseEvent(event);
        emit MouseUp();
    });
}

void ListBox::noticeSelection()
{
    m_clicked = true;
    emit Click();
}

void ListBox::requireEntry(int index, int first) const
{
    if (index < first || index >= count())
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}

} // namespace brindlemark
