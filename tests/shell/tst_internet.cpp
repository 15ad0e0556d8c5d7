// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebServer.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "web/WebEngine.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <csignal>

using namespace brindlemark;

namespace {

const QString Home = QStringLiteral("http://home.invalid/");

/// The main window with the Internet tab up.
class InternetTab : public MainWindow
{
public:
    InternetTab() { showTab(FrmWeb::InternetTab); }

    /// Types an address in place of the one in the box, and presses Enter.
    void enter(const QString& address) const
    {
        QWidget* field = web->Combo3->lineEdit();
        field->setFocus();
        web->Combo3->lineEdit()->selectAll();
        QTest::keyClicks(field, address);
        QTest::keyClick(field, Qt::Key_Return);
    }
    QString status() const { return web->Label1->text(); }
    QString text() const
    {
        return probe(web->WebBrowser2)
            .evaluate(QStringLiteral("document.body.innerText"))
            .value_or(QVariant())
            .toString()
            .trimmed();
    }
    QStringList addresses() const
    {
        QStringList list;
        for (int i = 0; i < web->Combo3->ListCount(); ++i)
            list << web->Combo3->List(i);
        return list;
    }
    QByteArray addressFile() const
    {
        return folder.has(QStringLiteral("Ils.ini")) ? folder.read(QStringLiteral("Ils.ini")) : QByteArray();
    }
    void click(QToolButton* button) const { QTest::mouseClick(button, Qt::LeftButton); }
};

/// Where the tab is, and what stands there.
QString pageSource(const InternetTab& tab)
{
    return probe(tab.web->WebBrowser2)
        .evaluate(QStringLiteral("document.URL + ' ' + document.documentElement.innerHTML"))
        .value_or(QVariant())
        .toString();
}

} // namespace

class TestInternet : public QObject
{
    Q_OBJECT

private slots:
    void atTheStart();
    void withoutAddressFile();

    void newAddress();
    void newAddressThatIsWrong();
    void knownAddress();
    void requestsOfAnAddress();
    void addressWithComma();
    void emptyAddress();
    void pickedAddress();
    void homePage();
    void homePageWaitsForTheUser();

    void historyButtons();
    void historyMenu();
    void historyMenuOnOtherTabs();
    void nothingBehindOrBefore();
    void changeOfHomePage_data();
    void changeOfHomePage();
    void clearAddresses_data();
    void clearAddresses();
    void textSizes();
    void progressAndStatus();
    void linkUnderTheMouse();
    void tabKeysOnThePage();

    void typedAddresses_data();
    void typedAddresses();
    void refusedAddresses_data();
    void refusedAddresses();
    void refusedLinks();
    void downloads();
    void windows();
    void permissions();
    void certificates();
    void messagesWithoutEnd();

    void serverThatNeverAnswers();
    void serverThatStopsInTheMiddle();
    void serverThatRedirectsForever();
    void pageWithoutEnd();
    void scriptWithoutEnd();
    void lostRenderer();
    void rendererLostWhileOpening();
    void sharesNothing();
};

void TestInternet::atTheStart()
{
    const InternetTab tab;
    QCOMPARE(tab.web->Combo3->Text(), QStringLiteral("about:blank"));
    QVERIFY(tab.web->mumedium->isChecked());
    QCOMPARE(tab.web->Label3->text(), QStringLiteral("Address"));
    QCOMPARE(tab.web->Command15->text(), QStringLiteral("Home Page"));
    QCOMPARE(tab.web->Command17->text(), QStringLiteral("Back"));
    QCOMPARE(tab.web->Command18->text(), QStringLiteral("Forward"));
    QCOMPARE(tab.web->Command19->text(), QStringLiteral("Stop"));
    QCOMPARE(tab.web->Command20->text(), QStringLiteral("Refresh"));
    QTRY_COMPARE(pageSource(tab), QStringLiteral("surface:blank <head></head><body></body>"));
    // As the engine does at the first visit, of a mouse that is over no link.
    emit tab.web->WebBrowser2->findChild<QWebEnginePage*>()->linkHovered(QString());
    QCOMPARE(tab.status(), QStringLiteral("Done"));
    QCOMPARE(tab.web->ProgressBar1->value(), 0);
}

void TestInternet::withoutAddressFile()
{
    const InternetTab tab;
    QVERIFY(!tab.folder.has(QStringLiteral("Ils.ini")));
    QCOMPARE(tab.addresses(), QStringList());
}

// ---- The address box

