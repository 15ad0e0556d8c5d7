// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/Presets.h"

#include "colour/ColorSample.h"
#include "platform/Conversion.h"
#include "platform/Doors.h"
#include "platform/RuntimeError.h"
#include "services/Profile.h"

namespace brindlemark {

namespace {

CommonDialog presetDialog(const QString& fileName)
{
    CommonDialog dialog;
    dialog.Filter = QStringLiteral("FPC Files (*.fpc)|*.fpc|");
    dialog.FileName = fileName;
    return dialog;
}

QString textOf(const Preset::Entry& entry)
{
    if (auto* const* sample = std::get_if<ColorSample*>(&entry.holder))
        return fromNumber((*sample)->BackColor());
    return *std::get<QString*>(entry.holder);
}

/// Throws RuntimeError for a colour that is no number.
void take(const Preset::Entry& entry, const QString& text)
{
    if (auto* const* sample = std::get_if<ColorSample*>(&entry.holder)) {
        (*sample)->setBackColor(toInteger32(text));
    } else {
        *std::get<QString*>(entry.holder) = text;
    }
}

} // namespace

void savePreset(const Preset& preset)
{
    CommonDialog dialog = presetDialog(preset.fileName);
    if (!dialog.ShowSave())
        return;
    QList<ProfileValue> values;
    for (const Preset::Entry& entry : preset.entries)
        values << ProfileValue{preset.section, entry.key, textOf(entry)};
    WriteProfile(values, dialog.FileName);
}

bool loadPreset(const Preset& preset, const std::function<void()>& before)
{
    CommonDialog dialog = presetDialog(QString());
    if (!dialog.ShowOpen())
        return false;
    if (before)
        before();
    const Profile file(dialog.FileName);
    try {
        for (const Preset::Entry& entry : preset.entries)
            take(entry, file.value(preset.section, entry.key));
    } catch (const RuntimeError&) {
        return false; // no colour number: the user sees the colours read before it, and the others unchanged
    }
    return true;
}

} // namespace brindlemark
