// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "Windows.h"
#include "shell/FrmHelp.h"
#include "web/DocumentSurface.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>
#include <QTextDocumentFragment>
#include <QToolBar>
#include <QToolButton>
#include <QWebEnginePage>

using namespace brindlemark;

// The help page and the way to it: F1 in each window, the links and pictures, the search field, and that the
// page knows the program's words.

namespace {

constexpr int PageLimit = 10000; // for a page to come up, in milliseconds

/// Where F1 leads in a view of the program.
struct HelpRow
{
    const char* view;
    const char* section;
    const char* heading;
};

constexpr auto Rows = std::to_array<HelpRow>({
    {"splash", "start", "The first five minutes"},
    {"editor", "editor", "The tab Editor"},
    {"editor-title", "editor", "The tab Editor"},
    {"design", "preview", "The tab Preview"},
    {"preview", "preview", "The tab Preview"},
    {"find-bar", "preview", "The tab Preview"},
    {"earlier-texts", "earlier", "Earlier texts"},
    {"live-view", "live", "Live view"},
    {"check-listing", "check", "Checking a listing"},
    {"keys", "keys", "The keys of the main window"},
    {"notice", "editor", "The tab Editor"},
    {"internet", "internet", "The tab Internet"},
    {"wizard-item", "create-item", "Page 1, Item"},
    {"wizard-pictures", "create-pictures", "Page 1, Pictures"},
    {"wizard-payment", "create-payment", "Page 1, Payment"},
    {"wizard-location", "create-location", "Page 1, Location Shipping"},
    {"wizard-pays", "create-pays", "Page 1, Pays Shipping"},
    {"wizard-page-2", "create-look", "Page 2: how it looks"},
    {"terms", "terms", "Terms of lists"},
    {"find", "find", "Find and replace"},
    {"quick-word", "words", "Quick words"},
    {"highlight-color", "highlight-color", "The colors of the highlight"},
    {"color-code", "color-code", "The code of a color"},
    {"body", "body", "Colors of the whole page"},
    {"fader", "fader", "Styled and faded text"},
    {"fader-table", "fader", "Styled and faded text"},
    {"pictures", "picture", "Pictures"},
    {"picture-file", "pictures", "Pictures from this computer"},
    {"rule", "rule", "Horizontal rules"},
    {"table", "table", "Tables of words"},
    {"two-cell-colors", "two-colors", "Two Cell Colors"},
    {"new-table", "newtable", "An empty table"},
    {"list-choose", "lists", "Lists"},
    {"list", "list", "Lists with bullets, numbers or squares"},
    {"fonts", "fonts", "The font of the words"},
    {"special-list", "symbols", "Lists with special characters"},
    {"characters", "characters", "Special characters"},
    {"wait", "wait", "Please wait"},
    {"help", "help", "This help"},
    {"about", "about", "About Brindlemark"},
});

QString shippedPage()
{
    QFile file(QStringLiteral(SOURCE_DIR "/data/Help0.htm"));
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail("the help page can't be read", __FILE__, __LINE__);
    return QString::fromUtf8(file.readAll());
}

/// What the first group of a pattern finds in the shipped page, in its order.
QStringList inPage(const char* pattern)
{
    QStringList found;
    const QString page = shippedPage().section(QStringLiteral("<script>"), 0, 0);
    const QRegularExpression expression(QString::fromLatin1(pattern),
                                        QRegularExpression::DotMatchesEverythingOption);
    for (auto hits = expression.globalMatch(page); hits.hasNext();)
        found << hits.next().captured(1);
    return found;
}

/// The text of a piece of HTML on one line.
QString plain(const QString& html)
{
    return QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
}

/// What a caption says, on one line.
QString words(QString caption)
{
    return caption.remove(u'&').simplified();
}

/// A value of the page in the help window.
QVariant inHelp(const QString& script)
{
    return probe(form<FrmHelp>()->WebBrowser1).evaluate(script).value_or(QVariant());
}

bool sectionShows(const QString& id)
{
    return inHelp(QStringLiteral("(() => { const section = document.getElementById('%1');"
                                 "if (!section) return false;"
                                 "const top = section.getBoundingClientRect().top;"
                                 "return !section.hidden && top >= 0 && top < innerHeight / 3; })()")
                      .arg(id))
        .toBool();
}

/// Presses F1 where the window's keyboard is.
void pressF1(QWidget* window)
{
    window->activateWindow();
    // Not while a list that was just closed still has the keyboard: its window counts as active then.
    if (!QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }, Patience))
        QTest::qFail("the window does not come to the front", __FILE__, __LINE__);
    QWidget* focus = window->focusWidget();
    QTest::keyClick(focus ? focus : window, Qt::Key_F1);
}

