#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "colour/ColorSample.h"
#include "colour/Fader5.h"
#include "services/Markers.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QTimer>

namespace {

const QString Section = QStringLiteral("Fader5");
const QString Filter = QStringLiteral("FPC Files (*.fpc)|*.fpc|");
const QString NoWord = QStringLiteral("MsgBox|Error|Cannot add to editor because no word.|Information|Ok");
const QString PreviewIsOpen = QStringLiteral(
    "MsgBox|Error|Cannot add to editor because preview is open, please click tag ''Editor'' to "
    "open first.|Information|Ok");
const QString Plain = QStringLiteral("<Font face=Arial size=3 color=#000000>ab</FONT>");

using Bar = ScrollBar* Fader5::*;
using Sample = ColorSample* Fader5::*;
using ColorText = QString Fader5::*;

struct RowNames
{
    const char* name;
    Bar red;
    Bar green;
    Bar blue;
    Sample sample;
    ColorText text;
};

const std::array<RowNames, 12> Rows = {{
    {"G", &Fader5::RedG, &Fader5::GreenG, &Fader5::BlueG, &Fader5::FColor1, &Fader5::Text8},
    {"X", &Fader5::RedX, &Fader5::GreenX, &Fader5::BlueX, &Fader5::ColorX, &Fader5::TxtC1},
    {"Z", &Fader5::RedZ, &Fader5::GreenZ, &Fader5::BlueZ, &Fader5::ColorZ, &Fader5::TxtC2},
    {"A", &Fader5::RedA, &Fader5::GreenA, &Fader5::BlueA, &Fader5::Color1, nullptr},
    {"B", &Fader5::RedB, &Fader5::GreenB, &Fader5::BlueB, &Fader5::color2, nullptr},
    {"C", &Fader5::RedC, &Fader5::GreenC, &Fader5::BlueC, &Fader5::color3, nullptr},
    {"D", &Fader5::RedD, &Fader5::GreenD, &Fader5::BlueD, &Fader5::color4, nullptr},
    {"E", &Fader5::RedE, &Fader5::GreenE, &Fader5::BlueE, &Fader5::Color5, nullptr},
    {"F", &Fader5::RedF, &Fader5::GreenF, &Fader5::BlueF, &Fader5::Hcolor1, &Fader5::Text5},
    {"H", &Fader5::RedH, &Fader5::GreenH, &Fader5::BlueH, &Fader5::TbColor1, &Fader5::Text13},
    {"I", &Fader5::RedI, &Fader5::GreenI, &Fader5::BlueI, &Fader5::TbColor2, &Fader5::Text17},
    {"J", &Fader5::RedJ, &Fader5::GreenJ, &Fader5::BlueJ, &Fader5::BColor1, &Fader5::Text20},
}};

/// The fader beside a main window.
class Fader : public MainWindow
{
public:
    explicit Fader(const QByteArray& source = QByteArray(), int selStart = 0, int selLength = 0)
    {
        web->RichTextBox1->setText(source);
        web->RichTextBox1->setSelStart(selStart);
        web->RichTextBox1->setSelLength(selLength);
        show();
    }

    Fader5* fader = nullptr;

    void show()
    {
        fader = form<Fader5>();
        fader->Show();
        if (!QTest::qWaitForWindowActive(fader))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
    }
    void write(const QString& text) const { fader->Text1->setPlainText(text); }
    /// What a press on Copy gives, without its line end.
    QString copied() const
    {
        click(fader->Command16);
        const QString text = Clipboard::GetText();
        if (!text.endsWith(QStringLiteral("\r\n")))
            QTest::qFail("there is no line end", __FILE__, __LINE__);
        return text.chopped(2);
    }
    /// What the engine says of the sample.
    QString ask(const char* script) const
    {
        return fader->WebBrowser1->evaluate(QString::fromLatin1(script)).value_or(QVariant()).toString();
    }
    QString sampleText() const { return pageText(fader->WebBrowser1); }
    void load(const QByteArray& bytes)
    {
        folder.write(QStringLiteral("mine.fpc"), bytes);
        doors.answerOpen(folder.path(QStringLiteral("mine.fpc")));
        click(fader->Command5);
    }
    QList<int> colors() const
    {
        QList<int> colors;
        for (const RowNames& row : Rows)
            colors << (fader->*row.sample)->BackColor();
        return colors;
    }
};

QString plain(const QAbstractButton* button)
{
    return button->text().remove(u'&');
}

} // namespace

class TestFader5 : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void state();
    void ranges();
    void fonts();
    void markedTextComesWithoutMarkup_data();
    void markedTextComesWithoutMarkup();
    void nothingMarkedLeavesTheClipboard();

    void sampleFollowsTyping();
    void sampleHasSmallTags();
    void waveWaitsForTheNextRefresh();
    void stylesAndFonts();
    void sizes_data();
    void sizes();
    void modes();
    void highlight();
    void table();
    void borderColor();
    void numberBars_data();
    void numberBars();
    void fieldsGoOutAsTyped();
    void alignments();

    void rows_data();
    void rows();
    void pickAColor_data();
    void pickAColor();
    void toolClosedWhileTheDialogIsOpen();

    void links();
    void copyWithoutText();
    void addWithoutText();
    void addAtTheCaret();
    void addOnPreview();
    void addOnInternet();
    void paragraphBox();
    void closesByItsBox_data();
    void closesByItsBox();
    void boxesAreKept();
    void missingKeyStopsTheLoad_data();
    void missingKeyStopsTheLoad();
    void longestText();
    void cancelForgets();
    void mainWindowGoes();
    void descriptions();

    void presetSaves();
    void presetLoads();
    void presetThatIsNone_data();
    void presetThatIsNone();
    void presetMissing();
    void presetCancelled();
    void presetIntoAFolderThatIsNone();
};

