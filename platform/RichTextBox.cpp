#include "platform/RichTextBox.h"

#include "platform/ColorNumber.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace {

constexpr int ColorIndicator = QsciScintillaBase::INDIC_CONTAINER;

/// Exact bytes for the program's own clipboard and drags, of use to a document of the same encoding.
QString bytesFormat(TextEncoding encoding)
{
    return encoding == TextEncoding::Utf8 ? QStringLiteral("application/x-brindlemark-utf8")
                                          : QStringLiteral("application/x-brindlemark-western");
}

/// An encoding change, as the undo history holds it.
int changeToken(TextEncoding before, TextEncoding after)
{
    return static_cast<int>(before) << 1 | static_cast<int>(after);
}

TextEncoding encodingBefore(int token)
{
    return static_cast<TextEncoding>(token >> 1);
}

TextEncoding encodingAfter(int token)
{
    return static_cast<TextEncoding>(token & 1);
}

/// What the component keeps with coloured text; black is the text's own colour.
int colorValue(int color)
{
    constexpr int black = 0;
    return color == black
               ? 0
               : QsciScintillaBase::SC_INDICVALUEBIT | (color & QsciScintillaBase::SC_INDICVALUEMASK);
}

bool beginsCharacter(char byte)
{
    return (byte & 0xC0) != 0x80;
}

qsizetype charactersIn(QByteArrayView text)
{
    return std::count_if(text.begin(), text.end(), beginsCharacter);
}

/// Keys that type, edit or move the caret go to the box and not to a menu entry with the same shortcut.
bool isEditingKey(const QKeyEvent& key)
{
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    constexpr std::array editingKeys = {
        Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Tab,
        Qt::Key_Backtab, Qt::Key_Home,      Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
        Qt::Key_Left,    Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,
    };
    return std::find(editingKeys.begin(), editingKeys.end(), key.key()) != editingKeys.end() ||
           (!key.text().isEmpty() && key.text().front().isPrint());
}

/// Keys with which typing goes on: those of characters, and those that only shift them.
bool isTypingKey(const QKeyEvent& key)
{
    constexpr std::array shifts = {Qt::Key_Shift, Qt::Key_CapsLock, Qt::Key_AltGr, Qt::Key_Control,
                                   Qt::Key_Alt};
    if (std::find(shifts.begin(), shifts.end(), key.key()) != shifts.end())
        return true;
    const Qt::KeyboardModifiers command =
        key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return (!command || command == (Qt::ControlModifier | Qt::AltModifier)) && !key.text().isEmpty() &&
           key.text().front().isPrint();
}

/// Ctrl or Alt with the mouse would select a rectangle.
void dropRectangleKeys(QMouseEvent* event)
{
    event->setModifiers(event->modifiers() & ~(Qt::ControlModifier | Qt::AltModifier));
}

/// The files among what is dragged. Folders and addresses of the internet are none.
QStringList filesIn(const QMimeData& dragged)
{
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile())
            files << url.toLocalFile();
    }
    return files;
}

QString withWindowsLineEnds(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n');
    return text.replace(QLatin1String("\n"), QLatin1String("\r\n"));
}

} // namespace

/// One change of the box. Notifications wait until the outermost step is done: the component drops edits that
/// a handler makes in the middle of another.
class RichTextBox::Step
{
public:
    explicit Step(RichTextBox* box, bool typing = false) : m_box(box)
    {
        if (m_box->m_steps++ == 0 && !typing)
            m_box->endOvertyping();
    }
    ~Step()
    {
        if (--m_box->m_steps == 0)
            m_box->notify();
    }
    Q_DISABLE_COPY_MOVE(Step)

private:
    RichTextBox* m_box;
};

RichTextBox::UndoGroup::UndoGroup(RichTextBox* box) : m_box(box)
{
    if (m_box->m_steps == 0)
        m_box->endOvertyping();
    m_box->send(SCI_BEGINUNDOACTION);
}

RichTextBox::UndoGroup::~UndoGroup()
{
    m_box->send(SCI_ENDUNDOACTION);
}

