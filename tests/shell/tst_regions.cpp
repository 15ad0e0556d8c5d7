// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "platform/RuntimeError.h"
#include "shell/FrmPop.h"
#include "shell/Regions.h"

#include <QFile>

using namespace brindlemark;

/// The region buttons and the cell menu.
class TestRegions : public QObject
{
    Q_OBJECT

private slots:
    void allAreOffAtTheStart();
    void regions_data();
    void regions();
    void lastOfSeveral_data();
    void lastOfSeveral();
    void withoutMarkers_data();
    void withoutMarkers();
    void withoutMarkersWholeCharactersAreTaken_data();
    void withoutMarkersWholeCharactersAreTaken();
    void closingMarkerGone_data();
    void closingMarkerGone();
    void tornPartBehindAWholeOne();
    void markerAtTheStart();
    void overtype();
    void selectOff();
    void cellMenuAtTheMouse();
    void cellMenuByKeys();
    void buttonsOfAStyle_data();
    void buttonsOfAStyle();
    void styleMarkerAtTheStart();
    void pictureMarkerStaysSelected();
    void searchedFromTheSelection();
    void newDocument();
    void openedDocument();
    void declinedDocument();
    void editorComesBack();
    void searchMakesDirty();
    void thousandListings();
    void listingPages_data();
    void listingPages();
};

namespace {

QPushButton* buttonOf(const MainWindow& window, const QString& name)
{
    return window.web->findChild<QPushButton*>(name);
}

/// Clicks a region button, or takes an entry of the pop-up menus. Buttons work whatever the document holds.
void take(const MainWindow& window, const QString& name)
{
    if (QPushButton* button = buttonOf(window, name)) {
        button->setEnabled(true);
        QTest::mouseClick(button, Qt::LeftButton);
        return;
    }
    auto* pop = form<FrmPop>();
    pop->muDesc->setEnabled(true);
    for (QMenu* menu : {&pop->mucell, &pop->mulistpopup, &pop->mubody}) {
        for (QAction* entry : menu->actions()) {
            if (entry->objectName() != name)
                continue;
            menu->popup(window.web->mapToGlobal(QPoint(50, 50)));
            QVERIFY(QTest::qWaitForWindowExposed(menu));
            // A menu that came up under the pointer takes no click before that has moved, in some toolkits.
            const QPoint place = menu->actionGeometry(entry).center();
            for (int step = 9; step >= 0; --step)
                QTest::mouseMove(menu, place - QPoint(step, 0));
            QTest::mouseClick(menu, Qt::LeftButton, {}, place);
            return;
        }
    }
    QTest::qFail(qPrintable(name + QStringLiteral(" is no region")), __FILE__, __LINE__);
}

/// Each region's control, its markers and the caption of the control.
void addRegions()
{
    QTest::addColumn<QByteArray>("opening");
    QTest::addColumn<QByteArray>("closing");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* name, const char* opening, const char* closing, const char* caption) {
        QTest::newRow(name) << QByteArray(opening) << QByteArray(closing) << QString::fromLatin1(caption);
    };
    row("CmdTitle", "<!-- Body-title -->", "<!-- Body-title2 -->", "Title");
    row("CmdLine", "<!-- Body-line -->", "<!-- Body-line2 -->", "Line");
    row("CmdDes", "<!-- Body-description -->", "<!-- Body-description2 -->", "Description");
    row("CmdPic", "<!-- Body-picture -->", "<!-- Body-picture2 -->", "Picture");
    row("muDesc", "<!-- Body4-Cell -->", "<!-- Body4-Cell2 -->", "Description:");
    row("mupayment", "<!-- Body-Cell -->", "<!-- Body-Cell2 -->", "For payment I do accept:");
    row("muloc", "<!-- Body2-Cell -->", "<!-- Body2-Cell2 -->", "For locations of shipping I do accpet:");
    row("mushipping", "<!-- Body3-Cell -->", "<!-- Body3-Cell2 -->", "Who pays for shipping?");
    row("mulistpayment", "<!-- Body-list -->", "<!-- Body-list2 -->", "For payment I do accept:");
    row("mulistlocation", "<!-- Body2-list -->", "<!-- Body2-list2 -->",
        "For locations of shipping I do accpet:");
    row("mulistwhoshipping", "<!-- Body3-list -->", "<!-- Body3-list2 -->", "Who pays for shipping?");
    row("mubodypayment", "<!-- Body-body -->", "<!-- Body-body2 -->", "For payment I do accept:");
    row("mubodyloca", "<!-- Body2-body -->", "<!-- Body2-body2 -->",
        "For locations of shipping I do accpet:");
    row("mubodywho", "<!-- Body3-body -->", "<!-- Body3-body2 -->", "Who pays for shipping?");
}

