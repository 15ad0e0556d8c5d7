// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/AccessibleSource.h"

#include "platform/Events.h"
#include "source/RichTextBox.h"

#include <QAccessibleWidget>
#include <algorithm>
#include <optional>

namespace brindlemark {

namespace {

using Scintilla = QsciScintillaBase;

long ask(const RichTextBox& box, unsigned message, long first = 0, long second = 0)
{
    return box.SendScintilla(message, static_cast<unsigned long>(first), second);
}

QString textBetween(const RichTextBox& box, long start, long end)
{
    QByteArray bytes(std::max(end - start, 0L) + 1, '\0'); // the component adds a NUL
    if (bytes.size() > 1)
        box.SendScintilla(Scintilla::SCI_GETTEXTRANGE, start, end, bytes.data());
    return QString::fromUtf8(QByteArrayView(bytes).chopped(1));
}

/// A part of the text, in UTF-16 units.
struct Units
{
    int start;
    int end;
};

class AccessibleSource : public QAccessibleWidget,
                         public QAccessibleTextInterface,
                         public QAccessibleEditableTextInterface
{
public:
    explicit AccessibleSource(QWidget* widget) : QAccessibleWidget(widget, QAccessible::EditableText) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return guardedCall([&]() -> void* {
            if (type == QAccessible::TextInterface)
                return static_cast<QAccessibleTextInterface*>(this);
            if (type == QAccessible::EditableTextInterface)
                return static_cast<QAccessibleEditableTextInterface*>(this);
            return QAccessibleWidget::interface_cast(type);
        });
    }
    QAccessible::State state() const override
    {
        return guardedCall([&] {
            QAccessible::State state = QAccessibleWidget::state();
            state.multiLine = true;
            state.selectableText = true;
            state.readOnly = box().isReadOnly();
            state.editable = !state.readOnly;
            return state;
        });
    }
    /// The component's bars and its preedit are no parts of the text.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    // ---- The text

    int characterCount() const override
    {
        return guardedCall(
            [&] { return m_passage ? m_passage->end - m_passage->start : box().units().count(); });
    }
    using QAccessibleWidget::text; // a name or a value; the other one is the text interface's
    QString text(int start, int end) const override
    {
        return guardedCall([&] {
            const int first = m_passage ? m_passage->start : 0;
            return textOf({first + start, first + end});
        });
    }
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                             int* end) const override
    {
        return guardedCall([&] {
            const auto answer = [&](int place) {
                return QAccessibleTextInterface::textBeforeOffset(place, boundary, start, end);
            };
            return nearOffset(offset, boundary, start, end, answer);
        });
    }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                         int* end) const override
    {
        return guardedCall([&] {
            const auto answer = [&](int place) {
                return QAccessibleTextInterface::textAtOffset(place, boundary, start, end);
            };
            return nearOffset(offset, boundary, start, end, answer);
        });
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                            int* end) const override
    {
        return guardedCall([&] {
            const auto answer = [&](int place) {
                return QAccessibleTextInterface::textAfterOffset(place, boundary, start, end);
            };
            return nearOffset(offset, boundary, start, end, answer);
        });
    }
    /// The whole text has one face; colours are to the eye what the tags are to the ear.
    QString attributes(int, int* start, int* end) const override
    {
        return guardedCall([&] {
            *start = 0;
            *end = characterCount();
            const QFont font = box().textFont();
            return QStringLiteral("font-family:\"%1\";font-size:%2pt;")
                .arg(font.family(), QString::number(font.pointSizeF()));
        });
    }

    // ---- The caret and the selection

    int cursorPosition() const override
    {
        return guardedCall([&] { return box().units().offset(ask(box(), Scintilla::SCI_GETCURRENTPOS)); });
    }
    void setCursorPosition(int offset) override
    {
        guardedCall([&] { ask(box(), Scintilla::SCI_GOTOPOS, box().units().position(offset)); });
    }
    int selectionCount() const override
    {
        return guardedCall([&] { return ask(box(), Scintilla::SCI_GETSELECTIONEMPTY) != 0 ? 0 : 1; });
    }
    void selection(int index, int* start, int* end) const override
    {
        guardedCall([&] {
            *start = *end = 0;
            if (index != 0)
                return;
            *start = box().units().offset(ask(box(), Scintilla::SCI_GETSELECTIONSTART));
            *end = box().units().offset(ask(box(), Scintilla::SCI_GETSELECTIONEND));
        });
    }
    void addSelection(int start, int end) override
    {
        guardedCall([&] { select({start, end}); });
    }
    void removeSelection(int index) override
    {
        guardedCall([&] {
            if (index == 0)
                ask(box(), Scintilla::SCI_SETEMPTYSELECTION, ask(box(), Scintilla::SCI_GETCURRENTPOS));
        });
    }
    void setSelection(int index, int start, int end) override
    {
        guardedCall([&] {
            if (index == 0)
                select({start, end});
        });
    }

    // ---- What stands where

    void scrollToSubstring(int start, int end) override
    {
        guardedCall([&] {
            ask(box(), Scintilla::SCI_SCROLLRANGE, box().units().position(end),
                box().units().position(start));
        });
    }
    QRect characterRect(int offset) const override
    {
        return guardedCall([&] {
            const long position = box().units().position(offset);
            const long next = ask(box(), Scintilla::SCI_POSITIONAFTER, position);
            const QPoint corner(int(ask(box(), Scintilla::SCI_POINTXFROMPOSITION, 0, position)),
                                int(ask(box(), Scintilla::SCI_POINTYFROMPOSITION, 0, position)));
            const int right = int(ask(box(), Scintilla::SCI_POINTXFROMPOSITION, 0, next));
            const int height = int(ask(box(), Scintilla::SCI_TEXTHEIGHT, 0));
            return QRect(box().viewport()->mapToGlobal(corner),
                         QSize(std::max(right - corner.x(), 1), height)); // nothing behind the line's end
        });
    }
    int offsetAtPoint(const QPoint& point) const override
    {
        return guardedCall([&] {
            const QPoint place = box().viewport()->mapFromGlobal(point);
            const long found = ask(box(), Scintilla::SCI_CHARPOSITIONFROMPOINTCLOSE, place.x(), place.y());
            return found < 0 ? -1 : box().units().offset(found);
        });
    }

    // ---- Editing

    void deleteText(int start, int end) override
    {
        guardedCall([&] { replace({start, end}, QString()); });
    }
    void insertText(int offset, const QString& text) override
    {
        guardedCall([&] { replace({offset, offset}, text); });
    }
    void replaceText(int start, int end, const QString& text) override
    {
        guardedCall([&] { replace({start, end}, text); });
    }

