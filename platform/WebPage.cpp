#include "platform/WebPage.h"

#include "platform/Doors.h"
#include "platform/WebEngine.h"

#include <QScopedValueRollback>

namespace {

/// So that nobody takes the page's words for the program's.
const QString MessageTitle = QStringLiteral("Message of the page");

} // namespace

WebPage::WebPage(Kind kind, QObject* parent)
    : QWebEnginePage(kind == Kind::Internet ? internetProfile() : documentProfile(), parent), m_kind(kind)
{
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
}

// Scripts may not open windows at all; a link that asks for one is followed in place where links are
// followed.
QWebEnginePage* WebPage::createWindow(WebWindowType)
{
    return m_kind == Kind::Internet ? this : nullptr;
}

bool WebPage::acceptNavigationRequest(const QUrl& address, NavigationType, bool mainFrame)
{
    if (m_target == blankAddress()) // whatever the page that is left wants meanwhile
        return address == m_target;
    if (m_target || m_kind == Kind::Internet)
        return true;
    if (mainFrame)
        emit leaveRefused(address);
    return false;
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&)
{
    return {};
}

/// Whether a message of the page's scripts is shown. A page that goes on asking is answered by silence, or
/// nobody could ever leave it.
bool WebPage::mayAsk()
{
    constexpr int MostMessages = 10;
    return !m_muted && !m_target && m_messages++ < MostMessages;
}

void WebPage::javaScriptAlert(const QUrl&, const QString& message)
{
    if (!mayAsk())
        return;
    const QScopedValueRollback asking(m_asking, true);
    MsgBox(message, MessageTitle);
}

bool WebPage::javaScriptConfirm(const QUrl&, const QString& message)
{
    if (m_target) // the page's "do you want to leave?"
        return true;
    if (!mayAsk())
        return false;
    const QScopedValueRollback asking(m_asking, true);
    return MsgBox(message, MessageTitle, MsgIcon::None, MsgButtons::YesNo) == MsgAnswer::Yes;
}

bool WebPage::javaScriptPrompt(const QUrl&, const QString& message, const QString& initial, QString* answer)
{
    if (!mayAsk())
        return false;
    const QScopedValueRollback asking(m_asking, true);
    const std::optional<QString> text = doors().inputBox(message, MessageTitle, initial);
    *answer = text.value_or(QString());
    return text.has_value();
}

// What a page's scripts write for their author is nothing for the user's terminal.
void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) {}