/// A document with all regions, each holding its markers' name.
QByteArray allRegions()
{
    QByteArray text = "<BODY>\r\n<!-- body-buildwizard3 -->\r\n";
    for (const char* name : {"Body-title", "Body-line", "Body-picture", "Body-description", "Body4-Cell",
                             "Body-Cell", "Body-list", "Body-body", "Body2-Cell", "Body2-list", "Body2-body",
                             "Body3-Cell", "Body3-list", "Body3-body"})
        text += QByteArray("<!-- ") + name + " -->\r\nthe " + name + " text\r\n<!-- " + name + "2 -->\r\n";
    return text + "</BODY>";
}

QString stateOf(const MainWindow& window)
{
    QString state;
    for (const char* name : {"CmdTitle", "CmdLine", "CmdDes", "CmdCell", "CmdOffLeg", "CmdPic"}) {
        if (buttonOf(window, QString::fromLatin1(name))->isEnabled())
            state += QString::fromLatin1(name) + u' ';
    }
    return state.trimmed();
}

} // namespace

void TestRegions::allAreOffAtTheStart()
{
    const MainWindow window;
    QCOMPARE(stateOf(window), QString());
    QCOMPARE(buttonOf(window, QStringLiteral("CmdCell"))->text(), QStringLiteral("Cell"));
    QCOMPARE(buttonOf(window, QStringLiteral("CmdOffLeg"))->text(), QStringLiteral("Turn Select Off"));
    QVERIFY(!isLoaded<FrmPop>() || !form<FrmPop>()->isVisible());
}

void TestRegions::regions_data()
{
    addRegions();
}

void TestRegions::regions()
{
    QFETCH(QByteArray, opening);
    QFETCH(QByteArray, closing);
    QFETCH(QString, caption);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const MainWindow window;
    const QByteArray text = allRegions();
    window.web->RichTextBox1->setText(text);
    window.web->MenuBar1->setFocus();
    take(window, name);
    const auto inside = text.indexOf(opening) + opening.size();
    QCOMPARE(window.web->RichTextBox1->SelStart(), int(inside));
    QCOMPARE(window.web->RichTextBox1->SelLength(), int(text.indexOf(closing) - inside));
    QCOMPARE(window.web->RichTextBox1->SelText(), "\r\nthe " + opening.mid(5).chopped(4) + " text\r\n");
    QTRY_VERIFY(window.web->RichTextBox1->hasFocus());
    QCOMPARE(window.source(), text);
    if (const QPushButton* button = buttonOf(window, name)) {
        QCOMPARE(button->text(), caption);
    } else {
        QStringList captions;
        for (QMenu* menu : {&form<FrmPop>()->mucell, &form<FrmPop>()->mulistpopup, &form<FrmPop>()->mubody}) {
            for (const QAction* entry : menu->actions()) {
                if (entry->objectName() == name)
                    captions << entry->text();
            }
        }
        QCOMPARE(captions, QStringList(caption));
    }
}

void TestRegions::lastOfSeveral_data()
{
    addRegions();
}

