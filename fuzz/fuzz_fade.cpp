// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "colour/Fade.h"
#include "colour/FixedInterfaces.h"
#include "services/Codes.h"

#include <array>
#include <cmath>

using namespace brindlemark;

namespace {

constexpr std::array<const char*, 4> Waves = {"<sup>", "</sup>", "<sub>", "</sub>"};

/// Reads a fade from its front, piece by piece.
class Reader
{
public:
    Reader(const QString& html, bool wavy) : m_rest(html), m_wavy(wavy) {}

    /// One character with what stands around it; its colour.
    int character(const QString& text, const char* before, const char* behind, const char* end)
    {
        take(QLatin1String(before));
        QString code = m_rest.left(6).toString();
        m_rest = m_rest.sliced(code.size());
        for (const QChar digit : code)
            hold(QStringLiteral("0123456789ABCDEF").contains(digit), "a colour is six digits");
        take(QLatin1String(behind));
        if (m_wavy)
            take(QLatin1String(Waves.at(m_count++ % 4)));
        take(text);
        take(QLatin1String(end));
        return static_cast<int>(HexToColor(code));
    }
    bool atEnd() const { return m_rest.isEmpty(); }

private:
    void take(const QString& text)
    {
        hold(m_rest.startsWith(text), "a fade is tags around characters");
        m_rest = m_rest.sliced(text.size());
    }

    QStringView m_rest;
    bool m_wavy;
    size_t m_count = 0;
};

/// Whether a colour stands `i` of `n` steps from one to another, rounded.
bool isStep(int color, int from, int to, qsizetype i, qsizetype n)
{
    for (int shift = 0; shift < 24; shift += 8) {
        const int first = from >> shift & 0xFF;
        const int last = to >> shift & 0xFF;
        const double exact = first + double((last - first) * i) / double(n);
        if (std::abs((color >> shift & 0xFF) - exact) > 0.5000001)
            return false;
    }
    return true;
}

} // namespace

/// Ways, five colours, text: the text comes back between the tags, unescaped, and the colours run in steps.
void targets::fade(const QByteArray& bytes)
{
    Fields fields(bytes);
    const uint ways = fields.nextNumber();
    const bool wavy = ways & 1;
    std::array<int, 5> colors{};
    for (int& color : colors)
        color = static_cast<int>(fields.nextNumber() & 0xFFFFFF);
    const QByteArray rest = fields.rest();
    const QString text = ways & 2 ? QString::fromUtf16(reinterpret_cast<const char16_t*>(rest.constData()),
                                                       rest.size() / 2) // half characters too
                                  : textOf(rest);

    const QStringList characters = fadeCharacters(text);
    hold(characters.join(QString()) == text && !characters.contains(QString()),
         "the characters are the text");
    for (qsizetype i = 1; i < characters.size(); ++i) {
        hold(!(characters.at(i - 1).back().isHighSurrogate() && characters.at(i).front().isLowSurrogate()),
             "no cut goes through a character");
    }

    const QString five = FadeFive(colors[0], colors[1], colors[2], colors[3], colors[4], text, wavy);
    Reader reader(five, wavy);
    qsizetype at = 0;
    for (qsizetype run = 0; run < 4; ++run) {
        const qsizetype length = characters.size() / 4 + (run < characters.size() % 4 ? 1 : 0);
        for (qsizetype i = 1; i <= length; ++i) {
            const int color = reader.character(characters.at(at++), "<Font Color=\"#", "\">", "</Font>");
            hold(isStep(color, colors.at(size_t(run)), colors.at(size_t(run) + 1), i, length),
                 "a fade over five colours runs in steps");
        }
    }
    hold(reader.atEnd(), "a fade over five colours ends with its text");

    const QString two = SplitPairFade(colors[0], colors[1], text, wavy, FadeTwoRgb);
    Reader pairReader(two, wavy);
    for (qsizetype i = 1; i <= characters.size(); ++i) {
        const int color = pairReader.character(characters.at(i - 1), "<Font Color=#", ">", "");
        hold(isStep(color, colors[0], colors[1], i, characters.size()),
             "a fade over two colours runs in steps");
    }
    hold(pairReader.atEnd(), "a fade over two colours ends with its text");
}
