// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/WebControl.h"

#include "forms/LongWork.h"
#include "platform/Accessible.h"
#include "platform/Events.h"
#include "web/InputGate.h"
#include "web/SurfaceScript.h"
#include "web/WebEngine.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <csignal>
#include <limits>
#include <memory>
#include <utility>

namespace brindlemark {

namespace {

/// How long a killed renderer may take to be gone, in milliseconds.
constexpr int GoneLimit = 2000;

constexpr std::array ZoomFactors = {0.6, 0.8, 1.0, 1.25, 1.6};

} // namespace

SurfaceLost::SurfaceLost()
    : RuntimeError(ErrorNumber::ObjectNotSet,
                   QStringLiteral("The page has stopped answering, and its text could not be read"))
{
}

WebControl::WebControl(WebPage::Kind kind, QWidget* parent) : QWidget(parent), m_kind(kind)
{
    describeClass(staticMetaObject, accessibleGroup);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_lossTimer.setSingleShot(true);
    onInner(&m_lossTimer, &QTimer::timeout, this, &WebControl::tellLoss);
}

WebControl::~WebControl()
{
    Q_ASSERT(!m_view);
}

// ---- The view --------------------------------------------------------------------------------------------

void WebControl::makeView()
{
    if (m_view)
        return;
    m_page = new WebPage(m_kind, nullptr);
    m_view = new QWebEngineView(m_page, this);
    m_page->setParent(m_view);
    m_view->setContextMenuPolicy(offersMenu() ? Qt::CustomContextMenu : Qt::NoContextMenu);
    onInner(m_view, &QWidget::customContextMenuRequested, this, [this](QPoint place) {
        const EngineCall call;
        if (const QWebEngineContextMenuRequest* request = m_view->lastContextMenuRequest())
            menuAsked(*request, m_view->mapToGlobal(place));
    });
    m_view->installEventFilter(this); // the widget that takes input comes later, and anew with each renderer
    for (QWidget* child : m_view->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        child->installEventFilter(this);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    m_view->show();
    listenToPage();
    viewMade();
}

void WebControl::takePage(WebPage* page)
{
    const bool hadFocus = m_view->hasFocus();
    WebPage* former = std::exchange(m_page, page);
    former->disconnect(this);
    former->setParent(this); // or else the view deletes it at once
    m_page->setParent(m_view);
    m_view->setPage(m_page);
    former->deleteLater();
    beginsToLoad();
    m_content = Content::Loaded;
    m_overLink = false;
    listenToPage();
    if (hadFocus)
        m_view->setFocus();
}

void WebControl::listenToPage()
{
    onInner(m_page, &QWebEnginePage::renderProcessTerminated, this, [this] { rendererEnded(); });
    onInner(m_page, &QWebEnginePage::loadingChanged, this, [this](const QWebEngineLoadingInfo& info) {
        const EngineCall call;
        loadingChanged(info);
    });
    onInner(m_page, &QWebEnginePage::urlChanged, this, [this] {
        if (m_content == Content::Loaded)
            m_page->arrived(); // from here on the new page speaks, not the one that is left
    });
    onInner(m_page, &QWebEnginePage::linkHovered, this, [this](const QString& address) {
        const EngineCall call;
        linkHovered(address);
    });
    onInner(m_page, &WebPage::refused, this, [this](const QString& sentence) {
        const EngineCall call;
        tellStatus(sentence);
    });
}

void WebControl::endView()
{
    delete m_view; // the page, which goes with it, answers all open questions
    m_view = nullptr;
    m_page = nullptr;
}

qint64 WebControl::rendererPid() const
{
    return m_page ? m_page->renderProcessPid() : 0;
}

QWidget* WebControl::inputWidget() const
{
    return m_view ? m_view->focusProxy() : nullptr;
}

// ---- The renderer's life ---------------------------------------------------------------------------------

void WebControl::endRenderer()
{
    const qint64 pid = m_page->renderProcessPid();
    if (pid <= 0) {
        rendererEnded();
        return;
    }
    QEventLoop loop;
    ::kill(static_cast<pid_t>(pid), SIGKILL);
    wait(loop, GoneLimit);
    if (!isLost())
        rendererEnded();
}

void WebControl::rendererEnded()
{
    m_life.advance(RendererLife::Event::Ends);
    m_overLink = false;
    m_lossTimer.start(0);
}

void WebControl::tellLoss()
{
    if (renderer() != Renderer::Ended)
        return;
    if (EngineWait::isUnderWay() || !engineListens()) {
        m_lossTimer.start(BusyPause);
        return;
    }
    lossIsTold();
    emit rendererDied();
}

// ---- The conversation ------------------------------------------------------------------------------------

void WebControl::wait(QEventLoop& loop, int milliseconds)
{
    waitFor(loop, milliseconds);
}

/// Without an end in time, input is handled too: who waits so lets it through where it may go.
void WebControl::waitFor(QEventLoop& loop, std::optional<int> milliseconds)
{
    const QPointer<WebControl> self(this);
    QTimer timer;
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(m_page, &QWebEnginePage::renderProcessTerminated, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    if (milliseconds)
        timer.start(*milliseconds);
    const EngineWait waiting;
    const LongWork signs;
    loop.exec(milliseconds ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
    if (!self)
        throw SurfaceLost();
}

/// Waits for as long as it takes, while the user may stop it.
void WebControl::waitOn(QEventLoop& loop)
{
    const InputGate gate;
    m_longWait = &loop;
    const auto done = qScopeGuard([self = QPointer<WebControl>(this)] {
        if (!self) // deleted meanwhile
            return;
        self->m_longWait = nullptr;
        self->waitsForLong(false);
    });
    waitsForLong(true);
    waitFor(loop, std::nullopt);
}

void WebControl::stopAsking()
{
    if (m_longWait)
        m_longWait->quit();
}

void WebControl::untilDeleted(const std::function<void()>& body)
{
    try {
        body();
    } catch (const SurfaceLost&) {
        return;
    }
}

int WebControl::limit() const
{
    return m_patience + int(double(m_patience) * double(m_length) / 1e6);
}

WebControl::Answer WebControl::ask(const Question& question)
{
    const bool patiently = isPatient();
    return askFor(question, patiently ? m_patience : limit(), patiently);
}

WebControl::Answer WebControl::askAtLength(const Question& question)
{
    return askFor(question, std::numeric_limits<int>::max(), false);
}

/// Waits so long; where it is to be patient, for as long as it takes behind that.
WebControl::Answer WebControl::askFor(const Question& question, int milliseconds, bool patiently)
{
    Q_ASSERT(!EngineCall::isUnderWay()); // what a key or a signal of a page causes comes from the queue
    if (!m_page || isLost() || !engineListens()) // no page, or a message of one still waits for the user
        return {};

    struct Reply
    {
        std::optional<QVariant> answer;
        QPointer<QEventLoop> loop;
    };
    QEventLoop loop;
    const auto reply = std::make_shared<Reply>(); // outlives this call, for an answer that comes late
    reply->loop = &loop;
    question([reply](const QVariant& answer) {
        reply->answer = answer;
        if (reply->loop)
            reply->loop->quit();
    });
    const LongWork signs; // over both waits
    if (!reply->answer && !isLost())
        wait(loop, milliseconds);
    if (!reply->answer && !isLost() && patiently)
        waitOn(loop);
    if (reply->answer || isLost())
        return {reply->answer};
    endRenderer();
    return {.value = reply->answer, .gaveUp = true};
}

WebControl::Answer WebControl::askPage(const QString& script)
{
    return ask([&](const auto& answer) {
        m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld, answer);
    });
}

WebControl::Answer WebControl::call(const QString& function)
{
    Answer answer = askPage(callOrAbsence(function));
    if (!answer.value || !isAbsence(*answer.value))
        return answer;
    return callFirst(function);
}

WebControl::Answer WebControl::callFirst(const QString& function)
{
    return askPage(surfaceScript() + u'.' + function);
}

void WebControl::evaluateSoon(const QString& script, const std::function<void(const QVariant&)>& answered)
{
    if (answered) {
        m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                              GuardedSlot<std::function<void(const QVariant&)>>{answered});
    } else {
        m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld);
    }
}

void WebControl::callSoon(const QString& function, const std::function<void(const QVariant&)>& answered)
{
    evaluateSoon(surfaceCall(function), answered);
}

void WebControl::tellStatus(const QString& text)
{
    m_status = text;
    emit statusTextChanged(text);
}

/// The address under the mouse covers the status until the mouse leaves it.
void WebControl::linkHovered(const QString& address)
{
    const bool wasOverLink = std::exchange(m_overLink, !address.isEmpty());
    if (m_overLink) {
        emit statusTextChanged(address);
    } else if (wasOverLink) {
        emit statusTextChanged(m_status);
    }
}

// ---- Loading ---------------------------------------------------------------------------------------------

/// The engine's setting opens local files of all kinds to a page; the guard of the profile lets only pictures
/// through.
void WebControl::showLocalPictures(bool on)
{
    m_page->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, on);
}

