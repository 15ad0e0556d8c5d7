// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/FrmTable.h"

#include "builders/TableReadBack.h"
#include "colour/ColorRow.h"
#include "colour/FrmAutoColor.h"
#include "forms/CaptionBox.h"
#include "platform/AppPath.h"
#include "platform/Conversion.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "services/Codes.h"
#include "services/Profile.h"
#include "shell/Icons.h"
#include "shell/SavedTitles.h"
#include "shell/ScreenFonts.h"
#include "shell/SurfaceCommands.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <utility>
#include <variant>

namespace {

using U = Ui::FrmTable;

struct RowControls
{
    ScrollBar* U::*red;
    ScrollBar* U::*green;
    ScrollBar* U::*blue;
    ColorSample* U::*sample;
    QString FrmTable::*text;
    int color;
};

constexpr int White = 0xFFFFFF;

constexpr std::array<RowControls, 4> Rows = {{
    {&U::RedA, &U::GreenA, &U::BlueA, &U::BColor1, &FrmTable::Text4, 0},
    {&U::RedH, &U::GreenH, &U::BlueH, &U::TbColor1, &FrmTable::Text13, 0},
    {&U::RedI, &U::GreenI, &U::BlueI, &U::TbColor2, &FrmTable::Text17, White},
    {&U::RedG, &U::GreenG, &U::BlueG, &U::FColor1, &FrmTable::Text8, 0},
}};

struct AlignOption
{
    OptionButton* U::*option;
    const char* icon;
    const char* word; ///< in saved sets
};

/// In the order of `TableAlign`.
using AlignOptions = std::array<AlignOption, 3>;

constexpr AlignOptions TableOptions = {{
    {&U::Option4, "format-justify-left", "Left"},
    {&U::Option5, "format-justify-center", "Center"},
    {&U::Option6, "format-justify-right", "Right"},
}};

constexpr AlignOptions CellOptions = {{
    {&U::Option1, "format-justify-left", "Left"},
    {&U::Option2, "format-justify-center", "Center"},
    {&U::Option3, "format-justify-right", "Right"},
}};

struct StyleBox
{
    CheckBox* U::*box;
    const char* icon;
    bool CellStyle::*setting;
    bool TableReadBack::Styles::*readBack;
};

constexpr std::array<StyleBox, 3> StyleBoxes = {{
    {&U::chkBold, "format-text-bold", &CellStyle::chkBold, &TableReadBack::Styles::bold},
    {&U::chkItalic, "format-text-italic", &CellStyle::chkItalic, &TableReadBack::Styles::italic},
    {&U::chkUnderline, "format-text-underline", &CellStyle::chkUnderline, &TableReadBack::Styles::underline},
}};

TableAlign chosen(const U& controls, const AlignOptions& options)
{
    for (size_t i = 0; i < options.size(); ++i) {
        if ((controls.*options.at(i).option)->Value())
            return TableAlign(i);
    }
    return TableAlign::Left; // one of them is always set
}

QStringList entries(const ListBox& list)
{
    QStringList texts;
    texts.reserve(list.ListCount());
    for (int i = 0; i < list.ListCount(); ++i)
        texts += list.List(i);
    return texts;
}

QString setsFile()
{
    return appFile(QStringLiteral("\\Table.ini"));
}

QString titlesFile()
{
    return appFile(QStringLiteral("\\Table2.ini"));
}

/// A number of a saved set; 0 where it is missing, none, or out of range: the user gets the rest of the set.
int savedNumber(const QString& text)
try {
    return toInteger32(text);
} catch (const RuntimeError&) {
    return 0;
}

/// A function for each kind of a variant.
template <typename... Functions>
struct Overloaded : Functions...
{
    using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

void information(const QString& prompt)
{
    MsgBox(prompt, QStringLiteral("Information"), MsgIcon::Information);
}

} // namespace

/// A key of a saved set and the control that it is kept for.
struct FrmTable::SavedKey
{
    const char* key;
    std::variant<Row, QLineEdit * U::*, ComboBox * U::*, CheckBox * U::*, QString FrmTable::*,
                 const AlignOptions*>
        holder;
};

/// In the order of writing and reading.
const std::array<FrmTable::SavedKey, 22> FrmTable::SavedKeys = {{
    {"Borde", A},
    {"BGC", H},
    {"Border", &U::Combo2},
    {"Cell_S", &U::Combo4},
    {"Cell_P", &U::Combo3},
    {"Theight", &U::Combo8},
    {"Twidth", &U::Combo9},
    {"TLCR", &TableOptions},
    {"Cell", I},
    {"Font", G},
    {"Fheight", &U::TxHei},
    {"Fwidth", &U::TxWid},
    {"FontFace", &U::Combo7},
    {"Fontsize", &U::Combo6},
    {"Bold", &U::chkBold},
    {"Italic", &U::chkItalic},
    {"Underline", &U::chkUnderline},
    {"FLCR", &CellOptions},
    {"TxtAuto", &FrmTable::TxtAuto},
    {"TxtAuto2", &FrmTable::TxtAuto2},
    {"Check1", &U::Check1},
    {"Checkborder", &U::ChkNoB},
}};

FrmTable::FrmTable()
{
    setupUi(this);
    putOnCaption(ChkNoB, Frame1);
    for (const StyleBox& entry : StyleBoxes)
        (this->*entry.box)->setIcon(namedIcon(entry.icon, this));
    for (const AlignOptions& options : {TableOptions, CellOptions}) {
        for (const AlignOption& entry : options)
            (this->*entry.option)->setIcon(namedIcon(entry.icon, this));
    }
    Combo1->showPlaceholderClearly();
    setCancelButton(Command3, CloseButton::Cancels);

    setClosingBox(Check3, QStringLiteral("Tablepro"), QStringLiteral("chk3"));
    LoadList(titlesFile(), *Combo1);
    connectRows();
    addScreenFonts(*Combo7, 1); // the first is left out
    Combo7->setText(QStringLiteral("Arial"));
    Combo6->setText(QStringLiteral("Normal"));
    connectHandlers();
    if (isLoaded<FrmAutoColor>()) // left open by an earlier table
        autoColor();
    Text1->setFocus();
}

void FrmTable::connectRows()
{
    for (size_t i = 0; i < Rows.size(); ++i) {
        const RowControls& controls = Rows.at(i);
        auto* row = new ColorRow(this->*controls.red, this->*controls.green, this->*controls.blue,
                                 this->*controls.sample);
        m_rows.at(i) = row;
        row->keepText(&(this->*controls.text));
        row->setColor(controls.color);
        row->RowHexRefresh();
        row->moveBars();
        // An arrow changes the colour alone, which the table takes when it is next made; a drag is followed.
        on(row, &ColorRow::Scroll, this, &FrmTable::Command9_Click);
    }
}

void FrmTable::connectHandlers()
{
    // A set by code, as when a row's look is read, makes no table: only the hand's release does.
    for (const AlignOption& entry : CellOptions)
        on(this->*entry.option, &OptionButton::MouseUp, this, &FrmTable::Command9_Click);
    for (const StyleBox& entry : StyleBoxes)
        on(this->*entry.box, &CheckBox::MouseUp, this, &FrmTable::Command9_Click);
    for (const AlignOption& entry : TableOptions)
        on(this->*entry.option, &OptionButton::Click, this, &FrmTable::Command9_Click);
    for (ComboBox* combo : {Combo6, Combo7})
        on(combo, &ComboBox::Click, this, &FrmTable::Command9_Click);
    const QString percent = QStringLiteral("%");
    HScroll1->writeInto(Combo2);
    HScroll2->writeInto(Combo4);
    HScroll3->writeInto(Combo3);
    HScroll4->writeInto(Combo9, percent);
    HScroll5->writeInto(Combo8, percent);
    HScroll6->writeInto(TxWid);
    HScroll7->writeInto(TxHei);
    for (ScrollBar* bar : {HScroll1, HScroll2, HScroll3, HScroll4, HScroll5, HScroll6, HScroll7})
        on(bar, &ScrollBar::Change, this, &FrmTable::Command9_Click);
    on(ChkNoB, &CheckBox::Click, this, &FrmTable::ChkNoB_Click);
    on(Check1, &CheckBox::Click, this, &FrmTable::Check1_Click);

    for (const auto& [list, other] : {std::pair(List1, List2), std::pair(List2, List1)}) {
        on(list, &ListBox::Click, this, [this, list = list] { List_Click(*list); });
        on(list, &ListBox::MouseDown, this, [this, other = other] { deselect(other); });
        on(list, &ListBox::MouseUp, this, [this, list = list] { List_MouseUp(list); });
    }
    for (const auto& [bar, other] : {std::pair(List1->verticalScrollBar(), List2->verticalScrollBar()),
                                     std::pair(List2->verticalScrollBar(), List1->verticalScrollBar())})
        connect(bar, &QScrollBar::valueChanged, other, &QScrollBar::setValue);
    on(Text1, &QLineEdit::returnPressed, this, &FrmTable::Command4_Click);
    on(Text2, &QLineEdit::returnPressed, this, [this] {
        Command4_Click();
        Text1->setFocus();
    });
    for (QLineEdit* box : {Text1, Text2})
        box->installEventFilter(this);

    on(Combo1, &ComboBox::Click, this, &FrmTable::Combo1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmTable::Command2_Click);
    on(Command3, &QPushButton::clicked, this, &FrmTable::Command3_Click);
    on(Command4, &QPushButton::clicked, this, &FrmTable::Command4_Click);
    on(Command5, &QPushButton::clicked, this, &FrmTable::Command5_Click);
    on(Command7, &QPushButton::clicked, this, &FrmTable::Command7_Click);
    on(Command8, &QPushButton::clicked, this, &FrmTable::Command8_Click);
}

// ---- Words -----------------------------------------------------------------------------------------------

void FrmTable::Command4_Click()
{
    const QString left = Text1->text();
    const QString right = Text2->text();
    if (left.isEmpty()) {
        information(right.isEmpty() ? QStringLiteral("Cannot add without word.")
                                    : QStringLiteral("Have to use in first box."));
        return;
    }
    const RowCells row = rowCells(cellStyle(), Text17, left, right);
    LS1 += row.left;
    LS2 += row.right;
    List1->AddItem(left);
    List2->AddItem(right);
    for (ListBox* list : {List1, List2})
        list->scrollToBottom();
    Command13_Click();
    Text1->clear();
    Text2->clear();
}

void FrmTable::Command5_Click()
{
    if (MsgBox(QStringLiteral("Are you sure you wish list clear ?"), QStringLiteral("List Clear?"),
               MsgIcon::Information, MsgButtons::NoYes) != MsgAnswer::Yes)
        return;
    List1->Clear();
    List2->Clear();
    LS1.clear();
    LS2.clear();
    RichTextBox2.clear();
    WebBrowser1->writeSoon(QString());
}

TableWords FrmTable::words() const
{
    return {entries(*List1), entries(*List2)};
}

// ---- Selection -------------------------------------------------------------------------------------------

void FrmTable::List_Click(const ListBox& list)
{
    if (list.ListIndex() >= 0)
        Command14_Click();
}

/// While the look is for all rows, a click on a word only fetches its look.
void FrmTable::List_MouseUp(ListBox* list)
{
    if (Opt1)
        deselect(list);
}

void FrmTable::deselect(ListBox* list)
{
    list->setListIndex(-1);
}

void FrmTable::deselectAll()
{
    deselect(List1);
    deselect(List2);
}

/// A click into a box for a word drops the selection.
bool FrmTable::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::MouseButtonRelease && (watched == Text1 || watched == Text2) &&
            static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            guarded([this] { deselectAll(); });
        return ToolForm::eventFilter(watched, event);
    });
}

