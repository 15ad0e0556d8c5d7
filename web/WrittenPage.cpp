// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/WrittenPage.h"

#include "platform/Events.h"
#include "web/SurfaceScript.h"
#include "web/WebEngine.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPointer>
#include <QWebEngineSettings>
#include <algorithm>

namespace brindlemark {

namespace {

/// How long the engine may take to come up, in milliseconds.
constexpr int StartLimit = 30000;

/// How often, and after what pause in milliseconds, the caret is set anew until the surface takes letters.
constexpr int CaretTries = 10;
constexpr int CaretPause = 30;
constexpr int RefocusAt = CaretTries - 3; // the second try had no effect

/// How long a page may take to set its caret before it is asked again, in milliseconds.
constexpr int CaretLimit = 2000;

/// How long keys may be on their way to the page, in milliseconds.
constexpr int KeysLimit = 250;

/// A key that no page has a use for: it comes back when the page has had all keys before it.
constexpr Qt::Key LastKey = Qt::Key_F24;

} // namespace

WrittenPage::WrittenPage(WebPage::Kind kind, QWidget* parent) : WebControl(kind, parent)
{
    for (QTimer* timer : {&m_documentTimer, &m_revealTimer, &m_caretTimer})
        timer->setSingleShot(true);
    onInner(&m_documentTimer, &QTimer::timeout, this, [this] {
        if (engineListens()) {
            untilDeleted([this] { showDocument(); });
        } else {
            m_documentTimer.start(BusyPause);
        }
    });
    onInner(&m_revealTimer, &QTimer::timeout, this, &WrittenPage::reveal);
    onInner(&m_caretTimer, &QTimer::timeout, this, &WrittenPage::renewCaret);
}

void WrittenPage::showEvent(QShowEvent* event)
{
    guardedCall([&] {
        WebControl::showEvent(event);
        makeView();
        m_documentTimer.start(0); // so that one can type into it
    });
}

bool WrittenPage::isEditable() const
{
    return m_designMode == DesignMode::On && content() == Content::Written && !isLost();
}

bool WrittenPage::runsScripts(DesignMode mode) const
{
    return kind() != WebPage::Kind::Sample && mode == DesignMode::Off;
}

// ---- Writing ---------------------------------------------------------------------------------------------

bool WrittenPage::takesPage() const
{
    return content() == Content::Written && !isLost() && m_openedFor == m_designMode && !scriptsRun();
}

QString WrittenPage::writeFunction(const QString& html)
{
    setLength(html.size());
    return QStringLiteral("write(") + literal(html) + QStringLiteral(", ") +
           literal(m_designMode == DesignMode::On) + u')';
}

bool WrittenPage::writePage(const QString& html)
{
    makeView();
    if (!engineListens()) // a page can't go while a message of it waits for the user
        return false;
    if (!openAndWrite(html)) {
        lossIsTold();
        return false;
    }
    m_revealTimer.start(0); // after what the same handler still asks
    wakeCaret();
    return true;
}

bool WrittenPage::openAndWrite(const QString& html)
{
    const QString function = writeFunction(html);
    bool ready = takesPage();
    setContent(Content::Written); // what waits for the view to be seen must not write into the same page
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!ready && !openBlankPage())
            return false;
        ready = false;
        const Answer written = call(function);
        if (written.isTrue())
            return true;
        if (written.gaveUp) // the next try would only take as long
            return false;
    }
    return false;
}

void WrittenPage::reveal()
{
    m_revealTimer.stop();
    if (isEditable())
        callSoon(QStringLiteral("reveal()"));
}

void WrittenPage::revealSoonest()
{
    if (m_revealTimer.isActive())
        reveal();
}

bool WrittenPage::openBlankPage()
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        m_openedFor = m_designMode;
        page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, scriptsRun());
        showLocalPictures(false);
        beginsToLoad();
        page()->triggerAction(QWebEnginePage::Stop); // a load still under way would replace what is written
        page()->leaveFor(blankAddress());
        page()->load(blankAddress()); // the same address again replaces its entry in the history
        const bool started = startBlankPage();
        page()->arrived();
        if (started) {
            applyZoom();
            return true;
        }
        if (!isLost())
            endRenderer();
    }
    return false;
}

