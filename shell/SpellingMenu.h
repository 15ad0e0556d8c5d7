// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QMenu;
class QWidget;

namespace brindlemark {

class DocumentSurface;
class Spelling;
struct SurfaceMenu;

/// What can be done about a misspelt word stands first in a menu: what may have been meant, and "Add to My
/// Words". `replace` is called with what was chosen. Without suggestions they are those of the dictionaries.
void addSpellingTo(QMenu& menu, Spelling& spelling, const QString& word,
                   const std::function<void(const QString&)>& replace, const QStringList& suggestions = {});

/// The menu that is wanted over a design surface; the caller may add entries, and shows it. It goes with its
/// closing.
QMenu* menuOf(DocumentSurface& surface, const SurfaceMenu& wanted, QWidget* parent);

} // namespace brindlemark