void FrmTable::Command14_Click()
{
    QString cell;
    if (const int left = List1->ListIndex(); left >= 0)
        cell = LS1.value(left);
    if (const int right = List2->ListIndex(); right >= 0)
        cell = LS2.value(right);
    if (cell.isEmpty())
        return; // nothing is selected, or the place beside a row of one word
    const TableReadBack look = readBack(cell);
    if (look.cellColor)
        showRowColor(I, parseColor(*look.cellColor));
    if (look.TxWid)
        TxWid->setText(*look.TxWid);
    if (look.TxHei)
        TxHei->setText(*look.TxHei);
    if (look.align)
        (this->*CellOptions.at(size_t(*look.align)).option)->setValue(true);
    if (look.styles) {
        for (const StyleBox& entry : StyleBoxes)
            (this->*entry.box)->setValue((*look.styles).*entry.readBack ? 1 : 0);
    }
    if (look.Combo7)
        Combo7->setText(*look.Combo7);
    if (look.Combo6)
        Combo6->setText(*look.Combo6);
    if (look.fontColor)
        showRowColor(G, parseColor(*look.fontColor));
}

// ---- The look --------------------------------------------------------------------------------------------

CellStyle FrmTable::cellStyle() const
{
    CellStyle style{
        .align = chosen(*this, CellOptions),
        .Combo7 = Combo7->Text(),
        .size = QString::fromLatin1(htmlFontSize(Combo6->Text())),
        .Text8 = Text8,
        .TxWid = TxWid->text(),
        .TxHei = TxHei->text(),
    };
    for (const StyleBox& entry : StyleBoxes)
        style.*entry.setting = (this->*entry.box)->Value() == 1;
    return style;
}

