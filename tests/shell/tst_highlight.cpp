// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProgramFolder.h"
#include "ScriptedDoors.h"
#include "WebTestMain.h"
#include "forms/Wait.h"
#include "shell/FrmWeb.h"
#include "shell/Highlight.h"
#include "source/RichTextBox.h"

#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTimer>

using namespace brindlemark;

namespace {

constexpr int TagColor = 0x0000FF;
constexpr int ValueColor = 0x00AA00;
constexpr int CommentColor = 0xBB0000;
constexpr int TextColor = 0x808080;
constexpr int ScriptColor = 255 + 140 * 256 + 10 * 65536; // red 255, green 140, blue 10
constexpr int HighlightBackground = 0xC0FFFF;
constexpr int OwnBackground = 0xE0E0E0;

const char Settings[] = "[Font]\r\n"
                        "name=Liberation Serif\r\n"
                        "size=12\r\n"
                        "bold=False\r\n"
                        "italic=True\r\n"
                        "BG=14737632\r\n" // OwnBackground
                        "\r\n"
                        "[Color]\r\n"
                        "one=255\r\n"
                        "two=43520\r\n"
                        "three=12255232\r\n"
                        "four=8421504\r\n"
                        "back=12648447\r\n"
                        "\r\n"
                        "[internet]\r\n"
                        "home=about:blank\r\n";

const HighlightColors AllColors = {.tags = TagColor,
                                   .values = ValueColor,
                                   .comments = CommentColor,
                                   .scripts = ScriptColor,
                                   .text = TextColor};

/// The colours of a stretch of text, a letter a byte: t tag, v value, c comment, s script, x plain text,
/// "." black, "?" any other.
QByteArray colors(const RichTextBox& box, int from, int length)
{
    QByteArray letters;
    for (int i = from; i < from + length; ++i) {
        switch (box.colorAt(i)) {
        case TagColor:
            letters += 't';
            break;
        case ValueColor:
            letters += 'v';
            break;
        case CommentColor:
            letters += 'c';
            break;
        case ScriptColor:
            letters += 's';
            break;
        case TextColor:
            letters += 'x';
            break;
        case 0:
            letters += '.';
            break;
        default:
            letters += '?';
        }
    }
    return letters;
}

QByteArray colors(const RichTextBox& box)
{
    return colors(box, 0, static_cast<int>(box.Text().size()));
}

QByteArray settingsWith(const QByteArray& line, const QByteArray& other)
{
    QByteArray settings(Settings);
    const qsizetype at = settings.indexOf(line);
    return at < 0 ? QByteArray() : settings.replace(at, line.size(), other);
}

/// The main window over settings of the test's own, shown.
class Desk
{
public:
    explicit Desk(const QByteArray& settings = Settings)
    {
        folder.write(QStringLiteral("web.ini"), settings);
        web = std::make_unique<FrmWeb>();
        web->show();
        box = web->RichTextBox1;
    }
    ~Desk()
    {
        web.reset();
        if (isLoaded<Wait>())
            form<Wait>()->Unload();
    }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    QByteArray settings() const { return folder.read(QStringLiteral("web.ini")); }
    QColor coverColor() const { return web->Picture1->palette().color(web->Picture1->backgroundRole()); }

    ProgramFolder folder;
    ScriptedDoors script;
    std::unique_ptr<FrmWeb> web;
    RichTextBox* box = nullptr;
};

/// What stands on the screen at one moment of a long operation.
struct Glimpse
{
    bool cover = false;
    bool wait = false;
    int background = 0;
    int firstColor = 0;
    int check = 0;

    bool operator==(const Glimpse&) const = default;
};

bool waitIsVisible()
{
    return isLoaded<Wait>() && form<Wait>()->isVisible();
}

/// Runs a menu entry and looks at the screen while it serves events; equal glimpses in a row count once.
QList<Glimpse> watch(const Desk& desk, QAction* entry)
{
    QList<Glimpse> seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        const Glimpse now{desk.web->Picture1->isVisible(), waitIsVisible(), desk.box->BackColor(),
                          desk.box->colorAt(0), desk.web->highlighted};
        if (seen.isEmpty() || seen.constLast() != now)
            seen << now;
    });
    timer.start(5);
    entry->trigger();
    return seen;
}

} // namespace

class TestHighlight : public QObject
{
    Q_OBJECT

private slots:
    void passes_data();
    void passes();
    void wholeTextIsWalkedButOnlyItsBeginningIsMadePlain();
    void highlightAgainRepaints();
    void caretStays();
    void colorsAreNeverUndone();
    void missingColorsAreSkipped_data();
    void missingColorsAreSkipped();

