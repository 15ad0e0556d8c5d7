// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QPlainTextEdit;

/// All of a text box of several lines, to the letter, with CR LF line ends.
QString wholeText(const QPlainTextEdit& box);
