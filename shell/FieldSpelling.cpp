// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FieldSpelling.h"

#include "platform/Events.h"
#include "shell/Spelling.h"
#include "shell/SpellingMenu.h"
#include "words/MisspeltWords.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimer>
#include <algorithm>
#include <memory>

namespace brindlemark {

namespace {

constexpr int FieldRest = 300;         // ms
constexpr qsizetype AroundView = 1000; // characters: what is cut there is out of sight

QTextCharFormat misspeltFormat()
{
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    format.setUnderlineColor(QColor(0xD0, 0, 0));
    return format;
}

/// What both kinds of field have in common.
class FieldSpelling : public QObject
{
public:
    explicit FieldSpelling(QWidget* field) : QObject(field), m_field(field)
    {
        m_rest.setSingleShot(true);
        m_rest.setInterval(FieldRest);
        onInner(&m_rest, &QTimer::timeout, this, [this] { markAnew(); });
        field->installEventFilter(this);
    }

protected:
    virtual QString text() const = 0;
    virtual qsizetype caret() const = 0;
    virtual qsizetype placeAt(QPoint point) const = 0;
    virtual QPoint caretPoint() const = 0;
    virtual void mark(const std::vector<WordPlace>& words) = 0;
    virtual void replace(const WordPlace& word, const QString& by) = 0;
    virtual QMenu* usualMenu() const = 0;
    /// The place in the text of what is in view, with some words around it.
    virtual WordPlace view() const { return {0, text().size()}; }

    void rest() { m_rest.start(); }
    /// Somebody is writing a word as long as the caret stays behind it.
    void noteTyping() { m_typed = caret(); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return guardedCall([&] {
            switch (event->type()) {
            case QEvent::InputMethod:
                if (watched == m_field && !m_marks)
                    m_composes = !static_cast<QInputMethodEvent*>(event)->preeditString().isEmpty();
                return false;
            case QEvent::Show:
            case QEvent::FocusOut:
                m_typed = -1;
                rest();
                return false;
            case QEvent::ContextMenu:
                showMenu(*static_cast<QContextMenuEvent*>(event));
                return true;
            default:
                return false;
            }
        });
    }

private:
    std::vector<WordPlace> words()
    {
        Spelling* spelling = loadedSpelling();
        if (!spelling || spelling->languages().isEmpty() || text().isEmpty())
            return {};
        const Speller& speller = spelling->speller();
        if (!m_hears) {
            m_hears = true;
            onInner(spelling, &Spelling::changed, this, [this] { m_rest.start(); });
        }
        if (!speller.judges())
            return {};
        const WordPlace stretch = view();
        std::vector<WordPlace> words =
            misspeltWords(text().sliced(stretch.start, stretch.length), spelling->judge());
        for (WordPlace& word : words)
            word.start += stretch.start;
        return words;
    }

    void markAnew()
    {
        if (m_composes || !m_field->isVisible())
            return;
        std::vector<WordPlace> wrong = words();
        std::erase_if(wrong,
                      [this](const WordPlace& word) { return word.end() == m_typed && m_typed == caret(); });
        m_marks = true;
        mark(wrong);
        m_marks = false;
    }

    void showMenu(const QContextMenuEvent& event)
    {
        const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
        QMenu* menu = usualMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const qsizetype place = byKey ? caret() : placeAt(event.pos());
        for (const WordPlace& word : words()) {
            if (word.start <= place && place <= word.end()) {
                addSpellingTo(*menu, *loadedSpelling(), text().sliced(word.start, word.length),
                              [this, word](const QString& by) { replace(word, by); });
            }
        }
        menu->popup(byKey ? m_field->mapToGlobal(caretPoint()) : event.globalPos());
    }

