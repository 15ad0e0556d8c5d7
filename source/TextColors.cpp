// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/TextColors.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>
#include <array>
#include <utility>

namespace brindlemark {

namespace {

using Component = QsciScintillaBase;

/// The component has styles of its own in the middle of the others.
constexpr int FirstOwn = Component::STYLE_DEFAULT;
constexpr int OwnStyles = Component::STYLE_LASTPREDEFINED - FirstOwn + 1;
/// How many are left for colours, black too.
constexpr int MostStyles = 256 - OwnStyles;

/// The component's number of the nth style, and the other way round.
constexpr int numberOf(int style)
{
    return style < FirstOwn ? style : style + OwnStyles;
}

constexpr size_t styleOf(int number)
{
    return size_t(number < FirstOwn ? number : number - OwnStyles);
}

/// The styles of black. With three, a stretch can always differ from its neighbours.
constexpr int PlainStyles = 3;

constexpr bool isPlain(int style)
{
    return style < PlainStyles;
}

/// How unlike two colours look.
int difference(int one, int other)
{
    int sum = 0;
    for (const int shift : {0, 8, 16}) {
        const int channel = (one >> shift & 0xFF) - (other >> shift & 0xFF);
        sum += channel * channel;
    }
    return sum;
}

} // namespace

TextColors::TextColors(QsciScintillaBase& component) : m_component(component), m_colors(PlainStyles, 0) {}

long TextColors::send(unsigned message, qsizetype first, qsizetype second) const
{
    return m_component.SendScintilla(message, static_cast<unsigned long>(first), static_cast<long>(second));
}

void TextColors::applyLook() const
{
    for (size_t i = 0; i < m_colors.size(); ++i)
        send(Component::SCI_STYLESETFORE, numberOf(int(i)), m_colors[i].value_or(0));
}

void TextColors::paint(TextRange range, int color)
{
    settle();
    if (range.length == 0)
        return;
    const int style = styleFor(color);
    m_plainFrom = std::max(m_plainFrom, range.end());
    send(Component::SCI_STARTSTYLING, range.start);
    send(Component::SCI_SETSTYLING, range.length, style);
    send(Component::SCI_STARTSTYLING, range.start); // to be cut before it is drawn
}

void TextColors::paint(qsizetype start, QByteArrayView marks, const std::vector<int>& colors)
{
    settle();
    std::array<char, 256> styles = {};
    for (size_t i = 0; i < colors.size(); ++i)
        styles.at(i + 1) = char(styleFor(colors[i]));
    QByteArray painted = knownStylesIn({start, marks.size()});
    m_plainFrom = std::max(m_plainFrom, start + marks.size());
    const char* mark = marks.data();
    for (char& style : painted) {
        if (*mark != 0)
            style = styles[static_cast<uchar>(*mark)];
        ++mark;
    }
    send(Component::SCI_STARTSTYLING, start);
    m_component.SendScintilla(Component::SCI_SETSTYLINGEX, static_cast<uintptr_t>(painted.size()),
                              painted.constData());
    send(Component::SCI_STARTSTYLING, start); // to be cut before it is drawn
}

std::vector<ColorRun> TextColors::in(TextRange range) const
{
    settle();
    std::vector<ColorRun> runs;
    const QByteArray styles = stylesIn(range);
    for (auto at = styles.begin(); at != styles.end();) {
        const auto colorOf = [this](char style) {
            return m_colors[styleOf(static_cast<uchar>(style))].value_or(0);
        };
        const int color = colorOf(*at);
        const auto end = std::find_if(at, styles.end(), [&](char style) { return colorOf(style) != color; });
        runs.push_back({{range.start + (at - styles.begin()), end - at}, color});
        at = end;
    }
    return runs;
}

int TextColors::at(qsizetype position) const
{
    settle();
    return m_colors[styleOf(styleAt(position))].value_or(0);
}

void TextColors::beforeInsertion(TextRange inserted)
{
    settle();
    // Between two colours it is the first one that goes on, and none does before plain text.
    const bool within = inserted.start > 0 && !isPlain(styleAt(inserted.start));
    const int style = within ? styleAt(inserted.start - 1) : 0;
    if (!isPlain(style))
        m_inserted = {inserted, style};
    if (m_plainFrom > 0) // wherever it comes in: too far back is never wrong
        m_plainFrom += inserted.length;
}

void TextColors::beforeDeletion(TextRange deleted)
{
    settle();
    if (deleted.length == send(Component::SCI_GETLENGTH))
        m_plainFrom = 0;
}

void TextColors::settle() const
{
    const std::optional<Inserted> inserted = std::exchange(m_inserted, std::nullopt);
    if (!inserted)
        return;
    send(Component::SCI_STARTSTYLING, inserted->range.start);
    send(Component::SCI_SETSTYLING, inserted->range.length, inserted->style);
}

void TextColors::cutLongLines(qsizetype end) const
{
    constexpr int LongLine = 2000; // bytes
    const long first = send(Component::SCI_DOCLINEFROMVISIBLE, send(Component::SCI_GETFIRSTVISIBLELINE));
    const long known = send(Component::SCI_LINEFROMPOSITION, send(Component::SCI_GETENDSTYLED));
    const long last = send(Component::SCI_LINEFROMPOSITION, end);
    for (long line = std::max(first, known); line <= last; ++line) {
        const long length = send(Component::SCI_LINELENGTH, line);
        if (length > LongLine)
            cut({send(Component::SCI_POSITIONFROMLINE, line), length});
    }
    send(Component::SCI_STARTSTYLING, end); // up to there all is as it should be
}

/// A stretch begins at a blank and at a tag. Where it looks like the one before, it takes a style that
/// neither neighbour has, so that after an edit only what is new is cut.
void TextColors::cut(TextRange line) const
{
    const QByteArray cells = cellsIn(line);
    std::vector<uchar> styles(size_t(line.length));
    for (size_t i = 0; i < styles.size(); ++i)
        styles[i] = uchar(cells[2 * qsizetype(i) + 1]);
    const auto begins = [&](size_t i) {
        const char byte = cells[2 * qsizetype(i)];
        return byte == ' ' || byte == '<' || styles[i] != styles[i - 1];
    };
    bool changed = false;
    int before = -1; // no style
    for (size_t start = 0, end = 0; start < styles.size(); start = end) {
        end = start + 1;
        while (end < styles.size() && !begins(end))
            ++end;
        if (styles[start] == before && isPlain(before)) {
            const int behind = end < styles.size() ? styles[end] : -1;
            uchar other = 0;
            while (other == before || other == behind)
                ++other;
            std::fill(styles.begin() + qsizetype(start), styles.begin() + qsizetype(end), other);
            changed = true;
        }
        before = styles[start];
    }
    if (!changed)
        return;
    send(Component::SCI_STARTSTYLING, line.start);
    m_component.SendScintilla(Component::SCI_SETSTYLINGEX, static_cast<uintptr_t>(styles.size()),
                              reinterpret_cast<const char*>(styles.data()));
}

int TextColors::styleAt(qsizetype position) const
{
    return int(send(Component::SCI_GETSTYLEAT, position)) & 0xFF;
}

/// The style of a colour. Where all are taken, one that the text has no longer; where it has them all, the
/// most alike. A new one costs a new layout of the text.
int TextColors::styleFor(int color)
{
    const auto placeOf = [this](std::optional<int> wanted) { return std::ranges::find(m_colors, wanted); };
    auto style = placeOf(color);
    if (style != m_colors.end())
        return numberOf(int(style - m_colors.begin()));
    if (m_colors.size() < MostStyles) {
        style = m_colors.emplace(style);
    } else {
        freeStyles();
        style = placeOf(std::nullopt);
    }
    if (style == m_colors.end()) {
        style = std::ranges::min_element(
            m_colors, {}, [color](std::optional<int> other) { return difference(*other, color); });
        return numberOf(int(style - m_colors.begin()));
    }
    *style = color;
    const int number = numberOf(int(style - m_colors.begin()));
    send(Component::SCI_STYLESETFORE, number, color);
    return number;
}

/// Takes their colours from the styles that the text has no longer.
void TextColors::freeStyles()
{
    std::array<bool, MostStyles> used = {true, true, true}; // black's
    const QByteArray styles = stylesIn({0, send(Component::SCI_GETLENGTH)});
    for (const char style : styles)
        used.at(styleOf(static_cast<uchar>(style))) = true;
    for (size_t i = 0; i < m_colors.size(); ++i) {
        if (!used.at(i))
            m_colors[i].reset();
    }
}

/// Each byte of a stretch, and its style behind it.
QByteArray TextColors::cellsIn(TextRange range) const
{
    QByteArray cells(2 * range.length + 2, 0); // the component adds an end
    m_component.SendScintilla(Component::SCI_GETSTYLEDTEXT, long(range.start), long(range.end()),
                              cells.data());
    cells.chop(2);
    return cells;
}

/// The styles' numbers in a stretch.
QByteArray TextColors::stylesIn(TextRange range) const
{
    QByteArray cells = cellsIn(range);
    char* style = cells.data();
    for (qsizetype i = 0; i < range.length; ++i)
        style[i] = style[2 * i + 1];
    cells.truncate(range.length);
    return cells;
}

/// The same, without a question where there is no colour: the component takes long to answer.
QByteArray TextColors::knownStylesIn(TextRange range) const
{
    return range.start < m_plainFrom ? stylesIn(range) : QByteArray(range.length, 0);
}

} // namespace brindlemark
