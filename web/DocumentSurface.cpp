// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/DocumentSurface.h"

#include "platform/Doors.h"
#include "platform/Events.h"
#include "web/SurfaceScript.h"
#include "web/WebEngine.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMimeData>
#include <QMouseEvent>
#include <QPageLayout>
#include <QPointer>
#include <QUrl>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineFindTextResult>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <utility>

namespace brindlemark {

namespace {

/// Says on the clipboard that a surface has copied its HTML.
QString ownFormat()
{
    return QStringLiteral("application/x-brindlemark-page");
}

/// A paste that is to be clean keeps the looks of what a surface has copied.
PasteWay wayOf(const QMimeData& clip, PasteWay wanted)
{
    return wanted == PasteWay::Clean && clip.hasFormat(ownFormat()) ? PasteWay::WithLooks : wanted;
}

/// What `steps` of surface.js tells.
SurfaceSteps stepsOf(const QVariant& told)
{
    const QVariantList parts = told.toList();
    return {parts.value(0).toBool(), parts.value(1).toString(), parts.value(2).toBool(),
            parts.value(3).toString()};
}

} // namespace

DocumentSurface::DocumentSurface(QWidget* parent) : WrittenPage(WebPage::Kind::Document, parent)
{
    m_comingTimer.setSingleShot(true);
    onInner(&m_comingTimer, &QTimer::timeout, this, &DocumentSurface::takeComing);
}

DocumentSurface::~DocumentSurface()
{
    delete releaseComing().page;
    endView();
}

void DocumentSurface::setDesignMode(DesignMode mode)
{
    if (mode == designMode())
        return;
    dropComing();
    const bool rewrite = content() == Content::Written;
    const QString html = rewrite ? innerHtml() : QString();
    setPageDesign(mode);
    if (rewrite && !writePage(html))
        throw SurfaceLost();
}

// ---- The document ----------------------------------------------------------------------------------------

void DocumentSurface::warmUp()
{
    makeView();
}

bool DocumentSurface::write(const QString& html)
{
    dropComing();
    // An empty document needs no page until it is seen.
    const bool isSeen = isVisible() || isLost();
    if (html.isEmpty() && content() == Content::Nothing && !(page() && isSeen))
        return true;
    return writePage(html);
}

/// An empty document, where there is none yet.
void DocumentSurface::makeDocument()
{
    if (content() == Content::Nothing && !isLost() && engineListens())
        static_cast<void>(writePage(QString())); // where that fails, the next question to the page tells
}

void DocumentSurface::showDocument()
{
    if (hasDocument()) {
        makeDocument();
    } else {
        static_cast<void>(writePage(QString())); // as in `makeDocument`
    }
}

QString DocumentSurface::innerHtml()
{
    makeDocument();
    waitForKeys();
    const Answer html = call(QStringLiteral("innerHtml(") + literal(scriptsRun()) + u')');
    if (!html.value || html.value->typeId() != QMetaType::QString) {
        lossIsTold();
        throw SurfaceLost();
    }
    setLength(html.value->toString().size());
    return html.value->toString();
}

void DocumentSurface::readEdits(const std::function<void(const QString& html)>& heard)
{
    if (!isEditable() || EngineWait::isUnderWay())
        return;
    callSoon(QStringLiteral("edits()"),
             [self = QPointer<DocumentSurface>(this), heard](const QVariant& html) {
                 const EngineCall call;
                 if (self && html.typeId() == QMetaType::QString)
                     heard(html.toString());
             });
}

void DocumentSurface::forgetEdits()
{
    if (isEditable())
        callSoon(QStringLiteral("forgetEdits()"));
}

void DocumentSurface::Navigate(const QString& address)
{
    const QString text = address.trimmed();
    if (text.isEmpty() || text == QLatin1String("about:blank")) {
        static_cast<void>(write(QString())); // nothing is to be seen either way
        return;
    }
    const QUrl url = QUrl::fromUserInput(text);
    if (!WebPage::isAddress(url)) {
        tellNoAddress(text);
        return;
    }
    const bool isPlaceInPage =
        content() == Content::Loaded && url.hasFragment() && url.matches(page()->url(), QUrl::RemoveFragment);
    const bool hasText = designMode() == DesignMode::On || length() > 0;
    if (hasText && !isPlaceInPage) {
        fetch(url);
    } else {
        dropComing();
        open(url); // nothing can be lost
    }
}

/// The engine puts a page of its own in the place of one that it can't load; so the load goes on in a page
/// that nobody sees, until it is known what comes.
void DocumentSurface::fetch(const QUrl& address)
{
    dropComing();
    makeView();
    auto* coming = new WebPage(kind(), this);
    m_coming = {.page = coming, .address = address};
    coming->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, runsScripts(designMode()));
    coming->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls,
                                     address.isLocalFile());
    onInner(coming, &QWebEnginePage::loadingChanged, this, [this](const QWebEngineLoadingInfo& info) {
        const EngineCall call;
        comingChanged(info);
    });
    onInner(coming, &QWebEnginePage::urlChanged, this, [this] {
        const EngineCall call;
        seeWhatCame();
    });
    onInner(coming, &WebPage::refused, this, [this](const QString& sentence) {
        const EngineCall call;
        tellStatus(sentence);
        m_coming.isRefused = true;
        if (m_coming.isStopped)
            dropComing();
    });
    onInner(coming, &QWebEnginePage::renderProcessTerminated, this, [this] {
        const EngineCall call;
        comesNot();
    });
    coming->leaveFor(address);
    coming->load(address);
}

