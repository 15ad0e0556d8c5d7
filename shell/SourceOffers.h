// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/TagOffers.h"

#include <QObject>
#include <QRect>
#include <optional>

class QKeyEvent;
class QListWidget;

namespace brindlemark {

class RichTextBox;

/// Offers what may be meant by what is typed into a source box, in a list at that place: see `offersAt`. The
/// list never has the keyboard. Tab takes an entry, the first unless the arrows have led to another one;
/// Enter does so only where they have led to one; a click takes one too, Escape closes the list. All that
/// doesn't fit closes it and does what it does without it. What is taken is one step of undo.
class SourceOffers : public QObject
{
    Q_OBJECT

public:
    /// The box must outlive it.
    explicit SourceOffers(RichTextBox& box);

    /// Offers nothing any more, or again.
    void setOn(bool on);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void noteTyped();
    void noteOther();
    void noteScrolled();
    std::optional<Offers> offers() const;
    bool isRefused(const TextRange& typed) const;
    bool isOpen() const;
    void makeList();
    void open(const Offers& offers);
    void place();
    void close();
    bool pressKey(const QKeyEvent& key);
    void moveBy(int rows);
    void takeRow(int row);

    RichTextBox& m_box;
    bool m_isOn = true;
    QListWidget* m_list = nullptr;      // the window's, from the first offer on
    Offers m_offers;                    // places in the box
    std::optional<TextRange> m_refused; // what was typed when Escape closed the list
    QRect m_seen;                       // where the box showed that when the list opened
    bool m_types = false;               // a text is being typed: what changes is no reason to close
};

} // namespace brindlemark
