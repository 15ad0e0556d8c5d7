// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Listing.h"

#include <QFile>

/// The listing of the pages in tests/data/pages; make_pages.py there has the same.
inline Listing sampleListing()
{
    Listing listing;
    listing.Text1 = QStringLiteral("Brass lamp, 1930s");
    listing.Text2 = QStringLiteral("A heavy lamp with a new cord. <B>It works</B> & shines.");
    listing.OptP2 = true;
    listing.List1 = {"Money order", "Visa/MasterCard", "Cash, at the door"};
    listing.List2 = {"Canada", "Europe"};
    listing.List3 = {"http://pictures.example/lamp1.jpg", "http://pictures.example/lamp2.jpg",
                     "http://pictures.example/lamp3.jpg"};
    listing.OptLS1 = false;
    listing.OptLS3 = true;
    listing.ChkTR1 = true;
    listing.TxSH1 = QStringLiteral("12");
    listing.TxSH2 = QStringLiteral("50");
    listing.TxSI1 = QStringLiteral("3");
    listing.TxSI2 = QStringLiteral("05");
    listing.TxAI1 = QStringLiteral("0");
    listing.TxAI2 = QStringLiteral("75");
    listing.TxST1 = QStringLiteral("8.25");
    listing.TxST2 = QStringLiteral("NY");
    return listing;
}

/// Their colours and borders.
inline PageLook sampleLook(int style, int pictureStyle)
{
    PageLook look;
    look.style = style;
    look.pictureStyle = pictureStyle;
    look.Txt1 = QStringLiteral("#110000");
    look.Txt2 = QStringLiteral("#EEEE22");
    look.Txt3 = QStringLiteral("#33FF33");
    look.Txt4 = QStringLiteral("#F4F4F4");
    look.Txt5 = QStringLiteral("#550055");
    look.Txt6 = QStringLiteral("#006666");
    look.Txt7 = QStringLiteral("#000077");
    look.Txt8 = QStringLiteral("#880000");
    look.Txt9 = QStringLiteral("#009900");
    look.Combo5 = QStringLiteral("2");
    look.Combo6 = QStringLiteral("3");
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
