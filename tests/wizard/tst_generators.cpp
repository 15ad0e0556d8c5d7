// SPDX-License-Identifier: GPL-3.0-or-later

#include "Random.h"
#include "SampleListing.h"
#include "platform/RuntimeError.h"
#include "wizard/Generators.h"
#include "wizard/PictureBlock.h"

#include <QRegularExpression>
#include <QTest>
#include <functional>

using namespace brindlemark;

namespace {

/// One way to fill a part of the listing, and what the page must then say there. In the text, `[LI]` stands
/// for the opening tags of a list item, `[tax LI]` for those of the tax line, and `[/UL]` for the end of the
/// location list.
struct Choice
{
    const char* name;
    std::function<void(Listing&)> choose;
    QString text;
};

const QString Li = QStringLiteral("<LI><FONT face=Arial color=#009900 size=3>\r\n");
const QString OddLi = QStringLiteral("<LI><FONT face=Arial color=#0099000 size=3>\r\n");

/// A choice's text in a design style.
QString inStyle(QString text, int style)
{
    return text.replace(QStringLiteral("[LI]"), Li)
        .replace(QStringLiteral("[tax LI]"), style == 3 ? OddLi : Li)
        .replace(QStringLiteral("[/UL]"),
                 style < 2 ? QStringLiteral("</FONT></LI></UL>") : QStringLiteral("</LI></UL>"));
}

QList<Choice> paymentChoices()
{
    return {
        {"two payments",
         [](Listing& l) {
             l.payments = {"PayPal", "a \"cheque\" & <I>more</I>"};
         },
         "[LI]PayPal\r\n</FONT>\r\n"
         "[LI]a \"cheque\" & <I>more</I>\r\n</FONT>\r\n"
         "</FONT></LI></UL>\r\n"
         "<!-- Body-list2 -->\r\n"},
        {"no payment", [](Listing& l) { l.payments.clear(); }, ""},
    };
}

QList<Choice> locationChoices()
{
    const auto option = [](bool Listing::*chosen) {
        return [chosen](Listing& l) {
            l.unitedStatesOnly = l.worldwide = l.someRegions = false;
            l.*chosen = true;
        };
    };
    return {
        {"United States", option(&Listing::unitedStatesOnly),
         "[LI]Will ship to the United States only.\r\n</FONT>\r\n[/UL]\r\n"},
        {"worldwide", option(&Listing::worldwide),
         "[LI]Will ship internationally (worldwide)\r\n</FONT>\r\n[/UL]\r\n"},
        {"regions", option(&Listing::someRegions),
         "[LI]Will ship to the United States and the following regions<UL>\r\n</FONT><BR>\r\n"
         "[LI]Canada\r\n</FONT>\r\n"
         "[LI]Europe\r\n</FONT>\r\n"
         "</UL>\r\n[/UL]\r\n"},
        {"regions, none listed",
         [option](Listing& l) {
             option (&Listing::someRegions)(l);
             l.regions.clear();
         },
         "[LI]Will ship to the United States and the following "
         "regions<UL>\r\n</FONT><BR>\r\n</UL>\r\n[/UL]\r\n"},
    };
}

struct Cost
{
    const char* dollars;
    const char* cents;
};

/// The buyer pays: shipping, insurance, additional item, and whether there is a tax line.
void buyerPays(Listing& l, Cost shipping, Cost insurance, Cost additional, bool tax)
{
    l.sellerPays = false;
    l.buyerPays = true;
    l.calculator = false;
    l.shippingDollars = QString::fromLatin1(shipping.dollars);
    l.shippingCents = QString::fromLatin1(shipping.cents);
    l.insuranceDollars = QString::fromLatin1(insurance.dollars);
    l.insuranceCents = QString::fromLatin1(insurance.cents);
    l.additionalDollars = QString::fromLatin1(additional.dollars);
    l.additionalCents = QString::fromLatin1(additional.cents);
    l.taxed = tax;
}

QList<Choice> whoPaysChoices()
{
    const auto seller = [](Listing& l) {
        l.sellerPays = true;
        l.buyerPays = false;
    };
    const auto calculator = [](bool tax) {
        return [tax](Listing& l) {
            l.calculator = true;
            l.taxed = tax;
        };
    };
    const QString calculated =
        QStringLiteral("[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
                       "[LI]Please use calculate shipping use your zip code.\r\n</FONT>\r\n");
    return {
        {"seller", seller, "[LI]Seller Pays Shipping\r\n</FONT>\r\n"},
        {"calculator", calculator(false), calculated},
        {"calculator, tax wanted", calculator(true), calculated},
        {"shipping alone",
         [](Listing& l) {
             buyerPays(l, {"5", "00"}, {"0", "00"}, {"0", "00"}, false);
         },
         "[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
         "[LI]Shipping and Handling costs - $5.00\r\n</FONT>\r\n"},
        {"shipping for nothing",
         [](Listing& l) {
             buyerPays(l, {"0", "00"}, {"0", "00"}, {"0", "00"}, false);
         },
         "[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
         "[LI]Shipping and Handling costs - $0.00\r\n</FONT>\r\n"},
        {"insurance",
         [](Listing& l) {
             buyerPays(l, {"5", "00"}, {"1", "00"}, {"0", "00"}, false);
         },
         "[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
         "[LI]Shipping and Handling costs - $5.00\r\n</FONT>\r\n"
         "[LI]Shipping Insurance item costs - $1.00\r\n</FONT>\r\n"},
        {"additional item",
         [](Listing& l) {
             buyerPays(l, {"5", "00"}, {"0", "00"}, {"0", "99"}, false);
         },
         "[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
         "[LI]Shipping and Handling costs - $5.00\r\n</FONT>\r\n"
         "[LI]Additional item (per item) - $0.99\r\n</FONT>\r\n"},
        {"other ways to write nothing",
         [](Listing& l) {
             buyerPays(l, {"", ""}, {"0", "0"}, {"", ""}, false);
         },
         "[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
         "[LI]Shipping and Handling costs - $.\r\n</FONT>\r\n"
         "[LI]Shipping Insurance item costs - $0.0\r\n</FONT>\r\n"
         "[LI]Additional item (per item) - $.\r\n</FONT>\r\n"},
        {"tax",
         [](Listing& l) {
             buyerPays(l, {"5", "00"}, {"0", "00"}, {"0", "00"}, true);
         },
         "[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
         "[LI]Shipping and Handling costs - $5.00\r\n</FONT>\r\n"
         "[tax LI]Tax Rate: 8.25% State: NY\r\n</FONT>\r\n"},
        {"all costs",
         [](Listing& l) {
             buyerPays(l, {"12", "5"}, {"3", "05"}, {"0", "75"}, true);
         },
         "[LI]Buyer Pays All Shipping.\r\n</FONT>\r\n"
         "[LI]Shipping and Handling costs - $12.5\r\n</FONT>\r\n"
         "[LI]Shipping Insurance item costs - $3.05\r\n</FONT>\r\n"
         "[LI]Additional item (per item) - $0.75\r\n</FONT>\r\n"
         "[tax LI]Tax Rate: 8.25% State: NY\r\n</FONT>\r\n"},
    };
}

/// Their texts are what follows the who-pays lines.
QList<Choice> termsChoices()
{
    return {
        {"terms", [](Listing& l) { l.withoutPaysTerms = false; }, "<!-- Body3-list2 -->"},
        {"no terms", [](Listing& l) { l.withoutPaysTerms = true; }, "</TD></TR></TBODY></TABLE></BODY>\r\n"},
    };
}

const char* const TwoCells =
    "<TABLE borderColor=#000000 cellSpacing=0 cellPadding=5 align=center bgColor=#EEEE22 "
    "border=0><TBODY><TR><TD>";
const char* const TwoCellsEnd = "</TD></TR></TBODY></TABLE><BR><BR>\r\n";
const char* const Description = "<!-- Body-description -->\r\n"
                                "<FONT face=Arial color=#000077 size=3>\r\n"
                                "A heavy lamp with a new cord. <B>It works</B> & shines.\r\n"
                                "</FONT>\r\n"
                                "<!-- Body-description2 -->\r\n";
const char* const ParagraphDescription = "<!-- Body-description -->\r\n"
                                         "<P align=center><FONT face=Arial color=#000077 size=3>\r\n"
                                         "A heavy lamp with a new cord. <B>It works</B> & shines.\r\n"
                                         "</FONT></P>\r\n"
                                         "<!-- Body-description2 -->\r\n";

/// The picture block of a picture style around what it says of the pictures.
QString block(int pictureStyle, const char* pictures, const char* end = "")
{
    const auto join = [](std::initializer_list<const char*> pieces) {
        QString text;
        for (const char* piece : pieces)
            text += QLatin1StringView(piece);
        return text;
    };
    switch (pictureStyle) {
    case 0:
        return join({TwoCells, pictures, "</TD><TD>", Description, TwoCellsEnd});
    case 1:
        return join(
            {"<BR><BR><CENTER>", pictures, "<BR><BR><BR><CENTER>\r\n", Description, "<BR><BR><BR>\r\n"});
    case 2:
        return join({TwoCells, Description, "</TD><TD>", pictures, TwoCellsEnd});
    default:
        return join({"<BR>\r\n", ParagraphDescription, "<BR>\r\n", pictures, end});
    }
}

void givePictures(Listing& l, bool chosen, const QStringList& addresses)
{
    l.withPictures = chosen;
    l.pictures = addresses;
}

/// The first is the sample listing's own.
QList<Choice> pictureChoices(int style)
{
    if (style == 0 || style == 2) {
        const QString lamp =
            block(style, "<!-- Body-picture --><ALIGN=MIDDLE><IMG "
                         "src=http://pictures.example/lamp1.jpg border=0><!-- Body-picture2 -->");
        return {
            {"three pictures", [](Listing&) {}, lamp},
            {"one picture", [](Listing& l) { givePictures(l, true, {"http://pictures.example/lamp1.jpg"}); },
             lamp},
            {"pictures chosen, no address", [](Listing& l) { givePictures(l, true, {}); },
             block(style, "<!-- Body-picture --><ALIGN=MIDDLE><IMG src= border=0><!-- Body-picture2 -->")},
        };
    }
    const QString none = block(style, "");
    return {
        {"three pictures", [](Listing&) {},
         block(style,
               "<!-- Body-picture -->"
               "<ALIGN=MIDDLE><img src=http://pictures.example/lamp1.jpg border=0>\r\n"
               "<ALIGN=MIDDLE><img src=http://pictures.example/lamp2.jpg border=0>\r\n"
               "<ALIGN=MIDDLE><img src=http://pictures.example/lamp3.jpg border=0>\r\n"
               "<!-- Body-picture2 -->",
               "<BR><BR><BR>\r\n")},
        {"one picture", [](Listing& l) { givePictures(l, true, {"http://x/1 .gif"}); },
         block(style,
               "<!-- Body-picture --><ALIGN=MIDDLE><img src=http://x/1 .gif border=0>\r\n"
               "<!-- Body-picture2 -->",
               "<BR><BR><BR>\r\n")},
        {"pictures chosen, no address", [](Listing& l) { givePictures(l, true, {}); },
         block(style, "", "<BR><BR><BR>\r\n")},
        {"no pictures", [](Listing& l) { givePictures(l, false, {}); }, none},
        {"no pictures, addresses from before", [](Listing& l) { givePictures(l, false, {"http://x/1.gif"}); },
         none},
    };
}

/// A page with everything between two texts replaced; the first of them must be there once.
QString replaceBetween(const QString& page, const QString& from, const QString& to, const QString& text)
{
    const qsizetype start = page.indexOf(from);
    const qsizetype end = page.indexOf(to, start);
    if (start < 0 || end < 0 || page.count(from) != 1)
        return QStringLiteral("not in the page: ") + from + to;
    return page.first(start + from.size()) + text + page.sliced(end);
}

/// A choice for each part of the listing.
struct Combination
{
    const Choice& picture;
    const Choice& payment;
    const Choice& location;
    const Choice& whoPays;
    const Choice& terms;

