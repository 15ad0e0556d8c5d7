// SPDX-License-Identifier: GPL-3.0-or-later

#include "Census.h"
#include "MainWindow.h"
#include "WebProbe.h"
#include "Widgets.h"
#include "Windows.h"
#include "builders/FrmAddTable.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmListChoose.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "colour/Fader5.h"
#include "colour/FrmAutoColor.h"
#include "colour/FrmBody.h"
#include "colour/FrmColorcode.h"
#include "colour/FrmFonts.h"
#include "colour/FrmHR.h"
#include "colour/color.h"
#include "forms/Wait.h"
#include "shell/About.h"
#include "shell/Find.h"
#include "shell/FrmHelp.h"
#include "shell/FrmPop.h"
#include "shell/FrmSplash.h"
#include "shell/FrmWord.h"
#include "web/WebControl.h"
#include "web/WebEngine.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPixmapCache>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <algorithm>
#include <iostream>
#include <malloc.h>
#include <sys/prctl.h>

using namespace brindlemark;

// A day that does not end, in one main window: every window opened and closed, tabs changed, listings made,
// again and again. Nothing is left over, and memory does not grow. How often each is done stands in the
// environment (see `times`); a run for the memory is `make soak`.

namespace {

int times(const char* variable, int few)
{
    bool given = false;
    const int many = qEnvironmentVariableIntValue(variable, &given);
    return given ? qMax(0, many) : few;
}

int openings()
{
    return times("SOAK_OPENINGS", 2);
}

/// Of them all, one in so many goes by the road that a seller takes.
constexpr int RoadEvery = 20;

int tabChanges()
{
    return times("SOAK_TABS", 20);
}

int listings()
{
    return times("SOAK_LISTINGS", 2);
}

/// Rounds before anything is counted, in which the engine, the fonts and the pictures are loaded.
constexpr int WarmUp = 2;
/// Rounds with one document in the source box. Its undo history has no end: it keeps every text that was
/// there.
constexpr int RoundsOfDocument = 5;
/// Samples of the memory in a phase, and the fewest that are judged.
constexpr int Samples = 100;
constexpr int FewestJudged = 40;

/// How far the middles of the second and the last tenth are from each other, as a part of the phase.
constexpr double MiddlesApart = 0.8;
/// What the median of the last tenth may be above that of the second tenth in any case, in KiB: samples fall
/// on moments at which more or less is under way.
constexpr double HeapNoise = 300;
constexpr double ProgramNoise = 2500;
constexpr double EngineNoise = 20000;
/// ... and for what the engine keeps of each page without any of the program's code, in KiB: an object of
/// 1,824 bytes for filling in forms, and small ones (see `engineAlone`).
constexpr double HeapOfPage = 2.4;

/// Says yes to everything, and no to saving.
class Patient : public ScriptedDoors
{
public:
    MsgAnswer msgBox(const QString&, const QString&, MsgIcon, MsgButtons buttons) override
    {
        return buttons == MsgButtons::YesNoCancel ? MsgAnswer::No : MsgAnswer::Yes;
    }
};

template <typename F>
QWidget* shown()
{
    form<F>()->Show();
    return form<F>();
}

QWidget* splash()
{
    form<FrmSplash>()->findChild<QTimer*>(QStringLiteral("Timer2"))->stop(); // or it would go by itself
    return shown<FrmSplash>();
}

/// Fills the wizard's first page with the least that it asks for.
void fillFirstPage(FrmBuild1& page, const QString& title)
{
    page.Text1->setText(title);
    page.Text2->setPlainText(QStringLiteral("A heavy desk lamp in polished brass."));
    page.ChKPay1->setValue(1);
    page.TxSH1->setText(QStringLiteral("12"));
}

QWidget* secondPage()
{
    auto* page = form<FrmBuild1>();
    fillFirstPage(*page, QStringLiteral("Art Deco desk lamp"));
    page->Show();
    page->Command1->click();
    return form<FrmBuild2>();
}

QWidget* terms()
{
    openTerms(0);
    return form<FrmTerms>();
}

struct Opening
{
    const char* name;
    QWidget* (*open)();
};

constexpr Opening Openings[] = {
    {"FrmSplash", splash},
    {"FrmBuild1", shown<FrmBuild1>},
    {"FrmBuild2", secondPage},
    {"FrmTerms", terms},
    {"Find", shown<Find>},
    {"FrmWord", shown<FrmWord>},
    {"color", shown<color>},
    {"FrmColorcode", shown<FrmColorcode>},
    {"FrmBody", shown<FrmBody>},
    {"Fader5", shown<Fader5>},
    {"Pics", shown<Pics>},
    {"FrmHR", shown<FrmHR>},
    {"FrmTable", shown<FrmTable>},
    {"FrmAutoColor", shown<FrmAutoColor>},
    {"FrmAddTable", shown<FrmAddTable>},
    {"FrmListChoose", shown<FrmListChoose>},
    {"FrmList", shown<FrmList>},
    {"FrmFonts", shown<FrmFonts>},
    {"FrmList2", shown<FrmList2>},
    {"FrmChar", shown<FrmChar>},
    {"Wait", shown<Wait>},
    {"FrmHelp", shown<FrmHelp>},
    {"About", shown<About>},
};

/// Views of the main window, which opens and closes nothing for them.
bool isOfMainWindow(const WindowView& view)
{
    static const QStringList names = {QStringLiteral("editor"),   QStringLiteral("editor-title"),
                                      QStringLiteral("design"),   QStringLiteral("preview"),
                                      QStringLiteral("find-bar"), QStringLiteral("internet"),
                                      QStringLiteral("notice")};
    return names.contains(QString::fromLatin1(view.name));
}

/// All but the main window and its menus.
QList<Form*> openForms()
{
    QList<Form*> forms;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* tool = qobject_cast<Form*>(window);
            tool && !qobject_cast<FrmWeb*>(tool) && !qobject_cast<FrmPop*>(tool))
            forms << tool;
    }
    return forms;
}

