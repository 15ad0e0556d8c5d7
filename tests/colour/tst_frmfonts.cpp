// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "colour/ColorSample.h"
#include "colour/FrmFonts.h"
#include "shell/ScreenFonts.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QSignalSpy>

using namespace brindlemark;

namespace {

const QString Caption = QStringLiteral("List Properties Font");

class Fonts : public MainWindow
{
public:
    Fonts() : fonts(form<FrmFonts>())
    {
        connect(fonts, [this](const QString& caption, const FontChoice& font) {
            taken = {caption, font.color, font.name, font.size, font.open, font.close};
        });
        fonts->setWindowTitle(Caption);
        fonts->Show();
        if (!QTest::qWaitForWindowActive(fonts))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
    }

    FrmFonts* fonts;
    QStringList taken; ///< caption, colour, name, size, opening and closing tags

    QString sample() const { return pageBody(fonts->WebBrowser1); }

private:
    template <typename Function>
    static void connect(FrmFonts* fonts, Function function)
    {
        QObject::connect(fonts, &FrmFonts::taken, fonts, function);
    }
};

QString rendered(const char* size, const char* color, const char* name = "Arial")
{
    return QStringLiteral("<font face=\"%1\" size=\"%2\" color=\"%3\">AaBbCcDd</font>")
        .arg(QLatin1String(name), QLatin1String(size), QLatin1String(color));
}

} // namespace

class TestFrmFonts : public QObject
{
    Q_OBJECT

private slots:
    void texts();
    void sampleFollows();
    void fontIsTypedAndPicked();
    void sizeThatIsTypedWaits();
    void handsOver_data();
    void handsOver();
    void cancelled();
    void pickAColor();
    void missingFontIsTold();
};

void TestFrmFonts::texts()
{
    const MainWindow window;
    const FrmFonts& f = *form<FrmFonts>();
    QCOMPARE(f.windowTitle(), QStringLiteral("Font"));
    QCOMPARE(f.Combo1->Text(), QStringLiteral("Arial"));
    QStringList families;
    for (int i = 0; i < f.Combo1->ListCount(); ++i)
        families << f.Combo1->List(i);
    QCOMPARE(families, fontNames(QFontDatabase::families(), 1));
    QStringList sizes;
    for (int i = 0; i < f.Combo2->ListCount(); ++i)
        sizes << f.Combo2->List(i);
    QCOMPARE(sizes.join(u' '), QStringLiteral("Normal 8 10 12 14 18 24 36"));
    QCOMPARE(f.Combo2->Text(), QStringLiteral("Normal"));
    QCOMPARE(f.chkBold->toolTip() + u' ' + f.chkItalic->toolTip() + u' ' + f.chkUnderline->toolTip(),
             QStringLiteral("Bold Italic Underline"));
    QCOMPARE(f.Frame3->title(), QStringLiteral("Font Color"));
    QCOMPARE(f.Frame1->title(), QStringLiteral("Sample"));
    QCOMPARE(f.Command1->text(), QStringLiteral("OK"));
    QCOMPARE(f.Command2->text(), QStringLiteral("Cancel"));
    QCOMPARE(f.WebBrowser1->designMode(), DesignMode::On);
}

void TestFrmFonts::sampleFollows()
{
    const Fonts window;
    FrmFonts& f = *window.fonts;
    QTRY_COMPARE(window.sample(), rendered("3", "#000000"));
    choose(f.Combo2, 7);
    QTRY_COMPARE(window.sample(), rendered("7", "#000000"));
    overtype(f.Combo1->lineEdit(), QStringLiteral("Courier"));
    QTRY_COMPARE(window.sample(), rendered("7", "#000000", "Courier"));
    step(f.RedG);
    QTRY_COMPARE(window.sample(), rendered("7", "#010000", "Courier"));
    dragToEnd(f.BlueG);
    QTRY_COMPARE(window.sample(), rendered("7", "#0100FF", "Courier"));
    release(f.BlueG);
    click(f.chkBold);
    QTRY_COMPARE(window.sample(),
                 QStringLiteral("<b>") + rendered("7", "#0100FF", "Courier") + QStringLiteral("</b>"));
}

