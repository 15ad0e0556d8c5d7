// SPDX-License-Identifier: GPL-3.0-or-later

#include "SampleListing.h"
#include "WebTestMain.h"
#include "services/Markers.h"
#include "web/DocumentSurface.h"

#include <QRegularExpression>

using namespace brindlemark;

/// Listing pages on a design surface and back.
class TestPageRoundtrip : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void keepsMarkersAndStaysPut_data();
    void keepsMarkersAndStaysPut();

private:
    QString read(const QString& page);

    DocumentSurface* m_surface = nullptr;
};

void TestPageRoundtrip::initTestCase()
{
    m_surface = new DocumentSurface;
    m_surface->setDesignMode(DesignMode::On);
}

void TestPageRoundtrip::cleanupTestCase()
{
    delete m_surface;
}

/// What the surface makes of a page.
QString TestPageRoundtrip::read(const QString& page)
{
    return m_surface->write(page) ? m_surface->innerHtml() : QStringLiteral("not written");
}

/// The comments of a text, in order.
static QStringList comments(const QString& text)
{
    static const QRegularExpression comment(QStringLiteral("<!--.*?-->"));
    QStringList found;
    for (auto matches = comment.globalMatch(text); matches.hasNext();)
        found += matches.next().captured();
    return found;
}

/// The markers that a page of a style has, from top to bottom, the picture block's in their arrangement.
static QStringList markersOf(int style, int pictureStyle)
{
    QList<Region> regions = {Region::Title};
    if (style < 2)
        regions += Region::Line;
    if (style == 3)
        regions += Region::DescriptionCell;
    const bool picturesFirst = pictureStyle < 2;
    regions += picturesFirst ? QList{Region::Picture, Region::Description}
                             : QList{Region::Description, Region::Picture};
    regions += {Region::PaymentCell,  Region::PaymentList,  Region::PaymentTerms,
                Region::LocationCell, Region::LocationList, Region::LocationTerms,
                Region::WhoPaysCell,  Region::WhoPaysList,  Region::WhoPaysTerms};

    QStringList all = {QString::fromLatin1(StyleMarkers.at(static_cast<std::size_t>(style)))};
    for (const Region region : regions)
        all += {QString::fromLatin1(markers(region).opening), QString::fromLatin1(markers(region).closing)};
    return all;
}

void TestPageRoundtrip::keepsMarkersAndStaysPut_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("pictureStyle");
    for (int style = 0; style < 4; ++style) {
        for (int pictureStyle = 0; pictureStyle < 4; ++pictureStyle)
            QTest::addRow("style %d, picture %d", style, pictureStyle) << style << pictureStyle;
    }
}

void TestPageRoundtrip::keepsMarkersAndStaysPut()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    const QString page = samplePage(style, pictureStyle);
    QCOMPARE(comments(page), markersOf(style, pictureStyle));

    const QString first = read(page);
    QCOMPARE(comments(first), markersOf(style, pictureStyle));
    QVERIFY(first.contains(sampleListing().title));
    QCOMPARE(read(first), first);
}

WEB_TEST_MAIN(TestPageRoundtrip)
#include "tst_page_roundtrip.moc"
