#include "platform/WebBrowser.h"

#include "platform/Accessible.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/LongWork.h"
#include "platform/WebEngine.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QDropEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineFindTextResult>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <algorithm>
#include <csignal>
#include <memory>
#include <utility>

namespace {

/// How long a killed renderer may take to be gone, and a new one to come up, in milliseconds.
constexpr int GoneLimit = 2000;
constexpr int StartLimit = 30000;

/// How often, and after what pause in milliseconds, the caret is set anew until the surface takes letters.
constexpr int CaretTries = 10;
constexpr int CaretPause = 30;

/// How long what can't be done now waits for the next try, in milliseconds.
constexpr int BusyPause = 30;

/// How often the same sample is shown again when its renderer ends.
constexpr int SampleTries = 3;

/// How long a page that is stopped may take to give a sign of life, in milliseconds.
constexpr int SignOfLife = 2000;

/// How much of what a person typed a status line shows, in characters.
constexpr qsizetype LongestShown = 200;

constexpr double ZoomFactors[] = {0.6, 0.8, 1.0, 1.25, 1.6};

/// Whether the engine can answer now: not while it waits for the program itself.
bool engineListens()
{
    return !EngineCall::isUnderWay() && !PageMessage::isUnderWay();
}

/// Whether the program can act on a key now: nothing else is under way.
bool canAct()
{
    return engineListens() && !EngineWait::isUnderWay() && !handlersRun();
}

/// A JavaScript string literal.
QString literal(const QString& text)
{
    QString quoted;
    quoted.reserve(text.size() + text.size() / 16 + 2);
    quoted += u'"';
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit < 0x20 || unit == 0x2028 || unit == 0x2029 || character.isSurrogate()) {
            quoted += QStringLiteral("\\u%1").arg(unit, 4, 16, QLatin1Char('0'));
            continue;
        }
        if (unit == u'"' || unit == u'\\')
            quoted += u'\\';
        quoted += character;
    }
    return quoted += u'"';
}

QString literal(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

/// Lets a page that comes from a file show pictures that are files. The engine's setting is wider, but of
/// other files the profile's guard lets none through.
void showLocalPictures(WebPage* page, bool on)
{
    page->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, on);
}

/// A place in a view, given in one of its widgets.
QPoint placeIn(const QWidget* view, const QObject* widget, QPointF place)
{
    return static_cast<const QWidget*>(widget)->mapTo(view, place).toPoint();
}

/// Runs what a timer of the control began. A control that is deleted meanwhile has nobody left to tell.
void untilDeleted(const std::function<void()>& body)
{
    try {
        body();
    } catch (const SurfaceLost&) {
        return;
    }
}

} // namespace

SurfaceLost::SurfaceLost()
    : RuntimeError(ErrorNumber::ObjectNotSet,
                   QStringLiteral("The page has stopped answering, and its text could not be read"))
{
}

WebBrowser::WebBrowser(QWidget* parent) : QWidget(parent)
{
    describeClass(staticMetaObject, accessibleGroup);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QTimer* timer :
         {&m_documentTimer, &m_writeTimer, &m_revealTimer, &m_lossTimer, &m_caretTimer, &m_returnTimer})
        timer->setSingleShot(true);
    connect(&m_documentTimer, &QTimer::timeout, this, [this] { untilDeleted([this] { showDocument(); }); });
    connect(&m_writeTimer, &QTimer::timeout, this, [this] { untilDeleted([this] { writeNext(); }); });
    connect(&m_revealTimer, &QTimer::timeout, this, &WebBrowser::reveal);
    connect(&m_lossTimer, &QTimer::timeout, this, &WebBrowser::tellLoss);
    connect(&m_caretTimer, &QTimer::timeout, this, &WebBrowser::renewCaret);
    connect(&m_returnTimer, &QTimer::timeout, this, &WebBrowser::passOnReturnedKeys);
}

// Before the base class goes: the page's last signals must still find a whole control.
WebBrowser::~WebBrowser()
{
    delete m_view;
}

