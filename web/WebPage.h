// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWebEnginePage>
#include <optional>

class QWebEngineNewWindowRequest;

namespace brindlemark {

/// An address as a status line shows it, cut to a length that can be read.
QString shownAddress(const QUrl& address);

/// A page that keeps to its place: no windows, no downloads, no permissions, no files chosen, and, for a
/// document, no way out of it but the program's own.
class WebPage : public QWebEnginePage
{
    Q_OBJECT

public:
    enum class Kind {
        Document, ///< never leaves what was written into it
        Sample,   ///< the same, and no script in it runs
        Internet, ///< follows its links, to pages of the internet only
    };

    WebPage(Kind kind, QObject* parent);

    /// The program itself is about to load a page: until `arrived`, the document may be left for it, and the
    /// page's own question whether to leave isn't shown.
    void leaveFor(const QUrl& address)
    {
        m_target = address;
        m_messages = 0;
    }
    void arrived() { m_target.reset(); }

    /// Whether an address can be gone to at all; a script is none.
    static bool isAddress(const QUrl& url);
    /// Whether a page of this kind may show an address, typed by the user or linked.
    static bool isAllowed(Kind kind, const QUrl& address);

signals:
    /// Something that a page wanted was refused; a sentence for the user.
    void refused(const QString& sentence);

protected:
    bool acceptNavigationRequest(const QUrl& address, NavigationType type, bool mainFrame) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles,
                            const QStringList& types) override;
    void javaScriptAlert(const QUrl& origin, const QString& message) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& message) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& message, const QString& initial,
                          QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    void noteSpeaker(const QUrl& origin);
    bool mayAsk(const QUrl& origin);
    void refusePermissions();
    void refuseFeatures();
    void openInPlace(QWebEngineNewWindowRequest& request);

    Kind m_kind;
    std::optional<QUrl> m_target; // where the program is going
    int m_messages = 0;           // of the page's scripts, since the program left for it
};

} // namespace brindlemark
