// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFlags>
#include <array>
#include <optional>
#include <vector>

namespace brindlemark {

/// How `TextSearch` and `RichTextBox::Find` work. None of them ignores case, takes parts of words and selects
/// what is found.
enum FindOption {
    WholeWord = 2, ///< not where a word of letters, digits and underlines goes on past an end of the match
    MatchCase = 4,
    NoSelection = 8, ///< `Find` leaves the selection as it is
};
Q_DECLARE_FLAGS(FindOptions, FindOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(FindOptions)

/// Where a match lies, in bytes. Its length may differ from that of the wanted text: the two cases of some
/// letters take different numbers of bytes.
struct TextMatch
{
    qsizetype position = 0;
    qsizetype length = 0;

    bool operator==(const TextMatch&) const = default;
};

/// A search for one text in UTF-8 bytes. Bytes that are not UTF-8 are compared as they are.
class TextSearch
{
public:
    /// An empty text is never found.
    explicit TextSearch(const QByteArray& wanted, FindOptions options = {});

    /// The first match at or behind `from` that ends at or before `end`; both lie within the text.
    [[nodiscard]] std::optional<TextMatch> find(QByteArrayView text, qsizetype from, qsizetype end) const;
    /// The position of the first match at or behind `from`, which may lie behind the text; -1 without one.
    [[nodiscard]] qsizetype indexIn(QByteArrayView text, qsizetype from) const;

private:
    /// A character of the wanted text, in the spellings that count as the same.
    class Letter
    {
    public:
        Letter(QByteArrayView character, bool matchCase);

        bool hasOneSpelling() const { return m_count == 1; }
        /// Marks the bytes with which the spellings begin.
        void markFirstBytes(std::array<bool, 256>& marks) const;
        /// The size of the spelling with which `text` begins, 0 if with none.
        qsizetype sizeAtStart(QByteArrayView text) const;

    private:
        struct Spelling
        {
            std::array<char, 4> bytes;
            qsizetype size;
        };

        void add(QByteArrayView spelling);
        void addCase(char32_t otherCase, char32_t character);

        std::array<Spelling, 3> m_spellings{};
        size_t m_count = 0;
    };

    [[nodiscard]] std::optional<TextMatch> next(QByteArrayView text, qsizetype from) const;
    qsizetype candidate(QByteArrayView text, qsizetype from) const;
    qsizetype matchLength(QByteArrayView text) const;

    QByteArray m_start; // of the wanted text, as far as there is one spelling only
    size_t m_startLetters = 0;
    std::vector<Letter> m_letters;
    std::array<bool, 256> m_firstBytes{};
    bool m_wholeWord;
};

} // namespace brindlemark
