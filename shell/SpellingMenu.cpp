// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/SpellingMenu.h"

#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"
#include "shell/Spelling.h"
#include "shell/SurfaceCommands.h"
#include "source/EditNames.h"
#include "web/DocumentSurface.h"

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

QMenu* menuOf(DocumentSurface& surface, const SurfaceMenu& wanted, QWidget* parent)
{
    auto* menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& text, const QKeySequence& keys, const std::function<void()>& act) {
        const QString shown = keys.toString(QKeySequence::NativeText);
        QAction* entry = menu->addAction(text + (shown.isEmpty() ? shown : u'\t' + shown));
        on(entry, &QAction::triggered, &surface, act);
        return entry;
    };
    const auto addCommand = [&](const QString& text, QKeySequence::StandardKey key, const char* command) {
        return add(text, key, [&surface, command] { runCommand(surface, QString::fromLatin1(command)); });
    };
    const auto addStep = [&](const char* text, QKeySequence::StandardKey key, const char* command,
                             bool isPossible, const QString& step) {
        addCommand(withName(QString::fromLatin1(text), stepName(step)), key, command)->setEnabled(isPossible);
    };
    const auto addPaste = [&](const char* text, const QKeySequence& keys, PasteWay way) {
        add(QString::fromLatin1(text), keys,
            [&surface, way] { static_cast<void>(surface.paste(way)); }); // the user sees it
    };
    addStep("&Undo", QKeySequence::Undo, "Undo", wanted.steps.canUndo, wanted.steps.undo);
    addStep("&Redo", QKeySequence::Redo, "Redo", wanted.steps.canRedo, wanted.steps.redo);
    menu->addSeparator();
    addCommand(QStringLiteral("Cu&t"), QKeySequence::Cut, "Cut");
    addCommand(QStringLiteral("&Copy"), QKeySequence::Copy, "Copy");
    addCommand(QStringLiteral("&Paste"), QKeySequence::Paste, "Paste");
    addPaste("Paste as Te&xt", Qt::CTRL | Qt::SHIFT | Qt::Key_V, PasteWay::AsText);
    addPaste("Paste With Its &Looks", {}, PasteWay::WithLooks);
    menu->addSeparator();
    addCommand(QStringLiteral("Select &All"), QKeySequence::SelectAll, "SelectAll");
    Spelling* spelling = loadedSpelling();
    if (spelling && !wanted.misspelt.isEmpty()) {
        addSpellingTo(
            *menu, *spelling, wanted.misspelt, [&surface](const QString& by) { surface.replaceMisspelt(by); },
            wanted.suggestions);
    }
    return menu;
}

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
    const WaitCursor hourglass; // for long words
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