void WebBrowser::makeView()
{
    if (m_view)
        return;
    m_page = new WebPage(m_kind, nullptr);
    m_view = new QWebEngineView(m_page, this);
    m_page->setParent(m_view);
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    m_view->installEventFilter(this); // the widget that takes input comes later, and anew with each renderer
    for (QWidget* child : m_view->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        child->installEventFilter(this);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    m_view->show();

    connect(m_page, &QWebEnginePage::renderProcessTerminated, this, [this] { rendererEnded(); });
    connect(m_page, &QWebEnginePage::loadingChanged, this, [this](const QWebEngineLoadingInfo& info) {
        const EngineCall call;
        loadingChanged(info);
    });
    connect(m_page, &QWebEnginePage::urlChanged, this, [this] {
        if (m_content == Content::Elsewhere)
            m_page->arrived(); // from here on the new page speaks, not the one that is left
    });
    connect(m_page, &QWebEnginePage::linkHovered, this, [this](const QString& address) {
        const EngineCall call;
        linkHovered(address);
    });
    connect(m_page, &WebPage::refused, this, [this](const QString& sentence) {
        const EngineCall call;
        tellStatus(sentence);
    });
    connect(m_page, &QWebEnginePage::loadProgress, this, [this](int percent) {
        const EngineCall call;
        if (m_content == Content::Elsewhere)
            emit progressChanged(percent, 100);
    });
}

void WebBrowser::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    makeView();
    m_documentTimer.start(0); // so that one can type into it
}

void WebBrowser::setDesignMode(DesignMode mode)
{
    if (mode == m_designMode)
        return;
    const bool rewrite = m_content == Content::Document;
    const QString html = rewrite ? innerHtml() : QString();
    m_designMode = mode;
    if (rewrite && !writePage(html))
        throw SurfaceLost();
}

qint64 WebBrowser::rendererPid() const
{
    return m_page ? m_page->renderProcessPid() : 0;
}

QWidget* WebBrowser::inputWidget() const
{
    return m_view ? m_view->focusProxy() : nullptr;
}

// ---- Waiting for the engine ------------------------------------------------------------------------------

/// Lets all events but the user's input be handled until `loop` is told to quit, the renderer ends or the
/// time is up.
void WebBrowser::wait(QEventLoop& loop, int milliseconds)
{
    const QPointer<WebBrowser> self(this);
    QTimer timer;
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(m_page, &QWebEnginePage::renderProcessTerminated, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    timer.start(milliseconds);
    const EngineWait waiting;
    const LongWork signs;
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!self)
        throw SurfaceLost();
}

int WebBrowser::limit() const
{
    return m_patience +
           static_cast<int>(static_cast<double>(m_patience) * static_cast<double>(m_length) / 1e6);
}

std::optional<QVariant> WebBrowser::ask(const Question& question)
{
    Q_ASSERT(!EngineCall::isUnderWay()); // what a key or a signal of a page causes comes from the queue
    m_gaveUp = false;
    if (!m_page || m_lost || !engineListens()) // nobody there, or the user has yet to answer
        return std::nullopt;

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
    if (!reply->answer && !m_lost)
        wait(loop, limit());
    if (!reply->answer && !m_lost) {
        m_gaveUp = true;
        endRenderer();
    }
    return reply->answer;
}

std::optional<QVariant> WebBrowser::evaluate(const QString& script)
{
    return ask([&](const auto& answer) {
        m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld, answer);
    });
}

std::optional<QVariant> WebBrowser::call(const QString& function)
{
    const std::optional<QVariant> answer = evaluate(surfaceCall(function));
    if (!answer || !answer->isNull())
        return answer;
    return evaluate(surfaceScript() + u'.' + function); // the first call in this page
}

bool WebBrowser::succeeds(const QString& function)
{
    makeDocument();
    return call(function).value_or(false).toBool();
}

// ---- The renderer's end ----------------------------------------------------------------------------------

/// Ends a renderer that answers to nothing; an endless script does not even hear a request to stop.
void WebBrowser::endRenderer()
{
    const qint64 pid = m_page->renderProcessPid();
    if (pid <= 0) {
        rendererEnded();
        return;
    }
    QEventLoop loop;
    ::kill(static_cast<pid_t>(pid), SIGKILL);
    wait(loop, GoneLimit);
    if (!m_lost)
        rendererEnded();
}

