// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTabWidget>

namespace brindlemark {

/// Tab pages whose captions stand as they were given, leading blanks included.
class SSTab : public QTabWidget
{
    Q_OBJECT

public:
    /// Makes a control without pages.
    explicit SSTab(QWidget* parent = nullptr);

    /// The page that is up, from 0; -1 while there is none.
    int Tab() const { return currentIndex(); }
    /// Brings a page up. Raises InvalidPropertyValue outside 0 to `count()` - 1.
    void setTab(int tab);

signals:
    /// Another page is up, by hand or by code; `previousTab` was up before.
    void Click(int previousTab);

private:
    void noticeTab(int tab);

    int m_tab = -1;
};

} // namespace brindlemark