/// Pages that are there between the rounds of the phase, and those that its rounds have opened besides.
qsizetype pagesBetween = 0;
qsizetype pagesOpened = 0;

/// Pages that the engine has begun with.
qsizetype pagesNow()
{
    const QWidgetList all = QApplication::allWidgets();
    return std::ranges::count_if(all, [](QWidget* widget) {
        const auto* view = qobject_cast<QWebEngineView*>(widget);
        return view && view->page()->renderProcessPid() > 0;
    });
}

/// To be called once in each round while all is open.
void notePages()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    pagesOpened += pagesNow() - pagesBetween;
}

/// Closes all windows but the main window by their close buttons, which do what Cancel does.
void closeForms()
{
    notePages();
    for (const QPointer<Form> window : openForms()) {
        if (window && window->isVisible())
            window->close();
    }
    if (isLoaded<Wait>())
        form<Wait>()->Unload(); // comes up by itself where something takes long, and stays, hidden
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (Form* stayed : openForms()) {
        QTest::qFail(stayed->metaObject()->className(), __FILE__, __LINE__);
        stayed->Unload();
    }
}

/// Waits until a window is up, and the pages in it.
void waitForPages(QWidget* window)
{
    bool up = QTest::qWaitForWindowExposed(window);
    for (auto* browser : window->findChildren<WebControl*>()) {
        if (browser->isVisible())
            up = up && QTest::qWaitFor([&] { return probe(browser).rendererPid() > 0; });
    }
    if (!up)
        QTest::qFail("the window does not come up", __FILE__, __LINE__);
}

double medianOf(QList<double> samples)
{
    std::ranges::sort(samples);
    return samples[samples.size() / 2];
}

/// The slope of the straight line nearest to the samples of the last nine tenths.
double slopeOf(const QList<double>& samples)
{
    const qsizetype first = samples.size() / 10;
    const auto count = double(samples.size() - first);
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;
    for (qsizetype i = first; i < samples.size(); ++i) {
        const auto at = double(i);
        x += at;
        y += samples[i];
        xx += at * at;
        xy += at * samples[i];
    }
    const double spread = count * xx - x * x;
    return spread > 0 ? (count * xy - x * y) / spread : 0;
}

/// The memory over a phase, and what was found of it.
class Course
{
public:
    explicit Course(int rounds) : m_rounds(rounds), m_step(qMax(1, rounds / Samples)) {}

    void roundDone(int round)
    {
        if (round % m_step == 0)
            m_samples << memoryInUse();
    }

