// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QRgb>
#include <optional>

namespace brindlemark {

/// The colour that a browser makes of an attribute's value, by the HTML standard's rules (2.3.6): "#FFFFFF",
/// "red", and whatever else stands there. Nothing for an empty value and "transparent".
std::optional<QRgb> attributeColor(QByteArrayView value);

/// The colour of a style's property: "#FFFFFF", "#FFF", "red", "rgb(1, 2, 3)". Nothing for all else.
std::optional<QRgb> styleColor(QByteArrayView value);

/// How much two colours differ, 1 to 21, as the W3C counts it (WCAG 2.1, contrast ratio).
double contrastOf(QRgb one, QRgb other);

} // namespace brindlemark
