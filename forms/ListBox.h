// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/ListObject.h"

#include <QListWidget>

namespace brindlemark {

/// A list box, with one selected entry at most (the start) or with several, as `selectionMode()` says. Of an
/// entry that is longer than any screen it shows the beginning.
class ListBox : public QListWidget, public ListObject
{
    Q_OBJECT

public:
    /// Makes a list without entries, of which one at most can be selected.
    explicit ListBox(QWidget* parent = nullptr);

    int ListCount() const override { return count(); }
    QString List(int index) const override;
    void AddItem(const QString& text) override;
    /// Puts an entry in front of entry `index`; `ListCount()` appends. The selection stays with its entries.
    /// Raises no event, and InvalidProcedureCall outside 0 to `ListCount()`.
    void AddItem(const QString& text, int index);
    /// Removes entry `index`; when it was selected none takes its place. Raises no event, and
    /// InvalidProcedureCall outside the list.
    void RemoveItem(int index);
    /// Removes all entries. Raises no event.
    void Clear();

    /// The selected entry, from 0, or -1 for none; where several may be selected the one that the keys stand
    /// on.
    int ListIndex() const;
    /// Selects an entry, or none with -1; where several may be selected the keys move there and the selection
    /// stays. Counts as a click when the index changes. Raises InvalidPropertyValue outside -1 to
    /// `ListCount()` - 1.
    void setListIndex(int index);

    /// Whether entry `index` is selected. Raises InvalidPropertyValue outside the list.
    bool Selected(int index) const;
    /// Selects or deselects entry `index`; counts as a click when that changes anything. Raises
    /// InvalidPropertyValue outside the list.
    void setSelected(int index, bool selected);

signals:
    /// The selection has changed, by hand or by code; or the hand has clicked on an entry once more.
    void Click();
    /// The hand has clicked twice on an entry, with the left button. With another button these are two
    /// clicks.
    void DblClick();
    /// A button of the mouse goes down on the list; the selection is still the old one.
    void MouseDown();
    /// A button has gone up after a press on the list, wherever the pointer is by then.
    void MouseUp();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void noticeSelection();
    bool selectsOne() const { return selectionMode() == SingleSelection; }
    void requireEntry(int index, int first = 0) const;

    bool m_clicked = false; // since the last press
};

} // namespace brindlemark