bool helpIsInFront()
{
    return isLoaded<FrmHelp>() && QApplication::activeWindow() == form<FrmHelp>();
}

QStringList visibleSections()
{
    return inHelp(QStringLiteral("Array.from(document.querySelectorAll('main section'))"
                                 ".filter(section => section.offsetHeight > 0).map(section => section.id)"))
        .toStringList();
}

QStringList marks()
{
    return inHelp(
               QStringLiteral("Array.from(document.querySelectorAll('mark')).map(mark => mark.textContent)"))
        .toStringList();
}

/// Clicks the middle of an element of the help page.
void clickInPage(const QString& selector)
{
    const QVariantList place =
        inHelp(QStringLiteral("(() => { const box = document.querySelector('%1').getClientRects()[0];"
                              "return [box.left + box.width / 2, box.top + box.height / 2]; })()")
                   .arg(selector))
            .toList();
    if (place.size() != 2) {
        QTest::qFail("the page has no such element", __FILE__, __LINE__);
        return;
    }
    QTest::mouseClick(form<FrmHelp>()->WebBrowser1->inputWidget(), Qt::LeftButton, {},
                      QPoint(place.at(0).toInt(), place.at(1).toInt()));
}

/// Opens the help from the menu, on the page that ships with its pictures.
FrmHelp* openHelp(MainWindow& main)
{
    openView(viewOf(QStringLiteral("help")), main);
    const auto isThere = [] { // the empty page before it is complete as well
        return inHelp(QStringLiteral("document.readyState == 'complete' && "
                                     "document.querySelector('#search')?.getClientRects().length > 0"))
            .toBool();
    };
    if (!QTest::qWaitFor(isThere, PageLimit))
        QTest::qFail("the help page does not come up", __FILE__, __LINE__);
    return form<FrmHelp>();
}

/// Puts the cursor into the search field with the mouse, and types.
void search(const QString& text)
{
    QWidget* input = form<FrmHelp>()->WebBrowser1->inputWidget();
    clickInPage(QStringLiteral("#search"));
    // Before that the engine drops letters.
    const auto takesLetters = [input] {
        return inHelp(QStringLiteral("document.hasFocus() && document.activeElement.id")).toString() ==
                   QStringLiteral("search") &&
               input->hasFocus() && input->testAttribute(Qt::WA_InputMethodEnabled);
    };
    if (!QTest::qWaitFor(takesLetters, Patience))
        QTest::qFail("the search field takes no focus", __FILE__, __LINE__);
    QTest::keyClick(input, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(input, Qt::Key_Delete);
    QTest::keyClicks(input, text);
    if (!QTest::qWaitFor(
            [&] { return inHelp(QStringLiteral("document.getElementById('search').value")) == text; }))
        QTest::qFail("what was typed does not show", __FILE__, __LINE__);
}

/// The entries of menus and what is below them.
void collectEntries(const QList<QAction*>& actions, QSet<QString>& captions)
{
    for (const QAction* action : actions) {
        if (!action->isSeparator())
            captions << words(action->text().section(u'\t', 0, 0));
        if (action->menu())
            collectEntries(action->menu()->actions(), captions);
    }
}

} // namespace

