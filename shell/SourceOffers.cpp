// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/SourceOffers.h"

#include "platform/Events.h"
#include "source/RichTextBox.h"

#include <QAccessible>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QStyle>
#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

constexpr int MostRows = 8; // that are seen at once

constexpr Qt::KeyboardModifiers CommandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

/// Keys that do nothing but shift others.
bool isShiftingKey(const QKeyEvent& key)
{
    constexpr std::array keys = {Qt::Key_Shift,   Qt::Key_CapsLock, Qt::Key_AltGr,
                                 Qt::Key_Control, Qt::Key_Alt,      Qt::Key_Meta};
    return std::find(keys.begin(), keys.end(), key.key()) != keys.end();
}

bool isTextKey(const QKeyEvent& key)
{
    const Qt::KeyboardModifiers command = key.modifiers() & CommandKeys;
    return (!command || command == (Qt::ControlModifier | Qt::AltModifier)) && !key.text().isEmpty() &&
           key.text().front().isPrint();
}

bool isPlain(const QKeyEvent& key)
{
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

/// Keys that mean something to the list.
bool isListKey(const QKeyEvent& key)
{
    constexpr std::array keys = {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter,
                                 Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Escape};
    return isPlain(key) && std::find(keys.begin(), keys.end(), key.key()) != keys.end();
}

} // namespace

SourceOffers::SourceOffers(RichTextBox& box) : m_box(box)
{
    on(&box, &RichTextBox::Typed, this, &SourceOffers::noteTyped);
    on(&box, &RichTextBox::Change, this, &SourceOffers::noteOther);
    on(&box, &RichTextBox::SelChange, this, &SourceOffers::noteOther);
    on(&box, &RichTextBox::Click, this, &SourceOffers::noteOther);
    on(&box, &RichTextBox::Scrolled, this, &SourceOffers::noteScrolled);
}

void SourceOffers::setOn(bool on)
{
    m_isOn = on;
    close();
}

/// What there is to offer at the box's caret, as places in the box.
std::optional<Offers> SourceOffers::offers() const
{
    const int caret = m_box.SelStart();
    const qsizetype inner = m_box.utf8Position(caret);
    if (!mayOffer(m_box.utf8Between(inner - OffersNear, inner)))
        return std::nullopt;
    const qsizetype start = std::max<qsizetype>(0, inner - OffersReach);
    std::optional<Offers> found = offersAt(m_box.utf8Between(start, inner + OffersReach), inner - start);
    if (found)
        found->typed.start = caret - found->typed.length; // it is ASCII, a byte in any encoding
    return found;
}

/// Whether the list was closed while this, or the beginning of it, was typed.
bool SourceOffers::isRefused(const TextRange& typed) const
{
    return m_refused && m_refused->start == typed.start && typed.length > m_refused->length;
}

void SourceOffers::noteTyped()
{
    m_types = false;
    if (!m_isOn)
        return;
    const std::optional<Offers> found = offers();
    if (!found || isRefused(found->typed)) {
        close();
        return;
    }
    m_refused.reset();
    open(*found);
}

void SourceOffers::noteOther()
{
    if (!m_types)
        close();
}

/// The caret may have been brought into view in between, before the list opened.
void SourceOffers::noteScrolled()
{
    if (isOpen() && m_box.seenAt(int(m_offers.typed.start)) != m_seen)
        close();
}

bool SourceOffers::isOpen() const
{
    return m_list && !m_list->isHidden();
}

void SourceOffers::makeList()
{
    m_list = new QListWidget(m_box.window());
    m_list->setObjectName(QStringLiteral("Offers"));
    m_list->setAccessibleName(QStringLiteral("Offers"));
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setUniformItemSizes(true);
    m_list->hide();
    on(m_list, &QListWidget::itemClicked, this, [this] { takeRow(m_list->currentRow()); });
}

