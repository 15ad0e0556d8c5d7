// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"
#include "WebServer.h"

#include <QFile>
#include <QTest>

using namespace brindlemark;

// A day of a seller: a listing from the wizard, worked on with the tools, saved, opened on a second start,
// changed and saved as another file. Every file that the day leaves is compared to the letter: pages,
// settings and lists.
//
// The page as the wizard hands it to the editor is spelled out in tests/data/day/listing.htm, as the engine's
// parser reads what the wizard writes: a FONT that is closed across a UL goes on inside it, the BODY tags of
// the terms are gone. What the tools make of it is told here, region by region.

namespace {

const QString Page1 = QStringLiteral("Brindlemark Create 1 of 2");
const QString Page2 = QStringLiteral("Brindlemark Create 2 of 2 ");
const QString FaderWindow = QStringLiteral(" Font Properties");
const QString RuleWindow = QStringLiteral("Horizontal Rule Properties");
const QString TableWindow = QStringLiteral("Two Table Properties");
const QString ListWindow = QStringLiteral("List Properties");
const QString CharacterListWindow = QStringLiteral("List Special Character Properties");
const QString FindWindow = QStringLiteral("Find and Sreach");

const QString FirstTitle = QStringLiteral("first.htm - Brindlemark 1.0");
const QString SecondTitle = QStringLiteral("second.htm - Brindlemark 1.0");

constexpr int Pictures = 6;

/// A place in a window, in pixels from its corner.
struct Spot
{
    int x;
    int y;
};

// In the main window.
constexpr Spot WizardTool{380, 38};
constexpr Spot FaderTool{450, 38};
constexpr Spot TableTool{512, 38};
constexpr Spot ListTool{543, 38};
constexpr Spot RuleTool{574, 38};
constexpr Spot FindTool{243, 38};
constexpr Spot EditorTab{33, 73};
constexpr Spot PreviewTab{103, 73};
constexpr Spot DesignOff{114, 101};
constexpr Spot TitleButton{57, 100};
constexpr Spot LineButton{141, 100};
constexpr Spot DescriptionButton{225, 100};
constexpr Spot CellButton{309, 100};
constexpr Spot PictureButton{393, 100};
// In other windows.
constexpr Spot ClosingBox{18, -22}; // of each tool
constexpr Spot FaderParagraph{-96, -50};
constexpr Spot FaderAdd{-141, -22};
constexpr Spot BoldButton{413, 24};

// What the tools write. Each line of a list and of a table ends with CR LF.

/// The five colours of the fade are black, red, green, blue and yellow. Of five letters the first two fade
/// from black to red: one step of two is 127.5, which rounds to the even 128; each other letter has a whole
/// colour.
const QByteArray FadedTitle =
    R"(<P><B><Font face=Arial size=3><Font Color="#800000">G</Font><Font Color="#FF0000">l</Font>)"
    R"(<Font Color="#00FF00">o</Font><Font Color="#0000FF">b</Font><Font Color="#FFFF00">e</Font></FONT></B></P>)"
    "\r\n";
const QByteArray Rule = "<HR width=60% size=4 color=#FF0000 align=Left>";
const QByteArray NumberedList = "<Font color=#FF0000><ol>\r\n"
                                "<li><Font face=Arial size=3 color=#000000>Old</Font>\r\n"
                                "<li><Font face=Arial size=3 color=#000000>Rare</Font>\r\n"
                                "</ul>\r\n"
                                "</Font>\r\n";
const QByteArray CharacterList = "<FONT face=Arial size=3 color=#000000>&nbsp;Extras&nbsp;</FONT><BR>\r\n"
                                 "&nbsp;<FONT face=Webdings size=3 color=#000000>4</FONT>"
                                 "<FONT face=Arial size=3 color=#000000>&nbsp;Box&nbsp;</FONT><BR>\r\n"
                                 "&nbsp;<FONT face=Webdings size=3 color=#000000>4</FONT>"
                                 "<FONT face=Arial size=3 color=#000000>&nbsp;Map&nbsp;</FONT><BR>\r\n";
const QByteArray Table =
    "<BODY>\r\n"
    "<TABLE width=0% height=0% align=Left borderColor=#000000 cellspacing=0 cellpadding=0 border=2"
    " bgcolor=#000000>\r\n"
    "<TBODY>\r\n"
    "<TR>\r\n"
    "<TD bgcolor=#FFFFFF colSpan=2 width=0 height=0 align=Left><Font face=Arial size=3 "
    "color=#000000>Size</FONT>\r\n"
    "</TD></TR>\r\n"
    "<TR>\r\n"
    "<TD bgcolor=#FFFFFF width=0 height=0 align=Left><Font face=Arial size=3 color=#000000>High</FONT>\r\n"
    "</TD>\r\n"
    "<TD bgcolor=#FFFFFF width=0 height=0 align=Left><Font face=Arial size=3 color=#000000>9 in</FONT>\r\n"
    "</TD></TR>\r\n"
    "</TBODY>\r\n"
    "</TABLE>\r\n";
/// On the second start, with the paragraph and the list's title remembered.
const QByteArray PlainText = "<P><Font face=Arial size=3 color=#000000>1950</FONT></P>\r\n";
const QByteArray SecondCharacterList =
    "<FONT face=Arial size=3 color=#000000>&nbsp;Extras&nbsp;</FONT><BR>\r\n"
    "&nbsp;<FONT face=Webdings size=3 color=#000000>4</FONT>"
    "<FONT face=Arial size=3 color=#000000>&nbsp;Key&nbsp;</FONT><BR>\r\n";

/// The path of a picture on the server, from 0.
QString picture(int index)
{
    return QStringLiteral("/globe%1.svg").arg(index + 1);
}

QByteArray shipped(const char* name)
{
    return fileBytes(QStringLiteral(SOURCE_DIR "/data/") + QString::fromLatin1(name));
}

/// Replaces what must be in a text once.
void replaceOnce(QByteArray& text, const QByteArray& what, const QByteArray& by)
{
    QVERIFY2(text.count(what) == 1, what.constData());
    text.replace(what, by);
}

/// Puts a text between the two markers of a part.
void replacePart(QByteArray& page, const QByteArray& marker, const QByteArray& inside)
{
    const QByteArray opening = "<!-- " + marker + " -->";
    const qsizetype start = page.indexOf(opening) + opening.size();
    const qsizetype end = page.indexOf("<!-- " + marker + "2 -->");
    QVERIFY2(start >= opening.size() && end >= start, marker.constData());
    page.replace(start, end - start, inside);
}

/// Compares texts line by line, so that a difference is told by its line.
void compareLines(const QByteArray& text, const QByteArray& expected)
{
    const QList<QByteArray> lines = text.split('\n');
    const QList<QByteArray> expectedLines = expected.split('\n');
    for (qsizetype i = 0; i < qMin(lines.size(), expectedLines.size()); ++i)
        QCOMPARE(lines.at(i), expectedLines.at(i));
    QCOMPARE(lines.size(), expectedLines.size());
}

} // namespace