    Listing listing() const
    {
        Listing listing = sampleListing();
        for (const Choice* choice : {&picture, &payment, &location, &whoPays, &terms})
            choice->choose(listing);
        return listing;
    }

    /// The sample page with each part exchanged for what its choice must write there.
    QString page(int style, int pictureStyle) const
    {
        const QString list = QStringLiteral("\r\n<FONT color=#000000>\r\n<UL>\r\n");
        QString page = samplePage(style, pictureStyle);
        page.replace(pictureChoices(pictureStyle).first().text, picture.text);
        page = replaceBetween(page, QStringLiteral("<!-- Body-list -->") + list,
                              QStringLiteral("<TABLE borderColor=#0000ff"), inStyle(payment.text, style));
        page = replaceBetween(page, QStringLiteral("<!-- Body2-list -->") + list,
                              QStringLiteral("<!-- Body2-list2 -->"), inStyle(location.text, style));
        return replaceBetween(page, QStringLiteral("<!-- Body3-list -->") + list, terms.text,
                              inStyle(whoPays.text, style));
    }

    QByteArray name() const
    {
        return QByteArray(picture.name) + "; " + payment.name + "; " + location.name + "; " + whoPays.name +
               "; " + terms.name;
    }
};

QString generated(const Listing& listing, int style, int pictureStyle)
{
    return listingPage(listing, sampleLook(style, pictureStyle), sampleTerms());
}

QString pictureBlock(const Listing& listing, int pictureStyle)
{
    PageText page;
    addPictureBlock(page, listing, sampleLook(0, pictureStyle));
    return page.take();
}

/// Where the two texts part, for a message that can be read.
QByteArray difference(const QString& actual, const QString& expected)
{
    const auto at = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end()).first;
    const qsizetype from = std::max<qsizetype>(0, at - actual.begin() - 60);
    return "\n  is      " + actual.mid(from, 160).toUtf8() + "\n  must be " +
           expected.mid(from, 160).toUtf8();
}