void TestFader5::texts()
{
    const Fader window;
    const Fader5& f = *window.fader;
    QCOMPARE(f.windowTitle(), QStringLiteral(" Font Properties"));
    const QList<std::pair<const QAbstractButton*, const char*>> captions = {
        {f.Opt1, "One Color"},       {f.Opt2, "Two Colors"},
        {f.Opt3, "Five Color Fade"}, {f.Check4, "Wavy"},
        {f.Check2, "paragraph."},    {f.Check3, "Close when select copy or add editor."},
        {f.Command6, "URL Link"},    {f.Command9, "Email Link"},
        {f.Command4, "Color Save"},  {f.Command5, "Color Load"},
        {f.Command16, "Copy"},       {f.Command2, "Add to Editor"},
        {f.Command7, "Cancel"},
    };
    for (const auto& [button, caption] : captions)
        QCOMPARE(plain(button), QLatin1String(caption));
    const QList<std::pair<const QWidget*, const char*>> tips = {
        {f.Combo1, "Font"},
        {f.Combo2, "Size"},
        {f.chkBold, "Bold"},
        {f.chkItalic, "Italic"},
        {f.chkUnderline, "Underline"},
        {f.chkStrikeout, "Strikeout"},
        {f.Option6, "Table Left"},
        {f.Option5, "Table Center"},
        {f.Option4, "Table Right"},
        {f.Option1, "Left"},
        {f.Option2, "Center"},
        {f.Option3, "Right"},
        {f.Command2, "OK to add it"},
        {f.Frame5, "Background Color"},
        {f.Frame7, "Borde Color"},
    };
    for (const auto& [widget, tip] : tips)
        QCOMPARE(widget->toolTip(), QLatin1String(tip));
    const QList<std::pair<const QGroupBox*, const char*>> frames = {
        {f.Frame2, "   Highlight"}, {f.Frame4, "     Table"},     {f.Frame5, "BG Color"},
        {f.Frame6, "Cell Color"},   {f.Frame7, "   Borde Color"}, {f.Frame8, "View Sample"},
    };
    for (const auto& [frame, title] : frames)
        QCOMPARE(frame->title(), QLatin1String(title));
    const QList<std::pair<const QLabel*, const char*>> labels = {{f.Label7, "Border:"},
                                                                 {f.Label5, "Cellpadding:"},
                                                                 {f.Label6, "Cellspacing:"},
                                                                 {f.Label3, "Width:"},
                                                                 {f.Label2, "Height:"}};
    for (const auto& [label, text] : labels)
        QCOMPARE(label->text(), QLatin1String(text));
}

void TestFader5::state()
{
    const Fader window;
    const Fader5& f = *window.fader;
    QCOMPARE(f.Text1->toPlainText(), QString());
    QVERIFY(f.Opt1->Value());
    QCOMPARE(f.Combo1->Text(), QStringLiteral("Arial"));
    QCOMPARE(f.Combo2->Text(), QStringLiteral("Normal"));
    for (const QLineEdit* box : {f.Combo6, f.Combo3, f.Combo5})
        QCOMPARE(box->text(), QStringLiteral("0"));
    for (const QLineEdit* box : {f.Combo9, f.Combo8})
        QCOMPARE(box->text(), QStringLiteral("0%"));
    QVERIFY(f.Option6->Value());
    for (const OptionButton* option : {f.Option1, f.Option2, f.Option3}) {
        QVERIFY(!option->Value());
        QVERIFY(!option->isEnabled());
    }
    for (const CheckBox* box : {f.Check1, f.Check2, f.Check3, f.Check4, f.Check7, f.ChkNoB, f.chkBold,
                                f.chkItalic, f.chkUnderline, f.chkStrikeout})
        QCOMPARE(box->Value(), 0);
    for (const RowNames& row : Rows) {
        QCOMPARE((f.*row.sample)->BackColor(), 0);
        if (row.text && row.text != &Fader5::TxtC1 && row.text != &Fader5::TxtC2)
            QCOMPARE(f.*row.text, QStringLiteral("#000000"));
    }
    QVERIFY(f.RedG->isEnabled());
    for (const ScrollBar* bar :
         {f.RedX, f.BlueZ, f.RedA, f.BlueE, f.RedF, f.RedH, f.RedI, f.RedJ, f.HScroll1, f.HScroll5})
        QVERIFY(!bar->isEnabled());
    QVERIFY(!f.ChkNoB->isEnabled());
    QVERIFY(f.Check7->isEnabled());
    QVERIFY(f.Check1->isEnabled());
    QCOMPARE(f.focusWidget(), f.Text1);
    QCOMPARE(f.WebBrowser1->designMode(), DesignMode::Off);
}

void TestFader5::ranges()
{
    const Fader window;
    for (const RowNames& row : Rows) {
        for (const Bar bar : {row.red, row.green, row.blue}) {
            QCOMPARE((window.fader->*bar)->minimum(), 0);
            QCOMPARE((window.fader->*bar)->maximum(), 255);
            QCOMPARE((window.fader->*bar)->Value(), 0);
        }
    }
    const Fader5& f = *window.fader;
    for (const ScrollBar* bar : {f.HScroll1, f.HScroll2, f.HScroll3})
        QCOMPARE(bar->maximum(), 300);
    for (const ScrollBar* bar : {f.HScroll4, f.HScroll5})
        QCOMPARE(bar->maximum(), 900);
}

