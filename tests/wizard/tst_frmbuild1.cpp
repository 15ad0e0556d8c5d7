// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProgramFolder.h"
#include "ScriptedDoors.h"
#include "WebTestMain.h"
#include "app/Openings.h"
#include "shell/FrmPicture.h"
#include "shell/FrmWeb.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"

#include <QAccessible>
#include <QClipboard>
#include <QDir>
#include <QLineEdit>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QToolBar>

using namespace brindlemark;

namespace {

/// What the web.ini that ships holds for the page.
const char* const Shipped = R"(; kept as it is

[QelPay]
1=0
2=0
3=0
4=0
5=0
6=0
7=0
8=0
9=0
10=0
11=0
12=0

[QelLP]
opt=1
opt2=0
opt3=0
chk=0
chk2=0
chk3=0
chk4=0
chk5=0
chk6=0
chk7=0
chk8=0
txt2=0

[QelPS]
opt=0
opt2=1
chk=0
chk2=0
txt=6.00
txt2=Pick here
TxSH1=0
TxSH2=00
TxSI1=0
TxSI2=00
TxAI1=0
TxAI2=00
ChkSlist=0
)";

/// The bytes of a web.ini that holds the shipped settings with changes such as "QelLP/opt=0 QelLP/opt2=1".
QByteArray webIni(const QByteArray& changes = {})
{
    QByteArray text = Shipped;
    for (const QByteArray& change : changes.simplified().split(' ')) {
        if (change.isEmpty())
            continue;
        const qsizetype slash = change.indexOf('/');
        const qsizetype sign = change.indexOf('=');
        const qsizetype section = text.indexOf('[' + change.first(slash) + "]\n");
        const qsizetype line = text.indexOf('\n' + change.sliced(slash + 1, sign - slash), section) + 1;
        if (section < 0 || line <= 0)
            QTest::qFail("no such setting", __FILE__, __LINE__);
        text.replace(line, text.indexOf('\n', line) - line, change.sliced(slash + 1));
    }
    return text.replace('\n', "\r\n");
}

QStringList names(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

/// A caption as the user reads it, without the marks of access keys.
QString shown(QString caption)
{
    return caption.remove(u'&');
}

/// The page in a program folder of its own, shown.
class Wizard
{
public:
    explicit Wizard(const QByteArray& settings = webIni())
    {
        m_folder.write(QStringLiteral("web.ini"), settings);
        open();
    }
    ~Wizard()
    {
        if (isLoaded<FrmBuild1>())
            form<FrmBuild1>()->Unload();
        if (isLoaded<FrmBuild2>())
            form<FrmBuild2>()->Unload();
        for (QWidget* window : QApplication::topLevelWidgets())
            window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Wizard(const Wizard&) = delete;
    Wizard& operator=(const Wizard&) = delete;

    FrmBuild1* operator->() const { return page; }
    const ProgramFolder& folder() const { return m_folder; }
    QByteArray settings() const { return m_folder.read(QStringLiteral("web.ini")); }

    /// Loads the page, anew when it was unloaded.
    void open()
    {
        page = form<FrmBuild1>();
        page->Show();
        QVERIFY(QTest::qWaitForWindowActive(page));
    }

    template <typename W = QWidget>
    W* control(const QString& name) const
    {
        auto* found = page->findChild<W*>(name);
        if (!found)
            QTest::qFail(qPrintable(QStringLiteral("no control ") + name), __FILE__, __LINE__);
        return found;
    }

    /// Turns to the tab on which a control lies.
    void turnTo(QWidget* widget) const
    {
        for (int tab = 0; tab < page->SSTab1->count(); ++tab) {
            if (page->SSTab1->widget(tab)->isAncestorOf(widget))
                clickTab(tab);
        }
    }
    void clickTab(int tab) const
    {
        QTabBar* const bar = page->SSTab1->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab).center());
        QCOMPARE(page->SSTab1->Tab(), tab);
    }
    /// A click on the controls named, one after the other.
    void click(const char* controls) const
    {
        for (const QString& name : names(controls)) {
            auto* const widget = control(name);
            turnTo(widget);
            QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
        }
    }
    /// Types over what a field holds.
    void type(const char* name, const QString& text) const
    {
        auto* const field = control(QLatin1String(name));
        turnTo(field);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
    QString text(const char* name) const { return control<QLineEdit>(QLatin1String(name))->text(); }

    /// Answers the first three checks of OK.
    void fill() const
    {
        type("Text1", QStringLiteral("A lamp"));
        type("Text2", QStringLiteral("It shines."));
        click("ChKPay5");
    }
    /// Answers all checks of OK.
    void fillAll() const
    {
        fill();
        type("TxSH1", QStringLiteral("4"));
    }
    bool onPage2() const
    {
        return page->isHidden() && isLoaded<FrmBuild2>() && form<FrmBuild2>()->isVisible();
    }
    /// What Back on page 2 does.
    void goBack() const
    {
        form<FrmBuild2>()->Unload();
        page->Show();
        QVERIFY(QTest::qWaitForWindowActive(page));
    }

    FrmBuild1* page = nullptr;

private:
    ProgramFolder m_folder;
};

const char* const Addresses = "TxP1 TxP2 TxP3 TxP4 TxP5 TxP6";
const char* const Regions = "ChkLS1 ChkLS2 ChkLS3 ChkLS4 ChkLS5 ChkLS6 ChkLS7 ChkLS8 Txtother2 Label8";
const char* const Calculated = "TxSH1 TxSH2 HScroll3 TxSI1 TxSI2 HScroll2";
const char* const Additional = "TxAI1 TxAI2 HScroll1";
const char* const Tax = "TxST1 TxST2";

/// All controls that a rule enables or disables, or those of them that are disabled now.
QStringList ruled(const Wizard& wizard, bool disabledOnly)
{
    QStringList found;
    for (const char* group :
         {Addresses, Regions, Calculated, Additional, Tax, "ChkZC ChkTR1 Label40 Command5"}) {
        for (const QString& name : names(group)) {
            if (!disabledOnly || !wizard.control(name)->isEnabled())
                found << name;
        }
    }
    found.sort();
    return found;
}

QString message(const char* prompt)
{
    return QStringLiteral("MsgBox|Build Wizard|%1|Information|Ok").arg(QLatin1String(prompt));
}

const char* const NoTitle = "Please enter what item you sell ?";
const char* const NoDescription = "Please enter Description:";
const char* const NoPayment = "Please enter What methods of payment do you accept ?";
const char* const NoRegion =
    "Please check ship to the United States and the following regions: (Check all that apply)";
const char* const NoCosts = "Please enter Shipping and Handling costs:";

} // namespace

class TestFrmBuild1 : public QObject
{
    Q_OBJECT

private slots:
    void captions_data();
    void captions();
    void defaultsOfANewPage();
    void statesToPick();
    void labelsNameTheirFields();
    void everyControlHasANameAndATip();
    void accessKeysOfATabDiffer();
    void descriptionAsTyped();
    void browseFillsTheField();
    void pastedAddress();
    void tabKeyFollowsTheReading();
    void fitsASmallScreen();

    void lineBoxes_data();
    void lineBoxes();
    void listsKeepTheOrderOfTheClicks();
    void uncheckingRemovesTypedTwins();
    void enablingRules_data();
    void enablingRules();
    void otherRegionShowsWhetherItIsOpen_data();
    void otherRegionShowsWhetherItIsOpen();
    void spaceBarWorksAsAClick();
    void barsWriteTheDollars_data();
    void barsWriteTheDollars();
    void barsFollowTheTyping_data();
    void barsFollowTheTyping();
    void termsButtons_data();
    void termsButtons();

