// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "builders/ListHtml.h"
#include "builders/ui_FrmList.h"
#include "shell/ToolForm.h"

#include <QPointer>

class ColorRow;
class FrmFonts;
struct FontChoice;

/// The tool that builds a bulleted or numbered list, each word in the font that was chosen when it was added.
class FrmList : public ToolForm, public Ui::FrmList
{
    Q_OBJECT

public:
    FrmList();

    /// The entry of each word of `List1`.
    QStringList List2;
    /// The list as the sample shows it.
    QString RichTextBox1;
    /// The list's colour text.
    QString Text5;

    // The font of the next word.
    QString TxtFontName = QStringLiteral("Arial");
    QString TxtSize = QStringLiteral("3");
    QString TxtFontColor = QStringLiteral("#000000");
    QString TxtBIU;
    QString TxtBIU2;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Command1_Click();
    void Command2_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command21_Click();
    void Command22_Click();
    void FrmFonts_taken(const QString& caption, const FontChoice& font);

    FrmFonts* fonts();
    QString opening() const;
    bool hasWords();

    ColorRow* m_row;
    QPointer<FrmFonts> m_fonts;
};
