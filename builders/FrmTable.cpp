// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/FrmTable.h"

#include "builders/TableReadBack.h"
#include "colour/ColorRow.h"
#include "colour/FrmAutoColor.h"
#include "forms/CaptionBox.h"
#include "forms/LeadTo.h"
#include "platform/AppPath.h"
#include "platform/Conversion.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "services/Codes.h"
#include "services/Messages.h"
#include "services/Profile.h"
#include "shell/FieldSpelling.h"
#include "shell/Icons.h"
#include "shell/SavedTitles.h"
#include "shell/ScreenFonts.h"
#include "shell/SurfaceCommands.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <utility>
#include <variant>

namespace brindlemark {

namespace {

using U = Ui::FrmTable;

/// A colour row: its bars, its sample, where its colour text is kept, and its first colour.
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

/// In the order of `Row`.
constexpr std::array<RowControls, 4> Rows = {{
    {&U::RedA, &U::GreenA, &U::BlueA, &U::BColor1, &FrmTable::borderColor, 0},
    {&U::RedH, &U::GreenH, &U::BlueH, &U::TbColor1, &FrmTable::tableColor, 0},
    {&U::RedI, &U::GreenI, &U::BlueI, &U::TbColor2, &FrmTable::cellColor, White},
    {&U::RedG, &U::GreenG, &U::BlueG, &U::FColor1, &FrmTable::fontColor, 0},
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
    {&U::chkBold, "format-text-bold", &CellStyle::bold, &TableReadBack::Styles::bold},
    {&U::chkItalic, "format-text-italic", &CellStyle::italic, &TableReadBack::Styles::italic},
    {&U::chkUnderline, "format-text-underline", &CellStyle::underline, &TableReadBack::Styles::underline},
}};

TableAlign chosen(const U& controls, const AlignOptions& options)
{
    for (size_t i = 0; i < options.size(); ++i) {
        if ((controls.*options.at(i).option)->Value())
            return TableAlign(i);
    }
    return TableAlign::Left; // never reached: one of them is always set
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
    return appFile(DataFile::TableSets);
}

QString titlesFile()
{
    return appFile(DataFile::TableTitles);
}

/// A number of a saved set; 0 where it is missing, no number, or out of range, so that the user still gets
/// the rest of the set.
int savedNumber(const QString& text)
try {
    return toInteger32(text);
} catch (const RuntimeError&) {
    return 0;
}

/// Overloads made of lambdas, one for each type of a variant, for `std::visit`.
template <typename... Functions>
struct Overloaded : Functions...
{
    using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

} // namespace

/// A key of a saved set and what it keeps.
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
    {"TxtAuto", &FrmTable::firstColor},
    {"TxtAuto2", &FrmTable::secondColor},
    {"Check1", &U::Check1},
    {"Checkborder", &U::ChkNoB},
}};

FrmTable::FrmTable()
{
    setupUi(this);
    checkSpellingIn(Text1);
    checkSpellingIn(Text2);
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
    addScreenFonts(*Combo7, 1); // without the system's first; users know the list so
    Combo7->setText(QStringLiteral("Arial"));
    Combo6->setText(QStringLiteral("Normal"));
    connectHandlers();
    if (isLoaded<FrmAutoColor>()) // left open by an earlier table: it serves this one now
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
        // So meant: a bar's arrow only keeps the colour for the next refresh, while a drag refreshes at once.
        on(row, &ColorRow::Scroll, this, &FrmTable::restyle);
    }
}