    void restoresTheBoxes();
    void restoresOneOption_data();
    void restoresOneOption();
    void restoresRegionsForTheirOptionOnly();
    void restoresWhoPays();
    void restoresTaxBesideASellerWhoPays();
    void restoresOtherTexts_data();
    void restoresOtherTexts();
    void firstRunWithoutKeys();
    void beginsAnewWithTheItem();

    void savesOnUnload_data();
    void savesOnUnload();
    void savesIntoAnEmptyFolder();
    void hiddenPageSavesNothingYet();

    void messagesInOrder();
    void shippingCosts_data();
    void shippingCosts();
    void pictureAddresses_data();
    void pictureAddresses();
    void picturesStayWithoutTheirOption();
    void okGoesToPage2();
    void okAfterBackAddsOtherAgain();
    void enterPressesOk();
    void recordHoldsAllFields();

    void anyTextGoesThrough_data();
    void anyTextGoesThrough();
    void longTexts();
    void readOnlySettings();
    void settingsThatAreAFolder();
    void toolbarOpensThePage();
};

void TestFrmBuild1::captions_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* control, const char* caption) {
        QTest::newRow(control) << QString::fromLatin1(control) << QString::fromLatin1(caption);
    };
    row("OptP1", "No picture");
    row("OptP2", "Pictures");
    row("OptLS1", "Will ship to the United States only.");
    row("OptLS2", "Will ship internationally (worldwide) ");
    row("OptLS3", "Will ship to the United States and the following regions:  (Check all that apply) ");
    row("OptPS1", "Seller Pays Shipping ");
    row("OptPS2", "Buyer Pays All Shipping ");
    row("ChkZC", "Please use calculate shipping use your zip code.");
    row("ChkTR1", "Tax Rate:");
    row("ChkSlist", "Ingore Terms of lists.");
    row("Label8", "Other:");
    row("Label40", "% State:");
    row("Command1", "OK");
    row("Command2", "Cancel");
    row("Command3", "Terms of lists");
    row("Command4", "Terms of lists");
    row("Command5", "Terms of lists");
}

void TestFrmBuild1::captions()
{
    QFETCH(QString, control);
    QFETCH(QString, caption);
    const Wizard wizard;
    QCOMPARE(shown(wizard.control(control)->property("text").toString()), caption);
}

void TestFrmBuild1::defaultsOfANewPage()
{
    const Wizard wizard;
    QCOMPARE(wizard->windowTitle(), QStringLiteral("Brindlemark Create 1 of 2"));
    QStringList tabs;
    for (int tab = 0; tab < wizard->SSTab1->count(); ++tab)
        tabs << shown(wizard->SSTab1->tabText(tab));
    QCOMPARE(tabs, (QStringList{"Item", "Pictures", "Payment", "Location Shipping", "Pays Shipping"}));
    QCOMPARE(wizard->SSTab1->Tab(), 0);
    QVERIFY(wizard->Text1->hasFocus());

    const Listing record = wizard->listing();
    QCOMPARE(record.title, QString());
    QCOMPARE(record.description, QString());
    QVERIFY(!record.withPictures && wizard->OptP1->Value());
    QVERIFY(record.unitedStatesOnly && !record.worldwide && !record.someRegions);
    QVERIFY(!record.sellerPays && record.buyerPays);
    QVERIFY(!record.calculator && !record.taxed && !record.withoutPaysTerms);
    QCOMPARE((QStringList{record.shippingDollars, record.shippingCents, record.insuranceDollars,
                          record.insuranceCents, record.additionalDollars, record.additionalCents,
                          record.taxRate, record.taxState}),
             (QStringList{"0", "00", "0", "00", "0", "00", "6.00", "Pick here"}));
    QVERIFY(record.payments.isEmpty() && record.regions.isEmpty() && record.pictures.isEmpty());
    for (const QString& name : names(Addresses)) {
        const auto* field = wizard.control<QLineEdit>(name);
        QCOMPARE(field->text(), QStringLiteral("http://"));
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Disabled})
            QCOMPARE(field->palette().color(group, QPalette::Base), QColor(0xE0, 0xE0, 0xE0));
    }
    QCOMPARE(wizard.text("Txtother") + wizard.text("Txtother2"), QString());
}

void TestFrmBuild1::statesToPick()
{
    const Wizard wizard;
    QStringList states;
    for (int i = 0; i < wizard->TxST2->ListCount(); ++i)
        states << wizard->TxST2->List(i);
    QCOMPARE(
        states,
        QStringLiteral("Alabama,Alaska,Arizona,Arkansas,California,Colorado,Connecticut,Delaware,"
                       "Dist Columbia,Florida,Georgia,Hawaii,Idaho,Illinois,Indiana,Iowa,Kansas,Kentucky,"
                       "Louisiana,Manine,Maryland,Massachusetts,Michigan,Minnesota,Mississippi,Missouri,"
                       "Montana,Nebraska,Nevada,New Hampshire,New Jersey,New Mexico,New York,North Carolina,"
                       "North Dakota,Ohio,Oklahoma,Oregon,Pennsylvania,Rhode Island,South Carolina,"
                       "South Dakota,Tennessee,Texas,Utah,Vermont,Virginia,Washington,West Virginia,"
                       "Wisconsin,Wyoming")
            .split(u','));
}

void TestFrmBuild1::labelsNameTheirFields()
{
    const Wizard wizard;
    QMap<QString, QString> labels; // by the field that they stand for
    QStringList others;
    for (const QLabel* label : wizard->findChildren<QLabel*>()) {
        if (label->buddy()) {
            labels[label->buddy()->objectName()] = shown(label->text());
        } else {
            others << label->text();
        }
    }
    const QMap<QString, QString> expected = {
        {"Text1", "What item you sell ? (Title)"},
        {"Text2", "Description:"},
        {"TxP1", "1"},
        {"TxP2", "2"},
        {"TxP3", "3"},
        {"TxP4", "4"},
        {"TxP5", "5"},
        {"TxP6", "6"},
        {"Txtother", "Other:"},
        {"Txtother2", "Other:"},
        {"TxSH1", "Shipping and Handling costs:"},
        {"TxSI1", "Shipping Insurance item costs: "},
        {"TxAI1", "Additional item (per item):"},
        {"TxST2", "% State:"},
    };
    QCOMPARE(labels, expected);
    others.sort();
    QCOMPARE(others, (QStringList{"$", "$", "$", ".", ".", ".",
                                  "A page shows line ends as blanks, and what looks like a tag not at all.",
                                  "Enter the URL address:", "What methods of payment do you accept ?"}));
}

void TestFrmBuild1::everyControlHasANameAndATip()
{
    const Wizard wizard;
    int count = 0;
    for (QWidget* widget : wizard->findChildren<QWidget*>()) {
        // The toolkit's own parts of a control have other names, or none.
        const QString name = widget->objectName();
        if (!(widget->focusPolicy() & Qt::TabFocus) || name.isEmpty() ||
            name.startsWith(QLatin1String("qt_")) || qobject_cast<QTabBar*>(widget->parent()))
            continue;
        const QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(reader && !reader->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
        if (widget != wizard->SSTab1)
            QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
        ++count;
    }
    QVERIFY(count > 50);
}

void TestFrmBuild1::accessKeysOfATabDiffer()
{
    const Wizard wizard;
    for (int tab = 0; tab < wizard->SSTab1->count(); ++tab) {
        wizard.clickTab(tab);
        QMap<QString, QString> used;
        const auto take = [&used](const QString& caption) {
            const QString key = QKeySequence::mnemonic(caption).toString();
            QVERIFY2(!used.contains(key), qPrintable(caption + u'/' + used.value(key)));
            used[key] = caption;
        };
        for (int i = 0; i < wizard->SSTab1->count(); ++i)
            take(wizard->SSTab1->tabText(i));
        for (const QAbstractButton* button : wizard->findChildren<QAbstractButton*>()) {
            // The key of an address leads to its field, and Tab from there to its button.
            if (button->isVisible() && !button->text().isEmpty() &&
                !button->objectName().startsWith(QLatin1String("CmdBrowse")))
                take(button->text());
        }
        for (const QLabel* label : wizard->findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy())
                take(label->text());
        }
        QVERIFY(!used.contains(QString())); // each has one
    }
}

