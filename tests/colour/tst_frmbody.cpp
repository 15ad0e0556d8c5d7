// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "colour/ColorSample.h"
#include "colour/FrmBody.h"

using namespace brindlemark;

namespace {

const QString Nothing =
    QStringLiteral("MsgBox|Error|There none check in box, cannot add to editor.|Information|Ok");
constexpr int Face = -2147483633; // 0x8000000F

/// The window of the page's colours beside a main window.
class Body : public MainWindow
{
public:
    Body() : body(form<FrmBody>())
    {
        body->Show();
        if (!QTest::qWaitForWindowActive(body))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
    }

    FrmBody* body;

    void mix(int red, int green, int blue) const
    {
        body->RedG->setValue(red);
        body->GreenG->setValue(green);
        body->BlueG->setValue(blue);
    }
    /// What the screen shows at a place of a control.
    static QColor seen(const QWidget* control, QPoint place)
    {
        const QWidget* window = control->window();
        return window->screen()
            ->grabWindow(window->winId())
            .toImage()
            .pixelColor(control->mapTo(window, place));
    }
    QColor lab() const { return body->Lab->palette().color(QPalette::WindowText); }
    void load(const QByteArray& preset)
    {
        folder.write(QStringLiteral("body.fpc"), preset);
        doors.answerOpen(folder.path(QStringLiteral("body.fpc")));
        click(body->Command5);
    }
};

const QByteArray FullPreset = "[body]\r\ncolor1=1\r\ncolor2=2\r\ncolor3=3\r\ncolor4=4\r\n"
                              "text1=<body bgcolor=#010000>\r\ntext2=\r\ntext3=<body link=#030000>\r\n"
                              "text4=<body alink=#040000>\r\n";

} // namespace

class TestFrmBody : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void boxesTakeTheColor_data();
    void boxesTakeTheColor();
    void tickedBoxKeepsItsColor();
    void colorByNumbers();
    void linkSample();
    void linkSampleStandsOnWhite();
    void pressOnTheLink();
    void clickedLinkAloneShowsTheLinkSample();
    void addWithoutABox();
    void addWithOneBox_data();
    void addWithOneBox();
    void addAtTheStart();
    void addReplacesNothing();
    void presetSaves();
    void presetLoads();
    void presetWithoutTags();
    void presetCutInTheMiddle();
    void presetCancelled();
    void cancelCloses();
    void keyboard();
};

void TestFrmBody::texts()
{
    const Body window;
    const FrmBody& body = *window.body;
    QCOMPARE(body.windowTitle(), QStringLiteral("Body Attributes"));
    QCOMPARE(body.Frame3->title(), QStringLiteral("Color"));
    QCOMPARE(body.Label1->text(), QStringLiteral("Pick color then click check to add color."));
    QCOMPARE(body.Check2->text().remove(u'&'), QStringLiteral("Sets the text color."));
    QCOMPARE(body.Check4->text().remove(u'&'), QStringLiteral("Sets the color of links."));
    QCOMPARE(body.Check5->text().remove(u'&'), QStringLiteral("Sets the color of links on click"));
    QCOMPARE(body.Frame1->title(), QStringLiteral("View Link Sample"));
    QCOMPARE(body.Lab->text(), QStringLiteral("Sample Body Attributes."));
    QCOMPARE(window.lab(), QColor(Qt::blue));
    QCOMPARE(body.Command3->text().remove(u'&'), QStringLiteral("View"));
    QCOMPARE(body.Command4->text().remove(u'&'), QStringLiteral("Color Save"));
    QCOMPARE(body.Command5->text().remove(u'&'), QStringLiteral("Color Load"));
    QCOMPARE(body.Command1->text().remove(u'&'), QStringLiteral("Add to Editor"));
    QCOMPARE(body.Command2->text().remove(u'&'), QStringLiteral("Cancel"));
    QCOMPARE(body.rowColor, QStringLiteral("#000000"));
    for (const CheckBox* box : {body.Check1, body.Check2, body.Check4, body.Check5})
        QCOMPARE(box->Value(), 0);
    for (const QString& text : {body.backgroundTag, body.textTag, body.linkTag, body.activeLinkTag})
        QCOMPARE(text, QString());
    QVERIFY(!body.Check1->isVisible()); // out of the user's reach
    QVERIFY(!body.Picture1->isVisible());
}