void FrmTable::connectHandlers()
{
    // These are also set by code, when the look of a cell is shown, which must make no table: so they are
    // heard when the hand lets them go.
    for (const AlignOption& entry : CellOptions)
        on(this->*entry.option, &OptionButton::MouseUp, this, &FrmTable::restyle);
    for (const StyleBox& entry : StyleBoxes)
        on(this->*entry.box, &CheckBox::MouseUp, this, &FrmTable::restyle);
    for (const AlignOption& entry : TableOptions)
        on(this->*entry.option, &OptionButton::Click, this, &FrmTable::restyle);
    for (ComboBox* combo : {Combo6, Combo7})
        on(combo, &ComboBox::Click, this, &FrmTable::restyle);
    const QString percent = QStringLiteral("%");
    HScroll1->writeInto(Combo2);
    HScroll2->writeInto(Combo4);
    HScroll3->writeInto(Combo3);
    HScroll4->writeInto(Combo9, percent);
    HScroll5->writeInto(Combo8, percent);
    HScroll6->writeInto(TxWid);
    HScroll7->writeInto(TxHei);
    for (ScrollBar* bar : {HScroll1, HScroll2, HScroll3, HScroll4, HScroll5, HScroll6, HScroll7})
        on(bar, &ScrollBar::Change, this, &FrmTable::restyle);
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
        addRow();
        Text1->setFocus();
    });
    for (QLineEdit* box : {Text1, Text2})
        box->installEventFilter(this);

    Combo1->setChoiceActs();
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
    addRow();
}

/// Adds the typed words as a row, or says why it can't be.
void FrmTable::addRow()
{
    const QString left = Text1->text();
    const QString right = Text2->text();
    if (left.isEmpty()) {
        showMessage(right.isEmpty() ? Messages::NoTableWord : Messages::FirstBoxFirst);
        leadTo(Text1);
        return;
    }
    const RowCells row = rowCells(cellStyle(), cellColor, left, right);
    leftCells += row.left;
    rightCells += row.right;
    List1->AddItem(left);
    List2->AddItem(right);
    for (ListBox* list : {List1, List2})
        list->scrollToBottom();
    refresh();
    Text1->clear();
    Text2->clear();
}

void FrmTable::Command5_Click()
{
    if (!confirmed(Messages::ClearTable))
        return;
    List1->Clear();
    List2->Clear();
    leftCells.clear();
    rightCells.clear();
    html.clear();
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
        showSelectedLook();
}

/// While the look is for all rows, a click on a word shows its look and leaves nothing selected.
void FrmTable::List_MouseUp(ListBox* list)
{
    if (allRows)
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

/// A click into a box for a word takes the selection in the lists away.
bool FrmTable::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::MouseButtonRelease && (watched == Text1 || watched == Text2) &&
            static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            guarded([this] { deselectAll(); });
        return ToolForm::eventFilter(watched, event);
    });
}

/// Shows the look of the selected cell in the controls.
void FrmTable::showSelectedLook()
{
    QString cell;
    if (const int left = List1->ListIndex(); left >= 0)
        cell = leftCells.value(left);
    if (const int right = List2->ListIndex(); right >= 0)
        cell = rightCells.value(right);
    if (cell.isEmpty())
        return; // nothing is selected, or the missing right word of a row
    const TableReadBack look = readBack(cell);
    if (look.cellColor)
        showRowColor(I, parseColor(*look.cellColor));
    if (look.width)
        TxWid->setText(*look.width);
    if (look.height)
        TxHei->setText(*look.height);
    if (look.align)
        (this->*CellOptions.at(size_t(*look.align)).option)->setValue(true);
    if (look.styles) {
        for (const StyleBox& entry : StyleBoxes)
            (this->*entry.box)->setValue((*look.styles).*entry.readBack ? 1 : 0);
    }
    if (look.fontFace)
        Combo7->setText(*look.fontFace);
    if (look.sizeText)
        Combo6->setText(*look.sizeText);
    if (look.fontColor)
        showRowColor(G, parseColor(*look.fontColor));
}

// ---- The look --------------------------------------------------------------------------------------------

CellStyle FrmTable::cellStyle() const
{
    CellStyle style{
        .align = chosen(*this, CellOptions),
        .fontFace = Combo7->Text(),
        .size = QString::fromLatin1(htmlFontSize(Combo6->Text())),
        .fontColor = fontColor,
        .width = TxWid->text(),
        .height = TxHei->text(),
    };
    for (const StyleBox& entry : StyleBoxes)
        style.*entry.setting = (this->*entry.box)->Value() == 1;
    return style;
}