void TestFrmBuild1::descriptionAsTyped()
{
    const Wizard wizard;
    const QString typed = QStringLiteral("A lamp <3 & more\n<B>of brass</B>");
    const QString shown = QStringLiteral("A lamp &lt;3 &amp; more<BR>\n<B>of brass</B>");
    wizard->Text2->setFocus();
    wizard->Text2->setPlainText(typed);
    wizard.click("CmdLines");
    QCOMPARE(wizard->Text2->toPlainText(), shown);
    QVERIFY(wizard->Text2->hasFocus());
    wizard.click("CmdLines");
    QCOMPARE(wizard->Text2->toPlainText(), shown);
    QTest::keyClick(wizard->Text2, Qt::Key_Z, Qt::ControlModifier); // one step
    QCOMPARE(wizard->Text2->toPlainText(), typed);
}

void TestFrmBuild1::browseFillsTheField()
{
    const Wizard wizard;
    ScriptedDoors doors;
    wizard.clickTab(1);
    for (int i = 1; i <= 6; ++i)
        QVERIFY(!wizard.control(QStringLiteral("CmdBrowse%1").arg(i))->isEnabled()); // as their fields
    wizard.click("OptP2");
    const QString file = wizard.folder().path(QStringLiteral("lamp.png"));
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QVERIFY(image.save(file));
    for (int i = 1; i <= 6; ++i) {
        doors.answerOpen(file);
        QTest::mouseClick(wizard.control(QStringLiteral("CmdBrowse%1").arg(i)), Qt::LeftButton);
        QVERIFY(isLoaded<FrmPicture>());
        QTest::mouseClick(form<FrmPicture>()->Use, Qt::LeftButton);
        for (int field = 1; field <= 6; ++field) {
            QCOMPARE(wizard.text(qPrintable(QStringLiteral("TxP%1").arg(field))),
                     field <= i ? QUrl::fromLocalFile(file).toString() : QStringLiteral("http://"));
        }
    }
}

void TestFrmBuild1::pastedAddress()
{
    const Wizard wizard;
    wizard.click("OptP2");
    QGuiApplication::clipboard()->setText(QStringLiteral("https://p.example/1.jpg"));
    for (int i = 1; i <= 6; ++i) {
        auto* field = wizard.control<QLineEdit>(QStringLiteral("TxP%1").arg(i));
        field->setFocus();
        field->end(false);
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(field->text(), QStringLiteral("https://p.example/1.jpg"));
    }
}

void TestFrmBuild1::tabKeyFollowsTheReading()
{
    const Wizard wizard;
    wizard.click("ChkTR1");
    wizard->OptPS2->setFocus();
    QStringList walked;
    for (int i = 0; i < 18; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        walked << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(walked.join(u' '),
             QStringLiteral(
                 "ChkZC TxSH1 TxSH2 HScroll3 TxSI1 TxSI2 HScroll2 TxAI1 TxAI2 HScroll1 ChkTR1 TxST1 TxST2 "
                 "Command5 ChkSlist Command1 Command2 qt_tabwidget_tabbar"));

    // A description is left with the key as well.
    wizard.clickTab(0);
    wizard->Text2->setFocus();
    QTest::keyClick(wizard->Text2, Qt::Key_Tab);
    QVERIFY(wizard->CmdLines->hasFocus());
}

void TestFrmBuild1::fitsASmallScreen()
{
    const Wizard wizard;
    QVERIFY(wizard->width() <= 1366 && wizard->height() <= 700);
    QCOMPARE(wizard->minimumSize(), wizard->maximumSize()); // a fixed border
}

void TestFrmBuild1::lineBoxes_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("setting");
    const auto row = [](const char* control, const char* caption, const char* line, const char* setting) {
        QTest::newRow(control) << QString::fromLatin1(control) << QString::fromLatin1(caption)
                               << QString::fromLatin1(line) << QByteArray(setting);
    };
    row("ChKPay1", "Money Order/Cashiers Check ", "Money Order/Cashiers Check", "QelPay/1");
    row("ChKPay2", "Personal Check ", "Personal Check", "QelPay/2");
    row("ChKPay3", "COD (cash on delivery) ", "COD (cash on delivery)", "QelPay/3");
    row("ChKPay4", "Visa/MasterCard ", "Visa/MasterCard", "QelPay/4");
    row("ChKPay5", "PayPal", "PayPal", "QelPay/5");
    row("ChKPay6", "Discover card", "Discover card", "QelPay/6");
    row("ChKPay7", "American Express ", "American Express", "QelPay/7");
    row("ChKPay8", "Electronic Checks ", "Electronic Checks", "QelPay/8");
    row("ChKPay9", "Billpoint", "Billpoint", "QelPay/9");
    row("ChKPay10", "Yahoo Pay Direct", "Yahoo Pay Direct", "QelPay/10");
    row("ChKPay11", "BidPay", "BidPay", "QelPay/12");
    row("ChkLS1", "Canada", "Canada", "QelLP/chk");
    row("ChkLS2", "Europe ", "Europe", "QelLP/chk2");
    row("ChkLS3", "Middle East ", "Middle East", "QelLP/chk3");
    row("ChkLS4", "Asia ", "Asia", "QelLP/chk4");
    row("ChkLS5", "Africa ", "Africa", "QelLP/chk5");
    row("ChkLS6", "Caribbean", "Caribbean", "QelLP/chk6");
    row("ChkLS7", "Mexico and Central America", "Mexico and Central America", "QelLP/chk7");
    row("ChkLS8", "South America ", "South America", "QelLP/chk8");
}

void TestFrmBuild1::lineBoxes()
{
    QFETCH(QString, control);
    QFETCH(QString, caption);
    QFETCH(QString, line);
    QFETCH(QByteArray, setting);
    const QByteArray start = "QelLP/opt=0 QelLP/opt3=1"; // regions are open
    Wizard wizard(webIni(start));
    const bool payment = control.startsWith(QLatin1String("ChKPay"));
    const QStringList& list = payment ? wizard->payments : wizard->regions;
    const QStringList& other = payment ? wizard->regions : wizard->payments;
    QCOMPARE(shown(wizard.control<CheckBox>(control)->text()), caption);

    wizard.click(qPrintable(control));
    QCOMPARE(list, QStringList(line));
    QCOMPARE(other, QStringList());
    wizard.click(qPrintable(control));
    QCOMPARE(list, QStringList());
    wizard.click(qPrintable(control));
    QCOMPARE(wizard.settings(), webIni(start)); // boxes are kept at the end

    wizard.click("Command2");
    QCOMPARE(wizard.settings(), webIni(start + ' ' + setting + "=1"));

    wizard.open();
    QVERIFY(wizard.control<CheckBox>(control)->isChecked());
    QCOMPARE(payment ? wizard->payments : wizard->regions, QStringList(line));
    wizard.click(qPrintable(control));
    wizard.click("Command2");
    QCOMPARE(wizard.settings(), webIni(start));
}

