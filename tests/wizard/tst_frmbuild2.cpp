// SPDX-License-Identifier: GPL-3.0-or-later

#include "LittleMemory.h"
#include "ProgramFolder.h"
#include "ScriptedDoors.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "forms/Wait.h"
#include "platform/RuntimeError.h"
#include "shell/FrmWeb.h"
#include "shell/Generator.h"
#include "shell/Regions.h"
#include "source/RichTextBox.h"
#include "web/DocumentSurface.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"

#include <QAbstractItemView>
#include <QDir>
#include <QPointer>
#include <QSignalSpy>
#include <csignal>

using namespace brindlemark;

namespace {

constexpr char CancelQuestion[] = "MsgBox|Information|Are you sure you wish cancel it ?|None|YesNo";
constexpr char NameQuestion[] = "InputBox|Save all colors|Enter the name of all colors.|";

void click(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

/// A click on a check box, on its indicator as a hand aims.
void tick(CheckBox* box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

/// Terms, in bytes of a file that takes no place on the disk, and a room in which they can be read, but not
/// be made a text of, which has twice as many.
constexpr qint64 LargeTerms = 96 << 20;
constexpr rlim_t RoomForLess = 160 << 20;

/// Fills page 1 and leads on to page 2.
FrmBuild2* openPage2(const QString& title = QStringLiteral("Old lamp"),
                     const QStringList& addresses = QStringList())
{
    auto* page1 = form<FrmBuild1>();
    page1->Text1->setText(title);
    page1->Text2->setPlainText(QStringLiteral("A fine old lamp."));
    page1->ChKPay5->setValue(1);
    page1->TxSH1->setText(QStringLiteral("5"));
    if (!addresses.isEmpty()) {
        page1->OptP2->setValue(true);
        QLineEdit* fields[] = {page1->TxP1, page1->TxP2, page1->TxP3, page1->TxP4, page1->TxP5, page1->TxP6};
        for (qsizetype i = 0; i < addresses.size(); ++i)
            fields[i]->setText(addresses[i]);
    }
    page1->Show();
    page1->Command1->click();
    return form<FrmBuild2>();
}

QString source()
{
    return QString::fromUtf8(form<FrmWeb>()->RichTextBox1->Text());
}

QStringList entries(const ComboBox* combo)
{
    QStringList texts;
    for (int i = 0; i < combo->ListCount(); ++i)
        texts << combo->List(i);
    return texts;
}

/// Chooses an entry of a drop-down list with the keyboard.
void choose(ComboBox* combo, int entry)
{
    combo->showPopup();
    auto* list = combo->view();
    list->setCurrentIndex(combo->model()->index(entry, 0));
    QTest::keyClick(list, Qt::Key_Return);
}

/// A set of nine different colours: field i is #i0i0i0 plus a little red.
const QByteArray DistinctSet = "[all]\r\n1=#110000\r\n2=#EEEEDD\r\n3=#00DD00\r\n4=#DDDDEE\r\n5=#0000FF\r\n"
                               "6=#660066\r\n7=#AA0000\r\n8=#008888\r\n9=#996600\r\n";

QImage drawingOf(FrmBuild2* page)
{
    return page->Drawing->grab().toImage();
}

/// Whether the screen shows the drawing as it is now.
bool isOnScreen(FrmBuild2* page)
{
    const QRect place(page->Drawing->mapTo(page, QPoint()), page->Drawing->size());
    const QImage seen = page->screen()->grabWindow(page->winId()).toImage().copy(place);
    return seen.convertToFormat(QImage::Format_RGB32) ==
           drawingOf(page).convertToFormat(QImage::Format_RGB32);
}

/// How many rows of a picture hold a long run of a colour, neighbouring rows counted as one.
int bandsOf(const QImage& image, const QColor& color)
{
    int bands = 0;
    bool inBand = false;
    for (int y = 0; y < image.height(); ++y) {
        int count = 0;
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
        const bool now = count > image.width() / 4;
        bands += now && !inBand ? 1 : 0;
        inBand = now;
    }
    return bands;
}

} // namespace

class TestFrmBuild2 : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void shownAsDesigned();
    void arrowsStepTheStyle();
    void styleIsNoCaption();
    void drawingShowsTheRowsOfEachStyle_data();
    void drawingShowsTheRowsOfEachStyle();
    void pickedColorsShow();
    void cancelledColorChangesNothing();
    void stepRepaintsWhatAPickPainted();
    void firstPictureLineStaysBlack();

    void savesASet();
    void noNameSavesNothing();
    void replacesASetOnYes_data();
    void replacesASetOnYes();
    void nameOfOtherCaseIsNew();
    void loadsASet();
    void nameWithACommaComesBackAsTwo();

    void picturesDecideTheFrame_data();
    void picturesDecideTheFrame();
    void oneBoxIsChecked();
    void boxesByKeyboard();
    void boxesByTheirDrawings();
    void drawingsOfBoxesOutOfReach();

    void opensInTheEditor_data();
    void opensInTheEditor();
    void internetTabKeepsTheEditor();
    void pageIsStamped();
    void anyTextSurvives();
    void pageIsUtf8WhateverTheDocumentWas();
    void colorsTheSource();
    void missingSourceColorEndsTheProgram();
    void plainSourceNeedsNoColors();
    void enterOpensTheEditor();
    void opensInThePreview_data();
    void opensInThePreview();
    void previewLeavesTheRegionButtons();
    void lostEngineIsMadeAnew();
    void pageLargerThanTheMemory_data();
    void pageLargerThanTheMemory();
    void warmUpWithoutMemoryIsNotTold();

    void backForgets();
    void cancelAsks();
    void closeButtonCancels();
    void goesWithPageOne();
    void escapeCancels();

    void styleButtons_data();
    void styleButtons();
    void styleMarkerIsLookedForFromTheSelection();
    void stamps_data();
    void stamps();
    void tornGeneratorTagRaises();

private:
    std::unique_ptr<ProgramFolder> m_folder;
    std::unique_ptr<ScriptedDoors> m_doors;
};

void TestFrmBuild2::init()
{
    m_folder = std::make_unique<ProgramFolder>();
    m_doors = std::make_unique<ScriptedDoors>();
    form<FrmWeb>()->Show();
}

void TestFrmBuild2::cleanup()
{
    QList<QPointer<Form>> left;
    for (QWidget* window : QApplication::topLevelWidgets())
        left << qobject_cast<Form*>(window);
    for (const QPointer<Form>& form : left)
        delete form;
    m_doors.reset();
    m_folder.reset();
}

void TestFrmBuild2::shownAsDesigned()
{
    auto* page = openPage2();
    QVERIFY(page->isVisible());
    QVERIFY(!page->isModal());
    QVERIFY(!form<FrmBuild1>()->isVisible());
    QCOMPARE(page->windowTitle(), QStringLiteral("Brindlemark Create 2 of 2 "));
    QCOMPARE(page->Label11->text(), QStringLiteral("0"));
    const std::pair<QString, const char*> captions[] = {
        {page->Frame2->title(), "Design Styles"},
        {page->Frame5->title(), "Open with:"},
        {page->Frame6->title(), "Color:"},
        {page->Frame7->title(), "Picture and Description Styles"},
        {page->Command19->text(), "Save Color"},
        {page->Command23->text(), "Open with Editor"},
        {page->Command24->text(), "Open with Preview"},
        {page->Command6->text(), "Back"},
        {page->Command4->text(), "Cancel"},
        {page->Chk[0]->text(), "Left Neated"},
        {page->Chk[1]->text(), "Classic R"},
        {page->Chk[2]->text(), "Right Neated"},
        {page->Chk[3]->text(), "Classic"},
        {page->Combo3->placeholderText(), "Pick lists"},
        {page->Combo4->placeholderText(), "Load Color:"},
    };
    for (const auto& [caption, expected] : captions)
        QCOMPARE(QString(caption).remove(u'&'), QString::fromLatin1(expected));
    QCOMPARE(entries(page->Combo3), QStringList({"Title:", "Line:", "Description:", "Cell:", "Cell Name:",
                                                 "Border:", "Background:", "Lists:"}));
    QCOMPARE(page->Combo3->ListIndex(), -1);
    QCOMPARE(page->Combo4->ListIndex(), -1);
    QCOMPARE(page->look().pictureStyle, 3);
    QCOMPARE(page->look().titleCellColor, QStringLiteral("#FFFF00"));
}

void TestFrmBuild2::arrowsStepTheStyle()
{
    auto* page = openPage2();
    const auto press = [page](QToolButton* arrow) {
        click(arrow);
        return page->Label11->text();
    };
    QCOMPARE(press(page->Command1), QStringLiteral("0"));
    for (const char* style : {"1", "2", "3", "3"})
        QCOMPARE(press(page->Command2), QString::fromLatin1(style));
    for (const char* style : {"2", "1", "0", "0"})
        QCOMPARE(press(page->Command1), QString::fromLatin1(style));
    QCOMPARE(source(), QString()); // no step makes a page
}

/// However the number is written for the eye.
void TestFrmBuild2::styleIsNoCaption()
{
    auto* page = openPage2();
    click(page->Command2);
    click(page->Command2);
    page->Label11->setText(QStringLiteral("Style two"));
    QCOMPARE(page->look().style, 2);
    click(page->Command2);
    QCOMPARE(page->look().style, 3);
    QCOMPARE(page->Label11->text(), QStringLiteral("3"));
    QCOMPARE(page->Label11->accessibleName(), QStringLiteral("Design style 3"));
}

void TestFrmBuild2::drawingShowsTheRowsOfEachStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("rules");
    QTest::addColumn<int>("titleCells");
    QTest::addColumn<int>("cellBorders");
    QTest::newRow("0") << 0 << 1 << 3 << 0;
    QTest::newRow("1") << 1 << 1 << 3 << 7; // two at each title, and the end of the sections' own table
    QTest::newRow("2") << 2 << 0 << 3 << 6; // there the sections end with the page
    QTest::newRow("3") << 3 << 0 << 4 << 6;
}

