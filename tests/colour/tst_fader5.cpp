// SPDX-License-Identifier: GPL-3.0-or-later

#include "FaderTool.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "colour/ColorSample.h"
#include "platform/RuntimeError.h"
#include "shell/ScreenFonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QScopeGuard>
#include <functional>

using namespace brindlemark;

namespace {

using Act = std::function<void(FaderTool&)>;

const QString Black = QStringLiteral("#000000");
const QString Eight = QStringLiteral("abcdefgh");

/// The fragment of the default settings, with some attributes in place of the default ones.
QString plain(const QString& text, const QString& color = Black, const QString& size = QStringLiteral("3"),
              const QString& face = QStringLiteral("Arial"))
{
    return QStringLiteral("<Font face=%1 size=%2 color=%3>%4</FONT>").arg(face, size, color, text);
}

struct TableLook
{
    QString borderColor{}; // with its attribute
    QString height = QStringLiteral("0%");
    QString spacing = QStringLiteral("0");
    QString padding = QStringLiteral("0");
    QString width = QStringLiteral("0%");
    QString align = QStringLiteral(" Align=left");
    QString background = Black;
    QString border = QStringLiteral("0");
    QString cellAlign{};
    QString cell = Black;
};

QString inTable(const QString& inner, const TableLook& look = {})
{
    return QStringLiteral("<TABLE") + look.borderColor + QStringLiteral(" height=") + look.height +
           QStringLiteral(" cellSpacing=") + look.spacing + QStringLiteral(" cellPadding=") + look.padding +
           QStringLiteral(" width=") + look.width + look.align + QStringLiteral(" bgcolor=") +
           look.background + QStringLiteral(" border=") + look.border + QStringLiteral("><TBODY><TR><TD") +
           look.cellAlign + QStringLiteral(" bgColor=") + look.cell + u'>' + inner +
           QStringLiteral("</TD></TR></TBODY></TABLE>");
}

QString twoColors(const QString& text, const QString& one = Black, const QString& two = Black)
{
    QString run;
    QString closers;
    for (qsizetype i = 0; i < text.size(); i += 2) {
        run += QStringLiteral("<Font face=Arial size=3 color=\"%1\">").arg(one) + text.mid(i, 1) +
               QStringLiteral("<Font face=Arial size=3 color=\"%1\">").arg(two) + text.mid(i + 1, 1);
        closers += QStringLiteral("</FONT></FONT>");
    }
    return run + closers + QStringLiteral("</FONT>");
}

QString fiveColors(const QString& text, const QStringList& codes, const QStringList& waves = {})
{
    QString html = QStringLiteral("<Font face=Arial size=3>");
    for (qsizetype i = 0; i < text.size(); ++i) {
        html += QStringLiteral("<Font Color=\"#%1\">").arg(codes.at(i)) + waves.value(i) + text.mid(i, 1) +
                QStringLiteral("</Font>");
    }
    return html + QStringLiteral("</FONT>");
}

/// A colour row, and what has to be clicked before it can be used.
struct RowCase
{
    char letter;
    const char* sample;
    QString Fader5::*text;
    QStringList before;
};

const QList<RowCase> RowCases = {
    {'G', "FColor1", &Fader5::textColor, {}},
    {'X', "ColorX", &Fader5::firstColor, {"Opt2"}},
    {'Z', "ColorZ", &Fader5::secondColor, {"Opt2"}},
    {'A', "Color1", nullptr, {"Opt3"}},
    {'B', "color2", nullptr, {"Opt3"}},
    {'C', "color3", nullptr, {"Opt3"}},
    {'D', "color4", nullptr, {"Opt3"}},
    {'E', "Color5", nullptr, {"Opt3"}},
    {'F', "Hcolor1", &Fader5::highlightColor, {"Check1"}},
    {'H', "TbColor1", &Fader5::tableColor, {"Check7"}},
    {'I', "TbColor2", &Fader5::cellColor, {"Check7"}},
    {'J', "BColor1", &Fader5::borderColor, {"Check7", "ChkNoB"}},
};

/// The fragment of the text "abcdefgh" when this row alone is not black. `half` is what a fade shows half the
/// way from black to the colour.
QString bodyOf(const RowCase& row, const QString& code, const QString& half)
{
    const QString color = u'#' + code;
    switch (row.letter) {
    case 'G':
        return plain(Eight, color);
    case 'X':
        return twoColors(Eight, color);
    case 'Z':
        return twoColors(Eight, Black, color);
    case 'F':
        return QStringLiteral("<FONT style=\"background-color: %1\"><Font face=Arial size=3 color=#000000>")
                   .arg(color) +
               Eight + QStringLiteral("</FONT></FONT>");
    case 'H':
        return inTable(plain(Eight), {.background = color});
    case 'I':
        return inTable(plain(Eight), {.cell = color});
    case 'J':
        return inTable(plain(Eight), {.borderColor = QStringLiteral(" borderColor=") + color});
    default:
        break;
    }
    // Four runs of two characters; the row's colour is the end of the run before its letter.
    QStringList codes(8, QStringLiteral("000000"));
    const int end = (row.letter - 'A') * 2;
    for (const auto& [at, shown] : {std::pair{end - 2, half}, {end - 1, code}, {end, half}}) {
        if (at >= 0 && at < 8)
            codes[at] = shown;
    }
    return fiveColors(Eight, codes);
}

const QString UrlQuestion = QStringLiteral("InputBox|Edit Hyperlink|Enter the URL Address.|http://");
const QString MailQuestion = QStringLiteral("InputBox|Edit E-Mail|Enter your email address.|");
const QString NoWord = QStringLiteral("MsgBox|Error|Cannot add to editor because no word.|Information|Ok");
const QString PreviewOpen = QStringLiteral(
    "MsgBox|Error|Cannot add to editor because preview is open, please click tag ''Editor'' to "
    "open first.|Information|Ok");

} // namespace

class TestFader5 : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void captionsAndTips();
    void defaults();
    void rangesAndRows();
    void largeLettersFitASmallScreen();
    void fontsOfTheScreen();
    void boxesFromTheSettings_data();
    void boxesFromTheSettings();
    void boxesAreKeptAtOnce();
    void forgetsTheRest();
    void markedText_data();
    void markedText();
    void nothingToSeeInTheMarkedText_data();
    void nothingToSeeInTheMarkedText();
    void clipboardThatComesBack();
    void markedTextOfAWesternDocument();
    void nothingMarked();
    void events_data();
    void events();
    void eachSize_data();
    void eachSize();
    void quietEvents_data();
    void quietEvents();
    void wavyWaitsForTheNextRefresh();
    void wavyByItsAccessKey();
    void goesOutByAccessKeys();
    void rowsByKeys_data();
    void rowsByKeys();
    void rowsByColorDialog_data();
    void rowsByColorDialog();
    void rowFollowsADrag();
    void numberBarWaitsForTheHand();
    void numberBarWhoseBoxHoldsItsNumber_data();
    void numberBarWhoseBoxHoldsItsNumber();
    void samplesOutOfReachAskNothing();
    void modesEnableTheirRows();
    void highlightEnablesItsRow();
    void tableEnablesItsControls();
    void tableOffDropsTheCellAlignment();
    void copy();
    void copyClosesByItsBox();
    void copyOfNoText();
    void lineEndsGoOutAsTwoCharacters();
    void addAtTheCaret();
    void addToAWesternDocument();
    void addClosesByItsBox();
    void addOfALineEnd();
    void addWithoutText();
    void addOnPreview();
    void addOnTheInternetTab();
    void link();
    void mailLink();
    void linkStandsInTheTable();
    void descriptions();
    void descriptionsOffThePreview_data();
    void descriptionsOffThePreview();
    void longestText();
    void cancelAndEscape();
    void oneWindow();
    void toolGoesWhileADialogIsOpen_data();
    void toolGoesWhileADialogIsOpen();
    void mainWindowGoes();
    void mainWindowStays();
};

