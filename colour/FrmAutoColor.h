// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_FrmAutoColor.h"
#include "forms/Form.h"

class ColorRow;

/// Two colours for the cells of a table, which take turns. The window only hides when they are taken: its
/// rows keep them.
class FrmAutoColor : public Form, public Ui::FrmAutoColor
{
    Q_OBJECT

public:
    FrmAutoColor();

    /// Brings both rows to colour numbers, bars and samples.
    void setColors(int first, int second);

signals:
    /// The user has taken two colours, as colour texts.
    void taken(const QString& first, const QString& second);
    /// The form is being unloaded, by Cancel or otherwise.
    void unloading();

protected:
    bool queryUnload() override;

private:
    void Command1_Click();

    ColorRow* m_first;
    ColorRow* m_second;
};