void TestFrmBuild2::drawingShowsTheRowsOfEachStyle()
{
    QFETCH(int, style);
    QFETCH(int, rules);
    QFETCH(int, titleCells);
    QFETCH(int, cellBorders);
    m_folder->write(QStringLiteral("webstyle.ini"), DistinctSet);
    m_folder->write(QStringLiteral("webstyle2.ini"), "all\r\n");
    auto* page = openPage2();
    choose(page->Combo4, 0);
    for (int i = 0; i < style; ++i)
        click(page->Command2);

    const QImage image = drawingOf(page);
    QCOMPARE(bandsOf(image, QColor(0x00, 0x00, 0xFF)), rules);
    QCOMPARE(bandsOf(image, QColor(0x00, 0xDD, 0x00)), titleCells);
    QCOMPARE(bandsOf(image, QColor(0xAA, 0x00, 0x00)), 2); // two lines of description
    QCOMPARE(bandsOf(image, QColor(0x99, 0x66, 0x00)), 6); // two lines in each of the three lists
    // The sections' cells have borders of their own beside the page's.
    const QRect inner = image.rect().adjusted(8, image.height() * 3 / 10, -8, -8);
    QCOMPARE(bandsOf(image.copy(inner), QColor(0x11, 0x00, 0x00)), cellBorders);
    // Title: under the page's upper border, on the cell's ground.
    QVERIFY(bandsOf(image.copy(0, 0, image.width(), image.height() / 8), QColor(0xEE, 0xEE, 0xDD)) > 0);
    QCOMPARE(image.pixelColor(image.width() / 2, 0), QColor(0x11, 0x00, 0x00));
}