TableStyle FrmTable::tableStyle() const
{
    return {
        .align = chosen(*this, TableOptions),
        .ChkNoB = ChkNoB->Value() == 1,
        .Text4 = Text4,
        .Text13 = Text13,
        .Combo2 = Combo2->text(),
        .Combo4 = Combo4->text(),
        .Combo3 = Combo3->text(),
        .Combo9 = Combo9->text(),
        .Combo8 = Combo8->text(),
    };
}

void FrmTable::Command9_Click()
{
    if (Opt1) {
        restyleAll({Text17});
    } else {
        restyleSelected();
    }
    Command13_Click();
}

void FrmTable::restyleAll(const QStringList& colors)
{
    TableCells cells = tableCells(words(), cellStyle(), colors);
    LS1 = std::move(cells.LS1);
    LS2 = std::move(cells.LS2);
}

/// Here the style tags are closed behind the word.
void FrmTable::restyleSelected()
{
    const CellStyle style = cellStyle();
    const QString close = styleTags(style, "</");
    if (const int left = List1->ListIndex(); left >= 0)
        LS1[left] = rowCells(style, Text17, List1->List(left), List2->List(left)).left + close;
    if (const int right = List2->ListIndex(); right >= 0 && !List2->List(right).isEmpty())
        LS2[right] = cellOpen(style, Text17, false) + List2->List(right) + close;
}

