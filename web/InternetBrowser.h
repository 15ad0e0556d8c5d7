// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/WebControl.h"

class QWebEngineHistoryItem;

namespace brindlemark {

/// A browser of the internet: goes to addresses, back and forward. Its pages have nothing to do with any
/// document.
class InternetBrowser : public WebControl
{
    Q_OBJECT

public:
    explicit InternetBrowser(QWidget* parent = nullptr);
    ~InternetBrowser() override;

    /// Begins to load a page. What a person types for an address will do; one without a scheme gets http. An
    /// empty text or "about:blank" gives the empty page. What is no address, or may not be shown, is told in
    /// the status text.
    void Navigate(const QString& address);
    /// False: there is no page before (or behind) this one.
    [[nodiscard]] bool GoBack();
    [[nodiscard]] bool GoForward();
    /// Stops loading. A page that hears nothing any more, because a script of it runs without end, is ended
    /// after two seconds.
    void Stop();
    void Refresh();

    /// Text size in five steps, 0 smallest to 4 largest; 2 at first. Beyond: the nearest.
    using WebControl::setZoomLevel;
    using WebControl::zoomLevel;

signals:
    /// `maximum` is below 1 when nothing is being loaded.
    void progressChanged(int progress, int maximum);

protected:
    void showEvent(QShowEvent* event) override;
    void viewMade() override;
    void loadingEnded() override;

private:
    void showEmptyPage();
    [[nodiscard]] bool step(const QList<QWebEngineHistoryItem>& nearestFirst);
    void endIfDeaf();
    void endPatience();

    QTimer m_patienceTimer; // runs while a page owes its sign of life
};

} // namespace brindlemark