void TestFrmBuild1::listsKeepTheOrderOfTheClicks()
{
    const Wizard wizard;
    wizard.click("ChKPay9 ChKPay2 ChKPay5 OptLS3 ChkLS8 ChkLS1");
    QCOMPARE(wizard->payments, (QStringList{"Billpoint", "Personal Check", "PayPal"}));
    QCOMPARE(wizard->regions, (QStringList{"South America", "Canada"}));
    wizard.click("ChKPay2 ChKPay2 ChkLS8");
    QCOMPARE(wizard->payments, (QStringList{"Billpoint", "PayPal", "Personal Check"}));
    QCOMPARE(wizard->regions, QStringList{"Canada"});
}

void TestFrmBuild1::uncheckingRemovesTypedTwins()
{
    const Wizard wizard;
    wizard.fillAll();
    wizard.click("ChKPay9");
    wizard.type("Txtother", QStringLiteral("PayPal"));
    wizard.click("Command1");
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard->payments, (QStringList{"PayPal", "Billpoint", "PayPal"}));
    wizard.goBack();
    wizard.click("ChKPay5");
    QCOMPARE(wizard->payments, QStringList{"Billpoint"});

    // Of two neighbours the second isn't looked at.
    wizard.click("ChKPay9 ChKPay5 Command1");
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard->payments, (QStringList{"PayPal", "PayPal"}));
    wizard.goBack();
    wizard.click("ChKPay5");
    QCOMPARE(wizard->payments, QStringList{"PayPal"});
}

void TestFrmBuild1::enablingRules_data()
{
    QTest::addColumn<QByteArray>("clicks");
    QTest::addColumn<QString>("disabled");
    QTest::addColumn<QByteArray>("changes");
    const auto row = [](const char* name, const char* clicks, const QList<const char*>& disabled,
                        const char* changes) {
        QString all;
        for (const char* group : disabled)
            all += QLatin1String(group) + QLatin1Char(' ');
        QTest::newRow(name) << QByteArray(clicks) << all << QByteArray(changes);
    };
    row("start", "", {Addresses, Regions, Tax, "Label40"}, "");
    row("pictures", "OptP2", {Regions, Tax, "Label40"}, "");
    row("no picture again", "OptP2 OptP1", {Addresses, Regions, Tax, "Label40"}, "");
    row("worldwide", "OptLS2", {Addresses, Regions, Tax, "Label40"}, "QelLP/opt=0 QelLP/opt2=1");
    row("regions", "OptLS3", {Addresses, Tax, "Label40"}, "QelLP/opt=0 QelLP/opt3=1");
    row("regions, United States", "OptLS3 OptLS1", {Addresses, Regions, Tax, "Label40"}, "");
    row("regions, worldwide", "OptLS3 OptLS2", {Addresses, Regions, Tax, "Label40"},
        "QelLP/opt=0 QelLP/opt2=1");
    row("worldwide, regions", "OptLS2 OptLS3", {Addresses, Tax, "Label40"}, "QelLP/opt=0 QelLP/opt3=1");
    row("seller pays", "OptPS1", {Addresses, Regions, Calculated, Additional, Tax, "Label40 ChkZC ChkTR1"},
        "QelPS/opt=1 QelPS/opt2=0");
    row("seller, buyer", "OptPS1 OptPS2", {Addresses, Regions, Tax, "Label40"}, "");
    row("tax", "ChkTR1", {Addresses, Regions}, "QelPS/chk2=1");
    row("tax and none", "ChkTR1 ChkTR1", {Addresses, Regions, Tax, "Label40"}, "");
    row("tax, seller", "ChkTR1 OptPS1", {Addresses, Regions, Calculated, Additional, Tax, "ChkZC ChkTR1"},
        "QelPS/chk2=1 QelPS/opt=1 QelPS/opt2=0");
    row("tax, seller, buyer", "ChkTR1 OptPS1 OptPS2", {Addresses, Regions}, "QelPS/chk2=1");
    row("calculator", "ChkZC", {Addresses, Regions, Calculated, Tax, "Label40"}, "QelPS/chk=1");
    row("calculator and none", "ChkZC ChkZC", {Addresses, Regions, Tax, "Label40"}, "");
    row("calculator, seller, buyer", "ChkZC OptPS1 OptPS2", {Addresses, Regions, Calculated, Tax, "Label40"},
        "QelPS/chk=1");
    row("no terms", "ChkSlist", {Addresses, Regions, Tax, "Label40 Command5"}, "QelPS/ChkSlist=1");
    row("terms again", "ChkSlist ChkSlist", {Addresses, Regions, Tax, "Label40"}, "");
}

void TestFrmBuild1::enablingRules()
{
    QFETCH(QByteArray, clicks);
    QFETCH(QString, disabled);
    QFETCH(QByteArray, changes);
    const Wizard wizard;
    QCOMPARE(ruled(wizard, false).size(), 16 + 9 + 6);
    wizard.click(clicks.constData());
    QStringList expected = disabled.split(u' ', Qt::SkipEmptyParts);
    expected.sort();
    QCOMPARE(ruled(wizard, true), expected);
    QCOMPARE(wizard.settings(), webIni(changes));
}

void TestFrmBuild1::otherRegionShowsWhetherItIsOpen_data()
{
    QTest::addColumn<bool>("alike");
    QTest::newRow("on this desktop") << false;
    QTest::newRow("on a desktop that shows all fields alike") << true;
}

void TestFrmBuild1::otherRegionShowsWhetherItIsOpen()
{
    QFETCH(bool, alike);
    const QPalette before = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
    if (alike) {
        QPalette desktop = before;
        desktop.setColor(QPalette::Base, desktop.color(QPalette::Active, QPalette::Base)); // in all states
        QApplication::setPalette(desktop);
    }
    const Wizard wizard;
    const auto background = [&] { return wizard->Txtother2->palette().color(QPalette::Base); };
    const QPalette system = QApplication::palette();
    const QColor face = system.color(QPalette::Button);
    const QColor window = system.color(QPalette::Base);
    QVERIFY(face != window);
    QCOMPARE(background(), face);
    wizard.click("OptLS3");
    QCOMPARE(background(), window);
    wizard.click("OptLS2");
    QCOMPARE(background(), face);
    wizard.click("OptLS3");
    QCOMPARE(background(), window);
    wizard.click("OptLS1");
    QCOMPARE(background(), face);
}

void TestFrmBuild1::spaceBarWorksAsAClick()
{
    const Wizard wizard;
    wizard.clickTab(2);
    wizard->ChKPay4->setFocus();
    QTest::keyClick(wizard->ChKPay4, Qt::Key_Space);
    QCOMPARE(wizard->payments, QStringList{"Visa/MasterCard"});
    wizard.clickTab(3);
    wizard->OptLS1->setFocus();
    QTest::keyClick(wizard->OptLS1, Qt::Key_Down);
    QVERIFY(wizard->OptLS2->Value());
    QCOMPARE(wizard.settings(), webIni("QelLP/opt=0 QelLP/opt2=1"));
    QTest::keyClick(wizard->OptLS2, Qt::Key_Down);
    QCOMPARE(wizard.settings(), webIni("QelLP/opt=0 QelLP/opt3=1"));
}

void TestFrmBuild1::barsWriteTheDollars_data()
{
    QTest::addColumn<QString>("bar");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("most");
    QTest::newRow("handling") << "HScroll3"
                              << "TxSH1"
                              << "32767";
    QTest::newRow("insurance") << "HScroll2"
                               << "TxSI1"
                               << "900";
    QTest::newRow("additional") << "HScroll1"
                                << "TxAI1"
                                << "32767";
}