class TestHelp : public QObject
{
    Q_OBJECT

private slots:
    void everyWindowHasARow();
    void f1_data();
    void f1();
    void f1GoesToTheSectionAgain();
    void f1LeadsToTheSearch();
    void lettersOfTheDesktop();
    void f1OnTheDesignSurface();
    void f1OnTheHelpPage();
    void f1BeforeAnybodyHelps();
    void escapeClosesTheHelp();
    void linksHaveTargets();
    void contentsNameEachSection();
    void picturesAreThereAndSmall();
    void picturesShowInTheWindow();
    void pageNamesMenusAndButtons();
    void searchFilters_data();
    void searchFilters();
    void emptySearchShowsAll();
    void linkOutOfTheSearch();
    void searchOfAPageThatIsComing();
    void withoutScripts();

private:
    PictureHost m_pictures;
};

void TestHelp::everyWindowHasARow()
{
    QStringList views;
    for (const WindowView& view : windowViews())
        views << QString::fromLatin1(view.name);
    QStringList rows;
    for (const HelpRow& row : Rows)
        rows << QString::fromLatin1(row.view);
    QCOMPARE(rows, views);
}

void TestHelp::f1_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("heading");
    for (const HelpRow& row : Rows)
        QTest::newRow(row.view) << row.view << row.section << row.heading;
}

void TestHelp::f1()
{
    QFETCH(QString, view);
    QFETCH(QString, section);
    QFETCH(QString, heading);
    MainWindow main;
    QWidget* window = openView(viewOf(view), main);
    QStringList captions;
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->parent() != main.web->Toolbar1)
            captions << words(button->text());
    }

    pressF1(window);
    QTRY_VERIFY(helpIsInFront());
    QTRY_VERIFY_WITH_TIMEOUT(sectionShows(section), PageLimit);
    QCOMPARE(inHelp(QStringLiteral("document.querySelector('#%1 h2').textContent").arg(section)).toString(),
             heading);
    const QString text =
        inHelp(QStringLiteral("document.getElementById('%1').textContent").arg(section)).toString();
    for (const QString& caption : captions)
        QVERIFY2(text.simplified().contains(caption), qPrintable(caption));
}

void TestHelp::f1GoesToTheSectionAgain()
{
    MainWindow main;
    FrmHelp* help = openHelp(main);
    pressF1(main.web);
    QTRY_VERIFY(helpIsInFront());
    QTRY_VERIFY(sectionShows(QStringLiteral("editor")));
    main.showTab(FrmWeb::InternetTab);
    pressF1(main.web);
    QTRY_VERIFY(helpIsInFront());
    QTRY_VERIFY(sectionShows(QStringLiteral("internet")));
    QCOMPARE(form<FrmHelp>(), help);

    // Whoever has scrolled or searched since comes back to it as well.
    inHelp(QStringLiteral("scrollTo(0, 0)"));
    QTRY_VERIFY(!sectionShows(QStringLiteral("internet")));
    pressF1(main.web);
    QTRY_VERIFY(helpIsInFront());
    QTRY_VERIFY(sectionShows(QStringLiteral("internet")));
    search(QStringLiteral("Webdings"));
    QTRY_VERIFY(!visibleSections().contains(QStringLiteral("internet")));
    inHelp(QStringLiteral("dispatchEvent(new Event('load'))")); // pictures may come late
    QVERIFY(!visibleSections().contains(QStringLiteral("internet")));
    pressF1(main.web);
    QTRY_VERIFY(sectionShows(QStringLiteral("internet")));
    QTRY_COMPARE(inHelp(QStringLiteral("document.getElementById('search').value")).toString(), QString());
}

