// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/FrmList2.h"

#include "builders/FrmChar.h"
#include "colour/ColorRow.h"
#include "colour/FrmFonts.h"
#include "platform/AppPath.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Codes.h"
#include "services/Messages.h"
#include "services/Profile.h"
#include "shell/FieldSpelling.h"
#include "shell/Icons.h"
#include "shell/ScreenFonts.h"
#include "shell/SurfaceCommands.h"

namespace brindlemark {

namespace {

const QString WordsCaption = QStringLiteral("List Special Character Font");
const QString TitleCaption = QStringLiteral("List Special Character Title Font");
const QString CharacterCaption = QStringLiteral("List Properties Character");

QString titlesFile()
{
    return appFile(DataFile::ListTitles);
}

} // namespace

FrmList2::FrmList2()
{
    setupUi(this);
    checkSpellingIn(Text1);
    for (QPushButton* button : {Command15, Command17})
        button->setIcon(namedIcon("font", this));
    chkBold->setIcon(namedIcon("format-text-bold", this));
    WebBrowser1->setDesignMode(DesignMode::On);
    setCancelButton(Command13, CloseButton::Cancels);
    LoadList(titlesFile(), *TxtTitle);
    TxtTitle->setText(QString());
    setClosingBox(Check3, QStringLiteral("Listpro"), QStringLiteral("chk3"));
    Combo2->setText(QStringLiteral("Normal"));
    m_row = new ColorRow(RedA, GreenA, BlueA, Lcolor1);
    m_row->offerPick();
    showSymbol();

    for (const auto signal : {&ColorRow::Change, &ColorRow::Scroll, &ColorRow::Picked})
        on(m_row, signal, this, &FrmList2::Lcolor1_Change);
    on(chkBold, &CheckBox::Click, this, &FrmList2::refresh);
    on(Check1, &CheckBox::Click, this, &FrmList2::Check1_Click);
    on(Combo2, &ComboBox::Click, this, &FrmList2::Combo2_Click);
    on(TxtTitle, &ComboBox::Change, this, &FrmList2::refresh);
    on(TxtTitle, &ComboBox::Click, this, &FrmList2::refresh);
    on(Text1, &QLineEdit::returnPressed, this, &FrmList2::Text1_EnterPressed);
    on(Command1, &QPushButton::clicked, this, &FrmList2::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmList2::Command2_Click);
    on(Command3, &QPushButton::clicked, this, &FrmList2::Command3_Click);
    on(Command12, &QPushButton::clicked, this, &FrmList2::Command12_Click);
    on(Command13, &QPushButton::clicked, this, &FrmList2::Command13_Click);
    on(Command15, &QPushButton::clicked, this, &FrmList2::Command15_Click);
    on(Command17, &QPushButton::clicked, this, &FrmList2::Command17_Click);
    on(Command18, &QPushButton::clicked, this, &FrmList2::Command18_Click);
    // Windows that an earlier list left open serve this one now.
    if (isLoaded<FrmFonts>())
        fonts();
    if (isLoaded<FrmChar>())
        characters();
    Text1->setFocus();
}

QString FrmList2::ReplaceSize(const ComboBox& combo) const
{
    return QString::fromLatin1(htmlFontSize(combo.Text()));
}

QString FrmList2::GetHexColor(int color) const
{
    return colorText(color);
}

// ---- The symbol ------------------------------------------------------------------------------------------

/// Shows the symbol in its font, size and colour.
void FrmList2::showSymbol()
{
    bool isNumber = false;
    const int points = Combo2->Text().toInt(&isNumber);
    QFont font = LabV->font();
    font.setFamily(m_family);
    font.setPointSize(isNumber ? points : 12);
    LabV->setFont(font);
    showAsOnPage(LabV, Lcolor1->shownColor());
    tellMissingFont(Notice, m_family);
}

void FrmList2::Lcolor1_Change()
{
    showSymbol();
    refresh();
}

void FrmList2::Combo2_Click()
{
    showSymbol();
    refresh();
}

/// The character window, made when first asked for; what the user takes in it comes to this list.
FrmChar* FrmList2::characters()
{
    return heardForm<FrmChar>(m_characters, [this](FrmChar* window) {
        on(window, &FrmChar::taken, this, &FrmList2::FrmChar_taken);
    });
}

void FrmList2::Command1_Click()
{
    characters()->setWindowTitle(CharacterCaption);
    characters()->Show();
}

void FrmList2::FrmChar_taken(const QString& caption, const QString& family, const QString& character)
{
    if (caption != CharacterCaption)
        return;
    m_family = family;
    LabV->setText(character);
    showSymbol();
    refresh();
}

// ---- Fonts -----------------------------------------------------------------------------------------------

/// The font window, made when first asked for; what the user takes in it comes to this list.
FrmFonts* FrmList2::fonts()
{
    return heardForm<FrmFonts>(
        m_fonts, [this](FrmFonts* window) { on(window, &FrmFonts::taken, this, &FrmList2::FrmFonts_taken); });
}

void FrmList2::showFonts(const QString& caption)
{
    fonts()->setWindowTitle(caption);
    fonts()->Show();
}

void FrmList2::Command15_Click()
{
    showFonts(WordsCaption);
}

void FrmList2::Command17_Click()
{
    showFonts(TitleCaption);
}

void FrmList2::FrmFonts_taken(const QString& caption, const FontChoice& font)
{
    if (caption != WordsCaption && caption != TitleCaption)
        return;
    ListFont& target = caption == WordsCaption ? words : title;
    target = {font.name, font.size, font.color, font.open, font.close};
    refresh();
}

// ---- The list --------------------------------------------------------------------------------------------

/// Makes the list anew and shows it.
void FrmList2::refresh()
{
    html = Check1->Value() == 1 ? titleLine(TxtTitle->Text(), title) : QString();
    const ListSymbol symbol{.character = LabV->text(),
                            .font = m_family,
                            .size = ReplaceSize(*Combo2),
                            .color = GetHexColor(Lcolor1->BackColor()),
                            .bold = chkBold->Value() == 1};
    QStringList entries;
    for (int i = 0; i < List1->ListCount(); ++i)
        entries << List1->List(i);
    html += symbolLines(entries, symbol, words);
    WebBrowser1->writeSoon(html);
}

void FrmList2::Check1_Click()
{
    for (QWidget* control : std::initializer_list<QWidget*>{TxtTitle, Command17})
        control->setEnabled(Check1->Value() == 1);
    refresh();
}

void FrmList2::Command3_Click()
{
    addWord();
}

/// An empty word is added too: it makes a line with the symbol alone.
void FrmList2::addWord()
{
    List1->AddItem(Text1->text());
    List1->scrollToBottom();
    Text1->clear();
    refresh();
}

/// Unlike the button, Enter adds no empty word. So meant.
void FrmList2::Text1_EnterPressed()
{
    if (!Text1->text().isEmpty())
        addWord();
}

void FrmList2::Command2_Click()
{
    if (List1->ListCount() == 0 || !confirmed(Messages::ClearCharacterList))
        return;
    List1->Clear();
    WebBrowser1->writeSoon(QString());
}

// ---- What goes out ---------------------------------------------------------------------------------------

void FrmList2::Command12_Click()
{
    if (List1->ListCount() == 0)
        return;
    const QString text = html;
    rememberTitle();
    addToEditor(text, QStringLiteral("List"));
}

/// Puts the title among those to choose from and into their file, whether it is shown or not. An empty one is
/// not kept in the file.
void FrmList2::rememberTitle()
{
    const QString text = TxtTitle->Text();
    for (int i = 0; i < TxtTitle->ListCount(); ++i) {
        if (TxtTitle->List(i) == text) {
            TxtTitle->setListIndex(i);
            return;
        }
    }
    TxtTitle->AddItem(text);
    TxtTitle->setListIndex(TxtTitle->ListCount() - 1);
    SaveList(titlesFile(), *TxtTitle);
}

void FrmList2::Command18_Click()
{
    if (List1->ListCount() > 0)
        copyFragment(html);
}

void FrmList2::Command13_Click()
{
    if (List1->ListCount() == 0 || confirmed(Messages::CancelTool))
        Unload();
}

} // namespace brindlemark
