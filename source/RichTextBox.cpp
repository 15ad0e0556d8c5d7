// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/RichTextBox.h"

#include "platform/Accessible.h"
#include "platform/ColorNumber.h"
#include "platform/DesktopLook.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "source/AccessibleSource.h"
#include "source/RichTextBoxStep.h"
#include "source/SourceClip.h"

#include <QApplication>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>
#include <array>
#include <utility>

namespace brindlemark {

namespace {

/// An encoding change, as the undo history holds it.
int changeToken(TextEncoding before, TextEncoding after)
{
    return int(before) << 1 | int(after);
}

TextEncoding encodingBefore(int token)
{
    return static_cast<TextEncoding>(token >> 1);
}

TextEncoding encodingAfter(int token)
{
    return static_cast<TextEncoding>(token & 1);
}

} // namespace

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

RichTextBox::EditName::EditName(RichTextBox* box, const QString& name)
    : m_box(box), m_isOutermost(box->m_editName.isEmpty())
{
    if (m_isOutermost)
        m_box->m_editName = name;
}

RichTextBox::EditName::~EditName()
{
    if (m_isOutermost)
        m_box->m_editName.clear();
}

RichTextBox::RichTextBox(QWidget* parent)
    : QsciScintillaBase(parent), m_colors(*this), m_textFont(QStringLiteral("Courier New"), 10)
{
    setUpComponent();
    setUpKeys();
    applyLook();
    applySelectionColors();
    onInner(this, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char*, int length, int, int, int, int, int token) {
                onModified({position, length}, type, token);
            });
    onInner(this, &QsciScintillaBase::SCN_STYLENEEDED, this, [this](int end) { m_colors.cutLongLines(end); });
    onInner(this, &QsciScintillaBase::SCN_UPDATEUI, this, &RichTextBox::onUpdate);
    m_scrollTimer.setSingleShot(true);
    onInner(&m_scrollTimer, &QTimer::timeout, this, &RichTextBox::scrollToCaret);
    m_notifyTimer.setSingleShot(true);
    onInner(&m_notifyTimer, &QTimer::timeout, this, &RichTextBox::notify);
}

