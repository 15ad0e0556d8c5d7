// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Listing.h"

#include <QFile>

namespace brindlemark {

/// The listing of the pages in tests/data/pages; make_pages.py there has the same.
inline Listing sampleListing()
{
    Listing listing;
    listing.title = QStringLiteral("Brass lamp, 1930s");
    listing.description = QStringLiteral("A heavy lamp with a new cord. <B>It works</B> & shines.");
    listing.withPictures = true;
    listing.payments = {"Money order", "Visa/MasterCard", "Cash, at the door"};
    listing.regions = {"Canada", "Europe"};
    listing.pictures = {"http://pictures.example/lamp1.jpg", "http://pictures.example/lamp2.jpg",
                        "http://pictures.example/lamp3.jpg"};
    listing.unitedStatesOnly = false;
    listing.someRegions = true;
    listing.taxed = true;
    listing.shippingDollars = QStringLiteral("12");
    listing.shippingCents = QStringLiteral("50");
    listing.insuranceDollars = QStringLiteral("3");
    listing.insuranceCents = QStringLiteral("05");
    listing.additionalDollars = QStringLiteral("0");
    listing.additionalCents = QStringLiteral("75");
    listing.taxRate = QStringLiteral("8.25");
    listing.taxState = QStringLiteral("NY");
    return listing;
}

/// Their colours and borders.
inline PageLook sampleLook(int style, int pictureStyle)
{
    PageLook look;
    look.style = style;
    look.pictureStyle = pictureStyle;
    look.borderColor = QStringLiteral("#110000");
    look.cellColor = QStringLiteral("#EEEE22");
    look.titleCellColor = QStringLiteral("#33FF33");
    look.tableColor = QStringLiteral("#F4F4F4");
    look.ruleColor = QStringLiteral("#550055");
    look.titleCellTextColor = QStringLiteral("#006666");
    look.descriptionColor = QStringLiteral("#000077");
    look.titleColor = QStringLiteral("#880000");
    look.listColor = QStringLiteral("#009900");
    look.cellSpacing = QStringLiteral("2");
    look.borderWidth = QStringLiteral("3");
    return look;
}

/// Their terms: two as the terms editor writes them, one typed by hand.
inline TermsTexts sampleTerms()
{
    return {QStringLiteral("<BODY>\r\n<P>Payment within seven days.</P></BODY>\r\n"),
            QStringLiteral("<BODY>I ship on Mondays.</BODY>\r\n"),
            QStringLiteral("Insurance is <I>your</I> choice.")};
}

/// The page of the sample listing as it must be; empty when its file can't be read.
inline QString samplePage(int style, int pictureStyle)
{
    QFile file(QStringLiteral(TEST_DATA "/pages/listing-style%1-picture%2.htm").arg(style).arg(pictureStyle));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace brindlemark
