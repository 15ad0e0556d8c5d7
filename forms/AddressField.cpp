// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/AddressField.h"

#include "platform/Events.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <memory>

namespace brindlemark {

namespace {

/// Whether a text begins with a scheme of its own, such as "https://".
bool hasScheme(const QString& text)
{
    static const QRegularExpression scheme(QStringLiteral("^[a-z][a-z0-9+.-]*://"),
                                           QRegularExpression::CaseInsensitiveOption);
    return scheme.match(text).hasMatch();
}

/// Whether an address with a scheme stands behind the blank one.
bool holdsAnother(const QString& text)
{
    return text.startsWith(BlankAddress) && hasScheme(text.mid(BlankAddress.size()));
}

/// Takes some characters out of a field, as one step of undo. The cursor stays where it is in the rest.
void cut(QLineEdit* field, int from, int length)
{
    const int cursor = field->cursorPosition();
    field->setSelection(from, length);
    field->del();
    field->setCursorPosition(cursor > from ? cursor - length : cursor);
}

} // namespace

void takeWholeAddress(QLineEdit* field)
{
    const auto former = std::make_shared<QString>(field->text());
    onInner(field, &QLineEdit::textEdited, field, [field, former](const QString& text) {
        if (field->isRedoAvailable())
            return; // what undo has brought back stays
        const auto length = int(BlankAddress.size());
        if (holdsAnother(text) && !holdsAnother(*former)) {
            cut(field, 0, length);
        } else if (*former == BlankAddress && text.endsWith(BlankAddress) &&
                   hasScheme(text.chopped(length))) {
            cut(field, int(text.size()) - length, length);
        }
    });
    onInner(field, &QLineEdit::textChanged, field, [former](const QString& text) { *former = text; });
}

} // namespace brindlemark