QStringList randomTexts(Random& random, int most)
{
    QStringList texts;
    for (int count = random.number(most + 1); count > 0; --count)
        texts << random.text(6);
    return texts;
}

Listing randomListing(Random& random)
{
    Listing listing;
    listing.title = random.text(10);
    listing.description = random.text(50);
    listing.withPictures = random.chance();
    listing.payments = randomTexts(random, 3);
    listing.regions = randomTexts(random, 3);
    listing.pictures = randomTexts(random, 6);
    for (bool Listing::*option :
         {&Listing::unitedStatesOnly, &Listing::worldwide, &Listing::someRegions, &Listing::sellerPays,
          &Listing::buyerPays, &Listing::calculator, &Listing::taxed, &Listing::withoutPaysTerms})
        listing.*option = random.chance();
    for (QString Listing::*cost :
         {&Listing::shippingDollars, &Listing::shippingCents, &Listing::insuranceDollars,
          &Listing::insuranceCents, &Listing::additionalDollars, &Listing::additionalCents, &Listing::taxRate,
          &Listing::taxState})
        listing.*cost = random.text(2);
    return listing;
}

/// The markers that a page must have, from its top to its end.
QStringList markersOf(const Listing& listing, int style, int pictureStyle)
{
    QStringList markers;
    const auto add = [&](const char* name) {
        markers << QStringLiteral("<!-- %1 -->").arg(QLatin1String(name));
    };
    const auto addPair = [&](const char* name) {
        add(name);
        add(qPrintable(QLatin1String(name) + QStringLiteral("2")));
    };
    const bool onePicture = pictureStyle == 0 || pictureStyle == 2;
    const bool picture = onePicture || (listing.withPictures && !listing.pictures.isEmpty());
    const bool pictureFirst = pictureStyle == 0 || pictureStyle == 1;

    add(qPrintable(QStringLiteral("body-buildwizard%1").arg(style)));
    addPair("Body-title");
    if (style == 0 || style == 1)
        addPair("Body-line");
    if (style == 3)
        addPair("Body4-Cell");
    if (picture && pictureFirst)
        addPair("Body-picture");
    addPair("Body-description");
    if (picture && !pictureFirst)
        addPair("Body-picture");
    addPair("Body-Cell");
    add("Body-list");
    if (!listing.payments.isEmpty())
        add("Body-list2");
    addPair("Body-body");
    addPair("Body2-Cell");
    addPair("Body2-list");
    addPair("Body2-body");
    addPair("Body3-Cell");
    add("Body3-list");
    if (!listing.withoutPaysTerms) {
        add("Body3-list2");
        addPair("Body3-body");
    }
    return markers;
}