void FrmTable::Command13_Click()
{
    if (Check1->Value() == 1)
        restyleAll({TxtAuto, TxtAuto2});
    RichTextBox2 = tableText({LS1, LS2}, tableStyle());
    WebBrowser1->writeSoon(RichTextBox2);
}

void FrmTable::ChkNoB_Click()
{
    for (ScrollBar* bar : {RedA, GreenA, BlueA})
        bar->setEnabled(ChkNoB->Value() == 1);
    Command9_Click();
}

void FrmTable::enableCellColor(bool enabled)
{
    for (ScrollBar* bar : {RedI, GreenI, BlueI})
        bar->setEnabled(enabled);
}

/// The two colours come when the user has taken them in the window that opens here.
void FrmTable::Check1_Click()
{
    const bool twoColors = Check1->Value() == 1;
    if (twoColors)
        autoColor()->Show();
    Frame6->setEnabled(!twoColors);
    enableCellColor(!twoColors);
    if (!twoColors)
        Command9_Click();
}

/// The window of the two colours, whose words reach this table.
FrmAutoColor* FrmTable::autoColor()
{
    return heardForm<FrmAutoColor>(m_autoColor, [this](FrmAutoColor* colors) {
        on(colors, &FrmAutoColor::taken, this, &FrmTable::autoColor_taken);
        on(colors, &FrmAutoColor::unloading, this, [this] { Check1->setValue(0); });
    });
}