void TestFader5::cleanup()
{
    unloadAll();
}

// ---- Load ------------------------------------------------------------------------------------------------

void TestFader5::captionsAndTips()
{
    FaderTool f;
    f.show();
    const Fader5& t = *f.tool;
    QCOMPARE(t.windowTitle(), QStringLiteral(" Font Properties"));
    QVERIFY(!t.isModal());
    QCOMPARE(t.Check4->text(), QStringLiteral("&Wavy"));

    struct Caption
    {
        const char* name;
        const char* caption; // null: a picture
        const char* tip;     // null: whatever it is
    };
    const Caption buttons[] = {
        {"Opt1", "One Color", nullptr},         {"Opt2", "Two Colors", nullptr},
        {"Opt3", "Five Color Fade", nullptr},   {"chkBold", nullptr, "Bold"},
        {"chkItalic", nullptr, "Italic"},       {"chkUnderline", nullptr, "Underline"},
        {"chkStrikeout", nullptr, "Strikeout"}, {"Check1", "Highlight", nullptr},
        {"Check7", "Table", nullptr},           {"ChkNoB", "Borde Color", "Borde Color"},
        {"Option6", nullptr, "Table Left"},     {"Option5", nullptr, "Table Center"},
        {"Option4", nullptr, "Table Right"},    {"Option1", nullptr, "Left"},
        {"Option2", nullptr, "Center"},         {"Option3", nullptr, "Right"},
        {"Check2", "paragraph.", nullptr},      {"Check3", "Close when select copy or add editor.", nullptr},
        {"Command6", "URL Link", nullptr},      {"Command9", "Email Link", nullptr},
        {"Command4", "Color Save", nullptr},    {"Command5", "Color Load", nullptr},
        {"Command16", "Copy", nullptr},         {"Command2", "Add to Editor", "OK to add it"},
        {"Command7", "Cancel", nullptr},
    };
    for (const Caption& row : buttons) {
        const auto* button = f.control<QAbstractButton>(QString::fromLatin1(row.name));
        if (row.caption) {
            QCOMPARE(QString(button->text()).remove(u'&'), QString::fromLatin1(row.caption));
        } else {
            QVERIFY2(button->text().isEmpty() && !button->icon().isNull(), row.name);
        }
        if (row.tip)
            QCOMPARE(button->toolTip(), QString::fromLatin1(row.tip));
        QVERIFY2(button->isVisible(), row.name);
    }
    for (const auto& [name, title] : {std::pair{"Frame2", "   Highlight"},
                                      {"Frame4", "     Table"},
                                      {"Frame5", "BG Color"},
                                      {"Frame6", "Cell Color"},
                                      {"Frame7", "   Borde Color"},
                                      {"Frame8", "View Sample"}})
        QCOMPARE(f.control<QGroupBox>(QString::fromLatin1(name))->title(), QString::fromLatin1(title));
    QCOMPARE(t.Frame5->toolTip(), QStringLiteral("Background Color"));
    QCOMPARE(t.Frame7->toolTip(), QStringLiteral("Borde Color"));
    for (const auto& [name, caption] : {std::pair{"Label7", "Border:"},
                                        {"Label5", "Cellpadding:"},
                                        {"Label6", "Cellspacing:"},
                                        {"Label3", "Width:"},
                                        {"Label2", "Height:"}})
        QCOMPARE(f.control<QLabel>(QString::fromLatin1(name))->text(), QString::fromLatin1(caption));
    QCOMPARE(t.Combo1->toolTip(), QStringLiteral("Font"));
    QCOMPARE(t.Combo2->toolTip(), QStringLiteral("Size"));
    // What is behind the scenes is in nobody's reach.
    for (const char* name : {"Command1", "Command3", "Command8", "Command10", "Command11", "Command12",
                             "Command13", "Command14", "Command15"})
        QVERIFY2(!t.findChild<QWidget*>(QString::fromLatin1(name)), name);
}

void TestFader5::defaults()
{
    FaderTool f;
    f.show();
    const Fader5& t = *f.tool;
    QCOMPARE(t.Text1->toPlainText(), QString());
    QVERIFY(t.Opt1->Value() && !t.Opt2->Value() && !t.Opt3->Value());
    for (const CheckBox* box : {t.Check4, t.chkBold, t.chkItalic, t.chkUnderline, t.chkStrikeout, t.Check1,
                                t.Check7, t.ChkNoB, t.Check2, t.Check3})
        QCOMPARE(box->Value(), 0);
    QVERIFY(t.Option6->Value());
    for (const OptionButton* option : {t.Option5, t.Option4, t.Option1, t.Option2, t.Option3})
        QVERIFY(!option->Value());
    QCOMPARE(t.Combo1->Text(), QStringLiteral("Arial"));
    QCOMPARE(t.Combo2->Text(), QStringLiteral("Normal"));
    QStringList sizes;
    for (int i = 0; i < t.Combo2->ListCount(); ++i)
        sizes << t.Combo2->List(i);
    QCOMPARE(sizes, QStringList({"Normal", "8", "10", "12", "14", "18", "24", "36"}));
    for (const QLineEdit* box : {t.Combo6, t.Combo3, t.Combo5})
        QCOMPARE(box->text(), QStringLiteral("0"));
    for (const QLineEdit* box : {t.Combo9, t.Combo8})
        QCOMPARE(box->text(), QStringLiteral("0%"));
    for (const QString* text : {&t.highlightColor, &t.textColor, &t.tableColor, &t.cellColor, &t.borderColor,
                                &t.firstColor, &t.secondColor})
        QCOMPARE(*text, Black);
    for (const QString* text : {&t.fadedText, &t.linkOpen, &t.linkClose})
        QCOMPARE(*text, QString());
    QCOMPARE(t.WebBrowser1->designMode(), DesignMode::Off);
    QCOMPARE(f.settledSample(), QString());
    QCOMPARE(f.doors.asked, QStringList());
}

void TestFader5::rangesAndRows()
{
    FaderTool f;
    f.show();
    const auto check = [&](const QString& name, int maximum) {
        const auto* bar = f.control<ScrollBar>(name);
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), maximum);
        QCOMPARE(bar->Value(), 0);
        QCOMPARE(bar->orientation(), Qt::Horizontal);
    };
    for (const auto& [name, maximum] : {std::pair{"HScroll1", 300},
                                        {"HScroll2", 300},
                                        {"HScroll3", 300},
                                        {"HScroll4", 900},
                                        {"HScroll5", 900}})
        check(QString::fromLatin1(name), maximum);
    for (const RowCase& row : RowCases) {
        for (const char* channel : {"Red", "Green", "Blue"})
            check(QString::fromLatin1(channel) + QLatin1Char(row.letter), 255);
        QCOMPARE(f.control<ColorSample>(QString::fromLatin1(row.sample))->BackColor(), 0);
    }
}

/// Of 14 points, on 768 lines with a title bar; nothing is taken from the sample for that.
void TestFader5::largeLettersFitASmallScreen()
{
    const QFont usual = QApplication::font();
    const auto back = qScopeGuard([&] { QApplication::setFont(usual); });
    QFont large = usual;
    large.setPointSize(14);
    QApplication::setFont(large);
    FaderTool f;
    f.show();
    QVERIFY2(f.tool->height() <= 730, qPrintable(QString::number(f.tool->height())));
    QVERIFY2(f.tool->width() <= 1362, qPrintable(QString::number(f.tool->width())));
    QCOMPARE(f.tool->WebBrowser1->height(), 110);
}

