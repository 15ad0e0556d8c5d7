// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/Sample.h"

#include "platform/Events.h"
#include "web/WebEngine.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScopeGuard>
#include <utility>

namespace brindlemark {

namespace {

/// How often the same page is shown again when its renderer ends.
constexpr int MostTries = 3;

} // namespace

Sample::Sample(QWidget* parent) : WrittenPage(WebPage::Kind::Sample, parent)
{
    m_writeTimer.setSingleShot(true);
    onInner(&m_writeTimer, &QTimer::timeout, this, [this] { untilDeleted([this] { writeNext(); }); });
}

Sample::~Sample()
{
    endView();
}

void Sample::setDesignMode(DesignMode mode)
{
    if (mode == designMode())
        return;
    setPageDesign(mode);
    if (content() == Content::Written)
        writeSoon(m_sample);
}

void Sample::writeSoon(const QString& html)
{
    m_sample = html;
    m_next = html;
    m_tries = MostTries;
    if (m_writing != Writing::Engine)
        m_writeTimer.start(0);
}

void Sample::showDocument()
{
    if (!m_next && (content() == Content::Nothing || renderer() == Renderer::Missed))
        m_next = m_sample;
    writeNext();
}

void Sample::writeNext()
{
    if (!m_next || m_writing != Writing::Nobody)
        return;
    if (!engineListens()) {
        m_writeTimer.start(BusyPause);
        return;
    }
    const QString html = *std::exchange(m_next, std::nullopt);
    if (!takesPage()) {
        writeAndWait(html);
        return;
    }
    m_writing = Writing::Engine;
    callSoon(writeFunction(html), [self = QPointer<Sample>(this)](const QVariant& taken) {
        if (self)
            self->pageIsThere(taken.toBool());
    });
    reveal();
}

/// Writes into a new empty page and waits for it. Another page may be given meanwhile.
void Sample::writeAndWait(const QString& html)
{
    Q_ASSERT(m_writing == Writing::Nobody);
    const bool written = [&] {
        m_writing = Writing::Control;
        const auto done = qScopeGuard([self = QPointer<Sample>(this)] {
            if (self) // it may be deleted while it waits
                self->m_writing = Writing::Nobody;
        });
        return writePage(html);
    }();
    if (!written)
        showAgain();
    if (m_next) {
        m_writeTimer.start(0);
    } else if (written) {
        pageShown();
    }
}

/// The engine has answered; not taken: the renderer ended first, and the news of it may be still to come.
void Sample::pageIsThere(bool taken)
{
    if (!taken && m_writing == Writing::Engine) {
        setContent(Content::Nothing);
        showAgain();
    }
    if (m_writing == Writing::Engine)
        m_writing = Writing::Nobody;
    if (m_next) {
        m_writeTimer.start(0);
    } else if (taken) {
        pageShown();
    }
}

void Sample::rendererEnded()
{
    WrittenPage::rendererEnded();
    if (m_writing == Writing::Control) // `writeAndWait` tries again
        return;
    m_writing = Writing::Nobody; // nobody will say that the page is there
    showAgain();
}

/// Shows a page again that was lost with its renderer, a few times at most: one that ends every renderer
/// stays away.
void Sample::showAgain()
{
    if (!m_next && m_tries-- > 0)
        m_next = m_sample;
    if (m_next)
        m_writeTimer.start(0);
}

/// A sample that can be edited takes neither the Tab key nor pastes.
bool Sample::actOnKey(const QKeyEvent& key)
{
    if (designMode() == DesignMode::Off)
        return false;
    if (isTab(key))
        leaveBy(key);
    return isTab(key) || key.matches(QKeySequence::Paste) || key.key() == Qt::Key_Paste;
}

/// The middle button would paste.
bool Sample::actOnMouse(const QMouseEvent& mouse, QPoint)
{
    return designMode() == DesignMode::On && mouse.button() == Qt::MiddleButton;
}

} // namespace brindlemark