void TestRegions::lastOfSeveral()
{
    QFETCH(QByteArray, opening);
    QFETCH(QByteArray, closing);
    const MainWindow window;
    window.web->RichTextBox1->setText(opening + "first" + closing + "between" + opening.toUpper() + "last" +
                                      closing.toLower() + "end");
    take(window, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(window.web->RichTextBox1->SelText(), QByteArray("last"));
}

void TestRegions::withoutMarkers_data()
{
    addRegions();
}

void TestRegions::withoutMarkers()
{
    const MainWindow window;
    window.web->RichTextBox1->setText(QByteArray(100'000, 'x'));
    window.web->RichTextBox1->setSelStart(50);
    take(window, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(window.web->RichTextBox1->SelStart(), 0);
    QCOMPARE(window.web->RichTextBox1->SelLength(), 90000);
}

void TestRegions::withoutMarkersWholeCharactersAreTaken_data()
{
    QTest::addColumn<int>("before"); // bytes in front of the character
    QTest::addColumn<QByteArray>("character");
    QTest::addColumn<int>("selected");
    QTest::newRow("1 of 2 bytes") << 89'999 << QByteArray("\xC3\xA9") << 89'999;
    QTest::newRow("2 of 2 bytes") << 89'998 << QByteArray("\xC3\xA9") << 90'000;
    QTest::newRow("2 of 3 bytes") << 89'998 << QByteArray("\xE2\x82\xAC") << 89'998;
    QTest::newRow("3 of 4 bytes") << 89'997 << QByteArray("\xF0\x9F\x98\x80") << 89'997;
    QTest::newRow("1 byte of Western text") << 89'999 << QByteArray("\xE9") << 90'000;
}

/// What is typed over the selection leaves no half of a character behind it.
void TestRegions::withoutMarkersWholeCharactersAreTaken()
{
    QFETCH(int, before);
    QFETCH(QByteArray, character);
    QFETCH(int, selected);
    const MainWindow window;
    const QByteArray text = QByteArray(before, 'x') + character + "rest";
    window.web->RichTextBox1->setText(text);
    const TextEncoding encoding = window.web->RichTextBox1->textEncoding();
    take(window, QStringLiteral("CmdTitle"));
    QCOMPARE(window.web->RichTextBox1->SelStart(), 0);
    QCOMPARE(window.web->RichTextBox1->SelLength(), selected);
    window.type(QStringLiteral("a"));
    QCOMPARE(window.source(), "a" + text.sliced(selected));
    QVERIFY(window.web->RichTextBox1->textEncoding() == encoding);
}

void TestRegions::closingMarkerGone_data()
{
    addRegions();
}

/// The program ends, and the text is kept first.
void TestRegions::closingMarkerGone()
{
    QFETCH(QByteArray, opening);
    MainWindow window;
    const QByteArray text = "<P>text</P>" + opening + "and no end";
    window.web->RichTextBox1->setText(text);
    window.doors.answerMsgBox(MsgAnswer::Ok);
    take(window, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(window.doors.ended, 1);
    const QStringList asked = window.doors.takeAsked();
    QCOMPARE(asked.size(), 1);
    QVERIFY2(asked.constFirst().startsWith(QStringLiteral("MsgBox|Brindlemark|Run-time error '380':")),
             qPrintable(asked.constFirst()));
    QVERIFY(asked.constFirst().contains(QStringLiteral("Recovered.htm")));
    QCOMPARE(window.folder.read(QStringLiteral("Recovered.htm")), text);
}

/// The caret shows where the part would begin.
void TestRegions::tornPartBehindAWholeOne()
{
    const MainWindow window;
    RichTextBox& source = *window.web->RichTextBox1;
    const QByteArray front = "a<!-- Body-title -->1<!-- Body-title2 -->b<!-- Body-title -->";
    for (const QByteArray& behind :
         {QByteArray("2"), QByteArray("\xE9"), QByteArray("<!-- Body-title -->")}) {
        source.setText(front + behind);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, selectRegion(source, Region::Title));
        QCOMPARE(source.SelStart(), int(front.size()));
        QCOMPARE(source.SelLength(), 0);
    }
}

void TestRegions::markerAtTheStart()
{
    const MainWindow window;
    window.web->RichTextBox1->setText("<!-- Body-title -->Lamp<!-- Body-title2 -->");
    take(window, QStringLiteral("CmdTitle"));
    QCOMPARE(window.web->RichTextBox1->SelText(), QByteArray("Lamp"));
}

void TestRegions::overtype()
{
    const MainWindow window;
    window.web->RichTextBox1->setText("a<!-- Body-title -->Lamp<!-- Body-title2 -->b");
    take(window, QStringLiteral("CmdTitle"));
    QTRY_VERIFY(window.web->RichTextBox1->hasFocus());
    window.type(QStringLiteral("Chair"));
    QCOMPARE(window.source(), QByteArray("a<!-- Body-title -->Chair<!-- Body-title2 -->b"));
}

void TestRegions::selectOff()
{
    const MainWindow window;
    window.web->RichTextBox1->setText(allRegions());
    window.web->RichTextBox1->setSelStart(30);
    window.web->RichTextBox1->setSelLength(12);
    take(window, QStringLiteral("CmdOffLeg"));
    QCOMPARE(window.web->RichTextBox1->SelStart(), 30);
    QCOMPARE(window.web->RichTextBox1->SelLength(), 0);
}

void TestRegions::cellMenuAtTheMouse()
{
    const MainWindow window;
    window.web->RichTextBox1->setText(allRegions());
    QPushButton* cell = buttonOf(window, QStringLiteral("CmdCell"));
    cell->setEnabled(true);
    const QPoint place = cell->mapToGlobal(QPoint(10, 5));
    QCursor::setPos(place);
    QTest::mouseMove(cell, QPoint(10, 5));
    QTest::mouseClick(cell, Qt::LeftButton, {}, QPoint(10, 5));
    QMenu& menu = form<FrmPop>()->mucell;
    QTRY_VERIFY(menu.isVisible());
    QStringList captions;
    for (const QAction* entry : menu.actions())
        captions << entry->text();
    QCOMPARE(captions,
             QStringList({QStringLiteral("Description:"), QStringLiteral("For payment I do accept:"),
                          QStringLiteral("For locations of shipping I do accpet:"),
                          QStringLiteral("Who pays for shipping?")}));
    QVERIFY(!form<FrmPop>()->isVisible());
    QTest::keyClick(&menu, Qt::Key_Escape);
    QTRY_VERIFY(!menu.isVisible());
}

void TestRegions::cellMenuByKeys()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), allRegions());
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QPushButton* cell = buttonOf(window, QStringLiteral("CmdCell"));
    QVERIFY(cell->isEnabled());
    const QWidget* source = window.web->RichTextBox1; // where the mouse lies
    QCursor::setPos(source->mapToGlobal(source->rect().center()));
    QTest::mouseMove(window.web->windowHandle(), source->mapTo(window.web, source->rect().center()));
    QTRY_VERIFY(!cell->underMouse());
    cell->setFocus();
    QTest::keyClick(cell, Qt::Key_Space);
    QMenu& menu = form<FrmPop>()->mucell;
    QTRY_VERIFY(menu.isVisible());
    QCOMPARE(menu.pos(), cell->mapToGlobal(cell->rect().bottomLeft()));
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    QCOMPARE(window.web->RichTextBox1->SelText(), QByteArray("\r\nthe Body-Cell text\r\n"));
}

void TestRegions::buttonsOfAStyle_data()
{
    QTest::addColumn<QByteArray>("marker");
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<bool>("cellEntry");
    const char* withLine = "CmdTitle CmdLine CmdDes CmdCell CmdOffLeg";
    const char* withoutLine = "CmdTitle CmdDes CmdCell CmdOffLeg";
    QTest::newRow("style 0") << QByteArray("<!-- body-buildwizard0 -->") << withLine << false;
    QTest::newRow("style 1") << QByteArray("<!-- body-buildwizard1 -->") << withLine << false;
    QTest::newRow("style 2") << QByteArray("<!-- body-buildwizard2 -->") << withoutLine << false;
    QTest::newRow("style 3") << QByteArray("<!-- body-buildwizard3 -->") << withoutLine << true;
    QTest::newRow("upper case") << QByteArray("<!-- BODY-BUILDWIZARD3 -->") << withoutLine << true;
    QTest::newRow("first of two") << QByteArray("<!-- body-buildwizard2 --><!-- body-buildwizard0 -->")
                                  << withLine
                                  << false; // the order of the styles counts, not that of the text
}

void TestRegions::buttonsOfAStyle()
{
    QFETCH(QByteArray, marker);
    QFETCH(QString, enabled);
    QFETCH(bool, cellEntry);
    const MainWindow window;
    RichTextBox& source = *window.web->RichTextBox1;
    for (const bool before : {true, false}) {
        for (const bool pictures : {true, false}) {
            for (const char* name : {"CmdTitle", "CmdLine", "CmdDes", "CmdCell", "CmdOffLeg", "CmdPic"})
                buttonOf(window, QString::fromLatin1(name))->setEnabled(before);
            form<FrmPop>()->muDesc->setEnabled(!cellEntry);
            source.setText("<BODY>" + marker + (pictures ? "<!-- Body-picture -->" : ""));
            UpdateRegionButtons(*window.web);
            QCOMPARE(stateOf(window), pictures ? enabled + QStringLiteral(" CmdPic") : enabled);
            QCOMPARE(form<FrmPop>()->muDesc->isEnabled(), cellEntry);

            // Without a marker the cell entry and the picture button keep their state.
            source.setText("<BODY><!-- Body-picture -->");
            UpdateRegionButtons(*window.web);
            QCOMPARE(stateOf(window), pictures ? QStringLiteral("CmdPic") : QString());
            QCOMPARE(form<FrmPop>()->muDesc->isEnabled(), cellEntry);
        }
    }
}

void TestRegions::styleMarkerAtTheStart()
{
    const MainWindow window;
    RichTextBox& source = *window.web->RichTextBox1;
    source.setText("<!-- body-buildwizard0 --><!-- Body-picture -->");
    UpdateRegionButtons(*window.web);
    QCOMPARE(stateOf(window), QString());
    source.setText(" <!-- body-buildwizard0 -->");
    UpdateRegionButtons(*window.web);
    QVERIFY(buttonOf(window, QStringLiteral("CmdTitle"))->isEnabled());
    QVERIFY(!buttonOf(window, QStringLiteral("CmdPic"))->isEnabled());

    // The picture marker counts at the very start.
    source.setText("<!-- Body-picture --><!-- body-buildwizard0 -->");
    UpdateRegionButtons(*window.web);
    QVERIFY(buttonOf(window, QStringLiteral("CmdPic"))->isEnabled());
}

void TestRegions::pictureMarkerStaysSelected()
{
    const MainWindow window;
    RichTextBox& source = *window.web->RichTextBox1;
    source.setText("<BODY><!-- body-buildwizard0 -->x<!-- Body-picture -->y");
    UpdateRegionButtons(*window.web);
    QCOMPARE(source.SelText(), QByteArray("<!-- Body-picture -->"));
    source.setText("<BODY><!-- body-buildwizard0 -->x");
    source.setSelStart(3);
    source.setSelLength(2);
    UpdateRegionButtons(*window.web);
    QCOMPARE(source.SelStart(), 3);
    QCOMPARE(source.SelLength(), 0);
}

void TestRegions::searchedFromTheSelection()
{
    const MainWindow window;
    RichTextBox& source = *window.web->RichTextBox1;
    source.setText("<BODY><!-- body-buildwizard0 --><!-- Body-picture -->end");
    source.setSelStart(8); // behind the beginning of the style marker
    UpdateRegionButtons(*window.web);
    QCOMPARE(stateOf(window), QString());
    QCOMPARE(source.SelStart(), 8);
    source.setSelStart(6);
    UpdateRegionButtons(*window.web);
    QCOMPARE(stateOf(window), QStringLiteral("CmdTitle CmdLine CmdDes CmdCell CmdOffLeg CmdPic"));
}

void TestRegions::newDocument()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), allRegions());
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(stateOf(window), QStringLiteral("CmdTitle CmdDes CmdCell CmdOffLeg CmdPic"));
    window.web->document().setDirty(false);
    window.press(Tool::New);
    QCOMPARE(stateOf(window), QStringLiteral("CmdPic")); // keeps its state
    QCOMPARE(window.source(), QByteArray());
}