RichTextBox::RichTextBox(QWidget* parent)
    : QsciScintillaBase(parent), m_textFont(QStringLiteral("Courier New"), 10)
{
    setUpComponent();
    setUpKeys();
    listenToEdits();
    applyLook();
    applySelectionColors();
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char*, int, int, int, int, int, int token) {
                onModified(position, type, token);
            });
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, &RichTextBox::onUpdate);
    m_scrollTimer.setSingleShot(true);
    connect(&m_scrollTimer, &QTimer::timeout, this, &RichTextBox::scrollToCaret);
    m_notifyTimer.setSingleShot(true);
    connect(&m_notifyTimer, &QTimer::timeout, this, &RichTextBox::notify);
}

void RichTextBox::setUpComponent()
{
    send(SCI_SETCODEPAGE, SC_CP_UTF8);
    send(SCI_SETEOLMODE, SC_EOL_CRLF);   // what Enter inserts
    send(SCI_SETLEXER, SCLEX_CONTAINER); // the component must not style the text
    send(SCI_SETTABINDENTS, 0);
    send(SCI_SETWRAPMODE, SC_WRAP_WORD);
    send(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    send(SCI_SETMULTIPLESELECTION, 0);
    send(SCI_SETMOUSESELECTIONRECTANGULARSWITCH, 0);
    send(SCI_SETMOUSEDOWNCAPTURES, 0); // the toolkit sends the moves of a drag anyway
    send(SCI_USEPOPUP, SC_POPUP_NEVER);
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_SETSCROLLWIDTHTRACKING, 1);
    for (int margin = 0; margin < 5; ++margin)
        send(SCI_SETMARGINWIDTHN, margin, 0);
    send(SCI_INDICSETSTYLE, ColorIndicator, INDIC_TEXTFORE);
    send(SCI_INDICSETFLAGS, ColorIndicator, SC_INDICFLAG_VALUEBEFORE);
    send(SCI_SETINDICATORCURRENT, ColorIndicator);
}

/// Takes away the component's keys that a plain text box doesn't have: whole-line commands, changes of case
/// and rectangular selection.
void RichTextBox::setUpKeys()
{
    constexpr int ctrl = SCMOD_CTRL << 16;
    constexpr int ctrlShift = (SCMOD_CTRL | SCMOD_SHIFT) << 16;
    constexpr int altShift = (SCMOD_ALT | SCMOD_SHIFT) << 16;
    constexpr std::array unwanted = {
        'L' | ctrl,          'L' | ctrlShift,      'T' | ctrl,           'T' | ctrlShift,
        'D' | ctrl,          'U' | ctrl,           'U' | ctrlShift,      SCK_UP | altShift,
        SCK_DOWN | altShift, SCK_LEFT | altShift,  SCK_RIGHT | altShift, SCK_HOME | altShift,
        SCK_END | altShift,  SCK_PRIOR | altShift, SCK_NEXT | altShift,
    };
    for (const int key : unwanted)
        send(SCI_CLEARCMDKEY, key);
}

/// The notifications after an edit cost as much as its position, as the component counts characters for
/// screen readers: they are on only while one is running. Those before an edit cost nothing.
void RichTextBox::listenToEdits()
{
    int events = SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE | SC_MOD_CONTAINER;
    if (QAccessible::isActive())
        events |= SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT;
    send(SCI_SETMODEVENTMASK, events);
}

long RichTextBox::send(unsigned message, qsizetype first, qsizetype second) const
{
    return SendScintilla(message, static_cast<unsigned long>(first), static_cast<long>(second));
}

std::unique_ptr<WaitCursor> RichTextBox::hourglass(qsizetype length) const
{
    constexpr qsizetype LongText = 4'000'000; // bytes
    // A walk over the text makes thousands of calls: one hourglass is enough.
    const bool wanted = std::max(length, innerLength()) >= LongText && !QGuiApplication::overrideCursor();
    return wanted ? std::make_unique<WaitCursor>() : nullptr;
}

// The text ------------------------------------------------------------------------------------------------

