// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WebServer.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <memory>

class QWebEngineProfile;
class QWidget;

namespace brindlemark {

/// What a hostile page reaches out for, and the record of what it got: a folder, a web server, bare ports,
/// other programs, downloads, windows.
///
/// A page names them by words that `arm` replaces; `N` is the page's part with which it was armed:
///   {file}    a file of the folder; what follows is the ending of its name
///   {folder}  the folder
///   {picture} a picture in the folder, which pages may show
///   {web}     an address on the web server, which only answers with a page
///   {seen}    an address on the web server, which pages may show as a picture
///   {run}     a script that tells that it ran
///   {leak}    a script that tells that it got something it must not have
///   {socket}  host and port where anything that connects is noted
///   {udp}     the same for single packets
///   {scheme}  an address that belongs to another program
///   {mail}    one that belongs to the program for mail
class Traps : public QObject
{
    Q_OBJECT

public:
    Traps();
    ~Traps() override;

    /// The HTML with all words replaced; the files that it names are made.
    QString arm(const QString& part, QString html);
    QString arm(const char* part, const char* html)
    {
        return arm(QString::fromLatin1(part), QString::fromLatin1(html));
    }

    /// Counts what a profile downloads.
    void watch(QWebEngineProfile* profile);

    /// What has happened since the last call, sorted, each once: "N: file", "N: request", "N: ran",
    /// "N: leak", "N: connection", "N: packet", "N: program", "download", "window".
    QStringList takeSprung();
    /// True when the picture {seen} of a part was asked for.
    bool wasSeen(const QString& part) const;

    QString folder() const { return m_folder.path(); }
    WebServer server;

private slots:
    void programWanted(const QUrl& address);

private:
    void readEvents();
    void note(const QString& what);
    QString socketOf(const QString& part);
    QString packetsOf(const QString& part);
    void makeFile(const QString& name) const;

    QTemporaryDir m_folder;
    int m_inotify = -1;
    QHash<QString, std::shared_ptr<QTcpServer>> m_sockets;
    QHash<QString, std::shared_ptr<QUdpSocket>> m_packets;
    QStringList m_sprung;
    qsizetype m_requestsRead = 0;
    QList<QWidget*> m_windows;
};

} // namespace brindlemark