void WebControl::load(const QUrl& address, const std::function<void()>& begin)
{
    m_content = Content::Loaded;
    m_page->leaveFor(address);
    begin();
}

void WebControl::open(const QUrl& address)
{
    makeView();
    showLocalPictures(address.isLocalFile());
    load(address, [&] { m_page->load(address); });
}

void WebControl::tellNoAddress(const QString& text)
{
    constexpr qsizetype LongestShown = 200; // characters
    tellStatus(QStringLiteral("Not an address: %1").arg(text.left(LongestShown)));
}

void WebControl::loadingChanged(const QWebEngineLoadingInfo& info)
{
    if (m_content != Content::Loaded || info.url() == blankAddress()) // the empty page may tell its end late
        return;
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        beginsToLoad(); // a page that has ended gets a new renderer
        tellOpening(info.url());
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus: // by the user, or by the next load, which goes on
        loadingEnded();
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
    case QWebEngineLoadingInfo::LoadFailedStatus:
        loadIsDone(info.status() == QWebEngineLoadingInfo::LoadSucceededStatus, info.url());
        break;
    }
}

void WebControl::loadIsDone(bool ok, const QUrl& address)
{
    m_page->arrived();
    applyZoom();
    arrived();
    loadingEnded();
    if (ok) {
        tellStatus(QStringLiteral("Done"));
    } else if (!isLost()) { // a loss is told by `rendererDied`
        tellNotOpened(address);
    }
    emit navigationFinished(ok);
}

