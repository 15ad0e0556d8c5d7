// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/Generators.h"

#include "platform/RuntimeError.h"
#include "services/Markers.h"
#include "services/PerStyle.h"
#include "wizard/PageText.h"
#include "wizard/PictureBlock.h"

namespace brindlemark {

using namespace Qt::StringLiterals;

namespace {

/// Where the picture block stands.
enum class PicturePlace {
    OuterCell,       ///< in the cell of the title, behind the rule
    CellOfItsOwn,    ///< in the second row
    UnderACellTitle, ///< in a nested table, under a cell row "Description:"
};

/// The table that holds the three sections.
enum class SectionsTable {
    Plain,  ///< fixed black border, white background, border 0
    Colors, ///< border, spacing and background of the outer table, border 1
    None,   ///< no table: they are rows of the outer one
};

using Pieces = PerStyle<QLatin1StringView>;

constexpr auto CrLf = PageText::lineEnd;
constexpr auto NoPiece = ""_L1;

/// All that the four design styles differ in. The small differences are meant too: saved pages are compared
/// to the letter.
// clang-format off
struct
{
    PerStyle<PicturePlace> picturePlace;
    PerStyle<bool> rule;                   ///< a rule behind the title
    PerStyle<SectionsTable> sectionsTable;
    Pieces paymentTitleCellEnd;            ///< behind the cell tag
    Pieces paymentTermsBreak;              ///< at the start of the terms' cell
    Pieces locationTermsBreak;
    Pieces whoPaysTermsBreak;
    Pieces paymentTermsEnd;                ///< behind the terms' table
    Pieces locationTermsEnd;
    Pieces whoPaysTermsEnd;
    Pieces titleCellBold;                  ///< behind the cell tags of the location and who-pays titles
    Pieces locationTitleEnd;
    Pieces rowBreak;                       ///< behind the location and who-pays titles
    Pieces locationListEnd;
    Pieces taxColorEnd;                    ///< behind the colour of the tax line
} constexpr Differences = {
    //                      style 0                   style 1                  style 2                     style 3
    .picturePlace        = {PicturePlace::OuterCell,  PicturePlace::OuterCell, PicturePlace::CellOfItsOwn, PicturePlace::UnderACellTitle},
    .rule                = {true,                     true,                    false,                      false},
    .sectionsTable       = {SectionsTable::Plain,     SectionsTable::Colors,   SectionsTable::None,        SectionsTable::None},
    .paymentTitleCellEnd = {CrLf,                     NoPiece,                 NoPiece,                    NoPiece},
    .paymentTermsBreak   = {NoPiece,                  NoPiece,                 "<BR>"_L1,                  NoPiece},
    .locationTermsBreak  = {"<BR>"_L1,                NoPiece,                 "<BR>"_L1,                  NoPiece},
    .whoPaysTermsBreak   = {NoPiece,                  NoPiece,                 "<BR>"_L1,                  NoPiece},
    .paymentTermsEnd     = {NoPiece,                  NoPiece,                 NoPiece,                    CrLf},
    .locationTermsEnd    = {NoPiece,                  NoPiece,                 CrLf,                       CrLf},
    .whoPaysTermsEnd     = {NoPiece,                  NoPiece,                 NoPiece,                    NoPiece},
    .titleCellBold       = {NoPiece,                  NoPiece,                 "<B>"_L1,                   "<B>"_L1},
    .locationTitleEnd    = {"</FONT></b>"_L1,         "</FONT></b>"_L1,        "</FONT></B>"_L1,           "</FONT></b>"_L1},
    .rowBreak            = {"</TD></TR><TR>"_L1,      "</TD></TR><TR>"_L1,     "</TD></TR>\r\n<TR>"_L1,    "</TD></TR>\r\n<TR>"_L1},
    .locationListEnd     = {"</FONT></LI></UL>"_L1,   "</FONT></LI></UL>"_L1,  "</LI></UL>"_L1,            "</LI></UL>"_L1},
    .taxColorEnd         = {NoPiece,                  NoPiece,                 NoPiece,                    "0"_L1},
};
// clang-format on

/// Writes one page.
class Generator
{
public:
    Generator(const Listing& listing, const PageLook& look, const TermsTexts& terms)
        : m_listing(listing), m_look(look), m_terms(terms), m_style(size_t(look.style)),
          m_page(expectedSize())
    {
    }

