// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ProgramFolder.h"
#include "ScriptedDoors.h"
#include "shell/FrmWeb.h"

namespace brindlemark {

/// The main window in a program folder and behind doors of its own, used as a hand uses it. Goes with the
/// test, whatever the test left undone.
class MainWindow
{
public:
    /// Shows a window that has just been loaded.
    MainWindow();
    ~MainWindow();
    Q_DISABLE_COPY_MOVE(MainWindow)

    ProgramFolder folder;
    ScriptedDoors doors;
    FrmWeb* web = nullptr;

    /// Clicks a toolbar button.
    void press(Tool wanted) const;
    /// Opens a menu of the menu bar and takes an entry of it.
    void choose(QMenu* menu, QAction* entry) const;
    /// Clicks the caption of a tab page.
    void showTab(FrmWeb::Tab tab) const;
    /// Types into the source box.
    void type(const QString& text) const;
    /// Types into the design surface, which must be up: where a click on its middle puts the caret, or where
    /// the caret is.
    void typeOnSurface(const QString& text) const;
    void typeAtCaretOfSurface(const QString& text) const;

    /// Takes `path` in the open dialog.
    void open(const QString& path);
    /// Drops files on the source box, as they come from a file manager: on its middle, or right in front of a
    /// character, counted from 0.
    void drop(const QStringList& paths, std::optional<int> character = std::nullopt) const;
    void drop(const QString& path) const { drop(QStringList{path}); }
    /// Takes `path` in the Save As dialog; the file must not exist yet.
    void saveAs(const QString& path);

    /// Runs out when unsaved text is to be kept on the disk.
    QTimer& journalTimer() const { return *web->findChild<QTimer*>(QStringLiteral("JournalTimer")); }
    QByteArray source() const { return web->RichTextBox1->Text(); }
    QString caption() const { return web->windowTitle(); }
};

/// Unloads the main window, without a question, and every other window that a test left.
void unloadAll();

} // namespace brindlemark
