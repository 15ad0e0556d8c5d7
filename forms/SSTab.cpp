// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/SSTab.h"

#include "platform/Accessible.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"

#include <QAccessibleWidget>
#include <QStackedWidget>
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

/// A page, which a screen reader names by its caption when the keyboard comes into it, by whatever key.
class AccessiblePage : public QAccessibleWidget
{
public:
    explicit AccessiblePage(QWidget* page) : QAccessibleWidget(page, QAccessible::Grouping) {}

    QString text(QAccessible::Text kind) const override
    {
        return guardedCall([&]() -> QString {
            const SSTab* tabs = tabsOf(*widget());
            if (kind != QAccessible::Name || !tabs)
                return QAccessibleWidget::text(kind);
            return tabs->tabText(tabs->indexOf(widget())).remove(u'&').trimmed();
        });
    }

    /// The tabs that a widget is a page of; null for any other widget.
    static const SSTab* tabsOf(const QWidget& widget)
    {
        const auto* stack = qobject_cast<const QStackedWidget*>(widget.parentWidget());
        return stack ? qobject_cast<const SSTab*>(stack->parentWidget()) : nullptr;
    }
};

QAccessibleInterface* accessiblePage(QWidget* widget)
{
    return AccessiblePage::tabsOf(*widget) ? new AccessiblePage(widget) : nullptr;
}

} // namespace

SSTab::SSTab(QWidget* parent) : QTabWidget(parent)
{
    describeClass(QWidget::staticMetaObject, accessiblePage); // a page has no class of its own
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