/// Rows for all design styles and picture styles.
void addPages()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("pictureStyle");
    for (int style = 0; style < 4; ++style) {
        for (int pictureStyle = 0; pictureStyle < 4; ++pictureStyle)
            QTest::addRow("style %d, picture %d", style, pictureStyle) << style << pictureStyle;
    }
}

void addStyles()
{
    QTest::addColumn<int>("style");
    for (int style = 0; style < 4; ++style)
        QTest::addRow("style %d", style) << style;
}

} // namespace

class TestGenerators : public QObject
{
    Q_OBJECT

private slots:
    void pages_data() { addPages(); }
    void pages();
    void allCombinationsOfOptions_data() { addPages(); }
    void allCombinationsOfOptions();

    void emptyPaymentListIsLeftOpen_data() { addStyles(); }
    void emptyPaymentListIsLeftOpen();
    void regionsWithoutEntriesCloseTheirList_data() { addStyles(); }
    void regionsWithoutEntriesCloseTheirList();
    void sellerPaysIsOneLine_data() { addStyles(); }
    void sellerPaysIsOneLine();
    void nothingFollowsTheLastCost_data() { addStyles(); }
    void nothingFollowsTheLastCost();
    void textGoesOutUnchanged_data();
    void textGoesOutUnchanged();
    void costsPrintAsTyped();
    void emptyColors_data() { addPages(); }
    void emptyColors();
    void missingTermsLeaveTheFrames_data() { addStyles(); }
    void missingTermsLeaveTheFrames();
    void markersStandOnceAndInOrder_data() { addSeeds(); }
    void markersStandOnceAndInOrder();
    void noSuchStyle();