void TestFrmBuild2::pickedColorsShow()
{
    auto* page = openPage2();
    const struct
    {
        int entry;
        int color;
        QColor shown;
    } picks[] = {
        {1, 0xFF0000, QColor(0, 0, 0xFF)},    // Line:
        {3, 0x00DD00, QColor(0, 0xDD, 0)},    // Cell:
        {7, 0x006699, QColor(0x99, 0x66, 0)}, // Lists:
        {6, 0xDDEEEE, QColor(0xEE, 0xEE, 0xDD)},
    };
    for (const auto& pick : picks) {
        QCOMPARE(bandsOf(drawingOf(page), pick.shown), 0);
        QTRY_VERIFY(isOnScreen(page));
        m_doors->answerColor(pick.color);
        choose(page->Combo3, pick.entry);
        QVERIFY(bandsOf(drawingOf(page), pick.shown) > 0);
        QTRY_VERIFY(isOnScreen(page));
    }
    QCOMPARE(page->look().ruleColor, QStringLiteral("#0000FF"));
    QCOMPARE(page->look().titleCellColor, QStringLiteral("#00DD00"));
    QCOMPARE(page->look().listColor, QStringLiteral("#996600"));
    QCOMPARE(page->look().cellColor, QStringLiteral("#EEEEDD"));
    QCOMPARE(page->look().tableColor, QStringLiteral("#EEEEDD"));
    QCOMPARE(source(), QString());

    // The same entry once more asks once more.
    m_doors->answerColor(0x00FFFF);
    choose(page->Combo3, 6);
    QCOMPARE(page->look().tableColor, QStringLiteral("#FFFF00"));
}

void TestFrmBuild2::cancelledColorChangesNothing()
{
    auto* page = openPage2();
    const QImage before = drawingOf(page);
    m_doors->cancelColor();
    choose(page->Combo3, 3);
    QCOMPARE(drawingOf(page), before);
    QCOMPARE(page->look().titleCellColor, QStringLiteral("#FFFF00"));
    QCOMPARE(page->Combo3->Text(), QStringLiteral("Cell:"));
}

/// In style 2 the rule's line has the border's colour, but a rule's colour that is picked shows until the
/// next step.
void TestFrmBuild2::stepRepaintsWhatAPickPainted()
{
    auto* page = openPage2();
    click(page->Command2);
    click(page->Command2);
    m_doors->answerColor(0x0000FF);
    choose(page->Combo3, 1);
    QCOMPARE(page->drawingColors()[DrawingPart::Rule], QColor(Qt::red));
    click(page->Command2);
    click(page->Command1);
    QCOMPARE(page->drawingColors()[DrawingPart::Rule], QColor(Qt::black));
    QCOMPARE(page->look().ruleColor, QStringLiteral("#FF0000"));
}

void TestFrmBuild2::firstPictureLineStaysBlack()
{
    auto* page = openPage2(QStringLiteral("Lamp"), {QStringLiteral("http://x/1.jpg")});
    m_doors->answerColor(0x0000FF);
    choose(page->Combo3, 2);
    const std::pair<PictureStyleDrawing*, int> drawings[] = {
        {page->Image0, 2}, {page->Image1, 3}, {page->Image2, 3}, {page->Image3, 3}};
    for (const auto& [drawing, redLines] : drawings)
        QCOMPARE(bandsOf(drawing->grab().toImage(), QColor(Qt::red)), redLines);
    QCOMPARE(bandsOf(page->Image0->grab().toImage(), QColor(Qt::black)), 1);
}

void TestFrmBuild2::savesASet()
{
    auto* page = openPage2();
    m_doors->answerColor(0xFF8040);
    choose(page->Combo3, 0);
    for (const char* name : {"Sunny day", "a]b=c", "Grün"}) {
        m_doors->takeAsked();
        m_doors->answerInputBox(QString::fromUtf8(name));
        click(page->Command19);
        QCOMPARE(m_doors->asked, QStringList(NameQuestion));
        QCOMPARE(page->Combo4->Text(), QString::fromUtf8(name));
    }
    QCOMPARE(m_folder->read(QStringLiteral("webstyle2.ini")), QByteArray("Sunny day\r\na]b=c\r\nGrün\r\n"));
    const QByteArray keys = "1=#000000\r\n2=#FFFFFF\r\n3=#FFFF00\r\n4=#FFFFFF\r\n5=#000000\r\n"
                            "6=#000000\r\n7=#000000\r\n8=#4080FF\r\n9=#000000\r\n";
    QCOMPARE(m_folder->read(QStringLiteral("webstyle.ini")),
             "[Sunny day]\r\n" + keys + "\r\n[a]b=c]\r\n" + keys + "\r\n[Grün]\r\n" + keys);
}

void TestFrmBuild2::noNameSavesNothing()
{
    auto* page = openPage2();
    m_doors->answerInputBox(QString());
    click(page->Command19);
    m_doors->cancelInputBox();
    click(page->Command19);
    QCOMPARE(page->Combo4->ListCount(), 0);
    QVERIFY(!m_folder->has(QStringLiteral("webstyle.ini")));
    QVERIFY(!m_folder->has(QStringLiteral("webstyle2.ini")));
}

void TestFrmBuild2::replacesASetOnYes_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::addColumn<QString>("title");
    QTest::newRow("Yes") << MsgAnswer::Yes << "8=#4080FF";
    QTest::newRow("No") << MsgAnswer::No << "8=#112233";
}

