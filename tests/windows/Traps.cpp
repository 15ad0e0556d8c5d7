// SPDX-License-Identifier: GPL-3.0-or-later

#include "Traps.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWidget>
#include <algorithm>
#include <array>
#include <sys/inotify.h>
#include <unistd.h>

namespace brindlemark {

namespace {

/// What a desktop opens with a program of its own.
constexpr const char* Schemes[] = {"trap", "mailto", "ftp", "file", "http", "https"};

const QString PictureName = QStringLiteral("picture.png");

} // namespace

Traps::Traps() : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    if (!picture.save(m_folder.filePath(PictureName)) ||
        ::inotify_add_watch(m_inotify, QFile::encodeName(m_folder.path()).constData(), IN_OPEN) < 0)
        QTest::qFail("the folder can't be watched", __FILE__, __LINE__);
    for (const char* scheme : Schemes)
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "programWanted");
    m_windows = QApplication::topLevelWidgets();
}

Traps::~Traps()
{
    for (const char* scheme : Schemes)
        QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    ::close(m_inotify);
}

void Traps::note(const QString& what)
{
    m_sprung << what;
}

QString Traps::arm(const QString& part, QString html)
{
    const QString folder = QUrl::fromLocalFile(m_folder.path()).toString();
    const auto says = [&](const char* what) {
        return QStringLiteral("(new Image().src=`%1`)")
            .arg(server.url(u'/' + QLatin1String(what) + u'/' + part));
    };
    html.replace(QLatin1String("{file}"), folder + u'/' + part);
    html.replace(QLatin1String("{folder}"), folder);
    html.replace(QLatin1String("{picture}"), folder + u'/' + PictureName);
    html.replace(QLatin1String("{web}"), server.url(QStringLiteral("/request/") + part));
    html.replace(QLatin1String("{seen}"), server.url(QStringLiteral("/seen/") + part));
    html.replace(QLatin1String("{run}"), says("ran"));
    html.replace(QLatin1String("{leak}"), says("leak"));
    html.replace(QLatin1String("{scheme}"), QStringLiteral("trap:") + part);
    html.replace(QLatin1String("{mail}"), QStringLiteral("mailto:%1@x.example").arg(part));
    if (html.contains(QLatin1String("{socket}")))
        html.replace(QLatin1String("{socket}"), socketOf(part));
    if (html.contains(QLatin1String("{udp}")))
        html.replace(QLatin1String("{udp}"), packetsOf(part));
    readEvents();
    static const QRegularExpression ending(QStringLiteral("^\\.\\w+"));
    for (qsizetype at = 0; (at = html.indexOf(folder + u'/' + part, at)) >= 0;) {
        at += folder.size() + 1 + part.size();
        makeFile(part + ending.match(html.mid(at, 10)).captured());
    }
    const QStringList before = m_sprung;
    readEvents(); // of the making of the files
    m_sprung = before;
    server.page(QStringLiteral("/request/") + part, "<P>page</P>");
    return html;
}

void Traps::makeFile(const QString& name) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write("secret") < 0)
        QTest::qFail("a file of the test can't be made", __FILE__, __LINE__);
}

QString Traps::socketOf(const QString& part)
{
    auto& socket = m_sockets[part];
    if (!socket) {
        socket = std::make_shared<QTcpServer>();
        connect(socket.get(), &QTcpServer::newConnection, this,
                [this, part] { note(part + QStringLiteral(": connection")); });
        if (!socket->listen(QHostAddress::LocalHost))
            QTest::qFail("no port is free", __FILE__, __LINE__);
    }
    return QStringLiteral("127.0.0.1:%1").arg(socket->serverPort());
}

QString Traps::packetsOf(const QString& part)
{
    auto& socket = m_packets[part];
    if (!socket) {
        socket = std::make_shared<QUdpSocket>();
        connect(socket.get(), &QUdpSocket::readyRead, this,
                [this, part] { note(part + QStringLiteral(": packet")); });
        if (!socket->bind(QHostAddress::LocalHost))
            QTest::qFail("no port is free", __FILE__, __LINE__);
    }
    return QStringLiteral("127.0.0.1:%1").arg(socket->localPort());
}

void Traps::watch(QWebEngineProfile* profile)
{
    connect(profile, &QWebEngineProfile::downloadRequested, this,
            [this](QWebEngineDownloadRequest* download) {
                // The program's own answer, which comes first, is to cancel.
                if (download->state() != QWebEngineDownloadRequest::DownloadCancelled)
                    note(QStringLiteral("download"));
            });
}

void Traps::programWanted(const QUrl& address)
{
    note(address.path().section(u'@', 0, 0).section(u'/', -1) + QStringLiteral(": program"));
}

void Traps::readEvents()
{
    alignas(inotify_event) std::array<char, 8192> bytes{};
    for (ssize_t length = 0; (length = ::read(m_inotify, bytes.data(), bytes.size())) > 0;) {
        for (ssize_t at = 0; at < length;) {
            const auto* event = reinterpret_cast<const inotify_event*>(bytes.data() + at);
            at += ssize_t(sizeof(inotify_event) + event->len);
            const QString name = event->len > 0 ? QFile::decodeName(event->name) : QStringLiteral("folder");
            if (name != PictureName)
                note(name.section(u'.', 0, 0) + QStringLiteral(": file"));
        }
    }
}

bool Traps::wasSeen(const QString& part) const
{
    return server.requests(QStringLiteral("/seen/") + part) > 0;
}

QStringList Traps::takeSprung()
{
    readEvents();
    const QStringList paths = server.requestedPaths();
    for (; m_requestsRead < paths.size(); ++m_requestsRead) {
        const QString& path = paths.at(m_requestsRead);
        const QString kind = path.section(u'/', 1, 1);
        if (kind != QLatin1String("seen"))
            note(path.section(u'/', 2) + QStringLiteral(": ") + kind);
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (window->isVisible() && !m_windows.contains(window))
            note(QStringLiteral("window"));
    }
    m_windows = windows;
    m_sprung.sort();
    m_sprung.removeDuplicates();
    return std::exchange(m_sprung, {});
}

} // namespace brindlemark