class TestSellersDay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void day();

private:
    void startWizard();
    void writeItem();
    void writePayment();
    void writeLocation();
    void writeShippingCosts();
    void chooseLook();
    void lookAtDesign();
    void fadeTitle();
    void changeRule();
    void addLists();
    void addTable();
    void saveFirst();
    void checkFirst();
    void startAgain();
    void writeRegions();
    void useWhatIsRemembered();
    void replaceFont();
    void lookAtPreview();
    void saveSecond();
    void checkSecond();
    void makeAnother();
    void checkThird();
    void checkSettings();

    void click(Spot spot) const { m_program->click(m_title, spot.x, spot.y); }
    void openTool(Spot tool, const QString& window) const;
    void openList(const QString& accessKey, const QString& window) const;
    void backFrom(const QString& window) const;
    void closeWhenAdded(const QString& window) const;
    static void typeLines(std::initializer_list<const char*> lines);
    void openTerms(const QString& window) const;
    void pickColor(const QString& html) const;
    void typeAmount(const QString& accessKey, const QString& dollars, const QString& cents) const;
    QByteArray listing() const;

    std::unique_ptr<WebServer> m_server;
    std::unique_ptr<Program> m_program;
    QString m_title = MainWindow;
    QByteArray m_first; ///< the first page as it must be
};

