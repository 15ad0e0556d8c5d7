// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/Fade.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <unicode/localpointer.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <vector>

namespace brindlemark {

namespace {

/// What stands around a character and its colour.
struct Piece
{
    QStringView beforeColor;
    QStringView behindColor;
    QStringView end;
};

constexpr Piece ClosedPiece = {u"<Font Color=\"#", u"\">", u"</Font>"};
constexpr Piece OpenPiece = {u"<Font Color=#", u">", u""};

/// The wave: four characters up, level, down, level.
constexpr std::array<QStringView, 4> WaveTexts = {u"<sup>", u"</sup>", u"<sub>", u"</sub>"};
constexpr qsizetype LongestWave = 6;

/// A channel on its way. Three steps, each rounded to double precision on its own.
class ChannelFade
{
public:
    ChannelFade(int from, int to, int n) : m_step(double(to - from) / n), m_from(from) {}

    /// The channel of character `i`, from 1.
    int at(int i) const
    {
        const double way = i * m_step;
        const double value = way + m_from;
        return int(std::lrint(value)); // halves to the even number
    }

private:
    double m_step;
    int m_from;
};

/// Makes the HTML of one fade, run by run. A template, so that the pieces are copied as constants.
template <const Piece& piece>
class Fade
{
public:
    /// Reserves for `text`, of so many characters.
    Fade(bool wavy, const QString& text, size_t characters) : m_wavy(wavy)
    {
        const qsizetype tags =
            piece.beforeColor.size() + 6 + piece.behindColor.size() + LongestWave + piece.end.size();
        m_html.resize(text.size() + qsizetype(characters) * tags);
        m_end = m_html.data();
    }

    void run(std::span<const QStringView> characters, const Channels& from, const Channels& to)
    {
        const int n = int(characters.size());
        if (n == 0)
            return;
        const ChannelFade red(from.red, to.red, n);
        const ChannelFade green(from.green, to.green, n);
        const ChannelFade blue(from.blue, to.blue, n);
        for (int i = 1; i <= n; ++i) {
            append(piece.beforeColor);
            appendHex(red.at(i));
            appendHex(green.at(i));
            appendHex(blue.at(i));
            append(piece.behindColor);
            if (m_wavy)
                append(WaveTexts[m_wave++ % WaveTexts.size()]);
            for (const QChar unit : characters[size_t(i - 1)])
                *m_end++ = unit;
            append(piece.end);
        }
    }

    QString html()
    {
        m_html.truncate(m_end - m_html.constData());
        return std::move(m_html);
    }

private:
    // A fade is text by the megabyte in small pieces: they go to their places in one buffer.
    void append(QStringView text) { m_end = std::copy(text.begin(), text.end(), m_end); }

    void appendHex(int channel)
    {
        constexpr char16_t Digits[] = u"0123456789ABCDEF";
        *m_end++ = Digits[channel >> 4 & 0xF];
        *m_end++ = Digits[channel & 0xF];
    }

    bool m_wavy;
    size_t m_wave = 0; // runs on from run to run
    QString m_html;
    QChar* m_end;
};

/// Where the characters of a text end, in the script of any language. Made once: making it takes longer than
/// a fade.
UBreakIterator* characterEnds()
{
    static const icu::LocalUBreakIteratorPointer ends = [] {
        UErrorCode error = U_ZERO_ERROR;
        icu::LocalUBreakIteratorPointer made(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &error));
        if (U_FAILURE(error))
            throw RuntimeError(ErrorNumber::ObjectNotSet, QString::fromLatin1(u_errorName(error)));
        return made;
    }();
    return ends.getAlias();
}

/// Whether the letter at a place is written below the one before it, as a sign that nobody sees says in
/// Khmer, Myanmar and others, and a joiner in Sinhala. The library's rules cut behind these.
bool isStacked(QStringView text, qsizetype place)
{
    constexpr char16_t Sinhala = 0x0D80; // the first of them
    if (text[place].unicode() < Sinhala)
        return false;
    const auto categoryAt = [text](qsizetype index) {
        UChar32 letter = 0;
        U16_GET(text.utf16(), 0, index, text.size(), letter);
        return u_getIntPropertyValue(letter, UCHAR_INDIC_SYLLABIC_CATEGORY);
    };
    const int letter = categoryAt(place);
    if (letter != U_INSC_CONSONANT && letter != U_INSC_VOWEL_INDEPENDENT)
        return false;
    const int before = categoryAt(place - 1);
    return before == U_INSC_INVISIBLE_STACKER ||
           (before == U_INSC_JOINER && place > 1 && categoryAt(place - 2) == U_INSC_VIRAMA);
}

/// The parts of the text that are seen as one character. Line ends are two.
std::vector<QStringView> split(QStringView text)
{
    std::vector<QStringView> characters;
    characters.reserve(size_t(text.size()));
    UBreakIterator* ends = nullptr;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start + 1;
        // Most characters are letters of their own, which is soon told: marks and joiners come behind them.
        constexpr char16_t Marks = 0x0300;
        const bool plain =
            text[start].unicode() < Marks && (end == text.size() || text[end].unicode() < Marks);
        if (!plain) {
            if (!ends) {
                ends = characterEnds();
                UErrorCode error = U_ZERO_ERROR;
                ubrk_setText(ends, reinterpret_cast<const UChar*>(text.utf16()), int(text.size()), &error);
            }
            end = ubrk_following(ends, int(start));
            while (end < text.size() && isStacked(text, end))
                end = ubrk_following(ends, int(end));
        }
        characters.push_back(text.sliced(start, end - start));
        start = end;
    }
    return characters;
}

/// The characters of a text that can be faded: their number is a 16-bit one.
std::vector<QStringView> splitForFade(QStringView text)
{
    std::vector<QStringView> characters = split(text);
    if (characters.size() > size_t(std::numeric_limits<qint16>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return characters;
}

} // namespace

QStringList fadeCharacters(const QString& text)
{
    QStringList characters;
    for (const QStringView character : split(text))
        characters.append(character.toString());
    return characters;
}

QString fadeFive(const std::array<Channels, 5>& colors, const QString& text, bool wavy)
{
    const std::vector<QStringView> characters = splitForFade(text);
    Fade<ClosedPiece> fade(wavy, text, characters.size());
    std::span<const QStringView> rest(characters);
    for (size_t part = 0; part < 4; ++part) {
        const size_t length = (characters.size() + 3 - part) / 4; // 10 characters: 3, 3, 2, 2
        fade.run(rest.first(length), colors.at(part), colors.at(part + 1));
        rest = rest.subspan(length);
    }
    return fade.html();
}

QString fadeTwo(const Channels& from, const Channels& to, const QString& text, bool wavy)
{
    const std::vector<QStringView> characters = splitForFade(text);
    Fade<OpenPiece> fade(wavy, text, characters.size());
    fade.run(characters, from, to);
    return fade.html();
}

} // namespace brindlemark