void WebBrowser::rendererEnded()
{
    m_lost = true;
    m_overLink = false;
    m_lossTold = false;
    m_lossTimer.start(0);
    m_writing = false; // nobody will say that it is done
    if (!m_inWritePage)
        showSampleAgain();
}

void WebBrowser::tellLoss()
{
    if (!m_lost || m_lossTold)
        return;
    if (EngineWait::isUnderWay() || !engineListens()) {
        m_lossTimer.start(BusyPause);
        return;
    }
    m_lossTold = true;
    emit rendererDied();
}

// ---- The document ----------------------------------------------------------------------------------------

/// What is to be shown soon; an empty document, where there is none yet.
void WebBrowser::makeDocument()
{
    if (!engineListens())
        return;
    if (m_next)
        writePage(*std::exchange(m_next, std::nullopt));
    if (m_content == Content::Nothing && !m_lost)
        writePage(QString());
}

/// Something to type into, also where the renderer ended out of sight.
void WebBrowser::showDocument()
{
    if (!engineListens()) {
        m_documentTimer.start(BusyPause);
    } else if (hasDocument()) {
        makeDocument();
    } else {
        writePage(QString());
    }
}

bool WebBrowser::write(const QString& html)
{
    m_sample.reset();
    m_next.reset();
    if (!m_view && html.isEmpty()) // an empty document needs no view until it is seen
        return true;
    return writePage(html);
}

void WebBrowser::writeSoon(const QString& html)
{
    m_sample = html;
    m_sampleTries = SampleTries;
    m_next = html;
    if (!m_writing)
        m_writeTimer.start(0);
}

/// A sample that was lost with its renderer: nobody else knows that it has to be written again. One that ends
/// every renderer stays away.
void WebBrowser::showSampleAgain()
{
    if (!m_next && m_sample && m_sampleTries-- > 0)
        m_next = m_sample;
    if (m_next)
        m_writeTimer.start(0);
}

void WebBrowser::writeNext()
{
    if (!m_next || m_writing || m_inWritePage)
        return;
    if (!engineListens()) {
        m_writeTimer.start(BusyPause);
        return;
    }
    const QString html = *std::exchange(m_next, std::nullopt);
    if (!takesPage()) {
        writePage(html);
        return;
    }
    m_writing = true;
    const auto written = [self = QPointer<WebBrowser>(this)](const QVariant& taken) {
        if (!self)
            return;
        if (!taken.toBool() && self->m_writing) { // the renderer ended first; the signal may be still to come
            self->m_content = Content::Nothing;
            self->showSampleAgain();
        }
        self->m_writing = false;
        if (self->m_next)
            self->m_writeTimer.start(0);
    };
    m_page->runJavaScript(surfaceCall(writeFunction(html)), QWebEngineScript::ApplicationWorld, written);
    reveal();
}

/// Whether the page's own scripts run in the empty page that was opened last.
bool WebBrowser::scriptsRun() const
{
    return m_kind != WebPage::Kind::Sample && m_openedFor == DesignMode::Off;
}

/// Whether the next document can go where the present one is. The scripts of a page live on in its realm, so
/// a page with scripts needs a new one.
bool WebBrowser::takesPage() const
{
    return m_content == Content::Document && !m_lost && m_openedFor == m_designMode && !scriptsRun();
}

QString WebBrowser::writeFunction(const QString& html)
{
    m_length = html.size();
    return QStringLiteral("write(") + literal(html) + QStringLiteral(", ") +
           literal(m_designMode == DesignMode::On) + u')';
}

bool WebBrowser::writePage(const QString& html)
{
    makeView();
    if (!engineListens()) // a page can't go while the user has yet to answer
        return false;
    m_inWritePage = true;
    const bool written = openAndWrite(html);
    m_inWritePage = false;
    if (written) {
        m_revealTimer.start(0); // behind what is asked in the same breath
        wakeCaret();
        if (m_next) // given meanwhile
            m_writeTimer.start(0);
    } else {
        m_lossTold = true;
        showSampleAgain();
    }
    return written;
}