void TestSellersDay::initTestCase()
{
    QVERIFY2(displayAnswers(), "needs a display, a window manager and xdotool");
    m_server = std::make_unique<WebServer>();
    for (int i = 0; i < Pictures; ++i) {
        m_server->answer(picture(i),
                         "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nConnection: close\r\n\r\n"
                         "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='20'>"
                         "<circle cx='10' cy='10' r='9'/></svg>");
    }
}

void TestSellersDay::day()
{
    using Step = void (TestSellersDay::*)();
    constexpr std::array<Step, 23> steps = {
        &TestSellersDay::startWizard,        &TestSellersDay::writeItem,
        &TestSellersDay::writePayment,       &TestSellersDay::writeLocation,
        &TestSellersDay::writeShippingCosts, &TestSellersDay::chooseLook,
        &TestSellersDay::lookAtDesign,       &TestSellersDay::fadeTitle,
        &TestSellersDay::changeRule,         &TestSellersDay::addLists,
        &TestSellersDay::addTable,           &TestSellersDay::saveFirst,
        &TestSellersDay::checkFirst,         &TestSellersDay::startAgain,
        &TestSellersDay::writeRegions,       &TestSellersDay::useWhatIsRemembered,
        &TestSellersDay::replaceFont,        &TestSellersDay::lookAtPreview,
        &TestSellersDay::saveSecond,         &TestSellersDay::checkSecond,
        &TestSellersDay::makeAnother,        &TestSellersDay::checkThird,
        &TestSellersDay::checkSettings,
    };
    for (const Step step : steps) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
}

// ---- The hand --------------------------------------------------------------------------------------------

/// Presses a button of the toolbar.
void TestSellersDay::openTool(Spot tool, const QString& window) const
{
    QVERIFY(m_program->activate(m_title));
    click(tool);
    QVERIFY2(m_program->activate(window), qPrintable(window));
}

void TestSellersDay::openList(const QString& accessKey, const QString& window) const
{
    openTool(ListTool, QStringLiteral("Lists Properties"));
    m_program->key(accessKey);
    QVERIFY2(m_program->activate(window), qPrintable(window));
}

/// Waits until a tool that has added its work has closed by itself.
void TestSellersDay::backFrom(const QString& window) const
{
    QVERIFY2(m_program->waitGone(window), qPrintable(window));
    QVERIFY(m_program->activate(m_title));
}

void TestSellersDay::closeWhenAdded(const QString& window) const
{
    m_program->click(window, ClosingBox.x, ClosingBox.y);
}

/// Types words, each with Enter behind it.
void TestSellersDay::typeLines(std::initializer_list<const char*> lines)
{
    for (const char* line : lines) {
        Program::type(QString::fromLatin1(line));
        Program::key(QStringLiteral("Return"));
    }
}

/// Opens the terms of a tab of page 1. What is typed there at once is not lost.
void TestSellersDay::openTerms(const QString& window) const
{
    m_program->key(QStringLiteral("alt+f"));
    QVERIFY2(m_program->activate(window), qPrintable(window));
}

/// Answers the colour dialog.
void TestSellersDay::pickColor(const QString& html) const
{
    const QString dialog = QStringLiteral("Select Color");
    QVERIFY(m_program->activate(dialog));
    m_program->keys(QStringLiteral("alt+h ctrl+a"));
    m_program->type(html);
    m_program->press(dialog, QStringLiteral("Return"));
    QVERIFY(m_program->activate(Page2));
}

void TestSellersDay::typeAmount(const QString& accessKey, const QString& dollars, const QString& cents) const
{
    m_program->keys(accessKey + QStringLiteral(" ctrl+a"));
    m_program->type(dollars);
    m_program->key(QStringLiteral("Tab"));
    m_program->type(cents);
}

// ---- The wizard ------------------------------------------------------------------------------------------

void TestSellersDay::startWizard()
{
    m_program = std::make_unique<Program>();
    QVERIFY(QFile::remove(m_program->path(QStringLiteral("weblst2.ini")))); // a seller with no such terms yet
    m_program->start();
    openTool(WizardTool, Page1);
}

void TestSellersDay::writeItem()
{
    Program& hand = *m_program;
    hand.key(QStringLiteral("alt+w"));
    hand.type(QStringLiteral("Globe"));
    hand.key(QStringLiteral("alt+d"));
    hand.type(QStringLiteral("Old & rare."));
    hand.keys(QStringLiteral("alt+t alt+p space"));
    for (int i = 0; i < Pictures; ++i) {
        hand.keys(QStringLiteral("alt+%1 ctrl+a").arg(i + 1));
        hand.type(m_server->url(picture(i)));
    }
}