    void noPictureIsDescriptionOnly();
    void picturesWithoutAddresses_data();
    void picturesWithoutAddresses();
    void sixPicturesAreSixLines_data();
    void sixPicturesAreSixLines();
    void classicRLeavesTwoCentersOpen();
    void noSuchPictureStyle();
};

void TestGenerators::pages()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    const QString expected = samplePage(style, pictureStyle);
    QVERIFY(!expected.isEmpty());
    const QString page = generated(sampleListing(), style, pictureStyle);
    QVERIFY2(page == expected, difference(page, expected).constData());
}

void TestGenerators::allCombinationsOfOptions()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    QCOMPARE(samplePage(style, pictureStyle).count(pictureChoices(pictureStyle).first().text), 1);

    int combinations = 0;
    for (const Choice& picture : pictureChoices(pictureStyle)) {
        for (const Choice& payment : paymentChoices()) {
            for (const Choice& location : locationChoices()) {
                for (const Choice& whoPays : whoPaysChoices()) {
                    for (const Choice& terms : termsChoices()) {
                        const Combination combination = {picture, payment, location, whoPays, terms};
                        const QString page = generated(combination.listing(), style, pictureStyle);
                        const QString expected = combination.page(style, pictureStyle);
                        QVERIFY2(page == expected,
                                 (combination.name() + difference(page, expected)).constData());
                        ++combinations;
                    }
                }
            }
        }
    }
    QCOMPARE(combinations, (pictureStyle % 2 == 0 ? 3 : 5) * 2 * 4 * 10 * 2);
}

void TestGenerators::emptyPaymentListIsLeftOpen()
{
    QFETCH(int, style);
    Listing listing = sampleListing();
    listing.payments.clear();
    const QString page = generated(listing, style, 3);
    QVERIFY(page.contains(QStringLiteral("<!-- Body-list -->\r\n<FONT color=#000000>\r\n<UL>\r\n<TABLE ")));
    QVERIFY(!page.contains(QStringLiteral("<!-- Body-list2 -->")));
    QVERIFY(!page.contains(QStringLiteral("Money order")));
}

void TestGenerators::regionsWithoutEntriesCloseTheirList()
{
    QFETCH(int, style);
    Listing listing = sampleListing();
    listing.regions.clear();
    QVERIFY(generated(listing, style, 3)
                .contains(QStringLiteral("the following regions<UL>\r\n</FONT><BR>\r\n</UL>\r\n")));
}

void TestGenerators::sellerPaysIsOneLine()
{
    QFETCH(int, style);
    Listing listing = sampleListing();
    listing.sellerPays = true;
    listing.buyerPays = false;
    const QString page = generated(listing, style, 3);
    QVERIFY(page.contains(QStringLiteral("<UL>\r\n<LI><FONT face=Arial color=#009900 size=3>\r\n"
                                         "Seller Pays Shipping\r\n</FONT>\r\n<!-- Body3-list2 -->\r\n")));
    QVERIFY(!page.contains(u'$'));
    QVERIFY(!page.contains(QStringLiteral("Tax Rate")));
}