    void highlightStepByStep();
    void unhighlightStepByStep();
    void waitWindow();
    void eventsAreServedDuringTheWork();
    void scriptsAreOrange();
    void colorsStayOutOfTheFile();
    void highlightMakesTheDocumentDirty();
    void highlightGivesTheSourceBoxTheFocus();
    void emptySourceIsLeftAlone();
    void otherTabsAreLeftAlone_data();
    void otherTabsAreLeftAlone();
    void missingSettingsAreSkipped_data();
    void missingSettingsAreSkipped();
    void unhighlightClearsWhatHighlightPainted();
    void unhighlightBringsTheEditorsLookBack();
    void unhighlightWithoutABackgroundEndsTheProgram();
    void openHighlightsAnew();
    void tabChangeWhileItIsUnderWay();

    void fontIsRefusedWhileHighlighted_data();
    void fontIsRefusedWhileHighlighted();
    void fontOnlyOnTheEditorTab_data();
    void fontOnlyOnTheEditorTab();
    void fontTaken_data();
    void fontTaken();
    void fontCancelled();
    void realFontDialog_data();
    void realFontDialog();
    void sizeAloneChanges_data();
    void sizeAloneChanges();
    void missingFontSettingIsWritten();
    void backgroundTaken();
    void backgroundCancelled();
    void backgroundOnlyOnTheEditorTab_data();
    void backgroundOnlyOnTheEditorTab();
};

// ---- The passes

void TestHighlight::passes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* text, const char* expected) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(expected);
    };

    row("plain text", "plain", "xxxxx");
    row("line ends", "a\r\nb", "xxxx");

    row("tag", "a<b>c", "xtttx");
    row("tag alone", "<b>", "ttt");
    row("two tags", "<b>x</b>", "tttxtttt");
    row("tag over a line end", "<b\r\n>c", "tttttx");
    row("the closing text is looked for two characters on", "<>x>y", "ttttx");
    row("empty tag and nothing behind", "<>", "xx");
    row("tag in a tag", "<a<b>c", "tttttx");
    row("no > behind it", "x<y", "xxx");
    row("no > behind it, at the start", "<b x", "xxxx");
    row("the pass goes on behind an unclosed tag", "a>b<c<d", "xxxxxxx");
    row("each byte of UTF-8", "\xC3\xA9<b>\xC3\xA9", "xxtttxx");
    row("bytes of 8-bit text", "\xE9<b>\xE9", "xtttx");

    row("value", "<p a=\"v\">t", "tttttvvvtx");
    row("empty value", "<p a=\"\">", "tttttvvt");
    row("value outside of a tag", "a=\"b\"c", "xxvvvx");
    row("value with > inside", "<a b=\"c>d\" e>", "tttttvvvvvxxx");
    row("value in a value", "=\"a=\"b\"", "xvvvvvv");
    row("no closing quote", "a=\"bc", "xxxxx");
    row("no closing quote, at the start", "=\"b", "xxx");
    row("single quotes are no value", "<a b='c'>", "ttttttttt");
    row("a blank before the quote is no value", "<a b= \"c\">", "tttttttttt");
    row("two values", "<p a=\"v\" b=\"w\">", "tttttvvvtttvvvt");

    row("comment", "<!--c-->d", "ccccccccx");
    row("comment over a tag", "<!--<b>-->", "cccccccccc");
    row("comment over a value", "<!--a=\"b\"-->", "cccccccccccc");
    row("comment beside a tag", "<b><!--c-->", "tttcccccccc");
    row("comment in a tag", "<a <!--c--> b>", "tttccccccccxxx");
    row("the shortest comment", "<!-->x-->", "cccccxxxx");
    row("comment unclosed at the start", "<!--ab", "ccxxxx");
    row("comment unclosed at 1", "x<!--a", "xcxxxx");
    row("comment unclosed at 2", "xy<!--a", "xxxxxxx");
    row("comment unclosed at 3", "xyz<!--a", "xxxxxxxx");

    row("script", "<SCRIPT>a</SCRIPT>b", "ssssssssssssssssssx");
    row("script in small letters", "<script>a</script>b", "ssssssssssssssssssx");
    row("script in mixed case", "<Script>a</sCRIPT>b", "ssssssssssssssssssx");
    row("script over value and comment", "<SCRIPT a=\"1\"><!--x--></SCRIPT>",
        "sssssssssssssssssssssssssssssss");
    row("script in a comment", "<!--<SCRIPT></SCRIPT>-->", "ccccsssssssssssssssssccc");
    row("a longer tag name", "<SCRIPTX></SCRIPT>", "ssssssssssssssssss");
    row("noscript", "<NOSCRIPT>a", "ttttttttttx");
    row("script unclosed at the start", "<SCRIPT>abc", "ssssssssxxx");
    row("script unclosed at 2", "ab<SCRIPT>c", "xxssssssttx");
    row("script unclosed at 7", "abcdefg<SCRIPT>h", "xxxxxxxstttttttx");
    row("script unclosed at 8", "abcdefgh<SCRIPT>i", "xxxxxxxxttttttttx");
    row("script unclosed at 9", "abcdefghi<SCRIPT>j", "xxxxxxxxxttttttttx");
    row("no end tag of its own", "<SCRIPT>a<SCRIPT>b</SCRIPT>c", "sssssssssssssssssssssssssssx");
}

