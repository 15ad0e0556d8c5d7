// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/LeadTo.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

namespace brindlemark {

void leadTo(QWidget* control)
{
    for (QWidget* around = control->parentWidget(); around; around = around->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(around);
        for (int page = 0; tabs && page < tabs->count(); ++page) {
            if (tabs->widget(page)->isAncestorOf(control))
                tabs->setCurrentIndex(page);
        }
    }
    control->setFocus();
    if (auto* line = qobject_cast<QLineEdit*>(control)) {
        line->selectAll();
    } else if (auto* text = qobject_cast<QPlainTextEdit*>(control)) {
        text->selectAll();
    }
}

} // namespace brindlemark
