// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_FrmFonts.h"
#include "shell/ToolForm.h"

class ColorRow;

/// What the font window hands over.
struct FontChoice
{
    QString color; ///< `#RRGGBB`
    QString name;
    QString size;    ///< HTML font size; empty for a text that is no size
    QString open{};  ///< opening style tags
    QString close{}; ///< closing style tags, in the same order
};

/// Lets the user choose a font for one of the list builders. Whoever shows the window gives it a caption
/// first, and takes what comes with that caption.
class FrmFonts : public ToolForm, public Ui::FrmFonts
{
    Q_OBJECT

public:
    FrmFonts();

signals:
    /// The user has taken a font, in a window of that caption.
    void taken(const QString& caption, const FontChoice& font);

private:
    void Command1_Click();
    void Command4_Click();

    FontChoice choice() const;

    ColorRow* m_row;
};