void TestSellersDay::writePayment()
{
    const QString terms = QStringLiteral("- Payment - Terms of Lists");
    Program& hand = *m_program;
    hand.keys(QStringLiteral("alt+m alt+a alt+p alt+e")); // PayPal, Personal Check
    hand.type(QStringLiteral("Cash"));
    openTerms(terms);
    hand.key(QStringLiteral("ctrl+End"));
    hand.type(QStringLiteral(" No cards."));
    hand.press(terms, QStringLiteral("alt+o"));
    QVERIFY(hand.activate(Page1));
}

void TestSellersDay::writeLocation()
{
    const QString terms = QStringLiteral("- Location Shipping - Terms of Lists");
    Program& hand = *m_program;
    hand.keys(QStringLiteral("alt+l alt+r space alt+n alt+s")); // Canada, Asia
    openTerms(terms);
    hand.click(terms, BoldButton.x, BoldButton.y);
    hand.type(QStringLiteral("By post"));
    hand.press(terms, QStringLiteral("alt+o"));
    QVERIFY(hand.activate(Page1));
}

void TestSellersDay::writeShippingCosts()
{
    m_program->key(QStringLiteral("alt+y"));
    typeAmount(QStringLiteral("alt+h"), QStringLiteral("4"), QStringLiteral("50"));
    typeAmount(QStringLiteral("alt+a"), QStringLiteral("1"), QStringLiteral("25"));
    m_program->press(Page1, QStringLiteral("alt+o"));
    QVERIFY(m_program->activate(Page2));
}

/// Takes the second style, chooses four colours and keeps them as a set, which is loaded again over another
/// one.
void TestSellersDay::chooseLook()
{
    Program& hand = *m_program;
    hand.keys(QStringLiteral("alt+g Tab space alt+l"));
    QString next = QStringLiteral("Return"); // the list opens at its first entry
    for (const char* color : {"#AA5500", "#CC0000", "#224466", "#00CC66"}) { // title, line, description, cell
        const qsizetype windows = hand.visibleWindows();
        hand.key(QStringLiteral("Down"));
        QTRY_VERIFY_WITH_TIMEOUT(hand.visibleWindows() > windows, Patience);
        hand.keys(next);
        pickColor(QString::fromLatin1(color));
        next = QStringLiteral("Down Return"); // at the one that was chosen
    }
    const QString nameBox = QStringLiteral("Save all colors");
    hand.key(QStringLiteral("alt+s"));
    QVERIFY(hand.activate(nameBox));
    hand.type(QStringLiteral("Globes"));
    hand.press(nameBox, QStringLiteral("Return"));
    QVERIFY(hand.activate(Page2));
    hand.keys(QStringLiteral("alt+l Tab Down End Return"));
    hand.press(Page2, QStringLiteral("alt+e"));
}

// ---- The tools -------------------------------------------------------------------------------------------

/// The page comes back from the design surface as it went, and the button of the pictures knows them now.
void TestSellersDay::lookAtDesign()
{
    QVERIFY(m_program->activate(m_title));
    click(PreviewTab);
    click(EditorTab);
}

void TestSellersDay::fadeTitle()
{
    QVERIFY(m_program->activate(m_title));
    click(TitleButton);
    openTool(FaderTool, FaderWindow); // the title stands in it already
    Program& hand = *m_program;
    hand.keys(QStringLiteral("Tab Tab Tab space Tab Tab Tab Tab Down Down")); // bold, five colours
    hand.keys(QStringLiteral("Tab Tab Tab Tab Tab Tab End"));                 // the second one red
    hand.keys(QStringLiteral("Tab Tab Tab Tab Tab End"));                     // the third one green
    hand.keys(QStringLiteral("Tab Tab Tab Tab Tab End"));                     // the fourth one blue
    hand.keys(QStringLiteral("Tab Tab End Tab End"));                         // the fifth one red and green
    hand.click(FaderWindow, FaderParagraph.x, FaderParagraph.y);
    closeWhenAdded(FaderWindow);
    hand.click(FaderWindow, FaderAdd.x, FaderAdd.y);
    backFrom(FaderWindow);
}

