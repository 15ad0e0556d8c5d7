// Replace All of 100,000 hits in 10 MB as the user waits for it, beside the bare component's own loop of find
// and replace; and how the shared routine ReplaceAll grows with the number of hits.

#include "MainWindowBench.h"
#include "platform/Doors.h"
#include "services/Text.h"
#include "shell/Find.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <Qsci/qsciscintilla.h>

namespace {

constexpr int Hits = 100'000;
const QByteArray Old = "price";
const QByteArray New = "reserve";

/// A page of 10 MB with one hit a line.
const QByteArray& page()
{
    static const QByteArray text =
        (QByteArray(
             "<TR><TD bgcolor=\"#FFFFFF\" align=center><FONT face=\"Arial\" size=2>a price of 12.50 and "
             "nothing more</FONT></TD></TR>") +
         "\r\n")
            .leftJustified(105, ' ')
            .repeated(Hits);
    return text;
}

const QByteArray& expected()
{
    static const QByteArray text = QByteArray(page()).replace(Old, New);
    return text;
}

/// Presses the message box's button as soon as it is up.
void answerMessage()
{
    QTimer::singleShot(0, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->accept();
    });
}

/// The button Replace All: the handler whole, with its message box.
void replaceAllButton(benchmark::State& state)
{
    RichTextBox& source = *form<FrmWeb>()->RichTextBox1;
    auto* find = form<Find>();
    find->Text1->setText(QString::fromLatin1(Old));
    find->Text2->setText(QString::fromLatin1(New));
    while (state.KeepRunning()) {
        state.PauseTiming();
        source.load(page());
        answerMessage();
        state.ResumeTiming();
        find->Command6->click();
        state.PauseTiming();
        if (source.Text() != expected())
            state.SkipWithError("another text than QByteArray's own replace gives");
        state.ResumeTiming();
    }
    source.load(QByteArray());
    find->Unload();
}

/// With its notifications off: with them on, each replacement costs as much as its position in the text, and
/// the loop takes hours.
void componentLoop(benchmark::State& state)
{
    const QString text = QString::fromLatin1(page());
    const QString from = QString::fromLatin1(Old);
    const QString to = QString::fromLatin1(New);
    while (state.KeepRunning()) {
        state.PauseTiming();
        QsciScintilla box;
        box.setUtf8(true);
        box.resize(800, 600);
        box.show();
        box.setText(text);
        box.SendScintilla(QsciScintilla::SCI_SETMODEVENTMASK, 0UL);
        state.ResumeTiming();
        for (bool found = box.findFirst(from, false, true, false, false, true, 0, 0, false); found;
             found = box.findNext())
            box.replace(to);
        state.PauseTiming();
        if (box.text().toLatin1() != expected())
            state.SkipWithError("another text than QByteArray's own replace gives");
        state.ResumeTiming();
    }
}

void sharedReplaceAll(benchmark::State& state)
{
    const QByteArray text = page().first(page().size() / Hits * state.range(0));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(ReplaceAll(text, Old, New));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(replaceAllButton)->Name("Replace All, 100,000 hits in 10 MB/button")->Unit(benchmark::kMillisecond);
BENCHMARK(componentLoop)
    ->Name("Replace All, 100,000 hits in 10 MB/bare component")
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(sharedReplaceAll)
    ->Name("ReplaceAll, hits")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char* argv[])
{
    return runWithMainWindow(argc, argv);
}