private:
    RichTextBox& box() const { return *static_cast<RichTextBox*>(object()); }

    QString textOf(Units units) const
    {
        return textBetween(box(), box().units().position(units.start), box().units().position(units.end));
    }

    void select(Units units)
    {
        ask(box(), Scintilla::SCI_SETSEL, box().units().position(units.start),
            box().units().position(units.end));
    }

    void replace(Units units, const QString& text)
    {
        select(units);
        box().setSelText(box().encode(text));
    }

    /// The line at an offset with its neighbours.
    Units linesAround(int offset) const
    {
        const long line = ask(box(), Scintilla::SCI_LINEFROMPOSITION, box().units().position(offset));
        const auto startOf = [&](long number) {
            const long last = ask(box(), Scintilla::SCI_GETLINECOUNT);
            const long position = ask(box(), Scintilla::SCI_POSITIONFROMLINE, std::clamp(number, 0L, last));
            return box().units().offset(position);
        };
        const int end = startOf(line + 2);
        return {startOf(line - 1), end};
    }

    /// The toolkit finds words and lines in a copy of the whole text: for its time, the lines around are all.
    template <typename Answer>
    QString nearOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end,
                       const Answer& answer) const
    {
        const int count = characterCount();
        if (boundary == QAccessible::NoBoundary || offset < 0 || offset > count)
            return answer(offset);
        m_passage = linesAround(offset);
        const int first = m_passage->start;
        QString found = answer(offset - first);
        m_passage.reset();
        for (int* place : {start, end})
            *place += *place < 0 ? 0 : first;
        return found;
    }

    mutable std::optional<Units> m_passage; ///< what counts as the text, if it isn't all
};

} // namespace

QAccessibleInterface* accessibleSource(QWidget* box)
{
    return new AccessibleSource(box);
}

void tellInsertion(RichTextBox& box, TextRange range)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTextInsertEvent event(&box, box.units().offset(range.start),
                                     textBetween(box, range.start, range.end()));
    QAccessible::updateAccessibility(&event);
}

void tellDeletion(RichTextBox& box, TextRange range)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTextRemoveEvent event(&box, box.units().offset(range.start),
                                     textBetween(box, range.start, range.end()));
    QAccessible::updateAccessibility(&event);
}

void tellCaret(RichTextBox& box)
{
    if (!QAccessible::isActive())
        return;
    const int caret = box.units().offset(ask(box, Scintilla::SCI_GETCURRENTPOS));
    const int anchor = box.units().offset(ask(box, Scintilla::SCI_GETANCHOR));
    QAccessibleTextSelectionEvent event(&box, std::min(anchor, caret), std::max(anchor, caret));
    event.setCursorPosition(caret);
    QAccessible::updateAccessibility(&event);
}

} // namespace brindlemark
