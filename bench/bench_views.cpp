// How long a surface takes to show a page and read it back, beside the bare engine doing the same through
// document.write and innerHTML, and how much memory is in use after many pages. What the engine does with a
// page after the answer, its layout above all, is waited for outside the measured time, for both alike.

#include "platform/WebBrowser.h"
#include "platform/WebEngine.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <limits>
#include <unistd.h>

namespace {

/// A listing's markup, `size` characters or a little more.
QString listing(qsizetype size)
{
    QString html = QStringLiteral("<html><head><title>Lamp</title></head><body bgcolor=#ffffcc>\n");
    for (int row = 1; html.size() < size; ++row) {
        html += QStringLiteral(
                    "<table border=1 width=\"90%\" cellpadding=2><tr><td align=center bgcolor=\"#ffcc00\">"
                    "<font face=\"Arial\" size=2 color=#ff0000><b>Item %1</b></font></td><td>A fine old "
                    "<i>lamp</i> &amp; shade,&nbsp;in good order. <a href='http://x.example/?a=%1&b=2'>see "
                    "here</a><br>It was made about 1920 and has been in the family since.</td></tr></table>\n"
                    "<!-- row %1 --><p>Some words about postage and payment, as such pages have them.\n")
                    .arg(row);
    }
    return html;
}

/// A question that is answered when the page is laid out.
const QString Settled = QStringLiteral("document.documentElement.offsetHeight");

/// The engine without the control: what a program would do that wanted no more than the text.
class BareEngine
{
public:
    BareEngine()
    {
        m_view.resize(800, 600);
        m_view.show();
        QEventLoop loop;
        QObject::connect(&m_view, &QWebEngineView::loadFinished, &loop, &QEventLoop::quit);
        m_view.setHtml(QStringLiteral("<p>"));
        loop.exec();
    }

    /// `literal`: the page as a JavaScript string.
    QString writeAndRead(const QString& literal)
    {
        run(QStringLiteral("document.open(); document.write(") + literal +
            QStringLiteral("); document.close()"));
        return run(QStringLiteral("document.documentElement.innerHTML")).toString();
    }

    void settle() { run(Settled); }

private:
    QVariant run(const QString& script)
    {
        QEventLoop loop;
        QVariant answer;
        m_view.page()->runJavaScript(script, [&](const QVariant& value) {
            answer = value;
            loop.quit();
        });
        loop.exec();
        return answer;
    }

    QWebEngineView m_view;
};

QString literalOf(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'"', QStringLiteral("\\\""))
        .replace(u'\n', QStringLiteral("\\n"));
    return u'"' + text.replace(u'\r', QStringLiteral("\\r")) + u'"';
}

BareEngine& bareEngine()
{
    static BareEngine* engine = new BareEngine; // ends with the process, after all views
    return *engine;
}

WebBrowser& surface(DesignMode mode)
{
    static WebBrowser* browsers[2] = {};
    WebBrowser*& browser = browsers[mode == DesignMode::On ? 1 : 0];
    if (!browser) {
        browser = new WebBrowser;
        browser->setDesignMode(mode);
        browser->resize(800, 600);
        browser->show();
        browser->write(QStringLiteral("x"));
    }
    return *browser;
}

void bare(benchmark::State& state)
{
    const QString literal = literalOf(listing(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(bareEngine().writeAndRead(literal));
    bareEngine().settle();
}

void settle(WebBrowser& browser)
{
    QCoreApplication::processEvents(); // the surface shows its page behind what was asked in the same breath
    browser.evaluate(Settled);
}

void writeAndRead(benchmark::State& state, DesignMode mode, bool asReadBack)
{
    WebBrowser& browser = surface(mode);
    QString html = listing(state.range(0));
    if (asReadBack) {
        browser.write(html);
        html = browser.innerHtml();
        settle(browser);
    }
    for (auto _ : state) {
        if (!browser.write(html) || browser.innerHtml().isEmpty())
            state.SkipWithError("the page did not answer");
    }
    settle(browser);
}

void design(benchmark::State& state)
{
    writeAndRead(state, DesignMode::On, false);
}

void designAgain(benchmark::State& state)
{
    writeAndRead(state, DesignMode::On, true);
}

void preview(benchmark::State& state)
{
    writeAndRead(state, DesignMode::Off, false);
}

/// The memory of this process and its children that no other shares, in MB.
double memoryInUse()
{
    double kilobytes = 0;
    const QString own = QString::number(QCoreApplication::applicationPid());
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")});
    for (const QString& process : processes) {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(process));
        QFile rollup(QStringLiteral("/proc/%1/smaps_rollup").arg(process));
        QFile environment(QStringLiteral("/proc/%1/environ").arg(process));
        if (!environment.open(QIODevice::ReadOnly) || !rollup.open(QIODevice::ReadOnly))
            continue;
        if (process != own && !environment.readAll().contains("BENCH_VIEWS=" + own.toLatin1()))
            continue;
        for (const QByteArray& line : rollup.readAll().split('\n')) {
            if (line.startsWith("Pss:"))
                kilobytes += line.mid(4).trimmed().split(' ').first().toDouble();
        }
    }
    return kilobytes / 1024;
}

/// What 200 pages of 1 MB leave behind: the memory in use after 20 and after 200. The engine throws old pages
/// away in its own time, so the lowest of the ten pages up to there is told. The surface isn't shown, as the
/// wizard's engine: painting would take most of the time.
void memory(benchmark::State& state)
{
    WebBrowser browser;
    browser.setDesignMode(DesignMode::On);
    const QString html = listing(1'000'000);
    const auto lowestOfTen = [&] {
        double lowest = std::numeric_limits<double>::max();
        for (int page = 0; page < 10; ++page) {
            if (!browser.write(html) || browser.innerHtml().isEmpty())
                state.SkipWithError("the page did not answer");
            lowest = std::min(lowest, memoryInUse());
        }
        return lowest;
    };
    for (auto _ : state) {
        lowestOfTen();
        state.counters["MB_after_20"] = lowestOfTen();
        for (int pages = 20; pages < 190; pages += 10)
            lowestOfTen();
        state.counters["MB_after_200"] = lowestOfTen();
    }
}

constexpr int Ten = 10; // runs, of which the median is told

#define MEDIAN                                                                                               \
    Iterations(1)->Repetitions(Ten)->ReportAggregatesOnly()->UseRealTime()->Unit(benchmark::kMillisecond)

BENCHMARK(bare)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->MEDIAN;
BENCHMARK(design)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->MEDIAN;
BENCHMARK(designAgain)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->MEDIAN;
BENCHMARK(preview)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->MEDIAN;
BENCHMARK(memory)->Iterations(1)->Repetitions(1)->UseRealTime()->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("BENCH_VIEWS", QByteArray::number(getpid())); // marks the engine's processes as ours
    prepareWebEngine();
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
