// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <array>

/// A file with the seller's own terms, which go into every listing: an HTML fragment, in spite of its name.
struct TermsFile
{
    const char* file;    ///< name in the program's folder, with a backslash before it
    const char* caption; ///< of the editor while it works on the file
};

/// The terms of payment, of the location of shipping, and of who pays.
inline constexpr std::array<TermsFile, 3> TermsFiles = {{
    {"\\weblst.ini", "- Payment - Terms of Lists"},
    {"\\weblst2.ini", "- Location Shipping - Terms of Lists"},
    {"\\weblst3.ini", "- Pays Shipping - Terms of Lists"},
}};

/// The whole text of a terms file, such as "\weblst.ini", nothing changed. Bytes that are no UTF-8 throughout
/// are read as Western text. Empty when the file can't be read.
QString GetTermsList(const QString& name);

/// Cuts each HEAD element out of a text, whatever the case of its tags. Returns the one cut last, tags
/// included, or nothing. One that isn't closed stays.
QByteArray cutHeads(QByteArray& text);