void TestHighlight::passes()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    RichTextBox box;
    box.setText(text);
    highlight(box, AllColors);
    QCOMPARE(colors(box), expected);
    QCOMPARE(box.Text(), text);
}

void TestHighlight::wholeTextIsWalkedButOnlyItsBeginningIsMadePlain()
{
    RichTextBox box;
    box.setText(QByteArray(90000, 'a') + "b<i c=\"d\">e<!--f--><SCRIPT></SCRIPT>g");
    highlight(box, AllColors);
    QCOMPARE(colors(box, 0, 90000), QByteArray(90000, 'x'));
    QCOMPARE(colors(box, 90000, 37), QByteArray(".tttttvvvt.ccccccccsssssssssssssssss."));
}

void TestHighlight::highlightAgainRepaints()
{
    RichTextBox box;
    box.setText("<b>c");
    highlight(box, AllColors);
    box.setSelStart(0);
    box.setSelLength(1);
    box.setSelText("(");
    highlight(box, AllColors);
    QCOMPARE(colors(box), QByteArray("xxxx"));
}

void TestHighlight::caretStays()
{
    RichTextBox box;
    box.setText("one<b>two</b>");
    box.setSelStart(5);
    box.setSelLength(4);
    highlight(box, AllColors);
    QCOMPARE(box.SelStart(), 5);
    QCOMPARE(box.SelLength(), 0);
}

void TestHighlight::colorsAreNeverUndone()
{
    RichTextBox box;
    box.load("<b>");
    box.setSelStart(3);
    box.setSelText("x");
    highlight(box, AllColors);
    box.undo();
    QCOMPARE(box.Text(), QByteArray("<b>"));
    QCOMPARE(colors(box), QByteArray("ttt"));
    box.undo();
    QCOMPARE(box.Text(), QByteArray("<b>"));
    QCOMPARE(colors(box), QByteArray("ttt"));
}

void TestHighlight::missingColorsAreSkipped_data()
{
    QTest::addColumn<HighlightColors>("given");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, std::optional<int> HighlightColors::*missing,
                        const char* expected) {
        HighlightColors given = AllColors;
        given.*missing = std::nullopt;
        QTest::newRow(name) << given << QByteArray(expected);
    };
    // text:                                   x<a b="c"><!--d--><SCRIPT></SCRIPT>
    row("tags", &HighlightColors::tags, "xxxxxxvvvxccccccccsssssssssssssssss");
    row("values", &HighlightColors::values, "xtttttttttccccccccsssssssssssssssss");
    row("comments", &HighlightColors::comments, "xtttttvvvtttttttttsssssssssssssssss");
    row("scripts", &HighlightColors::scripts, "xtttttvvvtccccccccttttttttttttttttt");
    row("text", &HighlightColors::text, ".tttttvvvtccccccccsssssssssssssssss");
}

void TestHighlight::missingColorsAreSkipped()
{
    QFETCH(HighlightColors, given);
    QFETCH(QByteArray, expected);
    RichTextBox box;
    box.setText("x<a b=\"c\"><!--d--><SCRIPT></SCRIPT>");
    highlight(box, given);
    QCOMPARE(colors(box), expected);
}

// ---- Highlight and Unhighlight in the window

