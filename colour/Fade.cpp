#include "colour/Fade.h"

#include "platform/RuntimeError.h"
#include "services/Codes.h"

#include <QTextBoundaryFinder>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace {

/// What stands around a character and its colour.
struct Piece
{
    QLatin1StringView beforeColor;
    QLatin1StringView behindColor;
    QLatin1StringView end;
};

constexpr Piece ClosedPiece = {QLatin1StringView("<Font Color=\"#"), QLatin1StringView("\">"),
                               QLatin1StringView("</Font>")};
constexpr Piece OpenPiece = {QLatin1StringView("<Font Color=#"), QLatin1StringView(">"), QLatin1StringView()};

/// The wave: four characters up, level, down, level.
constexpr std::array<QLatin1StringView, 4> WaveTexts = {
    QLatin1StringView("<sup>"), QLatin1StringView("</sup>"), QLatin1StringView("<sub>"),
    QLatin1StringView("</sub>")};

/// A channel of character `i` of `n`. Three steps, each rounded to double precision on its own.
int fadeStep(int from, int to, int i, int n)
{
    const double difference = double(to - from) / n;
    const double way = i * difference;
    const double value = way + from;
    return int(std::nearbyint(value)); // halves to the even number
}

void appendHex(QString& html, int channel)
{
    constexpr char Digits[] = "0123456789ABCDEF";
    html += QLatin1Char(Digits[channel >> 4 & 0xF]);
    html += QLatin1Char(Digits[channel & 0xF]);
}

/// Makes the HTML of one fade, run by run.
class Fade
{
public:
    Fade(const Piece& piece, bool wavy) : m_piece(piece), m_wavy(wavy) {}

    void reserve(qsizetype characters) { m_html.reserve(characters * 40); }

    void run(std::span<const QStringView> characters, const Channels& from, const Channels& to)
    {
        const int n = int(characters.size());
        for (int i = 1; i <= n; ++i) {
            m_html += m_piece.beforeColor;
            appendHex(m_html, fadeStep(from.red, to.red, i, n));
            appendHex(m_html, fadeStep(from.green, to.green, i, n));
            appendHex(m_html, fadeStep(from.blue, to.blue, i, n));
            m_html += m_piece.behindColor;
            if (m_wavy)
                m_html += WaveTexts.at(m_wave++ % WaveTexts.size());
            m_html += characters[size_t(i - 1)];
            m_html += m_piece.end;
        }
    }

    QString html() { return std::move(m_html); }

private:
    Piece m_piece;
    bool m_wavy;
    size_t m_wave = 0; // runs on from run to run
    QString m_html;
};

/// The parts of the text that are seen as one character. Line ends are two.
std::vector<QStringView> split(QStringView text)
{
    std::vector<QStringView> characters;
    characters.reserve(size_t(text.size()));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start + 1;
        // Most characters are letters of their own, which is soon told.
        const bool plain = text[start].unicode() < 0x80 && (end == text.size() || text[end].unicode() < 0x80);
        if (!plain) {
            finder.setPosition(start);
            end = finder.toNextBoundary();
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

QString FadeFive(int c1, int c2, int c3, int c4, int c5, const QString& text, bool wavy)
{
    const auto [r1, g1, b1] = splitColor(c1);
    const auto [r2, g2, b2] = splitColor(c2);
    const auto [r3, g3, b3] = splitColor(c3);
    const auto [r4, g4, b4] = splitColor(c4);
    const auto [r5, g5, b5] = splitColor(c5);
    return FadeFiveRgb(r1, g1, b1, r2, g2, b2, r3, g3, b3, r4, g4, b4, r5, g5, b5, text, wavy);
}

QString FadeFiveRgb(int r1, int g1, int b1, int r2, int g2, int b2, int r3, int g3, int b3, int r4, int g4,
                    int b4, int r5, int g5, int b5, const QString& text, bool wavy)
{
    const std::array<Channels, 5> colors = {
        {{r1, g1, b1}, {r2, g2, b2}, {r3, g3, b3}, {r4, g4, b4}, {r5, g5, b5}}};
    const std::vector<QStringView> characters = splitForFade(text);
    Fade fade(ClosedPiece, wavy);
    fade.reserve(qsizetype(characters.size()));
    std::span<const QStringView> rest(characters);
    for (size_t part = 0; part < 4; ++part) {
        const size_t length = (characters.size() + 3 - part) / 4; // 10 characters: 3, 3, 2, 2
        fade.run(rest.first(length), colors.at(part), colors.at(part + 1));
        rest = rest.subspan(length);
    }
    return fade.html();
}

QString FadeTwoRgb(int r1, int g1, int b1, int r2, int g2, int b2, const QString& text, bool wavy)
{
    const std::vector<QStringView> characters = splitForFade(text);
    Fade fade(OpenPiece, wavy);
    fade.reserve(qsizetype(characters.size()));
    fade.run(characters, {r1, g1, b1}, {r2, g2, b2});
    return fade.html();
}

int HexDigitValue(QChar digit)
{
    if (digit >= u'0' && digit <= u'9')
        return digit.unicode() - u'0';
    if (digit >= u'A' && digit <= u'F')
        return digit.unicode() - u'A' + 10;
    return 0;
}

float HexToNumber(const QString& text)
{
    float number = 0;
    for (const QChar digit : text.right(8).toUpper())
        number = number * 16 + float(HexDigitValue(digit));
    return number;
}
