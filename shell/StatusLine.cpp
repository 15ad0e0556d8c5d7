// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/StatusLine.h"

#include <QApplication>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>

namespace brindlemark {

namespace {

/// The name that a screen reader says, which is the tool tip too.
constexpr std::array<const char*, StatusLine::Parts> PartNames = {
    "Line and column of the caret",       "Selected characters",        "Encoding of the page",
    "Whether the page is saved and kept", "Languages for the spelling", "Size of the text in this view",
};

} // namespace

StatusLine::StatusLine(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("StatusLine"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(20);
    for (size_t part = 0; part < m_labels.size(); ++part) {
        auto* label = new QLabel(this);
        const QString name = QString::fromLatin1(PartNames.at(part));
        label->setAccessibleName(name);
        label->setToolTip(name);
        label->setTextFormat(Qt::PlainText);
        row->addWidget(label);
        if (part == State)
            row->addStretch(1); // what seldom changes stands at the right
        m_labels.at(part) = label;
    }
}

void StatusLine::tell(const std::array<QString, Parts>& texts)
{
    for (size_t part = 0; part < m_labels.size(); ++part) {
        QLabel* label = m_labels.at(part);
        if (label->text() != texts.at(part))
            label->setText(texts.at(part));
        label->setVisible(!texts.at(part).isEmpty());
    }
    leaveOut();
}

/// What is needed least gives way where there is no room for all.
void StatusLine::leaveOut()
{
    for (const Part part : {Language, Encoding, Zoom, Selected, State}) {
        if (layout()->sizeHint().width() <= width())
            break;
        m_labels.at(part)->hide();
    }
    layout()->activate(); // a text that has grown is not cut meanwhile
}

void StatusLine::fitInto(const QRect& room)
{
    QFont font = QApplication::font();
    const int tallest = room.height() * 3 / 4; // an "A" with what hangs below the line
    if (QFontInfo(font).pixelSize() > tallest)
        font.setPixelSize(qMax(1, tallest));
    setFont(font);
    setGeometry(room);
    leaveOut();
}

} // namespace brindlemark