void TestInternet::newAddress()
{
    WebServer server;
    server.page(QStringLiteral("/lamp"), "<p>A lamp");
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/lamp")));
    // It is kept at once, before the page is there.
    QCOMPARE(tab.addresses(), QStringList(server.url(QStringLiteral("/lamp"))));
    QCOMPARE(tab.web->Combo3->ListIndex(), 0);
    QCOMPARE(tab.addressFile(), server.url(QStringLiteral("/lamp")).toLatin1() + "\r\n");
    QTRY_COMPARE(tab.text(), QStringLiteral("A lamp"));
    QTRY_COMPARE(tab.status(), QStringLiteral("Done"));
    QCOMPARE(server.requests(QStringLiteral("/lamp")), 1);
    QCOMPARE(tab.web->ProgressBar1->value(), 0);
    QVERIFY(tab.web->Combo3->lineEdit()->hasFocus() || tab.web->Combo3->hasFocus());
}

void TestInternet::newAddressThatIsWrong()
{
    const InternetTab tab;
    tab.web->Combo3->setText(QStringLiteral("http://127.0.0.1:1/nobody"));
    tab.click(tab.web->Command14);
    QCOMPARE(tab.addressFile(), QByteArray("http://127.0.0.1:1/nobody\r\n"));
    QTRY_VERIFY2(tab.status().startsWith(QStringLiteral("The page http://127.0.0.1:1/nobody could not")),
                 qPrintable(tab.status()));
}

void TestInternet::knownAddress()
{
    WebServer server;
    server.page(QStringLiteral("/a"), "first");
    server.page(QStringLiteral("/b"), "second");
    const QString a = server.url(QStringLiteral("/a"));
    const QString b = server.url(QStringLiteral("/b"));
    const InternetTab tab;
    tab.enter(a);
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    tab.enter(b);
    QTRY_COMPARE(tab.text(), QStringLiteral("second"));
    QTRY_COMPARE(tab.status(), QStringLiteral("Done"));

    tab.enter(a); // known, but not the last that was chosen
    QCOMPARE(tab.web->Combo3->ListIndex(), 0);
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    QTRY_COMPARE(tab.status(), QStringLiteral("Done"));

    server.page(QStringLiteral("/a"), "changed");
    tab.enter(a); // the last that was chosen
    QTRY_COMPARE(tab.text(), QStringLiteral("changed"));
    QCOMPARE(tab.addresses(), QStringList({a, b}));
    QCOMPARE(tab.addressFile(), (a + QStringLiteral("\r\n") + b + QStringLiteral("\r\n")).toLatin1());
    QTRY_COMPARE(tab.status(), QStringLiteral("Done"));

    tab.enter(a.toUpper()); // compared to the letter
    QCOMPARE(tab.web->Combo3->ListCount(), 3);
}

