// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProgramFolder.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "forms/ListBox.h"
#include "services/Profile.h"
#include "web/DocumentSurface.h"
#include "wizard/PageColors.h"

#include <QRegularExpression>
#include <cmath>

using namespace brindlemark;

namespace {

constexpr std::array<DrawingPart, 12> AllParts = {
    DrawingPart::Page,
    DrawingPart::Title,
    DrawingPart::TitleGround,
    DrawingPart::Rule,
    DrawingPart::Description,
    DrawingPart::DescriptionGround,
    DrawingPart::DescriptionLines,
    DrawingPart::PictureLines,
    DrawingPart::Cells,
    DrawingPart::CellGround,
    DrawingPart::Lists,
    DrawingPart::Borders,
};

const QStringList Defaults = {"#000000", "#FFFFFF", "#FFFF00", "#FFFFFF", "#000000",
                              "#000000", "#000000", "#000000", "#000000"};

/// The nine colours, in the order in which sets keep them.
QStringList fields(const PageLook& look)
{
    return {look.borderColor,      look.cellColor,  look.titleCellColor,
            look.tableColor,       look.ruleColor,  look.titleCellTextColor,
            look.descriptionColor, look.titleColor, look.listColor};
}

/// Nine colours that are all different: field i is #0i0000.
PageLook distinct(int style)
{
    PageLook look;
    look.style = style;
    look.borderColor = QStringLiteral("#010000");
    look.cellColor = QStringLiteral("#020000");
    look.titleCellColor = QStringLiteral("#030000");
    look.tableColor = QStringLiteral("#040000");
    look.ruleColor = QStringLiteral("#050000");
    look.titleCellTextColor = QStringLiteral("#060000");
    look.descriptionColor = QStringLiteral("#070000");
    look.titleColor = QStringLiteral("#080000");
    look.listColor = QStringLiteral("#090000");
    return look;
}

/// The share of the light that a colour gives back, 0 to 1, as the web accessibility guidelines define it.
double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast ratio of the same guidelines, 1 to 21.
double contrast(const QString& text, const QString& ground)
{
    const double a = luminance(QColor(text));
    const double b = luminance(QColor(ground));
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

/// The colour that a browser reads in an attribute, by the HTML standard's rules for old colour values; names
/// left out.
QString asBrowsersRead(QString text)
{
    if (text.startsWith(u'#'))
        text.remove(0, 1);
    for (QChar& digit : text) {
        if (!QStringLiteral("0123456789ABCDEFabcdef").contains(digit))
            digit = u'0';
    }
    while (text.isEmpty() || text.size() % 3 != 0)
        text += u'0';
    qsizetype length = text.size() / 3;
    QStringList parts = {text.first(length), text.mid(length, length), text.last(length)};
    const auto cutFront = [&](qsizetype count) {
        for (QString& part : parts)
            part.remove(0, count);
        length -= count;
    };
    if (length > 8)
        cutFront(length - 8);
    while (length > 2 && parts[0][0] == u'0' && parts[1][0] == u'0' && parts[2][0] == u'0')
        cutFront(1);
    QString color = QStringLiteral("#");
    for (const QString& part : parts)
        color += part.left(2).rightJustified(2, u'0');
    return color.toUpper();
}

} // namespace

class TestColours : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void pick_data();
    void pick();
    void pickOfNoEntryChangesNothing();
    void repaintByStyle_data();
    void repaintByStyle();
    void styleThreeLeavesThePictureLines();
    void emptyFieldsPaintBlack();
    void setsGoAndComeBack_data();
    void setsGoAndComeBack();
    void missingKeysGiveEmptyFields();
    void namesOfOtherCaseShareTheirSection();
    void contrastIsComputedRight();
    void shippedSets();
    void colorsAsBrowsersReadThem_data();
    void colorsAsBrowsersReadThem();
};

void TestColours::defaults()
{
    QCOMPARE(fields(PageLook()), Defaults);
}

void TestColours::pick_data()
{
    using Part = DrawingPart;
    using Parts = QList<DrawingPart>;
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("style");
    QTest::addColumn<QList<int>>("changedFields");
    QTest::addColumn<Parts>("painted");
    const struct
    {
        const char* entry;
        QList<int> changed;
        Parts always;
        Parts not3; // not in style 3
        Parts only2;
        Parts only3;
    } rows[] = {
        {"Title:", {8}, {Part::Title}, {}, {}, {}},
        {"Line:", {5}, {Part::Rule}, {}, {}, {}},
        {"Description:", {7}, {Part::DescriptionLines}, {Part::Description, Part::PictureLines}, {}, {}},
        {"Cell:", {3}, {Part::CellGround}, {}, {}, {Part::DescriptionGround}},
        {"Cell Name:", {6}, {Part::Cells}, {}, {}, {Part::Description}},
        {"Border:", {1}, {Part::Borders}, {}, {Part::Rule}, {}},
        {"Background:", {2, 4}, {Part::Page, Part::TitleGround}, {Part::DescriptionGround}, {}, {}},
        {"Lists:", {9}, {Part::Lists}, {}, {}, {}},
    };
    for (const auto& row : rows) {
        for (int style = 0; style < 4; ++style) {
            QTest::addRow("%s style %d", row.entry, style)
                << QString::fromLatin1(row.entry) << style << row.changed
                << row.always + (style != 3 ? row.not3 : Parts()) + (style == 2 ? row.only2 : Parts()) +
                       (style == 3 ? row.only3 : Parts());
        }
    }
}

