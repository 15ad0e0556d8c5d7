// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/SpellingMenu.h"

#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "services/Messages.h"
#include "shell/Spelling.h"

#include <QMenu>

namespace brindlemark {

namespace {

void addOwnWord(Spelling& spelling, const QString& word)
{
    try {
        spelling.addOwnWord(word);
    } catch (const RuntimeError& error) {
        showMessage(Messages::CannotWrite, error.description());
    }
}

} // namespace

void addSpellingTo(QMenu& menu, Spelling& spelling, const QString& word,
                   const std::function<void(const QString&)>& replace, const QStringList& suggestions)
{
    QAction* first = menu.actions().value(0);
    const auto add = [&](QString text, const std::function<void()>& act) {
        auto* entry = new QAction(text.replace(u'&', QStringLiteral("&&")), &menu);
        menu.insertAction(first, entry);
        entry->setEnabled(bool(act));
        if (act)
            on(entry, &QAction::triggered, &menu, act);
    };
    const QStringList meant = suggestions.isEmpty() ? spelling.speller().suggestions(word) : suggestions;
    for (const QString& suggestion : meant)
        add(suggestion, [replace, suggestion] { replace(suggestion); });
    if (meant.isEmpty())
        add(QStringLiteral("No suggestions"), {});
    add(QStringLiteral("Add \"%1\" to My Words").arg(word),
        [&spelling, word] { addOwnWord(spelling, word); });
    menu.insertSeparator(first);
}

} // namespace brindlemark
