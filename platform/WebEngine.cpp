#include "platform/WebEngine.h"

#include "platform/WebPage.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <QWebEngineUrlSchemeHandler>
#include <unistd.h>

// A library's resources are linked only when something calls for them; the macro can't stand in a namespace.
static void initResources()
{
    Q_INIT_RESOURCE(platform);
    Q_INIT_RESOURCE(cleaner);
}

namespace {

constexpr char BlankScheme[] = "surface";

/// Serves the empty page.
class BlankPage : public QWebEngineUrlSchemeHandler
{
public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    void requestStarted(QWebEngineUrlRequestJob* job) override
    {
        if (job->requestUrl() != blankAddress()) {
            job->fail(QWebEngineUrlRequestJob::UrlNotFound);
            return;
        }
        auto* page = new QBuffer(job);
        page->setData(QByteArrayLiteral("<html><head></head><body></body></html>"));
        page->open(QIODevice::ReadOnly);
        job->reply(QByteArrayLiteral("text/html"), page);
    }
};

/// Lets through the page itself, its pictures, and its styles unless they are local files.
class DocumentGuard : public QWebEngineUrlRequestInterceptor
{
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override { request.block(!allowed(request)); }

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
    QObject::connect(
        profile, &QWebEngineProfile::downloadRequested, profile, [](QWebEngineDownloadRequest* download) {
            download->cancel();
            if (auto* page = qobject_cast<WebPage*>(download->page())) {
                emit page->refused(
                    QStringLiteral("Refused: the page offers a file, %1").arg(download->downloadFileName()));
            }
        });

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

QString resourceText(const QString& path)
{
    initResources();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is not in the program", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

} // namespace

void prepareWebEngine()
{
    if (geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1"); // the sandbox can't be made by the superuser
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software"); // works where there is no OpenGL, and is lighter
    // Packets of scripts are no requests, and no guard sees them.
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") +
                                              " --force-webrtc-ip-handling-policy=disable_non_proxied_udp");

    QWebEngineUrlScheme scheme(BlankScheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::LocalAccessAllowed);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl blankAddress()
{
    return QUrl(QStringLiteral("surface:blank"));
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

const QString& surfaceScript()
{
    static const QString script = [] {
        // The page's elements have names in the same place, but none is a symbol.
        return QStringLiteral("(globalThis[Symbol.for('surface')] ?\?= (%1)(%2))")
            .arg(resourceText(QStringLiteral(":/platform/surface.js")),
                 resourceText(QStringLiteral(":/platform/serialise.js")));
    }();
    return script;
}

const QString& cleanerScript()
{
    static const QString script =
        resourceText(QStringLiteral(":/platform/clean.js"))
            .replace(QStringLiteral("/* DOMPurify */"), resourceText(QStringLiteral(":/platform/purify.js")));
    return script;
}

QString surfaceCall(const QString& function)
{
    return QStringLiteral("globalThis[Symbol.for('surface')]?.") + function;
}
