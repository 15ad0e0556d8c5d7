// The wizard as the user waits for it: from OK to page 2 on the screen, and from "Open with Editor" to the
// page in the source box, the pass through the rendering engine included.

#include "platform/AppPath.h"
#include "platform/WebEngine.h"
#include "shell/FrmWeb.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

/// Counts the paints of a window.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* window) { window->installEventFilter(this); }
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

FrmBuild1* filledPage1()
{
    auto* page = form<FrmBuild1>();
    page->Text1->setText(QStringLiteral("Old wall clock"));
    page->Text2->setPlainText(QStringLiteral("It keeps time and chimes. ").repeated(40));
    page->OptP2->setValue(true);
    page->TxP1->setText(QStringLiteral("http://pictures.example/clock.jpg"));
    page->ChKPay5->setValue(1);
    page->OptPS1->setValue(true);
    page->Show();
    return page;
}

/// Seconds from OK to the first paint of page 2.
double toPage2(FrmBuild1* page1)
{
    QElapsedTimer clock;
    clock.start();
    page1->Command1->click();
    const PaintWatch watch(form<FrmBuild2>());
    while (watch.paints == 0)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    return double(clock.nsecsElapsed()) / 1e9;
}

/// Seconds from "Open with Editor" to the page in the source box.
double toEditor()
{
    for (int i = 0; i < 50; ++i) // the user looks at page 2 meanwhile
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    auto* main = form<FrmWeb>();
    main->RichTextBox1->load(QByteArray());
    QElapsedTimer clock;
    clock.start();
    form<FrmBuild2>()->Command23->click();
    const double seconds = double(clock.nsecsElapsed()) / 1e9;
    return main->RichTextBox1->Text().contains("Old wall clock") ? seconds : -1;
}

void okToPage2(benchmark::State& state)
{
    for (auto _ : state) {
        state.SetIterationTime(toPage2(filledPage1()));
        toEditor();
    }
}

void pageToEditor(benchmark::State& state)
{
    for (auto _ : state) {
        toPage2(filledPage1());
        state.SetIterationTime(toEditor());
    }
}

BENCHMARK(okToPage2)
    ->Name("wizard: OK to page 2")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(pageToEditor)
    ->Name("wizard: page to editor")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    prepareWebEngine();
    QApplication app(argc, argv);
    const QTemporaryDir folder;
    for (const QFileInfo& file : QDir(QStringLiteral(SHIPPED_DATA)).entryInfoList({"*.ini"}))
        QFile::copy(file.filePath(), folder.filePath(file.fileName()));
    setAppPath(folder.path());
    form<FrmWeb>()->Show();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    delete form<FrmWeb>();
    return 0;
}