/// Whoever presses F1 can type what to look for at once.
void TestHelp::f1LeadsToTheSearch()
{
    MainWindow main;
    openHelp(main)->Unload();
    main.web->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.web, Patience));
    pressF1(main.web);
    QTRY_VERIFY(helpIsInFront());
    QTRY_VERIFY(sectionShows(QStringLiteral("editor")));
    QWidget* input = form<FrmHelp>()->WebBrowser1->inputWidget();
    QTRY_VERIFY(input->hasFocus() && input->testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(input, QStringLiteral("webdings"));
    QTRY_COMPARE(inHelp(QStringLiteral("document.getElementById('search').value")).toString(), "webdings");
    QTRY_VERIFY(!visibleSections().contains(QStringLiteral("editor")));
}

/// Its letters are no smaller than the desktop's.
void TestHelp::lettersOfTheDesktop()
{
    const QFont former = QApplication::font();
    const auto points = [] {
        return inHelp(QStringLiteral("parseFloat(getComputedStyle(document.body).fontSize) *"
                                     " devicePixelRatio"))
                   .toDouble() *
               72 / QGuiApplication::primaryScreen()->logicalDotsPerInch();
    };
    for (const int size : {9, 14}) {
        QFont font = former;
        font.setPointSize(size);
        QApplication::setFont(font);
        MainWindow main;
        openHelp(main);
        QVERIFY2(qAbs(points() - qMax(12, size)) < 0.2, qPrintable(QString::number(points())));
    }
    QApplication::setFont(former);
}

void TestHelp::f1OnTheDesignSurface()
{
    MainWindow main;
    openHelp(main)->Unload();
    main.web->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.web, Patience));
    main.type(QStringLiteral("word"));
    main.showTab(FrmWeb::PreviewTab);
    main.typeOnSurface(QStringLiteral("x"));
    QTest::keyClick(main.web->WebBrowser1->inputWidget(), Qt::Key_F1);
    QTRY_VERIFY(helpIsInFront());
    QTRY_VERIFY_WITH_TIMEOUT(sectionShows(QStringLiteral("preview")), PageLimit);
}

void TestHelp::f1OnTheHelpPage()
{
    MainWindow main;
    FrmHelp* help = openHelp(main);
    QTest::keyClick(help->WebBrowser1->inputWidget(), Qt::Key_F1);
    QTRY_VERIFY(sectionShows(QStringLiteral("help")));
}

void TestHelp::f1BeforeAnybodyHelps()
{
    showHelpBy(nullptr);
    MainWindow main;
    pressF1(main.web);
    QVERIFY(!isLoaded<FrmHelp>());
}

void TestHelp::escapeClosesTheHelp()
{
    MainWindow main;
    FrmHelp* help = openHelp(main);
    QTest::keyClick(help->WebBrowser1->inputWidget(), Qt::Key_Escape);
    QTRY_VERIFY(!isLoaded<FrmHelp>());
}

