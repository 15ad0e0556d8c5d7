// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/ListObject.h"

#include <QComboBox>

namespace brindlemark {

/// A drop-down list, with a field for any text when `isEditable()`. What is typed stays as it was typed:
/// nothing completes or cuts it, selects an entry by it or adds it to the list. The wheel steps through the
/// entries of a box that has the keyboard; otherwise it is the window's.
class ComboBox : public QComboBox, public ListObject
{
    Q_OBJECT

public:
    /// Makes a box without entries and without an edit field.
    explicit ComboBox(QWidget* parent = nullptr);

    /// Gives the box its edit field, or takes it away. (The toolkit's own function would let the field
    /// complete.)
    void setEditable(bool editable);

    /// For a list whose choice does more than to show what was chosen: opens a dialog, loads a set, goes to a
    /// page. Keys then choose in the open list alone, which Enter takes and Escape leaves: on the way through
    /// a closed one they would do it all at each step. The wheel never chooses.
    void setChoiceActs() { m_choiceActs = true; }

    /// Shows the placeholder in the colour of an entry, not in grey.
    void showPlaceholderClearly();

    /// Opens the list. A key that closes it has then done its work: it goes to nothing behind the list, also
    /// not while the desktop still gives the keyboard to the window.
    void showPopup() override;

    int ListCount() const override { return count(); }
    QString List(int index) const override { return itemText(index); }
    /// Appends an entry; neither the index nor the text changes.
    void AddItem(const QString& text) override { addItem(text); }
    /// Removes all entries; the index becomes -1 and the text empty. Raises no event.
    void Clear();

    /// The entry that was last chosen, by hand or by code, from 0, or -1 for none. Typing leaves it.
    int ListIndex() const { return currentIndex(); }
    /// Chooses an entry and shows its text, or none with -1. Counts as a click when the index changes. Raises
    /// InvalidPropertyValue outside -1 to `ListCount()` - 1.
    void setListIndex(int index);

    /// The text that the box shows.
    QString Text() const { return currentText(); }
    /// Shows a text: any text in an edit field, which raises `Change` when it differs from the old one and
    /// leaves the index; otherwise an entry's text, which chooses the first such entry without a click and
    /// raises InvalidPropertyValue when there is none.
    void setText(const QString& text);

signals:
    /// The hand has chosen an entry, maybe the same again; or code has changed the index.
    void Click();
    /// The text in the edit field has changed: by typing, or by `setText`. Choosing an entry raises `Click`
    /// alone.
    void Change();
    /// Enter in the edit field; the key goes no further.
    void EnterPressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void initStyleOption(QStyleOptionComboBox* look) const override;

private:
    bool choosesWhileClosed(const QKeyEvent& event) const;
    bool closesList(const QKeyEvent& key);
    static bool passOn(QEvent& key);

    bool m_choiceActs = false;
    bool m_clearPlaceholder = false;
    bool m_tellsList = false; // what is announced now is for the open list
};

} // namespace brindlemark
