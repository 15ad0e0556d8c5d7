// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <utility>
#include <vector>

class QKeyEvent;
class QWidget;

namespace brindlemark {

/// For as long as it lives, the user's input reaches nothing but the widgets that were marked for it. What is
/// typed meanwhile arrives afterwards; all else is gone: nobody aims at what doesn't move for seconds.
class InputGate : public QObject
{
    Q_OBJECT

public:
    InputGate();
    ~InputGate() override;
    Q_DISABLE_COPY_MOVE(InputGate)

    /// Lets input to a widget, and to what lies in it, through every gate.
    static void letThrough(QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool holdsBack(QObject* watched, QEvent& event);
    bool lets(const QObject* watched, QEvent& event);

    bool m_pressed = false; // a press was let through: what belongs to it follows
    std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QKeyEvent>>> m_keys;
};

} // namespace brindlemark