void TestFader5::fonts()
{
    const Fader window;
    QStringList listed;
    for (int i = 0; i < window.fader->Combo1->ListCount(); ++i)
        listed << window.fader->Combo1->List(i);
    QCOMPARE(listed, QFontDatabase::families());
    QStringList sizes;
    for (int i = 0; i < window.fader->Combo2->ListCount(); ++i)
        sizes << window.fader->Combo2->List(i);
    QCOMPARE(sizes.join(u' '), QStringLiteral("Normal 8 10 12 14 18 24 36"));
}

void TestFader5::markedTextComesWithoutMarkup_data()
{
    QTest::addColumn<QByteArray>("marked");
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << QByteArray("old clock") << "old clock";
    QTest::newRow("tags") << QByteArray("<B>old</B> <FONT color=red>clock</FONT>") << "old clock";
    QTest::newRow("entities") << QByteArray("Tick &amp; tock &lt;") << "Tick & tock <";
    QTest::newRow("other letters") << QByteArray("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80")
                                   << QStringLiteral("\u00E9t\u00E9 \U0001F600");
    QTest::newRow("line break") << QByteArray("old<BR>clock") << "old\nclock";
}

void TestFader5::markedTextComesWithoutMarkup()
{
    QFETCH(QByteArray, marked);
    QFETCH(QString, text);
    const Fader window("before " + marked + " behind", 7, int(marked.size()));
    QCOMPARE(window.fader->Text1->toPlainText(), text);
    QCOMPARE(Clipboard::GetText().remove(u'\r'), text);
}

void TestFader5::nothingMarkedLeavesTheClipboard()
{
    const MainWindow window;
    Clipboard::SetText(QStringLiteral("mine"));
    window.web->RichTextBox1->setText("<B>old</B>");
    QCOMPARE(form<Fader5>()->Text1->toPlainText(), QString());
    QCOMPARE(Clipboard::GetText(), QStringLiteral("mine"));
}

void TestFader5::sampleFollowsTyping()
{
    const Fader window;
    QTest::keyClicks(window.fader->Text1, QStringLiteral("ab"));
    QTRY_COMPARE(window.sampleText(), QStringLiteral("ab"));
    QCOMPARE(window.ask("document.querySelector('font').outerHTML"),
             QStringLiteral("<font face=\"Arial\" size=\"3\" color=\"#000000\">ab</font>"));
    QCOMPARE(window.copied(), Plain);
    QTest::keyClick(window.fader->Text1, Qt::Key_Return);
    QTest::keyClicks(window.fader->Text1, QStringLiteral("c"));
    QTRY_COMPARE(window.sampleText(), QStringLiteral("ab\nc"));
    QCOMPARE(window.copied(), QStringLiteral("<Font face=Arial size=3 color=#000000>ab\r\nc</FONT>"));
}

void TestFader5::sampleHasSmallTags()
{
    const Fader window;
    window.write(QStringLiteral("ab"));
    click(window.fader->chkBold);
    click(window.fader->chkStrikeout);
    QTRY_COMPARE(window.ask("document.querySelector('b > s, s > b')?.textContent"), QStringLiteral("ab"));
    QCOMPARE(window.copied(), QStringLiteral("<B><S>") + Plain + QStringLiteral("</B></S>"));
}

void TestFader5::waveWaitsForTheNextRefresh()
{
    const Fader window;
    window.write(QStringLiteral("ab"));
    click(window.fader->Opt3);
    QTRY_COMPARE(window.ask("document.querySelectorAll('font').length"), QStringLiteral("3"));
    tick(window.fader->Check4);
    QVERIFY(window.fader->Text2.contains(QStringLiteral("<sup>")));
    QCOMPARE(window.fader->WebBrowser1->innerHtml().contains(QStringLiteral("SUP"), Qt::CaseInsensitive),
             false);
    click(window.fader->chkBold);
    QTRY_VERIFY(window.ask("document.querySelectorAll('sup').length").toInt() > 0);
}

void TestFader5::stylesAndFonts()
{
    const Fader window;
    window.write(QStringLiteral("ab"));
    click(window.fader->chkItalic);
    click(window.fader->chkUnderline);
    const int last = window.fader->Combo1->ListCount() - 1;
    choose(window.fader->Combo1, last);
    const QString family = window.fader->Combo1->List(last);
    QTRY_COMPARE(window.ask("document.querySelector('font').getAttribute('face')"),
                 family.section(u' ', 0, 0));
    QCOMPARE(window.copied(),
             QStringLiteral("<I><U><Font face=%1 size=3 color=#000000>ab</FONT></I></U>").arg(family));
    // A name that is typed shows at the next refresh.
    window.fader->Combo1->setText(QStringLiteral("Papyrus"));
    QCOMPARE(window.copied(),
             QStringLiteral("<I><U><Font face=Papyrus size=3 color=#000000>ab</FONT></I></U>"));
}

void TestFader5::sizes_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("code");
    const struct
    {
        const char* size;
        const char* code;
    } sizes[] = {{"Normal", "3"}, {"8", "1"},  {"10", "2"}, {"12", "3"}, {"14", "4"},
                 {"18", "5"},     {"24", "6"}, {"36", "7"}, {"9", ""},   {"", ""}};
    for (const auto& s : sizes)
        QTest::addRow("'%s'", s.size) << s.size << s.code;
}

void TestFader5::sizes()
{
    QFETCH(QString, size);
    QFETCH(QString, code);
    const Fader window;
    window.write(QStringLiteral("ab"));
    window.fader->Combo2->setText(size);
    QCOMPARE(window.copied(), QStringLiteral("<Font face=Arial size=%1 color=#000000>ab</FONT>").arg(code));
}