void TestFrmBody::boxesTakeTheColor_data()
{
    QTest::addColumn<CheckBox * FrmBody::*>("box");
    QTest::addColumn<ColorSample * FrmBody::*>("sample");
    QTest::addColumn<QString FrmBody::*>("text");
    QTest::addColumn<QString>("tag");
    const auto row = [](const char* name, auto box, auto sample, auto text, const char* tag) {
        QTest::newRow(name) << static_cast<CheckBox * FrmBody::*>(box)
                            << static_cast<ColorSample * FrmBody::*>(sample) << text
                            << QString::fromLatin1(tag);
    };
    row("background", &FrmBody::Check1, &FrmBody::Picture1, &FrmBody::backgroundTag, "<body bgcolor=");
    row("text", &FrmBody::Check2, &FrmBody::Picture2, &FrmBody::textTag, "<body text=");
    row("link", &FrmBody::Check4, &FrmBody::Picture5, &FrmBody::linkTag, "<body link=");
    row("clicked link", &FrmBody::Check5, &FrmBody::Picture6, &FrmBody::activeLinkTag, "<body alink=");
}

void TestFrmBody::boxesTakeTheColor()
{
    using Box = CheckBox* FrmBody::*;
    using Shown = ColorSample* FrmBody::*;
    using Text = QString FrmBody::*;
    QFETCH(Box, box);
    QFETCH(Shown, sample);
    QFETCH(Text, text);
    QFETCH(QString, tag);
    const Body window;
    FrmBody& body = *window.body;
    QCOMPARE((body.*sample)->BackColor(), Face);
    (body.*box)->setValue(1);
    QCOMPARE((body.*sample)->BackColor(), 0);
    QCOMPARE(body.*text, tag + QStringLiteral("#000000>"));
    (body.*box)->setValue(0);
    QCOMPARE((body.*sample)->BackColor(), Face);
    QCOMPARE((body.*sample)->shownColor(), body.palette().color(QPalette::Button));
    QCOMPARE(body.*text, QString());
    window.mix(255, 128, 1);
    (body.*box)->setValue(1);
    QCOMPARE((body.*sample)->BackColor(), 0x0180FF);
    if (body.*sample != body.Picture1) // that one is out of sight
        QTRY_COMPARE(Body::seen(body.*sample, (body.*sample)->rect().center()), QColor(255, 128, 1));
    QCOMPARE(body.*text, tag + QStringLiteral("#FF8001>"));
}

void TestFrmBody::tickedBoxKeepsItsColor()
{
    const Body window;
    FrmBody& body = *window.body;
    tick(body.Check2);
    step(body.RedG);
    QCOMPARE(body.rowColor, QStringLiteral("#010000"));
    QCOMPARE(body.textTag, QStringLiteral("<body text=#000000>"));
    QCOMPARE(body.Picture2->BackColor(), 0);
    tick(body.Check2);
    tick(body.Check2);
    QCOMPARE(body.textTag, QStringLiteral("<body text=#010000>"));
    dragToEnd(body.GreenG);
    QCOMPARE(body.rowColor, QStringLiteral("#01FF00"));
    release(body.GreenG);
}

void TestFrmBody::colorByNumbers()
{
    const Body window;
    FrmBody& body = *window.body;
    tick(body.Check2);
    overtype(body.NumRed, QStringLiteral("255"));
    overtype(body.NumGreen, QStringLiteral("128"));
    overtype(body.NumBlue, QStringLiteral("1"));
    QCOMPARE(body.rowColor, QStringLiteral("#FF8001"));
    QCOMPARE(body.FColor1->BackColor(), 0x0180FF);
    QCOMPARE(body.textTag, QStringLiteral("<body text=#000000>")); // a ticked box keeps its colour
    tick(body.Check4);
    QCOMPARE(body.linkTag, QStringLiteral("<body link=#FF8001>"));
}

