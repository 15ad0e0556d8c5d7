// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "builders/CharMap.h"
#include "builders/FrmAddTable.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "colour/Fader5.h"
#include "colour/FrmBody.h"
#include "colour/FrmColorcode.h"
#include "colour/FrmFonts.h"
#include "colour/FrmHR.h"
#include "shell/Find.h"
#include "shell/FrmPop.h"
#include "shell/FrmWord.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"

#include <QApplication>

using namespace brindlemark;

namespace {

/// A window of a tool, as its toolbar button shows it.
template <typename F>
F* opened()
{
    form<F>()->Show();
    if (!QTest::qWaitForWindowExposed(form<F>(), Patience))
        QTest::qFail("the tool does not come up", __FILE__, __LINE__);
    return form<F>();
}

/// What is left to do in a tool that is ready.
using Press = std::function<void()>;

Press presses(QAbstractButton* button)
{
    return [button = QPointer(button)] {
        if (button)
            click(button);
    };
}

Press fader(MainWindow&)
{
    auto* fader = opened<Fader5>();
    overtype(fader->Text1, QStringLiteral("faded"));
    return presses(fader->Command2);
}

Press faderOpenedLater(MainWindow&)
{
    return [] { opened<Fader5>(); };
}

Press faderDescriptions(MainWindow&)
{
    auto* fader = opened<Fader5>();
    return [fader] { fader->Command15_Click(); };
}

Press rule(MainWindow&)
{
    return presses(opened<FrmHR>()->Command6);
}

Press body(MainWindow&)
{
    auto* body = opened<FrmBody>();
    tick(body->Check2);
    return presses(body->Command1);
}

Press colorCode(MainWindow&)
{
    return presses(opened<FrmColorcode>()->Command4);
}

Press picture(MainWindow&)
{
    auto* picture = opened<Pics>();
    overtype(picture->Text1, QStringLiteral("x.gif"));
    return presses(picture->Command4);
}

Press table(MainWindow&)
{
    auto* table = opened<FrmTable>();
    overtype(table->Text1, QStringLiteral("left"));
    overtype(table->Text2, QStringLiteral("right"));
    click(table->Command4);
    return presses(table->Command2);
}

Press newTable(MainWindow&)
{
    auto* table = opened<FrmAddTable>();
    overtype(table->txtRows, QStringLiteral("2"));
    overtype(table->txtColls, QStringLiteral("3"));
    return presses(table->Command1);
}

FrmList* list()
{
    auto* list = opened<FrmList>();
    overtype(list->Text1, QStringLiteral("word"));
    click(list->Command1);
    return list;
}

Press listAdd(MainWindow&)
{
    return presses(list()->Command6);
}

Press listFont(MainWindow&)
{
    click(list()->Command21);
    return presses(opened<FrmFonts>()->Command1);
}

FrmList2* characterList()
{
    auto* list = opened<FrmList2>();
    overtype(list->Text1, QStringLiteral("word"));
    click(list->Command3);
    return list;
}

Press characterListAdd(MainWindow&)
{
    return presses(characterList()->Command12);
}

Press characterListCharacter(MainWindow&)
{
    click(characterList()->Command1);
    auto* characters = opened<FrmChar>();
    QTest::mouseClick(characters->CharC, Qt::LeftButton, {}, characters->CharC->cellRect(40).center());
    return presses(characters->Command1);
}

Press quickWords(MainWindow& window)
{
    window.folder.write(QStringLiteral("Quick.ini"), "phrase\r\nanother\r\n");
    auto* words = opened<FrmWord>();
    words->List1->selectAll();
    return presses(words->Command4);
}

FrmBuild2* page2()
{
    auto* page1 = opened<FrmBuild1>();
    page1->Text1->setText(QStringLiteral("Old lamp"));
    page1->Text2->setPlainText(QStringLiteral("A fine old lamp."));
    page1->ChKPay5->setValue(1);
    page1->TxSH1->setText(QStringLiteral("5"));
    click(page1->Command1);
    return opened<FrmBuild2>();
}

Press listingToTheEditor(MainWindow& window)
{
    window.web->highlighted = true;
    return presses(page2()->Command23);
}

Press listingToThePreview(MainWindow&)
{
    return presses(page2()->Command24);
}

Press terms(MainWindow&)
{
    openTerms(0);
    return presses(opened<FrmTerms>()->Command14);
}

template <QPushButton* Ui_Find::*Button>
Press find(MainWindow& window)
{
    window.press(Tool::Find);
    auto* find = opened<Find>();
    overtype(find->Text1->lineEdit(), QStringLiteral("Body"));
    overtype(find->Text2->lineEdit(), QStringLiteral("Leg"));
    return presses(find->*Button);
}

Press findAgain(MainWindow& window)
{
    window.press(Tool::Find);
    opened<Find>()->Unload();
    return [] { opened<Find>(); };
}

Press parts(MainWindow&)
{
    return [] {
        for (QMenu* menu : {&form<FrmPop>()->mucell, &form<FrmPop>()->mulistpopup, &form<FrmPop>()->mubody}) {
            for (QAction* entry : menu->actions())
                entry->trigger();
        }
    };
}

/// All that reaches for the main window from a window of its own.
struct Tried
{
    const char* name;
    Press (*prepare)(MainWindow& window);
};

constexpr Tried AllTried[] = {
    {"fader", fader},
    {"fader that is opened then", faderOpenedLater},
    {"fader, descriptions", faderDescriptions},
    {"rule", rule},
    {"body", body},
    {"colour code", colorCode},
    {"picture", picture},
    {"table designer", table},
    {"new table", newTable},
    {"list", listAdd},
    {"font of a list", listFont},
    {"character list", characterListAdd},
    {"character of a list", characterListCharacter},
    {"quick words", quickWords},
    {"listing, editor", listingToTheEditor},
    {"listing, preview", listingToThePreview},
    {"terms", terms},
    {"find", find<&Ui_Find::Command8>},
    {"find next", find<&Ui_Find::Command3>},
    {"replace", find<&Ui_Find::Command7>},
    {"replace all", find<&Ui_Find::Command6>},
    {"find that is opened then", findAgain},
    {"parts of a listing", parts},
};

bool isThereAMainWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return isLoaded<FrmWeb>() || std::any_of(windows.begin(), windows.end(), [](QWidget* window) {
               return qobject_cast<FrmWeb*>(window) != nullptr;
           });
}

} // namespace

/// Windows of tools that are still there when the main window has gone.
class TestGone : public QObject
{
    Q_OBJECT

private slots:
    void noToolMakesAnotherMainWindow_data();
    void noToolMakesAnotherMainWindow();
};

void TestGone::noToolMakesAnotherMainWindow_data()
{
    QTest::addColumn<int>("tried");
    for (int i = 0; i < int(std::size(AllTried)); ++i)
        QTest::newRow(AllTried[i].name) << i;
}

/// The main window is the document's one owner: whoever comes too late comes to nothing.
void TestGone::noToolMakesAnotherMainWindow()
{
    QFETCH(int, tried);
    MainWindow window;
    connectOpenings(window.web);
    const Press press = AllTried[tried].prepare(window);
    window.web->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!isThereAMainWindow());
    QCOMPARE(window.doors.ended, std::optional(0));
    press();
    QVERIFY(!isThereAMainWindow());
    QVERIFY(!window.doors.endedAtOnce); // as after an error
    QCOMPARE(window.doors.asked, QStringList());
}

WEB_TEST_MAIN(TestGone)
#include "tst_gone.moc"
