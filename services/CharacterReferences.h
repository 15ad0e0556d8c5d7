// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace brindlemark {

/// Where a text with character references stands: within an attribute's value "&copy=1" is no reference.
enum class ReferencePlace { Text, AttributeValue };

/// The text, in UTF-8 or any encoding that keeps ASCII, with its character references ("&amp;", "&#8364;",
/// "&#x20AC;") as UTF-8, by the rules of the HTML standard (13.2.5.72 to 80): the longest name counts, also
/// without ";", and numbers that are no characters become U+FFFD or what old pages mean by them.
QByteArray withoutReferences(QByteArrayView text, ReferencePlace place);

} // namespace brindlemark