void TestFader5::modes()
{
    const Fader window;
    Fader5& f = *window.fader;
    window.write(QStringLiteral("abc"));
    const auto enabled = [&] {
        QString rows;
        for (const RowNames& row : Rows) {
            if ((f.*row.red)->isEnabled() && (f.*row.blue)->isEnabled() && (f.*row.sample)->isEnabled())
                rows += QLatin1String(row.name);
        }
        return rows;
    };
    QCOMPARE(enabled(), QStringLiteral("G"));
    click(f.Opt2);
    QCOMPARE(enabled(), QStringLiteral("XZ"));
    dragToEnd(f.RedX);
    release(f.RedX);
    dragToEnd(f.BlueZ);
    release(f.BlueZ);
    QCOMPARE(window.copied(),
             QStringLiteral(
                 "<Font face=Arial size=3 color=\"#FF0000\">a<Font face=Arial size=3 color=\"#0000FF\">b"
                 "<Font face=Arial size=3 color=\"#FF0000\">c<Font face=Arial size=3 color=\"#0000FF\">"
                 "</FONT></FONT></FONT></FONT></FONT>"));
    QTRY_COMPARE(window.ask("document.querySelectorAll('font').length"), QStringLiteral("4"));
    click(f.Opt3);
    QCOMPARE(enabled(), QStringLiteral("ABCDE"));
    f.GreenB->setValue(255);
    QCOMPARE(window.copied(),
             QStringLiteral("<Font face=Arial size=3><Font Color=\"#00FF00\">a</Font>"
                            "<Font Color=\"#000000\">b</Font><Font Color=\"#000000\">c</Font></FONT>"));
    QTRY_COMPARE(window.ask("document.querySelectorAll('font')[1].color"), QStringLiteral("#00FF00"));
    click(f.Opt1);
    QCOMPARE(enabled(), QStringLiteral("G"));
}

void TestFader5::highlight()
{
    const Fader window;
    Fader5& f = *window.fader;
    window.write(QStringLiteral("ab"));
    QVERIFY(!f.Frame2->isEnabled());
    tick(f.Check1);
    QVERIFY(f.Frame2->isEnabled());
    QVERIFY(f.RedF->isEnabled() && f.GreenF->isEnabled() && f.BlueF->isEnabled() && f.Hcolor1->isEnabled());
    QCOMPARE(window.copied(), QStringLiteral("<FONT style=\"background-color: #000000\">") + Plain +
                                  QStringLiteral("</FONT>").repeated(1));
    step(f.RedF);
    QTRY_COMPARE(window.ask("document.querySelector('font').getAttribute('style')"),
                 QStringLiteral("background-color: #010000"));
    tick(f.Check1);
    QVERIFY(!f.Frame2->isEnabled());
    QVERIFY(!f.RedF->isEnabled());
    QCOMPARE(window.copied(), Plain);
}

void TestFader5::table()
{
    const Fader window;
    Fader5& f = *window.fader;
    window.write(QStringLiteral("ab"));
    const QList<QWidget*> controls = {f.Frame5,   f.Frame6,   f.Frame7,   f.Combo3,   f.Combo5,
                                      f.Combo6,   f.Combo8,   f.Combo9,   f.Label2,   f.Label3,
                                      f.Label5,   f.Label6,   f.Label7,   f.Option1,  f.Option2,
                                      f.Option3,  f.Option4,  f.Option5,  f.Option6,  f.HScroll1,
                                      f.HScroll2, f.HScroll3, f.HScroll4, f.HScroll5, f.ChkNoB};
    for (const QWidget* control : controls)
        QVERIFY(!control->isEnabled());
    tick(f.Check7);
    for (const QWidget* control : controls)
        QVERIFY2(control->isEnabled(), qPrintable(control->objectName()));
    QTRY_COMPARE(window.ask("document.querySelector('td').textContent"), QStringLiteral("ab"));
    click(f.Option2);
    QVERIFY(window.copied().startsWith(
        QStringLiteral("<TABLE height=0% cellSpacing=0 cellPadding=0 width=0% Align=left "
                       "bgcolor=#000000 border=0><TBODY><TR><TD align=center bgColor=#000000>")));
    tick(f.Check7);
    for (const QWidget* control : controls)
        QVERIFY2(!control->isEnabled(), qPrintable(control->objectName()));
    QVERIFY(!f.Option2->Value());
    QVERIFY(f.Option6->Value());
    QCOMPARE(window.copied(), Plain);
    QTRY_COMPARE(window.ask("document.querySelectorAll('table').length"), QStringLiteral("0"));
}

void TestFader5::borderColor()
{
    const Fader window;
    Fader5& f = *window.fader;
    tick(f.Check7);
    QVERIFY(!f.RedJ->isEnabled());
    tick(f.ChkNoB);
    QVERIFY(f.RedJ->isEnabled() && f.GreenJ->isEnabled() && f.BlueJ->isEnabled());
    step(f.BlueJ);
    QVERIFY(window.copied().startsWith(QStringLiteral("<TABLE borderColor=#000001 height=0%")));
    QTRY_COMPARE(window.ask("document.querySelector('table').getAttribute('bordercolor')"),
                 QStringLiteral("#000001"));
    tick(f.ChkNoB);
    QVERIFY(!f.RedJ->isEnabled());
    QVERIFY(window.copied().startsWith(QStringLiteral("<TABLE height=0%")));
}

