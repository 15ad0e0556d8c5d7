// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/Fader5.h"

#include "colour/ColorRow.h"
#include "colour/ColorSample.h"
#include "colour/Fade.h"
#include "forms/CaptionBox.h"
#include "forms/LeadTo.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/PlainText.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"
#include "shell/FieldSpelling.h"
#include "shell/Icons.h"
#include "shell/ListingEditor.h"
#include "shell/ScreenFonts.h"
#include "shell/SurfaceCommands.h"
#include "web/DocumentSurface.h"

namespace brindlemark {

namespace {

const QString Section = QStringLiteral("Fontpro");

/// A colour row: its bars, its sample, and where its colour text is kept.
struct RowControls
{
    ScrollBar* Ui::Fader5::*red;
    ScrollBar* Ui::Fader5::*green;
    ScrollBar* Ui::Fader5::*blue;
    ColorSample* Ui::Fader5::*sample;
    QString Fader5::*text = nullptr;
};

using U = Ui::Fader5;

/// The most characters that the fade engine takes.
constexpr qsizetype Longest = 32767;

/// In the order of `Row`.
constexpr std::array<RowControls, 12> Rows = {{
    {&U::RedG, &U::GreenG, &U::BlueG, &U::FColor1, &Fader5::textColor},
    {&U::RedX, &U::GreenX, &U::BlueX, &U::ColorX, &Fader5::firstColor},
    {&U::RedZ, &U::GreenZ, &U::BlueZ, &U::ColorZ, &Fader5::secondColor},
    {&U::RedA, &U::GreenA, &U::BlueA, &U::Color1},
    {&U::RedB, &U::GreenB, &U::BlueB, &U::color2},
    {&U::RedC, &U::GreenC, &U::BlueC, &U::color3},
    {&U::RedD, &U::GreenD, &U::BlueD, &U::color4},
    {&U::RedE, &U::GreenE, &U::BlueE, &U::Color5},
    {&U::RedF, &U::GreenF, &U::BlueF, &U::Hcolor1, &Fader5::highlightColor},
    {&U::RedH, &U::GreenH, &U::BlueH, &U::TbColor1, &Fader5::tableColor},
    {&U::RedI, &U::GreenI, &U::BlueI, &U::TbColor2, &Fader5::cellColor},
    {&U::RedJ, &U::GreenJ, &U::BlueJ, &U::BColor1, &Fader5::borderColor},
}};

/// A bar that writes its value into a box, with a unit behind the number.
struct NumberBar
{
    ScrollBar* U::*bar;
    QLineEdit* U::*box;
    const char* unit;
};

constexpr std::array<NumberBar, 5> NumberBars = {{
    {&U::HScroll1, &U::Combo6, ""},
    {&U::HScroll2, &U::Combo3, ""},
    {&U::HScroll3, &U::Combo5, ""},
    {&U::HScroll4, &U::Combo9, "%"},
    {&U::HScroll5, &U::Combo8, "%"},
}};

struct StyleBox
{
    CheckBox* U::*box;
    const char* icon;
    bool FaderSettings::*setting;
};

constexpr std::array<StyleBox, 4> StyleBoxes = {{
    {&U::chkBold, "format-text-bold", &FaderSettings::bold},
    {&U::chkItalic, "format-text-italic", &FaderSettings::italic},
    {&U::chkUnderline, "format-text-underline", &FaderSettings::underline},
    {&U::chkStrikeout, "format-text-strikethrough", &FaderSettings::strikeout},
}};

/// An option that places the table, or the text in its cell.
struct AlignOption
{
    OptionButton* U::*option;
    const char* icon;
    FaderAlign align;
};

constexpr std::array<AlignOption, 3> TableOptions = {{
    {&U::Option6, "format-justify-left", FaderAlign::Left},
    {&U::Option5, "format-justify-center", FaderAlign::Center},
    {&U::Option4, "format-justify-right", FaderAlign::Right},
}};

constexpr std::array<AlignOption, 3> CellOptions = {{
    {&U::Option1, "format-justify-left", FaderAlign::Left},
    {&U::Option2, "format-justify-center", FaderAlign::Center},
    {&U::Option3, "format-justify-right", FaderAlign::Right},
}};

FaderAlign chosen(const U& controls, const std::array<AlignOption, 3>& options)
{
    for (const AlignOption& entry : options) {
        if ((controls.*entry.option)->Value())
            return entry.align;
    }
    return FaderAlign::None;
}

} // namespace

Fader5::Fader5()
{
    setupUi(this);
    checkSpellingIn(Text1);
    putOnCaption(Check1, Frame2);
    putOnCaption(Check7, Frame4);
    putOnCaption(ChkNoB, Frame7);
    for (const StyleBox& entry : StyleBoxes)
        (this->*entry.box)->setIcon(namedIcon(entry.icon, this));
    for (const auto& options : {TableOptions, CellOptions}) {
        for (const AlignOption& entry : options)
            (this->*entry.option)->setIcon(namedIcon(entry.icon, this));
    }
    giveWay(WebBrowser1, 64);
    setCancelButton(Command7);

    keepInSettings(Check2, Section, QStringLiteral("chk"));
    setClosingBox(Check3, Section, QStringLiteral("chk2"));
    connectRows();
    fade();
    refreshColorTexts();
    addScreenFonts(*Combo1, 0);
    Combo1->setText(QStringLiteral("Arial"));
    Combo2->setText(QStringLiteral("Normal"));
    enableModes();
    enableTable(false);
    connectHandlers();
    takeMarkedText();
    Text1->setFocus();
}

void Fader5::connectRows()
{
    for (size_t i = 0; i < Rows.size(); ++i) {
        const RowControls& controls = Rows.at(i);
        auto* row = new ColorRow(this->*controls.red, this->*controls.green, this->*controls.blue,
                                 this->*controls.sample);
        if (controls.text)
            row->keepText(&(this->*controls.text));
        row->offerPick();
        on(row, &ColorRow::Change, this, &Fader5::refresh);
        on(row, &ColorRow::Scroll, this, &Fader5::refresh);
        on(row, &ColorRow::Picked, this, &Fader5::refresh);
        m_rows.at(i) = row;
    }
}

void Fader5::connectHandlers()
{
    on(Text1, &QPlainTextEdit::textChanged, this, &Fader5::Text1_Change);
    on(Check4, &CheckBox::Click, this, &Fader5::fade); // so meant: the sample shows it at its next refresh
    for (const StyleBox& entry : StyleBoxes)
        on(this->*entry.box, &CheckBox::Click, this, &Fader5::refresh);
    on(Combo1, &ComboBox::Click, this, &Fader5::refresh);
    on(Combo2, &ComboBox::Click, this, &Fader5::refresh);
    for (const NumberBar& entry : NumberBars) {
        on(this->*entry.box, &QLineEdit::textChanged, this, &Fader5::refresh);
        on(this->*entry.bar, &ScrollBar::Change, this, [this, entry] {
            const QString text = QString::number((this->*entry.bar)->Value()) + QLatin1String(entry.unit);
            if ((this->*entry.box)->text() == text) {
                refresh(); // a box whose text changes does so by itself
            } else {
                (this->*entry.box)->setText(text);
            }
        });
    }
    for (const auto& options : {TableOptions, CellOptions}) {
        for (const AlignOption& entry : options)
            on(this->*entry.option, &OptionButton::Click, this, &Fader5::refresh);
    }
    for (OptionButton* mode : {Opt1, Opt2, Opt3})
        on(mode, &OptionButton::Click, this, &Fader5::Mode_Click);
    on(Check1, &CheckBox::Click, this, &Fader5::Check1_Click);
    on(ChkNoB, &CheckBox::Click, this, &Fader5::ChkNoB_Click);
    on(Check7, &CheckBox::Click, this, &Fader5::Check7_Click);
    on(Command2, &QPushButton::clicked, this, &Fader5::Command2_Click);
    on(Command4, &QPushButton::clicked, this, &Fader5::Command4_Click);
    on(Command5, &QPushButton::clicked, this, &Fader5::Command5_Click);
    on(Command6, &QPushButton::clicked, this, &Fader5::Command6_Click);
    on(Command7, &QPushButton::clicked, this, &Fader5::Unload);
    on(Command9, &QPushButton::clicked, this, &Fader5::Command9_Click);
    on(Command16, &QPushButton::clicked, this, &Fader5::Command16_Click);
}

/// Takes over the plain text of what is selected in the source box. The selection is markup, so it is written
/// to a surface and copied there. The clipboard is emptied first: a selection without visible text copies
/// nothing, and then what the seller had copied elsewhere must not get into the page.
void Fader5::takeMarkedText()
{
    const ListingEditor* editor = loadedEditor();
    const std::optional<QString> marked = editor ? editor->selected() : std::nullopt;
    if (!marked)
        return;
    WebBrowser1->writeSoon(*marked);
    const WaitCursor wait; // the engine may have to be started
    Clipboard::Clear();
    DocumentSurface reader;
    reader.setDesignMode(DesignMode::On); // no script in the text runs
    const bool copied = reader.write(*marked) && reader.execCommand(QStringLiteral("SelectAll")) &&
                        reader.execCommand(QStringLiteral("Copy"));
    if (copied) // if not, the box stays empty: some desktops fill an emptied clipboard with older text
        Text1->setPlainText(Clipboard::GetText());
}

// ---- Settings --------------------------------------------------------------------------------------------

FaderSettings Fader5::settings() const
{
    FaderSettings settings{
        .mode = Opt1->Value()   ? FaderMode::OneColor
                : Opt2->Value() ? FaderMode::TwoColors
                                : FaderMode::FiveFade,
        .text = wholeText(*Text1),
        .fadedText = fadedText,
        .textColor = textColor,
        .firstColor = firstColor,
        .secondColor = secondColor,
        .fontFace = Combo1->Text(),
        .size = QString::fromLatin1(htmlFontSize(Combo2->Text())),
        .highlighted = Check1->Value() == 1,
        .highlightColor = highlightColor,
        .inTable = Check7->Value() == 1,
        .borderColored = ChkNoB->Value() == 1,
        .table = chosen(*this, TableOptions),
        .cell = chosen(*this, CellOptions),
        .borderColor = borderColor,
        .tableColor = tableColor,
        .cellColor = cellColor,
        .border = Combo6->text(),
        .cellPadding = Combo3->text(),
        .cellSpacing = Combo5->text(),
        .width = Combo9->text(),
        .height = Combo8->text(),
        .linkOpen = linkOpen,
        .linkClose = linkClose,
    };
    for (const StyleBox& entry : StyleBoxes)
        settings.*entry.setting = (this->*entry.box)->Value() == 1;
    return settings;
}

QString Fader5::body(FaderUser user)
{
    fade();
    return faderBody(settings(), user);
}

/// Brings the colour texts in line with their samples, except those of the two-colour mode, which a preset
/// doesn't hold.
void Fader5::refreshColorTexts()
{
    for (const Row row : {F, G, H, I, J})
        m_rows.at(row)->RowHexRefresh();
}

// ---- What depends on what --------------------------------------------------------------------------------

void Fader5::enableRows(std::span<const Row> rows, bool enabled)
{
    for (const Row row : rows)
        m_rows.at(row)->setEnabled(enabled);
}

void Fader5::enableModes()
{
    enableRows(std::array{G}, Opt1->Value());
    enableRows(std::array{X, Z}, Opt2->Value());
    enableRows(std::array{A, B, C, D, E}, Opt3->Value());
}

void Fader5::Mode_Click()
{
    refresh();
    enableModes();
}

void Fader5::Check1_Click()
{
    refresh();
    const bool on = Check1->Value() == 1;
    Frame2->setEnabled(on);
    enableRows(std::array{F}, on);
}

void Fader5::ChkNoB_Click()
{
    for (ScrollBar* bar : {RedJ, GreenJ, BlueJ})
        bar->setEnabled(ChkNoB->Value() == 1);
    refresh();
}

void Fader5::Check7_Click()
{
    refresh();
    const bool on = Check7->Value() == 1;
    enableTable(on);
    ChkNoB->setEnabled(on);
    for (const AlignOption& entry : CellOptions) {
        (this->*entry.option)->setEnabled(on);
        if (!on)
            (this->*entry.option)->setValue(false);
    }
    if (!on)
        refresh();
}

/// Enables the table's controls, except those that align the text in the cell.
void Fader5::enableTable(bool enabled)
{
    for (QWidget* control : std::initializer_list<QWidget*>{Frame5, Frame6, Frame7, Label2, Label3, Label5,
                                                            Label6, Label7, Option4, Option5, Option6})
        control->setEnabled(enabled);
    for (const NumberBar& entry : NumberBars) {
        (this->*entry.box)->setEnabled(enabled);
        (this->*entry.bar)->setEnabled(enabled);
    }
}

// ---- The text and its sample -----------------------------------------------------------------------------

void Fader5::Text1_Change()
{
    const QStringList characters = fadeCharacters(wholeText(*Text1));
    if (characters.size() > Longest) {
        const QSignalBlocker quiet(Text1);
        Text1->setPlainText(characters.first(Longest).join(QString()));
        showMessage(Messages::FadeCut, QString::number(Longest));
    }
    refresh();
}

/// Makes the faded text, whatever the mode.
void Fader5::fade()
{
    fadedText = fadeFive({splitColor(Color1->BackColor()), splitColor(color2->BackColor()),
                          splitColor(color3->BackColor()), splitColor(color4->BackColor()),
                          splitColor(Color5->BackColor())},
                         wholeText(*Text1), Check4->Value() == 1);
}

/// Makes the fragment anew and shows it in the sample.
void Fader5::refresh()
{
    WebBrowser1->writeSoon(body(FaderUser::Sample));
}

// ---- What goes out ---------------------------------------------------------------------------------------

void Fader5::Command16_Click()
{
    copyFragment(faderText(body(FaderUser::Copy), Check2->Value() == 1));
}

void Fader5::Command2_Click()
{
    if (Text1->document()->isEmpty()) {
        showMessage(Messages::NoWordToAdd);
        leadTo(Text1);
        return;
    }
    const ListingEditor* editor = loadedEditor();
    if (!editor)
        return;
    const QString text = faderText(body(FaderUser::Add), Check2->Value() == 1);
    switch (editor->tab()) {
    case ListingEditor::EditorTab:
        addToEditor(text, QStringLiteral("Faded Text"));
        break;
    case ListingEditor::PreviewTab:
        showMessage(Messages::PreviewIsOpen);
        break;
    case ListingEditor::InternetTab:
        break;
    }
}

void Fader5::Command6_Click()
{
    const QString initial = QStringLiteral("http://");
    const QString address =
        InputBox(QStringLiteral("Enter the URL Address."), QStringLiteral("Edit Hyperlink"), initial);
    const bool none = address.isEmpty() || address == initial;
    linkOpen = none ? QString() : QStringLiteral("<a href=") + address + u'>';
    linkClose = none ? QString() : QStringLiteral("</a>");
}

void Fader5::Command9_Click()
{
    const QString address =
        InputBox(QStringLiteral("Enter your email address."), QStringLiteral("Edit E-Mail"));
    if (address.isEmpty())
        return; // a link stays: only the other button takes one away
    linkOpen = QStringLiteral("<a href=mailto:") + address + u'>';
    linkClose = QStringLiteral("</a>");
}

// ---- Presets ---------------------------------------------------------------------------------------------

Preset Fader5::preset()
{
    return {QStringLiteral("1color"),
            QStringLiteral("Fader5"),
            {{QStringLiteral("color1"), Color1},
             {QStringLiteral("color2"), color2},
             {QStringLiteral("color3"), color3},
             {QStringLiteral("color4"), color4},
             {QStringLiteral("color5"), Color5},
             {QStringLiteral("Hcolor1"), Hcolor1},
             {QStringLiteral("Fcolor1"), FColor1},
             {QStringLiteral("Bcolor1"), BColor1},
             {QStringLiteral("Tbcolor1"), TbColor1},
             {QStringLiteral("Tbcolor2"), TbColor2}}};
}

void Fader5::Command4_Click()
{
    savePreset(preset());
}

/// The bars stay where they are, and the sample shows the colours at its next refresh. So meant: the first
/// bar that moves gives its row the colour of the bars again.
void Fader5::Command5_Click()
{
    if (!loadPreset(preset()))
        return;
    fade();
    refreshColorTexts();
}

// ---- The description of a listing ------------------------------------------------------------------------

void Fader5::Command15_Click()
{
    ListingEditor* editor = loadedEditor();
    if (!editor || editor->tab() != ListingEditor::PreviewTab)
        return;
    editor->replaceDescriptions(faderText(body(FaderUser::Description), false));
    Unload();
}

} // namespace brindlemark