    QString page()
    {
        addTitle();
        addMiddle();
        addPayment();
        addLocation();
        addWhoPays();
        m_page.addLine("</TD></TR></TBODY></TABLE></BODY>"_L1);
        return m_page.take();
    }

private:
    /// The length of the long texts, and room for the rest of an ordinary page; in characters.
    qsizetype expectedSize() const
    {
        qsizetype size = 8192 + m_listing.title.size() + m_listing.description.size();
        for (const QString& text : m_terms)
            size += text.size();
        return size;
    }

    /// The value for the page's style, out of a row of `Differences`.
    template <typename T>
    T mine(const PerStyle<T>& row) const
    {
        return row.at(m_style);
    }

    // ---- The page from top to bottom

    void addTitle()
    {
        m_page.addLine("<BODY>"_L1);
        m_page.addLine(QLatin1StringView(mine(StyleMarkers)));
        m_page.addLine("<TABLE borderColor="_L1, m_look.borderColor, " height=0% cellSpacing="_L1,
                       m_look.cellSpacing, " cellPadding=4 width=100% align=left bgColor="_L1,
                       m_look.tableColor, " border="_L1, m_look.borderWidth, ">"_L1);
        m_page.addLine("<TBODY>"_L1);
        m_page.addLine("<TR>"_L1);
        m_page.addLine("<TD align=middle width=0 bgColor="_L1, m_look.cellColor,
                       " colSpan=2 height=0><BR>"_L1);
        m_page.addLine(opening(Region::Title));
        m_page.addLine("<FONT face=Arial color="_L1, m_look.titleColor, " size=3>"_L1);
        m_page.addLine(m_listing.title);
        m_page.addLine("</FONT>"_L1);
        m_page.addLine(closing(Region::Title));
    }

    void addMiddle()
    {
        m_page.add("<BR><BR>"_L1);
        if (mine(Differences.rule))
            addRule();
        switch (mine(Differences.picturePlace)) {
        case PicturePlace::OuterCell:
            addPictureBlock(m_page, m_listing, m_look);
            break;
        case PicturePlace::CellOfItsOwn:
            addPictureCell();
            break;
        case PicturePlace::UnderACellTitle:
            addDescriptionTitle();
            addPictureTable();
            break;
        }
        openSectionsTable();
    }

    void addPayment()
    {
        m_page.add("<TD bgColor="_L1, m_look.titleCellColor, ">"_L1, mine(Differences.paymentTitleCellEnd));
        addCellTitle(Region::PaymentCell, "For payment I do accept:"_L1, "</FONT></B>"_L1);
        m_page.addLine("</TD></TR><TR>"_L1);
        openList(Region::PaymentList);
        if (!m_listing.payments.isEmpty()) {
            addItems(m_listing.payments);
            m_page.addLine("</FONT></LI></UL>"_L1);
            m_page.addLine(closing(Region::PaymentList));
        }
        addTerms(Region::PaymentTerms, m_terms[0], mine(Differences.paymentTermsBreak), CrLf);
        m_page.add(mine(Differences.paymentTermsEnd));
    }

    void addLocation()
    {
        openTitleRow();
        addCellTitle(Region::LocationCell, "For locations of shipping I do accpet:"_L1,
                     mine(Differences.locationTitleEnd), CrLf);
        m_page.addLine(mine(Differences.rowBreak));
        openList(Region::LocationList);
        if (m_listing.unitedStatesOnly)
            addItem("Will ship to the United States only."_L1);
        if (m_listing.worldwide)
            addItem("Will ship internationally (worldwide)"_L1);
        if (m_listing.someRegions)
            addRegions();
        m_page.addLine(mine(Differences.locationListEnd));
        m_page.addLine(closing(Region::LocationList));
        addTerms(Region::LocationTerms, m_terms[1], mine(Differences.locationTermsBreak));
        m_page.add(mine(Differences.locationTermsEnd));
    }

