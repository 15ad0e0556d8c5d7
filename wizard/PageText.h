// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/Markers.h"

#include <QString>
#include <utility>

namespace brindlemark {

/// The text of a page while it is put together, piece by piece. Pieces are `QString`, `QLatin1StringView` or
/// `QStringView`.
class PageText
{
public:
    /// An empty text with room for `expectedSize` characters; it grows beyond when needed.
    explicit PageText(qsizetype expectedSize = 0) { m_text.reserve(expectedSize); }

    /// Appends pieces.
    template <typename... Pieces>
    void add(const Pieces&... pieces)
    {
        (m_text.append(pieces), ...);
    }

    /// Appends pieces and a line end, CR LF.
    template <typename... Pieces>
    void addLine(const Pieces&... pieces)
    {
        add(pieces..., lineEnd);
    }

    const QString& text() const { return m_text; }
    /// The text; this one is empty afterwards.
    QString take() { return std::exchange(m_text, QString()); }

    static constexpr QLatin1StringView lineEnd{"\r\n"};

private:
    QString m_text;
};

/// The marker before a region, as a piece of the page.
constexpr QLatin1StringView opening(Region region)
{
    return QLatin1StringView(markers(region).opening);
}

/// The marker behind a region, as a piece of the page.
constexpr QLatin1StringView closing(Region region)
{
    return QLatin1StringView(markers(region).closing);
}

} // namespace brindlemark
