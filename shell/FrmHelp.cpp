// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmHelp.h"

#include "platform/AppPath.h"
#include "platform/Events.h"
#include "shell/FindBar.h"
#include "web/DocumentSurface.h"

#include <QFontInfo>
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

    onInner(WebBrowser1, &DocumentSurface::zoomWanted, this, &FrmHelp::WebBrowser1_ZoomWanted);
    showSize();

    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    WebBrowser1->Navigate(appFile(DataFile::Help));
}

/// Letters that are large on the desktop are so on the page, which has them in 12 points.
void FrmHelp::showSize()
{
    constexpr double PagePoints = 12;
    const double points = font().pointSizeF() > 0 ? font().pointSizeF() : QFontInfo(font()).pointSizeF();
    WebBrowser1->setZoom(qRound(m_zoom.percent() * qMax(1.0, points / PagePoints)));
}

void FrmHelp::WebBrowser1_ZoomWanted(int steps)
{
    m_zoom.turn(steps);
    showSize();
}

void FrmHelp::changeEvent(QEvent* event)
{
    guardedCall([&] {
        Form::changeEvent(event);
        if (event->type() == QEvent::FontChange)
            showSize();
    });
}

void FrmHelp::showSection(const QString& id)
{
    QUrl place = QUrl::fromLocalFile(appFile(DataFile::Help));
    place.setFragment(id);
    WebBrowser1->Navigate(place.toString(QUrl::FullyEncoded)); // a page that is there already only scrolls
    Show();
}

} // namespace brindlemark
