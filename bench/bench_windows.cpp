// SPDX-License-Identifier: GPL-3.0-or-later

// The program as the user waits for it: from its start to a letter in the source box, the changes of the tab,
// and the wizard from OK to its second page and on to the editor. What only happens once in a process is
// measured in a process of its own: this program, with an argument.

#include "MainWindow.h"
#include "Measure.h"
#include "QuietDoors.h"
#include "app/WarmUp.h"
#include "check/FrmLive.h"
#include "platform/Doors.h"
#include "platform/Files.h"
#include "shell/Spelling.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QKeyEvent>
#include <QPageLayout>
#include <QProcess>
#include <QTimer>
#include <QWebEngineView>
#include <Qsci/qsciscintilla.h>
#include <iostream>
#include <tuple>

using namespace brindlemark;

namespace {

/// Counts the paints of a widget.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

    void wait() const
    {
        while (m_paints == 0)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++m_paints;
        return false;
    }

private:
    int m_paints = 0;
};

/// What a person takes to look at a page, which the engine paints meanwhile.
void look()
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 300)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

// ---- In a process of its own -----------------------------------------------------------------------------

void typeLetter(QWidget* target)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(target, &press);
}

/// A window that holds nothing but the bare editing component.
bool bareComponent()
{
    QsciScintilla editor;
    editor.resize(1000, 700);
    const PaintWatch watch(editor.viewport());
    editor.show();
    watch.wait();
    typeLetter(&editor);
    return editor.length() == 1;
}

/// The main window, without the splash.
bool program()
{
    auto* main = form<FrmWeb>();
    const PaintWatch watch(main->RichTextBox1->viewport());
    main->Show();
    watch.wait();
    typeLetter(main->RichTextBox1);
    return main->RichTextBox1->Text().size() == 1;
}

QByteArray listing(qsizetype length)
{
    const QByteArray row =
        "<TR><TD width=\"40%\"><FONT face=Arial color=#804000>Words of a listing</FONT><TD>"
        "more<!-- note -->\r\n";
    return "<HTML><BODY><TABLE border=1>\r\n" + row.repeated(length / row.size()) +
           "</TABLE></BODY></HTML>\r\n";
}

/// Milliseconds of one change to Preview.
double toPreview()
{
    return milliseconds([] { form<FrmWeb>()->SSTab1->setTab(FrmWeb::PreviewTab); });
}

