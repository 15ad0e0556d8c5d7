// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/LongWork.h"
#include "forms/Wait.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <stdexcept>

using namespace brindlemark;

namespace {

bool hourglassStands()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

bool windowStands()
{
    return isLoaded<Wait>() && form<Wait>()->isVisible();
}

QProgressBar* bar()
{
    return form<Wait>()->findChild<QProgressBar*>();
}

/// How much of the bar is filled, 0 to 1.
double filled()
{
    return double(bar()->value()) / bar()->maximum();
}

} // namespace

class TestLongWork : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void waitingWorkShowsBothSigns();
    void walkingWorkTellsHowFarItIs();
    void quickWorkShowsNothing();
    void announcedWorkShowsBothAtOnce();
    void windowOfTheWorkItselfStays();
    void innerWorkShowsNothingOfItsOwn();
    void errorTakesTheSignsAway();
    void userCloses();
    void eventsAreServed();
    void eventsAreServedNowAndThen();
    void keyboardComesBack();
};

/// No test leaves a sign behind.
void TestLongWork::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!windowStands());
    if (isLoaded<Wait>())
        form<Wait>()->Unload();
}

void TestLongWork::waitingWorkShowsBothSigns()
{
    {
        const LongWork work;
        QVERIFY(!hourglassStands());
        QTRY_VERIFY(hourglassStands());
        QTRY_VERIFY(windowStands());
        QVERIFY(bar()->isVisible());
        QCOMPARE(bar()->maximum(), 0); // nobody knows how long it takes
        QCOMPARE(form<Wait>()->windowTitle(), QStringLiteral("loading..."));
        QCOMPARE(form<Wait>()->findChild<QLabel*>()->text(), QStringLiteral("Please wait. . ."));
        QVERIFY(form<Wait>()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
    QVERIFY(!hourglassStands());
    QVERIFY(!windowStands());
}

void TestLongWork::walkingWorkTellsHowFarItIs()
{
    LongWork work;
    QDeadlineTimer deadline(20000);
    while (!windowStands() && !deadline.hasExpired())
        work.progress(0.25);
    QVERIFY(hourglassStands());
    QVERIFY(windowStands());
    QCOMPARE(filled(), 0.25);
    while (filled() < 0.5 && !deadline.hasExpired())
        work.progress(0.75);
    QCOMPARE(filled(), 0.75);
}

void TestLongWork::quickWorkShowsNothing()
{
    LongWork work;
    work.progress(0.5);
    QVERIFY(!windowStands());
}

void TestLongWork::announcedWorkShowsBothAtOnce()
{
    LongWork work;
    work.announce();
    QVERIFY(hourglassStands());
    QVERIFY(windowStands());
    QVERIFY(bar()->isVisible());
}

/// The highlight shows the window before and hides it after its work.
void TestLongWork::windowOfTheWorkItselfStays()
{
    form<Wait>()->Show();
    {
        LongWork work;
        work.announce();
        QVERIFY(bar()->isVisible());
    }
    QVERIFY(windowStands());
    QVERIFY(!bar()->isVisible());
    form<Wait>()->Hide();
}

void TestLongWork::innerWorkShowsNothingOfItsOwn()
{
    {
        const LongWork outer;
        QTRY_VERIFY(windowStands());
        {
            LongWork inner;
            inner.progress(0.5);
            QVERIFY(windowStands());
            const QDeadlineTimer longAsWell(1200);
            QTRY_VERIFY(longAsWell.hasExpired());
        }
        QVERIFY(windowStands());
        QVERIFY(bar()->isVisible());
        QVERIFY(hourglassStands());
    }
    const LongWork next; // counts as the outermost again
    QTRY_VERIFY(hourglassStands());
}

void TestLongWork::errorTakesTheSignsAway()
{
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, {
        LongWork work;
        work.announce();
        throw std::runtime_error("broken");
    });
    QVERIFY(!hourglassStands());
    QVERIFY(!windowStands());
}

/// The window manager can close the window while the work goes on.
void TestLongWork::userCloses()
{
    LongWork work;
    work.announce();
    form<Wait>()->Unload();
    work.progress(0.5);
    QVERIFY(hourglassStands());
}

/// Windows repaint after 50 ms; before that it is not worth it.
void TestLongWork::eventsAreServed()
{
    QWidget window;
    bool served = false;
    QTimer::singleShot(0, &window, [&] { served = true; });
    LongWork work;
    QTest::qSleep(50);
    work.progress(0.1);
    QVERIFY(served);
}

/// Telling often costs nothing: between two looks at the events lie 50 ms.
void TestLongWork::eventsAreServedNowAndThen()
{
    int served = 0;
    QTimer always;
    QObject::connect(&always, &QTimer::timeout, &always, [&] { ++served; });
    always.start(0);
    QElapsedTimer clock;
    clock.start();
    LongWork work;
    for (int i = 0; i < 1000; ++i)
        work.progress(i / 1000.0);
    QVERIFY2(served <= clock.elapsed() / 50, qPrintable(QString::number(served)));
}

void TestLongWork::keyboardComesBack()
{
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    {
        LongWork work;
        work.announce();
        QVERIFY(windowStands());
    }
    QTRY_COMPARE(QApplication::activeWindow(), &window);
}

QTEST_MAIN(TestLongWork)
#include "tst_longwork.moc"
