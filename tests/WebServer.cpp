// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebServer.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

namespace brindlemark {

namespace {

QByteArray fileText(const char* path)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::unique_ptr<QTcpServer> makeServer(WebServer::Security security)
{
    if (security == WebServer::Security::Http)
        return std::make_unique<QTcpServer>();
    auto server = std::make_unique<QSslServer>();
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(
        QSslCertificate(fileText(SOURCE_DIR "/tests/data/tls/certificate.pem")));
    configuration.setPrivateKey(QSslKey(fileText(SOURCE_DIR "/tests/data/tls/key.pem"), QSsl::Ec));
    server->setSslConfiguration(configuration);
    return server;
}

QByteArray header(const char* status, qint64 length)
{
    QByteArray text =
        QByteArray("HTTP/1.1 ") + status + "\r\nContent-Type: text/html\r\nConnection: close\r\n";
    if (length >= 0)
        text += "Content-Length: " + QByteArray::number(length) + "\r\n";
    return text + "\r\n";
}

} // namespace

WebServer::WebServer(Security security) : m_security(security), m_server(makeServer(security))
{
    QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(), [this] {
        while (QTcpSocket* socket = m_server->nextPendingConnection())
            connected(socket);
    });
    if (!m_server->listen(QHostAddress::LocalHost))
        QTest::qFail("the test's web server can't listen", __FILE__, __LINE__);
}

void WebServer::page(const QString& path, const QByteArray& html)
{
    answer(path, header("200 OK", html.size()) + html);
}

void WebServer::answer(const QString& path, const QByteArray& response)
{
    m_paths.insert(path, {.response = response});
}

void WebServer::redirect(const QString& path, const QString& target)
{
    answer(path, "HTTP/1.1 302 Found\r\nLocation: " + target.toLatin1() +
                     "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
}

void WebServer::hang(const QString& path)
{
    m_paths.insert(path, {.closes = false});
}

void WebServer::cut(const QString& path)
{
    m_paths.insert(path, {.response = header("200 OK", 100'000) + "<p>the beginning", .closes = false});
}

void WebServer::closeAll()
{
    for (QTcpSocket* socket : m_server->findChildren<QTcpSocket*>())
        socket->disconnectFromHost();
}

void WebServer::stream(const QString& path, qint64 bytes)
{
    m_paths.insert(path, {.response = header("200 OK", -1), .closes = false, .streams = bytes});
}

QString WebServer::host() const
{
    return QStringLiteral("127.0.0.1:%1").arg(m_server->serverPort());
}

QString WebServer::url(const QString& path) const
{
    return (m_security == Security::Http ? QStringLiteral("http://") : QStringLiteral("https://")) + host() +
           path;
}

void WebServer::connected(QTcpSocket* socket)
{
    constexpr int Patience = 10'000; // milliseconds; an engine opens spare connections that it never uses
    auto* idle = new QTimer(socket);
    QObject::connect(idle, &QTimer::timeout, socket, &QTcpSocket::disconnectFromHost);
    QObject::connect(socket, &QTcpSocket::readyRead, idle, &QTimer::stop);
    idle->start(Patience);
    ++m_connections;
    QObject::connect(socket, &QTcpSocket::disconnected, m_server.get(), [this, socket] {
        --m_connections;
        socket->deleteLater();
    });
    QObject::connect(socket, &QTcpSocket::readyRead, m_server.get(), [this, socket] { serve(socket); });
}

void WebServer::serve(QTcpSocket* socket)
{
    const QByteArray request = socket->peek(100'000);
    if (!request.contains("\r\n\r\n"))
        return; // the rest is under way
    socket->readAll();
    const QString path = QString::fromLatin1(request.split(' ').value(1));
    ++m_requests[path];
    m_requestedPaths << path;
    const Behaviour behaviour = m_paths.value(path, {.response = header("404 Not Found", 0)});
    socket->write(behaviour.response);
    if (behaviour.streams > 0) {
        QObject::connect(socket, &QTcpSocket::bytesWritten, m_server.get(),
                         [this, socket, limit = behaviour.streams] { feed(socket, limit); });
    }
    if (behaviour.closes)
        socket->disconnectFromHost();
}

/// Keeps a little under way, until the limit.
void WebServer::feed(QTcpSocket* socket, qint64 limit)
{
    static const QByteArray piece =
        QByteArray("<p>More of the page, and more, and more.</p>\n").repeated(1500);
    if (socket->bytesToWrite() > piece.size())
        return;
    if (m_streamed >= limit) {
        socket->disconnectFromHost();
        return;
    }
    m_streamed += socket->write(piece);
}

} // namespace brindlemark