void TestRegions::openedDocument()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<BODY>\r\n<!-- body-buildwizard1 -->\r\nx");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    QCOMPARE(stateOf(window), QStringLiteral("CmdTitle CmdLine CmdDes CmdCell CmdOffLeg"));
    window.web->document().setDirty(false);
    window.folder.write(QStringLiteral("plain.htm"), "<BODY>x");
    window.open(window.folder.path(QStringLiteral("plain.htm")));
    QCOMPARE(stateOf(window), QString());
}

void TestRegions::declinedDocument()
{
    MainWindow window;
    window.folder.write(QStringLiteral("page.htm"), "<BODY>\r\n<!-- body-buildwizard1 -->\r\nx");
    window.open(window.folder.path(QStringLiteral("page.htm")));
    window.web->RichTextBox1->setFocus();
    window.type(QStringLiteral("y"));
    window.doors.answerMsgBox(MsgAnswer::No);
    window.doors.cancelOpen();
    window.press(Tool::Open);
    QCOMPARE(window.source(), QByteArray());
    QCOMPARE(stateOf(window), QString());
}

void TestRegions::editorComesBack()
{
    const MainWindow window;
    window.web->RichTextBox1->setText("<BODY><!-- body-buildwizard2 --><P>x</P></BODY>");
    window.showTab(FrmWeb::PreviewTab);
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(stateOf(window), QStringLiteral("CmdTitle CmdDes CmdCell CmdOffLeg"));

    // With the design surface off the caret stays; behind the markers nothing is found.
    window.showTab(FrmWeb::PreviewTab);
    QTest::mouseClick(window.web->Option2, Qt::LeftButton, {}, QPoint(8, window.web->Option2->height() / 2));
    window.web->RichTextBox1->setSelStart(int(window.source().indexOf("<P>")));
    window.showTab(FrmWeb::EditorTab);
    QCOMPARE(stateOf(window), QString());
}