/// The whole text as the component holds it; valid until the next edit.
QByteArrayView RichTextBox::innerText() const
{
    return {static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER)), innerLength()};
}

qsizetype RichTextBox::innerLength() const
{
    return send(SCI_GETLENGTH);
}

QByteArray RichTextBox::toInner(const QByteArray& bytes) const
{
    return m_encoding == TextEncoding::Utf8 ? bytes : ::decode(bytes, m_encoding).toUtf8();
}

QByteArray RichTextBox::fromInner(QByteArrayView text) const
{
    return m_encoding == TextEncoding::Utf8 ? text.toByteArray() : encode(QString::fromUtf8(text));
}

/// The component's position for one of the document's; those outside of the text are brought into it.
qsizetype RichTextBox::toInner(qsizetype position) const
{
    if (m_encoding == TextEncoding::Utf8)
        return std::clamp<qsizetype>(position, 0, innerLength());
    const QByteArrayView text = innerText();
    const qsizetype wanted = std::max<qsizetype>(position, 0);
    while (m_mark.outer > wanted)
        m_mark.outer -= beginsCharacter(text[--m_mark.inner]);
    while (m_mark.inner < text.size() && !(m_mark.outer == wanted && beginsCharacter(text[m_mark.inner])))
        m_mark.outer += beginsCharacter(text[m_mark.inner++]);
    return m_mark.inner;
}

/// The document's position for one of the component's.
qsizetype RichTextBox::fromInner(qsizetype position) const
{
    if (m_encoding == TextEncoding::Utf8)
        return position;
    const QByteArrayView text = innerText();
    if (position >= m_mark.inner) {
        m_mark.outer += charactersIn(text.sliced(m_mark.inner, position - m_mark.inner));
    } else {
        m_mark.outer -= charactersIn(text.sliced(position, m_mark.inner - position));
    }
    m_mark.inner = position;
    return m_mark.outer;
}

QByteArray RichTextBox::Text() const
{
    const auto signs = hourglass();
    return fromInner(innerText());
}

std::function<QByteArray()> RichTextBox::textLater() const
{
    return [text = innerText().toByteArray(), encoding = m_encoding] {
        return encoding == TextEncoding::Utf8 ? text : ::encode(QString::fromUtf8(text), encoding);
    };
}

void RichTextBox::setText(const QByteArray& text)
{
    setText(text, encodingOf(text));
}

void RichTextBox::setText(const QByteArray& text, TextEncoding encoding)
{
    const auto signs = hourglass(text.size());
    Step step(this);
    UndoGroup group(this);
    setEncoding(encoding);
    replaceInner({0, innerLength()}, toInner(text));
    selectInner({0, 0});
    m_textChanged = true;
    m_selectionSet = true;
}

void RichTextBox::load(const QByteArray& text)
{
    const auto signs = hourglass(text.size());
    Step step(this);
    send(SCI_SETUNDOCOLLECTION, 0);
    setText(text);
    send(SCI_SETUNDOCOLLECTION, 1);
    send(SCI_EMPTYUNDOBUFFER);
}

bool RichTextBox::isEmpty() const
{
    return innerLength() == 0;
}

/// Undo and redo change the encoding together with the text (see onModified).
void RichTextBox::setEncoding(TextEncoding encoding)
{
    if (encoding == m_encoding)
        return;
    send(SCI_ADDUNDOACTION, changeToken(m_encoding, encoding), 0);
    m_encoding = encoding;
    m_mark = {};
}

/// The length is given, as other calls of the component end a text at a NUL.
void RichTextBox::replaceInner(Range range, const QByteArray& text)
{
    send(SCI_SETTARGETRANGE, range.start, range.end());
    SendScintilla(SCI_REPLACETARGET, static_cast<uintptr_t>(text.size()), text.constData());
}

// The selection -------------------------------------------------------------------------------------------

RichTextBox::Range RichTextBox::innerSelection() const
{
    const qsizetype start = send(SCI_GETSELECTIONSTART);
    return {start, send(SCI_GETSELECTIONEND) - start};
}

