// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CopyPage.h"

#include "check/FrmCheck.h"
#include "platform/Doors.h"
#include "platform/WaitCursor.h"
#include "shell/ListingEditor.h"

#include <QLocale>

namespace brindlemark {

void copyPage()
{
    ListingEditor* editor = loadedEditor();
    if (!editor)
        return;
    const WaitCursor hourglass;
    const std::optional<QString> page = editor->pageThatIsUp();
    if (!page)
        return; // the user has been told why
    Clipboard::Clear();
    Clipboard::SetText(*page);
    const CheckReport report = checkListing(page->toUtf8(), checkLimits());
    const QLocale locale;
    editor->tell(QStringLiteral("The page is on the clipboard: %1 characters. Open findings: %2.")
                     .arg(locale.toString(qlonglong(report.characters)),
                          locale.toString(qulonglong(report.findings.size()))),
                 {{QStringLiteral("&Check Listing"), [] { form<FrmCheck>()->Show(); }}});
}

} // namespace brindlemark
