// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/SavedTitles.h"

#include "forms/ComboBox.h"
#include "platform/Doors.h"
#include "services/Messages.h"
#include "services/Profile.h"

namespace brindlemark {

namespace {

bool hasEntry(const ComboBox& list, const QString& text)
{
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) == text)
            return true;
    }
    return false;
}

bool mayReplace(const QString& title)
{
    return confirmed(Messages::MayReplace, title);
}

} // namespace

QString askForTitle(ComboBox& titles, const QString& listFile, const QString& prompt, const QString& caption)
{
    QString title = InputBox(prompt, caption);
    if (title.isEmpty())
        return title;
    if (hasEntry(titles, title))
        return mayReplace(title) ? title : QString();
    titles.AddItem(title);
    titles.setText(title);
    SaveList(listFile, titles);
    return title;
}

} // namespace brindlemark
