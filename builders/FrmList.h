// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ListHtml.h"
#include "builders/ui_FrmList.h"
#include "shell/ToolForm.h"

#include <QPointer>

namespace brindlemark {

class ColorRow;
class FrmFonts;
struct FontChoice;

/// The tool that builds a bulleted or numbered list, each word in the font that was chosen when it was added.
class FrmList : public ToolForm, public Ui::FrmList
{
    Q_OBJECT

public:
    FrmList();

    /// The HTML of each word of `List1`.
    QStringList items;
    /// The HTML of the list as the sample shows it.
    QString html;
    /// The colour of the list, `#RRGGBB`.
    QString listColor;

    /// The font of the next word.
    ListFont wordFont;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Command1_Click();
    void Command2_Click();
    void Command6_Click();
    void Command7_Click();
    void Command21_Click();
    void Command22_Click();
    void FrmFonts_taken(const QString& caption, const FontChoice& font);

    FrmFonts* fonts();
    void refresh();
    QString opening() const;
    bool hasWords();

    ColorRow* m_row;
    QPointer<FrmFonts> m_fonts;
};

} // namespace brindlemark
