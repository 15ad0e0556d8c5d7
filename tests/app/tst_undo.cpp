// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "builders/FrmAddTable.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmListChoose.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "colour/Fader5.h"
#include "colour/FrmBody.h"
#include "colour/FrmHR.h"
#include "shell/Find.h"
#include "shell/FrmWord.h"

#include <QMenuBar>

using namespace brindlemark;

namespace {

/// The tool's window, once it has come up.
template <typename F>
F* shown()
{
    if (!isLoaded<F>() || !QTest::qWaitForWindowExposed(form<F>()))
        QTest::qFail("the tool does not come up", __FILE__, __LINE__);
    return form<F>();
}

template <typename F>
F* opened(const MainWindow& window, Tool wanted)
{
    window.press(wanted);
    return shown<F>();
}

FrmList2* openCharacterList(const MainWindow& window)
{
    click(opened<FrmListChoose>(window, Tool::List)->Command2);
    return shown<FrmList2>();
}

void fade(MainWindow& window)
{
    auto* fader = opened<Fader5>(window, Tool::Font);
    QTest::keyClicks(fader->Text1, QStringLiteral("faded"));
    tick(fader->Opt3);
    click(fader->Command2);
}

void designTable(MainWindow& window)
{
    auto* table = opened<FrmTable>(window, Tool::Table);
    overtype(table->Text1, QStringLiteral("left"));
    overtype(table->Text2, QStringLiteral("right"));
    click(table->Command4);
    click(table->Command2);
}

void list(MainWindow& window)
{
    click(opened<FrmListChoose>(window, Tool::List)->Command1);
    auto* list = shown<FrmList>();
    overtype(list->Text1, QStringLiteral("word"));
    click(list->Command1);
    click(list->Command6);
}

void characterList(MainWindow& window)
{
    auto* list = openCharacterList(window);
    overtype(list->Text1, QStringLiteral("word"));
    click(list->Command3);
    click(list->Command12);
}

void pickedCharacter(MainWindow& window)
{
    auto* list = openCharacterList(window);
    click(list->Command1);
    auto* characters = shown<FrmChar>();
    QTest::mouseClick(characters->CharC, Qt::LeftButton, {}, characters->CharC->cellRect(40).center());
    click(characters->Command1);
    overtype(list->Text1, QStringLiteral("word"));
    click(list->Command3);
    click(list->Command12);
}

void rule(MainWindow& window)
{
    click(opened<FrmHR>(window, Tool::Rule)->Command6);
}

void body(MainWindow& window)
{
    auto* body = opened<FrmBody>(window, Tool::Body);
    tick(body->Check2);
    click(body->Command1);
}

void picture(MainWindow& window)
{
    auto* picture = opened<Pics>(window, Tool::Picture);
    overtype(picture->Text1, QStringLiteral("x.gif"));
    click(picture->Command4);
}

void newTable(MainWindow& window)
{
    window.choose(window.web->munoptions, window.web->munaddtable);
    auto* table = shown<FrmAddTable>();
    overtype(table->txtRows, QStringLiteral("2"));
    overtype(table->txtColls, QStringLiteral("3"));
    click(table->Command1);
}

void quickTag(MainWindow& window)
{
    window.choose(window.web->munoptions, window.web->munbr5);
}

void quickTagWithAnswer(MainWindow& window)
{
    window.doors.answerInputBox(QStringLiteral("me@x.example"));
    window.choose(window.web->munoptions, window.web->munemailink);
}

void quickWord(MainWindow& window)
{
    window.folder.write(QStringLiteral("Quick.ini"), "phrase\r\n");
    QMenuBar* bar = window.web->MenuBar1;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(window.web->muQW).center());
    auto* words = shown<FrmWord>();
    QTest::mouseClick(words->List1->viewport(), Qt::LeftButton, {},
                      words->List1->visualItemRect(words->List1->item(0)).center());
    click(words->Command4);
}

void overtypeTitle(MainWindow& window)
{
    click(window.web->CmdTitle);
    window.type(QStringLiteral("New title"));
}

void replaceAll(MainWindow& window)
{
    window.choose(window.web->MnEdit, window.web->munfind);
    auto* find = shown<Find>();
    overtype(find->Text1->lineEdit(), QStringLiteral("Body"));
    overtype(find->Text2->lineEdit(), QStringLiteral("Leg"));
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(find->Command6);
}

/// All tools that write into the source box.
struct Tool
{
    const char* name;
    void (*use)(MainWindow& window);
};

constexpr Tool Tools[] = {
    {"fader", fade},
    {"table designer", designTable},
    {"list", list},
    {"character list", characterList},
    {"picked character", pickedCharacter},
    {"rule", rule},
    {"body", body},
    {"picture", picture},
    {"new table", newTable},
    {"quick tag", quickTag},
    {"quick tag with an answer", quickTagWithAnswer},
    {"quick word", quickWord},
    {"overtyped title", overtypeTitle},
    {"replace all", replaceAll},
};

QByteArray listing(const QByteArray& word)
{
    return "<!-- Body-title -->" + word + "<!-- Body-title2 -->\r\n<!-- Body-description -->\r\n" + word +
           "\r\n<!-- Body-description2 -->\n";
}

} // namespace

class TestUndo : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void onceIsEnough_data();
    void onceIsEnough();
};

void TestUndo::cleanup()
{
    unloadAll();
}

void TestUndo::onceIsEnough_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<int>("selected");
    const QByteArray head = "<BODY>\r\n<!-- body-buildwizard0 -->\r\n";
    for (int tool = 0; tool < int(std::size(Tools)); ++tool) {
        QTest::addRow("%s at the caret", Tools[tool].name)
            << tool << head + listing("one \xE2\x82\xAC\r") << 0;
        QTest::addRow("%s over a selection in a Western document", Tools[tool].name)
            << tool << head + listing("caf\xE9 \xFF") + listing("one") << 20;
    }
}

/// One Ctrl+Z after a tool gives back the very bytes before it, and none of what was typed before that goes.
void TestUndo::onceIsEnough()
{
    QFETCH(int, tool);
    QFETCH(QByteArray, document);
    QFETCH(int, selected);
    MainWindow window;
    connectOpenings(window.web);
    window.folder.write(QStringLiteral("page.htm"), document);
    window.open(window.folder.path(QStringLiteral("page.htm")));
    RichTextBox& box = *window.web->RichTextBox1;
    box.setSelStart(3);
    window.type(QStringLiteral("typed"));
    box.setSelLength(selected);
    const QByteArray before = window.source();
    QCOMPARE(before, document.left(3) + "typed" + document.mid(3));

    Tools[tool].use(window);
    const QByteArray after = window.source();
    QVERIFY(after != before);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.source(), before);
    QTest::keyClick(&box, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(window.source(), after);
}

WEB_TEST_MAIN(TestUndo)
#include "tst_undo.moc"