void TestSellersDay::changeRule()
{
    click(LineButton);
    openTool(RuleTool, RuleWindow);
    closeWhenAdded(RuleWindow);
    Program& hand = *m_program;
    hand.keys(QStringLiteral("alt+w ctrl+a"));
    hand.type(QStringLiteral("60%"));
    hand.keys(QStringLiteral("alt+s ctrl+a"));
    hand.type(QStringLiteral("4"));
    hand.keys(QStringLiteral("Tab Tab Tab End")); // red
    hand.key(QStringLiteral("alt+a"));
    backFrom(RuleWindow);
}

/// Both lists go behind the pictures.
void TestSellersDay::addLists()
{
    Program& hand = *m_program;
    click(PictureButton);
    hand.key(QStringLiteral("Right"));
    openList(QStringLiteral("alt+l"), ListWindow);
    typeLines({"Old", "Rare"});
    hand.keys(QStringLiteral("Tab Tab Tab Tab Tab End")); // red
    hand.keys(QStringLiteral("Tab Tab Tab Tab Right"));   // numbers
    closeWhenAdded(ListWindow);
    hand.key(QStringLiteral("alt+a"));
    backFrom(ListWindow);

    openList(QStringLiteral("alt+s"), CharacterListWindow);
    typeLines({"Box", "Map"});
    hand.keys(QStringLiteral("Tab Tab Tab Tab Tab space Tab")); // to the title's box
    hand.type(QStringLiteral("Extras"));
    closeWhenAdded(CharacterListWindow);
    hand.key(QStringLiteral("alt+a"));
    backFrom(CharacterListWindow);
}

/// Behind the lists.
void TestSellersDay::addTable()
{
    Program& hand = *m_program;
    openTool(TableTool, TableWindow);
    typeLines({"Size", "High\t9 in"});
    hand.keys(QStringLiteral("Tab Tab Tab Tab Tab Tab Tab Tab Tab Right Right")); // the bar of the border
    hand.key(QStringLiteral("alt+e"));
    backFrom(TableWindow);
}

// ---- The first page --------------------------------------------------------------------------------------

/// The page as it comes from the wizard.
QByteArray TestSellersDay::listing() const
{
    QByteArray page = fileBytes(QStringLiteral(TEST_DATA "/day/listing.htm"));
    return page.replace("http://pictures.example/", m_server->url(QStringLiteral("/")).toLatin1());
}

void TestSellersDay::saveFirst()
{
    m_program->file(m_title, QStringLiteral("s")); // has no name yet
    m_program->answerFile(QStringLiteral("Save As Files"), m_program->path(QStringLiteral("first.htm")));
    m_title = FirstTitle;
    QVERIFY(m_program->activate(m_title));
    m_program->file(m_title, QStringLiteral("e"));
    QCOMPARE(m_program->exitCode(), 0);
}

void TestSellersDay::checkFirst()
{
    m_first = listing() + "\r\n"; // saving ends the last line
    replacePart(m_first, "Body-title", FadedTitle);
    replacePart(m_first, "Body-line", Rule);
    replaceOnce(m_first, "<!-- Body-picture2 -->",
                NumberedList + CharacterList + Table + "<!-- Body-picture2 -->");
    compareLines(m_program->read(QStringLiteral("first.htm")), m_first);
}

// ---- The second start ------------------------------------------------------------------------------------

void TestSellersDay::startAgain()
{
    m_title = MainWindow;
    m_program->start();
    m_program->file(m_title, QStringLiteral("o"));
    m_program->answerFile(QStringLiteral("Open As Files"), m_program->path(QStringLiteral("first.htm")));
    m_title = FirstTitle;
    QVERIFY(m_program->activate(m_title));
}

/// Writes over the title, the description and the title of the last cell.
void TestSellersDay::writeRegions()
{
    click(TitleButton);
    m_program->type(QStringLiteral("<H1>Globe</H1>"));
    click(DescriptionButton);
    m_program->type(QStringLiteral("<FONT face=Arial>Mint.</FONT>"));
    const qsizetype windows = m_program->visibleWindows();
    click(CellButton);
    QTRY_VERIFY_WITH_TIMEOUT(m_program->visibleWindows() > windows, Patience);
    m_program->keys(QStringLiteral("Up Return")); // the last entry; until the menu has gone it has all keys
    QTRY_COMPARE_WITH_TIMEOUT(m_program->visibleWindows(), windows, Patience);
    m_program->type(QStringLiteral("<B>Post</B>"));
}

