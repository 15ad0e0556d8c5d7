// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "colour/Fader5.h"
#include "colour/FrmHR.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"

#include <QRandomGenerator>
#include <chrono>
#include <csignal>
#include <thread>

using namespace brindlemark;

// The process behind each surface killed again and again, at any moment of its work: the window goes on, and
// no text of the user's is lost. BRINDLEMARK_KILLS=200 makes it 200 times a surface instead of 10.

namespace {

int kills()
{
    return qMax(1, qEnvironmentVariable("BRINDLEMARK_KILLS", QStringLiteral("10")).toInt());
}

/// Says yes to everything: that a page was lost is told when it happens to be noticed.
class Patient : public ScriptedDoors
{
public:
    MsgAnswer msgBox(const QString& prompt, const QString&, MsgIcon, MsgButtons) override
    {
        asked << prompt;
        return MsgAnswer::Yes;
    }
    bool saveDialog(CommonDialog&) override { return false; }
};

/// Kills the process that renders a page, a moment later and from outside.
class Killer
{
public:
    /// At once every third time, and else within `microseconds`.
    Killer(WebControl* browser, int round, int microseconds = 20000)
    {
        const auto pid = pid_t(probe(browser).rendererPid());
        if (pid <= 0)
            return;
        const auto pause =
            std::chrono::microseconds(round % 3 == 0 ? 0 : QRandomGenerator::global()->bounded(microseconds));
        m_thread = std::thread([pid, pause] {
            std::this_thread::sleep_for(pause);
            ::kill(pid, SIGKILL);
        });
        killed = true;
    }
    ~Killer()
    {
        if (m_thread.joinable())
            m_thread.join();
    }
    Q_DISABLE_COPY_MOVE(Killer)

    bool killed = false;

private:
    std::thread m_thread;
};

QByteArray lines(int round)
{
    return ("<P>round " + QByteArray::number(round) + "</P>\r\n").repeated(2000);
}

/// How often the text of a round stands in a text.
qsizetype linesOf(const QByteArray& text, int round)
{
    return text.count("round " + QByteArray::number(round) + "</P>");
}

} // namespace

class TestRenderers : public QObject
{
    Q_OBJECT

private slots:
    void design();
    void typedOnTheDesign();
    void preview();
    void sampleOfTheRule();
    void sampleOfTheFader();
    void wizard();
    void terms();

private:
    /// Options are clicked on their indicator.
    static void take(OptionButton* option)
    {
        QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(8, option->height() / 2));
    }
};

void TestRenderers::design()
{
    const MainWindow window;
    Patient doors;
    int killed = 0;
    for (int round = 1; round <= kills(); ++round) {
        window.web->RichTextBox1->setText(lines(round));
        if (round % 2 == 0) {
            window.showTab(FrmWeb::PreviewTab);
            const Killer killer(window.web->WebBrowser1, round);
            killed += killer.killed;
            window.showTab(FrmWeb::EditorTab);
        } else {
            const Killer killer(window.web->WebBrowser1, round); // while the page is written
            killed += killer.killed;
            window.showTab(FrmWeb::PreviewTab);
            window.showTab(FrmWeb::EditorTab);
        }
        QCOMPARE(linesOf(window.source(), round), 2000);
    }
    qInfo("%d kills, %lld notices", killed, qlonglong(doors.asked.size()));
    QVERIFY(killed >= kills() - 1); // there was none to kill in the first round
}

void TestRenderers::typedOnTheDesign()
{
    // What was kept of the typed text is on the page again, and comes to the source.
    const MainWindow window;
    Patient doors;
    window.web->RichTextBox1->setText("<P>begin</P>");
    window.showTab(FrmWeb::PreviewTab);
    DocumentSurface* surface = window.web->WebBrowser1;
    for (int round = 1; round <= kills(); ++round) {
        const QString word = QStringLiteral("word%1.").arg(round);
        QVERIFY(probe(surface).evaluate(
            QStringLiteral("document.body.appendChild(document.createTextNode('%1')); 1").arg(word)));
        window.journalTimer().start(0);
        QTRY_VERIFY(window.folder.has(QStringLiteral("Brindlemark-unsaved-1.htm")));
        QTRY_VERIFY(window.folder.read(QStringLiteral("Brindlemark-unsaved-1.htm")).contains(word.toUtf8()));
        const auto told = doors.asked.size();
        {
            const Killer killer(surface, round);
            QVERIFY(killer.killed);
        }
        QTRY_VERIFY(doors.asked.size() > told);
        QVERIFY2(surface->innerHtml().contains(word), qPrintable(surface->innerHtml()));
    }
    window.showTab(FrmWeb::EditorTab);
    for (int round = 1; round <= kills(); ++round)
        QVERIFY(window.source().contains("word" + QByteArray::number(round) + '.'));
    qInfo("%d kills", kills());
}

void TestRenderers::preview()
{
    const MainWindow window;
    Patient doors;
    window.showTab(FrmWeb::PreviewTab);
    take(window.web->Option2);
    QVERIFY(window.web->Option2->Value());
    window.showTab(FrmWeb::EditorTab);
    int killed = 0;
    for (int round = 1; round <= kills(); ++round) {
        const QByteArray text = lines(round);
        window.web->RichTextBox1->setText(text);
        {
            const Killer killer(window.web->WebBrowser3, round, 40000);
            killed += killer.killed;
            window.showTab(FrmWeb::PreviewTab);
        }
        window.showTab(FrmWeb::EditorTab);
        QCOMPARE(window.source(), text);
    }
    qInfo("%d kills, %lld notices", killed, qlonglong(doors.asked.size()));
    QVERIFY(killed >= kills() - 1);
}

