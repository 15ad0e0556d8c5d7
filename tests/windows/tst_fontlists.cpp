// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebTestMain.h"
#include "Widgets.h"
#include "Windows.h"
#include "colour/FrmFonts.h"
#include "forms/ComboBox.h"
#include "shell/ScreenFonts.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QWindow>

using namespace brindlemark;

// The lists of fonts, in whatever window: what they offer, how it looks, and what a hand does with it.

class TestFontLists : public QObject
{
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void offered_data();
    void offered();
    void ownFaces_data();
    void ownFaces();
    void symbolsAreNamedInLetters();
    void lineBelowTheCommonOnes();
    void takenByKeys();
    void takenByMouse();
    void wheelAndEscapeTakeNothing();
};

namespace {

const QStringList Common = {"Arial",  "Arial Black",     "Comic Sans MS", "Courier New", "Georgia",
                            "Impact", "Times New Roman", "Trebuchet MS",  "Verdana"};

/// A family that several foundries have made, by its bare name, without blanks; empty where there is none.
QString familyOfSeveralFoundries()
{
    for (const QString& family : QFontDatabase::families()) {
        const QString name = family.section(QStringLiteral(" ["), 0, 0);
        if (name != family && !name.contains(u' '))
            return name;
    }
    return {};
}

QWidget* windowOf(const QString& name, MainWindow& main)
{
    QWidget* window = openView(viewOf(name), main);
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window, Patience))
        QTest::qFail("the window does not come to the front", __FILE__, __LINE__);
    return window;
}

ComboBox* listOfTheFontWindow(MainWindow& main)
{
    windowOf(QStringLiteral("fonts"), main);
    return form<FrmFonts>()->Combo1;
}

/// Gives a key to the window that has the keyboard, as the desktop does.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QVERIFY(QTest::qWaitFor([] { return QGuiApplication::focusWindow() != nullptr; }, Patience));
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
}

/// Opens a list by its key.
void open(ComboBox* list)
{
    list->setFocus();
    QTRY_VERIFY(list->hasFocus());
    press(Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(list->view()->isVisible());
}

/// An open list's row, brought into view, as it is seen.
QImage pictureOf(const ComboBox& list, int row)
{
    QAbstractItemView* view = list.view();
    const QModelIndex index = list.model()->index(row, 0);
    view->scrollTo(index);
    return view->viewport()->grab(view->visualRect(index)).toImage();
}

/// The columns of a picture in which there is anything, the last line left out, from the first to the last.
int inkWidth(const QImage& picture)
{
    const QRgb paper = picture.pixel(picture.width() - 2, 1);
    int left = picture.width();
    int right = -1;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height() - 1; ++y) {
            if (picture.pixel(x, y) != paper) {
                left = qMin(left, x);
                right = qMax(right, x);
            }
        }
    }
    return right - left + 1;
}

/// The same of a name that is drawn in a font of that name, or in the list's own.
int inkWidthOf(const ComboBox& list, const QString& name, bool ownFace)
{
    QFont font = list.view()->font();
    if (ownFace)
        font.setFamily(name);
    return QFontMetrics(font).tightBoundingRect(name).width();
}

/// Pixels by which smoothing may widen what is drawn.
constexpr int Smoothing = 4;

} // namespace