void TestFader5::fontsOfTheScreen()
{
    FaderTool f;
    f.show();
    QStringList fonts;
    for (int i = 0; i < f.tool->Combo1->ListCount(); ++i)
        fonts << f.tool->Combo1->List(i);
    QCOMPARE(fonts, fontNames(QFontDatabase::families(), 0));
}

void TestFader5::boxesFromTheSettings_data()
{
    QTest::addColumn<int>("paragraph");
    QTest::addColumn<int>("closes");
    QTest::newRow("paragraph") << 1 << 0;
    QTest::newRow("closes") << 0 << 1;
    QTest::newRow("both") << 1 << 1;
}

void TestFader5::boxesFromTheSettings()
{
    QFETCH(int, paragraph);
    QFETCH(int, closes);
    FaderTool f;
    f.folder.write(
        QStringLiteral("web.ini"),
        QStringLiteral("[Fontpro]\r\nchk=%1\r\nchk2=%2\r\n").arg(paragraph).arg(closes).toLatin1());
    f.show();
    QCOMPARE(f.tool->Check2->Value(), paragraph);
    QCOMPARE(f.tool->Check3->Value(), closes);
}

void TestFader5::boxesAreKeptAtOnce()
{
    FaderTool f;
    f.show();
    const auto kept = [&] {
        const QByteArray file = f.folder.read(QStringLiteral("web.ini")).replace("\r\n", "\n");
        const qsizetype at = file.indexOf("[Fontpro]\n");
        return file.mid(at + 10, file.indexOf("\n\n", at) - at - 10);
    };
    QCOMPARE(kept(), QByteArray("chk=0\nchk2=0"));
    FaderTool::click(f.tool->Check2);
    QCOMPARE(kept(), QByteArray("chk=1\nchk2=0"));
    FaderTool::click(f.tool->Check3);
    QCOMPARE(kept(), QByteArray("chk=1\nchk2=1"));
    FaderTool::click(f.tool->Check2);
    QCOMPARE(kept(), QByteArray("chk=0\nchk2=1"));
}

void TestFader5::forgetsTheRest()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.click({"Opt3", "Check4", "chkBold", "Check7", "Option4", "Check2"});
    FaderTool::step(f.tool->RedA, Qt::Key_End);
    FaderTool::step(f.tool->HScroll1, Qt::Key_End);
    FaderTool::click(f.tool->Command7);
    f.show(QStringLiteral("cd"));
    QCOMPARE(f.tool->Color1->BackColor(), 0);
    QVERIFY(f.tool->Option6->Value());
    QCOMPARE(f.tool->Combo6->text(), QStringLiteral("0"));
    QCOMPARE(f.copied(), QStringLiteral("<P>") + plain(QStringLiteral("cd")) + QStringLiteral("</P>\r\n"));
}

void TestFader5::markedText_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QByteArray("two words") << "two words";
    QTest::newRow("tags") << QByteArray("<B>bold</B> and <FONT color=red>red</FONT>") << "bold and red";
    QTest::newRow("entities") << QByteArray("1 &lt; 2 &amp; &eacute;") << QString::fromUtf8("1 < 2 & é");
    QTest::newRow("line break") << QByteArray("one<BR>two") << "one\ntwo";
    QTest::newRow("blanks fall together") << QByteArray("a  \r\n  b") << "a b";
    QTest::newRow("half a tag") << QByteArray("a</FONT></TD>b") << "ab";
    QTest::newRow("comment") << QByteArray("a<!-- Body-title -->b") << "ab";
    QTest::newRow("script") << QByteArray("a<SCRIPT>document.body.innerHTML='run'</SCRIPT>b") << "ab";
    QTest::newRow("emoji") << QByteArray("\xF0\x9F\x98\x80 <I>e\xCC\x81</I>")
                           << QString::fromUtf8("😀 ") + QStringLiteral("e\u0301");
    QTest::newRow("cells") << QByteArray("<TABLE><TR><TD>a</TD><TD>b</TD></TR></TABLE>") << "a\tb";
}

void TestFader5::markedText()
{
    QFETCH(QByteArray, html);
    QFETCH(QString, text);
    FaderTool f;
    Clipboard::SetText(QStringLiteral("the seller's own"));
    f.web->RichTextBox1->setText("[" + html + "]");
    f.web->RichTextBox1->setSelStart(1);
    f.web->RichTextBox1->setSelLength(int(html.size()));
    f.show();
    QCOMPARE(f.tool->Text1->toPlainText(), text);
    QCOMPARE(Clipboard::GetText(), text); // what it held is lost
    QCOMPARE(f.source(), "[" + html + "]");
    QVERIFY(isLoaded<Fader5>());
    // The text is styled as a typed one is.
    QTRY_COMPARE(f.sample(), f.rendered(plain(QString(text).replace(u'\n', QLatin1String("\r\n")))));
}

void TestFader5::nothingToSeeInTheMarkedText_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::newRow("marker") << QByteArray("<!-- Body-picture -->");
    QTest::newRow("line break") << QByteArray("<BR>");
    QTest::newRow("blanks") << QByteArray(" \r\n ");
    QTest::newRow("end tags") << QByteArray("</TD></TR></TABLE>");
    QTest::newRow("style") << QByteArray("<STYLE>B { color: red }</STYLE>");
    QTest::newRow("script") << QByteArray("<SCRIPT>document.write('run')</SCRIPT>");
    QTest::newRow("title") << QByteArray("<TITLE>Lamp</TITLE>");
    QTest::newRow("picture") << QByteArray("<IMG src=\"lamp.png\">");
}

/// What somebody copied before, a password perhaps, gets into no page.
void TestFader5::nothingToSeeInTheMarkedText()
{
    QFETCH(QByteArray, html);
    FaderTool f;
    Clipboard::SetText(QStringLiteral("a password"));
    f.web->RichTextBox1->setText("[" + html + "]");
    f.web->RichTextBox1->setSelStart(1);
    f.web->RichTextBox1->setSelLength(int(html.size()));
    f.show();
    QCOMPARE(f.tool->Text1->toPlainText(), QString());
    QCOMPARE(Clipboard::GetText(), QString());
    f.doors.answerMsgBox(MsgAnswer::Ok);
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.doors.takeAsked(), QStringList(NoWord));
    QCOMPARE(f.source(), "[" + html + "]");
}

/// A desktop's clipboard manager may fill an empty clipboard again.
void TestFader5::clipboardThatComesBack()
{
    class Manager : public ScriptedDoors
    {
        void setClipboard(std::unique_ptr<QMimeData> data) override
        {
            if (data->hasText() || data->hasHtml())
                ScriptedDoors::setClipboard(std::move(data));
        }
    };
    FaderTool f;
    const Manager manager;
    Clipboard::SetText(QStringLiteral("a password"));
    f.web->RichTextBox1->setText("<BR>");
    f.web->RichTextBox1->setSelLength(4);
    f.show();
    QCOMPARE(f.tool->Text1->toPlainText(), QString());
}

void TestFader5::markedTextOfAWesternDocument()
{
    FaderTool f;
    f.folder.write(QStringLiteral("western.htm"), "<B>caf\xE9</B>");
    f.open(f.folder.path(QStringLiteral("western.htm")));
    f.web->RichTextBox1->setSelStart(0);
    f.web->RichTextBox1->setSelLength(11);
    f.show();
    QCOMPARE(f.tool->Text1->toPlainText(), QString::fromUtf8("café"));
}

void TestFader5::nothingMarked()
{
    FaderTool f;
    Clipboard::SetText(QStringLiteral("the seller's own"));
    f.web->RichTextBox1->setText("text");
    f.show();
    QCOMPARE(f.tool->Text1->toPlainText(), QString());
    QCOMPARE(Clipboard::GetText(), QStringLiteral("the seller's own"));
}

