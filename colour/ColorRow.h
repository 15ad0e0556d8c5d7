// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <array>

class QLineEdit;

namespace brindlemark {

class ColorSample;
class ScrollBar;

/// Three bars for red, green and blue (0 to 255) that mix the colour of a sample. The sample holds the row's
/// colour, not the bars: a colour set by code stays until a bar moves, wherever the bars stand.
class ColorRow : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the sample and ends with it. The accessible names of the bars begin with the sample's.
    ColorRow(ScrollBar* red, ScrollBar* green, ScrollBar* blue, ColorSample* sample);

    /// From the next change of the row on, writes its colour text into `text`.
    void keepText(QString* text) { m_text = text; }
    /// From now on, a click on the sample opens the colour dialog.
    void offerPick();
    /// From now on, these fields show where the bars stand, and a number from 0 to 255 that is typed there
    /// moves its bar. Other text does nothing and gives way to the bar's number when the field is left.
    void offerNumbers(QLineEdit* red, QLineEdit* green, QLineEdit* blue);
    /// Makes the fields of `offerNumbers` as narrow as their numbers let them be, for a row that is one line.
    void narrowNumbers();

    /// The colour number of the sample.
    int color() const;
    /// Colours the sample and nothing else.
    void setColor(int color);
    /// The colour text of the sample, `#RRGGBB`.
    QString colorText() const;

    /// Writes the sample's colour text into the text of `keepText`.
    void RowHexRefresh();
    /// Moves the bars to the sample's colour, which raises `Change` for each bar that moves.
    void moveBars();
    /// Enables or disables bars, fields and sample.
    void setEnabled(bool enabled);

signals:
    /// A bar has changed (see ScrollBar::Change); sample and text have followed.
    void Change();
    /// A bar is being dragged (see ScrollBar::Scroll); sample and text have followed.
    void Scroll();
    /// The user has chosen a colour in the dialog; sample, text and bars have followed.
    void Picked();

private:
    void RowChange();
    void RowPick();
    void tellChannels() const;

    std::array<ScrollBar*, 3> m_bars;
    std::array<QLineEdit*, 3> m_fields{}; // null where none were offered
    ColorSample* m_sample;
    QString* m_text = nullptr;
};

} // namespace brindlemark