bool WebBrowser::openAndWrite(const QString& html)
{
    const QString function = writeFunction(html);
    bool ready = takesPage();
    m_content = Content::Document; // what waits for the view to be seen must not write into the same page
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!ready && !openBlankPage())
            return false;
        ready = false;
        if (call(function).value_or(false).toBool())
            return true;
        if (m_gaveUp) // would only do so again
            return false;
    }
    return false;
}

/// Lays out what was written (see surface.js).
void WebBrowser::reveal()
{
    m_revealTimer.stop();
    if (isEditable()) {
        m_page->runJavaScript(surfaceCall(QStringLiteral("reveal()")), QWebEngineScript::ApplicationWorld);
    }
}

bool WebBrowser::openBlankPage()
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        m_lost = false;
        m_openedFor = m_designMode;
        m_page->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, scriptsRun());
        showLocalPictures(m_page, false);
        m_page->triggerAction(QWebEnginePage::Stop); // a load still under way would replace what is written
        m_page->leaveFor(blankAddress());
        m_page->load(blankAddress()); // the same address again replaces its entry in the history
        const bool started = startBlankPage();
        m_page->arrived();
        if (started) {
            applyZoom();
            return true;
        }
        if (!m_lost)
            endRenderer();
    }
    return false;
}

/// Waits until the empty page is there. The end of an earlier load may come late and look like this one's.
bool WebBrowser::startBlankPage()
{
    const QDeadlineTimer deadline(rendererPid() > 0 ? limit() : std::max(StartLimit, limit()));
    while (!m_lost && !deadline.hasExpired()) {
        QEventLoop loop;
        connect(m_page, &QWebEnginePage::loadFinished, &loop, [&](bool ok) {
            if (ok && m_page->url() == blankAddress())
                loop.quit();
        });
        wait(loop, static_cast<int>(deadline.remainingTime()));
        if (!deadline.hasExpired() &&
            call(QStringLiteral("start(") + literal(m_openedFor == DesignMode::On) + u')')
                .value_or(false)
                .toBool())
            return true;
    }
    return false;
}

QString WebBrowser::innerHtml()
{
    makeDocument();
    const std::optional<QVariant> answer = call(QStringLiteral("innerHtml(") + literal(scriptsRun()) + u')');
    if (!answer || answer->typeId() != QMetaType::QString) {
        m_lossTold = true;
        throw SurfaceLost();
    }
    m_length = answer->toString().size();
    return answer->toString();
}

/// Whether there is a document that the user can edit.
bool WebBrowser::isEditable() const
{
    return m_designMode == DesignMode::On && m_content == Content::Document && !m_lost;
}

void WebBrowser::readEdits(const std::function<void(const QString& html)>& heard)
{
    if (!isEditable() || EngineWait::isUnderWay())
        return;
    const auto answered = [self = QPointer<WebBrowser>(this), heard](const QVariant& answer) {
        const EngineCall call;
        if (self && answer.typeId() == QMetaType::QString)
            heard(answer.toString());
    };
    m_page->runJavaScript(surfaceCall(QStringLiteral("edits()")), QWebEngineScript::ApplicationWorld,
                          answered);
}

void WebBrowser::forgetEdits()
{
    if (isEditable()) {
        m_page->runJavaScript(surfaceCall(QStringLiteral("forgetEdits()")),
                              QWebEngineScript::ApplicationWorld);
    }
}

bool WebBrowser::execCommand(const QString& id, const QString& value)
{
    const QString command = id.toLower();
    if (command == QLatin1String("copy"))
        return copySelection();
    if (command == QLatin1String("cut"))
        return copySelection() && execCommand(QStringLiteral("delete"));
    if (command == QLatin1String("paste"))
        return paste();
    return succeeds(QStringLiteral("execCommand(") + literal(id) + u',' + literal(value) + u')');
}