void TestFader5::numberBars_data()
{
    QTest::addColumn<Bar>("bar");
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QString>("unit");
    QTest::newRow("border") << Bar(&Fader5::HScroll1) << " border="
                            << "";
    QTest::newRow("padding") << Bar(&Fader5::HScroll2) << " cellPadding="
                             << "";
    QTest::newRow("spacing") << Bar(&Fader5::HScroll3) << " cellSpacing="
                             << "";
    QTest::newRow("width") << Bar(&Fader5::HScroll4) << " width="
                           << "%";
    QTest::newRow("height") << Bar(&Fader5::HScroll5) << " height="
                            << "%";
}

void TestFader5::numberBars()
{
    QFETCH(Bar, bar);
    QFETCH(QString, attribute);
    QFETCH(QString, unit);
    const Fader window;
    tick(window.fader->Check7);
    ScrollBar* moved = window.fader->*bar;
    const auto holds = [&](int value) {
        const QString expected = attribute + QString::number(value) + unit;
        return window.copied().contains(QRegularExpression(expected + QStringLiteral("[ >]")));
    };
    QVERIFY(holds(0));
    step(moved);
    QVERIFY(holds(1));
    dragToEnd(moved);
    QVERIFY(holds(1)); // a drag counts once the hand lets go
    release(moved);
    QVERIFY(holds(moved->maximum()));
    const QString name = attribute.trimmed().chopped(1).toLower();
    QTRY_COMPARE(window.ask(qPrintable(
                     QStringLiteral("document.querySelector('table').getAttribute('%1')").arg(name))),
                 QString::number(moved->maximum()) + unit);
}

void TestFader5::fieldsGoOutAsTyped()
{
    const Fader window;
    Fader5& f = *window.fader;
    tick(f.Check7);
    overtype(f.Combo6, QStringLiteral("thick"));
    overtype(f.Combo3, QStringLiteral("-1"));
    overtype(f.Combo5, QString());
    overtype(f.Combo9, QStringLiteral("100 px"));
    overtype(f.Combo8, QStringLiteral("\"5\""));
    QVERIFY(window.copied().startsWith(
        QStringLiteral("<TABLE height=\"5\" cellSpacing= cellPadding=-1 width=100 px "
                       "Align=left bgcolor=#000000 border=thick>")));
    QTRY_COMPARE(window.ask("document.querySelector('table').getAttribute('height')"), QStringLiteral("5"));
}

void TestFader5::alignments()
{
    const Fader window;
    Fader5& f = *window.fader;
    tick(f.Check7);
    const QList<std::pair<OptionButton*, const char*>> options = {
        {f.Option6, " Align=left bgcolor"},      {f.Option5, " Align=center bgcolor"},
        {f.Option4, " Align=right bgcolor"},     {f.Option1, "<TD align=Left bgColor"},
        {f.Option2, "<TD align=center bgColor"}, {f.Option3, "<TD align=right bgColor"}};
    for (const auto& [option, attribute] : options) {
        click(option);
        QVERIFY2(window.copied().contains(QLatin1String(attribute)), attribute);
    }
    QVERIFY(f.Option4->Value()); // the cell's options leave the table's alone
    QTRY_COMPARE(window.ask("document.querySelector('td').align + document.querySelector('table').align"),
                 QStringLiteral("rightright"));
}

void TestFader5::rows_data()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < int(Rows.size()); ++i)
        QTest::newRow(Rows.at(size_t(i)).name) << i;
}

/// Each bar of each row, by its arrow and by a drag.
void TestFader5::rows()
{
    QFETCH(int, row);
    const RowNames& names = Rows.at(size_t(row));
    const Fader window;
    Fader5& f = *window.fader;
    if (names.name[0] == 'X' || names.name[0] == 'Z')
        click(f.Opt2);
    if (names.name[0] >= 'A' && names.name[0] <= 'E')
        click(f.Opt3);
    if (names.name[0] == 'F')
        tick(f.Check1);
    if (names.name[0] >= 'H' && names.name[0] <= 'J') {
        tick(f.Check7);
        tick(f.ChkNoB);
    }
    window.write(QStringLiteral("abcdefgh"));
    const auto check = [&](int color, const char* text) {
        QCOMPARE((f.*names.sample)->BackColor(), color);
        if (names.text)
            QCOMPARE(f.*names.text, QLatin1String(text));
        // The first color of a fade is never seen.
        if (names.name[0] != 'A')
            QTRY_VERIFY(f.WebBrowser1->innerHtml().contains(QLatin1String(text), Qt::CaseInsensitive));
    };
    step(f.*names.red);
    check(0x000001, "#010000");
    dragToEnd(f.*names.green);
    check(0x00FF01, "#01FF00");
    release(f.*names.green);
    step(f.*names.green, false);
    check(0x00FE01, "#01FE00");
    dragToEnd(f.*names.blue);
    release(f.*names.blue);
    check(0xFFFE01, "#01FEFF");
}

void TestFader5::pickAColor_data()
{
    rows_data();
}

void TestFader5::pickAColor()
{
    QFETCH(int, row);
    const RowNames& names = Rows.at(size_t(row));
    Fader window;
    Fader5& f = *window.fader;
    for (QWidget* control : QList<QWidget*>{f.*names.sample, (f.*names.sample)->parentWidget()})
        control->setEnabled(true);
    window.doors.answerColor(0x332211);
    click(f.*names.sample);
    QCOMPARE(window.doors.takeAsked(), QStringList{QStringLiteral("Color|0")});
    QCOMPARE((f.*names.sample)->BackColor(), 0x332211);
    QCOMPARE((f.*names.red)->Value(), 0x11);
    QCOMPARE((f.*names.green)->Value(), 0x22);
    QCOMPARE((f.*names.blue)->Value(), 0x33);
    if (names.text)
        QCOMPARE(f.*names.text, QStringLiteral("#112233"));
    window.doors.cancelColor();
    QTest::keyClick(f.*names.sample, Qt::Key_Space);
    QCOMPARE(window.doors.takeAsked(), QStringList{QStringLiteral("Color|3351057")});
    QCOMPARE((f.*names.sample)->BackColor(), 0x332211);
}