    QWidget* m_field;
    QTimer m_rest;
    qsizetype m_typed = -1;
    bool m_composes = false; // with an input method
    bool m_marks = false;
    bool m_hears = false;
};

class LineSpelling : public FieldSpelling
{
public:
    explicit LineSpelling(QLineEdit* field) : FieldSpelling(field), m_line(field)
    {
        onInner(field, &QLineEdit::textEdited, this, [this] { noteTyping(); });
        onInner(field, &QLineEdit::textChanged, this, [this] { rest(); });
        onInner(field, &QLineEdit::cursorPositionChanged, this, [this] { rest(); });
    }

protected:
    QString text() const override { return m_line->text(); }
    qsizetype caret() const override { return m_line->cursorPosition(); }
    qsizetype placeAt(QPoint point) const override { return m_line->cursorPositionAt(point); }
    QPoint caretPoint() const override
    {
        return m_line->inputMethodQuery(Qt::ImCursorRectangle).toRectF().bottomLeft().toPoint();
    }
    QMenu* usualMenu() const override { return m_line->createStandardContextMenu(); }

    /// A line has no formats of its own but those of input methods; none of its text changes.
    void mark(const std::vector<WordPlace>& words) override
    {
        QList<QInputMethodEvent::Attribute> attributes;
        for (const WordPlace& word : words) {
            attributes.append(QInputMethodEvent::Attribute(QInputMethodEvent::TextFormat,
                                                           int(word.start - caret()), int(word.length),
                                                           misspeltFormat()));
        }
        QInputMethodEvent event(QString(), attributes);
        QCoreApplication::sendEvent(m_line, &event);
    }

    void replace(const WordPlace& word, const QString& by) override
    {
        m_line->setSelection(int(word.start), int(word.length));
        m_line->insert(by);
    }

private:
    QLineEdit* m_line;
};

class TextSpelling : public FieldSpelling
{
public:
    explicit TextSpelling(QPlainTextEdit* field) : FieldSpelling(field), m_text(field)
    {
        field->viewport()->installEventFilter(this);
        onInner(field, &QPlainTextEdit::textChanged, this, [this] {
            noteTyping();
            rest();
        });
        onInner(field, &QPlainTextEdit::cursorPositionChanged, this, [this] { rest(); });
        onInner(field, &QPlainTextEdit::updateRequest, this, [this](const QRect&, int scrolled) {
            if (scrolled != 0)
                rest();
        });
    }

protected:
    QString text() const override { return m_text->toPlainText(); }
    qsizetype caret() const override { return m_text->textCursor().position(); }
    qsizetype placeAt(QPoint point) const override { return m_text->cursorForPosition(point).position(); }
    QPoint caretPoint() const override { return m_text->cursorRect().bottomLeft(); }
    QMenu* usualMenu() const override { return m_text->createStandardContextMenu(); }
    WordPlace view() const override
    {
        const QRect seen = m_text->viewport()->rect();
        const qsizetype start = std::max<qsizetype>(0, placeAt(seen.topLeft()) - AroundView);
        const qsizetype end = std::min(placeAt(seen.bottomRight()) + AroundView, text().size());
        return {start, end - start};
    }

    void mark(const std::vector<WordPlace>& words) override
    {
        QList<QTextEdit::ExtraSelection> selections;
        for (const WordPlace& word : words)
            selections.append({cursorOver(word), misspeltFormat()});
        m_text->setExtraSelections(selections);
    }

    void replace(const WordPlace& word, const QString& by) override { cursorOver(word).insertText(by); }

private:
    QTextCursor cursorOver(const WordPlace& word) const
    {
        QTextCursor cursor(m_text->document());
        cursor.setPosition(int(word.start));
        cursor.setPosition(int(word.end()), QTextCursor::KeepAnchor);
        return cursor;
    }

    QPlainTextEdit* m_text;
};

} // namespace

void checkSpellingIn(QLineEdit* field)
{
    new LineSpelling(field);
}

void checkSpellingIn(QPlainTextEdit* field)
{
    new TextSpelling(field);
}

} // namespace brindlemark