bool WebBrowser::copySelection()
{
    makeDocument();
    const QVariantList selection = call(QStringLiteral("selection()")).value_or(QVariant()).toList();
    if (selection.size() != 2 || selection.at(1).toString().isEmpty())
        return false;
    auto clip = std::make_unique<QMimeData>();
    clip->setText(selection.at(0).toString());
    clip->setHtml(selection.at(1).toString());
    doors().setClipboard(std::move(clip));
    return true;
}

bool WebBrowser::paste()
{
    const QMimeData* clip = doors().clipboard();
    return clip && insert(clip->text(), clip->html());
}

/// Inserts what comes from elsewhere at the caret, or at a place of the view. The cleaner is sent to a page
/// that has not got it yet.
bool WebBrowser::insert(const QString& text, const QString& html, std::optional<QPoint> place)
{
    if (text.isEmpty() && html.isEmpty())
        return false;
    if (!html.isEmpty() && !succeeds(QStringLiteral("canClean()")) &&
        !succeeds(QStringLiteral("cleanWith(") + cleanerScript() + u')'))
        return false;
    QString function = QStringLiteral("paste(") + literal(text) + u',' + literal(html);
    if (place) {
        const QPointF point = QPointF(*place) / m_page->zoomFactor();
        function += QStringLiteral(",[%1,%2]").arg(point.x()).arg(point.y());
    }
    m_length += html.size(); // what takes time
    return succeeds(function + u')');
}

/// Inserts what a drag or the mouse brings. The program that it comes from waits for neither page nor user.
void WebBrowser::insertSoon(const QMimeData& dropped, QPoint place)
{
    QTimer::singleShot(0, this, [this, text = dropped.text(), html = dropped.html(), place] {
        whenHandlersReturn([self = QPointer<WebBrowser>(this), text, html, place] {
            if (self)
                untilDeleted([&] { self->insert(text, html, place); });
        });
    });
}

QString WebBrowser::currentLink()
{
    makeDocument();
    return call(QStringLiteral("link()")).value_or(QVariant()).toString();
}

bool WebBrowser::setLink(const QString& address)
{
    return succeeds(QStringLiteral("setLink(") + literal(address) + u')');
}

FindResult WebBrowser::find(const QString& text, bool backwards, bool matchCase)
{
    makeDocument();
    if (text.isEmpty()) {
        m_page->findText(QString());
        return {};
    }
    if (m_revealTimer.isActive())
        reveal();
    QWebEnginePage::FindFlags flags;
    flags.setFlag(QWebEnginePage::FindBackward, backwards);
    flags.setFlag(QWebEnginePage::FindCaseSensitively, matchCase);
    const std::optional<QVariant> answer = ask([&](const auto& found) {
        m_page->findText(text, flags, [found](const QWebEngineFindTextResult& result) {
            found(QVariantList{result.numberOfMatches(), result.activeMatch()});
        });
    });
    const QVariantList counts = answer.value_or(QVariantList{0, 0}).toList();
    return {counts.at(0).toInt(), counts.at(1).toInt()};
}

// ---- Keys ------------------------------------------------------------------------------------------------