/// Waits until the empty page is there. The end of an earlier load may come late and look like this one's.
bool WrittenPage::startBlankPage()
{
    const QDeadlineTimer deadline(rendererPid() > 0 ? limit() : std::max(StartLimit, limit()));
    while (!isLost() && !deadline.hasExpired()) {
        QEventLoop loop;
        onInner(page(), &QWebEnginePage::loadFinished, &loop, [&](bool ok) {
            if (ok && page()->url() == blankAddress())
                loop.quit();
        });
        wait(loop, int(deadline.remainingTime()));
        if (!deadline.hasExpired() &&
            callFirst(QStringLiteral("start(") + literal(m_openedFor == DesignMode::On) + u')').isTrue())
            return true;
    }
    return false;
}

// ---- The keyboard ----------------------------------------------------------------------------------------

void WrittenPage::focusCame()
{
    // What the view told of a caret may be of the page before this one.
    if (m_caretIsOld || !takesLetters())
        wakeCaret();
}

/// Whether the page has told that it has a caret.
bool WrittenPage::takesLetters() const
{
    const QWidget* input = inputWidget();
    return input && input->testAttribute(Qt::WA_InputMethodEnabled);
}

/// A caret that was set before the focus or the page came leaves the view deaf to typed letters. Sets it anew
/// until the view takes letters, and holds all keys meanwhile.
void WrittenPage::wakeCaret()
{
    if (m_designMode == DesignMode::Off)
        return;
    m_deaf = m_caretIsOld = true;
    m_caretTries = CaretTries;
    m_caretTimer.start(0);
}

void WrittenPage::renewCaret()
{
    const QWidget* input = inputWidget();
    if (isLost() || content() == Content::Nothing || !input) // the next page wakes the caret
        return;
    if (m_caretTries == 0 || !input->hasFocus()) {
        sendHeldKeys();
        return;
    }
    if (--m_caretTries == RefocusAt)
        tellFocusAnew();
    callSoon(QStringLiteral("renewCaret()"), [self = QPointer<WrittenPage>(this)](const QVariant&) {
        if (!self)
            return;
        self->m_caretIsOld = false;
        if (self->takesLetters())
            self->m_caretTries = 0;
        self->m_caretTimer.start(CaretPause);
    });
    m_caretTimer.start(CaretLimit);
}

/// Where the desktop stacks the windows, the engine may miss that the page of a window which has come back
/// has the keyboard.
void WrittenPage::tellFocusAnew()
{
    const int tries = m_caretTries;
    for (const QEvent::Type type : {QEvent::FocusOut, QEvent::FocusIn}) {
        QFocusEvent event(type);
        QCoreApplication::sendEvent(inputWidget(), &event);
    }
    m_caretTries = tries; // not begun anew
}

void WrittenPage::sendHeldKeys()
{
    if (!canAct()) {
        m_caretTimer.start(BusyPause);
        return;
    }
    m_deaf = false;
    m_heldKeys.sendTo(inputWidget());
}

bool WrittenPage::takesOver(const QKeyEvent& key)
{
    if (m_keysAreThere)
        return false;
    if (m_deaf) {
        m_heldKeys.hold(key);
        return true;
    }
    const bool taken = WebControl::takesOver(key);
    if (!taken && key.type() == QEvent::KeyPress)
        m_typed = true;
    return taken;
}

void WrittenPage::waitForCaret()
{
    const QDeadlineTimer deadline(CaretLimit);
    while (m_caretTries > 0 && !isLost() && engineListens() && !deadline.hasExpired()) {
        if (const QWidget* input = inputWidget(); !input || !input->hasFocus())
            return;
        QEventLoop loop;
        wait(loop, CaretPause);
    }
}

/// Keys and questions take two ways to the page, of which either may be the faster one.
void WrittenPage::waitForKeys()
{
    QWidget* input = inputWidget();
    if (!m_typed || m_keysAreThere || !input || !input->isVisible() || isLost() || !engineListens())
        return; // the engine gives no keys to a page that is out of sight
    QEventLoop loop;
    m_keysAreThere = &loop;
    QKeyEvent last(QEvent::KeyPress, LastKey, Qt::NoModifier);
    QCoreApplication::sendEvent(input, &last);
    m_typed = false;
    wait(loop, KeysLimit);
}

void WrittenPage::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        if (event->key() == LastKey && m_keysAreThere) {
            m_keysAreThere->quit();
        } else {
            WebControl::keyPressEvent(event);
        }
    });
}

bool WrittenPage::isTab(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
}

void WrittenPage::leaveBy(const QKeyEvent& tab)
{
    focusNextPrevChild(tab.key() == Qt::Key_Tab && !(tab.modifiers() & Qt::ShiftModifier));
}

} // namespace brindlemark
