// SPDX-License-Identifier: GPL-3.0-or-later

#include "OpenTool.h"
#include "WebServer.h"
#include "WebTestMain.h"
#include "builders/Pics.h"
#include "shell/FrmPicture.h"

#include <QClipboard>

using namespace brindlemark;

namespace {

const QString NoAddress =
    QStringLiteral("MsgBox|Error|Cannot add to editor because no URL address.|Information|Ok");

class Pictures : public OpenTool<Pics>
{
public:
    QString copied() const
    {
        click(tool->Command1);
        return Clipboard::GetText();
    }
    QString attribute(const char* name) const
    {
        return ask(qPrintable(QStringLiteral("document.querySelector('img')?.getAttribute('%1') ?? 'none'")
                                  .arg(QLatin1String(name))));
    }
};

} // namespace

class TestPics : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void plainTag();
    void sizeTag();
    void paragraphTag();
    void addressThatIsNone_data();
    void addressThatIsNone();
    void addressAsTyped_data();
    void addressAsTyped();
    void enterShowsTheSample();
    void bars_data();
    void bars();
    void alignmentsRefresh();
    void sizeWaits();
    void paragraphWaits();
    void pictureIsFetched();
    void browse();
    void addToEditor();
    void closingBox();
    void paragraphIsKept();
    void missingKeys();
    void cancel();
};

void TestPics::texts()
{
    const Pictures window;
    const Pics& p = *window.tool;
    QCOMPARE(p.windowTitle(), QStringLiteral("Picture Properties"));
    const QList<std::pair<const QLabel*, const char*>> labels = {{p.Label1, "Enter the URL Address:"},
                                                                 {p.Label5, "Press Enter to view sample"},
                                                                 {p.Label2, "Width:"},
                                                                 {p.Label3, "Height:"},
                                                                 {p.Label4, "Border:"}};
    for (const auto& [label, text] : labels)
        QCOMPARE(label->text().remove(u'&'), QLatin1String(text));
    compareCaptions({{p.Check1, "Specify size:"},
                     {p.ChkP, "paragraph."},
                     {p.Check3, "Close when select copy or add editor."},
                     {p.Command1, "Copy"},
                     {p.Command4, "Add to Editor", "ok to add it"},
                     {p.Command5, "Cancel"}});
    QCOMPARE(p.Text1->text(), QStringLiteral("http://"));
    QCOMPARE(p.combo1->text() + u' ' + p.combo2->text() + u' ' + p.combo3->text(),
             QStringLiteral("250 200 0"));
    QCOMPARE(p.HScroll2->maximum(), 900);
    QCOMPARE(p.HScroll3->maximum(), 900);
    QCOMPARE(p.HScroll1->maximum(), 200);
    QCOMPARE(p.HScroll2->Value(), 100);
    QCOMPARE(p.HScroll3->Value(), 88);
    for (const QWidget* control :
         QList<QWidget*>{p.combo1, p.combo2, p.HScroll2, p.HScroll3, p.Option1, p.Option2, p.Option3})
        QVERIFY(!control->isEnabled());
    QVERIFY(p.combo3->isEnabled() && p.HScroll1->isEnabled());
    QVERIFY(p.Option2->Value());
    QCOMPARE(p.Frame8->title(), QStringLiteral("View Sample"));
    QCOMPARE(p.WebBrowser1->designMode(), DesignMode::Off);
}

void TestPics::plainTag()
{
    const Pictures window;
    QTest::keyClicks(window.tool->Text1, QStringLiteral("a/b.jpg"));
    QCOMPARE(window.copied(), QStringLiteral("<IMG src=\"http://a/b.jpg\" border=0>\r\n"));
}

void TestPics::sizeTag()
{
    const Pictures window;
    overtype(window.tool->Text1, QStringLiteral("x"));
    tick(window.tool->Check1);
    for (const QWidget* control : QList<QWidget*>{window.tool->combo1, window.tool->combo2,
                                                  window.tool->HScroll2, window.tool->HScroll3})
        QVERIFY(control->isEnabled());
    QCOMPARE(window.copied(), QStringLiteral("<IMG height=200 src=\"x\" width=250 border=0>\r\n"));
    overtype(window.tool->combo1, QStringLiteral("half"));
    overtype(window.tool->combo2, QString());
    overtype(window.tool->combo3, QStringLiteral("-1"));
    QCOMPARE(window.copied(), QStringLiteral("<IMG height= src=\"x\" width=half border=-1>\r\n"));
    tick(window.tool->Check1);
    QVERIFY(!window.tool->combo1->isEnabled() && !window.tool->HScroll3->isEnabled());
    QCOMPARE(window.copied(), QStringLiteral("<IMG src=\"x\" border=-1>\r\n"));
}