void TestHelp::linksHaveTargets()
{
    const QStringList ids = inPage("\\bid=\"([^\"]*)\"");
    QCOMPARE(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
    const QStringList links = inPage("\\bhref=\"([^\"]*)\"");
    QVERIFY(links.size() > 100);
    for (const QString& link : links) {
        QVERIFY2(link.startsWith(u'#'), qPrintable(link)); // the window follows no others
        QVERIFY2(ids.contains(link.mid(1)), qPrintable(link));
    }
}

void TestHelp::contentsNameEachSection()
{
    const QStringList contents = inPage("<nav[^>]*>(.*)</nav>");
    QCOMPARE(contents.size(), 1);
    QStringList named;
    static const QRegularExpression entry(QStringLiteral("<li><a href=\"#([^\"]*)\">([^<]*)</a></li>"));
    for (auto hits = entry.globalMatch(contents.first()); hits.hasNext();) {
        const QRegularExpressionMatch hit = hits.next();
        named << hit.captured(1) + u'|' + hit.captured(2);
    }
    QStringList sections = inPage("<section (id=\"[^\"]*\">\\s*<h2>[^<]*)</h2>");
    static const QRegularExpression between(QStringLiteral("\">\\s*<h2>"));
    for (QString& section : sections)
        section = section.mid(4).replace(between, QStringLiteral("|"));
    QVERIFY(sections.size() >= 40);
    QCOMPARE(named, sections);
}

void TestHelp::picturesAreThereAndSmall()
{
    const QDir folder(QStringLiteral(SOURCE_DIR "/data/help"));
    const QStringList tags = inPage("(<img [^>]*>)");
    QStringList named;
    constexpr qint64 KiB = 1024;
    qint64 total = 0;
    for (const QString& tag : tags) {
        static const QRegularExpression form(
            QStringLiteral("src=\"help/([a-z0-9-]+\\.png)\" width=\"(\\d+)\" height=\"(\\d+)\"\\s+"
                           "alt=\"([^\"]{10,})\""));
        const QRegularExpressionMatch match = form.match(tag);
        QVERIFY2(match.hasMatch(), qPrintable(tag));
        named << match.captured(1);
        const QString file = folder.filePath(named.last());
        QCOMPARE(QImage(file).size(), QSize(match.captured(2).toInt(), match.captured(3).toInt()));
        QVERIFY2(QFileInfo(file).size() < 30 * KiB, qPrintable(file));
        total += QFileInfo(file).size();
    }
    QVERIFY2(total < 600 * KiB, qPrintable(QString::number(total)));
    named.sort();
    QCOMPARE(named, folder.entryList(QDir::Files, QDir::Name)); // each once, and none for nothing
}

void TestHelp::picturesShowInTheWindow()
{
    MainWindow main;
    openHelp(main);
    QTRY_VERIFY_WITH_TIMEOUT(
        inHelp(QStringLiteral("document.images.length > 25 && Array.from(document.images).every("
                              "image => image.complete && image.naturalWidth > 0)"))
            .toBool(),
        PageLimit);
}

void TestHelp::pageNamesMenusAndButtons()
{
    QSet<QString> named;
    for (const QString& html : inPage("<b>(.*?)</b>"))
        named << plain(html);

    const MainWindow main;
    QSet<QString> captions;
    collectEntries(main.web->MenuBar1->actions(), captions);
    QVERIFY(captions.size() > 40);
    for (const QAction* button : main.web->Toolbar1->actions()) {
        if (!button->isSeparator())
            captions << words(button->toolTip());
    }
    for (const auto* button : main.web->Frame2->findChildren<QToolButton*>()) {
        if (!button->toolTip().isEmpty())
            captions << words(button->toolTip());
    }
    QVERIFY(captions.contains(QStringLiteral("Outdent")));
    for (const QString& caption : captions)
        QVERIFY2(named.contains(caption), qPrintable(caption));
}

void TestHelp::searchFilters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("sections");
    QTest::addColumn<QStringList>("marked");
    QTest::addColumn<QString>("told");
    const QString count = QStringLiteral("%1 of %2 sections");
    const auto all = inPage("<section id=\"([^\"]*)\"").size();
    QTest::newRow("a word") << "webdings" << QStringList{"symbols", "characters"}
                            << QStringList{"Webdings", "Webdings"} << count.arg(2).arg(all);
    QTest::newRow("part of a word") << "ebdin" << QStringList{"symbols", "characters"}
                                    << QStringList{"ebdin", "ebdin"} << count.arg(2).arg(all);
    QTest::newRow("two words") << "ENTER Webdings arrow" << QStringList{"characters"}
                               << QStringList{"Webdings", "arrow", "Enter"} << count.arg(1).arg(all);
    QTest::newRow("signs") << "(25)error" << QStringList{"trouble"} << QStringList{"(25)error"}
                           << count.arg(1).arg(all);
    QTest::newRow("nothing") << "qqqq" << QStringList() << QStringList() << "Not found";
}

