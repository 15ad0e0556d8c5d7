// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppPath.h"

#include <QByteArray>
#include <QString>
#include <array>

namespace brindlemark {

/// A file with the seller's own terms, which go into every listing.
struct TermsFile
{
    QStringView file;
    const char* caption; ///< of the window that edits the file
};

/// The terms of payment, of the location of shipping, and of who pays.
inline constexpr std::array<TermsFile, 3> TermsFiles = {{
    {DataFile::PaymentTerms, "- Payment - Terms of Lists"},
    {DataFile::LocationTerms, "- Location Shipping - Terms of Lists"},
    {DataFile::WhoPaysTerms, "- Pays Shipping - Terms of Lists"},
}};

/// The whole text of a terms file, such as "\weblst.ini", unchanged. A file that isn't UTF-8 throughout is
/// read as Western text. Empty when the file can't be read.
QString GetTermsList(QStringView name);

/// Cuts each HEAD element out of a text, whatever the letter case of its tags. Returns the one that was cut
/// last, with its tags, or nothing. A HEAD that isn't closed stays in the text.
QByteArray cutHeads(QByteArray& text);

} // namespace brindlemark