    /// Tells the figures; what is wrong with them, or an empty text.
    QString judge(const QElapsedTimer& clock) const
    {
        if (m_samples.isEmpty())
            return {};
        QString faults;
        QString line =
            QStringLiteral("%1 rounds in %2 s;").arg(m_rounds).arg(double(clock.elapsed()) / 1e3, 0, 'f', 1);
        const double kept = MiddlesApart * HeapOfPage * double(pagesOpened);
        for (const auto& [name, samples, allowed] : {
                 Kind{"heap", valuesOf(&Memory::heap), HeapNoise + kept},
                 Kind{"program", valuesOf(&Memory::program), ProgramNoise + kept},
                 Kind{"engine", valuesOfEngine(), EngineNoise},
             }) {
            const qsizetype tenth = qMax(qsizetype(1), samples.size() / 10);
            const double early = medianOf(samples.mid(qMin(tenth, samples.size() - 1), tenth));
            const double late = medianOf(samples.last(tenth));
            line += QStringLiteral(" %1 %2 -> %3 KiB (%4 KiB a round), %5 more allowed;")
                        .arg(QString::fromLatin1(name))
                        .arg(early, 0, 'f', 0)
                        .arg(late, 0, 'f', 0)
                        .arg(slopeOf(samples) / m_step, 0, 'f', 3)
                        .arg(allowed, 0, 'f', 0);
            if (m_samples.size() >= FewestJudged && late - early > allowed) {
                faults +=
                    QStringLiteral("%1 grows by %2 KiB; ").arg(QString::fromLatin1(name)).arg(late - early);
            }
        }
        const char* row = QTest::currentDataTag();
        std::cout << QTest::currentTestFunction() << ' ' << (row ? row : "") << ": " << qPrintable(line)
                  << std::endl; // not a message, of which Qt Test tells only so many
        return faults;
    }

private:
    struct Kind
    {
        const char* name;
        QList<double> samples;
        double allowed;
    };

    QList<double> valuesOf(double Memory::*kind) const
    {
        QList<double> values;
        for (const Memory& sample : m_samples)
            values << sample.*kind;
        return values;
    }

    /// Of the processes that were there all the time. The engine lets others come and go, 80 MiB each, and
    /// keeps one ready.
    QList<double> valuesOfEngine() const
    {
        QList<double> values;
        for (const Memory& sample : m_samples) {
            double all = 0;
            for (const auto& [process, resident] : sample.engine.asKeyValueRange()) {
                if (m_samples.first().engine.contains(process) && m_samples.last().engine.contains(process))
                    all += resident;
            }
            values << all;
        }
        return values;
    }

    int m_rounds;
    int m_step;
    QList<Memory> m_samples;
};

/// What is there once nothing comes and goes any more.
Census settledCensus()
{
    constexpr int Quiet = 5;
    int quiet = 0;
    Census last = takeCensus();
    (void)QTest::qWaitFor([&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const Census now = takeCensus();
        quiet = leftOver(last, now).isEmpty() && leftOver(now, last).isEmpty() ? quiet + 1 : 0;
        last = now;
        return quiet == Quiet;
    });
    return last;
}

/// Waits for what goes a moment later, as the engine's processes do; what is left then.
QStringList stillLeft(const Census& before)
{
    QStringList left;
    (void)QTest::qWaitFor(
        [&] {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            left = leftOver(before, takeCensus());
            return left.isEmpty();
        },
        20000);
    return left;
}

/// Does something again and again: fails the test when it leaves something over or memory grows.
template <typename Round>
void soak(int rounds, Round round)
{
    pagesBetween = pagesNow();
    for (int i = 0; i < WarmUp; ++i)
        round(i);
    const Census before = settledCensus();
    pagesOpened = 0;
    Course course(rounds);
    QElapsedTimer clock;
    clock.start();
    for (int i = 1; i <= rounds && !QTest::currentTestFailed(); ++i) {
        round(i);
        course.roundDone(i);
    }
    const QString faults = course.judge(clock);
    const QStringList left = stillLeft(before);
    QVERIFY2(left.isEmpty(), qPrintable(left.join(u'\n')));
    QVERIFY2(faults.isEmpty(), qPrintable(faults));
}

} // namespace

class TestSoak : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void engineAlone();
    void toolkitAlone();
    void windows_data();
    void windows();
    void roads_data();
    void roads();
    void tabs();
    void listings();

private:
    PictureHost m_pictures;
    int m_widgetsAtFirst = 0;
    std::unique_ptr<MainWindow> m_main;
    std::unique_ptr<Patient> m_doors;
};

void TestSoak::initTestCase()
{
    // KiB: full at once, so that its filling does not hide what windows leave behind.
    QPixmapCache::setCacheLimit(64);
    m_widgetsAtFirst = int(QApplication::allWidgets().size());
    m_main = std::make_unique<MainWindow>();
    m_main->journalTimer().stop(); // by chance it would hold the file of unsaved text when all is counted
    m_doors = std::make_unique<Patient>();
    prepareViews(*m_main);
    (void)QTestEventLoop::instance(); // comes with the first wait for a signal, and stays
    form<Wait>()->showProgress({});   // the toolkit's timer of animations, which stays
    form<Wait>()->Show();
    waitForPages(form<Wait>());
    closeForms();
    m_main->showTab(FrmWeb::PreviewTab); // all surfaces of the main window are up from here on
    m_main->showTab(FrmWeb::InternetTab);
    m_main->showTab(FrmWeb::EditorTab);
}