void RichTextBox::setUpComponent()
{
    describeClass(staticMetaObject, accessibleSource);
    // With each notification after an edit the component counts the characters from the text's beginning.
    send(SCI_SETMODEVENTMASK, SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE | SC_MOD_CONTAINER);
    send(SCI_SETCODEPAGE, SC_CP_UTF8);
    send(SCI_SETEOLMODE, SC_EOL_CRLF);   // what Enter inserts
    send(SCI_SETLEXER, SCLEX_CONTAINER); // the component must not style the text
    send(SCI_SETTABINDENTS, 0);
    send(SCI_SETWRAPMODE, SC_WRAP_WHITESPACE); // not where a colour ends
    send(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    send(SCI_SETMULTIPLESELECTION, 0);
    send(SCI_SETMOUSESELECTIONRECTANGULARSWITCH, 0);
    send(SCI_SETMOUSEDOWNCAPTURES, 0); // the toolkit sends the moves of a drag anyway
    send(SCI_USEPOPUP, SC_POPUP_NEVER);
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_SETSCROLLWIDTHTRACKING, 1);
    for (int margin = 0; margin < 5; ++margin)
        send(SCI_SETMARGINWIDTHN, margin, 0);
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

/// The component's position for one of the document's; those outside of the text are brought into it. Where
/// both are the same, the text itself, which costs a move in the component, isn't asked for.
qsizetype RichTextBox::toInner(qsizetype position) const
{
    if (m_map.isIdentity())
        return std::clamp<qsizetype>(position, 0, innerLength());
    return m_map.toInner(innerText(), position);
}

/// The document's position for one of the component's.
qsizetype RichTextBox::fromInner(qsizetype position) const
{
    return m_map.isIdentity() ? position : m_map.fromInner(innerText(), position);
}

QByteArrayView RichTextBox::utf8() const
{
    return innerText();
}

QByteArray RichTextBox::utf8Between(qsizetype start, qsizetype end) const
{
    const qsizetype from = std::clamp<qsizetype>(start, 0, innerLength());
    const qsizetype to = std::clamp(end, from, innerLength());
    QByteArray copy(to - from + 1, '\0'); // the component adds a NUL
    SendScintilla(SCI_GETTEXTRANGE, long(from), long(to), copy.data());
    copy.chop(1);
    return copy;
}

QByteArray RichTextBox::Text() const
{
    const auto signs = hourglass();
    return m_map.fromInner(innerText());
}

QByteArray RichTextBox::textForNow() const
{
    if (!m_map.isIdentity())
        return Text();
    const QByteArrayView text = innerText();
    return QByteArray::fromRawData(text.data(), text.size());
}

void RichTextBox::SetFocus()
{
    if (isVisibleTo(window()))
        setFocus();
}

EditedText::Later RichTextBox::textLater() const
{
    return [text = innerText().toByteArray(), encoding = textEncoding()] {
        return encoding == TextEncoding::Utf8 ? text : brindlemark::encode(QString::fromUtf8(text), encoding);
    };
}

void RichTextBox::setText(const QByteArray& text)
{
    setText(text, encodingOf(text));
}

void RichTextBox::setText(const QByteArray& text, TextEncoding encoding)
{
    const auto signs = hourglass(text.size());
    ByteMap map;
    map.setEncoding(encoding);
    const QByteArray inner = map.toInner(text);
    if (inner.size() > MostBytes)
        throw RuntimeError(ErrorNumber::PathFileAccess, QStringLiteral("File too large"));
    Step step(this);
    UndoGroup group(this);
    setEncoding(encoding);
    send(SCI_SETREADONLY, 0);
    replaceInner({0, innerLength()}, inner);
    send(SCI_SETREADONLY, m_readOnly);
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
    m_names.forget();
}

qsizetype RichTextBox::TextLength() const
{
    return fromInner(innerLength());
}

bool RichTextBox::isEmpty() const
{
    return innerLength() == 0;
}

/// ASCII is the same in both encodings and in the component.
bool RichTextBox::holdsAscii(QByteArrayView ascii) const
{
    return innerText() == ascii;
}

/// Undo and redo change the encoding together with the text (see onModified).
void RichTextBox::setEncoding(TextEncoding encoding)
{
    if (encoding == textEncoding())
        return;
    send(SCI_ADDUNDOACTION, changeToken(textEncoding(), encoding), 0);
    m_map.setEncoding(encoding);
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

qsizetype RichTextBox::topOfView() const
{
    const long line = send(SCI_DOCLINEFROMVISIBLE, send(SCI_GETFIRSTVISIBLELINE));
    return fromInner(send(SCI_POSITIONFROMLINE, line));
}

void RichTextBox::bringToTop(qsizetype place)
{
    const long line = send(SCI_LINEFROMPOSITION, toInner(place));
    send(SCI_SETFIRSTVISIBLELINE, send(SCI_VISIBLEFROMDOCLINE, line));
}

QByteArray RichTextBox::SelText() const
{
    const Range range = innerSelection();
    return range.length == 0 ? QByteArray() : m_map.fromInner(innerText().sliced(range.start, range.length));
}

void RichTextBox::setSelText(const QByteArray& text)
{
    if (m_readOnly)
        return;
    const auto signs = hourglass(text.size());
    Step step(this);
    const Range replaced = innerSelection();
    const QByteArray inserted = m_map.toInner(text);
    const bool same =
        inserted.size() == replaced.length && innerText().sliced(replaced.start, replaced.length) == inserted;
    if (!same)
        replaceInner(replaced, inserted);
    selectInner({replaced.start + inserted.size(), 0});
}

int RichTextBox::SelStart() const
{
    return int(selection().start);
}

void RichTextBox::setSelStart(int position)
{
    select({std::max(position, 0), 0});
}

int RichTextBox::SelLength() const
{
    return int(selection().length);
}

void RichTextBox::setSelLength(int length)
{
    if (length < 0)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    select({selection().start, length});
}

void RichTextBox::setSelColor(int color)
{
    m_colors.paint(innerSelection(), color);
}

void RichTextBox::setColor(int start, int length, int color)
{
    const qsizetype from = toInner(qsizetype{start});
    m_colors.paint({from, toInner(qsizetype{start} + length) - from}, color);
}

void RichTextBox::setColors(int start, QByteArrayView marks, const std::vector<int>& colors)
{
    if (m_map.isIdentity()) {
        m_colors.paint(start, marks, colors);
        return;
    }
    // A byte of the document is a character here.
    const qsizetype from = toInner(qsizetype{start});
    QByteArray inner;
    qsizetype characters = 0;
    for (const char byte : innerText().sliced(from)) {
        if (!isContinuation(byte) && ++characters > marks.size())
            break;
        inner += marks[characters - 1];
    }
    m_colors.paint(from, inner, colors);
}

int RichTextBox::colorAt(int position) const
{
    return m_colors.at(toInner(qsizetype{position}));
}

std::vector<ColorRun> RichTextBox::utf8Colors() const
{
    return m_colors.in({0, innerLength()});
}

int RichTextBox::Find(const QByteArray& text, int start, int end, FindOptions options)
{
    const auto signs = hourglass();
    const qsizetype from = start < 0 ? innerSelection().start : toInner(qsizetype{start});
    const qsizetype to = end < 0 ? innerLength() : toInner(qsizetype{end});
    const TextSearch search(m_map.toInner(text), options);
    const std::optional<TextMatch> match = search.find(innerText(), from, std::max(from, to));
    if (!match)
        return -1;
    const qsizetype position = fromInner(match->position);
    if (!options.testFlag(NoSelection))
        selectInner({match->position, match->length});
    return int(position);
}

bool RichTextBox::findAround(const QByteArray& text, FindOptions options, bool backwards)
{
    const auto signs = hourglass();
    const TextSearch search(m_map.toInner(text), options);
    const QByteArrayView all = innerText();
    const Range caret = innerSelection();
    const auto next = [&](qsizetype from) { return search.find(all, from, all.size()); };
    std::optional<TextMatch> found;
    if (backwards) {
        std::optional<TextMatch> last;
        for (auto match = next(0); match;
             match = next(match->position + std::max<qsizetype>(1, match->length))) {
            if (match->position < caret.start)
                found = match;
            last = match;
            if (found && match->position >= caret.start)
                break;
        }
        found = found ? found : last;
    } else {
        found = next(caret.end());
        found = found ? found : next(0);
    }
    if (!found)
        return false;
    selectInner({found->position, found->length});
    scrollToCaret();
    return true;
}

RichTextBox::Range RichTextBox::inView() const
{
    const qsizetype start = send(SCI_POSITIONFROMPOINT, 0, 0);
    const qsizetype end = send(SCI_POSITIONFROMPOINT, viewport()->width(), viewport()->height());
    return {fromInner(start), fromInner(end) - fromInner(start)};
}

void RichTextBox::markMisspelt(const Range& stretch, const std::vector<Range>& words)
{
    constexpr int Indicator = INDIC_CONTAINER;
    send(SCI_INDICSETSTYLE, Indicator, INDIC_SQUIGGLE);
    SendScintilla(SCI_INDICSETFORE, static_cast<unsigned long>(Indicator), QColor(0xD0, 0, 0));
    send(SCI_SETINDICATORCURRENT, Indicator);
    const auto within = [this](unsigned message, const Range& range) {
        const qsizetype start = toInner(range.start);
        send(message, start, toInner(range.end()) - start);
    };
    within(SCI_INDICATORCLEARRANGE, stretch);
    for (const Range& word : words)
        within(SCI_INDICATORFILLRANGE, word);
}

void RichTextBox::markPair(const std::vector<Range>& pair)
{
    constexpr int Indicator = INDIC_CONTAINER + 1;
    send(SCI_INDICSETSTYLE, Indicator, INDIC_ROUNDBOX);
    SendScintilla(SCI_INDICSETFORE, static_cast<unsigned long>(Indicator), QColor(0x20, 0x80, 0xE0));
    send(SCI_INDICSETALPHA, Indicator, 70); // of 255: text of either lightness stays readable
    send(SCI_INDICSETOUTLINEALPHA, Indicator, 255);
    send(SCI_SETINDICATORCURRENT, Indicator);
    send(SCI_INDICATORCLEARRANGE, 0, innerLength());
    for (const Range& part : pair) {
        const qsizetype start = toInner(part.start);
        send(SCI_INDICATORFILLRANGE, start, toInner(part.end()) - start);
    }
}

void RichTextBox::setLineNumbers(bool on)
{
    m_lineNumbers = on;
    fitLineNumbers();
}

/// The margin is as wide as the last line's number, and one digit of room.
void RichTextBox::fitLineNumbers()
{
    const qsizetype digits = m_lineNumbers ? QByteArray::number(qint64{send(SCI_GETLINECOUNT)}).size() : 0;
    if (digits == m_digits)
        return;
    m_digits = digits;
    const QByteArray widest(digits + 1, '9');
    send(SCI_SETMARGINTYPEN, 0, SC_MARGIN_NUMBER);
    const long width = digits > 0 ? SendScintilla(SCI_TEXTWIDTH, static_cast<uintptr_t>(STYLE_LINENUMBER),
                                                  widest.constData())
                                  : 0;
    send(SCI_SETMARGINWIDTHN, 0, width);
    if (m_hint)
        m_hint->move(int(width) + 12, 2); // beside the caret
}

void RichTextBox::setWhiteSpace(bool on)
{
    send(SCI_SETVIEWWS, on ? SCWS_VISIBLEALWAYS : SCWS_INVISIBLE);
    send(SCI_SETVIEWEOL, on);
}

RichTextBox::CaretPlace RichTextBox::caretPlace() const
{
    const qsizetype caret = send(SCI_GETCURRENTPOS);
    const long line = send(SCI_LINEFROMPOSITION, caret);
    const qsizetype start = send(SCI_POSITIONFROMLINE, line);
    return {line + 1, charactersIn({start, caret - start}) + 1};
}

qsizetype RichTextBox::selectedCharacters() const
{
    return charactersIn(innerSelection());
}

/// Asks for that range alone: for the whole text the component would close the gap at the caret, which the
/// next letter would open again.
qsizetype RichTextBox::charactersIn(Range inner) const
{
    if (inner.length == 0)
        return 0;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the component's messages give all results as numbers
    const auto* bytes = reinterpret_cast<const char*>(send(SCI_GETRANGEPOINTER, inner.start, inner.length));
    return std::count_if(bytes, bytes + inner.length,
                         [](char byte) { return byte != '\r' && !isContinuation(byte); });
}

void RichTextBox::markLines(const std::vector<qsizetype>& lines, const QColor& tint)
{
    constexpr int Marker = 0;
    constexpr int Opacity = 70; // of 255: text of either lightness stays readable
    send(SCI_MARKERDEFINE, Marker, SC_MARK_BACKGROUND);
    SendScintilla(SCI_MARKERSETBACK, static_cast<unsigned long>(Marker), tint);
    send(SCI_MARKERSETALPHA, Marker, Opacity);
    send(SCI_MARKERDELETEALL, Marker);
    for (const qsizetype line : lines)
        send(SCI_MARKERADD, line, Marker);
    if (!lines.empty())
        send(SCI_GOTOLINE, lines.front());
}

// The look ------------------------------------------------------------------------------------------------

void RichTextBox::setBackColor(int color)
{
    m_backColor = color;
    applyLook();
}

void RichTextBox::setReadOnly(bool on)
{
    m_readOnly = on;
    send(SCI_SETREADONLY, on);
    setAcceptDrops(!on);
    viewport()->setAcceptDrops(!on);
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
    m_colors.applyLook();
    SendScintilla(SCI_SETCARETFORE, QColor(qGray(back.rgb()) < 128 ? Qt::white : Qt::black));
    send(SCI_SETZOOM, qRound(points * (m_zoom - 100) / 100));
    const QColor grey = hintColor();
    SendScintilla(SCI_STYLESETFORE, static_cast<unsigned long>(STYLE_LINENUMBER), grey);
    SendScintilla(SCI_SETWHITESPACEFORE, 1UL, grey);
    m_digits = -1; // in another font
    fitLineNumbers();
    colorHint();
}

/// Grey that can be read on the background.
QColor RichTextBox::hintColor() const
{
    QPalette colors = palette();
    const QColor back = colorOf(m_backColor);
    colors.setColor(QPalette::Base, back);
    colors.setColor(QPalette::Text, qGray(back.rgb()) < 128 ? Qt::white : Qt::black);
    return withReadableHints(colors).color(QPalette::PlaceholderText);
}

void RichTextBox::setHint(const QString& hint)
{
    if (!m_hint) {
        m_hint = new QLabel(viewport());
        m_hint->setAttribute(Qt::WA_TransparentForMouseEvents);
        m_hint->setForegroundRole(QPalette::WindowText); // not that of the viewport's texts
        m_hint->move(12, 2);                             // beside the caret
        m_hint->setVisible(isEmpty());
    }
    m_hint->setText(hint);
    m_hint->adjustSize();
    colorHint();
}

void RichTextBox::colorHint()
{
    if (!m_hint)
        return;
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, hintColor());
    m_hint->setPalette(colors);
}

void RichTextBox::setZoom(int percent)
{
    m_zoom = std::clamp(percent, 50, 300);
    applyLook();
}

QFont RichTextBox::shownFont() const
{
    QFont font = m_textFont;
    font.setPointSizeF(std::max(1.0, QFontInfo(m_textFont).pointSizeF() * m_zoom / 100));
    return font;
}

void RichTextBox::applySelectionColors()
{
    // While another window owns the desktop's selection, the engine puts a grey of its own behind the words:
    // only dark ones can be read on that.
    SendScintilla(SCI_SETSELBACK, 1UL, behindBlackWords(palette().color(QPalette::Highlight)));
    SendScintilla(SCI_SETSELFORE, 1UL, QColor(Qt::black));
}

void RichTextBox::changeEvent(QEvent* event)
{
    guardedCall([&] {
        QsciScintillaBase::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            applySelectionColors();
    });
}

// Notifications -------------------------------------------------------------------------------------------

/// Runs inside the component's edit, where nothing may be changed.
void RichTextBox::onModified(Range changed, int type, int token)
{
    if (type & SC_MOD_CONTAINER)
        m_map.setEncoding(type & SC_PERFORMED_UNDO ? encodingBefore(token) : encodingAfter(token));
    if (type & (SC_MOD_BEFOREINSERT | SC_MOD_BEFOREDELETE)) {
        m_textChanged = true;
        tellInserted();
        nameEdit(type);
        m_map.changed(changed.start);
        if (type & SC_MOD_BEFOREINSERT) {
            m_colors.beforeInsertion(changed);
            m_units.beforeInsertion(changed);
            m_inserted = changed;
        } else {
            m_colors.beforeDeletion(changed);
            tellDeletion(*this, changed);
            m_units.beforeDeletion(changed);
        }
        notifySoon();
    }
}

/// The history's edits and these notifications are the same in number.
void RichTextBox::nameEdit(int type)
{
    if (type & SC_PERFORMED_UNDO) {
        m_names.undone();
    } else if (type & SC_PERFORMED_REDO) {
        m_names.redone();
    } else {
        m_names.edited(m_editName.isEmpty() ? QStringLiteral("Typing") : m_editName);
    }
}

/// The component doesn't say what is about to come in, so it is told of when it is there.
void RichTextBox::tellInserted()
{
    if (const std::optional<Range> inserted = std::exchange(m_inserted, {}))
        tellInsertion(*this, *inserted);
}

/// Raises what has become due since the last time.
void RichTextBox::notify()
{
    tellInserted();
    m_colors.settle();
    const bool textChanged = std::exchange(m_textChanged, false);
    if (textChanged && m_hint)
        m_hint->setVisible(isEmpty());
    if (textChanged)
        fitLineNumbers();
    if (textChanged)
        emit Change();
    const Range now = selection();
    const bool selectionChanged = std::exchange(m_selectionSet, false) || now != m_toldSelection;
    m_toldSelection = now;
    if (textChanged || selectionChanged)
        tellCaret(*this);
    if (selectionChanged)
        emit SelChange();
}

/// For changes that come from no call and no event of the box: a screen reader's edits, a selection that goes
/// on while the box scrolls under a resting mouse.
void RichTextBox::notifySoon()
{
    if (m_steps == 0 && !m_notifyTimer.isActive())
        m_notifyTimer.start();
}

void RichTextBox::resizeEvent(QResizeEvent* event)
{
    guardedCall([&] {
        QsciScintillaBase::resizeEvent(event);
        emit Scrolled();
    });
}

void RichTextBox::onUpdate(int updated)
{
    if (updated & SC_UPDATE_V_SCROLL)
        emit Scrolled();
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
    const EditName name(this, QStringLiteral("Cut"));
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
    const EditName name(this, QStringLiteral("Paste"));
    pasteFrom(doors().clipboard());
}

void RichTextBox::del()
{
    const EditName name(this, QStringLiteral("Delete"));
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
    const QByteArray text = bytesOf(*source, textEncoding());
    if (!text.isEmpty())
        setSelText(text);
}

std::unique_ptr<QMimeData> RichTextBox::selectionData() const
{
    return clipOf(SelText(), textEncoding());
}

/// The component's own copy of the selection ends at a NUL.
QMimeData* RichTextBox::toMimeData(const QByteArray&, bool) const
{
    return guardedCall([&]() -> QMimeData* { return selectionData().release(); });
}

} // namespace brindlemark
