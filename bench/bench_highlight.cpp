// Highlighting 90,000 characters of dense tags: the whole handler, profile reads included, and the bare
// component colouring the same ranges through its lexer-less styling calls.

#include "platform/AppPath.h"
#include "platform/RichTextBox.h"
#include "platform/WebEngine.h"
#include "shell/Highlight.h"

#include <QApplication>
#include <Qsci/qsciscintilla.h>
#include <benchmark/benchmark.h>

namespace {

/// Listing-like HTML with a tag, a quoted value or a comment in every few characters.
QByteArray denseTags(qsizetype length)
{
    QByteArray text;
    while (text.size() < length)
        text +=
            "<TD width=\"40%\" bgColor=\"#ffeecc\"><FONT face=\"Arial\">Words</FONT><!-- note --></TD>\r\n";
    text.truncate(length);
    return text;
}

const HighlightColors Colors = {
    .tags = 0xC00000, .values = 0x1515A3, .comments = 0x1A6B00, .scripts = 0x0A8CFF, .text = 0};

void highlightBox(benchmark::State& state)
{
    RichTextBox box;
    box.resize(900, 600);
    box.show();
    box.load(denseTags(state.range(0)));
    for (auto _ : state)
        highlight(box, Colors);
}

/// The same ranges coloured by the component's own search and styling, without notifications.
void highlightBare(benchmark::State& state)
{
    QsciScintilla box;
    box.resize(900, 600);
    box.show();
    box.setText(QString::fromLatin1(denseTags(state.range(0))));
    const char* const passes[][2] = {{"<", ">"}, {"=\"", "\""}, {"<!--", "-->"}, {"<SCRIPT", "</SCRIPT>"}};
    const auto find = [&box](const char* text, long from) {
        box.SendScintilla(QsciScintilla::SCI_SETTARGETSTART, static_cast<unsigned long>(from));
        box.SendScintilla(QsciScintilla::SCI_SETTARGETEND, box.SendScintilla(QsciScintilla::SCI_GETLENGTH));
        return box.SendScintilla(QsciScintilla::SCI_SEARCHINTARGET, strlen(text), text);
    };
    for (auto _ : state) {
        int indicator = 8;
        for (const auto& pass : passes) {
            box.SendScintilla(QsciScintilla::SCI_SETINDICATORCURRENT, indicator++);
            for (long open = find(pass[0], 0); open >= 0; open = find(pass[0], open + 1)) {
                const long close = find(pass[1], open + 2);
                if (close >= open)
                    box.SendScintilla(QsciScintilla::SCI_INDICATORFILLRANGE, static_cast<unsigned long>(open),
                                      close - open + 1);
            }
        }
    }
}

BENCHMARK(highlightBox)
    ->Name("highlight 90,000 characters/source box")
    ->Arg(90000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(highlightBare)
    ->Name("highlight 90,000 characters/bare component")
    ->Arg(90000)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    prepareWebEngine();
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
