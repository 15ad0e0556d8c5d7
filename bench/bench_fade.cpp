// The fade engine on the longest text that it takes, beside a plain loop that formats each character with the
// standard streams; and the fader's window while a colour bar is dragged.

#include "MainWindowBench.h"
#include "colour/ColorSample.h"
#include "colour/Fade.h"
#include "colour/Fader5.h"
#include "services/Codes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <array>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace {

constexpr int Longest = 32767;
constexpr std::array<int, 5> Colors = {0x0000FF, 0x00FFFF, 0x00FF00, 0xFF8000, 0xFF00FF};

QString text(int length)
{
    return QStringLiteral("Old wall clock, it keeps time & chimes. ").repeated(length / 40 + 1).left(length);
}

QString fade(const QString& words)
{
    return FadeFive(Colors[0], Colors[1], Colors[2], Colors[3], Colors[4], words, true);
}

/// The same page as a first draft would make it.
std::string streamed(const std::string& words)
{
    constexpr std::array<const char*, 4> waves = {"<sup>", "</sup>", "<sub>", "</sub>"};
    std::ostringstream html;
    size_t position = 0;
    size_t wave = 0;
    for (size_t part = 0; part < 4; ++part) {
        const Channels from = splitColor(Colors.at(part));
        const Channels to = splitColor(Colors.at(part + 1));
        const int n = int((words.size() + 3 - part) / 4);
        const auto step = [n](int a, int b, int i) {
            return int(std::nearbyint(i * (double(b - a) / n) + a));
        };
        for (int i = 1; i <= n; ++i) {
            html << "<Font Color=\"#" << std::uppercase << std::hex << std::setfill('0') << std::setw(2)
                 << step(from.red, to.red, i) << std::setw(2) << step(from.green, to.green, i) << std::setw(2)
                 << step(from.blue, to.blue, i) << "\">" << waves.at(wave++ % 4) << words[position++]
                 << "</Font>";
        }
    }
    return html.str();
}

void fadeFive(benchmark::State& state)
{
    const QString words = text(Longest);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(fade(words));
    if (fade(words).toStdString() != streamed(words.toStdString()))
        state.SkipWithError("the two differ");
}

void streams(benchmark::State& state)
{
    const std::string words = text(Longest).toStdString();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(streamed(words));
}

/// One step of a drag: the row's handlers, up to the page that the sample is given. The engine works beside
/// it, and whatever it had no time for is left out.
void dragStep(benchmark::State& state)
{
    auto* tool = form<Fader5>();
    tool->Show();
    tool->Opt3->setValue(true);
    tool->Text1->setPlainText(text(1000));
    QApplication::processEvents();
    int value = 0;
    while (state.KeepRunning()) {
        value = (value + 1) % 256;
        tool->RedC->setValue(value);
        QApplication::processEvents();
    }
    tool->Unload();
}

/// The time between two states of the sample that reach the eye, in a drag that never rests.
void refresh(benchmark::State& state)
{
    auto* tool = form<Fader5>();
    tool->Show();
    tool->Opt3->setValue(true);
    tool->Text1->setPlainText(text(1000));
    tool->WebBrowser1->innerHtml(); // the page is there
    while (state.KeepRunning()) {
        tool->WebBrowser1->evaluate(
            QStringLiteral("globalThis.pages = 0; const open = Document.prototype.open;"
                           "Document.prototype.open = function () { ++pages; return open.call(this) }"));
        QElapsedTimer clock;
        clock.start();
        for (int steps = 0; clock.elapsed() < 1000; ++steps) {
            tool->RedC->setValue(steps % 256);
            QApplication::processEvents();
        }
        const double pages = tool->WebBrowser1->evaluate(QStringLiteral("pages")).value_or(0).toDouble();
        state.SetIterationTime(1 / pages);
    }
    tool->Unload();
}

BENCHMARK(fadeFive)->Name("FadeFive, 32,767 characters")->Unit(benchmark::kMillisecond);
BENCHMARK(streams)->Name("FadeFive, 32,767 characters/with streams")->Unit(benchmark::kMillisecond);
BENCHMARK(dragStep)->Name("Fader, step of a dragged bar, 1,000 characters")->Unit(benchmark::kMillisecond);
BENCHMARK(refresh)
    ->Name("Fader, between refreshes of a drag, 1,000 characters")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    return runWithMainWindow(argc, argv);
}