/// The same with a page of 100 KB that has just come.
double changeToPreview()
{
    auto* main = form<FrmWeb>();
    main->SSTab1->setTab(FrmWeb::EditorTab);
    main->RichTextBox1->setText(listing(100'000));
    return toPreview();
}

/// The first one after the start, behind a page of 100 KB and the rest of a hand.
double firstToPreview()
{
    auto* main = form<FrmWeb>();
    warmUpBeforePreview(main);
    main->Show();
    main->RichTextBox1->setText(listing(100'000));
    while (!main->WebBrowser1->findChild<QWebEngineView*>())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    look();
    return toPreview();
}

/// Milliseconds of the same page in a bare view, up to the end of its loading; the first call makes the view.
double bareEngine()
{
    const QString html = QString::fromLatin1(listing(100'000));
    return milliseconds([html] {
        static QWebEngineView* view = nullptr; // ends with the process
        if (!view) {
            view = new QWebEngineView;
            view->resize(800, 600);
            view->show();
        }
        QEventLoop loop;
        QObject::connect(view, &QWebEngineView::loadFinished, &loop, &QEventLoop::quit);
        view->setHtml(html);
        loop.exec();
    });
}

int probe(int argc, char* argv[])
{
    prepareWebEngine();
    QApplication app(argc, argv);
    setAppPath(QStringLiteral(SHIPPED_DATA));
    const QByteArray what = argv[1];
    bool good = true;
    if (what == "program") {
        good = program();
    } else if (what == "bare") {
        good = bareComponent();
    } else if (what == "preview") {
        std::cout << firstToPreview() << std::flush;
    } else {
        std::cout << bareEngine() << std::flush;
    }
    doors().endNow(good ? 0 : 1);
    return 1;
}

/// This program, started with an argument.
QByteArray started(const char* what)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(what)});
    require(process.waitForFinished() && process.exitCode() == 0, "a probe failed");
    return process.readAllStandardOutput();
}

Repetition told(const char* what)
{
    return [what] { return started(what).toDouble(); };
}

// ---- In this process -------------------------------------------------------------------------------------

void fillPage1()
{
    auto* page = form<FrmBuild1>();
    page->Text1->setText(QStringLiteral("Old wall clock"));
    page->Text2->setPlainText(QStringLiteral("It keeps time and chimes. ").repeated(40));
    page->OptP2->setValue(true);
    page->TxP1->setText(QStringLiteral("http://pictures.example/clock.jpg"));
    page->ChKPay5->setValue(1);
    page->OptPS1->setValue(true);
    page->Show();
}

/// From OK to the first paint of page 2.
void toPage2()
{
    form<FrmBuild1>()->Command1->click();
    PaintWatch(form<FrmBuild2>()).wait();
}

/// From "Open with Editor" to the page in the source box.
void toEditor()
{
    form<FrmBuild2>()->Command23->click();
}

bool inEditor()
{
    return form<FrmWeb>()->RichTextBox1->Text().contains("Old wall clock");
}

Repetition thenLook(double (*change)())
{
    return [change] {
        const double time = change();
        look();
        return time;
    };
}

/// The live view beside the source: how soon a letter is shown, and what it costs the hand.
void measureLiveView()
{
    RichTextBox* source = form<FrmWeb>()->RichTextBox1;
    auto* view = form<FrmLive>();
    view->Show();
    const auto open = [source](qsizetype size) {
        source->load(listing(size));
        source->setSelStart(int(size / 2));
        look();
    };
    const auto shown = [source, view] {
        QEventLoop loop;
        QObject::connect(view->Page1, &LivePage::shown, &loop, &QEventLoop::quit);
        typeLetter(source);
        loop.exec();
    };
    const auto measureShown = [&](const char* name, qsizetype size, double most) {
        measure({"Program", name, {.most = most}, {{Role::Ours, "live view", timed(shown, [=] {
                                                        open(size);
                                                    })}}});
    };
    measureShown("Live view, a letter shown, 10 KB", 10'000, 50);
    measureShown("Live view, a letter shown, 100 KB", 100'000, 150);
    const auto letter = [source] {
        typeLetter(source);
        source->viewport()->repaint();
    };
    measure({"Program",
             "A letter in 100 KB, the live view open",
             {.most = 5},
             {{Role::Ours, "source box", timed(letter, [=] { open(100'000); })},
              {Role::Limit, "its screen painted, nothing typed",
               timed([source] { source->viewport()->repaint(); }, [=] { open(100'000); })}}});
    view->Unload();
}

/// A letter in the source with the spelling on, and what follows it when the hand rests.
void measureSpelling()
{
    auto* main = form<FrmWeb>();
    RichTextBox* source = main->RichTextBox1;
    const auto open = [source] {
        source->load(listing(100'000));
        source->setSelStart(50'000);
        look();
    };
    const auto letter = [source] {
        typeLetter(source);
        source->viewport()->repaint();
    };
    const auto spelt = [&](const QStringList& languages) {
        return timed(letter, [=] {
            main->spelling()->choose(languages);
            open();
            QEventLoop rest; // the dictionary is read, and the words in view are marked
            QTimer::singleShot(600, &rest, &QEventLoop::quit);
            rest.exec();
        });
    };
    measure({"Program",
             "A letter in 100 KB, the spelling on",
             {.most = 11},
             {{Role::Ours, "en_US", spelt({QStringLiteral("en_US")})}, {Role::Limit, "off", spelt({})}}});
    main->spelling()->choose({});
}

/// A letter in a tag, for which the text is read and a list opens.
void measureOffers()
{
    auto* main = form<FrmWeb>();
    RichTextBox* source = main->RichTextBox1;
    const auto open = [=](bool isOn) {
        if (main->munoffers->isChecked() != isOn)
            main->munoffers->trigger();
        const QByteArray text = listing(100'000) + "<TD ";
        source->load(text);
        source->setSelStart(int(text.size()));
        look();
    };
    const auto letter = [source] {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_W, Qt::NoModifier, QStringLiteral("w"));
        QApplication::sendEvent(source, &press);
        source->viewport()->repaint();
    };
    const auto typed = [&](bool isOn) { return timed(letter, [=] { open(isOn); }); };
    measure({"Program",
             "A letter in a tag of 100 KB, with offers",
             {.most = 11},
             {{Role::Ours, "width is offered", typed(true)}, {Role::Limit, "off", typed(false)}}});
    open(true);
}

/// What is up as a PDF, without the question for its file.
class PdfDoors : public QuietDoors
{
public:
    bool saveDialog(CommonDialog& dialog) override
    {
        dialog.FileName = path();
        return true;
    }
    static QString path() { return appFile(QStringLiteral("\\paper.pdf")); }
};

/// The page of 1 MB in the engine alone, as what the program can't be quicker than.
Repetition engineToPdf()
{
    const auto page = std::make_shared<QWebEnginePage>();
    const auto pdf = std::make_shared<QByteArray>();
    const auto prepare = [page, pdf] {
        pdf->clear();
        const QString file = appFile(QStringLiteral("\\engine.htm"));
        writeFile(file, listing(1'000'000));
        QEventLoop loading;
        QObject::connect(page.get(), &QWebEnginePage::loadFinished, &loading, &QEventLoop::quit);
        page->load(QUrl::fromLocalFile(file));
        loading.exec();
        look();
    };
    const auto print = [page, pdf] {
        QEventLoop printing;
        const QPageLayout paper(QPageSize(QPageSize::A4), QPageLayout::Portrait, {15, 15, 15, 15},
                                QPageLayout::Millimeter);
        page->printToPdf(
            [&](const QByteArray& bytes) {
                *pdf = bytes;
                printing.quit();
            },
            paper);
        printing.exec();
    };
    return timed(print, prepare, [pdf] { return pdf->size() > 50'000; });
}

void measurePaper()
{
    auto* main = form<FrmWeb>();
    const auto toPdf = [main](FrmWeb::Tab tab) {
        const auto prepare = [main, tab] {
            QFile::remove(PdfDoors::path());
            main->SSTab1->setTab(FrmWeb::EditorTab);
            main->RichTextBox1->load(listing(1'000'000));
            main->munhighlight->trigger();
            main->SSTab1->setTab(tab);
            look();
        };
        return timed(
            [main] {
                PdfDoors doors;
                main->munpdf->trigger();
            },
            prepare, [] { return QFileInfo(PdfDoors::path()).size() > 50'000; });
    };
    measure({"Program",
             "Highlighted source of 1 MB as PDF",
             {.most = 3000},
             {{Role::Ours, "entry Save as PDF", toPdf(FrmWeb::EditorTab)}}});
    measure({"Program",
             "Page of 1 MB as PDF",
             {.most = 3000},
             {{Role::Ours, "entry Save as PDF", toPdf(FrmWeb::PreviewTab)},
              {Role::Limit, "engine alone", engineToPdf()}}});
    main->SSTab1->setTab(FrmWeb::EditorTab);
}

void run()
{
    measure({"Program",
             "Start, to a letter in the source box",
             {.timesPeer = 1.1},
             {{Role::Ours, "Brindlemark", timed([] { started("program"); })},
              {Role::Peer, "window with QScintilla alone", timed([] { started("bare"); })}}});
    measure({"Program",
             "First change to Preview, 100 KB",
             {.most = 120},
             {{Role::Ours, "tab", told("preview")},
              {Role::Limit, "engine alone, first page loaded", told("engine")}}});
    measure({"Program",
             "Later change to Preview, 100 KB",
             {.most = 500},
             {{Role::Ours, "tab", thenLook(changeToPreview)},
              {Role::Limit, "engine alone, later page loaded", thenLook(bareEngine)}}});
    form<FrmWeb>()->SSTab1->setTab(FrmWeb::EditorTab);
    measure({"Program",
             "Wizard, OK to page 2",
             {.most = 500},
             {{Role::Ours, "button OK", timed(toPage2, fillPage1, [] {
                   look();
                   toEditor();
                   return inEditor();
               })}}});
    measure({"Program",
             "Wizard, page 2 to the editor",
             {.most = 500},
             {{Role::Ours, "button Open with Editor",
               timed(
                   toEditor,
                   [] {
                       fillPage1();
                       toPage2();
                       look();
                       form<FrmWeb>()->RichTextBox1->load(QByteArray());
                   },
                   inEditor)}}});
    measureLiveView();
    measureSpelling();
    measureOffers();
    measurePaper();
}

} // namespace

int main(int argc, char* argv[])
{
    return argc > 1 ? probe(argc, argv) : withMainWindow(argc, argv, run);
}