RichTextBox::Range RichTextBox::selection() const
{
    const Range inner = innerSelection();
    const qsizetype start = fromInner(inner.start);
    return {start, fromInner(inner.end()) - start};
}

void RichTextBox::select(Range range)
{
    const qsizetype start = toInner(range.start);
    selectInner({start, toInner(range.end()) - start});
}

/// Scrolls later: a walk over the text selects thousands of times before anybody sees it.
void RichTextBox::selectInner(Range range)
{
    Step step(this);
    send(SCI_SETSELECTION, range.end(), range.start);
    scrollToCaretSoon();
}

void RichTextBox::scrollToCaretSoon()
{
    if (!m_scrollTimer.isActive())
        m_scrollTimer.start();
}

void RichTextBox::scrollToCaret()
{
    send(SCI_SCROLLCARET);
    send(SCI_CHOOSECARETX);
}

QByteArray RichTextBox::SelText() const
{
    const Range range = innerSelection();
    return range.length == 0 ? QByteArray() : fromInner(innerText().sliced(range.start, range.length));
}

void RichTextBox::setSelText(const QByteArray& text)
{
    const auto signs = hourglass(text.size());
    Step step(this);
    const Range replaced = innerSelection();
    const QByteArray inserted = toInner(text);
    const bool same =
        inserted.size() == replaced.length && innerText().sliced(replaced.start, replaced.length) == inserted;
    if (!same) {
        UndoGroup group(this);
        replaceInner(replaced, inserted);
    }
    selectInner({replaced.start + inserted.size(), 0});
}

int RichTextBox::SelStart() const
{
    return static_cast<int>(selection().start);
}

void RichTextBox::setSelStart(int position)
{
    select({std::max(position, 0), 0});
}

int RichTextBox::SelLength() const
{
    return static_cast<int>(selection().length);
}

void RichTextBox::setSelLength(int length)
{
    if (length < 0)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    select({selection().start, length});
}

void RichTextBox::setSelColor(int color)
{
    paintColor(innerSelection(), colorValue(color));
}

void RichTextBox::setColor(int start, int length, int color)
{
    const qsizetype from = toInner(qsizetype{start});
    paintColor({from, toInner(qsizetype{start} + length) - from}, colorValue(color));
}

void RichTextBox::paintColor(Range range, int value)
{
    if (range.length == 0)
        return;
    send(SCI_SETINDICATORVALUE, value);
    send(value == 0 ? SCI_INDICATORCLEARRANGE : SCI_INDICATORFILLRANGE, range.start, range.length);
}

std::vector<RichTextBox::ColorRun> RichTextBox::colorsIn(Range range) const
{
    std::vector<ColorRun> runs;
    for (qsizetype at = range.start; at < range.end();) {
        const qsizetype runEnd = send(SCI_INDICATOREND, ColorIndicator, at);
        const qsizetype end = runEnd > at ? std::min(runEnd, range.end()) : range.end();
        runs.push_back({{at, end - at}, static_cast<int>(send(SCI_INDICATORVALUEAT, ColorIndicator, at))});
        at = end;
    }
    return runs;
}

int RichTextBox::colorAt(int position) const
{
    return static_cast<int>(send(SCI_INDICATORVALUEAT, ColorIndicator, toInner(qsizetype{position}))) &
           SC_INDICVALUEMASK;
}

int RichTextBox::Find(const QByteArray& text, int start, int end, int options)
{
    const auto signs = hourglass();
    const qsizetype from = start < 0 ? innerSelection().start : toInner(qsizetype{start});
    const qsizetype to = end < 0 ? innerLength() : toInner(qsizetype{end});
    const TextSearch search(toInner(text), options);
    const std::optional<TextMatch> match = search.find(innerText(), from, std::max(from, to));
    if (!match)
        return -1;
    const qsizetype position = fromInner(match->position);
    if (!(options & NoSelection))
        selectInner({match->position, match->length});
    return static_cast<int>(position);
}

// The look ------------------------------------------------------------------------------------------------

void RichTextBox::setBackColor(int color)
{
    m_backColor = color;
    applyLook();
}