void TestFrmBuild2::replacesASetOnYes()
{
    QFETCH(MsgAnswer, answer);
    QFETCH(QString, title);
    m_folder->write(QStringLiteral("webstyle.ini"), "[mine]\r\n8=#112233\r\n");
    m_folder->write(QStringLiteral("webstyle2.ini"), "first\r\nmine\r\n");
    auto* page = openPage2();
    m_doors->answerColor(0xFF8040);
    choose(page->Combo3, 0);
    m_doors->takeAsked();
    m_doors->answerInputBox(QStringLiteral("mine"));
    m_doors->answerMsgBox(answer);
    click(page->Command19);
    QCOMPARE(m_doors->asked,
             QStringList({NameQuestion, "MsgBox|Information|[ mine ] - already exists.\r\nDo you want to "
                                        "replace it ?|Information|YesNo"}));
    QVERIFY(m_folder->read(QStringLiteral("webstyle.ini")).contains(title.toLatin1()));
    QCOMPARE(m_folder->read(QStringLiteral("webstyle2.ini")), QByteArray("first\r\nmine\r\n"));
    QCOMPARE(page->Combo4->ListCount(), 2);
}

void TestFrmBuild2::nameOfOtherCaseIsNew()
{
    m_folder->write(QStringLiteral("webstyle2.ini"), "mine\r\n");
    auto* page = openPage2();
    m_doors->answerInputBox(QStringLiteral("Mine"));
    click(page->Command19);
    QCOMPARE(entries(page->Combo4), QStringList({"mine", "Mine"}));
}

void TestFrmBuild2::loadsASet()
{
    m_folder->write(QStringLiteral("webstyle.ini"), DistinctSet + "[half]\r\n2=#FFEEDD\r\n");
    m_folder->write(QStringLiteral("webstyle2.ini"), "all\r\n\r\nhalf\r\ngone\r\n");
    auto* page = openPage2();
    QCOMPARE(entries(page->Combo4), QStringList({"all", "half", "gone"}));
    choose(page->Combo4, 0);
    QCOMPARE(page->look().borderColor, QStringLiteral("#110000"));
    QCOMPARE(page->look().cellColor, QStringLiteral("#EEEEDD"));
    QCOMPARE(page->look().tableColor, QStringLiteral("#DDDDEE"));
    QCOMPARE(page->look().listColor, QStringLiteral("#996600"));
    QCOMPARE(page->drawingColors()[DrawingPart::Page], QColor(0xDD, 0xDD, 0xEE));
    choose(page->Combo4, 1);
    QCOMPARE(page->look().cellColor, QStringLiteral("#FFEEDD"));
    QCOMPARE(page->look().listColor, QString());
    QCOMPARE(page->drawingColors()[DrawingPart::Lists], QColor(Qt::black));
    choose(page->Combo4, 2);
    QCOMPARE(page->look().cellColor, QString());
    QCOMPARE(page->Combo4->Text(), QStringLiteral("gone"));
}

void TestFrmBuild2::nameWithACommaComesBackAsTwo()
{
    auto* page = openPage2();
    m_doors->answerInputBox(QStringLiteral("red,gold"));
    click(page->Command19);
    QCOMPARE(entries(page->Combo4), QStringList("red,gold"));
    click(page->Command6);
    click(form<FrmBuild1>()->Command1);
    QCOMPARE(entries(form<FrmBuild2>()->Combo4), QStringList({"red", "gold"}));
}

void TestFrmBuild2::picturesDecideTheFrame_data()
{
    QTest::addColumn<int>("pictures");
    QTest::addColumn<bool>("withPictures");
    QTest::addColumn<bool>("frame");
    QTest::addColumn<bool>("single"); // styles of one picture
    QTest::newRow("no picture") << 0 << false << false << true;
    QTest::newRow("pictures of an earlier choice") << 3 << false << false << true;
    QTest::newRow("pictures without an address") << 0 << true << true << true;
    QTest::newRow("one") << 1 << true << true << true;
    QTest::newRow("two") << 2 << true << true << false;
    QTest::newRow("six") << 6 << true << true << false;
}

void TestFrmBuild2::picturesDecideTheFrame()
{
    QFETCH(int, pictures);
    QFETCH(bool, withPictures);
    QFETCH(bool, frame);
    QFETCH(bool, single);
    auto* page = form<FrmBuild2>();
    page->prepare(6, true);
    page->Show();
    const int full = page->sizeHint().width();
    page->prepare(pictures, withPictures);
    QCOMPARE(page->Frame7->isVisible(), frame);
    QTRY_COMPARE(page->width() == full, frame);
    QCOMPARE(page->Chk[0]->isEnabled(), single);
    QCOMPARE(page->Chk[1]->isEnabled(), true);
    QCOMPARE(page->Chk[2]->isEnabled(), single);
    QCOMPARE(page->Chk[3]->isEnabled(), true);
}

void TestFrmBuild2::oneBoxIsChecked()
{
    auto* page = openPage2(QStringLiteral("Lamp"), {QStringLiteral("http://x/1.jpg")});
    for (int box : {0, 1, 2, 3, 3, 1, 1}) {
        tick(page->Chk[size_t(box)]);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(page->Chk[size_t(i)]->Value(), i == box ? 1 : 0);
        QCOMPARE(page->look().pictureStyle, box);
    }
}

void TestFrmBuild2::boxesByKeyboard()
{
    auto* page = openPage2(QStringLiteral("Lamp"), {QStringLiteral("http://x/1.jpg")});
    QVERIFY(QTest::qWaitForWindowActive(page));
    page->Chk[2]->setFocus();
    QTest::keyClick(page->Chk[2], Qt::Key_Space);
    QCOMPARE(page->look().pictureStyle, 2);
    QTest::keyClick(page->Chk[2], Qt::Key_Space);
    QCOMPARE(page->look().pictureStyle, 2);
    QCOMPARE(page->Chk[3]->Value(), 0);
}