// ---- What refreshes the sample ---------------------------------------------------------------------------

void TestFader5::events_data()
{
    QTest::addColumn<QStringList>("before"); // clicks
    QTest::addColumn<Act>("act");
    QTest::addColumn<QString>("body");
    const QString ab = plain(QStringLiteral("ab"));
    const auto row = [](const char* name, const QStringList& before, const Act& act, const QString& body) {
        QTest::newRow(name) << before << act << body;
    };
    const auto clicks = [](const char* name) {
        return [name](FaderTool& f) { f.click(QStringList(QString::fromLatin1(name))); };
    };
    const auto types = [](const char* name, const char* text) {
        return [name, text](FaderTool& f) {
            overtype(f.control<QLineEdit>(QString::fromLatin1(name)), QString::fromLatin1(text));
        };
    };
    const auto steps = [](const char* name) {
        return [name](FaderTool& f) {
            FaderTool::step(f.control<ScrollBar>(QString::fromLatin1(name)), Qt::Key_Right);
        };
    };
    const QStringList table = {"Check7"};

    row(
        "Text1", {}, [](FaderTool& f) { QTest::keyClicks(f.tool->Text1, QStringLiteral("c")); },
        plain(QStringLiteral("abc")));
    row(
        "Text1 emptied", {}, [](FaderTool& f) { overtype(f.tool->Text1, QString()); }, plain(QString()));
    row("chkBold", {}, clicks("chkBold"), QStringLiteral("<b>") + ab + QStringLiteral("</b>"));
    row("chkItalic", {}, clicks("chkItalic"), QStringLiteral("<i>") + ab + QStringLiteral("</i>"));
    row("chkUnderline", {}, clicks("chkUnderline"), QStringLiteral("<u>") + ab + QStringLiteral("</u>"));
    row("chkStrikeout", {}, clicks("chkStrikeout"), QStringLiteral("<S>") + ab + QStringLiteral("</S>"));
    row("chkBold off", {"chkBold"}, clicks("chkBold"), ab);
    row(
        "Combo1", {},
        [](FaderTool& f) {
            choose(f.tool->Combo1, f.tool->Combo1->findText(QStringLiteral("Liberation Mono")));
        },
        plain(QStringLiteral("ab"), Black, QStringLiteral("3"), QStringLiteral("Liberation Mono")));
    row("Combo6", table, types("Combo6", "7"), inTable(ab, {.border = QStringLiteral("7")}));
    row("Combo3", table, types("Combo3", "7"), inTable(ab, {.padding = QStringLiteral("7")}));
    row("Combo5", table, types("Combo5", "7"), inTable(ab, {.spacing = QStringLiteral("7")}));
    row("Combo9", table, types("Combo9", "70"), inTable(ab, {.width = QStringLiteral("70")}));
    row("Combo8", table, types("Combo8", "70"), inTable(ab, {.height = QStringLiteral("70")}));
    row("HScroll1", table, steps("HScroll1"), inTable(ab, {.border = QStringLiteral("1")}));
    row("HScroll2", table, steps("HScroll2"), inTable(ab, {.padding = QStringLiteral("1")}));
    row("HScroll3", table, steps("HScroll3"), inTable(ab, {.spacing = QStringLiteral("1")}));
    row("HScroll4", table, steps("HScroll4"), inTable(ab, {.width = QStringLiteral("1%")}));
    row("HScroll5", table, steps("HScroll5"), inTable(ab, {.height = QStringLiteral("1%")}));
    row("Option1", table, clicks("Option1"), inTable(ab, {.cellAlign = QStringLiteral(" align=Left")}));
    row("Option2", table, clicks("Option2"), inTable(ab, {.cellAlign = QStringLiteral(" align=center")}));
    row("Option3", table, clicks("Option3"), inTable(ab, {.cellAlign = QStringLiteral(" align=right")}));
    row("Option4", table, clicks("Option4"), inTable(ab, {.align = QStringLiteral(" Align=right")}));
    row("Option5", table, clicks("Option5"), inTable(ab, {.align = QStringLiteral(" Align=center")}));
    row("Option6", {"Check7", "Option5"}, clicks("Option6"), inTable(ab));
    row("Opt1", {"Opt2"}, clicks("Opt1"), ab);
    row("Opt2", {}, clicks("Opt2"), twoColors(QStringLiteral("ab")));
    row("Opt3", {}, clicks("Opt3"), fiveColors(QStringLiteral("ab"), {"000000", "000000"}));
    row("Check1", {}, clicks("Check1"),
        QStringLiteral("<FONT style=\"background-color: #000000\"><Font face=Arial size=3 "
                       "color=#000000>ab</FONT></FONT>"));
    row("Check1 off", {"Check1"}, clicks("Check1"), ab);
    row("Check7", {}, clicks("Check7"), inTable(ab));
    row("Check7 off", {"Check7", "Option2"}, clicks("Check7"), ab);
    row("ChkNoB", table, clicks("ChkNoB"),
        inTable(ab, {.borderColor = QStringLiteral(" borderColor=#000000")}));
    row("ChkNoB off", {"Check7", "ChkNoB"}, clicks("ChkNoB"), inTable(ab));
}

void TestFader5::events()
{
    QFETCH(QStringList, before);
    QFETCH(Act, act);
    QFETCH(QString, body);
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.click(before);
    const QString shown = f.rendered(body);
    QVERIFY(f.settledSample() != shown);
    act(f);
    QTRY_COMPARE(f.sample(), shown);
}

void TestFader5::eachSize_data()
{
    QTest::addColumn<QString>("size");
    const char* labels[] = {"Normal", "8", "10", "12", "14", "18", "24", "36"};
    const char* sizes[] = {"3", "1", "2", "3", "4", "5", "6", "7"};
    for (size_t i = 0; i < std::size(labels); ++i)
        QTest::newRow(labels[i]) << QString::fromLatin1(sizes[i]);
}

void TestFader5::eachSize()
{
    QFETCH(QString, size);
    FaderTool f;
    f.show(QStringLiteral("ab"));
    overtype(f.tool->Combo2, QStringLiteral("9")); // no size at all; the sample waits
    QTRY_COMPARE(f.sample(), f.rendered(plain(QStringLiteral("ab"))));
    QCOMPARE(f.copied(), plain(QStringLiteral("ab"), Black, QString()) + QStringLiteral("\r\n"));
    const int entry = f.tool->Combo2->findText(QString::fromLatin1(QTest::currentDataTag()));
    choose(f.tool->Combo2, entry);
    const QString body = plain(QStringLiteral("ab"), Black, size);
    QTRY_COMPARE(f.sample(), f.rendered(body));
    QCOMPARE(f.copied(), body + QStringLiteral("\r\n"));
}

void TestFader5::quietEvents_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<QString>("body"); // once something else refreshes the sample
    QTest::newRow("font name typed") << Act([](FaderTool& f) {
        overtype(f.tool->Combo1, QStringLiteral("Times New Roman"));
    }) << plain(QStringLiteral("abc"), Black, QStringLiteral("3"), QStringLiteral("Times New Roman"));
    QTest::newRow("size typed") << Act([](FaderTool& f) { overtype(f.tool->Combo2, QStringLiteral("24")); })
                                << plain(QStringLiteral("abc"), Black, QStringLiteral("6"));
    QTest::newRow("link") << Act([](FaderTool& f) {
        f.doors.answerInputBox(QStringLiteral("http://x.example"));
        FaderTool::click(f.tool->Command6);
    }) << QStringLiteral("<a href=http://x.example>") + plain(QStringLiteral("abc")) + QStringLiteral("</a>");
    QTest::newRow("mail link") << Act([](FaderTool& f) {
        f.doors.answerInputBox(QStringLiteral("me@x.example"));
        FaderTool::click(f.tool->Command9);
    })
                               << QStringLiteral("<a href=mailto:me@x.example>") +
                                      plain(QStringLiteral("abc")) + QStringLiteral("</a>");
    QTest::newRow("paragraph") << Act([](FaderTool& f) { FaderTool::click(f.tool->Check2); })
                               << plain(QStringLiteral("abc"));
}