void FrmTable::autoColor_taken(const QString& first, const QString& second)
{
    TxtAuto = first;
    TxtAuto2 = second;
    Check1->setValue(1);
    enableCellColor(false);
    Command13_Click();
}

void FrmTable::showRowColor(Row row, int color)
{
    m_rows.at(row)->setColor(color);
    m_rows.at(row)->moveBars();
}

// ---- What goes out ---------------------------------------------------------------------------------------

bool FrmTable::hasWords()
{
    if (List1->ListCount() > 0)
        return true;
    MsgBox(QStringLiteral("Cannot add to editor because no word."), QStringLiteral("Error"),
           MsgIcon::Information);
    return false;
}

void FrmTable::Command2_Click()
{
    if (hasWords())
        addToEditor(RichTextBox2);
}

void FrmTable::Command8_Click()
{
    if (hasWords())
        copyFragment(RichTextBox2);
}

void FrmTable::Command3_Click()
{
    const bool empty = List1->ListCount() == 0 && List2->ListCount() == 0;
    if (empty || MsgBox(QStringLiteral("Are you sure you wish cancel it ?"), QStringLiteral("Information"),
                        MsgIcon::Information, MsgButtons::YesNo) == MsgAnswer::Yes)
        Unload();
}

// ---- Saved sets ------------------------------------------------------------------------------------------

void FrmTable::Command7_Click()
{
    const QString title =
        askForTitle(*Combo1, titlesFile(), QStringLiteral("Enter the title."), QStringLiteral("Save Title"));
    if (!title.isEmpty())
        saveSet(title);
}

void FrmTable::Combo1_Click()
{
    loadSet(Combo1->Text());
}

void FrmTable::saveSet(const QString& title)
{
    const Overloaded saved{
        [this](Row row) { return fromNumber(m_rows.at(row)->color()); },
        [this](QLineEdit* U::*box) { return (this->*box)->text(); },
        [this](ComboBox* U::*combo) { return (this->*combo)->Text(); },
        [this](CheckBox* U::*box) { return fromNumber((this->*box)->Value()); },
        [this](QString FrmTable::*text) { return this->*text; },
        [this](const AlignOptions* options) {
            return QString::fromLatin1(options->at(size_t(chosen(*this, *options))).word);
        },
    };
    QList<ProfileValue> values;
    for (const SavedKey& entry : SavedKeys)
        values << ProfileValue{title, QString::fromLatin1(entry.key), std::visit(saved, entry.holder)};
    WriteProfile(values, setsFile());
}

/// The bars of the sizes stay where they are: the next one that moves takes its size back.
void FrmTable::loadSet(const QString& title)
{
    QString value;
    const Overloaded load{
        [&](Row row) { showRowColor(row, savedNumber(value)); },
        [&](QLineEdit* U::*box) { (this->*box)->setText(value); },
        [&](ComboBox* U::*combo) { (this->*combo)->setText(value); },
        [&](CheckBox* U::*box) { (this->*box)->setValue(savedNumber(value) == 1 ? 1 : 0); },
        [&](QString FrmTable::*text) { this->*text = value; },
        [&](const AlignOptions* options) {
            for (const AlignOption& entry : *options) {
                if (value == QLatin1String(entry.word))
                    (this->*entry.option)->setValue(true);
            }
        },
    };
    const Profile sets(setsFile());
    for (const SavedKey& entry : SavedKeys) {
        if (&entry == &SavedKeys.back())
            bringAutoColorInLine();
        value = sets.value(title, QString::fromLatin1(entry.key));
        std::visit(load, entry.holder);
    }
    Command9_Click();
}

/// A set's two colours need no confirming: their window takes them, and goes if `Check1` has brought it up.
void FrmTable::bringAutoColorInLine()
{
    autoColor()->setColors(parseColor(TxtAuto), parseColor(TxtAuto2));
    autoColor()->Hide();
}