void TestRenderers::sampleOfTheRule()
{
    const MainWindow window;
    Patient doors;
    window.web->RichTextBox1->setText("<P>text</P>");
    auto* rule = form<FrmHR>();
    rule->Show();
    QVERIFY(QTest::qWaitForWindowExposed(rule));
    QTRY_VERIFY(probe(rule->WebBrowser1).rendererPid() > 0);
    for (int round = 1; round <= kills(); ++round) {
        const QString width = QString::number(round);
        QTRY_VERIFY(probe(rule->WebBrowser1).rendererPid() > 0);
        {
            const Killer killer(rule->WebBrowser1, round);
            QVERIFY(killer.killed);
            overtype(rule->Text1, width);
        }
        overtype(rule->Text1, width + QStringLiteral("%"));
        QTRY_COMPARE(probe(rule->WebBrowser1)
                         .evaluate(QStringLiteral("document.querySelector('hr')?.getAttribute('width')"))
                         .value_or(QVariant())
                         .toString(),
                     width + QStringLiteral("%"));
    }
    QCOMPARE(window.source(), QByteArray("<P>text</P>"));
    QCOMPARE(doors.asked, QStringList());
    qInfo("%d kills", kills());
}

void TestRenderers::sampleOfTheFader()
{
    const MainWindow window;
    Patient doors;
    window.web->RichTextBox1->setText("<P>text</P>");
    auto* fader = form<Fader5>();
    fader->Show();
    QVERIFY(QTest::qWaitForWindowExposed(fader));
    auto* field = fader->findChild<QWidget*>(QStringLiteral("Text1"));
    QVERIFY(field);
    QTRY_VERIFY(probe(fader->WebBrowser1).rendererPid() > 0);
    for (int round = 1; round <= kills(); ++round) {
        const QString word = QStringLiteral("w%1.").arg(round);
        QTRY_VERIFY(probe(fader->WebBrowser1).rendererPid() > 0);
        {
            const Killer killer(fader->WebBrowser1, round);
            QVERIFY(killer.killed);
            overtype(field, word.chopped(1));
        }
        overtype(field, word);
        QTRY_COMPARE(probe(fader->WebBrowser1)
                         .evaluate(QStringLiteral("document.body.textContent.trim()"))
                         .value_or(QVariant())
                         .toString(),
                     word);
    }
    QCOMPARE(window.source(), QByteArray("<P>text</P>"));
    qInfo("%d kills", kills());
}

void TestRenderers::wizard()
{
    const MainWindow window;
    Patient doors;
    int failures = 0;
    for (int round = 1; round <= kills(); ++round) {
        window.web->RichTextBox1->setText(QByteArray());
        const QString title = QStringLiteral("Lamp number %1").arg(round);
        auto* page1 = form<FrmBuild1>();
        page1->Text1->setText(title);
        page1->Text2->setPlainText(QStringLiteral("A fine old lamp."));
        page1->ChKPay5->setValue(1);
        page1->TxSH1->setText(QStringLiteral("5"));
        page1->Show();
        page1->Command1->click();
        auto* page2 = form<FrmBuild2>();
        auto* engine = page2->findChild<DocumentSurface*>();
        QVERIFY(engine);
        QTRY_VERIFY(probe(engine).rendererPid() > 0);
        const auto told = doors.asked.size();
        {
            const Killer killer(engine, round);
            QVERIFY(killer.killed);
            click(page2->Command23);
        }
        if (doors.asked.size() > told) { // "please try again"
            ++failures;
            QVERIFY(isLoaded<FrmBuild2>());
            click(page2->Command23);
        }
        QVERIFY2(window.source().contains(title.toUtf8()), qPrintable(title));
        QVERIFY(!isLoaded<FrmBuild2>());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    qInfo("%d kills, %d asked for a second try", kills(), failures);
}

void TestRenderers::terms()
{
    const MainWindow window;
    Patient doors;
    for (int round = 1; round <= kills(); ++round) {
        const QByteArray file = "<BODY>" + lines(round) + "</BODY>";
        window.folder.write(QStringLiteral("weblst.ini"), file);
        openTerms(0);
        auto* editor = form<FrmTerms>();
        QTRY_VERIFY(probe(editor->WebBrowser1).rendererPid() > 0);
        {
            const Killer killer(editor->WebBrowser1, round, 60000);
            QVERIFY(killer.killed);
            if (round % 2 == 0)
                click(editor->Command14); // saves
        }
        for (int again = 0; again < 3 && editor->isVisible(); ++again)
            click(editor->Command14); // a page that was lost is there anew, to be saved by the next click
        QVERIFY(!editor->isVisible());
        QCOMPARE(linesOf(window.folder.read(QStringLiteral("weblst.ini")), round), 2000);
    }
    qInfo("%d kills, %lld notices", kills(), qlonglong(doors.asked.size()));
}

RENDERER_TEST_MAIN(TestRenderers)
#include "tst_renderers.moc"