void TestFader5::quietEvents()
{
    QFETCH(Act, act);
    QFETCH(QString, body);
    FaderTool f;
    f.show(QStringLiteral("ab"));
    const QString before = f.rendered(plain(QStringLiteral("ab")));
    QTRY_COMPARE(f.sample(), before);
    act(f);
    QCOMPARE(f.settledSample(), before);
    QTest::keyClicks(f.tool->Text1, QStringLiteral("c"));
    QTRY_COMPARE(f.sample(), f.rendered(body));
}

void TestFader5::wavyWaitsForTheNextRefresh()
{
    FaderTool f;
    f.show(QStringLiteral("abcde"));
    f.click({"Opt3"});
    const QStringList codes(5, QStringLiteral("000000"));
    const QString level = f.rendered(fiveColors(QStringLiteral("abcde"), codes));
    QTRY_COMPARE(f.sample(), level);
    f.click({"Check4"});
    QCOMPARE(f.settledSample(), level);
    QVERIFY(f.tool->fadedText.startsWith(QLatin1String("<Font Color=\"#000000\"><sup>a</Font>")));
    f.click({"Check2"}); // no refresh either
    QCOMPARE(f.settledSample(), level);
    const QString wavy =
        fiveColors(QStringLiteral("abcde"), codes, {"<sup>", "</sup>", "<sub>", "</sub>", "<sup>"});
    QCOMPARE(f.copied(), QStringLiteral("<P>") + wavy + QStringLiteral("</P>\r\n"));
    f.click({"Check1"});
    f.click({"Check1"});
    QTRY_COMPARE(f.sample(), f.rendered(wavy));
    // The other modes know no waves.
    f.click({"Opt1"});
    QTRY_COMPARE(f.sample(), f.rendered(plain(QStringLiteral("abcde"))));
    f.click({"Opt2"});
    QTRY_COMPARE(f.sample(), f.rendered(twoColors(QStringLiteral("abcde"))));
}

void TestFader5::wavyByItsAccessKey()
{
    FaderTool f;
    f.show();
    QVERIFY(QTest::qWaitForWindowActive(f.tool));
    QTest::keyClick(f.tool, Qt::Key_W, Qt::AltModifier);
    QTRY_COMPARE(f.tool->Check4->Value(), 1); // once the box has shown itself pressed
}

void TestFader5::goesOutByAccessKeys()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    QVERIFY(QTest::qWaitForWindowActive(f.tool));
    const QString text = plain(QStringLiteral("ab")) + QStringLiteral("\r\n");
    QTest::keyClick(f.tool, Qt::Key_C, Qt::AltModifier);
    QTRY_COMPARE(Clipboard::GetText(), text);
    QTest::keyClick(f.tool, Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(f.source(), text.toLatin1());
}

// ---- Colour rows -----------------------------------------------------------------------------------------

static void addRows()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < RowCases.size(); ++i)
        QTest::addRow("%c", RowCases.at(i).letter) << i;
}

void TestFader5::rowsByKeys_data()
{
    addRows();
}

void TestFader5::rowsByKeys()
{
    QFETCH(int, index);
    const RowCase& row = RowCases.at(index);
    FaderTool f;
    f.show(Eight);
    f.click(row.before);
    struct Step
    {
        const char* channel;
        int color;
        const char* code;
        const char* half;
    };
    for (const Step& step : {Step{"Red", 0x0000FF, "FF0000", "800000"},
                             {"Green", 0x00FFFF, "FFFF00", "808000"},
                             {"Blue", 0xFFFFFF, "FFFFFF", "808080"}}) {
        auto* bar = f.control<ScrollBar>(QString::fromLatin1(step.channel) + QLatin1Char(row.letter));
        FaderTool::step(bar, Qt::Key_End);
        QCOMPARE(f.control<ColorSample>(QString::fromLatin1(row.sample))->BackColor(), step.color);
        if (row.text)
            QCOMPARE(f.tool->*row.text, u'#' + QString::fromLatin1(step.code));
        const QString body = bodyOf(row, QString::fromLatin1(step.code), QString::fromLatin1(step.half));
        QTRY_COMPARE(f.sample(), f.rendered(body));
        QCOMPARE(f.copied(), body + QStringLiteral("\r\n"));
    }
}

void TestFader5::rowsByColorDialog_data()
{
    addRows();
}

void TestFader5::rowsByColorDialog()
{
    QFETCH(int, index);
    const RowCase& row = RowCases.at(index);
    FaderTool f;
    f.show(Eight);
    f.click(row.before);
    auto* sample = f.control<ColorSample>(QString::fromLatin1(row.sample));
    const auto barValues = [&] {
        QList<int> values;
        for (const char* channel : {"Red", "Green", "Blue"})
            values << f.control<ScrollBar>(QString::fromLatin1(channel) + QLatin1Char(row.letter))->Value();
        return values;
    };

    f.doors.cancelColor();
    FaderTool::click(sample);
    QCOMPARE(f.doors.takeAsked().size(), 1);
    QCOMPARE(sample->BackColor(), 0);
    QCOMPARE(barValues(), QList<int>({0, 0, 0}));
    QCOMPARE(f.copied(),
             bodyOf(row, QStringLiteral("000000"), QStringLiteral("000000")) + QStringLiteral("\r\n"));

    f.doors.answerColor(0xFF8040);
    FaderTool::click(sample);
    QCOMPARE(f.doors.takeAsked().size(), 1);
    QCOMPARE(sample->BackColor(), 0xFF8040);
    QCOMPARE(barValues(), QList<int>({0x40, 0x80, 0xFF}));
    if (row.text)
        QCOMPARE(f.tool->*row.text, QStringLiteral("#4080FF"));
    const QString body = bodyOf(row, QStringLiteral("4080FF"), QStringLiteral("204080"));
    QTRY_COMPARE(f.sample(), f.rendered(body));
    QCOMPARE(f.copied(), body + QStringLiteral("\r\n"));

    f.doors.cancelColor();
    FaderTool::click(sample);
    QCOMPARE(sample->BackColor(), 0xFF8040);
    QCOMPARE(barValues(), QList<int>({0x40, 0x80, 0xFF}));
}

void TestFader5::rowFollowsADrag()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    ScrollBar* bar = f.tool->RedG;
    int before = 0;
    for (int step = 0; step < 3; ++step) {
        FaderTool::dragBy(bar, 6);
        QVERIFY(bar->Value() > before);
        before = bar->Value();
        QCOMPARE(f.tool->FColor1->BackColor(), before);
        QCOMPARE(f.tool->textColor, QString::asprintf("#%02X0000", unsigned(before)));
        QTRY_COMPARE(f.sample(), f.rendered(plain(QStringLiteral("ab"), f.tool->textColor)));
    }
    FaderTool::letGo(bar);
    QCOMPARE(bar->Value(), before);
    QCOMPARE(f.tool->FColor1->BackColor(), before);
}

void TestFader5::numberBarWaitsForTheHand()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.click({"Check7"});
    for (const auto& [bar, box, unit] :
         {std::tuple{f.tool->HScroll1, f.tool->Combo6, ""}, {f.tool->HScroll4, f.tool->Combo9, "%"}}) {
        const QString before = box->text();
        FaderTool::dragBy(bar, 10);
        QVERIFY(bar->Value() > 0);
        QCOMPARE(box->text(), before);
        FaderTool::letGo(bar);
        QCOMPARE(box->text(), QString::number(bar->Value()) + QLatin1String(unit));
    }
    FaderTool::step(f.tool->HScroll4, Qt::Key_End);
    QCOMPARE(f.tool->Combo9->text(), QStringLiteral("900%"));
    overtype(f.tool->Combo9, QStringLiteral("12")); // the bar stays
    QCOMPARE(f.tool->HScroll4->Value(), 900);
}

