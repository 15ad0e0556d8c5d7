// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/SourceSpelling.h"

#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "shell/Spelling.h"
#include "source/RichTextBox.h"

#include <algorithm>
#include <utility>

namespace brindlemark {

namespace {

constexpr int Rest = 300;                        // ms
constexpr qsizetype LongestChecked = 20'000'000; // bytes: what a longer text is can't be read in a moment
constexpr qsizetype LongestView = 100'000;       // bytes: one line may hold all of the text
constexpr qsizetype AroundView = 1000;           // bytes: a word at its edge, in lines that go on outside
constexpr qsizetype AroundWord = 4000;           // bytes: a letter of a faded word has thirty

TextRange around(int position, qsizetype length)
{
    const qsizetype start = std::max<qsizetype>(0, position - AroundWord);
    return {start, std::min(length, position + AroundWord) - start};
}

} // namespace

SourceSpelling::SourceSpelling(RichTextBox& box, Spelling& spelling) : m_box(box), m_spelling(spelling)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(Rest);
    on(&m_rest, &QTimer::timeout, this, &SourceSpelling::mark);
    on(&box, &RichTextBox::Change, this, &SourceSpelling::noteChange);
    on(&box, &RichTextBox::SelChange, this, &SourceSpelling::noteCaret);
    on(&box, &RichTextBox::Scrolled, this, [this] { m_rest.start(); });
    on(&spelling, &Spelling::changed, this, [this] { m_rest.start(); });
}

void SourceSpelling::noteChange()
{
    m_changes = m_typed = true;
    m_rest.start();
}

void SourceSpelling::noteCaret()
{
    if (!std::exchange(m_changes, false))
        m_typed = false;
    m_rest.start();
}

bool SourceSpelling::isChecked() const
{
    return m_box.TextLength() <= LongestChecked && !m_spelling.languages().isEmpty() &&
           m_spelling.speller().judges();
}

std::vector<MisspeltWord> SourceSpelling::wordsIn(const TextRange& stretch) const
{
    if (!isChecked())
        return {};
    return misspeltWords(m_box.textForNow(), m_box.textEncoding(), stretch, m_spelling.judge());
}

/// Whether somebody is still writing a word.
bool SourceSpelling::isTypedAt(const MisspeltWord& word) const
{
    return m_typed && m_box.hasFocus() && word.places.back().end() == m_box.SelStart();
}

void SourceSpelling::mark()
{
    if (m_box.isEmpty() || !m_box.isVisible())
        return;
    const TextRange view = m_box.inView();
    const qsizetype start = std::max<qsizetype>(0, view.start - AroundView);
    const qsizetype end = std::min({m_box.TextLength(), view.end() + AroundView, start + LongestView});
    const TextRange stretch{start, end - start};
    std::vector<TextRange> places;
    for (const MisspeltWord& word : wordsIn(stretch)) {
        if (!isTypedAt(word))
            places.insert(places.end(), word.places.begin(), word.places.end());
    }
    m_box.markMisspelt(stretch, places);
}

std::optional<MisspeltWord> SourceSpelling::wordAt(int position) const
{
    for (MisspeltWord& word : wordsIn(around(position, m_box.TextLength()))) {
        if (std::ranges::any_of(word.places, [&](const TextRange& place) {
                return place.start <= position && position <= place.end();
            }))
            return std::move(word);
    }
    return std::nullopt;
}

std::optional<MisspeltWord> SourceSpelling::nextFrom(int position) const
{
    const WaitCursor hourglass;
    if (!isChecked())
        return std::nullopt;
    return nextMisspelt(m_box.textForNow(), m_box.textEncoding(), position, m_spelling.judge());
}

} // namespace brindlemark