    /// Leaves the list and its FONT open. So meant (see Generators.h).
    void addWhoPays()
    {
        openTitleRow();
        addCellTitle(Region::WhoPaysCell, "Who pays for shipping?"_L1, "</FONT></B>"_L1);
        m_page.addLine(mine(Differences.rowBreak));
        openList(Region::WhoPaysList);
        if (m_listing.sellerPays)
            addItem("Seller Pays Shipping"_L1);
        if (m_listing.buyerPays)
            addBuyerPays();
        if (!m_listing.withoutPaysTerms) {
            m_page.addLine(closing(Region::WhoPaysList));
            addTerms(Region::WhoPaysTerms, m_terms[2], mine(Differences.whoPaysTermsBreak));
            m_page.add(mine(Differences.whoPaysTermsEnd));
        }
    }

    // ---- The middle

    void addRule()
    {
        m_page.addLine();
        m_page.add(opening(Region::Line));
        m_page.addLine("<HR width=75% color="_L1, m_look.ruleColor, ">"_L1);
        m_page.add(closing(Region::Line));
    }

    void addPictureCell()
    {
        m_page.addLine("</TD></TR>"_L1);
        m_page.addLine("<TR>"_L1);
        m_page.addLine("<TD align=middle width=0 bgColor="_L1, m_look.cellColor, " colSpan=2 height=0>"_L1);
        addPictureBlock(m_page, m_listing, m_look);
        m_page.addLine("</TD></TR><TR>"_L1);
    }

    void addDescriptionTitle()
    {
        m_page.addLine("</TD></TR><TR>"_L1);
        m_page.add("<TD bgColor="_L1, m_look.titleCellColor, ">"_L1);
        addCellTitle(Region::DescriptionCell, "Description:"_L1, "</FONT></B>"_L1, CrLf);
        m_page.add("</TD></TR>"_L1);
    }

    void addPictureTable()
    {
        m_page.add("<TR>"_L1, "<TD bgColor="_L1, m_look.cellColor, ">"_L1);
        m_page.addLine("<TABLE height=0% cellPadding=20 width=100% align=left border=0>"_L1);
        m_page.add("<TBODY>"_L1, "<TR>"_L1, "<TD bgColor="_L1, m_look.cellColor, ">"_L1);
        addPictureBlock(m_page, m_listing, m_look);
        m_page.add("</TD></TR></TBODY></TABLE></TD></TR>"_L1, "<TR>"_L1);
    }

    void openSectionsTable()
    {
        switch (mine(Differences.sectionsTable)) {
        case SectionsTable::Plain:
            m_page.addLine("<TABLE borderColor=#000000 cellSpacing=0 cellPadding=2 width=80% align=center "
                           "bgColor=#ffffff border=0>"_L1);
            break;
        case SectionsTable::Colors:
            m_page.addLine("<TABLE borderColor="_L1, m_look.borderColor, " cellSpacing="_L1,
                           m_look.cellSpacing, " cellPadding=2 width=80% align=center bgColor="_L1,
                           m_look.tableColor, " border=1>"_L1);
            break;
        case SectionsTable::None:
            return;
        }
        m_page.addLine("<TBODY><TR>"_L1);
    }

    // ---- What the sections are made of

    /// The row of the location or who-pays title, up to the title.
    void openTitleRow()
    {
        m_page.addLine("<TR>"_L1);
        m_page.add("<TD bgColor="_L1, m_look.titleCellColor, ">"_L1, mine(Differences.titleCellBold));
    }

