// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/ToolForm.h"

#include "forms/CheckBox.h"
#include "platform/Conversion.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Messages.h"
#include "services/Profile.h"
#include "shell/ListingEditor.h"

#include <new>

namespace brindlemark {

void keepInSettings(CheckBox* box, const QString& section, const QString& key)
{
    box->setValue(Profile(webIni()).checkBox(section, key));
    on(box, &CheckBox::Click, box,
       [box, section, key] { WriteProfile(section, key, fromNumber(box->Value()), webIni()); });
}

void keepInSettings(QAction* entry, const QString& section, const QString& key, bool atFirst)
{
    const QString on = QStringLiteral("1");
    const QString off = QStringLiteral("0");
    const QString kept = ReadProfile(section, key, webIni());
    entry->setChecked(atFirst ? kept != off : kept == on);
    brindlemark::on(entry, &QAction::toggled, entry, [entry, section, key, on, off] {
        WriteProfile(section, key, entry->isChecked() ? on : off, webIni());
    });
}

void tellingWantOfMemory(const std::function<void()>& make)
{
    try {
        make();
    } catch (const std::bad_alloc&) {
        showMessage(Messages::NoMemory);
    }
}

void ToolForm::setClosingBox(CheckBox* box, const QString& section, const QString& key)
{
    keepInSettings(box, section, key);
    m_closes = box;
}

void ToolForm::addToEditor(const QString& fragment, const QString& what)
{
    ListingEditor* editor = loadedEditor();
    if (!editor)
        return;
    editor->insert(fragment, what);
    closeIfWanted();
}

void ToolForm::copyFragment(const QString& fragment)
{
    Clipboard::Clear();
    Clipboard::SetText(fragment);
    closeIfWanted();
}

void ToolForm::closeIfWanted()
{
    if (m_closes && m_closes->Value() == 1)
        Unload();
}

} // namespace brindlemark