void TestHighlight::highlightStepByStep()
{
    Desk desk;
    desk.box->setText("<b>x");
    QElapsedTimer timer;
    timer.start();
    const QList<Glimpse> seen = watch(desk, desk.web->munhighlight);
    QVERIFY2(timer.elapsed() >= 190, "two pauses of 100 ms");

    QVERIFY(!seen.isEmpty());
    for (const Glimpse& glimpse : seen) {
        QVERIFY(glimpse.cover && glimpse.wait);
        QCOMPARE(glimpse.background, HighlightBackground);
        QCOMPARE(glimpse.check, 0);
    }
    QCOMPARE(seen.constLast().firstColor, TagColor); // the second pause

    QVERIFY(!desk.web->Picture1->isVisible());
    QVERIFY(desk.box->isVisible());
    QVERIFY(!waitIsVisible());
    QVERIFY(desk.web->highlighted);
    QCOMPARE(desk.box->BackColor(), HighlightBackground);
    QCOMPARE(colors(*desk.box), QByteArray("tttx"));
}

void TestHighlight::unhighlightStepByStep()
{
    Desk desk;
    desk.box->setText("<b>x");
    desk.web->munhighlight->trigger();
    QElapsedTimer timer;
    timer.start();
    const QList<Glimpse> seen = watch(desk, desk.web->munUNHighlight);
    QVERIFY2(timer.elapsed() >= 190, "two pauses of 100 ms");

    QVERIFY(!seen.isEmpty());
    for (const Glimpse& glimpse : seen) {
        QVERIFY(glimpse.cover && glimpse.wait);
        QCOMPARE(glimpse.check, 1);
    }
    QCOMPARE(seen.constLast().firstColor, 0); // the second pause
    QCOMPARE(seen.constLast().background, OwnBackground);

    QVERIFY(!desk.web->Picture1->isVisible());
    QVERIFY(!waitIsVisible());
    QVERIFY(!desk.web->highlighted);
    QCOMPARE(colors(*desk.box), QByteArray("...."));
}

void TestHighlight::waitWindow()
{
    Desk desk;
    desk.box->setText("<b>x");
    QString caption;
    QStringList texts;
    QString family;
    bool onTop = false;
    bool leavesTheKeyboard = false;
    int width = 0;
    QTimer soonest;
    soonest.setSingleShot(true);
    connect(&soonest, &QTimer::timeout, this, [&] {
        Wait* wait = form<Wait>();
        width = wait->width();
        caption = wait->windowTitle();
        onTop = wait->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        leavesTheKeyboard = wait->testAttribute(Qt::WA_ShowWithoutActivating);
        for (const QLabel* label : wait->findChildren<QLabel*>()) {
            texts << label->text();
            family = label->font().family();
        }
    });
    soonest.start(0);
    desk.web->munhighlight->trigger();
    QCOMPARE(caption, QStringLiteral("loading..."));
    QCOMPARE(texts, QStringList{"Please wait. . ."});
    QCOMPARE(family, QStringLiteral("Comic Sans MS"));
    QVERIFY(onTop);
    QVERIFY(leavesTheKeyboard);
    const QFontMetrics title(QFontDatabase::systemFont(QFontDatabase::TitleFont));
    constexpr int Beside = 100; // pixels for a symbol and three buttons
    QVERIFY2(width >= title.horizontalAdvance(caption) + Beside, qPrintable(QString::number(width)));
}