void TestGenerators::nothingFollowsTheLastCost()
{
    QFETCH(int, style);
    Listing listing = sampleListing();
    listing.taxed = false;
    QVERIFY(generated(listing, style, 3)
                .contains(QStringLiteral(
                    "Additional item (per item) - $0.75\r\n</FONT>\r\n<!-- Body3-list2 -->\r\n")));
}

void TestGenerators::textGoesOutUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("HTML") << QStringLiteral("<TABLE><TR><TD>open</B> <!-- Body-title2 --> </BODY>");
    QTest::newRow("quotes") << QStringLiteral("24\" screen, 'as new' & \"boxed\" &amp; %1 \\n");
    QTest::newRow("line ends") << QStringLiteral("one\ntwo\rthree\r\n\r\nfour\t");
    QTest::newRow("emoji") << QStringLiteral("\U0001F3F4\u200D\u2620\uFE0F \U0001F469\u200D\U0001F52C");
    QTest::newRow("right to left") << QStringLiteral("\u05DE\u05E0\u05D5\u05E8\u05D4 \u202Eabc\u202C "
                                                     "\u0645\u0635\u0628\u0627\u062D");
    QTest::newRow("half a character") << QString(QChar(0xD83D));
    QTest::newRow("nothing") << QString();
    QTest::newRow("1 MB") << QStringLiteral("0123456789 <B>caf\u00E9\r\n").repeated(1 << 16);
}

void TestGenerators::textGoesOutUnchanged()
{
    QFETCH(QString, text);
    const Listing sample = sampleListing();
    Listing listing = sample;
    listing.title = text;
    listing.description = text;
    listing.payments.last() = text;
    listing.regions.last() = text;
    const TermsTexts terms = {text, text, text};
    for (int style = 0; style < 4; ++style) {
        for (int pictureStyle = 0; pictureStyle < 4; ++pictureStyle) {
            QString expected = samplePage(style, pictureStyle);
            // Cut first and filled then, as the text may hold anything.
            QStringList replaced = {sample.title, sample.description, sample.payments.last(),
                                    sample.regions.last()};
            for (const QString& termsText : sampleTerms())
                replaced += termsText;
            for (const QString& old : replaced) {
                QCOMPARE(expected.count(old), 1);
                expected.replace(old, QStringLiteral("\x01"));
            }
            expected.replace(QChar(1), text);
            const QString page = listingPage(listing, sampleLook(style, pictureStyle), terms);
            QVERIFY2(page == expected, difference(page, expected).constData());
        }
    }
}

void TestGenerators::costsPrintAsTyped()
{
    Listing listing = sampleListing();
    listing.shippingDollars = QStringLiteral("12");
    listing.shippingCents = QStringLiteral("5");
    listing.insuranceDollars = QStringLiteral("007");
    listing.insuranceCents = QStringLiteral("<B>");
    const QString page = generated(listing, 0, 3);
    QVERIFY(page.contains(QStringLiteral("costs - $12.5\r\n")));
    QVERIFY(page.contains(QStringLiteral("item costs - $007.<B>\r\n")));
}

void TestGenerators::emptyColors()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    PageLook look = sampleLook(style, pictureStyle);
    QString expected = samplePage(style, pictureStyle);
    for (QString* color :
         {&look.borderColor, &look.cellColor, &look.titleCellColor, &look.tableColor, &look.ruleColor,
          &look.titleCellTextColor, &look.descriptionColor, &look.titleColor, &look.listColor}) {
        expected.remove(*color);
        color->clear();
    }
    QVERIFY(expected.contains(QStringLiteral("<TD bgColor=>")));
    const QString page = listingPage(sampleListing(), look, sampleTerms());
    QVERIFY2(page == expected, difference(page, expected).constData());
}

void TestGenerators::missingTermsLeaveTheFrames()
{
    QFETCH(int, style);
    QString expected = samplePage(style, 3);
    for (const QString& text : sampleTerms())
        expected.remove(text);
    const QString page = listingPage(sampleListing(), sampleLook(style, 3), {});
    QVERIFY2(page == expected, difference(page, expected).constData());
    QCOMPARE(page.count(QStringLiteral("<FONT color=#009900 size=3 face=Arial>\r\n<BR></FONT>")), 3);
}

