// A word added to a list of 1,000, and the character window: how long until it is up, and until it shows
// another font.

#include "MainWindowBench.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"

#include <QApplication>

namespace {

/// What stands between the click on Add and the next key: the list made anew and the sample told of it.
void addToList(benchmark::State& state)
{
    auto* list = form<FrmList>();
    list->Show();
    list->WebBrowser1->innerHtml(); // the engine is there
    for (int i = 0; i < 1000; ++i) {
        list->Text1->setText(QStringLiteral("Word number %1").arg(i));
        list->Command1->click();
    }
    while (state.KeepRunning()) {
        list->Text1->setText(QStringLiteral("one more"));
        list->Command1->click();
    }
    list->Unload();
    QApplication::processEvents();
}

void addToSymbolList(benchmark::State& state)
{
    auto* list = form<FrmList2>();
    list->Show();
    list->WebBrowser1->innerHtml();
    for (int i = 0; i < 1000; ++i)
        list->List1->AddItem(QStringLiteral("Word number %1").arg(i));
    while (state.KeepRunning()) {
        list->Text1->setText(QStringLiteral("one more"));
        list->Command3->click();
    }
    list->Unload();
    QApplication::processEvents();
}

void openCharacters(benchmark::State& state)
{
    while (state.KeepRunning()) {
        form<FrmChar>()->Show();
        QApplication::processEvents();
        state.PauseTiming();
        form<FrmChar>()->Unload();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void changeFont(benchmark::State& state)
{
    auto* characters = form<FrmChar>();
    characters->Show();
    QApplication::processEvents();
    int index = 0;
    while (state.KeepRunning()) {
        index = (index + 1) % characters->Combo1->ListCount();
        characters->Combo1->setListIndex(index);
        QApplication::processEvents();
    }
    characters->Unload();
    QApplication::processEvents();
}

BENCHMARK(addToList)->Name("List of 1,000 words, Add")->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(addToSymbolList)
    ->Name("Special list of 1,000 words, Add it")
    ->Iterations(200)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(openCharacters)->Name("Character window, opened")->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(changeFont)->Name("Character window, another font")->Iterations(50)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    return runWithMainWindow(argc, argv);
}
