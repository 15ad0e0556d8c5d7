#include "shell/FrmHelp.h"

#include "platform/AppPath.h"
#include "platform/Events.h"
#include "platform/WebBrowser.h"
#include "shell/FindBar.h"

#include <QShortcut>
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
    on(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &FrmHelp::Unload);

    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    WebBrowser1->Navigate(appFile(QStringLiteral("\\Help0.htm")));
}