void RichTextBox::setTextFont(const QFont& font)
{
    m_textFont = font;
    applyLook();
}

void RichTextBox::applyLook()
{
    const QColor back = colorOf(m_backColor);
    const qreal points = QFontInfo(m_textFont).pointSizeF(); // also of a font that was made in pixels
    const QByteArray family = m_textFont.family().toUtf8();
    SendScintilla(SCI_STYLESETFONT, static_cast<uintptr_t>(STYLE_DEFAULT), family.constData());
    send(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT, qRound(points * int{SC_FONT_SIZE_MULTIPLIER}));
    send(SCI_STYLESETBOLD, STYLE_DEFAULT, m_textFont.bold());
    send(SCI_STYLESETITALIC, STYLE_DEFAULT, m_textFont.italic());
    send(SCI_STYLESETFORE, STYLE_DEFAULT, 0);
    SendScintilla(SCI_STYLESETBACK, static_cast<unsigned long>(STYLE_DEFAULT), back);
    send(SCI_STYLECLEARALL); // gives all styles the default one's look
    SendScintilla(SCI_SETCARETFORE, QColor(qGray(back.rgb()) < 128 ? Qt::white : Qt::black));
}

void RichTextBox::applySelectionColors()
{
    SendScintilla(SCI_SETSELBACK, 1UL, palette().color(QPalette::Highlight));
    SendScintilla(SCI_SETSELFORE, 1UL, palette().color(QPalette::HighlightedText));
}

void RichTextBox::changeEvent(QEvent* event)
{
    QsciScintillaBase::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applySelectionColors();
}

// Notifications -------------------------------------------------------------------------------------------

/// Runs inside the component's edit, where nothing may be changed.
void RichTextBox::onModified(int position, int type, int token)
{
    if (type & SC_MOD_CONTAINER)
        m_encoding = type & SC_PERFORMED_UNDO ? encodingBefore(token) : encodingAfter(token);
    if (type & (SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE)) {
        m_textChanged = true;
        if (position < m_mark.inner)
            m_mark = {};
        notifySoon();
    }
}

/// Raises what has become due since the last time.
void RichTextBox::notify()
{
    if (std::exchange(m_textChanged, false))
        emit Change();
    const Range now = selection();
    if (std::exchange(m_selectionSet, false) || now != m_toldSelection) {
        m_toldSelection = now;
        emit SelChange();
    }
}

/// For changes that come from no call and no event of the box: a screen reader's edits, a selection that goes
/// on while the box scrolls under a resting mouse.
void RichTextBox::notifySoon()
{
    if (m_steps == 0 && !m_notifyTimer.isActive())
        m_notifyTimer.start();
}

void RichTextBox::onUpdate()
{
    if (selection() != m_toldSelection)
        notifySoon();
}

// Commands and the clipboard ------------------------------------------------------------------------------

void RichTextBox::run(unsigned command)
{
    const auto signs = hourglass();
    Step step(this);
    send(command);
}

void RichTextBox::undo()
{
    run(SCI_UNDO);
}

void RichTextBox::redo()
{
    run(SCI_REDO);
}

void RichTextBox::cut()
{
    copy();
    if (SelLength() > 0)
        del();
}

void RichTextBox::copy()
{
    const auto signs = hourglass();
    if (SelLength() > 0)
        doors().setClipboard(selectionData());
}

void RichTextBox::paste()
{
    pasteFrom(doors().clipboard());
}

void RichTextBox::del()
{
    run(SCI_CLEAR);
}

void RichTextBox::selectAll()
{
    run(SCI_SELECTALL);
}

void RichTextBox::pasteFrom(const QMimeData* source)
{
    if (!source)
        return;
    const QByteArray text = insertable(source);
    if (text.isEmpty())
        return;
    setSelText(text);
}

/// The document bytes of what a clipboard or a drag holds.
QByteArray RichTextBox::insertable(const QMimeData* source) const
{
    const QString exact = bytesFormat(m_encoding);
    return source->hasFormat(exact) ? source->data(exact) : encode(withWindowsLineEnds(source->text()));
}