void TestFrmBuild1::barsWriteTheDollars()
{
    QFETCH(QString, bar);
    QFETCH(QString, field);
    QFETCH(QString, most);
    const Wizard wizard;
    auto* const scroll = wizard.control<ScrollBar>(bar);
    const auto texts = [&] {
        QMap<QString, QString> all;
        for (const char* name : {"TxSH1", "TxSH2", "TxSI1", "TxSI2", "TxAI1", "TxAI2"})
            all[QLatin1String(name)] = wizard.text(name);
        return all;
    };
    wizard.turnTo(scroll);
    auto expected = texts();
    QCOMPARE(scroll->Value(), 0);
    QTest::keyClick(scroll, Qt::Key_Right);
    expected[field] = QStringLiteral("1");
    QCOMPARE(texts(), expected);
    QTest::keyClick(scroll, Qt::Key_End);
    expected[field] = most;
    QCOMPARE(texts(), expected);
    QTest::keyClick(scroll, Qt::Key_Home);
    expected[field] = QStringLiteral("0");
    QCOMPARE(texts(), expected);

    // The text follows a drag.
    QStyleOptionSlider option;
    option.initFrom(scroll);
    option.orientation = Qt::Horizontal;
    option.maximum = scroll->maximum();
    option.pageStep = scroll->pageStep();
    option.subControls = QStyle::SC_All;
    const QPoint slider =
        scroll->style()
            ->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, scroll)
            .center();
    QTest::mousePress(scroll, Qt::LeftButton, {}, slider);
    QTest::mouseMove(scroll, slider + QPoint(20, 0));
    QVERIFY(scroll->Value() > 0);
    expected[field] = QString::number(scroll->Value());
    QCOMPARE(texts(), expected);
    QTest::mouseRelease(scroll, Qt::LeftButton, {}, slider + QPoint(20, 0));
    QCOMPARE(texts(), expected);
}

void TestFrmBuild1::barsFollowTheTyping_data()
{
    barsWriteTheDollars_data();
}

void TestFrmBuild1::barsFollowTheTyping()
{
    QFETCH(QString, bar);
    QFETCH(QString, field);
    QFETCH(QString, most);
    const Wizard wizard;
    const auto* const scroll = wizard.control<ScrollBar>(bar);
    const QByteArray name = field.toLatin1();
    const auto expect = [&](const char* typed, int value) {
        wizard.type(name.constData(), QLatin1String(typed));
        QCOMPARE(scroll->Value(), value);
        QCOMPARE(wizard.text(name.constData()), QString::fromLatin1(typed));
    };
    expect("12", 12);
    expect("007", 7);
    expect("-3", 0);
    expect("40000", most.toInt());
    expect("5.50", 5); // as far as it was a number
    expect("", 5);
    expect("free", 5);
    for (const char* other : {"HScroll1", "HScroll2", "HScroll3"}) {
        if (bar != QLatin1String(other))
            QCOMPARE(wizard.control<ScrollBar>(QLatin1String(other))->Value(), 0);
    }

    expect("12", 12);
    QTest::keyClick(wizard.control(bar), Qt::Key_Right);
    QCOMPARE(wizard.text(name.constData()), QStringLiteral("13"));
}

void TestFrmBuild1::termsButtons_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("caption");
    QTest::newRow("payment") << QByteArray("Command3") << "- Payment - Terms of Lists";
    QTest::newRow("location") << QByteArray("Command4") << "- Location Shipping - Terms of Lists";
    QTest::newRow("who pays") << QByteArray("Command5") << "- Pays Shipping - Terms of Lists";
}

void TestFrmBuild1::termsButtons()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, caption);
    const Wizard wizard;
    wizard.click(button.constData());
    QStringList captions;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            captions << window->windowTitle();
    }
    QVERIFY2(captions.contains(caption), qPrintable(captions.join(u'|')));
    QVERIFY(wizard->isVisible());
}

void TestFrmBuild1::restoresTheBoxes()
{
    const Wizard wizard(webIni("QelPay/12=1 QelPay/10=1 QelPay/3=yes QelPay/4=01 QelPay/1=1"));
    QCOMPARE(wizard->payments, (QStringList{"Money Order/Cashiers Check", "Yahoo Pay Direct", "BidPay"}));
    QVERIFY(wizard->ChKPay1->isChecked() && wizard->ChKPay10->isChecked() && wizard->ChKPay11->isChecked());
    QVERIFY(!wizard->ChKPay3->isChecked() && !wizard->ChKPay4->isChecked());
}

void TestFrmBuild1::restoresOneOption_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const char* settings, const char* selected, const char* after) {
        QTest::newRow(name) << QByteArray(settings) << QString::fromLatin1(selected) << QByteArray(after);
    };
    row("worldwide", "QelLP/opt=0 QelLP/opt2=1", "OptLS2 OptPS2", "QelLP/opt=0 QelLP/opt2=1");
    row("regions", "QelLP/opt=0 QelLP/opt3=1", "OptLS3 OptPS2", "QelLP/opt=0 QelLP/opt3=1");
    // The first "1" wins, and what it changes is kept at once.
    row("two ones", "QelLP/opt=0 QelLP/opt2=1 QelLP/opt3=1", "OptLS2 OptPS2", "QelLP/opt=0 QelLP/opt2=1");
    row("three ones", "QelLP/opt=1 QelLP/opt2=1 QelLP/opt3=1", "OptLS1 OptPS2", "QelLP/opt2=1 QelLP/opt3=1");
    row("none", "QelLP/opt=0", "OptLS1 OptPS2", "QelLP/opt=0");
    row("no numbers", "QelLP/opt=True QelLP/opt2=yes QelLP/opt3=11", "OptLS1 OptPS2",
        "QelLP/opt=True QelLP/opt2=yes QelLP/opt3=11");
    row("seller", "QelPS/opt=1 QelPS/opt2=0", "OptLS1 OptPS1", "QelPS/opt=1 QelPS/opt2=0");
    row("seller and buyer", "QelPS/opt=1 QelPS/opt2=1", "OptLS1 OptPS1", "QelPS/opt=1 QelPS/opt2=0");
    row("nobody", "QelPS/opt=0 QelPS/opt2=0", "OptLS1 OptPS2", "QelPS/opt=0 QelPS/opt2=0");
}

void TestFrmBuild1::restoresOneOption()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, selected);
    QFETCH(QByteArray, after);
    const Wizard wizard(webIni(settings));
    QStringList set;
    for (const char* name : {"OptLS1", "OptLS2", "OptLS3", "OptPS1", "OptPS2"}) {
        if (wizard.control<OptionButton>(QLatin1String(name))->Value())
            set << QLatin1String(name);
    }
    QCOMPARE(set.join(u' '), selected);
    QCOMPARE(wizard.settings(), webIni(after));
    QCOMPARE(wizard->ChkLS1->isEnabled(), set.contains(QLatin1String("OptLS3")));
    QCOMPARE(wizard->ChkZC->isEnabled(), set.contains(QLatin1String("OptPS2")));
}

void TestFrmBuild1::restoresRegionsForTheirOptionOnly()
{
    const QByteArray regions = "QelLP/chk=1 QelLP/chk8=1 QelLP/txt2=Japan";
    {
        const Wizard wizard(webIni("QelLP/opt=0 QelLP/opt3=1 " + regions));
        QCOMPARE(wizard->regions, (QStringList{"Canada", "South America"}));
        QCOMPARE(wizard.text("Txtother2"), QStringLiteral("Japan"));
    }
    const Wizard wizard(webIni("QelLP/opt=0 QelLP/opt2=1 " + regions));
    QCOMPARE(wizard->regions, QStringList());
    QCOMPARE(wizard.text("Txtother2"), QString());
    QVERIFY(!wizard->ChkLS1->isChecked());
    QCOMPARE(wizard.settings(), webIni("QelLP/opt=0 QelLP/opt2=1 " + regions));
    wizard.click("Command2"); // what isn't checked is kept as such
    QCOMPARE(wizard.settings(), webIni("QelLP/opt=0 QelLP/opt2=1"));
}

