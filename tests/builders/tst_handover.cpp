// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "colour/FrmFonts.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace brindlemark;

namespace {

/// Who takes a font.
enum class Taker { Nobody, List, Words, Title };

/// Both lists over a main window, each of which has asked for fonts and characters.
class Lists : public MainWindow
{
public:
    FrmList* list = opened<FrmList>();
    FrmList2* special = opened<FrmList2>();

    Lists()
    {
        for (QPushButton* button : {list->Command21, special->Command15, special->Command1}) {
            button->window()->activateWindow();
            click(button);
        }
    }

    QStringList listFont() const { return font(list->wordFont); }
    static QStringList font(const ListFont& font)
    {
        return {font.name, font.size, font.color, font.open, font.close};
    }

private:
    template <typename F>
    static F* opened()
    {
        F* window = form<F>();
        window->Show();
        if (!QTest::qWaitForWindowExposed(window, Patience))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
        return window;
    }
};

/// Captions that are almost the one that counts.
QList<std::pair<QString, QString>> almost(const QString& caption)
{
    QString inner = caption;
    inner.replace(u' ', QLatin1String("  "));
    return {{QStringLiteral("small letters"), caption.toLower()},
            {QStringLiteral("capitals"), caption.toUpper()},
            {QStringLiteral("one small letter"), caption.left(1).toLower() + caption.mid(1)},
            {QStringLiteral("blank behind"), caption + u' '},
            {QStringLiteral("blank in front"), u' ' + caption},
            {QStringLiteral("wide blanks"), inner},
            {QStringLiteral("cut"), caption.chopped(1)},
            {QStringLiteral("longer"), caption + u's'}};
}

/// The tip of a cell; empty when none is shown.
QString tipOf(CharMap* map, int cell)
{
    const QPoint place = map->cellRect(cell).center();
    QHelpEvent help(QEvent::ToolTip, place, map->mapToGlobal(place));
    QApplication::sendEvent(map, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

QImage pictureOf(CharMap* map, int cell)
{
    return map->grab(map->cellRect(cell)).toImage().convertToFormat(QImage::Format_RGB32);
}

/// A cell as it has to look, its character written here in full.
QImage drawn(const CharMap* map, const QString& character, const QFont& font)
{
    QPixmap picture(map->cellRect(1).size());
    picture.fill(map->palette().color(QPalette::Button));
    QPainter painter(&picture);
    painter.setPen(map->palette().color(QPalette::ButtonText));
    painter.setFont(font);
    painter.drawText(picture.rect(), Qt::AlignCenter, character);
    painter.end();
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

/// What the font window and the character window hand to the lists.
class TestHandover : public QObject
{
    Q_OBJECT

private slots:
    void fonts_data();
    void fonts();
    void characters_data();
    void characters();
    void tipsOfTheCharacters();
    void fontOfTheCharacters();
};

void TestHandover::fonts_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<Taker>("taker");
    for (const auto& [caption, taker] : {std::pair{"List Properties Font", Taker::List},
                                         {"List Special Character Font", Taker::Words},
                                         {"List Special Character Title Font", Taker::Title}}) {
        QTest::newRow(caption) << QString::fromLatin1(caption) << taker;
        for (const auto& [name, other] : almost(QString::fromLatin1(caption)))
            QTest::addRow("%s, %s", caption, qPrintable(name)) << other << Taker::Nobody;
    }
    QTest::newRow("Font") << "Font" << Taker::Nobody;
    QTest::newRow("none") << "" << Taker::Nobody;
}

/// The caption to the letter says for whom a font is; with any other, OK only closes.
void TestHandover::fonts()
{
    QFETCH(QString, caption);
    QFETCH(Taker, taker);
    const Lists window;
    FrmFonts* fonts = form<FrmFonts>();
    fonts->setWindowTitle(caption);
    overtype(fonts->Combo1->lineEdit(), QStringLiteral("X"));
    choose(fonts->Combo2, 6);
    click(fonts->chkItalic);
    step(fonts->GreenG);
    window.special->html = QStringLiteral("not made anew");
    click(fonts->Command1);
    QVERIFY(!isLoaded<FrmFonts>());
    const QStringList before = {"Arial", "3", "#000000", "", ""};
    const QStringList after = {"X", "6", "#000100", "<I>", "</I>"};
    QCOMPARE(window.listFont(), taker == Taker::List ? after : before);
    QCOMPARE(Lists::font(window.special->words), taker == Taker::Words ? after : before);
    QCOMPARE(Lists::font(window.special->title), taker == Taker::Title ? after : before);
    const bool anew = taker == Taker::Words || taker == Taker::Title;
    QCOMPARE(window.special->html, anew ? QString() : QStringLiteral("not made anew"));
}

void TestHandover::characters_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("taken");
    const QString caption = QStringLiteral("List Properties Character");
    QTest::newRow("its own") << caption << true;
    for (const auto& [name, other] : almost(caption))
        QTest::newRow(qPrintable(name)) << other << false;
}

void TestHandover::characters()
{
    QFETCH(QString, caption);
    QFETCH(bool, taken);
    const Lists window;
    FrmChar* chars = form<FrmChar>();
    chars->setWindowTitle(caption);
    QTest::mouseClick(chars->CharC, Qt::LeftButton, {}, chars->CharC->cellRect(88).center());
    click(chars->Command1);
    QVERIFY(isLoaded<FrmChar>() && !chars->isVisible());
    QCOMPARE(window.special->LabV->text(), taken ? QStringLiteral("X") : QStringLiteral("4"));
}

/// Each cell tells its code, the first one nothing.
void TestHandover::tipsOfTheCharacters()
{
    const Lists window;
    CharMap* map = form<FrmChar>()->CharC;
    QCOMPARE(tipOf(map, 0), QString());
    for (int cell = 1; cell < CharMap::Count; ++cell)
        QCOMPARE(tipOf(map, cell), QString::number(cell));
    QToolTip::hideText();
}

/// All cells but the first are written in the font that is chosen, and the view too.
void TestHandover::fontOfTheCharacters()
{
    const Lists window;
    FrmChar* chars = form<FrmChar>();
    CharMap* map = chars->CharC;
    map->clearFocus(); // a frame shows where the keys are
    const QImage first = pictureOf(map, 0);
    QCOMPARE(first, drawn(map, QStringLiteral("A"), map->font()));
    QFont chosen = map->font();
    for (const char* family : {"Liberation Mono", "DejaVu Serif"}) {
        choose(chars->Combo1, chars->Combo1->findText(QString::fromLatin1(family)));
        map->clearFocus();
        chosen.setFamily(QString::fromLatin1(family));
        QCOMPARE(chars->LabV->font().family(), QString::fromLatin1(family));
        QCOMPARE(pictureOf(map, 0), first);
        QVERIFY(drawn(map, QStringLiteral("A"), chosen) != first);
        for (const auto& [cell, character] :
             {std::pair{1, u'\u0001'}, {65, u'A'}, {103, u'g'}, {128, u'\u20AC'}, {255, u'\u00FF'}})
            QCOMPARE(pictureOf(map, cell), drawn(map, QString(QChar(character)), chosen));
    }
}

WEB_TEST_MAIN(TestHandover)
#include "tst_handover.moc"
