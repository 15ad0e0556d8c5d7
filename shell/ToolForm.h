#pragma once

#include "forms/Form.h"

class CheckBox;

/// What a box shows when its key is missing from the main settings file, or is no number.
enum class IfMissing {
    Mismatch, ///< nothing: the load step throws RuntimeError(TypeMismatch)
    Unticked, ///< 0
};

/// Ticks a box by a key of the main settings file, and keeps each later change of the box there as "1" or
/// "0". Throws RuntimeError(TypeMismatch) as told above, and RuntimeError(InvalidPropertyValue) for a number
/// other than 0 and 1.
void keepInSettings(CheckBox* box, const QString& section, const QString& key,
                    IfMissing ifMissing = IfMissing::Mismatch);

/// A window that makes a fragment of HTML, and gives it to the document or to the clipboard.
class ToolForm : public Form
{
    Q_OBJECT

public:
    using Form::Form;

protected:
    /// The box that closes the window when its fragment has gone out; kept in the settings (see above).
    void setClosingBox(CheckBox* box, const QString& section, const QString& key,
                       IfMissing ifMissing = IfMissing::Mismatch);

    /// Puts a fragment at the caret of the source box, in place of what is selected there, and closes the
    /// window if its box is ticked.
    void addToEditor(const QString& fragment);
    /// Puts a fragment on the clipboard, in place of all that was there, and closes the window if its box is
    /// ticked.
    void copyFragment(const QString& fragment);

private:
    void closeIfWanted();

    CheckBox* m_closes = nullptr;
};