void TestFrmBuild1::restoresWhoPays()
{
    const Wizard wizard(webIni("QelPS/chk=1 QelPS/chk2=1 QelPS/txt=8.25 QelPS/txt2=Ontario QelPS/TxSH1=12 "
                               "QelPS/TxSH2=50 QelPS/TxSI1=x QelPS/TxSI2= QelPS/TxAI1=-1 QelPS/TxAI2=5 "
                               "QelPS/ChkSlist=1"));
    const Listing record = wizard->listing();
    QVERIFY(record.calculator && record.taxed && record.withoutPaysTerms);
    QCOMPARE((QStringList{record.shippingDollars, record.shippingCents, record.insuranceDollars,
                          record.insuranceCents, record.additionalDollars, record.additionalCents,
                          record.taxRate, record.taxState}),
             (QStringList{"12", "50", "x", "", "-1", "5", "8.25", "Ontario"}));
    QStringList expected = names(Addresses) + names(Regions) + names(Calculated) + names("Command5");
    expected.sort();
    QCOMPARE(ruled(wizard, true), expected);
    QCOMPARE(wizard->HScroll3->Value(), 0); // bars write to the fields and never follow them
}

void TestFrmBuild1::restoresTaxBesideASellerWhoPays()
{
    // The tax box comes after the option and opens its fields once more.
    const Wizard wizard(webIni("QelPS/opt=1 QelPS/opt2=0 QelPS/chk2=1"));
    QStringList expected =
        names(Addresses) + names(Regions) + names(Calculated) + names(Additional) + names("ChkZC ChkTR1");
    expected.sort();
    QCOMPARE(ruled(wizard, true), expected);
}

void TestFrmBuild1::restoresOtherTexts_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QByteArray("11=Gold coins\r\n") << "Gold coins";
    QTest::newRow("none") << QByteArray("11=0\r\n") << "";
    QTest::newRow("empty") << QByteArray("11=\r\n") << "";
    QTest::newRow("missing") << QByteArray() << "";
    QTest::newRow("00") << QByteArray("11=00\r\n") << "00";
}

void TestFrmBuild1::restoresOtherTexts()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, text);
    const Wizard wizard(webIni().replace("11=0\r\n", line));
    QCOMPARE(wizard.text("Txtother"), text);
    QCOMPARE(wizard->payments, QStringList()); // it goes to the list with OK
}

void TestFrmBuild1::firstRunWithoutKeys()
{
    const Wizard wizard("");
    for (const char* name : {"TxST1", "TxSH1", "TxSH2", "TxSI1", "TxSI2", "TxAI1", "TxAI2"})
        QCOMPARE(wizard.text(name), QString());
    QCOMPARE(wizard->TxST2->Text(), QString());
    QVERIFY(wizard->OptLS1->Value() && wizard->OptPS2->Value());
    wizard.fill();
    wizard.click("Command1"); // blank costs are not "0" and "00"
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard.settings(), QByteArray());
}

void TestFrmBuild1::beginsAnewWithTheItem()
{
    Wizard wizard;
    wizard.fillAll();
    wizard.click("OptP2");
    wizard.type("TxP1", QStringLiteral("http://a/b.jpg"));
    wizard.click("Command2");
    QVERIFY(!isLoaded<FrmBuild1>());
    wizard.open();
    const Listing record = wizard->listing();
    QCOMPARE(record.title + record.description, QString());
    QVERIFY(!record.withPictures);
    QCOMPARE(wizard.text("TxP1"), QStringLiteral("http://"));
    QCOMPARE(record.payments, QStringList{"PayPal"});
    QCOMPARE(record.shippingDollars, QStringLiteral("4"));
}

void TestFrmBuild1::savesOnUnload_data()
{
    QTest::addColumn<QByteArray>("way");
    for (const char* way : {"Cancel", "Escape", "close button", "Unload"})
        QTest::newRow(way) << QByteArray(way);
}

void TestFrmBuild1::savesOnUnload()
{
    QFETCH(QByteArray, way);
    const Wizard wizard;
    wizard.click("ChKPay1 ChKPay11 OptLS3 ChkLS7 ChkTR1");
    wizard.type("Txtother", QStringLiteral("Barter"));
    wizard.type("Txtother2", QStringLiteral("Japan"));
    wizard.type("TxSH1", QStringLiteral("3"));
    wizard.type("TxSH2", QStringLiteral("95"));
    wizard.type("TxSI1", QStringLiteral("1"));
    wizard.type("TxSI2", QStringLiteral("05"));
    wizard.type("TxAI1", QStringLiteral("2"));
    wizard.type("TxAI2", QStringLiteral("25"));
    wizard.type("TxST1", QStringLiteral("7.5"));
    wizard.type("TxST2", QStringLiteral("Utah"));
    QCOMPARE(wizard.settings(), webIni("QelLP/opt=0 QelLP/opt3=1 QelPS/chk2=1"));
    if (way == "Cancel") {
        wizard.click("Command2");
    } else if (way == "Escape") {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    } else if (way == "Unload") {
        wizard->Unload();
    } else {
        wizard->close();
    }
    QVERIFY(!isLoaded<FrmBuild1>());
    QVERIFY(!isLoaded<FrmBuild2>());
    QCOMPARE(
        wizard.settings(),
        webIni(
            "QelPay/1=1 QelPay/12=1 QelPay/11=Barter QelLP/opt=0 QelLP/opt3=1 QelLP/chk7=1 QelLP/txt2=Japan "
            "QelPS/chk2=1 QelPS/txt=7.5 QelPS/txt2=Utah QelPS/TxSH1=3 QelPS/TxSH2=95 QelPS/TxSI1=1 "
            "QelPS/TxSI2=05 QelPS/TxAI1=2 QelPS/TxAI2=25"));
}

void TestFrmBuild1::savesIntoAnEmptyFolder()
{
    const Wizard wizard("");
    wizard.click("ChKPay2 Command2");
    QCOMPARE(wizard.settings(),
             QByteArray("[QelPay]\r\n1=0\r\n2=1\r\n3=0\r\n4=0\r\n5=0\r\n6=0\r\n7=0\r\n8=0\r\n"
                        "9=0\r\n10=0\r\n12=0\r\n11=0\r\n"
                        "\r\n[QelLP]\r\nchk=0\r\nchk2=0\r\nchk3=0\r\nchk4=0\r\nchk5=0\r\n"
                        "chk6=0\r\nchk7=0\r\nchk8=0\r\ntxt2=0\r\n"
                        "\r\n[QelPS]\r\ntxt=\r\ntxt2=\r\nTxSH1=\r\nTxSH2=\r\nTxSI1=\r\n"
                        "TxSI2=\r\nTxAI1=\r\nTxAI2=\r\n"));
}

void TestFrmBuild1::hiddenPageSavesNothingYet()
{
    const Wizard wizard;
    wizard.fillAll();
    wizard.click("Command1");
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard.settings(), webIni());
    wizard->Unload();
    QCOMPARE(wizard.settings(), webIni("QelPay/5=1 QelPS/TxSH1=4"));
}

