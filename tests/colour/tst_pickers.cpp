// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "colour/ColorSample.h"
#include "colour/FrmAutoColor.h"
#include "colour/FrmColorcode.h"
#include "colour/color.h"

#include <QSignalSpy>
#include <QToolTip>
#include <array>

using namespace brindlemark;

namespace {

/// Loads a window and shows it.
template <typename F>
F* shown()
{
    F* window = form<F>();
    window->Show();
    if (!QTest::qWaitForWindowActive(window))
        QTest::qFail("the window does not come up", __FILE__, __LINE__);
    return window;
}

QByteArray colorSection(const MainWindow& window)
{
    const QByteArray settings = window.folder.read(QStringLiteral("web.ini"));
    const qsizetype start = settings.indexOf("[Color]");
    return settings.mid(start, settings.indexOf("\r\n\r\n", start) - start);
}

} // namespace

/// The three small windows that are nothing but colour rows.
class TestPickers : public QObject
{
    Q_OBJECT

private slots:
    void highlightColors();
    void highlightColorsAreStoredOnOk();
    void highlightColorsWithoutSection();
    void highlightColorsUpToTheFirstBadOne();
    void highlightColorsCancelled();

    void colorCode();
    void colorCodeFollowsTheBars();
    void colorCodeByNumbers();
    void numbersThatAreNone_data();
    void numbersThatAreNone();
    void colorCodeAdds();
    void colorCodeAsTyped();
    void colorCodeCancelled();

    void twoColors();
    void twoColorsTaken();
    void twoColorsCancelled_data();
    void twoColorsCancelled();
    void twoColorsSetFromElsewhere();
};

void TestPickers::highlightColors()
{
    const MainWindow window;
    const color& colors = *shown<color>();
    QCOMPARE(colors.windowTitle(), QStringLiteral("Editor Color highlight"));
    QCOMPARE(colors.Frame2->title(), QStringLiteral("FontColor"));
    QCOMPARE(colors.Frame1->title(), QStringLiteral("BackColor"));
    QCOMPARE(colors.Command1->text(), QStringLiteral("OK"));
    QCOMPARE(colors.Command2->text(), QStringLiteral("Cancel"));
    QCOMPARE(colors.Color1->BackColor(), 12582912);
    QCOMPARE(colors.color2->BackColor(), 1381795);
    QCOMPARE(colors.color3->BackColor(), 1731328);
    QCOMPARE(colors.color4->BackColor(), 0);
    QCOMPARE(colors.Color5->BackColor(), 16777215);
    for (const ScrollBar* bar : {colors.RedA, colors.BlueA, colors.RedE, colors.GreenE})
        QCOMPARE(bar->Value(), 0);
}

void TestPickers::highlightColorsAreStoredOnOk()
{
    const MainWindow window;
    color& colors = *shown<color>();
    const QByteArray before = colorSection(window);
    dragToEnd(colors.RedA);
    QCOMPARE(colors.Color1->BackColor(), 255);
    release(colors.RedA);
    step(colors.GreenE);
    QCOMPARE(colors.Color5->BackColor(), 256);
    QCOMPARE(colorSection(window), before);
    click(colors.Command1);
    QCOMPARE(colorSection(window),
             QByteArray("[Color]\r\none=255\r\ntwo=1381795\r\nthree=1731328\r\nfour=0\r\nback=256"));
    QVERIFY(!isLoaded<color>());
}

void TestPickers::highlightColorsWithoutSection()
{
    MainWindow window;
    window.folder.write(QStringLiteral("web.ini"), "[Font]\r\n");
    color& colors = *shown<color>();
    for (const ColorSample* sample :
         {colors.Color1, colors.color2, colors.color3, colors.color4, colors.Color5})
        QCOMPARE(sample->BackColor(), 0);
    click(colors.Command1);
    QCOMPARE(window.folder.read(QStringLiteral("web.ini")),
             QByteArray("[Font]\r\n\r\n[Color]\r\none=0\r\ntwo=0\r\nthree=0\r\nfour=0\r\nBack=0\r\n"));
    QCOMPARE(window.doors.takeAsked(), QStringList());
}

void TestPickers::highlightColorsUpToTheFirstBadOne()
{
    const MainWindow window;
    window.folder.write(QStringLiteral("web.ini"),
                        "[Color]\r\none=5\r\ntwo=99999999999\r\nthree=7\r\nfour=8\r\nback=9\r\n");
    const color& colors = *shown<color>();
    QCOMPARE(colors.Color1->BackColor(), 5);
    QCOMPARE(colors.color2->BackColor(), 0);
    QCOMPARE(colors.color3->BackColor(), 0);
    QCOMPARE(colors.Color5->BackColor(), 0);
}