void TestFrmBuild2::boxesByTheirDrawings()
{
    auto* page = openPage2(QStringLiteral("Lamp"), {QStringLiteral("http://x/1.jpg")});
    QVERIFY(QTest::qWaitForWindowActive(page));
    PictureStyleDrawing* const drawings[] = {page->Image0, page->Image1, page->Image2, page->Image3};
    for (const int style : {0, 1, 2, 3, 3, 1}) {
        PictureStyleDrawing* drawing = drawings[style];
        QCOMPARE(drawing->cursor().shape(), Qt::PointingHandCursor);
        QTest::mouseClick(drawing, Qt::LeftButton, {}, drawing->rect().bottomRight());
        for (int i = 0; i < 4; ++i)
            QCOMPARE(page->Chk[size_t(i)]->Value(), i == style ? 1 : 0);
        QCOMPARE(page->look().pictureStyle, style);
        QVERIFY(page->Chk[size_t(style)]->hasFocus());
    }
    // What a hand does by mistake.
    QTest::mouseClick(page->Image0, Qt::RightButton);
    QTest::mouseClick(page->Image0, Qt::MiddleButton);
    QTest::mousePress(page->Image0, Qt::LeftButton);
    QTest::mouseRelease(page->Image0, Qt::LeftButton, {}, QPoint(page->Image0->width() + 4, 4));
    QTest::mousePress(page->Image1, Qt::RightButton);
    QTest::mouseRelease(page->Image0, Qt::LeftButton);
    QTest::mouseRelease(page->Image1, Qt::RightButton);
    QTest::mousePress(page->Image0, Qt::RightButton); // one button down, the other up
    QTest::mouseRelease(page->Image0, Qt::LeftButton);
    QTest::mouseRelease(page->Image0, Qt::RightButton);
    QCOMPARE(page->look().pictureStyle, 1);
    QTest::mouseClick(page->Image0, Qt::LeftButton);
    QTest::mouseDClick(page->Image0, Qt::LeftButton); // the second click of a double one
    QTest::mouseRelease(page->Image0, Qt::LeftButton);
    QCOMPARE(page->look().pictureStyle, 0);
    QCOMPARE(page->Chk[0]->Value(), 1);
}

/// With more than one picture.
void TestFrmBuild2::drawingsOfBoxesOutOfReach()
{
    auto* page = openPage2(QStringLiteral("Lamp"),
                           {QStringLiteral("http://x/1.jpg"), QStringLiteral("http://x/2.jpg")});
    for (PictureStyleDrawing* drawing : {page->Image0, page->Image2}) {
        QCOMPARE(drawing->cursor().shape(), Qt::ArrowCursor);
        QTest::mouseClick(drawing, Qt::LeftButton);
        QCOMPARE(page->look().pictureStyle, 3);
    }
    QTest::mouseClick(page->Image1, Qt::LeftButton);
    QCOMPARE(page->look().pictureStyle, 1);
}

void TestFrmBuild2::opensInTheEditor_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("line");
    for (int tab : {0, 1}) {
        for (int style = 0; style < 4; ++style)
            QTest::addRow("style %d from tab %d", style, tab) << style << tab << (style < 2);
    }
}

void TestFrmBuild2::opensInTheEditor()
{
    QFETCH(int, style);
    QFETCH(int, tab);
    QFETCH(bool, line);
    auto* main = form<FrmWeb>();
    main->RichTextBox1->setText("<BODY>before</BODY>");
    main->SSTab1->setTab(tab);
    auto* page = openPage2();
    for (int i = 0; i < style; ++i)
        click(page->Command2);
    click(page->Command23);

    QVERIFY(!isLoaded<FrmBuild1>());
    QVERIFY(!isLoaded<FrmBuild2>());
    QCOMPARE(main->SSTab1->Tab(), 0);
    QVERIFY(source().contains(QStringLiteral("<!-- body-buildwizard%1 -->").arg(style)));
    QVERIFY(source().contains(QLatin1String("Old lamp")));
    QVERIFY(source().contains(QLatin1String("A fine old lamp.")));
    QVERIFY(!source().contains(QLatin1String("before")));
    QVERIFY(main->CmdTitle->isEnabled());
    QCOMPARE(main->CmdLine->isEnabled(), line);
    QVERIFY(main->CmdDes->isEnabled());
    QVERIFY(main->CmdCell->isEnabled());
    QVERIFY(main->Dirty());
    QCOMPARE(m_doors->asked, QStringList());
}

void TestFrmBuild2::internetTabKeepsTheEditor()
{
    auto* main = form<FrmWeb>();
    main->RichTextBox1->setText("<BODY>before</BODY>");
    main->SSTab1->setTab(FrmWeb::InternetTab);
    for (const bool preview : {false, true}) {
        auto* page = openPage2();
        click(preview ? page->Command24 : page->Command23);
        QVERIFY(!isLoaded<FrmBuild1>());
        QVERIFY(!isLoaded<FrmBuild2>());
        QCOMPARE(main->SSTab1->Tab(), int(FrmWeb::InternetTab));
        QCOMPARE(source(), QStringLiteral("<BODY>before</BODY>"));
    }
}

void TestFrmBuild2::pageIsStamped()
{
    click(openPage2()->Command23);
    QVERIFY2(source().startsWith(
                 QLatin1String("<HEAD>\r\n<META content=\"Brindlemark 1.0\" name=GENERATOR></HEAD>\r\n")),
             qPrintable(source().left(200)));
    QCOMPARE(source().count(QLatin1String("GENERATOR")), 1);
}