void TestPics::paragraphTag()
{
    const Pictures window;
    overtype(window.tool->Text1, QStringLiteral("x"));
    tick(window.tool->ChkP);
    const QList<std::pair<OptionButton*, const char*>> options = {
        {window.tool->Option2, "center"}, {window.tool->Option1, "left"}, {window.tool->Option3, "right"}};
    for (const auto& [option, word] : options) {
        QVERIFY(option->isEnabled());
        click(option);
        QCOMPARE(window.copied(),
                 QStringLiteral("<P Align=%1><IMG src=\"x\" border=0></P>\r\n").arg(QLatin1String(word)));
    }
    tick(window.tool->ChkP);
    QVERIFY(!window.tool->Option1->isEnabled());
    QCOMPARE(window.copied(), QStringLiteral("<IMG src=\"x\" border=0>\r\n"));
}

void TestPics::addressThatIsNone_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("as it opens") << "http://";
    QTest::newRow("empty") << "";
}

void TestPics::addressThatIsNone()
{
    QFETCH(QString, address);
    Pictures window;
    overtype(window.tool->Text1, address);
    for (QPushButton* button : {window.tool->Command1, window.tool->Command4}) {
        window.doors.answerMsgBox(MsgAnswer::Ok);
        click(button);
        QCOMPARE(window.doors.takeAsked(), QStringList{NoAddress});
        QCOMPARE(window.tool->focusWidget(), window.tool->Text1);
        QVERIFY(!window.tool->Text1->hasSelectedText()); // what is typed goes behind "http://"
    }
    QTest::keyClick(window.tool->Text1, Qt::Key_Return); // says nothing
    QCOMPARE(window.settledSample(), QString());
    QCOMPARE(window.source(), QByteArray());
}

void TestPics::addressAsTyped_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("one letter more") << "http://x";
    QTest::newRow("quote") << "a\"b";
    QTest::newRow("blanks") << " a b ";
    QTest::newRow("script") << "javascript:alert(1)";
    QTest::newRow("5 MB of data") << QStringLiteral("data:image/png;base64,") + QString(5'000'000, u'A');
}

void TestPics::addressAsTyped()
{
    QFETCH(QString, address);
    const Pictures window;
    window.tool->Text1->setText(address);
    QCOMPARE(window.copied(), QStringLiteral("<IMG src=\"") + address + QStringLiteral("\" border=0>\r\n"));
}

void TestPics::enterShowsTheSample()
{
    const Pictures window;
    overtype(window.tool->Text1, QStringLiteral("http://127.0.0.1:9/none.png"));
    QCOMPARE(window.settledSample(), QString());
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.settledSample(), // broken, and shown
             QStringLiteral("<img src=\"http://127.0.0.1:9/none.png\" border=\"0\">"));
    QVERIFY(isLoaded<Pics>());
}

void TestPics::bars_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<int>("first");
    QTest::newRow("width") << 0 << "width" << 101;
    QTest::newRow("height") << 1 << "height" << 89;
    QTest::newRow("border") << 2 << "border" << 1;
}

void TestPics::bars()
{
    QFETCH(int, which);
    QFETCH(QString, attribute);
    QFETCH(int, first);
    const Pictures window;
    Pics& p = *window.tool;
    overtype(p.Text1, QStringLiteral("x"));
    tick(p.Check1);
    ScrollBar* bar = QList<ScrollBar*>{p.HScroll2, p.HScroll3, p.HScroll1}.at(which);
    const QLineEdit* box = QList<QLineEdit*>{p.combo1, p.combo2, p.combo3}.at(which);
    step(bar);
    QCOMPARE(box->text(), QString::number(first));
    QTRY_COMPARE(window.attribute(qPrintable(attribute)), QString::number(first));
    dragToEnd(bar);
    QCOMPARE(box->text(), QString::number(first));
    release(bar);
    QTRY_COMPARE(window.attribute(qPrintable(attribute)), QString::number(bar->maximum()));
}

/// Also the one that is chosen already.
void TestPics::alignmentsRefresh()
{
    const Pictures window;
    overtype(window.tool->Text1, QStringLiteral("x"));
    tick(window.tool->ChkP);
    const QList<std::pair<OptionButton*, const char*>> options = {
        {window.tool->Option2, "center"}, {window.tool->Option3, "right"}, {window.tool->Option1, "left"}};
    for (const auto& [option, word] : options) {
        click(option);
        QCOMPARE(window.settledSample(),
                 QStringLiteral("<p align=\"%1\"><img src=\"x\" border=\"0\"></p>").arg(QLatin1String(word)));
    }
}

