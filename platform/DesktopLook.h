#pragma once

class QPalette;

/// A palette whose hints in empty fields have a contrast of at least 4.5 to 1 with what is behind them, as
/// long as its texts have one of 7 to 1.
QPalette withReadableHints(QPalette palette);

/// Makes the desktop's colours fit for all to read, now and whenever they change: the hints of empty fields
/// reach a contrast of 4.5 to 1, and boxes to tick stand out of a dark window. Called once there is a
/// QApplication.
void followDesktopLook();
