// SPDX-License-Identifier: GPL-3.0-or-later

// The rendering control: how long it takes to show a page and read it back, beside the bare engine doing the
// same through document.write and innerHTML, and beside programs that only parse the page and print it anew;
// and how much memory is in use after many pages. What the engine does with a page after the answer, its
// layout above all, is waited for outside the measured time.
//
// With the argument "versions" it prints what all benchmark programs stand on.

#include "Measure.h"
#include "platform/Files.h"
#include "tests/WebProbe.h"
#include "web/DocumentSurface.h"
#include "web/WebEngine.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <Qsci/qsciglobal.h>
#include <QtWebEngineCore/qtwebenginecoreglobal.h>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <unistd.h>

using namespace brindlemark;

namespace {

const std::vector<Size> Sizes = {{"10 KB", 10'000}, {"100 KB", 100'000}, {"1 MB", 1'000'000}};

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
        open();
    }

    /// `literal`: the page as a JavaScript string.
    QString writeAndRead(const QString& literal)
    {
        run(QStringLiteral("document.open(); document.write(") + literal +
            QStringLiteral("); document.close()"));
        return run(QStringLiteral("document.documentElement.innerHTML")).toString();
    }

    /// The same in a page that no script of the one before has seen.
    QString writeAndReadAnew(const QString& literal)
    {
        open();
        return writeAndRead(literal);
    }

    void settle() { run(Settled); }

private:
    void open()
    {
        QEventLoop loop;
        QObject::connect(&m_view, &QWebEngineView::loadFinished, &loop, &QEventLoop::quit);
        m_view.setHtml(QStringLiteral("<p>"));
        loop.exec();
    }

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
        .replace(u'\n', QStringLiteral("\\n"))
        .replace(u'\r', QStringLiteral("\\r"));
    return u'"' + text + u'"';
}

BareEngine& bareEngine()
{
    static auto* engine = new BareEngine; // ends with the process, after all views
    return *engine;
}

DocumentSurface& surface(DesignMode mode)
{
    static DocumentSurface* browsers[2] = {};
    DocumentSurface*& browser = browsers[mode == DesignMode::On ? 1 : 0];
    if (!browser) {
        browser = new DocumentSurface;
        // As in the main window: somebody tells that it takes long, so that it may.
        QObject::connect(browser, &DocumentSurface::waitsLong, browser, [] {});
        browser->setDesignMode(mode);
        browser->resize(800, 600);
        browser->show();
        require(browser->write(QStringLiteral("x")), "the page did not come");
    }
    return *browser;
}

/// The surface shows its page behind what was asked in the same breath.
void settle(DocumentSurface& browser)
{
    QCoreApplication::processEvents();
    require(probe(browser).evaluate(Settled).has_value(), "the page did not settle");
}

void writeAndRead(DocumentSurface& browser, const QString& html)
{
    require(browser.write(html) && !browser.innerHtml().isEmpty(), "the page did not answer");
}

Repetition onSurface(DesignMode mode, const QString& html)
{
    return [=] {
        const double time = milliseconds([=] { writeAndRead(surface(mode), html); });
        settle(surface(mode));
        return time;
    };
}

Rival engine(const QString& html, const char* name = "engine alone, innerHTML",
             QString (BareEngine::*writeAndRead)(const QString& literal) = &BareEngine::writeAndRead)
{
    return {Role::Limit, name, [literal = literalOf(html), writeAndRead] {
                qsizetype length = 0;
                const double time =
                    milliseconds([&] { length = (bareEngine().*writeAndRead)(literal).size(); });
                require(length > literal.size() / 2, "the engine did not take the page");
                bareEngine().settle();
                return time;
            }};
}

QTemporaryDir& scratch()
{
    static QTemporaryDir folder;
    return folder;
}

/// A program that parses the page and prints it, its own start included. Warnings about the page are no
/// failure.
Rival converter(const QString& program, const QStringList& options, qsizetype size)
{
    const QString file = scratch().filePath(QString::number(size));
    return {Role::Peer, program.toStdString() + ", its start included", timed([=] {
                QProcess process;
                process.setStandardErrorFile(QProcess::nullDevice());
                process.start(program, options + QStringList(file));
                require(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
                            process.exitCode() < 2 && process.readAllStandardOutput().size() >= size / 2,
                        "a converter printed no page; is it installed?");
            })};
}