void TestColours::pick()
{
    QFETCH(QString, entry);
    QFETCH(int, style);
    QFETCH(QList<int>, changedFields);
    QFETCH(QList<DrawingPart>, painted);
    PageLook look = distinct(style);
    DrawingColors drawing;
    for (DrawingPart part : AllParts)
        drawing[part] = Qt::white;

    pickColor(look, drawing, entry, 0xFF8040);

    QStringList expected = fields(distinct(style));
    for (int field : changedFields)
        expected[field - 1] = QStringLiteral("#4080FF");
    QCOMPARE(fields(look), expected);
    for (DrawingPart part : AllParts)
        QCOMPARE(drawing[part], painted.contains(part) ? QColor(0x40, 0x80, 0xFF) : QColor(Qt::white));
}

void TestColours::pickOfNoEntryChangesNothing()
{
    PageLook look = distinct(0);
    DrawingColors drawing;
    for (const char* entry : {"", "Pick lists", "title:"})
        pickColor(look, drawing, QString::fromLatin1(entry), 0xFF8040);
    QCOMPARE(fields(look), fields(distinct(0)));
    for (DrawingPart part : AllParts)
        QCOMPARE(drawing[part], QColor());
}

void TestColours::repaintByStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("rule");        // the number of the field
    QTest::addColumn<int>("description"); // `Label7`, text
    QTest::addColumn<int>("ground");      // `Label7`, background
    QTest::newRow("0") << 0 << 5 << 7 << 2;
    QTest::newRow("1") << 1 << 5 << 7 << 2;
    QTest::newRow("2") << 2 << 1 << 7 << 2;
    QTest::newRow("3") << 3 << 5 << 6 << 3;
}

void TestColours::repaintByStyle()
{
    QFETCH(int, style);
    QFETCH(int, rule);
    QFETCH(int, description);
    QFETCH(int, ground);
    DrawingColors drawing;
    paintDrawing(distinct(style), drawing);
    const auto field = [](int number) { return QColor(number, 0, 0); };
    QCOMPARE(drawing[DrawingPart::Rule], field(rule));
    QCOMPARE(drawing[DrawingPart::Description], field(description));
    QCOMPARE(drawing[DrawingPart::DescriptionGround], field(ground));
    QCOMPARE(drawing[DrawingPart::Page], field(4));
    QCOMPARE(drawing[DrawingPart::Title], field(8));
    QCOMPARE(drawing[DrawingPart::TitleGround], field(2));
    QCOMPARE(drawing[DrawingPart::DescriptionLines], field(7));
    QCOMPARE(drawing[DrawingPart::Cells], field(6));
    QCOMPARE(drawing[DrawingPart::CellGround], field(3));
    QCOMPARE(drawing[DrawingPart::Lists], field(9));
    QCOMPARE(drawing[DrawingPart::Borders], field(1));
}

void TestColours::styleThreeLeavesThePictureLines()
{
    DrawingColors drawing;
    paintDrawing(distinct(0), drawing);
    PageLook look = distinct(3);
    look.descriptionColor = QStringLiteral("#FF0000");
    paintDrawing(look, drawing);
    QCOMPARE(drawing[DrawingPart::PictureLines], QColor(7, 0, 0));
    look.style = 2;
    paintDrawing(look, drawing);
    QCOMPARE(drawing[DrawingPart::PictureLines], QColor(0xFF, 0, 0));
}

void TestColours::emptyFieldsPaintBlack()
{
    PageLook look;
    look.cellColor = look.tableColor = QString();
    look.titleColor = QStringLiteral("red");
    DrawingColors drawing;
    paintDrawing(look, drawing);
    QCOMPARE(drawing[DrawingPart::TitleGround], QColor(Qt::black));
    QCOMPARE(drawing[DrawingPart::Page], QColor(Qt::black));
    QCOMPARE(drawing[DrawingPart::CellGround], QColor(Qt::yellow));
}

void TestColours::setsGoAndComeBack_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"plain", "two words", "a]b", "]", "[x]", "a=b", "a,b", "; a", "Grün & Gold", "日本", "\"q\""})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void TestColours::setsGoAndComeBack()
{
    QFETCH(QString, name);
    const ProgramFolder folder;
    saveColorSet(PageLook(), QStringLiteral("before"));
    saveColorSet(distinct(0), name);
    saveColorSet(PageLook(), QStringLiteral("behind"));
    PageLook look;
    loadColorSet(look, name);
    QCOMPARE(fields(look), fields(distinct(0)));
    for (const char* other : {"before", "behind"}) {
        loadColorSet(look, QString::fromLatin1(other));
        QCOMPARE(fields(look), Defaults);
    }
}