void TestFontLists::names_data()
{
    QTest::addColumn<QStringList>("families");
    QTest::addColumn<int>("first");
    QTest::addColumn<QStringList>("own");
    QTest::newRow("as they come") << QStringList{"Zed", "Able"} << 0 << QStringList{"Zed", "Able"};
    QTest::newRow("none") << QStringList{} << 0 << QStringList{};
    QTest::newRow("without the first") << QStringList{"Zed", "Able"} << 1 << QStringList{"Able"};
    QTest::newRow("without more than there are") << QStringList{"Zed"} << 2 << QStringList{};
    QTest::newRow("two foundries") << QStringList{"C059 [UKWN]", "C059 [urw]", "D050000L [URW ]"} << 0
                                   << QStringList{"C059", "D050000L"};
    QTest::newRow("without the first of two")
        << QStringList{"C059 [UKWN]", "C059 [urw]"} << 1 << QStringList{"C059"};
    QTest::newRow("one of two has no foundry")
        << QStringList{"Nimbus Sans", "Nimbus Sans [urw]"} << 0 << QStringList{"Nimbus Sans"};
    QTest::newRow("common ones") << QStringList{"Arial", "Baskerville", "Verdana [ms]", "Arial Narrow"} << 0
                                 << QStringList{"Baskerville", "Arial Narrow"};
    QTest::newRow("letter case") << QStringList{"arial", "Lato", "LATO"} << 0 << QStringList{"Lato"};
    QTest::newRow("blanks") << QStringList{" Lato ", "  ", ""} << 0 << QStringList{"Lato"};
    QTest::newRow("brackets of its own")
        << QStringList{"Old [Style] Face", "[Face]"} << 0 << QStringList{"Old [Style] Face", "[Face]"};
}

void TestFontLists::names()
{
    QFETCH(QStringList, families);
    QFETCH(int, first);
    QFETCH(QStringList, own);
    QCOMPARE(fontNames(families, first), Common + own);
}

void TestFontLists::offered_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<int>("first");
    QTest::newRow("design") << "Combo1" << 0;
    QTest::newRow("terms") << "Combo1" << 0;
    QTest::newRow("fader") << "Combo1" << 0;
    QTest::newRow("fonts") << "Combo1" << 1;
    QTest::newRow("characters") << "Combo1" << 1;
    QTest::newRow("table") << "Combo7" << 1;
}

void TestFontLists::offered()
{
    QFETCH(QString, list);
    QFETCH(int, first);
    MainWindow main;
    const auto* box =
        windowOf(QString::fromLatin1(QTest::currentDataTag()), main)->findChild<ComboBox*>(list);
    QVERIFY(box);
    QStringList names;
    for (int i = 0; i < box->ListCount(); ++i)
        names << box->List(i);
    QCOMPARE(names.first(Common.size()), Common);
    QCOMPARE(names.filter(QStringLiteral("[")), QStringList());
    QVERIFY(!names.contains(QString()));
    QStringList once = names;
    QCOMPARE(once.removeDuplicates(), 0);
    qsizetype place = Common.size() - 1;
    for (const QString& family : QFontDatabase::families().mid(first)) {
        const qsizetype found = names.indexOf(family.section(QStringLiteral(" ["), 0, 0));
        QVERIFY2(found >= 0 && (found <= place || found == place + 1), qPrintable(family));
        place = qMax(place, found);
    }
    QCOMPARE(place, names.size() - 1); // there is nothing else
}

void TestFontLists::ownFaces_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("mono") << "Liberation Mono";
    QTest::newRow("serif") << "Liberation Serif";
}

void TestFontLists::ownFaces()
{
    QFETCH(QString, name);
    MainWindow main;
    ComboBox* box = listOfTheFontWindow(main);
    const int row = box->findText(name);
    QVERIFY(row > Common.size());
    open(box);
    const int seen = inkWidth(pictureOf(*box, row));
    const int own = inkWidthOf(*box, name, true);
    QVERIFY(qAbs(own - inkWidthOf(*box, name, false)) > Smoothing);
    QVERIFY2(qAbs(seen - own) <= Smoothing, qPrintable(QStringLiteral("%1, not %2").arg(seen).arg(own)));
    QCOMPARE(pictureOf(*box, row).height(), pictureOf(*box, 1).height());
}

void TestFontLists::symbolsAreNamedInLetters()
{
    MainWindow main;
    ComboBox* box = listOfTheFontWindow(main);
    QStringList symbols;
    for (int row = 0; row < box->ListCount(); ++row) {
        const QString name = box->List(row);
        const bool known =
            name == QStringLiteral("D050000L") || name == QStringLiteral("Standard Symbols PS");
        if (name == box->Text())
            continue; // it is selected, with a ground of its own
        if (known || !QFontDatabase::writingSystems(name).contains(QFontDatabase::Latin))
            symbols << name;
    }
    open(box);
    for (const QString& name : symbols) { // and names of fonts that are not on this computer
        const int seen = inkWidth(pictureOf(*box, box->findText(name)));
        const int normal = inkWidthOf(*box, name, false);
        QVERIFY2(qAbs(seen - normal) <= Smoothing,
                 qPrintable(QStringLiteral("%1: %2, not %3").arg(name).arg(seen).arg(normal)));
    }
}

