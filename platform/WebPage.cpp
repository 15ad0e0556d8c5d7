#include "platform/WebPage.h"

#include "platform/Doors.h"
#include "platform/WebEngine.h"

#include <QScopedValueRollback>

WebPage::WebPage(Kind kind, QObject* parent)
    : QWebEnginePage(kind == Kind::Document ? documentProfile() : internetProfile(), parent), m_kind(kind)
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

void WebPage::javaScriptAlert(const QUrl&, const QString& message)
{
    if (m_muted || m_target)
        return;
    const QScopedValueRollback asking(m_asking, true);
    MsgBox(message, ProgramTitle);
}

bool WebPage::javaScriptConfirm(const QUrl&, const QString& message)
{
    if (m_target) // the page's "do you want to leave?"
        return true;
    if (m_muted)
        return false;
    const QScopedValueRollback asking(m_asking, true);
    return MsgBox(message, ProgramTitle, MsgIcon::None, MsgButtons::YesNo) == MsgAnswer::Yes;
}

bool WebPage::javaScriptPrompt(const QUrl&, const QString& message, const QString& initial, QString* answer)
{
    if (m_muted || m_target)
        return false;
    const QScopedValueRollback asking(m_asking, true);
    const std::optional<QString> text = doors().inputBox(message, ProgramTitle, initial);
    *answer = text.value_or(QString());
    return text.has_value();
}

// What a page's scripts write for their author is nothing for the user's terminal.
void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) {}