TableStyle FrmTable::tableStyle() const
{
    return {
        .align = chosen(*this, TableOptions),
        .borderColored = ChkNoB->Value() == 1,
        .borderColor = borderColor,
        .background = tableColor,
        .border = Combo2->text(),
        .cellSpacing = Combo4->text(),
        .cellPadding = Combo3->text(),
        .width = Combo9->text(),
        .height = Combo8->text(),
    };
}

void FrmTable::restyle()
{
    if (allRows) {
        restyleAll({cellColor});
    } else {
        restyleSelected();
    }
    refresh();
}

void FrmTable::restyleAll(const QStringList& colors)
{
    TableCells cells = tableCells(words(), cellStyle(), colors);
    leftCells = std::move(cells.left);
    rightCells = std::move(cells.right);
}

/// Unlike `restyleAll`, this closes the style tags behind the word. So meant.
void FrmTable::restyleSelected()
{
    const CellStyle style = cellStyle();
    const QString close = styleTags(style, "</");
    if (const int left = List1->ListIndex(); left >= 0)
        leftCells[left] = rowCells(style, cellColor, List1->List(left), List2->List(left)).left + close;
    if (const int right = List2->ListIndex(); right >= 0 && !List2->List(right).isEmpty())
        rightCells[right] = cellOpen(style, cellColor, false) + List2->List(right) + close;
}

/// Makes the table anew, with two cell colours if wanted, and shows it.
void FrmTable::refresh()
{
    if (Check1->Value() == 1)
        restyleAll({firstColor, secondColor});
    html = tableText({leftCells, rightCells}, tableStyle());
    WebBrowser1->writeSoon(html);
}

void FrmTable::ChkNoB_Click()
{
    for (ScrollBar* bar : {RedA, GreenA, BlueA})
        bar->setEnabled(ChkNoB->Value() == 1);
    restyle();
}

void FrmTable::enableCellColor(bool enabled)
{
    for (ScrollBar* bar : {RedI, GreenI, BlueI})
        bar->setEnabled(enabled);
}

/// Opens the window of the two colours. The table takes them when the user presses OK there.
void FrmTable::Check1_Click()
{
    const bool twoColors = Check1->Value() == 1;
    if (twoColors)
        autoColor()->Show();
    Frame6->setEnabled(!twoColors);
    enableCellColor(!twoColors);
    if (!twoColors)
        restyle();
}

/// The window of the two colours, made when first asked for; what the user takes in it comes to this table.
FrmAutoColor* FrmTable::autoColor()
{
    return heardForm<FrmAutoColor>(m_autoColor, [this](FrmAutoColor* colors) {
        on(colors, &FrmAutoColor::taken, this, &FrmTable::autoColor_taken);
        on(colors, &FrmAutoColor::unloading, this, [this] { Check1->setValue(0); });
    });
}

void FrmTable::autoColor_taken(const QString& first, const QString& second)
{
    firstColor = first;
    secondColor = second;
    Check1->setValue(1);
    enableCellColor(false);
    refresh();
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
    showMessage(Messages::NoWordToAdd);
    leadTo(Text1);
    return false;
}

void FrmTable::Command2_Click()
{
    if (hasWords())
        addToEditor(html, QStringLiteral("Table"));
}

void FrmTable::Command8_Click()
{
    if (hasWords())
        copyFragment(html);
}

void FrmTable::Command3_Click()
{
    const bool empty = List1->ListCount() == 0 && List2->ListCount() == 0;
    if (empty || confirmed(Messages::CancelTool))
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

/// The bars of the sizes stay where they are. So meant: the next one that moves writes its own value over the
/// size of the set.
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
    restyle();
}

/// Gives the two colours of a set to their window, and hides that: the user need not confirm them.
void FrmTable::bringAutoColorInLine()
{
    autoColor()->setColors(parseColor(firstColor), parseColor(secondColor));
    autoColor()->Hide();
}

} // namespace brindlemark
