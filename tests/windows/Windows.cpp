// SPDX-License-Identifier: GPL-3.0-or-later

#include "Windows.h"

#include "WebServer.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "builders/CharMap.h"
#include "builders/FrmAddTable.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmListChoose.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "check/FrmCheck.h"
#include "check/FrmLive.h"
#include "colour/Fader5.h"
#include "colour/FrmAutoColor.h"
#include "colour/FrmBody.h"
#include "colour/FrmColorcode.h"
#include "colour/FrmFonts.h"
#include "colour/FrmHR.h"
#include "colour/color.h"
#include "forms/Wait.h"
#include "platform/DesktopLook.h"
#include "shell/About.h"
#include "shell/Find.h"
#include "shell/FrmEarlier.h"
#include "shell/FrmHelp.h"
#include "shell/FrmKeys.h"
#include "shell/FrmPicture.h"
#include "shell/FrmSplash.h"
#include "shell/FrmWord.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QNetworkProxy>
#include <QPalette>
#include <QTest>
#include <algorithm>

namespace brindlemark {

namespace {

const QString Pictures = QStringLiteral("http://pictures.example/");

QByteArray shipped(const QString& name)
{
    QFile file(QStringLiteral(SOURCE_DIR "/data/") + name);
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(name + QStringLiteral(" can't be read")), __FILE__, __LINE__);
    return file.readAll();
}

/// The window of a form that is just being opened.
template <typename F>
F* shown()
{
    if (!QTest::qWaitFor([] { return isLoaded<F>() && form<F>()->isVisible(); }, Patience))
        QTest::qFail("the window does not open", __FILE__, __LINE__);
    return form<F>();
}

/// The window behind a toolbar button.
template <typename F>
F* tool(MainWindow& main, Tool wanted)
{
    main.press(wanted);
    return shown<F>();
}

/// Waits until a surface shows a text.
void waitForText(DocumentSurface* surface, const QString& text)
{
    if (!QTest::qWaitFor([&] { return surface->innerHtml().contains(text); }, Patience))
        QTest::qFail("the page does not come up", __FILE__, __LINE__);
}

// The wizard.

FrmBuild1* wizardPage1(MainWindow& main)
{
    auto* page = tool<FrmBuild1>(main, Tool::Create);
    overtype(page->Text1, QStringLiteral("Art Deco desk lamp, brass, 1930s"));
    page->Text2->setPlainText(
        QStringLiteral("A heavy desk lamp in polished brass with its first green shade. "
                       "<B>Newly wired</B> and tested; it stands 38 cm tall and weighs 2 kg."));
    return page;
}

template <int Tab>
QWidget* wizardTab(MainWindow& main)
{
    auto* page = wizardPage1(main);
    page->SSTab1->setTab(Tab);
    if (Tab == 1) {
        tick(page->OptP2);
        overtype(page->TxP1, Pictures + QStringLiteral("lamp.svg"));
        overtype(page->TxP2, Pictures + QStringLiteral("switch.svg"));
    }
    return page;
}

FrmBuild2* wizardPage2(MainWindow& main)
{
    auto* page1 = wizardPage1(main);
    page1->OptP2->setValue(true);
    page1->TxP1->setText(Pictures + QStringLiteral("lamp.svg"));
    page1->ChKPay1->setValue(1);
    page1->ChKPay5->setValue(1);
    page1->OptLS2->setValue(true);
    page1->TxSH1->setText(QStringLiteral("12"));
    page1->TxSH2->setText(QStringLiteral("50"));
    click(page1->Command1);
    auto* page2 = shown<FrmBuild2>();
    click(page2->Command2);
    choose(page2->Combo4, 1);
    return page2;
}

QWidget* wizardPage2View(MainWindow& main)
{
    return wizardPage2(main);
}

QWidget* terms(MainWindow& main)
{
    auto* page = wizardPage1(main);
    page->SSTab1->setTab(2);
    click(page->Command3);
    auto* editor = shown<FrmTerms>();
    waitForText(editor->WebBrowser1, QStringLiteral("payment"));
    return editor;
}

// The main window.

/// Makes the listing of `wizardPage2` the document.
void openListing(MainWindow& main)
{
    auto* page2 = wizardPage2(main);
    click(page2->Command23);
    main.web->activateWindow(); // where no window manager does it
    if (!QTest::qWaitFor([&] { return main.source().contains("Art Deco"); }, Patience))
        QTest::qFail("the listing does not come", __FILE__, __LINE__);
    if (!QTest::qWaitForWindowActive(main.web, Patience))
        QTest::qFail("the main window does not come to the front", __FILE__, __LINE__);
}

QWidget* splash(MainWindow&)
{
    auto* window = form<FrmSplash>();
    // Or it would go before a busy machine has looked at it.
    window->findChild<QTimer*>(QStringLiteral("Timer2"))->stop();
    window->show();
    return window;
}

QWidget* editor(MainWindow& main)
{
    openListing(main);
    main.press(Tool::Highlight);
    return main.web;
}

QWidget* region(MainWindow& main)
{
    openListing(main);
    main.press(Tool::Highlight);
    click(main.web->CmdTitle);
    return main.web;
}

QWidget* design(MainWindow& main)
{
    openListing(main);
    main.showTab(FrmWeb::PreviewTab);
    waitForText(main.web->WebBrowser1, QStringLiteral("Art Deco"));
    return main.web;
}

QWidget* preview(MainWindow& main)
{
    design(main);
    tick(main.web->Option2);
    waitForText(main.web->WebBrowser3, QStringLiteral("Art Deco"));
    return main.web;
}

QWidget* internet(MainWindow& main)
{
    main.showTab(FrmWeb::InternetTab);
    return main.web;
}

QWidget* find(MainWindow& main)
{
    main.press(Tool::Find);
    auto* window = shown<Find>();
    overtype(window->Text1, QStringLiteral("lamp"));
    return window;
}

/// Two texts that were replaced, and a line of today's that differs from the newer one.
QWidget* earlierTexts(MainWindow& main)
{
    openListing(main);
    main.showTab(FrmWeb::PreviewTab);
    main.showTab(FrmWeb::EditorTab);
    main.web->RichTextBox1->setSelStart(0);
    QTest::keyClicks(main.web->RichTextBox1, QStringLiteral("<!-- today -->"));
    main.showTab(FrmWeb::PreviewTab);
    main.showTab(FrmWeb::EditorTab);
    main.web->munearlier->trigger();
    return shown<FrmEarlier>();
}

QWidget* liveView(MainWindow& main)
{
    openListing(main);
    main.web->munliveview->trigger();
    auto* window = shown<FrmLive>();
    if (!QTest::qWaitFor([&] { return pageText(window->Page1).contains(QStringLiteral("Art Deco")); },
                         Patience))
        QTest::qFail("the page does not come up", __FILE__, __LINE__);
    return window;
}

QWidget* checkListing(MainWindow& main)
{
    openListing(main);
    main.web->munchecklisting->trigger();
    auto* window = shown<FrmCheck>();
    if (!QTest::qWaitFor([&] { return window->Findings->topLevelItemCount() > 2; }, Patience))
        QTest::qFail("nothing is found", __FILE__, __LINE__);
    return window;
}

/// What happens when the tab Internet is left for the editor.
QWidget* notice(MainWindow& main)
{
    openListing(main);
    main.showTab(FrmWeb::InternetTab);
    main.showTab(FrmWeb::EditorTab);
    return main.web;
}

QWidget* findBar(MainWindow& main)
{
    design(main);
    main.press(Tool::Find);
    return main.web;
}

QWidget* quickWord(MainWindow& main)
{
    main.web->muQW->trigger();
    auto* window = shown<FrmWord>();
    for (const char* phrase : {"Thank you for looking.", "Shipped the next day."}) {
        overtype(window->Text1, QString::fromLatin1(phrase));
        QTest::keyClick(window->Text1, Qt::Key_Return);
    }
    return window;
}

QWidget* wait(MainWindow&)
{
    form<Wait>()->Show();
    return form<Wait>();
}

template <typename F, auto Entry>
QWidget* entry(MainWindow& main)
{
    (main.web->*Entry)->trigger();
    return shown<F>();
}

QWidget* help(MainWindow& main)
{
    QFile::link(QStringLiteral(SOURCE_DIR "/data/help"), main.folder.path(QStringLiteral("help")));
    main.web->munhelp->trigger();
    auto* window = shown<FrmHelp>();
    waitForText(window->WebBrowser1, QStringLiteral("Brindlemark"));
    return window;
}

// The tools.

QWidget* fader(MainWindow& main)
{
    auto* window = tool<Fader5>(main, Tool::Font);
    QTest::keyClicks(window->Text1, QStringLiteral("Art Deco desk lamp"));
    tick(window->Opt3);
    window->RedA->setValue(0xC0);
    window->BlueC->setValue(0xD0);
    window->GreenE->setValue(0x80);
    return window;
}

QWidget* faderWithTable(MainWindow& main)
{
    QWidget* window = fader(main);
    auto* tools = form<Fader5>();
    for (auto* box : {tools->Check1, tools->Check7})
        tick(box);
    for (auto* bar : {tools->RedF, tools->GreenF}) // a yellow highlight
        bar->setValue(255);
    return window;
}

QWidget* body(MainWindow& main)
{
    return tool<FrmBody>(main, Tool::Body);
}

QWidget* rule(MainWindow& main)
{
    return tool<FrmHR>(main, Tool::Rule);
}

QWidget* pictures(MainWindow& main)
{
    auto* window = tool<Pics>(main, Tool::Picture);
    overtype(window->Text1, Pictures + QStringLiteral("lamp.svg"));
    QTest::keyClick(window->Text1, Qt::Key_Return);
    return window;
}

QWidget* pictureOfThisComputer(MainWindow& main)
{
    auto* window = tool<Pics>(main, Tool::Picture);
    if (const auto picture = pictureFile(QStringLiteral(SOURCE_DIR "/data/demo/lamp.svg")))
        FrmPicture::offer(*picture, window->Text1);
    return shown<FrmPicture>();
}

FrmTable* filledTable(MainWindow& main)
{
    auto* window = tool<FrmTable>(main, Tool::Table);
    const std::array<std::pair<const char*, const char*>, 3> rows = {
        {{"Height", "38 cm"}, {"Weight", "2 kg"}, {"Made in the 1930s, newly wired", ""}}};
    for (const auto& [left, right] : rows) {
        overtype(window->Text1, QString::fromLatin1(left));
        overtype(window->Text2, QString::fromLatin1(right));
        click(window->Command4);
    }
    window->HScroll3->setValue(1);
    return window;
}

QWidget* table(MainWindow& main)
{
    return filledTable(main);
}

QWidget* twoCellColors(MainWindow& main)
{
    auto* window = filledTable(main);
    tick(window->Check1);
    return shown<FrmAutoColor>();
}

QWidget* listChoose(MainWindow& main)
{
    return tool<FrmListChoose>(main, Tool::List);
}

FrmList* filledList(MainWindow& main)
{
    click(tool<FrmListChoose>(main, Tool::List)->Command1);
    auto* window = shown<FrmList>();
    for (const char* word : {"Polished brass", "Green shade", "New wiring"}) {
        overtype(window->Text1, QString::fromLatin1(word));
        click(window->Command1);
    }
    return window;
}

QWidget* list(MainWindow& main)
{
    return filledList(main);
}

QWidget* fonts(MainWindow& main)
{
    click(filledList(main)->Command21);
    return shown<FrmFonts>();
}

FrmList2* filledList2(MainWindow& main)
{
    click(tool<FrmListChoose>(main, Tool::List)->Command2);
    auto* window = shown<FrmList2>();
    for (const char* word : {"Polished brass", "Green shade", "New wiring"}) {
        overtype(window->Text1, QString::fromLatin1(word));
        click(window->Command3);
    }
    return window;
}

QWidget* list2(MainWindow& main)
{
    return filledList2(main);
}

QWidget* characters(MainWindow& main)
{
    click(filledList2(main)->Command1);
    auto* window = shown<FrmChar>();
    QTest::mouseClick(window->CharC, Qt::LeftButton, {}, window->CharC->cellRect(36).center());
    return window;
}

constexpr auto Views = std::to_array<WindowView>({
    {"splash", splash},
    {"editor", editor},
    {"editor-title", region},
    {"design", design},
    {"preview", preview},
    {"find-bar", findBar},
    {"earlier-texts", earlierTexts},
    {"live-view", liveView},
    {"check-listing", checkListing},
    {"keys", entry<FrmKeys, &FrmWeb::munkeys>},
    {"notice", notice},
    {"internet", internet},
    {"wizard-item", wizardTab<0>},
    {"wizard-pictures", wizardTab<1>},
    {"wizard-payment", wizardTab<2>},
    {"wizard-location", wizardTab<3>},
    {"wizard-pays", wizardTab<4>},
    {"wizard-page-2", wizardPage2View},
    {"terms", terms},
    {"find", find},
    {"quick-word", quickWord},
    {"highlight-color", entry<color, &FrmWeb::munhighlightcolor>},
    {"color-code", entry<FrmColorcode, &FrmWeb::muncolorcode>},
    {"body", body},
    {"fader", fader},
    {"fader-table", faderWithTable},
    {"pictures", pictures},
    {"picture-file", pictureOfThisComputer},
    {"rule", rule},
    {"table", table},
    {"two-cell-colors", twoCellColors},
    {"new-table", entry<FrmAddTable, &FrmWeb::munaddtable>},
    {"list-choose", listChoose},
    {"list", list},
    {"fonts", fonts},
    {"special-list", list2},
    {"characters", characters},
    {"wait", wait},
    {"help", help},
    {"about", entry<About, &FrmWeb::munabout>},
});

QPalette darkPalette()
{
    QPalette dark(QColor(0x35, 0x35, 0x35), QColor(0x2B, 0x2B, 0x2B));
    dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
    dark.setColor(QPalette::Highlight, QColor(0x2A, 0x6F, 0xB5));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x6C, 0xB4, 0xFF));
    return dark;
}

} // namespace