    void addCellTitle(Region region, QLatin1StringView title, QLatin1StringView closingTags,
                      QLatin1StringView end = NoPiece)
    {
        m_page.add(opening(region));
        m_page.addLine("<B><FONT face=Arial color="_L1, m_look.titleCellTextColor, " size=3>"_L1);
        m_page.addLine(title);
        m_page.add(closingTags, end, closing(region));
    }

    void openList(Region region)
    {
        m_page.add("<TD bgColor="_L1, m_look.cellColor, "><BR>"_L1);
        m_page.addLine(opening(region));
        m_page.addLine("<FONT color=#000000>"_L1);
        m_page.addLine("<UL>"_L1);
    }

    /// The tags before the text of a list item; `colorEnd` stands right behind the colour.
    void openItem(QLatin1StringView colorEnd = NoPiece)
    {
        m_page.addLine("<LI><FONT face=Arial color="_L1, m_look.listColor, colorEnd, " size=3>"_L1);
    }

    template <typename... Text>
    void addItem(const Text&... text)
    {
        openItem();
        m_page.addLine(text...);
        m_page.addLine("</FONT>"_L1);
    }

    void addItems(const QStringList& items)
    {
        for (const QString& item : items)
            addItem(item);
    }

    void addRegions()
    {
        openItem();
        m_page.addLine("Will ship to the United States and the following regions<UL>"_L1);
        m_page.addLine("</FONT><BR>"_L1);
        addItems(m_listing.regions);
        m_page.addLine("</UL>"_L1);
    }

    void addBuyerPays()
    {
        addItem("Buyer Pays All Shipping."_L1);
        if (m_listing.calculator) {
            addItem("Please use calculate shipping use your zip code."_L1);
        } else {
            addCosts();
        }
    }

    /// Shipping and handling is always written; others are left out when exactly "0" and "00".
    void addCosts()
    {
        const auto isNothing = [](const QString& dollars, const QString& cents) {
            return dollars == "0"_L1 && cents == "00"_L1;
        };
        addItem("Shipping and Handling costs - $"_L1, m_listing.shippingDollars, "."_L1,
                m_listing.shippingCents);
        if (!isNothing(m_listing.insuranceDollars, m_listing.insuranceCents))
            addItem("Shipping Insurance item costs - $"_L1, m_listing.insuranceDollars, "."_L1,
                    m_listing.insuranceCents);
        if (!isNothing(m_listing.additionalDollars, m_listing.additionalCents))
            addItem("Additional item (per item) - $"_L1, m_listing.additionalDollars, "."_L1,
                    m_listing.additionalCents);
        if (m_listing.taxed) {
            openItem(mine(Differences.taxColorEnd));
            m_page.addLine("Tax Rate: "_L1, m_listing.taxRate, "% State: "_L1, m_listing.taxState);
            m_page.addLine("</FONT>"_L1);
        }
    }

    /// The seller's own text in a table of one cell, which covers the table's blue and green: nobody sees
    /// them.
    void addTerms(Region region, const QString& text, QLatin1StringView cellBreak,
                  QLatin1StringView markerEnd = NoPiece)
    {
        m_page.add("<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left "
                   "bgColor=#00ff00 border=0>"_L1);
        m_page.add("<TBODY><TR>"_L1);
        m_page.add("<TD bgColor="_L1, m_look.cellColor, ">"_L1, cellBreak);
        m_page.add(opening(region), markerEnd);
        m_page.addLine("<FONT color="_L1, m_look.listColor, " size=3 face=Arial>"_L1);
        m_page.add(text, "<BR>"_L1, "</FONT>"_L1);
        m_page.add(closing(region), markerEnd);
        m_page.add("</TD></TR></TBODY></TABLE>"_L1);
    }

    const Listing& m_listing;
    const PageLook& m_look;
    const TermsTexts& m_terms;
    const std::size_t m_style;
    PageText m_page;
};

} // namespace

QString listingPage(const Listing& listing, const PageLook& look, const TermsTexts& terms)
{
    if (look.style < 0 || look.style >= int(StyleCount))
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return Generator(listing, look, terms).page();
}

} // namespace brindlemark