/// So that windows repaint and the bar of the window moves.
void TestHighlight::eventsAreServedDuringTheWork()
{
    RichTextBox box;
    box.setText(QByteArray("<b>\r\n").repeated(1'000'000)); // takes far longer than what needs no sign
    bool served = false;
    QTimer soonest;
    soonest.setSingleShot(true);
    connect(&soonest, &QTimer::timeout, this, [&] { served = true; });
    soonest.start(0);
    highlight(box, {.tags = 1, .values = 1, .comments = 1, .scripts = 1, .text = 1});
    QVERIFY(served);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestHighlight::scriptsAreOrange()
{
    Desk desk;
    desk.box->setText("x<a b=\"c\"><!--d--><script>1</SCRIPT>");
    desk.web->munhighlight->trigger();
    QCOMPARE(colors(*desk.box), QByteArray("xtttttvvvtccccccccssssssssssssssssss"));
}

void TestHighlight::colorsStayOutOfTheFile()
{
    Desk desk;
    desk.box->setText("<b>x\r\n<!--c-->");
    desk.web->munhighlight->trigger();
    desk.script.answerSave(desk.folder.path(QStringLiteral("page.htm")));
    desk.web->mnsave->trigger();
    QCOMPARE(desk.folder.read(QStringLiteral("page.htm")), QByteArray("<b>x\r\n<!--c-->\r\n"));
}

void TestHighlight::highlightMakesTheDocumentDirty()
{
    Desk desk;
    desk.box->setText("<b>x");
    desk.web->document().setDirty(false);
    desk.web->munhighlight->trigger();
    QVERIFY(desk.web->Dirty());
    desk.web->document().setDirty(false);
    desk.web->munUNHighlight->trigger();
    QVERIFY(desk.web->Dirty());
}

void TestHighlight::highlightGivesTheSourceBoxTheFocus()
{
    Desk desk;
    desk.box->setText("<b>x");
    desk.web->SSTab1->tabBar()->setFocus();
    QVERIFY(desk.web->focusWidget() != desk.box);
    desk.web->munhighlight->trigger();
    QCOMPARE(desk.web->focusWidget(), static_cast<QWidget*>(desk.box));
}

void TestHighlight::emptySourceIsLeftAlone()
{
    Desk desk;
    QVERIFY(watch(desk, desk.web->munhighlight).isEmpty());
    QVERIFY(!desk.web->highlighted);
    QCOMPARE(desk.box->BackColor(), OwnBackground);

    desk.box->setText("<b>x");
    desk.web->munhighlight->trigger();
    desk.box->setText("");
    QVERIFY(watch(desk, desk.web->munhighlight).isEmpty());
    QVERIFY(desk.web->highlighted);
    QVERIFY(watch(desk, desk.web->munUNHighlight).isEmpty());
    QVERIFY(desk.web->highlighted);
    QCOMPARE(desk.box->BackColor(), HighlightBackground);
}

static void otherTabs()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("Preview") << static_cast<int>(FrmWeb::PreviewTab);
    QTest::newRow("Internet") << static_cast<int>(FrmWeb::InternetTab);
}

void TestHighlight::otherTabsAreLeftAlone_data()
{
    otherTabs();
}

void TestHighlight::otherTabsAreLeftAlone()
{
    QFETCH(int, tab);
    Desk desk;
    desk.box->setText("<b>x");
    desk.web->SSTab1->setTab(tab);
    QVERIFY(watch(desk, desk.web->munhighlight).isEmpty());
    QVERIFY(!desk.web->highlighted);
    QCOMPARE(desk.box->BackColor(), OwnBackground);
    QCOMPARE(colors(*desk.box), QByteArray("...."));

    desk.web->highlighted = true;
    QVERIFY(watch(desk, desk.web->munUNHighlight).isEmpty());
    QVERIFY(desk.web->highlighted);
}

void TestHighlight::missingSettingsAreSkipped_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<int>("background");
    const auto row = [](const char* name, const char* line, const char* other, const char* expected,
                        int background = HighlightBackground) {
        QTest::newRow(name) << QByteArray(line) << QByteArray(other) << QByteArray(expected) << background;
    };
    // text:                                        x<a b="c"><!--d-->
    row("no one", "one=255\r\n", "", "xxxxxxvvvxcccccccc");
    row("one is no number", "one=255\r\n", "one=red\r\n", "xxxxxxvvvxcccccccc");
    row("one is empty", "one=255\r\n", "one=\r\n", "xxxxxxvvvxcccccccc");
    row("no two", "two=43520\r\n", "", "xtttttttttcccccccc");
    row("two is no number", "two=43520\r\n", "two=0x00AA00\r\n", "xtttttttttcccccccc");
    row("no three", "three=12255232\r\n", "", "xtttttvvvttttttttt");
    row("three is no number", "three=12255232\r\n", "three=blue\r\n", "xtttttvvvttttttttt");
    row("no four", "four=8421504\r\n", "", ".tttttvvvtcccccccc");
    row("four is no number", "four=8421504\r\n", "four=a\r\n", ".tttttvvvtcccccccc");
    row("no back", "back=12648447\r\n", "", "xtttttvvvtcccccccc", OwnBackground);
    row("back is no number", "back=12648447\r\n", "back=?\r\n", "xtttttvvvtcccccccc", OwnBackground);
}

void TestHighlight::missingSettingsAreSkipped()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, other);
    QFETCH(QByteArray, expected);
    QFETCH(int, background);
    Desk desk(settingsWith(line, other));
    desk.box->setText("x<a b=\"c\"><!--d-->");
    desk.web->munhighlight->trigger();
    QCOMPARE(colors(*desk.box), expected);
    QCOMPARE(desk.box->BackColor(), background);
    QVERIFY(desk.web->highlighted);
    QVERIFY(!desk.script.ended);
}

