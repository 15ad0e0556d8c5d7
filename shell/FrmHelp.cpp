// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmHelp.h"

#include "platform/AppPath.h"
#include "shell/FindBar.h"
#include "web/DocumentSurface.h"

#include <QUrl>
#include <QVBoxLayout>

namespace brindlemark {

FrmHelp::FrmHelp() : WebBrowser1(new DocumentSurface(this))
{
    setWindowTitle(QStringLiteral("Help"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(WebBrowser1);
    resize(820, 620);
    new FindBar(WebBrowser1);
    WebBrowser1->setAccessibleName(QStringLiteral("Help page"));
    setEscape([this] { Unload(); });

    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    WebBrowser1->Navigate(appFile(DataFile::Help));
}

void FrmHelp::showSection(const QString& id)
{
    QUrl place = QUrl::fromLocalFile(appFile(DataFile::Help));
    place.setFragment(id);
    WebBrowser1->Navigate(place.toString(QUrl::FullyEncoded)); // a page that is there already only scrolls
    Show();
}

} // namespace brindlemark
