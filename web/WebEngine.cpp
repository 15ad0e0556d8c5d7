// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/WebEngine.h"

#include "platform/Events.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QStandardPaths>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <QWebEngineUrlSchemeHandler>
#include <QtWebEngineCore/qtwebenginecoreglobal.h>
#include <unistd.h>

namespace brindlemark {

namespace {

constexpr char BlankScheme[] = "surface";

/// Serves the empty page.
class BlankPage : public QWebEngineUrlSchemeHandler
{
public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    void requestStarted(QWebEngineUrlRequestJob* job) override
    {
        guardedCall([&] {
            if (job->requestUrl() != blankAddress()) {
                job->fail(QWebEngineUrlRequestJob::UrlNotFound);
                return;
            }
            auto* page = new QBuffer(job);
            page->setData(QByteArrayLiteral("<html><head></head><body></body></html>"));
            page->open(QIODevice::ReadOnly);
            job->reply(QByteArrayLiteral("text/html"), page);
        });
    }
};

/// Lets through the page itself, its pictures, and its styles unless they are local files.
class DocumentGuard : public QWebEngineUrlRequestInterceptor
{
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override
    {
        guardedCall([&] { request.block(!allowed(request)); });
    }

private:
    static bool allowed(const QWebEngineUrlRequestInfo& request)
    {
        switch (request.resourceType()) {
        case QWebEngineUrlRequestInfo::ResourceTypeMainFrame: // WebPage decides
        case QWebEngineUrlRequestInfo::ResourceTypeImage:
            return true;
        case QWebEngineUrlRequestInfo::ResourceTypeStylesheet:
            return !request.requestUrl().isLocalFile();
        default:
            return false;
        }
    }
};

QWebEngineProfile* makeProfile()
{
    auto* profile = new QWebEngineProfile(QCoreApplication::instance()); // without a name: off the record
    profile->installUrlSchemeHandler(BlankScheme, new BlankPage(profile));
    onInner(profile, &QWebEngineProfile::downloadRequested, profile,
            [](QWebEngineDownloadRequest* download) { download->cancel(); }); // `WebPage` tells the user

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    profile->setPersistentPermissionsPolicy(QWebEngineProfile::PersistentPermissionsPolicy::AskEveryTime);
#endif
    QWebEngineSettings* settings = profile->settings();
    settings->setFontFamily(QWebEngineSettings::StandardFont, QStringLiteral("Liberation Serif"));
    for (const auto attribute :
         {QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::JavascriptCanAccessClipboard,
          QWebEngineSettings::LocalContentCanAccessFileUrls, QWebEngineSettings::HyperlinkAuditingEnabled,
          QWebEngineSettings::PluginsEnabled, QWebEngineSettings::PdfViewerEnabled,
          QWebEngineSettings::AutoLoadIconsForPage, QWebEngineSettings::DnsPrefetchEnabled,
          QWebEngineSettings::NavigateOnDropEnabled})
        settings->setAttribute(attribute, false);
    return profile;
}

} // namespace

bool engineListens()
{
    return !EngineCall::isUnderWay() && !PageMessage::isUnderWay();
}

bool canAct()
{
    return engineListens() && !EngineWait::isUnderWay() && !handlersRun();
}

void prepareWebEngine()
{
    if (geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1"); // the sandbox can't be made by the superuser
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software"); // works where there is no OpenGL, and is lighter
#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
    // Or else the engine's library has OpenGL loaded at each start, 35 MB that nothing here uses. Newer ones
    // look for it again with each page.
    if (qgetenv("QT_QUICK_BACKEND") == "software" && !qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
#endif
    // Only newer engines tell a screen reader of their pages unasked. It costs nothing until one runs.
    if (!qEnvironmentVariableIsSet("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY"))
        qputenv("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");

    // Packets that scripts send by WebRTC are no requests, so that no guard sees them: they are switched off.
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") +
                                              " --force-webrtc-ip-handling-policy=disable_non_proxied_udp");

    // A folder that comes later is not looked for. Where it can't be made, surfaces aren't checked.
    QDir().mkpath(engineDictionaries());
    qputenv("QTWEBENGINE_DICTIONARIES_PATH", engineDictionaries().toLocal8Bit());

    QWebEngineUrlScheme scheme(BlankScheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::LocalAccessAllowed);
    QWebEngineUrlScheme::registerScheme(scheme);
}

static QString ownDictionaries()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/brindlemark/dictionaries");
}

QString engineDictionaries()
{
    static const QString folder = [] {
        QString named = qEnvironmentVariable("QTWEBENGINE_DICTIONARIES_PATH");
        if (!named.isEmpty() && !QDir(named).entryList({QStringLiteral("*.bdic")}, QDir::Files).isEmpty())
            return named;
        return ownDictionaries();
    }();
    return folder;
}

bool ownsEngineDictionaries()
{
    return engineDictionaries() == ownDictionaries();
}

void setSpelling(const QStringList& names)
{
    documentProfile()->setSpellCheckEnabled(!names.isEmpty());
    documentProfile()->setSpellCheckLanguages(names);
}

QUrl blankAddress()
{
    return QUrl(QStringLiteral("surface:blank"));
}

QString engineVersions()
{
    return QStringLiteral("Qt %1\nChromium %2, with the security fixes up to %3")
        .arg(QString::fromLatin1(qVersion()), QString::fromLatin1(qWebEngineChromiumVersion()),
             QString::fromLatin1(qWebEngineChromiumSecurityPatchVersion()));
}

QWebEngineProfile* documentProfile()
{
    static QPointer<QWebEngineProfile> profile;
    if (!profile) {
        profile = makeProfile();
        profile->setUrlRequestInterceptor(new DocumentGuard(profile));
        profile->cookieStore()->setCookieFilter(
            [](const QWebEngineCookieStore::FilterRequest&) { return false; });
    }
    return profile;
}

QWebEngineProfile* internetProfile()
{
    static QPointer<QWebEngineProfile> profile;
    if (!profile)
        profile = makeProfile();
    return profile;
}

} // namespace brindlemark
