// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/FrmList.h"

#include "colour/ColorRow.h"
#include "colour/FrmFonts.h"
#include "forms/LeadTo.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Messages.h"
#include "shell/FieldSpelling.h"
#include "shell/Icons.h"

#include <QMouseEvent>

namespace brindlemark {

namespace {

const QString FontCaption = QStringLiteral("List Properties Font");

} // namespace

FrmList::FrmList()
{
    setupUi(this);
    checkSpellingIn(Text1);
    Command21->setIcon(namedIcon("font", this));
    setCancelButton(Command7, CloseButton::Cancels);
    setClosingBox(Check3, QStringLiteral("Listpro"), QStringLiteral("chk4"));
    m_row = new ColorRow(RedA, GreenA, BlueA, Lcolor1);
    m_row->keepText(&listColor);
    m_row->RowHexRefresh();
    m_row->offerPick();

    // So meant: a bar's arrow only keeps the colour for the next refresh, while a drag refreshes at once.
    on(m_row, &ColorRow::Scroll, this, &FrmList::refresh);
    on(m_row, &ColorRow::Picked, this, &FrmList::refresh);
    for (OptionButton* kind : {Option1, Option2, Option6})
        on(kind, &OptionButton::Click, this, &FrmList::refresh);
    on(List1, &ListBox::MouseUp, this, [this] { List1->setListIndex(-1); });
    Text1->installEventFilter(this);
    on(Text1, &QLineEdit::returnPressed, this, &FrmList::Command1_Click);
    on(Command1, &QPushButton::clicked, this, &FrmList::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmList::Command2_Click);
    on(Command6, &QPushButton::clicked, this, &FrmList::Command6_Click);
    on(Command7, &QPushButton::clicked, this, &FrmList::Command7_Click);
    on(Command21, &QPushButton::clicked, this, &FrmList::Command21_Click);
    on(Command22, &QPushButton::clicked, this, &FrmList::Command22_Click);
    if (isLoaded<FrmFonts>()) // left open by an earlier list: it serves this one now
        fonts();
    Text1->setFocus();
}

/// A click into the box for the word takes the selection in the list away.
bool FrmList::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        if (watched == Text1 && event->type() == QEvent::MouseButtonRelease &&
            static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            guarded([this] { List1->setListIndex(-1); });
        return ToolForm::eventFilter(watched, event);
    });
}

void FrmList::Command1_Click()
{
    const QString word = Text1->text();
    if (word.isEmpty()) {
        showMessage(Messages::NoWord);
        leadTo(Text1);
        return;
    }
    items += listItem(word, wordFont);
    List1->AddItem(word);
    List1->scrollToBottom();
    Text1->clear();
    refresh();
}

QString FrmList::opening() const
{
    const ListKind kind = Option1->Value()   ? ListKind::Bullets
                          : Option2->Value() ? ListKind::Numbers
                                             : ListKind::Squares;
    return listOpening(kind, listColor);
}

/// Makes the list anew and shows it.
void FrmList::refresh()
{
    html = listText(opening(), items);
    WebBrowser1->writeSoon(html);
}

bool FrmList::hasWords()
{
    if (List1->ListCount() > 0)
        return true;
    showMessage(Messages::NoLists);
    leadTo(Text1);
    return false;
}

/// Adds the list with the colour as it is now, even when the sample doesn't show that yet (see the
/// constructor).
void FrmList::Command6_Click()
{
    if (hasWords())
        addToEditor(listText(opening(), items), QStringLiteral("List"));
}

/// Unlike "Add", copies the list as the sample shows it.
void FrmList::Command22_Click()
{
    if (hasWords())
        copyFragment(html);
}

void FrmList::Command2_Click()
{
    if (List1->ListCount() == 0 || !confirmed(Messages::ClearList))
        return;
    List1->Clear();
    items.clear();
    WebBrowser1->writeSoon(QString());
}

void FrmList::Command7_Click()
{
    if (List1->ListCount() == 0 || confirmed(Messages::CancelList))
        Unload();
}

/// The font window, made when first asked for; what the user takes in it comes to this list.
FrmFonts* FrmList::fonts()
{
    return heardForm<FrmFonts>(
        m_fonts, [this](FrmFonts* window) { on(window, &FrmFonts::taken, this, &FrmList::FrmFonts_taken); });
}

void FrmList::Command21_Click()
{
    fonts()->setWindowTitle(FontCaption);
    fonts()->Show();
}

void FrmList::FrmFonts_taken(const QString& caption, const FontChoice& font)
{
    if (caption != FontCaption)
        return;
    wordFont = {font.name, font.size, font.color, font.open, font.close};
}

} // namespace brindlemark
