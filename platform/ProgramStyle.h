// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace brindlemark {

/// The desktop's style, with what it draws too small or too faint drawn by the program: the symbols of
/// message boxes, and the boxes and circles that are ticked.
class ProgramStyle : public QProxyStyle
{
public:
    /// Ticks, dots and the boxes around them. A tick has a contrast of at least 4.5 to 1 with its box, the
    /// edge of the box one of 3 to 1 with the window, unless they are disabled.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    /// The symbols of message boxes grow with the letters beside them; in pixels.
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    /// The symbols of message boxes, sharp at every scale.
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};

} // namespace brindlemark
