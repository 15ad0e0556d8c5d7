// SPDX-License-Identifier: GPL-3.0-or-later

#include "Widgets.h"
#include "WebProbe.h"

#include "forms/ComboBox.h"
#include "forms/ScrollBar.h"
#include "web/Sample.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QMenu>
#include <QStyleOptionSlider>
#include <QTest>
#include <optional>
#include <utility>

namespace brindlemark {

QPoint placeOf(const ScrollBar* bar, QStyle::SubControl part)
{
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.orientation = bar->orientation();
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->value();
    option.sliderValue = bar->value();
    option.singleStep = bar->singleStep();
    option.pageStep = bar->pageStep();
    if (bar->orientation() == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar).center();
}

QByteArray className(const QObject* object)
{
    const QByteArray name = object->metaObject()->className();
    return name.sliced(name.lastIndexOf(':') + 1);
}

void click(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

void tick(QAbstractButton* box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

void choose(ComboBox* combo, int entry)
{
    combo->showPopup();
    auto* list = combo->view();
    list->setCurrentIndex(combo->model()->index(entry, 0));
    QTest::keyClick(list, Qt::Key_Return);
}

void takeEntry(QMenu* menu, const QString& text)
{
    for (QAction* entry : menu->actions()) {
        if (entry->text().section(u'\t', 0, 0) == text) {
            menu->setActiveAction(entry);
            QTest::keyClick(menu, Qt::Key_Return);
            return;
        }
    }
    QTest::qFail(qPrintable(QStringLiteral("no entry ") + text), __FILE__, __LINE__);
}

void overtype(QWidget* field, const QString& text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

void step(ScrollBar* bar, bool up)
{
    QTest::mouseClick(bar, Qt::LeftButton, {},
                      placeOf(bar, up ? QStyle::SC_ScrollBarAddLine : QStyle::SC_ScrollBarSubLine));
}

void dragToEnd(ScrollBar* bar)
{
    const QPoint from = placeOf(bar, QStyle::SC_ScrollBarSlider);
    const QPoint end(bar->width() - 1, from.y());
    QTest::mousePress(bar, Qt::LeftButton, {}, from);
    QTest::mouseMove(bar, (from + end) / 2);
    QTest::mouseMove(bar, end);
}

void release(ScrollBar* bar)
{
    QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(bar->width() - 1, bar->height() / 2));
}

QString pageText(WebControl* browser)
{
    return probe(browser)
        .evaluate(QStringLiteral("document.body ? document.body.textContent.trim() : ''"))
        .value_or(QVariant())
        .toString();
}

QString pageBody(WebControl* browser)
{
    return probe(browser)
        .evaluate(QStringLiteral("document.body ? document.body.innerHTML.trim() : ''"))
        .value_or(QVariant())
        .toString();
}

QString settledSample(Sample* sample)
{
    std::optional<QString> seen;
    const auto settled = [&] {
        if (WebProbe::isWriting(*sample)) {
            seen.reset();
            return false;
        }
        const std::optional<QString> before = std::exchange(seen, pageBody(sample));
        return !WebProbe::isWriting(*sample) && before == seen;
    };
    if (!QTest::qWaitFor(settled, Patience))
        QTest::qFail("the sample does not settle", __FILE__, __LINE__);
    return seen.value_or(QString());
}

} // namespace brindlemark
