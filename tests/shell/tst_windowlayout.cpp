// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/WindowLayout.h"

#include <QTest>

/// A window as it stands before the first resize: places set, sizes of an earlier day.
static WindowLayout start()
{
    WindowLayout layout;
    layout.Toolbar1 = {0, 10, 9000, 500};
    layout.SSTab1 = {0, 0, 111, 112};
    layout.Frame1 = {120, 400, 121, 122};
    layout.Frame2 = {120, 420, 131, 132};
    layout.Frame3 = {120, 440, 141, 142};
    layout.RichTextBox1 = {120, 480, 151, 152};
    layout.Picture1 = {120, 490, 161, 162};
    layout.WebBrowser1 = {120, 500, 171, 172};
    layout.WebBrowser3 = {120, 510, 181, 182};
    layout.WebBrowser2 = {120, 470, 191, 192};
    layout.Label1 = {120, 5, 201, 202};
    layout.ProgressBar1 = {5, 5, 1600, 212};
    return layout;
}

class TestWindowLayout : public QObject
{
    Q_OBJECT

private slots:
    void eachLineOfTheRule();
    void negativeSizesAreSkippedLineByLine();
    void laterLinesUseWhatASkippedLineLeft();
    void layoutOfTheSameSizeStands();
};

void TestWindowLayout::eachLineOfTheRule()
{
    const WindowLayout now = resized(start(), 15000, 12000);

    QCOMPARE(now.Toolbar1, (TwipsRect{0, 10, 9000, 500}));
    // Top = 500 + 10 + 50; Height = 12000 - 560 - 680; Width = 15000 - 90
    QCOMPARE(now.SSTab1, (TwipsRect{0, 560, 14910, 10760}));
    // Height = 10760 - own Top - 200; Width = 14910 - 250
    QCOMPARE(now.Frame1, (TwipsRect{120, 400, 14660, 10160}));
    QCOMPARE(now.Frame2, (TwipsRect{120, 420, 14660, 10140}));
    // Frame3 takes Frame2's top: 10760 - 420 - 200
    QCOMPARE(now.Frame3, (TwipsRect{120, 440, 14660, 10140}));
    // Height = 10760 - own Top - 700; Width = 14910 - 500
    QCOMPARE(now.RichTextBox1, (TwipsRect{120, 480, 14410, 9580}));
    QCOMPARE(now.Picture1, (TwipsRect{120, 490, 14410, 9570}));
    QCOMPARE(now.WebBrowser1, (TwipsRect{120, 500, 14410, 9560}));
    QCOMPARE(now.WebBrowser3, (TwipsRect{120, 510, 14410, 9550}));
    // Height = 10760 - 470 - 950
    QCOMPARE(now.WebBrowser2, (TwipsRect{120, 470, 14410, 9340}));
    // Top = 9340 + 500; Width = 14410 - 1700
    QCOMPARE(now.Label1, (TwipsRect{120, 9840, 12710, 202}));
    // Left = 12710 + 150; Top = 9340 + 500
    QCOMPARE(now.ProgressBar1, (TwipsRect{12860, 9840, 1600, 212}));
}

void TestWindowLayout::negativeSizesAreSkippedLineByLine()
{
    // SSTab1.Height = 1900 - 560 - 680 = 660: too little for each view, enough for the frames' 60, 40 and 40.
    // SSTab1.Width = 1500 - 90 = 1410; views 910; Label1 910 - 1700 is negative.
    const WindowLayout now = resized(start(), 1500, 1900);
    QCOMPARE(now.SSTab1, (TwipsRect{0, 560, 1410, 660}));
    QCOMPARE(now.Frame1, (TwipsRect{120, 400, 1160, 60}));
    QCOMPARE(now.Frame2, (TwipsRect{120, 420, 1160, 40}));
    QCOMPARE(now.Frame3, (TwipsRect{120, 440, 1160, 40}));
    QCOMPARE(now.RichTextBox1, (TwipsRect{120, 480, 910, 152}));
    QCOMPARE(now.Picture1, (TwipsRect{120, 490, 910, 162}));
    QCOMPARE(now.WebBrowser1, (TwipsRect{120, 500, 910, 172}));
    QCOMPARE(now.WebBrowser3, (TwipsRect{120, 510, 910, 182}));
    QCOMPARE(now.WebBrowser2, (TwipsRect{120, 470, 910, 192}));
    QCOMPARE(now.Label1, (TwipsRect{120, 692, 201, 202}));
    QCOMPARE(now.ProgressBar1, (TwipsRect{351, 692, 1600, 212}));
}

void TestWindowLayout::laterLinesUseWhatASkippedLineLeft()
{
    // SSTab1.Height and Width come out negative and stay 112 and 111: so do all that count from them.
    const WindowLayout now = resized(start(), 0, 0);
    WindowLayout expected = start();
    expected.SSTab1.Top = 560;
    expected.Label1.Top = 692;
    expected.ProgressBar1.Left = 351;
    expected.ProgressBar1.Top = 692;
    QCOMPARE(now.SSTab1, expected.SSTab1);
    QCOMPARE(now.Frame1, expected.Frame1);
    QCOMPARE(now.RichTextBox1, expected.RichTextBox1);
    QCOMPARE(now.WebBrowser2, expected.WebBrowser2);
    QCOMPARE(now.Label1, expected.Label1);
    QCOMPARE(now.ProgressBar1, expected.ProgressBar1);
}

void TestWindowLayout::layoutOfTheSameSizeStands()
{
    const WindowLayout once = resized(start(), 9600, 7200);
    const WindowLayout twice = resized(once, 9600, 7200);
    QCOMPARE(twice.SSTab1, once.SSTab1);
    QCOMPARE(twice.ProgressBar1, once.ProgressBar1);
    QCOMPARE(twice.WebBrowser1, once.WebBrowser1);
}

QTEST_APPLESS_MAIN(TestWindowLayout)
#include "tst_windowlayout.moc"
