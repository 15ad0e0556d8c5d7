// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QPlainTextEdit;

namespace brindlemark {

/// All of a text box of several lines, to the letter, with CR LF line ends.
QString wholeText(const QPlainTextEdit& box);

} // namespace brindlemark
