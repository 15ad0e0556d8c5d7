// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/LivePage.h"

#include "platform/Events.h"
#include "web/SurfaceScript.h"
#include "web/WebEngine.h"

#include <QMouseEvent>
#include <QVariantList>
#include <QWebEngineSettings>

namespace brindlemark {

LivePage::LivePage(QWidget* parent) : Sample(parent) {}

LivePage::~LivePage()
{
    endView();
}

void LivePage::viewMade()
{
    Sample::viewMade();
    setScrollBars(m_scrollBars);
    onInner(page(), &QWebEnginePage::scrollPositionChanged, this, [this] {
        const EngineCall call;
        emit scrolled();
    });
}

void LivePage::setScrollBars(bool on)
{
    m_scrollBars = on;
    if (page())
        page()->settings()->setAttribute(QWebEngineSettings::ShowScrollBars, on);
}

QString LivePage::writeFunction(const QString& html)
{
    setLength(html.size());
    return QStringLiteral("writeLive(") + literal(html) + u')';
}

void LivePage::showPlace(qsizetype place)
{
    if (content() == Content::Written)
        callSoon(QStringLiteral("showPlace(%1)").arg(place));
}

void LivePage::bringToTop(qsizetype place)
{
    if (content() == Content::Written)
        callSoon(QStringLiteral("bringToTop(%1)").arg(place));
}

void LivePage::askTop(const std::function<void(qsizetype place)>& heard)
{
    askPlace(QStringLiteral("topPlace()"), heard);
}

void LivePage::askPlace(const QString& function, const std::function<void(qsizetype place)>& heard)
{
    if (content() != Content::Written)
        return;
    callSoon(function, [self = QPointer<LivePage>(this), heard](const QVariant& place) {
        const EngineCall call;
        bool isNumber = false;
        const qlonglong number = place.toLongLong(&isNumber);
        if (self && isNumber && number >= 0)
            heard(number);
    });
}

void LivePage::askWidths(const std::function<void(const Widths& widths)>& heard)
{
    if (content() != Content::Written)
        return;
    callSoon(QStringLiteral("widths()"), [self = QPointer<LivePage>(this), heard](const QVariant& answer) {
        const EngineCall call;
        const QVariantList told = answer.toList();
        if (self && told.size() == 3)
            heard({told[0].toBool(), told[1].toInt(), told[2].toLongLong()});
    });
}

/// A click is also the page's own: text can be selected.
bool LivePage::actOnMouse(const QMouseEvent& mouse, QPoint place)
{
    if (mouse.type() == QEvent::MouseButtonRelease && mouse.button() == Qt::LeftButton) {
        const QPointF point = QPointF(place) / page()->zoomFactor();
        askPlace(QStringLiteral("placeAtPoint(%1, %2)").arg(point.x()).arg(point.y()),
                 [this](qsizetype clicked) { emit placeClicked(clicked); });
    }
    return Sample::actOnMouse(mouse, place);
}

} // namespace brindlemark
