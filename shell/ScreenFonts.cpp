// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/ScreenFonts.h"

#include "forms/ComboBox.h"

#include <QFontDatabase>
#include <QLabel>

namespace brindlemark {

void addScreenFonts(ComboBox& list, int first)
{
    for (const QString& family : QFontDatabase::families().mid(first)) {
        if (const QString name = family.trimmed(); !name.isEmpty())
            list.AddItem(name);
    }
}

void tellMissingFont(QLabel* notice, const QString& family)
{
    constexpr qsizetype LongestName = 40; // a longer one would widen the window beyond the screen
    const bool missing = !family.isEmpty() && !QFontDatabase::hasFamily(family);
    const QString name = family.size() > LongestName ? family.first(LongestName) + u'\u2026' : family;
    notice->setText(missing
                        ? QStringLiteral("The font \"%1\" is not on this computer: what you see here is an "
                                         "approximation.")
                              .arg(name)
                        : QString());
    notice->setVisible(missing);
}

} // namespace brindlemark