void TestFrmBody::linkSample()
{
    const Body window;
    FrmBody& body = *window.body;
    window.mix(255, 0, 0);
    tick(body.Check2); // no link
    QCOMPARE(window.lab(), QColor(Qt::blue));
    tick(body.Check4);
    QCOMPARE(window.lab(), QColor(255, 0, 0));
    tick(body.Check4);
    QCOMPARE(window.lab(), body.palette().color(QPalette::Button));
    window.mix(0, 255, 0);
    tick(body.Check5); // shows the link's own colour
    QCOMPARE(window.lab(), body.palette().color(QPalette::Button));
    body.Picture5->setBackColor(0x123456);
    click(body.Command3);
    QCOMPARE(window.lab(), QColor(0x56, 0x34, 0x12));
}

/// As on a page, whatever the desktop's colours.
void TestFrmBody::linkSampleStandsOnWhite()
{
    const Body window;
    const QLabel* lab = window.body->Lab;
    for (const QPoint corner : {lab->rect().topLeft(), lab->rect().bottomRight()})
        QTRY_COMPARE(Body::seen(lab, corner), QColor(Qt::white));
}

/// The box of the clicked link shows the link's own colour, which is none yet.
void TestFrmBody::clickedLinkAloneShowsTheLinkSample()
{
    const Body window;
    FrmBody& body = *window.body;
    window.mix(255, 0, 0);
    QCOMPARE(window.lab(), QColor(Qt::blue));
    tick(body.Check5);
    QCOMPARE(window.lab(), body.palette().color(QPalette::Button));
    body.Picture5->setBackColor(0x123456);
    tick(body.Check5); // unticking it too
    QCOMPARE(window.lab(), QColor(0x56, 0x34, 0x12));
}

void TestFrmBody::pressOnTheLink()
{
    const Body window;
    FrmBody& body = *window.body;
    QTest::mousePress(body.Lab, Qt::LeftButton);
    QCOMPARE(window.lab(), QColor(Qt::blue));
    QTest::mouseRelease(body.Lab, Qt::LeftButton);
    QCOMPARE(window.lab(), QColor(Qt::blue));

    window.mix(1, 2, 3);
    tick(body.Check4);
    window.mix(4, 5, 6);
    tick(body.Check5);
    QCOMPARE(window.lab(), QColor(1, 2, 3));
    QTest::mousePress(body.Lab, Qt::LeftButton);
    QCOMPARE(window.lab(), QColor(4, 5, 6));
    QTest::mouseRelease(body.Lab, Qt::LeftButton);
    QCOMPARE(window.lab(), QColor(1, 2, 3));
}

