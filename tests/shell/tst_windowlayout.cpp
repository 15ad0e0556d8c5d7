// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/WindowLayout.h"

#include <QTest>

using namespace brindlemark;

/// A window as it stands before the first resize: places set, sizes of an earlier day.
static WindowLayout start()
{
    WindowLayout layout;
    layout.toolbar = {0, 10, 9000, 500};
    layout.tabs = {0, 0, 111, 112};
    layout.editorFrame = {120, 400, 121, 122};
    layout.designFrame = {120, 420, 131, 132};
    layout.internetFrame = {120, 440, 141, 142};
    layout.source = {120, 480, 151, 152};
    layout.cover = {120, 490, 161, 162};
    layout.designSurface = {120, 500, 171, 172};
    layout.preview = {120, 510, 181, 182};
    layout.browser = {120, 470, 191, 192};
    layout.status = {120, 5, 201, 202};
    layout.progress = {5, 5, 1600, 212};
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

    QCOMPARE(now.toolbar, (TwipsRect{0, 10, 9000, 500}));
    // Top = 500 + 10 + 50; Height = 12000 - 560 - 680; Width = 15000 - 90
    QCOMPARE(now.tabs, (TwipsRect{0, 560, 14910, 10760}));
    // Height = 10760 - own Top - 200; Width = 14910 - 250
    QCOMPARE(now.editorFrame, (TwipsRect{120, 400, 14660, 10160}));
    QCOMPARE(now.designFrame, (TwipsRect{120, 420, 14660, 10140}));
    // internetFrame takes designFrame's top: 10760 - 420 - 200
    QCOMPARE(now.internetFrame, (TwipsRect{120, 440, 14660, 10140}));
    // Height = 10760 - own Top - 700; Width = 14910 - 500
    QCOMPARE(now.source, (TwipsRect{120, 480, 14410, 9580}));
    QCOMPARE(now.cover, (TwipsRect{120, 490, 14410, 9570}));
    QCOMPARE(now.designSurface, (TwipsRect{120, 500, 14410, 9560}));
    QCOMPARE(now.preview, (TwipsRect{120, 510, 14410, 9550}));
    // Height = 10760 - 470 - 950
    QCOMPARE(now.browser, (TwipsRect{120, 470, 14410, 9340}));
    // Top = 9340 + 500; Width = 14410 - 1700
    QCOMPARE(now.status, (TwipsRect{120, 9840, 12710, 202}));
    // Left = 12710 + 150; Top = 9340 + 500
    QCOMPARE(now.progress, (TwipsRect{12860, 9840, 1600, 212}));
}

void TestWindowLayout::negativeSizesAreSkippedLineByLine()
{
    // tabs.Height = 1900 - 560 - 680 = 660: too little for each view, enough for the frames' 60, 40 and 40.
    // tabs.Width = 1500 - 90 = 1410; views 910; status 910 - 1700 is negative.
    const WindowLayout now = resized(start(), 1500, 1900);
    QCOMPARE(now.tabs, (TwipsRect{0, 560, 1410, 660}));
    QCOMPARE(now.editorFrame, (TwipsRect{120, 400, 1160, 60}));
    QCOMPARE(now.designFrame, (TwipsRect{120, 420, 1160, 40}));
    QCOMPARE(now.internetFrame, (TwipsRect{120, 440, 1160, 40}));
    QCOMPARE(now.source, (TwipsRect{120, 480, 910, 152}));
    QCOMPARE(now.cover, (TwipsRect{120, 490, 910, 162}));
    QCOMPARE(now.designSurface, (TwipsRect{120, 500, 910, 172}));
    QCOMPARE(now.preview, (TwipsRect{120, 510, 910, 182}));
    QCOMPARE(now.browser, (TwipsRect{120, 470, 910, 192}));
    QCOMPARE(now.status, (TwipsRect{120, 692, 201, 202}));
    QCOMPARE(now.progress, (TwipsRect{351, 692, 1600, 212}));
}

void TestWindowLayout::laterLinesUseWhatASkippedLineLeft()
{
    // tabs.Height and Width come out negative and stay 112 and 111: so do all that count from them.
    const WindowLayout now = resized(start(), 0, 0);
    WindowLayout expected = start();
    expected.tabs.Top = 560;
    expected.status.Top = 692;
    expected.progress.Left = 351;
    expected.progress.Top = 692;
    QCOMPARE(now.tabs, expected.tabs);
    QCOMPARE(now.editorFrame, expected.editorFrame);
    QCOMPARE(now.source, expected.source);
    QCOMPARE(now.browser, expected.browser);
    QCOMPARE(now.status, expected.status);
    QCOMPARE(now.progress, expected.progress);
}

void TestWindowLayout::layoutOfTheSameSizeStands()
{
    const WindowLayout once = resized(start(), 9600, 7200);
    const WindowLayout twice = resized(once, 9600, 7200);
    QCOMPARE(twice.tabs, once.tabs);
    QCOMPARE(twice.progress, once.progress);
    QCOMPARE(twice.designSurface, once.designSurface);
}

QTEST_APPLESS_MAIN(TestWindowLayout)
#include "tst_windowlayout.moc"