/// The tools close by themselves, the text comes in a paragraph, and the title of the list is in its box.
void TestSellersDay::useWhatIsRemembered()
{
    Program& hand = *m_program;
    click(LineButton);
    openTool(FaderTool, FaderWindow);
    hand.key(QStringLiteral("ctrl+a")); // a rule has no text, the box is empty
    hand.type(QStringLiteral("1950"));
    hand.click(FaderWindow, FaderAdd.x, FaderAdd.y);
    backFrom(FaderWindow);

    openList(QStringLiteral("alt+s"), CharacterListWindow);
    typeLines({"Key"});
    hand.keys(QStringLiteral("Tab Tab Tab Tab Tab space Tab Down"));
    hand.key(QStringLiteral("alt+a"));
    backFrom(CharacterListWindow);
}

void TestSellersDay::replaceFont()
{
    const QString done = QStringLiteral("Search");
    Program& hand = *m_program;
    openTool(FindTool, FindWindow);
    hand.key(QStringLiteral("alt+n"));
    hand.type(QStringLiteral("Arial"));
    hand.key(QStringLiteral("alt+p"));
    hand.type(QStringLiteral("Verdana"));
    hand.key(QStringLiteral("alt+a"));
    hand.press(done, QStringLiteral("Return"));
    hand.press(FindWindow, QStringLiteral("Escape"));
    QVERIFY(hand.activate(m_title));
}

/// With the design off the page is shown as a visitor sees it, and the source stays as it is.
void TestSellersDay::lookAtPreview()
{
    std::array<int, Pictures> before{};
    for (int i = 0; i < Pictures; ++i)
        before.at(size_t(i)) = m_server->requests(picture(i));
    click(PreviewTab);
    click(DesignOff);
    for (int i = 0; i < Pictures; ++i)
        QTRY_VERIFY_WITH_TIMEOUT(m_server->requests(picture(i)) > before.at(size_t(i)), Patience);
    click(EditorTab);
}

void TestSellersDay::saveSecond()
{
    m_program->file(m_title, QStringLiteral("a"));
    m_program->answerFile(QStringLiteral("Save As Files"), m_program->path(QStringLiteral("second.htm")));
    m_title = SecondTitle;
    QVERIFY(m_program->activate(m_title));
}

void TestSellersDay::checkSecond()
{
    QByteArray second = m_first + "\r\n";
    replacePart(second, "Body-title", "<H1>Globe</H1>");
    replacePart(second, "Body-description", "<FONT face=Arial>Mint.</FONT>");
    replacePart(second, "Body3-Cell", "<B>Post</B>");
    replacePart(second, "Body-line", PlainText + SecondCharacterList);
    second.replace("Arial", "Verdana");
    compareLines(m_program->read(QStringLiteral("second.htm")), second);
    compareLines(m_program->read(QStringLiteral("first.htm")), m_first);
}

// ---- Another listing -------------------------------------------------------------------------------------

/// Title and description suffice: the rest of page 1 is remembered but for the pictures, and so are the
/// colours.
void TestSellersDay::makeAnother()
{
    openTool(WizardTool, Page1);
    Program& hand = *m_program;
    hand.key(QStringLiteral("alt+w"));
    hand.type(QStringLiteral("Map"));
    hand.key(QStringLiteral("alt+d"));
    hand.type(QStringLiteral("New."));
    hand.press(Page1, QStringLiteral("alt+o"));
    QVERIFY(hand.activate(Page2));
    hand.keys(QStringLiteral("alt+g Tab space alt+l Tab Down End Return"));
    hand.press(Page2, QStringLiteral("alt+e"));
    m_title = MainWindow;
    hand.file(m_title, QStringLiteral("s"));
    hand.answerFile(QStringLiteral("Save As Files"), hand.path(QStringLiteral("third.htm")));
    QVERIFY(hand.activate(QStringLiteral("third.htm - Brindlemark 1.0")));
    hand.key(QStringLiteral("alt+F4"));
    QCOMPARE(hand.exitCode(), 0);
}

