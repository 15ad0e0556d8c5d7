// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "ScriptedDoors.h"
#include "colour/ColorSample.h"
#include "colour/Presets.h"
#include "services/Profile.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

using namespace brindlemark;

namespace {

constexpr int Untouched = 0x123456;

/// What a tool keeps: two colours around a text.
struct Tool
{
    ColorSample first;
    ColorSample second;
    QString text = QStringLiteral("untouched");

    Tool()
    {
        first.setBackColor(Untouched);
        second.setBackColor(Untouched);
    }
    Preset preset()
    {
        return {.fileName = QStringLiteral("1color"),
                .section = QStringLiteral("Tool"),
                .entries = {{QStringLiteral("color1"), &first},
                            {QStringLiteral("text1"), &text},
                            {QStringLiteral("color2"), &second}}};
    }
    bool load(const QString& file)
    {
        ScriptedDoors doors;
        doors.answerOpen(file);
        return loadPreset(preset());
    }
    void save(const QString& file)
    {
        ScriptedDoors doors;
        doors.answerSave(file);
        savePreset(preset());
    }
};

QString valueOf(const char* key, const QString& file)
{
    return ReadProfile(QStringLiteral("Tool"), QLatin1String(key), file);
}

/// The colour number that a text stands for, if any.
std::optional<int> colorOf(const QString& text)
{
    static const QString Letters = QStringLiteral("0123456789+-.eE");
    const QByteArray digits = text.trimmed().toLatin1();
    for (const char c : digits) {
        if (!Letters.contains(QLatin1Char(c)))
            return std::nullopt;
    }
    const char* begin = digits.constBegin() + (digits.startsWith('+') && !digits.startsWith("+-") ? 1 : 0);
    double number = 0;
    const auto [end, failure] = std::from_chars(begin, digits.constEnd(), number);
    if (end != digits.constEnd() || failure == std::errc::invalid_argument)
        return std::nullopt;
    // A value has at most 254 characters, so it takes an exponent to leave the range.
    if (failure == std::errc::result_out_of_range)
        return digits.contains("e-") || digits.contains("E-") ? std::optional(0) : std::nullopt;
    const double whole = std::nearbyint(number);
    if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(whole);
}

} // namespace

/// A preset file is taken up to the first colour that is none, and what was taken can be kept and loaded.
void targets::preset(const QByteArray& bytes)
{
    const QString file = scratchFile("tool.fpc");
    fill(file, bytes);
    const std::optional<int> first = colorOf(valueOf("color1", file));
    const std::optional<int> second = first ? colorOf(valueOf("color2", file)) : std::nullopt;

    Tool tool;
    hold(tool.load(file) == second.has_value(), "a whole preset is loaded, and no other");
    hold(tool.first.BackColor() == first.value_or(Untouched), "the first colour is taken if it is one");
    hold(tool.text == (first ? valueOf("text1", file) : Tool().text), "the text behind it is taken then");
    hold(tool.second.BackColor() == second.value_or(Untouched), "the second colour is taken if it is one");

    const QString kept = scratchFile("kept.fpc");
    tool.save(kept);
    Tool again;
    hold(again.load(kept), "a saved preset is whole");
    hold(again.first.BackColor() == tool.first.BackColor(), "the first colour comes back");
    hold(again.second.BackColor() == tool.second.BackColor(), "the second colour comes back");
    hold(again.text == valueOf("text1", kept), "the text comes back");
}
