// The table designer with 1,000 rows while a colour bar is dragged, and an empty table of 1,000 by 100 cells
// on its way into the source box.

#include "MainWindowBench.h"
#include "builders/FrmAddTable.h"
#include "builders/FrmTable.h"

#include <QApplication>

namespace {

void fillRows(FrmTable& table, int rows)
{
    for (int i = 0; i < rows; ++i) {
        table.List1->AddItem(QStringLiteral("Row number %1").arg(i));
        table.List2->AddItem(i % 3 ? QStringLiteral("a value") : QString());
    }
}

/// What one step of a drag does before the hand can go on: all rows restyled, the table made, the sample
/// told.
void restyle(benchmark::State& state)
{
    auto* table = form<FrmTable>();
    table->Show();
    table->WebBrowser1->innerHtml(); // the engine is there
    fillRows(*table, int(state.range(0)));
    while (state.KeepRunning())
        table->Command9_Click();
    state.SetComplexityN(state.range(0));
    table->Unload();
    QApplication::processEvents();
}

void skeleton(benchmark::State& state)
{
    RichTextBox& source = *form<FrmWeb>()->RichTextBox1;
    while (state.KeepRunning()) {
        state.PauseTiming();
        source.load(QByteArray());
        auto* tool = form<FrmAddTable>();
        tool->txtRows->setText(QStringLiteral("1000"));
        tool->txtColls->setText(QStringLiteral("100"));
        state.ResumeTiming();
        tool->Command1->click();
    }
    if (source.Text().count("<TD>") != 100'000)
        state.SkipWithError("another number of cells");
    source.load(QByteArray());
}

BENCHMARK(restyle)
    ->Name("Table designer, step of a drag, rows")
    ->Arg(1)
    ->Arg(100)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(skeleton)
    ->Name("Empty table of 1,000 x 100 cells into the source box")
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    return runWithMainWindow(argc, argv);
}