void DocumentSurface::comingChanged(const QWebEngineLoadingInfo& info)
{
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        if (!info.isErrorPage())
            tellOpening(info.url());
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        if (info.isErrorPage()) {
            comesNot();
        } else {
            m_coming.isThere = m_coming.isDone = true;
            m_comingTimer.start(0);
        }
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus: // it is a download, of which the engine tells apart, or
                                                   // empty
        m_coming.isStopped = !m_coming.isThere;
        if (m_coming.isStopped && m_coming.isRefused) {
            dropComing();
            emit navigationFinished(false);
        } else if (m_coming.isStopped) {
            tellFailure(m_coming.address);
        }
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        if (m_coming.isThere) {
            m_coming.isDone = true;
        } else {
            comesNot();
        }
        break;
    }
}

/// Something has begun to come: the page, of which the rest may take its time, or the engine's own.
void DocumentSurface::seeWhatCame()
{
    m_coming.page->arrived(); // from here on it speaks for itself
    m_coming.page->runJavaScript(
        QStringLiteral("location.protocol"), QWebEngineScript::ApplicationWorld,
        [self = QPointer<DocumentSurface>(this), page = m_coming.page](const QVariant& protocol) {
            const EngineCall call;
            const QString text = protocol.toString();
            if (self && self->m_coming.page == page && !text.isEmpty() &&
                text != QLatin1String("chrome-error:")) {
                self->m_coming.isThere = true;
                self->m_comingTimer.start(0);
            }
        });
}

/// Shows the page that has come, when nobody waits for an answer of the present one.
void DocumentSurface::takeComing()
{
    if (!m_coming.isThere)
        return;
    if (!canAct()) {
        m_comingTimer.start(BusyPause);
        return;
    }
    const Coming come = releaseComing();
    takePage(come.page);
    applyZoom();
    arrived();
    if (come.isDone)
        loadIsDone(true, come.address);
    if (come.address.hasFragment())
        open(come.address); // its place was sought in a page without a size
}

void DocumentSurface::comesNot()
{
    const Coming gone = m_coming;
    dropComing();
    if (!gone.isStopped)
        tellFailure(gone.address);
}

void DocumentSurface::tellFailure(const QUrl& address)
{
    tellNotOpened(address);
    emit navigationFinished(false);
}

/// Goes nowhere any more.
void DocumentSurface::dropComing()
{
    if (WebPage* page = releaseComing().page)
        page->deleteLater();
}

/// The page that is coming is the caller's from here on.
DocumentSurface::Coming DocumentSurface::releaseComing()
{
    m_comingTimer.stop();
    Coming given = std::exchange(m_coming, {});
    if (given.page)
        given.page->disconnect(this);
    return given;
}

