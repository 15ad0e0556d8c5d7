// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/PerStyle.h"

#include <QByteArrayView>
#include <array>

namespace brindlemark {

// A listing page carries comments that mark its parts. They survive all later editing of the page. Nothing
// else is kept about a page: its style is read from one of them, and the region commands find the parts by
// the others.

/// The parts of a listing page that lie between two marker comments.
enum class Region {
    Title,           ///< title, with its FONT tag
    Line,            ///< the rule; pages of the styles 0 and 1 have one
    Picture,         ///< the picture or pictures; a page without pictures has none
    Description,     ///< description, with its FONT tag
    PaymentCell,     ///< payment cell title
    PaymentList,     ///< payment list
    PaymentTerms,    ///< payment terms
    LocationCell,    ///< location cell title
    LocationList,    ///< location list
    LocationTerms,   ///< location terms
    WhoPaysCell,     ///< who-pays cell title
    WhoPaysList,     ///< who-pays list
    WhoPaysTerms,    ///< who-pays terms
    DescriptionCell, ///< the "Description:" cell title; only pages of style 3 have it
};

/// The comments that enclose a region.
struct MarkerPair
{
    Region region;
    QByteArrayView opening;
    QByteArrayView closing; ///< the opening one with a "2" behind its name
};

/// All regions, in the order of `Region`.
inline constexpr std::array<MarkerPair, 14> Markers = {{
    {Region::Title, "<!-- Body-title -->", "<!-- Body-title2 -->"},
    {Region::Line, "<!-- Body-line -->", "<!-- Body-line2 -->"},
    {Region::Picture, "<!-- Body-picture -->", "<!-- Body-picture2 -->"},
    {Region::Description, "<!-- Body-description -->", "<!-- Body-description2 -->"},
    {Region::PaymentCell, "<!-- Body-Cell -->", "<!-- Body-Cell2 -->"},
    {Region::PaymentList, "<!-- Body-list -->", "<!-- Body-list2 -->"},
    {Region::PaymentTerms, "<!-- Body-body -->", "<!-- Body-body2 -->"},
    {Region::LocationCell, "<!-- Body2-Cell -->", "<!-- Body2-Cell2 -->"},
    {Region::LocationList, "<!-- Body2-list -->", "<!-- Body2-list2 -->"},
    {Region::LocationTerms, "<!-- Body2-body -->", "<!-- Body2-body2 -->"},
    {Region::WhoPaysCell, "<!-- Body3-Cell -->", "<!-- Body3-Cell2 -->"},
    {Region::WhoPaysList, "<!-- Body3-list -->", "<!-- Body3-list2 -->"},
    {Region::WhoPaysTerms, "<!-- Body3-body -->", "<!-- Body3-body2 -->"},
    {Region::DescriptionCell, "<!-- Body4-Cell -->", "<!-- Body4-Cell2 -->"},
}};

/// The comment right behind the body tag that records the design style of the page, 0 to 3.
inline constexpr PerStyle<QByteArrayView> StyleMarkers = {
    "<!-- body-buildwizard0 -->",
    "<!-- body-buildwizard1 -->",
    "<!-- body-buildwizard2 -->",
    "<!-- body-buildwizard3 -->",
};

/// What all of these begin with.
inline constexpr QByteArrayView StyleMarkersBegin = "<!-- body-buildwizard";

/// The markers of a region.
constexpr const MarkerPair& markers(Region region)
{
    return Markers[size_t(region)];
}

static_assert(
    [] {
        for (std::size_t i = 0; i < Markers.size(); ++i) {
            if (Markers[i].region != static_cast<Region>(i))
                return false;
        }
        return true;
    }(),
    "the table must have the order of the enumeration, for markers() looks it up by position");

} // namespace brindlemark
