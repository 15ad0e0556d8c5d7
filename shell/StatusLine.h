// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <array>

class QLabel;

namespace brindlemark {

/// The line at the lower edge of the main window, which tells how the document stands.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    enum Part { Place, Selected, Encoding, State, Language, Zoom };
    static constexpr int Parts = Zoom + 1;

    explicit StatusLine(QWidget* parent);

    /// What each part shows; an empty one takes no room.
    void tell(const std::array<QString, Parts>& texts);
    /// Takes the room below the views, with letters that fit in it.
    void fitInto(const QRect& room);

private:
    void leaveOut();

    std::array<QLabel*, Parts> m_labels{};
};

} // namespace brindlemark