void TestFader5::numberBarWhoseBoxHoldsItsNumber_data()
{
    QTest::addColumn<QString>("bar");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString TableLook::*>("shown");
    const auto row = [](const char* bar, const char* box, const char* text, QString TableLook::*shown) {
        QTest::newRow(bar) << QString::fromLatin1(bar) << QString::fromLatin1(box)
                           << QString::fromLatin1(text) << shown;
    };
    row("HScroll1", "Combo6", "1", &TableLook::border);
    row("HScroll2", "Combo3", "1", &TableLook::padding);
    row("HScroll3", "Combo5", "1", &TableLook::spacing);
    row("HScroll4", "Combo9", "1%", &TableLook::width);
    row("HScroll5", "Combo8", "1%", &TableLook::height);
}

/// It refreshes the sample as any other.
void TestFader5::numberBarWhoseBoxHoldsItsNumber()
{
    using Attribute = QString TableLook::*;
    QFETCH(QString, bar);
    QFETCH(QString, box);
    QFETCH(QString, text);
    QFETCH(Attribute, shown);
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.click({"Check7"});
    overtype(f.control<QLineEdit>(box), text);
    overtype(f.tool->Combo2, QStringLiteral("24")); // the sample waits
    TableLook look;
    look.*shown = text;
    QCOMPARE(f.settledSample(), f.rendered(inTable(plain(QStringLiteral("ab")), look)));
    FaderTool::step(f.control<ScrollBar>(bar), Qt::Key_Right);
    QCOMPARE(f.control<QLineEdit>(box)->text(), text);
    QTRY_COMPARE(f.sample(),
                 f.rendered(inTable(plain(QStringLiteral("ab"), Black, QStringLiteral("6")), look)));
}

void TestFader5::samplesOutOfReachAskNothing()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    for (const RowCase& row : RowCases) {
        if (!row.before.isEmpty())
            FaderTool::click(f.control<ColorSample>(QString::fromLatin1(row.sample)));
    }
    QCOMPARE(f.doors.asked, QStringList());
}

// ---- What depends on what --------------------------------------------------------------------------------

/// The letters of the rows that can be used. All of a row's controls agree, unless `bars` tells of the bars
/// alone.
static QString usableRows(const FaderTool& f, bool bars = false)
{
    QString letters;
    for (const RowCase& row : RowCases) {
        const QString letter(QLatin1Char(row.letter));
        QList<bool> usable;
        for (const char* channel : {"Red", "Green", "Blue"})
            usable << f.control<QWidget>(QString::fromLatin1(channel) + letter)->isEnabled();
        if (!bars)
            usable << f.control<QWidget>(QString::fromLatin1(row.sample))->isEnabled();
        if (usable.contains(true) && usable.contains(false)) {
            letters += u'(' + letter + u')';
        } else if (usable.constFirst()) {
            letters += letter;
        }
    }
    return letters;
}

void TestFader5::modesEnableTheirRows()
{
    FaderTool f;
    f.show();
    QCOMPARE(usableRows(f), QStringLiteral("G"));
    f.click({"Opt2"});
    QCOMPARE(usableRows(f), QStringLiteral("XZ"));
    f.click({"Opt3"});
    QCOMPARE(usableRows(f), QStringLiteral("ABCDE"));
    f.click({"Opt1"});
    QCOMPARE(usableRows(f), QStringLiteral("G"));
}

void TestFader5::highlightEnablesItsRow()
{
    FaderTool f;
    f.show();
    QVERIFY(!f.tool->Frame2->isEnabled());
    QVERIFY(f.tool->Check1->isEnabled());
    f.click({"Check1"});
    QVERIFY(f.tool->Frame2->isEnabled());
    QCOMPARE(usableRows(f), QStringLiteral("GF"));
    f.click({"Check1"});
    QVERIFY(!f.tool->Frame2->isEnabled());
    QCOMPARE(usableRows(f), QStringLiteral("G"));
}

void TestFader5::tableEnablesItsControls()
{
    FaderTool f;
    f.show();
    const auto expectTable = [&](bool enabled) {
        for (const char* name :
             {"Frame5",   "Frame6",   "Frame7",   "Combo3",  "Combo5",  "Combo6",   "Combo8",
              "Combo9",   "Label2",   "Label3",   "Label5",  "Label6",  "Label7",   "Option1",
              "Option2",  "Option3",  "Option4",  "Option5", "Option6", "HScroll1", "HScroll2",
              "HScroll3", "HScroll4", "HScroll5", "ChkNoB"})
            QVERIFY2(f.control<QWidget>(QString::fromLatin1(name))->isEnabled() == enabled, name);
        QVERIFY(f.tool->Check7->isEnabled());
    };
    expectTable(false);
    QCOMPARE(usableRows(f), QStringLiteral("G"));
    f.click({"Check7"});
    expectTable(true);
    QCOMPARE(usableRows(f, true), QStringLiteral("GHI"));
    QVERIFY(f.tool->BColor1->isEnabled());
    f.click({"ChkNoB"});
    QCOMPARE(usableRows(f), QStringLiteral("GHIJ"));
    f.click({"Check7"});
    expectTable(false);
    QCOMPARE(usableRows(f), QStringLiteral("G"));
    QCOMPARE(f.tool->ChkNoB->Value(), 1);
    f.click({"Check7"}); // the border's row stays as its box has it
    QCOMPARE(usableRows(f), QStringLiteral("GHIJ"));
    f.click({"ChkNoB"});
    QCOMPARE(usableRows(f, true), QStringLiteral("GHI"));
}

void TestFader5::tableOffDropsTheCellAlignment()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    for (const char* option : {"Option1", "Option2", "Option3"}) {
        f.click({"Check7", QString::fromLatin1(option), "Option4", "Check7"});
        QVERIFY(!f.control<OptionButton>(QString::fromLatin1(option))->Value());
        f.click({"Check7"});
        const QString body = inTable(plain(QStringLiteral("ab")), {.align = QStringLiteral(" Align=right")});
        QCOMPARE(f.copied(), body + QStringLiteral("\r\n"));
        QTRY_COMPARE(f.sample(), f.rendered(body));
        f.click({"Check7"});
    }
}

// ---- What goes out ---------------------------------------------------------------------------------------

void TestFader5::copy()
{
    FaderTool f;
    auto old = std::make_unique<QMimeData>();
    old->setHtml(QStringLiteral("<B>old</B>"));
    f.doors.setClipboard(std::move(old));
    f.show(QStringLiteral("ab"));
    f.click({"chkBold", "chkItalic", "Check1"});
    const QString body =
        QStringLiteral("<B><I><FONT style=\"background-color: #000000\"><Font face=Arial size=3 "
                       "color=#000000>ab</FONT></FONT></B></I>");
    QCOMPARE(f.copied(), body + QStringLiteral("\r\n"));
    QVERIFY(!f.doors.clipboard()->hasHtml());
    f.click({"Check2"});
    QCOMPARE(f.copied(), QStringLiteral("<P>") + body + QStringLiteral("</P>\r\n"));
    QVERIFY(isLoaded<Fader5>());
    QCOMPARE(f.source(), QByteArray());
    QCOMPARE(f.doors.asked, QStringList());
}