void TestFrmBuild1::messagesInOrder()
{
    ScriptedDoors script;
    const Wizard wizard;
    // Each message leads to where the answer is given, whatever page is up.
    const auto refused = [&](const char* prompt, int tab, const char* control) {
        for (const int before : {1, tab}) {
            wizard.clickTab(before);
            script.answerMsgBox(MsgAnswer::Ok);
            wizard.click("Command1");
            QCOMPARE(script.takeAsked(), QStringList{message(prompt)});
            QVERIFY(wizard->isVisible() && !isLoaded<FrmBuild2>());
            QCOMPARE(wizard->SSTab1->Tab(), tab);
            QCOMPARE(wizard->focusWidget(), wizard.control(QLatin1String(control)));
            QVERIFY(!wizard->reachedPage2);
        }
    };
    wizard.click("OptLS3");
    wizard.type("Txtother", QStringLiteral("Barter"));
    wizard.type("Txtother2", QStringLiteral("Japan"));
    refused(NoTitle, 0, "Text1");
    wizard.type("Text1", QStringLiteral(" "));
    refused(NoDescription, 0, "Text2");
    wizard.type("Text2", QStringLiteral(" "));
    refused(NoPayment, 2, "ChKPay1");
    wizard.click("ChKPay11");
    refused(NoRegion, 3, "ChkLS1");
    wizard.click("ChkLS5");
    refused(NoCosts, 4, "TxSH1");
    QCOMPARE(wizard->TxSH1->selectedText(), QStringLiteral("0"));
    QCOMPARE(wizard->payments, QStringList{"BidPay"});
    QCOMPARE(wizard->regions, QStringList{"Africa"});

    wizard.type("TxSH2", QStringLiteral("50"));
    wizard.click("Command1");
    QVERIFY(wizard.onPage2());
    QVERIFY(wizard->reachedPage2);
    QCOMPARE(wizard->payments, (QStringList{"BidPay", "Barter"}));
    QCOMPARE(wizard->regions, (QStringList{"Africa", "Japan"}));
}

void TestFrmBuild1::shippingCosts_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<bool>("passes");
    QTest::newRow("none") << QByteArray() << false;
    QTest::newRow("0.0") << QByteArray("QelPS/TxSH2=0") << true;
    QTest::newRow("00.00") << QByteArray("QelPS/TxSH1=00") << true;
    QTest::newRow("blank dollars") << QByteArray("QelPS/TxSH1=") << true;
    QTest::newRow("blank cents") << QByteArray("QelPS/TxSH2=") << true;
    QTest::newRow("5.00") << QByteArray("QelPS/TxSH1=5") << true;
    QTest::newRow("0.50") << QByteArray("QelPS/TxSH2=50") << true;
    QTest::newRow("calculator") << QByteArray("QelPS/chk=1") << true;
    QTest::newRow("seller pays") << QByteArray("QelPS/opt=1 QelPS/opt2=0") << true;
    QTest::newRow("others alone") << QByteArray("QelPS/TxSI1=5 QelPS/TxAI1=5") << false;
}

void TestFrmBuild1::shippingCosts()
{
    QFETCH(QByteArray, settings);
    QFETCH(bool, passes);
    ScriptedDoors script;
    const Wizard wizard(webIni(settings));
    wizard.fill();
    if (!passes)
        script.answerMsgBox(MsgAnswer::Ok);
    wizard.click("Command1");
    QCOMPARE(script.asked, passes ? QStringList() : QStringList{message(NoCosts)});
    QCOMPARE(wizard.onPage2(), passes);
}

void TestFrmBuild1::pictureAddresses_data()
{
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QStringList>("list");
    QTest::newRow("untouched") << QStringList() << QStringList();
    QTest::newRow("blanked") << QStringList{"", "", "", "", "", ""} << QStringList();
    QTest::newRow("all") << QStringList{"http://a/1", "http://a/2", "http://a/3",
                                        "4",          "http://a/5", "http://a/6"}
                         << QStringList{"http://a/1", "http://a/2", "http://a/3",
                                        "4",          "http://a/5", "http://a/6"};
    QTest::newRow("gaps") << QStringList{"", "b", "http://", "d", "", "f"} << QStringList{"b", "d", "f"};
    QTest::newRow("nearly") << QStringList{"http:// ", "HTTP://", " ", "http:/"}
                            << QStringList{"http:// ", "HTTP://", " ", "http:/"};
    QTest::newRow("twins") << QStringList{"a", "a"} << QStringList{"a", "a"};
}

void TestFrmBuild1::pictureAddresses()
{
    QFETCH(QStringList, typed);
    QFETCH(QStringList, list);
    const Wizard wizard;
    wizard.fillAll();
    wizard.click("OptP2");
    for (int i = 0; i < typed.size(); ++i)
        wizard.type(qPrintable(QStringLiteral("TxP%1").arg(i + 1)), typed[i]);
    QCOMPARE(wizard->pictures, QStringList());
    wizard.click("Command1");
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard->pictures, list);
    QVERIFY(wizard->listing().withPictures);
    // Page 2 offers picture styles, also without an address; two of them are for one picture.
    const FrmBuild2& page2 = *form<FrmBuild2>();
    QVERIFY(page2.Frame7->isVisible());
    for (const size_t style : {0U, 2U})
        QCOMPARE(page2.Chk.at(style)->isEnabled(), list.size() <= 1);
    for (const size_t style : {1U, 3U})
        QVERIFY(page2.Chk.at(style)->isEnabled());
}

void TestFrmBuild1::picturesStayWithoutTheirOption()
{
    const Wizard wizard;
    wizard.fillAll();
    wizard.click("OptP2");
    wizard.type("TxP3", QStringLiteral("c"));
    wizard.click("Command1");
    wizard.goBack();
    wizard.type("TxP1", QStringLiteral("a"));
    wizard.click("Command1");
    QCOMPARE(wizard->pictures, (QStringList{"a", "c"})); // built anew
    wizard.goBack();
    wizard.click("OptP1 Command1");
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard->pictures, (QStringList{"a", "c"}));
    QVERIFY(!wizard->listing().withPictures);
}

void TestFrmBuild1::okGoesToPage2()
{
    const Wizard wizard;
    wizard.fillAll();
    wizard.click("Command1");
    QVERIFY(wizard.onPage2());
    QVERIFY(!form<FrmBuild2>()->isModal());
    QVERIFY(!form<FrmBuild2>()->Frame7->isVisible()); // there are no pictures
    QVERIFY(wizard->reachedPage2);
    QCOMPARE(wizard->payments, QStringList{"PayPal"});
    QCOMPARE(wizard->regions, QStringList());
    QVERIFY(isLoaded<FrmBuild1>());
    QCOMPARE(form<FrmBuild1>()->listing().title, QStringLiteral("A lamp"));
}

void TestFrmBuild1::okAfterBackAddsOtherAgain()
{
    const Wizard wizard(webIni("QelPay/11=Barter QelLP/opt=0 QelLP/opt3=1 QelLP/chk4=1 QelLP/txt2=Japan"));
    wizard.fillAll();
    wizard.click("Command1");
    QVERIFY(wizard.onPage2());
    wizard.goBack();
    QCOMPARE(wizard->payments, (QStringList{"PayPal", "Barter"}));
    wizard.click("ChKPay1 Command1");
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard->payments, (QStringList{"PayPal", "Barter", "Money Order/Cashiers Check", "Barter"}));
    QCOMPARE(wizard->regions, (QStringList{"Asia", "Japan", "Japan"}));
}

void TestFrmBuild1::enterPressesOk()
{
    ScriptedDoors script;
    const Wizard wizard(webIni("QelPS/chk2=1"));
    QVERIFY(wizard->Command1->isDefault());
    for (const char* name :
         {"Text1", "Txtother", "ChKPay3", "OptLS1", "TxSH1", "HScroll3", "TxST2", "Command1"}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            auto* const widget = wizard.control(QLatin1String(name));
            wizard.turnTo(widget);
            widget->setFocus();
            script.answerMsgBox(MsgAnswer::Ok);
            QTest::keyClick(widget, key);
            QCOMPARE(script.takeAsked(), QStringList{message(NoTitle)});
        }
    }
    // In the description it begins a line.
    wizard.type("Text2", QStringLiteral("a"));
    QTest::keyClick(wizard->Text2, Qt::Key_Return);
    QTest::keyClicks(wizard->Text2, QStringLiteral("b"));
    QCOMPARE(wizard->listing().description, QStringLiteral("a\r\nb"));
    // A button that has the focus is the one that is pressed.
    wizard->Command2->setFocus();
    QTest::keyClick(wizard->Command2, Qt::Key_Return);
    QVERIFY(!isLoaded<FrmBuild1>());
}

