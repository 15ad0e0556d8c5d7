// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ListHtml.h"
#include "builders/ui_FrmList2.h"
#include "shell/ToolForm.h"

#include <QPointer>

namespace brindlemark {

class ColorRow;
class FrmChar;
class FrmFonts;
struct FontChoice;

/// The tool that builds a list with a character of a symbol font in front of each word, and a title above.
/// Every change of the look acts on all lines at once.
class FrmList2 : public ToolForm, public Ui::FrmList2
{
    Q_OBJECT

public:
    /// Throws RuntimeError(PathFileAccess) when the list of titles can't be read.
    FrmList2();

    /// The HTML of the list.
    QString html;
    ListFont words; ///< the font of the words
    ListFont title; ///< the font of the title

    /// The HTML font size for the text of a box, "Normal" or one of the point sizes; empty for any other.
    QString ReplaceSize(const ComboBox& combo) const;
    /// The colour text of a colour number (see Codes.h).
    QString GetHexColor(int color) const;

private:
    void Check1_Click();
    void Combo2_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command12_Click();
    void Command13_Click();
    void Command15_Click();
    void Command17_Click();
    void Command18_Click();
    void Text1_EnterPressed();
    void Lcolor1_Change();
    void FrmChar_taken(const QString& caption, const QString& family, const QString& character);
    void FrmFonts_taken(const QString& caption, const FontChoice& font);

    FrmChar* characters();
    FrmFonts* fonts();
    void showFonts(const QString& caption);
    void showSymbol();
    void rememberTitle();
    void refresh();
    void addWord();

    ColorRow* m_row;
    QString m_family = QStringLiteral("Webdings"); // of the symbol
    QPointer<FrmChar> m_characters;
    QPointer<FrmFonts> m_fonts;
};

} // namespace brindlemark
