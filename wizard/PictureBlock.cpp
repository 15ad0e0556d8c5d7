// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/PictureBlock.h"

namespace brindlemark {

using namespace Qt::StringLiterals;

namespace {

/// The pieces of which the four arrangements are made.
class PictureBlock
{
public:
    PictureBlock(PageText& page, const Listing& listing, const PageLook& look)
        : m_page(page), m_listing(listing), m_look(look)
    {
    }

    void leftNeated()
    {
        openTwoCells();
        onePicture();
        m_page.add("</TD><TD>"_L1);
        description();
        closeTwoCells();
    }

    /// Leaves its two CENTER tags open. So meant: what follows on the page is centred too.
    void classicR()
    {
        m_page.add("<BR><BR><CENTER>"_L1);
        allPictures();
        m_page.addLine("<BR><BR><BR><CENTER>"_L1);
        description();
        m_page.addLine("<BR><BR><BR>"_L1);
    }

    void rightNeated()
    {
        openTwoCells();
        description();
        m_page.add("</TD><TD>"_L1);
        onePicture();
        closeTwoCells();
    }

    /// The only arrangement with the description in a paragraph.
    void classic()
    {
        m_page.addLine("<BR>"_L1);
        description("<P align=center>"_L1, "</P>"_L1);
        m_page.addLine("<BR>"_L1);
        allPictures();
        if (m_listing.withPictures)
            m_page.addLine("<BR><BR><BR>"_L1);
    }

private:
    void openTwoCells()
    {
        m_page.add("<TABLE borderColor=#000000 cellSpacing=0 cellPadding=5 align=center bgColor="_L1,
                   m_look.cellColor, " border=0>"_L1);
        m_page.add("<TBODY><TR><TD>"_L1);
    }

    void closeTwoCells() { m_page.addLine("</TD></TR></TBODY></TABLE><BR><BR>"_L1); }

    void description(QLatin1StringView before = {}, QLatin1StringView after = {})
    {
        m_page.addLine(opening(Region::Description));
        m_page.addLine(before, "<FONT face=Arial color="_L1, m_look.descriptionColor, " size=3>"_L1);
        m_page.addLine(m_listing.description);
        m_page.addLine("</FONT>"_L1, after);
        m_page.addLine(closing(Region::Description));
    }

    /// Writes a picture even when there is no address; its address is empty then.
    void onePicture()
    {
        m_page.add(opening(Region::Picture));
        m_page.add("<ALIGN=MIDDLE><IMG src="_L1, m_listing.pictures.value(0), " border=0>"_L1);
        m_page.add(closing(Region::Picture));
    }

    /// Writes nothing, not even the markers, when there are no pictures.
    void allPictures()
    {
        if (!m_listing.withPictures || m_listing.pictures.isEmpty())
            return;
        m_page.add(opening(Region::Picture));
        for (const QString& address : m_listing.pictures)
            m_page.addLine("<ALIGN=MIDDLE><img src="_L1, address, " border=0>"_L1);
        m_page.add(closing(Region::Picture));
    }

    PageText& m_page;
    const Listing& m_listing;
    const PageLook& m_look;
};

} // namespace

void addPictureBlock(PageText& page, const Listing& listing, const PageLook& look)
{
    PictureBlock block(page, listing, look);
    switch (look.pictureStyle) {
    case 0:
        block.leftNeated();
        break;
    case 1:
        block.classicR();
        break;
    case 2:
        block.rightNeated();
        break;
    case 3:
        block.classic();
        break;
    default:
        break;
    }
}

} // namespace brindlemark