void TestFrmBuild1::recordHoldsAllFields()
{
    const Wizard wizard;
    wizard.type("Text1", QStringLiteral("Lamp"));
    wizard.type("Text2", QStringLiteral("Old."));
    wizard.click("OptP2 ChKPay5 OptLS2 ChkTR1 ChkSlist");
    int n = 1;
    for (const char* name : {"TxSH1", "TxSH2", "TxSI1", "TxSI2", "TxAI1", "TxAI2", "TxST1", "TxST2"})
        wizard.type(name, QString::number(n++));
    wizard.click("ChkZC");
    Listing record = wizard->listing();
    QCOMPARE(record.title, QStringLiteral("Lamp"));
    QCOMPARE(record.description, QStringLiteral("Old."));
    QVERIFY(record.withPictures);
    QCOMPARE(record.payments, QStringList{"PayPal"});
    QVERIFY(!record.unitedStatesOnly && record.worldwide && !record.someRegions);
    QVERIFY(!record.sellerPays && record.buyerPays);
    QVERIFY(record.calculator && record.taxed && record.withoutPaysTerms);
    QCOMPARE((QStringList{record.shippingDollars, record.shippingCents, record.insuranceDollars,
                          record.insuranceCents, record.additionalDollars, record.additionalCents,
                          record.taxRate, record.taxState}),
             (QStringList{"1", "2", "3", "4", "5", "6", "7", "8"}));

    wizard.click("OptLS3 ChkLS2 OptPS1");
    record = wizard->listing();
    QVERIFY(!record.unitedStatesOnly && !record.worldwide && record.someRegions);
    QVERIFY(record.sellerPays && !record.buyerPays);
    QCOMPARE(record.regions, QStringList{"Europe"});
}

void TestFrmBuild1::anyTextGoesThrough_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("HTML") << QStringLiteral("<B>\"Lamp\"</B> & 'shade' <!-- Body-title2 -->");
    QTest::newRow("emoji") << QStringLiteral("\U0001F4A1 lamp \U0001F469\u200D\U0001F527");
    QTest::newRow("right to left") << QStringLiteral(
        "\u05DE\u05E0\u05D5\u05E8\u05D4 lamp \u202E\u0645\u0635\u0628\u0627\u062D");
    QTest::newRow("no-break blank") << QStringLiteral("a\u00A0b\u00ADc");
    QTest::newRow("percent and ampersand") << QStringLiteral("100% && %1 %n");
}

void TestFrmBuild1::anyTextGoesThrough()
{
    QFETCH(QString, text);
    Wizard wizard;
    QApplication::clipboard()->setText(text);
    for (const char* name : {"Text1", "Text2", "Txtother"}) {
        wizard.type(name, QString());
        QTest::keyClick(wizard.control(QLatin1String(name)), Qt::Key_V, Qt::ControlModifier);
    }
    QCOMPARE(wizard->listing().title, text);
    QCOMPARE(wizard->listing().description, text);
    wizard.click("ChKPay5 ChkZC Command1");
    QVERIFY(wizard.onPage2());
    QCOMPARE(wizard->payments, (QStringList{"PayPal", text}));
    wizard->Unload();
    QVERIFY(wizard.settings().contains("\r\n11=" + text.toUtf8() + "\r\n"));
    wizard.open();
    QCOMPARE(wizard.text("Txtother"), text);
}

void TestFrmBuild1::longTexts()
{
    Wizard wizard;
    const QString lines = QStringLiteral("A line of the description, <B>bold</B>.\r\n").repeated(26'000);
    QVERIFY(lines.size() > 1'000'000);
    const QString line = QString(1'000'000, u'x');
    const auto paste = [&](const char* name, const QString& text) {
        wizard.type(name, QString());
        QApplication::clipboard()->setText(text);
        QTest::keyClick(wizard.control(QLatin1String(name)), Qt::Key_V, Qt::ControlModifier);
    };
    paste("Text2", lines);
    QVERIFY(wizard->listing().description == lines);
    paste("Text2", QStringLiteral("one\rtwo\nthree\r\n\u2029four\u2028"));
    QCOMPARE(wizard->listing().description, QStringLiteral("one\r\ntwo\r\nthree\r\n\r\nfour\r\n"));
    paste("Text1", line);
    QVERIFY(wizard->listing().title == line);
    paste("Txtother", QString(300, u'y'));
    wizard.click("Command2");
    QVERIFY(wizard.settings().contains("\r\n11=" + QByteArray(300, 'y') + "\r\n"));
    wizard.open();
    QCOMPARE(wizard.text("Txtother"), QString(254, u'y')); // the most that a setting gives back
}

void TestFrmBuild1::readOnlySettings()
{
    const QByteArray settings = webIni("QelLP/opt=0 QelLP/opt2=1 QelLP/opt3=1 QelPay/2=1");
    ScriptedDoors script;
    Wizard wizard(settings);
    const QString file = wizard.folder().path(QStringLiteral("web.ini"));
    wizard->Unload();
    wizard.folder().write(QStringLiteral("web.ini"), settings);
    QVERIFY(QFile::setPermissions(file, QFileDevice::ReadOwner));
    wizard.open();
    QVERIFY(wizard->OptLS2->Value()); // the first "1" wins, kept or not
    QCOMPARE(wizard->payments, QStringList{"Personal Check"});
    wizard.click("ChkZC ChkSlist OptLS1 OptPS1 ChKPay1 Command2");
    QVERIFY(!isLoaded<FrmBuild1>());
    QCOMPARE(script.asked, QStringList());
    QCOMPARE(wizard.settings(), settings);
}

void TestFrmBuild1::settingsThatAreAFolder()
{
    ScriptedDoors script;
    Wizard wizard;
    const QString file = wizard.folder().path(QStringLiteral("web.ini"));
    wizard->Unload();
    QVERIFY(QFile::remove(file));
    QVERIFY(QDir().mkdir(file));
    wizard.open();
    QCOMPARE(wizard.text("TxSH1"), QString());
    wizard.fill();
    wizard.click("OptLS2 Command1");
    QVERIFY(wizard.onPage2());
    wizard->Unload();
    QCOMPARE(script.asked, QStringList());
    QVERIFY(QDir(file).isEmpty());
}

void TestFrmBuild1::toolbarOpensThePage()
{
    const ProgramFolder folder;
    ScriptedDoors script;
    FrmWeb* const main = form<FrmWeb>();
    connectOpenings(main);
    main->Show();
    QVERIFY(QTest::qWaitForWindowActive(main));
    const auto press = [main] {
        QTest::mouseClick(main->Toolbar1->widgetForAction(main->toolbarButton(Tool::Create)), Qt::LeftButton);
    };
    main->document().setDirty(true);
    script.answerMsgBox(MsgAnswer::Cancel);
    press();
    QVERIFY(!isLoaded<FrmBuild1>());

    script.answerMsgBox(MsgAnswer::No);
    press();
    QVERIFY(isLoaded<FrmBuild1>());
    FrmBuild1* const page = form<FrmBuild1>();
    QVERIFY(page->isVisible());
    page->OptP2->setValue(true);
    press(); // the same page comes to the front
    QCOMPARE(form<FrmBuild1>(), page);
    QVERIFY(page->OptP2->Value());

    page->Unload();
    main->Unload();
    QCOMPARE(script.ended, 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

WEB_TEST_MAIN(TestFrmBuild1)
#include "tst_frmbuild1.moc"