void TestFrmBody::addWithoutABox()
{
    Body window;
    window.doors.answerMsgBox(MsgAnswer::Ok);
    click(window.body->Command1);
    QCOMPARE(window.doors.takeAsked(), QStringList{Nothing});
    QVERIFY(isLoaded<FrmBody>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmBody::addWithOneBox_data()
{
    QTest::addColumn<CheckBox * FrmBody::*>("box");
    QTest::addColumn<QByteArray>("tag");
    const auto row = [](const char* name, auto box, const char* tag) {
        QTest::newRow(name) << static_cast<CheckBox * FrmBody::*>(box) << QByteArray(tag);
    };
    row("background", &FrmBody::Check1, "<body bgcolor=#000000>");
    row("text", &FrmBody::Check2, "<body text=#000000>");
    row("link", &FrmBody::Check4, "<body link=#000000>");
    row("clicked link", &FrmBody::Check5, "<body alink=#000000>");
}

/// Any single box is enough.
void TestFrmBody::addWithOneBox()
{
    using Box = CheckBox* FrmBody::*;
    QFETCH(Box, box);
    QFETCH(QByteArray, tag);
    const Body window;
    (window.body->*box)->setValue(1);
    click(window.body->Command1);
    QCOMPARE(window.source(), tag + "\r\n");
    QVERIFY(!isLoaded<FrmBody>());
}

void TestFrmBody::addAtTheStart()
{
    const Body window;
    window.web->RichTextBox1->setText("<BODY>x</BODY>");
    window.web->RichTextBox1->setSelStart(9);
    window.mix(255, 0, 0);
    tick(window.body->Check2);
    window.mix(0, 0, 255);
    tick(window.body->Check4);
    click(window.body->Command1);
    QCOMPARE(window.source(), QByteArray("<body text=#FF0000><body link=#0000FF>\r\n<BODY>x</BODY>"));
    QVERIFY(!isLoaded<FrmBody>());
}

void TestFrmBody::addReplacesNothing()
{
    const Body window;
    window.web->RichTextBox1->setText("abc");
    window.web->RichTextBox1->setSelStart(0);
    window.web->RichTextBox1->setSelLength(3);
    tick(window.body->Check5);
    click(window.body->Command1);
    QCOMPARE(window.source(), QByteArray("<body alink=#000000>\r\nabc"));
}

void TestFrmBody::presetSaves()
{
    Body window;
    tick(window.body->Check2);
    window.doors.answerSave(window.folder.path(QStringLiteral("body.fpc")));
    click(window.body->Command4);
    QCOMPARE(window.doors.takeAsked(),
             QStringList{QStringLiteral("Save||1bodycolor|FPC Files (*.fpc)|*.fpc|")});
    QCOMPARE(window.folder.read(QStringLiteral("body.fpc")),
             QByteArray("[body]\r\ncolor1=-2147483633\r\ncolor2=0\r\ncolor3=-2147483633\r\n"
                        "color4=-2147483633\r\ntext1=\r\ntext2=<body text=#000000>\r\ntext3=\r\ntext4=\r\n"));
}

void TestFrmBody::presetLoads()
{
    Body window;
    FrmBody& body = *window.body;
    window.load(FullPreset);
    for (const CheckBox* box : {body.Check1, body.Check2, body.Check4, body.Check5})
        QCOMPARE(box->Value(), 1);
    QCOMPARE(body.Picture1->BackColor(), 1);
    QCOMPARE(body.Picture2->BackColor(), 2);
    QCOMPARE(body.Picture5->BackColor(), 3);
    QCOMPARE(body.Picture6->BackColor(), 4);
    QCOMPARE(body.textTag, QString()); // ticked all the same
    QCOMPARE(body.FColor1->BackColor(), 0);
    click(body.Command1);
    QCOMPARE(window.source(),
             QByteArray("<body bgcolor=#010000><body link=#030000><body alink=#040000>\r\n"));
}

/// The ticks count, not the tags.
void TestFrmBody::presetWithoutTags()
{
    Body window;
    window.load("[body]\r\ncolor1=1\r\ncolor2=2\r\ncolor3=3\r\ncolor4=4\r\ntext1=\r\ntext2=\r\ntext3=\r\n"
                "text4=\r\n");
    click(window.body->Command1);
    QCOMPARE(window.source(), QByteArray("\r\n"));
    QVERIFY(!isLoaded<FrmBody>());
}

void TestFrmBody::presetCutInTheMiddle()
{
    Body window;
    FrmBody& body = *window.body;
    window.mix(9, 0, 0);
    window.load("[body]\r\ncolor1=1\r\ncolor2=abc\r\ntext1=lost\r\n");
    QCOMPARE(body.Picture1->BackColor(), 1);
    QCOMPARE(body.Picture2->BackColor(), 9);
    QCOMPARE(body.Check5->Value(), 1);
    QCOMPARE(body.backgroundTag, QStringLiteral("<body bgcolor=#090000>")); // as the box's tick made it
}

void TestFrmBody::presetCancelled()
{
    Body window;
    window.doors.cancelOpen();
    click(window.body->Command5);
    QCOMPARE(window.body->Check1->Value(), 0);
    QCOMPARE(window.body->Check2->Value(), 0);
}

void TestFrmBody::cancelCloses()
{
    const Body window;
    tick(window.body->Check2);
    QTest::keyClick(window.body, Qt::Key_Escape);
    QVERIFY(!isLoaded<FrmBody>());
    QCOMPARE(window.source(), QByteArray());
}

void TestFrmBody::keyboard()
{
    const Body window;
    FrmBody& body = *window.body;
    QTest::keyClick(&body, Qt::Key_T, Qt::AltModifier);
    QTRY_COMPARE(body.Check2->Value(), 1);
    QTest::keyClick(body.Check2, Qt::Key_Return); // the default button
    QCOMPARE(window.source(), QByteArray("<body text=#000000>\r\n"));
}

WEB_TEST_MAIN(TestFrmBody)
#include "tst_frmbody.moc"