void SourceOffers::open(const Offers& offers)
{
    if (!m_list)
        makeList();
    const bool isNew = !isOpen();
    m_offers = offers;
    m_list->clear();
    for (const QByteArray& entry : offers.entries)
        m_list->addItem(QString::fromLatin1(entry));
    m_list->setCurrentRow(-1); // Enter takes nothing before an arrow has led somewhere
    place();
    m_list->show();
    m_list->raise();
    m_box.installEventFilter(this);
    if (isNew) {
        m_list->setAccessibleDescription(m_list->item(0)->text());
        QAccessibleEvent alert(m_list, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

/// Below what is typed, or above where there is more room, within the window.
void SourceOffers::place()
{
    m_box.showCaret();
    m_seen = m_box.seenAt(int(m_offers.typed.start));
    const QWidget* window = m_list->parentWidget();
    const QRect word(m_box.viewport()->mapTo(window, m_seen.topLeft()), m_seen.size());

    m_list->setFont(m_box.shownFont());
    const int frame = 2 * m_list->frameWidth();
    const int rows = std::min(m_list->count(), MostRows);
    const int bar = m_list->count() > rows ? m_list->style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    const int above = word.top();
    const int below = window->height() - word.top() - word.height();
    const int wanted = rows * m_list->sizeHintForRow(0) + frame;
    const bool isBelow = wanted <= below || below >= above;
    const int height = std::min(wanted, isBelow ? below : above);
    const int width = std::min(m_list->sizeHintForColumn(0) + frame + bar, window->width());
    const int left = std::clamp(word.left(), 0, window->width() - width);
    m_list->setGeometry(left, isBelow ? word.top() + word.height() : word.top() - height, width, height);
}

void SourceOffers::close()
{
    m_types = false;
    if (!isOpen())
        return;
    m_box.removeEventFilter(this);
    m_list->hide();
}

/// Is asked while the list is open.
bool SourceOffers::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        switch (event->type()) {
        case QEvent::ShortcutOverride: { // a key of the main window comes no further
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (!isListKey(key) && !isTextKey(key) && !isShiftingKey(key))
                close();
            break;
        }
        case QEvent::KeyPress:
            if (!pressKey(*static_cast<QKeyEvent*>(event)))
                break;
            event->accept();
            return true;
        case QEvent::InputMethod: {
            const auto& input = *static_cast<QInputMethodEvent*>(event);
            if (!input.preeditString().isEmpty()) {
                close();
            } else {
                m_types = !input.commitString().isEmpty();
            }
            break;
        }
        case QEvent::FocusOut:
        case QEvent::Hide:
            close();
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    });
}

/// Whether the key was for the list.
bool SourceOffers::pressKey(const QKeyEvent& key)
{
    if (!isListKey(key)) {
        if (isTextKey(key)) {
            m_types = true;
        } else if (!isShiftingKey(key)) {
            close();
        }
        return false;
    }
    const int row = m_list->currentRow();
    switch (key.key()) {
    case Qt::Key_Up:
        moveBy(-1);
        return true;
    case Qt::Key_Down:
        moveBy(1);
        return true;
    case Qt::Key_Escape:
        m_refused = m_offers.typed;
        close();
        return true;
    case Qt::Key_Tab:
        takeRow(std::max(row, 0));
        return true;
    default:
        break;
    }
    if (row < 0) {
        close();
        return false;
    }
    takeRow(row);
    return true;
}

/// From no entry, down to the first and up to the last.
void SourceOffers::moveBy(int rows)
{
    const int last = m_list->count() - 1;
    const int row = m_list->currentRow();
    const int next = row < 0 && rows < 0 ? last : std::clamp(row + rows, 0, last);
    m_list->setCurrentRow(next);
    QAccessibleEvent told(m_list, QAccessible::Focus);
    told.setChild(next);
    QAccessible::updateAccessibility(&told);
}

void SourceOffers::takeRow(int row)
{
    if (row < 0 || row >= m_offers.entries.size())
        return;
    const Offers taken = m_offers;
    close();
    m_box.setSelStart(int(taken.typed.start));
    m_box.setSelLength(int(taken.typed.length));
    m_box.setSelText(taken.entries.at(row));
}

} // namespace brindlemark