void TestFader5::toolClosedWhileTheDialogIsOpen()
{
    Fader window;
    const QPointer<Fader5> fader = window.fader;
    window.doors.during([&] { fader->Unload(); });
    window.doors.answerColor(0xFF);
    click(fader->FColor1);
    QVERIFY(!isLoaded<Fader5>());
    QTRY_VERIFY(!fader);
}

void TestFader5::links()
{
    Fader window;
    Fader5& f = *window.fader;
    window.write(QStringLiteral("ab"));
    click(f.chkBold);
    QTRY_COMPARE(window.sampleText(), QStringLiteral("ab"));
    window.doors.answerInputBox(QStringLiteral("http://a b\"c"));
    click(f.Command6);
    QCOMPARE(window.doors.takeAsked(),
             QStringList{QStringLiteral("InputBox|Edit Hyperlink|Enter the URL Address.|http://")});
    QCOMPARE(window.copied(),
             QStringLiteral("<a href=http://a b\"c><B>") + Plain + QStringLiteral("</B></a>"));
    QCOMPARE(window.ask("document.querySelectorAll('a').length"),
             QStringLiteral("0")); // until the next refresh

    window.doors.cancelInputBox();
    click(f.Command9);
    QCOMPARE(window.doors.takeAsked(),
             QStringList{QStringLiteral("InputBox|Edit E-Mail|Enter your email address.|")});
    QVERIFY(window.copied().startsWith(QStringLiteral("<a href=http://a b\"c>")));
    window.doors.answerInputBox(QStringLiteral("me@x.example"));
    click(f.Command9);
    QVERIFY(window.copied().startsWith(QStringLiteral("<a href=mailto:me@x.example><B>")));

    for (const char* answer : {"", "http://"}) {
        f.Hlink = QStringLiteral("<a href=x>");
        f.Hlink2 = QStringLiteral("</a>");
        window.doors.answerInputBox(QString::fromLatin1(answer));
        click(f.Command6);
        QCOMPARE(window.copied(), QStringLiteral("<B>") + Plain + QStringLiteral("</B>"));
    }
}

void TestFader5::copyWithoutText()
{
    const Fader window;
    QCOMPARE(window.copied(), QStringLiteral("<Font face=Arial size=3 color=#000000></FONT>"));
}

void TestFader5::addWithoutText()
{
    Fader window;
    for (const FrmWeb::Tab tab : {FrmWeb::EditorTab, FrmWeb::PreviewTab}) {
        window.web->SSTab1->setTab(tab);
        window.doors.answerMsgBox(MsgAnswer::Ok);
        click(window.fader->Command2);
        QCOMPARE(window.doors.takeAsked(), QStringList{NoWord});
    }
    QCOMPARE(window.source(), QByteArray());
    QVERIFY(isLoaded<Fader5>());
}

void TestFader5::addAtTheCaret()
{
    const Fader window("one two", 4, 0);
    window.write(QStringLiteral("ab"));
    click(window.fader->Command2);
    QCOMPARE(window.source(), "one " + Plain.toUtf8() + "\r\ntwo");
    window.web->RichTextBox1->setSelStart(0);
    window.web->RichTextBox1->setSelLength(4);
    click(window.fader->Command2);
    QCOMPARE(window.source(), Plain.toUtf8() + "\r\n" + Plain.toUtf8() + "\r\ntwo");
}

