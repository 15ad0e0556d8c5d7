// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/WaitCursor.h"
#include "platform/WheelSteps.h"
#include "source/ByteMap.h"
#include "source/EditNames.h"
#include "source/EditedText.h"
#include "source/TextColors.h"
#include "source/TextEncoding.h"
#include "source/TextSearch.h"
#include "source/TextUnits.h"

#include <Qsci/qsciscintillabase.h>

#include <QByteArray>
#include <QFont>
#include <QMimeData>
#include <QRect>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QMenu;

namespace brindlemark {

/// The source box: an editor whose text is bytes, kept exactly, whatever they are. All positions and lengths
/// count bytes from 0, so CR LF is two. Valid UTF-8 is shown as such, anything else as Windows-1252 (see
/// TextEncoding.h).
///
/// A setter raises the notifications that it causes before it returns, and none comes later. Their handlers
/// may set properties again.
class RichTextBox : public QsciScintillaBase, public EditedText
{
    Q_OBJECT

public:
    explicit RichTextBox(QWidget* parent = nullptr);

    QByteArray Text() const override;
    /// The same until the next edit, without a copy where the component holds the very bytes.
    QByteArray textForNow() const;
    Later textLater() const override;
    /// Replaces the whole text, in one step of undo, puts the caret to 0 and drops all colours. Decides the
    /// encoding anew. Raises `Change` and `SelChange` always, for an equal text as well.
    void setText(const QByteArray& text);
    /// The same in an encoding that the caller knows: bytes of the one can be valid in the other by chance.
    void setText(const QByteArray& text, TextEncoding encoding);
    void load(const QByteArray& text) override;
    bool isEmpty() const override;
    /// How many bytes the text has.
    qsizetype TextLength() const;
    /// Whether the text is `ascii`, which must be of no other characters; much cheaper than asking `Text`.
    bool holdsAscii(QByteArrayView ascii) const;

    /// The text in UTF-8, whatever its bytes are, valid until the next edit: for those who look for what is
    /// ASCII and need no copy.
    QByteArrayView utf8() const;
    /// Where a byte of the text stands in `utf8`.
    qsizetype utf8Position(int position) const { return toInner(qsizetype{position}); }
    /// A copy of a stretch of `utf8`, as far as it lies in the text: of a few bytes in the middle of a long
    /// text it costs less than `utf8`, for which the component moves what lies behind the caret.
    QByteArray utf8Between(qsizetype start, qsizetype end) const;

    /// Gives the box the keyboard, unless it is hidden: keys must not go where nobody looks.
    void SetFocus();

    /// The selected bytes; empty without a selection.
    QByteArray SelText() const;
    /// Replaces the selection, or inserts at the caret; the caret ends up behind the new text.
    void setSelText(const QByteArray& text);
    /// Where the selection begins, or the caret.
    int SelStart() const;
    /// Puts the caret there and selects nothing; the position is brought into the text.
    void setSelStart(int position);
    int SelLength() const;
    /// Selects so many bytes from `SelStart` on, at most to the end of the text. Throws
    /// RuntimeError(InvalidPropertyValue) for a negative length.
    void setSelLength(int length);

    /// Colours the selected text with a colour number (0x00BBGGRR). Colours are no part of the text: they
    /// raise no notification and are never undone.
    void setSelColor(int color);
    /// Does the same with `length` bytes from `start` on, whatever is selected.
    void setColor(int start, int length, int color);
    /// Colours many bytes at once. A byte of `marks` stands for the text's byte at its place from `start` on:
    /// 0 leaves that as it is, n gives it the nth of `colors`, of which there are at most 255. All of them
    /// must be in the text.
    void setColors(int start, QByteArrayView marks, const std::vector<int>& colors);
    /// The colour number of a byte; 0, black, where none was set.
    int colorAt(int position) const;
    /// The colours of all the text, run by run, by the bytes of `utf8`.
    std::vector<ColorRun> utf8Colors() const;