void TestHighlight::unhighlightClearsWhatHighlightPainted()
{
    Desk desk;
    desk.box->setText(QByteArray(90000, 'a') + "b<i c=\"d\">e<!--f--><SCRIPT></SCRIPT>g");
    desk.web->munhighlight->trigger();
    desk.box->setSelStart(90000);
    desk.box->setSelLength(1);
    desk.box->setSelColor(TextColor);
    desk.box->setSelStart(7);
    desk.web->munUNHighlight->trigger();
    QCOMPARE(colors(*desk.box, 0, 90000), QByteArray(90000, '.'));
    // Plain text behind the first 90000 characters keeps whatever colour it has.
    QCOMPARE(colors(*desk.box, 90000, 37), QByteArray("x...................................."));
    QCOMPARE(desk.box->SelStart(), 7);
    QCOMPARE(desk.box->SelLength(), 0);
}

void TestHighlight::unhighlightBringsTheEditorsLookBack()
{
    Desk desk;
    desk.box->setText("x");
    desk.web->munhighlight->trigger();
    QFont other(QStringLiteral("Liberation Mono"));
    other.setPointSizeF(20);
    desk.box->setTextFont(other);
    desk.web->munUNHighlight->trigger();
    QCOMPARE(desk.box->textFont().family(), QStringLiteral("Liberation Serif"));
    QCOMPARE(desk.box->textFont().pointSizeF(), 12.0);
    QCOMPARE(desk.box->textFont().bold(), false);
    QCOMPARE(desk.box->textFont().italic(), true);
    QCOMPARE(desk.box->BackColor(), OwnBackground);
    QCOMPARE(desk.coverColor(), QColor(0xE0, 0xE0, 0xE0));
}

void TestHighlight::unhighlightWithoutABackgroundEndsTheProgram()
{
    Desk desk;
    desk.box->setText("<b>x");
    desk.folder.write(QStringLiteral("web.ini"), settingsWith("BG=14737632\r\n", ""));
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.script.answerMsgBox(MsgAnswer::No);
    desk.web->munUNHighlight->trigger();
    QCOMPARE(desk.script.asked.size(), 2);
    QVERIFY2(desk.script.asked.constFirst().startsWith(
                 QStringLiteral("MsgBox|Brindlemark|Run-time error '13':\n\nType mismatch")),
             qPrintable(desk.script.asked.constFirst()));
    QCOMPARE(desk.script.ended, 1);
}

void TestHighlight::openHighlightsAnew()
{
    Desk desk;
    desk.folder.write(QStringLiteral("page.htm"), "a<b>");
    desk.box->setText("x");
    desk.web->munhighlight->trigger();
    desk.web->document().setDirty(false);
    desk.script.answerOpen(desk.folder.path(QStringLiteral("page.htm")));
    desk.web->MnOpen->trigger();
    QCOMPARE(colors(*desk.box), QByteArray("xttt"));

    desk.web->munUNHighlight->trigger();
    desk.web->document().setDirty(false);
    desk.script.answerOpen(desk.folder.path(QStringLiteral("page.htm")));
    desk.web->MnOpen->trigger();
    QCOMPARE(colors(*desk.box), QByteArray("...."));
}

void TestHighlight::tabChangeWhileItIsUnderWay()
{
    // The pauses serve events, so the user may be elsewhere when the rest is done.
    Desk desk;
    desk.box->setText("<b>x");
    QTimer hand;
    hand.setSingleShot(true);
    connect(&hand, &QTimer::timeout, this, [&] { desk.web->SSTab1->setTab(FrmWeb::InternetTab); });
    hand.start(20);
    desk.web->munhighlight->trigger();
    QCOMPARE(desk.web->SSTab1->Tab(), static_cast<int>(FrmWeb::InternetTab));
    QVERIFY(!waitIsVisible());
    QVERIFY(desk.web->Picture1->isHidden());
    QVERIFY(desk.web->highlighted);
    QCOMPARE(colors(*desk.box), QByteArray("tttx"));
    QVERIFY(!desk.script.ended);
}

// ---- Font and background of the editor

void TestHighlight::fontIsRefusedWhileHighlighted_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("Editor") << static_cast<int>(FrmWeb::EditorTab);
    QTest::newRow("Preview") << static_cast<int>(FrmWeb::PreviewTab);
    QTest::newRow("Internet") << static_cast<int>(FrmWeb::InternetTab);
}