void TestFader5::addOnPreview()
{
    Fader window;
    window.write(QStringLiteral("ab"));
    window.web->SSTab1->setTab(FrmWeb::PreviewTab);
    tick(window.fader->Check3);
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(window.fader->Command2);
    QCOMPARE(window.doors.takeAsked(), QStringList{PreviewIsOpen});
    QVERIFY(isLoaded<Fader5>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFader5::addOnInternet()
{
    const Fader window;
    window.write(QStringLiteral("ab"));
    window.web->SSTab1->setTab(FrmWeb::InternetTab);
    tick(window.fader->Check3);
    click(window.fader->Command2);
    QVERIFY(isLoaded<Fader5>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFader5::paragraphBox()
{
    const Fader window;
    window.write(QStringLiteral("ab"));
    tick(window.fader->Check2);
    QCOMPARE(window.copied(), QStringLiteral("<P>") + Plain + QStringLiteral("</P>"));
    click(window.fader->Command2);
    QCOMPARE(window.source(), "<P>" + Plain.toUtf8() + "</P>\r\n");
    QCOMPARE(window.ask("document.querySelectorAll('p').length"), QStringLiteral("0"));
}

void TestFader5::closesByItsBox_data()
{
    QTest::addColumn<bool>("copy");
    QTest::newRow("Copy") << true;
    QTest::newRow("Add to Editor") << false;
}

void TestFader5::closesByItsBox()
{
    QFETCH(bool, copy);
    const Fader window;
    window.write(QStringLiteral("ab"));
    QPushButton* button = copy ? window.fader->Command16 : window.fader->Command2;
    click(button);
    QVERIFY(isLoaded<Fader5>());
    tick(window.fader->Check3);
    click(button);
    QVERIFY(!isLoaded<Fader5>());
}

void TestFader5::boxesAreKept()
{
    Fader window;
    tick(window.fader->Check2);
    QVERIFY(window.folder.read(QStringLiteral("web.ini")).contains("[Fontpro]\r\nchk=1\r\nchk2=0\r\n"));
    tick(window.fader->Check3);
    QVERIFY(window.folder.read(QStringLiteral("web.ini")).contains("[Fontpro]\r\nchk=1\r\nchk2=1\r\n"));
    window.fader->Unload();
    window.show();
    QCOMPARE(window.fader->Check2->Value(), 1);
    QCOMPARE(window.fader->Check3->Value(), 1);
    tick(window.fader->Check2);
    QVERIFY(window.folder.read(QStringLiteral("web.ini")).contains("[Fontpro]\r\nchk=0\r\nchk2=1\r\n"));
}

void TestFader5::missingKeyStopsTheLoad_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::newRow("no section") << QByteArray("[Font]\r\n");
    QTest::newRow("one key") << QByteArray("[Fontpro]\r\nchk=0\r\n");
    QTest::newRow("no number") << QByteArray("[Fontpro]\r\nchk=yes\r\nchk2=0\r\n");
}

void TestFader5::missingKeyStopsTheLoad()
{
    QFETCH(QByteArray, settings);
    const MainWindow window;
    window.folder.write(QStringLiteral("web.ini"), settings);
    try {
        form<Fader5>();
        QFAIL("it loaded");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.number(), ErrorNumber::TypeMismatch);
    }
    QVERIFY(!isLoaded<Fader5>());
}

void TestFader5::longestText()
{
    Fader window;
    window.write(QString(32767, u'x'));
    QCOMPARE(window.doors.takeAsked(), QStringList());
    click(window.fader->Opt3);
    QCOMPARE(window.copied().count(QStringLiteral("<Font Color=")), 32767);
    // The engine takes no more: the rest is left out, and told.
    window.doors.answerMsgBox(MsgAnswer::Ok);
    window.write(QString(32768, u'x'));
    QCOMPARE(
        window.doors.takeAsked(),
        QStringList{QStringLiteral("MsgBox|Information|The text is too long. Its first 32767 characters were "
                                   "taken.|Information|Ok")});
    QCOMPARE(window.fader->Text1->toPlainText().size(), 32767);
    QCOMPARE(window.copied().count(QStringLiteral("<Font Color=")), 32767);
}

void TestFader5::cancelForgets()
{
    Fader window;
    window.write(QStringLiteral("ab"));
    click(window.fader->chkBold);
    window.fader->RedG->setValue(5);
    click(window.fader->Command7);
    QVERIFY(!isLoaded<Fader5>());
    QCOMPARE(window.source(), QByteArray());
    window.show();
    QCOMPARE(window.fader->Text1->toPlainText(), QString());
    QCOMPARE(window.fader->chkBold->Value(), 0);
    QCOMPARE(window.colors(), QList<int>(12, 0));
    QTest::keyClick(window.fader->Text1, Qt::Key_Escape);
    QVERIFY(!isLoaded<Fader5>());
}

void TestFader5::mainWindowGoes()
{
    Fader window;
    window.write(QStringLiteral("ab"));
    window.web->Dirty = false;
    window.web->Unload();
    QCOMPARE(window.doors.ended, 0);
}

/// No control runs it.
void TestFader5::descriptions()
{
    const MarkerPair& pair = markers(Region::Description);
    const QByteArray open = pair.opening.toByteArray();
    const QByteArray close = pair.closing.toByteArray();
    const Fader window("1" + open + "old" + close + "2" + open + "older" + close + "3");
    window.write(QStringLiteral("ab"));
    tick(window.fader->Check7);
    const QByteArray body =
        "<TABLE borderColor=#000000 height=0% cellSpacing=0 cellPadding=0 width=0% Align=left "
        "bgcolor=#000000 border=0><TBODY><TR><TD bgColor=#000000>" +
        Plain.toUtf8() + "</TD></TR></TBODY></TABLE>\r\n";
    window.web->SSTab1->setTab(FrmWeb::PreviewTab);
    window.fader->Command15_Click();
    QVERIFY(isLoaded<Fader5>());
    window.web->SSTab1->setTab(FrmWeb::EditorTab);
    window.web->RichTextBox1->setText("1" + open + "old" + close + "2" + open + "older" + close + "3");
    window.fader->Command15_Click();
    QCOMPARE(window.source(), "1" + open + body + close + "2" + open + body + close + "3");
    QVERIFY(!isLoaded<Fader5>());
    QVERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("ab")));
}

void TestFader5::presetSaves()
{
    Fader window;
    const QString path = window.folder.path(QStringLiteral("mine.fpc"));
    window.doors.answerSave(path);
    click(window.fader->Command4);
    QCOMPARE(window.doors.takeAsked(), QStringList{QStringLiteral("Save||1color|") + Filter});
    QCOMPARE(
        window.folder.read(QStringLiteral("mine.fpc")),
        QByteArray("[Fader5]\r\ncolor1=0\r\ncolor2=0\r\ncolor3=0\r\ncolor4=0\r\ncolor5=0\r\nHcolor1=0\r\n"
                   "Fcolor1=0\r\nBcolor1=0\r\nTbcolor1=0\r\nTbcolor2=0\r\n"));

    // Into the file of another tool, which stays there.
    int color = 1;
    for (const Sample sample :
         {Sample(&Fader5::Color1), Sample(&Fader5::color2), Sample(&Fader5::color3), Sample(&Fader5::color4),
          Sample(&Fader5::Color5), Sample(&Fader5::Hcolor1), Sample(&Fader5::FColor1),
          Sample(&Fader5::BColor1), Sample(&Fader5::TbColor1), Sample(&Fader5::TbColor2)})
        (window.fader->*sample)->setBackColor(color++);
    window.folder.write(QStringLiteral("mine.fpc"), "[HR]\r\nFcolor1=7\r\n");
    window.doors.answerSave(path);
    click(window.fader->Command4);
    QCOMPARE(
        window.folder.read(QStringLiteral("mine.fpc")),
        QByteArray("[HR]\r\nFcolor1=7\r\n\r\n[Fader5]\r\ncolor1=1\r\ncolor2=2\r\ncolor3=3\r\ncolor4=4\r\n"
                   "color5=5\r\nHcolor1=6\r\nFcolor1=7\r\nBcolor1=8\r\nTbcolor1=9\r\nTbcolor2=10\r\n"));
}

