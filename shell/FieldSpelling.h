// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLineEdit;
class QPlainTextEdit;

namespace brindlemark {

/// Has the misspelt words of a field underlined when the user rests, and its menu begin with what may have
/// been meant. The languages are those of the main window; without it nothing happens.
void checkSpellingIn(QLineEdit* field);
void checkSpellingIn(QPlainTextEdit* field);

} // namespace brindlemark