/// Titles are HTML, in any script; terms are as their files hold them.
void TestFrmBuild2::anyTextSurvives()
{
    m_folder->write(QStringLiteral("weblst.ini"), "\r\n<BODY>\r\n<P>pay soon</P></BODY>\r\n");
    m_folder->write(QStringLiteral("weblst2.ini"), "<BODY>nach \xD6sterreich</BODY>"); // Western
    QVERIFY(QDir().mkdir(m_folder->path(QStringLiteral("weblst3.ini"))));
    const QString title = QString::fromUtf8("<I>Ünïcode</I> 😀 \"שלום\" & <B>more</B>");
    click(openPage2(title)->Command23);
    QVERIFY2(source().contains(QString::fromUtf8("<I>Ünïcode</I> 😀 \"שלום\" &amp; <B>more</B>")),
             qPrintable(source()));
    QVERIFY(source().contains(QLatin1String("pay soon")));
    QVERIFY(source().contains(QString::fromUtf8("nach Österreich")));
}

void TestFrmBuild2::pageIsUtf8WhateverTheDocumentWas()
{
    RichTextBox& box = *form<FrmWeb>()->RichTextBox1;
    for (const char* title : {"Caf\u00E9", "Lamp", "Caf\u00E9 \u65E5"}) {
        box.setText("Western caf\xE9");
        QVERIFY(box.textEncoding() == TextEncoding::Western);
        click(openPage2(QString::fromUtf8(title))->Command23);
        QVERIFY(box.textEncoding() == TextEncoding::Utf8);
        QVERIFY2(box.Text().contains(title), box.Text().constData());
    }
}

void TestFrmBuild2::colorsTheSource()
{
    auto* main = form<FrmWeb>();
    main->RichTextBox1->setText("<BODY>x</BODY>");
    main->highlighted = true;
    m_folder->write(QStringLiteral("web.ini"),
                    m_folder->read(QStringLiteral("web.ini")).replace("back=16777215", "back=15132390"));
    auto* page = openPage2();
    click(page->Command23);

    QCOMPARE(main->RichTextBox1->BackColor(), 0xE6E6E6);
    const QByteArray text = main->RichTextBox1->Text();
    QCOMPARE(main->RichTextBox1->colorAt(int(text.indexOf("<TABLE"))), 12582912);
    QCOMPARE(main->RichTextBox1->colorAt(int(text.indexOf("<!-- Body-title -->") + 6)), 1731328);
    QCOMPARE(main->RichTextBox1->colorAt(int(text.indexOf("Old lamp"))), 0);
    QVERIFY(!form<Wait>()->isVisible());
    QVERIFY(!main->Picture1->isVisible());
    QVERIFY(!isLoaded<FrmBuild2>());
}

void TestFrmBuild2::missingSourceColorEndsTheProgram()
{
    form<FrmWeb>()->highlighted = true;
    m_folder->write(QStringLiteral("web.ini"),
                    m_folder->read(QStringLiteral("web.ini")).replace("two=1381795", "two="));
    auto* page = openPage2();
    m_doors->answerMsgBox(MsgAnswer::Ok);
    m_doors->answerMsgBox(MsgAnswer::No); // the settings that ship
    click(page->Command23);
    QCOMPARE(m_doors->ended, 1);
    QVERIFY(m_doors->asked.value(0).contains(QLatin1String("Type mismatch")));
}

/// With the colours switched off the listing stays plain, and nobody looks for them.
void TestFrmBuild2::plainSourceNeedsNoColors()
{
    auto* main = form<FrmWeb>();
    main->highlighted = false;
    m_folder->write(QStringLiteral("web.ini"),
                    m_folder->read(QStringLiteral("web.ini")).replace("two=1381795", "two="));
    const int background = main->RichTextBox1->BackColor();
    click(openPage2()->Command23);
    QCOMPARE(m_doors->asked, QStringList());
    QVERIFY(!m_doors->ended);
    const QByteArray text = main->RichTextBox1->Text();
    QVERIFY(text.contains("<TABLE"));
    QCOMPARE(main->RichTextBox1->colorAt(int(text.indexOf("<TABLE"))), 0);
    QCOMPARE(main->RichTextBox1->BackColor(), background);
    QVERIFY(!isLoaded<FrmBuild2>());
}

void TestFrmBuild2::enterOpensTheEditor()
{
    auto* page = openPage2();
    QVERIFY(QTest::qWaitForWindowActive(page));
    page->Command2->setFocus();
    QTest::keyClick(page->Command2, Qt::Key_Return); // a button that has the focus is the one that is pressed
    QCOMPARE(page->Label11->text(), QStringLiteral("1"));
    page->Chk1->setFocus();
    QTest::keyClick(page->Chk1, Qt::Key_Return);
    QVERIFY(!isLoaded<FrmBuild2>());
    QVERIFY(source().contains(QLatin1String("Old lamp")));
}

void TestFrmBuild2::opensInThePreview_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("from the editor") << 0;
    QTest::newRow("from the preview") << 1;
}

void TestFrmBuild2::opensInThePreview()
{
    QFETCH(int, tab);
    auto* main = form<FrmWeb>();
    main->RichTextBox1->setText("<BODY>before</BODY>");
    main->SSTab1->setTab(tab);
    click(openPage2()->Command24);
    QCOMPARE(main->SSTab1->Tab(), int(FrmWeb::PreviewTab));
    QVERIFY(source().contains(QLatin1String("Old lamp")));
    QVERIFY(main->WebBrowser1->innerHtml().contains(QLatin1String("Old lamp")));
    QVERIFY(!isLoaded<FrmBuild1>());
    QVERIFY(!isLoaded<FrmBuild2>());
}

void TestFrmBuild2::previewLeavesTheRegionButtons()
{
    auto* main = form<FrmWeb>();
    main->highlighted = true;
    m_folder->write(QStringLiteral("web.ini"),
                    m_folder->read(QStringLiteral("web.ini")).replace("back=16777215", "back=15132390"));
    const int background = main->RichTextBox1->BackColor();
    click(openPage2()->Command24);
    QVERIFY(!main->CmdTitle->isEnabled());
    QCOMPARE(main->RichTextBox1->BackColor(), background);
}

