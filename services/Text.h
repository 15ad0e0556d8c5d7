// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace brindlemark {

/// Replaces `find` by `with`, letter case included, until it occurs no more. An occurrence that a replacement
/// makes with its neighbours is replaced too: "ab" by "b" turns "aaab" into "b". The first occurrence is
/// always replaced first. An empty `find` changes nothing. `with` must not hold `find`: that would never end.
/// Events are served now and then (see EventYield).
QByteArray ReplaceAll(const QByteArray& text, const QByteArray& find, const QByteArray& with);
QString ReplaceAll(const QString& text, const QString& find, const QString& with);

} // namespace brindlemark
