// SPDX-License-Identifier: GPL-3.0-or-later

// Undo and redo in the menu Tools, which tells what they would do.

#include "platform/Events.h"
#include "shell/FrmWeb.h"
#include "shell/SurfaceCommands.h"
#include "source/EditNames.h"

#include <QMenu>

namespace brindlemark {

void FrmWeb::connectUndo()
{
    on(muntools, &QMenu::aboutToShow, this, &FrmWeb::muntools_Popup);
    on(munundo, &QAction::triggered, this, [this] { stepBy(&RichTextBox::undo, "Undo"); });
    on(munredo, &QAction::triggered, this, [this] { stepBy(&RichTextBox::redo, "Redo"); });
}

/// Whether the view that is up can be edited: on the tab Preview the design surface alone.
bool FrmWeb::isEditable() const
{
    return SSTab1->Tab() == EditorTab || (SSTab1->Tab() == PreviewTab && shownSurface() == WebBrowser1);
}

/// The page isn't waited for: over that, a menu that keys have opened loses them. Until it answers, the
/// entries say what it has told last.
void FrmWeb::muntools_Popup()
{
    if (SSTab1->Tab() == EditorTab) {
        const QString undo = RichTextBox1->undoName();
        const QString redo = RichTextBox1->redoName();
        tellSteps({!undo.isEmpty(), undo, !redo.isEmpty(), redo});
    } else if (isEditable()) {
        tellSteps(m_surfaceSteps);
        WebBrowser1->readSteps([this](const SurfaceSteps& steps) { takeSurfaceSteps(steps); });
    } else {
        tellSteps({});
    }
}

void FrmWeb::takeSurfaceSteps(const SurfaceSteps& steps)
{
    m_surfaceSteps = {steps.canUndo, stepName(steps.undo), steps.canRedo, stepName(steps.redo)};
    if (SSTab1->Tab() == PreviewTab && isEditable())
        tellSteps(m_surfaceSteps);
}

/// With the names that users know.
void FrmWeb::tellSteps(const SurfaceSteps& steps)
{
    const auto tell = [](QAction* entry, const char* text, const char* key, bool isPossible,
                         const QString& name) {
        entry->setText(withName(QString::fromLatin1(text), name) + u'\t' + QString::fromLatin1(key));
        entry->setEnabled(isPossible);
    };
    tell(munundo, "Undo", "Ctrl+Z", steps.canUndo, steps.undo);
    tell(munredo, "Redo", "Ctrl+Y", steps.canRedo, steps.redo);
}

/// A step back or forth in the view that is up.
void FrmWeb::stepBy(void (RichTextBox::*ofSource)(), const char* ofSurface)
{
    if (SSTab1->Tab() == EditorTab) {
        (RichTextBox1->*ofSource)();
    } else if (isEditable()) {
        surfaceCommand(QString::fromLatin1(ofSurface));
    }
}

} // namespace brindlemark