std::vector<Rival> design(qsizetype size)
{
    const QString html = listing(size);
    writeFile(scratch().filePath(QString::number(size)), html.toUtf8());
    return {{Role::Ours, "design surface", onSurface(DesignMode::On, html)},
            converter(QStringLiteral("tidy"),
                      {"-quiet", "-utf8", "--show-warnings", "no", "--force-output", "yes"}, size),
            converter(QStringLiteral("xmllint"), {"--html", "--nowarning"}, size),
            engine(html)};
}

/// A page as the surface has printed it, which is what each further change of the tab brings.
std::vector<Rival> designAgain(qsizetype size)
{
    DocumentSurface& browser = surface(DesignMode::On);
    writeAndRead(browser, listing(size));
    const QString html = browser.innerHtml();
    return {{Role::Ours, "design surface", onSurface(DesignMode::On, html)}, engine(html)};
}

std::vector<Rival> preview(qsizetype size)
{
    const QString html = listing(size);
    return {{Role::Ours, "preview", onSurface(DesignMode::Off, html)},
            engine(html),
            engine(html, "engine alone, a new page each time", &BareEngine::writeAndReadAnew)};
}

/// The beginnings of tables, one in a cell of the other.
void measureNesting()
{
    const QString html = QStringLiteral("<table><tr><td>").repeated(1000) + QStringLiteral("deep");
    measure({"Hostile pages",
             "Design surface, 1,000 tables in each other",
             {.most = 5000},
             {{Role::Ours, "design surface", onSurface(DesignMode::On, html)}, engine(html)}});
}

/// The memory of this process and its children that no other shares, in MB.
double memoryInUse()
{
    double kilobytes = 0;
    const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")});
    for (const QString& process : processes) {
        QFile rollup(QStringLiteral("/proc/%1/smaps_rollup").arg(process));
        QFile environment(QStringLiteral("/proc/%1/environ").arg(process));
        if (!environment.open(QIODevice::ReadOnly) || !rollup.open(QIODevice::ReadOnly))
            continue;
        if (process.toLatin1() != own && !environment.readAll().contains("BENCH_SURFACE=" + own))
            continue;
        for (const QByteArray& line : rollup.readAll().split('\n')) {
            if (line.startsWith("Pss:"))
                kilobytes += line.mid(4).trimmed().split(' ').first().toDouble();
        }
    }
    return kilobytes / 1024;
}

/// What 50 more pages of 1 MB leave behind. The engine throws old pages away in its own time, so the lowest
/// of ten pages is told. The surface isn't shown, as the wizard's engine: painting would take most of the
/// time.
void measureMemory()
{
    DocumentSurface browser;
    browser.setDesignMode(DesignMode::On);
    const QString html = listing(1'000'000);
    const auto lowestOfTen = [&] {
        double lowest = std::numeric_limits<double>::max();
        for (int page = 0; page < 10; ++page) {
            writeAndRead(browser, html);
            lowest = std::min(lowest, memoryInUse());
        }
        return lowest;
    };
    lowestOfTen();
    const double early = lowestOfTen();
    for (int pages = 20; pages < 60; pages += 10)
        lowestOfTen();
    const double late = lowestOfTen();
    measure({"Surface",
             "Memory after 70 pages of 1 MB, all processes",
             {.timesPeer = 1.1},
             {{Role::Ours, "design surface", [=] { return late; }},
              {Role::Peer, "the same after 20 pages", [=] { return early; }}},
             "MB",
             true});
}

void printVersions()
{
    std::printf("Qt\t%s\n", qVersion());
    std::printf("Engine\tQt WebEngine %s, Chromium %s\n", qWebEngineVersion(), qWebEngineChromiumVersion());
    std::printf("QScintilla\t%s\n", QSCINTILLA_VERSION_STR);
    std::printf("Compiler\tGCC %s\n", __VERSION__);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "versions") == 0) {
        printVersions();
        return 0;
    }
    qputenv("BENCH_SURFACE", QByteArray::number(getpid())); // marks the engine's processes as ours
    prepareWebEngine();
    const QApplication application(argc, argv);
    measureGrowth("Design surface, written and read", {.timesLimit = 1.2}, Sizes, design);
    measureGrowth("Design surface, its own page again", {.timesLimit = 1.2}, Sizes, designAgain);
    measureGrowth("Preview, written and read", {.timesLimit = 1.2}, Sizes, preview);
    measureNesting();
    measureMemory();
    return 0;
}
