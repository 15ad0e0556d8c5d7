// A region button on a 10 MB document, from the click to the selection: one listing in front of much text,
// one behind it, and 1,000 listings, of which the last one's region is selected.

#include "MainWindowBench.h"
#include "services/Markers.h"

#include <QApplication>

namespace {

constexpr qsizetype Size = 10'000'000;

const QByteArray& listing()
{
    static const QByteArray text = [] {
        const MarkerPair& title = markers(Region::Title);
        return QByteArray(StyleMarkers.front().toByteArray() + "\r\n" + title.opening.toByteArray() +
                          "<B>Old wall clock</B>" + title.closing.toByteArray() + "\r\n");
    }();
    return text;
}

QByteArray filler(qsizetype bytes)
{
    const QByteArray line =
        "<TR><TD bgcolor=\"#FFFFFF\"><FONT size=2>nothing that is looked for</FONT></TD></TR>\r\n";
    return line.repeated(bytes / line.size());
}

void pressTitle(benchmark::State& state, const QByteArray& page)
{
    FrmWeb* main = form<FrmWeb>();
    main->RichTextBox1->load(page);
    main->CmdTitle->setEnabled(true);
    QApplication::processEvents();
    while (state.KeepRunning())
        main->CmdTitle->click();
    if (main->RichTextBox1->SelText() != "<B>Old wall clock</B>")
        state.SkipWithError("another text is selected");
    main->RichTextBox1->load(QByteArray());
}

void inFront(benchmark::State& state)
{
    pressTitle(state, "\r\n" + listing() + filler(Size));
}

void behind(benchmark::State& state)
{
    pressTitle(state, filler(Size) + listing());
}

void thousand(benchmark::State& state)
{
    pressTitle(state, (listing() + filler(Size / 1000)).repeated(1000));
}

BENCHMARK(inFront)->Name("Region button, 10 MB/listing in front")->Unit(benchmark::kMillisecond);
BENCHMARK(behind)->Name("Region button, 10 MB/listing behind")->Unit(benchmark::kMillisecond);
BENCHMARK(thousand)->Name("Region button, 10 MB/1,000 listings")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    return runWithMainWindow(argc, argv);
}
