// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/GraphicalButton.h"

#include <QAbstractButton>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace brindlemark {

namespace {

QStyleOptionToolButton lookOf(const QAbstractButton& button)
{
    QStyleOptionToolButton look;
    look.initFrom(&button);
    look.features = QStyleOptionToolButton::None;
    look.subControls = QStyle::SC_ToolButton;
    look.icon = button.icon();
    look.iconSize = button.iconSize();
    look.text = button.text();
    look.toolButtonStyle = look.icon.isNull()    ? Qt::ToolButtonTextOnly
                           : look.text.isEmpty() ? Qt::ToolButtonIconOnly
                                                 : Qt::ToolButtonTextBesideIcon;
    look.font = button.font();
    const bool in = button.isChecked() || button.isDown();
    look.state |= in ? QStyle::State_On | QStyle::State_Sunken : QStyle::State_Off | QStyle::State_Raised;
    return look;
}

} // namespace

QSize graphicalButtonSize(const QAbstractButton& button)
{
    const QStyleOptionToolButton look = lookOf(button);
    QSize contents = look.icon.isNull() ? QSize() : look.iconSize;
    if (!look.text.isEmpty()) {
        const QSize text = look.fontMetrics.size(Qt::TextShowMnemonic, look.text);
        constexpr int Gap = 8; // beside the picture and at the ends
        contents = {contents.width() + text.width() + 2 * Gap, qMax(contents.height(), text.height())};
    }
    return button.style()->sizeFromContents(QStyle::CT_ToolButton, &look, contents, &button);
}

void paintGraphicalButton(QAbstractButton& button)
{
    QStylePainter(&button).drawComplexControl(QStyle::CC_ToolButton, lookOf(button));
}

} // namespace brindlemark