void WebBrowser::sendKeys(const QString& keys)
{
    setFocus();
    if (keys == QLatin1String("^k")) {
        emit linkRequested();
    } else if (keys == QLatin1String("^f")) {
        emit findRequested();
    } else {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
}

/// Whether a key is for the control or its page: all are but the window's shortcuts and access keys.
bool WebBrowser::takesKey(const QKeyEvent& key) const
{
    if (key.matches(QKeySequence::Find) || isLinkKey(key))
        return true;
    if (key.modifiers() == Qt::AltModifier && !key.text().isEmpty())
        return false; // comes back to the page where no access key is meant
    const QKeySequence sequence(key.keyCombination());
    const QList<QShortcut*> shortcuts = window()->findChildren<QShortcut*>();
    if (std::any_of(shortcuts.begin(), shortcuts.end(), [&](const QShortcut* shortcut) {
            return shortcut->isEnabled() && shortcut->keys().contains(sequence);
        }))
        return false;
    const QList<QAction*> actions = window()->findChildren<QAction*>();
    return std::none_of(actions.begin(), actions.end(), [&](const QAction* action) {
        return action->isEnabled() && action->shortcuts().contains(sequence);
    });
}

bool WebBrowser::isLinkKey(const QKeyEvent& key) const
{
    return m_designMode == DesignMode::On && key.keyCombination() == (Qt::CTRL | Qt::Key_K);
}

/// A design surface keeps the Tab key for the text, as the source box does, and is left with Ctrl+Tab or
/// Shift+Tab. A sample has no use for it.
bool WebBrowser::isLeavingKey(const QKeyEvent& key) const
{
    if (key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab)
        return false;
    return m_kind == WebPage::Kind::Sample || key.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
}

/// What the program does on a key of the page; false leaves the key to the page.
bool WebBrowser::actOnKey(const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Find)) {
        emit findRequested();
        return true;
    }
    if (isLinkKey(key)) {
        emit linkRequested();
        return true;
    }
    if (m_designMode == DesignMode::Off)
        return false;
    if (isLeavingKey(key)) {
        focusNextPrevChild(key.key() == Qt::Key_Tab && !(key.modifiers() & Qt::ShiftModifier));
        return true;
    }
    struct Command
    {
        QKeySequence::StandardKey sequence;
        Qt::Key key; // of its own, on some keyboards
        const char* name;
    };
    static const Command commands[] = {{QKeySequence::Cut, Qt::Key_Cut, "Cut"},
                                       {QKeySequence::Copy, Qt::Key_Copy, "Copy"},
                                       {QKeySequence::Paste, Qt::Key_Paste, "Paste"}};
    for (const auto& [sequence, ownKey, command] : commands) {
        if (key.matches(sequence) || key.key() == ownKey) {
            execCommand(QString::fromLatin1(command));
            return true;
        }
    }
    return false;
}

bool WebBrowser::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ChildAdded:
        if (QObject* child = static_cast<QChildEvent*>(event)->child();
            watched == m_view && child->isWidgetType())
            child->installEventFilter(this);
        break;
    case QEvent::FocusIn:
        if (!takesLetters())
            wakeCaret();
        break;
    case QEvent::ShortcutOverride: // decided here, or else the page and the window race for the key
        event->setAccepted(takesKey(*static_cast<QKeyEvent*>(event)));
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (m_deaf) {
            m_heldKeys.emplace_back(static_cast<QKeyEvent*>(event)->clone());
            return true;
        }
        if (event->type() == QEvent::KeyPress && actOnKey(*static_cast<QKeyEvent*>(event)))
            return true;
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (actOnMouse(mouse, placeIn(m_view, watched, mouse.position())))
            return true;
        break;
    }
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto& drop = *static_cast<QDropEvent*>(event);
        if (actOnDrop(drop, placeIn(m_view, watched, drop.position())))
            return true;
        break;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

/// The middle button brings what is selected in some window. False leaves the mouse to the page.
bool WebBrowser::actOnMouse(const QMouseEvent& mouse, QPoint place)
{
    if (m_designMode == DesignMode::Off || mouse.button() != Qt::MiddleButton)
        return false;
    const QMimeData* selection =
        mouse.type() == QEvent::MouseButtonRelease ? doors().selection() : nullptr;
    if (selection)
        insertSoon(*selection, place);
    return true;
}

/// What the program does on a drag; false leaves it to the page, to show where it would go, or to move what is
/// the page's own.
bool WebBrowser::actOnDrop(QDropEvent& event, QPoint place)
{
    if (!takesDrop(event)) {
        event.ignore();
        return true;
    }
    if (event.type() != QEvent::Drop || event.source() == m_view)
        return false;
    event.accept();
    QDragLeaveEvent leave; // takes the drop caret away
    QCoreApplication::sendEvent(m_view, &leave);
    insertSoon(*event.mimeData(), place);
    return true;
}

