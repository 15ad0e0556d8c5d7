// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/AddressField.h"

#include "platform/Events.h"

#include <QLineEdit>
#include <memory>

namespace brindlemark {

void takePastedAddress(QLineEdit* field)
{
    // Typing brings a letter at a time, so that only a paste brings a whole beginning.
    const auto former = std::make_shared<QString>(field->text());
    onInner(field, &QLineEdit::textEdited, field, [field, former](const QString& text) {
        if (*former == BlankAddress) {
            const bool behind = text.startsWith(BlankAddress + QStringLiteral("http"));
            const bool before = text.startsWith(QStringLiteral("http")) && text.endsWith(BlankAddress);
            const qsizetype length = BlankAddress.size();
            if (behind || (before && text.size() > length))
                field->setSelection(behind ? 0 : int(text.size() - length), int(length));
            if (field->hasSelectedText()) {
                field->del();
                field->end(false);
            }
        }
    });
    onInner(field, &QLineEdit::textChanged, field, [former](const QString& text) { *former = text; });
}

} // namespace brindlemark
