// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace brindlemark {

/// One thing that a user does. It holds all that doing it again takes, so that a run is a list of them.
struct Action
{
    QString verb;
    QStringList words{}; ///< what with
    quint32 answers = 0; ///< what the dialogs that it opens are answered by

    bool operator==(const Action&) const = default;
};

/// The action as one line, such as "click FrmHR/Command1 500 500 @17".
QString toText(const Action& action);
/// No value where the line is none.
std::optional<Action> toAction(const QString& line);

/// The actions of a file, one a line. Empty lines and those that begin with "#" count for nothing. No value
/// when it can't be read or holds a line that is no action.
std::optional<QList<Action>> readActions(const QString& path);
/// False when it can't be written.
[[nodiscard]] bool writeActions(const QString& path, const QList<Action>& actions);

} // namespace brindlemark
