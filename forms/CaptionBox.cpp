// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/CaptionBox.h"

#include "platform/Events.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGroupBox>
#include <QStyle>
#include <QStyleOptionGroupBox>

namespace brindlemark {

namespace {

QRect captionOf(const QGroupBox& frame)
{
    QStyleOptionGroupBox look;
    look.initFrom(&frame);
    look.text = frame.title();
    look.lineWidth = 1;
    look.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    return frame.style()->subControlRect(QStyle::CC_GroupBox, &look, QStyle::SC_GroupBoxLabel, &frame);
}

/// Follows the frame, wherever its layout puts it.
class CaptionKeeper : public QObject
{
public:
    CaptionKeeper(QAbstractButton* box, QGroupBox* frame) : QObject(box), m_box(box), m_frame(frame)
    {
        frame->installEventFilter(this);
        place();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return guardedCall([&] {
            switch (event->type()) {
            case QEvent::Move:
            case QEvent::Resize:
            case QEvent::Show:
            case QEvent::FontChange:
            case QEvent::StyleChange:
                place();
                break;
            default:
                break;
            }
            return QObject::eventFilter(watched, event);
        });
    }

private:
    void place()
    {
        const QRect caption = captionOf(*m_frame);
        const QSize size = m_box->sizeHint().expandedTo(QSize(caption.width(), 0));
        const QPoint corner(caption.left(), caption.center().y() - size.height() / 2);
        const QPoint place = m_frame->mapTo(m_box->parentWidget(), corner);
        m_box->setGeometry(QRect(QPoint(place.x(), qMax(0, place.y())), size));
        m_box->raise();
    }

    QAbstractButton* m_box;
    QGroupBox* m_frame;
};

} // namespace

void putOnCaption(QAbstractButton* box, QGroupBox* frame)
{
    box->setText(frame->title().trimmed());
    box->setToolTip(frame->toolTip());
    box->setAutoFillBackground(true); // covers the caption
    new CaptionKeeper(box, frame);    // lives as long as the box
}

} // namespace brindlemark