/// Each letter of a font's name shows, and each entry that is picked, whether by mouse or key.
void TestFrmFonts::fontIsTypedAndPicked()
{
    const Fonts window;
    FrmFonts& f = *window.fonts;
    const auto expectFont = [&](const QString& name) {
        // Without quotes, what stands behind a blank are attributes of their own.
        const QString face = name.section(u' ', 0, 0);
        QString others;
        for (const QString& word : name.section(u' ', 1).split(u' ', Qt::SkipEmptyParts))
            others += u' ' + word.toLower() + QStringLiteral("=\"\"");
        QTRY_COMPARE(window.sample(),
                     QStringLiteral("<font face=\"%1\"%2 size=\"3\" color=\"#000000\">AaBbCcDd</font>")
                         .arg(face, others));
    };
    choose(f.Combo1, f.Combo1->findText(QStringLiteral("Liberation Mono")));
    expectFont(QStringLiteral("Liberation Mono"));
    QTest::keyClick(f.Combo1->lineEdit(), Qt::Key_End);
    QTest::keyClick(f.Combo1->lineEdit(), Qt::Key_Backspace);
    expectFont(QStringLiteral("Liberation Mon"));
    QTest::keyClick(f.Combo1->lineEdit(), Qt::Key_S);
    expectFont(QStringLiteral("Liberation Mons"));
    choose(f.Combo1, f.Combo1->findText(QStringLiteral("DejaVu Sans")));
    expectFont(QStringLiteral("DejaVu Sans"));
    const QString next = f.Combo1->List(f.Combo1->ListIndex() + 1);
    QTest::keyClick(f.Combo1, Qt::Key_Down);
    expectFont(next);
}

/// Only a pick in the list of sizes shows at once.
void TestFrmFonts::sizeThatIsTypedWaits()
{
    const Fonts window;
    FrmFonts& f = *window.fonts;
    overtype(f.Combo2->lineEdit(), QStringLiteral("24"));
    QCOMPARE(settledSample(f.WebBrowser1), rendered("3", "#000000"));
    click(f.chkItalic);
    QTRY_COMPARE(window.sample(), QStringLiteral("<i>") + rendered("6", "#000000") + QStringLiteral("</i>"));
}

void TestFrmFonts::handsOver_data()
{
    QTest::addColumn<QList<int>>("styles");
    QTest::addColumn<QString>("open");
    QTest::addColumn<QString>("close");
    QTest::newRow("none") << QList<int>{} << ""
                          << "";
    QTest::newRow("bold") << QList<int>{0} << "<B>"
                          << "</B>";
    QTest::newRow("bold and underline") << QList<int>{0, 2} << "<B><U>"
                                        << "</B></U>";
    QTest::newRow("all") << QList<int>{2, 1, 0} << "<B><I><U>"
                         << "</B></I></U>";
}

void TestFrmFonts::handsOver()
{
    QFETCH(QList<int>, styles);
    QFETCH(QString, open);
    QFETCH(QString, close);
    const Fonts window;
    FrmFonts& f = *window.fonts;
    for (const int style : styles)
        click(QList<CheckBox*>{f.chkBold, f.chkItalic, f.chkUnderline}.at(style));
    f.Combo2->setText(QStringLiteral("14"));
    f.GreenG->setValue(16);
    click(f.Command1);
    QCOMPARE(window.taken, (QStringList{Caption, QStringLiteral("#001000"), QStringLiteral("Arial"),
                                        QStringLiteral("4"), open, close}));
    QVERIFY(!isLoaded<FrmFonts>());
}

void TestFrmFonts::cancelled()
{
    const Fonts window;
    QTest::keyClick(window.fonts, Qt::Key_Escape);
    QVERIFY(!isLoaded<FrmFonts>());
    QCOMPARE(window.taken, QStringList());
}

void TestFrmFonts::pickAColor()
{
    Fonts window;
    window.doors.answerColor(0x332211);
    click(window.fonts->FColor1);
    QCOMPARE(window.fonts->GreenG->Value(), 0x22);
    QTRY_COMPARE(window.sample(), rendered("3", "#112233"));
    window.doors.cancelColor();
    click(window.fonts->FColor1);
    QCOMPARE(window.fonts->FColor1->BackColor(), 0x332211);
}

void TestFrmFonts::missingFontIsTold()
{
    const Fonts window;
    window.fonts->Combo1->setText(QStringLiteral("No Such Font"));
    QVERIFY(window.fonts->Notice->isVisible());
    QVERIFY(window.fonts->Notice->text().contains(QStringLiteral("\"No Such Font\"")));
    window.fonts->Combo1->setText(QStringLiteral("Liberation Mono"));
    QVERIFY(!window.fonts->Notice->isVisible());
}

WEB_TEST_MAIN(TestFrmFonts)
#include "tst_frmfonts.moc"
