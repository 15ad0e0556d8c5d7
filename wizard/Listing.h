// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <array>

/// What page 1 of the wizard collects, under the names of its fields.
struct Listing
{
    QString Text1; ///< title
    QString Text2; ///< description

    bool OptP2 = false; ///< with pictures
    QStringList List1;  ///< payment lines
    QStringList List2;  ///< region lines
    QStringList List3;  ///< picture addresses

    bool OptLS1 = true;  ///< ships to the United States only
    bool OptLS2 = false; ///< ships worldwide
    bool OptLS3 = false; ///< ships to the United States and the regions of `List2`

    bool OptPS1 = false;   ///< the seller pays shipping
    bool OptPS2 = true;    ///< the buyer pays shipping
    bool ChkZC = false;    ///< the buyer uses the site's calculator
    bool ChkTR1 = false;   ///< a tax line is wanted
    bool ChkSlist = false; ///< leaves out the terms of who pays

    // Costs, dollars and cents apart, as typed.
    QString TxSH1, TxSH2; ///< shipping and handling
    QString TxSI1, TxSI2; ///< insurance
    QString TxAI1, TxAI2; ///< each additional item
    QString TxST1;        ///< tax rate, per cent
    QString TxST2;        ///< state of the tax
};

/// What page 2 of the wizard adds: how the page looks.
struct PageLook
{
    int style = 0;        ///< design style, which `Label11` shows, 0 to 3
    int pictureStyle = 3; ///< the checked box of `Chk`, 0 to 3

    // Colour texts, `#RRGGBB`.
    QString Txt1 = QStringLiteral("#000000"); ///< border
    QString Txt2 = QStringLiteral("#FFFFFF"); ///< cells
    QString Txt3 = QStringLiteral("#FFFF00"); ///< title cells
    QString Txt4 = QStringLiteral("#FFFFFF"); ///< table
    QString Txt5 = QStringLiteral("#000000"); ///< rule
    QString Txt6 = QStringLiteral("#000000"); ///< text of title cells
    QString Txt7 = QStringLiteral("#000000"); ///< description
    QString Txt8 = QStringLiteral("#000000"); ///< title
    QString Txt9 = QStringLiteral("#000000"); ///< lists and terms

    QString Combo5 = QStringLiteral("0"); ///< cell spacing
    QString Combo6 = QStringLiteral("1"); ///< border width
};

/// The seller's terms for payment, location and who pays, as their files hold them.
using TermsTexts = std::array<QString, 3>;