void TestFader5::copyClosesByItsBox()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.click({"Check3"});
    QCOMPARE(f.copied(), plain(QStringLiteral("ab")) + QStringLiteral("\r\n"));
    QVERIFY(!isLoaded<Fader5>());
}

void TestFader5::copyOfNoText()
{
    FaderTool f;
    f.show();
    QCOMPARE(f.copied(), QStringLiteral("<Font face=Arial size=3 color=#000000></FONT>\r\n"));
    f.click({"Opt2"});
    QCOMPARE(f.copied(), QStringLiteral("</FONT>\r\n"));
    f.click({"Opt3"});
    QCOMPARE(f.copied(), QStringLiteral("<Font face=Arial size=3></FONT>\r\n"));
    QCOMPARE(f.doors.asked, QStringList());
}

void TestFader5::lineEndsGoOutAsTwoCharacters()
{
    FaderTool f;
    f.show(QStringLiteral(" a"));
    QTest::keyClick(f.tool->Text1, Qt::Key_Return);
    QTest::keyClicks(f.tool->Text1, QStringLiteral("<&"));
    QCOMPARE(f.copied(), plain(QStringLiteral(" a\r\n<&")) + QStringLiteral("\r\n"));
    f.click({"Opt2"});
    QCOMPARE(f.copied(), twoColors(QStringLiteral(" a\r\n<&")) + QStringLiteral("\r\n"));
    f.click({"Opt3"});
    QCOMPARE(f.copied(), fiveColors(QStringLiteral(" a\r\n<&"), QStringList(6, QStringLiteral("000000"))) +
                             QStringLiteral("\r\n"));
}

void TestFader5::addAtTheCaret()
{
    FaderTool f;
    f.web->RichTextBox1->setText("one two three");
    f.web->RichTextBox1->setSelStart(4);
    f.show(QStringLiteral("ab"));
    const QByteArray ab = plain(QStringLiteral("ab")).toLatin1();
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.source(), "one " + ab + "\r\ntwo three");
    QVERIFY(isLoaded<Fader5>());
    f.click({"Check2"});
    FaderTool::click(f.tool->Command2); // behind the first
    QCOMPARE(f.source(), "one " + ab + "\r\n<P>" + ab + "</P>\r\ntwo three");
    // What is marked by now is replaced.
    f.web->RichTextBox1->setSelStart(0);
    f.web->RichTextBox1->setSelLength(int(f.source().size()));
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.source(), "<P>" + ab + "</P>\r\n");
    QCOMPARE(f.doors.asked, QStringList());
}

void TestFader5::addToAWesternDocument()
{
    FaderTool f;
    f.folder.write(QStringLiteral("western.htm"), "caf\xE9");
    f.open(f.folder.path(QStringLiteral("western.htm")));
    f.web->RichTextBox1->setSelStart(0);
    f.show();
    f.tool->Text1->setPlainText(QString::fromUtf8("é"));
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.source(), QByteArray("<Font face=Arial size=3 color=#000000>\xE9</FONT>\r\ncaf\xE9"));
}

void TestFader5::addClosesByItsBox()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.click({"Check3"});
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.source(), plain(QStringLiteral("ab")).toLatin1() + "\r\n");
    QVERIFY(!isLoaded<Fader5>());
}

/// A line end is a text.
void TestFader5::addOfALineEnd()
{
    FaderTool f;
    f.show();
    QTest::keyClick(f.tool->Text1, Qt::Key_Return);
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.source(), plain(QStringLiteral("\r\n")).toLatin1() + "\r\n");
    QCOMPARE(f.doors.asked, QStringList());
}

void TestFader5::addWithoutText()
{
    FaderTool f;
    f.web->RichTextBox1->setText("source");
    f.show();
    f.click({"Check3"});
    for (const FrmWeb::Tab tab : {FrmWeb::EditorTab, FrmWeb::PreviewTab, FrmWeb::InternetTab}) {
        f.web->SSTab1->setTab(tab);
        f.doors.answerMsgBox(MsgAnswer::Ok);
        FaderTool::click(f.tool->Command2);
        QCOMPARE(f.doors.takeAsked(), QStringList(NoWord));
        QCOMPARE(f.tool->focusWidget(), f.tool->Text1);
    }
    QVERIFY(isLoaded<Fader5>());
    QCOMPARE(f.source(), QByteArray("source"));
}

void TestFader5::addOnPreview()
{
    FaderTool f;
    f.web->RichTextBox1->setText("source");
    f.show(QStringLiteral("ab"));
    f.click({"Check3"});
    f.showTab(FrmWeb::PreviewTab);
    const QByteArray source = f.source();
    f.doors.answerMsgBox(MsgAnswer::Ok);
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.doors.takeAsked(), QStringList(PreviewOpen));
    QVERIFY(isLoaded<Fader5>());
    QCOMPARE(f.source(), source);
    QVERIFY(!f.copied().isEmpty()); // Copy does not mind, and closes
    QVERIFY(!isLoaded<Fader5>());
}

void TestFader5::addOnTheInternetTab()
{
    FaderTool f;
    f.web->RichTextBox1->setText("source");
    f.show(QStringLiteral("ab"));
    f.click({"Check3"});
    f.showTab(FrmWeb::InternetTab);
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.doors.asked, QStringList());
    QVERIFY(isLoaded<Fader5>());
    QCOMPARE(f.source(), QByteArray("source"));
}

// ---- Links -----------------------------------------------------------------------------------------------

void TestFader5::link()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    const QString linked = QStringLiteral("<a href=http://x.example/a b>") + plain(QStringLiteral("ab")) +
                           QStringLiteral("</a>\r\n");
    for (const char* none : std::initializer_list<const char*>{"", "http://", nullptr}) {
        f.doors.answerInputBox(QStringLiteral("http://x.example/a b"));
        FaderTool::click(f.tool->Command6);
        QCOMPARE(f.doors.takeAsked(), QStringList(UrlQuestion));
        QCOMPARE(f.copied(), linked);
        if (none) {
            f.doors.answerInputBox(QString::fromLatin1(none));
        } else {
            f.doors.cancelInputBox();
        }
        FaderTool::click(f.tool->Command6);
        QCOMPARE(f.doors.takeAsked(), QStringList(UrlQuestion));
        QCOMPARE(f.copied(), plain(QStringLiteral("ab")) + QStringLiteral("\r\n"));
    }
}

void TestFader5::mailLink()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.doors.answerInputBox(QStringLiteral("me@x.example"));
    FaderTool::click(f.tool->Command9);
    QCOMPARE(f.doors.takeAsked(), QStringList(MailQuestion));
    const QString linked = QStringLiteral("<a href=mailto:me@x.example>") + plain(QStringLiteral("ab")) +
                           QStringLiteral("</a>\r\n");
    QCOMPARE(f.copied(), linked);
    for (const bool cancelled : {false, true}) { // neither takes the link away
        if (cancelled) {
            f.doors.cancelInputBox();
        } else {
            f.doors.answerInputBox(QString());
        }
        FaderTool::click(f.tool->Command9);
        QCOMPARE(f.doors.takeAsked(), QStringList(MailQuestion));
        QCOMPARE(f.copied(), linked);
    }
    f.doors.answerInputBox(QStringLiteral("http://x.example")); // a mail link gives way to another link
    FaderTool::click(f.tool->Command6);
    QCOMPARE(f.copied(), QStringLiteral("<a href=http://x.example>") + plain(QStringLiteral("ab")) +
                             QStringLiteral("</a>\r\n"));
}

void TestFader5::linkStandsInTheTable()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.click({"Check7", "chkBold"});
    f.doors.answerInputBox(QStringLiteral("x"));
    FaderTool::click(f.tool->Command6);
    QCOMPARE(f.copied(), inTable(QStringLiteral("<a href=x><B>") + plain(QStringLiteral("ab")) +
                                 QStringLiteral("</B></a>")) +
                             QStringLiteral("\r\n"));
}