void TestGenerators::markersStandOnceAndInOrder()
{
    QFETCH(quint32, seed);
    Random random(seed);
    static const QRegularExpression marker(QStringLiteral("<!-- body.*? -->"),
                                           QRegularExpression::CaseInsensitiveOption);
    for (int round = 0; round < 100; ++round) {
        const Listing listing = randomListing(random);
        const TermsTexts terms = {random.text(5), random.text(5), random.text(5)};
        const int style = random.number(4);
        const int pictureStyle = random.number(4);
        const QString page = listingPage(listing, sampleLook(style, pictureStyle), terms);
        QStringList found;
        for (auto match = marker.globalMatch(page); match.hasNext();)
            found << match.next().captured();
        QCOMPARE(found, markersOf(listing, style, pictureStyle));
    }
}

void TestGenerators::noSuchStyle()
{
    for (const int style : {-1, 4}) {
        try {
            generated(sampleListing(), style, 0);
            QFAIL("there is no such style");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), ErrorNumber::SubscriptOutOfRange);
        }
    }
}

void TestGenerators::noPictureIsDescriptionOnly()
{
    Listing listing = sampleListing();
    listing.withPictures = false;
    listing.pictures.clear();
    QCOMPARE(pictureBlock(listing, PageLook().pictureStyle),
             QStringLiteral("<BR>\r\n"
                            "<!-- Body-description -->\r\n"
                            "<P align=center><FONT face=Arial color=#000077 size=3>\r\n"
                            "A heavy lamp with a new cord. <B>It works</B> & shines.\r\n"
                            "</FONT></P>\r\n"
                            "<!-- Body-description2 -->\r\n"
                            "<BR>\r\n"));
}

void TestGenerators::picturesWithoutAddresses_data()
{
    QTest::addColumn<int>("pictureStyle");
    QTest::addColumn<QString>("expected");
    const char* const empty = "<!-- Body-picture --><ALIGN=MIDDLE><IMG src= border=0><!-- Body-picture2 -->";
    QTest::newRow("Left Neated") << 0 << block(0, empty);
    QTest::newRow("Classic R") << 1 << block(1, "");
    QTest::newRow("Right Neated") << 2 << block(2, empty);
    QTest::newRow("Classic") << 3 << block(3, "", "<BR><BR><BR>\r\n");
}

void TestGenerators::picturesWithoutAddresses()
{
    QFETCH(int, pictureStyle);
    QFETCH(QString, expected);
    Listing listing = sampleListing();
    listing.pictures.clear();
    QCOMPARE(pictureBlock(listing, pictureStyle), expected);
}

void TestGenerators::sixPicturesAreSixLines_data()
{
    QTest::addColumn<int>("pictureStyle");
    QTest::newRow("Classic R") << 1;
    QTest::newRow("Classic") << 3;
}

void TestGenerators::sixPicturesAreSixLines()
{
    QFETCH(int, pictureStyle);
    Listing listing = sampleListing();
    const QString longAddress = QStringLiteral("http://x/") + QString(3000, u'y');
    listing.pictures = {"http://x/f.gif", "http://x/b.gif", "c",
                        longAddress,      "http://x/b.gif", "\"e\" width=9"};
    QVERIFY(pictureBlock(listing, pictureStyle)
                .contains(QStringLiteral("<!-- Body-picture -->"
                                         "<ALIGN=MIDDLE><img src=http://x/f.gif border=0>\r\n"
                                         "<ALIGN=MIDDLE><img src=http://x/b.gif border=0>\r\n"
                                         "<ALIGN=MIDDLE><img src=c border=0>\r\n"
                                         "<ALIGN=MIDDLE><img src=%1 border=0>\r\n"
                                         "<ALIGN=MIDDLE><img src=http://x/b.gif border=0>\r\n"
                                         "<ALIGN=MIDDLE><img src=\"e\" width=9 border=0>\r\n"
                                         "<!-- Body-picture2 --><BR><BR><BR>")
                              .arg(longAddress)));
}

void TestGenerators::classicRLeavesTwoCentersOpen()
{
    for (int style = 0; style < 4; ++style) {
        const QString page = generated(sampleListing(), style, 1);
        QCOMPARE(page.count(QStringLiteral("<CENTER>")), 2);
        QCOMPARE(page.count(QStringLiteral("</CENTER>")), 0);
    }
}

void TestGenerators::noSuchPictureStyle()
{
    QCOMPARE(pictureBlock(sampleListing(), -1), QString());
    QCOMPARE(pictureBlock(sampleListing(), 4), QString());
}

QTEST_APPLESS_MAIN(TestGenerators)
#include "tst_generators.moc"
