// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/TextColors.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace brindlemark {

namespace {

using Component = QsciScintillaBase;

constexpr int ColorIndicator = Component::INDIC_CONTAINER;

/// What the component keeps with coloured text.
int valueOf(int color)
{
    constexpr int black = 0;
    return color == black ? 0 : Component::SC_INDICVALUEBIT | (color & Component::SC_INDICVALUEMASK);
}

} // namespace

TextColors::TextColors(QsciScintillaBase& component) : m_component(component)
{
    send(Component::SCI_INDICSETSTYLE, ColorIndicator, Component::INDIC_TEXTFORE);
    send(Component::SCI_INDICSETFLAGS, ColorIndicator, Component::SC_INDICFLAG_VALUEBEFORE);
    send(Component::SCI_SETINDICATORCURRENT, ColorIndicator);
}

long TextColors::send(unsigned message, qsizetype first, qsizetype second) const
{
    return m_component.SendScintilla(message, static_cast<unsigned long>(first), static_cast<long>(second));
}

void TextColors::paint(TextRange range, int color)
{
    if (range.length == 0)
        return;
    const int value = valueOf(color);
    send(Component::SCI_SETINDICATORVALUE, value);
    send(value == 0 ? Component::SCI_INDICATORCLEARRANGE : Component::SCI_INDICATORFILLRANGE, range.start,
         range.length);
}

std::vector<ColorRun> TextColors::in(TextRange range) const
{
    std::vector<ColorRun> runs;
    for (qsizetype at = range.start; at < range.end();) {
        const qsizetype runEnd = send(Component::SCI_INDICATOREND, ColorIndicator, at);
        const qsizetype end = runEnd > at ? std::min(runEnd, range.end()) : range.end();
        runs.push_back({{at, end - at}, this->at(at)});
        at = end;
    }
    return runs;
}

int TextColors::at(qsizetype position) const
{
    return int(send(Component::SCI_INDICATORVALUEAT, ColorIndicator, position)) &
           Component::SC_INDICVALUEMASK;
}

} // namespace brindlemark