void TestHighlight::fontIsRefusedWhileHighlighted()
{
    QFETCH(int, tab);
    Desk desk;
    desk.box->setText("<b>x");
    desk.web->munhighlight->trigger();
    desk.web->SSTab1->setTab(tab);
    desk.script.answerMsgBox(MsgAnswer::Ok);
    desk.web->munsetfont->trigger();
    QCOMPARE(desk.script.asked,
             QStringList{"MsgBox|Infor|Please select Editor Unhighlight first.|Information|Ok"});
    QCOMPARE(desk.settings(), QByteArray(Settings));
}

void TestHighlight::fontOnlyOnTheEditorTab_data()
{
    otherTabs();
}

void TestHighlight::fontOnlyOnTheEditorTab()
{
    QFETCH(int, tab);
    Desk desk;
    desk.web->SSTab1->setTab(tab);
    desk.web->munsetfont->trigger();
    QCOMPARE(desk.script.asked, QStringList());
}

void TestHighlight::fontTaken_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<double>("size");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("italic");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("upright") << "Liberation Mono" << 14.0 << false << false
                             << QByteArray(
                                    "name=Liberation Mono\r\nsize=14\r\nbold=False\r\nitalic=False\r\n");
    QTest::newRow("bold") << "Liberation Sans" << 10.0 << true << false
                          << QByteArray("name=Liberation Sans\r\nsize=10\r\nbold=True\r\nitalic=False\r\n");
    QTest::newRow("all") << "Liberation Sans" << 8.25 << true << true
                         << QByteArray("name=Liberation Sans\r\nsize=8.25\r\nbold=True\r\nitalic=True\r\n");
    QTest::newRow("the same") << "Liberation Serif" << 12.0 << false << true
                              << QByteArray(
                                     "name=Liberation Serif\r\nsize=12\r\nbold=False\r\nitalic=True\r\n");
}

void TestHighlight::fontTaken()
{
    QFETCH(QString, family);
    QFETCH(double, size);
    QFETCH(bool, bold);
    QFETCH(bool, italic);
    QFETCH(QByteArray, lines);
    Desk desk;
    QFont font(family);
    font.setPointSizeF(size);
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(true);
    font.setStrikeOut(true);
    desk.script.answerFont(font);
    desk.web->munsetfont->trigger();
    QCOMPARE(desk.script.asked, QStringList{"Font|Liberation Serif|12||italic"});

    QCOMPARE(desk.box->textFont().family(), family);
    QCOMPARE(desk.box->textFont().pointSizeF(), size);
    QCOMPARE(desk.box->textFont().bold(), bold);
    QCOMPARE(desk.box->textFont().italic(), italic);
    QVERIFY2(!desk.box->textFont().underline(), "name, size, weight and slant are taken, no more");
    QVERIFY(!desk.box->textFont().strikeOut());
    QCOMPARE(desk.settings(),
             settingsWith("name=Liberation Serif\r\nsize=12\r\nbold=False\r\nitalic=True\r\n", lines));
}

void TestHighlight::fontCancelled()
{
    Desk desk;
    desk.script.cancelFont();
    desk.web->munsetfont->trigger();
    QCOMPARE(desk.script.asked, QStringList{"Font|Liberation Serif|12||italic"});
    QCOMPARE(desk.box->textFont().family(), QStringLiteral("Liberation Serif"));
    QCOMPARE(desk.settings(), QByteArray(Settings));
    QVERIFY(!desk.script.ended);
}

namespace {

/// The part of a dialog whose caption has this text.
template <typename Part>
Part* captioned(const QWidget* dialog, const char* caption)
{
    for (const auto* label : dialog->findChildren<QLabel*>()) {
        if (label->text() == QLatin1String(caption))
            return qobject_cast<Part*>(label->buddy());
    }
    return nullptr;
}

/// Opens the desktop's own font dialog by the menu entry, runs `use` in it and presses OK.
void useFontDialog(Desk& desk, const std::function<void(QFontDialog&)>& use)
{
    desk.web->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(desk.web.get()));
    setDoors(nullptr);
    bool used = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
        if (used || !dialog || QApplication::activeWindow() != dialog)
            return;
        used = true;
        look.stop();
        use(*dialog);
        QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
    });
    look.start(10);
    desk.web->munsetfont->trigger();
    setDoors(&desk.script);
    QVERIFY(used);
}

} // namespace