/// A design surface is edited by dragging too, unless a handler runs, which may be about to replace the text.
/// From elsewhere it takes text, but no files and addresses; all other pages are to be looked at.
bool WebBrowser::takesDrop(const QDropEvent& event) const
{
    if (handlersRun() || m_kind != WebPage::Kind::Document || m_designMode == DesignMode::Off)
        return false;
    return event.source() == m_view || (event.mimeData()->hasText() && !event.mimeData()->hasUrls());
}

/// Whether the page has told that it has a caret.
bool WebBrowser::takesLetters() const
{
    const QWidget* input = inputWidget();
    return input && input->testAttribute(Qt::WA_InputMethodEnabled);
}

/// A caret that was set before the focus or the page came leaves the view deaf to typed letters. Sets it anew
/// until not, and holds all keys meanwhile.
void WebBrowser::wakeCaret()
{
    if (m_designMode == DesignMode::Off)
        return;
    m_deaf = true;
    m_caretTries = CaretTries;
    m_caretTimer.start(0);
}

void WebBrowser::renewCaret()
{
    const QWidget* input = inputWidget();
    if (m_lost || m_content == Content::Nothing || !input) // the page that is to come wakes it
        return;
    if (m_caretTries == 0 || !input->hasFocus()) {
        sendHeldKeys();
        return;
    }
    --m_caretTries;
    m_page->runJavaScript(surfaceCall(QStringLiteral("renewCaret()")), QWebEngineScript::ApplicationWorld,
                          [self = QPointer<WebBrowser>(this)](const QVariant&) {
                              if (!self)
                                  return;
                              if (self->takesLetters())
                                  self->m_caretTries = 0;
                              self->m_caretTimer.start(CaretPause);
                          });
    m_caretTimer.start(SignOfLife);
}

void WebBrowser::sendHeldKeys()
{
    if (!canAct()) {
        m_caretTimer.start(BusyPause);
        return;
    }
    m_deaf = false;
    const QPointer<WebBrowser> self(this);
    for (const auto& key : std::exchange(m_heldKeys, {})) {
        if (self && inputWidget())
            QCoreApplication::sendEvent(inputWidget(), key.get());
    }
}

/// What the page has no use for comes back here in a call of the engine, and must not go on from there: what
/// the program does on a key may wait for the engine.
void WebBrowser::keyPressEvent(QKeyEvent* event)
{
    m_returnedKeys.emplace_back(event->clone());
    m_returnTimer.start(0);
}

void WebBrowser::keyReleaseEvent(QKeyEvent* event)
{
    keyPressEvent(event);
}

void WebBrowser::passOnReturnedKeys()
{
    if (!canAct()) {
        m_returnTimer.start(BusyPause);
        return;
    }
    const QPointer<QWidget> parent(parentWidget());
    for (const auto& key : std::exchange(m_returnedKeys, {})) {
        if (parent)
            QCoreApplication::sendEvent(parent, key.get());
    }
}

// ---- Navigation ------------------------------------------------------------------------------------------

void WebBrowser::tellStatus(const QString& text)
{
    m_status = text;
    emit statusTextChanged(text);
}

/// The address under the mouse covers the status until the mouse leaves it.
void WebBrowser::linkHovered(const QString& address)
{
    const bool wasOverLink = std::exchange(m_overLink, !address.isEmpty());
    if (m_overLink) {
        emit statusTextChanged(address);
    } else if (wasOverLink) {
        emit statusTextChanged(m_status);
    }
}

void WebBrowser::load(const QUrl& address, const std::function<void()>& begin)
{
    m_content = Content::Elsewhere;
    m_page->leaveFor(address);
    begin();
}

void WebBrowser::Navigate(const QString& address)
{
    const QString text = address.trimmed();
    if (text.isEmpty() || text == QLatin1String("about:blank")) {
        write(QString());
        return;
    }
    const QUrl url = addressOf(text);
    if (!url.isValid() || url.scheme() == QLatin1String("javascript")) {
        tellStatus(QStringLiteral("Not an address: %1").arg(text.left(LongestShown)));
        return;
    }
    if (!WebPage::isAllowed(m_kind, url)) {
        tellStatus(QStringLiteral("Not opened here: %1").arg(shownAddress(url)));
        return;
    }
    makeView();
    showLocalPictures(m_page, url.isLocalFile()); // those beside it
    load(url, [&] { m_page->load(url); });
}

