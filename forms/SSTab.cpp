// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/SSTab.h"

#include "platform/Events.h"
#include "platform/RuntimeError.h"

#include <QTabBar>
#include <QWheelEvent>
#include <utility>

namespace brindlemark {

namespace {

/// Captions over which the wheel brings no page up, unless they have the keyboard.
class TabCaptions : public QTabBar
{
public:
    using QTabBar::QTabBar;

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        guardedCall([&] {
            if (hasFocus()) {
                QTabBar::wheelEvent(event);
            } else {
                event->ignore();
            }
        });
    }
};

} // namespace

SSTab::SSTab(QWidget* parent) : QTabWidget(parent)
{
    setTabBar(new TabCaptions(this));
    tabBar()->setObjectName(QStringLiteral("qt_tabwidget_tabbar")); // as the toolkit names its own
    onInner(this, &QTabWidget::currentChanged, this, &SSTab::noticeTab);
}

void SSTab::setTab(int tab)
{
    if (tab < 0 || tab >= count())
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    setCurrentIndex(tab);
}

void SSTab::noticeTab(int tab)
{
    const int previous = std::exchange(m_tab, tab);
    if (previous >= 0 && tab >= 0) // the first page comes up, and the last one goes, without a click
        emit Click(previous);
}

} // namespace brindlemark