void TestHighlight::realFontDialog_data()
{
    QTest::addColumn<QByteArray>("font"); // in the settings
    QTest::addColumn<QString>("family");  // at which the dialog opens
    const QString standIn = QFontInfo(QFont(QStringLiteral("No Such Face"))).family();
    QTest::newRow("there") << QByteArray("name=Liberation Serif\r\nsize=12\r\nbold=False\r\nitalic=True\r\n")
                           << QStringLiteral("Liberation Serif");
    QTest::newRow("missing") << QByteArray("name=No Such Face\r\nsize=12\r\nbold=False\r\nitalic=True\r\n")
                             << standIn;
    QTest::newRow("missing, odd size, own spelling")
        << QByteArray("name = \"No Such Face\"\r\nsize=10.5\r\nbold=1\r\nitalic=0\r\n") << standIn;
}

/// The dialog opens at the face that the box shows, and OK alone changes nothing.
void TestHighlight::realFontDialog()
{
    QFETCH(QByteArray, font);
    QFETCH(QString, family);
    const QByteArray own("name=Liberation Serif\r\nsize=12\r\nbold=False\r\nitalic=True\r\n");
    const QByteArray settings = settingsWith(own, font);
    Desk desk(settings);
    const QFont before = desk.box->textFont();
    QString shown;
    useFontDialog(desk, [&](const QFontDialog& dialog) {
        const auto* faces = captioned<QListView>(&dialog, "&Font");
        shown = faces ? faces->currentIndex().data().toString() : QString();
    });
    QCOMPARE(shown, family);
    QCOMPARE(desk.settings(), settings);
    QCOMPARE(desk.box->textFont(), before);
}

void TestHighlight::sizeAloneChanges_data()
{
    realFontDialog_data();
}

void TestHighlight::sizeAloneChanges()
{
    QFETCH(QByteArray, font);
    const QByteArray own("name=Liberation Serif\r\nsize=12\r\nbold=False\r\nitalic=True\r\n");
    const QByteArray settings = settingsWith(own, font);
    Desk desk(settings);
    const QFont before = desk.box->textFont();
    useFontDialog(desk, [](const QFontDialog& dialog) {
        auto* size = captioned<QLineEdit>(&dialog, "&Size");
        QVERIFY(size);
        QTest::mouseDClick(size, Qt::LeftButton);
        QTest::keyClicks(size, QStringLiteral("18"));
    });
    QByteArray expected = settings;
    expected.replace("size=12", "size=18").replace("size=10.5", "size=18");
    QCOMPARE(desk.settings(), expected);
    QCOMPARE(desk.box->textFont().family(), before.family());
    QCOMPARE(desk.box->textFont().pointSizeF(), 18.0);
    QCOMPARE(desk.box->textFont().bold(), before.bold());
    QCOMPARE(desk.box->textFont().italic(), before.italic());
}

/// The settings have all four then.
void TestHighlight::missingFontSettingIsWritten()
{
    Desk desk;
    desk.folder.write(QStringLiteral("web.ini"), settingsWith("bold=False\r\n", ""));
    useFontDialog(desk, [](const QFontDialog&) {});
    QVERIFY(desk.settings().contains("\r\nbold=False\r\n"));
}

void TestHighlight::backgroundTaken()
{
    Desk desk;
    desk.script.answerColor(0x10C0F0); // red F0, green C0, blue 10
    desk.web->munEBC->trigger();
    QCOMPARE(desk.script.asked.size(), 1);
    QCOMPARE(desk.box->BackColor(), 0x10C0F0);
    QCOMPARE(desk.coverColor(), QColor(0xF0, 0xC0, 0x10));
    QCOMPARE(desk.settings(), settingsWith("BG=14737632\r\n", "BG=1097968\r\n"));
}

void TestHighlight::backgroundCancelled()
{
    Desk desk;
    desk.script.cancelColor();
    desk.web->munEBC->trigger();
    QCOMPARE(desk.script.asked.size(), 1);
    QCOMPARE(desk.box->BackColor(), OwnBackground);
    QCOMPARE(desk.settings(), QByteArray(Settings));
    QVERIFY(!desk.script.ended);
}

void TestHighlight::backgroundOnlyOnTheEditorTab_data()
{
    otherTabs();
}

void TestHighlight::backgroundOnlyOnTheEditorTab()
{
    QFETCH(int, tab);
    Desk desk;
    desk.web->SSTab1->setTab(tab);
    desk.web->munEBC->trigger();
    QCOMPARE(desk.script.asked, QStringList());
    QCOMPARE(desk.settings(), QByteArray(Settings));
}

WEB_TEST_MAIN(TestHighlight)
#include "tst_highlight.moc"