void TestFrmBuild2::lostEngineIsMadeAnew()
{
    auto* page = openPage2();
    const QList<WebControl*> browsers = page->findChildren<WebControl*>();
    QCOMPARE(browsers.size(), 1);
    QTRY_VERIFY(probe(browsers.front()).rendererPid() != 0); // warmed up behind the first picture
    QSignalSpy died(browsers.front(), &WebControl::rendererDied);
    ::kill(pid_t(probe(browsers.front()).rendererPid()), SIGKILL);
    QTRY_COMPARE(died.size(), 1);
    click(page->Command23);
    QVERIFY(source().contains(QLatin1String("Old lamp")));
    QVERIFY(!isLoaded<FrmBuild2>());
}

void TestFrmBuild2::pageLargerThanTheMemory_data()
{
    QTest::addColumn<bool>("inPreview");
    QTest::newRow("editor") << false;
    QTest::newRow("preview") << true;
}

/// Document and wizard stay as they were, and the page is made when there is room again.
void TestFrmBuild2::pageLargerThanTheMemory()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer ends a program that has no memory");
#endif
    QFETCH(bool, inPreview);
    RichTextBox& box = *form<FrmWeb>()->RichTextBox1;
    box.setText("<P>before</P>");
    const QPointer<FrmBuild2> page = openPage2();
    QPushButton* open = inPreview ? page->Command24 : page->Command23;
    QFile terms(m_folder->path(QStringLiteral("weblst.ini")));
    QVERIFY(terms.open(QIODevice::WriteOnly) && terms.resize(LargeTerms));
    m_doors->answerMsgBox(MsgAnswer::Ok);
    {
        const LittleMemory little(RoomForLess);
        click(open);
    }
    QCOMPARE(m_doors->takeAsked(),
             QStringList{
                 QStringLiteral("MsgBox|Brindlemark|There is not enough memory for this.|Exclamation|Ok")});
    QVERIFY(page && page->isVisible() && page->isEnabled());
    QCOMPARE(box.Text(), QByteArray("<P>before</P>"));
    QVERIFY(terms.resize(0));
    click(open);
    QVERIFY(source().contains(QLatin1String("A fine old lamp.")));
    QVERIFY(!isLoaded<FrmBuild2>());
}

/// The page that the wizard makes unseen while the user looks at the second page.
void TestFrmBuild2::warmUpWithoutMemoryIsNotTold()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer ends a program that has no memory");
#endif
    QFile terms(m_folder->path(QStringLiteral("weblst.ini")));
    QVERIFY(terms.open(QIODevice::WriteOnly) && terms.resize(LargeTerms));
    const FrmBuild2* page = openPage2();
    {
        const LittleMemory little(RoomForLess);
        QTimer later; // than the page's own, which is due at once
        later.setSingleShot(true);
        later.start(1);
        QTRY_VERIFY(!later.isActive());
    }
    QCOMPARE(m_doors->takeAsked(), QStringList());
    QVERIFY(terms.resize(0));
    click(page->Command23);
    QVERIFY(source().contains(QLatin1String("A fine old lamp.")));
}

void TestFrmBuild2::backForgets()
{
    auto* page = openPage2();
    click(page->Command2);
    m_doors->answerColor(0xFF8040);
    choose(page->Combo3, 0);
    click(page->Command6);
    QVERIFY(!isLoaded<FrmBuild2>());
    QVERIFY(form<FrmBuild1>()->isVisible());
    QCOMPARE(form<FrmBuild1>()->Text1->text(), QStringLiteral("Old lamp"));

    click(form<FrmBuild1>()->Command1);
    QCOMPARE(form<FrmBuild2>()->Label11->text(), QStringLiteral("0"));
    QCOMPARE(form<FrmBuild2>()->look().titleColor, QStringLiteral("#000000"));
    QCOMPARE(form<FrmBuild2>()->look().pictureStyle, 3);
}

void TestFrmBuild2::closeButtonCancels()
{
    auto* page = openPage2();
    m_doors->answerMsgBox(MsgAnswer::No);
    page->close();
    QVERIFY(page->isVisible());
    m_doors->answerMsgBox(MsgAnswer::Yes);
    page->close();
    QVERIFY(!isLoaded<FrmBuild2>());
    QVERIFY(!isLoaded<FrmBuild1>());
    QCOMPARE(m_doors->asked, QStringList({CancelQuestion, CancelQuestion}));
}

/// Without page 1 there is nothing to make a page of.
void TestFrmBuild2::goesWithPageOne()
{
    openPage2();
    form<FrmBuild1>()->Show(); // as the toolbar's wand does
    form<FrmBuild1>()->close();
    QTRY_VERIFY(!isLoaded<FrmBuild1>());
    QVERIFY(!isLoaded<FrmBuild2>());
    QCOMPARE(source(), QString());
}

void TestFrmBuild2::cancelAsks()
{
    auto* page = openPage2();
    m_doors->answerMsgBox(MsgAnswer::No);
    click(page->Command4);
    QVERIFY(page->isVisible());
    QVERIFY(isLoaded<FrmBuild1>());

    QVERIFY(m_folder->read(QStringLiteral("web.ini")).contains("TxSH1=0"));
    m_doors->answerMsgBox(MsgAnswer::Yes);
    click(page->Command4);
    QVERIFY(!isLoaded<FrmBuild2>());
    QVERIFY(!isLoaded<FrmBuild1>());
    QVERIFY(m_folder->read(QStringLiteral("web.ini")).contains("TxSH1=5")); // page 1 has saved
    QCOMPARE(m_doors->asked, QStringList({CancelQuestion, CancelQuestion}));
    QCOMPARE(source(), QString());
}

