// SPDX-License-Identifier: GPL-3.0-or-later

#include "FaderTool.h"

#include "Widgets.h"
#include "app/Openings.h"

#include <QAbstractButton>
#include <QTest>

namespace brindlemark {

FaderTool::FaderTool()
{
    connectOpenings(web);
    m_reference.setDesignMode(DesignMode::On); // no script runs
}

void FaderTool::show()
{
    press(Tool::Font);
    if (!isLoaded<Fader5>())
        QTest::qFail("the toolbar's button opens no fader", __FILE__, __LINE__);
    tool = form<Fader5>();
    if (!QTest::qWaitForWindowExposed(tool, Patience))
        QTest::qFail("the fader does not show", __FILE__, __LINE__);
}

void FaderTool::show(const QString& text)
{
    show();
    QTest::keyClicks(tool->Text1, text);
}

void FaderTool::click(QAbstractButton* button)
{
    const bool captioned = qobject_cast<CheckBox*>(button) || qobject_cast<OptionButton*>(button);
    // At the mark of a box with a caption; one that looks like a button is no wider than that.
    QTest::mouseClick(button, Qt::LeftButton, {},
                      captioned ? QPoint(8, button->height() / 2) : button->rect().center());
}

void FaderTool::click(const QStringList& names) const
{
    for (const QString& name : names)
        click(control<QAbstractButton>(name));
}

void FaderTool::dragBy(ScrollBar* bar, int pixels)
{
    const QPoint from = placeOf(bar, QStyle::SC_ScrollBarSlider);
    if (!bar->isSliderDown())
        QTest::mousePress(bar, Qt::LeftButton, {}, from);
    QTest::mouseMove(bar, from + QPoint(pixels, 0));
}

void FaderTool::letGo(ScrollBar* bar)
{
    QTest::mouseRelease(bar, Qt::LeftButton, {}, placeOf(bar, QStyle::SC_ScrollBarSlider));
}

QString FaderTool::rendered(const QString& fragment)
{
    m_reference.write(fragment);
    return pageBody(&m_reference);
}

QString FaderTool::copied() const
{
    click(tool->Command16);
    return Clipboard::GetText();
}

} // namespace brindlemark
