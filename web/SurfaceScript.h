// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>

namespace brindlemark {

// What the controls run in a page, in a world of their own: the functions of surface.js.

/// The object of these functions, as a JavaScript expression, which makes it where it is not there yet. Only
/// for the first call in a page: the engine keeps a copy of the text, some 50 KB, each time.
const QString& surfaceScript();

/// What cleans pastes, as a JavaScript expression (see clean.js): for the surface's function `cleanWith`,
/// once in a page in which something is pasted.
const QString& cleanerScript();

/// A call of one of them, such as "reveal()", as a JavaScript expression; `undefined` in a page in which they
/// were not made.
QString surfaceCall(const QString& function);
/// The same call; in such a page it gives a value that none of the functions returns, so that a function that
/// is missing is told from one that returned null or threw.
QString callOrAbsence(const QString& function);
/// Whether a result is that value.
bool isAbsence(const QVariant& result);

/// A text, or true or false, as a literal of JavaScript.
QString literal(const QString& text);
QString literal(bool value);

} // namespace brindlemark