void TestPickers::highlightColorsCancelled()
{
    const MainWindow window;
    color& colors = *shown<color>();
    const QByteArray before = colorSection(window);
    step(colors.RedA);
    QTest::keyClick(&colors, Qt::Key_Escape);
    QVERIFY(!isLoaded<color>());
    QCOMPARE(colorSection(window), before);
}

void TestPickers::colorCode()
{
    const MainWindow window;
    const FrmColorcode& code = *shown<FrmColorcode>();
    QCOMPARE(code.windowTitle(), QStringLiteral("Color HTML Code"));
    QCOMPARE(code.Frame1->title(), QStringLiteral("Color"));
    QCOMPARE(code.Command4->text().remove(u'&'), QStringLiteral("Add to Editor"));
    QCOMPARE(code.Command4->toolTip(), QStringLiteral("ok to add it"));
    QCOMPARE(code.Command1->text(), QStringLiteral("Cancel"));
    QCOMPARE(code.Text3->text(), QStringLiteral("#000000"));
    QCOMPARE(code.decimalCode, QStringLiteral("#0"));
}

void TestPickers::colorCodeFollowsTheBars()
{
    const MainWindow window;
    FrmColorcode& code = *shown<FrmColorcode>();
    QCOMPARE(code.BlueB->toolTip(), QStringLiteral("Blue: 0"));
    dragToEnd(code.BlueB);
    QCOMPARE(QToolTip::text(), QStringLiteral("Blue: 255")); // beside the hand
    QCOMPARE(code.Text3->text(), QStringLiteral("#0000FF"));
    QCOMPARE(code.decimalCode, QStringLiteral("#16711680"));
    release(code.BlueB);
    step(code.RedB);
    QCOMPARE(code.RedB->toolTip(), QStringLiteral("Red: 1"));
    QCOMPARE(code.Text3->text(), QStringLiteral("#0100FF"));
    QCOMPARE(code.Hcolor2->BackColor(), 0xFF0001);
}

/// Each number that is typed moves its bar, and each move of a bar writes the number.
void TestPickers::colorCodeByNumbers()
{
    const MainWindow window;
    FrmColorcode& code = *shown<FrmColorcode>();
    QCOMPARE(code.NumRed->text(), QStringLiteral("0"));
    const QSignalSpy changes(code.RedB, &ScrollBar::Change);
    const QSignalSpy scrolls(code.RedB, &ScrollBar::Scroll);
    overtype(code.NumRed, QStringLiteral("192")); // 1, 19, 192
    QCOMPARE(code.RedB->Value(), 192);
    QCOMPARE(code.Text3->text(), QStringLiteral("#C00000"));
    QCOMPARE(code.decimalCode, QStringLiteral("#192"));
    QCOMPARE(code.Hcolor2->BackColor(), 192);
    QCOMPARE(changes.count(), 3);
    QCOMPARE(scrolls.count(), 0);
    overtype(code.NumRed, QStringLiteral("192")); // 1, 19 and 192 again, and no change by the emptied field
    QCOMPARE(changes.count(), 6);

    step(code.RedB);
    QCOMPARE(code.NumRed->text(), QStringLiteral("193"));
    dragToEnd(code.BlueB);
    QCOMPARE(code.NumBlue->text(), QStringLiteral("255")); // while it is dragged
    release(code.BlueB);
    QCOMPARE(code.NumGreen->text(), QStringLiteral("0"));
    QCOMPARE(code.Text3->text(), QStringLiteral("#C100FF"));

    overtype(code.NumGreen, QStringLiteral("007"));
    QCOMPARE(code.NumGreen->text(), QStringLiteral("007")); // as it is typed
    QTest::keyClick(code.NumGreen, Qt::Key_Tab);
    QCOMPARE(code.NumGreen->text(), QStringLiteral("7"));
    QCOMPARE(code.focusWidget(), code.BlueB);
}

void TestPickers::numbersThatAreNone_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("value");
    QTest::newRow("too large") << "256" << 25; // until the last key
    QTest::newRow("negative") << "-5" << 9;
    QTest::newRow("nothing") << "" << 9;
    QTest::newRow("words") << "red" << 9;
    QTest::newRow("hexadecimal") << "FF" << 9;
    QTest::newRow("fraction") << ".5" << 9;
}