/// How often an address is asked for; one that is refused says so each time.
void TestInternet::requestsOfAnAddress()
{
    const InternetTab tab;
    QSignalSpy refused(tab.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    const auto requests = [&](const char* address) {
        refused.clear();
        tab.enter(QString::fromLatin1(address));
        return refused.count(
            QVariantList{QStringLiteral("Not opened here: ") + QString::fromLatin1(address)});
    };
    QCOMPARE(requests("ftp://a.example"), 1);
    QCOMPARE(requests("ftp://b.example"), 1);
    QCOMPARE(requests("ftp://a.example"), 2); // a click on the entry, and the address step's own
    QCOMPARE(requests("ftp://a.example"), 1); // the entry is chosen already
    QCOMPARE(requests("ftp://b.example"), 2);
}

void TestInternet::addressWithComma()
{
    QByteArray file;
    {
        const InternetTab tab;
        tab.enter(QStringLiteral("http://127.0.0.1:1/a,b"));
        QCOMPARE(tab.addresses(), QStringList(QStringLiteral("http://127.0.0.1:1/a,b")));
        file = tab.addressFile();
        QCOMPARE(file, QByteArray("http://127.0.0.1:1/a,b\r\n"));
    }
    const ProgramFolder folder; // the next start
    folder.write(QStringLiteral("Ils.ini"), file);
    const ScriptedDoors doors;
    const auto* web = form<FrmWeb>();
    QCOMPARE(web->Combo3->ListCount(), 2);
    QCOMPARE(web->Combo3->List(0), QStringLiteral("http://127.0.0.1:1/a"));
    QCOMPARE(web->Combo3->List(1), QStringLiteral("b"));
    unloadAll();
}

void TestInternet::emptyAddress()
{
    const InternetTab tab;
    tab.web->Combo3->setText(QString());
    tab.click(tab.web->Command14);
    QCOMPARE(tab.addresses(), QStringList(QString()));  // on screen
    QVERIFY(tab.folder.has(QStringLiteral("Ils.ini"))); // without it
    QCOMPARE(tab.addressFile(), QByteArray());
}

void TestInternet::pickedAddress()
{
    WebServer server;
    server.page(QStringLiteral("/a"), "first");
    server.page(QStringLiteral("/b"), "second");
    const InternetTab tab;
    for (const char* path : {"/a", "/b"})
        tab.web->Combo3->AddItem(server.url(QString::fromLatin1(path)));
    tab.web->Combo3->setFocus();
    choose(tab.web->Combo3, 0);
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    choose(tab.web->Combo3, 1);
    QTRY_COMPARE(tab.text(), QStringLiteral("second"));
    QCOMPARE(server.requests(QStringLiteral("/b")), 1);
}

void TestInternet::homePage()
{
    WebServer server;
    server.page(QStringLiteral("/home"), "my home");
    InternetTab tab;
    tab.doors.answerInputBox(server.url(QStringLiteral("/home")));
    tab.choose(tab.web->muinternet, tab.web->muoptions);
    QCOMPARE(tab.web->Combo3->Text(),
             QStringLiteral("about:blank")); // takes effect at the next start or click
    tab.click(tab.web->Command15);
    QCOMPARE(tab.web->Combo3->Text(), server.url(QStringLiteral("/home")));
    QTRY_COMPARE(tab.text(), QStringLiteral("my home"));
    QCOMPARE(tab.addresses(), QStringList()); // no address step
}

/// The next start shows its address and opens nothing.
void TestInternet::homePageWaitsForTheUser()
{
    WebServer server;
    server.page(QStringLiteral("/home"), "my home");
    server.page(QStringLiteral("/a"), "first");
    const QString home = server.url(QStringLiteral("/home"));
    InternetTab tab;
    tab.doors.answerInputBox(home);
    tab.choose(tab.web->muinternet, tab.web->muoptions);
    unloadAll();
    tab.web = form<FrmWeb>();
    tab.web->Show();
    QVERIFY(QTest::qWaitForWindowExposed(tab.web, Patience));
    QCOMPARE(tab.web->Combo3->Text(), home);
    tab.showTab(FrmWeb::InternetTab);
    QTRY_COMPARE(pageSource(tab), QStringLiteral("surface:blank <head></head><body></body>"));
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    QCOMPARE(server.requests(QStringLiteral("/home")), 0);
    tab.click(tab.web->Command15);
    QTRY_COMPARE(tab.text(), QStringLiteral("my home"));
}

// ---- History

void TestInternet::historyButtons()
{
    WebServer server;
    server.page(QStringLiteral("/a"), "first");
    server.page(QStringLiteral("/b"), "second");
    server.page(QStringLiteral("/c"), "third");
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    tab.enter(server.url(QStringLiteral("/b")));
    QTRY_COMPARE(tab.text(), QStringLiteral("second"));
    tab.click(tab.web->Command17);
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    tab.click(tab.web->Command18);
    QTRY_COMPARE(tab.text(), QStringLiteral("second"));
    server.page(QStringLiteral("/b"), "changed");
    tab.click(tab.web->Command20);
    QTRY_COMPARE(tab.text(), QStringLiteral("changed"));
    tab.enter(server.url(QStringLiteral("/c")));
    QTRY_COMPARE(tab.text(), QStringLiteral("third"));
    tab.click(tab.web->Command17); // one step only
    QTRY_COMPARE(tab.text(), QStringLiteral("changed"));
}

void TestInternet::historyMenu()
{
    WebServer server;
    server.page(QStringLiteral("/a"), "first");
    server.page(QStringLiteral("/b"), "second");
    server.hang(QStringLiteral("/never"));
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    tab.enter(server.url(QStringLiteral("/b")));
    QTRY_COMPARE(tab.text(), QStringLiteral("second"));
    tab.choose(tab.web->munview, tab.web->munback);
    QTRY_COMPARE(tab.text(), QStringLiteral("first"));
    tab.choose(tab.web->munview, tab.web->munforward);
    QTRY_COMPARE(tab.text(), QStringLiteral("second"));
    server.page(QStringLiteral("/b"), "changed");
    tab.choose(tab.web->munview, tab.web->munrefresh);
    QTRY_COMPARE(tab.text(), QStringLiteral("changed"));
    tab.enter(server.url(QStringLiteral("/never")));
    QTRY_COMPARE(server.requests(QStringLiteral("/never")), 1);
    tab.choose(tab.web->munview, tab.web->munstop);
    QTRY_COMPARE(server.connections(), 0);
}

/// On another tab the entries do nothing, however they are reached.
void TestInternet::historyMenuOnOtherTabs()
{
    WebServer server;
    for (const char* path : {"/a", "/b", "/c"})
        server.page(QString::fromLatin1(path), path);
    const InternetTab tab;
    for (const char* path : {"/a", "/b", "/c"}) {
        tab.enter(server.url(QString::fromLatin1(path)));
        QTRY_COMPARE(tab.text(), QString::fromLatin1(path));
    }
    tab.click(tab.web->Command17);
    QTRY_COMPARE(tab.text(), QStringLiteral("/b")); // with a page before it and one behind it
    QTRY_COMPARE(tab.status(), QStringLiteral("Done"));
    const QSignalSpy told(tab.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    for (const FrmWeb::Tab other : {FrmWeb::EditorTab, FrmWeb::PreviewTab}) {
        tab.showTab(other);
        for (QAction* entry :
             {tab.web->munback, tab.web->munforward, tab.web->munstop, tab.web->munrefresh}) {
            entry->trigger();
            QTest::qWait(100); // another page would begin to open
            QCOMPARE(told.count(), 0);
            QCOMPARE(tab.text(), QStringLiteral("/b"));
        }
    }

    server.hang(QStringLiteral("/never"));
    tab.showTab(FrmWeb::InternetTab);
    tab.enter(server.url(QStringLiteral("/never")));
    QTRY_COMPARE(server.requests(QStringLiteral("/never")), 1);
    for (const FrmWeb::Tab other : {FrmWeb::EditorTab, FrmWeb::PreviewTab}) {
        tab.showTab(other);
        tab.web->munstop->trigger();
        QCOMPARE(tab.status(), QStringLiteral("Opening page ") + server.url(QStringLiteral("/never")));
        QCOMPARE(server.connections(), 1);
    }
}

void TestInternet::nothingBehindOrBefore()
{
    const InternetTab tab;
    QTRY_COMPARE(pageSource(tab), QStringLiteral("surface:blank <head></head><body></body>"));
    const QSignalSpy finished(tab.web->WebBrowser2, &InternetBrowser::navigationFinished);
    QSignalSpy status(tab.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    for (QToolButton* button :
         {tab.web->Command17, tab.web->Command18, tab.web->Command19, tab.web->Command20})
        tab.click(button); // no message, no change
    QTest::qWait(200);     // would come by now
    QCOMPARE(tab.status(), QStringLiteral("Done"));
    QCOMPARE(status.count() + finished.count(), 0);
}

// ---- The Internet menu

void TestInternet::changeOfHomePage_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("home");
    QTest::newRow("another") << "http://x.example/"
                             << "http://x.example/";
    QTest::newRow("empty") << "" << Home;
    QTest::newRow("only the scheme") << "http://" << Home;
    QTest::newRow("without scheme") << "x.example"
                                    << "x.example";
}

void TestInternet::changeOfHomePage()
{
    QFETCH(QString, answer);
    QFETCH(QString, home);
    InternetTab tab;
    tab.doors.answerInputBox(Home);
    tab.choose(tab.web->muinternet, tab.web->muoptions);
    tab.doors.takeAsked();
    tab.doors.answerInputBox(answer);
    tab.choose(tab.web->muinternet, tab.web->muoptions);
    QCOMPARE(
        tab.doors.takeAsked(),
        QStringList(QStringLiteral("InputBox|Home Page|Enter the Internet Address for home page.|") + Home));
    QVERIFY(tab.folder.read(QStringLiteral("web.ini")).contains("home=" + home.toLatin1() + "\r\n"));
}

void TestInternet::clearAddresses_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestInternet::clearAddresses()
{
    QFETCH(bool, yes);
    InternetTab tab;
    tab.enter(QStringLiteral("http://127.0.0.1:1/a"));
    const QByteArray file = tab.addressFile();
    QVERIFY(!file.isEmpty());
    tab.doors.answerMsgBox(yes ? MsgAnswer::Yes : MsgAnswer::No);
    tab.choose(tab.web->muinternet, tab.web->muaddressclear);
    QCOMPARE(tab.doors.takeAsked(),
             QStringList(QStringLiteral(
                 "MsgBox|Information|Are you sure you wish clear the address list ?|Information|YesNo")));
    QCOMPARE(tab.addresses().isEmpty(), yes);
    QCOMPARE(tab.web->Combo3->Text(), yes ? QString() : QStringLiteral("http://127.0.0.1:1/a"));
    QVERIFY(tab.folder.has(QStringLiteral("Ils.ini")));
    QCOMPARE(tab.addressFile(), yes ? QByteArray() : file);
}

void TestInternet::textSizes()
{
    const InternetTab tab;
    const QList<QAction*> sizes = {tab.web->musmallest, tab.web->musmaller, tab.web->mumedium,
                                   tab.web->mularger, tab.web->mulargest};
    for (const int level : {4, 0, 1, 3, 2}) {
        sizes.at(level)->trigger();
        for (int i = 0; i < sizes.size(); ++i)
            QCOMPARE(sizes.at(i)->isChecked(), i == level);
        QCOMPARE(tab.web->WebBrowser1->zoomLevel(), level);
        QCOMPARE(tab.web->WebBrowser2->zoomLevel(), level);
        QCOMPARE(tab.web->WebBrowser3->zoomLevel(), 2);
    }
    sizes.at(2)->trigger(); // the chosen one again stays
    QVERIFY(tab.web->mumedium->isChecked());
}

void TestInternet::progressAndStatus()
{
    const InternetTab tab;
    InternetBrowser* browser = tab.web->WebBrowser2;
    QProgressBar* bar = tab.web->ProgressBar1;
    emit browser->progressChanged(30, 60);
    QCOMPARE(bar->maximum(), 60);
    QCOMPARE(bar->value(), 30);
    emit browser->progressChanged(5, 0);
    QCOMPARE(bar->value(), 0);
    emit browser->progressChanged(100, 100);
    QCOMPARE(bar->value(), 100);
    emit browser->progressChanged(3, -1);
    QCOMPARE(bar->value(), 0);
    emit browser->statusTextChanged(QStringLiteral("  opening  it "));
    QCOMPARE(tab.status(), QStringLiteral("opening  it"));
    emit tab.web->WebBrowser1->statusTextChanged(QStringLiteral("design")); // is no news
    QCOMPARE(bar->value(), 0);
    QCOMPARE(tab.status(), QStringLiteral("opening  it"));
}

/// A link shows its address as long as the mouse is over it.
void TestInternet::linkUnderTheMouse()
{
    WebServer server;
    server.page(QStringLiteral("/a"),
                "<body style='margin: 0'><a href=/b style='display: block; height: 100px'>link</a>");
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("link"));
    QTRY_COMPARE(tab.status(), QStringLiteral("Done"));
    QWidget* input = tab.web->WebBrowser2->inputWidget();
    int moves = 0;
    const auto isShownAt = [&](int y, const QString& status) {
        QTest::mouseMove(input, QPoint(50 + ++moves % 2, y));
        return tab.status() == status;
    };
    for (int round = 0; round < 2; ++round) {
        QTRY_VERIFY(isShownAt(50, server.url(QStringLiteral("/b"))));
        QTRY_VERIFY(isShownAt(150, QStringLiteral("Done")));
    }
}

/// Ctrl+Tab on the page goes to the next tab, and what was typed on the design surface comes along.
void TestInternet::tabKeysOnThePage()
{
    MainWindow window;
    QVERIFY(QTest::qWaitForWindowActive(window.web));
    window.type(QStringLiteral("<P>word</P>"));
    window.showTab(FrmWeb::PreviewTab);
    window.typeOnSurface(QStringLiteral("typed"));
    probe(window.web->WebBrowser1).setPatience(1000);
    const qint64 renderer = probe(window.web->WebBrowser1).rendererPid();
    window.showTab(FrmWeb::InternetTab);
    QTRY_VERIFY(window.web->WebBrowser2->inputWidget());
    QTest::mouseClick(window.web->WebBrowser2->inputWidget(), Qt::LeftButton);
    QTRY_VERIFY(window.web->WebBrowser2->inputWidget()->hasFocus());
    QTest::keyClick(window.web->windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
    QTRY_COMPARE(window.web->SSTab1->Tab(), int(FrmWeb::EditorTab));
    QVERIFY2(window.source().contains("typed"), window.source().constData());
    QCOMPARE(window.doors.asked, QStringList());
    QCOMPARE(probe(window.web->WebBrowser1).rendererPid(), renderer);

    // The other way round, from the preview.
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton);
    QTRY_VERIFY(window.web->WebBrowser3->inputWidget());
    QTest::mouseClick(window.web->WebBrowser3->inputWidget(), Qt::LeftButton);
    QTRY_VERIFY(window.web->WebBrowser3->inputWidget()->hasFocus());
    QTest::keyClick(window.web->windowHandle(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(window.web->SSTab1->Tab(), int(FrmWeb::EditorTab));
    QCOMPARE(window.doors.asked, QStringList());
}

// ---- What is opened, and what is not

void TestInternet::typedAddresses_data()
{
    QTest::addColumn<QString>("typed"); // %1: the server
    QTest::newRow("with scheme") << "http://%1/a";
    QTest::newRow("without scheme") << "%1/a";
    QTest::newRow("upper case scheme") << "HTTP://%1/a";
    QTest::newRow("blanks around") << "  %1/a  ";
    QTest::newRow("name with a port") << "localhost:%2/a";
}

void TestInternet::typedAddresses()
{
    QFETCH(QString, typed);
    WebServer server;
    server.page(QStringLiteral("/a"), "here");
    const InternetTab tab;
    tab.enter(typed.contains(QStringLiteral("%2"))
                  ? QString(typed).replace(QStringLiteral("%2"), server.host().section(u':', 1))
                  : typed.arg(server.host()));
    QTRY_COMPARE(tab.text(), QStringLiteral("here"));
}

void TestInternet::refusedAddresses_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("status");
    QTest::newRow("script") << "javascript:document.title='ran'"
                            << "Not an address: javascript:document.title='ran'";
    QTest::newRow("file") << "file:///etc/passwd"
                          << "Not opened here: file:///etc/passwd";
    QTest::newRow("data") << "data:text/html,x"
                          << "Not opened here: data:text/html,x";
    QTest::newRow("mail") << "mailto:me@x.example"
                          << "Not opened here: mailto:me@x.example";
    QTest::newRow("engine's own") << "chrome://gpu/"
                                  << "Not opened here: chrome://gpu/";
    QTest::newRow("blanks") << "two words"
                            << "Not an address: two words";
    QTest::newRow("slash") << "/etc/passwd"
                           << "Not an address: /etc/passwd";
    QTest::newRow("100 KB") << "ftp://x.example/" + QString(100'000, u'a')
                            << "Not opened here: ftp://x.example/" + QString(184, u'a') + QChar(0x2026);
}

void TestInternet::refusedAddresses()
{
    QFETCH(QString, address);
    QFETCH(QString, status);
    const InternetTab tab;
    tab.web->Combo3->setText(address);
    tab.click(tab.web->Command14);
    QCOMPARE(tab.status(), status);
    QTRY_COMPARE(pageSource(tab), QStringLiteral("surface:blank <head></head><body></body>"));
}

void TestInternet::refusedLinks()
{
    WebServer server;
    server.page(QStringLiteral("/mail"),
                "<body style='margin: 0'><a href='mailto:me@x.example' style='display: block; "
                "height: 300px'>x</a>");
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/mail")));
    QTRY_COMPARE(tab.text(), QStringLiteral("x"));
    QSignalSpy status(tab.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    QTest::mouseClick(tab.web->WebBrowser2->inputWidget(), Qt::LeftButton, {}, QPoint(50, 50));
    QTRY_VERIFY(std::any_of(status.begin(), status.end(), [](const QVariantList& arguments) {
        return arguments.first().toString() == QLatin1String("Not opened here: mailto:me@x.example");
    }));
    QTRY_COMPARE(tab.text(), QStringLiteral("x"));
}

void TestInternet::downloads()
{
    WebServer server;
    server.answer(
        QStringLiteral("/file"),
        "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\nContent-Disposition: attachment; "
        "filename=price.exe\r\nContent-Length: 4\r\nConnection: close\r\n\r\nMZ..");
    const InternetTab tab;
    QSignalSpy status(tab.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    tab.enter(server.url(QStringLiteral("/file")));
    QTRY_VERIFY(std::any_of(status.begin(), status.end(), [](const QVariantList& arguments) {
        return arguments.first().toString() == QLatin1String("Refused: the page offers a file, price.exe");
    }));
}

void TestInternet::windows()
{
    WebServer server;
    server.page(QStringLiteral("/opens"),
                "x<a target=_blank href=/other></a><form target=_blank action=/other></form><script>"
                "document.links[0].click(); document.forms[0].submit();"
                "document.title = String(window.open('/other'))</script>");
    server.page(
        QStringLiteral("/link"),
        "<body style='margin: 0'><a target=_blank href=/other style='display: block; height: 300px'>l</a>");
    server.page(QStringLiteral("/other"), "other");
    const InternetTab tab;
    const auto count = QApplication::topLevelWidgets().size();
    tab.enter(server.url(QStringLiteral("/opens")));
    QTRY_COMPARE(tab.text(), QStringLiteral("x"));
    QTRY_COMPARE(probe(tab.web->WebBrowser2)
                     .evaluate(QStringLiteral("document.title"))
                     .value_or(QVariant())
                     .toString(),
                 QStringLiteral("null"));
    QCOMPARE(server.requests(QStringLiteral("/other")), 0);

    tab.enter(server.url(QStringLiteral("/link"))); // a link that asks for a window is followed in place
    QTRY_COMPARE(tab.text(), QStringLiteral("l"));
    QTRY_VERIFY([&] {
        QTest::mouseClick(tab.web->WebBrowser2->inputWidget(), Qt::LeftButton, {}, QPoint(50, 50));
        QTest::qWait(100);
        return tab.text() == QLatin1String("other");
    }());
    QCOMPARE(QApplication::topLevelWidgets().size(), count);
}

void TestInternet::permissions()
{
    WebServer server;
    server.page(QStringLiteral("/where"),
                "x<script>navigator.geolocation.getCurrentPosition(() => document.title = "
                "'told', e => document.title = 'denied ' + e.code)</script>");
    const InternetTab tab;
    QSignalSpy status(tab.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    tab.enter(server.url(QStringLiteral("/where")));
    QTRY_COMPARE(probe(tab.web->WebBrowser2)
                     .evaluate(QStringLiteral("document.title"))
                     .value_or(QVariant())
                     .toString(),
                 QStringLiteral("denied 1"));
    QVERIFY(std::any_of(status.begin(), status.end(), [](const QVariantList& arguments) {
        return arguments.first().toString() == QLatin1String("Refused: the page asks for a permission");
    }));
}

void TestInternet::certificates()
{
    WebServer server(WebServer::Security::Https);
    server.page(QStringLiteral("/shop"), "secret");
    const InternetTab tab;
    QSignalSpy status(tab.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    tab.enter(server.url(QStringLiteral("/shop")));
    QTRY_VERIFY(std::any_of(status.begin(), status.end(), [](const QVariantList& arguments) {
        return arguments.first().toString() ==
               QLatin1String("Refused: the certificate of 127.0.0.1 is not valid");
    }));
    QTRY_VERIFY2(tab.status().contains(QStringLiteral("could not be opened")), qPrintable(tab.status()));
    QVERIFY(!tab.text().contains(QStringLiteral("secret")));
    QCOMPARE(server.requests(QStringLiteral("/shop")), 0);
}

void TestInternet::messagesWithoutEnd()
{
    WebServer server;
    server.page(QStringLiteral("/alerts"), "<script>for (let i = 0; i < 30; ++i) alert(i)</script>after");
    InternetTab tab;
    for (int i = 0; i < 10; ++i)
        tab.doors.answerMsgBox(MsgAnswer::Ok);
    const QSignalSpy finished(tab.web->WebBrowser2, &InternetBrowser::navigationFinished);
    tab.enter(server.url(QStringLiteral("/alerts")));
    QTRY_COMPARE(finished.count(), 1); // asking the page meanwhile would silence it
    QCOMPARE(tab.text(), QStringLiteral("after"));
    const QStringList asked = tab.doors.takeAsked();
    QCOMPARE(asked.size(), 10); // the rest is answered by silence
    QCOMPARE(asked.constFirst(), QStringLiteral("MsgBox|Message of the page|0|None|Ok"));
}

// ---- Servers and pages that go wrong

void TestInternet::serverThatNeverAnswers()
{
    WebServer server;
    server.hang(QStringLiteral("/never"));
    server.page(QStringLiteral("/a"), "here");
    const InternetTab tab;
    QElapsedTimer clock;
    clock.start();
    tab.enter(server.url(QStringLiteral("/never")));
    QVERIFY(clock.elapsed() < 5000); // nobody waits
    QTRY_COMPARE(server.requests(QStringLiteral("/never")), 1);
    tab.click(tab.web->Command19);
    QCOMPARE(tab.status(), QStringLiteral("Stopped"));
    QTRY_COMPARE(server.connections(), 0);
    QTRY_COMPARE(tab.web->ProgressBar1->value(), 0);
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("here"));
}

void TestInternet::serverThatStopsInTheMiddle()
{
    WebServer server;
    server.cut(QStringLiteral("/cut"));
    server.page(QStringLiteral("/a"), "here");
    const InternetTab tab;
    const QSignalSpy finished(tab.web->WebBrowser2, &InternetBrowser::navigationFinished);
    tab.enter(server.url(QStringLiteral("/cut")));
    QTRY_COMPARE(tab.text(), QStringLiteral("the beginning")); // what has come can be read
    server.closeAll();
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(tab.status(),
             QStringLiteral("The page %1 could not be opened").arg(server.url(QStringLiteral("/cut"))));
    QCOMPARE(tab.text(), QStringLiteral("the beginning"));
    QCOMPARE(tab.web->ProgressBar1->value(), 0);
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("here"));
}

void TestInternet::serverThatRedirectsForever()
{
    WebServer server;
    server.redirect(QStringLiteral("/round"), QStringLiteral("/and"));
    server.redirect(QStringLiteral("/and"), QStringLiteral("/round"));
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/round")));
    QTRY_VERIFY2(tab.status().contains(QStringLiteral("could not be opened")), qPrintable(tab.status()));
    QVERIFY(server.requests(QStringLiteral("/round")) < 50);
}

void TestInternet::pageWithoutEnd()
{
    WebServer server;
    constexpr qint64 Gigabyte = 1'000'000'000;
    server.stream(QStringLiteral("/big"), Gigabyte);
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/big")));
    QTRY_VERIFY(server.streamed() > 2'000'000);
    tab.click(tab.web->Command19);
    QTRY_COMPARE_WITH_TIMEOUT(server.connections(), 0, 15000);
    QVERIFY(server.streamed() < Gigabyte);
}

void TestInternet::scriptWithoutEnd()
{
    WebServer server;
    server.page(QStringLiteral("/endless"), "<script>document.title = 'begun'; for (;;) {}</script>");
    server.page(QStringLiteral("/a"), "here");
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/endless")));
    QTRY_COMPARE(server.requests(QStringLiteral("/endless")), 1);
    QTRY_COMPARE(tab.web->WebBrowser2->findChild<QWebEnginePage*>()->title(), QStringLiteral("begun"));
    tab.click(tab.web->Command19);
    QTRY_COMPARE_WITH_TIMEOUT(tab.status(),
                              QStringLiteral("The page has stopped working. Refresh opens it again."), 10000);
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("here"));
}

void TestInternet::lostRenderer()
{
    WebServer server;
    server.page(QStringLiteral("/a"), "here");
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/a")));
    QTRY_COMPARE(tab.text(), QStringLiteral("here"));
    ::kill(static_cast<pid_t>(probe(tab.web->WebBrowser2).rendererPid()), SIGKILL);
    QTRY_COMPARE(tab.status(), QStringLiteral("The page has stopped working. Refresh opens it again."));
    tab.click(tab.web->Command20);
    QTRY_COMPARE(tab.text(), QStringLiteral("here"));
    QCOMPARE(server.requests(QStringLiteral("/a")), 2);
}

/// Nothing is under way any more, and the bar must not say so.
void TestInternet::rendererLostWhileOpening()
{
    WebServer server;
    server.hang(QStringLiteral("/never"));
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/never")));
    QTRY_VERIFY(tab.web->ProgressBar1->value() > 0);
    QTRY_COMPARE(server.requests(QStringLiteral("/never")), 1);
    ::kill(static_cast<pid_t>(probe(tab.web->WebBrowser2).rendererPid()), SIGKILL);
    QTRY_COMPARE(tab.status(), QStringLiteral("The page has stopped working. Refresh opens it again."));
    QCOMPARE(tab.web->ProgressBar1->value(), 0);
}

void TestInternet::sharesNothing()
{
    QVERIFY(internetProfile() != documentProfile());
    QVERIFY(internetProfile()->isOffTheRecord());
    WebServer server;
    server.page(QStringLiteral("/cookie"),
                "<script>document.cookie = 'a=b'; document.write(document.cookie)</script>");
    const InternetTab tab;
    tab.enter(server.url(QStringLiteral("/cookie")));
    QTRY_COMPARE(tab.text(), QStringLiteral("a=b"));
    QCOMPARE(tab.source(), QByteArray());
    QVERIFY(!tab.web->Dirty());
}

RENDERER_TEST_MAIN(TestInternet)
#include "tst_internet.moc"