void TestFrmBuild2::escapeCancels()
{
    auto* page = openPage2();
    QVERIFY(QTest::qWaitForWindowActive(page));
    m_doors->answerMsgBox(MsgAnswer::No);
    QTest::keyClick(page, Qt::Key_Escape);
    QCOMPARE(m_doors->asked, QStringList(CancelQuestion));
}

void TestFrmBuild2::styleButtons_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("found");
    QTest::addColumn<bool>("line");
    QTest::newRow("0") << QByteArray("<BODY><!-- body-buildwizard0 -->") << true << true;
    QTest::newRow("1") << QByteArray("<BODY><!-- body-buildwizard1 -->") << true << true;
    QTest::newRow("2") << QByteArray("<BODY><!-- body-buildwizard2 -->") << true << false;
    QTest::newRow("3") << QByteArray("<BODY><!-- body-buildwizard3 -->") << true << false;
    QTest::newRow("any case") << QByteArray("<BODY><!-- BODY-BuildWizard1 -->") << true << true;
    QTest::newRow("none") << QByteArray("<BODY></BODY>") << false << false;
    QTest::newRow("no text") << QByteArray() << false << false;
    QTest::newRow("style 4") << QByteArray("<BODY><!-- body-buildwizard4 -->") << false << false;
    QTest::newRow("at the very start") << QByteArray("<!-- body-buildwizard0 --><BODY>") << false << false;
    QTest::newRow("at the very start, another behind")
        << QByteArray("<!-- body-buildwizard0 --><!-- body-buildwizard3 -->") << true << false;
    QTest::newRow("one behind the start") << QByteArray(" <!-- body-buildwizard0 -->") << true << true;
    QTest::newRow("the lower number first")
        << QByteArray("<BODY><!-- body-buildwizard2 --><!-- body-buildwizard1 -->") << true << true;
    QTest::newRow("behind 90000 characters")
        << QByteArray(100000, 'x') + "<!-- body-buildwizard1 -->" << true << true;
}

void TestFrmBuild2::styleButtons()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, found);
    QFETCH(bool, line);
    auto* main = form<FrmWeb>();
    for (const bool before : {false, true}) {
        for (QPushButton* button : {main->CmdTitle, main->CmdLine, main->CmdDes, main->CmdCell, main->CmdPic})
            button->setEnabled(before);
        main->RichTextBox1->setText(text);
        QCOMPARE(updateStyleButtons(*main), found);
        QCOMPARE(main->CmdTitle->isEnabled(), found);
        QCOMPARE(main->CmdLine->isEnabled(), line);
        QCOMPARE(main->CmdDes->isEnabled(), found);
        QCOMPARE(main->CmdCell->isEnabled(), found);
        QCOMPARE(main->CmdPic->isEnabled(), before);
        QCOMPARE(main->RichTextBox1->SelStart(), 0);
        QCOMPARE(main->RichTextBox1->SelLength(), 0);
    }
}

void TestFrmBuild2::styleMarkerIsLookedForFromTheSelection()
{
    auto* main = form<FrmWeb>();
    const QByteArray text = "<BODY><!-- body-buildwizard0 -->text";
    main->RichTextBox1->setText(text);
    main->RichTextBox1->setSelStart(6);
    main->RichTextBox1->setSelLength(2);
    QVERIFY(updateStyleButtons(*main));
    QCOMPARE(main->RichTextBox1->SelStart(), 6);
    QCOMPARE(main->RichTextBox1->SelLength(), 0);
    main->RichTextBox1->setSelStart(7);
    QVERIFY(!updateStyleButtons(*main));
    QVERIFY(!main->CmdTitle->isEnabled());
    QCOMPARE(main->RichTextBox1->SelStart(), 7);
}

void TestFrmBuild2::stamps_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("stamped");
    const QByteArray tag = "<META content=\"Brindlemark 1.0\" name=GENERATOR>";
    QTest::newRow("none") << QByteArray("<BODY>a</BODY>") << QByteArray("<BODY>a</BODY>");
    QTest::newRow("no text") << QByteArray() << QByteArray();
    QTest::newRow("one") << QByteArray("<HEAD>\r\n<META content=\"An engine 7\" name=GENERATOR></HEAD>b")
                         << "<HEAD>\r\n" + tag + "</HEAD>b";
    QTest::newRow("bare value") << QByteArray("<META content=x name=GENERATOR>") << tag;
    QTest::newRow("stamped before") << tag << tag;
    QTest::newRow("any case") << QByteArray("<meta Content=x Name=Generator>")
                              << QByteArray("<META content=\"Brindlemark 1.0\" Name=Generator>");
    QTest::newRow("two") << QByteArray("<META content=x name=GENERATOR>-<META content=y name=GENERATOR>")
                         << tag + '-' + tag;
    QTest::newRow("behind 90000 characters")
        << QByteArray(100000, 'x') + "<META content=x name=GENERATOR>" << QByteArray(100000, 'x') + tag;
}

void TestFrmBuild2::stamps()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, stamped);
    RichTextBox box;
    box.setText(text);
    const int caret = text.isEmpty() ? 0 : 1;
    box.setSelStart(caret);
    stampGenerator(box);
    QCOMPARE(box.Text(), stamped);
    QCOMPARE(box.SelStart(), caret);
}

void TestFrmBuild2::tornGeneratorTagRaises()
{
    RichTextBox box;
    box.setText("<HEAD><META content=x");
    QVERIFY_THROWS_EXCEPTION(RuntimeError, stampGenerator(box));
}

RENDERER_TEST_MAIN(TestFrmBuild2)
#include "tst_frmbuild2.moc"