// ---- The description of a listing ------------------------------------------------------------------------

void TestFader5::descriptions()
{
    FaderTool f;
    f.web->RichTextBox1->setText(
        "<P>head</P><!-- Body-description -->one<!-- Body-description2 -->\r\n"
        "<P>middle</P><!-- Body-description -->two<!-- Body-description2 --><P>end</P>");
    f.web->RichTextBox1->setSelStart(5);
    f.show(QStringLiteral("ab"));
    f.click({"Check7", "chkBold", "Check2"}); // a paragraph is for the others
    f.showTab(FrmWeb::PreviewTab);
    const QByteArray region =
        "<!-- Body-description -->" +
        inTable(QStringLiteral("<B>") + plain(QStringLiteral("ab")) + QStringLiteral("</B>"),
                {.borderColor = QStringLiteral(" borderColor=#000000")})
            .toLatin1() +
        "\r\n<!-- Body-description2 -->";
    f.tool->Command15_Click();
    QCOMPARE(f.source(), "<P>head</P>" + region + "\r\n<P>middle</P>" + region + "<P>end</P>");
    QCOMPARE(f.web->RichTextBox1->SelStart(), 5);
    QVERIFY(!isLoaded<Fader5>());
    for (DocumentSurface* surface : {f.web->WebBrowser1, f.web->WebBrowser3}) {
        const QString html = surface->innerHtml();
        QCOMPARE(html.count(QLatin1String(">ab<")), 2);
        QVERIFY(html.contains(QLatin1String("head")) && html.contains(QLatin1String("end")));
        QVERIFY(!html.contains(QLatin1String("one")) && !html.contains(QLatin1String("two")));
    }
}

void TestFader5::descriptionsOffThePreview_data()
{
    QTest::addColumn<FrmWeb::Tab>("tab");
    QTest::newRow("Editor") << FrmWeb::EditorTab;
    QTest::newRow("Internet") << FrmWeb::InternetTab;
}

void TestFader5::descriptionsOffThePreview()
{
    QFETCH(FrmWeb::Tab, tab);
    FaderTool f;
    f.web->RichTextBox1->setText("<!-- Body-description -->one<!-- Body-description2 -->");
    f.show(QStringLiteral("ab"));
    f.showTab(tab);
    const QByteArray source = f.source();
    const QString surface = f.web->WebBrowser1->innerHtml();
    f.tool->Command15_Click();
    QCOMPARE(f.source(), source);
    QCOMPARE(f.web->WebBrowser1->innerHtml(), surface);
    QVERIFY(isLoaded<Fader5>());
}

// ---- Limits and ends -------------------------------------------------------------------------------------

/// One character more than the fade takes does not cost the seller the program.
void TestFader5::longestText()
{
    FaderTool f;
    f.show();
    f.click({"Opt3"});
    for (const QString& character : {QStringLiteral("x"), QString::fromUtf8("👨‍👩‍👧")}) {
        f.tool->Text1->setPlainText(character.repeated(32767));
        QCOMPARE(f.doors.takeAsked(), QStringList());
        QCOMPARE(f.copied().count(QLatin1String("</Font>")), 32767);
        f.doors.answerMsgBox(MsgAnswer::Ok);
        f.tool->Text1->setPlainText(character.repeated(32767) + u'y');
        QCOMPARE(f.doors.takeAsked(),
                 QStringList(QStringLiteral("MsgBox|Information|The text is too long. Its first 32767 "
                                            "characters were taken.|Information|Ok")));
        QVERIFY(f.tool->Text1->toPlainText() == character.repeated(32767));
        QCOMPARE(f.copied().count(QLatin1String("</Font>")), 32767);
        QVERIFY(!f.doors.ended);
    }
}

void TestFader5::cancelAndEscape()
{
    FaderTool f;
    f.web->RichTextBox1->setText("source");
    f.show(QStringLiteral("ab"));
    FaderTool::click(f.tool->Command7);
    QVERIFY(!isLoaded<Fader5>());
    f.show(QStringLiteral("ab"));
    QTest::keyClick(f.tool->Text1, Qt::Key_Escape);
    QVERIFY(!isLoaded<Fader5>());
    QCOMPARE(f.source(), QByteArray("source"));
    QVERIFY(!f.doors.clipboard()->hasText());
}

void TestFader5::oneWindow()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    const Fader5* first = f.tool;
    f.show();
    QCOMPARE(f.tool, first);
    QCOMPARE(f.tool->Text1->toPlainText(), QStringLiteral("ab"));
}

void TestFader5::toolGoesWhileADialogIsOpen_data()
{
    QTest::addColumn<Act>("prepare");
    QTest::addColumn<QString>("button");
    const auto row = [](const char* name, const Act& prepare, const char* button) {
        QTest::newRow(name) << prepare << QString::fromLatin1(button);
    };
    row(
        "colour", [](FaderTool& f) { f.doors.answerColor(0xFF8040); }, "FColor1");
    row(
        "colour, cancelled", [](FaderTool& f) { f.doors.cancelColor(); }, "FColor1");
    row(
        "save", [](FaderTool& f) { f.doors.answerSave(f.folder.path(QStringLiteral("1color.fpc"))); },
        "Command4");
    row(
        "load",
        [](FaderTool& f) {
            f.folder.write(QStringLiteral("1color.fpc"), "[Fader5]\r\ncolor1=1\r\n");
            f.doors.answerOpen(f.folder.path(QStringLiteral("1color.fpc")));
        },
        "Command5");
    row(
        "link", [](FaderTool& f) { f.doors.answerInputBox(QStringLiteral("x")); }, "Command6");
    row(
        "mail link", [](FaderTool& f) { f.doors.answerInputBox(QStringLiteral("x")); }, "Command9");
    row(
        "message",
        [](FaderTool& f) {
            overtype(f.tool->Text1, QString());
            f.doors.answerMsgBox(MsgAnswer::Ok);
        },
        "Command2");
}

void TestFader5::toolGoesWhileADialogIsOpen()
{
    QFETCH(Act, prepare);
    QFETCH(QString, button);
    FaderTool f;
    f.show(QStringLiteral("ab"));
    const QPointer<Fader5> tool = f.tool;
    f.doors.during([&] {
        tool->close();
        // What is deleted at the next look at the event queue is not the window whose handler runs.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(tool);
        QVERIFY(!tool->isVisible());
    });
    prepare(f);
    f.click(QStringList(button));
    QCOMPARE(f.doors.asked.size(), 1);
    QVERIFY(!isLoaded<Fader5>());
    QTRY_VERIFY(!tool);
    f.show(QStringLiteral("ab"));
    QCOMPARE(f.copied(), plain(QStringLiteral("ab")) + QStringLiteral("\r\n"));
    QVERIFY(!f.doors.ended);
}

void TestFader5::mainWindowGoes()
{
    FaderTool f;
    f.show(QStringLiteral("ab"));
    f.web->close();
    QCOMPARE(f.doors.ended, 0);
    QCOMPARE(f.doors.asked, QStringList()); // the text in the tool is nobody's document
}

void TestFader5::mainWindowStays()
{
    FaderTool f;
    f.type(QStringLiteral("word"));
    f.show(QStringLiteral("ab"));
    f.doors.answerMsgBox(MsgAnswer::Cancel);
    f.web->close();
    QVERIFY(!f.doors.ended);
    QVERIFY(f.tool->isVisible());
    FaderTool::click(f.tool->Command2);
    QCOMPARE(f.source(), "word" + plain(QStringLiteral("ab")).toLatin1() + "\r\n");
}

WEB_TEST_MAIN(TestFader5)
#include "tst_fader5.moc"
