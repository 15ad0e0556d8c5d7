// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QTcpServer>
#include <memory>

namespace brindlemark {

/// A web server on this machine's loopback address, for one test.
class WebServer
{
public:
    enum class Security {
        Http,
        Https, ///< with a certificate that nobody vouches for
    };

    explicit WebServer(Security security = Security::Http);

    /// What the server does when `path` is asked for; all else is answered with 404.
    void page(const QString& path, const QByteArray& html);
    /// The whole answer, status line and headers included; then the connection closes.
    void answer(const QString& path, const QByteArray& response);
    void redirect(const QString& path, const QString& target);
    /// Never answers.
    void hang(const QString& path);
    /// Promises more than it sends.
    void cut(const QString& path);
    /// Closes all connections.
    void closeAll();
    /// Sends a page in pieces as fast as they are taken, so many bytes at most.
    void stream(const QString& path, qint64 bytes);

    /// "127.0.0.1:1234", and the same with the scheme and the path.
    QString host() const;
    QString url(const QString& path) const;

    /// How often a path was asked for.
    int requests(const QString& path) const { return m_requests.value(path); }
    /// All that was asked for so far, in its order.
    QStringList requestedPaths() const { return m_requestedPaths; }
    /// How many of the bytes of `stream` were sent so far.
    qint64 streamed() const { return m_streamed; }
    /// Connections that are open now.
    int connections() const { return m_connections; }

private:
    struct Behaviour
    {
        QByteArray response{};
        bool closes = true;
        qint64 streams = 0;
    };

    void connected(QTcpSocket* socket);
    void serve(QTcpSocket* socket);
    void feed(QTcpSocket* socket, qint64 bytes);

    Security m_security;
    std::unique_ptr<QTcpServer> m_server;
    QHash<QString, Behaviour> m_paths;
    QHash<QString, int> m_requests;
    QStringList m_requestedPaths;
    qint64 m_streamed = 0;
    int m_connections = 0;
};

} // namespace brindlemark
