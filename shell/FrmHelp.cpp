#include "shell/FrmHelp.h"

#include "platform/AppPath.h"
#include "platform/Events.h"
#include "platform/WebBrowser.h"
#include "shell/FindBar.h"

#include <QAction>
#include <QVBoxLayout>

FrmHelp::FrmHelp() : WebBrowser1(new WebBrowser(this))
{
    setWindowTitle(QStringLiteral("Help"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(WebBrowser1);
    resize(820, 620);
    new FindBar(WebBrowser1);
    WebBrowser1->setAccessibleName(QStringLiteral("Help page"));
    auto* escape = new QAction(this); // an action, as a page takes the keys that belong to none
    escape->setShortcut(Qt::Key_Escape);
    addAction(escape);
    on(escape, &QAction::triggered, this, &FrmHelp::Unload);

    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    m_place = QUrl::fromLocalFile(appFile(QStringLiteral("\\Help0.htm")));
    m_opening.setSingleShot(true);
    on(&m_opening, &QTimer::timeout, this, &FrmHelp::openPlace);
    m_opening.start();
}

void FrmHelp::showSection(const QString& id)
{
    m_place.setFragment(id);
    m_opening.start();
    Show();
}

/// A page that is there already only scrolls.
void FrmHelp::openPlace()
{
    WebBrowser1->Navigate(m_place.toString(QUrl::FullyEncoded));
}
