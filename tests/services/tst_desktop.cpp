// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Desktop.h"

#include <QAbstractEventDispatcher>
#include <QCursor>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <ctime>

using namespace brindlemark;

namespace {

class Painted : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
};

class Pointed : public QWidget
{
public:
    Pointed() { setMouseTracking(true); }

    QPoint pointer;

protected:
    void mouseMoveEvent(QMouseEvent* event) override { pointer = event->pos(); }
};

} // namespace

class TestDesktop : public QObject
{
    Q_OBJECT

private slots:
    void pauseLasts_data();
    void pauseLasts();
    void pauseForNoTimeReturnsAtOnce();
    void windowPaintsDuringAPause();
    void pointerIsServedDuringAPause();
    void pauseRests();
    void pauseInsideAPause();
    void yieldIsRare();
    void onTopKeepsPlaceAndSize();
    void onTopStaysWhereTheHandMovedIt();
    void onTopLeavesAHiddenWindowHidden();
};

void TestDesktop::pauseLasts_data()
{
    QTest::addColumn<double>("seconds");
    QTest::newRow("a tenth") << 0.1;
    QTest::newRow("a third") << 0.3;
}

void TestDesktop::pauseLasts()
{
    QFETCH(double, seconds);
    QElapsedTimer watch;
    watch.start();
    Pause(seconds);
    const auto took = static_cast<double>(watch.elapsed());
    QVERIFY2(took >= seconds * 1000 - 1 && took < seconds * 1000 + 400, qPrintable(QString::number(took)));
}

void TestDesktop::pauseForNoTimeReturnsAtOnce()
{
    QElapsedTimer watch;
    watch.start();
    Pause(0);
    Pause(-1);
    QVERIFY(watch.elapsed() < 50);
}

void TestDesktop::windowPaintsDuringAPause()
{
    Painted window;
    window.resize(100, 50);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.paints = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &window, qOverload<>(&QWidget::update));
    timer.start(20);
    Pause(0.1);
    QVERIFY(window.paints > 0);
}

void TestDesktop::pointerIsServedDuringAPause()
{
    Pointed window;
    window.setGeometry(120, 90, 240, 130);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QPoint place(50, 40);
    QCursor::setPos(window.mapToGlobal(place));
    for (int pauses = 0; pauses < 50 && window.pointer != place; ++pauses)
        Pause(0.1); // alone serves the pointer here
    QCOMPARE(window.pointer, place);
}

void TestDesktop::pauseRests()
{
    QSignalSpy rests(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock);
    const std::clock_t before = std::clock();
    Pause(0.3);
    QVERIFY(!rests.isEmpty()); // a busy machine would hide a busy loop from the clock
    const double busy = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    QVERIFY2(busy < 0.15, qPrintable(QString::number(busy)));
}

void TestDesktop::pauseInsideAPause()
{
    bool inner = false;
    QTimer once;
    once.setSingleShot(true);
    QObject::connect(&once, &QTimer::timeout, &once, [&] {
        Pause(0.05);
        inner = true;
    });
    once.start(10);
    QElapsedTimer watch;
    watch.start();
    Pause(0.1);
    QVERIFY(inner);
    QVERIFY(watch.elapsed() < 500);
}

void TestDesktop::yieldIsRare()
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(0);
    QElapsedTimer watch;
    watch.start();
    EventYield events;
    while (watch.elapsed() < 200)
        events.serve();
    QVERIFY2(ticks >= 1 && ticks <= 11, qPrintable(QString::number(ticks)));
}

void TestDesktop::onTopKeepsPlaceAndSize()
{
    QWidget window;
    window.setGeometry(120, 90, 240, 130);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QRect place = window.geometry();
    for (int twice = 0; twice < 2; ++twice) {
        StayOnTop(&window);
        QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.isVisible());
        QTRY_COMPARE(window.geometry(), place);
    }
}

/// A window that the hand has moved, and nothing else ever placed.
void TestDesktop::onTopStaysWhereTheHandMovedIt()
{
    QWidget window;
    window.resize(240, 130);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QRect place(37, 53, 300, 200);
    window.windowHandle()->setGeometry(place);
    QTRY_COMPARE(window.geometry(), place);
    StayOnTop(&window);
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_COMPARE(window.windowHandle()->geometry(), place);
    QCOMPARE(window.geometry(), place);
}

void TestDesktop::onTopLeavesAHiddenWindowHidden()
{
    QWidget window;
    window.setGeometry(120, 90, 240, 130);
    StayOnTop(&window);
    QVERIFY(!window.isVisible());
    QCOMPARE(window.geometry(), QRect(120, 90, 240, 130));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

QTEST_MAIN(TestDesktop)
#include "tst_desktop.moc"