std::unique_ptr<QMimeData> RichTextBox::selectionData() const
{
    const QByteArray bytes = SelText();
    auto selected = std::make_unique<QMimeData>();
    selected->setText(decode(bytes));
    selected->setData(bytesFormat(m_encoding), bytes);
    return selected;
}

/// The component's own copy of the selection ends at a NUL.
QMimeData* RichTextBox::toMimeData(const QByteArray&, bool) const
{
    return selectionData().release();
}

// Keys and the input method -------------------------------------------------------------------------------

bool RichTextBox::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isEditingKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QsciScintillaBase::event(event);
}

void RichTextBox::focusInEvent(QFocusEvent* event)
{
    listenToEdits();
    QsciScintillaBase::focusInEvent(event);
}

/// Tab types; Shift+Tab leaves the box, as Ctrl+Tab does (see keyPressEvent).
bool RichTextBox::focusNextPrevChild(bool next)
{
    return !next && leave(next);
}

bool RichTextBox::leave(bool next)
{
    // The component keeps the focus whatever the key.
    return QAbstractScrollArea::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

/// Typing over a selection and on is one step of undo, up to whatever comes next: else the first undo would
/// leave the first letter in place of what was selected.
void RichTextBox::beginOvertyping()
{
    if (m_overtyping || SelLength() == 0)
        return;
    m_overtyping = true;
    send(SCI_BEGINUNDOACTION);
}

void RichTextBox::endOvertyping()
{
    if (std::exchange(m_overtyping, false))
        send(SCI_ENDUNDOACTION);
}

void RichTextBox::keyPressEvent(QKeyEvent* event)
{
    const bool typing = isTypingKey(*event);
    Step step(this, typing);
    if (typing && !event->text().isEmpty())
        beginOvertyping();
    const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (tab && event->modifiers() & Qt::ControlModifier) {
        leave(!(event->modifiers() & Qt::ShiftModifier));
    } else if (tab && event->modifiers() == Qt::NoModifier) {
        setSelText("\t"); // the component would indent selected lines
    } else if (!isHeld(event->text())) {
        setSelText(encode(event->text()));
    } else if (!runStandardKey(event)) {
        runComponentKey(event);
    }
}

/// Ctrl with a letter types nothing, even where the platform gives the letter as the key's text.
void RichTextBox::runComponentKey(QKeyEvent* event)
{
    const Qt::KeyboardModifiers keys = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (keys != Qt::ControlModifier) { // Ctrl and Alt together are AltGr on some platforms
        QsciScintillaBase::keyPressEvent(event);
        return;
    }
    QKeyEvent textless(event->type(), event->key(), event->modifiers());
    QsciScintillaBase::keyPressEvent(&textless);
    event->setAccepted(textless.isAccepted());
}

/// Whether the document can hold a text as it stands.
bool RichTextBox::isHeld(const QString& text) const
{
    return decode(encode(text)) == text;
}

bool RichTextBox::runStandardKey(QKeyEvent* event)
{
    struct Command
    {
        QKeySequence::StandardKey key;
        void (RichTextBox::*run)();
    };
    static constexpr std::array commands = {
        Command{QKeySequence::Undo, &RichTextBox::undo},
        Command{QKeySequence::Redo, &RichTextBox::redo},
        Command{QKeySequence::Cut, &RichTextBox::cut},
        Command{QKeySequence::Copy, &RichTextBox::copy},
        Command{QKeySequence::Paste, &RichTextBox::paste},
        Command{QKeySequence::SelectAll, &RichTextBox::selectAll},
    };
    const auto* command = std::find_if(commands.begin(), commands.end(),
                                       [event](const Command& each) { return event->matches(each.key); });
    if (command == commands.end())
        return false;
    (this->*command->run)();
    scrollToCaret();
    return true;
}

void RichTextBox::keyReleaseEvent(QKeyEvent* event)
{
    QsciScintillaBase::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        emit KeyUp(event->key());
}

/// The component would write a text that is still being composed into the document.
void RichTextBox::inputMethodEvent(QInputMethodEvent* event)
{
    Step step(this, true);
    if (!event->commitString().isEmpty())
        beginOvertyping();
    if (event->replacementLength() > 0) {
        const qsizetype start =
            send(SCI_POSITIONRELATIVECODEUNITS, innerSelection().start, event->replacementStart());
        const qsizetype end = send(SCI_POSITIONRELATIVECODEUNITS, start, event->replacementLength());
        selectInner({start, end - start});
    }
    if (!event->commitString().isEmpty() || event->replacementLength() > 0)
        setSelText(encode(event->commitString()));
    showPreedit(event->preeditString());
    event->accept();
}

/// Shows a text that is being composed at the caret, over the document.
void RichTextBox::showPreedit(const QString& text)
{
    if (!m_preedit) {
        m_preedit = new QLabel(viewport());
        m_preedit->setTextFormat(Qt::PlainText);
        m_preedit->setAutoFillBackground(true);
        m_preedit->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    QFont font = m_textFont;
    font.setUnderline(true);
    m_preedit->setFont(font);
    m_preedit->setText(text);
    m_preedit->adjustSize();
    m_preedit->move(caretPoint());
    m_preedit->setVisible(!text.isEmpty());
}

/// The caret's upper end, in the viewport.
QPoint RichTextBox::caretPoint() const
{
    const qsizetype caret = send(SCI_GETCURRENTPOS);
    return {static_cast<int>(send(SCI_POINTXFROMPOSITION, 0, caret)),
            static_cast<int>(send(SCI_POINTYFROMPOSITION, 0, caret))};
}

// The mouse -----------------------------------------------------------------------------------------------

void RichTextBox::mousePressEvent(QMouseEvent* event)
{
    Step step(this);
    if (event->button() == Qt::LeftButton)
        m_leftPressed = true;
    if (event->button() == Qt::MiddleButton) {
        if (!QApplication::clipboard()->supportsSelection())
            return;
        const QPoint point = event->position().toPoint();
        selectInner({send(SCI_POSITIONFROMPOINT, point.x(), point.y()), 0});
        pasteFrom(QApplication::clipboard()->mimeData(QClipboard::Selection));
        return;
    }
    dropRectangleKeys(event);
    QsciScintillaBase::mousePressEvent(event);
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event)
{
    Step step(this);
    dropRectangleKeys(event);
    QsciScintillaBase::mouseMoveEvent(event);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event)
{
    {
        Step step(this);
        dropRectangleKeys(event);
        QsciScintillaBase::mouseReleaseEvent(event);
    }
    const bool click = event->button() == Qt::LeftButton && std::exchange(m_leftPressed, false);
    if (click && viewport()->rect().contains(event->position().toPoint()))
        emit Click();
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    Step step(this);
    dropRectangleKeys(event);
    QsciScintillaBase::mouseDoubleClickEvent(event);
}

void RichTextBox::dragEnterEvent(QDragEnterEvent* event)
{
    RichTextBox::dragMoveEvent(event);
}

void RichTextBox::dragMoveEvent(QDragMoveEvent* event)
{
    answerDrag(event);
    if (!event->isAccepted())
        return;
    const QMimeData* dragged = event->mimeData();
    if (!dragged->hasUrls()) {
        QsciScintillaBase::dragMoveEvent(event); // shows where the text would go
    } else if (isPictureFile(filesIn(*dragged).constFirst())) {
        QsciScintillaBase::dragMoveEvent(event);
        answerDrag(event); // still copied
    }
}

/// Tells the pointer whether a drop would be taken. A file is copied whatever is proposed: who moves one
/// deletes it where it was.
void RichTextBox::answerDrag(QDropEvent* event)
{
    const QMimeData* dragged = event->mimeData();
    // While a handler runs, a question stands before the user, or the text is about to be replaced.
    if (handlersRun() || !(dragged->hasUrls() || dragged->hasText())) {
        event->ignore();
    } else if (dragged->hasUrls()) {
        event->setDropAction(Qt::CopyAction);
        event->setAccepted(event->possibleActions() & Qt::CopyAction && !filesIn(*dragged).isEmpty());
    } else {
        event->acceptProposedAction();
    }
}

void RichTextBox::dropEvent(QDropEvent* event)
{
    answerDrag(event);
    if (!event->isAccepted())
        return;
    if (event->mimeData()->hasUrls()) {
        dropFiles(*event);
    } else {
        dropText(*event);
    }
}

/// The component's position of a drop, whose mark goes.
qsizetype RichTextBox::dropPosition(const QDropEvent& event)
{
    QDragLeaveEvent leave;
    QsciScintillaBase::dragLeaveEvent(&leave);
    const QPoint point = event.position().toPoint();
    return send(SCI_POSITIONFROMPOINT, point.x(), point.y());
}

/// The program that the files come from waits for the drop's end, not for what the user is asked then.
void RichTextBox::dropFiles(const QDropEvent& event)
{
    const QStringList files = filesIn(*event.mimeData());
    const int position = int(fromInner(dropPosition(event)));
    QTimer::singleShot(0, this, [this, files, position] {
        whenHandlersReturn([box = QPointer<RichTextBox>(this), files, position] {
            if (box)
                emit box->FilesDropped(files, position);
        });
    });
}

/// The component's own drop ends a text at a NUL and changes line ends.
void RichTextBox::dropText(const QDropEvent& event)
{
    Step step(this);
    const qsizetype position = dropPosition(event);
    if (event.source() == this) {
        dropSelectionAt(position, event.dropAction() == Qt::MoveAction);
    } else {
        dropAt(position, insertable(event.mimeData()));
    }
}

/// Inserts a text at one of the component's positions and selects it.
void RichTextBox::dropAt(qsizetype position, const QByteArray& text)
{
    UndoGroup group(this);
    const QByteArray inserted = toInner(text);
    replaceInner({position, 0}, inserted);
    selectInner({position, inserted.size()});
}

/// Moves or copies the selection with its colours. One that is moved into itself stays where it is.
void RichTextBox::dropSelectionAt(qsizetype position, bool move)
{
    const Range selected = innerSelection();
    if (move && position >= selected.start && position <= selected.end())
        return;
    const QByteArray text = SelText();
    const std::vector<ColorRun> colors = colorsIn(selected);
    UndoGroup group(this);
    if (move)
        replaceInner(selected, {});
    const qsizetype target = move && position > selected.start ? position - selected.length : position;
    dropAt(target, text);
    for (const ColorRun& run : colors)
        paintColor({target + run.range.start - selected.start, run.range.length}, run.value);
}

void RichTextBox::contextMenuEvent(QContextMenuEvent* event)
{
    struct Entry
    {
        QString text;
        QKeySequence::StandardKey key;
        void (RichTextBox::*command)();
        bool enabled;
    };
    const bool selected = SelLength() > 0;
    const QMimeData* clipboard = doors().clipboard();
    const bool pasteable = clipboard && clipboard->hasText();
    const std::array entries = {
        Entry{tr("&Undo"), QKeySequence::Undo, &RichTextBox::undo, send(SCI_CANUNDO) != 0},
        Entry{tr("&Redo"), QKeySequence::Redo, &RichTextBox::redo, send(SCI_CANREDO) != 0},
        Entry{tr("Cu&t"), QKeySequence::Cut, &RichTextBox::cut, selected},
        Entry{tr("&Copy"), QKeySequence::Copy, &RichTextBox::copy, selected},
        Entry{tr("&Paste"), QKeySequence::Paste, &RichTextBox::paste, pasteable},
        Entry{tr("&Delete"), QKeySequence::Delete, &RichTextBox::del, selected},
        Entry{tr("Select &All"), QKeySequence::SelectAll, &RichTextBox::selectAll, !isEmpty()},
    };
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Entry& entry : entries) {
        const QString key = QKeySequence(entry.key).toString(QKeySequence::NativeText);
        menu->addAction(entry.text + u'\t' + key, this, entry.command)->setEnabled(entry.enabled);
        if (entry.command == &RichTextBox::redo || entry.command == &RichTextBox::del)
            menu->addSeparator();
    }
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(caretPoint()) : event->globalPos());
}