/// The sample keeps the former state until something else refreshes it.
void TestPics::sizeWaits()
{
    const Pictures window;
    const QString plainPicture = QStringLiteral("<img src=\"x\" border=\"0\">");
    const QString sizedPicture = QStringLiteral("<img height=\"200\" src=\"x\" width=\"250\" border=\"0\">");
    overtype(window.tool->Text1, QStringLiteral("x"));
    tick(window.tool->Check1);
    QCOMPARE(window.settledSample(), plainPicture);
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.settledSample(), sizedPicture);
    overtype(window.tool->Text1, QStringLiteral("y"));
    tick(window.tool->Check1);
    QCOMPARE(window.settledSample(), QString(sizedPicture).replace(u'x', u'y'));
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.settledSample(), QString(plainPicture).replace(u'x', u'y'));
}

void TestPics::paragraphWaits()
{
    const Pictures window;
    const QString picture = QStringLiteral("<img src=\"x\" border=\"0\">");
    overtype(window.tool->Text1, QStringLiteral("x"));
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.settledSample(), picture);
    tick(window.tool->ChkP);
    QCOMPARE(window.settledSample(), picture);
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QCOMPARE(window.settledSample(),
             QStringLiteral("<p align=\"center\">") + picture + QStringLiteral("</p>"));
    tick(window.tool->ChkP);
    QCOMPARE(window.settledSample(),
             QStringLiteral("<p align=\"center\">") + picture + QStringLiteral("</p>"));
}

void TestPics::pictureIsFetched()
{
    WebServer server;
    QFile picture(QStringLiteral(SOURCE_DIR "/data/demo/lamp.svg"));
    QVERIFY(picture.open(QIODevice::ReadOnly));
    server.answer(QStringLiteral("/lamp.svg"),
                  "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nConnection: close\r\n\r\n" +
                      picture.readAll());
    const Pictures window;
    overtype(window.tool->Text1, server.url(QStringLiteral("/lamp.svg")));
    QTest::keyClick(window.tool->Text1, Qt::Key_Return);
    QTRY_VERIFY(window.ask("document.querySelector('img')?.naturalWidth ?? 0").toInt() > 0);
}

void TestPics::browse()
{
    Pictures window;
    const QString file = window.folder.path(QStringLiteral("lamp.png"));
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QVERIFY(image.save(file));
    window.doors.answerOpen(file);
    click(window.tool->CmdBrowse);
    QVERIFY(isLoaded<FrmPicture>());
    QCOMPARE(window.tool->Text1->text(), QStringLiteral("http://")); // until it is wanted
    click(form<FrmPicture>()->Use);
    QCOMPARE(window.tool->Text1->text(), QUrl::fromLocalFile(file).toString());
    QTRY_COMPARE(window.attribute("src"), QUrl::fromLocalFile(file).toString()); // the sample shows it

    window.tool->Text1->setText(QStringLiteral("http://"));
    window.tool->Text1->setFocus();
    QGuiApplication::clipboard()->setText(QStringLiteral("https://p.example/1.jpg"));
    QTest::keyClick(window.tool->Text1, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window.tool->Text1->text(), QStringLiteral("https://p.example/1.jpg"));
}

void TestPics::addToEditor()
{
    Pictures window;
    overtype(window.tool->Text1, QStringLiteral("x"));
    window.addsInPlaceOfTheSelection(window.tool->Command4, QStringLiteral("<IMG src=\"x\" border=0>\r\n"));
    QVERIFY(isLoaded<Pics>());
}

void TestPics::closingBox()
{
    Pictures window;
    tick(window.tool->Check3);
    QVERIFY(window.settings().contains("[Picpro]\r\nchk3=1\r\nchkp=0\r\n"));
    overtype(window.tool->Text1, QStringLiteral("x"));
    click(window.tool->Command1);
    QVERIFY(!isLoaded<Pics>());
    window.show();
    overtype(window.tool->Text1, QStringLiteral("x"));
    click(window.tool->Command4);
    QVERIFY(!isLoaded<Pics>());
}

void TestPics::paragraphIsKept()
{
    Pictures window;
    tick(window.tool->ChkP);
    tick(window.tool->Check1);
    QVERIFY(window.settings().contains("[Picpro]\r\nchk3=0\r\nchkp=1\r\n"));
    window.reopen();
    QCOMPARE(window.tool->ChkP->Value(), 1);
    QVERIFY(window.tool->Option1->isEnabled());
    QCOMPARE(window.tool->Check1->Value(), 0);
}

void TestPics::missingKeys()
{
    const MainWindow window;
    window.folder.write(QStringLiteral("web.ini"), "[Picpro]\r\nchkp=x\r\n");
    QCOMPARE(form<Pics>()->Check3->Value(), 0);
    QCOMPARE(form<Pics>()->ChkP->Value(), 0);
}

void TestPics::cancel()
{
    const Pictures window;
    overtype(window.tool->Text1, QStringLiteral("x"));
    QTest::keyClick(window.tool->Text1, Qt::Key_Escape);
    QVERIFY(!isLoaded<Pics>());
    QCOMPARE(window.source(), QByteArray());
}

WEB_TEST_MAIN(TestPics)
#include "tst_pics.moc"