void TestSellersDay::checkThird()
{
    QByteArray third = listing() + "\r\n";
    replaceOnce(third, "\r\nGlobe\r\n", "\r\nMap\r\n");
    replaceOnce(third, "\r\nOld &amp; rare.\r\n", "\r\nNew.\r\n");
    const QByteArray picturesEnd = "<!-- Body-picture2 --><BR><BR><BR>\r\n";
    const qsizetype pictures = third.indexOf("<!-- Body-picture -->");
    third.remove(pictures, third.indexOf(picturesEnd) + picturesEnd.size() - pictures);
    replaceOnce(third, QByteArray("</ALIGN=MIDDLE>").repeated(Pictures), "");
    replaceOnce(third, "\r\nPayPal\r\n", "\r\n1\r\n"); // in the order of the boxes now
    replaceOnce(third, "\r\nPersonal Check\r\n", "\r\nPayPal\r\n");
    replaceOnce(third, "\r\n1\r\n", "\r\nPersonal Check\r\n");
    compareLines(m_program->read(QStringLiteral("third.htm")), third);
}

// ---- What is kept ----------------------------------------------------------------------------------------

void TestSellersDay::checkSettings()
{
    QByteArray settings = shipped("web.ini");
    for (const auto& [before, after] : std::initializer_list<std::pair<const char*, const char*>>{
             {"[Fontpro]\r\nchk=0\r\nchk2=0\r\n", "[Fontpro]\r\nchk=1\r\nchk2=1\r\n"},
             {"[Listpro]\r\nchk4=0\r\nchk3=0\r\n", "[Listpro]\r\nchk4=1\r\nchk3=1\r\n"},
             {"[HRpro]\r\nchk3=0\r\n", "[HRpro]\r\nchk3=1\r\n"},
             {"[QelPay]\r\n1=0\r\n2=0\r\n3=0\r\n4=0\r\n5=0\r\n",
              "[QelPay]\r\n1=0\r\n2=1\r\n3=0\r\n4=0\r\n5=1\r\n"},
             {"\r\n11=0\r\n", "\r\n11=Cash\r\n"},
             {"opt=1\r\nopt2=0\r\nopt3=0\r\nchk=0\r\nchk2=0\r\nchk3=0\r\nchk4=0\r\n",
              "opt=0\r\nopt2=0\r\nopt3=1\r\nchk=1\r\nchk2=0\r\nchk3=0\r\nchk4=1\r\n"},
             {"TxSH1=0\r\nTxSH2=00\r\n", "TxSH1=4\r\nTxSH2=50\r\n"},
             {"TxAI1=0\r\nTxAI2=00\r\n", "TxAI1=1\r\nTxAI2=25\r\n"},
         })
        replaceOnce(settings, before, after);
    compareLines(m_program->read(QStringLiteral("web.ini")), settings);

    QByteArray payment = shipped("weblst.ini");
    replaceOnce(payment, "Thank you for your bid!", "Thank you for your bid! No cards.");
    compareLines(m_program->read(QStringLiteral("weblst.ini")), payment);
    compareLines(m_program->read(QStringLiteral("weblst2.ini")), "\r\n<BODY><B>By post</B></BODY>\r\n");
    compareLines(m_program->read(QStringLiteral("weblst3.ini")), shipped("weblst3.ini"));

    compareLines(m_program->read(QStringLiteral("webstyle2.ini")), shipped("webstyle2.ini") + "Globes\r\n");
    const QByteArray sets = m_program->read(QStringLiteral("webstyle.ini"));
    QVERIFY(sets.startsWith(shipped("webstyle.ini")));
    compareLines(sets.sliced(shipped("webstyle.ini").size()).trimmed(),
                 "[Globes]\r\n1=#000000\r\n2=#FFFFFF\r\n3=#00CC66\r\n4=#FFFFFF\r\n5=#CC0000\r\n6=#000000\r\n"
                 "7=#224466\r\n8=#AA5500\r\n9=#000000");
    compareLines(m_program->read(QStringLiteral("list2.ini")), "Extras\r\n");
}

QTEST_GUILESS_MAIN(TestSellersDay)
#include "tst_sellersday.moc"
