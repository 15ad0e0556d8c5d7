// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/ColorRow.h"

#include "colour/ColorSample.h"
#include "forms/ScrollBar.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Codes.h"

#include <QLineEdit>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <optional>

namespace brindlemark {

namespace {

/// A channel of the row, and the tint of its bar.
struct Channel
{
    const char* name; ///< its first letter stands on the bar
    int Channels::*value;
    QRgb tint;
};

constexpr std::array<Channel, 3> RowChannels = {{
    {"Red", &Channels::red, 0xFFE59A9A},
    {"Green", &Channels::green, 0xFF9AD29A},
    {"Blue", &Channels::blue, 0xFF9DB2EA},
}};

/// The value of a channel that stands in a field; none where it is anything else.
std::optional<int> channelIn(const QLineEdit& field)
{
    bool isNumber = false;
    const int value = field.text().toInt(&isNumber);
    return isNumber && value >= 0 && value <= 255 ? std::optional(value) : std::nullopt;
}

/// How wide a field must be for the longest number.
int numberWidth(const QLineEdit& field)
{
    constexpr int Room = 6; // the margins of the toolkit's fields, and the cursor
    QStyleOptionFrame look;
    look.initFrom(&field);
    look.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &look, &field);
    const QFontMetrics metrics = field.fontMetrics();
    const QSize number(metrics.horizontalAdvance(QStringLiteral("255")) + Room, metrics.height());
    return field.style()->sizeFromContents(QStyle::CT_LineEdit, &look, number, &field).width();
}

} // namespace

ColorRow::ColorRow(ScrollBar* red, ScrollBar* green, ScrollBar* blue, ColorSample* sample)
    : QObject(sample), m_bars{red, green, blue}, m_sample(sample)
{
    for (size_t i = 0; i < m_bars.size(); ++i) {
        ScrollBar* bar = m_bars.at(i);
        bar->setRange(0, 255);
        bar->showValue(QString(QLatin1Char(*RowChannels.at(i).name)));
        bar->setTint(RowChannels.at(i).tint);
        on(bar, &ScrollBar::Change, this, [this] {
            RowChange();
            emit Change();
        });
        on(bar, &ScrollBar::Scroll, this, [this, bar] {
            RowChange();
            QToolTip::showText(bar->mapToGlobal(QPoint(0, bar->height())), bar->toolTip(), bar);
            emit Scroll();
        });
    }
    tellChannels();
}

void ColorRow::offerPick()
{
    m_sample->offerClick();
    on(m_sample, &ColorSample::clicked, this, &ColorRow::RowPick);
}

void ColorRow::offerNumbers(QLineEdit* red, QLineEdit* green, QLineEdit* blue)
{
    m_fields = {red, green, blue};
    for (size_t i = 0; i < m_bars.size(); ++i) {
        ScrollBar* bar = m_bars.at(i);
        QLineEdit* field = m_fields.at(i);
        const auto showNumber = [bar, field] { field->setText(QString::number(bar->Value())); };
        showNumber();
        onInner(bar, &QScrollBar::valueChanged, field, [bar, field, showNumber] {
            if (channelIn(*field) != bar->Value()) // what is being typed stays as it is typed
                showNumber();
        });
        onInner(field, &QLineEdit::editingFinished, field, showNumber);
        on(field, &QLineEdit::textEdited, this, [bar, field] {
            if (const std::optional<int> value = channelIn(*field))
                bar->setValue(*value);
        });
        field->setToolTip(QStringLiteral("%1, from 0 to 255").arg(QLatin1String(RowChannels.at(i).name)));
        field->setAccessibleName(bar->accessibleName());
    }
}

void ColorRow::narrowNumbers()
{
    for (QLineEdit* field : m_fields)
        field->setFixedWidth(numberWidth(*field));
}

int ColorRow::color() const
{
    return m_sample->BackColor();
}

void ColorRow::setColor(int color)
{
    m_sample->setBackColor(color);
}

QString ColorRow::colorText() const
{
    const Channels channels = splitColor(m_sample->BackColor());
    return u'#' + hexNumber(channels.red << 16 | channels.green << 8 | channels.blue);
}

void ColorRow::RowHexRefresh()
{
    if (m_text)
        *m_text = colorText();
}

void ColorRow::moveBars()
{
    const Channels channels = splitColor(m_sample->BackColor());
    for (size_t i = 0; i < m_bars.size(); ++i)
        m_bars.at(i)->setValue(channels.*RowChannels.at(i).value);
}

void ColorRow::setEnabled(bool enabled)
{
    for (ScrollBar* bar : m_bars)
        bar->setEnabled(enabled);
    for (QLineEdit* field : m_fields) {
        if (field)
            field->setEnabled(enabled);
    }
    m_sample->setEnabled(enabled);
}

void ColorRow::RowChange()
{
    m_sample->setBackColor(m_bars[0]->Value() | m_bars[1]->Value() << 8 | m_bars[2]->Value() << 16);
    RowHexRefresh();
    tellChannels();
}

void ColorRow::RowPick()
{
    CommonDialog dialog;
    dialog.Color = m_sample->BackColor();
    if (!dialog.ShowColor())
        return;
    m_sample->setBackColor(dialog.Color);
    RowHexRefresh();
    moveBars();
    emit Picked();
}

/// Tells of each bar its channel and value, in its tool tip and to screen readers.
void ColorRow::tellChannels() const
{
    for (size_t i = 0; i < m_bars.size(); ++i) {
        const QString channel = QString::fromLatin1(RowChannels.at(i).name);
        ScrollBar* bar = m_bars.at(i);
        bar->setToolTip(QStringLiteral("%1: %2").arg(channel).arg(bar->Value()));
        bar->setAccessibleName(QStringLiteral("%1, %2").arg(m_sample->accessibleName(), channel.toLower()));
    }
}

} // namespace brindlemark
