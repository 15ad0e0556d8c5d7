// SPDX-License-Identifier: GPL-3.0-or-later

// The files that were the document last.

#include "platform/Events.h"
#include "shell/FrmWeb.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace brindlemark {

void FrmWeb::connectRecent()
{
    munrecent->setToolTipsVisible(true);
    on(munrecent, &QMenu::aboutToShow, this, &FrmWeb::munrecent_Popup);
}

void FrmWeb::noteRecent()
{
    if (m_document->isNamed() && m_document->name() != m_unlisted)
        m_recent.note({m_document->name(), RichTextBox1->SelStart()});
}

void FrmWeb::munrecent_Popup()
{
    noteRecent(); // a save costs nothing for this list
    munrecent->clear();
    const QList<RecentFile> files = m_recent.files();
    const QStringList names = shownNames(files);
    for (qsizetype i = 0; i < files.size(); ++i) {
        const RecentFile& file = files.at(i);
        QAction* entry = munrecent->addAction(QString(names.at(i)).replace(u'&', QStringLiteral("&&")));
        entry->setToolTip(QDir::toNativeSeparators(file.path));
        entry->setEnabled(QFileInfo(file.path).isFile());
        on(entry, &QAction::triggered, this, [this, file] { openRecent(file); });
    }
    if (files.isEmpty())
        munrecent->addAction(QStringLiteral("No file was opened or saved yet"))->setEnabled(false);
    munrecent->addSeparator();
    QAction* clear = munrecent->addAction(QStringLiteral("Clear This List"));
    clear->setEnabled(!files.isEmpty());
    on(clear, &QAction::triggered, this, [this] {
        m_recent.clear();
        m_unlisted = m_document->name();
    });
}

/// With the caret where it stood last.
void FrmWeb::openRecent(const RecentFile& file)
{
    if (!giveUpDocument([this, file] { openRecent(file); }))
        return;
    openFile(file.path);
    if (m_document->name() != file.path)
        return;
    select({file.caret, 0}); // at the end of a text that is shorter by now
    if (SSTab1->Tab() == PreviewTab)
        giveCaret(shownSurface());
}

} // namespace brindlemark