    /// Looks for a text from `start`, by default from the beginning of the selection, to `end`, by default
    /// the end of the text, and selects the first match. Returns its position, or -1 (the selection then
    /// stays); an empty text is never found.
    [[nodiscard]] int Find(const QByteArray& text, int start = -1, int end = -1, FindOptions options = {});
    /// Selects the next place of a text behind the selection, or the one before it, going round at the ends,
    /// and brings it into view. False: there is none.
    [[nodiscard]] bool findAround(const QByteArray& text, FindOptions options, bool backwards);

    /// A sentence that stands in grey in the empty box, and is no part of its text.
    void setHint(const QString& hint);

    /// Shows the text larger or smaller, in percent of its font, 50 to 300. The text and its font stay.
    void setZoom(int percent);

    /// Whether each line has its number beside it, and blanks, tabs and line ends can be seen; both off at
    /// first.
    void setLineNumbers(bool on);
    void setWhiteSpace(bool on);
    /// The caret's line, and how many characters stand in front of it there; both counted from 1.
    struct CaretPlace
    {
        qsizetype line = 1;
        qsizetype column = 1;
    };
    CaretPlace caretPlace() const;
    /// How many characters are selected; a line end is one.
    qsizetype selectedCharacters() const;

    /// The font in which the text is seen, larger or smaller by the zoom.
    QFont shownFont() const;
    /// Brings the caret into view at once; what moves it does so later.
    void showCaret();
    /// Where a byte of the text is seen, in the viewport: its left edge, one pixel wide, and its line's
    /// height.
    QRect seenAt(int position) const;

    /// Where the uppermost line begins that is in view.
    qsizetype topOfView() const;
    /// Scrolls until the line of a place is the uppermost one, as far as there is text below.
    void bringToTop(qsizetype place);

    /// From the first character that is in view to the last one, as a stretch of the text.
    TextRange inView() const;
    /// Underlines words of a stretch of the text as misspelt, in their order, and takes that mark from all
    /// others there. An edit moves the marks with the text. They are no part of it.
    void markMisspelt(const TextRange& stretch, const std::vector<TextRange>& words);

    /// Marks what belongs together, such as the two tags of an element, in place of what was marked so.
    void markPair(const std::vector<TextRange>& pair);

    /// Tints the ground of some lines, counted from 0, until the text changes, and brings the first into
    /// view.
    void markLines(const std::vector<qsizetype>& lines, const QColor& tint);

    /// The background's colour number.
    int BackColor() const { return m_backColor; }
    void setBackColor(int color);

    /// Whether the text is only to be read, selected and copied; `setText` and `load` change it all the same.
    /// Tab leaves such a box.
    bool isReadOnly() const { return m_readOnly; }
    void setReadOnly(bool on);

    /// The face, size (in points, fractions count), weight and slant of the text.
    QFont textFont() const { return m_textFont; }
    void setTextFont(const QFont& font);

    TextEncoding textEncoding() const override { return m_map.encoding(); }
    /// The bytes that a text takes in this document, and the text of some of its bytes.
    QByteArray encode(const QString& text) const { return brindlemark::encode(text, textEncoding()); }
    QString decode(const QByteArray& bytes) const { return brindlemark::decode(bytes, textEncoding()); }

    /// How those who count in UTF-16 units find their way in the component's text.
    TextUnits& units() { return m_units; }

    /// Makes all edits of its lifetime one step of undo.
    class UndoGroup
    {
    public:
        explicit UndoGroup(RichTextBox* box);
        ~UndoGroup();
        Q_DISABLE_COPY_MOVE(UndoGroup)

    private:
        RichTextBox* m_box;
    };

    /// Gives the edits of its lifetime a name by which the user knows them, such as "Table". Within another
    /// one it does nothing.
    class EditName
    {
    public:
        EditName(RichTextBox* box, const QString& name);
        ~EditName();
        Q_DISABLE_COPY_MOVE(EditName)