void TestHelp::searchFilters()
{
    QFETCH(QString, text);
    QFETCH(QStringList, sections);
    QFETCH(QStringList, marked);
    QFETCH(QString, told);
    MainWindow main;
    openHelp(main);
    search(text);
    QTRY_COMPARE(visibleSections(), sections);
    QTRY_COMPARE(marks(), marked);
    QCOMPARE(inHelp(QStringLiteral("document.getElementById('found').textContent")).toString(), told);
    QStringList contents;
    for (const QString& id : sections)
        contents << u'#' + id;
    QCOMPARE(inHelp(QStringLiteral("Array.from(document.querySelectorAll('nav a'))"
                                   ".filter(link => link.offsetHeight > 0)"
                                   ".map(link => link.getAttribute('href'))"))
                 .toStringList(),
             contents);
}

void TestHelp::emptySearchShowsAll()
{
    MainWindow main;
    openHelp(main);
    const QString before = inHelp(QStringLiteral("document.querySelector('main').innerHTML")).toString();
    search(QStringLiteral("Webdings"));
    QTRY_COMPARE(visibleSections().size(), 2);
    search(QString());
    QTRY_COMPARE(visibleSections(), inPage("<section id=\"([^\"]*)\""));
    QCOMPARE(marks(), QStringList());
    static const QRegularExpression emptied(QStringLiteral(" hidden=\"\""));
    QCOMPARE(inHelp(QStringLiteral("document.querySelector('main').innerHTML")).toString().remove(emptied),
             before);
    QCOMPARE(inHelp(QStringLiteral("document.getElementById('found').textContent")).toString(), QString());
}

void TestHelp::linkOutOfTheSearch()
{
    MainWindow main;
    openHelp(main);
    search(QStringLiteral("webdings arrow"));
    QTRY_COMPARE(visibleSections(), QStringList{QStringLiteral("characters")});
    inHelp(QStringLiteral("document.querySelector('#characters a').scrollIntoView({block: 'center'})"));
    clickInPage(QStringLiteral("#characters a[href=\"#symbols\"]"));
    QTRY_VERIFY(sectionShows(QStringLiteral("symbols")));
    QVERIFY(visibleSections().size() > 40);
}

/// A hand that is quicker than the page.
void TestHelp::searchOfAPageThatIsComing()
{
    const MainWindow main;
    for (int i = 0; i < 12; ++i) {
        form<FrmHelp>()->showSection(QString());
        DocumentSurface* page = form<FrmHelp>()->WebBrowser1;
        QTest::qWait(i % 4); // somewhere in the coming
        auto* inner = page->findChild<QWebEnginePage*>();
        QVERIFY(inner);
        const QSignalSpy ends(inner,
                              &QWebEnginePage::renderProcessTerminated); // one that gives no answer is ended
        static_cast<void>(page->find(QStringLiteral("lamp")));
        QCOMPARE(ends.size(), 0);
        form<FrmHelp>()->Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void TestHelp::withoutScripts()
{
    const ProgramFolder folder;
    DocumentSurface surface;
    surface.resize(820, 620);
    surface.setDesignMode(DesignMode::On); // no script of a page runs there
    surface.show();
    QVERIFY(surface.write(QStringLiteral("<p>word</p>")));
    surface.Navigate(folder.path(QStringLiteral("Help0.htm")));
    const auto value = [&](const char* script) {
        return probe(surface).evaluate(QString::fromLatin1(script)).value_or(QVariant());
    };
    QTRY_COMPARE_WITH_TIMEOUT(value("document.readyState + document.title").toString(),
                              QStringLiteral("completeBrindlemark 1.0 - Help"), PageLimit);
    QCOMPARE(value("document.getElementById('bar').offsetHeight").toInt(), 0);
    QVERIFY(value("Array.from(document.querySelectorAll('main section')).every(section => "
                  "section.offsetHeight > 0)")
                .toBool());
}

WEB_TEST_MAIN(TestHelp)
#include "tst_help.moc"
