// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check/CheckRules.h"
#include "source/TextEdit.h"

#include <QByteArray>
#include <QByteArrayView>
#include <vector>

namespace brindlemark {

/// Something in a listing that its seller should look at.
struct Finding
{
    CheckRule rule;
    TextRange place;
    QByteArray what;            ///< what the sentence is about, in the page's own bytes
    std::vector<TextEdit> mend; ///< in the order of the text; empty where a person must decide
};

/// What a check has found, and how much text it has read.
struct CheckReport
{
    std::vector<Finding> findings; ///< in the order of the text
    qsizetype characters = 0;
    qsizetype bytes = 0;
    qsizetype words = 0; ///< that are seen
};

/// Looks through a page, of which nothing is changed. Runs in any thread; the time grows with the length.
CheckReport checkListing(const QByteArray& html, const CheckLimits& limits,
                         CheckProfile profile = CheckProfile::Page);

/// What mends all findings of a rule at once, in the order of the text.
std::vector<TextEdit> mendAll(const std::vector<Finding>& findings, CheckRule rule);

/// What makes a page fit the width of a phone: pictures as narrow as the screen and with words, no fixed
/// width of a table beyond the limit, the viewport line. In the order of the text; empty when nothing is left
/// to do.
std::vector<TextEdit> phoneEdits(const QByteArray& html, const CheckLimits& limits);

/// The words of a page's title: what its markers enclose, else what TITLE holds; with its character
/// references as they stand in the page. Empty where there is none.
QByteArray listingTitle(const QByteArray& html);

} // namespace brindlemark
