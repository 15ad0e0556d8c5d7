// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "colour/ui_FrmAutoColor.h"
#include "forms/Form.h"

namespace brindlemark {

class ColorRow;

/// Lets the user choose two colours that the rows of a table have in turn. OK only hides the window, so that
/// the colours are there the next time.
class FrmAutoColor : public Form, public Ui::FrmAutoColor
{
    Q_OBJECT

public:
    FrmAutoColor();

    /// Shows two colour numbers in the samples and on the bars.
    void setColors(int first, int second);

signals:
    /// The user has taken two colours, `#RRGGBB`.
    void taken(const QString& first, const QString& second);
    /// The form is being unloaded, by Cancel or in another way.
    void unloading();

protected:
    bool queryUnload() override;

private:
    void Command1_Click();

    ColorRow* m_first;
    ColorRow* m_second;
};

} // namespace brindlemark