/// Looking for a part or for the style moves the selection, and a moved selection counts as a change.
void TestRegions::searchMakesDirty()
{
    const MainWindow window;
    RichTextBox& source = *window.web->RichTextBox1;
    source.setText("x<!-- body-buildwizard0 --><!-- Body-title -->Lamp<!-- Body-title2 -->");
    window.web->document().setDirty(false);
    UpdateRegionButtons(*window.web);
    QVERIFY(window.web->Dirty());
    for (int i = 0; i < 2; ++i) { // the second time the part is selected already
        window.web->document().setDirty(false);
        selectRegion(source, Region::Title);
        QVERIFY(window.web->Dirty());
        QCOMPARE(source.SelText(), QByteArray("Lamp"));
    }
    source.setText("x");
    window.web->document().setDirty(false);
    UpdateRegionButtons(*window.web);
    QVERIFY(!window.web->Dirty());
}

void TestRegions::thousandListings()
{
    const MainWindow window;
    window.web->RichTextBox1->setText(allRegions().repeated(1000) +
                                      "<!-- Body-title -->the last<!-- Body-title2 -->");
    take(window, QStringLiteral("CmdTitle"));
    QCOMPARE(window.web->RichTextBox1->SelText(), QByteArray("the last"));
    take(window, QStringLiteral("mushipping"));
    QCOMPARE(window.web->RichTextBox1->SelText(), QByteArray("\r\nthe Body3-Cell text\r\n"));
    QVERIFY(window.web->RichTextBox1->SelStart() > int(allRegions().size()) * 999);
}