void TestPickers::numbersThatAreNone()
{
    QFETCH(QString, typed);
    QFETCH(int, value);
    const MainWindow window;
    FrmColorcode& code = *shown<FrmColorcode>();
    overtype(code.NumRed, QStringLiteral("9"));
    overtype(code.NumRed, typed);
    QCOMPARE(code.NumRed->text(), typed);
    QCOMPARE(code.RedB->Value(), value);
    code.NumBlue->setFocus();
    QCOMPARE(code.NumRed->text(), QString::number(value));
    QCOMPARE(code.RedB->Value(), value);
}

void TestPickers::colorCodeAdds()
{
    const MainWindow window;
    window.web->RichTextBox1->setText("a b");
    window.web->RichTextBox1->setSelStart(1);
    FrmColorcode& code = *shown<FrmColorcode>();
    step(code.RedB);
    click(code.Command4);
    QCOMPARE(window.source(), QByteArray("a#010000 b"));
    QVERIFY(isLoaded<FrmColorcode>());
    QVERIFY(!code.isVisible());
    QCOMPARE(shown<FrmColorcode>(), &code);
    QCOMPARE(code.RedB->Value(), 1);
}

void TestPickers::colorCodeAsTyped()
{
    const MainWindow window;
    FrmColorcode& code = *shown<FrmColorcode>();
    overtype(code.Text3, QStringLiteral("gold"));
    code.Text3->insert(QStringLiteral("\u00E9"));
    QTest::keyClick(code.Text3, Qt::Key_Return);
    QCOMPARE(window.source(), QByteArray("gold\xC3\xA9"));
}

void TestPickers::colorCodeCancelled()
{
    const MainWindow window;
    click(shown<FrmColorcode>()->Command1);
    QVERIFY(!isLoaded<FrmColorcode>());
    QCOMPARE(window.source(), QByteArray());
}

void TestPickers::twoColors()
{
    const MainWindow window;
    const FrmAutoColor& colors = *shown<FrmAutoColor>();
    QCOMPARE(colors.windowTitle(), QStringLiteral("Two Cell Colors"));
    QCOMPARE(colors.Frame1->title(), QStringLiteral("First Color"));
    QCOMPARE(colors.Frame5->title(), QStringLiteral("Second Color"));
    QCOMPARE(colors.Command1->text(), QStringLiteral("OK"));
    QCOMPARE(colors.Command2->text(), QStringLiteral("Cancel"));
    QCOMPARE(colors.BColor1->BackColor(), 0);
    QCOMPARE(colors.TbColor1->BackColor(), 0);
}

void TestPickers::twoColorsTaken()
{
    const MainWindow window;
    FrmAutoColor& colors = *shown<FrmAutoColor>();
    QSignalSpy taken(&colors, &FrmAutoColor::taken);
    QSignalSpy unloading(&colors, &FrmAutoColor::unloading);
    colors.RedA->setValue(255);
    colors.GreenH->setValue(16);
    click(colors.Command1);
    QCOMPARE(taken.count(), 1);
    QCOMPARE(taken.first(), (QVariantList{QStringLiteral("#FF0000"), QStringLiteral("#001000")}));
    QCOMPARE(unloading.count(), 0);
    QVERIFY(isLoaded<FrmAutoColor>());
    QVERIFY(!colors.isVisible());
    QCOMPARE(shown<FrmAutoColor>()->BColor1->BackColor(), 255);
}

void TestPickers::twoColorsCancelled_data()
{
    QTest::addColumn<bool>("button");
    QTest::newRow("Cancel") << true;
    QTest::newRow("the window's own button") << false;
}

void TestPickers::twoColorsCancelled()
{
    QFETCH(bool, button);
    const MainWindow window;
    FrmAutoColor& colors = *shown<FrmAutoColor>();
    QSignalSpy taken(&colors, &FrmAutoColor::taken);
    QSignalSpy unloading(&colors, &FrmAutoColor::unloading);
    if (button) {
        click(colors.Command2);
    } else {
        colors.close();
    }
    QCOMPARE(unloading.count(), 1);
    QCOMPARE(taken.count(), 0);
    QVERIFY(!isLoaded<FrmAutoColor>());
}

void TestPickers::twoColorsSetFromElsewhere()
{
    const MainWindow window;
    FrmAutoColor& colors = *shown<FrmAutoColor>();
    colors.setColors(0x030201, 0xFFFFFE);
    QCOMPARE(colors.BColor1->BackColor(), 0x030201);
    QCOMPARE(colors.RedA->Value(), 1);
    QCOMPARE(colors.GreenA->Value(), 2);
    QCOMPARE(colors.BlueA->Value(), 3);
    QCOMPARE(colors.TbColor1->BackColor(), 0xFFFFFE);
    QCOMPARE(colors.RedH->Value(), 254);
}

WEB_TEST_MAIN(TestPickers)
#include "tst_pickers.moc"