void TestSoak::cleanupTestCase()
{
    m_main.reset();
    m_doors.reset();
    QCOMPARE(int(QApplication::allWidgets().size()), m_widgetsAtFirst);
}

/// What the engine keeps of each page, without any of the program's code. Comes first: its tables fill in the
/// first 300 pages or so.
void TestSoak::engineAlone()
{
    soak((::openings() + 3) / 4, [](int) {
        QWebEngineView view(documentProfile(), nullptr);
        QSignalSpy loaded(&view, &QWebEngineView::loadFinished);
        view.load(blankAddress());
        if (!loaded.wait())
            QTest::qFail("the engine does not come up", __FILE__, __LINE__);
        notePages();
    });
}

/// What the toolkit keeps of each window, without any of the program's code.
void TestSoak::toolkitAlone()
{
    soak(::openings(), [](int) {
        QDialog window;
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
        window.hide();
    });
}

void TestSoak::windows_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Opening& opening : Openings)
        QTest::newRow(opening.name) << index++;
}

/// Every other time the window is closed before its page is there.
void TestSoak::windows()
{
    QFETCH(int, index);
    const Opening& opening = Openings[index];
    soak(::openings(), [&](int round) {
        QWidget* window = opening.open();
        QCOMPARE(className(window), QByteArray(opening.name));
        if (round % 2 == 0)
            waitForPages(window);
        closeForms();
    });
}

void TestSoak::roads_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const WindowView& view : windowViews()) {
        if (!isOfMainWindow(view))
            QTest::newRow(view.name) << index;
        ++index;
    }
}

/// With something filled in, on the way that a seller takes.
void TestSoak::roads()
{
    QFETCH(int, index);
    const WindowView& view = windowViews()[size_t(index)];
    soak((::openings() + RoadEvery - 1) / RoadEvery, [&](int) {
        m_main->web->activateWindow();
        waitForPages(view.show(*m_main));
        closeForms();
    });
}

/// A listing goes round all tabs. It is loaded anew now and then, as the undo history, which has no end,
/// keeps every page that came from the surface.
void TestSoak::tabs()
{
    FrmWeb* web = m_main->web;
    const auto changes = std::to_array<std::function<void()>>({
        [&] { m_main->showTab(FrmWeb::PreviewTab); },
        [&] { tick(web->Option2); },
        [&] { tick(web->Option1); },
        [&] { m_main->showTab(FrmWeb::InternetTab); },
        [&] { m_main->showTab(FrmWeb::EditorTab); },
    });
    const QByteArray listing = "<HTML><BODY>\r\n" +
                               QByteArray("<P>Art Deco desk lamp, brass, 1930s</P>\r\n").repeated(250) +
                               "</BODY></HTML>\r\n";
    soak(tabChanges() / int(changes.size()), [&](int round) {
        if (round % RoundsOfDocument == 0)
            web->RichTextBox1->load(listing);
        for (const auto& change : changes)
            change();
        QCOMPARE(m_main->source().count("Art Deco"), 250);
    });
    web->RichTextBox1->load(QByteArray());
}

void TestSoak::listings()
{
    FrmWeb* web = m_main->web;
    soak(::listings(), [&](int round) {
        if (round % RoundsOfDocument == 0)
            web->RichTextBox1->load(QByteArray());
        m_main->press(Tool::Create);
        auto* page1 = form<FrmBuild1>();
        const QString title = QStringLiteral("Lamp number %1").arg(round);
        fillFirstPage(*page1, title);
        click(page1->Command1);
        auto* page2 = form<FrmBuild2>();
        if (!QTest::qWaitForWindowExposed(page2))
            QTest::qFail("the second page does not come up", __FILE__, __LINE__);
        notePages();
        click(page2->Command23);
        QVERIFY2(m_main->source().contains(title.toUtf8()), qPrintable(title));
        closeForms();
    });
    web->RichTextBox1->load(QByteArray());
}

int main(int argc, char** argv)
{
    countObjects();
    mallopt(M_MMAP_THRESHOLD, 128 * 1024); // else the limit rises with use, and blocks change their place
    const QTemporaryDir temporary;         // a folder of its own, in which nobody else makes files
    prctl(PR_SET_CHILD_SUBREAPER, 1);      // a process whose parent ends stays below this one
    qputenv("TMPDIR", temporary.path().toUtf8());
    prepareWebEngine();
    QApplication application(argc, argv);
    QFont::insertSubstitution(QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue"));
    TestSoak test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_soak.moc"