void WebControl::tellOpening(const QUrl& address)
{
    tellStatus(QStringLiteral("Opening page %1").arg(shownAddress(address)));
}

void WebControl::tellNotOpened(const QUrl& address)
{
    tellStatus(QStringLiteral("The page %1 could not be opened").arg(shownAddress(address)));
}

void WebControl::setZoomLevel(int level)
{
    m_zoomLevel = std::clamp(level, 0, int(ZoomFactors.size()) - 1);
    applyZoom();
}

void WebControl::setZoom(int percent)
{
    m_zoom = percent;
    applyZoom();
}

void WebControl::applyZoom()
{
    if (m_page)
        m_page->setZoomFactor(ZoomFactors.at(size_t(m_zoomLevel)) * m_zoom / 100);
}

// ---- Events of the view ----------------------------------------------------------------------------------

bool WebControl::takesKey(const QKeyEvent& key) const
{
    return !isForWindow(key, *window());
}

/// A page takes nothing that is dragged over it.
bool WebControl::actOnDrop(QDropEvent& event, QPoint)
{
    event.ignore();
    return true;
}

bool WebControl::takesOver(const QKeyEvent& key)
{
    return key.type() == QEvent::KeyPress && actOnKey(key);
}

QPoint WebControl::placeInView(const QObject* widget, QPointF place) const
{
    return static_cast<const QWidget*>(widget)->mapTo(m_view, place).toPoint();
}

/// Gets the keys that the page had no use for.
void WebControl::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] { m_returnedKeys.passOn(*event); });
}

void WebControl::keyReleaseEvent(QKeyEvent* event)
{
    guardedCall([&] { keyPressEvent(event); });
}

void WebControl::endDrag()
{
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_view, &leave);
}

bool WebControl::isOwnDrag(const QDropEvent& event) const
{
    return event.source() == m_view;
}

bool WebControl::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        switch (event->type()) {
        case QEvent::ChildAdded:
            if (QObject* child = static_cast<QChildEvent*>(event)->child();
                watched == m_view && child->isWidgetType())
                child->installEventFilter(this);
            break;
        case QEvent::FocusIn:
            focusCame();
            break;
        case QEvent::ShortcutOverride: // decided here, or else the page and the window race for the key
            event->setAccepted(takesKey(*static_cast<QKeyEvent*>(event)));
            return true;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            if (takesOver(*static_cast<QKeyEvent*>(event)))
                return true;
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease: {
            const auto& mouse = *static_cast<QMouseEvent*>(event);
            if (actOnMouse(mouse, placeInView(watched, mouse.position())))
                return true;
            break;
        }
        case QEvent::Wheel: {
            const auto& wheel = *static_cast<QWheelEvent*>(event);
            if (wheel.modifiers() & Qt::ControlModifier) {
                if (const int steps = m_wheel.turned(wheel.angleDelta().y()); steps != 0)
                    emit zoomWanted(steps);
                return true;
            }
            break;
        }
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop: {
            auto& drop = *static_cast<QDropEvent*>(event);
            if (actOnDrop(drop, placeInView(watched, drop.position())))
                return true;
            break;
        }
        default:
            break;
        }
        return QWidget::eventFilter(watched, event);
    });
}

} // namespace brindlemark
