// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/WebPage.h"

#include "platform/Doors.h"
#include "platform/Events.h"
#include "web/WebEngine.h"

#include <QWebEngineCertificateError>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNewWindowRequest>
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#include <QWebEnginePermission>
#endif
#include <QWebEngineProfile>

namespace brindlemark {

namespace {

/// So that nobody takes the page's words for the program's.
const QString MessageTitle = QStringLiteral("Message of the page");

/// What a page of the internet shows in its frames is its own affair, as long as the engine itself shows it.
/// All else would be handed to another program.
bool isShownInFrames(const QUrl& address)
{
    static const QStringList schemes = {QStringLiteral("http"), QStringLiteral("https"),
                                        QStringLiteral("about"), QStringLiteral("data"),
                                        QStringLiteral("blob")};
    return schemes.contains(address.scheme());
}

} // namespace

QString shownAddress(const QUrl& address)
{
    constexpr qsizetype Longest = 200;
    const QString text = address.toDisplayString();
    return text.size() > Longest ? text.left(Longest) + QChar(0x2026) : text;
}

WebPage::WebPage(Kind kind, QObject* parent)
    : QWebEnginePage(kind == Kind::Internet ? internetProfile() : documentProfile(), parent), m_kind(kind)
{
    refuseFeatures();
    onInner(this, &QWebEnginePage::newWindowRequested, this, &WebPage::openInPlace);
}

void WebPage::refusePermissions()
{
    const QString sentence = QStringLiteral("Refused: the page asks for a permission");
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    onInner(this, &QWebEnginePage::permissionRequested, this,
            [this, sentence](const QWebEnginePermission& permission) {
                permission.deny();
                emit refused(sentence);
            });
#else
    onInner(this, &QWebEnginePage::featurePermissionRequested, this,
            [this, sentence](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
                emit refused(sentence);
            });
#endif
}

void WebPage::refuseFeatures()
{
    refusePermissions();
    onInner(profile(), &QWebEngineProfile::downloadRequested, this, [this](QWebEngineDownloadRequest* offer) {
        if (offer->page() == this) {
            emit refused(
                QStringLiteral("Refused: the page offers a file, %1").arg(offer->downloadFileName()));
        }
    });
    onInner(this, &QWebEnginePage::certificateError, this, [this](QWebEngineCertificateError error) {
        error.rejectCertificate();
        emit refused(QStringLiteral("Refused: the certificate of %1 is not valid").arg(error.url().host()));
    });
}

/// Windows are not opened. Where links are followed, one that asks for a window is followed in place; what a
/// script asks for unbidden is not.
void WebPage::openInPlace(QWebEngineNewWindowRequest& request)
{
    if (m_kind == Kind::Internet && request.isUserInitiated() && isAllowed(m_kind, request.requestedUrl())) {
        load(request.requestedUrl());
    } else {
        emit refused(QStringLiteral("Refused: the page asks for a window"));
    }
}

bool WebPage::isAddress(const QUrl& url)
{
    return url.isValid() && url.scheme() != QLatin1String("javascript");
}

bool WebPage::isAllowed(Kind kind, const QUrl& address)
{
    return kind != Kind::Internet || address.scheme() == QLatin1String("http") ||
           address.scheme() == QLatin1String("https");
}

bool WebPage::acceptNavigationRequest(const QUrl& address, NavigationType, bool mainFrame)
{
    return guardedCall([&] {
        if (m_target == blankAddress()) // whatever the page that is left wants meanwhile
            return address == m_target;
        if (m_kind == Kind::Internet) {
            if (mainFrame ? isAllowed(m_kind, address) : isShownInFrames(address))
                return true;
            emit refused(QStringLiteral("Not opened here: %1").arg(shownAddress(address)));
            return false;
        }
        if (m_target)
            return true;
        if (mainFrame)
            emit refused(QStringLiteral("Links are not followed here: %1").arg(shownAddress(address)));
        return false;
    });
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&)
{
    return guardedCall([&]() -> QStringList {
        emit refused(QStringLiteral("Refused: the page asks for files"));
        return {};
    });
}

/// A page may speak before the engine tells that it has arrived.
void WebPage::noteSpeaker(const QUrl& origin)
{
    constexpr auto Beyond =
        QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment;
    const QUrl speaker = origin.adjusted(Beyond);
    if (m_target && speaker == m_target->adjusted(Beyond) && speaker != url().adjusted(Beyond))
        arrived();
}

/// Whether a message of the page's scripts is shown. A page that goes on asking is answered by silence, or
/// nobody could ever leave it; so is any page while the program itself waits for an answer of the engine.
bool WebPage::mayAsk(const QUrl& origin)
{
    noteSpeaker(origin);
    constexpr int MostMessages = 10;
    return !EngineWait::isUnderWay() && !m_target && m_messages++ < MostMessages;
}

void WebPage::javaScriptAlert(const QUrl& origin, const QString& message)
{
    guardedCall([&] {
        if (!mayAsk(origin))
            return;
        const PageMessage standing;
        MsgBox(message, MessageTitle);
    });
}

bool WebPage::javaScriptConfirm(const QUrl& origin, const QString& message)
{
    return guardedCall([&] {
        noteSpeaker(origin);
        if (m_target) // the page's "do you want to leave?"
            return true;
        if (!mayAsk(origin))
            return false;
        const PageMessage standing;
        return MsgBox(message, MessageTitle, MsgIcon::None, MsgButtons::YesNo) == MsgAnswer::Yes;
    });
}

bool WebPage::javaScriptPrompt(const QUrl& origin, const QString& message, const QString& initial,
                               QString* answer)
{
    return guardedCall([&] {
        if (!mayAsk(origin))
            return false;
        const PageMessage standing;
        const std::optional<QString> text = doors().inputBox(message, MessageTitle, initial);
        *answer = text.value_or(QString());
        return text.has_value();
    });
}

// What a page's scripts write for their author is nothing for the user's terminal.
void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) {}

} // namespace brindlemark
