// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "colour/Fader5.h"
#include "colour/FrmHR.h"
#include "platform/RuntimeError.h"
#include "shell/FrmWord.h"
#include "wizard/FrmBuild1.h"

using namespace brindlemark;

namespace {

/// A check box that a window keeps in the settings.
struct KeptBox
{
    const char* window;
    Form* (*load)();
    const char* box;
    const char* section;
    const char* key;
    const char* with = ""; // what the box needs besides, in the same section
};

template <typename F>
Form* loaded()
{
    return form<F>();
}

constexpr KeptBox Boxes[] = {
    {"FrmTable", loaded<FrmTable>, "Check3", "Tablepro", "chk3"},
    {"FrmList", loaded<FrmList>, "Check3", "Listpro", "chk4"},
    {"FrmList2", loaded<FrmList2>, "Check3", "Listpro", "chk3"},
    {"Pics", loaded<Pics>, "Check3", "Picpro", "chk3"},
    {"Pics", loaded<Pics>, "ChkP", "Picpro", "chkp"},
    {"Fader5", loaded<Fader5>, "Check2", "Fontpro", "chk"},
    {"Fader5", loaded<Fader5>, "Check3", "Fontpro", "chk2"},
    {"FrmHR", loaded<FrmHR>, "Check3", "HRpro", "chk3"},
    {"FrmWord", loaded<FrmWord>, "Check1", "Quickword", "chk"},
    {"FrmBuild1", loaded<FrmBuild1>, "ChKPay1", "QelPay", "1"},
    {"FrmBuild1", loaded<FrmBuild1>, "ChKPay11", "QelPay", "12"},
    {"FrmBuild1", loaded<FrmBuild1>, "ChkLS1", "QelLP", "chk", "opt3=1\r\n"},
    {"FrmBuild1", loaded<FrmBuild1>, "ChkLS8", "QelLP", "chk8", "opt3=1\r\n"},
    {"FrmBuild1", loaded<FrmBuild1>, "ChkZC", "QelPS", "chk"},
    {"FrmBuild1", loaded<FrmBuild1>, "ChkTR1", "QelPS", "chk2"},
    {"FrmBuild1", loaded<FrmBuild1>, "ChkSlist", "QelPS", "ChkSlist"},
};

} // namespace

/// The check boxes that windows keep in web.ini, and what becomes of them when that has been edited.
class TestBoxes : public QObject
{
    Q_OBJECT

private slots:
    void odd_data();
    void odd();
};

void TestBoxes::odd_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("value"); // -1: the window does not load
    for (int i = 0; i < int(std::size(Boxes)); ++i) {
        const KeptBox& box = Boxes[i];
        // The quick words alone want their key.
        const int none = qstrcmp(box.window, "FrmWord") == 0 ? -1 : 0;
        QTest::addRow("%s %s, missing", box.window, box.box) << i << QByteArray() << none;
        QTest::addRow("%s %s, empty", box.window, box.box) << i << QByteArray(box.key) + "=\r\n" << none;
        for (const char* value : {"0", "1", "2", "-1", "10", "255", "99999", "0.5", "abc", "True", "yes"}) {
            QTest::addRow("%s %s, %s", box.window, box.box, value)
                << i << QByteArray(box.key) + '=' + value + "\r\n"
                << (qstrcmp(value, "1") == 0 ? 1 : 0);
        }
    }
}

/// Anything but 0 and 1 counts as 0, and ends nothing.
void TestBoxes::odd()
{
    QFETCH(int, index);
    QFETCH(QByteArray, line);
    QFETCH(int, value);
    const KeptBox& box = Boxes[index];
    const MainWindow main;
    main.folder.write(QStringLiteral("web.ini"), '[' + QByteArray(box.section) + "]\r\n" + box.with + line);
    int found = -1;
    try {
        const Form* window = box.load();
        found = window->findChild<CheckBox*>(QString::fromLatin1(box.box))->Value();
    } catch (const RuntimeError& error) {
        QVERIFY(error.number() == ErrorNumber::TypeMismatch);
    }
    QCOMPARE(found, value);
}

WEB_TEST_MAIN(TestBoxes)
#include "tst_boxes.moc"