std::span<const WindowView> windowViews()
{
    return Views;
}

const WindowView& viewOf(const QString& name)
{
    const auto found = std::find_if(Views.begin(), Views.end(),
                                    [&](const WindowView& view) { return name == QLatin1String(view.name); });
    if (found != Views.end())
        return *found;
    QTest::qFail(qPrintable(name + QStringLiteral(" is no view")), __FILE__, __LINE__);
    return Views.front();
}

void addViews(const QByteArrayList& without)
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < int(Views.size()); ++index) {
        const char* name = Views.at(size_t(index)).name;
        if (!without.contains(name))
            QTest::newRow(name) << index;
    }
}

const WindowView& fetchedView()
{
    QFETCH(int, index);
    return Views.at(size_t(index));
}

void prepareViews(MainWindow& main)
{
    connectOpenings(main.web);
    for (const char* name : {"weblst.ini", "weblst2.ini", "weblst3.ini", "webstyle.ini", "webstyle2.ini"})
        main.folder.write(QString::fromLatin1(name), shipped(QString::fromLatin1(name)));
}

QWidget* openView(const WindowView& view, MainWindow& main)
{
    prepareViews(main);
    QWidget* window = view.show(main);
    if (!QTest::qWaitForWindowExposed(window, Patience))
        QTest::qFail("the window does not come up", __FILE__, __LINE__);
    return window;
}

PictureHost::PictureHost() : m_server(new WebServer)
{
    // The engine asks a proxy for every address that isn't this machine's.
    for (const char* name : {"lamp.svg", "switch.svg", "shade.svg"}) {
        const QString file = QString::fromLatin1(name);
        const QByteArray picture = shipped(QStringLiteral("demo/") + file);
        m_server->answer(Pictures + file,
                         "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nConnection: close\r\n"
                         "Content-Length: " +
                             QByteArray::number(picture.size()) + "\r\n\r\n" + picture);
    }
    const QStringList place = m_server->host().split(u':');
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, place.first(), place.last().toUShort()));
}

PictureHost::~PictureHost()
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    delete m_server;
}

void takeDesktopLook()
{
    if (const int points = qEnvironmentVariableIntValue("WINDOWS_FONT"); points > 0) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    if (qEnvironmentVariable("WINDOWS_PALETTE") == QStringLiteral("dark"))
        QApplication::setPalette(darkPalette());
    followDesktopLook();
}

} // namespace brindlemark