void DocumentSurface::arrived()
{
    if (designMode() == DesignMode::On)
        evaluateSoon(QStringLiteral("document.designMode = 'on'; ") + surfaceScript());
}

// ---- Editing ---------------------------------------------------------------------------------------------

bool DocumentSurface::isPatient() const
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&DocumentSurface::waitsLong);
    return isEditable() && isSignalConnected(signal);
}

/// What the user has edited is handed on before something that may take long and be stopped.
void DocumentSurface::readEditsAhead(qsizetype pasted)
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&DocumentSurface::editsRead);
    if (!isEditable() || !isSignalConnected(signal))
        return;
    waitForKeys();
    const QVariant html = call(QStringLiteral("editsAhead(%1)").arg(pasted)).value.value_or(QVariant());
    if (html.typeId() == QMetaType::QString)
        emit editsRead(html.toString());
}

bool DocumentSurface::succeeds(const QString& function)
{
    makeDocument();
    waitForCaret();
    waitForKeys();
    return call(function).isTrue();
}

bool DocumentSurface::execCommand(const QString& id, const QString& value)
{
    const QString command = id.toLower();
    if (command == QLatin1String("copy"))
        return copySelection();
    if (command == QLatin1String("cut"))
        return copySelection() && execCommand(QStringLiteral("delete"));
    if (command == QLatin1String("paste"))
        return paste(PasteWay::Clean);
    readEditsAhead();
    return succeeds(QStringLiteral("execCommand(") + literal(id) + u',' + literal(value) + u')');
}

bool DocumentSurface::copySelection()
{
    makeDocument();
    waitForKeys();
    const QVariantList selection = call(QStringLiteral("selection()")).value.value_or(QVariant()).toList();
    if (selection.size() != 2 || selection.at(1).toString().isEmpty())
        return false;
    auto clip = std::make_unique<QMimeData>();
    clip->setText(selection.at(0).toString());
    clip->setHtml(selection.at(1).toString());
    clip->setData(ownFormat(), "1"); // a format without data may get lost on the way
    doors().setClipboard(std::move(clip));
    return true;
}

bool DocumentSurface::paste(PasteWay way)
{
    const QMimeData* clip = doors().clipboard();
    return clip && insert(clip->text(), clip->html(), wayOf(*clip, way));
}

/// Sends the cleaner to a page that has not got it yet.
bool DocumentSurface::canClean()
{
    return succeeds(QStringLiteral("canClean()")) ||
           succeeds(QStringLiteral("cleanWith(") + cleanerScript() + u')');
}

QString DocumentSurface::cleaned(const QMimeData& clip)
{
    return cleaned(clip.text(), clip.html(), wayOf(clip, PasteWay::Clean));
}

QString DocumentSurface::cleaned(const QString& text, const QString& html, PasteWay way)
{
    if (html.isEmpty() || !canClean())
        return QString();
    const qsizetype pageLength = length();
    setLength(pageLength + html.size()); // as in `insert`, but the page stays as long as it is
    const Answer answer = call(QStringLiteral("cleaned(") + literal(text) + u',' + literal(html) + u',' +
                               literal(way == PasteWay::WithLooks) + u')');
    setLength(pageLength);
    return answer.value.value_or(QVariant()).toString();
}

/// Inserts what comes from elsewhere at the caret, or at a place of the view.
bool DocumentSurface::insert(const QString& text, const QString& content, PasteWay way,
                             std::optional<QPoint> place)
{
    const QString html = way == PasteWay::AsText ? QString() : content;
    if (text.isEmpty() && html.isEmpty())
        return false;
    if (!html.isEmpty() && !canClean())
        return false;
    readEditsAhead(text.size() + html.size());
    QString function = QStringLiteral("paste(") + literal(text) + u',' + literal(html) + u',' +
                       literal(way == PasteWay::WithLooks);
    if (place) {
        const QPointF point = QPointF(*place) / page()->zoomFactor();
        function += QStringLiteral(",[%1,%2]").arg(point.x()).arg(point.y());
    }
    setLength(length() + html.size()); // longer HTML gets more time
    return succeeds(function + u')');
}