void TestFader5::presetLoads()
{
    Fader window;
    Fader5& f = *window.fader;
    window.write(QStringLiteral("abcd"));
    click(f.Opt3);
    QTRY_COMPARE(window.ask("document.querySelectorAll('font').length"), QStringLiteral("5"));
    window.load("[fader5]\r\ncolor1=1\r\ncolor2=2\r\ncolor3=3\r\ncolor4=4\r\ncolor5=5\r\nHcolor1=6\r\n"
                "FCOLOR1=255\r\nBcolor1=8\r\nTbcolor1=9\r\nTbcolor2=16777215\r\n");
    QCOMPARE(window.doors.takeAsked(), QStringList{QStringLiteral("Open|||") + Filter});
    QCOMPARE(window.colors(), (QList<int>{255, 0, 0, 1, 2, 3, 4, 5, 6, 9, 16777215, 8}));
    QCOMPARE(f.Text8, QStringLiteral("#FF0000"));
    QCOMPARE(f.Text5, QStringLiteral("#060000"));
    QCOMPARE(f.Text13, QStringLiteral("#090000"));
    QCOMPARE(f.Text17, QStringLiteral("#FFFFFF"));
    QCOMPARE(f.Text20, QStringLiteral("#080000"));
    QVERIFY(f.Text2.startsWith(QStringLiteral("<Font Color=\"#020000\">a</Font>")));
    for (const RowNames& row : Rows)
        QCOMPARE((f.*row.red)->Value(), 0); // the bars stay
    QCOMPARE(window.ask("document.querySelectorAll('font')[1].color"), QStringLiteral("#000000"));
    click(f.chkBold);
    QTRY_COMPARE(window.ask("document.querySelectorAll('font')[1].color"), QStringLiteral("#020000"));
    step(f.GreenB);
    QCOMPARE(f.color2->BackColor(), 0x000100); // back to the bars
}

void TestFader5::presetThatIsNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("third");
    QTest::newRow("another tool's") << QByteArray("[HR]\r\nFcolor1=5\r\n") << 7 << 7;
    QTest::newRow("cut in the middle") << QByteArray("[Fader5]\r\ncolor1=1\r\ncolor2=2\r\ncol") << 1 << 7;
    QTest::newRow("no number") << QByteArray("[Fader5]\r\ncolor1=1\r\ncolor2=abc\r\ncolor3=3\r\n") << 1 << 7;
    QTest::newRow("too large") << QByteArray("[Fader5]\r\ncolor1=1\r\ncolor2=99999999999\r\ncolor3=3\r\n")
                               << 1 << 7;
    QTest::newRow("CR alone") << QByteArray("[Fader5]\rcolor1=1\rcolor2=2\rcolor3=3\r") << 1 << 3;
    QTest::newRow("no text at all") << QByteArray() << 7 << 7;
    QTest::newRow("NUL bytes") << QByteArray(100, '\0') << 7 << 7;
}

/// What was read so far stays; what follows the reading does not come.
void TestFader5::presetThatIsNone()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, first);
    QFETCH(int, third);
    Fader window;
    Fader5& f = *window.fader;
    for (ColorSample* sample : {f.Color1, f.color2, f.color3, f.FColor1})
        sample->setBackColor(7);
    const QString text = f.Text8;
    window.load(bytes);
    QCOMPARE(f.Color1->BackColor(), first);
    QCOMPARE(f.color3->BackColor(), third);
    QCOMPARE(f.FColor1->BackColor(), 7);
    QCOMPARE(f.Text8, text);
}

void TestFader5::presetMissing()
{
    Fader window;
    window.doors.answerOpen(window.folder.path(QStringLiteral("none.fpc")));
    click(window.fader->Command5);
    QCOMPARE(window.colors(), QList<int>(12, 0));
    window.doors.answerOpen(window.folder.path(QStringLiteral(".")));
    click(window.fader->Command5);
    QCOMPARE(window.colors(), QList<int>(12, 0));
}

void TestFader5::presetCancelled()
{
    Fader window;
    window.doors.cancelSave();
    click(window.fader->Command4);
    QVERIFY(!window.folder.has(QStringLiteral("1color")));
    window.doors.cancelOpen();
    click(window.fader->Command5);
    QCOMPARE(window.colors(), QList<int>(12, 0));
}

/// A failure to write goes unnoticed, for an administrator too.
void TestFader5::presetIntoAFolderThatIsNone()
{
    Fader window;
    const QString path = window.folder.path(QStringLiteral("none/mine.fpc"));
    window.doors.answerSave(path);
    click(window.fader->Command4);
    QVERIFY(!QFileInfo::exists(path));
    QVERIFY(isLoaded<Fader5>());
}

WEB_TEST_MAIN(TestFader5)
#include "tst_fader5.moc"