QUrl WebBrowser::addressOf(const QString& text) const
{
    if (m_kind != WebPage::Kind::Internet)
        return QUrl::fromUserInput(text);
    // A name with a port looks like a scheme, but what follows is a number.
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:(?!\\d)"));
    const QUrl url(scheme.match(text).hasMatch() ? text : QStringLiteral("http://") + text);
    return url.scheme().startsWith(QLatin1String("http")) && url.host().isEmpty() ? QUrl() : url;
}

/// Goes to the nearest page; the empty one into which documents are written is no place to go to.
bool WebBrowser::step(const QList<QWebEngineHistoryItem>& nearestFirst)
{
    for (const QWebEngineHistoryItem& item : nearestFirst) {
        if (item.url() != blankAddress()) {
            load(item.url(), [&] { m_page->history()->goToItem(item); });
            return true;
        }
    }
    return false;
}

bool WebBrowser::GoBack()
{
    if (!m_page)
        return false;
    QList<QWebEngineHistoryItem> items = m_page->history()->backItems(m_page->history()->count());
    std::reverse(items.begin(), items.end());
    return step(items);
}

bool WebBrowser::GoForward()
{
    return m_page && step(m_page->history()->forwardItems(m_page->history()->count()));
}

void WebBrowser::Stop()
{
    if (!m_page)
        return;
    const bool wasLoading = m_page->isLoading();
    m_page->triggerAction(QWebEnginePage::Stop);
    m_page->arrived();
    emit progressChanged(0, 0);
    if (wasLoading)
        tellStatus(QStringLiteral("Stopped"));
    endIfDeaf();
}

/// Asks the page for a sign of life, without waiting for it.
void WebBrowser::endIfDeaf()
{
    if (m_lost)
        return;
    auto* patience = new QTimer(m_page);
    patience->setSingleShot(true);
    connect(patience, &QTimer::timeout, this, [this, patience] {
        if (!engineListens()) { // nor could the page
            patience->start(SignOfLife);
            return;
        }
        patience->deleteLater();
        if (!m_lost)
            untilDeleted([this] { endRenderer(); });
    });
    patience->start(SignOfLife);
    m_page->runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                          [timer = QPointer<QTimer>(patience)](const QVariant&) { delete timer; });
}

void WebBrowser::Refresh()
{
    if (m_content == Content::Elsewhere)
        load(m_page->url(), [this] { m_page->triggerAction(QWebEnginePage::Reload); });
}

void WebBrowser::loadingChanged(const QWebEngineLoadingInfo& info)
{
    if (m_content != Content::Elsewhere)
        return;
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        m_lost = false; // a page that has ended gets a new renderer
        tellStatus(QStringLiteral("Opening page %1").arg(shownAddress(info.url())));
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus: // by Stop, or by the next load, which goes on
        emit progressChanged(0, 0);
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
    case QWebEngineLoadingInfo::LoadFailedStatus:
        m_page->arrived();
        applyZoom();
        if (m_designMode == DesignMode::On) {
            m_page->runJavaScript(QStringLiteral("document.designMode = 'on'; ") + surfaceScript(),
                                  QWebEngineScript::ApplicationWorld);
        }
        emit progressChanged(0, 0);
        if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus) {
            tellStatus(QStringLiteral("Done"));
        } else if (!m_lost) { // the loss is told by itself
            tellStatus(
                QStringLiteral("The page %1 could not be opened").arg(shownAddress(info.url())));
        }
        emit navigationFinished(info.status() == QWebEngineLoadingInfo::LoadSucceededStatus);
        break;
    }
}

void WebBrowser::setZoomLevel(int level)
{
    m_zoomLevel = std::clamp(level, 0, static_cast<int>(std::size(ZoomFactors)) - 1);
    applyZoom();
}

/// A page in a new renderer begins at the normal size.
void WebBrowser::applyZoom()
{
    if (m_page)
        m_page->setZoomFactor(ZoomFactors[m_zoomLevel]);
}
