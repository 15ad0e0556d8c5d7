// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QColor;
class QPalette;
class QString;

namespace brindlemark {

/// A palette whose hints in empty fields have a contrast of at least 4.5 to 1 with what is behind them, as
/// long as its texts have one of 7 to 1.
QPalette withReadableHints(QPalette palette);

/// A palette whose selected texts have a contrast of at least 6 to 1 with what is behind them, also in a
/// window that isn't active: drawn, the thin ones among them have 4.5 to 1.
QPalette withReadableSelections(QPalette palette);

/// `color`, lighter where black words on it would have a contrast of less than 4.5 to 1.
QColor behindBlackWords(const QColor& color);

/// `color`, or black where words in it would have a contrast of less than 2 to 1 with white paper.
QColor onWhitePaper(const QColor& color);

/// `plain` with some colours changed, for the painting of a control: one palette for all controls that ask
/// under the same name. The style keeps pictures of bars and drop-down lists by their palette, and the names
/// of those pictures for ever: a palette of its own for each control would let them grow.
QPalette sharedPalette(const QPalette& plain, const QString& name,
                       const std::function<void(QPalette&)>& change);

/// Makes the desktop's look fit for all to read, now and whenever it changes: selected texts and the hints of
/// empty fields reach a contrast of 4.5 to 1, and what `ProgramStyle` draws is drawn by it. Called once, when
/// there is a QApplication.
void followDesktopLook();

} // namespace brindlemark