/// Inserts what a drag or the mouse brings. The program that it comes from waits for neither page nor user.
void DocumentSurface::insertSoon(const QMimeData& dropped, QPoint place)
{
    soon(this, [this, text = dropped.text(), html = dropped.html(), place] {
        whenHandlersReturn([self = QPointer<DocumentSurface>(this), text, html, place] {
            if (self) {
                untilDeleted([&] {
                    static_cast<void>(self->insert(text, html, PasteWay::Clean, place)); // the user sees it
                });
            }
        });
    });
}

QString DocumentSurface::currentLink()
{
    makeDocument();
    waitForKeys();
    return call(QStringLiteral("link()")).value.value_or(QVariant()).toString();
}

bool DocumentSurface::setLink(const QString& address)
{
    return succeeds(QStringLiteral("setLink(") + literal(address) + u')');
}

FindResult DocumentSurface::find(const QString& text, bool backwards, bool matchCase)
{
    makeDocument();
    if (text.isEmpty()) {
        page()->findText(QString());
        return {};
    }
    waitForCaret(); // a search goes on from where the selection is
    revealSoonest();
    QWebEnginePage::FindFlags flags;
    flags.setFlag(QWebEnginePage::FindBackward, backwards);
    flags.setFlag(QWebEnginePage::FindCaseSensitively, matchCase);
    QObject search; // a page that is only coming forgets what it was asked
    const Answer answer = ask([&](const auto& found) {
        const auto begin = [this, text, flags, found] {
            page()->findText(text, flags, [found](const QWebEngineFindTextResult& result) {
                found(QVariantList{result.numberOfMatches(), result.activeMatch()});
            });
        };
        onInner(page(), &QWebEnginePage::loadFinished, &search, begin);
        begin();
    });
    const QVariantList counts = answer.value.value_or(QVariantList{0, 0}).toList();
    return {counts.at(0).toInt(), counts.at(1).toInt()};
}

void DocumentSurface::menuAsked(const QWebEngineContextMenuRequest& request, QPoint place)
{
    if (!isEditable())
        return;
    SurfaceMenu menu{place, request.misspelledWord(), request.spellCheckerSuggestions(), {}};
    // Whoever waits for the page here keeps the engine from looking at its words.
    readSteps([this, menu](const SurfaceSteps& steps) mutable {
        menu.steps = steps;
        soon(this, [this, menu] { emit menuWanted(menu); });
    });
}

void DocumentSurface::replaceMisspelt(const QString& word)
{
    if (isEditable())
        page()->replaceMisspelledWord(word);
}

QString DocumentSurface::selectedText()
{
    makeDocument();
    waitForKeys();
    return call(QStringLiteral("selection()")).value.value_or(QVariant()).toList().value(0).toString();
}

bool DocumentSurface::changeSelection(const std::function<QString(const QString&)>& change)
{
    makeDocument();
    waitForKeys();
    const QString text = call(QStringLiteral("selectedLetters()")).value.value_or(QVariant()).toString();
    return !text.isEmpty() && succeeds(QStringLiteral("replaceLetters(") + literal(change(text)) + u')');
}

SurfaceLetters DocumentSurface::letters()
{
    makeDocument();
    waitForKeys();
    const QVariantList told = call(QStringLiteral("letters()")).value.value_or(QVariant()).toList();
    return {told.value(0).toString(), told.value(1).toLongLong()};
}

LetterPlace DocumentSurface::caret()
{
    makeDocument();
    waitForKeys();
    const QVariantList told = call(QStringLiteral("caret()")).value.value_or(QVariant()).toList();
    return {told.value(0).toLongLong(), told.value(1).toBool()};
}

void DocumentSurface::setCaretSoon(const LetterPlace& place)
{
    if (hasDocument())
        callSoon(QStringLiteral("setCaret(%1, %2)").arg(place.letters).arg(literal(place.isBehind)));
}

SurfaceSteps DocumentSurface::steps()
{
    makeDocument();
    waitForKeys();
    return stepsOf(call(QStringLiteral("steps()")).value.value_or(QVariant()));
}