void TestRegions::listingPages_data()
{
    QTest::addColumn<int>("style");
    for (int style = 0; style < 4; ++style)
        QTest::addRow("style %d", style) << style;
}

/// Pages as the wizard makes them, with three pictures.
void TestRegions::listingPages()
{
    QFETCH(int, style);
    MainWindow window;
    window.open(QStringLiteral(SOURCE_DIR "/tests/data/pages/listing-style%1-picture1.htm").arg(style));
    RichTextBox& source = *window.web->RichTextBox1;
    take(window, QStringLiteral("CmdTitle"));
    QVERIFY(source.SelText().contains("Brass lamp, 1930s"));
    take(window, QStringLiteral("CmdDes"));
    QVERIFY(source.SelText().contains("A heavy lamp with a new cord."));
    take(window, QStringLiteral("CmdPic"));
    QCOMPARE(source.SelText().count("<img "), 3);
    take(window, QStringLiteral("mulistpayment"));
    QVERIFY(source.SelText().contains("Money order"));
    take(window, QStringLiteral("mubodypayment"));
    QVERIFY(source.SelText().contains("Payment within seven days."));
    take(window, QStringLiteral("muDesc"));
    if (style == 3) {
        QVERIFY(source.SelText().contains("Description:")); // the cell's title, not the description
        QVERIFY(!source.SelText().contains("A heavy lamp"));
    } else {
        QCOMPARE(source.SelLength(), int(qMin(source.Text().size(), qsizetype(90000))));
    }
}

WEB_TEST_MAIN(TestRegions)
#include "tst_regions.moc"
