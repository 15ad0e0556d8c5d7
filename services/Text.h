// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Replaces `find` by `with`, by exact comparison, until it occurs no more: what a replacement makes together
/// with its neighbours is replaced too, so "ab" by "b" turns "aaab" into "b". Each time the first occurrence
/// goes first. An empty `find` changes nothing; `with` must not hold `find`, which would never end.
/// Events are served now and then (see EventYield).
QByteArray ReplaceAll(const QByteArray& text, const QByteArray& find, const QByteArray& with);
QString ReplaceAll(const QString& text, const QString& find, const QString& with);
