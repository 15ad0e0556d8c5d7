// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"

#include <functional>

class QAction;

namespace brindlemark {

class CheckBox;

/// Ticks a box where a key of the main settings file is "1", and keeps each later change of the box there as
/// "1" or "0".
void keepInSettings(CheckBox* box, const QString& section, const QString& key);

/// The same for a menu entry that can be checked. Where the key has neither, as in settings of an earlier
/// version, `atFirst` holds.
void keepInSettings(QAction* entry, const QString& section, const QString& key, bool atFirst);

/// Runs `make`, which makes a page or a part of one. Where memory runs out, it ends there and the user is
/// told; so `make` must change things only when all is made.
void tellingWantOfMemory(const std::function<void()>& make);

/// A window that makes a fragment of HTML, and gives it to the document or to the clipboard.
class ToolForm : public Form
{
    Q_OBJECT

public:
    using Form::Form;

protected:
    /// The box that closes the window when its fragment has gone out; kept in the settings (see above).
    void setClosingBox(CheckBox* box, const QString& section, const QString& key);

    /// Puts a fragment at the caret of the source box, in place of what is selected there, and closes the
    /// window if its box is ticked. Does nothing once the main window has gone. `what` is its name where it
    /// can be undone.
    void addToEditor(const QString& fragment, const QString& what);
    /// Puts a fragment on the clipboard, in place of all that was there, and closes the window if its box is
    /// ticked.
    void copyFragment(const QString& fragment);

private:
    void closeIfWanted();

    CheckBox* m_closes = nullptr;
};

} // namespace brindlemark
