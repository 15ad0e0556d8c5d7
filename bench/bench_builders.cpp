// SPDX-License-Identifier: GPL-3.0-or-later

// What makes HTML: the table designer and the two list tools by the number of rows and words, the wizard's
// page, the fade engine, all beside a plain append of the same text to a std::string; the fader under a
// dragged bar; and the character window.

#include "MainWindow.h"
#include "Measure.h"
#include "builders/FrmAddTable.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmTable.h"
#include "colour/Fade.h"
#include "colour/Fader5.h"
#include "colour/FixedInterfaces.h"
#include "services/Codes.h"
#include "tests/WebProbe.h"
#include "wizard/Generators.h"

#include <QElapsedTimer>
#include <array>
#include <cmath>
#include <cstring>
#include <iomanip>
#include <sstream>

using namespace brindlemark;

namespace {

const std::vector<Size> Counts = {{"1", 1}, {"10", 10}, {"100", 100}, {"1,000", 1000}, {"10,000", 10'000}};

/// The copy of a text in one piece, which is the limit of whatever makes it.
Rival copyOf(const QString& text)
{
    return {Role::Limit, "memory copy of the text", batched([text] {
                QString copy(text.size(), Qt::Uninitialized);
                std::memcpy(copy.data(), text.constData(), size_t(text.size()) * sizeof(QChar));
                keep(copy);
            })};
}

/// The pieces of a text, one after the other, in a std::string.
Rival appendOf(const QString& text, const QString& end)
{
    std::vector<std::string> pieces;
    for (const QString& piece : text.split(end))
        pieces.push_back((piece + end).toStdString());
    return {Role::Peer, "std::string, lines appended", batched([pieces] {
                std::string all;
                for (const std::string& piece : pieces)
                    all += piece;
                keep(all);
            })};
}

const QString CrLf = QStringLiteral("\r\n");

QString word(qsizetype number)
{
    return QStringLiteral("Word number %1").arg(number);
}

// ---- Tables and lists, by their length -------------------------------------------------------------------

/// What one step of a dragged bar does before the hand can go on: all rows restyled, the table made, the
/// sample told.
std::vector<Rival> restyle(qsizetype rows)
{
    auto* table = form<FrmTable>();
    table->List1->Clear();
    table->List2->Clear();
    for (qsizetype i = 0; i < rows; ++i) {
        table->List1->AddItem(word(i));
        table->List2->AddItem(i % 3 ? QStringLiteral("a value") : QString());
    }
    table->restyle();
    const QString text = table->html;
    require(text.count(QStringLiteral("<TR>")) == rows, "another number of rows");
    return {
        {Role::Ours, "designer", timed([table] { table->restyle(); })}, appendOf(text, CrLf), copyOf(text)};
}

/// The last of so many words is added: the list made anew and the sample told.
std::vector<Rival> addToList(qsizetype words)
{
    auto* list = form<FrmList>();
    list->List1->Clear();
    list->items.clear();
    for (qsizetype i = 1; i < words; ++i) {
        list->List1->AddItem(word(i));
        list->items += listItem(word(i), {});
    }
    const auto prepare = [list, words] {
        while (list->List1->ListCount() >= words) {
            list->List1->RemoveItem(list->List1->ListCount() - 1);
            list->items.removeLast();
        }
        list->Text1->setText(QStringLiteral("one more"));
    };
    prepare();
    list->Command1->click();
    const QString text = list->html;
    require(text.count(QStringLiteral("<li>")) == words, "another number of words");
    return {{Role::Ours, "button Add", timed([list] { list->Command1->click(); }, prepare)},
            appendOf(text, CrLf),
            copyOf(text)};
}

/// The same in the list of special characters.
std::vector<Rival> addToSymbolList(qsizetype words)
{
    auto* list = form<FrmList2>();
    list->List1->Clear();
    for (qsizetype i = 1; i < words; ++i)
        list->List1->AddItem(word(i));
    const auto prepare = [list, words] {
        while (list->List1->ListCount() >= words)
            list->List1->RemoveItem(list->List1->ListCount() - 1);
        list->Text1->setText(QStringLiteral("one more"));
    };
    prepare();
    list->Command3->click();
    const QString text = list->html;
    require(text.count(QStringLiteral("<BR>")) >= words, "another number of words");
    return {{Role::Ours, "button Add it", timed([list] { list->Command3->click(); }, prepare)},
            appendOf(text, CrLf),
            copyOf(text)};
}

/// An empty table of ten columns into the source box.
std::vector<Rival> skeleton(qsizetype rows)
{
    RichTextBox& source = *form<FrmWeb>()->RichTextBox1;
    const auto prepare = [&source, rows] {
        source.load(QByteArray());
        form<FrmAddTable>()->txtRows->setText(QString::number(rows));
        form<FrmAddTable>()->txtColls->setText(QStringLiteral("10"));
    };
    prepare();
    form<FrmAddTable>()->Command1->click();
    const QString text = QString::fromUtf8(source.Text());
    return {{Role::Ours, "button OK",
             timed([] { form<FrmAddTable>()->Command1->click(); }, prepare,
                   [&source, rows] { return source.Text().count("<TD>") == rows * 10; })},
            appendOf(text, CrLf),
            copyOf(text)};
}

struct Operation
{
    const char* name;
    std::vector<Rival> (*rivals)(qsizetype count);
    Target target;
};

const Operation Operations[] = {
    {"Table designer, step of a drag, rows", restyle, {.most = 16}},
    {"List, a word added, words", addToList, {.most = 16}},
    {"List of special characters, a word added, words", addToSymbolList, {.most = 16}},
    {"Empty table of 10 columns, rows", skeleton, {.most = 16}},
};

/// Waits until the engine is there and shows what it was given.
void awaitPage(Sample* sample)
{
    while (WebProbe::isWriting(*sample))
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    require(probe(sample).evaluate(QStringLiteral("1")).has_value(), "the engine did not answer");
}

void measureTools()
{
    for (ToolForm* tool :
         std::initializer_list<ToolForm*>{form<FrmTable>(), form<FrmList>(), form<FrmList2>()})
        tool->Show();
    awaitPage(form<FrmTable>()->WebBrowser1);
    awaitPage(form<FrmList>()->WebBrowser1);
    awaitPage(form<FrmList2>()->WebBrowser1);
    for (const Operation& operation : Operations)
        measureGrowth(operation.name, operation.target, Counts, operation.rivals);
    form<FrmTable>()->Unload();
    form<FrmList>()->Unload();
    form<FrmList2>()->Unload();
    form<FrmWeb>()->RichTextBox1->load(QByteArray());
    QApplication::processEvents();
}

// ---- The wizard's page -----------------------------------------------------------------------------------

/// With a description of a million characters.
Listing longListing()
{
    const QString words = QStringLiteral("A heavy lamp with a <B>new cord</B> &amp; two bulbs.\r\n");
    Listing listing;
    listing.title = QStringLiteral("Brass lamp");
    listing.description = words.repeated(1'000'000 / words.size());
    listing.withPictures = true;
    listing.payments = {"PayPal", "Money order"};
    listing.pictures = {"http://pictures.example/1.jpg", "http://pictures.example/2.jpg"};
    listing.shippingDollars = QStringLiteral("12");
    listing.shippingCents = QStringLiteral("50");
    return listing;
}

/// Beside a text to which the page's pieces are appended: the description is one piece, all else a piece a
/// line.
void measurePage(int style)
{
    const Listing listing = longListing();
    PageLook look;
    look.style = style;
    const QString page = listingPage(listing, look, {});
    const qsizetype description = page.indexOf(listing.description);
    QStringList pieces = page.first(description).split(CrLf);
    pieces += listing.description;
    pieces += page.sliced(description + listing.description.size()).split(CrLf);
    measure({"HTML text",
             "Listing page of 1 MB, style " + std::to_string(style),
             {.timesPeer = 1.5},
             {{Role::Ours, "text builder", batched([=] { keep(listingPage(listing, look, {})); })},
              {Role::Peer, "QString, pieces appended", batched([pieces] {
                   QString all;
                   for (const QString& piece : pieces)
                       all += piece;
                   keep(all);
               })},
              copyOf(page)}});
}

// ---- Fades -----------------------------------------------------------------------------------------------

constexpr std::array<int, 5> Colors = {0x0000FF, 0x00FFFF, 0x00FF00, 0xFF8000, 0xFF00FF};

QString words(int length)
{
    return QStringLiteral("Old wall clock, it keeps time & chimes. ").repeated(length / 40 + 1).left(length);
}

QString fade(const QString& text)
{
    return FadeFive(Colors[0], Colors[1], Colors[2], Colors[3], Colors[4], text, true);
}

/// The same page as a first draft would make it.
std::string streamed(const std::string& text)
{
    constexpr std::array<const char*, 4> waves = {"<sup>", "</sup>", "<sub>", "</sub>"};
    std::ostringstream html;
    size_t position = 0;
    size_t wave = 0;
    for (size_t part = 0; part < 4; ++part) {
        const Channels from = splitColor(Colors.at(part));
        const Channels to = splitColor(Colors.at(part + 1));
        const int n = int((text.size() + 3 - part) / 4);
        const auto step = [n](int a, int b, int i) {
            return int(std::nearbyint(i * (double(b - a) / n) + a));
        };
        for (int i = 1; i <= n; ++i) {
            html << "<Font Color=\"#" << std::uppercase << std::hex << std::setfill('0') << std::setw(2)
                 << step(from.red, to.red, i) << std::setw(2) << step(from.green, to.green, i) << std::setw(2)
                 << step(from.blue, to.blue, i) << "\">" << waves.at(wave++ % 4) << text[position++]
                 << "</Font>";
        }
    }
    return html.str();
}

void measureFade()
{
    const QString text = words(32767); // the longest that it takes
    const std::string bytes = text.toStdString();
    require(fade(text).toStdString() == streamed(bytes), "the two fades differ");
    measure({"HTML text",
             "Fade of five colors, 32,767 characters",
             {.most = 100, .timesPeer = 1},
             {{Role::Ours, "FadeFive", batched([text] { keep(fade(text)); })},
              {Role::Peer, "std::ostringstream", batched([bytes] { keep(streamed(bytes)); })},
              copyOf(fade(text))}});
}

/// One step of a drag: the row's handlers, up to the page that the sample is given. And the time between two
/// states of the sample that reach the eye, in a drag that never rests.
void measureFader()
{
    auto* tool = form<Fader5>();
    tool->Show();
    tool->Opt3->setValue(true);
    tool->Text1->setPlainText(words(1000));
    Sample* sample = tool->WebBrowser1;
    awaitPage(sample);
    auto step = [tool, value = 0]() mutable {
        value = (value + 1) % 256;
        tool->RedC->setValue(value);
        QApplication::processEvents();
    };
    measure({"Tools",
             "Fader, step of a dragged bar, 1,000 characters",
             {.most = 16},
             {{Role::Ours, "bar", timed(step)}}});
    const auto refresh = [sample, step]() mutable {
        const auto counts = probe(sample).evaluate(
            QStringLiteral("globalThis.pages = 0; const open = Document.prototype.open;"
                           "Document.prototype.open = function () { ++pages; return open.call(this) }"));
        require(counts.has_value(), "the sample did not answer");
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 500)
            step();
        return 500 / probe(sample).evaluate(QStringLiteral("pages")).value_or(0).toDouble();
    };
    measure({"Tools",
             "Fader, between refreshes of a drag, 1,000 characters",
             {.most = 100},
             {{Role::Ours, "sample", refresh}}});
    tool->Unload();
    QApplication::processEvents();
}

void measureCharacters()
{
    const auto show = [] {
        form<FrmChar>()->Show();
        QApplication::processEvents();
    };
    const auto unload = [] {
        form<FrmChar>()->Unload();
        QApplication::processEvents();
    };
    measure(
        {"Tools", "Character window, opened", {.most = 100}, {{Role::Ours, "window", timed(show, unload)}}});
    measure({"Tools",
             "Character window, another font",
             {.most = 100},
             {{Role::Ours, "window", timed([index = 0]() mutable {
                   auto* fonts = form<FrmChar>()->Combo1;
                   index = (index + 1) % fonts->ListCount();
                   fonts->setListIndex(index);
                   QApplication::processEvents();
               })}}});
    unload();
}

void run()
{
    measureTools();
    for (int style = 0; style < 4; ++style)
        measurePage(style);
    measureFade();
    measureFader();
    measureCharacters();
}

} // namespace

int main(int argc, char* argv[])
{
    return withMainWindow(argc, argv, run);
}
