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

TextColors::TextColors(QsciScintillaBase& component) : m_component(component), m_colors{0} {}

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
    send(Component::SCI_STARTSTYLING, range.start);
    send(Component::SCI_SETSTYLING, range.length, style);
}

void TextColors::paint(qsizetype start, QByteArrayView marks, const std::vector<int>& colors)
{
    settle();
    std::array<char, 256> styles = {};
    for (size_t i = 0; i < colors.size(); ++i)
        styles.at(i + 1) = char(styleFor(colors[i]));
    QByteArray painted = stylesIn({start, marks.size()});
    const char* mark = marks.data();
    for (char& style : painted) {
        if (*mark != 0)
            style = styles[static_cast<uchar>(*mark)];
        ++mark;
    }
    send(Component::SCI_STARTSTYLING, start);
    m_component.SendScintilla(Component::SCI_SETSTYLINGEX, static_cast<uintptr_t>(painted.size()),
                              painted.constData());
}

std::vector<ColorRun> TextColors::in(TextRange range) const
{
    settle();
    std::vector<ColorRun> runs;
    const QByteArray styles = stylesIn(range);
    for (auto at = styles.begin(); at != styles.end();) {
        const auto end = std::find_if(at, styles.end(), [at](char style) { return style != *at; });
        runs.push_back({{range.start + (at - styles.begin()), end - at},
                        m_colors[styleOf(static_cast<uchar>(*at))].value_or(0)});
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
    const bool within = inserted.start > 0 && styleAt(inserted.start) != 0;
    if (const int style = within ? styleAt(inserted.start - 1) : 0)
        m_inserted = {inserted, style};
}

void TextColors::settle() const
{
    const std::optional<Inserted> inserted = std::exchange(m_inserted, std::nullopt);
    if (!inserted)
        return;
    send(Component::SCI_STARTSTYLING, inserted->range.start);
    send(Component::SCI_SETSTYLING, inserted->range.length, inserted->style);
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
    std::array<bool, MostStyles> used = {true};
    const QByteArray styles = stylesIn({0, send(Component::SCI_GETLENGTH)});
    for (const char style : styles)
        used.at(styleOf(static_cast<uchar>(style))) = true;
    for (size_t i = 0; i < m_colors.size(); ++i) {
        if (!used.at(i))
            m_colors[i].reset();
    }
}

/// The styles' numbers in a stretch.
QByteArray TextColors::stylesIn(TextRange range) const
{
    QByteArray cells(2 * range.length + 2, 0); // each byte of the text with its style, and an end
    m_component.SendScintilla(Component::SCI_GETSTYLEDTEXT, long(range.start), long(range.end()),
                              cells.data());
    char* style = cells.data();
    for (qsizetype i = 0; i < range.length; ++i)
        style[i] = style[2 * i + 1];
    cells.truncate(range.length);
    return cells;
}

} // namespace brindlemark