    private:
        RichTextBox* m_box;
        bool m_isOutermost;
    };
    /// The name of what `undo` takes back and `redo` brings again, "Typing" where none was given; empty:
    /// there is nothing.
    QString undoName() const { return m_names.undoName(); }
    QString redoName() const { return m_names.redoName(); }

public slots:
    void undo();
    void redo();
    void cut();
    void copy();
    /// Inserts the clipboard's text. Text of other programs gets CR LF line ends.
    void paste();
    /// Deletes the selection, or the character behind the caret.
    void del();
    void selectAll();

signals:
    /// The text has changed.
    void Change();
    /// `SelStart` or `SelLength` has changed; after `Change` when both have.
    void SelChange();
    /// Ctrl and the wheel: larger by so many steps, or smaller.
    void ZoomWanted(int steps);
    /// Other lines have come into view, or may have. Comes with the next painting, and with another size.
    void Scrolled();
    /// The left mouse button was pressed and released in the box.
    void Click();
    /// A key or an input method has typed a text, which stands in front of the caret; after `Change` and
    /// `SelChange`. Not what is still being composed.
    void Typed();
    /// A key (a Qt::Key) was released.
    void KeyUp(int key);
    /// The box's menu is about to show, for a byte of the text; entries may be added.
    void MenuOpens(QMenu* menu, int position);
    /// Files were dropped on the box, in front of the text's byte `position`. Comes once the drag is over.
    void FilesDropped(const QStringList& paths, int position);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

    QMimeData* toMimeData(const QByteArray& text, bool rectangular) const override;

private:
    class Step;

    using Range = TextRange;

    /// The hourglass, if the work is on so much text that a person sees it take time; the length of the text
    /// in the box, or one that is given, decides.
    std::unique_ptr<WaitCursor> hourglass(qsizetype length = 0) const;

    /// Sends the component a message with two numbers.
    long send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;

    QByteArrayView innerText() const;
    qsizetype innerLength() const;
    qsizetype toInner(qsizetype position) const;
    qsizetype fromInner(qsizetype position) const;

    Range innerSelection() const;
    Range selection() const;
    void select(Range range);
    void selectInner(Range range);
    void replaceInner(Range range, const QByteArray& text);
    void setEncoding(TextEncoding encoding);
    void scrollToCaretSoon();
    void scrollToCaret();

    void onModified(Range changed, int type, int token);
    void nameEdit(int type);
    void tellInserted();
    void notify();
    void notifySoon();
    void onUpdate(int updated);

    void setUpComponent();
    void setUpKeys();
    void applyLook();
    QColor hintColor() const;
    void colorHint();
    void fitLineNumbers();
    qsizetype charactersIn(Range inner) const;
    void applySelectionColors();

    void run(unsigned command);
    void pasteFrom(const QMimeData* source);
    std::unique_ptr<QMimeData> selectionData() const;
    bool leave(bool next);
    QStringList answerDrag(QDropEvent* event);
    qsizetype dropPosition(const QDropEvent& event);
    void dropFiles(const QDropEvent& event, const QStringList& files);
    void dropText(const QDropEvent& event);
    void dropAt(qsizetype position, const QByteArray& text);
    void dropSelectionAt(qsizetype position, bool move);
    bool isHeld(const QString& text) const;
    void beginOvertyping();
    void endOvertyping();
    void pressKey(QKeyEvent* event, bool typing);
    bool runStandardKey(QKeyEvent* event);
    void runComponentKey(QKeyEvent* event);
    void showPreedit(const QString& text);
    QPoint caretPoint() const;

    ByteMap m_map;
    TextColors m_colors;
    TextUnits m_units{*this};
    EditNames m_names;
    QString m_editName; // of the edits that are made now; empty: typing
    int m_backColor = 0xFFFFFF;
    QFont m_textFont;

    bool m_readOnly = false;
    bool m_lineNumbers = false;
    qsizetype m_digits = 0;    // of the line numbers, for which there is room; -1: not known
    bool m_overtyping = false; // a step of undo is open
    int m_steps = 0;           // how many changes are under way, one inside another
    bool m_textChanged = false;
    std::optional<Range> m_inserted; // readers don't know of it yet
    bool m_selectionSet = false;     // to be told even if it is the same
    Range m_toldSelection;
    QTimer m_notifyTimer;
    QTimer m_scrollTimer;
    bool m_leftPressed = false;
    QLabel* m_hint = nullptr;
    int m_zoom = 100;   // percent
    WheelSteps m_wheel; // with Ctrl
    QLabel* m_preedit = nullptr;
};

} // namespace brindlemark
