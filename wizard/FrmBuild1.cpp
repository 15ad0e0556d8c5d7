// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/FrmBuild1.h"

#include "forms/AddressField.h"
#include "forms/LeadTo.h"
#include "platform/AppPath.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/PlainText.h"
#include "services/DescriptionHtml.h"
#include "services/Messages.h"
#include "services/Profile.h"
#include "shell/FieldSpelling.h"
#include "shell/FrmPicture.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <span>

namespace brindlemark {

namespace {

// Sections of web.ini.
constexpr char PaymentSection[] = "QelPay";
constexpr char LocationSection[] = "QelLP";
constexpr char PaysSection[] = "QelPS";

/// A check box that puts a line into a list of the listing.
struct LineBox
{
    CheckBox* Ui::FrmBuild1::*box;
    const char* line;
    const char* key; ///< of its setting
};

constexpr std::array<LineBox, 11> PaymentBoxes = {{
    {&Ui::FrmBuild1::ChKPay1, "Money Order/Cashiers Check", "1"},
    {&Ui::FrmBuild1::ChKPay2, "Personal Check", "2"},
    {&Ui::FrmBuild1::ChKPay3, "COD (cash on delivery)", "3"},
    {&Ui::FrmBuild1::ChKPay4, "Visa/MasterCard", "4"},
    {&Ui::FrmBuild1::ChKPay5, "PayPal", "5"},
    {&Ui::FrmBuild1::ChKPay6, "Discover card", "6"},
    {&Ui::FrmBuild1::ChKPay7, "American Express", "7"},
    {&Ui::FrmBuild1::ChKPay8, "Electronic Checks", "8"},
    {&Ui::FrmBuild1::ChKPay9, "Billpoint", "9"},
    {&Ui::FrmBuild1::ChKPay10, "Yahoo Pay Direct", "10"},
    {&Ui::FrmBuild1::ChKPay11, "BidPay", "12"}, // "11" is the other method's
}};
constexpr char OtherPaymentKey[] = "11";

constexpr std::array<LineBox, 8> RegionBoxes = {{
    {&Ui::FrmBuild1::ChkLS1, "Canada", "chk"},
    {&Ui::FrmBuild1::ChkLS2, "Europe", "chk2"},
    {&Ui::FrmBuild1::ChkLS3, "Middle East", "chk3"},
    {&Ui::FrmBuild1::ChkLS4, "Asia", "chk4"},
    {&Ui::FrmBuild1::ChkLS5, "Africa", "chk5"},
    {&Ui::FrmBuild1::ChkLS6, "Caribbean", "chk6"},
    {&Ui::FrmBuild1::ChkLS7, "Mexico and Central America", "chk7"},
    {&Ui::FrmBuild1::ChkLS8, "South America", "chk8"},
}};
constexpr char OtherRegionKey[] = "txt2";

/// One of several options, with the key of its setting.
struct KeptOption
{
    OptionButton* Ui::FrmBuild1::*option;
    const char* key;
};

constexpr std::array<KeptOption, 3> LocationOptions = {{
    {&Ui::FrmBuild1::OptLS1, "opt"},
    {&Ui::FrmBuild1::OptLS2, "opt2"},
    {&Ui::FrmBuild1::OptLS3, "opt3"},
}};

constexpr std::array<KeptOption, 2> PaysOptions = {{
    {&Ui::FrmBuild1::OptPS1, "opt"},
    {&Ui::FrmBuild1::OptPS2, "opt2"},
}};

struct AddressField
{
    QLineEdit* Ui::FrmBuild1::*field;
    QPushButton* Ui::FrmBuild1::*browse;
};

constexpr std::array<AddressField, 6> AddressFields = {{
    {&Ui::FrmBuild1::TxP1, &Ui::FrmBuild1::CmdBrowse1},
    {&Ui::FrmBuild1::TxP2, &Ui::FrmBuild1::CmdBrowse2},
    {&Ui::FrmBuild1::TxP3, &Ui::FrmBuild1::CmdBrowse3},
    {&Ui::FrmBuild1::TxP4, &Ui::FrmBuild1::CmdBrowse4},
    {&Ui::FrmBuild1::TxP5, &Ui::FrmBuild1::CmdBrowse5},
    {&Ui::FrmBuild1::TxP6, &Ui::FrmBuild1::CmdBrowse6},
}};

/// An amount: fields for dollars and cents, each with its key, and the bar that sets the dollars.
struct Cost
{
    QLineEdit* Ui::FrmBuild1::*dollars;
    const char* dollarsKey;
    QLineEdit* Ui::FrmBuild1::*cents;
    const char* centsKey;
    ScrollBar* Ui::FrmBuild1::*bar;
};

constexpr std::array<Cost, 3> Costs = {{
    {&Ui::FrmBuild1::TxSH1, "TxSH1", &Ui::FrmBuild1::TxSH2, "TxSH2", &Ui::FrmBuild1::HScroll3},
    {&Ui::FrmBuild1::TxSI1, "TxSI1", &Ui::FrmBuild1::TxSI2, "TxSI2", &Ui::FrmBuild1::HScroll2},
    {&Ui::FrmBuild1::TxAI1, "TxAI1", &Ui::FrmBuild1::TxAI2, "TxAI2", &Ui::FrmBuild1::HScroll1},
}};
/// The costs that the site's calculator replaces: shipping and insurance, not the additional item.
constexpr std::span<const Cost> CalculatedCosts = std::span(Costs).first<2>();
constexpr std::span<const Cost> AdditionalItem = std::span(Costs).last<1>();

// "Manine" stays so spelt: settings and pages of sellers hold it.
constexpr std::array<const char*, 51> States = {
    "Alabama",       "Alaska",     "Arizona",       "Arkansas",       "California",     "Colorado",
    "Connecticut",   "Delaware",   "Dist Columbia", "Florida",        "Georgia",        "Hawaii",
    "Idaho",         "Illinois",   "Indiana",       "Iowa",           "Kansas",         "Kentucky",
    "Louisiana",     "Manine",     "Maryland",      "Massachusetts",  "Michigan",       "Minnesota",
    "Mississippi",   "Missouri",   "Montana",       "Nebraska",       "Nevada",         "New Hampshire",
    "New Jersey",    "New Mexico", "New York",      "North Carolina", "North Dakota",   "Ohio",
    "Oklahoma",      "Oregon",     "Pennsylvania",  "Rhode Island",   "South Carolina", "South Dakota",
    "Tennessee",     "Texas",      "Utah",          "Vermont",        "Virginia",       "Washington",
    "West Virginia", "Wisconsin",  "Wyoming",
};

QString flag(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

void keep(const char* section, const char* key, bool on)
{
    WriteProfile(QLatin1String(section), QLatin1String(key), flag(on), webIni());
}

ProfileValue kept(const char* section, const char* key, const QString& value)
{
    return {QLatin1String(section), QLatin1String(key), value};
}

/// Sets the first option whose setting is 1. Where none is, the page's own choice stays.
void restoreOptions(const Ui::FrmBuild1* page, const Profile& settings, std::span<const KeptOption> options,
                    const char* section)
{
    for (const auto& [option, key] : options) {
        if (settings.checkBox(QLatin1String(section), QLatin1String(key)) == 1) {
            (page->*option)->setValue(true);
            return;
        }
    }
}

void keepOptions(const Ui::FrmBuild1* page, std::span<const KeptOption> options, const char* section)
{
    QList<ProfileValue> values;
    for (const auto& [option, key] : options)
        values << kept(section, key, flag((page->*option)->Value()));
    WriteProfile(values, webIni());
}

/// Shows the setting of an "Other" text. It is "0" for an empty text.
void restoreOther(QLineEdit* field, const QString& value)
{
    if (value != flag(false))
        field->setText(value);
}

QString otherText(const QLineEdit* field)
{
    return field->text().isEmpty() ? flag(false) : field->text();
}

void enableCosts(const Ui::FrmBuild1* page, std::span<const Cost> costs, bool on)
{
    for (const Cost& cost : costs) {
        (page->*cost.dollars)->setEnabled(on);
        (page->*cost.cents)->setEnabled(on);
        (page->*cost.bar)->setEnabled(on);
    }
}

/// Moves a bar to an amount, as far as it goes, without a word to the field that shows its value. What is no
/// whole number leaves it where it is.
void followAmount(ScrollBar* bar, const QString& typed)
{
    bool isNumber = false;
    const int dollars = typed.toInt(&isNumber);
    if (!isNumber)
        return;
    const QSignalBlocker quiet(bar);
    bar->setValue(dollars);
}

bool noneChecked(const Ui::FrmBuild1* page, std::span<const LineBox> boxes)
{
    return std::none_of(boxes.begin(), boxes.end(),
                        [page](const LineBox& entry) { return (page->*entry.box)->Value() == 1; });
}

/// Removes a line from a list wherever it stands, but of two equal neighbours only the first. So meant: a
/// seller who also typed the line as "Other" keeps that one.
void removeLine(QStringList& list, const QString& line)
{
    const qsizetype count = list.size();
    for (qsizetype i = 0; i < count; ++i) {
        if (i < list.size() && list[i] == line)
            list.removeAt(i);
    }
}

/// Lets a click on a check box add its line to the list or remove it.
void connectLines(FrmBuild1* page, std::span<const LineBox> boxes, QStringList& list)
{
    for (const LineBox& entry : boxes) {
        CheckBox* const box = page->*entry.box;
        const QString line = QLatin1String(entry.line);
        on(box, &CheckBox::Click, page, [box, line, &list] {
            if (box->Value() == 0) {
                removeLine(list, line);
            } else {
                list << line;
            }
        });
    }
}

// What is kept of an unfinished listing.
constexpr QLatin1StringView FieldsKey("fields");
constexpr QLatin1StringView Page2Key("page2");

struct ListKey
{
    QLatin1StringView key;
    QStringList FrmBuild1::*lines;
};
constexpr std::array<ListKey, 3> ListKeys = {{{QLatin1StringView("payments"), &FrmBuild1::payments},
                                              {QLatin1StringView("regions"), &FrmBuild1::regions},
                                              {QLatin1StringView("pictures"), &FrmBuild1::pictures}}};

} // namespace

FrmBuild1::FrmBuild1()
{
    setupUi(this);
    checkSpellingIn(Text1);
    checkSpellingIn(Text2);
    checkSpellingIn(Txtother);
    QPalette grey = palette();
    grey.setColor(QPalette::Base, QColor(0xE0, 0xE0, 0xE0));
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        grey.setColor(group, QPalette::Text, Qt::black); // readable on any desktop's colours
    for (const AddressField& address : AddressFields)
        (this->*address.field)->setPalette(grey);
    for (const char* state : States)
        TxST2->AddItem(QLatin1String(state));
    enableAddresses(false);
    enableRegions(false);
    enableTax(false);

    connectHandlers();
    restore();
    Text1->setFocus();
    m_unfinished.passOver(state());
}

void FrmBuild1::connectHandlers()
{
    connectLines(this, PaymentBoxes, payments);
    connectLines(this, RegionBoxes, regions);
    on(CmdLines, &QPushButton::clicked, this, &FrmBuild1::CmdLines_Click);
    for (const AddressField& address : AddressFields) {
        QLineEdit* field = this->*address.field;
        takeWholeAddress(field);
        on(this->*address.browse, &QPushButton::clicked, this, [field] { FrmPicture::chooseFor(field); });
    }
    for (OptionButton* option : {OptP1, OptP2})
        on(option, &OptionButton::Click, this, &FrmBuild1::OptP_Click);
    for (OptionButton* option : {OptLS1, OptLS2, OptLS3})
        on(option, &OptionButton::Click, this, &FrmBuild1::OptLS_Click);
    on(OptPS1, &OptionButton::Click, this, &FrmBuild1::OptPS1_Click);
    on(OptPS2, &OptionButton::Click, this, &FrmBuild1::OptPS2_Click);
    on(ChkZC, &CheckBox::Click, this, &FrmBuild1::ChkZC_Click);
    on(ChkTR1, &CheckBox::Click, this, &FrmBuild1::ChkTR1_Click);
    on(ChkSlist, &CheckBox::Click, this, &FrmBuild1::ChkSlist_Click);
    for (const Cost& cost : Costs) {
        const auto showValue = [dollars = this->*cost.dollars, bar = this->*cost.bar] {
            dollars->setText(QString::number(bar->Value()));
        };
        on(this->*cost.bar, &ScrollBar::Change, this, showValue);
        on(this->*cost.bar, &ScrollBar::Scroll, this, showValue);
        on(this->*cost.dollars, &QLineEdit::textEdited, this,
           [dollars = this->*cost.dollars, bar = this->*cost.bar] { followAmount(bar, dollars->text()); });
    }

    on(Command1, &QPushButton::clicked, this, &FrmBuild1::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmBuild1::Command2_Click);
    on(Command3, &QPushButton::clicked, this, [] { openTerms(0); });
    on(Command4, &QPushButton::clicked, this, [] { openTerms(1); });
    on(Command5, &QPushButton::clicked, this, [] { openTerms(2); });
    on(TxST2, &ComboBox::EnterPressed, this, &FrmBuild1::Command1_Click);
    setDefaultButton(Command1);
    setCancelButton(Command2);
}

/// Shows the settings. Each control that changes runs its handler, so lists and enabled fields follow.
void FrmBuild1::restore()
{
    const Profile settings(webIni());
    const auto text = [&settings](const char* section, const char* key) {
        return settings.value(QLatin1String(section), QLatin1String(key));
    };
    const auto restoreBox = [&settings](CheckBox* box, const char* section, const char* key) {
        box->setValue(settings.checkBox(QLatin1String(section), QLatin1String(key)));
    };
    for (const LineBox& entry : PaymentBoxes)
        restoreBox(this->*entry.box, PaymentSection, entry.key);
    restoreOther(Txtother, text(PaymentSection, OtherPaymentKey));

    restoreOptions(this, settings, LocationOptions, LocationSection);
    if (OptLS3->Value()) {
        for (const LineBox& entry : RegionBoxes)
            restoreBox(this->*entry.box, LocationSection, entry.key);
        restoreOther(Txtother2, text(LocationSection, OtherRegionKey));
    }

    restoreOptions(this, settings, PaysOptions, PaysSection);
    restoreBox(ChkZC, PaysSection, "chk");
    restoreBox(ChkTR1, PaysSection, "chk2");
    TxST1->setText(text(PaysSection, "txt"));
    TxST2->setText(text(PaysSection, "txt2"));
    for (const Cost& cost : Costs) {
        (this->*cost.dollars)->setText(text(PaysSection, cost.dollarsKey));
        (this->*cost.cents)->setText(text(PaysSection, cost.centsKey));
    }
    restoreBox(ChkSlist, PaysSection, "ChkSlist");
}

/// Writes the settings that the handlers don't write at the click.
void FrmBuild1::save() const
{
    QList<ProfileValue> values;
    for (const LineBox& entry : PaymentBoxes)
        values << kept(PaymentSection, entry.key, flag((this->*entry.box)->Value() == 1));
    values << kept(PaymentSection, OtherPaymentKey, otherText(Txtother));

    for (const LineBox& entry : RegionBoxes)
        values << kept(LocationSection, entry.key, flag((this->*entry.box)->Value() == 1));
    values << kept(LocationSection, OtherRegionKey, otherText(Txtother2));

    values << kept(PaysSection, "txt", TxST1->text()) << kept(PaysSection, "txt2", TxST2->Text());
    for (const Cost& cost : Costs) {
        values << kept(PaysSection, cost.dollarsKey, (this->*cost.dollars)->text())
               << kept(PaysSection, cost.centsKey, (this->*cost.cents)->text());
    }
    WriteProfile(values, webIni());
}

bool FrmBuild1::queryUnload()
{
    save();
    if (FrmBuild2* page2 = loaded<FrmBuild2>()) // it couldn't make a page without the record
        page2->Unload();
    return true;
}

Listing FrmBuild1::listing() const
{
    return {
        .title = Text1->text(),
        .description = wholeText(*Text2),
        .withPictures = OptP2->Value(),
        .payments = payments,
        .regions = regions,
        .pictures = pictures,
        .unitedStatesOnly = OptLS1->Value(),
        .worldwide = OptLS2->Value(),
        .someRegions = OptLS3->Value(),
        .sellerPays = OptPS1->Value(),
        .buyerPays = OptPS2->Value(),
        .calculator = ChkZC->Value() == 1,
        .taxed = ChkTR1->Value() == 1,
        .withoutPaysTerms = ChkSlist->Value() == 1,
        .shippingDollars = TxSH1->text(),
        .shippingCents = TxSH2->text(),
        .insuranceDollars = TxSI1->text(),
        .insuranceCents = TxSI2->text(),
        .additionalDollars = TxAI1->text(),
        .additionalCents = TxAI2->text(),
        .taxRate = TxST1->text(),
        .taxState = TxST2->Text(),
    };
}

void FrmBuild1::enableAddresses(bool on)
{
    for (const AddressField& address : AddressFields) {
        (this->*address.field)->setEnabled(on);
        (this->*address.browse)->setEnabled(on);
    }
}

void FrmBuild1::enableRegions(bool on)
{
    for (const LineBox& entry : RegionBoxes)
        (this->*entry.box)->setEnabled(on);
    Txtother2->setEnabled(on);
    Label8->setEnabled(on);
    QPalette face = palette();
    face.setColor(QPalette::Base, face.color(QPalette::Button));
    Txtother2->setPalette(on ? QPalette() : face);
}

void FrmBuild1::enableTax(bool on)
{
    TxST1->setEnabled(on);
    TxST2->setEnabled(on);
    Label40->setEnabled(on);
}

/// One step of undo in the field.
void FrmBuild1::CmdLines_Click()
{
    const QString typed = Text2->toPlainText();
    const QString shown = descriptionAsTyped(typed);
    if (shown != typed) {
        QTextCursor all(Text2->document());
        all.select(QTextCursor::Document);
        all.insertText(shown);
    }
    Text2->setFocus();
}

void FrmBuild1::OptP_Click()
{
    enableAddresses(OptP2->Value());
}

void FrmBuild1::OptLS_Click()
{
    enableRegions(OptLS3->Value());
    keepOptions(this, LocationOptions, LocationSection);
}

void FrmBuild1::OptPS1_Click()
{
    enableCosts(this, Costs, false);
    for (QWidget* control : std::initializer_list<QWidget*>{ChkZC, ChkTR1, TxST1, TxST2})
        control->setEnabled(false);
    keepOptions(this, PaysOptions, PaysSection);
}

void FrmBuild1::OptPS2_Click()
{
    enableCosts(this, AdditionalItem, true);
    ChkZC->setEnabled(true);
    ChkTR1->setEnabled(true);
    if (ChkTR1->Value() == 1) {
        TxST1->setEnabled(true);
        TxST2->setEnabled(true);
    }
    if (ChkZC->Value() == 0)
        enableCosts(this, CalculatedCosts, true);
    keepOptions(this, PaysOptions, PaysSection);
}

void FrmBuild1::ChkZC_Click()
{
    enableCosts(this, CalculatedCosts, ChkZC->Value() == 0);
    keep(PaysSection, "chk", ChkZC->Value() == 1);
}

void FrmBuild1::ChkTR1_Click()
{
    enableTax(ChkTR1->Value() == 1);
    keep(PaysSection, "chk2", ChkTR1->Value() == 1);
}

void FrmBuild1::ChkSlist_Click()
{
    Command5->setEnabled(ChkSlist->Value() == 0);
    keep(PaysSection, "ChkSlist", ChkSlist->Value() == 1);
}

/// Something that the seller hasn't given yet.
struct FrmBuild1::Missing
{
    const Message& message;
    QWidget* control; ///< where it can be given
};

/// The first of them; none when all is there.
std::optional<FrmBuild1::Missing> FrmBuild1::firstMissing() const
{
    struct Check
    {
        bool fails;
        Missing missing;
    };
    const bool noCosts = OptPS2->Value() && ChkZC->Value() == 0 && TxSH1->text() == QLatin1String("0") &&
                         TxSH2->text() == QLatin1String("00");
    for (const Check& check : {
             Check{Text1->text().isEmpty(), {Messages::NoTitle, Text1}},
             Check{Text2->document()->isEmpty(), {Messages::NoDescription, Text2}},
             Check{noneChecked(this, PaymentBoxes), {Messages::NoPayment, ChKPay1}},
             Check{OptLS3->Value() && noneChecked(this, RegionBoxes), {Messages::NoRegion, ChkLS1}},
             Check{noCosts, {Messages::NoCosts, TxSH1}},
         }) {
        if (check.fails)
            return check.missing;
    }
    return std::nullopt;
}

void FrmBuild1::collectAddresses()
{
    pictures.clear();
    for (const AddressField& entry : AddressFields) {
        const QString address = (this->*entry.field)->text();
        if (!address.isEmpty() && address != BlankAddress)
            pictures << address;
    }
}

void FrmBuild1::Command1_Click()
{
    if (const std::optional<Missing> missing = firstMissing()) {
        showMessage(missing->message);
        leadTo(missing->control);
        return;
    }
    reachedPage2 = true;
    if (OptP2->Value())
        collectAddresses();
    form<FrmBuild2>()->prepare(int(pictures.size()), OptP2->Value());
    // So meant: each OK adds the "Other" texts, so an OK after Back adds them once more.
    if (!Txtother->text().isEmpty())
        payments << Txtother->text();
    if (!Txtother2->text().isEmpty())
        regions << Txtother2->text();
    form<FrmBuild2>()->Show(); // before this one goes, or else another window has the keyboard meanwhile
    Hide();
}

/// All that the seller has filled in: the fields of both pages, and the lists in the order of the clicks.
QByteArray FrmBuild1::state() const
{
    QJsonObject state;
    state.insert(FieldsKey, QString::fromUtf8(fieldsOf(*this)));
    for (const ListKey& list : ListKeys)
        state.insert(list.key, QJsonArray::fromStringList(this->*list.lines));
    if (const FrmBuild2* page2 = loaded<FrmBuild2>(); page2 && reachedPage2)
        state.insert(Page2Key, page2->choices());
    return QJsonDocument(state).toJson();
}

void FrmBuild1::keepUnfinished()
{
    m_unfinished.keepNow(QString(), state());
}

void FrmBuild1::takeUnfinished(const QByteArray& kept)
{
    const QJsonObject state = QJsonDocument::fromJson(kept).object();
    fillFields(*this, state.value(FieldsKey).toString().toUtf8());
    for (const ListKey& list : ListKeys)
        this->*list.lines = state.value(list.key).toVariant().toStringList();
    if (state.contains(Page2Key)) {
        reachedPage2 = true;
        form<FrmBuild2>()->prepare(int(pictures.size()), OptP2->Value());
        form<FrmBuild2>()->choose(state.value(Page2Key).toObject());
        form<FrmBuild2>()->Show();
        Hide();
    }
    m_unfinished.finish(); // it is this program's now
}

void FrmBuild1::Command2_Click()
{
    Unload();
}

} // namespace brindlemark
