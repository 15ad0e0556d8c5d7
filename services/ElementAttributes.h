// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <string_view>
#include <vector>

namespace brindlemark {

/// The attributes that may be written in a start tag of that element, which is in lower case: its own, those
/// that are no longer in use included, and those of all elements. In the order of their names, in lower case.
/// An unknown element has the latter alone. Attributes that run scripts are left out: sites refuse them.
std::vector<std::string_view> attributesOf(QByteArrayView element);

/// Whether the value of that attribute, which is in lower case, is a colour.
bool isColorAttribute(QByteArrayView name);

} // namespace brindlemark
