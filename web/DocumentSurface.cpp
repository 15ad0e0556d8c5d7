#include "web/DocumentSurface.h"

#include "platform/Doors.h"
#include "web/SurfaceScript.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWebEngineFindTextResult>
#include <QWebEngineScript>
#include <utility>

DocumentSurface::DocumentSurface(QWidget* parent) : WrittenPage(WebPage::Kind::Document, parent) {}

void DocumentSurface::setDesignMode(DesignMode mode)
{
    if (mode == designMode())
        return;
    const bool rewrite = content() == Content::Written;
    const QString html = rewrite ? innerHtml() : QString();
    setPageDesign(mode);
    if (rewrite && !writePage(html))
        throw SurfaceLost();
}

// ---- The document ----------------------------------------------------------------------------------------

bool DocumentSurface::write(const QString& html)
{
    if (!page() && html.isEmpty()) // an empty document needs no view until it is seen
        return true;
    return writePage(html);
}

/// An empty document, where there is none yet.
void DocumentSurface::makeDocument()
{
    if (content() == Content::Nothing && !isLost())
        writePage(QString());
}

void DocumentSurface::showDocument()
{
    if (hasDocument()) {
        makeDocument();
    } else {
        writePage(QString());
    }
}

QString DocumentSurface::innerHtml()
{
    makeDocument();
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
    if (!isEditable() || isAnyWaiting())
        return;
    callSoon(QStringLiteral("edits()"), [self = QPointer<DocumentSurface>(this), heard](const QVariant& html) {
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
        write(QString());
        return;
    }
    const QUrl url = QUrl::fromUserInput(text);
    if (isAddress(url)) {
        open(url);
    } else {
        tellNoAddress(text);
    }
}

void DocumentSurface::arrived()
{
    if (designMode() == DesignMode::On)
        evaluateSoon(QStringLiteral("document.designMode = 'on'; ") + surfaceScript());
}

// ---- Editing ---------------------------------------------------------------------------------------------

bool DocumentSurface::succeeds(const QString& function)
{
    makeDocument();
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
        return paste();
    return succeeds(QStringLiteral("execCommand(") + literal(id) + u',' + literal(value) + u')');
}

bool DocumentSurface::copySelection()
{
    makeDocument();
    const QVariantList selection = call(QStringLiteral("selection()")).value.value_or(QVariant()).toList();
    if (selection.size() != 2 || selection.at(1).toString().isEmpty())
        return false;
    auto clip = std::make_unique<QMimeData>();
    clip->setText(selection.at(0).toString());
    clip->setHtml(selection.at(1).toString());
    doors().setClipboard(std::move(clip));
    return true;
}

bool DocumentSurface::paste()
{
    const QMimeData* clip = doors().clipboard();
    if (!clip || !(clip->hasText() || clip->hasHtml()))
        return false;
    return succeeds(QStringLiteral("paste(") + literal(clip->text()) + u',' + literal(clip->html()) + u')');
}

QString DocumentSurface::currentLink()
{
    makeDocument();
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
    revealSoonest();
    QWebEnginePage::FindFlags flags;
    flags.setFlag(QWebEnginePage::FindBackward, backwards);
    flags.setFlag(QWebEnginePage::FindCaseSensitively, matchCase);
    const Answer answer = ask([&](const auto& found) {
        page()->findText(text, flags, [found](const QWebEngineFindTextResult& result) {
            found(QVariantList{result.numberOfMatches(), result.activeMatch()});
        });
    });
    const QVariantList counts = answer.value.value_or(QVariantList{0, 0}).toList();
    return {counts.at(0).toInt(), counts.at(1).toInt()};
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
    static const std::pair<QKeySequence::StandardKey, const char*> commands[] = {
        {QKeySequence::Cut, "Cut"}, {QKeySequence::Copy, "Copy"}, {QKeySequence::Paste, "Paste"}};
    for (const auto& [sequence, command] : commands) {
        if (key.matches(sequence)) {
            execCommand(QString::fromLatin1(command));
            return true;
        }
    }
    // The Tab key is for the text, as in the source box, and the surface is left with Ctrl+Tab or Shift+Tab.
    const bool leaves = isTab(key) && key.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    if (leaves)
        leaveBy(key);
    return leaves;
}

/// A design surface is edited by dragging too. From elsewhere it takes text, but no files and addresses; all
/// other pages are to be looked at.
bool DocumentSurface::takesDrop(const QDropEvent& event) const
{
    if (designMode() == DesignMode::Off)
        return false;
    return isOwnDrag(event) || (event.mimeData()->hasText() && !event.mimeData()->hasUrls());
}
