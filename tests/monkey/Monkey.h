// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Action.h"
#include "Random.h"

#include <QList>

class QWidget;

namespace brindlemark {

/// A text as users type or paste it by chance.
QString randomTyping(Random& random);

/// A user who acts by chance on whatever windows of the program are there, through keys and mouse of the
/// window system.
class Monkey
{
public:
    /// `documents` is the folder of files that may be dropped.
    explicit Monkey(QString documents);

    /// What to do now.
    Action choose(Random& random);
    /// Does it, where it can be done: what isn't there any more is passed over. What is wrong with what came
    /// of it, or an empty text.
    QString perform(const Action& action);
    /// Lets go of the mouse and of what is open over the windows.
    static void letGo();

private:
    Action chooseOnPopup(Random& random) const;

    QString m_documents;
    QList<Action> m_next; // the rest of what takes several steps
};

/// The name of an open window by which actions call it: that of its class.
QString windowName(const QWidget* window);

} // namespace brindlemark
