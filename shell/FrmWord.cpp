// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmWord.h"

#include "forms/LongWork.h"
#include "platform/AppPath.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "services/Desktop.h"
#include "services/Messages.h"
#include "services/Profile.h"

namespace brindlemark {

namespace {

QString listFile()
{
    return appFile(DataFile::QuickWords);
}

} // namespace

FrmWord::FrmWord()
{
    setupUi(this);
    const QFontMetrics letters = List1->fontMetrics();
    List1->setMinimumSize(letters.averageCharWidth() * 40, letters.lineSpacing() * 10);
    setCancelButton(Command5);
    LoadList(listFile(), *List1);
    const QString section = QStringLiteral("Quickword");
    const QString key = QStringLiteral("chk");
    // Meant: unlike the other boxes, this one has to be in the file.
    if (ReadProfile(section, key, webIni()).isEmpty())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    setClosingBox(Check1, section, key);

    on(Text1, &QLineEdit::returnPressed, this, &FrmWord::Text1_EnterPressed);
    on(List1, &ListBox::DblClick, this, &FrmWord::List1_DblClick);
    on(Command1, &QPushButton::clicked, this, &FrmWord::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmWord::Command2_Click);
    on(Command3, &QPushButton::clicked, this, &FrmWord::Command3_Click);
    on(Command4, &QPushButton::clicked, this, &FrmWord::Command4_Click);
    on(Command5, &QPushButton::clicked, this, &FrmWord::Unload);
    on(Command6, &QPushButton::clicked, this, &FrmWord::Command6_Click);
}

void FrmWord::addPhrase()
{
    List1->AddItem(Text1->text());
    Text1->clear();
    List1->scrollToBottom();
}

void FrmWord::saveList() const
{
    SaveList(listFile(), *List1);
}

/// Meant for quick notes: takes an empty text too, and leaves saving to the next button that saves.
void FrmWord::Text1_EnterPressed()
{
    addPhrase();
}

void FrmWord::Command1_Click()
{
    if (Text1->text().isEmpty())
        return;
    addPhrase();
    saveList();
}

/// Goes on to the end and saves even if the window is closed meanwhile: the user has said Yes.
void FrmWord::Command2_Click()
{
    if (List1->selectedItems().isEmpty()) {
        showMessage(Messages::NoneSelected);
        return;
    }
    if (!confirmed(Messages::DeleteWord))
        return;
    const LongWork signs;
    EventYield events;
    for (int i = 0; i < List1->ListCount();) {
        if (List1->Selected(i)) {
            List1->RemoveItem(i);
        } else {
            ++i;
        }
        events.serve();
    }
    saveList();
}

void FrmWord::Command3_Click()
{
    if (!confirmed(Messages::DeleteAllWords))
        return;
    List1->Clear();
    saveList();
}

/// Hands the selected phrases to `use` one by one and unselects them, until the window is closed: because its
/// box is ticked, or by the user while events are served. Handlers may change the list meanwhile, so each
/// round asks it anew.
template <typename Use>
void FrmWord::useSelected(Use use)
{
    const LongWork signs;
    EventYield events;
    for (int i = 0; i < List1->ListCount() && !isUnloaded();) {
        if (List1->Selected(i)) {
            use(List1->List(i));
            List1->setSelected(i, false);
        } else {
            ++i;
        }
        events.serve();
    }
}

void FrmWord::Command4_Click()
{
    useSelected([this](const QString& phrase) { addToEditor(phrase, QStringLiteral("Quick Word")); });
}

void FrmWord::Command6_Click()
{
    copySelected();
}

/// Copies the selected phrases one by one: the last one stays on the clipboard.
void FrmWord::copySelected()
{
    useSelected([this](const QString& phrase) {
        copyFragment(phrase);
        repaint();
    });
}

void FrmWord::List1_DblClick()
{
    copySelected();
}

} // namespace brindlemark
