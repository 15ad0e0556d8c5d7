// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/WarmUp.h"

#include <QTimer>
#include <QWebEngineView>

using namespace brindlemark;

namespace {

/// The engine's view of the document; null before the engine was needed.
QWebEngineView* view(const MainWindow& window)
{
    return window.web->WebBrowser1->findChild<QWebEngineView*>();
}

/// How many of the window's timers run for `interval` milliseconds.
bool rests(const MainWindow& window)
{
    const QList<QTimer*> timers = window.web->findChildren<QTimer*>(Qt::FindDirectChildrenOnly);
    return std::any_of(timers.begin(), timers.end(),
                       [](const QTimer* timer) { return timer->isActive() && timer->interval() == 1500; });
}

} // namespace

class TestWarmUp : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { unloadAll(); }
    void startsBehindAText();
    void emptyDocumentWaitsStill();
    void newDocumentNeedsNoPage();
    void firstPageComesAfterIt();
};

/// The engine doesn't start between letters, but when the hands rest, and once.
void TestWarmUp::startsBehindAText()
{
    MainWindow window;
    warmUpBeforePreview(window.web);
    QVERIFY(!view(window));
    window.type(QStringLiteral("<B>word"));
    QVERIFY(!view(window));
    QTRY_VERIFY(view(window));
    const QWebEngineView* first = view(window);
    window.type(QStringLiteral("s"));
    QVERIFY(rests(window));
    QTRY_VERIFY(!rests(window));
    QCOMPARE(view(window), first);
    QCOMPARE(window.source(), QByteArray("<B>words"));
    QCOMPARE(window.web->SSTab1->Tab(), int(FrmWeb::EditorTab));
}

void TestWarmUp::emptyDocumentWaitsStill()
{
    MainWindow window;
    warmUpBeforePreview(window.web);
    window.web->RichTextBox1->setText(QByteArray());
    QVERIFY(!rests(window));
    window.type(QStringLiteral("a"));
    QVERIFY(rests(window));
}

/// An engine that has started and shown nothing is asked for nothing.
void TestWarmUp::newDocumentNeedsNoPage()
{
    MainWindow window;
    window.web->WebBrowser1->warmUp();
    int loads = 0;
    QObject::connect(view(window), &QWebEngineView::loadStarted, this, [&loads] { ++loads; });
    window.web->MnNew->trigger();
    QCOMPARE(loads, 0);
    QVERIFY(window.web->WebBrowser1->hasDocument());
}

void TestWarmUp::firstPageComesAfterIt()
{
    MainWindow window;
    window.web->RichTextBox1->setText("<B>words</B>");
    window.web->WebBrowser1->warmUp();
    window.web->SSTab1->setTab(FrmWeb::PreviewTab);
    QVERIFY(window.web->WebBrowser1->innerHtml().contains(QStringLiteral("<B>words</B>")));
}

WEB_TEST_MAIN(TestWarmUp)
#include "tst_warmup.moc"
