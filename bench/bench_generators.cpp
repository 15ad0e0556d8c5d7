// A listing page with a description of a million characters: the text builder, a plain append of the page's
// lines, and the copy of the page in one piece, which is the limit. Bytes are counted as characters.

#include "wizard/Generators.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>

namespace {

constexpr qsizetype Megabyte = 1 << 20;

Listing longListing()
{
    const QString words = QStringLiteral("A heavy lamp with a <B>new cord</B> &amp; two bulbs.\r\n");
    Listing listing;
    listing.Text1 = QStringLiteral("Brass lamp");
    listing.Text2 = words.repeated(Megabyte / words.size() + 1).first(Megabyte);
    listing.OptP2 = true;
    listing.List1 = {"PayPal", "Money order"};
    listing.List3 = {"http://pictures.example/1.jpg", "http://pictures.example/2.jpg"};
    listing.TxSH1 = QStringLiteral("12");
    listing.TxSH2 = QStringLiteral("50");
    return listing;
}

PageLook look(const benchmark::State& state)
{
    PageLook look;
    look.style = static_cast<int>(state.range(0));
    return look;
}

void told(benchmark::State& state, const QString& page)
{
    state.SetBytesProcessed(state.iterations() * page.size());
}

void buildPage(benchmark::State& state)
{
    const Listing listing = longListing();
    const PageLook pageLook = look(state);
    QString page;
    for (auto _ : state) {
        page = listingPage(listing, pageLook, {});
        benchmark::DoNotOptimize(page.constData());
    }
    told(state, page);
}

/// The same page from what its lines are: the description is one piece, all else a piece a line.
void appendPieces(benchmark::State& state)
{
    const Listing listing = longListing();
    const QString page = listingPage(listing, look(state), {});
    const qsizetype description = page.indexOf(listing.Text2);
    std::vector<QString> pieces;
    for (const QString& line : page.first(description).split(u'\n'))
        pieces.push_back(line);
    pieces.push_back(listing.Text2);
    for (const QString& line : page.sliced(description + listing.Text2.size()).split(u'\n'))
        pieces.push_back(line);
    for (auto _ : state) {
        QString text;
        for (const QString& piece : pieces)
            text.append(piece);
        benchmark::DoNotOptimize(text.constData());
    }
    told(state, page);
}

void copyPage(benchmark::State& state)
{
    const QString page = listingPage(longListing(), look(state), {});
    for (auto _ : state) {
        QString copy(page.size(), Qt::Uninitialized);
        std::memcpy(copy.data(), page.constData(), static_cast<std::size_t>(page.size()) * sizeof(QChar));
        benchmark::DoNotOptimize(copy.constData());
    }
    told(state, page);
}

BENCHMARK(buildPage)
    ->Name("page of 1 MB/text builder, style")
    ->DenseRange(0, 3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(appendPieces)->Name("page of 1 MB/plain append, style")->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(copyPage)->Name("page of 1 MB/copied, style")->Arg(0)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
