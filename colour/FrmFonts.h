// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_FrmFonts.h"
#include "shell/ToolForm.h"

namespace brindlemark {

class ColorRow;

/// What the font window hands over.
struct FontChoice
{
    QString color; ///< `#RRGGBB`
    QString name;
    QString size;    ///< HTML font size; empty when what was typed is none of the sizes
    QString open{};  ///< opening style tags
    QString close{}; ///< closing style tags, in the same order as the opening ones
};

/// Lets the user choose a font for one of the list builders, which share this window. A builder sets its own
/// caption before it shows the window, and only takes a font that comes with that caption.
class FrmFonts : public ToolForm, public Ui::FrmFonts
{
    Q_OBJECT

public:
    FrmFonts();

signals:
    /// The user has taken a font. `caption` is the window's and tells for whom.
    void taken(const QString& caption, const FontChoice& font);

private:
    void Command1_Click();

    void refresh();
    FontChoice choice() const;

    ColorRow* m_row;
};

} // namespace brindlemark