void TestColours::missingKeysGiveEmptyFields()
{
    const ProgramFolder folder;
    folder.write(QStringLiteral("webstyle.ini"),
                 "[half]\r\n2=#FFEEDD\r\n9=#112233\r\n[other]\r\n1=#FFFFFF\r\n");
    PageLook look = distinct(0);
    loadColorSet(look, QStringLiteral("half"));
    QCOMPARE(fields(look), QStringList({"", "#FFEEDD", "", "", "", "", "", "", "#112233"}));
    loadColorSet(look, QStringLiteral("nobody"));
    QCOMPARE(fields(look), QStringList(9, QString()));
}

void TestColours::namesOfOtherCaseShareTheirSection()
{
    const ProgramFolder folder;
    saveColorSet(PageLook(), QStringLiteral("Mine"));
    saveColorSet(distinct(0), QStringLiteral("MINE"));
    PageLook look;
    loadColorSet(look, QStringLiteral("Mine"));
    QCOMPARE(fields(look), fields(distinct(0)));
}

void TestColours::contrastIsComputedRight()
{
    QCOMPARE(contrast(QStringLiteral("#000000"), QStringLiteral("#FFFFFF")), 21.0);
    QCOMPARE(contrast(QStringLiteral("#FFFFFF"), QStringLiteral("#FFFFFF")), 1.0);
    // the lightest grey that still passes on white
    QVERIFY(contrast(QStringLiteral("#767676"), QStringLiteral("#FFFFFF")) >= 4.5);
    QVERIFY(contrast(QStringLiteral("#777777"), QStringLiteral("#FFFFFF")) < 4.5);
}

/// The sets that ship can be read: each text on the ground on which it stands.
void TestColours::shippedSets()
{
    const ProgramFolder folder;
    for (const char* file : {"webstyle.ini", "webstyle2.ini"}) {
        QFile shipped(QStringLiteral(SOURCE_DIR "/data/") + QString::fromLatin1(file));
        QVERIFY(shipped.open(QIODevice::ReadOnly));
        const QByteArray bytes = shipped.readAll();
        QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
        folder.write(QString::fromLatin1(file), bytes);
    }
    ListBox names;
    LoadList(folder.path(QStringLiteral("webstyle2.ini")), names);
    QCOMPARE(names.ListCount(), 6);
    const QRegularExpression colorText(QStringLiteral("^#[0-9A-F]{6}$"));
    for (int i = 0; i < names.ListCount(); ++i) {
        PageLook look;
        loadColorSet(look, names.List(i));
        for (const QString& field : fields(look))
            QVERIFY2(colorText.match(field).hasMatch(), qPrintable(names.List(i)));
        const std::pair<QString, QString> texts[] = {
            {look.titleCellTextColor, look.titleCellColor}, // title cells
            {look.descriptionColor, look.cellColor},        // description
            {look.titleColor, look.cellColor},              // title
            {look.listColor, look.cellColor},               // lists and terms
            {asBrowsersRead(look.listColor + u'0'),
             look.cellColor}, // the tax line of design 3, with its digit too many
        };
        for (const auto& [text, ground] : texts) {
            QVERIFY2(contrast(text, ground) >= 4.5,
                     qPrintable(QStringLiteral("%1: %2 on %3").arg(names.List(i), text, ground)));
        }
    }
}

void TestColours::colorsAsBrowsersReadThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("color");
    QTest::newRow("as it should be") << "#4080FF"
                                     << "#4080FF";
    QTest::newRow("seven digits") << "#3B2E1E0"
                                  << "#3BE100";
    QTest::newRow("seven noughts") << "#0000000"
                                   << "#000000";
    QTest::newRow("noughts in front") << "#0123450"
                                      << "#013400";
    QTest::newRow("noughts in front of all three") << "#012034056"
                                                   << "#123456";
    QTest::newRow("doubled") << "#3333330"
                             << "#333300";
    QTest::newRow("no digits") << "#GG00112"
                               << "#000120";
    QTest::newRow("long") << "#123456789ABCDEF0123456789ABCDEF"
                          << "#45F0AB";
    QTest::newRow("one") << "#F"
                         << "#0F0000";
}

/// The rules above give what the engine shows.
void TestColours::colorsAsBrowsersReadThem()
{
    QFETCH(QString, text);
    QFETCH(QString, color);
    QCOMPARE(asBrowsersRead(text), color);
    DocumentSurface browser;
    browser.write(QStringLiteral("<FONT color=%1>x</FONT>").arg(text));
    const QColor shown(color);
    QCOMPARE(probe(browser)
                 .evaluate(QStringLiteral("getComputedStyle(document.querySelector('font')).color"))
                 .value_or(QVariant())
                 .toString(),
             QStringLiteral("rgb(%1, %2, %3)").arg(shown.red()).arg(shown.green()).arg(shown.blue()));
}

WEB_TEST_MAIN(TestColours)
#include "tst_colours.moc"