/// Along all of the row, below the last of them and nowhere else.
void TestFontLists::lineBelowTheCommonOnes()
{
    MainWindow main;
    ComboBox* box = listOfTheFontWindow(main);
    open(box);
    for (const int row : {7, 8, 9}) {
        const QImage picture = pictureOf(*box, row);
        const QRgb paper = picture.pixel(picture.width() - 2, 1);
        int marked = 0;
        for (int x = 0; x < picture.width(); ++x)
            marked += picture.pixel(x, picture.height() - 1) != paper ? 1 : 0;
        QCOMPARE(marked == picture.width(), row == 8);
    }
}

/// What a page gets is the family's name alone, whoever made the font.
void TestFontLists::takenByKeys()
{
    const QString name = familyOfSeveralFoundries();
    if (name.isEmpty())
        QSKIP("no family of this computer comes from several foundries");
    MainWindow main;
    windowOf(QStringLiteral("design"), main);
    main.web->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    ComboBox* box = main.web->Combo1;
    open(box);
    press(Qt::Key_Home);
    QTRY_COMPARE(box->view()->currentIndex().row(), 0);
    for (int i = 0; i < box->ListCount() && box->view()->currentIndex().data() != name; ++i)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(box->Text(), name);
    QTRY_VERIFY(main.web->WebBrowser1->innerHtml().contains(QStringLiteral("face=%1").arg(name)));
}

void TestFontLists::takenByMouse()
{
    MainWindow main;
    ComboBox* box = listOfTheFontWindow(main);
    Sample* sample = form<FrmFonts>()->WebBrowser1;
    const QSignalSpy chosen(box, &ComboBox::Click);
    const auto take = [&](const QString& name) {
        open(box);
        const QModelIndex row = box->model()->index(box->findText(name), 0);
        box->view()->scrollTo(row);
        QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {}, box->view()->visualRect(row).center());
        QTRY_VERIFY(!box->view()->isVisible());
    };
    take(QStringLiteral("Georgia")); // this computer needn't have it
    QCOMPARE(box->Text(), QStringLiteral("Georgia"));
    QTRY_VERIFY(pageBody(sample).contains(QStringLiteral("face=\"Georgia\"")));
    QCOMPARE(chosen.count(), 1);
    if (const QString name = familyOfSeveralFoundries(); !name.isEmpty()) {
        take(name);
        QCOMPARE(box->Text(), name);
        QTRY_VERIFY(pageBody(sample).contains(QStringLiteral("face=\"%1\"").arg(name)));
    }
    overtype(box->lineEdit(), QStringLiteral("Courier N")); // nothing completes it
    QCOMPARE(box->Text(), QStringLiteral("Courier N"));
}

void TestFontLists::wheelAndEscapeTakeNothing()
{
    MainWindow main;
    ComboBox* box = listOfTheFontWindow(main);
    const QSignalSpy chosen(box, &ComboBox::Click);
    open(box);
    QWidget* rows = box->view()->viewport();
    const QPointF middle = rows->rect().center();
    QWheelEvent turned(middle, rows->mapToGlobal(middle), {}, {0, -240}, Qt::NoButton, Qt::NoModifier,
                       Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(rows, &turned);
    QTRY_VERIFY(box->view()->verticalScrollBar()->value() > 0); // the list has gone on
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(box->Text(), QStringLiteral("Arial"));
    QCOMPARE(box->ListIndex(), -1);
    QCOMPARE(chosen.count(), 0);
    QVERIFY(isLoaded<FrmFonts>()); // the window had no Escape
}

WEB_TEST_MAIN(TestFontLists)
#include "tst_fontlists.moc"