void DocumentSurface::readSteps(const std::function<void(const SurfaceSteps& steps)>& heard)
{
    if (content() == Content::Nothing || isLost())
        return;
    callSoon(QStringLiteral("steps()"),
             [self = QPointer<DocumentSurface>(this), heard](const QVariant& told) {
                 const EngineCall call;
                 if (self && told.isValid())
                     heard(stepsOf(told));
             });
}

bool DocumentSurface::selectLetters(qsizetype start, qsizetype end)
{
    return succeeds(QStringLiteral("selectLetters(%1, %2)").arg(start).arg(end));
}

// ---- On paper --------------------------------------------------------------------------------------------

void DocumentSurface::layOutForPaper()
{
    makeDocument();
    waitForKeys();
    static_cast<void>(call(isEditable() ? QStringLiteral("reveal()") : QStringLiteral("link()")));
}

/// The engine ends the program with a renderer that is ended over a print (Qt 6.4). So the page is asked
/// something first, which ends one that hangs, and a print has all the time that it takes.
QByteArray DocumentSurface::pdf(const QPageLayout& paper)
{
    layOutForPaper();
    const Answer answer = askAtLength([&](const auto& made) {
        page()->printToPdf([made](const QByteArray& bytes) { made(bytes); }, paper);
    });
    if (!answer.value || isLost()) {
        lossIsTold();
        throw SurfaceLost();
    }
    if (answer.value->toByteArray().isEmpty())
        throw RuntimeError(ErrorNumber::PathFileAccess, QStringLiteral("The page could not be printed"));
    return answer.value->toByteArray();
}

// ---- Keys and drops --------------------------------------------------------------------------------------

void DocumentSurface::sendKeys(const QString& keys)
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

bool DocumentSurface::isLinkKey(const QKeyEvent& key) const
{
    return designMode() == DesignMode::On && key.keyCombination() == (Qt::CTRL | Qt::Key_K);
}

bool DocumentSurface::takesKey(const QKeyEvent& key) const
{
    return key.matches(QKeySequence::Find) || isLinkKey(key) || WrittenPage::takesKey(key);
}

bool DocumentSurface::actOnKey(const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Find)) {
        emit findRequested();
        return true;
    }
    if (designMode() == DesignMode::Off)
        return false;
    if (isLinkKey(key)) {
        emit linkRequested();
        return true;
    }
    if (key.keyCombination() == (Qt::CTRL | Qt::SHIFT | Qt::Key_V)) {
        static_cast<void>(paste(PasteWay::AsText)); // the user sees it
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
            // Never the engine's own command, even with nothing to copy.
            static_cast<void>(execCommand(QString::fromLatin1(command)));
            return true;
        }
    }
    // The Tab key is for the text, as in the source box, and the surface is left with Ctrl+Tab or Shift+Tab.
    const bool leaves = isTab(key) && key.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    if (leaves)
        leaveBy(key);
    return leaves;
}

/// The middle button brings what is selected in some window.
bool DocumentSurface::actOnMouse(const QMouseEvent& mouse, QPoint place)
{
    if (designMode() == DesignMode::Off || mouse.button() != Qt::MiddleButton)
        return false;
    const QMimeData* selection = mouse.type() == QEvent::MouseButtonRelease ? doors().selection() : nullptr;
    if (selection)
        insertSoon(*selection, place);
    return true;
}

/// Leaves it to the page to show where a drag would go and to move its own text; takes drops from elsewhere
/// itself.
bool DocumentSurface::actOnDrop(QDropEvent& event, QPoint place)
{
    if (!takesDrop(event)) {
        event.ignore();
        return true;
    }
    if (event.type() != QEvent::Drop || isOwnDrag(event))
        return false;
    event.accept();
    endDrag();
    insertSoon(*event.mimeData(), place);
    return true;
}

/// A design surface is edited by dragging too, unless a handler runs, which may be about to replace the text.
/// From elsewhere it takes text, but no files and addresses; all other pages are to be looked at.
bool DocumentSurface::takesDrop(const QDropEvent& event) const
{
    if (handlersRun() || designMode() == DesignMode::Off)
        return false;
    return isOwnDrag(event) || (event.mimeData()->hasText() && !event.mimeData()->hasUrls());
}

} // namespace brindlemark
