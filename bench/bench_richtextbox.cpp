// The source box beside the bare editor component that it stands on.

#include "platform/RichTextBox.h"

#include <Qsci/qsciscintilla.h>

#include <QApplication>
#include <QKeyEvent>
#include <benchmark/benchmark.h>

namespace {

constexpr qsizetype Megabyte = 1 << 20;

/// A page of table rows with tags on every line, as listings are.
QByteArray page(qsizetype size)
{
    const QByteArray row = "<TR><TD bgcolor=\"#FFFFFF\" align=center><FONT face=\"Arial\" size=2>caf\xC3\xA9 "
                           "and a price of 12.50</FONT></TD></TR>\r\n";
    return row.repeated(size / row.size() + 1).first(size);
}

/// The same with one byte a character.
QByteArray westernPage(qsizetype size)
{
    return page(size).replace("\xC3\xA9", "\xE9");
}

/// Tags with hardly a text between them.
QByteArray denseTags(qsizetype size)
{
    return QByteArray("<B><I a=\"1\">x</I></B>\r\n").repeated(size / 22 + 1).first(size);
}

void press(QWidget* box, Qt::Key key, const QString& text)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(box, &event);
}

/// Shown, one letter typed and both seen: the user can work.
template <typename Box>
void makeUsable(Box& box)
{
    box.viewport()->repaint();
    press(&box, Qt::Key_X, QStringLiteral("x"));
    box.viewport()->repaint();
}

template <typename Box>
void show(Box& box)
{
    box.resize(800, 600);
    box.show();
    QApplication::processEvents();
}

void load(benchmark::State& state)
{
    const QByteArray text = page(state.range(0) * Megabyte);
    RichTextBox box;
    show(box);
    while (state.KeepRunning()) {
        box.load(text);
        makeUsable(box);
    }
}

void loadWestern(benchmark::State& state)
{
    const QByteArray text = westernPage(state.range(0) * Megabyte);
    RichTextBox box;
    show(box);
    while (state.KeepRunning()) {
        box.load(text);
        makeUsable(box);
    }
}

void setText(benchmark::State& state)
{
    const QByteArray text = page(state.range(0) * Megabyte);
    RichTextBox box;
    show(box);
    while (state.KeepRunning()) {
        box.setText(text);
        makeUsable(box);
        state.PauseTiming();
        box.load(QByteArray()); // or the history grows with each round
        state.ResumeTiming();
    }
}

/// Without its word wrap, which the source box has on: with it the component takes seconds for 10 MB.
void bareComponent(benchmark::State& state)
{
    const QString text = QString::fromUtf8(page(state.range(0) * Megabyte));
    QsciScintilla box;
    box.setUtf8(true);
    show(box);
    while (state.KeepRunning()) {
        box.setText(text);
        makeUsable(box);
    }
}

void readText(benchmark::State& state)
{
    RichTextBox box;
    box.load(page(state.range(0) * Megabyte));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(box.Text());
}

/// The whole text searched for something that isn't there.
void findNothing(benchmark::State& state)
{
    RichTextBox box;
    box.load(page(state.range(0) * Megabyte));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(box.Find("<!-- Body-title -->", 0));
}

/// One round is what colouring one tag takes: two searches, a selection and its colour. The time is that of a
/// whole text of 90,000 bytes; "tags" says how many that were.
void colourTags(benchmark::State& state, const QByteArray& text)
{
    RichTextBox box;
    show(box);
    box.load(text);
    int tags = 0;
    while (state.KeepRunning()) {
        tags = 0;
        for (int start = box.Find("<", 0); start >= 0; start = box.Find("<", start + 1)) {
            const int end = box.Find(">", start + 2);
            if (end < 0)
                break;
            box.setSelStart(start);
            box.setSelLength(end - start + 1);
            box.setSelColor(tags++ % 2 == 0 ? 0xFF0000 : 0x0000FF);
        }
    }
    state.counters["tags"] = tags;
    state.counters["a tag"] =
        benchmark::Counter(tags, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// A letter typed into the middle of one single line of so many kilobytes, and painted.
void typeIntoLongLine(benchmark::State& state)
{
    const qsizetype size = state.range(0) * 1024;
    QByteArray line = page(size);
    RichTextBox box;
    show(box);
    box.load(line.replace("\r\n", "  "));
    box.setSelStart(static_cast<int>(size / 2));
    QApplication::processEvents();
    while (state.KeepRunning()) {
        press(&box, Qt::Key_X, QStringLiteral("x"));
        box.viewport()->repaint();
    }
}

BENCHMARK(load)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(setText)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(bareComponent)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(loadWestern)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(readText)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(findNothing)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(colourTags, utf8, denseTags(90000))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(colourTags, western, denseTags(90000).replace('x', '\xE9'))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(colourTags, westernOneLine, denseTags(90000).replace('x', '\xE9').replace("\r\n", "  "))
    ->Unit(benchmark::kMillisecond);
BENCHMARK(typeIntoLongLine)->Arg(1)->Arg(10)->Arg(100)->Arg(1024)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
