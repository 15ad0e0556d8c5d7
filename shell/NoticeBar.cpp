// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/NoticeBar.h"

#include "platform/Events.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace brindlemark {

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), m_sentence(new QLabel), m_buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("NoticeBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_sentence->setTextFormat(Qt::PlainText); // it may hold the name of a file
    m_sentence->setWordWrap(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_sentence, 1);
    layout->addLayout(m_buttons);
    m_time.setSingleShot(true);
    on(&m_time, &QTimer::timeout, this, &NoticeBar::timeIsUp);
    hide();
}

void NoticeBar::tell(const QString& sentence, const QList<Action>& actions)
{
    while (const QLayoutItem* item = m_buttons->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater(); // the notice may come from its own click
        delete item;
    }
    for (const Action& action : actions) {
        auto* button = new QPushButton(action.text);
        button->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard where it is
        m_buttons->addWidget(button);
        on(button, &QPushButton::clicked, this, [this, act = action.act] {
            hide();
            act();
        });
    }
    m_sentence->setText(sentence);
    setAccessibleName(sentence);
    place();
    show();
    raise();
    m_time.start(Stays);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NoticeBar::lieOver(const QWidget* view)
{
    m_view = view;
    place();
}

void NoticeBar::place()
{
    if (!m_view)
        return;
    const int width = m_view->width();
    setGeometry(QRect(m_view->mapTo(parentWidget(), QPoint(0, 0)), QSize(width, heightForWidth(width))));
}

/// Stays while somebody is about to press a button.
void NoticeBar::timeIsUp()
{
    if (underMouse() || isAncestorOf(QApplication::focusWidget())) {
        m_time.start(Stays);
    } else {
        hide();
    }
}

} // namespace brindlemark
