// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/InternetBrowser.h"

#include "platform/Events.h"
#include "web/WebEngine.h"

#include <QPointer>
#include <QRegularExpression>
#include <QWebEngineHistory>
#include <QWebEngineScript>
#include <algorithm>

namespace brindlemark {

namespace {

/// How long a page that is stopped may take to give a sign of life, in milliseconds.
constexpr int SignOfLife = 2000;

/// What a person types for an address.
QUrl addressOf(const QString& text)
{
    // A name with a port looks like a scheme, but what follows is a number.
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:(?!\\d)"));
    const QUrl url(scheme.match(text).hasMatch() ? text : QStringLiteral("http://") + text);
    return url.scheme().startsWith(QLatin1String("http")) && url.host().isEmpty() ? QUrl() : url;
}

} // namespace

InternetBrowser::InternetBrowser(QWidget* parent) : WebControl(WebPage::Kind::Internet, parent)
{
    m_patienceTimer.setSingleShot(true);
    onInner(&m_patienceTimer, &QTimer::timeout, this, &InternetBrowser::endPatience);
}

InternetBrowser::~InternetBrowser()
{
    endView();
}

void InternetBrowser::viewMade()
{
    onInner(page(), &QWebEnginePage::loadProgress, this, [this](int percent) {
        const EngineCall call;
        if (content() == Content::Loaded)
            emit progressChanged(percent, 100);
    });
    onInner(page(), &QWebEnginePage::loadFinished, this, [this] {
        if (content() == Content::Nothing) { // the empty page is there
            page()->arrived();
            applyZoom();
        }
    });
}

void InternetBrowser::showEvent(QShowEvent* event)
{
    guardedCall([&] {
        WebControl::showEvent(event);
        makeView();
        if (content() == Content::Nothing)
            showEmptyPage();
    });
}

void InternetBrowser::showEmptyPage()
{
    setContent(Content::Nothing);
    if (!page()) // it needs no view until it is seen
        return;
    beginsToLoad();
    page()->triggerAction(QWebEnginePage::Stop);
    page()->leaveFor(blankAddress());
    page()->load(blankAddress());
}

// ---- Going places ----------------------------------------------------------------------------------------

void InternetBrowser::Navigate(const QString& address)
{
    const QString text = address.trimmed();
    const QUrl url = addressOf(text);
    if (text.isEmpty() || text == QLatin1String("about:blank")) {
        showEmptyPage();
    } else if (!WebPage::isAddress(url)) {
        tellNoAddress(text);
    } else if (!WebPage::isAllowed(kind(), url)) {
        tellStatus(QStringLiteral("Not opened here: %1").arg(shownAddress(url)));
    } else {
        open(url);
    }
}

/// Goes to the nearest page; the empty one is no place to go to.
bool InternetBrowser::step(const QList<QWebEngineHistoryItem>& nearestFirst)
{
    for (const QWebEngineHistoryItem& item : nearestFirst) {
        if (item.url() != blankAddress()) {
            load(item.url(), [&] { page()->history()->goToItem(item); });
            return true;
        }
    }
    return false;
}

bool InternetBrowser::GoBack()
{
    if (!page())
        return false;
    QList<QWebEngineHistoryItem> items = page()->history()->backItems(page()->history()->count());
    std::reverse(items.begin(), items.end());
    return step(items);
}

bool InternetBrowser::GoForward()
{
    return page() && step(page()->history()->forwardItems(page()->history()->count()));
}

void InternetBrowser::Refresh()
{
    if (content() == Content::Loaded)
        load(page()->url(), [this] { page()->triggerAction(QWebEnginePage::Reload); });
}

void InternetBrowser::Stop()
{
    if (!page())
        return;
    const bool wasLoading = page()->isLoading();
    page()->triggerAction(QWebEnginePage::Stop);
    page()->arrived();
    loadingEnded();
    if (wasLoading)
        tellStatus(QStringLiteral("Stopped"));
    endIfDeaf();
}

void InternetBrowser::loadingEnded()
{
    emit progressChanged(0, 0);
}

/// Asks the page for a sign of life, without waiting for it; once at a time.
void InternetBrowser::endIfDeaf()
{
    if (isLost() || m_patienceTimer.isActive())
        return;
    m_patienceTimer.start(SignOfLife);
    page()->runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                          [self = QPointer<InternetBrowser>(this)](const QVariant&) {
                              if (self)
                                  self->m_patienceTimer.stop();
                          });
}

void InternetBrowser::endPatience()
{
    if (!engineListens()) { // nor could the page have answered: it gets more time
        m_patienceTimer.start(SignOfLife);
    } else if (!isLost()) {
        untilDeleted([this] { endRenderer(); });
    }
}

} // namespace brindlemark
