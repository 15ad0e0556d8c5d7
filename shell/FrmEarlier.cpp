// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmEarlier.h"

#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"
#include "shell/Document.h"
#include "shell/LineDifference.h"
#include "shell/ListingEditor.h"

#include <QFileInfo>
#include <QLocale>
#include <QTreeWidgetItem>
#include <array>

namespace brindlemark {

namespace {

struct DroppedWords
{
    Dropped why;
    const char* words;
};
constexpr std::array<DroppedWords, 5> AllWords = {{
    {Dropped::Overwritten, "Overwritten by a save"},
    {Dropped::Replaced, "Replaced in the editor"},
    {Dropped::GivenUp, "Given up without saving"},
    {Dropped::NotSaved, "Could not be saved"},
    {Dropped::Declined, "Not wanted back"},
}};

QString wordsFor(Dropped why)
{
    return QString::fromLatin1(std::ranges::find(AllWords, why, &DroppedWords::why)->words);
}

} // namespace

FrmEarlier::FrmEarlier()
{
    setupUi(this);
    for (RichTextBox* box : {KeptSource, NowSource}) {
        box->setReadOnly(true);
        box->setTextFont(font());
        box->setMinimumHeight(fontMetrics().lineSpacing() * 12);
    }
    Texts->setMinimumHeight(fontMetrics().lineSpacing() * 6);
    on(Texts, &QTreeWidget::currentItemChanged, this, &FrmEarlier::Texts_CurrentItemChanged);
    on(Views, &SSTab::Click, this, &FrmEarlier::Views_Click);
    on(BringBack, &QPushButton::clicked, this, &FrmEarlier::BringBack_Click);
    on(SaveAs, &QPushButton::clicked, this, &FrmEarlier::SaveAs_Click);
    on(CloseWindow, &QPushButton::clicked, this, &FrmEarlier::Unload);
    setCancelButton(CloseWindow);
    list();
    Texts->setFocus();
}

bool FrmEarlier::event(QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::WindowActivate)
            list();
        return Form::event(event);
    });
}

/// Lists what is there now; the marked text stays marked.
void FrmEarlier::list()
{
    ListingEditor* editor = loadedEditor();
    if (!editor)
        return;
    const QList<EarlierText> texts = editor->earlierTexts().list();
    if (texts == m_texts && editor->text() == m_now)
        return; // what is in view stays where it was scrolled to
    const int row = Texts->indexOfTopLevelItem(Texts->currentItem());
    const QString marked = row < 0 ? QString() : m_texts.at(row).path;
    const QSignalBlocker quiet(Texts);
    m_texts = texts;
    Texts->clear();
    const QLocale locale;
    QTreeWidgetItem* current = nullptr;
    for (const EarlierText& kept : m_texts) {
        auto* item = new QTreeWidgetItem(Texts, {QFileInfo(kept.document).fileName(),
                                                 locale.toString(kept.moment, QLocale::ShortFormat),
                                                 locale.formattedDataSize(kept.size), wordsFor(kept.why)});
        item->setToolTip(0, kept.document);
        if (!current || kept.path == marked)
            current = item;
    }
    for (int column = 0; column < Texts->columnCount(); ++column)
        Texts->resizeColumnToContents(column);
    Texts->setCurrentItem(current);
    compare();
}

void FrmEarlier::Texts_CurrentItemChanged()
{
    compare();
}

void FrmEarlier::Views_Click()
{
    showPages();
}

/// Shows the marked text beside the document's.
void FrmEarlier::compare()
{
    const WaitCursor hourglass;
    const ListingEditor* editor = loadedEditor();
    const int row = Texts->indexOfTopLevelItem(Texts->currentItem());
    m_now = editor ? editor->text() : QByteArray();
    m_kept.clear();
    bool there = row >= 0;
    try {
        if (there)
            m_kept = EarlierTexts::text(m_texts.at(row));
    } catch (const RuntimeError&) {
        there = false; // another program has removed it: the list shows that when it is made anew
    }
    for (QWidget* button : {BringBack, SaveAs})
        button->setEnabled(there);
    const LineDifference difference = there ? compareLines(m_kept, m_now) : LineDifference();
    const QColor tint = palette().color(QPalette::Highlight);
    KeptSource->load(m_kept);
    KeptSource->markLines(difference.first, tint);
    NowSource->load(m_now);
    NowSource->markLines(difference.second, tint);
    m_pagesShown = false;
    showPages();
}

/// Shows both as pages, once somebody looks.
void FrmEarlier::showPages()
{
    if (m_pagesShown || Views->currentWidget() != PageView)
        return;
    m_pagesShown = true;
    KeptPage->writeSoon(decode(m_kept, encodingOf(m_kept)));
    NowPage->writeSoon(decode(m_now, encodingOf(m_now)));
}

void FrmEarlier::BringBack_Click()
{
    if (ListingEditor* editor = loadedEditor()) {
        editor->bringBackText(m_kept);
        Unload();
    }
}

void FrmEarlier::SaveAs_Click()
{
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Save As Files");
    dialog.Filter = QStringLiteral("HTML Files (*.htm)|*.htm|All files (*.*)|*.*");
    if (!dialog.ShowSave() || dialog.FileName.isEmpty())
        return;
    if (QFileInfo::exists(dialog.FileName) && !confirmed(Messages::MayReplace, dialog.FileTitle))
        return;
    try {
        const WaitCursor hourglass;
        if (ListingEditor* editor =
                loadedEditor()) // a longer file than can be kept: the user has just been asked about it
            static_cast<void>(editor->earlierTexts().keepFile(dialog.FileName, m_kept));
        writeFile(dialog.FileName, m_kept);
    } catch (const RuntimeError& error) {
        showMessage(Messages::CannotWrite, error.description());
    }
}

} // namespace brindlemark
