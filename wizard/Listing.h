// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace brindlemark {

/// What page 1 of the wizard collects.
struct Listing
{
    QString title;
    QString description;

    bool withPictures = false;
    QStringList payments; ///< lines of the payment list
    QStringList regions;  ///< lines of the region list
    QStringList pictures; ///< addresses

    // Where the seller ships to.
    bool unitedStatesOnly = true;
    bool worldwide = false;
    bool someRegions = false; ///< the United States and those of `regions`

    // Who pays for shipping, and how much.
    bool sellerPays = false;
    bool buyerPays = true;
    bool calculator = false;       ///< the buyer finds the costs with the site's calculator
    bool taxed = false;            ///< a tax line is wanted
    bool withoutPaysTerms = false; ///< leaves out the terms of who pays

    // Costs as typed, dollars and cents apart: shipping and handling, insurance, each additional item.
    QString shippingDollars, shippingCents;
    QString insuranceDollars, insuranceCents;
    QString additionalDollars, additionalCents;

    QString taxRate;  ///< per cent
    QString taxState; ///< whose tax it is
};

/// What page 2 of the wizard adds: how the page looks.
struct PageLook
{
    int style = 0;        ///< design style, 0 to 3
    int pictureStyle = 3; ///< 0 to 3; see PictureBlock.h

    // Colours, `#RRGGBB`.
    QString borderColor = QStringLiteral("#000000");
    QString cellColor = QStringLiteral("#FFFFFF");      ///< background of ordinary cells
    QString titleCellColor = QStringLiteral("#FFFF00"); ///< background of title cells
    QString tableColor = QStringLiteral("#FFFFFF");     ///< background of the table
    QString ruleColor = QStringLiteral("#000000");
    QString titleCellTextColor = QStringLiteral("#000000");
    QString descriptionColor = QStringLiteral("#000000");
    QString titleColor = QStringLiteral("#000000");
    QString listColor = QStringLiteral("#000000"); ///< text of lists and terms

    QString cellSpacing = QStringLiteral("0"); ///< pixels
    QString borderWidth = QStringLiteral("1"); ///< pixels
};

/// The seller's terms for payment, location and who pays, as their files hold them.
using TermsTexts = std::array<QString, 3>;

} // namespace brindlemark
